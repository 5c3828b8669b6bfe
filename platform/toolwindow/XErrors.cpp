// SPDX-License-Identifier: MIT
#include "platform/toolwindow/XErrors.h"

#include <X11/Xlib.h>

namespace platform
{

// One error is bound to come: a thread that wakes the window makes SDL send it an event, by a connection of its own, and
// the server may take that up when the window is gone already.
static int Ignore(Display* /*display*/, XErrorEvent* /*error*/)
{
    return 0;
}

void IgnoreXErrors()
{
    XSetErrorHandler(Ignore);
}

} // namespace platform
