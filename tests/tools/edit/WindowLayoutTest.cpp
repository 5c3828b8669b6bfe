// SPDX-License-Identifier: MIT
#include "tools/edit/WindowLayout.h"

#include <gtest/gtest.h>

#include <vector>

using namespace edit;

static bool Overlap(const Rect& a, const Rect& b)
{
    return !a.Empty() && !b.Empty() && a.x < b.Right() && b.x < a.Right() && a.y < b.Bottom() &&
           b.y < a.Bottom();
}

static std::vector<Rect> Parts(const WindowLayout& layout)
{
    return {layout.picture,    layout.transport,    layout.inspector,      layout.findings, layout.timeline,
            layout.stageSplit, layout.pictureSplit, layout.inspectorSplit, layout.status};
}

static float Area(const WindowLayout& layout)
{
    float area = 0;
    for (const Rect& part : Parts(layout))
        area += part.Empty() ? 0 : part.width * part.height;
    return area;
}

static const Rect room = {0, 24, 1280, 776};

TEST(WindowLayout, FillsTheRoomWithoutOverlaps)
{
    for (const float scale : {1.0f, 1.5f, 2.0f})
        for (const bool inspector : {true, false})
            for (const bool findings : {true, false}) {
                LayoutWishes wishes;
                wishes.inspector = inspector;
                wishes.findings = findings;
                const Rect larger = {0, 24 * scale, 1280 * scale, 776 * scale};
                const WindowLayout layout = LayOutWindow(larger, scale, wishes);
                const std::vector<Rect> parts = Parts(layout);
                for (size_t i = 0; i < parts.size(); i++)
                    for (size_t j = i + 1; j < parts.size(); j++)
                        EXPECT_FALSE(Overlap(parts[i], parts[j])) << i << " " << j;
                EXPECT_FLOAT_EQ(larger.width * larger.height, Area(layout));
            }
}

TEST(WindowLayout, PutsThePictureTopLeftTheColumnRightAndTheTimelineAcrossTheBottom)
{
    const WindowLayout layout = LayOutWindow(room, 1, {});
    EXPECT_FLOAT_EQ(0, layout.picture.x);
    EXPECT_FLOAT_EQ(24, layout.picture.y);
    EXPECT_FLOAT_EQ(layout.picture.Bottom(), layout.transport.y);
    EXPECT_FLOAT_EQ(layout.picture.width, layout.transport.width);
    EXPECT_GT(layout.inspector.x, layout.picture.Right());
    EXPECT_GT(layout.findings.y, layout.inspector.Bottom());
    EXPECT_FLOAT_EQ(1280, layout.timeline.width);
    EXPECT_GT(layout.timeline.y, layout.transport.Bottom());
    EXPECT_FLOAT_EQ(800, layout.status.Bottom());
    EXPECT_FLOAT_EQ(layout.timeline.Bottom(), layout.status.y);
}

TEST(WindowLayout, GivesThePictureTheColumnsRoomWhenNothingStandsThere)
{
    LayoutWishes wishes;
    wishes.inspector = wishes.findings = false;
    const WindowLayout layout = LayOutWindow(room, 1, wishes);
    EXPECT_FLOAT_EQ(1280, layout.picture.width);
    EXPECT_TRUE(layout.pictureSplit.Empty());
    EXPECT_TRUE(layout.inspectorSplit.Empty());
    wishes.findings = true;
    EXPECT_FLOAT_EQ(layout.transport.Bottom(), LayOutWindow(room, 1, wishes).findings.Bottom());
}

TEST(WindowLayout, MovesASplitToItsShare)
{
    LayoutWishes wishes;
    wishes.stageShare = 0.5f;
    wishes.pictureShare = 0.75f;
    wishes.inspectorShare = 0.25f;
    const WindowLayout layout = LayOutWindow(room, 1, wishes);
    // Less the line at the foot (24) and the splits (5): 747 high, 1275 wide.
    EXPECT_FLOAT_EQ(24 + 374, layout.stageSplit.y);
    EXPECT_FLOAT_EQ(956, layout.pictureSplit.x);
    EXPECT_FLOAT_EQ(24 + 92, layout.inspectorSplit.y);
}

TEST(WindowLayout, KeepsEachPartUsableHoweverTheSharesAreDragged)
{
    for (const float share : {-1.0f, 0.0f, 0.1f, 0.9f, 1.0f, 5.0f}) {
        const WindowLayout layout = LayOutWindow(room, 1, {share, share, share, true, true});
        EXPECT_GE(layout.timeline.height, 140) << share;
        EXPECT_GE(layout.picture.height, 180 - 46) << share;
        EXPECT_GE(layout.picture.width, 240) << share;
        EXPECT_GE(layout.findings.width, 220) << share;
        EXPECT_GE(layout.inspector.height, 60) << share;
        EXPECT_GE(layout.findings.height, 60) << share;
    }
}

TEST(WindowLayout, HasNoNegativeSizeInAWindowOfNoSize)
{
    for (const float size : {0.0f, 1.0f, 30.0f, 100.0f})
        for (const Rect& part : Parts(LayOutWindow({0, 0, size, size}, 2, {}))) {
            EXPECT_GE(part.width, 0) << size;
            EXPECT_GE(part.height, 0) << size;
        }
}

TEST(FitPicture, KeepsTheAspectInTheMiddle)
{
    const Rect wide = FitPicture({100, 50, 1000, 300}, 640, 480);
    EXPECT_FLOAT_EQ(400, wide.width);
    EXPECT_FLOAT_EQ(300, wide.height);
    EXPECT_FLOAT_EQ(100 + 300, wide.x);
    EXPECT_FLOAT_EQ(50, wide.y);
    const Rect high = FitPicture({0, 0, 320, 1000}, 640, 480);
    EXPECT_FLOAT_EQ(320, high.width);
    EXPECT_FLOAT_EQ(240, high.height);
    EXPECT_FLOAT_EQ(380, high.y);
}

TEST(FitPicture, LiesOnWholePixels)
{
    const Rect fit = FitPicture({0, 0, 333, 777}, 640, 480);
    EXPECT_FLOAT_EQ(333, fit.width);
    EXPECT_FLOAT_EQ(250, fit.height);
    EXPECT_FLOAT_EQ(263, fit.y);
}

TEST(FitPicture, IsEmptyWithoutAPictureOrRoom)
{
    EXPECT_TRUE(FitPicture({0, 0, 100, 100}, 0, 0).Empty());
    EXPECT_TRUE(FitPicture({0, 0, 0, 100}, 640, 480).Empty());
}
