// SPDX-License-Identifier: MIT
// Draws ImGui's frames for the window of a tool. On a software rasteriser each pixel costs the user time: there the frame is kept in
// a framebuffer object, and only what has changed since the frame before is drawn. Everywhere else each frame is drawn as
// a whole.
//
// Belongs to the GL context that is current at Open, with ImGui's OpenGL backend running on it.
#pragma once

#include "platform/toolwindow/ChangedArea.h"

namespace platform
{

class KeptFrame
{
public:
    KeptFrame() = default;
    KeptFrame(const KeptFrame&) = delete;
    KeptFrame& operator=(const KeptFrame&) = delete;

    // The colour of the ground that ImGui draws on.
    void Open(const ImVec4& newGround);
    void Close(); // the context must still be current

    // Draws a frame into the window's back buffer, which is to be swapped then; the frame stays as it was. False, and
    // nothing to swap, if the window shows it already.
    bool Draw(ImDrawData* data);

    // The window has lost what it showed: the next Draw returns true.
    void Expose() { lost = true; }

    // How much of the window the last Draw has drawn, 0 to 1.
    float DrawnShare() const { return drawnShare; }

private:
    bool Resize(int newWidth, int newHeight);
    void DrawInside(ImDrawData* data, const FrameRect& rect) const;

    ImVec4 ground = ImVec4(0, 0, 0, 1);
    ChangedArea changed;
    bool keeps = false; // in the framebuffer object
    bool lost = true;
    unsigned framebuffer = 0, texture = 0; // GL names
    int width = 0, height = 0;             // of the texture
    float drawnShare = 0;
};

} // namespace platform
