# Libraries of Windows' that a program needs for a few of its commands only: they are loaded when one of the
# functions is called first, and not at its start.
#     wendlow_delay_library(wendlow comdlg32 GetOpenFileNameW ...)
# MSVC's linker does it by itself. For GNU's, its dlltool makes a library of the functions' names; LLVM's linker would
# put the addresses that this changes where they cannot be written, so with that one they are loaded at the start.
function(wendlow_delay_library target library)
  if(MSVC)
    target_link_libraries(${target} PRIVATE ${library} delayimp)
    target_link_options(${target} PRIVATE /DELAYLOAD:${library}.dll)
    return()
  elseif(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_link_libraries(${target} PRIVATE ${library})
    return()
  endif()
  set(name ${library}_delayed)
  set(file ${PROJECT_BINARY_DIR}/lib${name}.a)
  string(REPLACE ";" "\n" functions "${ARGN}")
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${name}.def CONTENT "LIBRARY ${library}.dll\nEXPORTS\n${functions}\n")
  add_custom_command(OUTPUT ${file}
    COMMAND ${CMAKE_DLLTOOL} --def ${name}.def --output-delaylib lib${name}.a
    DEPENDS ${PROJECT_BINARY_DIR}/${name}.def
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    VERBATIM)
  add_custom_target(${name} DEPENDS ${file})
  add_dependencies(${target} ${name})
  target_link_libraries(${target} PRIVATE ${file})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${file})
endfunction()
