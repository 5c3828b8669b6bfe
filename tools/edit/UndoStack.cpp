// SPDX-License-Identifier: MIT
#include "tools/edit/UndoStack.h"

namespace edit
{

UndoStack::UndoStack() : done(0) {}

void UndoStack::Add(const std::string& name, const std::string& before, const std::string& after,
                    uint64_t gesture)
{
    if (Continues(gesture))
        done--;
    steps.resize(done);
    std::vector<TextChange> changes = Difference(before, after);
    if (changes.empty())
        return;
    steps.push_back({name, std::move(changes), gesture});
    done++;
}

bool UndoStack::Continues(uint64_t gesture) const
{
    return gesture != 0 && done > 0 && done == steps.size() && steps.back().gesture == gesture;
}

void UndoStack::EndGesture()
{
    if (!steps.empty())
        steps.back().gesture = 0;
}

std::string UndoStack::Undo(const std::string& text)
{
    EndGesture();
    return CanUndo() ? Revert(text, steps[--done].changes) : text;
}

std::string UndoStack::Redo(const std::string& text)
{
    EndGesture();
    return CanRedo() ? Apply(text, steps[done++].changes) : text;
}

void UndoStack::Clear()
{
    steps.clear();
    done = 0;
}

} // namespace edit
