// SPDX-License-Identifier: MIT
// The show's palette as the style of ImGui: ink for the ground, bone for words, amber for what is active.
#pragma once

#include "platform/ShowColours.h"

#include <imgui.h>

namespace platform
{

// 0xRRGGBB as ImGui has it; alpha 0 clear to 1 opaque.
ImU32 ToolColour(uint32_t rgb, float alpha = 1);
ImVec4 ToolTint(uint32_t rgb, float alpha = 1);

// Around the button of a dialog that Enter presses too: amber, with dark words.
void PushMainButton();
void PopMainButton();

// Sets colours and sizes of the current context, for so many pixels of the screen per pixel of the design.
void SetToolStyle(float scale);

} // namespace platform
