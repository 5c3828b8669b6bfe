// SPDX-License-Identifier: MIT
#include "tools/edit/SnapGrid.h"

#include "tests/support/EditedScript.h"

#include <gtest/gtest.h>

using namespace edit;

static SnapSetting Only(bool beats, bool bars, bool messages, bool edges)
{
    SnapSetting setting;
    setting.toBeats = beats;
    setting.toBars = bars;
    setting.toMessages = messages;
    setting.toEdges = edges;
    return setting;
}

// Where a moment comes to rest within 0.1 seconds; -1: nowhere.
static double Rest(const SnapGrid& grid, double seconds, double reach = 0.1)
{
    double snapped = -7;
    if (grid.Nearest(seconds, reach, &snapped))
        return snapped;
    EXPECT_EQ(seconds, snapped) << "it stays where it was";
    return -1;
}

TEST(SnapGrid, HasTheBeatsAndBarsOfTheTempo)
{
    const timeline::Tempo tempo; // 600 ms, 1800 ms
    const SnapGrid beats(Only(true, true, false, false), tempo);
    EXPECT_NEAR(4.2, Rest(beats, 4.25), 1e-9);
    EXPECT_NEAR(4.8, Rest(beats, 4.72), 1e-9);
    EXPECT_EQ(-1, Rest(beats, 4.5));
    EXPECT_NEAR(4.8, Rest(beats, 4.51, 0.3), 1e-9);
    const SnapGrid bars(Only(false, true, false, false), tempo);
    EXPECT_EQ(-1, Rest(bars, 4.2));
    EXPECT_NEAR(5.4, Rest(bars, 5.35), 1e-9);
    EXPECT_NEAR(0, Rest(bars, -0.05), 1e-9);
    EXPECT_NEAR(0, Rest(bars, -3, 4), 1e-9) << "no beat is ahead of the show";
}

TEST(SnapGrid, HasTheEdgesAndMessagesOfOthers)
{
    const EditedScript script(EditedScript::Night());
    const TimelineContents contents = ReadContents(script.document.GetOutline());
    const size_t hand = script.Block("hand"), towers = script.Block("40000");
    SnapGrid edges(Only(false, false, false, true), {});
    edges.AddContents(contents, {});
    EXPECT_EQ(40.0, Rest(edges, 39.95));
    EXPECT_EQ(20.0, Rest(edges, 20.05));
    EXPECT_EQ(-1, Rest(edges, 9.0));
    SnapGrid others(Only(false, false, false, true), {});
    others.AddContents(contents, {{towers, -1}});
    EXPECT_EQ(-1, Rest(others, 39.95)) << "what is moved does not attract itself";
    EXPECT_EQ(20.0, Rest(others, 20.05)) << "there the clouds end";
    SnapGrid messages(Only(false, false, true, false), {});
    messages.AddContents(contents, {{hand, 0}});
    EXPECT_EQ(9.0, Rest(messages, 9.09));
    EXPECT_EQ(-1, Rest(messages, 6.01));
    EXPECT_EQ(1.8, Rest(messages, 1.81)) << "each of a group";
    EXPECT_EQ(-1, Rest(messages, 40.0));
}

TEST(SnapGrid, TakesTheNearestOfAll)
{
    SnapGrid grid(Only(true, false, false, false), {});
    grid.AddMoment(4.3);
    grid.AddMoment(1.0);
    EXPECT_NEAR(4.3, Rest(grid, 4.26), 1e-9);
    EXPECT_NEAR(4.2, Rest(grid, 4.24), 1e-9);
    EXPECT_NEAR(1.0, Rest(grid, 0.95), 1e-9);
}

TEST(SnapGrid, IsEmptyWhileItIsOff)
{
    const EditedScript script(EditedScript::Night());
    SnapSetting off;
    off.on = false;
    SnapGrid grid(off, {});
    grid.AddContents(ReadContents(script.document.GetOutline()), {});
    EXPECT_EQ(-1, Rest(grid, 0.6));
    EXPECT_EQ(-1, Rest(grid, 20.0));
    EXPECT_EQ(7.77, grid.NearestBeat(7.77));
}

TEST(SnapGrid, FindsTheNearestBeatHoweverFar)
{
    EXPECT_NEAR(4.2, SnapGrid({}, {}).NearestBeat(4.49), 1e-9);
    EXPECT_NEAR(4.8, SnapGrid({}, {}).NearestBeat(4.51), 1e-9);
    EXPECT_NEAR(5.4, SnapGrid(Only(false, true, true, true), {}).NearestBeat(4.6), 1e-9);
    EXPECT_EQ(4.6, SnapGrid(Only(false, false, true, true), {}).NearestBeat(4.6));
}
