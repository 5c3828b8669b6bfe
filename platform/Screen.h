// SPDX-License-Identifier: MIT
// The screen that form and boxes come up on.
#pragma once

namespace platform
{

// True if there is a display to open windows on. Must be asked before anything of FLTK is touched: without a
// display that library ends the process.
bool HasDisplay();

// True if a window manager runs. Without one a window has no title bar, and must take the keyboard focus
// itself.
bool HasWindowManager();

// How many pixels a pixel of the design takes, 1 to 4: the desktop's "Xft.dpi" setting over 96, or 1 where it
// has none. In quarters, so that a desktop of about 96 gets pictures pixel by pixel. Needs a display.
float ScreenScale();

// The same from the text of the X server's resources, lines such as "Xft.dpi:\t192". Null is allowed.
float ScaleFromResources(const char* resources);

} // namespace platform
