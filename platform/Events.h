// SPDX-License-Identifier: MIT
// The event queue, of which each frame takes one event: a key press or the quit message. Main thread only.
#pragma once

namespace platform
{

enum EventKind {
    EventNone,    // the queue was empty
    EventQuit,    // PostQuit was called, or SIGINT or SIGTERM arrived
    EventKeyDown, // Event::key says which key
    EventWindow   // a change of the window that needs no reaction
};

const int KeyEscape = 0x1B; // other keys arrive as their character where they have one, or as 0

struct Event {
    EventKind kind;
    int key;
};

// Posts the quit message, which the next TakeEvent returns ahead of all else. May be called before any window
// exists. A second call before that TakeEvent changes nothing. The exit code is ignored.
void PostQuit(int exitCode);

// Takes at most one event. Mouse motion and other events without a use never enter the queue, so that they
// do not delay Escape.
Event TakeEvent();

} // namespace platform
