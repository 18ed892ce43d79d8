cmake_minimum_required(VERSION 3.25)

# Fails where a file of FOLDER includes from a folder that is neither its own nor one of USES, which
# are joined by "|"; else leaves STAMP behind.
file(GLOB files ${FOLDER}/*.h ${FOLDER}/*.cpp)
string(REPLACE "|" ";" allowed "${USES}")
list(APPEND allowed ${FOLDER})
foreach(file IN LISTS files)
  file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*[\"<]([^\">]*)[\">].*$" "\\1" path "${include}")
    # Headers of the system lie in no folder of the house.
    if(include MATCHES "<" AND NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${path}")
      continue()
    endif()
    get_filename_component(from "${path}" DIRECTORY)
    if(NOT from IN_LIST allowed)
      message(FATAL_ERROR "${file} includes from ${from}, but ${FOLDER} may use only: ${allowed}")
    endif()
  endforeach()
endforeach()
file(TOUCH ${STAMP})
