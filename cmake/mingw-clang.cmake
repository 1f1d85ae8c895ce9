# Cross-building for 64-bit Windows with clang and lld, over the headers and libraries of MinGW-w64 and GCC.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET ${MINGW_TRIPLE})
set(CMAKE_CXX_COMPILER_TARGET ${MINGW_TRIPLE})

# Debian's folder of GCC has a name in which clang does not see the version that it looks for.
execute_process(COMMAND ${MINGW_TRIPLE}-g++ -print-libgcc-file-name
  OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET libgcc PARENT_PATH gcc_folder)
set(CMAKE_CXX_FLAGS_INIT
  "-isystem ${gcc_folder}/include/c++ -isystem ${gcc_folder}/include/c++/${MINGW_TRIPLE} -isystem ${gcc_folder}/include/c++/backward")
foreach(kind IN ITEMS EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld -L${gcc_folder}")
endforeach()
