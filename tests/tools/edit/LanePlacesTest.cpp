// SPDX-License-Identifier: MIT
#include "tools/edit/LanePlaces.h"

#include "tests/support/EditedScript.h"

#include <gtest/gtest.h>

using namespace edit;

// 60 seconds on 600 pixels from x 100 on: 10 pixels a second. Bars are 40 high in rows of 44, ticks in their lower half.
class LanesPlaced : public testing::Test
{
protected:
    explicit LanesPlaced(const std::string& text = EditedScript::Night()) : script(text)
    {
        contents = ReadContents(script.document.GetOutline());
        view.SetWidth(618);
        view.SetExtent(0, 60);
        sizes.rowHeight = 44;
        sizes.barHeight = 40;
        sizes.tickTop = 20;
        sizes.laneGap = 6;
        sizes.lanePadding = 5;
        sizes.grip = 5;
        sizes.tickReach = 5;
        Place();
    }
    void Place(double scroll = 0)
    {
        places = PlaceLanes(contents, view, sizes, 100, 50, 400, scroll, 420, 440);
    }
    ItemHit At(double x, double y) const { return FindHit(contents, view, sizes, places, 100, x, y); }

    EditedScript script;
    TimelineContents contents;
    TimelineView view;
    LaneSizes sizes = {};
    LanePlaces places;
};

TEST_F(LanesPlaced, StackTheLanesFromTheFrontOneDown)
{
    ASSERT_EQ(2u, places.lanes.size());
    EXPECT_EQ(9u, places.lanes[0].layer);
    EXPECT_EQ(50, places.lanes[0].top);
    EXPECT_EQ(100, places.lanes[0].bottom);
    EXPECT_EQ(106, places.lanes[1].top);
    EXPECT_EQ(112, places.height);
    ASSERT_EQ(3u, places.entries.size());
    EXPECT_EQ(100, places.entries[0].left);
    EXPECT_EQ(700, places.entries[0].right);
    EXPECT_EQ(55, places.entries[0].top);
    EXPECT_EQ(95, places.entries[0].bottom);
    EXPECT_EQ(300, places.entries[2].left);
    EXPECT_EQ(500, places.entries[2].right);
    EXPECT_EQ(111, places.entries[2].top);
    Place(30);
    EXPECT_EQ(20, places.lanes[0].top);
    EXPECT_EQ(25, places.entries[0].top);
}

TEST_F(LanesPlaced, GroupMessagesThatLieTooCloseTogether)
{
    // flashes at 1.2, 1.8 and 2.4 s are six pixels apart; closer than the gaps allow when zoomed out to half
    ASSERT_EQ(5u, places.ticks.size());
    EXPECT_EQ(112, places.ticks[0].group.left);
    EXPECT_EQ(75, places.ticks[0].top);
    EXPECT_EQ(95, places.ticks[0].bottom);
    ASSERT_EQ(1u, places.lost.size());
    EXPECT_EQ(600, places.lost[0].group.left);
    view.ZoomAt(0, 0.5);
    Place();
    ASSERT_EQ(3u, places.ticks.size());
    EXPECT_EQ(3u, places.ticks[0].group.count);
    EXPECT_EQ(106, places.ticks[0].group.left);
    EXPECT_EQ(112, places.ticks[0].group.right);
}

TEST_F(LanesPlaced, AreOnlyThoseInSight)
{
    view.ZoomAt(0, 10); // 100 pixels a second
    view.MoveTo(25);
    Place();
    ASSERT_EQ(2u, places.entries.size()) << "the overlay and the towers";
    EXPECT_EQ("FX_Towers", contents.model.entries[places.entries[1].entry].effect);
    EXPECT_TRUE(places.ticks.empty());
    Place(70); // the first lane is scrolled out
    EXPECT_EQ(1u, places.entries.size());
    EXPECT_EQ(2u, places.lanes.size());
}

TEST_F(LanesPlaced, TellWhatLiesUnderThePointer)
{
    const size_t clouds = script.Block("20000"), towers = script.Block("40000"), hand = script.Block("hand");
    EXPECT_EQ(HitBar, At(400, 120).part);
    EXPECT_EQ((ItemId{towers, -1}), At(400, 120).item);
    EXPECT_EQ(HitNothing, At(600, 120).part);
    EXPECT_EQ(HitNothing, At(400, 103).part) << "between the lanes";
    EXPECT_EQ(HitStop, At(497, 120).part);
    EXPECT_EQ(HitStop, At(503, 120).part) << "a little beside it";
    EXPECT_EQ((ItemId{towers, -1}), At(503, 120).item);
    EXPECT_EQ(HitStop, At(298, 120).part) << "where two meet each side has its own";
    EXPECT_EQ((ItemId{clouds, -1}), At(298, 120).item);
    EXPECT_EQ(HitStart, At(302, 120).part);
    EXPECT_EQ((ItemId{towers, -1}), At(302, 120).item);
    EXPECT_EQ(HitMessage, At(161, 140).part);
    EXPECT_EQ((ItemId{hand, 0}), At(161, 140).item);
    EXPECT_EQ(HitBar, At(161, 115).part) << "above the ticks lies the name of the entry";
    EXPECT_EQ((ItemId{hand, 1}), At(187, 140).item);
    EXPECT_EQ((ItemId{script.Block("flash_line"), 0}), At(602, 430).item);
}

TEST_F(LanesPlaced, OfAGroupTellTheNearestMessage)
{
    view.ZoomAt(0, 0.5);
    Place();
    EXPECT_EQ(0u, At(105, 85).index); // the group's messages are the first of the show
    EXPECT_EQ(1u, At(109.2, 85).index);
    EXPECT_EQ(2u, At(114, 85).index);
    EXPECT_EQ(&places.ticks[0], At(109.2, 85).ticks);
}

TEST_F(LanesPlaced, GiveALayerForEachHeight)
{
    EXPECT_EQ(9, LayerAt(places, 60));
    EXPECT_EQ(1, LayerAt(places, 130));
    EXPECT_EQ(10, LayerAt(places, 40)) << "above all";
    EXPECT_EQ(0, LayerAt(places, 300)) << "below all";
    EXPECT_EQ(2, LayerAt(places, 103)) << "between two lanes, where there is a layer free";
    places.lanes[1].layer = 8;
    EXPECT_EQ(9, LayerAt(places, 103));
    places.lanes[1].layer = 0;
    EXPECT_EQ(0, LayerAt(places, 300));
    EXPECT_EQ(1, LayerAt(LanePlaces(), 300));
}

class NarrowLanesPlaced : public LanesPlaced
{
protected:
    NarrowLanesPlaced() : LanesPlaced(EditedScript::Entry("FX_Clouds", 10000, 10600, 1)) {}
};

TEST_F(NarrowLanesPlaced, LeaveRoomToMoveANarrowBarBy)
{
    EXPECT_EQ(HitBar, At(203, 70).part); // from 200 to 206
    EXPECT_EQ(HitBar, At(201.5, 70).part);
    EXPECT_EQ(HitStart, At(200.5, 70).part);
    EXPECT_EQ(HitStart, At(196, 70).part);
    EXPECT_EQ(HitStop, At(209, 70).part);
    EXPECT_EQ(HitNothing, At(194, 70).part);
}
