# Writes the definition of system_error_calls, from the sources as they are:
#     cmake -DPROJECT=<folder of the project> -DOUTPUT=<source file> -P list_system_error_calls.cmake
file(GLOB_RECURSE sources RELATIVE ${PROJECT} ${PROJECT}/sources/*.cpp ${PROJECT}/sources/*.h)
set(calls "")
foreach(source IN LISTS sources)
  file(READ ${PROJECT}/${source} text)
  string(REGEX MATCHALL "show_system_error\\(" found "${text}")
  foreach(call IN LISTS found)
    string(APPEND calls "    \"${source}\",\n")
  endforeach()
endforeach()
file(WRITE ${OUTPUT} "#include \"tests/control/system_error_calls.h\"

const std::vector<std::string_view> system_error_calls{
${calls}};
")
