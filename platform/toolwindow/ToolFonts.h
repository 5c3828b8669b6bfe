// SPDX-License-Identifier: MIT
// The typefaces of a tool's window: those that the desktop has for "sans-serif" and "serif".
#pragma once

struct ImFont;

namespace platform
{

enum ToolFont {
    BodyFont,    // sans, all that is pressed and typed
    SmallFont,   // sans, lists and labels
    TinyFont,    // sans, names at the ticks of a timeline
    HeadingFont, // serif, what a panel or a lane is
    NoteFont,    // serif italic, remarks
    TitleFont,   // serif, large: the name of a sheet, the time
    ToolFontCount
};

// Rasterises all of them into the atlas of the current ImGui context, for so many pixels of the screen per pixel of
// the design. A typeface that the machine lacks is replaced by the next that it has, in the end by ImGui's own. Call
// before the first frame.
void LoadToolFonts(float scale);

// To be handed to ImGui::PushFont. Valid from LoadToolFonts on.
ImFont* FontOf(ToolFont font);

} // namespace platform
