// SPDX-License-Identifier: MIT
#include "effects/FX_VerticalScroller.h"

#include "tests/support/recorder/EffectFixture.h"

class FX_VerticalScrollerRecorded : public EffectFixture
{
protected:
    FX_VerticalScrollerRecorded() { Prepare(&roll); }
    void Step(double seconds)
    {
        PassTime(seconds);
        roll.Update();
    }
    // The top edge of the column, in heights of the viewport.
    double Top()
    {
        Frame(&roll);
        return gl::Draws().at(0).vertices[0].window.y / 600.0;
    }

    FX_VerticalScroller roll;
};

TEST_F(FX_VerticalScrollerRecorded, DeclaresStopScrollAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"stopScroll: stop scrolling"}), DeclaredMessages(&roll));
    EXPECT_FALSE(roll.IsInitialised());
}

TEST_F(FX_VerticalScrollerRecorded, AsksForItsPagesInOrder)
{
    EXPECT_EQ(
        (std::vector<std::string>{"abspanner_1.png 1 1 1", "abspanner_2.png 1 1 1", "abspanner_3.png 1 1 1"}),
        TextureRequests());
}

TEST_F(FX_VerticalScrollerRecorded, ThePagesHangUnderEachOtherWithoutAGap)
{
    Step(1.5);
    Frame(&roll);
    ASSERT_EQ(3u, gl::Draws().size());
    const char* const names[3] = {"abspanner_1.png", "abspanner_2.png", "abspanner_3.png"};
    for (int i = 0; i < 3; i++) {
        const gl::Draw& page = gl::Draws()[i];
        EXPECT_TRUE(gl::IsTextured(page, names[i]));
        EXPECT_TRUE(gl::IsQuad(page, {{0, 0, 0, 4}, {1, 0, 1, 4}, {1, 1, 1, 0}, {0, 1, 0, 0}}));
        EXPECT_TRUE(gl::HasColour(page, {1, 1, 1, 1}));
        EXPECT_TRUE(gl::Blends(page, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        const gl::Matrix place = gl::Scaling(0.5, 0.5, 0.5) * gl::Translation(0.5, 0.45 - 4 - 4 * i, -1);
        EXPECT_TRUE(gl::IsMatrix(page.modelview, place));
        EXPECT_TRUE(gl::IsMatrix(page.projection, gl::Ortho(0, 1, 0, 1)));
    }
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_VerticalScrollerRecorded, TheColumnStandsFromAQuarterToThreeQuartersTwoScreensToThePage)
{
    Step(2);
    Frame(&roll);
    EXPECT_TRUE(gl::HasWindowPoints(gl::Draws().at(0),
                                    {{200, 180}, {600, 180}, {600, 180 - 1200}, {200, 180 - 1200}}, 0.1));
}

TEST_F(FX_VerticalScrollerRecorded, StartsWhollyBelowTheScreenAndRisesAtItsSpeed)
{
    EXPECT_NEAR(0.0, Top(), 1e-6);
    for (int i = 0; i < 64; i++)
        Step(1.0 / 32);
    EXPECT_NEAR(0.3, Top(), 1e-5) << "0.15 screen heights a second";
}

TEST_F(FX_VerticalScrollerRecorded, AfterTheLastPageTheScreenIsFree)
{
    for (int i = 0; i < 47; i++) // scroll 14.1
        Step(1);
    Frame(&roll);
    EXPECT_GE(gl::Draws().at(2).vertices[2].window.y, 600.0);
}

TEST_F(FX_VerticalScrollerRecorded, StopScrollBrakesItWithinAboutHalfASecond)
{
    for (int i = 0; i < 64; i++)
        Step(1.0 / 32);
    const double before = Top();
    Send(&roll, "stopScroll", {5});
    for (int i = 0; i < 512; i++)
        Step(1.0 / 1024);
    EXPECT_NEAR(0.03 * 0.92, Top() - before, 0.001) << "e^-2.5 of the way is left";
    for (int i = 0; i < 4096; i++)
        Step(1.0 / 1024);
    const double rest = Top();
    EXPECT_NEAR(0.03, rest - before, 0.0003);
    Step(1.0 / 32);
    EXPECT_NEAR(rest, Top(), 1e-6);
}

TEST_F(FX_VerticalScrollerRecorded, TheBrakeComesAheadOfTheRise)
{
    Send(&roll, "stopScroll");
    Step(0.125); // speed 0.375
    Frame(&roll);
    EXPECT_TRUE(gl::IsMatrix(gl::Draws().at(0).modelview,
                             gl::Scaling(0.5, 0.5, 0.5) * gl::Translation(0.5, 0.3 * 0.125 * 0.375 - 4, -1),
                             1e-6));
}

TEST_F(FX_VerticalScrollerRecorded, StopScrollTwiceIsTheSameAsOnce)
{
    Send(&roll, "stopScroll");
    Step(0.125);
    Send(&roll, "stopScroll");
    Step(0.125);
    Frame(&roll);
    const double scroll = 0.3 * 0.125 * (0.375 + 0.375 * 0.375);
    EXPECT_TRUE(gl::IsMatrix(gl::Draws().at(0).modelview,
                             gl::Scaling(0.5, 0.5, 0.5) * gl::Translation(0.5, scroll - 4, -1), 1e-6));
}

TEST_F(FX_VerticalScrollerRecorded, LeavesTheDepthStateAloneBlendingOffAndTheProjectionAsItWas)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    for (const bool depth : {false, true}) {
        depth ? glEnable(GL_DEPTH_TEST) : glDisable(GL_DEPTH_TEST);
        glDepthMask(depth);
        Frame(&roll);
        EXPECT_TRUE(gl::TestsDepth(gl::Draws().at(0), depth));
        EXPECT_TRUE(gl::WritesDepth(gl::Draws()[0], depth));
        EXPECT_EQ(depth, gl::Now().Enabled(GL_DEPTH_TEST));
        EXPECT_EQ(depth, gl::Now().depthWrites);
    }
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity()));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(FX_VerticalScrollerRecorded, ASecondInitStartsItAnewWithThreeMorePagesBelow)
{
    Send(&roll, "stopScroll");
    Step(1);
    Init(&roll);
    EXPECT_NEAR(0.0, Top(), 1e-6);
    EXPECT_EQ(6u, gl::Draws().size());
    Step(1);
    EXPECT_NEAR(0.15, Top(), 1e-5) << "it scrolls again";
}

TEST_F(FX_VerticalScrollerRecorded, UnknownMessagesAreIgnored)
{
    roll.ReceiveMessage(0, nullptr, 0);
    Step(1);
    EXPECT_NEAR(0.15, Top(), 1e-5);
}
