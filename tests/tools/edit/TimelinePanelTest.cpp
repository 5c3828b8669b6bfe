// SPDX-License-Identifier: MIT
// The timeline under a hand: what the mouse does to the selection, to the script and to what is asked of the editor.
#include "tools/edit/TimelinePanel.h"

#include "tests/support/BusyShow.h"
#include "tests/support/EditedScript.h"
#include "tests/support/PanelFixture.h"
#include "tools/edit/TimelinePanelHooks.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace edit;

class TimelinePanelMouse : public testing::Test
{
protected:
    explicit TimelinePanelMouse(const std::string& text = EditedScript::Night())
        : script(text), before(script.document.Text()), state(script.state)
    {
        state.snap.on = false;
        panel.Show([this] { timeline.Draw(&state); });
    }

    double X(double seconds) const { return seen.Areas().PlotLeft() + seen.View().X(seconds); }
    // The middle of the name of an entry, and of the ticks on it.
    double NameY(size_t block) const { return Placed(block).top + 6; }
    double TickY(size_t block) const { return Placed(block).bottom - 5; }
    const PlacedEntry& Placed(size_t block) const
    {
        const size_t entry = seen.Contents().entryOf.at(block);
        for (const PlacedEntry& each : seen.Places().entries)
            if (each.entry == entry)
                return each;
        ADD_FAILURE() << "block " << block << " is out of sight";
        abort();
    }

    size_t Block(const std::string& value) const { return script.Block(value); }

    PanelFixture panel;
    EditedScript script;
    const std::string before;
    EditorState& state;
    TimelinePanel timeline;
    TimelinePanelHooks seen{&timeline};
};

TEST_F(TimelinePanelMouse, AClickSelectsAndWithControlAdds)
{
    const size_t clouds = Block("20000"), towers = Block("40000"), hand = Block("hand");
    panel.Click(X(10), NameY(clouds));
    EXPECT_EQ((Selection{{clouds, -1}}), state.selection);
    panel.Click(X(30), NameY(towers));
    EXPECT_EQ((Selection{{towers, -1}}), state.selection);
    panel.Hold(true, false, false);
    panel.Click(X(6), TickY(clouds));
    EXPECT_EQ((Selection{{towers, -1}, {hand, 0}}), state.selection);
    panel.Click(X(30), NameY(towers));
    EXPECT_EQ((Selection{{hand, 0}}), state.selection);
    panel.Hold(false, false, false);
    panel.Click(X(50), NameY(towers)); // nothing lies there
    EXPECT_TRUE(state.selection.empty());
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(TimelinePanelMouse, AClickOnOneOfSeveralSelectsItAlone)
{
    const size_t clouds = Block("20000"), towers = Block("40000");
    state.selection = {{clouds, -1}, {towers, -1}};
    panel.Click(X(30), NameY(towers));
    EXPECT_EQ((Selection{{towers, -1}}), state.selection);
}

TEST_F(TimelinePanelMouse, ADragMovesAnEntryAsOneStepOfUndo)
{
    const size_t towers = Block("40000");
    panel.Drag(X(30), NameY(towers), X(35), NameY(towers));
    const double pixel = 1000 / seen.View().PerSecond(); // milliseconds
    EXPECT_NEAR(25000, script.At(towers).start, pixel);
    EXPECT_EQ(20000u, script.At(towers).stop - script.At(towers).start);
    EXPECT_EQ(1u, script.At(towers).layer);
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(TimelinePanelMouse, ADragMovesAllThatIsSelected)
{
    const size_t towers = Block("40000"), hand = Block("hand"), clouds = Block("20000");
    state.selection = {{towers, -1}, {hand, 1}};
    panel.Drag(X(9), TickY(clouds), X(11), TickY(clouds));
    const double pixel = 1000 / seen.View().PerSecond();
    EXPECT_NEAR(11000, script.At(hand).times[1].milliseconds, pixel);
    EXPECT_EQ(6000u, script.At(hand).times[0].milliseconds);
    EXPECT_EQ(int64_t(script.At(hand).times[1].milliseconds) - 9000,
              int64_t(script.At(towers).start) - 20000);
    EXPECT_EQ(2u, state.selection.size());
}

TEST_F(TimelinePanelMouse, ADragOfAnEdgeStretches)
{
    const size_t towers = Block("40000");
    panel.Drag(X(40) - 2, NameY(towers), X(45) - 2, NameY(towers));
    const double pixel = 1000 / seen.View().PerSecond();
    EXPECT_EQ(20000u, script.At(towers).start);
    EXPECT_NEAR(45000, script.At(towers).stop, pixel);
    panel.Drag(X(20) + 2, NameY(towers), X(25) + 2, NameY(towers));
    EXPECT_NEAR(25000, script.At(towers).start, pixel);
    EXPECT_NEAR(45000, script.At(towers).stop, pixel);
}

TEST_F(TimelinePanelMouse, ADragSnapsToTheBeatAndAltHoldsItOff)
{
    const size_t towers = Block("40000");
    state.snap = SnapSetting();
    state.snap.toMessages = state.snap.toEdges = false;
    // 26.05 s: the start is 0.25 s off the beat at 25.8, the stop at 46.05 is 0.15 s off that at 46.2.
    panel.Drag(X(30), NameY(towers), X(36.05), NameY(towers));
    EXPECT_EQ(46200u, script.At(towers).stop);
    EXPECT_EQ(26200u, script.At(towers).start);
    EXPECT_TRUE(script.document.Undo());
    panel.Hold(false, false, true);
    panel.Drag(X(30), NameY(towers), X(36.05), NameY(towers));
    EXPECT_NEAR(26050, script.At(towers).start, 1000 / seen.View().PerSecond());
}

TEST_F(TimelinePanelMouse, ADragGoesToTheLayerOfAnotherLane)
{
    const size_t towers = Block("40000");
    panel.Hold(false, true, false); // in layers alone
    panel.Drag(X(30), NameY(towers), X(30) + 3, NameY(Block("60000")));
    EXPECT_EQ(9u, script.At(towers).layer);
    EXPECT_EQ(20000u, script.At(towers).start);
}

TEST_F(TimelinePanelMouse, EscapeTakesADragBack)
{
    const size_t towers = Block("40000");
    panel.Move(X(30), NameY(towers));
    panel.Press();
    panel.Move(X(34), NameY(towers));
    panel.Move(X(38), NameY(towers));
    EXPECT_NE(before, script.document.Text());
    panel.Key(ImGuiKey_Escape);
    EXPECT_EQ(before, script.document.Text());
    panel.Move(X(44), NameY(towers));
    panel.Release();
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(TimelinePanelMouse, ControlAndADragCopy)
{
    const size_t towers = Block("40000");
    panel.Hold(true, false, false);
    panel.Drag(X(30), NameY(towers), X(50), NameY(towers));
    size_t entries = 0;
    for (const OutlineBlock& block : script.document.GetOutline().blocks)
        entries += block.type == BlockEffect && block.effect == "FX_Towers";
    EXPECT_EQ(2u, entries);
    ASSERT_EQ(1u, state.selection.size());
    EXPECT_NEAR(40000, script.At(state.selection[0].block).start, 1000 / seen.View().PerSecond());
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(TimelinePanelMouse, APressWithALittleTremorIsAClick)
{
    const size_t towers = Block("40000");
    panel.Drag(X(30), NameY(towers), X(30) + 3, NameY(towers) + 2);
    EXPECT_EQ(before, script.document.Text());
    EXPECT_EQ((Selection{{towers, -1}}), state.selection);
}

// On a slow machine the pointer is somewhere else by the time of the frame. The window tells where it was.
TEST_F(TimelinePanelMouse, APressTakesHoldOfWhatLayUnderItAlthoughThePointerHasMovedOn)
{
    const size_t towers = Block("40000");
    panel.Move(X(30), NameY(towers));
    panel.PressedAt(X(30), NameY(towers));
    panel.Move(X(50), NameY(towers)); // nothing lies there
    panel.Release();
    EXPECT_EQ((Selection{{towers, -1}}), state.selection);
    EXPECT_NEAR(40000, script.At(towers).start, 1000 / seen.View().PerSecond());
}

TEST_F(TimelinePanelMouse, ARubberBandSelectsWhatLiesInIt)
{
    const size_t clouds = Block("20000"), towers = Block("40000"), hand = Block("hand");
    // From the free place behind the towers over them and the end of the clouds.
    panel.Drag(X(58), Placed(towers).bottom, X(19), Placed(towers).top + 2);
    EXPECT_EQ((Selection{{towers, -1}}), state.selection) << "the clouds lie in it only in part";
    panel.Drag(X(58), Placed(towers).bottom, X(8), Placed(towers).top + 2);
    EXPECT_EQ((Selection{{towers, -1}, {hand, 1}}), state.selection);
    // With Ctrl and Shift it begins on an entry as well.
    panel.Hold(true, true, false);
    state.selection = {{towers, -1}};
    panel.Drag(X(5), Placed(clouds).top + 3, X(7), Placed(clouds).bottom);
    EXPECT_EQ((Selection{{towers, -1}, {hand, 0}}), state.selection);
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(TimelinePanelMouse, TheWheelZoomsToThePointerAndScrolls)
{
    const double at = X(30), y = seen.Areas().lanes.top + 5;
    const double perSecond = seen.View().PerSecond();
    panel.Wheel(at, y, 3);
    EXPECT_NEAR(perSecond * 1.25 * 1.25 * 1.25, seen.View().PerSecond(), 1e-6);
    EXPECT_NEAR(30, seen.View().Seconds(at - seen.Areas().PlotLeft()), 0.05);
    const double start = seen.View().Start();
    panel.Hold(false, true, false);
    panel.Wheel(at, y, -1);
    EXPECT_NEAR(start + 80 / seen.View().PerSecond(), seen.View().Start(), 1e-6);
}

TEST_F(TimelinePanelMouse, TheMiddleButtonScrolls)
{
    panel.Wheel(X(30), seen.Areas().lanes.top + 5, 5);
    const double start = seen.View().Start();
    panel.Move(X(30), seen.Areas().lanes.top + 5);
    panel.Press(2);
    panel.Move(X(30) - 100, seen.Areas().lanes.top + 5);
    panel.Release(2);
    EXPECT_NEAR(start + 100 / seen.View().PerSecond(), seen.View().Start(), 1e-6);
}

TEST_F(TimelinePanelMouse, TheRulerScrubsAndTheStripAboveItSetsTheLoop)
{
    const double ruler = seen.Areas().ruler.top + 8, loop = seen.Areas().loop.top + 5;
    panel.Move(X(12), ruler);
    panel.Press();
    ASSERT_TRUE(state.scrubTo.has_value());
    EXPECT_NEAR(12, *state.scrubTo, 0.1);
    state.scrubTo.reset();
    panel.Move(X(15), ruler);
    EXPECT_NEAR(15, *state.scrubTo, 0.1);
    EXPECT_FALSE(state.goTo.has_value());
    panel.Release();
    EXPECT_NEAR(15, *state.goTo, 0.1);

    panel.Drag(X(30), loop, X(20), loop);
    EXPECT_NEAR(20, state.loopStart, 0.1);
    EXPECT_NEAR(30, state.loopEnd, 0.1);
    EXPECT_TRUE(state.looping);
    panel.Drag(X(30), loop, X(42), loop); // its end
    EXPECT_NEAR(20, state.loopStart, 0.1);
    EXPECT_NEAR(42, state.loopEnd, 0.1);
    panel.DoubleClick(X(25), loop);
    EXPECT_EQ(state.loopStart, state.loopEnd);
    EXPECT_FALSE(state.looping);
}

TEST_F(TimelinePanelMouse, ADoubleClickGoesThere)
{
    const size_t clouds = Block("20000");
    panel.DoubleClick(X(9), TickY(clouds));
    ASSERT_TRUE(state.goTo.has_value());
    EXPECT_EQ(9.0, *state.goTo) << "to the message itself";
    state.goTo.reset();
    panel.DoubleClick(X(33), NameY(Block("40000")));
    EXPECT_NEAR(33, *state.goTo, 0.1);
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(TimelinePanelMouse, KeysMoveStretchTapAndZoom)
{
    const size_t towers = Block("40000");
    state.selection = {{towers, -1}};
    state.timelineActions = {NudgeLaterBeat, NudgeLaterBar, LayerUp};
    panel.Frame();
    EXPECT_EQ(22400u, script.At(towers).start);
    EXPECT_EQ(2u, script.At(towers).layer);
    EXPECT_TRUE(state.timelineActions.empty());
    const double perSecond = seen.View().PerSecond();
    state.timelineActions = {ZoomIn};
    panel.Frame();
    EXPECT_NEAR(perSecond * 1.5, seen.View().PerSecond(), 1e-6);
    state.timelineActions = {ZoomToShow};
    panel.Frame();
    EXPECT_TRUE(seen.View().ShowsExtent());
    seen.GetTapping().Choose("FX_Towers", "flash_line", "");
    state.playhead = 30.02;
    state.timelineActions = {Tap};
    panel.Frame();
    ASSERT_EQ(1u, state.selection.size());
    EXPECT_EQ(30020u, StartOf(script.document.GetOutline(), state.selection[0]));
    const std::vector<ItemId>& shown = seen.Contents().messageItems;
    EXPECT_EQ(1, std::count(shown.begin(), shown.end(), state.selection[0])) << "it shows at once";
}

TEST_F(TimelinePanelMouse, ASelectionFromElsewhereIsBroughtIntoSight)
{
    for (int i = 0; i < 12; i++)
        panel.Wheel(X(1), seen.Areas().lanes.top + 5, 1);
    ASSERT_LT(seen.View().End(), 20);
    state.selection = {{Block("40000"), -1}};
    state.revealSelection = true;
    panel.Frame();
    EXPECT_LE(seen.View().Start(), 20);
    EXPECT_GE(seen.View().End(), 20);
    EXPECT_FALSE(state.revealSelection);
}

TEST_F(TimelinePanelMouse, FollowsThePlayHeadWhileItPlays)
{
    for (int i = 0; i < 12; i++)
        panel.Wheel(X(1), seen.Areas().lanes.top + 5, 1);
    state.playing = true;
    state.playhead = 50;
    panel.Frame();
    EXPECT_LE(seen.View().Start(), 50);
    EXPECT_GE(seen.View().End(), 50);
    state.follow = false;
    state.playhead = 10;
    panel.Frame();
    EXPECT_GT(seen.View().Start(), 10);
}

TEST_F(TimelinePanelMouse, DropsASelectionThatUndoTookAway)
{
    const std::vector<ItemId> copies = script.document.Duplicate({{Block("40000"), -1}}, 20000);
    ASSERT_EQ(1u, copies.size());
    state.selection = copies;
    panel.Frame();
    const size_t blocks = script.document.GetOutline().blocks.size();
    EXPECT_TRUE(script.document.Undo());
    state.selection = {{blocks - 1, -1}};
    panel.Frame();
    EXPECT_TRUE(state.selection.empty());
}

class TimelinePanelBusy : public TimelinePanelMouse
{
protected:
    TimelinePanelBusy() : TimelinePanelMouse(BusyScript(700)) {}
};

TEST_F(TimelinePanelBusy, StaysBelowWhatImGuiCanNumberAtAllZooms)
{
    for (int i = 0; i < 24; i++) {
        EXPECT_LT(panel.Vertices(), 65536) << seen.View().PerSecond();
        panel.Wheel(X(100), seen.Areas().lanes.top + 5, 1);
    }
}

class TimelinePanelEmpty : public TimelinePanelMouse
{
protected:
    TimelinePanelEmpty() : TimelinePanelMouse("") {}
};

TEST_F(TimelinePanelEmpty, TakesAllThatTheMouseDoesOnAnEmptyScript)
{
    const Area& lanes = seen.Areas().lanes;
    panel.Drag(lanes.left + 20, lanes.top + 20, lanes.right - 20, lanes.bottom - 5);
    panel.Click(lanes.left + 50, lanes.top + 20);
    panel.Wheel(lanes.left + 50, lanes.top + 20, 5);
    panel.Wheel(lanes.left + 50, lanes.top + 20, -20);
    panel.Click(lanes.left + 50, lanes.top + 20, 1);
    panel.Frame();
    EXPECT_EQ("", script.document.Text());
    EXPECT_TRUE(state.selection.empty());
}

// 60 flashes in 1.8 s, which are one group of half a pixel from each to the next.
class CrowdedTimelinePanel : public TimelinePanelMouse
{
protected:
    CrowdedTimelinePanel() : TimelinePanelMouse(Flashes()) {}

    static std::string Flashes()
    {
        std::string times = "10000";
        for (int i = 1; i < 60; i++)
            times += "," + std::to_string(10000 + 30 * i);
        return EditedScript::Entry("WhiteFlashOverlay", 0, 60000, 1) +
               EditedScript::Message("WhiteFlashOverlay", "flash", times);
    }

    // How many vertices it takes to show that these are selected.
    int Cost(const std::vector<int>& selected)
    {
        state.selection.clear();
        panel.Frame();
        panel.Frame();
        const int without = panel.Vertices();
        for (const int time : selected)
            state.selection.push_back({Block("flash"), time});
        panel.Frame();
        panel.Frame();
        return panel.Vertices() - without;
    }
};

TEST_F(CrowdedTimelinePanel, LaysOneGlowUnderSelectedMessagesThatTouch)
{
    ASSERT_EQ(1u, seen.Places().ticks.size());
    std::vector<int> all;
    for (int i = 0; i < 60; i++)
        all.push_back(i);
    EXPECT_EQ(4, Cost({0, 1}));
    EXPECT_EQ(4, Cost(all));
    // Two glows, 24 pixels apart, and the line of message 51, which as one of many stood too near to another's.
    EXPECT_EQ(12, Cost({0, 3, 51, 54}));
}
