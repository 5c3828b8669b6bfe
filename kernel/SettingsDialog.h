// SPDX-License-Identifier: MIT
// The form before the show: resolution, full screen, music.
#pragma once

// Shows the form with the given values and returns true for "Go", false for everything else. "Go" writes the
// user's choice into the arguments; otherwise they keep their values. Sizes are in pixels. A width that is
// neither 640, 800 nor 1024 selects the first resolution. "Go" always sets reserved to false.
// Needs a display: ask platform::HasDisplay first.
bool ShowSettingsDialog(int& width, int& height, bool& music, bool& fullscreen, bool& reserved);
