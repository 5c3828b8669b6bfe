// SPDX-License-Identifier: MIT
#include "tools/edit/Tapping.h"

#include "tests/support/EditedScript.h"
#include "tools/edit/Selection.h"

#include <gtest/gtest.h>

using namespace edit;

class Taps : public testing::Test
{
protected:
    Taps() : script(EditedScript::Entry("FX_Clouds", 0, 60000, 1)) { script.state.playing = true; }
    uint32_t TapAt(double seconds)
    {
        script.state.playhead = seconds;
        EXPECT_TRUE(tapping.Tap(&script.state)) << script.state.notice;
        EXPECT_EQ(1u, script.state.selection.size());
        return StartOf(script.document.GetOutline(), script.state.selection[0]);
    }

    EditedScript script;
    Tapping tapping;
};

TEST_F(Taps, AreSetWhereTheyWereHeardOrOnTheNearestBeat)
{
    tapping.Choose("FX_Clouds", "hand", "");
    script.state.snap.on = false;
    EXPECT_EQ(7123u, TapAt(7.1234));
    script.state.snap.on = true;
    EXPECT_EQ(7200u, TapAt(7.123)) << "the beat of 600 ms";
    script.state.snap.toBeats = false;
    EXPECT_EQ(9000u, TapAt(8.2)) << "the bar of 1800 ms";
    script.state.snap.toBars = false;
    EXPECT_EQ(8200u, TapAt(8.2));
}

TEST_F(Taps, GoIntoOneBlockAndAreAStepOfUndoEach)
{
    tapping.Choose("FX_Clouds", "hand", "");
    TapAt(6);
    TapAt(9);
    TapAt(12);
    const size_t block = script.Block("hand");
    ASSERT_EQ(3u, script.At(block).times.size());
    EXPECT_EQ(2u, script.document.GetOutline().blocks.size());
    for (const size_t left : {2u, 1u}) {
        EXPECT_TRUE(script.document.Undo());
        EXPECT_EQ(left, script.At(block).times.size());
    }
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(1u, script.document.GetOutline().blocks.size());
}

TEST_F(Taps, BeginAnotherBlockWithAnotherChoice)
{
    tapping.Choose("FX_Clouds", "hand", "");
    TapAt(6);
    tapping.Choose("FX_Clouds", "blend", "");
    TapAt(9);
    EXPECT_EQ(1u, script.At(script.Block("hand")).times.size());
    EXPECT_EQ(1u, script.At(script.Block("blend")).times.size());
}

TEST_F(Taps, BeginAnotherBlockWhereTheirsIsGone)
{
    tapping.Choose("FX_Clouds", "hand", "");
    TapAt(6);
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(9000u, TapAt(9));
    EXPECT_EQ(1u, script.At(script.Block("hand")).times.size());
    EXPECT_TRUE(script.document.SetValue(script.Block("hand"), "MessageText", "blend"));
    TapAt(12);
    EXPECT_EQ(1u, script.At(script.Block("hand")).times.size());
    EXPECT_EQ(1u, script.At(script.Block("blend")).times.size());
}

TEST_F(Taps, CarryTheirParameters)
{
    tapping.Choose("WhiteFlashOverlay", "flash", "2.00");
    TapAt(6);
    TapAt(9);
    const OutlineBlock& block = script.At(script.Block("flash"));
    EXPECT_EQ(std::vector<float>{2}, block.parameters);
    EXPECT_EQ(2u, block.times.size());
}

TEST_F(Taps, AreOfTheSelectedMessageWhereNoneIsChosen)
{
    tapping.Choose("WhiteFlashOverlay", "flash", "2.00");
    TapAt(6);
    Tapping other;
    script.state.playhead = 12;
    EXPECT_TRUE(other.Tap(&script.state));
    EXPECT_EQ("flash", other.Message());
    EXPECT_EQ(std::vector<float>{2}, script.At(script.state.selection[0].block).parameters);
    script.state.selection = {{0, -1}};
    EXPECT_FALSE(Tapping().Tap(&script.state)) << "an entry is none";
}

TEST_F(Taps, NeedAChoice)
{
    EXPECT_FALSE(tapping.IsChosen());
    EXPECT_FALSE(tapping.Tap(&script.state));
    EXPECT_EQ("Choose a message to tap first.", script.state.notice);
    EXPECT_FALSE(script.document.IsModified());
}
