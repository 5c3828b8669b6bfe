// SPDX-License-Identifier: MIT
// Decodes picture files with the image library, so that a broken file can't harm the show.
//
// The library's readers of JPEG and PNG are safe on any file, except where the product of the sides overflows. Most of
// its other readers were seen to write past their buffers on broken files, and the one for XPM even on sound ones. So
// JPEG and PNG are decoded in this process, and every other format in a child process that sends the pixels back: if
// the child crashes, the show goes on. The size that a file states is checked against its length first
// (resources/PictureClaims.h).
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
