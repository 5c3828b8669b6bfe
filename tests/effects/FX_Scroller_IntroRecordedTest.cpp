// SPDX-License-Identifier: MIT
#include "effects/FX_Scroller_Intro.h"

#include "effects/ScrollerPaths.h"
#include "math/Random.h"
#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/GLQuads.h"

#include <cmath>

static const double pi = 3.141; // the effect's figure

class FX_Scroller_IntroRecorded : public EffectFixture
{
protected:
    FX_Scroller_IntroRecorded() { Prepare(&intro); }

    // Time for the scroll, which moves in Render.
    void Scroll(double seconds, double step)
    {
        gl::Pause();
        for (double t = 0; t < seconds - step / 2; t += step) {
            PassTime(step);
            intro.AddLocalTime(FrameTimer::GetDelta());
            intro.Render();
        }
        gl::Resume();
        StartTimer(FrameTimer::GetTime()); // the next frame has no delta
    }
    static gl::Draw Of(const char* picture)
    {
        const std::vector<gl::Draw> draws = gl::DrawsWithTexture(picture);
        EXPECT_EQ(1u, draws.size()) << picture;
        return draws.empty() ? gl::Draw() : draws[0];
    }
    static std::vector<gl::Draw> Sparks() { return gl::QuadsWithTexture("partikel_2.jpg"); }
    static double PanoramaScroll() { return Of("sky-background_01.jpg").modelview.m[12]; }
    static double TesselX() { return Of("tessel-logo.png").modelview.m[12]; }
    // Left and right edge on the screen, 0 to 1.
    static double Left(const char* picture) { return Of(picture).vertices[0].window.x / 800; }
    static double Right(const char* picture) { return Of(picture).vertices[1].window.x / 800; }
    void Light(int particle, float life, float x, float y, int path)
    {
        intro.particles[particle].life = life;
        intro.particles[particle].x = x;
        intro.particles[particle].y = y;
        intro.particles[particle].pathIndex = path;
    }

    FX_Scroller_Intro intro;
};

TEST_F(FX_Scroller_IntroRecorded, DeclaresItsThreeMessagesInOrderAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"fadein_logo: NA", "fadeout: NA", "light_flash: NA"}),
              DeclaredMessages(&intro));
    EXPECT_FALSE(intro.IsInitialised());
}

TEST_F(FX_Scroller_IntroRecorded, AsksForItsPicturesInOrder)
{
    EXPECT_EQ((std::vector<std::string>{"tessel-logo.png 1 1 1", "black-chick.png 1 1 1",
                                        "moonwaltz-logo.png 1 1 1", "waldsterben.png 0 0 1",
                                        "waldsterben2.png 0 0 1", "partikel_2.jpg 1 1 1",
                                        "sky-background_01.jpg 0 0 1", "sky-background_02.jpg 0 0 1",
                                        "sky-background_03.jpg 0 0 1", "sky-background_04.jpg 0 0 1"}),
              TextureRequests());
}

TEST_F(FX_Scroller_IntroRecorded, ParticlesStandAlongTheirPathsInTheDark)
{
    for (int i = 0; i < 2000; i++) {
        const ScrollerParticle& particle = intro.particles[i];
        EXPECT_EQ(i % 9, particle.pathIndex);
        EXPECT_NEAR(std::pow(std::sin(i / 2000.0 * pi), 2), particle.pathPos, 1e-6);
        EXPECT_EQ(0.0f, particle.life);
    }
    EXPECT_EQ(1.0f, intro.fade);
    EXPECT_EQ(-842150451, intro.flashCount);
}

TEST_F(FX_Scroller_IntroRecorded, PathsAreTheTablesInTheUnitSquare)
{
    for (int k = 0; k < 9; k++) {
        const std::vector<float>& path = intro.paths[k];
        size_t i = 0;
        for (; scrollerPaths[k][i] != -1; i++)
            ASSERT_EQ(scrollerPaths[k][i] / 1024, path.at(i));
        EXPECT_EQ(i, path.size());
    }
}

TEST_F(FX_Scroller_IntroRecorded, ASampleWalksNStepsOverOneSegmentLess)
{
    const std::vector<float> path = {0, 0, 1, 10, 2, 20, 3, 30, 4, 40, 5, 50, 6, 60, 7, 70}; // n = 8
    float x, y;
    FX_Scroller_Intro::SamplePath(0, &x, &y, path);
    EXPECT_EQ(0.0f, x);
    FX_Scroller_Intro::SamplePath(0.3125f, &x, &y, path); // 2.5 steps
    EXPECT_FLOAT_EQ(2.5f, x);
    EXPECT_FLOAT_EQ(25.0f, y);
    FX_Scroller_Intro::SamplePath(0.8125f, &x, &y, path); // 6.5: the last segment of seven
    EXPECT_FLOAT_EQ(6.5f, x);
    EXPECT_FLOAT_EQ(65.0f, y);
}

TEST_F(FX_Scroller_IntroRecorded, OnTheLastStepASparkRestsAThirdOfTheWayAlong)
{
    const std::vector<float> path = {0, 0, 1, 10, 2, 20, 3, 30, 4, 40, 5, 50, 6, 60, 7, 70};
    float x, y;
    for (const float t : {0.875f, 0.9f, 0.99f, 1.0f, 2.0f}) {
        FX_Scroller_Intro::SamplePath(t, &x, &y, path); // index 6, next 2, and all of the weight on next
        EXPECT_FLOAT_EQ(2.0f, x) << t;
        EXPECT_FLOAT_EQ(20.0f, y) << t;
    }
    FX_Scroller_Intro::SamplePath(-3, &x, &y, path);
    EXPECT_EQ(0.0f, x);
}

TEST_F(FX_Scroller_IntroRecorded, TheThirdIsThatOfTheStepThatWasReached)
{
    const std::vector<float> path = {0, 0, 1, 10, 2, 20, 3, 30}; // n = 4
    float x, y;
    FX_Scroller_Intro::SamplePath(0.9f, &x, &y, path); // step 3 is put back to 2, and a third of 2 is 0
    EXPECT_EQ(0.0f, x);
    EXPECT_EQ(0.0f, y);
}

TEST_F(FX_Scroller_IntroRecorded, APathOfTwoPointsIsAPath)
{
    const std::vector<float> path = {0, 0, 8, 16};
    float x = 5, y = 5;
    FX_Scroller_Intro::SamplePath(0.25f, &x, &y, path);
    EXPECT_EQ(4.0f, x);
    EXPECT_EQ(8.0f, y);
    FX_Scroller_Intro::SamplePath(0.75f, &x, &y, path);
    EXPECT_EQ(0.0f, x);
    EXPECT_EQ(0.0f, y);
}

// 11 times the first float below 5/11 is 5 after rounding: step 5 is reached a hair too early.
TEST_F(FX_Scroller_IntroRecorded, WhereAStepIsRoundedUpTheSparkStandsOnItsPoint)
{
    const std::vector<float> path = {-5, -50, -4, -40, -3, -30, -2, -20, -1, -10, 0,
                                     0,  1,   10, 2,   20, 3,   30, 4,   40, 5,   50};
    float x, y;
    FX_Scroller_Intro::SamplePath(0.454545438f, &x, &y, path);
    EXPECT_EQ(0.0f, x) << "nor a hair before it";
    EXPECT_EQ(0.0f, y);
}

TEST_F(FX_Scroller_IntroRecorded, APathOfLessThanTwoPointsMovesNobody)
{
    float x = 5, y = 6;
    FX_Scroller_Intro::SamplePath(0.5f, &x, &y, {});
    FX_Scroller_Intro::SamplePath(0.5f, &x, &y, {1, 2});
    EXPECT_EQ(5.0f, x);
    EXPECT_EQ(6.0f, y);
}

TEST_F(FX_Scroller_IntroRecorded, UpdateMovesAllParticlesLitOrNot)
{
    intro.particles[0].pathPos = 0.5f;
    intro.particles[1].pathPos = 0.96f;
    intro.particles[2].life = 2;
    intro.particles[3].life = -1;
    PassTime(0.5);
    intro.Update();
    EXPECT_FLOAT_EQ(0.555f, intro.particles[0].pathPos);
    EXPECT_EQ(0.0f, intro.particles[1].pathPos) << "at 1 or more it starts anew, at 0 and not at the rest";
    EXPECT_FLOAT_EQ(2 - 0.5f * 2 * 1.2f, intro.particles[2].life);
    EXPECT_EQ(-1.0f, intro.particles[3].life) << "below 0 it stays";
    for (int i = 0; i < 2000; i++) {
        float x = 0, y = 0;
        FX_Scroller_Intro::SamplePath(intro.particles[i].pathPos, &x, &y, intro.paths[i % 9]);
        ASSERT_EQ(x, intro.particles[i].x);
        ASSERT_EQ(y, intro.particles[i].y);
    }
}

TEST_F(FX_Scroller_IntroRecorded, ASparkAtTheVeryEndOfItsPathStartsAnew)
{
    intro.particles[4].pathPos = 1;
    intro.Update(); // in a frame without a length
    EXPECT_EQ(0.0f, intro.particles[4].pathPos);
    EXPECT_EQ(intro.paths[4][0], intro.particles[4].x);
    EXPECT_EQ(intro.paths[4][1], intro.particles[4].y);
}

// The C sequence as it is written down, apart from the engine's.
static unsigned sequence = 1;
static int NextOfSequence()
{
    sequence = sequence * 214013u + 2531011u;
    return int(sequence >> 16 & 0x7fff);
}

TEST_F(FX_Scroller_IntroRecorded, FlashesLightSparksFromTheProcessesRandomSequence)
{
    SeedRandom(77);
    sequence = 77;
    std::vector<float> lives(2000, 0);
    const float bases[4] = {2, 1.5f, 1, 2};
    for (int flash = 0; flash < 4; flash++) {
        Send(&intro, "light_flash", {1, 2});
        EXPECT_EQ(-842150450 + flash, intro.flashCount);
        for (int i = 0; i < 150; i++) {
            const int j = NextOfSequence() % 2000;
            lives[j] = bases[flash] + NextOfSequence() % 500 / 250.0f;
        }
        for (int i = 0; i < 2000; i++) {
            ASSERT_EQ(lives[i], intro.particles[i].life) << flash << " " << i;
            ASSERT_LE(intro.particles[i].life, 3.996f);
        }
    }
}

TEST_F(FX_Scroller_IntroRecorded, WithoutASeedTheSequenceStartsAsAfterOne)
{
    sequence = 1;
    Send(&intro, "light_flash");
    const int j = NextOfSequence() % 2000;
    bool hitAgain = false;
    const float life = 2 + NextOfSequence() % 500 / 250.0f;
    for (int i = 1; i < 150; i++) {
        hitAgain |= NextOfSequence() % 2000 == j;
        NextOfSequence();
    }
    EXPECT_FALSE(hitAgain);
    EXPECT_EQ(life, intro.particles[j].life);
}

TEST_F(FX_Scroller_IntroRecorded, TheSkyRisesFromBlackThroughAWarmTint)
{
    for (const double t : {0.0, 2.0, 4.0, 4.64, 5.0, 80.0}) {
        intro.SetLocalTime(float(t));
        Frame(&intro);
        const double v = std::min(t * t * t * 0.01, 1.0);
        const double c = std::cos((1 - v) * pi / 2);
        for (int i = 0; i < 4; i++) {
            const std::string name = "sky-background_0" + std::to_string(i + 1) + ".jpg";
            const gl::Draw sky = Of(name.c_str());
            EXPECT_TRUE(gl::HasColour(sky, {c, c, c * c, 1}, 1e-5)) << t;
            const double x = i;
            EXPECT_TRUE(gl::IsQuad(sky, {{0, 0, x, 1}, {1, 0, x + 1, 1}, {1, 1, x + 1, 0}, {0, 1, x, 0}}));
            EXPECT_TRUE(gl::Blends(sky, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
            EXPECT_TRUE(gl::TestsDepth(sky, false));
            EXPECT_TRUE(gl::IsMatrix(sky.projection, gl::Ortho(0, 1, 0, 1)));
            EXPECT_TRUE(gl::IsMatrix(sky.modelview, gl::Identity()));
        }
    }
}

TEST_F(FX_Scroller_IntroRecorded, ItsFadeIsTracedOncePerTile)
{
    debugText.clear();
    intro.Render();
    EXPECT_EQ(
        "fadeout time: 1.000000\nfadeout time: 1.000000\nfadeout time: 1.000000\nfadeout time: 1.000000\n",
        debugText);
}

TEST_F(FX_Scroller_IntroRecorded, BeforeTheFirstFlashNoSparkIsDrawn)
{
    Scroll(30, 0.25);
    intro.Update();
    Frame(&intro);
    EXPECT_TRUE(Sparks().empty());
}

TEST_F(FX_Scroller_IntroRecorded, AFlashInTheFirstFrameShowsNoSparkBeforeUpdateHasPlacedIt)
{
    for (const double seconds : {0.0, 40.0, 60.0}) { // the panorama at 0, -1.4 and -3.5
        Scroll(seconds, 0.25);
        Init(&intro);
        Send(&intro, "light_flash");
        Frame(&intro);
        EXPECT_TRUE(Sparks().empty()) << seconds;
    }
}

TEST_F(FX_Scroller_IntroRecorded, WhicheverSparkIsLitNoneShowsBeforeUpdateHasPlacedIt)
{
    for (ScrollerParticle& particle : intro.particles)
        particle.life = 1;
    Frame(&intro);
    EXPECT_TRUE(Sparks().empty());
}

TEST_F(FX_Scroller_IntroRecorded, SparksOfAFlashInTheFirstFrameShowFromTheSecondOn)
{
    Scroll(30, 0.25);
    Send(&intro, "light_flash");
    Frame(&intro);
    intro.Update();
    Frame(&intro);
    EXPECT_FALSE(Sparks().empty());
}

TEST_F(FX_Scroller_IntroRecorded, ASparkIsDrawnWhereItStandsAsBrightAsItLives)
{
    Scroll(20, 0.25); // the panorama at -0.7
    Light(5, 1.5f, 0.25f, 0.5f, 2);
    Frame(&intro);
    ASSERT_EQ(1u, Sparks().size());
    const gl::Draw spark = Sparks()[0];
    const double half = (1.5 * 1.5 / 30 + 0.06) / 2;
    EXPECT_TRUE(gl::IsQuadIn(
        spark, gl::Translation(1.25 - 0.7, 0.5, 0),
        {{0, 0, -half, half}, {1, 0, half, half}, {1, 1, half, -half}, {0, 1, -half, -half}}, 1e-5));
    EXPECT_TRUE(gl::HasColour(spark, {3.375, 3.375, 3.375}));
    EXPECT_TRUE(gl::Blends(spark, GL_ONE, GL_ONE));
    EXPECT_EQ(4.0f, spark.state->pointSize);
}

TEST_F(FX_Scroller_IntroRecorded, ThreePathsToASkyPictureAndNoneInTheFirst)
{
    Scroll(60, 0.25); // at -2.1
    for (int path = 0; path < 18; path++) {
        Light(path, 1, 0.5f, 0.5f, path);
        const int tile = 1 + path % 9 / 3;
        Frame(&intro);
        if (tile == 2) { // 2.5 - 2.1
            ASSERT_EQ(1u, Sparks().size()) << path;
            EXPECT_NEAR(0.4, gl::EyeMiddle(Sparks()[0]).x, 1e-4);
        } else {
            EXPECT_TRUE(Sparks().empty()) << path << ": its centre is off the screen";
        }
        intro.particles[path].life = 0;
    }
    Light(0, 1, 0.9f, 0.5f, 8); // 3.9 - 2.1
    Scroll(25, 0.25);           // at -2.975
    Frame(&intro);
    EXPECT_EQ(1u, Sparks().size());
}

TEST_F(FX_Scroller_IntroRecorded, ASparkIsOnTheScreenFromEdgeToEdge)
{
    for (const float x : {-1.0f, -0.5f, 0.0f}) { // tile 1, panorama at 0
        Light(0, 1, x, 0.5f, 0);
        Frame(&intro);
        EXPECT_EQ(1u, Sparks().size()) << x;
    }
    for (const float x : {-1.01f, 0.01f}) {
        Light(0, 1, x, 0.5f, 0);
        Frame(&intro);
        EXPECT_TRUE(Sparks().empty()) << x;
    }
    Light(0, 0, -0.5f, 0.5f, 0);
    Frame(&intro);
    EXPECT_TRUE(Sparks().empty()) << "dark";
}

TEST_F(FX_Scroller_IntroRecorded, AllSparksGoOutInOneDrawAndInTheirOrder)
{
    for (const int i : {1900, 7, 400})
        Light(i, 1 + i / 1000.0f, -0.5f, i / 2000.0f, 0);
    Frame(&intro);
    EXPECT_EQ(1u, gl::DrawsWithTexture("partikel_2.jpg").size());
    ASSERT_EQ(3u, Sparks().size());
    EXPECT_NEAR(7 / 2000.0, gl::EyeMiddle(Sparks()[0]).y, 1e-6);
    EXPECT_NEAR(0.2, gl::EyeMiddle(Sparks()[1]).y, 1e-6);
    EXPECT_NEAR(0.95, gl::EyeMiddle(Sparks()[2]).y, 1e-6);
    EXPECT_TRUE(gl::HasColour(Sparks()[1], {2.744, 2.744, 2.744}, 1e-5));
}

TEST_F(FX_Scroller_IntroRecorded, TheBrightestSparkIsSaturatedAndLarge)
{
    Light(0, 3.996f, -0.5f, 0.5f, 0);
    Frame(&intro);
    const gl::Draw spark = Sparks().at(0);
    EXPECT_NEAR(63.8, spark.vertices[0].colour.r, 0.05);
    EXPECT_NEAR(0.592, spark.vertices[1].object.x - spark.vertices[0].object.x, 0.001);
}

TEST_F(FX_Scroller_IntroRecorded, ALitSparkStaysLit)
{
    Light(0, 2, 0, 0, 0);
    for (int i = 0; i < 200; i++) {
        PassTime(0.25);
        intro.Update();
    }
    EXPECT_GT(intro.particles[0].life, 0.0f);
    EXPECT_LT(intro.particles[0].life, 1e-10f);
}

// The picture of a layer at its scroll.
struct LayerFacts {
    const char* picture;
    double place, speed, slope, left, bottom, right, top, v;
};

TEST_F(FX_Scroller_IntroRecorded, LayersMoveAtTheirOwnSpeeds)
{
    const LayerFacts layers[4] = {
        {"tessel-logo.png", 1.5, 1, 3, 0.15, 0.15, 0.85, 0.85, 1},
        {"black-chick.png", 2.7, 1.2, 0, 0, 0, 0.42, 1.01, 0.669921875},
        {"waldsterben.png", 4.3, 1.2, 0, 0, 0, 1, 0.5, 1},
        {"waldsterben2.png", 6.1, 1.4, 0, 0, 0, 1, 0.5, 1},
    };
    for (int moment = 0; moment < 3; moment++) {
        Frame(&intro);
        const double layerScroll = -0.07 * 24 * moment;
        for (const LayerFacts& layer : layers) {
            const gl::Draw draw = Of(layer.picture);
            const double x = layer.place + layer.speed * layerScroll;
            EXPECT_TRUE(gl::IsMatrix(draw.modelview, gl::Translation(x, 0, 0), 1e-4)) << layer.picture;
            EXPECT_TRUE(gl::IsQuad(draw, {{0, 0, layer.left, layer.top},
                                          {1, 0, layer.right, layer.top},
                                          {1, layer.v, layer.right, layer.bottom},
                                          {0, layer.v, layer.left, layer.bottom}}));
            const double a = x < 0.1 ? (x - 0.1) * layer.slope + 1 : 1;
            EXPECT_TRUE(gl::HasColour(draw, {1, 1, 1, a}, 1e-3)) << layer.picture << " " << x;
            EXPECT_TRUE(gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
            EXPECT_TRUE(gl::TestsDepth(draw, false));
        }
        Scroll(24, 0.25);
    }
}

TEST_F(FX_Scroller_IntroRecorded, TheClosingLogoIsFixedToTheLastSkyAndHidden)
{
    Scroll(70, 0.25);
    Frame(&intro);
    const gl::Draw logo = Of("moonwaltz-logo.png");
    EXPECT_TRUE(gl::IsQuad(logo, {{0, 0, 0.23046875, 0.78515625},
                                  {1, 0, 0.7294921875, 0.78515625},
                                  {1, 1, 0.7294921875, 0.287109375},
                                  {0, 1, 0.23046875, 0.287109375}}));
    EXPECT_TRUE(gl::HasColour(logo, {1, 1, 1, 0})) << "without its message it never shows";
    EXPECT_TRUE(gl::Blends(logo, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_TRUE(gl::IsMatrix(logo.modelview, gl::Translation(3 - 70 * 0.035, 0, 0), 1e-3));
}

TEST_F(FX_Scroller_IntroRecorded, TheLogoRisesInRenderAtRateOne)
{
    Send(&intro, "fadein_logo", {1});
    PassTime(0.25);
    Frame(&intro);
    EXPECT_TRUE(gl::HasColour(Of("moonwaltz-logo.png"), {1, 1, 1, 0.25}));
    intro.Update();
    Frame(&intro);
    EXPECT_TRUE(gl::HasColour(Of("moonwaltz-logo.png"), {1, 1, 1, 1 - 0.75 * 0.75}));
}

TEST_F(FX_Scroller_IntroRecorded, FadeoutTakesTheSkyAndAtTheEndTheLogo)
{
    Send(&intro, "fadein_logo");
    for (int i = 0; i < 40; i++) {
        PassTime(0.5);
        intro.Render();
    }
    StartTimer();
    Light(0, 2, -0.5f, 0.5f, 0);
    Send(&intro, "fadeout", {1});
    PassTime(0.25);
    intro.Update();
    EXPECT_EQ(0.75f, intro.fade);
    StartTimer();
    intro.SetLocalTime(10);
    Frame(&intro);
    EXPECT_NEAR(0.75, Of("sky-background_02.jpg").vertices[0].colour.a, 1e-6);
    EXPECT_NEAR(1.0, Of("moonwaltz-logo.png").vertices[0].colour.a, 1e-4);
    intro.fade = 0.05f;
    Frame(&intro);
    EXPECT_NEAR(1.0, Of("moonwaltz-logo.png").vertices[0].colour.a, 1e-4);
    intro.fade = 0.04f;
    Frame(&intro);
    EXPECT_NEAR(0.8, Of("moonwaltz-logo.png").vertices[0].colour.a, 1e-4);
    EXPECT_TRUE(gl::HasColour(Of("waldsterben2.png"), {1, 1, 1, 1})) << "layers stay";
}

TEST_F(FX_Scroller_IntroRecorded, ALogoThatIsHalfUpIsNotMadeBrighterByTheFade)
{
    Send(&intro, "fadein_logo");
    PassTime(0.25);
    intro.Render();
    StartTimer();
    for (const float fade : {0.75f, 0.08f, 0.06f, 0.05f}) {
        intro.fade = fade;
        Frame(&intro);
        EXPECT_NEAR(0.25, Of("moonwaltz-logo.png").vertices[0].colour.a, 1e-5) << fade;
    }
}

TEST_F(FX_Scroller_IntroRecorded, WithoutFadeoutTheFadeStays)
{
    PassTime(1);
    intro.Update();
    EXPECT_EQ(1.0f, intro.fade);
}

// The table of what a viewer sees, with frames of these lengths.
class FX_Scroller_IntroMoments : public FX_Scroller_IntroRecorded,
                                 public testing::WithParamInterface<std::vector<double>>
{
};

TEST_P(FX_Scroller_IntroMoments, TheMomentsOfTheScrollComeTrue)
{
    const std::vector<double> steps = GetParam();
    double t = 0;
    size_t n = 0;
    std::map<std::string, double> moments;
    auto note = [&](const char* what, bool happened) {
        if (happened && !moments.count(what))
            moments[what] = t;
    };
    while (t < 90) {
        Frame(&intro);
        note("sky up", Of("sky-background_01.jpg").vertices[0].colour.b > 0.99999f);
        note("tessel enters", Left("tessel-logo.png") < 1);
        note("tessel fades", Of("tessel-logo.png").vertices[0].colour.a < 1);
        note("chick enters", Left("black-chick.png") < 1);
        note("tessel at the edge", TesselX() < 0);
        note("tessel gone", Of("tessel-logo.png").vertices[0].colour.a <= 0);
        note("chick left", Right("black-chick.png") < 0);
        note("wood enters", Left("waldsterben.png") < 1);
        note("wood left", Right("waldsterben.png") < 0);
        note("second wood enters", Left("waldsterben2.png") < 1);
        note("second wood left", Right("waldsterben2.png") < 0);
        note("logo's place enters", Left("moonwaltz-logo.png") < 1);
        note("brake", PanoramaScroll() < -2.95);
        note("stop", PanoramaScroll() < -3);
        const double step = steps[n++ % steps.size()];
        PassTime(step);
        intro.AddLocalTime(FrameTimer::GetDelta());
        t += step;
    }
    const double slack = 0.12;
    EXPECT_NEAR(4.64, moments["sky up"], slack);
    EXPECT_NEAR(9.3, moments["tessel enters"], slack);
    EXPECT_NEAR(20.0, moments["tessel fades"], slack);
    EXPECT_NEAR(20.2, moments["chick enters"], slack);
    EXPECT_NEAR(21.4, moments["tessel at the edge"], slack);
    EXPECT_NEAR(24.8, moments["tessel gone"], slack);
    EXPECT_NEAR(37.1, moments["chick left"], slack);
    EXPECT_NEAR(39.3, moments["wood enters"], slack);
    EXPECT_NEAR(63.1, moments["wood left"], slack);
    EXPECT_NEAR(52.0, moments["second wood enters"], slack);
    EXPECT_NEAR(72.4, moments["second wood left"], slack);
    EXPECT_NEAR(63.7, moments["logo's place enters"], slack);
    EXPECT_NEAR(84.3, moments["brake"], slack);
    EXPECT_NEAR(85.8, moments["stop"], slack);
}

INSTANTIATE_TEST_SUITE_P(AtAnyRate, FX_Scroller_IntroMoments,
                         testing::Values(std::vector<double>{1.0 / 60}, std::vector<double>{1.0 / 30},
                                         std::vector<double>{1.0 / 60, 1.0 / 20, 1.0 / 90}));

TEST_F(FX_Scroller_IntroRecorded, TheScrollBrakesOnItsLastStretch)
{
    Scroll(84, 0.25); // -2.94
    PassTime(0.25);   // -2.94875
    Frame(&intro);
    EXPECT_NEAR(-2.94875, PanoramaScroll(), 1e-4);
    StartTimer();
    PassTime(0.25);
    Frame(&intro); // crosses -2.95: a whole step, then one scaled by k = 1 - 0.0075
    const double k = 1 - 0.0075;
    EXPECT_NEAR(-2.9575 - 0.00875 * k, PanoramaScroll(), 1e-4);
    const double layer = 2 * (-2.9575 - 0.00875 * k);
    EXPECT_NEAR(4.3 + 1.2 * layer, Of("waldsterben.png").modelview.m[12], 4e-4);
}

TEST_F(FX_Scroller_IntroRecorded, ALongFrameRunsPastTheEndAndThereItStays)
{
    PassTime(100);
    Frame(&intro); // -3.5, and then a scaled step: k = 1 - 3.5 + 2.95 = 0.45
    EXPECT_NEAR(-3.5 - 3.5 * 0.45, PanoramaScroll(), 1e-4);
    EXPECT_NEAR(1.5 - 7 - 7 * 0.45, TesselX(), 1e-4);
    PassTime(1);
    Frame(&intro);
    EXPECT_NEAR(-3.5 - 3.5 * 0.45, PanoramaScroll(), 1e-4);
}

TEST_F(FX_Scroller_IntroRecorded, TheShowComesToRestALittlePastMinusThree)
{
    Scroll(100, 0.25);
    Frame(&intro);
    EXPECT_LT(PanoramaScroll(), -3.0);
    EXPECT_GT(PanoramaScroll(), -3.01);
}

// The lengths of two frames that end on the two limits to the last bit. Neither limit is crossed yet then.
TEST_F(FX_Scroller_IntroRecorded, AtExactlyEachLimitItStillScrolls)
{
    PassTime(84.2857132);
    Frame(&intro);
    ASSERT_EQ(double(-2.95f), PanoramaScroll()) << "no scaled step yet";
    PassTime(0.723440945);
    Frame(&intro); // a whole step of 0.0253 and one scaled by k = 1 - 0.0253
    ASSERT_EQ(-3.0, PanoramaScroll());
    PassTime(0.5);
    Frame(&intro); // a step scaled by k = 1 - 0.05
    EXPECT_NEAR(-3 - 0.5 * 0.035 * 0.95, PanoramaScroll(), 1e-5);
    const double there = PanoramaScroll();
    PassTime(0.5);
    Frame(&intro);
    EXPECT_EQ(there, PanoramaScroll());
}

TEST_F(FX_Scroller_IntroRecorded, ASecondInitKeepsTheScrollTheFlashesAndTheLogoAndDoublesThePaths)
{
    Scroll(20, 0.25);
    Send(&intro, "light_flash");
    Send(&intro, "fadein_logo");
    Send(&intro, "fadeout");
    PassTime(0.5);
    intro.Render();
    intro.Update();
    StartTimer();
    Init(&intro);
    EXPECT_EQ(-842150450, intro.flashCount);
    EXPECT_EQ(1.0f, intro.fade);
    EXPECT_EQ(128u * 2, intro.paths[0].size());
    EXPECT_EQ(intro.paths[0][0], intro.paths[0][128]);
    EXPECT_EQ(0.0f, intro.particles[7].life);
    Frame(&intro);
    EXPECT_NEAR(-0.7 - 0.0175, PanoramaScroll(), 1e-4);
    EXPECT_NEAR(0.5, Of("moonwaltz-logo.png").vertices[0].colour.a, 1e-4);
    PassTime(0.5);
    intro.Update();
    EXPECT_EQ(1.0f, intro.fade) << "the fade-out is over";
}

TEST_F(FX_Scroller_IntroRecorded, AnotherObjectGoesOnWhereTheScrollIs)
{
    Scroll(20, 0.25);
    FX_Scroller_Intro again;
    Prepare(&again);
    Frame(&again);
    EXPECT_NEAR(-0.7, PanoramaScroll(), 1e-4);
}

TEST_F(FX_Scroller_IntroRecorded, ThePassesFollowEachOther)
{
    Light(0, 1, -0.5f, 0.5f, 0);
    Frame(&intro);
    std::vector<std::string> pictures;
    for (const gl::Draw& draw : gl::Draws())
        pictures.push_back(gl::TextureLabel(draw.Texture()));
    EXPECT_EQ((std::vector<std::string>{"sky-background_01.jpg", "sky-background_02.jpg",
                                        "sky-background_03.jpg", "sky-background_04.jpg", "partikel_2.jpg",
                                        "tessel-logo.png", "black-chick.png", "waldsterben.png",
                                        "waldsterben2.png", "moonwaltz-logo.png"}),
              pictures);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_Scroller_IntroRecorded, LeavesTheDepthTestOnBlendingOffAndTheProjectionAsItWas)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    Frame(&intro);
    EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_EQ(GLenum(GL_SRC_ALPHA), gl::Now().blendSource);
    EXPECT_EQ(GLenum(GL_ONE_MINUS_SRC_ALPHA), gl::Now().blendDestination);
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(FX_Scroller_IntroRecorded, UnknownMessagesAreIgnored)
{
    intro.ReceiveMessage(0, nullptr, 0);
    intro.ReceiveMessage(99, nullptr, 0);
    EXPECT_EQ(-842150451, intro.flashCount);
    PassTime(1);
    intro.Update();
    EXPECT_EQ(1.0f, intro.fade);
    Frame(&intro);
    EXPECT_TRUE(gl::HasColour(Of("moonwaltz-logo.png"), {1, 1, 1, 0}));
}
