# wendlow_warnings: the warnings of all code. They are errors in the project's own checks (scripts/test); who
# builds the program with a newer compiler is not stopped by its new ones.
option(WENDLOW_WARNINGS_AS_ERRORS "Take warnings for errors" OFF)

add_library(wendlow_warnings INTERFACE)
if(MSVC)
  target_compile_options(wendlow_warnings INTERFACE
    /W4 /permissive- /utf-8 $<$<BOOL:${WENDLOW_WARNINGS_AS_ERRORS}>:/WX>)
else()
  target_compile_options(wendlow_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${WENDLOW_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
