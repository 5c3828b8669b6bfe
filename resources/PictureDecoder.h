// SPDX-License-Identifier: MIT
// The image library, fenced in.
//
// Its readers of JPEG and PNG bear anything that a file can hold, but for sides whose product it can't
// count. Most other readers were seen to write past their buffers on broken files, and the one for XPM even
// on sound ones. So JPEG and PNG are decoded in place, and everything else in a child process that hands the
// pixels back: whatever happens to it there, the show goes on. What a file tells of its size is held against
// its length first (resources/PictureClaims.h).
#pragma once

#include <string>

struct DecodedPicture {
    // The bytes that the library holds, width * height * bytesPerPixel of them, then zeros as far as an
    // upload of 3 components reads. Null: it could not be decoded. The receiver owns them: they were made by
    // AllocatePixels.
    unsigned char* pixels = nullptr;
    int width = 0;  // pixels
    int height = 0; // pixels
    int bytesPerPixel = 0;
    std::string complaint; // if there are no pixels: what is wrong, mostly in the library's words
};

// Decodes a file of any format that the library reads, by its content and only then by its extension. The
// library has been initialised and an image name is bound, which then holds a picture that was decoded in
// place. A picture takes the child at most 10 seconds and 2 GiB of memory.
DecodedPicture DecodePicture(const std::string& path);
