// SPDX-License-Identifier: MIT
// The image library, fenced in.
//
// Its readers of JPEG and PNG bear anything that a file can hold, but for sides whose product it can't
// count; such pictures, with a side over 16384, are refused unseen. Most other readers were seen to write
// past their buffers on broken files, and the one for XPM even on sound ones. So JPEG and PNG are decoded
// in place, and everything else in a child process that hands the pixels back: whatever happens to it
// there, the show goes on.
#pragma once

#include <string>

struct DecodedPicture {
    bool loaded = false;
    unsigned error = 0; // if not loaded: the library's error code, for iluErrorString
    int width = 0;      // pixels
    int height = 0;     // pixels
    int bytesPerPixel = 0;
    std::string pixels; // what the library holds, at most width * height * bytesPerPixel
};

// Decodes a file of any format that the library reads, by its content and only then by its extension. The
// library has been initialised and an image name is bound, which then holds a picture that was decoded in
// place. A picture takes the child at most 10 seconds.
DecodedPicture DecodePicture(const std::string& path);
