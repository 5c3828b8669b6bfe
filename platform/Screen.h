// SPDX-License-Identifier: MIT
// Properties of the X display on which the start form and the message boxes appear.
#pragma once

namespace platform
{

// True if an X display can be opened. Call before any FLTK function: without a display FLTK ends the process.
bool HasDisplay();

// Why there is no display, for the user: what is missing, or what a Wayland session without XWayland lacks.
const char* MissingDisplayText();

// True if a window manager runs on the display. Without one a window has no title bar and must take the
// keyboard focus itself. False without a display.
bool HasWindowManager();

// The scale of the dialogs in screen pixels per pixel of their design, 1 to 4: the desktop's "Xft.dpi"
// setting divided by 96, or 1 without that setting or without a display. It is rounded to
// quarters, so that pictures keep their pixels on a desktop of about 96 dpi.
float ScreenScale();

// The scale that follows from the text of the X server's resources, which has lines such as "Xft.dpi:\t192".
// Null is allowed and gives 1.
float ScaleFromResources(const char* resources);

} // namespace platform
