// SPDX-License-Identifier: MIT
// The one off-screen surface: a colour buffer of 8 bits per channel with a 24-bit depth buffer, whose colour
// can be drawn with as a texture. Process-wide; GLWindow::Create makes it.
//
// It has a GL context of its own, which shares textures, display lists and programs with the window's. All
// else is apart: matrices, enables, lights, clear colour, blending of one context never reach the other.
//
// Within a frame: Begin, SetProjection if wanted, drawing, End; then BindTexture, drawing with the texture,
// ReleaseTexture, which must come before the next Begin. If the target could never be made, all of these do
// nothing, except SetProjection, so that the scene goes into the window: a wrong picture, but a show.
#pragma once

class GLWindow;

class RenderTarget
{
public:
    // Makes the target, or remakes it. Needs the window's context current. False on any failure, unreported.
    static bool Create(GLWindow* newWindow, int newWidth, int newHeight);

    // Drawing goes to the target from here on; colour and depth are cleared, with the target's clear colour.
    // The viewport is the one that was last set in the target, at first the whole of it.
    static void Begin();

    // A perspective of width / height, near 0.1, far 2000, identity modelview, and the viewport (0, 0, width,
    // height), for whatever context is current. The size is the caller's, not the target's.
    static void SetProjection(int width, int height, float fovY);

    // Drawing goes to the window again, always in the band of SetLetterbox(0.9).
    static void End();

    // Binds the picture of the target: linear filter, clamped to the edge, origin at the lower left. Doesn't
    // enable GL_TEXTURE_2D.
    static void BindTexture();
    static void ReleaseTexture();

    // Deletes the framebuffer object, but neither its context nor its texture.
    static void Destroy();
};
