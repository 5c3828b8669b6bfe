// SPDX-License-Identifier: MIT
// The form before the show: resolution, full screen, music.
#pragma once

// Shows the form on the given values and returns true for "Go", false for everything else. "Go" writes the
// user's choice into the arguments; otherwise they stay as they were. A width that is neither 640, 800 nor
// 1024 selects the first resolution. reserved comes back false from "Go", whatever it was.
// Needs a display: ask platform::HasDisplay first. Tests answer it with platform::AnswerStartForm.
bool ShowSettingsDialog(int& width, int& height, bool& music, bool& fullscreen, bool& reserved);
