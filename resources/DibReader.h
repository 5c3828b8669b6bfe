// SPDX-License-Identifier: MIT
// A reader of Windows bitmaps (.bmp): 24 and 32 bits a pixel, and 8 bits with a palette, uncompressed, rows
// in either order.
#pragma once

#include "resources/ImageData.h"

// Reads a whole file from memory. True: *image is a new picture of 3 components, RGB, top row first,
// whatever the file's row order. False for anything that is not such a bitmap or is not all there; *image
// is not touched. Never reads outside the size bytes; takes at most 3 bytes of memory for each of them.
bool ReadDib(const unsigned char* bytes, size_t size, ImageData* image);
