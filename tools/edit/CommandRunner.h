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
    // The commands of each menu that the timeline panel doesn't do.
    void RunFile(CommandId id);
    void RunEdit(CommandId id);
    void RunPlay(CommandId id);
    void RunView(CommandId id); // and of the help menu
    void Paste();
    void Duplicate();
    void Delete();
    void TakeApart();
    void Escape();
    void Loop();
    void LoopTo(double from, double to);
    void GoToMark(int direction);
    void Refused();
    void SelectAdded(const std::vector<ItemId>& items);

    Session* session;
    EditorState* state;
    ViewState* view;
    Dialogs* dialogs;
    Clipboard clipboard;
};

} // namespace edit
