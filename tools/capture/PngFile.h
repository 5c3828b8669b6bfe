// SPDX-License-Identifier: MIT
#pragma once

#include "tools/capture/OutputFile.h"

#include <string>
#include <vector>

namespace capture
{

// A picture of 3 bytes per pixel without padding. The top row comes first.
struct RgbPicture {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;

    unsigned char* At(int x, int y) { return &pixels[(size_t(y) * size_t(width) + size_t(x)) * 3]; }
};

struct Frame;
RgbPicture WithoutFourth(const Frame& frame);

// Writes the picture into the open file and calls its Keep, or Discard after an error, so that there is never
// an incomplete picture. The same pixels give the same bytes. `quick` compresses less and faster. False:
// *error says why.
bool WritePng(OutputFile& file, const RgbPicture& picture, bool quick, std::string* error);

} // namespace capture
