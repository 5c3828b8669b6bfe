// SPDX-License-Identifier: MIT
// A small picture in memory with the few shapes that form and boxes are made of. Edges are smooth at any
// size, which the toolkit's own circles and lines are not.
//
// Coordinates are pixels from the top left corner; whole numbers lie between pixels, so that the shape from 2
// to 5 covers pixels 2, 3 and 4. Shapes reach out of the picture at will.
#pragma once

#include "platform/dialogs/DialogColours.h"

#include <vector>

namespace platform
{

class Pixmap
{
public:
    Pixmap(int pixelsAcross, int pixelsDown, Tint ground);

    void FillCircle(float centreX, float centreY, float radius, Tint tint);
    void FillRoundRect(float x, float y, float width, float height, float radius, Tint tint);
    // A line with round ends.
    void Line(float x0, float y0, float x1, float y1, float thickness, Tint tint);

    int width;
    int height;
    std::vector<unsigned char> pixels; // red, green, blue; rows from the top, without gaps

private:
    void Blend(int x, int y, float coverage, Tint tint);
};

} // namespace platform
