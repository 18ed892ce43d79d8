cmake_minimum_required(VERSION 3.25)

# Fails if a file of ROOM includes a room that Rooms.cmake does not list for ROOM. Otherwise touches
# the file STAMP.
include(${CMAKE_CURRENT_LIST_DIR}/Rooms.cmake)

veldrin_uses(${ROOM} allowed)
list(JOIN allowed ", " allowed_text)
if(NOT allowed_text)
  set(allowed_text "its own files and libraries")
endif()

# line_of(FILE TEXT RESULT): sets RESULT to the number of the first line with the text.
function(line_of file text result)
  file(READ ${file} content)
  string(FIND "${content}" "${text}" place)
  string(SUBSTRING "${content}" 0 ${place} before)
  string(REGEX MATCHALL "\n" breaks "${before}")
  list(LENGTH breaks count)
  math(EXPR count "${count} + 1")
  set(${result} ${count} PARENT_SCOPE)
endfunction()

file(GLOB files RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${ROOM}/*.h ${ROOM}/*.cpp)
foreach(file IN LISTS files)
  file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*[\"<]([^\">]*)[\">].*$" "\\1" path "${include}")
    # A header of a library.
    if(include MATCHES "<" AND NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${path}")
      continue()
    endif()
    get_filename_component(included_room "${path}" DIRECTORY)
    if(NOT included_room STREQUAL ROOM AND NOT included_room IN_LIST allowed)
      line_of(${file} "${include}" line)
      message(FATAL_ERROR
        "${file}:${line}: includes \"${path}\", but ${ROOM} may include only: ${allowed_text} (cmake/Rooms.cmake)")
    endif()
  endforeach()
endforeach()
get_filename_component(folder ${STAMP} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
file(TOUCH ${STAMP})
