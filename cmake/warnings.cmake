# wendlow_warnings: the warnings of all code, as errors.
add_library(wendlow_warnings INTERFACE)
if(MSVC)
  target_compile_options(wendlow_warnings INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(wendlow_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()
