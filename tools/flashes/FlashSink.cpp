// SPDX-License-Identifier: MIT
#include "tools/flashes/FlashSink.h"

#include <algorithm>
#include <cmath>

namespace flashes
{

// Of the relative luminance, as sRGB has it.
static const float redPart = 0.2126f;
static const float greenPart = 0.7152f;
static const float bluePart = 0.0722f;

FlashSink::FlashSink(FlashMeter* flashMeter)
    : meter(flashMeter), luminances(size_t(FlashMeter::Columns) * FlashMeter::Rows), counts(luminances.size())
{
    for (int i = 0; i < 256; i++) {
        const double value = i / 255.0;
        linear[i] = float(value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4));
    }
}

bool FlashSink::Begin(int width, int height, const capture::FrameSelection&)
{
    if (width >= FlashMeter::Columns && height >= FlashMeter::Rows)
        return true;
    error = "the picture is too small to be measured";
    return false;
}

bool FlashSink::Take(std::unique_ptr<capture::Frame> frame)
{
    std::fill(luminances.begin(), luminances.end(), 0.0f);
    std::fill(counts.begin(), counts.end(), 0);
    for (int y = 0; y < frame->height; y++) {
        const unsigned char* pixel = frame->Row(y);
        const int row = y * FlashMeter::Rows / frame->height;
        for (int x = 0; x < frame->width; x++, pixel += 4) {
            const size_t cell =
                size_t(row) * FlashMeter::Columns + size_t(x * FlashMeter::Columns / frame->width);
            luminances[cell] +=
                redPart * linear[pixel[0]] + greenPart * linear[pixel[1]] + bluePart * linear[pixel[2]];
            counts[cell]++;
        }
    }
    for (size_t i = 0; i < luminances.size(); i++)
        luminances[i] /= float(counts[i]);
    meter->Take(luminances);
    return true;
}

bool FlashSink::Finish(bool)
{
    return true;
}

} // namespace flashes
