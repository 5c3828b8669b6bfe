# SPDX-License-Identifier: MIT
# marlinex_production(NAME SOURCES <file>... [EMBEDDED <folder>])
#
# Makes the show NAME on the installed engine, and with it every companion program: NAME-lint, NAME-list, NAME-capture
# and what else is installed, each of which knows the effects of NAME and finds its Data. The sources have to define what
# kernel/Production.h leaves to a production. They are the object library NAME_production, which tests can link.
#
# The files of the folder EMBEDDED become part of the programs in place of the engine's own: start-form.png is the
# picture of the form, of 348 by 138 pixels.
function(marlinex_production name)
  cmake_parse_arguments(PRODUCTION "" "EMBEDDED" "SOURCES" ${ARGN})
  # Objects: the libraries of the companion programs, which stand behind it in the command, call into it.
  add_library(${name}_production OBJECT ${PRODUCTION_SOURCES}
    ${MARLINEX_SOURCES}/kernel/ProductionTable.cpp ${MARLINEX_SOURCES}/kernel/System.cpp)
  target_include_directories(${name}_production PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name}_production PUBLIC marlinex::marlinex)

  # An object and no library: it must be there before the linker looks into the engine's.
  set(embedded "")
  if(PRODUCTION_EMBEDDED)
    get_filename_component(folder ${PRODUCTION_EMBEDDED} ABSOLUTE)
    embed_files(${folder} platform embeddedFiles EMBEDDED_SOURCE)
    add_library(${name}_embedded OBJECT ${EMBEDDED_SOURCE})
    target_link_libraries(${name}_embedded PRIVATE marlinex::compile_settings)
    set(embedded $<TARGET_OBJECTS:${name}_embedded>)
  endif()

  add_executable(${name} ${MARLINEX_SOURCES}/kernel/Main.cpp ${embedded})
  target_link_libraries(${name} PRIVATE ${name}_production)
  foreach(tool IN LISTS MARLINEX_TOOL_NAMES)
    add_executable(${name}-${tool} ${MARLINEX_SOURCES}/tools/${tool}/Main.cpp ${embedded})
    target_compile_definitions(${name}-${tool} PRIVATE MARLINEX_PROGRAM="${name}-${tool}")
    target_link_libraries(${name}-${tool} PRIVATE marlinex::${tool} ${name}_production)
  endforeach()
endfunction()
