// SPDX-License-Identifier: MIT
#include "tests/support/desktop/Screenshot.h"

#include <IL/il.h>

#include <cstdlib>

Pixel Screenshot::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= width || y >= height)
        return {0, 0, 0};
    return pixels[size_t(y) * width + x];
}

int Screenshot::Count(int x, int y, int rectWidth, int rectHeight, Pixel colour, int tolerance) const
{
    int count = 0;
    for (int row = y; row < y + rectHeight; ++row)
        for (int column = x; column < x + rectWidth; ++column) {
            const Pixel pixel = At(column, row);
            if (abs(pixel.red - colour.red) <= tolerance && abs(pixel.green - colour.green) <= tolerance &&
                abs(pixel.blue - colour.blue) <= tolerance)
                ++count;
        }
    return count;
}

int Screenshot::Count(Pixel colour, int tolerance) const
{
    return Count(0, 0, width, height, colour, tolerance);
}

double Screenshot::Brightness(int x, int y, int rectWidth, int rectHeight) const
{
    double sum = 0;
    for (int row = y; row < y + rectHeight; ++row)
        for (int column = x; column < x + rectWidth; ++column) {
            const Pixel pixel = At(column, row);
            sum += pixel.red + pixel.green + pixel.blue;
        }
    return rectWidth > 0 && rectHeight > 0 ? sum / (3.0 * 255.0 * rectWidth * rectHeight) : 0;
}

double Screenshot::Brightness() const
{
    return Brightness(0, 0, width, height);
}

bool operator==(const Pixel& a, const Pixel& b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

bool Screenshot::operator==(const Screenshot& other) const
{
    return width == other.width && height == other.height && pixels == other.pixels;
}

bool Screenshot::SavePng(const std::string& path) const
{
    std::vector<unsigned char> bytes;
    for (int row = height - 1; row >= 0; --row) // DevIL starts at the bottom
        for (int column = 0; column < width; ++column) {
            const Pixel pixel = At(column, row);
            for (int channel : {pixel.red, pixel.green, pixel.blue})
                bytes.push_back(static_cast<unsigned char>(channel));
        }
    ilInit();
    ILuint name;
    ilGenImages(1, &name);
    ilBindImage(name);
    ilEnable(IL_FILE_OVERWRITE);
    const bool saved =
        ilTexImage(ILuint(width), ILuint(height), 1, 3, IL_RGB, IL_UNSIGNED_BYTE, bytes.data()) &&
        ilSave(IL_PNG, path.c_str());
    ilDeleteImages(1, &name);
    return saved;
}
