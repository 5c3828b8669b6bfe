// SPDX-License-Identifier: MIT
#include "tools/edit/Commands.h"

namespace edit
{

using platform::KeyPress;

static constexpr KeyPress Plain(int key)
{
    return {key, false, false, false, false};
}

static constexpr KeyPress Ctrl(int key)
{
    return {key, true, false, false, false};
}

static constexpr KeyPress Shift(int key)
{
    return {key, false, true, false, false};
}

static constexpr KeyPress CtrlShift(int key)
{
    return {key, true, true, false, false};
}

static constexpr KeyPress Alt(int key)
{
    return {key, false, false, true, false};
}

static constexpr KeyPress None = {};

// clang-format off
static const std::vector<Command> table = {
    {CommandNew,    FileMenu, false, "New",        {Ctrl('n'),      None}, "Begins an empty script."},
    {CommandOpen,   FileMenu, false, "Open...",    {Ctrl('o'),      None}, "Opens a script. A file that is dropped on the window is opened as well."},
    {CommandSave,   FileMenu, true,  "Save",       {Ctrl('s'),      None}, "Writes the script."},
    {CommandSaveAs, FileMenu, false, "Save as...", {CtrlShift('s'), None}, "Writes the script under another name."},
    {CommandQuit,   FileMenu, true,  "Quit",       {Ctrl('q'),      None}, "Closes the window. Asks first if something is not saved."},

    {CommandUndo,      EditMenu, false, "Undo",       {Ctrl('z'), None},           "Takes the last change back. Without end, through a save too."},
    {CommandRedo,      EditMenu, false, "Redo",       {Ctrl('y'), CtrlShift('z')}, "Makes a change that was taken back once more."},
    {CommandCut,       EditMenu, true,  "Cut",        {Ctrl('x'), None},           "Takes what is selected out of the script, to be pasted."},
    {CommandCopy,      EditMenu, false, "Copy",       {Ctrl('c'), None},           "Copies what is selected, as blocks of a script."},
    {CommandPaste,     EditMenu, false, "Paste",      {Ctrl('v'), None},           "Puts the copied blocks in, so that the earliest begins at the play head."},
    {CommandDuplicate, EditMenu, false, "Duplicate",  {Ctrl('d'), None},           "Copies what is selected to right behind itself."},
    {CommandDelete,    EditMenu, false, "Delete",     {Plain(platform::KeyDelete), Plain(platform::KeyBackspace)}, "Takes what is selected out of the script."},
    {CommandSelectAll, EditMenu, true,  "Select all", {Ctrl('a'), None},           "Selects every entry and message."},
    {CommandSelectNone, EditMenu, false, "Select nothing", {Plain(platform::KeyEscape), None}, "Selects nothing. Leaves the whole screen first."},
    {CommandSelectNext,     EditMenu, false, "Select the next",     {Plain(platform::KeyTab), None}, "Selects the entry or message that follows in time."},
    {CommandSelectPrevious, EditMenu, false, "Select the previous", {Shift(platform::KeyTab), None}, "The same, the other way."},
    {CommandNewItem,   EditMenu, true,  "New...",     {Plain('n'), Plain(platform::KeyInsert)}, "Offers the effects and messages that can be put in at the play head."},
    {CommandEarlierMillisecond, EditMenu, true,  "Earlier by 1 ms",    {Plain(','),     None}, "Moves what is selected by a millisecond."},
    {CommandLaterMillisecond,   EditMenu, false, "Later by 1 ms",      {Plain('.'),     None}, "The same, the other way."},
    {CommandEarlierFrame,       EditMenu, false, "Earlier by a frame", {Shift(','),     None}, "Moves what is selected by a frame."},
    {CommandLaterFrame,         EditMenu, false, "Later by a frame",   {Shift('.'),     None}, "The same, the other way."},
    {CommandEarlierBeat,        EditMenu, false, "Earlier by a beat",  {Ctrl(','),      None}, "Moves what is selected by a beat."},
    {CommandLaterBeat,          EditMenu, false, "Later by a beat",    {Ctrl('.'),      None}, "The same, the other way."},
    {CommandEarlierBar,         EditMenu, false, "Earlier by a bar",   {CtrlShift(','), None}, "Moves what is selected by a bar."},
    {CommandLaterBar,           EditMenu, false, "Later by a bar",     {CtrlShift('.'), None}, "The same, the other way."},
    {CommandLayerUp,   EditMenu, true,  "To the layer above", {Alt(platform::KeyUp),   None}, "Moves the selected entries a layer to the front."},
    {CommandLayerDown, EditMenu, false, "To the layer below", {Alt(platform::KeyDown), None}, "Moves the selected entries a layer to the back."},
    {CommandStartHere, EditMenu, false, "Start here",         {Plain('['), None}, "Stretches the selected entry so that it begins at the play head."},
    {CommandStopHere,  EditMenu, false, "Stop here",          {Plain(']'), None}, "Stretches the selected entry so that it ends at the play head."},
    {CommandTakeApart, EditMenu, true,  "Take a group apart", {Ctrl('u'), None}, "Writes the messages of a Steps group out, so that each can be moved by itself."},
    {CommandSnap,      EditMenu, true,  "Snap",               {Plain('s'), None}, "Whether what is dragged or tapped comes to rest on beats, messages and edges. Alt holds it off while dragging."},

    {CommandPlay,      PlayMenu, false, "Play",                {Plain(' '), None},                     "Plays from the play head, or stops."},
    {CommandBackFrame, PlayMenu, true,  "A frame back",        {Plain(platform::KeyLeft),  None},      "Moves the play head by a frame."},
    {CommandOnFrame,   PlayMenu, false, "A frame on",          {Plain(platform::KeyRight), None},      "The same, the other way."},
    {CommandBackBeat,  PlayMenu, false, "A beat back",         {Shift(platform::KeyLeft),  None},      "Moves the play head to the beat before."},
    {CommandOnBeat,    PlayMenu, false, "A beat on",           {Shift(platform::KeyRight), None},      "Moves the play head to the next beat."},
    {CommandBackBar,   PlayMenu, false, "A bar back",          {Ctrl(platform::KeyLeft),   None},      "Moves the play head to the bar before."},
    {CommandOnBar,     PlayMenu, false, "A bar on",            {Ctrl(platform::KeyRight),  None},      "Moves the play head to the next bar."},
    {CommandHome,      PlayMenu, false, "To the start",        {Plain(platform::KeyHome), None},       "Moves the play head to the start of the show."},
    {CommandEnd,       PlayMenu, false, "To the end",          {Plain(platform::KeyEnd),  None},       "Moves the play head to the last frame of the show."},
    {CommandGoTo,      PlayMenu, false, "Go to...",            {Ctrl('g'), None},                      "Asks for a moment: 83450 (milliseconds), 1:23.45, or 46:2 with a bar and its beat."},
    {CommandMarker,    PlayMenu, true,  "Marker",              {Plain('m'), None},                     "Sets a marker at the play head, or takes the one there away."},
    {CommandBackMark,  PlayMenu, false, "To the mark before",  {Plain(platform::KeyPageUp), Plain(platform::KeyUp)},     "Moves the play head to the marker, message or edge of an entry before it."},
    {CommandOnMark,    PlayMenu, false, "To the next mark",    {Plain(platform::KeyPageDown), Plain(platform::KeyDown)}, "Moves the play head to the next of these."},
    {CommandLoop,      PlayMenu, true,  "Loop",                {Plain('l'), None},                     "Plays a region again and again: what is selected, or the bar at the play head, if none is set."},
    {CommandLoopFrom,  PlayMenu, false, "Loop from here",      {Plain('i'), None},                     "The region begins at the play head."},
    {CommandLoopTo,    PlayMenu, false, "Loop to here",        {Plain('o'), None},                     "The region ends at the play head."},
    {CommandFullSpeed,    PlayMenu, true,  "Full speed",       {Plain('1'), None},                     "Plays in time, with the music."},
    {CommandHalfSpeed,    PlayMenu, false, "Half speed",       {Plain('2'), None},                     "Plays at half speed, in silence."},
    {CommandQuarterSpeed, PlayMenu, false, "Quarter speed",    {Plain('4'), None},                     "Plays at quarter speed, in silence."},
    {CommandTap,       PlayMenu, true,  "Tap",                 {Plain('t'), None},                     "Sets the chosen message at the moment that is heard."},

    {CommandZoomIn,     ViewMenu, false, "Closer",            {Plain('+'), None},                   "Shows a shorter stretch of the timeline. The wheel zooms to the pointer."},
    {CommandZoomOut,    ViewMenu, false, "Farther",           {Plain('-'), None},                   "Shows a longer stretch of the timeline."},
    {CommandZoomShow,   ViewMenu, false, "The whole show",    {Plain('0'), None},                   "Shows all of the timeline."},
    {CommandFollow,     ViewMenu, true,  "Follow",            {Plain('f'), None},                   "Whether the timeline keeps the play head in sight while it plays."},
    {CommandInspector,  ViewMenu, true,  "Inspector",         {Plain(platform::KeyF1 + 1), None},   "Shows or hides the inspector."},
    {CommandFindings,   ViewMenu, false, "Findings",          {Plain(platform::KeyF1 + 2), None},   "Shows or hides the findings."},
    {CommandFullScreen, ViewMenu, true,  "Picture alone",     {Plain(platform::KeyF1 + 10), None},  "The picture over the whole screen. Escape leaves it."},

    {CommandKeys, HelpMenu, false, "All keys", {Plain(platform::KeyF1), None}, "Shows this on a sheet."},
};
// clang-format on

const char* NameOf(Menu menu)
{
    static const char* const names[MenuCount] = {"File", "Edit", "Play", "View", "Help"};
    return names[menu];
}

const std::vector<Command>& Commands()
{
    return table;
}

const Command& CommandOf(CommandId id)
{
    return table[id];
}

const Command* FindCommand(const KeyPress& press)
{
    for (const Command& command : table)
        for (const KeyPress& keys : command.keys)
            if (keys.key != platform::KeyNone && keys.SameKeys(press))
                return &command;
    return nullptr;
}

static std::string KeyName(int key)
{
    static const char* const names[] = {"Left",      "Right",   "Up",        "Down",   "Home",
                                        "End",       "Page Up", "Page Down", "Insert", "Delete",
                                        "Backspace", "Tab",     "Enter",     "Escape"};
    static_assert(platform::KeyF1 - platform::KeyLeft == sizeof names / sizeof names[0]);
    if (key >= platform::KeyF1)
        return "F" + std::to_string(key - platform::KeyF1 + 1);
    if (key >= platform::KeyLeft)
        return names[key - platform::KeyLeft];
    if (key == platform::KeySpace)
        return "Space";
    if (key >= 'a' && key <= 'z')
        key += 'A' - 'a';
    return std::string(1, char(key));
}

std::string KeyText(const KeyPress& press)
{
    if (press.key == platform::KeyNone)
        return "";
    return std::string(press.control ? "Ctrl+" : "") + (press.alt ? "Alt+" : "") +
           (press.shift ? "Shift+" : "") + KeyName(press.key);
}

std::string KeysText(const Command& command)
{
    const std::string first = KeyText(command.keys[0]), second = KeyText(command.keys[1]);
    return second.empty() ? first : first + " or " + second;
}

std::string CommandTable()
{
    std::string text = "| Menu | Command | Keys | What it does |\n|---|---|---|---|\n";
    for (const Command& command : table)
        text += std::string("| ") + NameOf(command.menu) + " | " + command.name + " | " + KeysText(command) +
                " | " + command.help + " |\n";
    return text;
}

} // namespace edit
