// SPDX-License-Identifier: MIT
#include "resources/ImageData.h"

unsigned char* AllocatePixels(size_t bytes)
{
    return new unsigned char[bytes]();
}

void FreeImage(ImageData* image)
{
    delete[] image->data;
    image->data = nullptr;
}
