// SPDX-License-Identifier: MIT
// Pixels in memory, between a decoder and GL.
//
// Nothing is converted on the way: the bytes are those that the decoder holds, the upload calls them RGB or
// RGBA, and the rows keep the decoder's order. For JPEG and PNG the first row is the picture's top row, so
// texture coordinate t = 0 is its top edge and t = 1 its bottom edge.
#pragma once

#include <cstddef>

// A plain record, passed by value. Whoever ends up with it owns data and gives it back with FreeImage.
struct ImageData {
    unsigned char* data = nullptr; // interleaved, no row padding; null means failure
    int width = 0;                 // pixels
    int height = 0;                // pixels
    int components = 3;            // 3 or 4: what the upload reads a pixel as
};

// A buffer of zeros for data. Null: there is not so much memory.
unsigned char* AllocatePixels(size_t bytes);
void FreePixels(unsigned char* pixels);

// Frees the pixels and sets data to null; the sizes stay. A record without pixels is left alone.
void FreeImage(ImageData* image);
