// SPDX-License-Identifier: MIT
// PNG files of the kinds that PictureFiles.h doesn't make: every colour type and depth, and interlaced ones. The process
// is aborted when a file can't be written.
#pragma once

#include "tests/support/PictureFiles.h"

enum PngColour { PngGrey = 0, PngRgb = 2, PngPalette = 3, PngGreyAlpha = 4, PngRgba = 6 };

struct RawPng {
    int width = 0, height = 0;
    PngColour colour = PngRgb;
    int depth = 8; // bits a channel, 8 or 16
    bool interlaced = false;
    std::vector<unsigned char> bytes;   // rows as they stand in the file, 16 bits with the high byte first
    std::vector<unsigned char> palette; // RGB after RGB
};

// Bytes that all differ from their neighbours: width * height * bytesPerPixel of them.
std::vector<unsigned char> PatternBytes(int width, int height, int bytesPerPixel);

void SaveRawPng(const std::string& path, const RawPng& png);

// A smooth RGB picture that a JPEG keeps nearly as it is: red grows to the right, green downward.
Picture SlopePicture(int width, int height);
