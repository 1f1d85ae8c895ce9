# Writes the definitions of report_rows and system_error_calls, from the sources as they are:
#     cmake -DPROJECT=<folder of the project> -DOUTPUT=<source file> -P list_reports.cmake
file(GLOB_RECURSE sources RELATIVE ${PROJECT} ${PROJECT}/sources/*.cpp ${PROJECT}/sources/*.h)
list(SORT sources)
set(includes "")
set(rows "")
set(calls "")
foreach(source IN LISTS sources)
  file(READ ${PROJECT}/${source} text)
  string(REGEX MATCHALL "constexpr ErrorRow k[A-Za-z0-9]+" found "${text}")
  if(found)
    string(APPEND includes "#include \"${source}\"\n")
  endif()
  foreach(row IN LISTS found)
    string(REPLACE "constexpr ErrorRow " "" row "${row}")
    string(APPEND rows "    &${row},\n")
  endforeach()
  string(REGEX MATCHALL "show_system_error\\(" found "${text}")
  foreach(call IN LISTS found)
    string(APPEND calls "    \"${source}\",\n")
  endforeach()
endforeach()
file(WRITE ${OUTPUT} "#include \"tests/control/errors/listed_reports.h\"

${includes}
const std::vector<const ErrorRow*> report_rows{
${rows}};
const std::vector<std::string_view> system_error_calls{
${calls}};
")
