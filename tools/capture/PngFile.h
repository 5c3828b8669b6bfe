// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace capture
{

// A picture of 3 bytes per pixel, top row first, without padding.
struct RgbPicture {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;

    unsigned char* At(int x, int y) { return &pixels[(size_t(y) * size_t(width) + size_t(x)) * 3]; }
};

struct Frame;
RgbPicture WithoutFourth(const Frame& frame);

// Writes the file under a name of its own first and renames it when it is complete: there is never half a
// picture. The same pixels give the same bytes. `quick` compresses less. False: *error says why.
bool WritePng(const std::string& path, const RgbPicture& picture, bool quick, std::string* error);

} // namespace capture
