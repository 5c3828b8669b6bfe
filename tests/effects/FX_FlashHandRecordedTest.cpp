// SPDX-License-Identifier: MIT
#include "effects/FX_FlashHand.h"

#include "tests/support/recorder/EffectFixture.h"

class FX_FlashHandRecorded : public EffectFixture
{
protected:
    FX_FlashHandRecorded() { Prepare(&hand); }
    void Step(double seconds)
    {
        PassTime(seconds);
        hand.Update();
    }
    // Both draws of a frame show this quad, o outside of the frame.
    static void ExpectQuads(double o)
    {
        ASSERT_EQ(2u, gl::Draws().size());
        for (const gl::Draw& draw : gl::Draws())
            EXPECT_TRUE(gl::IsQuad(draw,
                                   {{0, 0, 0.1 - o, 1.1 + o},
                                    {1, 0, 0.9 + o, 1.1 + o},
                                    {1, 1, 0.9 + o, -0.1 - o},
                                    {0, 1, 0.1 - o, -0.1 - o}},
                                   1e-5));
    }

    FX_FlashHand hand;
};

TEST_F(FX_FlashHandRecorded, WhatIsMissingIsToldPictureFirstThenTheShader)
{
    FX_FlashHand bare;
    EXPECT_EQ((std::vector<std::string>{"foto.png", "standard_projection.vp", "postprocessing_blur.fp"}),
              ToldMissing(&bare));
}

TEST_F(FX_FlashHandRecorded, DeclaresOneMessageAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"flash: NA"}), DeclaredMessages(&hand));
    EXPECT_FALSE(hand.IsInitialised());
}

TEST_F(FX_FlashHandRecorded, AsksForItsPictureAndItsShader)
{
    EXPECT_EQ((std::vector<std::string>{"foto.png 1 1 1"}), TextureRequests());
    ASSERT_EQ(1u, gl::Programs().size());
    EXPECT_EQ((std::vector<std::string>{"blur_intensity"}), gl::Programs()[0].uniformNames);
}

TEST_F(FX_FlashHandRecorded, BetweenFlashesNothingIsTouched)
{
    gl::ClearRecords();
    hand.Render();
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(FX_FlashHandRecorded, JumpsInAtFullStrengthAndOverItsFrame)
{
    Send(&hand, "flash");
    Frame(&hand);
    ExpectQuads(0.15);
    const gl::Draw& photo = gl::Draws()[0];
    const gl::Draw& blurred = gl::Draws()[1];
    for (const gl::Draw& draw : gl::Draws()) {
        EXPECT_TRUE(gl::IsTextured(draw, "foto.png"));
        EXPECT_TRUE(gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::TestsDepth(draw, false));
        EXPECT_TRUE(gl::WritesDepth(draw, false));
        EXPECT_TRUE(gl::IsMatrix(draw.modelview, gl::Translation(0, 0, -1)));
        EXPECT_TRUE(gl::IsMatrix(draw.projection, gl::Ortho(0, 1, 0, 1)));
    }
    EXPECT_TRUE(gl::HasColour(photo, {1, 1, 1, 1}));
    EXPECT_TRUE(gl::UsesNoProgram(photo));
    EXPECT_TRUE(gl::HasColour(blurred, {1, 1, 1, 0}));
    EXPECT_TRUE(gl::UsesProgram(blurred, gl::Programs()[0].id));
    EXPECT_TRUE(gl::HasUniform(blurred, "blur_intensity", {0}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_FlashHandRecorded, ShrinksInAQuarterOfASecondAndStandsStillInsideItsFrame)
{
    Send(&hand, "flash");
    Step(0.125); // 0.975
    Frame(&hand);
    ExpectQuads(0.05);
    Step(0.125); // 0.95: at rest
    Frame(&hand);
    ExpectQuads(-0.05);
    Step(2);
    Frame(&hand);
    ExpectQuads(-0.05);
}

TEST_F(FX_FlashHandRecorded, FallsInALineWhileItsBlurredCopySwellsAndDies)
{
    Send(&hand, "flash");
    for (int i = 0; i < 20; i++) {
        const double f = 1 - 0.05 * i;
        Frame(&hand);
        ASSERT_EQ(2u, gl::Draws().size());
        EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {1, 1, 1, f}, 1e-6));
        EXPECT_TRUE(gl::HasColour(gl::Draws()[1], {1, 1, 1, 2 * f * (1 - f)}, 1e-6));
        EXPECT_TRUE(gl::HasUniform(gl::Draws()[1], "blur_intensity", {float(1 - f)}, 1e-6));
        Step(0.25);
    }
    Frame(&hand);
    EXPECT_TRUE(gl::Draws().empty()) << "gone after five seconds";
}

TEST_F(FX_FlashHandRecorded, AtExactlyAThousandthItIsDrawnOnceMore)
{
    // Falls close to it, and from there by a last step of the length that is missing. Most steps miss it by a
    // bit or two; one ends on the float 0.001 itself, as the picture's alpha tells.
    bool drawnThere = false;
    for (int i = 0; i < 900 && !drawnThere; i++) {
        Send(&hand, "flash");
        StartTimer();
        Step(4.99 - i / 300 * 0.001);
        Frame(&hand);
        const double left = gl::Draws().at(0).vertices[0].colour.a - 0.001;
        StartTimer(); // its steps are finest at its start
        Step(left * 5 + (i % 300 - 150) * 1e-9);
        Frame(&hand);
        drawnThere = !gl::Draws().empty() && float(gl::Draws()[0].vertices[0].colour.a) == 0.001f;
    }
    EXPECT_TRUE(drawnThere);
    StartTimer();
    Send(&hand, "flash");
    Step(4.9951);
    Frame(&hand);
    EXPECT_TRUE(gl::Draws().empty());
    Send(&hand, "flash");
    Step(4.9949);
    Frame(&hand);
    EXPECT_EQ(2u, gl::Draws().size());
}

TEST_F(FX_FlashHandRecorded, TheValueFallsBelowZeroWithoutHarm)
{
    Send(&hand, "flash");
    Step(100);
    Frame(&hand);
    EXPECT_TRUE(gl::Draws().empty());
    Send(&hand, "flash");
    Frame(&hand);
    ExpectQuads(0.15);
}

TEST_F(FX_FlashHandRecorded, ASecondFlashRestartsItWithTheJump)
{
    Send(&hand, "flash");
    Step(2);
    Send(&hand, "flash", {3, 4});
    Frame(&hand);
    ExpectQuads(0.15);
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {1, 1, 1, 1}));
}

TEST_F(FX_FlashHandRecorded, LeavesBlendingOffDepthOnAndTheProjectionAsItWas)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    Send(&hand, "flash");
    Frame(&hand);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_EQ(0u, gl::Now().program);
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity()));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(FX_FlashHandRecorded, ASecondInitEndsAFlash)
{
    Send(&hand, "flash");
    Init(&hand);
    Frame(&hand);
    EXPECT_TRUE(gl::Draws().empty());
}

TEST_F(FX_FlashHandRecorded, UnknownMessagesAreIgnored)
{
    hand.ReceiveMessage(0, nullptr, 0);
    hand.ReceiveMessage(99, nullptr, 0);
    Frame(&hand);
    EXPECT_TRUE(gl::Draws().empty());
}
