// SPDX-License-Identifier: MIT
// What a viewer sees and when, in seconds from the start or from a message, at 60 frames a second, at 30, and
// with frames of uneven length. The opening has a table of its own in FX_Scroller_IntroRecordedTest.cpp.
#include "effects/BlackFlashOverlay.h"
#include "effects/FS_Image.h"
#include "effects/FX_Clouds.h"
#include "effects/FX_Credits.h"
#include "effects/FX_FlashHand.h"
#include "effects/FX_Footprint.h"
#include "effects/FX_Path.h"
#include "effects/FX_RopeThing.h"
#include "effects/FX_Towers.h"
#include "effects/FX_VerticalScroller.h"
#include "effects/Transition_Fish.h"
#include "effects/WhiteFlashOverlay.h"

#include "effects/GlowTree.h"
#include "tests/support/recorder/EffectFixture.h"

#include <cmath>
#include <functional>

static const double pi = 3.14159265358979323846;

class ViewersMoments : public EffectFixture, public testing::WithParamInterface<std::vector<double>>
{
protected:
    // Plays whole frames until `seen` is true ahead of a frame, and gives the seconds that took; -1 if it
    // took longer than `limit`.
    double Until(Effect* effect, double limit, const std::function<bool()>& seen)
    {
        double t = 0;
        for (; t <= limit; t += GetParam()[frame++ % GetParam().size()]) {
            if (seen())
                return t;
            gl::Pause();
            ShowFrame(effect, GetParam()[frame % GetParam().size()]);
            gl::Resume();
        }
        return -1;
    }
    void Play(Effect* effect, double seconds)
    {
        Until(effect, seconds, [] { return false; });
    }
    // A frame that takes no time, to look at.
    void Look(Effect* effect)
    {
        StartTimer(FrameTimer::GetTime());
        Frame(effect);
    }
    static double FovY(const gl::Draw& draw) { return 2 * std::atan(1 / draw.projection.m[5]) * 180 / pi; }

    size_t frame = 0;
};

// Two frames of the longest kind: a frame's length counts in the frame behind it, and a moment is seen in the
// one behind that.
static const double slack = 0.1 + 1e-6;

TEST_P(ViewersMoments, WhiteFlashOverlay_AFlashAtRateOneIsAtAThirdAfterASecond)
{
    WhiteFlashOverlay white;
    Prepare(&white);
    Send(&white, "flash");
    Play(&white, 1);
    Look(&white);
    EXPECT_NEAR(0.9 * 0.37, gl::Draws().at(0).vertices[0].colour.r, 0.02);
}

TEST_P(ViewersMoments, BlackFlashOverlay_AFlashAtRateFiveIsHalfGoneAfterASeventhOfASecond)
{
    BlackFlashOverlay black;
    Prepare(&black);
    Send(&black, "flash", {5});
    const auto half = [&] {
        Frame(&black);
        return gl::Draws().at(0).vertices[0].colour.r >= 0.5;
    };
    EXPECT_NEAR(0.14, Until(&black, 1, half), 0.04);
}

TEST_P(ViewersMoments, FS_Image_ThePaintingGrowsSlowlyAndGlowsTwoSecondsAfterItsFade)
{
    FS_Image image("ochre_painting1.jpg");
    Prepare(&image);
    Play(&image, 8);
    Send(&image, "fade");
    Play(&image, 2);
    Look(&image);
    EXPECT_TRUE(gl::HasUniform(gl::Draws().at(0), "delta", {1}, 0.03));
    EXPECT_NEAR(-0.04, gl::Draws()[0].vertices[0].object.x, 0.001);
}

TEST_P(ViewersMoments, FX_Clouds_TheSkyOfTheCloudsRisesAndTheLastCloudPasses)
{
    FX_Clouds flight;
    Prepare(&flight);
    Play(&flight, 1);
    Look(&flight);
    EXPECT_NEAR(1 - std::exp(-1.2), gl::DrawsWithTexture("himmelarsch.jpg").at(0).vertices[0].colour.a, 0.03);
    EXPECT_NEAR(1.0, gl::DrawsWithTexture("cloud_5.png").at(0).vertices[0].colour.a, 1e-6)
        << "the clouds are there at once";
    const Cloud& last = flight.clouds[699];
    const double thins = Until(&flight, 60, [&] { return last.fade > 0; });
    const double gone = Until(&flight, 60, [&] { return flight.cameraTravel >= 1392; });
    EXPECT_NEAR(46.4, 1 + thins + gone, slack);
    EXPECT_NEAR(14.0 / 30, gone, slack) << "in its last 14 units";
    Look(&flight);
    EXPECT_TRUE(gl::DrawsWithTexture("cloud_5.png").empty());
    EXPECT_EQ(1u, gl::DrawsWithTexture("himmelarsch.jpg").size()) << "only the sky is left";
}

TEST_P(ViewersMoments, FX_Clouds_AHandRisesJoltsDivesAndDims)
{
    FX_Clouds flight;
    Prepare(&flight);
    Send(&flight, "hand");
    EXPECT_NEAR(0.25, Until(&flight, 2, [&] { return flight.handAlpha >= 1; }), slack);
    EXPECT_NEAR(0.25, Until(&flight, 2, [&] { return flight.shake < 0.05f; }), 0.1) << "half a second in all";
    Play(&flight, 1);
    Send(&flight, "handFrakt");
    const float before = flight.eye.z;
    EXPECT_NEAR(0.2, Until(&flight, 2, [&] { return flight.cameraBlend > 1; }), slack);
    EXPECT_LT(flight.eye.z, before - 1);
    EXPECT_NEAR(0.1, Until(&flight, 2, [&] { return flight.handState == 2; }), slack);
    EXPECT_NEAR(3.33, Until(&flight, 5, [&] { return flight.handAlpha <= 0; }), slack);
}

TEST_P(ViewersMoments, FX_Credits_TheTreeOfTheNamesGrowsAndANameFlaresUpAndDies)
{
    FX_Credits credits;
    Prepare(&credits);
    Send(&credits, "fade_in"); // from 0.5 towards 1.1, with a lag of a second
    EXPECT_NEAR(1 / 7.0, Until(&credits, 2, [&] { return credits.brightness > 1 - 0.37f; }), slack);
    Play(&credits, 1 - 1 / 7.0);
    EXPECT_NEAR(1.1 - 0.6 * std::exp(-1.0), credits.growth, 0.02);
    Send(&credits, "fade_in");
    const auto alpha = [&] { return 2 * std::sin(credits.creditFade * 3.141); };
    const double full = Until(&credits, 9, [&] { return alpha() >= 1; });
    const double fallen = Until(&credits, 9, [&] { return alpha() < 1; });
    const double gone = Until(&credits, 9, [&] { return alpha() < 0.045; });
    EXPECT_NEAR(0.18, full, slack);
    EXPECT_NEAR(1.79, full + fallen, slack);
    EXPECT_NEAR(5.0, full + fallen + gone, 0.2);
}

TEST_P(ViewersMoments, FX_Path_TheWalkPassesTheHousesAndWouldReachThePlaza)
{
    FX_Path path;
    Prepare(&path);
    const double first = Until(&path, 2, [&] { return path.stripFade < 0.37f; });
    EXPECT_NEAR(0.5, first, slack) << "1 - e^(-2t)";
    const double second = Until(&path, 2, [&] { return path.edgeFade < 0.37f; });
    EXPECT_NEAR(1.0, first + second, slack);
    const double houses = first + second + Until(&path, 20, [&] { return path.walked * 50 >= 38; });
    EXPECT_NEAR(38 / 3.75, houses, slack);
    const double plaza = houses + Until(&path, 20, [&] { return path.walked * 50 >= 64; });
    EXPECT_NEAR(64 / 3.75, plaza, slack);
}

TEST_P(ViewersMoments, FX_Path_TheLiftHalvesTheWalkAndTheTreeTakesOver)
{
    FX_Path path;
    Prepare(&path);
    Play(&path, 2);
    const double before = path.walked * 50;
    Send(&path, "trigger_cam");
    EXPECT_NEAR(1.39, Until(&path, 5, [&] { return path.walkSpeed < 0.5f; }), slack);
    Play(&path, 12);
    EXPECT_NEAR(7.5, path.walked * 50 - before, 0.2);
    Send(&path, "tree2");
    EXPECT_NEAR(std::log(2.0) / 4, Until(&path, 2, [&] { return path.pulse < 1; }), slack);
}

TEST_P(ViewersMoments, FX_Towers_TheTowersComeUpAndTheEyeTurnsInTenAndAHalfSeconds)
{
    FX_Towers flight;
    Prepare(&flight);
    const double up = Until(&flight, 9, [&] { return flight.fade > 0.95f; });
    EXPECT_NEAR(2.0, up, 0.08);
    Play(&flight, 8);
    // The eye's place: behind the camera's matrix. Its x has its largest value once a turn.
    const auto eyeX = [&] {
        Frame(&flight);
        const gl::Matrix m = gl::DrawsWithTexture("fasanenbude.jpg").at(0).modelview;
        const double x = m.m[12], y = m.m[13], z = m.m[14];
        return -(m.m[0] * x + m.m[1] * y + m.m[2] * z);
    };
    const auto outwards = [&] { return eyeX() < -40; };
    const auto inwards = [&] { return eyeX() > 40; };
    Until(&flight, 20, outwards);
    Until(&flight, 20, inwards);
    const double turn = Until(&flight, 20, outwards) + Until(&flight, 20, inwards);
    EXPECT_NEAR(2 * pi / 0.6, turn, 2 * slack);
}

TEST_P(ViewersMoments, FX_Towers_TheBeamsAreOffAfterHalfASecond)
{
    FX_Towers flight;
    Prepare(&flight);
    Send(&flight, "flash_line");
    EXPECT_NEAR(0.58, Until(&flight, 2, [&] { return flight.flash < 0.1f; }), slack);
    Look(&flight);
    EXPECT_TRUE(gl::DrawsWithTexture("beam_1.png").empty());
}

TEST_P(ViewersMoments, Transition_Fish_TheFishWipeOpens)
{
    Transition_Fish fish;
    Prepare(&fish);
    const auto opened = [&](double degrees) {
        return [this, &fish, degrees] {
            Frame(&fish);
            return FovY(gl::Draws().at(0)) >= degrees;
        };
    };
    const double half = Until(&fish, 9, opened(22.75));
    EXPECT_NEAR(1.27, half, slack);
    EXPECT_LT(half + Until(&fish, 9, opened(42)), 5.1);
}

TEST_P(ViewersMoments, FX_FlashHand_ThePhotographRestsAndIsGone)
{
    FX_FlashHand hand;
    Prepare(&hand);
    Send(&hand, "flash");
    const auto width = [&] {
        Frame(&hand);
        return gl::Draws().at(0).vertices[1].object.x - gl::Draws().at(0).vertices[0].object.x;
    };
    EXPECT_NEAR(1.1, width(), 1e-5);
    const double rest = Until(&hand, 9, [&] { return width() < 0.7001; });
    EXPECT_NEAR(0.25, rest, slack);
    Play(&hand, 2.5 - rest);
    Look(&hand);
    EXPECT_NEAR(0.5, gl::Draws().at(1).vertices[0].colour.a, 0.002) << "the blurred copy at its height";
    const auto gone = [&] {
        Frame(&hand);
        return gl::Draws().empty();
    };
    EXPECT_NEAR(2.5, Until(&hand, 9, gone), slack);
}

TEST_P(ViewersMoments, FX_Footprint_APrintFlaresAndSettlesAndTheWalkRuns)
{
    FX_Footprint walk;
    Prepare(&walk);
    walk.marks[0].alpha = 1; // out of sight
    Send(&walk, "step");
    const double half = Until(&walk, 9, [&] { return walk.marks[1].alpha >= 0.5f; });
    EXPECT_NEAR(0.17, half, 0.06);
    const double size = half + Until(&walk, 9, [&] { return (1 - walk.marks[1].alpha) * 10 <= 2; });
    EXPECT_NEAR(0.4, size, slack) << "the glow is back at the print's size";
    const auto noGlow = [&] {
        Frame(&walk);
        return gl::DrawsWithTexture("footprint_white.jpg").empty();
    };
    EXPECT_NEAR(1.15, size + Until(&walk, 9, noGlow), 0.1);
    Play(&walk, 6);
    EXPECT_NEAR(6.25, walk.walked, 0.15);
    Look(&walk);
    EXPECT_GE(gl::DrawsWithTexture("sandbau.jpg").at(0).vertices[0].colour.a, 1.0);
}

TEST_P(ViewersMoments, FX_VerticalScroller_TheRollRisesAndComesToRest)
{
    FX_VerticalScroller roll;
    Prepare(&roll);
    const auto top = [&] {
        Frame(&roll);
        return gl::Draws().at(0).vertices[0].window.y / 600;
    };
    EXPECT_NEAR(0.0, top(), 1e-6);
    EXPECT_NEAR(1 / 0.15, Until(&roll, 20, [&] { return top() >= 1; }), slack);
    const double before = top();
    Send(&roll, "stopScroll");
    Play(&roll, 2);
    EXPECT_NEAR(0.03, top() - before, 0.006);
}

TEST_P(ViewersMoments, FX_RopeThing_TheFishSwimsRushesAndStartles)
{
    FX_RopeThing fish;
    Prepare(&fish);
    Send(&fish, "intro");
    EXPECT_NEAR(100 / 30.0, Until(&fish, 9, [&] { return fish.travel <= 0; }), slack);
    Send(&fish, "front");
    EXPECT_NEAR(1.15, Until(&fish, 9, [&] { return fish.progress < 0.5f; }), slack);
    EXPECT_NEAR(2 - 1.15, Until(&fish, 9, [&] { return fish.travel <= 0; }), slack);
    Send(&fish, "shock");
    const double peak = Until(&fish, 9, [&] { return fish.progress < 0.5f; });
    EXPECT_NEAR(0.11, peak, 0.05);
    EXPECT_NEAR(0.54, peak + Until(&fish, 9, [&] { return std::sin(fish.progress * 3.141) < 0.1; }), 0.08);
}

INSTANTIATE_TEST_SUITE_P(AtAnyRate, ViewersMoments,
                         testing::Values(std::vector<double>{1.0 / 60}, std::vector<double>{1.0 / 30},
                                         std::vector<double>{1.0 / 60, 1.0 / 20, 1.0 / 90}));
