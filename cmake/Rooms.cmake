# The house: each room, and the other rooms that its files may include. Any other include fails the
# build.
#
#    room               | may include
set(VELDRIN_ROOMS
  "shell/objects        |"
  "shell/host           | shell/objects"
  "shell/values         | shell/objects shell/host"
  "shell/files          | shell/objects shell/host shell/values"
  "shell/window         | shell/objects shell/host shell/values shell/files"
  "shell                | shell/objects shell/host shell/values shell/files shell/window"
  "reflection           | shell/objects"
  "solar                | shell/objects shell/host shell/values"
  "civiltime            | shell/objects shell/host shell/values solar"
  "daystatus            | shell/objects shell/host shell/values shell/files shell/window solar civiltime"
  "calendar             | shell/objects shell/host shell/values shell/files shell/window daystatus"
  "ui                   | shell/objects shell/host shell/values shell/files shell/window daystatus"
  "almanac              | shell/objects shell/host shell/values shell/files solar civiltime"
  "places               | shell/objects shell/host shell/values shell/files solar civiltime"
  "places/cctz          | shell/objects shell/host shell/values civiltime places"
  "places/nozones       | shell/objects shell/host shell/values civiltime places"
  "chart                | shell/objects shell/host shell/values shell/files solar civiltime almanac"
  "toolkits/headless    | shell/objects shell/host shell/values shell/files shell/window"
  "toolkits/qt          | shell/objects shell/host shell/values shell/files shell/window")

# These rooms define one class, Veldrin, so a program links all three.
set(VELDRIN_LINKED_TOGETHER daystatus calendar ui)

# veldrin_target(ROOM RESULT): sets RESULT to the name of the room's library, as in veldrin_values.
function(veldrin_target room result)
  cmake_path(GET room FILENAME name)
  set(${result} veldrin_${name} PARENT_SCOPE)
endfunction()

# veldrin_uses(ROOM RESULT): sets RESULT to the rooms that the table lists for the room.
function(veldrin_uses room result)
  foreach(row IN LISTS VELDRIN_ROOMS)
    if(row MATCHES "^([^ |]+) *\\| *(.*)$" AND CMAKE_MATCH_1 STREQUAL room)
      string(REPLACE " " ";" uses "${CMAKE_MATCH_2}")
      set(${result} ${uses} PARENT_SCOPE)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "${room} is not in the table of cmake/Rooms.cmake")
endfunction()
