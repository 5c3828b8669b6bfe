# SPDX-License-Identifier: MIT
# Makes the AppStream description of the show, with what desktop/publisher.txt says, and sets MARLINEX_APPSTREAM_ID.
# As a script:
#   cmake -DPUBLISHER=<publisher.txt> -DPROJECT_VERSION=<version> -DOUTPUT=<file> -P MakeMetainfo.cmake
set(sources ${CMAKE_CURRENT_LIST_DIR}/..)

file(STRINGS ${PUBLISHER} line REGEX "^AppStream-Id:")
string(REGEX REPLACE "^[A-Za-z-]+: *(.*)$" "\\1" MARLINEX_APPSTREAM_ID "${line}")
file(STRINGS ${PUBLISHER} line REGEX "^Homepage:")
string(REGEX REPLACE "^[A-Za-z-]+: *(.*)$" "\\1" MARLINEX_HOMEPAGE "${line}")

# The day of the version is that of its entry in debian/changelog, the only place that has it.
file(STRINGS ${sources}/debian/changelog MARLINEX_RELEASE_DATE REGEX "^ -- " LIMIT_COUNT 1)
string(REGEX REPLACE ".*, ([0-9]+) ([A-Z][a-z][a-z]) ([0-9]+) .*" "\\3-\\2-\\1" MARLINEX_RELEASE_DATE
  "${MARLINEX_RELEASE_DATE}")
set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
string(REGEX MATCH "[A-Z][a-z][a-z]" month "${MARLINEX_RELEASE_DATE}")
list(FIND months "${month}" number)
math(EXPR number "${number} + 101")
string(SUBSTRING ${number} 1 2 number)
string(REPLACE "${month}" "${number}" MARLINEX_RELEASE_DATE "${MARLINEX_RELEASE_DATE}")

# Screenshots are read from the site, so that a show without one has none.
set(MARLINEX_SCREENSHOTS "")
if(NOT MARLINEX_HOMEPAGE MATCHES "^https?://[^/]*\\.invalid(/|$)")
  file(READ ${sources}/desktop/screenshots.xml.in screenshots)
  string(CONFIGURE "${screenshots}" MARLINEX_SCREENSHOTS @ONLY)
endif()
configure_file(${sources}/desktop/moonwaltz.metainfo.xml.in ${OUTPUT} @ONLY)
