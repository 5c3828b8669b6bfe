// SPDX-License-Identifier: MIT
// Turns drawing off and on, for tools that play the show up to a moment without showing it.
#pragma once

// Turns everything that changes pixels off or on, in the window's context and in the off-screen target's.
// While it is off, geometry is not sent (platform/Drawing.h), and GL_RASTERIZER_DISCARD makes GL drop clears
// and all other draws. Call with the window's context current. No other GL state changes.
void SwitchDrawing(bool on);
