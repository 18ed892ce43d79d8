cmake_minimum_required(VERSION 3.25)

# Fails where a file of FOLDER includes from a folder that is neither its own nor one of USES, which
# are joined by "|"; else leaves STAMP behind.
file(GLOB files ${FOLDER}/*.h ${FOLDER}/*.cpp)
string(REPLACE "|" ";" allowed "${USES}")
list(APPEND allowed ${FOLDER})
foreach(file IN LISTS files)
  file(STRINGS ${file} includes REGEX "^#include \"")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^#include \"(.*)/[^/]*\".*$" "\\1" from "${include}")
    if(NOT from IN_LIST allowed)
      message(FATAL_ERROR "${file} includes from ${from}, but ${FOLDER} may use only: ${allowed}")
    endif()
  endforeach()
endforeach()
file(TOUCH ${STAMP})
