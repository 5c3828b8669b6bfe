// SPDX-License-Identifier: MIT
// A key of the keyboard with those that are held beside it.
#pragma once

struct SDL_KeyboardEvent;

namespace platform
{

// Keys with a character are that character as it stands on the key without Shift, a lower-case letter: 's', ','. What
// has two places on a keyboard is one key: the signs of the number block are '+', '-' and '0' to '9', its Enter is
// KeyEnter, and '=', which shares its key with '+' on many keyboards, is '+', also with Shift, of which nothing is told.
enum SpecialKey {
    KeyNone = 0,
    KeySpace = ' ',
    KeyLeft = 0x100,
    KeyRight,
    KeyUp,
    KeyDown,
    KeyHome,
    KeyEnd,
    KeyPageUp,
    KeyPageDown,
    KeyInsert,
    KeyDelete,
    KeyBackspace,
    KeyTab,
    KeyEnter,
    KeyEscape,
    KeyF1 // to KeyF1 + 11
};

struct KeyPress {
    int key = KeyNone;
    bool control = false;
    bool shift = false;
    bool alt = false;
    bool repeated = false; // by the keyboard, because it is held

    bool SameKeys(const KeyPress& other) const
    {
        return key == other.key && control == other.control && shift == other.shift && alt == other.alt;
    }
};

// The key is KeyNone if no command can be bound to it.
KeyPress PressOf(const SDL_KeyboardEvent& event);

} // namespace platform
