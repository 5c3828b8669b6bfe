# SPDX-License-Identifier: MIT
# What a production of one's own needs of an installed engine: headers, static libraries, the few sources that are
# compiled anew for each production, and what CMake and pkg-config ask for. docs/PRODUCTION.md is the page about it.
include(CMakePackageConfigHelpers)

set(HEADER_FOLDERS display kernel math music platform platform/dialogs platform/toolwindow resources script)
set(MARLINEX_SOURCES ${CMAKE_INSTALL_DATADIR}/marlinex)
set(PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/marlinex)
get_property(MARLINEX_TOOL_NAMES GLOBAL PROPERTY MARLINEX_TOOL_NAMES)
get_property(MARLINEX_TOOL_PACKAGES GLOBAL PROPERTY MARLINEX_TOOL_PACKAGES)
string(REPLACE ";" "\n" MARLINEX_TOOL_PACKAGES "${MARLINEX_TOOL_PACKAGES}")
get_property(libraries GLOBAL PROPERTY MARLINEX_INSTALLED_LIBRARIES)
if(MARLINEX_TOOLS)
  list(APPEND HEADER_FOLDERS tools/cli)
  install(TARGETS tool_cli ${libraries} EXPORT marlinexTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
foreach(tool IN LISTS MARLINEX_TOOL_NAMES)
  list(APPEND HEADER_FOLDERS tools/${tool})
  install(FILES tools/${tool}/Main.cpp DESTINATION ${MARLINEX_SOURCES}/tools/${tool})
  install(TARGETS tool_${tool} EXPORT marlinexTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endforeach()
foreach(folder IN LISTS HEADER_FOLDERS)
  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/marlinex/${folder})
endforeach()

install(TARGETS marlinex compile_settings EXPORT marlinexTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES kernel/Main.cpp kernel/ProductionTable.cpp kernel/System.cpp DESTINATION ${MARLINEX_SOURCES}/kernel)
install(EXPORT marlinexTargets NAMESPACE marlinex:: DESTINATION ${PACKAGE_FOLDER})
configure_package_config_file(cmake/marlinexConfig.cmake.in ${CMAKE_BINARY_DIR}/cmake/marlinexConfig.cmake
  INSTALL_DESTINATION ${PACKAGE_FOLDER} PATH_VARS MARLINEX_SOURCES)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/cmake/marlinexConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/cmake/marlinexConfig.cmake ${CMAKE_BINARY_DIR}/cmake/marlinexConfigVersion.cmake
  cmake/SystemLibraries.cmake cmake/EmbedFiles.cmake cmake/MarlinexProduction.cmake DESTINATION ${PACKAGE_FOLDER})
configure_file(cmake/marlinex.pc.in ${CMAKE_BINARY_DIR}/cmake/marlinex.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/cmake/marlinex.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# marlinex-new and what it copies. The effect of the template is the one of docs/EFFECTS.md.
file(READ docs/EFFECTS.md page)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/EFFECTS.md)
foreach(name FX_Lantern.h FX_Lantern.cpp)
  string(FIND "${page}" "```cpp ${name}\n" begin)
  if(begin EQUAL -1)
    message(FATAL_ERROR "docs/EFFECTS.md has no block ${name}")
  endif()
  string(LENGTH "```cpp ${name}\n" fence)
  math(EXPR begin "${begin} + ${fence}")
  string(SUBSTRING "${page}" ${begin} -1 code)
  string(FIND "${code}" "```" end)
  string(SUBSTRING "${code}" 0 ${end} code)
  file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/template/effects/${name} CONTENT "${code}")
  install(FILES ${CMAKE_BINARY_DIR}/template/effects/${name} DESTINATION ${MARLINEX_SOURCES}/template/effects)
endforeach()
install(DIRECTORY template/ DESTINATION ${MARLINEX_SOURCES}/template)
configure_file(tools/marlinex-new.in ${CMAKE_BINARY_DIR}/marlinex-new @ONLY)
install(PROGRAMS ${CMAKE_BINARY_DIR}/marlinex-new DESTINATION ${CMAKE_INSTALL_BINDIR})
if(MARLINEX_TOOLS)
  set(page ${CMAKE_BINARY_DIR}/man/marlinex-new.1)
  set(text ${CMAKE_SOURCE_DIR}/docs/man/marlinex-new.h2m)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -DHELP2MAN=${HELP2MAN} -DPROGRAM=${CMAKE_BINARY_DIR}/marlinex-new
            -DVERSION=${PROJECT_VERSION} -DTEXT=${text} -DTABLES=${CMAKE_SOURCE_DIR}/docs/TOOLS.md -DOUTPUT=${page}
            -P ${CMAKE_SOURCE_DIR}/cmake/MakeManual.cmake
    DEPENDS tools/marlinex-new.in ${text} cmake/MakeManual.cmake
    COMMENT "Making the manual page of marlinex-new" VERBATIM)
  add_custom_target(manual-new ALL DEPENDS ${page})
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
