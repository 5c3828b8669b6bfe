// SPDX-License-Identifier: MIT
#include "resources/ImageData.h"

#include <algorithm>
#include <cstdlib>

// Not by new: where that fails, the process is told to end (kernel/OutOfMemory.h), also if it may return
// null.
unsigned char* AllocatePixels(size_t bytes)
{
    return static_cast<unsigned char*>(calloc(std::max<size_t>(bytes, 1), 1));
}

void FreePixels(unsigned char* pixels)
{
    free(pixels);
}

void FreeImage(ImageData* image)
{
    FreePixels(image->data);
    image->data = nullptr;
}
