// SPDX-License-Identifier: MIT
// The few shapes that form and boxes are made of, drawn by cairo with smooth edges, which the toolkit's own
// circles and lines do not have. All of them draw into the window that is being drawn.
//
// Coordinates are pixels from the window's top left corner; whole numbers lie between pixels, so that the
// shape from 2 to 5 covers pixels 2, 3 and 4.
#pragma once

#include "platform/dialogs/DialogColours.h"

#include <FL/Enumerations.H>

#include <string>

namespace platform
{

Fl_Color ToolkitColour(Tint tint);

// The way from one colour to another: 0 is from, 1 is to.
Tint MixTints(Tint from, Tint to, float way);

void FillCircle(float centreX, float centreY, float radius, Tint tint);
void FillRoundRect(float x, float y, float width, float height, float radius, Tint tint);
// The line lies inside of the rectangle.
void StrokeRoundRect(float x, float y, float width, float height, float radius, float thickness, Tint tint);
// A polyline of `count` points, x and y in turn, with round ends and joints.
void StrokeLine(const float* points, int count, float thickness, Tint tint);

// The text's capitals stand in the middle of the height. In the current font.
void DrawTextLine(const std::string& text, int x, int y, int height, Tint tint);

} // namespace platform
