// SPDX-License-Identifier: MIT
// A reader of Windows bitmaps (.bmp): 24 and 32 bits a pixel, and 8 bits with a palette, uncompressed, rows
// in either order.
//
// Written out, since the readers of libraries keep fewer bounds: SDL's takes a palette and masks for given that the file
// does not have, and reads depths that no bitmap has, and DevIL's was seen to write past its buffers.
#pragma once

#include "resources/ImageData.h"

// Reads a whole file from memory. True: *image is a new picture of 3 components, RGB, top row first,
// whatever the file's row order. False for anything that is not such a bitmap or is not all there; *image
// is not touched. Never reads outside the size bytes; takes at most 3 bytes of memory for each of them.
bool ReadDib(const unsigned char* bytes, size_t size, ImageData* image);
