# What `cmake --install` puts where, and the Debian package that `cpack` makes of it.
install(TARGETS veldrin-calendar)
install(FILES desktop/veldrin-calendar.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
if(TARGET veldrin)
  install(TARGETS veldrin)
  install(FILES desktop/veldrin.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES desktop/org.veldrin.Veldrin.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES desktop/org.veldrin.Veldrin.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES desktop/org.veldrin.Veldrin.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(icon IN LISTS icons)
    cmake_path(GET icon STEM size)
    install(FILES ${icon} RENAME org.veldrin.Veldrin.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
endif()
# No licence has been chosen, which the package says in the place where one is looked for.
install(FILES desktop/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/veldrin)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME veldrin)
set(CPACK_PACKAGE_CONTACT "Veldrin <veldrin@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Times of sunrise and sunset, as a calendar")
set(CPACK_PACKAGE_DESCRIPTION
  "Shows when the sun rises and sets at a place, and writes the times of a year into an iCalendar file.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
