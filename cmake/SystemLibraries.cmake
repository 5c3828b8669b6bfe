# SPDX-License-Identifier: MIT
# The libraries of the system that the engine calls, as the one target MarlinexSystem::Libraries. The project includes
# this file, and so does marlinexConfig.cmake on behalf of those who link the installed engine.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
pkg_check_modules(GLEW REQUIRED IMPORTED_TARGET glew)
pkg_check_modules(GL REQUIRED IMPORTED_TARGET gl glu)
pkg_check_modules(X11 REQUIRED IMPORTED_TARGET x11 xrandr)
pkg_check_modules(CAIRO_XLIB REQUIRED cairo-xlib)
pkg_check_modules(SOUND REQUIRED IMPORTED_TARGET sndfile libmpg123 libopenmpt)
find_library(DEVIL_IL IL REQUIRED)
find_library(DEVIL_ILU ILU REQUIRED)
find_library(FLTK_LIBRARY fltk REQUIRED)
find_library(FLTK_IMAGES_LIBRARY fltk_images REQUIRED)

if(NOT TARGET MarlinexSystem::Libraries)
  add_library(MarlinexSystem::Libraries INTERFACE IMPORTED)
  target_link_libraries(MarlinexSystem::Libraries INTERFACE
    PkgConfig::SDL2 PkgConfig::GLEW PkgConfig::GL PkgConfig::X11 PkgConfig::SOUND
    ${DEVIL_IL} ${DEVIL_ILU} ${FLTK_IMAGES_LIBRARY} ${FLTK_LIBRARY} ${CAIRO_XLIB_LINK_LIBRARIES})
endif()
