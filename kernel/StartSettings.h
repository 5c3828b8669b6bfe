// SPDX-License-Identifier: MIT
// What the run is started with. The start form works on these.
#pragma once

struct StartSettings {
    int width = 1024; // of the window, pixels
    int height = 768;
    bool music = true;
    bool fullscreen = true;
    bool reserved = false; // the form carries it, nothing reads it
};
