// SPDX-License-Identifier: MIT
// Every command of the editor, in one table: the menus, the keys, the sheet of keys, the table in docs/TOOLS.md and
// the manual page come from it.
#pragma once

#include "platform/toolwindow/KeyPress.h"

#include <string>
#include <vector>

namespace edit
{

enum Menu { FileMenu, EditMenu, PlayMenu, ViewMenu, HelpMenu, MenuCount };

const char* NameOf(Menu menu);

enum CommandId {
    CommandNew,
    CommandOpen,
    CommandSave,
    CommandSaveAs,
    CommandQuit,

    CommandUndo,
    CommandRedo,
    CommandCut,
    CommandCopy,
    CommandPaste,
    CommandDuplicate,
    CommandDelete,
    CommandSelectAll,
    CommandSelectNone,
    CommandSelectNext,
    CommandSelectPrevious,
    CommandNewItem,
    CommandEarlierMillisecond,
    CommandLaterMillisecond,
    CommandEarlierFrame,
    CommandLaterFrame,
    CommandEarlierBeat,
    CommandLaterBeat,
    CommandEarlierBar,
    CommandLaterBar,
    CommandLayerUp,
    CommandLayerDown,
    CommandStartHere,
    CommandStopHere,
    CommandTakeApart,
    CommandSnap,

    CommandPlay,
    CommandBackFrame,
    CommandOnFrame,
    CommandBackBeat,
    CommandOnBeat,
    CommandBackBar,
    CommandOnBar,
    CommandHome,
    CommandEnd,
    CommandGoTo,
    CommandMarker,
    CommandBackMark,
    CommandOnMark,
    CommandLoop,
    CommandLoopFrom,
    CommandLoopTo,
    CommandFullSpeed,
    CommandHalfSpeed,
    CommandQuarterSpeed,
    CommandTap,

    CommandZoomIn,
    CommandZoomOut,
    CommandZoomShow,
    CommandFollow,
    CommandInspector,
    CommandFindings,
    CommandFullScreen,

    CommandKeys,

    CommandCount
};

struct Command {
    CommandId id;
    Menu menu;
    bool beginsGroup;           // a line stands above it in the menu
    const char* name;           // as the menu shows it
    platform::KeyPress keys[2]; // KeyNone: none
    const char* help;           // a sentence or more
};

// In the order of CommandId, which is that of the menus.
const std::vector<Command>& Commands();
const Command& CommandOf(CommandId id);

// The command that has these keys; null: none has.
const Command* FindCommand(const platform::KeyPress& press);

// "Ctrl+Shift+S", "Page Up", "+"; empty for KeyNone.
std::string KeyText(const platform::KeyPress& press);
// The keys of a command with "or" between them; empty: it has none.
std::string KeysText(const Command& command);

// The table of docs/TOOLS.md: a row of menu, keys and help for each command.
std::string CommandTable();

} // namespace edit
