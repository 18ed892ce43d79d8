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

# In a unity file, the analyzer reports counted references and timers of Qt as leaks. It also misses
# the .clang-tidy of tests/qt and bench/window.
foreach(target IN ITEMS veldrin_objects veldrin-qt-tests
        veldrin-failing veldrin-bare-window veldrin-status-window veldrin-year-press)
  if(TARGET ${target})
    set_target_properties(${target} PROPERTIES UNITY_BUILD OFF)
  endif()
endforeach()
