// SPDX-License-Identifier: MIT
// How picture files are read: whole, from regular files alone, and bounded.
#pragma once

#include <string>

// All bytes of a picture file. Empty for a file that can't be read, is no regular file (a directory, a
// pipe, a device) or is larger than 256 MiB.
std::string ReadPictureFile(const std::string& path);

// Makes the image library read through ReadPictureFile, and read zeros behind a file's end: left to itself
// it goes on with whatever its buffer held before, and on a PNG that was cut off among its chunks it never
// comes back. Zeros are no chunk, so the decoder gives up. Call once, after ilInit.
void GuardImageFiles();
