// SPDX-License-Identifier: MIT
#include "platform/Events.h"

#include "platform/EventsHooks.h"
#include "platform/WindowSystem.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdlib>

using platform::TakeEvent;

TEST(PostedEvents, NothingPostedIsNoEvent)
{
    EXPECT_EQ(platform::EventNone, TakeEvent().kind);
}

TEST(PostedEvents, AQuitIsSeenInFrontOfEverythingElseAndOnce)
{
    platform::PostEvent({platform::EventKeyDown, 'a'});
    platform::PostQuit(0);
    platform::PostQuit(0);
    EXPECT_EQ(platform::EventQuit, TakeEvent().kind);
    EXPECT_EQ(platform::EventKeyDown, TakeEvent().kind);
    EXPECT_EQ(platform::EventNone, TakeEvent().kind);
}

TEST(PostedEvents, ComeInTheirOrder)
{
    for (const int key : {int('a'), int('b'), platform::KeyEscape})
        platform::PostEvent({platform::EventKeyDown, key});
    EXPECT_EQ('a', TakeEvent().key);
    EXPECT_EQ('b', TakeEvent().key);
    EXPECT_EQ(0x1B, TakeEvent().key);
}

// What the window system delivers, told by hand to the queue that it fills.
class SystemEvents : public testing::Test
{
protected:
    SystemEvents()
    {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        platform::UseSdlWindows();
    }
    void SetUp() override
    {
        ASSERT_TRUE(platform::Windows().registerClass("events"));
        while (TakeEvent().kind != platform::EventNone) {
        }
    }
    ~SystemEvents() override { platform::Windows().shutDown(); }

    static bool Push(Uint32 type, SDL_Keycode key = 0)
    {
        SDL_Event event = {};
        event.type = type;
        event.key.keysym.sym = key;
        return SDL_PushEvent(&event) == 1;
    }
};

TEST_F(SystemEvents, AKeyIsItsCharacterAndOthersAreNone)
{
    Push(SDL_KEYDOWN, SDLK_ESCAPE);
    Push(SDL_KEYDOWN, SDLK_a);
    Push(SDL_KEYDOWN, SDLK_F1);
    Push(SDL_KEYDOWN, 0xE4); // a letter beyond ASCII
    for (const int key : {platform::KeyEscape, int('a'), 0, 0}) {
        const platform::Event event = TakeEvent();
        EXPECT_EQ(platform::EventKeyDown, event.kind);
        EXPECT_EQ(key, event.key);
    }
    EXPECT_EQ(platform::EventNone, TakeEvent().kind);
}

TEST_F(SystemEvents, WhatIsOfNoInterestNeverEntersTheQueue)
{
    for (const Uint32 type : {SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN, SDL_MOUSEWHEEL, SDL_KEYUP, SDL_TEXTINPUT,
                              SDL_JOYAXISMOTION, SDL_DROPFILE, SDL_CLIPBOARDUPDATE})
        EXPECT_FALSE(Push(type)) << type;
    Push(SDL_KEYDOWN, SDLK_ESCAPE);
    EXPECT_EQ(platform::EventKeyDown, TakeEvent().kind) << "so Escape is the first that is seen";
}

TEST_F(SystemEvents, AnInterruptIsAQuit)
{
    Push(SDL_QUIT);
    EXPECT_EQ(platform::EventQuit, TakeEvent().kind);
}

TEST_F(SystemEvents, OfTheWindowOnlyItsExposureComesThrough)
{
    SDL_Event event = {};
    event.type = SDL_WINDOWEVENT;
    for (const Uint8 what : {SDL_WINDOWEVENT_CLOSE, SDL_WINDOWEVENT_FOCUS_LOST, SDL_WINDOWEVENT_MOVED,
                             SDL_WINDOWEVENT_RESIZED, SDL_WINDOWEVENT_ENTER}) {
        event.window.event = what;
        EXPECT_EQ(0, SDL_PushEvent(&event)) << int(what);
    }
    event.window.event = SDL_WINDOWEVENT_EXPOSED;
    EXPECT_EQ(1, SDL_PushEvent(&event));
    EXPECT_EQ(platform::EventWindow, TakeEvent().kind);
}

TEST_F(SystemEvents, PostedOnesComeFirst)
{
    Push(SDL_KEYDOWN, SDLK_a);
    platform::PostEvent({platform::EventKeyDown, 'b'});
    platform::PostQuit(0);
    EXPECT_EQ(platform::EventQuit, TakeEvent().kind);
    EXPECT_EQ('b', TakeEvent().key);
    EXPECT_EQ('a', TakeEvent().key);
}
