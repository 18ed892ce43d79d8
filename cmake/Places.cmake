# Finds the libraries of places/. veldrin-calendar also builds without them; its messages then say
# what is missing. Static libraries are preferred, because loading a shared one slows every start.
find_path(ABSL_INCLUDE absl/time/internal/cctz/include/cctz/time_zone.h)
find_library(ABSL_TIME_ZONE_LIBRARY NAMES libabsl_time_zone.a absl_time_zone)
find_path(UTF8PROC_INCLUDE utf8proc.h)
find_library(UTF8PROC_LIBRARY NAMES libutf8proc.a utf8proc)

# cctz, a part of Abseil, reads files of the time zone database.
if(ABSL_INCLUDE AND ABSL_TIME_ZONE_LIBRARY)
  veldrin_room(places/cctz)
  target_include_directories(veldrin_cctz SYSTEM PRIVATE ${ABSL_INCLUDE})
  target_link_libraries(veldrin_cctz PRIVATE ${ABSL_TIME_ZONE_LIBRARY})
  target_link_libraries(veldrin_places PUBLIC veldrin_cctz)
else()
  message(STATUS "cctz was not found: veldrin-calendar will know no time zones")
  veldrin_room(places/nozones)
  target_link_libraries(veldrin_places PUBLIC veldrin_nozones)
endif()

# utf8proc folds the names of towns. The table of towns is embedded in the program.
set(towns ${CMAKE_CURRENT_SOURCE_DIR}/places/towns.tsv)
set_source_files_properties(places/TownTable.cpp PROPERTIES
  COMPILE_DEFINITIONS VELDRIN_TOWNS="${towns}" OBJECT_DEPENDS ${towns}
  SKIP_UNITY_BUILD_INCLUSION ON)
if(UTF8PROC_INCLUDE AND UTF8PROC_LIBRARY)
  set_source_files_properties(places/FoldLeftOut.cpp PROPERTIES HEADER_FILE_ONLY ON)
  target_include_directories(veldrin_places SYSTEM PRIVATE ${UTF8PROC_INCLUDE})
  target_link_libraries(veldrin_places PRIVATE ${UTF8PROC_LIBRARY})
else()
  message(STATUS "utf8proc was not found: veldrin-calendar will know no towns")
  set_source_files_properties(places/Fold.cpp PROPERTIES HEADER_FILE_ONLY ON)
endif()
