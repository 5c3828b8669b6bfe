# SPDX-License-Identifier: MIT
# embed_files(FOLDER NAMESPACE TABLE VARIABLE): the files of a folder become one C++ source, whose path VARIABLE
# receives. It holds their bytes and the table NAMESPACE::TABLE of them, as platform/EmbeddedFiles.h has it.
# The source is made at build time by this script itself:
#   cmake -DFOLDER=<folder> -DNAMESPACE=<namespace> -DTABLE=<table> -DOUTPUT=<source> -P EmbedFiles.cmake
if(NOT CMAKE_SCRIPT_MODE_FILE)
  function(embed_files folder namespace table variable)
    set(script ${CMAKE_CURRENT_FUNCTION_LIST_FILE})
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${namespace}-${table}.cpp)
    file(GLOB files CONFIGURE_DEPENDS ${folder}/*)
    add_custom_command(OUTPUT ${source}
      COMMAND ${CMAKE_COMMAND} -DFOLDER=${folder} -DNAMESPACE=${namespace} -DTABLE=${table} -DOUTPUT=${source}
              -P ${script}
      DEPENDS ${files} ${script}
      COMMENT "Embedding ${folder}" VERBATIM)
    set(${variable} ${source} PARENT_SCOPE)
  endfunction()
  return()
endif()

file(GLOB files LIST_DIRECTORIES false ${FOLDER}/*)
list(SORT files)

set(arrays "")
set(rows "")
set(index 0)
foreach(path IN LISTS files)
  get_filename_component(name ${path} NAME)
  file(SIZE ${path} size)
  file(READ ${path} bytes HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  # An empty file still needs an array with something in it.
  string(APPEND arrays "static const unsigned char file${index}[] = {${bytes}0x00};\n")
  string(APPEND rows "    {\"${name}\", file${index}, ${size}},\n")
  math(EXPR index "${index} + 1")
endforeach()

file(WRITE ${OUTPUT} "// Made by cmake/EmbedFiles.cmake.
#include \"platform/EmbeddedFiles.h\"

namespace ${NAMESPACE}
{

extern const platform::EmbeddedFile ${TABLE}[];

${arrays}
const platform::EmbeddedFile ${TABLE}[] = {
${rows}    {nullptr, nullptr, 0},
};

} // namespace ${NAMESPACE}
")
