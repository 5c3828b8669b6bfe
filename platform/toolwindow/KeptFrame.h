// SPDX-License-Identifier: MIT
// Draws ImGui's frames for the window of a tool. On a software rasteriser each pixel costs the user time: there the
// frame is kept in a framebuffer object, or in the window's back buffer if that stays as it is, and only what has changed
// since the frame before is drawn. Everywhere else each frame is drawn as a whole.
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

    bool Keeps() const { return keeping != InNothing; } // the context's rasteriser is software

    // From now on the frame is kept in the back buffer itself, which spares copying it there. To be called if swapping
    // leaves that buffer as it is, and the caller then says with Forget whenever its size may have changed.
    void KeepInBackBuffer();

    // Draws a frame into the window's back buffer, which is to be swapped then; the frame stays as it was. False, and
    // nothing to swap, if the window shows it already.
    bool Draw(ImDrawData* data);

    // The window has lost what it showed: the next Draw returns true.
    void Expose() { lost = true; }

    // What was kept may be lost: the next Draw draws all of it. If it is kept in the back buffer, so do a few more, since
    // whoever changes the size of a window goes on doing so, and the buffer may get its new size before the window is told.
    void Forget();

    // How much of the window the last Draw has drawn, 0 to 1.
    float DrawnShare() const { return drawnShare; }

private:
    bool Resize(int newWidth, int newHeight);
    void DrawInside(ImDrawData* data, const FrameRect& rect) const;

    enum Keeping { InNothing, InTexture, InBackBuffer };

    ImVec4 ground = ImVec4(0, 0, 0, 1);
    ChangedArea changed;
    Keeping keeping = InNothing;
    int wholeFrames = 0; // still to be drawn as a whole
    bool lost = true;
    unsigned framebuffer = 0, texture = 0; // GL names
    int width = 0, height = 0;             // of what is kept
    float drawnShare = 0;
};

} // namespace platform
