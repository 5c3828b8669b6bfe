// SPDX-License-Identifier: MIT
// All commands with their keys, on a sheet of paper over the window.
#pragma once

namespace edit
{

// Draws the sheet while *shown is true. A click outside, Escape and F1 close it and set *shown to false.
void DrawKeySheet(bool* shown, float scale);

} // namespace edit
