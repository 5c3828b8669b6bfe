// SPDX-License-Identifier: MIT
// The few shapes that form and boxes are made of, drawn by cairo with smooth edges, which the toolkit's own
// circles and lines do not have. All of them draw into the window that is being drawn.
//
// Coordinates are pixels from the window's top left corner; whole numbers lie between pixels, so that the
// shape from 2 to 5 covers pixels 2, 3 and 4. Colours are 0xRRGGBB, those of platform/ShowColours.h.
#pragma once

#include <FL/Enumerations.H>

#include <cstdint>
#include <string>

namespace platform
{

Fl_Color ToolkitColour(uint32_t rgb);

void FillCircle(float centreX, float centreY, float radius, uint32_t rgb);
void FillRoundRect(float x, float y, float width, float height, float radius, uint32_t rgb);
// The line lies inside of the rectangle.
void StrokeRoundRect(float x, float y, float width, float height, float radius, float thickness,
                     uint32_t rgb);
// A polyline of `count` points, x and y in turn, with round ends and joints.
void StrokeLine(const float* points, int count, float thickness, uint32_t rgb);

// Draws a text in the current font so that its capitals stand in the middle of the height.
void DrawTextLine(const std::string& text, int x, int y, int height, uint32_t rgb);

} // namespace platform
