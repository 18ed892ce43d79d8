include(cmake/Rooms.cmake)

# veldrin_room(ROOM): adds a library with the sources of the room, linked to the rooms that it may
# include. The build fails if a file of the room includes any other room.
function(veldrin_room room)
  veldrin_target(${room} target)
  veldrin_uses(${room} uses)
  file(GLOB sources CONFIGURE_DEPENDS ${room}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${room}/*.h)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/includes/${target}.checked)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -D "ROOM=${room}" -D "STAMP=${stamp}"
            -P ${CMAKE_CURRENT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    DEPENDS ${sources} ${headers} ${CMAKE_CURRENT_SOURCE_DIR}/cmake/CheckIncludes.cmake
            ${CMAKE_CURRENT_SOURCE_DIR}/cmake/Rooms.cmake
    COMMENT "Checking what ${room} includes"
    VERBATIM)
  add_custom_target(${target}_includes DEPENDS ${stamp})
  if(sources)
    set(scope PUBLIC)
    add_library(${target} STATIC ${sources})
    add_dependencies(${target} ${target}_includes)
  else()
    set(scope INTERFACE)
    add_library(${target} INTERFACE ${headers})
    add_dependencies(${target} ${target}_includes)
  endif()
  target_link_libraries(${target} ${scope} veldrin_flags)
  if(room IN_LIST VELDRIN_LINKED_TOGETHER)
    list(APPEND uses ${VELDRIN_LINKED_TOGETHER})
    list(REMOVE_ITEM uses ${room})
  endif()
  foreach(used IN LISTS uses)
    veldrin_target(${used} library)
    target_link_libraries(${target} ${scope} ${library})
  endforeach()
endfunction()
