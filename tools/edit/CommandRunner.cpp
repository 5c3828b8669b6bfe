// SPDX-License-Identifier: MIT
#include "tools/edit/CommandRunner.h"

#include "tools/edit/Moments.h"
#include "tools/edit/Selection.h"

#include <algorithm>
#include <cmath>

namespace edit
{

static const double markSlack = 0.0005; // seconds: what is nearer is where the play head stands

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
    Transport& transport = session->transport;
    const double now = state->playhead;
    switch (id) {
    case CommandNew:
        dialogs->Leave(*session, {Dialogs::Decision::New, ""});
        break;
    case CommandOpen:
        dialogs->AskOpen(*session);
        break;
    case CommandSave:
        dialogs->Save(session);
        break;
    case CommandSaveAs:
        dialogs->AskSaveAs(*session);
        break;
    case CommandQuit:
        dialogs->Leave(*session, {Dialogs::Decision::Quit, ""});
        break;
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
        clipboard.set(state->document->Copy(state->selection));
        break;
    case CommandPaste:
        Paste();
        break;
    case CommandDuplicate:
        Duplicate();
        break;
    case CommandDelete:
        Delete();
        break;
    case CommandSelectAll:
        state->selection = AllItems(state->document->GetOutline());
        break;
    case CommandSelectNone:
        Escape();
        break;
    case CommandSelectNext:
        Act(SelectNext);
        break;
    case CommandSelectPrevious:
        Act(SelectPrevious);
        break;
    case CommandNewItem:
        Act(NewItem);
        break;
    case CommandEarlierMillisecond:
        Act(NudgeEarlierMillisecond);
        break;
    case CommandLaterMillisecond:
        Act(NudgeLaterMillisecond);
        break;
    case CommandEarlierFrame:
        Act(NudgeEarlierFrame);
        break;
    case CommandLaterFrame:
        Act(NudgeLaterFrame);
        break;
    case CommandEarlierBeat:
        Act(NudgeEarlierBeat);
        break;
    case CommandLaterBeat:
        Act(NudgeLaterBeat);
        break;
    case CommandEarlierBar:
        Act(NudgeEarlierBar);
        break;
    case CommandLaterBar:
        Act(NudgeLaterBar);
        break;
    case CommandLayerUp:
        Act(LayerUp);
        break;
    case CommandLayerDown:
        Act(LayerDown);
        break;
    case CommandStartHere:
        Act(StartToPlayHead);
        break;
    case CommandStopHere:
        Act(StopToPlayHead);
        break;
    case CommandTakeApart:
        TakeApart();
        break;
    case CommandSnap:
        state->snap.on = !state->snap.on;
        break;
    case CommandPlay:
        if (state->playing)
            transport.Stop();
        else
            transport.Play();
        break;
    case CommandBackFrame:
        transport.StepFrames(-1);
        break;
    case CommandOnFrame:
        transport.StepFrames(1);
        break;
    case CommandBackBeat:
        transport.GoTo(NextBeat(now, state->tempo, -1));
        break;
    case CommandOnBeat:
        transport.GoTo(NextBeat(now, state->tempo, 1));
        break;
    case CommandBackBar:
        transport.GoTo(NextBar(now, state->tempo, -1));
        break;
    case CommandOnBar:
        transport.GoTo(NextBar(now, state->tempo, 1));
        break;
    case CommandHome:
        transport.GoTo(0);
        break;
    case CommandEnd:
        transport.Stop();
        transport.GoTo(transport.LastMoment());
        break;
    case CommandGoTo:
        dialogs->AskGoTo(*session);
        break;
    case CommandMarker:
        ToggleMarker();
        break;
    case CommandBackMark:
        GoToMark(-1);
        break;
    case CommandOnMark:
        GoToMark(1);
        break;
    case CommandLoop:
        Loop();
        break;
    case CommandLoopFrom:
        LoopTo(now, state->loopEnd > now ? state->loopEnd : session->End());
        break;
    case CommandLoopTo:
        LoopTo(state->loopStart < now ? state->loopStart : 0, now);
        break;
    case CommandFullSpeed:
        transport.SetSpeed(1);
        break;
    case CommandHalfSpeed:
        transport.SetSpeed(0.5);
        break;
    case CommandQuarterSpeed:
        transport.SetSpeed(0.25);
        break;
    case CommandTap:
        Act(Tap);
        break;
    case CommandZoomIn:
        Act(ZoomIn);
        break;
    case CommandZoomOut:
        Act(ZoomOut);
        break;
    case CommandZoomShow:
        Act(ZoomToShow);
        break;
    case CommandFollow:
        state->follow = !state->follow;
        break;
    case CommandInspector:
        view->wishes.inspector = !view->wishes.inspector;
        break;
    case CommandFindings:
        view->wishes.findings = !view->wishes.findings;
        break;
    case CommandFullScreen:
        view->pictureAlone = !view->pictureAlone;
        break;
    case CommandKeys:
        view->keySheet = !view->keySheet;
        break;
    case CommandCount:
        break;
    }
}

void CommandRunner::Act(TimelineAction action)
{
    state->timelineActions.push_back(action);
}

void CommandRunner::Refused()
{
    state->notice = state->document->LastRefusal();
}

// Editing

void CommandRunner::Paste()
{
    const std::vector<ItemId> items = state->document->Paste(clipboard.get(), Milliseconds(state->playhead));
    if (items.empty())
        return Refused();
    state->selection = items;
    state->revealSelection = true;
}

// Copies come to lie right behind what is selected; of single messages a beat behind.
void CommandRunner::Duplicate()
{
    const Outline& outline = state->document->GetOutline();
    uint32_t start = UINT32_MAX, stop = 0;
    for (const ItemId item : state->selection) {
        start = std::min(start, StartOf(outline, item));
        stop = std::max(stop, StopOf(outline, item));
    }
    const int64_t beat = std::llround(state->tempo.BeatSeconds() * 1000);
    const std::vector<ItemId> items =
        state->document->Duplicate(state->selection, stop > start ? int64_t(stop) - start : beat);
    if (items.empty())
        return Refused();
    state->selection = items;
    state->revealSelection = true;
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
    const Outline& outline = state->document->GetOutline();
    uint32_t start = UINT32_MAX, stop = 0;
    for (const ItemId item : state->selection) {
        start = std::min(start, StartOf(outline, item));
        stop = std::max(stop, StopOf(outline, item));
    }
    if (stop > start)
        return LoopTo(start / 1000.0, stop / 1000.0);
    const double next = NextBar(state->playhead, state->tempo, 1);
    LoopTo(next - state->tempo.BarSeconds(), next);
}

void CommandRunner::ToggleMarker()
{
    const double now = Milliseconds(state->playhead) / 1000.0;
    const auto same = [now](double marker) { return std::abs(marker - now) < markSlack; };
    if (std::erase_if(state->markers, same) == 0)
        state->markers.insert(std::upper_bound(state->markers.begin(), state->markers.end(), now), now);
}

double NextMark(const Outline& outline, const std::vector<double>& markers, double seconds, int direction)
{
    bool found = false;
    double nearest = seconds;
    const auto look = [&](double mark) {
        if (direction * (mark - seconds) > markSlack && (!found || direction * (nearest - mark) > 0)) {
            nearest = mark;
            found = true;
        }
    };
    for (const double marker : markers)
        look(marker);
    for (const OutlineBlock& block : outline.blocks) {
        if (!block.complete)
            continue;
        if (block.type == BlockEffect) {
            look(block.start / 1000.0);
            look(block.stop / 1000.0);
        }
        for (const OutlineTime& time : block.times)
            for (uint32_t step = 0; step < block.steps; step++)
                look((time.milliseconds + double(step) * block.delta) / 1000.0);
    }
    return nearest;
}

void CommandRunner::GoToMark(int direction)
{
    session->transport.GoTo(
        NextMark(state->document->GetOutline(), state->markers, state->playhead, direction));
}

} // namespace edit
