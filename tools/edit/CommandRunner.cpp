// SPDX-License-Identifier: MIT
#include "tools/edit/CommandRunner.h"

#include "tools/edit/Markers.h"
#include "tools/edit/Moments.h"
#include "tools/edit/Selection.h"

#include <algorithm>
#include <cmath>

namespace edit
{

// What the timeline panel does.
struct TimelineCommand {
    CommandId id;
    TimelineAction action;
};

// clang-format off
static const TimelineCommand timelineCommands[] = {
    {CommandSelectNext,         SelectNext},
    {CommandSelectPrevious,     SelectPrevious},
    {CommandNewItem,            NewItem},
    {CommandEarlierMillisecond, NudgeEarlierMillisecond},
    {CommandLaterMillisecond,   NudgeLaterMillisecond},
    {CommandEarlierFrame,       NudgeEarlierFrame},
    {CommandLaterFrame,         NudgeLaterFrame},
    {CommandEarlierBeat,        NudgeEarlierBeat},
    {CommandLaterBeat,          NudgeLaterBeat},
    {CommandEarlierBar,         NudgeEarlierBar},
    {CommandLaterBar,           NudgeLaterBar},
    {CommandLayerUp,            LayerUp},
    {CommandLayerDown,          LayerDown},
    {CommandStartHere,          StartToPlayHead},
    {CommandStopHere,           StopToPlayHead},
    {CommandTap,                Tap},
    {CommandZoomIn,             ZoomIn},
    {CommandZoomOut,            ZoomOut},
    {CommandZoomShow,           ZoomToShow},
};
// clang-format on

CommandRunner::CommandRunner(Session* newSession, ViewState* newView, Dialogs* newDialogs,
                             Clipboard newClipboard)
    : session(newSession), state(&newSession->state), view(newView), dialogs(newDialogs),
      clipboard(newClipboard)
{
}

static uint32_t Milliseconds(double seconds)
{
    return uint32_t(std::clamp<int64_t>(std::llround(seconds * 1000), 0, UINT32_MAX));
}

bool CommandRunner::Can(CommandId id) const
{
    const bool selected = !state->selection.empty();
    switch (id) {
    case CommandUndo:
        return state->document->CanUndo();
    case CommandRedo:
        return state->document->CanRedo();
    case CommandSave:
        return state->document->IsModified() || state->document->Path().empty();
    case CommandCut:
    case CommandCopy:
    case CommandDuplicate:
    case CommandDelete:
    case CommandEarlierMillisecond:
    case CommandLaterMillisecond:
    case CommandEarlierFrame:
    case CommandLaterFrame:
    case CommandEarlierBeat:
    case CommandLaterBeat:
    case CommandEarlierBar:
    case CommandLaterBar:
    case CommandLayerUp:
    case CommandLayerDown:
    case CommandStartHere:
    case CommandStopHere:
        return selected;
    case CommandTakeApart:
        return std::any_of(state->selection.begin(), state->selection.end(), [this](ItemId item) {
            return state->document->GetOutline().Has(item) &&
                   state->document->GetOutline().blocks[item.block].IsGroup();
        });
    default:
        return true;
    }
}

bool CommandRunner::IsTicked(CommandId id) const
{
    switch (id) {
    case CommandSnap:
        return state->snap.on;
    case CommandLoop:
        return state->looping;
    case CommandFollow:
        return state->follow;
    case CommandInspector:
        return view->wishes.inspector;
    case CommandFindings:
        return view->wishes.findings;
    case CommandFullScreen:
        return view->pictureAlone;
    case CommandFullSpeed:
        return state->speed == 1;
    case CommandHalfSpeed:
        return state->speed == 0.5;
    case CommandQuarterSpeed:
        return state->speed == 0.25;
    default:
        return false;
    }
}

std::string CommandRunner::MenuName(CommandId id) const
{
    const std::string name = CommandOf(id).name;
    if (id == CommandUndo && state->document->CanUndo())
        return name + ": " + state->document->UndoName();
    if (id == CommandRedo && state->document->CanRedo())
        return name + ": " + state->document->RedoName();
    if (id == CommandPlay && state->playing)
        return "Stop";
    return name;
}

void CommandRunner::Run(CommandId id)
{
    if (!Can(id))
        return;
    for (const TimelineCommand& row : timelineCommands)
        if (row.id == id)
            return state->timelineActions.push_back(row.action);
    switch (CommandOf(id).menu) {
    case FileMenu:
        return RunFile(id);
    case EditMenu:
        return RunEdit(id);
    case PlayMenu:
        return RunPlay(id);
    case ViewMenu:
    case HelpMenu:
    case MenuCount:
        return RunView(id);
    }
}

void CommandRunner::RunFile(CommandId id)
{
    if (id == CommandNew)
        dialogs->Leave(*session, {Dialogs::Decision::New, ""});
    else if (id == CommandOpen)
        dialogs->AskOpen(*session);
    else if (id == CommandSave)
        dialogs->Save(session);
    else if (id == CommandSaveAs)
        dialogs->AskSaveAs(*session);
    else if (id == CommandQuit)
        dialogs->Leave(*session, {Dialogs::Decision::Quit, ""});
}

void CommandRunner::RunEdit(CommandId id)
{
    switch (id) {
    case CommandUndo: {
        const std::string name = state->document->UndoName();
        if (state->document->Undo())
            state->notice = "Undone: " + name;
        break;
    }
    case CommandRedo: {
        const std::string name = state->document->RedoName();
        if (state->document->Redo())
            state->notice = "Done once more: " + name;
        break;
    }
    case CommandCut:
        clipboard.set(state->document->Copy(state->selection));
        Delete();
        break;
    case CommandCopy:
        return clipboard.set(state->document->Copy(state->selection));
    case CommandPaste:
        return Paste();
    case CommandDuplicate:
        return Duplicate();
    case CommandDelete:
        return Delete();
    case CommandSelectAll:
        state->selection = AllItems(state->document->GetOutline());
        break;
    case CommandSelectNone:
        return Escape();
    case CommandTakeApart:
        return TakeApart();
    case CommandSnap:
        state->snap.on = !state->snap.on;
        break;
    default:
        break;
    }
}

void CommandRunner::RunPlay(CommandId id)
{
    Transport& transport = session->transport;
    const double now = state->playhead;
    switch (id) {
    case CommandPlay:
        if (state->playing)
            transport.Stop();
        else
            transport.Play();
        break;
    case CommandBackFrame:
        return transport.StepFrames(-1);
    case CommandOnFrame:
        return transport.StepFrames(1);
    case CommandBackBeat:
        return transport.GoTo(NextBeat(now, state->tempo, -1));
    case CommandOnBeat:
        return transport.GoTo(NextBeat(now, state->tempo, 1));
    case CommandBackBar:
        return transport.GoTo(NextBar(now, state->tempo, -1));
    case CommandOnBar:
        return transport.GoTo(NextBar(now, state->tempo, 1));
    case CommandHome:
        return transport.GoTo(0);
    case CommandEnd:
        transport.Stop();
        transport.GoTo(transport.LastMoment());
        break;
    case CommandGoTo:
        return dialogs->AskGoTo(*session);
    case CommandMarker:
        return ToggleMarker(&state->markers, Milliseconds(now) / 1000.0);
    case CommandBackMark:
        return GoToMark(-1);
    case CommandOnMark:
        return GoToMark(1);
    case CommandLoop:
        return Loop();
    case CommandLoopFrom:
        return LoopTo(now, state->loopEnd > now ? state->loopEnd : session->End());
    case CommandLoopTo:
        return LoopTo(state->loopStart < now ? state->loopStart : 0, now);
    case CommandFullSpeed:
        return transport.SetSpeed(1);
    case CommandHalfSpeed:
        return transport.SetSpeed(0.5);
    case CommandQuarterSpeed:
        return transport.SetSpeed(0.25);
    default:
        break;
    }
}

void CommandRunner::RunView(CommandId id)
{
    if (id == CommandFollow)
        state->follow = !state->follow;
    else if (id == CommandInspector)
        view->wishes.inspector = !view->wishes.inspector;
    else if (id == CommandFindings)
        view->wishes.findings = !view->wishes.findings;
    else if (id == CommandFullScreen)
        view->pictureAlone = !view->pictureAlone;
    else if (id == CommandKeys)
        view->keySheet = !view->keySheet;
}

void CommandRunner::Refused()
{
    state->notice = state->document->LastRefusal();
}

// Editing

// What an operation has added; nothing: it was refused.
void CommandRunner::SelectAdded(const std::vector<ItemId>& items)
{
    if (items.empty())
        return Refused();
    state->selection = items;
    state->revealSelection = true;
}

void CommandRunner::Paste()
{
    SelectAdded(state->document->Paste(clipboard.get(), Milliseconds(state->playhead)));
}

void CommandRunner::Duplicate()
{
    const int64_t shift = CopyShift(state->document->GetOutline(), state->selection, state->tempo);
    SelectAdded(state->document->Duplicate(state->selection, shift));
}

void CommandRunner::Delete()
{
    if (!state->document->Delete(state->selection))
        return Refused();
    state->selection.clear();
}

void CommandRunner::TakeApart()
{
    std::vector<size_t> blocks;
    for (const ItemId item : state->selection)
        blocks.push_back(item.block);
    std::sort(blocks.rbegin(), blocks.rend()); // from the last: the numbers of those before it stay
    blocks.erase(std::unique(blocks.begin(), blocks.end()), blocks.end());
    for (const size_t block : blocks)
        if (state->document->GetOutline().blocks[block].IsGroup() && !state->document->TakeApart(block))
            return Refused();
}

void CommandRunner::Escape()
{
    if (view->keySheet)
        view->keySheet = false;
    else if (view->pictureAlone)
        view->pictureAlone = false;
    else
        state->selection.clear();
}

// Moving about

void CommandRunner::LoopTo(double from, double to)
{
    if (session->transport.SetLoop(from, to))
        session->transport.SetLooping(true);
}

void CommandRunner::Loop()
{
    if (state->loopEnd > state->loopStart)
        return session->transport.SetLooping(!state->looping);
    const auto [start, stop] = SpanOf(state->document->GetOutline(), state->selection);
    if (stop > start)
        return LoopTo(start / 1000.0, stop / 1000.0);
    const double next = NextBar(state->playhead, state->tempo, 1);
    LoopTo(next - state->tempo.BarSeconds(), next);
}

void CommandRunner::GoToMark(int direction)
{
    session->transport.GoTo(
        NextMark(state->document->GetOutline(), state->markers, state->playhead, direction));
}

} // namespace edit
