// SPDX-License-Identifier: MIT
#include "platform/Events.h"

#include "platform/EventsHooks.h"

#include <SDL.h>
#include <deque>

namespace platform
{

static bool quitPosted = false;
static std::deque<Event> postedEvents;

void PostQuit(int)
{
    quitPosted = true;
}

void PostEvent(Event event)
{
    postedEvents.push_back(event);
}

// SDL's queue holds only the events that the filter KeepEvent of SdlWindowSystem.cpp lets through.
static Event FromSystem(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_QUIT: // SIGINT or SIGTERM; RegisterClass keeps SDL from posting it for a close request
        return {EventQuit, 0};
    case SDL_KEYDOWN: {
        const SDL_Keycode key = event.key.keysym.sym;
        return {EventKeyDown, key > 0 && key < 0x80 ? int(key) : 0};
    }
    default:
        return {EventWindow, 0};
    }
}

Event TakeEvent()
{
    if (quitPosted) {
        quitPosted = false;
        return {EventQuit, 0};
    }
    if (!postedEvents.empty()) {
        const Event event = postedEvents.front();
        postedEvents.pop_front();
        return event;
    }
    SDL_Event event;
    if (SDL_WasInit(SDL_INIT_VIDEO) && SDL_PollEvent(&event))
        return FromSystem(event);
    return {EventNone, 0};
}

} // namespace platform
