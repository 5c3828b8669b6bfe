// SPDX-License-Identifier: MIT
// A window system without a display, for tests that look at GL calls instead of pixels: its screen, windows
// and contexts are entries in one struct, which a test sets and reads.
#pragma once

#include "platform/WindowSystem.h"

#include <functional>
#include <string>
#include <vector>

struct NullWindows {
    // Each call that changes something, with its arguments: "setDisplayMode 800 600 32", "makeCurrent 2".
    std::vector<std::string> calls;

    bool refuseClass = false;
    bool refuseMode = false;
    bool refuseWindow = false;
    bool refuseContext = false;
    int refuseCurrent = 0; // number of the context that cannot be made current; 0 is none
    int screenWidth = 1920;
    int screenHeight = 1080;
    const char* glExtensions = "GL_ARB_point_sprite GL_ARB_framebuffer_object";     // may be null
    const char* systemExtensions = "GL_ARB_point_sprite GL_ARB_framebuffer_object"; // may be null
    platform::WindowDescription last = {}; // of the last window created; its title is not kept
    char title[256] = "";                  // as last set
    std::function<void()> titleSet;        // called each time that a title was set, if there is one
    int windows = 0;                       // alive
    int modeWidth = 0;                     // 0: the desktop's
    int modeHeight = 0;
    bool cursorVisible = true;
    int swaps = 0;
    int contexts = 0; // ever created
    int deletedContexts = 0;
    platform::ContextHandle current = nullptr;
    void (*contextSwitched)(int number) = nullptr; // told which context became current, from 1; 0 is none
};

// Puts the null window system into use, reset to its initial state.
void UseNullWindows();
NullWindows& NullWindowState();
