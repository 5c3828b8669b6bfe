// SPDX-License-Identifier: MIT
#include "platform/Screen.h"

#include <X11/Xlib.h>

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace platform
{

static const float plainDpi = 96;
static const float smallestScale = 1;
static const float largestScale = 4;
static const float step = 0.25f;

bool HasDisplay()
{
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    XCloseDisplay(display);
    return true;
}

static bool IsSet(const char* variable)
{
    const char* const value = getenv(variable);
    return value && *value;
}

const char* MissingDisplayText()
{
    if (IsSet("WAYLAND_DISPLAY") && !IsSet("DISPLAY"))
        return "this Wayland session has no XWayland, which the form and the boxes need: install xwayland, "
               "or let "
               "the compositor start it";
    return "DISPLAY is not set, or nothing answers there";
}

bool HasWindowManager()
{
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    // X lets one client select SubstructureRedirect on the root window: the window manager.
    XWindowAttributes root;
    XGetWindowAttributes(display, DefaultRootWindow(display), &root);
    XCloseDisplay(display);
    return (root.all_event_masks & SubstructureRedirectMask) != 0;
}

float ScaleFromResources(const char* resources)
{
    static const char key[] = "Xft.dpi:";
    const size_t keyLength = sizeof key - 1;
    for (const char* line = resources; line; line = strchr(line, '\n')) {
        if (*line == '\n')
            ++line;
        if (strncmp(line, key, keyLength) != 0)
            continue;
        // strtol is precise enough and, unlike strtof, does not depend on the locale's decimal point.
        const float scale = std::round(float(strtol(line + keyLength, nullptr, 10)) / plainDpi / step) * step;
        return scale < smallestScale ? smallestScale : scale > largestScale ? largestScale : scale;
    }
    return smallestScale;
}

float ScreenScale()
{
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return smallestScale;
    const float scale = ScaleFromResources(XResourceManagerString(display));
    XCloseDisplay(display);
    return scale;
}

} // namespace platform
