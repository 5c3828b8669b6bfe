// SPDX-License-Identifier: MIT
// All commands with their keys, on a sheet of paper over the window.
#pragma once

namespace edit
{

// Opens it, or does nothing if it is open. Draws it while *shown; a click outside, Escape and F1 close it.
void DrawKeySheet(bool* shown, float scale);

} // namespace edit
