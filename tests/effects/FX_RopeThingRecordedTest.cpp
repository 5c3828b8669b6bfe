// SPDX-License-Identifier: MIT
#include "effects/FX_RopeThing.h"

#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/GLQuads.h"

#include <cmath>

static const double pi = 3.141; // the effect's figure

class FX_RopeThingRecorded : public EffectFixture
{
protected:
    FX_RopeThingRecorded()
    {
        // A face for the body, another for the eyes, to be told apart.
        AddFile("fish.txt", "body 3 0 0 0 1 0 0 0 1 0 1 0 0 1 1 0.25 0.25 1 0 3 0 1 2 3 0 0 0 3 0 0 0");
        AddFile("fisheyes.txt", "eyes 3 0 0 5 1 0 5 0 1 5 1 0 0 1 1 0.5 0.5 1 0 3 0 1 2 3 0 0 0 3 0 0 0");
        Prepare(&fish);
    }
    void Step(double seconds)
    {
        PassTime(seconds);
        fish.AddLocalTime(FrameTimer::GetDelta());
        fish.Update();
    }
    static std::vector<gl::Draw> Sparks() { return gl::QuadsWithTexture("partikel_2.jpg"); }
    static std::vector<gl::Draw> Body() { return gl::DrawsWithTexture("fischhaut.jpg"); }
    static std::vector<gl::Draw> Eyes() { return gl::DrawsWithTexture("fisheye.jpg"); }
    void ExpectPosition(double x, double y, double z, double tolerance = 1e-4)
    {
        EXPECT_NEAR(x, fish.position[0], tolerance);
        EXPECT_NEAR(y, fish.position[1], tolerance);
        EXPECT_NEAR(z, fish.position[2], tolerance);
    }
    double Length(int link) const
    {
        Vec3 v;
        Vec3Sub(v, fish.ropes[0][link - 1], fish.ropes[0][link]);
        return Vec3Length(v);
    }

    FX_RopeThing fish;
};

TEST_F(FX_RopeThingRecorded, DeclaresItsScenesInOrderAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"front: NA", "intro: NA", "shock: NA"}), DeclaredMessages(&fish));
    EXPECT_FALSE(fish.IsInitialised());
    EXPECT_EQ(0, fish.mode);
    EXPECT_EQ(-300.0f, fish.travel);
    EXPECT_EQ(0.0f, fish.progress);
}

TEST_F(FX_RopeThingRecorded, AsksForItsPicturesAndItsShader)
{
    EXPECT_EQ((std::vector<std::string>{"partikel_2.jpg 1 1 1", "fischhaut.jpg 1 1 1", "fisheye.jpg 1 1 1"}),
              TextureRequests());
    ASSERT_EQ(1u, gl::Programs().size());
    EXPECT_EQ((std::vector<std::string>{"sampler0", "fTime0_X", "vtxColor"}), gl::Programs()[0].uniformNames);
}

TEST_F(FX_RopeThingRecorded, WhatIsMissingIsToldPicturesFirstThenTheShaderAndNeverTheModels)
{
    FX_RopeThing bare;
    EXPECT_EQ((std::vector<std::string>{"partikel_2.jpg", "fischhaut.jpg", "fisheye.jpg", "fish.vp",
                                        "fish.fp", "Marlinex 1.5 Error: No Programs for Shader defined!"}),
              ToldMissing(&bare));
}

TEST_F(FX_RopeThingRecorded, SixStraightRopesOfFiftyLinks)
{
    const float directions[6][3] = {{0, 0, 1}, {0, 0, -1}, {0, 1, 0}, {0, -1, 0}, {1, 0, 0}, {-1, 0, 0}};
    for (int rope = 0; rope < 6; rope++)
        for (int i = 0; i < 50; i++)
            for (int axis = 0; axis < 3; axis++)
                ASSERT_EQ(i * directions[rope][axis], fish.ropes[rope][i][axis]);
}

TEST_F(FX_RopeThingRecorded, BeforeTheFirstMessageNothingIsDrawnWhileTheRopeRelaxes)
{
    fish.fade = 0.7f;
    gl::ClearRecords();
    fish.Render();
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(0.0f, fish.fade);
    Vec3Set(fish.ropes[0][0], 10, 0, 0);
    Step(0.25);
    for (int i = 1; i < 50; i++)
        EXPECT_NEAR(1.0, Length(i), 1e-5);
    EXPECT_EQ(-300.0f, fish.travel);
}

TEST_F(FX_RopeThingRecorded, TheRopeFollowsItsLeaderInOnePass)
{
    for (int i = 0; i < 50; i++)
        Vec3Set(fish.ropes[0][i], 0, 0, 3.0f * i);
    Step(0.25);
    for (int i = 0; i < 50; i++)
        EXPECT_NEAR(1.0 * i, fish.ropes[0][i][2], 1e-4) << "each from the link just moved";
    Vec3Set(fish.ropes[0][0], 3, 4, 0); // pull it aside
    Step(0.25);
    Vec3 v;
    Vec3Sub(v, fish.ropes[0][1], fish.ropes[0][0]);
    const double length = std::sqrt(9.0 + 16 + 1);
    EXPECT_NEAR(-3 / length, v[0], 1e-4);
    EXPECT_NEAR(-4 / length, v[1], 1e-4);
    EXPECT_NEAR(1 / length, v[2], 1e-4) << "along the line between them";
}

TEST_F(FX_RopeThingRecorded, BeforeInitThereIsNoRopeToRelax)
{
    FX_RopeThing bare;
    Declare(&bare);
    Send(&bare, "shock");
    PassTime(0.125);
    bare.Update();
    EXPECT_FLOAT_EQ(0.2f, bare.progress) << "the scene goes on, 6.4 a second";
}

TEST_F(FX_RopeThingRecorded, LinksThatCoincideDoNoHarm)
{
    for (int i = 0; i < 50; i++)
        Vec3Set(fish.ropes[0][i], 1, 1, 1);
    Step(0.25);
    for (int i = 0; i < 50; i++)
        EXPECT_EQ(1.0f, fish.ropes[0][i][0]);
}

TEST_F(FX_RopeThingRecorded, IntroStartsAtZHundredWithARopeBehindWhereTheFishWas)
{
    Send(&fish, "intro", {1});
    EXPECT_EQ(1, fish.mode);
    EXPECT_EQ(100.0f, fish.travel);
    EXPECT_EQ(1.0f, fish.progress);
    for (int i = 0; i < 50; i++) {
        EXPECT_EQ(0.0f, fish.ropes[0][i][0]);
        EXPECT_EQ(4.0f + i, fish.ropes[0][i][2]) << "at the origin, where it had no place yet";
    }
}

TEST_F(FX_RopeThingRecorded, IntroIsSeenFromAFixedEyeInFullLight)
{
    Send(&fish, "intro");
    fish.SetLocalTime(0.5f);
    fish.progress = 0.75f;
    StartTimer(7);
    Frame(&fish);
    ExpectPosition(15 * std::cos(0.5), 7.5, 100);
    EXPECT_EQ(1.0f, fish.fade);
    EXPECT_NEAR(104.0, fish.ropes[0][0][2], 1e-4);
    EXPECT_EQ(fish.position[0], fish.ropes[0][0][0]);
    EXPECT_EQ(fish.position[1], fish.ropes[0][0][1]);
    ASSERT_EQ(1u, Body().size());
    const gl::Matrix camera = gl::LookAt({33, -33, -33}, {0, 0, 0}, {0, 1, 0});
    const gl::Matrix place =
        camera * gl::Translation(fish.position[0], fish.position[1], fish.position[2]) * gl::Scaling(6, 6, 6);
    for (const gl::Draw& draw : {Body()[0], Eyes().at(0)}) {
        EXPECT_TRUE(gl::IsMatrix(draw.modelview, place, 1e-3));
        EXPECT_TRUE(gl::HasColour(draw, {1, 1, 1}));
        EXPECT_TRUE(gl::UsesProgram(draw, gl::Programs()[0].id));
        EXPECT_TRUE(gl::HasUniform(draw, "sampler0", {0}));
        EXPECT_TRUE(gl::HasUniform(draw, "fTime0_X", {7}));
        EXPECT_TRUE(gl::HasUniform(draw, "vtxColor", {1}));
        EXPECT_TRUE(gl::TestsDepth(draw));
        EXPECT_TRUE(gl::DoesNotBlend(draw));
        EXPECT_NE(0u, draw.list);
    }
    EXPECT_EQ(0.0f, Body()[0].vertices[0].object.z) << "the body's mesh";
    EXPECT_EQ(5.0f, Eyes()[0].vertices[0].object.z) << "the eyes' mesh";
    EXPECT_LT(Body()[0].event, Eyes()[0].event);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FX_RopeThingRecorded, TheRopeIsFiftySparksThatShrinkAndFade)
{
    Send(&fish, "intro");
    Frame(&fish);
    ASSERT_EQ(50u, Sparks().size());
    EXPECT_EQ(1u, gl::DrawsWithTexture("partikel_2.jpg").size());
    const gl::Matrix camera = gl::LookAt({33, -33, -33}, {0, 0, 0}, {0, 1, 0});
    for (int i = 0; i < 50; i++) {
        const gl::Draw spark = Sparks()[i];
        const double f = 1 - i / 50.0;
        EXPECT_TRUE(gl::HasColour(spark, {f, f, f}, 1e-6));
        EXPECT_TRUE(gl::Blends(spark, GL_ONE, GL_ONE));
        EXPECT_TRUE(gl::TestsDepth(spark));
        EXPECT_TRUE(gl::WritesDepth(spark, false));
        EXPECT_TRUE(gl::UsesNoProgram(spark));
        const float* link = fish.ropes[0][i];
        // In the plane of the screen, 2 * 10 f on a side.
        const gl::Point p = camera * gl::Point(link[0], link[1], link[2]);
        const double h = 10 * f;
        EXPECT_TRUE(gl::IsQuadIn(spark, gl::Translation(p.x, p.y, p.z),
                                 {{0, 1, -h, -h}, {1, 1, h, -h}, {1, 0, h, h}, {0, 0, -h, h}}, 1e-3));
    }
}

TEST_F(FX_RopeThingRecorded, IntroSwimsAndSinksAtItsRates)
{
    Send(&fish, "intro");
    Step(0.25);
    EXPECT_EQ(92.5f, fish.travel);
    EXPECT_FLOAT_EQ(1 - 0.25f * 1.4f, fish.progress);
}

TEST_F(FX_RopeThingRecorded, FrontStartsBesideTheMiddleWithARopeBehind)
{
    fish.position[1] = 9;
    Send(&fish, "front", {1});
    EXPECT_EQ(3, fish.mode);
    ExpectPosition(5 * std::sin(10.0), 0, 100, 1e-5);
    EXPECT_EQ(1.0f, fish.progress);
    for (int i = 0; i < 50; i++) {
        EXPECT_EQ(fish.position[0], fish.ropes[0][i][0]);
        EXPECT_EQ(104.0f + i, fish.ropes[0][i][2]);
    }
}

TEST_F(FX_RopeThingRecorded, InFrontTheCameraRidesAlong)
{
    Send(&fish, "front");
    for (const double progress : {0.8, 0.5, 0.2}) {
        fish.SetLocalTime(0.7f);
        fish.travel = 40;
        fish.progress = float(progress);
        Frame(&fish);
        const double x = 5 * std::sin(4.0), y = 20 * std::sin(3 * 0.7);
        ExpectPosition(x, y, 40, 1e-3);
        EXPECT_NEAR(44.0, fish.ropes[0][0][2], 1e-4);
        const double ex = 30 * std::cos(0.4 * progress + 2), ey = 20 * std::sin(3 * 0.7 - 0.1),
                     ez = -30 * std::sin(0.4 * progress + 1.5) + 40;
        const double way = std::sqrt((x - ex) * (x - ex) + (y - ey) * (y - ey) + (40 - ez) * (40 - ez));
        const double fade = (1 - 0.005 * way) * std::sin(progress * pi);
        EXPECT_NEAR(fade, fish.fade, 1e-4);
        const gl::Matrix place = gl::LookAt({ex, ey, ez}, {x, y, 40}, {0, 1, 0}) * gl::Translation(x, y, 40) *
                                 gl::Scaling(6, 6, 6);
        EXPECT_TRUE(gl::IsMatrix(Body().at(0).modelview, place, 1e-2));
        EXPECT_TRUE(gl::HasColour(Body()[0], {fade, fade, fade}, 1e-4));
        EXPECT_TRUE(gl::HasUniform(Body()[0], "vtxColor", {float(fade)}, 1e-4));
        EXPECT_TRUE(gl::HasColour(Sparks().at(25), {fade / 2, fade / 2, fade / 2}, 1e-4));
    }
}

TEST_F(FX_RopeThingRecorded, FrontAtProgressOneIsDrawnAlmostDark)
{
    Send(&fish, "front");
    Frame(&fish);
    EXPECT_GT(fish.fade, 0.0f);
    EXPECT_LT(fish.fade, 0.001f);
    EXPECT_EQ(1u, Body().size());
    EXPECT_EQ(50u, Sparks().size());
}

TEST_F(FX_RopeThingRecorded, FrontFadesInAndOut)
{
    Send(&fish, "front");
    double brightest = 0, when = 0;
    for (int i = 0; i < 5 * 64; i++) {
        Frame(&fish);
        if (std::sin(fish.progress * pi) > brightest) {
            brightest = std::sin(fish.progress * pi);
            when = i / 64.0;
        }
        Step(1.0 / 64);
    }
    EXPECT_NEAR(1.15, when, 0.03);
    Send(&fish, "front");
    Step(0.25);
    EXPECT_EQ(87.5f, fish.travel);
    EXPECT_FLOAT_EQ(1 - 0.25f * 0.6f, fish.progress);
}

TEST_F(FX_RopeThingRecorded, FarFromTheEyeTheFishIsNotDrawnAndTheRopeIsBlack)
{
    // No place of this scene is that far from its eye; a fish without brightness stands in for one.
    Send(&fish, "front");
    fish.progress = 0;
    Frame(&fish);
    EXPECT_EQ(0.0f, fish.fade);
    EXPECT_TRUE(Body().empty());
    ASSERT_EQ(50u, Sparks().size());
    EXPECT_TRUE(gl::HasColour(Sparks()[0], {0, 0, 0}));
}

TEST_F(FX_RopeThingRecorded, ShockHangsAtTheOriginAndFliesAtTheCamera)
{
    fish.travel = 33;
    Send(&fish, "shock", {1});
    EXPECT_EQ(4, fish.mode);
    EXPECT_EQ(33.0f, fish.travel) << "stays";
    for (const double progress : {1.0, 0.6, 0.2}) {
        fish.progress = float(progress);
        Frame(&fish);
        ExpectPosition(0, 0, 10 * progress);
        const double fade = std::sin(progress * pi);
        EXPECT_NEAR(fade, fish.fade, 1e-5);
        const gl::Matrix camera = gl::LookAt({20 * progress, 10 * progress - 10, -20}, {0, 0, 0}, {0, 1, 0});
        EXPECT_TRUE(gl::IsMatrix(Body().at(0).modelview,
                                 camera * gl::Translation(0, 0, 10 * progress) * gl::Scaling(6, 6, 6), 1e-3));
        EXPECT_TRUE(gl::HasColour(Body()[0], {fade, fade, fade}, 1e-5));
        EXPECT_TRUE(Sparks().empty()) << "without the rope";
    }
    Step(0.125);
    EXPECT_FLOAT_EQ(33 - 0.125f, fish.travel);
    EXPECT_FLOAT_EQ(0.2f - 0.125f * 0.2f * 6.4f, fish.progress);
}

TEST_F(FX_RopeThingRecorded, AShockWithoutBrightnessLeavesTheStateAlone)
{
    Send(&fish, "shock");
    fish.progress = 0;
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    Frame(&fish);
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_FALSE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
}

TEST_F(FX_RopeThingRecorded, AShockIsAShortFlash)
{
    Send(&fish, "shock");
    double brightest = 0, when = 0, dark = 0;
    for (int i = 0; i < 1024; i++) {
        const double fade = std::sin(fish.progress * pi);
        if (fade > brightest) {
            brightest = fade;
            when = i / 1024.0;
        }
        if (i > 200 && dark == 0 && fade < 0.1)
            dark = i / 1024.0;
        Step(1.0 / 1024);
    }
    EXPECT_NEAR(0.11, when, 0.005);
    EXPECT_NEAR(0.54, dark, 0.01);
}

TEST_F(FX_RopeThingRecorded, ShockAfterIntroKeepsTheOldRope)
{
    Send(&fish, "intro");
    const Vec3* rope = fish.ropes[0];
    Send(&fish, "shock");
    EXPECT_EQ(rope, fish.ropes[0]);
    Send(&fish, "intro");
    EXPECT_NE(rope, fish.ropes[0]);
}

TEST_F(FX_RopeThingRecorded, AMessageOfItsOwnKindStartsASceneOver)
{
    Send(&fish, "intro");
    Step(1);
    Send(&fish, "intro");
    EXPECT_EQ(100.0f, fish.travel);
    EXPECT_EQ(1.0f, fish.progress);
}

TEST_F(FX_RopeThingRecorded, AnIdThatIsNoMessageOfItChangesNothing)
{
    for (const char* scene : {"", "intro", "front", "shock"}) {
        if (*scene)
            Send(&fish, scene);
        Step(0.5);
        Vec3Set(fish.position, 1, 2, 3);
        const int mode = fish.mode;
        const float travel = fish.travel, progress = fish.progress;
        const Vec3* const rope = fish.ropes[0];
        for (const int id : {0, -1, 99}) {
            fish.ReceiveMessage(id, nullptr, 0);
            EXPECT_EQ(mode, fish.mode) << scene << " " << id;
            EXPECT_EQ(travel, fish.travel) << scene << " " << id;
            EXPECT_EQ(progress, fish.progress) << scene << " " << id;
            EXPECT_EQ(rope, fish.ropes[0]) << scene << " " << id;
            ExpectPosition(1, 2, 3, 0);
        }
    }
}

TEST_F(FX_RopeThingRecorded, LeavesTheDepthStateOnAndItsBlending)
{
    Send(&fish, "intro");
    Frame(&fish);
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
    EXPECT_EQ(GLenum(GL_ONE), gl::Now().blendSource);
    EXPECT_EQ(GLenum(GL_ONE), gl::Now().blendDestination);
    EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_EQ(0u, gl::Now().program);
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    Send(&fish, "shock");
    fish.progress = 0.5f;
    Frame(&fish);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND)) << "the fish switched it off";
}

TEST_F(FX_RopeThingRecorded, ItUsesTheProjectionItFinds)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    Send(&fish, "intro");
    Frame(&fish);
    for (const gl::Draw& draw : gl::Draws())
        ASSERT_TRUE(gl::IsMatrix(draw.projection, gl::Translation(1, 2, 3)));
}

TEST_F(FX_RopeThingRecorded, AFurtherEntryDrawsTheMeshesOnceMoreAndStoresThemOnce)
{
    fish.Init(nullptr, nullptr);
    gl::ClearRecords();
    fish.Init(nullptr, nullptr);
    // The third body and the third eyes: each is three calls of the first list.
    std::vector<std::string> compiled;
    for (const std::string& call : gl::Calls())
        if (call.find("List") != std::string::npos || call.find("glVertex") != std::string::npos)
            compiled.push_back(call.substr(0, call.find('(')));
    const std::vector<std::string> mesh = {"glGenLists", "glNewList",  "glCallList",
                                           "glCallList", "glCallList", "glEndList"};
    std::vector<std::string> twoMeshes = mesh;
    twoMeshes.insert(twoMeshes.end(), mesh.begin(), mesh.end());
    EXPECT_EQ(twoMeshes, compiled);

    Send(&fish, "intro");
    Frame(&fish);
    ASSERT_EQ(3u, Body().size());
    ASSERT_EQ(3u, Eyes().size());
    // The corners of the mesh six times as large, at (15 cos 0, 10, 100), seen from (33, -33, -33).
    const gl::Matrix camera = gl::LookAt({33, -33, -33}, {0, 0, 0}, {0, 1, 0});
    for (const gl::Draw& body : Body())
        EXPECT_TRUE(gl::HasEyePoints(body,
                                     {camera * gl::Point{15, 10, 100}, camera * gl::Point{21, 10, 100},
                                      camera * gl::Point{15, 16, 100}},
                                     1e-3));
}

// A corner that points behind the lists of one load points into those of two, so that the face then appears.
TEST_F(FX_RopeThingRecorded, AMeshThatGrowsSoundWithAFurtherEntryIsDrawnAsItStandsThen)
{
    AddFile("fish.txt", "body 3 0 0 0 1 0 0 0 1 0 1 0 0 1 1 0.25 0.25 1 0 3 0 1 3 3 0 0 0 3 0 0 0");
    FX_RopeThing damaged;
    Prepare(&damaged);
    Send(&damaged, "intro");
    Frame(&damaged);
    EXPECT_EQ(0u, Body().size());
    damaged.Init(nullptr, nullptr);
    Frame(&damaged);
    EXPECT_EQ(2u, Body().size());
}
