# Installs the programs, their manuals, desktop files and icons. cpack makes a Debian package of them.
find_program(VELDRIN_GZIP gzip)
set(texts ${PROJECT_BINARY_DIR}/desktop)

# with_version(NAME): writes a file of desktop/ to the build folder, with the version filled in.
function(with_version name)
  configure_file(desktop/${name}.in ${texts}/${name} @ONLY)
endfunction()

# install_compressed(TEXT DESTINATION): installs TEXT compressed, as Debian wants, or plain without
# gzip. --no-name omits gzip's time stamp, so that equal texts give equal bytes.
function(install_compressed text destination)
  if(NOT VELDRIN_GZIP)
    install(FILES ${text} DESTINATION ${destination})
    return()
  endif()
  cmake_path(GET text FILENAME name)
  set(compressed ${texts}/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND ${VELDRIN_GZIP} -9 --no-name --stdout ${text} > ${compressed}
    DEPENDS ${text}
    VERBATIM)
  add_custom_target(veldrin_${name}.gz ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()

if(TARGET veldrin-calendar)
  install(TARGETS veldrin-calendar)
  with_version(veldrin-calendar.1)
  install_compressed(${texts}/veldrin-calendar.1 ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES desktop/veldrin-calendar.bash RENAME veldrin-calendar
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
endif()
if(TARGET veldrin)
  install(TARGETS veldrin)
  with_version(veldrin.1)
  install_compressed(${texts}/veldrin.1 ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES desktop/org.veldrin.Veldrin.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  with_version(org.veldrin.Veldrin.metainfo.xml)
  install(FILES ${texts}/org.veldrin.Veldrin.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES desktop/org.veldrin.Veldrin.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(icon IN LISTS icons)
    cmake_path(GET icon STEM size)
    install(FILES ${icon} RENAME org.veldrin.Veldrin.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
endif()
# desktop/copyright says that no licence has been chosen.
install(FILES desktop/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/veldrin)
install_compressed(${PROJECT_SOURCE_DIR}/desktop/changelog ${CMAKE_INSTALL_DATADIR}/doc/veldrin)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME veldrin)
set(CPACK_PACKAGE_CONTACT "Veldrin <veldrin@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Times of sunrise and sunset, as a calendar")
set(CPACK_PACKAGE_DESCRIPTION
  "Shows when the sun rises and sets at a place, and writes the times of a
year into an iCalendar file.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/OpenFolders.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt needs this plugin on a Wayland desktop.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)
include(CPack)
