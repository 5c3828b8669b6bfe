// SPDX-License-Identifier: MIT
#include "effects/FX_Footprint.h"

#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/GLQuads.h"

#include <cmath>

class FX_FootprintRecorded : public EffectFixture
{
protected:
    FX_FootprintRecorded() { Prepare(&walk); }
    void Step(double seconds)
    {
        PassTime(seconds);
        walk.Update();
    }
    static std::vector<gl::Draw> Prints() { return gl::QuadsWithTexture("footprint.png"); }
    static std::vector<gl::Draw> Glows() { return gl::QuadsWithTexture("footprint_white.jpg"); }
    static std::vector<gl::Draw> Sand() { return gl::DrawsWithTexture("sandbau.jpg"); }
    static std::vector<gl::Corner> Print(double s, bool odd)
    {
        const double a = odd ? 1 : 0, b = 1 - a;
        return {{0, a, -s, 0, -s / 2}, {1, a, s, 0, -s / 2}, {1, b, s, 0, s / 2}, {0, b, -s, 0, s / 2}};
    }
    // Of the marks of a step at walk 0.
    static gl::Matrix Place(bool odd)
    {
        return gl::Translation(-4, 0, odd ? -3 : 0) * gl::RotationDegrees(odd ? -30 : 30, 0, 1, 0);
    }
    gl::Matrix Camera(double w, double push, double t) const
    {
        return gl::LookAt({3 - w + std::sin(w / 4), 3, std::cos(w / 4) + 3}, {-w, 0, 0},
                          {std::sin(t) * push * 0.25, 1, 0});
    }

    FX_Footprint walk;
};

TEST_F(FX_FootprintRecorded, DeclaresStepThenTriggerBaseAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"step: NA", "trigger_base: NA"}), DeclaredMessages(&walk));
    EXPECT_FALSE(walk.IsInitialised());
}

TEST_F(FX_FootprintRecorded, AsksForItsPicturesAndForAShaderThatStaysIdle)
{
    EXPECT_EQ(
        (std::vector<std::string>{"footprint.png 1 1 1", "sandbau.jpg 1 1 1", "footprint_white.jpg 1 1 1"}),
        TextureRequests());
    ASSERT_EQ(1u, gl::Programs().size());
    EXPECT_EQ((std::vector<std::string>{"blur_intensity"}), gl::Programs()[0].uniformNames);
    Send(&walk, "step");
    Frame(&walk);
    for (const gl::Draw& draw : gl::Draws())
        EXPECT_TRUE(gl::UsesNoProgram(draw));
}

TEST_F(FX_FootprintRecorded, WhatIsMissingIsToldPicturesFirstThenTheShader)
{
    FX_Footprint bare;
    EXPECT_EQ((std::vector<std::string>{"footprint.png", "sandbau.jpg", "footprint_white.jpg",
                                        "standard_projection.vp", "postprocessing_blur.fp"}),
              ToldMissing(&bare));
}

TEST_F(FX_FootprintRecorded, TheFirstMarkLiesOutOfSightButIsNumberZero)
{
    ASSERT_EQ(1u, walk.marks.size());
    EXPECT_GT(std::fabs(walk.marks[0].x), 1e8f);
    EXPECT_EQ(0.0f, walk.marks[0].alpha);
    EXPECT_EQ(0.0f, walk.walked);
}

TEST_F(FX_FootprintRecorded, TheSandIsFortyTilesAndABandToTheHorizon)
{
    walk.SetLocalTime(5);
    Frame(&walk);
    ASSERT_EQ(1u, Sand().size());
    const gl::Draw sand = Sand()[0];
    ASSERT_EQ(40u * 8u, sand.vertices.size());
    for (int i = 0; i < 40; i++) {
        const double a = -15 - 30.0 * i, b = 15 - 30.0 * i;
        EXPECT_TRUE(gl::HasQuad(sand, 2 * i,
                                {{0, 0, a, 0, -15}, {0, 2, b, 0, -15}, {1, 2, b, 0, 15}, {1, 0, a, 0, 15}}));
        EXPECT_TRUE(gl::HasQuad(
            sand, 2 * i + 1, {{0, 0, a, 0, -500}, {0, 0, b, 0, -500}, {0, 0, b, 0, -15}, {0, 0, a, 0, -15}}));
    }
    EXPECT_TRUE(gl::Blends(sand, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_TRUE(gl::TestsDepth(sand, false));
    EXPECT_TRUE(gl::WritesDepth(sand, false));
    EXPECT_NEAR(1 / std::tan(22.5 * 3.14159265358979323846 / 180), sand.projection.m[5], 1e-6);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_FootprintRecorded, TheSandFadesInYellowFirst)
{
    for (const double t : {0.0, 0.5, 1.0, 2.0, 4.0, 6.0}) {
        walk.SetLocalTime(float(t));
        Frame(&walk);
        EXPECT_TRUE(gl::HasColour(Sand().at(0), {1, 1, t, t * 0.25})) << t;
    }
}

TEST_F(FX_FootprintRecorded, TheCameraStandsThreeBackAndThreeUpAndCirclesWithTheWalk)
{
    Frame(&walk);
    EXPECT_TRUE(gl::IsMatrix(Sand().at(0).modelview, Camera(0, 0, 0)));
    Send(&walk, "step");
    walk.SetLocalTime(2);
    Frame(&walk);
    EXPECT_TRUE(gl::IsMatrix(Sand().at(0).modelview, Camera(0, 2, 2))) << "rolls with a push";
    Step(0.5); // walked 0.5 * 5 * 2, push 2 - 0.5 * 1.6 * 2
    walk.SetLocalTime(3);
    Frame(&walk);
    EXPECT_TRUE(gl::IsMatrix(Sand().at(0).modelview, Camera(5, 0.4, 3), 1e-4));
}

TEST_F(FX_FootprintRecorded, TheFirstStepIsAnOddPrint)
{
    Send(&walk, "step", {9, 9});
    ASSERT_EQ(2u, walk.marks.size());
    EXPECT_EQ(4.0f, walk.marks[1].x);
    Step(0.125); // alpha 0.5
    walk.walked = 0;
    Frame(&walk);
    ASSERT_EQ(2u, Prints().size());
    const gl::Draw print = Prints()[1];
    EXPECT_TRUE(gl::HasColour(print, {1, 1, 1, 0.5}));
    EXPECT_TRUE(gl::Blends(print, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_TRUE(gl::IsQuadIn(print, Camera(0, 0, 0) * Place(true), Print(2, true)));
}

TEST_F(FX_FootprintRecorded, TheSecondStepIsAnEvenPrint)
{
    Send(&walk, "step");
    Send(&walk, "step");
    Frame(&walk);
    const gl::Draw print = Prints().at(2);
    EXPECT_TRUE(gl::IsQuadIn(print, Camera(0, 2, 0) * Place(false), Print(2, false)));
}

TEST_F(FX_FootprintRecorded, APrintFlaresUpToFiveTimesItsSizeAndShrinksBack)
{
    Send(&walk, "step");
    Frame(&walk);
    ASSERT_EQ(2u, Glows().size()) << "the mark out of sight flares, too";
    const gl::Matrix place = Camera(0, 2, 0) * Place(true);
    gl::Draw glow = Glows()[1];
    EXPECT_TRUE(gl::IsQuadIn(glow, place, Print(10, true)));
    EXPECT_TRUE(gl::HasColour(glow, {10, 10, 10}));
    EXPECT_TRUE(gl::Blends(glow, GL_ONE, GL_ONE));

    walk.marks[1].alpha = 0.75f; // g 2.5
    Frame(&walk);
    EXPECT_TRUE(gl::IsQuadIn(Glows().at(1), place, Print(2.5, true)));
    EXPECT_TRUE(gl::HasColour(Glows()[1], {2.5, 2.5, 2.5}));

    walk.marks[1].alpha = 0.875f; // g 1.25: the print's own size is the least
    Frame(&walk);
    EXPECT_TRUE(gl::IsQuadIn(Glows().at(1), place, Print(2, true)));
    EXPECT_TRUE(gl::HasColour(Glows()[1], {1.25, 1.25, 1.25}));
}

TEST_F(FX_FootprintRecorded, AGlowOfATenthOrLessIsNotDrawn)
{
    Send(&walk, "step");
    walk.marks[0].alpha = 1;
    walk.marks[1].alpha = 0.9899f;
    Frame(&walk);
    EXPECT_EQ(1u, Glows().size());
    walk.marks[1].alpha = 0.9901f;
    Frame(&walk);
    EXPECT_TRUE(Glows().empty());
    walk.marks[1].alpha = 1.5f; // a very long frame can take it past 1
    Frame(&walk);
    EXPECT_TRUE(Glows().empty());
}

TEST_F(FX_FootprintRecorded, GlowsAndPrintsFollowEachOtherAndSetTheirOwnBlending)
{
    Send(&walk, "step");
    Frame(&walk);
    EXPECT_TRUE(gl::CallsContain(
        gl::Outline(),
        {"glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)", "glDisable(GL_DEPTH_TEST)",
         "glDepthMask(GL_FALSE)", "gluPerspective", "gluLookAt", "glPushMatrix()",
         "glBlendFunc(GL_ONE, GL_ONE)", "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)", "glPopMatrix()",
         "glPushMatrix()", "glBlendFunc(GL_ONE, GL_ONE)", "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)",
         "glPopMatrix()", "glDepthMask(GL_TRUE)", "glEnable(GL_DEPTH_TEST)"}));
    std::vector<std::string> pictures;
    for (const gl::Draw& draw : gl::Draws())
        pictures.push_back(gl::TextureLabel(draw.Texture()));
    EXPECT_EQ((std::vector<std::string>{"sandbau.jpg", "footprint.png", "footprint_white.jpg",
                                        "footprint.png", "footprint_white.jpg"}),
              pictures)
        << "a glow lies over its print and under the next one";
}

TEST_F(FX_FootprintRecorded, APrintGrowsOpaqueAtRateFourAndStopsAtOne)
{
    Send(&walk, "step");
    Step(0.125);
    EXPECT_EQ(0.5f, walk.marks[1].alpha);
    Step(0.125);
    EXPECT_EQ(0.75f, walk.marks[1].alpha);
    walk.marks[1].alpha = 1;
    Step(0.125);
    EXPECT_EQ(1.0f, walk.marks[1].alpha);
    walk.marks[1].alpha = 0.5f;
    Step(0.5); // above a quarter of a second it passes 1, and then stops changing
    EXPECT_EQ(1.5f, walk.marks[1].alpha);
    Step(0.5);
    EXPECT_EQ(1.5f, walk.marks[1].alpha);
}

TEST_F(FX_FootprintRecorded, AStepPushesTheWalkWhichMovesAheadOfTheBrake)
{
    Send(&walk, "step");
    Step(0.25);
    EXPECT_EQ(2.5f, walk.walked);
    Step(0.25); // push is 2 * 0.6 by now
    EXPECT_FLOAT_EQ(2.5f + 0.25f * 5 * 1.2f, walk.walked);
}

TEST_F(FX_FootprintRecorded, EachStepCarriesTheCameraSixAndAQuarter)
{
    for (const double frame : {1.0 / 64, 1.0 / 32}) {
        Init(&walk);
        for (int n = 1; n <= 3; n++) {
            Send(&walk, "step");
            for (int i = 0; i < 6 / frame; i++)
                Step(frame);
            EXPECT_NEAR(6.25 * n, walk.walked, 0.01 * n);
        }
        EXPECT_NEAR(12.5 + 4, walk.marks.back().x, 0.05) << "4 ahead of the look-at point when it was set";
    }
}

TEST_F(FX_FootprintRecorded, AStepShowsItsPrintWhateverTheSandIs)
{
    Send(&walk, "trigger_base");
    Send(&walk, "step");
    Frame(&walk);
    EXPECT_TRUE(Sand().empty());
    EXPECT_EQ(2u, Prints().size());
}

TEST_F(FX_FootprintRecorded, TriggerBaseTwiceShowsTheSandAgainAtOnce)
{
    walk.SetLocalTime(3);
    Send(&walk, "trigger_base");
    Frame(&walk);
    EXPECT_TRUE(Sand().empty());
    Send(&walk, "trigger_base");
    Frame(&walk);
    EXPECT_TRUE(gl::HasColour(Sand().at(0), {1, 1, 3, 0.75}));
}

TEST_F(FX_FootprintRecorded, PrintsBehindTheCameraAreStillDrawnInOrder)
{
    for (int i = 0; i < 30; i++)
        Send(&walk, "step");
    Frame(&walk);
    EXPECT_EQ(31u, Prints().size());
    EXPECT_EQ(31u, walk.marks.size());
}

TEST_F(FX_FootprintRecorded, LeavesBlendingOnAndTheDepthStateOn)
{
    Frame(&walk);
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
    EXPECT_EQ(GLenum(GL_SRC_ALPHA), gl::Now().blendSource);
    EXPECT_EQ(GLenum(GL_ONE_MINUS_SRC_ALPHA), gl::Now().blendDestination);
    EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(FX_FootprintRecorded, ASecondInitSetsAMarkWhereTheWalkIsAndStartsIt)
{
    Send(&walk, "step");
    Send(&walk, "trigger_base");
    Step(0.25);
    Init(&walk);
    ASSERT_EQ(3u, walk.marks.size());
    EXPECT_EQ(2.5f + 4, walk.marks[2].x);
    EXPECT_EQ(0.0f, walk.walked);
    Step(1);
    EXPECT_EQ(0.0f, walk.walked) << "without a push";
    Frame(&walk);
    EXPECT_EQ(1u, Sand().size());
}

TEST_F(FX_FootprintRecorded, UnknownMessagesAreIgnored)
{
    walk.ReceiveMessage(0, nullptr, 0);
    Frame(&walk);
    EXPECT_EQ(1u, walk.marks.size());
    EXPECT_EQ(1u, Sand().size());
}
