// SPDX-License-Identifier: MIT
// Lets frames pass undrawn, for tools that play the show up to a moment.
#pragma once

// Switches off, and on again, all that reaches pixels, in the window's context and in the off-screen
// target's: geometry is not sent (platform/Drawing.h), and GL discards clears and whatever is drawn all the
// same. Needs the window's context to be current; GL's state stays as it is, but for GL_RASTERIZER_DISCARD.
void SwitchDrawing(bool on);
