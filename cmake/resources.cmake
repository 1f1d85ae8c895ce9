# The version number stands in project() alone; what carries it takes it from here.
set(WENDLOW_VERSION ${PROJECT_VERSION}.0)
string(REPLACE . , WENDLOW_VERSION_NUMBERS ${WENDLOW_VERSION})
set(WENDLOW_RESOURCES ${PROJECT_BINARY_DIR}/resources)
configure_file(resources/wendlow.manifest.in ${WENDLOW_RESOURCES}/wendlow.manifest @ONLY)

# What resources/wendlow.rc takes in; no scan for dependencies finds it.
file(GLOB WENDLOW_RESOURCE_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/icons/*.ico)
list(APPEND WENDLOW_RESOURCE_FILES ${WENDLOW_RESOURCES}/wendlow.manifest)

# Menus, icons and manifest of the program.
function(wendlow_take_resources target)
  target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/resources/wendlow.rc)
  target_include_directories(${target} PRIVATE $<$<COMPILE_LANGUAGE:RC>:${WENDLOW_RESOURCES}>)
  set_source_files_properties(${PROJECT_SOURCE_DIR}/resources/wendlow.rc PROPERTIES
    OBJECT_DEPENDS "${WENDLOW_RESOURCE_FILES}")
  if(MSVC)
    # Its linker would add a second manifest.
    target_link_options(${target} PRIVATE /MANIFEST:NO)
  endif()
endfunction()

# Gives a program its version as Windows shows it.
function(wendlow_take_version target description)
  configure_file(${PROJECT_SOURCE_DIR}/resources/version.rc.in ${WENDLOW_RESOURCES}/${target}_version.rc @ONLY)
  target_sources(${target} PRIVATE ${WENDLOW_RESOURCES}/${target}_version.rc)
endfunction()

# The version and the manifest of a program beside the program. Does nothing but on Windows.
function(wendlow_take_tool_resources target description)
  if(WIN32)
    wendlow_take_version(${target} "${description}")
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/resources/tool.rc)
  endif()
endfunction()
