// SPDX-License-Identifier: MIT
// The steps of undo and redo, each stored as the changes that it made to the text.
#pragma once

#include "tools/edit/TextChange.h"

#include <cstdint>
#include <string>
#include <vector>

namespace edit
{

class UndoStack
{
public:
    UndoStack();

    // Adds a step that leads from one text to another, and drops what could be redone. A step with the same nonzero
    // gesture as the newest one replaces that; `before` is then the text from before the gesture. Nothing is added for
    // texts that are equal.
    void Add(const std::string& name, const std::string& before, const std::string& after, uint64_t gesture);

    // True if a call with this gesture number refines the newest step.
    bool Continues(uint64_t gesture) const;
    void EndGesture();

    bool CanUndo() const { return done > 0; }
    bool CanRedo() const { return done < steps.size(); }
    std::string UndoName() const { return CanUndo() ? steps[done - 1].name : ""; }
    std::string RedoName() const { return CanRedo() ? steps[done].name : ""; }

    std::string Undo(const std::string& text); // the text before the step; unchanged if there is none
    std::string Redo(const std::string& text);
    void Clear();

private:
    struct Step {
        std::string name;
        std::vector<TextChange> changes;
        uint64_t gesture;
    };

    std::vector<Step> steps;
    size_t done; // so many from the first on are in the text, the others can be redone
};

} // namespace edit
