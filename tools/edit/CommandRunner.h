// SPDX-License-Identifier: MIT
// Does the commands of the table.
#pragma once

#include "tools/edit/Commands.h"
#include "tools/edit/Dialogs.h"
#include "tools/edit/Session.h"
#include "tools/edit/WindowLayout.h"

#include <string>

namespace edit
{

// How the window looks, as far as commands change it.
struct ViewState {
    LayoutWishes wishes;
    bool pictureAlone = false; // over the whole screen
    bool keySheet = false;
};

class CommandRunner
{
public:
    // What other programs copy and paste; ImGui's in the window.
    struct Clipboard {
        std::string (*get)();
        void (*set)(const std::string& text);
    };

    // All borrowed.
    CommandRunner(Session* newSession, ViewState* newView, Dialogs* newDialogs, Clipboard newClipboard);

    bool Can(CommandId id) const;
    bool IsTicked(CommandId id) const;        // what it switches is on
    std::string MenuName(CommandId id) const; // "Undo Move"
    void Run(CommandId id);                   // nothing if it can't

private:
    void Paste();
    void Duplicate();
    void Delete();
    void TakeApart();
    void Escape();
    void Loop();
    void LoopTo(double from, double to);
    void ToggleMarker();
    void GoToMark(int direction);
    void Act(TimelineAction action);
    void Refused();

    Session* session;
    EditorState* state;
    ViewState* view;
    Dialogs* dialogs;
    Clipboard clipboard;
};

// The nearest marker, message or edge of an entry before (direction -1) or behind a time, in seconds. The time itself
// if there is none.
double NextMark(const Outline& outline, const std::vector<double>& markers, double seconds, int direction);

} // namespace edit
