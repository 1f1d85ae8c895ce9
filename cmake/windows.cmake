# wendlow_windows: how all code sees the Windows headers.
add_library(wendlow_windows INTERFACE)
if(WIN32)
  target_compile_definitions(wendlow_windows INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()
if(MSVC)
  target_compile_definitions(wendlow_windows INTERFACE _CRT_SECURE_NO_WARNINGS)
endif()
