// SPDX-License-Identifier: MIT
// How picture files are read: whole, from regular files alone, and bounded.
#pragma once

#include <string>

// All bytes of a picture file. Empty for a file that can't be read, is no regular file (a directory, a
// pipe, a device) or is larger than 256 MiB.
std::string ReadPictureFile(const std::string& path);

// Installs read callbacks in the image library that use ReadPictureFile and deliver zeros after a file's end. The
// library's own callbacks leave the old content of its buffer there, and on a PNG that was cut off between two chunks
// the library then never returns. Zeros are not a valid chunk, so that the decoder fails. Call once, after ilInit.
void GuardImageFiles();
