// SPDX-License-Identifier: MIT
#include "effects/FX_Credits.h"

#include "math/Tree.h"
#include "tests/support/recorder/EffectFixture.h"

#include <cmath>

static const double pi = 3.141; // the effect's figure

class FX_CreditsRecorded : public EffectFixture
{
protected:
    FX_CreditsRecorded() { Prepare(&credits); }
    void Step(double seconds)
    {
        PassTime(seconds);
        credits.Update();
    }
    void FadeIn(int times, const char* message = "fade_in")
    {
        for (int i = 0; i < times; i++)
            Send(&credits, message);
    }
    // What went into the off-screen target's context.
    static std::vector<gl::Draw> Scene() { return gl::DrawsInContext(2); }
    static gl::Draw Ground() { return gl::DrawsWithTexture("ackerbau_tiled2_2.jpg").at(0); }
    static std::vector<gl::Draw> LitCubes() { return gl::DrawsWithTexture("stoned.jpg"); }
    static gl::Draw Picture() // the quad with the blurred picture
    {
        for (const gl::Draw& draw : gl::DrawsInContext(1))
            if (draw.state->program != 0)
                return draw;
        ADD_FAILURE() << "no blurred picture";
        return gl::Draw();
    }
    gl::Matrix Camera() const
    {
        const double v = credits.growth, w = credits.wither;
        gl::Point eye(2, 5, -8), target(0, 1, 0);
        switch (std::max(0, std::min(credits.step / 2, 3))) {
        case 1:
            eye = {6 * std::cos(v) + 10, 4 * std::sin(v) + 5, 10};
            target = {0, 0, -10};
            break;
        case 2:
            eye = {15 * std::cos(v), 15 - 10 * std::sin(v), -12};
            target = {0, 1 - 3 * std::sin(v * 0.5 * pi), 0};
            break;
        case 3:
            eye = {-15 * std::cos(v + 1.51), 5 * v + 5, -12};
            target = {0, (1 - w) * 10 + 4, 0};
            break;
        default:
            break;
        }
        return gl::LookAt(eye, target, {0, 1, 0});
    }

    FX_Credits credits;
};

TEST_F(FX_CreditsRecorded, DeclaresItsMessagesInOrderAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"fade_in: NA", "fade_last_in: NA", "fade_out: NA"}),
              DeclaredMessages(&credits));
    EXPECT_FALSE(credits.IsInitialised());
}

TEST_F(FX_CreditsRecorded, AsksForItsPicturesAndItsShader)
{
    EXPECT_EQ((std::vector<std::string>{"stoned.jpg 1 1 1", "credit-fen_tarogato.png 1 1 1",
                                        "credit-ochre.png 1 1 1", "credit-dunmarrow.png 1 1 1",
                                        "credit-lowbeam.png 1 1 1", "ackerbau_tiled2_2.jpg 1 1 1"}),
              TextureRequests());
    ASSERT_EQ(1u, gl::Programs().size());
    EXPECT_EQ((std::vector<std::string>{"blur_intensity"}), gl::Programs()[0].uniformNames);
}

TEST_F(FX_CreditsRecorded, StartValues)
{
    EXPECT_EQ(0.5f, credits.growth);
    EXPECT_EQ(0.5f, credits.growthTarget);
    EXPECT_EQ(1.0f, credits.wither);
    EXPECT_EQ(0.0f, credits.brightness);
    EXPECT_EQ(-1, credits.step);
    EXPECT_EQ(-1, credits.creditIndex);
    EXPECT_EQ(0.0f, credits.creditFade);
    EXPECT_EQ(352362122, credits.treeSeed);
    EXPECT_EQ(0x15009E8A, credits.treeSeed);
    EXPECT_EQ(2, credits.tree->depth);
}

// A tree as it has to be: same seed, 1 high, radius 1.2 throughout.
static void ExpectTree(const Tree& tree, int seed, int depth)
{
    Tree expected(seed);
    expected.Generate(seed, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, depth);
    EXPECT_EQ(depth, tree.depth);
    ASSERT_EQ(expected.nodesUsed, tree.nodesUsed);
    EXPECT_EQ(expected.segmentCount, tree.segmentCount);
    EXPECT_EQ(expected.seed, tree.seed) << "the same draws";
    EXPECT_TRUE(tree.root->segments.empty()) << "the trunk has no cube";
    for (int i = 0; i < expected.nodesUsed; i++) {
        const std::vector<Matrix4>&a = expected.nodes[i].segments, &b = tree.nodes[i].segments;
        ASSERT_EQ(a.size(), b.size());
        for (size_t k = 0; k < a.size(); k++)
            ASSERT_TRUE(std::equal(a[k].m, a[k].m + 16, b[k].m)) << "cube " << k << " of branch " << i;
    }
}

class FX_CreditsCourses : public FX_CreditsRecorded, public testing::WithParamInterface<const char*>
{
};

TEST_P(FX_CreditsCourses, TheUsualCourse)
{
    ExpectTree(*credits.tree, 352362122, 2);
    // clang-format off
    struct {
        int step; double target; int credit; int depth; int seed;
    } const course[8] = {
        {0, 1.1, -1, 2, 352362122},
        {1, 1.7,  0, 2, 352362122},
        {2, 0.6,  0, 3, 352362123},
        {3, 1.2,  1, 3, 352362123},
        {4, 0.6,  1, 4, 352362124},
        {5, 1.2,  2, 4, 352362124},
        {6, 0.6,  2, 4, 352362125},
        {7, 1.2,  3, 4, 352362125},
    };
    // clang-format on
    for (const auto& c : course) {
        credits.growth = 0.75f;
        credits.creditFade = 0.125f;
        credits.treeGrowth = 0.5f;
        credits.wither = 0.5f;
        Send(&credits, GetParam(), {1});
        EXPECT_EQ(c.step, credits.step);
        EXPECT_NEAR(c.target, credits.growthTarget, 1e-5);
        EXPECT_EQ(c.credit, credits.creditIndex);
        EXPECT_EQ(c.seed, credits.treeSeed);
        EXPECT_EQ(1.0f, credits.wither);
        const bool planted = c.step > 0 && c.step % 2 == 0;
        EXPECT_EQ(planted ? 0.0f : 0.75f, credits.growth);
        EXPECT_EQ(planted ? 0.0f : 0.5f, credits.treeGrowth);
        EXPECT_EQ(c.step % 2 != 0 ? 1.0f : 0.125f, credits.creditFade);
        ExpectTree(*credits.tree, planted ? c.seed - 1 : std::max(352362122, c.seed - 1), c.depth);
        const float growth = credits.growth;
        Step(0.125); // at rate 1, with the ground coming up and nothing withering
        EXPECT_FLOAT_EQ(growth + 0.125f * (credits.growthTarget - growth), credits.growth);
        EXPECT_EQ(1.0f, credits.wither);
        EXPECT_GT(credits.brightness, 0.8f);
    }
}

INSTANTIATE_TEST_SUITE_P(OfEither, FX_CreditsCourses, testing::Values("fade_in", "fade_last_in"),
                         [](const testing::TestParamInfo<const char*>& message) {
                             return std::string(message.param);
                         });

TEST_F(FX_CreditsRecorded, PastTheLastStepTheLimitedMessageStillPlantsAndGrows)
{
    FadeIn(9); // to step 8, which has no camera of its own
    credits.growth = 0.75f;
    Send(&credits, "fade_last_in");
    EXPECT_EQ(8, credits.step) << "rises only while it is below 7";
    EXPECT_EQ(0.0f, credits.growth);
    EXPECT_NEAR(0.6, credits.growthTarget, 1e-6);
    EXPECT_EQ(352362127, credits.treeSeed);
    FadeIn(1); // to step 9
    EXPECT_EQ(4, credits.creditIndex);
    credits.creditFade = 0.5f;
    Send(&credits, "fade_last_in");
    EXPECT_EQ(9, credits.step);
    EXPECT_EQ(4, credits.creditIndex);
    EXPECT_EQ(0.5f, credits.creditFade);
}

TEST_F(FX_CreditsRecorded, UpdateFollowsItsRates)
{
    Step(0.5);
    EXPECT_EQ(0.5f, credits.growth) << "no rate before the first message";
    EXPECT_EQ(0.5f, credits.treeGrowth);
    FadeIn(1);
    Step(0.125);
    EXPECT_FLOAT_EQ(0.5f + 0.125f * 0.6f, credits.growth);
    EXPECT_FLOAT_EQ(0.125f * 7, credits.brightness);
    EXPECT_EQ(credits.growth, credits.treeGrowth);
    credits.creditFade = 1;
    Step(0.25);
    EXPECT_EQ(0.75f, credits.creditFade);
    Send(&credits, "fade_out", {1});
    Step(0.25);
    EXPECT_FLOAT_EQ(0.75f, credits.wither);
    EXPECT_FLOAT_EQ(credits.growth * 0.75f, credits.treeGrowth);
}

TEST_F(FX_CreditsRecorded, FadeOutWithersAndDarkensAndAFadeInBringsItBack)
{
    FadeIn(1);
    for (int i = 0; i < 100; i++)
        Step(0.0625);
    const float growth = credits.growth;
    Send(&credits, "fade_out");
    EXPECT_EQ(growth, credits.growth);
    for (int i = 0; i < 400; i++)
        Step(0.0625);
    EXPECT_LT(credits.treeGrowth, 0.001f);
    EXPECT_LT(credits.brightness, 0.001f);
    FadeIn(1);
    EXPECT_EQ(1.0f, credits.wither);
    Step(0.0625);
    EXPECT_GT(credits.treeGrowth, 1.0f) << "at once at full size";
    EXPECT_EQ(1.0f, credits.wither) << "and it withers no more";
    credits.wither = 0.3f;
    Send(&credits, "fade_out");
    EXPECT_EQ(1.0f, credits.wither) << "a second one starts from the whole";
}

TEST_F(FX_CreditsRecorded, FadeLastInStopsAtTheLastStepAndTheLastName)
{
    FadeIn(8, "fade_last_in");
    EXPECT_EQ(7, credits.step);
    EXPECT_EQ(3, credits.creditIndex);
    credits.creditFade = 0.5f;
    const float target = credits.growthTarget;
    FadeIn(3, "fade_last_in");
    EXPECT_EQ(7, credits.step);
    EXPECT_EQ(3, credits.creditIndex);
    EXPECT_EQ(0.5f, credits.creditFade) << "the name doesn't flare up again";
    EXPECT_NEAR(target + 1.8, credits.growthTarget, 1e-5) << "but the tree grows on";
}

TEST_F(FX_CreditsRecorded, TooManyFadeInsStayWithTheLastCameraAndName)
{
    FadeIn(10);
    EXPECT_EQ(9, credits.step);
    EXPECT_EQ(4, credits.creditIndex);
    Frame(&credits);
    EXPECT_EQ(3, credits.creditIndex) << "put back";
    EXPECT_EQ(1u, gl::DrawsWithTexture("credit-lowbeam.png").size()) << "ahead of the drawing of the name";
    EXPECT_TRUE(gl::IsMatrix(Ground().modelview, Camera(), 1e-3));
    FadeIn(4);
    credits.creditIndex = 5;
    Frame(&credits);
    EXPECT_EQ(5, credits.creditIndex);
    EXPECT_TRUE(gl::DrawsWithTexture("credit-ochre.png").empty()) << "above 4 no name is drawn";
}

TEST_F(FX_CreditsRecorded, TheSceneGoesOffTheScreenUnderItsCamera)
{
    const int steps[5] = {-1, 1, 3, 5, 7};
    for (const int step : steps) {
        credits.step = step;
        credits.growth = 0.8f;
        credits.wither = 0.6f;
        Frame(&credits);
        const gl::Draw ground = Ground();
        EXPECT_EQ(2, ground.state->context);
        EXPECT_NE(0u, ground.state->framebuffer);
        EXPECT_TRUE(gl::IsMatrix(ground.modelview, Camera(), 1e-3)) << step;
        EXPECT_TRUE(gl::HasViewport(ground, 0, 0, 512, 512));
        EXPECT_NEAR(1 / std::tan(22.5 * 3.14159265358979323846 / 180) / 1.33, ground.projection.m[0], 1e-5)
            << "of aspect 1.33";
    }
}

TEST_F(FX_CreditsRecorded, TheGroundIsAsBrightAsItsValue)
{
    credits.brightness = 0.5f;
    Frame(&credits);
    const gl::Draw ground = Ground();
    const double y = -0.01;
    EXPECT_TRUE(
        gl::IsQuad(ground, {{0, 0, -20, y, -20}, {1, 0, 20, y, -20}, {1, 1, 20, y, 20}, {0, 1, -20, y, 20}}));
    EXPECT_TRUE(gl::HasColour(ground, {0.75, 0.75, 0.75}));
    EXPECT_TRUE(gl::TestsDepth(ground, false));
    EXPECT_TRUE(gl::IsLit(ground, false));
}

TEST_F(FX_CreditsRecorded, TheTreeIsDrawnLitAndOnceMoreAsItsShadow)
{
    credits.treeGrowth = 1.2f;
    Frame(&credits);
    const std::vector<gl::Draw> lit = LitCubes();
    ASSERT_FALSE(lit.empty());
    const gl::Draw cube = lit[0];
    EXPECT_TRUE(gl::IsLit(cube));
    EXPECT_TRUE(cube.state->lights[0].on);
    const double length = std::sqrt(149.0);
    EXPECT_TRUE(gl::IsPoint(cube.state->lights[0].given, {0, 7 / length, 10 / length, 0}, 1e-6));
    EXPECT_TRUE(cube.state->Enabled(GL_COLOR_MATERIAL));
    EXPECT_EQ(GLenum(GL_FRONT_AND_BACK), cube.state->colourMaterialFace);
    EXPECT_EQ(GLenum(GL_DIFFUSE), cube.state->colourMaterialMode);
    EXPECT_TRUE(cube.state->Enabled(GL_NORMALIZE));
    EXPECT_TRUE(gl::TestsDepth(cube));
    EXPECT_TRUE(gl::HasColour(cube, {1, 1, 1}));

    std::vector<gl::Draw> shadow;
    for (const gl::Draw& draw : Scene())
        if (draw.event > lit.back().event)
            shadow.push_back(draw);
    ASSERT_EQ(lit.size(), shadow.size());
    const double flatten[16] = {1, 0, 0, 0, 0, 0, -10.0 / 7, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    for (size_t i = 0; i < lit.size(); i++) {
        ASSERT_TRUE(gl::HasColour(shadow[i], {0, 0, 0}));
        ASSERT_EQ(0u, shadow[i].Texture());
        ASSERT_TRUE(gl::IsLit(shadow[i], false));
        ASSERT_TRUE(gl::TestsDepth(shadow[i]));
    }
    // The shadow matrix comes ahead of the tree's own: camera * flatten * half a unit up, and the same cubes.
    EXPECT_TRUE(gl::IsMatrix(
        shadow[0].modelview,
        Camera() * gl::Translation(0, 0.1, 0) * gl::FromColumns(flatten) * gl::Translation(0, 0.5, 0), 1e-4));
    ASSERT_EQ(1u, lit.size());
    ASSERT_EQ(lit[0].vertices.size(), shadow[0].vertices.size());
    for (size_t i = 0; i < lit[0].vertices.size(); i++)
        ASSERT_TRUE(gl::IsPoint(shadow[0].vertices[i].object, lit[0].vertices[i].object));
}

TEST_F(FX_CreditsRecorded, ThePictureComesBackThroughTheBlur)
{
    credits.growth = 0.9f;
    Frame(&credits);
    const gl::Draw picture = Picture();
    EXPECT_EQ(1, picture.state->context);
    EXPECT_TRUE(gl::IsQuad(picture, {{0, 0, 0, 0}, {1, 0, 1, 0}, {1, 1, 1, 1}, {0, 1, 0, 1}}));
    EXPECT_TRUE(gl::HasColour(picture, {1, 1, 1}));
    EXPECT_TRUE(gl::HasViewport(picture, 0, 60, 800, 479)) << "the return to the window sets this band";
    EXPECT_TRUE(gl::TestsDepth(picture, false));
    EXPECT_TRUE(gl::IsMatrix(picture.modelview, gl::Identity()))
        << "the window's own, not the scene's camera";
    EXPECT_TRUE(gl::IsMatrix(picture.projection, gl::Ortho(0, 1, 0, 1)));
    EXPECT_TRUE(gl::HasUniform(picture, "blur_intensity", {0.15f}, 1e-6));
    EXPECT_NE(0u, picture.state->units[0].bound);
}

TEST_F(FX_CreditsRecorded, TheBlurFollowsTheGrowthUntilTheLastCamera)
{
    Frame(&credits);
    EXPECT_TRUE(gl::HasUniform(Picture(), "blur_intensity", {-0.25f}, 1e-6)) << "before the first message";
    credits.growth = 1.7f;
    credits.step = 5;
    Frame(&credits);
    EXPECT_TRUE(gl::HasUniform(Picture(), "blur_intensity", {0.95f}, 1e-6));
    credits.step = 6;
    Frame(&credits);
    EXPECT_TRUE(gl::HasUniform(Picture(), "blur_intensity", {0.25f}));
}

TEST_F(FX_CreditsRecorded, FourNamesStandInTheirPlaces)
{
    const char* const names[4] = {"credit-fen_tarogato.png", "credit-ochre.png", "credit-dunmarrow.png",
                                  "credit-lowbeam.png"};
    // clang-format off
    const double quads[4][4] = { // left, bottom, right, top
        {-0.05, 0.12, 1.6, 0.3 },
        { 0.3,  0.6,  0.9, 0.75},
        { 0.1,  0.15, 0.7, 0.3 },
        { 0.1,  0.75, 0.7, 0.9 },
    };
    // clang-format on
    const gl::Matrix places[4] = {gl::Translation(0.4, 0.2, 0) * gl::Scaling(0.6, 0.6, 1),
                                  gl::Translation(0.1, 0, 0), gl::Identity(), gl::Identity()};
    for (int i = 0; i < 4; i++) {
        credits.creditIndex = i;
        credits.creditFade = 0.9f;
        Frame(&credits);
        const std::vector<gl::Draw> draws = gl::DrawsWithTexture(names[i]);
        ASSERT_EQ(1u, draws.size()) << names[i];
        const double *q = quads[i], l = q[0], b = q[1], r = q[2], t = q[3];
        EXPECT_TRUE(gl::IsQuad(draws[0], {{0, 0, l, t}, {1, 0, r, t}, {1, 1, r, b}, {0, 1, l, b}}));
        EXPECT_TRUE(gl::IsMatrix(draws[0].modelview, places[i]));
        EXPECT_TRUE(gl::IsMatrix(draws[0].projection, gl::Ortho(0, 1, 0, 1)));
        EXPECT_TRUE(gl::HasColour(draws[0], {1, 1, 1, 2 * std::sin(0.9 * pi)}, 1e-5));
        EXPECT_TRUE(gl::Blends(draws[0], GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::TestsDepth(draws[0], false));
        EXPECT_EQ(1, draws[0].state->context);
    }
    // The first runs past the right edge of the screen, to 1.36.
    credits.creditIndex = 0;
    Frame(&credits);
    EXPECT_NEAR(1.36 * 800, gl::DrawsWithTexture(names[0]).at(0).vertices[1].window.x, 0.1);
}

TEST_F(FX_CreditsRecorded, ANameComesAtOnceStaysAndDies)
{
    double full = 0, fallen = 0, gone = 0;
    credits.creditIndex = 0;
    credits.creditFade = 1;
    for (int i = 0; i < 6 * 128; i++) {
        const double t = i / 128.0, alpha = 2 * std::sin(credits.creditFade * pi);
        if (full == 0 && alpha >= 1)
            full = t;
        if (full > 0 && fallen == 0 && alpha < 1)
            fallen = t;
        if (fallen > 0 && gone == 0 && alpha < 0.045)
            gone = t;
        Step(1.0 / 128);
    }
    EXPECT_NEAR(0.18, full, 0.02);
    EXPECT_NEAR(1.79, fallen, 0.02);
    EXPECT_NEAR(5.0, gone, 0.2);
}

TEST_F(FX_CreditsRecorded, BeforeTheFirstNameNoneIsDrawn)
{
    Frame(&credits);
    for (const char* name :
         {"credit-fen_tarogato.png", "credit-ochre.png", "credit-dunmarrow.png", "credit-lowbeam.png"})
        EXPECT_TRUE(gl::DrawsWithTexture(name).empty());
    EXPECT_EQ(1u, gl::DrawsInContext(1).size())
        << "the blurred picture, and no name without a picture either";
}

TEST_F(FX_CreditsRecorded, WhatRanBeforeDoesntReachTheScene)
{
    Frame(&credits); // whose lights and materials stay in the target's context
    Frame(&credits);
    const std::vector<gl::Draw> before = Scene();
    glEnable(GL_LIGHTING);
    glEnable(GL_FOG);
    glEnable(GL_CULL_FACE);
    glDisable(GL_TEXTURE_2D);
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(3, 4, 5);
    glClearColor(1, 0, 0, 1);
    gl::ClearRecords();
    credits.Render();
    const std::vector<gl::Draw> after = Scene();
    ASSERT_EQ(before.size(), after.size());
    for (size_t i = 0; i < before.size(); i++) {
        ASSERT_TRUE(gl::IsMatrix(after[i].modelview, before[i].modelview));
        ASSERT_EQ(before[i].state->enabled, after[i].state->enabled) << i;
        ASSERT_EQ(before[i].Texture(), after[i].Texture());
    }
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(3, 4, 5)))
        << "nor the scene's camera the window";
}

TEST_F(FX_CreditsRecorded, LeavesTheBandDepthAndBlendingOffAndTheProjectionAsItWas)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    glEnable(GL_DEPTH_TEST);
    Frame(&credits);
    EXPECT_EQ(479, gl::Now().viewport.height);
    EXPECT_FALSE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_EQ(0u, gl::Now().program);
    EXPECT_EQ(1, gl::GetContext());
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    EXPECT_TRUE(gl::StateOf(2).Enabled(GL_COLOR_MATERIAL));
    EXPECT_TRUE(gl::StateOf(2).Enabled(GL_NORMALIZE));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_CreditsRecorded, ASecondInitMakesAnotherTreeOfTheStepThatStands)
{
    FadeIn(3);
    const Tree* old = credits.tree;
    Init(&credits);
    EXPECT_NE(old, credits.tree);
    EXPECT_EQ(352362122, credits.treeSeed);
    EXPECT_EQ(2, credits.step);
    ExpectTree(*credits.tree, 352362122, 3);
}

TEST_F(FX_CreditsRecorded, UnknownMessagesAreIgnored)
{
    credits.ReceiveMessage(0, nullptr, 0);
    EXPECT_EQ(-1, credits.step);
    EXPECT_EQ(1.0f, credits.wither);
}
