// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

// The sketchbook's paper: cold-pressed, with a tooth, fine grain and fibres. It decides where a dry pen
// skips, where pigment settles, and it is seen in everything that is not light.
//
// The sheet repeats after `period` pixels both ways, and every period is a power of two, so paper under a
// tile of at least that size has no seam.

namespace atelier
{

class Paper
{
public:
    Paper(int period, uint32_t seed);

    // How high the paper stands at a pixel: about 0 (hollow) to 1 (peak), mean one half. Any x, y.
    float Height(int x, int y) const
    {
        return heights[size_t(y & (period - 1)) * size_t(period) + size_t(x & (period - 1))];
    }
    // The slow change of tint across a sheet: -1 to 1.
    float Age(int x, int y) const;

    // Covers the whole canvas with bare paper: `tint`, mottled by age, lit through its tooth. Contrast 1 is
    // the sketchbook as it is.
    void Sheet(Canvas& canvas, LinearColour tint, float contrast = 1) const;
    // Lets the paper show in a finished picture, opaque paint and all. 1 is plainly visible, 0.4 felt more
    // than seen.
    void Show(Canvas& canvas, float strength = 0.5f) const;

private:
    int period;
    std::vector<float> heights, ages;
};

// The sheets of the sketchbook, made on first use and shared. Period: 128, 256, 512 or 1024.
const Paper& SketchPaper(int period = 1024);

} // namespace atelier
