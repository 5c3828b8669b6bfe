// SPDX-License-Identifier: MIT
// Tapping: while the show plays, a key sets the chosen message where it was pressed.
#pragma once

#include "tools/edit/EditorState.h"

#include <cstddef>
#include <string>
#include <vector>

namespace edit
{

class Tapping
{
public:
    // Messages that are tapped one after the other become one block of the script with a list of times; another
    // choice begins another block.
    void Choose(const std::string& newEffect, const std::string& newMessage,
                const std::string& newParameters);
    bool IsChosen() const { return !message.empty(); }
    const std::string& Effect() const { return effect; }
    const std::string& Message() const { return message; }
    const std::string& Parameters() const { return parameters; }

    // The moment of a tap, in milliseconds: where the play head is, as that is what is heard; moved to the nearest beat (or
    // bar) if the setting asks for it.
    static uint32_t Moment(const EditorState& state);

    // Sets the chosen message, as one step of undo, and selects it. Where none is chosen yet, the selected one is chosen.
    // False: there is none, or it was refused; the notice says why.
    bool Tap(EditorState* state);

private:
    void ChooseSelected(const EditorState& state);

    std::string effect, message, parameters;
    bool hasBlock = false; // the block that the latest tap went into, if it is still what it was
    size_t block = 0;
    std::vector<float> blockParameters;
};

} // namespace edit
