// SPDX-License-Identifier: MIT
#include "effects/FX_Towers.h"

#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/GLQuads.h"

#include <cmath>

static const double pi = 3.141; // the effect's figure

class FX_TowersRecorded : public EffectFixture
{
protected:
    FX_TowersRecorded() { Prepare(&flight); }
    void Step(double seconds)
    {
        PassTime(seconds);
        flight.Update();
    }
    gl::Matrix Camera(double t, double distance, double fade, double flash) const
    {
        const double u = t * 0.6f, x = 80 * std::cos(u) + 20 * distance;
        return gl::LookAt(
            {x, 10 * std::sin(u) + 20 + 1.5 * std::sin(flash * pi * 5), 40 * std::sin(u) + 30 * distance},
            {x * (1 - fade), 65 - 6.5 * distance, 0}, {0, 1, 0});
    }
    static std::vector<gl::Draw> Sky(const char* side)
    {
        return gl::DrawsWithTexture(std::string("skybox_tower_") + side + ".jpg");
    }
    static std::vector<gl::Draw> Spiros() { return gl::QuadsWithTexture("spirograph.jpg"); }
    static std::vector<gl::Draw> Beams() { return gl::QuadsWithTexture("beam_1.png"); }

    FX_Towers flight;
};

TEST_F(FX_TowersRecorded, DeclaresFlashLineAndDoesntAttach)
{
    EXPECT_EQ((std::vector<std::string>{"flash_line: NA"}), DeclaredMessages(&flight));
    EXPECT_FALSE(flight.IsInitialised());
    EXPECT_EQ(10.0f, flight.distance);
    EXPECT_EQ(0.0f, flight.fade);
    EXPECT_EQ(0.0f, flight.flash);
}

TEST_F(FX_TowersRecorded, AsksForItsPicturesInOrder)
{
    EXPECT_EQ((std::vector<std::string>{"fasanenbude.jpg 1 1 1", "spirograph.jpg 1 1 1",
                                        "skybox_tower_left.jpg 1 0 1", "skybox_tower_back.jpg 1 0 1",
                                        "skybox_tower_right.jpg 1 0 1", "skybox_tower_front.jpg 1 0 1",
                                        "beam_1.png 1 1 1"}),
              TextureRequests());
}

TEST_F(FX_TowersRecorded, UpdateLetsFlashAndDistanceDecayAndWritesFade)
{
    Send(&flight, "flash_line", {3});
    EXPECT_EQ(1.0f, flight.flash);
    Step(0.125);
    EXPECT_EQ(0.5f, flight.flash);
    EXPECT_FLOAT_EQ(10 - 1.5f * 0.125f * 10, flight.distance);
    EXPECT_FLOAT_EQ(1 - flight.distance / 10, flight.fade);
    Send(&flight, "flash_line");
    EXPECT_EQ(1.0f, flight.flash) << "restarts";
}

TEST_F(FX_TowersRecorded, TheFirstFrameIsBlackButForAlpha)
{
    flight.SetLocalTime(2);
    Frame(&flight);
    for (const gl::Draw& draw : gl::Draws())
        for (const gl::Vertex& vertex : draw.vertices)
            ASSERT_EQ(0.0f, vertex.colour.r);
    EXPECT_NEAR(0.66, Sky("back").at(0).vertices[0].colour.a, 1e-6);
}

TEST_F(FX_TowersRecorded, TheEyeSweepsInAndThenRunsOnItsEllipse)
{
    struct {
        double t, distance, flash;
    } const moments[] = {{0, 10, 0}, {1, 2.5, 0}, {7, 0, 0}, {3, 0, 0.3}};
    for (const auto& m : moments) {
        flight.SetLocalTime(float(m.t));
        flight.distance = float(m.distance);
        flight.fade = 1 - float(m.distance) / 10;
        flight.flash = float(m.flash);
        Frame(&flight);
        EXPECT_TRUE(gl::IsMatrix(
            Sky("back").at(0).modelview,
            Camera(m.t, m.distance, 1 - m.distance / 10, m.flash) * gl::Scaling(1000, 1000, 1000), 0.05))
            << m.t;
    }
}

TEST_F(FX_TowersRecorded, FromBlackWithinAboutTwoSeconds)
{
    for (int i = 0; i < 128; i++)
        Step(1.0 / 64);
    EXPECT_GT(flight.fade, 0.94f);
    for (int i = 0; i < 1280; i++)
        Step(1.0 / 64);
    EXPECT_NEAR(0.0, flight.distance, 1e-6);
}

TEST_F(FX_TowersRecorded, SixLayersOfSkyWithFourSidesEach)
{
    flight.SetLocalTime(1);
    flight.distance = 5;
    flight.fade = 0.5f;
    Frame(&flight);
    const double scales[6] = {1000, 800, 600, 400, 300, 200};
    const int turns[6] = {0, 1, 2, 3, 1, 2};
    const gl::Matrix camera = Camera(1, 5, 0.5, 0);
    struct {
        const char* side;
        gl::Point normal;
        std::vector<gl::Corner> corners;
    } const sides[4] = {
        {"back",
         {0, 0, -1},
         {{0, 0, -0.5, 1.4, -0.5}, {1, 0, 0.5, 1.4, -0.5}, {1, 1, 0.5, 0, -0.5}, {0, 1, -0.5, 0, -0.5}}},
        {"front",
         {0, 0, -1},
         {{1, 0, -0.5, 1.4, 0.5}, {0, 0, 0.5, 1.4, 0.5}, {0, 1, 0.5, 0, 0.5}, {1, 1, -0.5, 0, 0.5}}},
        {"left",
         {-1, 0, 0},
         {{0, 0, -0.5, 1.4, 0.5}, {1, 0, -0.5, 1.4, -0.5}, {1, 1, -0.5, 0, -0.5}, {0, 1, -0.5, 0, 0.5}}},
        {"right",
         {1, 0, 0},
         {{0, 0, 0.5, 1.4, -0.5}, {1, 0, 0.5, 1.4, 0.5}, {1, 1, 0.5, 0, 0.5}, {0, 1, 0.5, 0, -0.5}}},
    };
    for (int layer = 0; layer < 6; layer++)
        for (int i = 0; i < 4; i++) {
            const gl::Draw& draw = gl::Draws().at(4 * layer + i);
            EXPECT_TRUE(gl::IsTextured(draw, std::string("skybox_tower_") + sides[i].side + ".jpg"));
            EXPECT_TRUE(gl::IsQuad(draw, sides[i].corners));
            EXPECT_TRUE(gl::HasNormal(draw, sides[i].normal));
            EXPECT_TRUE(gl::HasColour(draw, {0.375, 0.375, 0.375, 0.33}));
            const double s = scales[layer];
            EXPECT_TRUE(gl::IsMatrix(
                draw.modelview,
                camera * gl::RotationDegrees(90 * turns[layer], 0, 1, 0) * gl::Scaling(s, s, s), 0.05));
            EXPECT_TRUE(layer == 0 ? gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)
                                   : gl::Blends(draw, GL_ONE, GL_ONE));
            EXPECT_TRUE(gl::TestsDepth(draw, false));
            EXPECT_TRUE(gl::WritesDepth(draw, false));
            EXPECT_TRUE(gl::IsLit(draw, false));
        }
}

TEST_F(FX_TowersRecorded, FourTowersComeOutOfAList)
{
    flight.distance = 0;
    flight.fade = 1;
    Frame(&flight);
    const std::vector<gl::Draw> towers = gl::DrawsWithTexture("fasanenbude.jpg");
    ASSERT_EQ(4u, towers.size());
    const double x[4] = {4, -4, 4, -4}, z[4] = {4, 4, -4, -4}, height[4] = {80, 90, 70, 80};
    const unsigned slabs[4] = {40, 45, 35, 40};
    for (int i = 0; i < 4; i++) {
        const gl::Draw& foot = towers[i];
        // Slabs of 2 up to heights of 80, 90, 70 and 80, and a roof each.
        ASSERT_EQ(16u * slabs[i] + 4, foot.vertices.size());
        EXPECT_NE(0u, foot.list);
        EXPECT_TRUE(gl::HasColour(foot, {0.75, 0.75, 0.75, 0}, 1e-6)) << "the grey of the sky";
        EXPECT_TRUE(gl::DoesNotBlend(foot));
        EXPECT_TRUE(gl::TestsDepth(foot));
        EXPECT_TRUE(gl::IsMatrix(foot.modelview, Camera(0, 0, 1, 0) * gl::Translation(x[i], 0, z[i]), 1e-3));
        EXPECT_TRUE(gl::IsPoint(foot.vertices[0].object, {-3, 0, 3}, 1e-5)) << "half width 3 at the foot";
        const gl::Point corner = foot.vertices[16u * slabs[i]].object;
        EXPECT_NEAR(std::sqrt(8.0 * 8 * 2 + height[i] * height[i]),
                    std::sqrt(corner.x * corner.x + corner.y * corner.y + corner.z * corner.z), 12.0)
            << "half width 8 on top, bent by its angles";
    }
}

TEST_F(FX_TowersRecorded, TheTowersTopsLeanAsTheirAnglesSay)
{
    Frame(&flight);
    const std::vector<gl::Draw> towers = gl::DrawsWithTexture("fasanenbude.jpg");
    const double angles[4][3] = {{25, 10, -10}, {4, 10, 10}, {3, -10, -10}, {0, -10, 10}};
    const double heights[4] = {80, 90, 70, 80};
    const double degree = 3.14152 / 180;
    for (int i = 0; i < 4; i++) {
        const double a = angles[i][0] * degree, b = angles[i][1] * degree, c = angles[i][2] * degree;
        const double sa = std::sin(a), ca = std::cos(a), sb = std::sin(b), cb = std::cos(b), sc = std::sin(c),
                     cc = std::cos(c);
        const double x = 8, y = heights[i], z = 8; // the roof's first corner
        const gl::Point expected((cc * ca - sc * sb * sa) * x - sc * cb * y + (cc * sa + sc * sb * ca) * z,
                                 (sc * ca + cc * sb * sa) * x + cc * cb * y + (sc * sa + cc * sb * ca) * z,
                                 -cb * sa * x + sb * y + cb * ca * z);
        EXPECT_TRUE(gl::IsPoint(towers[i].vertices[towers[i].vertices.size() - 4].object, expected, 1e-3))
            << i;
    }
}

TEST_F(FX_TowersRecorded, SevenDiscsEachLargerFasterAndHigher)
{
    flight.SetLocalTime(0.5f);
    flight.distance = 0;
    flight.fade = 1;
    Frame(&flight);
    ASSERT_EQ(7u + 15u, Spiros().size());
    gl::Matrix frame = Camera(0.5, 0, 1, 0);
    for (int i = 0; i < 7; i++) {
        const gl::Draw disc = Spiros()[i];
        frame = frame * gl::Scaling(1.2, 1, 1.2);
        const double y = i / 8.0;
        EXPECT_TRUE(gl::IsQuadIn(
            disc, frame * gl::RotationDegrees(-0.5 * (4 * i + 10) * 4, 0, 1, 0),
            {{0, 0, -50, y, 50}, {0, 1, 50, y, 50}, {1, 1, 50, y, -50}, {1, 0, -50, y, -50}}, 1e-3));
        EXPECT_TRUE(gl::HasColour(disc, {0.4, 0.4, 0.4}));
        EXPECT_TRUE(gl::Blends(disc, GL_ONE, GL_ONE));
        EXPECT_TRUE(gl::WritesDepth(disc, false));
        EXPECT_TRUE(gl::TestsDepth(disc));
    }
}

TEST_F(FX_TowersRecorded, FiveRotorsOfThreeBladesStandInTheDiscsScale)
{
    const double t = 0.5;
    flight.SetLocalTime(float(t));
    flight.distance = 5;
    flight.fade = 0.5f;
    Frame(&flight);
    const double wide = std::pow(1.2, 7) * 1.5;
    const double places[5][4] = {
        {8, 80, 6, 0}, {-8, 90, -4, 1}, {5, 120, 3, 2}, {0, 100, 0, 3}, {0, 80, 0, 3}};
    const double turns[3] = {30, 40, -60}, halves[3] = {10, 15, 19}, heights[3] = {0, -1, -2};
    for (int i = 0; i < 5; i++) {
        gl::Matrix frame = Camera(t, 5, 0.5, 0) * gl::Scaling(wide, 1, wide) *
                           gl::Translation(places[i][0], places[i][1], places[i][2]) * gl::Scaling(10, 1, 10);
        const double c = (0.3 * std::sin(2 * t + places[i][3]) + 0.7) * 0.5;
        for (int blade = 0; blade < 3; blade++) {
            const gl::Draw draw = Spiros().at(7 + 3 * i + blade);
            frame = frame * gl::RotationDegrees(turns[blade] * t, 0, 1, 0);
            const double h = halves[blade], y = heights[blade];
            EXPECT_TRUE(gl::IsQuadIn(
                draw, frame, {{0, 0, -h, y, h}, {0, 1, h, y, h}, {1, 1, h, y, -h}, {1, 0, -h, -y, -h}},
                5e-3));
            EXPECT_TRUE(gl::HasColour(draw, {c, c, c}, 1e-6));
            EXPECT_TRUE(gl::Blends(draw, GL_ONE, GL_ONE));
        }
    }
}

TEST_F(FX_TowersRecorded, WithoutAFlashNoBeamIsDrawn)
{
    Frame(&flight);
    EXPECT_TRUE(Beams().empty());
}

TEST_F(FX_TowersRecorded, SixBeamsFlickerEachAtItsOwnMoments)
{
    const double phases[6] = {0, 0.3, 0.35, 1, 1.3, 1.6};
    const double heights[6] = {80, 80, 70, 70, 50, 50};
    flight.distance = 0;
    flight.fade = 1;
    for (const double flash : {1.0, 0.83, 0.7, 0.5, 0.31, 0.2, 0.11}) {
        flight.flash = float(flash);
        Frame(&flight);
        const gl::Matrix camera = Camera(0, 0, 1, flash);
        size_t n = 0;
        for (int i = 0; i < 6; i++) {
            if (std::fabs(std::sin(flash * pi * 3 + phases[i])) < 0.7)
                continue;
            ASSERT_LT(n, Beams().size()) << flash;
            const gl::Draw beam = Beams()[n++];
            const double h = heights[i];
            const gl::Matrix frame =
                i % 2 == 0 ? camera : camera * gl::Translation(0, 5, 0) * gl::RotationDegrees(90, 0, 1, 0);
            EXPECT_TRUE(gl::IsQuadIn(
                beam, frame, {{0, 0, -3, h, -260}, {0, 1, 3, h, -260}, {1, 1, 3, h, 260}, {1, 0, -3, h, 260}},
                1e-3));
            EXPECT_TRUE(gl::HasColour(beam, {1, 1, 1, 1 - 0.3 * std::sin(flash * pi)}, 1e-5));
            EXPECT_TRUE(gl::Blends(beam, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
            EXPECT_TRUE(gl::WritesDepth(beam, false));
        }
        EXPECT_EQ(n, Beams().size()) << flash;
    }
}

TEST_F(FX_TowersRecorded, EachBeamGoesOnAndOffWhereItsPhaseSays)
{
    // Where |sin(flash * 3 * pi + phase)| passes 0.7, for each beam alone.
    const double phases[6] = {0, 0.3, 0.35, 1, 1.3, 1.6};
    const double edge = std::asin(0.7), turn = 3.14159265358979323846;
    const auto shines = [](double flash, double phase) {
        return std::fabs(std::sin(flash * pi * 3 + phase)) >= 0.7;
    };
    for (const double phase : phases)
        for (int half = 0; half < 4; half++)
            for (const double angle : {half * turn + edge, (half + 1) * turn - edge}) {
                const double flash = (angle - phase) / (3 * pi);
                if (flash < 0.11 || flash > 1)
                    continue;
                for (const double side : {-0.0001, 0.0001}) {
                    size_t expected = 0;
                    for (const double other : phases)
                        expected += shines(flash + side, other);
                    flight.flash = float(flash + side);
                    Frame(&flight);
                    EXPECT_EQ(expected, Beams().size()) << "phase " << phase << ", flash " << flash + side;
                }
            }
}

TEST_F(FX_TowersRecorded, BelowATenthAllBeamsAreOff)
{
    flight.flash = 0.0999f;
    Frame(&flight);
    EXPECT_TRUE(Beams().empty());
    flight.flash = 0.1f; // |sin(0.1 * 3 * pi + phase)| is above 0.7 for most
    Frame(&flight);
    EXPECT_FALSE(Beams().empty());
    int frames = 0;
    for (flight.flash = 1; flight.flash >= 0.1f; frames++)
        Step(1.0 / 1024);
    EXPECT_NEAR(0.58, frames / 1024.0, 0.01) << "seconds after the message";
}

TEST_F(FX_TowersRecorded, ItUsesTheProjectionItFindsAndLeavesOneUnderflow)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    Frame(&flight);
    for (const gl::Draw& draw : gl::Draws())
        ASSERT_TRUE(gl::IsMatrix(draw.projection, gl::Translation(1, 2, 3)));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_UNDERFLOW}));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(FX_TowersRecorded, LeavesDepthOnBlendingOffAndTexturingOn)
{
    for (const float flash : {0.0f, 0.5f}) {
        flight.flash = flash;
        glEnable(GL_LIGHTING);
        Frame(&flight);
        EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
        EXPECT_TRUE(gl::Now().depthWrites);
        EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
        EXPECT_FALSE(gl::Now().Enabled(GL_LIGHTING));
        EXPECT_TRUE(gl::Now().units[0].texture2D);
        EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), Camera(0, 10, 0, flash), 1e-3)) << "the camera stays";
    }
}

TEST_F(FX_TowersRecorded, ASecondInitStartsTheApproachAnew)
{
    Send(&flight, "flash_line");
    Step(0.5);
    Init(&flight);
    EXPECT_EQ(10.0f, flight.distance);
    EXPECT_EQ(0.0f, flight.flash);
}

TEST_F(FX_TowersRecorded, UnknownMessagesAreIgnored)
{
    flight.ReceiveMessage(0, nullptr, 0);
    EXPECT_EQ(0.0f, flight.flash);
}
