# SPDX-License-Identifier: MIT
# Turns the files of a folder into one C++ source that holds their bytes, for platform/EmbeddedFiles.h.
#   cmake -DFOLDER=<folder> -DOUTPUT=<source> -P EmbedFiles.cmake
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

namespace platform
{

${arrays}
const EmbeddedFile embeddedFiles[] = {
${rows}    {nullptr, nullptr, 0},
};

} // namespace platform
")
