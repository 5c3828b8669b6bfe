// SPDX-License-Identifier: MIT
#include "effects/Transition_Fish.h"

#include "tests/support/recorder/EffectFixture.h"

#include <cmath>

class Transition_FishRecorded : public EffectFixture
{
protected:
    void Step(double seconds)
    {
        PassTime(seconds);
        fish.AddLocalTime(FrameTimer::GetDelta());
        fish.Update();
    }
    // Degrees of the vertical field of view that the last frame was drawn with.
    static double FovY()
    {
        return 2 * std::atan(1 / gl::Draws().at(0).projection.m[5]) * 180 / 3.14159265358979323846;
    }
    static gl::Matrix Camera() { return gl::LookAt({0, 0, 3}, {-1.25, 0.05f, 0}, {0, 1, 0}); }

    Transition_Fish fish;
};

// clang-format off
static const gl::Matrix places[4] = {
    gl::Translation( 0.0f,  0.0f,  0.0f),
    gl::Translation( 3.5f,  1.5f, -1.0f),
    gl::Translation( 0.6f,  1.0f, -2.0f),
    gl::Translation(-1.3f, -1.5f, -4.0f),
};
// clang-format on

TEST_F(Transition_FishRecorded, DeclaresNoMessagesAndDoesntAttach)
{
    Prepare(&fish);
    EXPECT_TRUE(DeclaredMessages(&fish).empty());
    EXPECT_FALSE(fish.IsInitialised());
    fish.ReceiveMessage(1, nullptr, 0);
}

TEST_F(Transition_FishRecorded, ItsCardsAreClampedSoThatTheirEdgesDontBleed)
{
    Prepare(&fish);
    EXPECT_EQ((std::vector<std::string>{"fischgraeten_1.png 1 0 1", "fischgraeten_2.png 1 0 1"}),
              TextureRequests());
}

TEST_F(Transition_FishRecorded, TheFirstFrameLooksThroughHalfADegree)
{
    Prepare(&fish);
    Frame(&fish);
    ASSERT_EQ(16u, gl::Draws().size());
    EXPECT_NEAR(0.5, FovY(), 1e-9);
}

TEST_F(Transition_FishRecorded, TheFieldOfViewOpensAtItsRateTowardsFortyFive)
{
    Prepare(&fish);
    Step(1.0);
    Frame(&fish);
    EXPECT_NEAR(0.5 + 44.5 * 0.55, FovY(), 1e-4) << "one step of the first order";
    for (int i = 0; i < 40; i++)
        Step(0.5);
    Frame(&fish);
    EXPECT_LT(FovY(), 45.0);
    EXPECT_GT(FovY(), 44.99);
}

TEST_F(Transition_FishRecorded, WhatAViewerSees)
{
    Prepare(&fish);
    const double step = 1.0 / 64;
    double halfWay = 0;
    for (int i = 0; i < 5 * 64; i++) {
        Step(step);
        Frame(&fish);
        if (halfWay == 0 && FovY() >= 22.75)
            halfWay = (i + 1) * step;
    }
    EXPECT_NEAR(1.27, halfWay, 0.05);
    EXPECT_GT(FovY(), 42.0) << "after five seconds";
}

TEST_F(Transition_FishRecorded, ShadowsComeFirstAndEachPassRunsFromFarToNear)
{
    Prepare(&fish);
    Frame(&fish);
    ASSERT_EQ(16u, gl::Draws().size());
    for (int n = 0; n < 16; n++) {
        const gl::Draw& draw = gl::Draws()[n];
        const bool shadow = n < 8;
        const int i = 3 - n / 2 % 4;
        const gl::Matrix depth = shadow ? gl::Translation(0, 0, -2) : gl::Identity();
        EXPECT_TRUE(gl::IsMatrix(draw.modelview, Camera() * places[i] * depth)) << n;
        EXPECT_TRUE(gl::HasColour(draw, shadow ? gl::Colour(0, 0, 0, 0.6) : gl::Colour(1, 1, 1, 1))) << n;
        EXPECT_TRUE(gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::TestsDepth(draw, false));
        if (n % 2 == 0) {
            EXPECT_TRUE(gl::IsTextured(draw, "fischgraeten_1.png"));
            EXPECT_TRUE(gl::IsQuad(draw, {{0, 0, -2, 1}, {1, 0, 0, 1}, {1, 1, 0, -1}, {0, 1, -2, -1}}));
        } else {
            EXPECT_TRUE(gl::IsTextured(draw, "fischgraeten_2.png"));
            EXPECT_TRUE(gl::IsQuad(draw, {{0, 0, 0, 1}, {1, 0, 1, 1}, {1, 1, 1, -1}, {0, 1, 0, -1}}));
        }
    }
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(Transition_FishRecorded, TheFishDriftLeftAndNearerRollAndWagInStep)
{
    Prepare(&fish);
    // closeness after two steps of 0.5 s: 0.725, 0.525625; drift: 0.5 * 0.275 + 0.5 * 0.474375
    Step(0.5);
    Step(0.5);
    Frame(&fish);
    const double drift = 0.5 * 0.275 + 0.5 * 0.474375;
    const gl::Matrix roll = gl::RotationDegrees(10 * std::sin(0.2), 0, 0, 1);
    const gl::Matrix wag = gl::RotationDegrees(25 * std::sin(4.0), 0, 1, 0);
    const gl::Matrix way = gl::Translation(-drift, 0, drift * 0.5);
    for (int n = 0; n < 16; n++) {
        const int i = 3 - n / 2 % 4;
        const gl::Matrix depth = n < 8 ? gl::Translation(0, 0, -2) : gl::Identity();
        gl::Matrix expected = Camera() * places[i] * depth * way * roll;
        if (n % 2 != 0)
            expected = expected * wag;
        EXPECT_TRUE(gl::IsMatrix(gl::Draws()[n].modelview, expected, 1e-4)) << n;
    }
}

TEST_F(Transition_FishRecorded, TheDriftTendsToOneUnitASecond)
{
    Prepare(&fish);
    for (int i = 0; i < 20 * 64; i++)
        Step(1.0 / 64);
    Frame(&fish);
    const double before = gl::Draws().at(8).modelview.m[12];
    fish.SetLocalTime(20);
    Step(1.0);
    fish.SetLocalTime(20);
    Frame(&fish);
    const gl::Point moved(gl::Draws()[8].modelview.m[12] - before, 0, 0);
    EXPECT_NEAR(-1.0, moved.x, 0.25) << "to the left, in the frame of a camera that looks aslant";
}

TEST_F(Transition_FishRecorded, ItLeavesBlendingAndDepthTestOffAndItsProjection)
{
    Prepare(&fish);
    glEnable(GL_DEPTH_TEST);
    Frame(&fish);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_FALSE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_EQ(GLenum(GL_SRC_ALPHA), gl::Now().blendSource);
    EXPECT_EQ(GLenum(GL_ONE_MINUS_SRC_ALPHA), gl::Now().blendDestination);
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Draws()[0].projection));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(Transition_FishRecorded, ASecondInitStartsTheZoomAndTheDriftAnew)
{
    Prepare(&fish);
    Step(1);
    Step(1);
    Init(&fish);
    fish.SetLocalTime(0);
    Frame(&fish);
    EXPECT_NEAR(0.5, FovY(), 1e-9);
    EXPECT_TRUE(gl::IsMatrix(gl::Draws()[8 + 6].modelview, Camera()));
}
