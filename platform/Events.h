// SPDX-License-Identifier: MIT
// The queue of events that a frame takes one of: key presses, and the message to quit. Main thread only.
#pragma once

namespace platform
{

enum EventKind {
    EventNone,    // the queue was empty
    EventQuit,    // somebody posted a quit, or SIGINT or SIGTERM arrived
    EventKeyDown, // key holds which
    EventWindow   // something about the window that nobody needs to act on
};

const int KeyEscape = 0x1B; // other keys arrive as their character where they have one, or as 0

struct Event {
    EventKind kind;
    int key;
};

// Posts the message to quit. It is seen by the next TakeEvent, in front of everything else, so that a
// failure ends the run at the next pump. Works before any window exists. Posting twice is posting once.
void PostQuit(int exitCode);

// Takes at most one event. Mouse motion and everything else of no interest never enters the queue, so
// Escape is not kept waiting behind it.
Event TakeEvent();

// For tests: appends an event by hand, behind those already posted and in front of the system's.
void PostEvent(Event event);

} // namespace platform
