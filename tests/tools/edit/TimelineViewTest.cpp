// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineView.h"

#include <gtest/gtest.h>

using edit::TimelineView;

static TimelineView
Hundred() // a show of 100 seconds on 1030 pixels: 10 pixels a second, and 3 seconds behind its end
{
    TimelineView view;
    view.SetWidth(1030);
    view.SetExtent(0, 100);
    return view;
}

TEST(TimelineView, ShowsAllOfTheShowAtFirstWhateverItsLength)
{
    TimelineView view = Hundred();
    EXPECT_DOUBLE_EQ(0, view.X(0));
    EXPECT_DOUBLE_EQ(500, view.X(50));
    view.SetExtent(0, 200);
    EXPECT_DOUBLE_EQ(250, view.X(50));
    view.SetWidth(2060);
    EXPECT_DOUBLE_EQ(500, view.X(50));
    EXPECT_TRUE(view.ShowsExtent());
}

TEST(TimelineView, KeepsTheMomentUnderThePointerWhileItZooms)
{
    TimelineView view = Hundred();
    const double moment = view.Seconds(700);
    for (const double factor : {1.25, 3.0, 0.5, 20.0}) {
        view.ZoomAt(700, factor);
        EXPECT_NEAR(moment, view.Seconds(700), 1e-9);
    }
    EXPECT_NEAR(10 * 1.25 * 3 * 0.5 * 20, view.PerSecond(), 1e-9);
    EXPECT_FALSE(view.ShowsExtent());
}

TEST(TimelineView, ZoomsNoCloserThanAMillisecondOfFourPixelsAndNoFartherThanTwiceTheShow)
{
    TimelineView view = Hundred();
    view.ZoomAt(500, 1e9);
    EXPECT_DOUBLE_EQ(4000, view.PerSecond());
    view.ZoomAt(500, 1e-9);
    EXPECT_DOUBLE_EQ(5, view.PerSecond());
    view.ZoomToExtent();
    EXPECT_DOUBLE_EQ(10, view.PerSecond());
    EXPECT_DOUBLE_EQ(0, view.Start());
}

TEST(TimelineView, KeepsItsScaleWhenTheShowGrowsAfterAZoom)
{
    TimelineView view = Hundred();
    view.ZoomAt(0, 2);
    view.SetExtent(0, 300);
    EXPECT_DOUBLE_EQ(20, view.PerSecond());
}

TEST(TimelineView, LeavesSomeOfTheShowInSightHoweverFarItScrolls)
{
    TimelineView view = Hundred();
    view.ZoomAt(0, 10); // 10.3 seconds are shown
    view.Scroll(1e9);
    EXPECT_NEAR(100 - 1.03, view.Start(), 1e-9);
    view.Scroll(-1e9);
    EXPECT_NEAR(-5.15, view.Start(), 1e-9);
    view.MoveTo(40);
    view.Scroll(250);
    EXPECT_NEAR(42.5, view.Start(), 1e-9);
}

TEST(TimelineView, RevealsWithAsLittleScrollingAsItTakes)
{
    TimelineView view = Hundred();
    view.ZoomAt(0, 10); // 100 pixels a second
    view.MoveTo(40);
    view.Reveal(42, 45);
    EXPECT_DOUBLE_EQ(40, view.Start());
    view.Reveal(51, 52); // 24 pixels from the right edge
    EXPECT_NEAR(52.24 - 10.3, view.Start(), 1e-9);
    view.Reveal(30, 31);
    EXPECT_NEAR(29.76, view.Start(), 1e-9);
    view.Reveal(50, 90); // does not fit: its beginning
    EXPECT_NEAR(49.76, view.Start(), 1e-9);
}

TEST(TimelineView, TurnsThePageWhenThePlayHeadIsAboutToLeave)
{
    TimelineView view = Hundred();
    view.ZoomAt(0, 10);
    view.MoveTo(40);
    view.Follow(49); // 900 of 1030 pixels
    EXPECT_DOUBLE_EQ(40, view.Start());
    view.Follow(49.5);
    EXPECT_NEAR(49.5 - 0.824, view.Start(), 1e-9); // goes on at 8 % of the width
    view.Follow(20);
    EXPECT_NEAR(20 - 0.824, view.Start(), 1e-9);
}

TEST(TimelineView, DoesNotFollowWhileAllIsInSight)
{
    TimelineView view = Hundred();
    view.Follow(99.9);
    EXPECT_DOUBLE_EQ(0, view.Start());
    EXPECT_TRUE(view.ShowsExtent());
}

TEST(TimelineView, GivesTheScaleOfWhatIsShownAndThatOfAllThereIs)
{
    TimelineView view = Hundred();
    view.ZoomAt(0, 10);
    view.MoveTo(40);
    const timeline::Scale shown = view.Shown(7);
    EXPECT_DOUBLE_EQ(7, shown.X(40));
    EXPECT_NEAR(50.3, shown.end, 1e-9);
    const timeline::Scale whole = view.Whole(7);
    EXPECT_NEAR(7, whole.X(40), 1e-9);
    EXPECT_DOUBLE_EQ(0, whole.start);
    EXPECT_DOUBLE_EQ(100, whole.end);
    EXPECT_NEAR(61, whole.Seconds(whole.X(61)), 1e-9);
}
