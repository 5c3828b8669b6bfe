// SPDX-License-Identifier: MIT
#include "tools/edit/DragGesture.h"

#include "tests/support/EditedScript.h"

#include <gtest/gtest.h>

using namespace edit;

class Dragging : public testing::Test
{
protected:
    Dragging() : script(EditedScript::Night()), before(script.document.Text())
    {
        clouds = script.Block("20000");
        towers = script.Block("40000");
        hand = script.Block("hand");
    }

    void Begin(DragKind kind, const Selection& items, std::vector<double> anchors, double seconds,
               int64_t layer = 1)
    {
        drag.Begin(kind, items, anchors, {seconds, layer, 100, 100});
    }
    // Ten pixels are a second.
    void To(double seconds, int64_t layer = 1, double dx = 50, double dy = 0, bool constrain = false)
    {
        drag.Update(&script.document, {seconds, layer, 100 + dx, 100 + dy}, constrain, grid, 0.1);
    }

    EditedScript script;
    std::string before;
    size_t clouds, towers, hand;
    DragGesture drag;
    const SnapGrid* grid = nullptr;
};

TEST_F(Dragging, MovesAsFarAsThePointerWent)
{
    Begin(MoveDrag, {{towers, -1}}, {20, 40}, 25);
    To(26.25);
    EXPECT_EQ(21250u, script.At(towers).start);
    EXPECT_EQ(41250u, script.At(towers).stop);
    EXPECT_EQ(1250, drag.Milliseconds());
    To(24.5);
    EXPECT_EQ(19500u, script.At(towers).start);
    drag.Drop(&script.document, &script.state.selection);
    EXPECT_FALSE(drag.IsActive());
}

TEST_F(Dragging, IsOneStepOfUndo)
{
    Begin(MoveDrag, {{towers, -1}, {hand, 0}}, {20}, 25);
    for (int i = 1; i <= 40; i++)
        To(25 + i * 0.01);
    drag.Drop(&script.document, &script.state.selection);
    EXPECT_EQ(20400u, script.At(towers).start);
    EXPECT_EQ(6400u, script.At(hand).times[0].milliseconds);
    EXPECT_EQ(9000u, script.At(hand).times[1].milliseconds);
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(before, script.document.Text());
    EXPECT_FALSE(script.document.CanUndo());
}

TEST_F(Dragging, LeavesTheScriptAsItWasWhenItIsCancelled)
{
    Begin(StopDrag, {{towers, -1}}, {40}, 40);
    To(47);
    EXPECT_NE(before, script.document.Text());
    drag.Cancel(&script.document);
    EXPECT_EQ(before, script.document.Text());
    EXPECT_FALSE(drag.IsActive());
}

TEST_F(Dragging, StopsAtTheStartOfTheShowAndComesBackWithThePointer)
{
    Begin(MoveDrag, {{clouds, -1}, {hand, 0}}, {0}, 3);
    To(-30);
    EXPECT_EQ(0u, script.At(clouds).start);
    EXPECT_EQ(6000u, script.At(hand).times[0].milliseconds) << "all go as far as the first can";
    To(4);
    EXPECT_EQ(1000u, script.At(clouds).start);
    EXPECT_EQ(7000u, script.At(hand).times[0].milliseconds);
}

TEST_F(Dragging, MovesEntriesBetweenLayers)
{
    Begin(MoveDrag, {{towers, -1}}, {20}, 25, 1);
    To(25, 4, 0, 60);
    EXPECT_EQ(4u, script.At(towers).layer);
    EXPECT_EQ(3, drag.Layers());
}

TEST_F(Dragging, StretchesEitherEdge)
{
    Begin(StartDrag, {{towers, -1}}, {20}, 20);
    To(22, 7);
    EXPECT_EQ(22000u, script.At(towers).start);
    EXPECT_EQ(40000u, script.At(towers).stop);
    EXPECT_EQ(1u, script.At(towers).layer) << "an edge stays in its layer";
    drag.Drop(&script.document, &script.state.selection);
    Begin(StopDrag, {{towers, -1}}, {40}, 40);
    To(39.5);
    EXPECT_EQ(22000u, script.At(towers).start);
    EXPECT_EQ(39500u, script.At(towers).stop);
}

TEST_F(Dragging, ShiftHoldsTheLayerOrTheTime)
{
    Begin(MoveDrag, {{towers, -1}}, {20}, 25, 1);
    To(26, 3, 50, 30, true);
    EXPECT_EQ(21000u, script.At(towers).start);
    EXPECT_EQ(1u, script.At(towers).layer);
    To(26, 3, 30, 50, true);
    EXPECT_EQ(20000u, script.At(towers).start);
    EXPECT_EQ(3u, script.At(towers).layer);
}

TEST_F(Dragging, ComesToRestWithTheEdgeThatIsNearest)
{
    SnapGrid own;
    own.AddMoment(21.0);
    own.AddMoment(41.03);
    grid = &own;
    Begin(MoveDrag, {{towers, -1}}, {20, 40}, 25);
    To(25.95); // the start is 0.05 away from the first, the stop 0.08 from the second
    EXPECT_EQ(21000u, script.At(towers).start);
    EXPECT_TRUE(drag.HasSnapped());
    EXPECT_EQ(21.0, drag.SnappedAt());
    To(26.04); // the stop is 0.01 away
    EXPECT_EQ(41030u, script.At(towers).stop);
    EXPECT_EQ(21030u, script.At(towers).start);
    To(27);
    EXPECT_EQ(22000u, script.At(towers).start);
    EXPECT_FALSE(drag.HasSnapped());
    grid = nullptr; // held off
    To(25.95);
    EXPECT_EQ(20950u, script.At(towers).start);
    EXPECT_FALSE(drag.HasSnapped());
}

TEST_F(Dragging, DoesNotSnapInTimeWhileItIsHeldToTheLayers)
{
    SnapGrid own;
    own.AddMoment(20.05);
    grid = &own;
    Begin(MoveDrag, {{towers, -1}}, {20}, 25, 1);
    To(25, 2, 0, 60, true);
    EXPECT_EQ(20000u, script.At(towers).start);
    EXPECT_FALSE(drag.HasSnapped());
}

TEST_F(Dragging, CopiesWhenItIsDropped)
{
    Begin(CopyDrag, {{hand, 1}}, {9}, 9);
    To(12);
    EXPECT_EQ(before, script.document.Text());
    EXPECT_EQ(3000, drag.Milliseconds());
    drag.Drop(&script.document, &script.state.selection);
    ASSERT_EQ(1u, script.state.selection.size());
    EXPECT_EQ(12000u, StartOf(script.document.GetOutline(), script.state.selection[0]));
    EXPECT_EQ(3u, script.At(hand).times.size());
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(Dragging, CopiesIntoAnotherLayer)
{
    Begin(CopyDrag, {{towers, -1}}, {20}, 25, 1);
    To(30, 4, 50, 50);
    drag.Drop(&script.document, &script.state.selection);
    ASSERT_EQ(1u, script.state.selection.size());
    const OutlineBlock& copy = script.At(script.state.selection[0].block);
    EXPECT_EQ("FX_Towers", copy.effect);
    EXPECT_EQ(25000u, copy.start);
    EXPECT_EQ(4u, copy.layer);
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(before, script.document.Text()) << "one step takes the copy and its layer back";
}

TEST_F(Dragging, ACopyThatWentNowhereIsNone)
{
    Begin(CopyDrag, {{towers, -1}}, {20}, 25, 1);
    To(30);
    To(25);
    drag.Drop(&script.document, &script.state.selection);
    EXPECT_EQ(before, script.document.Text());
}

TEST(Gestures, HaveNumbersOfTheirOwn)
{
    const uint64_t first = NewGesture();
    EXPECT_NE(0u, first);
    EXPECT_NE(first, NewGesture());
}
