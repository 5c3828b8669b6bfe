// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ToolWindow.h"

#include "tests/support/desktop/Desktop.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <X11/Xlib.h> // last: its macros have common names

// An event for a window that is no more, as a thread sends it that wakes a window just then. Xlib would end the process.
TEST(ToolWindowDesktop, OutlivesAnErrorOfTheXServer)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.Start(800, 600));
    for (const std::string& row : desktop.Environment())
        setenv(row.substr(0, row.find('=')).c_str(), row.substr(row.find('=') + 1).c_str(), 1);
    XSetErrorHandler(nullptr); // Xlib's own, and not that of the desktop

    platform::ToolWindow window;
    std::string reason;
    ASSERT_TRUE(window.Open({"tool", "tool"}, &reason)) << reason;
    Display* const other = XOpenDisplay(nullptr);
    ASSERT_TRUE(other);
    XEvent event = {};
    event.type = ClientMessage;
    event.xclient.format = 32;
    const Window gone = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
    XDestroyWindow(other, gone);
    XSendEvent(other, gone, False, NoEventMask, &event);
    XSync(other, False); // the error has come
    XCloseDisplay(other);

    window.BeginFrame();
    window.EndFrame();
    EXPECT_TRUE(desktop.WaitForWindow("tool"));
}
