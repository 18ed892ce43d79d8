# Makes the unity files of a build (preset tidy) fit for clang-tidy.

# accept_sources(FOLDER): unity files include sources, which clang-tidy otherwise takes for a mistake.
function(accept_sources folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    set_target_properties(${target} PROPERTIES
      UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(below IN LISTS folders)
    accept_sources(${below})
  endforeach()
endfunction()

accept_sources(${PROJECT_SOURCE_DIR})

# In one file with the sources that count references, or with Qt's timers, the analyzer reports
# leaks that are none.
foreach(target IN ITEMS veldrin_objects veldrin-qt-tests)
  if(TARGET ${target})
    set_target_properties(${target} PROPERTIES UNITY_BUILD OFF)
  endif()
endforeach()
