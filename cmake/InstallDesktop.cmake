# SPDX-License-Identifier: MIT
# What the desktop is told of the show: entry, icons, description and manual page.
set(PUBLISHER ${CMAKE_SOURCE_DIR}/desktop/publisher.txt)
set(OUTPUT ${CMAKE_BINARY_DIR}/desktop/moonwaltz.metainfo.xml)
include(cmake/MakeMetainfo.cmake)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${PUBLISHER} ${CMAKE_SOURCE_DIR}/desktop/screenshots.xml.in ${CMAKE_SOURCE_DIR}/debian/changelog)

configure_file(docs/man/moonwaltz.1.in ${CMAKE_BINARY_DIR}/man/moonwaltz.1 @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/man/moonwaltz.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${OUTPUT} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo RENAME ${MARLINEX_APPSTREAM_ID}.metainfo.xml)
install(FILES desktop/moonwaltz.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES desktop/icons/moonwaltz.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
file(GLOB icons CONFIGURE_DEPENDS desktop/icons/moonwaltz-*.png)
foreach(icon IN LISTS icons)
  get_filename_component(name ${icon} NAME)
  string(REGEX MATCH "[0-9]+" size ${name})
  install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME moonwaltz.png)
endforeach()
