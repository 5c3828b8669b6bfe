// SPDX-License-Identifier: MIT
#include "platform/toolwindow/KeyPress.h"

#include <gtest/gtest.h>

#include <SDL.h>

using namespace platform;

static KeyPress Pressed(SDL_Keycode code, Uint16 modifiers = 0, bool repeated = false)
{
    SDL_KeyboardEvent event = {};
    event.keysym.sym = code;
    event.keysym.mod = modifiers;
    event.repeat = repeated;
    return PressOf(event);
}

TEST(KeyPressOfSdl, IsTheCharacterOrTheKeyThatACommandIsBoundTo)
{
    EXPECT_EQ('s', Pressed(SDLK_s).key);
    EXPECT_EQ(',', Pressed(SDLK_COMMA).key);
    EXPECT_EQ(KeySpace, Pressed(SDLK_SPACE).key);
    EXPECT_EQ(KeyEscape, Pressed(SDLK_ESCAPE).key);
    EXPECT_EQ(KeyDelete, Pressed(SDLK_DELETE).key);
    EXPECT_EQ(KeyTab, Pressed(SDLK_TAB).key);
    EXPECT_EQ(KeyF1, Pressed(SDLK_F1).key);
    EXPECT_EQ(KeyF1 + 11, Pressed(SDLK_F12).key);
    EXPECT_EQ(KeyNone, Pressed(SDLK_F13).key);
    EXPECT_EQ(KeyNone, Pressed(SDLK_LSHIFT).key);
    EXPECT_EQ(KeyNone, Pressed(SDL_Keycode(0xe4)).key) << "a letter with a diaeresis";
}

TEST(KeyPressOfSdl, IsOneKeyWhereAKeyboardHasTwo)
{
    EXPECT_EQ('+', Pressed(SDLK_KP_PLUS).key);
    EXPECT_EQ('-', Pressed(SDLK_KP_MINUS).key);
    EXPECT_EQ('0', Pressed(SDLK_KP_0).key);
    EXPECT_EQ('1', Pressed(SDLK_KP_1).key);
    EXPECT_EQ('9', Pressed(SDLK_KP_9).key);
    EXPECT_EQ(KeyEnter, Pressed(SDLK_RETURN).key);
    EXPECT_EQ(KeyEnter, Pressed(SDLK_KP_ENTER).key);
    EXPECT_EQ('+', Pressed(SDLK_EQUALS).key);
    EXPECT_FALSE(Pressed(SDLK_EQUALS, KMOD_LSHIFT).shift);
}

TEST(KeyPressOfSdl, TellsWhatIsHeldBesideIt)
{
    const KeyPress shifted = Pressed(SDLK_LEFT, KMOD_RSHIFT);
    EXPECT_TRUE(shifted.shift);
    EXPECT_FALSE(shifted.control || shifted.alt || shifted.repeated);
    const KeyPress control = Pressed(SDLK_LEFT, KMOD_LCTRL, true);
    EXPECT_TRUE(control.control && control.repeated);
    EXPECT_FALSE(control.shift || control.alt);
    EXPECT_TRUE(Pressed(SDLK_LEFT, KMOD_RALT).alt);
}
