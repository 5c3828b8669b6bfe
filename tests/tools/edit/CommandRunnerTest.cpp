// SPDX-License-Identifier: MIT
#include "tools/edit/CommandRunner.h"

#include "tests/Folders.h"

#include <gtest/gtest.h>

using namespace edit;

static const char* const night =
    "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=1000;\nStopTime=10000;\nLayerID=1;\n"
    "[MESSAGE]\nMessageText=hand;\nActivationTime=2000,4000;\nTargetEffect=FX_Clouds;\n"
    "[MESSAGE]\nMessageText=blend;\nActivationTime=5000;\nTargetEffect=FX_Clouds;\n"
    "Steps=3;\nTimeDelta=500;\n";

// What other programs would have copied.
static std::string clipboardText;

// A session without a window and without processes.
class CommandRunnerTest : public testing::Test
{
protected:
    CommandRunnerTest()
        : session({}, [] {}),
          runner(&session, &view, &dialogs,
                 {[] { return clipboardText; }, [](const std::string& text) { clipboardText = text; }})
    {
        clipboardText.clear();
        session.New();
        state.document->Paste(night, 1000);
        state.selection.clear();
        session.Tick(0);
    }

    // The numbers of the outline's [EFFECT] and [MESSAGE] blocks are those of the text above.
    const std::vector<OutlineBlock>& Blocks() const { return state.document->GetOutline().blocks; }

    Session session;
    EditorState& state = session.state;
    ViewState view;
    Dialogs dialogs;
    CommandRunner runner;
};

TEST_F(CommandRunnerTest, StartsFromTheScriptOfThisTest)
{
    ASSERT_EQ(3u, Blocks().size());
    EXPECT_EQ(1000u, Blocks()[0].start);
    EXPECT_EQ(10000u, Blocks()[0].stop);
    EXPECT_EQ(2u, Blocks()[1].times.size());
    EXPECT_EQ(3u, Blocks()[2].steps);
    EXPECT_DOUBLE_EQ(10, session.End());
}

TEST_F(CommandRunnerTest, CanDoOnlyWhatThereIsSomethingFor)
{
    EXPECT_FALSE(runner.Can(CommandCopy));
    EXPECT_FALSE(runner.Can(CommandDelete));
    EXPECT_FALSE(runner.Can(CommandLaterBeat));
    EXPECT_FALSE(runner.Can(CommandTakeApart));
    EXPECT_FALSE(runner.Can(CommandRedo));
    EXPECT_TRUE(runner.Can(CommandUndo));
    EXPECT_TRUE(runner.Can(CommandPlay));
    state.selection = {{1, 0}};
    EXPECT_TRUE(runner.Can(CommandCopy));
    EXPECT_FALSE(runner.Can(CommandTakeApart));
    state.selection = {{2, 0}};
    EXPECT_TRUE(runner.Can(CommandTakeApart));
}

TEST_F(CommandRunnerTest, CopiesCutsAndPastesAtThePlayHead)
{
    state.selection = {{1, 1}};
    runner.Run(CommandCopy);
    EXPECT_NE(std::string::npos, clipboardText.find("MessageText=hand;"));
    EXPECT_NE(std::string::npos, clipboardText.find("4000"));
    EXPECT_EQ(std::string::npos, clipboardText.find("2000"));
    state.playhead = 7.25;
    runner.Run(CommandPaste);
    ASSERT_EQ(1u, state.selection.size());
    const OutlineBlock& pasted = Blocks()[state.selection[0].block];
    EXPECT_EQ("hand", pasted.message);
    EXPECT_EQ(7250u, pasted.times[size_t(state.selection[0].time)].milliseconds);
    EXPECT_TRUE(state.revealSelection);

    state.selection = {{0, -1}};
    const size_t before = Blocks().size();
    runner.Run(CommandCut);
    EXPECT_EQ(before - 1, Blocks().size());
    EXPECT_NE(std::string::npos, clipboardText.find("EffectName=FX_Clouds;"));
    EXPECT_TRUE(state.selection.empty());
    runner.Run(CommandUndo);
    EXPECT_EQ(before, Blocks().size());
    runner.Run(CommandRedo);
    EXPECT_EQ(before - 1, Blocks().size());
}

TEST_F(CommandRunnerTest, SaysWhyNothingWasPasted)
{
    clipboardText = "nothing of a script";
    const std::string before = state.document->Text();
    runner.Run(CommandPaste);
    EXPECT_EQ(before, state.document->Text());
    EXPECT_NE("", state.notice);
}

TEST_F(CommandRunnerTest, DuplicatesAnEntryBehindItselfAndAMessageByABeat)
{
    state.selection = {{0, -1}};
    runner.Run(CommandDuplicate);
    ASSERT_EQ(1u, state.selection.size());
    EXPECT_EQ(10000u, Blocks()[state.selection[0].block].start);
    EXPECT_EQ(19000u, Blocks()[state.selection[0].block].stop);
    runner.Run(CommandUndo);
    state.selection = {{1, 0}};
    runner.Run(CommandDuplicate);
    ASSERT_EQ(1u, state.selection.size());
    const ItemId copy = state.selection[0];
    EXPECT_EQ(2600u, Blocks()[copy.block].times[size_t(copy.time)].milliseconds); // at 100 beats a minute
}

TEST_F(CommandRunnerTest, SelectsAllAndNothing)
{
    runner.Run(CommandSelectAll);
    EXPECT_EQ(4u, state.selection.size()); // the entry, two times, a group
    runner.Run(CommandSelectNone);
    EXPECT_TRUE(state.selection.empty());
}

TEST_F(CommandRunnerTest, TakesTheSelectedGroupsApart)
{
    runner.Run(CommandSelectAll);
    runner.Run(CommandTakeApart);
    EXPECT_FALSE(Blocks()[2].IsGroup());
    ASSERT_EQ(3u, Blocks()[2].times.size());
    EXPECT_EQ(6000u, Blocks()[2].times[2].milliseconds);
}

TEST_F(CommandRunnerTest, LeavesTheSheetAndTheWholeScreenAheadOfTheSelection)
{
    state.selection = {{0, -1}};
    view.keySheet = view.pictureAlone = true;
    runner.Run(CommandSelectNone);
    EXPECT_FALSE(view.keySheet);
    EXPECT_TRUE(view.pictureAlone);
    runner.Run(CommandSelectNone);
    EXPECT_FALSE(view.pictureAlone);
    EXPECT_FALSE(state.selection.empty());
    runner.Run(CommandSelectNone);
    EXPECT_TRUE(state.selection.empty());
}

TEST_F(CommandRunnerTest, SetsAMarkerAtThePlayHeadAndTakesItAway)
{
    state.playhead = 3;
    runner.Run(CommandMarker);
    state.playhead = 1;
    runner.Run(CommandMarker);
    EXPECT_EQ((std::vector<double>{1, 3}), state.markers);
    state.playhead = 3.0002;
    runner.Run(CommandMarker);
    EXPECT_EQ((std::vector<double>{1}), state.markers);
}

TEST_F(CommandRunnerTest, GoesFromMarkToMark)
{
    state.markers = {1.5};
    state.playhead = 0;
    const double marks[] = {1, 1.5, 2, 4, 5, 5.5, 6};
    for (const double mark : marks) {
        runner.Run(CommandOnMark);
        EXPECT_NEAR(mark, state.playhead, 1e-9);
    }
    for (size_t i = 6; i-- > 0;) {
        runner.Run(CommandBackMark);
        EXPECT_NEAR(marks[i], state.playhead, 1e-9);
    }
    runner.Run(CommandBackMark);
    EXPECT_EQ(1, state.playhead); // there is none before
}

TEST_F(CommandRunnerTest, LoopsTheSelectionOrTheBarAtThePlayHead)
{
    state.selection = {{0, -1}};
    runner.Run(CommandLoop);
    EXPECT_TRUE(state.looping);
    EXPECT_EQ(1, state.loopStart);
    EXPECT_EQ(10, state.loopEnd);
    runner.Run(CommandLoop);
    EXPECT_FALSE(state.looping);
    EXPECT_EQ(10, state.loopEnd); // the region stays
    state.selection.clear();
    state.loopStart = state.loopEnd = 0;
    state.playhead = 4;
    runner.Run(CommandLoop);
    EXPECT_DOUBLE_EQ(3.6, state.loopStart);
    EXPECT_DOUBLE_EQ(5.4, state.loopEnd);
}

TEST_F(CommandRunnerTest, LoopsFromAndToThePlayHead)
{
    state.playhead = 4;
    runner.Run(CommandLoopFrom);
    EXPECT_EQ(4, state.loopStart);
    EXPECT_EQ(10, state.loopEnd);
    state.playhead = 6;
    runner.Run(CommandLoopTo);
    EXPECT_EQ(4, state.loopStart);
    EXPECT_EQ(6, state.loopEnd);
    EXPECT_TRUE(state.looping);
    state.playhead = 2;
    runner.Run(CommandLoopTo);
    EXPECT_EQ(0, state.loopStart);
    EXPECT_EQ(2, state.loopEnd);
}

TEST_F(CommandRunnerTest, StepsThePlayHeadByBeatsAndBars)
{
    runner.Run(CommandOnBeat);
    EXPECT_DOUBLE_EQ(0.6, state.playhead);
    runner.Run(CommandOnBar);
    EXPECT_DOUBLE_EQ(1.8, state.playhead);
    runner.Run(CommandBackBeat);
    EXPECT_DOUBLE_EQ(1.2, state.playhead);
    runner.Run(CommandBackBar);
    EXPECT_DOUBLE_EQ(0, state.playhead);
    runner.Run(CommandOnFrame);
    EXPECT_DOUBLE_EQ(1 / 60.0, state.playhead);
    runner.Run(CommandEnd);
    EXPECT_DOUBLE_EQ(599 / 60.0, state.playhead);
    runner.Run(CommandHome);
    EXPECT_EQ(0, state.playhead);
}

TEST_F(CommandRunnerTest, HandsToTheTimelineWhatIsTheTimelines)
{
    runner.Run(CommandZoomIn);
    runner.Run(CommandLaterBar); // nothing is selected
    state.selection = {{1, 0}};
    runner.Run(CommandLaterBar);
    runner.Run(CommandTap);
    EXPECT_EQ((std::vector<TimelineAction>{ZoomIn, NudgeLaterBar, Tap}), state.timelineActions);
}

TEST_F(CommandRunnerTest, HandsOverEachActionOfTheTimelineOnce)
{
    state.selection = {{0, -1}};
    for (const CommandId id :
         {CommandZoomIn, CommandZoomOut, CommandZoomShow, CommandEarlierMillisecond, CommandLaterMillisecond,
          CommandEarlierFrame, CommandLaterFrame, CommandEarlierBeat, CommandLaterBeat, CommandEarlierBar,
          CommandLaterBar, CommandLayerUp, CommandLayerDown, CommandSelectNext, CommandSelectPrevious,
          CommandStartHere, CommandStopHere, CommandNewItem, CommandTap})
        runner.Run(id);
    ASSERT_EQ(size_t(Tap) + 1, state.timelineActions.size());
    for (size_t i = 0; i < state.timelineActions.size(); i++)
        EXPECT_EQ(TimelineAction(i), state.timelineActions[i]);
}

TEST_F(CommandRunnerTest, ShowsAndHidesTheSheetOfKeys)
{
    runner.Run(CommandKeys);
    EXPECT_TRUE(view.keySheet);
    runner.Run(CommandKeys);
    EXPECT_FALSE(view.keySheet);
}

TEST_F(CommandRunnerTest, SwitchesWhatAMenuTicks)
{
    for (const CommandId id :
         {CommandSnap, CommandFollow, CommandInspector, CommandFindings, CommandFullScreen}) {
        const bool before = runner.IsTicked(id);
        runner.Run(id);
        EXPECT_NE(before, runner.IsTicked(id)) << CommandOf(id).name;
    }
    EXPECT_TRUE(runner.IsTicked(CommandFullSpeed));
    runner.Run(CommandQuarterSpeed);
    EXPECT_TRUE(runner.IsTicked(CommandQuarterSpeed));
    EXPECT_FALSE(runner.IsTicked(CommandFullSpeed));
    EXPECT_EQ(0.25, state.speed);
    runner.Run(CommandHalfSpeed);
    EXPECT_TRUE(runner.IsTicked(CommandHalfSpeed));
}

TEST_F(CommandRunnerTest, NamesInTheMenuWhatWouldBeUndone)
{
    EXPECT_EQ("Undo: " + state.document->UndoName(), runner.MenuName(CommandUndo));
    EXPECT_EQ("Redo", runner.MenuName(CommandRedo));
    EXPECT_EQ("Play", runner.MenuName(CommandPlay));
    state.playing = true;
    EXPECT_EQ("Stop", runner.MenuName(CommandPlay));
    state.playing = false;
}

TEST_F(CommandRunnerTest, LeavesAScriptOnlyWhenNothingIsUnsaved)
{
    runner.Run(CommandQuit);
    EXPECT_TRUE(dialogs.IsOpen());
    EXPECT_EQ(Dialogs::Decision::None, dialogs.TakeDecision().kind);
    Dialogs others;
    while (state.document->CanUndo())
        state.document->Undo();
    others.Leave(session, {Dialogs::Decision::Quit, ""});
    EXPECT_FALSE(others.IsOpen());
    EXPECT_EQ(Dialogs::Decision::Quit, others.TakeDecision().kind);
}
