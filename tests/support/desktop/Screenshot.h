// SPDX-License-Identifier: MIT
// What could be seen at one moment on a desktop, or on a part of it.
#pragma once

#include <string>
#include <vector>

struct Pixel {
    int red, green, blue; // 0 to 255
};

struct Screenshot {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels; // rows from the top

    // Black outside.
    Pixel At(int x, int y) const;

    // How many pixels of a rectangle have the colour, each channel within the tolerance.
    int Count(int x, int y, int rectWidth, int rectHeight, Pixel colour, int tolerance) const;
    int Count(Pixel colour, int tolerance) const;

    // The mean of all channels in a rectangle, 0 to 1. 0 for an empty one.
    double Brightness(int x, int y, int rectWidth, int rectHeight) const;
    double Brightness() const;

    bool operator==(const Screenshot& other) const;

    bool SavePng(const std::string& path) const;
};

bool operator==(const Pixel& a, const Pixel& b);
