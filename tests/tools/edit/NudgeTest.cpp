// SPDX-License-Identifier: MIT
#include "tools/edit/Nudge.h"

#include "tests/support/EditedScript.h"
#include "tools/edit/Selection.h"

#include <gtest/gtest.h>

using namespace edit;

TEST(NudgeDistance, GoesFromLineToLineSoThatSixtyFramesAreASecond)
{
    uint32_t time = 1000;
    for (int i = 0; i < 60; i++)
        time += uint32_t(NudgeDistance(time, 1 / 60.0));
    EXPECT_EQ(2000u, time);
    for (int i = 0; i < 120; i++)
        time = uint32_t(time + NudgeDistance(time, -1 / 60.0));
    EXPECT_EQ(0u, time);
}

TEST(NudgeDistance, LeavesWhatIsOffTheGridOffIt)
{
    EXPECT_EQ(600, NudgeDistance(1234, 0.6));
    EXPECT_EQ(-600, NudgeDistance(1234, -0.6));
    EXPECT_EQ(17, NudgeDistance(1005, 1 / 60.0)); // 16.67
    EXPECT_EQ(1, NudgeDistance(1234, 0.001));
    EXPECT_EQ(-1, NudgeDistance(1234, -0.001));
}

TEST(NudgeDistance, IsNeverNothing)
{
    EXPECT_EQ(1, NudgeDistance(0, 0.0001));
    EXPECT_EQ(-1, NudgeDistance(5, -0.0001));
}

class Nudging : public testing::Test
{
protected:
    Nudging() : script(EditedScript::Night())
    {
        script.state.rate = {50, 1};
        towers = script.Block("40000");
        hand = script.Block("hand");
        script.state.selection = {{towers, -1}};
    }
    uint32_t After(TimelineAction action)
    {
        EXPECT_TRUE(Nudge(action, &script.state));
        EXPECT_EQ("", script.state.notice);
        const uint32_t start = script.At(towers).start;
        EXPECT_EQ(20000u, script.At(towers).stop - start);
        EXPECT_TRUE(script.document.Undo());
        return start;
    }

    EditedScript script;
    size_t towers, hand;
};

TEST_F(Nudging, HasFourStepsEitherWay)
{
    EXPECT_EQ(20001u, After(NudgeLaterMillisecond));
    EXPECT_EQ(19999u, After(NudgeEarlierMillisecond));
    EXPECT_EQ(20020u, After(NudgeLaterFrame));
    EXPECT_EQ(19980u, After(NudgeEarlierFrame));
    EXPECT_EQ(20600u, After(NudgeLaterBeat));
    EXPECT_EQ(19400u, After(NudgeEarlierBeat));
    EXPECT_EQ(21800u, After(NudgeLaterBar));
    EXPECT_EQ(18200u, After(NudgeEarlierBar));
}

TEST_F(Nudging, MovesAllByTheStepOfTheFirst)
{
    script.state.selection = {{towers, -1}, {hand, 0}};
    EXPECT_TRUE(Nudge(NudgeLaterBeat, &script.state));
    EXPECT_EQ(20600u, script.At(towers).start);
    EXPECT_EQ(6600u, script.At(hand).times[0].milliseconds);
    EXPECT_EQ(9000u, script.At(hand).times[1].milliseconds);
    EXPECT_TRUE(script.state.revealSelection);
}

TEST_F(Nudging, MovesThePlayHeadWhereNothingIsSelected)
{
    script.state.selection.clear();
    script.state.playhead = 1.2;
    EXPECT_TRUE(Nudge(NudgeLaterBeat, &script.state));
    ASSERT_TRUE(script.state.goTo.has_value());
    EXPECT_NEAR(1.8, *script.state.goTo, 1e-9);
    script.state.playhead = 0.3;
    EXPECT_TRUE(Nudge(NudgeEarlierBar, &script.state));
    EXPECT_EQ(0.0, *script.state.goTo);
    EXPECT_FALSE(script.document.IsModified());
}

TEST_F(Nudging, MovesEntriesToOtherLayers)
{
    EXPECT_TRUE(Nudge(LayerUp, &script.state));
    EXPECT_EQ(2u, script.At(towers).layer);
    EXPECT_TRUE(Nudge(LayerDown, &script.state));
    EXPECT_TRUE(Nudge(LayerDown, &script.state));
    EXPECT_EQ(0u, script.At(towers).layer);
}

TEST_F(Nudging, StretchesToThePlayHead)
{
    script.state.playhead = 23.456;
    EXPECT_TRUE(Nudge(StartToPlayHead, &script.state));
    EXPECT_EQ(23456u, script.At(towers).start);
    EXPECT_EQ(40000u, script.At(towers).stop);
    script.state.playhead = 61;
    EXPECT_TRUE(Nudge(StopToPlayHead, &script.state));
    EXPECT_EQ(61000u, script.At(towers).stop);
}

TEST_F(Nudging, OfSeveralBringsTheNearestEdgeToThePlayHead)
{
    script.state.selection = {{script.Block("20000"), -1}, {towers, -1}};
    script.state.playhead = 21;
    EXPECT_TRUE(Nudge(StopToPlayHead, &script.state));
    EXPECT_EQ(21000u, script.At(script.state.selection[0].block).stop);
    EXPECT_EQ(41000u, script.At(towers).stop);
}

TEST_F(Nudging, SelectsTheNextAndThePrevious)
{
    EXPECT_TRUE(Nudge(SelectPrevious, &script.state));
    EXPECT_EQ((Selection{{hand, 1}}), script.state.selection);
    EXPECT_TRUE(script.state.revealSelection);
    EXPECT_TRUE(Nudge(SelectNext, &script.state));
    EXPECT_EQ((Selection{{towers, -1}}), script.state.selection);
}

TEST_F(Nudging, IsNotConcernedWithZoomAndTap)
{
    for (const TimelineAction action : {ZoomIn, ZoomOut, ZoomToShow, NewItem, Tap})
        EXPECT_FALSE(Nudge(action, &script.state));
    EXPECT_FALSE(script.document.IsModified());
}

TEST_F(Nudging, SaysSoWhereNoEntryIsSelected)
{
    script.state.selection = {{hand, 0}};
    EXPECT_TRUE(Nudge(StopToPlayHead, &script.state));
    EXPECT_EQ("No entry is selected.", script.state.notice);
}
