// SPDX-License-Identifier: MIT
// What a picture file tells of its size, held against the bytes that it has. A file of a few bytes can tell
// of sides for which a decoder takes gigabytes, or whose product it can't count.
#pragma once

#include <cstdint>
#include <string>

const uint64_t MaxPictureSide = 16384;      // pixels
const uint64_t MaxPicturePixels = 67108864; // 8192 by 8192; in use a picture takes 4 to 24 bytes for each

struct PictureClaim {
    uint64_t width = 0; // pixels, both 0 where the header says nothing or is not all there
    uint64_t height = 0;
    uint64_t fewestBytes = 0; // that a file of these sides can have, at the closest packing of its format
};

// The size that is told by the header of a PNG, JPEG, PNM, BMP, TGA, SGI, PCX, PSD or GIF file. type is the
// image library's, as IL_PNG. Other types give an empty claim.
PictureClaim ReadPictureClaim(unsigned type, const std::string& bytes);

// True if a JPEG file is cut inside one of its segments, behind the two bytes of its length. The library's reader
// never comes back from such a file: it waits for the bytes that the segment tells of.
bool JpegEndsInSegment(const std::string& bytes);

// Of a picture of any format, from its sides alone: the closest packing of all is that of a blank row of a
// fax, which takes a bit.
PictureClaim LoosestPictureClaim(uint64_t width, uint64_t height);

// What is told of a file that has less than it tells of.
extern const char* const PictureTooShort;

// Why a file of that many bytes must not be decoded, in words for the user. Null: it may be.
const char* WhyPictureIsRefused(const PictureClaim& claim, uint64_t fileBytes);
