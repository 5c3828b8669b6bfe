// SPDX-License-Identifier: MIT
// Checks the size that the header of a picture file states against the length of the file, before it is decoded. A
// file of a few bytes can state a size for which a decoder allocates gigabytes, or whose product overflows.
#pragma once

#include <cstdint>
#include <string>

const uint64_t MaxPictureSide = 16384;      // pixels
const uint64_t MaxPicturePixels = 67108864; // 8192 by 8192; in use a picture takes 4 to 24 bytes for each

struct PictureClaim {
    uint64_t width = 0; // pixels, both 0 where the header says nothing or is not all there
    uint64_t height = 0;
    uint64_t fewestBytes = 0; // the least length of such a file, at the best compression of its format
};

// Reads the size from the header of a PNG, JPEG, PNM, BMP, TGA, SGI, PCX, PSD or GIF file. type is the
// image library's, as IL_PNG. Other types give an empty claim.
PictureClaim ReadPictureClaim(unsigned type, const std::string& bytes);

// True if a JPEG file is cut inside one of its segments, after the two bytes of its length. The library's reader
// never returns from such a file: it waits for the bytes that the length promises.
bool JpegEndsInSegment(const std::string& bytes);

// The claim of a picture of unknown format. Its file may be as short as the best compression of all formats allows,
// which is that of a fax: one bit for a blank row.
PictureClaim LoosestPictureClaim(uint64_t width, uint64_t height);

// The words for a file that has fewer bytes than its header promises.
extern const char* const PictureTooShort;

// Returns why a file of that many bytes must not be decoded, in words for the user, or null if it may be.
const char* WhyPictureIsRefused(const PictureClaim& claim, uint64_t fileBytes);
