// SPDX-License-Identifier: MIT
// Picture files for tests: written and read by libpng and libjpeg, not by the program's own loader.
#pragma once

#include <string>
#include <vector>

struct Picture {
    int width = 0, height = 0;
    int components = 3;                // 3 is RGB, 4 is RGBA, 1 is grey
    std::vector<unsigned char> pixels; // top row first, no padding

    bool Empty() const { return pixels.empty(); }
    const unsigned char* At(int x, int y) const;
};

// One colour all over; alpha counts with 4 components only.
Picture PlainPicture(int width, int height, int components, unsigned char red, unsigned char green,
                     unsigned char blue, unsigned char alpha = 255);

// All of these abort the process with a line on stderr if the file can't be written or read, since the test
// means nothing then.
void SavePng(const std::string& path, const Picture& picture);
void SaveJpeg(const std::string& path, const Picture& picture,
              bool progressive = false); // 3 or 1 components, best quality

// The format follows from the extension, ".png" or ".jpg".
void SavePicture(const std::string& path, const Picture& picture);

Picture LoadPng(const std::string& path, int components = 3); // converted to 3 or 4
bool FileExists(const std::string& path);
