// SPDX-License-Identifier: MIT
// The menu of the right button: what can be done with the items that are selected, and what can be put in at a
// place of the timeline, out of the list of effects and of the messages that each declares.
#pragma once

#include "tools/edit/EditorState.h"
#include "tools/edit/Tapping.h"

#include <cstdint>
#include <string>

namespace edit
{

class NewItemMenu
{
public:
    // Opens it at the pointer. milliseconds and layer are where new items go; effect: whose messages are offered first,
    // or empty.
    void Open(uint32_t milliseconds, uint32_t layer, const std::string& effect);

    // Draws it while it is open. In the window in which it was opened, every frame.
    void Draw(EditorState* state, Tapping* tapping);

    static constexpr int UsualBars = 4; // that a new entry is long

private:
    void DrawItemCommands(EditorState* state);
    void DrawMessages(EditorState* state, Tapping* tapping, const std::string& ofEffect);

    bool opens = false;
    uint32_t time = 0, layer = 0;
    std::string effect;
};

} // namespace edit
