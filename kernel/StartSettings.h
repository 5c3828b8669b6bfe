// SPDX-License-Identifier: MIT
// The settings that a run is started with. The start form shows and changes them.
#pragma once

struct StartSettings {
    int width = 1024; // of the window, in pixels
    int height = 768; // likewise
    bool music = true;
    bool fullscreen = true;
    bool reserved = false; // passed to the form and back; nothing reads it
};
