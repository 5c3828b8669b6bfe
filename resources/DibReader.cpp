// SPDX-License-Identifier: MIT
#include "resources/DibReader.h"

#include <cstdint>

// Offsets into the file. All numbers are little-endian.
const size_t pixelsAt = 10;      // u32, where the pixels start
const size_t headerSizeAt = 14;  // u32, counted from here
const size_t widthAt = 18;       // i32
const size_t heightAt = 22;      // i32, negative for top row first
const size_t planesAt = 26;      // u16
const size_t bitsAt = 28;        // u16, bits a pixel
const size_t compressionAt = 30; // u32
const size_t colourCountAt = 46; // u32, rows of the palette, 0 for all
const size_t masksAt = 54;       // 3 u32: red, green, blue; only with bit fields
const size_t smallestFile = 54;

const uint32_t smallestHeader = 40;
const uint32_t uncompressed = 0;
const uint32_t bitFields = 3;
const uint32_t fullPalette = 256;

static uint32_t Read16(const unsigned char* p)
{
    return p[0] | p[1] << 8;
}
static uint32_t Read32(const unsigned char* p)
{
    return Read16(p) | Read16(p + 2) << 16;
}

struct Dib {
    const unsigned char* pixels;
    const unsigned char* palette; // blue, green, red, nothing; only with 8 bits
    uint32_t colours;             // rows of the palette
    uint32_t width;
    uint32_t height;
    bool topDown;
    uint32_t bytesPerPixel; // 1, 3 or 4
    uint64_t rowBytes;      // with the padding to 4
};

// The one order of bit fields that other programs write: blue, green, red as in every bitmap.
static bool MasksArePlain(const unsigned char* bytes, size_t size)
{
    return size >= masksAt + 12 && Read32(bytes + masksAt) == 0xFF0000 &&
           Read32(bytes + masksAt + 4) == 0xFF00 && Read32(bytes + masksAt + 8) == 0xFF;
}

static bool ParseDib(const unsigned char* bytes, size_t size, Dib* dib)
{
    if (size < smallestFile || bytes[0] != 'B' || bytes[1] != 'M')
        return false;
    const uint32_t headerSize = Read32(bytes + headerSizeAt);
    const uint32_t bits = Read16(bytes + bitsAt);
    const uint32_t compression = Read32(bytes + compressionAt);
    if (headerSize < smallestHeader || Read16(bytes + planesAt) != 1)
        return false;
    if (bits != 8 && bits != 24 && bits != 32)
        return false;
    const bool plainMasks = bits == 32 && compression == bitFields && MasksArePlain(bytes, size);
    if (compression != uncompressed && !plainMasks)
        return false;

    // As 64-bit numbers, so that the smallest height there is can be turned round.
    const int64_t width = static_cast<int32_t>(Read32(bytes + widthAt));
    const int64_t height = static_cast<int32_t>(Read32(bytes + heightAt));
    if (width <= 0 || height == 0 || height == INT32_MIN)
        return false;
    dib->width = static_cast<uint32_t>(width);
    dib->height = static_cast<uint32_t>(height < 0 ? -height : height);
    dib->topDown = height < 0;
    dib->bytesPerPixel = bits / 8;
    dib->rowBytes = (uint64_t{dib->width} * dib->bytesPerPixel + 3) / 4 * 4;

    const uint64_t pixelsStart = Read32(bytes + pixelsAt);
    if (pixelsStart > size || dib->rowBytes > (size - pixelsStart) / dib->height)
        return false;
    dib->pixels = bytes + pixelsStart;

    dib->palette = nullptr;
    dib->colours = 0;
    if (bits == 8) {
        const uint32_t told = Read32(bytes + colourCountAt);
        dib->colours = told == 0 || told > fullPalette ? fullPalette : told;
        const uint64_t paletteStart = uint64_t{headerSizeAt} + headerSize;
        if (paletteStart + dib->colours * 4 > size)
            return false;
        dib->palette = bytes + paletteStart;
    }
    return true;
}

bool ReadDib(const unsigned char* bytes, size_t size, ImageData* image)
{
    Dib dib;
    if (!ParseDib(bytes, size, &dib))
        return false;
    unsigned char* const pixels = AllocatePixels(size_t{dib.width} * dib.height * 3);
    if (!pixels)
        return false;
    image->data = pixels;
    image->width = static_cast<int>(dib.width);
    image->height = static_cast<int>(dib.height);
    image->components = 3;
    unsigned char* out = image->data;
    for (uint32_t y = 0; y < dib.height; ++y) {
        const unsigned char* in = dib.pixels + (dib.topDown ? y : dib.height - 1 - y) * dib.rowBytes;
        for (uint32_t x = 0; x < dib.width; ++x, in += dib.bytesPerPixel, out += 3) {
            static const unsigned char black[3] = {};
            const unsigned char* bgr = in;
            if (dib.palette) // an index past a short palette is black
                bgr = *in < dib.colours ? dib.palette + *in * 4 : black;
            out[0] = bgr[2];
            out[1] = bgr[1];
            out[2] = bgr[0];
        }
    }
    return true;
}
