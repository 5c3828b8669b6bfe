// SPDX-License-Identifier: MIT
#include "platform/toolwindow/KeyPress.h"

#include <SDL.h>

namespace platform
{

static const struct {
    SDL_Keycode code;
    int key;
} rows[] = {
    {SDLK_EQUALS, '+'},       {SDLK_KP_PLUS, '+'},      {SDLK_KP_MINUS, '-'},
    {SDLK_KP_0, '0'},         {SDLK_LEFT, KeyLeft},     {SDLK_RIGHT, KeyRight},
    {SDLK_UP, KeyUp},         {SDLK_DOWN, KeyDown},     {SDLK_HOME, KeyHome},
    {SDLK_END, KeyEnd},       {SDLK_PAGEUP, KeyPageUp}, {SDLK_PAGEDOWN, KeyPageDown},
    {SDLK_INSERT, KeyInsert}, {SDLK_DELETE, KeyDelete}, {SDLK_BACKSPACE, KeyBackspace},
    {SDLK_TAB, KeyTab},       {SDLK_RETURN, KeyEnter},  {SDLK_KP_ENTER, KeyEnter},
    {SDLK_ESCAPE, KeyEscape},
};

static int KeyOf(SDL_Keycode code)
{
    if (code >= SDLK_F1 && code <= SDLK_F12)
        return KeyF1 + int(code - SDLK_F1);
    if (code >= SDLK_KP_1 && code <= SDLK_KP_9)
        return '1' + int(code - SDLK_KP_1);
    for (const auto& row : rows)
        if (row.code == code)
            return row.key;
    return code >= ' ' && code < 0x7f ? int(code) : KeyNone;
}

KeyPress PressOf(const SDL_KeyboardEvent& event)
{
    const SDL_Keysym& sym = event.keysym;
    // On the key that + shares with = it takes Shift.
    const bool shift = (sym.mod & KMOD_SHIFT) != 0 && sym.sym != SDLK_EQUALS;
    return {KeyOf(sym.sym), (sym.mod & KMOD_CTRL) != 0, shift, (sym.mod & KMOD_ALT) != 0, event.repeat != 0};
}

} // namespace platform
