// SPDX-License-Identifier: MIT
// The finished pictures, from the project's own folders, and what tests measure of them.
#pragma once

#include "art/atelier/Files.h"
#include "art/atelier/Pictures.h"
#include "tests/Folders.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace atelier
{

// An empty raster if there is no such picture or it can't be read.
inline Raster LoadPicture(const std::string& name)
{
    Raster raster;
    std::string bytes;
    const Picture* const picture = FindPicture(name);
    if (picture != nullptr && ReadFile(std::string(SOURCE_DIR) + "/" + picture->file, bytes))
        Decode(bytes, raster);
    return raster;
}

inline int At(const Raster& raster, int x, int y, int channel)
{
    return raster
        .bytes[(size_t(y) * size_t(raster.width) + size_t(x)) * size_t(raster.channels) + size_t(channel)];
}

// The mean of all values.
inline double MeanOf(const Raster& raster)
{
    double sum = 0;
    for (const unsigned char value : raster.bytes)
        sum += value;
    return sum / double(raster.bytes.size());
}

// The mean difference between a column of one picture and a column of another, over the colours.
inline double BetweenColumns(const Raster& a, int columnA, const Raster& b, int columnB)
{
    double sum = 0;
    for (int y = 0; y < a.height; y++)
        for (int c = 0; c < 3; c++)
            sum += std::abs(At(a, columnA, y, c) - At(b, columnB, y, c));
    return sum / (3.0 * a.height);
}

inline double BetweenRows(const Raster& a, int rowA, int rowB)
{
    double sum = 0;
    for (int x = 0; x < a.width; x++)
        for (int c = 0; c < 3; c++)
            sum += std::abs(At(a, x, rowA, c) - At(a, x, rowB, c));
    return sum / (3.0 * a.width);
}

// The mean difference between neighbouring columns or rows of a picture: what a seam is measured by.
inline double InnerColumns(const Raster& a)
{
    double sum = 0;
    for (int x = 0; x + 1 < a.width; x++)
        sum += BetweenColumns(a, x, a, x + 1);
    return sum / (a.width - 1);
}

inline double InnerRows(const Raster& a)
{
    double sum = 0;
    for (int y = 0; y + 1 < a.height; y++)
        sum += BetweenRows(a, y, y + 1);
    return sum / (a.height - 1);
}

// The same among the first or the last sixteen columns, where a picture is not alike all over.
inline double ColumnsNear(const Raster& a, bool last)
{
    double sum = 0;
    for (int i = 0; i < 15; i++) {
        const int x = last ? a.width - 2 - i : i;
        sum += BetweenColumns(a, x, a, x + 1);
    }
    return sum / 15;
}

// The sides of a picture at which one can see where it ends, by letters: l, r, t, b. The others are clear: without
// alpha the two outermost lines of pixels are black but for the noise of compression, with alpha the outermost one is
// transparent.
inline std::string OpenSides(const Raster& raster)
{
    const bool alpha = raster.channels == 4;
    const int first = alpha ? 3 : 0, last = alpha ? 3 : 2, lines = alpha ? 1 : 2, noise = alpha ? 0 : 3;
    const int right = raster.width - lines, bottom = raster.height - lines;
    const auto largest = [&](int x0, int y0, int x1, int y1) {
        int value = 0;
        for (int y = y0; y < y1; y++)
            for (int x = x0; x < x1; x++)
                for (int c = first; c <= last; c++)
                    value = std::max(value, At(raster, x, y, c));
        return value;
    };
    std::string sides;
    if (largest(0, 0, lines, raster.height) > noise)
        sides += 'l';
    if (largest(right, 0, raster.width, raster.height) > noise)
        sides += 'r';
    if (largest(0, 0, raster.width, lines) > noise)
        sides += 't';
    if (largest(0, bottom, raster.width, raster.height) > noise)
        sides += 'b';
    return sides;
}

} // namespace atelier
