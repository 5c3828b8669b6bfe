// SPDX-License-Identifier: MIT
#include "effects/FX_Path.h"

#include "effects/GlowTree.h"
#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/GLQuads.h"

#include <algorithm>
#include <cmath>

static const double pi = 3.141; // the effect's figure

class FX_PathRecorded : public EffectFixture
{
protected:
    FX_PathRecorded() { Prepare(&path); }
    void Step(double seconds)
    {
        PassTime(seconds);
        path.AddLocalTime(FrameTimer::GetDelta());
        path.Update();
    }
    // Frames without a delta, so that the walk stands.
    void Look()
    {
        StartTimer(FrameTimer::GetTime());
        Frame(&path);
    }
    static std::vector<gl::Draw> Of(const char* picture) { return gl::DrawsWithTexture(picture); }
    gl::Matrix Follow(double t) const
    {
        const double h = path.walked * 50, s = std::sin(path.walkSpeed * pi / 2);
        return gl::LookAt({h - 20 + (1 - s) * 10, (1 - s) * 10 + 1.4, 0}, Target(t), {0, 1, 0});
    }
    gl::Matrix Orbit(double t) const
    {
        return gl::LookAt(
            {20 * std::cos(t) + 64, 5 * std::cos(t) + 6 + std::cos(8 * path.pulse), 20 * std::sin(t) + 10},
            Target(t), {0, 1, 0});
    }
    gl::Point Target(double t) const
    {
        const double h = path.walked * 50, s = std::sin(path.walkSpeed * pi / 2);
        return {h - 14 + (1 - s) * 20 + 2 * std::sin(0.75 * t),
                (1 - path.edgeFade) * 1.7 + std::min(path.zoom / 5.5, 10.0) + std::sin(4.0 * path.pulse), 0};
    }
    static double FovY(const gl::Draw& draw)
    {
        return 2 * std::atan(1 / draw.projection.m[5]) * 180 / 3.14159265358979323846;
    }
    double LitNodes() const
    {
        return double(std::count_if(path.tree->nodes.begin(), path.tree->nodes.end(),
                                    [](const GlowNode* node) { return node->glow > 0; }));
    }

    FX_Path path;
};

TEST_F(FX_PathRecorded, DeclaresItsMessagesInOrderAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"flash_all: NA", "tree1: NA", "tree2: NA", "tree3: NA",
                                        "trigger_cam: NA", "flash_cam: NA"}),
              DeclaredMessages(&path));
    EXPECT_FALSE(path.IsInitialised());
}

TEST_F(FX_PathRecorded, AsksForItsPicturesInOrder)
{
    EXPECT_EQ((std::vector<std::string>{"budentextur.jpg 1 1 1", "licht-an.png 1 1 1", "licht-aus.png 1 1 1",
                                        "teststreifen.png 1 1 1", "partikel_2.jpg 1 1 1",
                                        "ackerbau_tiled3.jpg 1 1 1", "ackerbau_tiled2.jpg 1 1 1",
                                        "skybox_left.jpg 1 0 1", "skybox_back.jpg 1 0 1",
                                        "skybox_right.jpg 1 0 1", "skybox_top.jpg 1 0 1", "ring.jpg 1 1 1"}),
              TextureRequests());
    EXPECT_EQ(1864u, path.tree->nodes.size());
}

TEST_F(FX_PathRecorded, StartValues)
{
    EXPECT_EQ(0.0f, path.zoom);
    EXPECT_EQ(0.0f, path.zoomTarget);
    EXPECT_EQ(0.0f, path.pulse);
    EXPECT_EQ(0, path.treeHits);
    EXPECT_FALSE(path.triggered);
    EXPECT_EQ(1.0f, path.walkSpeed);
    EXPECT_EQ(1.0f, path.stripFade);
    EXPECT_EQ(0.0f, path.walked);
    EXPECT_EQ(1.0f, path.edgeFade);
}

TEST_F(FX_PathRecorded, UpdateLetsEachValueDecayAtItsRate)
{
    path.pulse = 1;
    path.zoomTarget = 2;
    Step(0.125);
    EXPECT_EQ(0.75f, path.stripFade);
    EXPECT_EQ(1.0f, path.walkSpeed) << "brakes only when triggered";
    EXPECT_EQ(0.875f, path.edgeFade);
    EXPECT_EQ(0.5f, path.pulse);
    EXPECT_EQ(0.25f, path.zoom);
    path.tree->nodes[5]->glow = 1;
    Step(0.125);
    EXPECT_EQ(1.0f, path.tree->nodes[5]->glow) << "the tree stands still as well";
    Send(&path, "trigger_cam", {1});
    EXPECT_TRUE(path.triggered);
    Step(0.125);
    EXPECT_EQ(1 - 0.125f * 0.5f, path.walkSpeed);
    EXPECT_EQ(0.875f, path.tree->nodes[5]->glow);
}

TEST_F(FX_PathRecorded, TheWalkMovesInRender)
{
    PassTime(0.5);
    Frame(&path);
    EXPECT_FLOAT_EQ(0.5f * 0.075f, path.walked);
    path.Update();
    EXPECT_FLOAT_EQ(0.5f * 0.075f, path.walked);
    path.walkSpeed = 0.5f;
    Frame(&path);
    EXPECT_FLOAT_EQ(0.5f * 0.075f * 1.5f, path.walked);
}

TEST_F(FX_PathRecorded, TheHeadWouldReachThePlazaAfterSeventeenSeconds)
{
    double t = 0;
    while (path.walked * 50 < 64) {
        PassTime(1.0 / 32);
        gl::Pause();
        path.Render();
        gl::Resume();
        t += 1.0 / 32;
    }
    EXPECT_NEAR(17.07, t, 0.1);
    EXPECT_NEAR(3.75, 64 / t, 0.02);
}

TEST_F(FX_PathRecorded, TheCameraFollowsFromBehindAndRises)
{
    for (const double t : {0.0, 1.5, 6.0}) {
        path.SetLocalTime(float(t));
        path.walked = float(t * 0.075);
        path.edgeFade = float(std::exp(-t));
        Look();
        const gl::Draw house = Of("budentextur.jpg").at(0);
        EXPECT_TRUE(gl::IsMatrix(house.modelview, Follow(t) * gl::Translation(0, 0, -4), 2e-3)) << t;
        EXPECT_NEAR(70.0, FovY(house), 1e-4);
    }
}

TEST_F(FX_PathRecorded, AfterTriggerCamTheCameraLiftsAndTheWalkStopsASevenAndAHalfFurther)
{
    Send(&path, "trigger_cam");
    gl::Pause();
    for (int i = 0; i < 30 * 64; i++) {
        PassTime(1.0 / 64);
        path.Render();
        path.Update();
    }
    gl::Resume();
    EXPECT_NEAR(7.5, path.walked * 50, 0.1);
    path.walkSpeed = 0.3f;
    path.SetLocalTime(1);
    Look();
    EXPECT_TRUE(
        gl::IsMatrix(Of("budentextur.jpg").at(0).modelview, Follow(1) * gl::Translation(0, 0, -4), 2e-3));
}

TEST_F(FX_PathRecorded, TreeMessagesBeforeTriggerCamDoNotCount)
{
    for (const char* message : {"tree1", "tree2", "tree3"})
        Send(&path, message);
    EXPECT_EQ(0, path.treeHits);
    EXPECT_EQ(0.0f, path.pulse);
    EXPECT_EQ(0.0f, path.zoom);
    EXPECT_EQ(0.0, LitNodes());
    Frame(&path);
    EXPECT_TRUE(Of("partikel_2.jpg").empty()) << "and the tree isn't drawn";
}

TEST_F(FX_PathRecorded, Tree1FollowsItsRuleOfThrees)
{
    Send(&path, "trigger_cam");
    const float pulses[9] = {0.5f, 0.5f, 2, 0.5f, 0.5f, -1, 0.5f, 0.5f, -1};
    for (int hit = 1; hit <= 9; hit++) {
        path.pulse = -1;
        for (GlowNode* node : path.tree->nodes)
            node->flash = 0;
        Send(&path, "tree1");
        EXPECT_EQ(hit, path.treeHits);
        EXPECT_EQ(pulses[hit - 1], path.pulse) << "hit " << hit;
        const bool flew = std::any_of(path.tree->nodes.begin(), path.tree->nodes.end(),
                                      [](const GlowNode* node) { return node->flash > 0; });
        EXPECT_EQ(hit % 3 != 0 || hit == 3, flew) << "hit " << hit;
    }
}

// How much light is in the tree tells how many sparks and flashes there were.
static double Light(const FX_Path& path)
{
    double sum = 0;
    for (const GlowNode* node : path.tree->nodes)
        sum += node->glow;
    return sum;
}

TEST_F(FX_PathRecorded, TheNumberOfSparksAndFlashesIsFixed)
{
    double perSpark = 0;
    for (int k = 0; k <= 8; k++)
        perSpark += 100 * 4 * std::sin(k / 100.0 * pi);
    const double perFlash = perSpark / 4; // half as often, half as bright
    Send(&path, "trigger_cam");
    const double expected[6] = {2 * perSpark + perFlash, 2 * perSpark + perFlash, 2 * perSpark + perFlash,
                                2 * perSpark + perFlash, 2 * perSpark + perFlash, perSpark};
    double before = 0;
    for (int hit = 0; hit < 6; hit++) {
        Send(&path, "tree1");
        EXPECT_NEAR(expected[hit], Light(path) - before, 0.1) << hit + 1;
        before = Light(path);
    }
    Send(&path, "tree2");
    EXPECT_NEAR(perSpark + 2 * perFlash, Light(path) - before, 0.1);
}

TEST_F(FX_PathRecorded, Tree2AlwaysPulsesStrongly)
{
    Send(&path, "trigger_cam");
    for (int hit = 1; hit <= 6; hit++) {
        path.pulse = 0;
        Send(&path, "tree2");
        EXPECT_EQ(hit, path.treeHits);
        EXPECT_EQ(2.0f, path.pulse);
    }
}

TEST_F(FX_PathRecorded, Tree3DropsTheLookAtPointAndLetsItClimb)
{
    Send(&path, "trigger_cam");
    Send(&path, "tree3");
    EXPECT_EQ(-5.0f, path.zoom);
    EXPECT_EQ(2.0f, path.zoomTarget);
    EXPECT_EQ(0, path.treeHits);
    Step(0.25);
    EXPECT_EQ(-5 + 0.25f * 7, path.zoom);
    Look();
    EXPECT_TRUE(
        gl::IsMatrix(Of("budentextur.jpg").at(0).modelview, Follow(0.25) * gl::Translation(0, 0, -4), 2e-3));
    path.zoom = 100; // limited to a climb of 10
    Look();
    EXPECT_TRUE(
        gl::IsMatrix(Of("budentextur.jpg").at(0).modelview, Follow(0.25) * gl::Translation(0, 0, -4), 2e-2));
}

TEST_F(FX_PathRecorded, FromTheSecondHitTheCameraOrbits)
{
    Send(&path, "trigger_cam");
    Send(&path, "tree1");
    path.SetLocalTime(2);
    Look();
    EXPECT_TRUE(
        gl::IsMatrix(Of("budentextur.jpg").at(0).modelview, Follow(2) * gl::Translation(0, 0, -4), 2e-3));
    Send(&path, "tree2");
    for (const double t : {2.0, 3.0, 5.0}) {
        path.SetLocalTime(float(t));
        path.pulse = float(t) - 1.9f;
        Look();
        EXPECT_TRUE(
            gl::IsMatrix(Of("budentextur.jpg").at(0).modelview, Orbit(t) * gl::Translation(0, 0, -4), 5e-3));
    }
}

TEST_F(FX_PathRecorded, FlashAllAndFlashCamChangeNothing)
{
    Send(&path, "trigger_cam");
    Look();
    const std::vector<std::string> before = gl::Calls();
    Send(&path, "flash_all");
    Send(&path, "flash_cam");
    Look();
    EXPECT_EQ(before, gl::Calls());
    EXPECT_EQ(0, path.treeHits);
}

TEST_F(FX_PathRecorded, TheSkyHasFourFacesAndNoFloor)
{
    Look();
    struct {
        const char* side;
        gl::Point normal;
        std::vector<gl::Corner> corners;
    } const faces[4] = {
        {"back",
         {0, 0, -1},
         {{0, 0, -0.5, 0.55, -0.5}, {1, 0, 0.5, 0.55, -0.5}, {1, 1, 0.5, 0, -0.5}, {0, 1, -0.5, 0, -0.5}}},
        {"left",
         {-1, 0, 0},
         {{0, 0, -0.5, 0.55, 0.5}, {1, 0, -0.5, 0.55, -0.5}, {1, 1, -0.5, 0, -0.5}, {0, 1, -0.5, 0, 0.5}}},
        {"right",
         {1, 0, 0},
         {{0, 0, 0.5, 0.55, -0.5}, {1, 0, 0.5, 0.55, 0.5}, {1, 1, 0.5, 0, 0.5}, {0, 1, 0.5, 0, -0.5}}},
        {"top",
         {1, 0, 0},
         {{0, 0, -0.5, 0.55, -0.5},
          {1, 0, 0.5, 0.55, -0.5},
          {1, 1, 0.5, 0.55, 0.5},
          {0, 1, -0.5, 0.55, 0.5}}},
    };
    for (int i = 0; i < 4; i++) {
        const gl::Draw& face = gl::Draws().at(i);
        EXPECT_TRUE(gl::IsTextured(face, std::string("skybox_") + faces[i].side + ".jpg"));
        EXPECT_TRUE(gl::IsQuad(face, faces[i].corners));
        EXPECT_TRUE(gl::HasNormal(face, faces[i].normal));
        EXPECT_TRUE(gl::HasColour(face, {1, 1, 1}));
        EXPECT_TRUE(gl::IsMatrix(face.modelview,
                                 Follow(0) * gl::Scaling(500, 500, 500) * gl::RotationDegrees(-90, 0, 1, 0),
                                 0.01));
        EXPECT_TRUE(gl::TestsDepth(face, false));
        EXPECT_TRUE(gl::WritesDepth(face, false));
        EXPECT_TRUE(gl::IsLit(face, false));
        EXPECT_NEAR(70.0, FovY(face), 1e-4);
    }
}

TEST_F(FX_PathRecorded, TheFieldAndThePlazaLieFlatAndWriteNoDepth)
{
    Look();
    const gl::Draw field = Of("ackerbau_tiled3.jpg").at(0);
    EXPECT_TRUE(
        gl::IsQuad(field, {{1, 0, -40, 0, 20}, {1, 7, 60, 0, 20}, {0, 7, 60, 0, -20}, {0, 0, -40, 0, -20}}));
    const gl::Draw plaza = Of("ackerbau_tiled2.jpg").at(0);
    EXPECT_TRUE(
        gl::IsQuad(plaza, {{0, 0, -30, 0, 30}, {1, 0, 30, 0, 30}, {1, 1, 30, 0, -30}, {0, 1, -30, 0, -30}}));
    EXPECT_TRUE(gl::IsMatrix(field.modelview, Follow(0), 1e-3));
    EXPECT_TRUE(gl::IsMatrix(plaza.modelview, Follow(0) * gl::Translation(64, 0, 0), 1e-3));
    for (const gl::Draw& ground : {field, plaza}) {
        EXPECT_TRUE(gl::HasColour(ground, {1, 1, 1}));
        EXPECT_TRUE(gl::TestsDepth(ground));
        EXPECT_TRUE(gl::WritesDepth(ground, false));
        EXPECT_TRUE(gl::DoesNotBlend(ground));
        EXPECT_TRUE(gl::IsLit(ground, false));
    }
}

TEST_F(FX_PathRecorded, HousesStandInTheSunAndPillarsUnderTheLamp)
{
    Look();
    const std::vector<gl::Draw> walls = Of("budentextur.jpg");
    const gl::Draw house = walls.front(), pillar = walls.back();
    EXPECT_TRUE(gl::IsLit(house));
    EXPECT_TRUE(house.state->lights[0].on);
    EXPECT_FALSE(house.state->lights[1].on);
    EXPECT_TRUE(gl::IsPoint(house.state->lights[0].given, {5, 10, 10, 0}));
    const gl::Point sun = Follow(0) * gl::Point(5, 10, 10, 0);
    EXPECT_TRUE(gl::IsPoint(house.state->lights[0].position, sun, 1e-3)) << "through the camera, at the call";
    EXPECT_TRUE(house.state->Enabled(GL_NORMALIZE));
    EXPECT_EQ(GLenum(GL_SMOOTH), house.state->shadeModel);
    EXPECT_TRUE(gl::HasColour(house, {1, 1, 1}));
    EXPECT_TRUE(gl::IsLit(pillar));
    EXPECT_FALSE(pillar.state->lights[0].on);
    EXPECT_TRUE(pillar.state->lights[1].on);
    EXPECT_TRUE(gl::IsColour(pillar.state->lights[1].diffuse, {1, 1, 0.4, 0}));
    EXPECT_TRUE(gl::IsPoint(pillar.state->lights[1].given, {64, 10, 0, 1}));
    EXPECT_TRUE(gl::HasColour(pillar, {1, 1, 1}));
    EXPECT_EQ(38u, gl::QuadsWithTexture("licht-an.png").size())
        << "nine windows of four slabs and one of two";
    EXPECT_EQ(9u + 6u, walls.size()) << "a draw for each house and each pillar";
    EXPECT_TRUE(Of("licht-aus.png").empty()) << "every window is lit";
}

TEST_F(FX_PathRecorded, ShadowsAreBlackWithoutATextureAndOverThePlaza)
{
    Look();
    const int plaza = Of("ackerbau_tiled2.jpg").at(0).event, strip = Of("teststreifen.png").at(0).event;
    int shadows = 0;
    for (const gl::Draw& draw : gl::Draws()) {
        if (draw.event < plaza || draw.event > strip || draw.event == plaza || draw.event == strip)
            continue;
        shadows++;
        ASSERT_TRUE(gl::HasColour(draw, {0, 0, 0}));
        ASSERT_EQ(0u, draw.Texture());
        ASSERT_TRUE(gl::DoesNotBlend(draw));
        ASSERT_TRUE(gl::IsLit(draw, false));
    }
    EXPECT_EQ(9 + 6, shadows);
    // The first is that of the first house, in the sun; the last that of a pillar, under a lamp of 40.
    const std::vector<gl::Draw> all = gl::DrawsBetween(plaza + 1, strip - 1);
    const double sun[16] = {1, 0, 0, 0, -0.5, 0, -1, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_TRUE(gl::IsMatrix(
        all.front().modelview,
        Follow(0) * gl::Translation(0, 0, -4) * gl::Translation(0, 0.1, 0) * gl::FromColumns(sun), 2e-3));
    const double lamp[16] = {40, 0, 0, 0, 64, 0, 0, -1, 0, 0, 40, 0, 0, 0, 0, 40};
    EXPECT_TRUE(gl::IsMatrix(all.back().modelview,
                             Follow(0) * gl::Translation(64, 0, 0) * gl::RotationDegrees(335, 0, 1, 0) *
                                 gl::Translation(7, 0, 0) * gl::Translation(0, 0.1, 0) *
                                 gl::FromColumns(lamp),
                             0.1));
}

TEST_F(FX_PathRecorded, TheStripUnrollsWithASoftHeadThatComesInAskew)
{
    path.walked = 0.4f;
    path.stripFade = 0.25f;
    path.edgeFade = 0.125f;
    Look();
    const std::vector<gl::Draw> strip = Of("teststreifen.png");
    ASSERT_EQ(3u, strip.size());
    const double w = 0.4f, h = w * 50;
    EXPECT_TRUE(
        gl::IsQuad(strip[0], {{0, 0, 0, 0, -4}, {w, 0, h, 0, -4}, {w, 1, h, 0, 4}, {0, 1, 0, 0, 4}}, 1e-5));
    EXPECT_TRUE(
        gl::IsQuad(strip[1], {{0, 0, -50, 0, -4}, {1, 0, 0, 0, -4}, {1, 1, 0, 0, 4}, {0, 1, -50, 0, 4}}));
    EXPECT_TRUE(gl::IsQuad(
        strip[2], {{w, 0, h, 0, -4}, {w + 0.1, 0, h + 4, 0, -4}, {w + 0.1, 1, h + 4, 0, 4}, {w, 1, h, 0, 4}},
        1e-5));
    EXPECT_TRUE(gl::HasColour(strip[0], {1, 1, 1, 0.75}));
    EXPECT_TRUE(gl::HasColour(strip[1], {1, 1, 1, 0.75}));
    EXPECT_TRUE(gl::HasColours(strip[2], {{1, 1, 1, 0.75}, {1, 1, 1, 0}, {1, 1, 1, 0}, {1, 1, 1, 0.75}}));
    for (const gl::Draw& part : strip) {
        EXPECT_TRUE(gl::Blends(part, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::TestsDepth(part));
        EXPECT_TRUE(gl::WritesDepth(part));
        EXPECT_TRUE(gl::IsMatrix(part.modelview, Follow(0), 1e-3));
    }
    path.edgeFade = 1;
    path.stripFade = 1;
    Look();
    EXPECT_TRUE(gl::HasColours(Of("teststreifen.png").at(2),
                               {{1, 1, 1, 0}, {1, 1, 1, 0}, {1, 1, 1, 0}, {1, 1, 1, -1}}));
}

TEST_F(FX_PathRecorded, AtTheStartOnlyTailAndHeadOfTheStripShow)
{
    Look();
    const gl::Draw body = Of("teststreifen.png").at(0);
    EXPECT_EQ(body.vertices[0].object.x, body.vertices[1].object.x) << "no width";
}

TEST_F(FX_PathRecorded, TheTreeStandsOnThePlazaAtHalfItsSize)
{
    Send(&path, "trigger_cam");
    Send(&path, "tree1");
    Look();
    const std::vector<gl::Draw> sprites = Of("partikel_2.jpg");
    ASSERT_EQ(2u, sprites.size());
    for (const gl::Draw& draw : sprites) {
        EXPECT_TRUE(gl::IsMatrix(draw.modelview,
                                 Follow(0) * gl::Translation(64, 0, 0) * gl::Scaling(0.5, 0.5, 0.5), 2e-3));
        EXPECT_NEAR(45.0, FovY(draw), 1e-4);
    }
    EXPECT_TRUE(Of("ring.jpg").empty());
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND)) << "stays on, additive";
    EXPECT_EQ(GLenum(GL_ONE), gl::Now().blendDestination);
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(FX_PathRecorded, FromTheSixthHitTwoRingsCoverTheScreen)
{
    Send(&path, "trigger_cam");
    for (int i = 0; i < 5; i++)
        Send(&path, "tree2");
    Look();
    EXPECT_TRUE(Of("ring.jpg").empty());
    Send(&path, "tree2");
    path.pulse = 0.5f;
    path.SetLocalTime(3);
    Look();
    const std::vector<gl::Draw> rings = Of("ring.jpg");
    ASSERT_EQ(2u, rings.size());
    const gl::Matrix turn = gl::Translation(0, 0, -1) * gl::RotationDegrees(0.5 * 40 + 3, 0, 0, 1);
    const double q = (std::sin(3.0 + 6) + 2 - 0.5) / 2;
    EXPECT_TRUE(gl::IsQuad(rings[0], {{0, 0, -1, 1}, {1, 0, 1, 1}, {1, 1, 1, -1}, {0, 1, -1, -1}}));
    EXPECT_TRUE(gl::IsQuad(rings[1], {{0, 0, -q, q}, {1, 0, q, q}, {1, 1, q, -q}, {0, 1, -q, -q}}, 1e-5));
    for (const gl::Draw& ring : rings) {
        EXPECT_TRUE(gl::IsMatrix(ring.modelview, turn, 1e-5));
        EXPECT_TRUE(gl::HasColour(ring, {0.5, 0.5, 0.5}));
        EXPECT_TRUE(gl::Blends(ring, GL_ONE, GL_ONE));
        EXPECT_TRUE(gl::WritesDepth(ring, false));
        EXPECT_NEAR(45.0, FovY(ring), 1e-4);
    }
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(FX_PathRecorded, PulseAndPillarsBend)
{
    path.pulse = 0.5f;
    Look();
    const std::vector<gl::Draw> walls = Of("budentextur.jpg");
    const gl::Point top = walls.back().vertices.back().object; // of the last pillar's roof
    path.pulse = 0;
    Look();
    const gl::Point still = Of("budentextur.jpg").back().vertices.back().object;
    EXPECT_GT(std::fabs(top.x - still.x) + std::fabs(top.y - still.y) + std::fabs(top.z - still.z), 2.0f);
}

TEST_F(FX_PathRecorded, LeavesItsStateAndNoErrors)
{
    glEnable(GL_COLOR_MATERIAL);
    Look();
    EXPECT_TRUE(gl::NoErrors());
    EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_FALSE(gl::Now().Enabled(GL_LIGHTING));
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_FALSE(gl::Now().Enabled(GL_COLOR_MATERIAL));
    EXPECT_NEAR(1 / std::tan(22.5 * 3.14159265358979323846 / 180), gl::Projection().m[5], 1e-6);
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(FX_PathRecorded, TheFrameBeginsWithAPreludeThatDrawsNothing)
{
    gl::ClearRecords();
    path.Render();
    EXPECT_TRUE(gl::CallsContain(gl::Outline(),
                                 {"glMatrixMode(GL_PROJECTION)", "glPushMatrix()", "gluOrtho2D(0, 1, 0, 1)",
                                  "glTranslatef(0, 0, -1)", "glDisable(GL_DEPTH_TEST)",
                                  "glDepthMask(GL_FALSE)", "glDisable(GL_BLEND)", "glDepthMask(GL_TRUE)",
                                  "glEnable(GL_DEPTH_TEST)", "glPopMatrix()", "glMatrixMode(GL_MODELVIEW)",
                                  "glLoadIdentity()", "gluLookAt", "gluPerspective"}));
}

TEST_F(FX_PathRecorded, ASecondInitKeepsTheWalkAndPlantsANewTree)
{
    Send(&path, "trigger_cam");
    Send(&path, "tree2");
    Send(&path, "tree3");
    path.walked = 0.5f;
    Step(0.5);
    const float speed = path.walkSpeed, zoom = path.zoom;
    const GlowTree* old = path.tree;
    Init(&path);
    EXPECT_NE(old, path.tree);
    EXPECT_EQ(0, path.treeHits);
    EXPECT_EQ(0.0f, path.pulse);
    EXPECT_EQ(1.0f, path.stripFade);
    EXPECT_EQ(1.0f, path.edgeFade);
    EXPECT_TRUE(path.triggered);
    EXPECT_EQ(0.5f, path.walked);
    EXPECT_EQ(speed, path.walkSpeed);
    EXPECT_EQ(zoom, path.zoom);
    EXPECT_EQ(2.0f, path.zoomTarget);
}

TEST_F(FX_PathRecorded, UnknownMessagesAreIgnored)
{
    path.ReceiveMessage(0, nullptr, 0);
    EXPECT_FALSE(path.triggered);
}
