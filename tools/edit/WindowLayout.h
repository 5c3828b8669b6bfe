// SPDX-License-Identifier: MIT
// Where the parts of the window lie: the picture with the transport under it, inspector and findings beside it, the
// timeline below, a line of words at the foot. The shares are the user's; each part keeps a size it can be used at.
#pragma once

namespace edit
{

struct Rect {
    float x = 0, y = 0, width = 0, height = 0;

    float Right() const { return x + width; }
    float Bottom() const { return y + height; }
    bool Empty() const { return width <= 0 || height <= 0; }
};

struct LayoutWishes {
    float stageShare = 0.52f;     // of the height, for all that is above the timeline
    float pictureShare = 0.66f;   // of the width, for picture and transport
    float inspectorShare = 0.55f; // of the column's height, if both are shown
    bool inspector = true;
    bool findings = true;
};

struct WindowLayout {
    Rect picture, transport, inspector, findings, timeline, status;
    // What is dragged to change a share. Empty where there is nothing to share.
    Rect stageSplit, pictureSplit, inspectorSplit;
};

// The room is what the menu leaves, in pixels of the window; scale is the number of those per pixel of the design.
WindowLayout LayOutWindow(Rect room, float scale, const LayoutWishes& wishes);

// The largest rectangle of an aspect (width by height) in the middle of a room, on whole pixels.
Rect FitPicture(Rect room, int width, int height);

} // namespace edit
