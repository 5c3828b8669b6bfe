# SPDX-License-Identifier: MIT
# What the desktop is told of the show: entry, icons, description and manual page.
set(MARLINEX_HOMEPAGE https://moonwaltz.example CACHE STRING "The show's site; its folder screenshots/ holds docs/pictures/screenshots")

# The day of the version is that of its entry in debian/changelog, the only place that has it.
file(STRINGS debian/changelog MARLINEX_RELEASE_DATE REGEX "^ -- " LIMIT_COUNT 1)
string(REGEX REPLACE ".*, ([0-9]+) ([A-Z][a-z][a-z]) ([0-9]+) .*" "\\3-\\2-\\1" MARLINEX_RELEASE_DATE
  "${MARLINEX_RELEASE_DATE}")
set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
string(REGEX MATCH "[A-Z][a-z][a-z]" month "${MARLINEX_RELEASE_DATE}")
list(FIND months "${month}" number)
math(EXPR number "${number} + 101")
string(SUBSTRING ${number} 1 2 number)
string(REPLACE "${month}" "${number}" MARLINEX_RELEASE_DATE "${MARLINEX_RELEASE_DATE}")

configure_file(desktop/moonwaltz.metainfo.xml.in ${CMAKE_BINARY_DIR}/desktop/art.tessel.moonwaltz.metainfo.xml @ONLY)
configure_file(docs/man/moonwaltz.1.in ${CMAKE_BINARY_DIR}/man/moonwaltz.1 @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/man/moonwaltz.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/desktop/art.tessel.moonwaltz.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES desktop/moonwaltz.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES desktop/icons/moonwaltz.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
file(GLOB icons CONFIGURE_DEPENDS desktop/icons/moonwaltz-*.png)
foreach(icon IN LISTS icons)
  get_filename_component(name ${icon} NAME)
  string(REGEX MATCH "[0-9]+" size ${name})
  install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME moonwaltz.png)
endforeach()
