# SPDX-License-Identifier: MIT
# Headers that nearly every source of a part of the project includes, compiled once for that part.

# precompiled_headers(NAME [OPTIONS ...] HEADERS ...) compiles the headers with these options, and
# use_precompiled_headers(TARGET NAME) gives both to a target.
# -fpch-preprocess: a compiler cache must see what the precompiled header was made of.
function(precompiled_headers name)
  cmake_parse_arguments(THE "" "" "OPTIONS;HEADERS" ${ARGN})
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "// What carries the precompiled headers.\n")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_compile_options(${name} PUBLIC ${THE_OPTIONS} $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  target_link_libraries(${name} PRIVATE compile_settings)
  target_precompile_headers(${name} PRIVATE ${THE_HEADERS})
endfunction()

function(use_precompiled_headers target name)
  target_compile_options(${target} PRIVATE $<TARGET_PROPERTY:${name},INTERFACE_COMPILE_OPTIONS>)
  target_precompile_headers(${target} REUSE_FROM ${name})
endfunction()
