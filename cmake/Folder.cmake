# veldrin_folder(FOLDER [USES OTHER...]): the sources of a folder as one target, which is not built
# while a file in it includes from a folder that is neither its own nor among the others.
function(veldrin_folder folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES")
  string(REPLACE "/" "-" target ${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  set(stamp ${CMAKE_BINARY_DIR}/includes/${target}.checked)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/includes)
  list(JOIN arg_USES "|" uses)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -D "FOLDER=${folder}" -D "USES=${uses}" -D "STAMP=${stamp}"
            -P ${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    DEPENDS ${sources} ${headers} ${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake
    COMMENT "Checking what ${folder} includes"
    VERBATIM)
  add_library(${target} OBJECT ${sources} ${stamp})
  target_link_libraries(${target} PRIVATE veldrin-flags)
endfunction()
