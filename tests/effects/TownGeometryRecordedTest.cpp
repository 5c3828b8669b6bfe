// SPDX-License-Identifier: MIT
#include "effects/TownGeometry.h"

#include "resources/Texture.h"
#include "tests/support/recorder/GLQuads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

static const double degree = 3.14152 / 180; // the figure of the Euler matrix

// The Euler matrix once more, with the plus in its tenth element.
static gl::Point Turned(const gl::Point& p, double a, double b, double c)
{
    const double sa = std::sin(a * degree), ca = std::cos(a * degree), sb = std::sin(b * degree),
                 cb = std::cos(b * degree), sc = std::sin(c * degree), cc = std::cos(c * degree);
    return {(cc * ca - sc * sb * sa) * p.x - sc * cb * p.y + (cc * sa + sc * sb * ca) * p.z,
            (sc * ca + cc * sb * sa) * p.x + cc * cb * p.y + (sc * sa + cc * sb * ca) * p.z,
            -cb * sa * p.x + sb * p.y + cb * ca * p.z};
}

class Town : public testing::Test
{
protected:
    Town() { gl::Reset(); }
    // The slabs of the boxes in the records, 16 vertices each, and their roofs of 4, as draws of their own. A
    // box goes out in one draw, the roof last.
    static std::vector<gl::Draw> Slabs()
    {
        std::vector<gl::Draw> slabs;
        for (const gl::Draw& draw : gl::Draws())
            for (size_t i = 0; i < draw.vertices.size(); i += 16) {
                gl::Draw slab = draw;
                const size_t end = std::min(i + 16, draw.vertices.size());
                slab.vertices.assign(draw.vertices.begin() + long(i), draw.vertices.begin() + long(end));
                slabs.push_back(slab);
            }
        return slabs;
    }
    static std::vector<std::vector<gl::Draw>> Boxes()
    {
        std::vector<std::vector<gl::Draw>> boxes(1);
        for (const gl::Draw& slab : Slabs()) {
            boxes.back().push_back(slab);
            if (slab.vertices.size() == 4)
                boxes.emplace_back();
        }
        EXPECT_TRUE(boxes.back().empty());
        boxes.pop_back();
        EXPECT_EQ(boxes.size(), gl::Draws().size());
        return boxes;
    }
};

TEST_F(Town, APlainBoxIsASquareColumn)
{
    DrawTwistedBox(1, 3, 1, 2, 2, 0, 0, 0);
    ASSERT_EQ(4u, Slabs().size()) << "three slabs and a roof";
    for (int slab = 0; slab < 3; slab++) {
        const double y0 = slab, y1 = slab + 1;
        EXPECT_TRUE(gl::HasVertices(Slabs()[slab], {{-2, y0, 2},
                                                    {-2, y0, -2},
                                                    {-2, y1, -2},
                                                    {-2, y1, 2},
                                                    {-2, y0, 2},
                                                    {2, y0, 2},
                                                    {2, y1, 2},
                                                    {-2, y1, 2},
                                                    {2, y0, 2},
                                                    {2, y0, -2},
                                                    {2, y1, -2},
                                                    {2, y1, 2},
                                                    {-2, y0, -2},
                                                    {2, y0, -2},
                                                    {2, y1, -2},
                                                    {-2, y1, -2}}));
        const double a = (1 - y0 / 3) * 0.5 + 0.25, b = (1 - y1 / 3) * 0.5 + 0.25;
        EXPECT_TRUE(gl::HasTexCoords(Slabs()[slab],
                                     {{1, a},
                                      {0.75, a},
                                      {0.75, b},
                                      {1, b},
                                      {0.75, a},
                                      {0.5, a},
                                      {0.5, b},
                                      {0.75, b},
                                      {0.5, a},
                                      {0.25, a},
                                      {0.25, b},
                                      {0.5, b},
                                      {0.25, a},
                                      {0, a},
                                      {0, b},
                                      {0.25, b}},
                                     1e-6));
        EXPECT_TRUE(gl::HasNormals(Slabs()[slab], {{-1, 0, 0},
                                                   {-1, 0, 0},
                                                   {-1, 0, 0},
                                                   {-1, 0, 0},
                                                   {0, 0, 1},
                                                   {0, 0, 1},
                                                   {0, 0, 1},
                                                   {0, 0, 1},
                                                   {1, 0, 0},
                                                   {1, 0, 0},
                                                   {1, 0, 0},
                                                   {1, 0, 0},
                                                   {0, 0, -1},
                                                   {0, 0, -1},
                                                   {0, 0, -1},
                                                   {0, 0, -1}}));
    }
    EXPECT_TRUE(gl::IsQuad(
        Slabs()[3], {{0.75, 0, 2, 3, 2}, {1, 0, -2, 3, 2}, {1, 0.25, -2, 3, -2}, {0.75, 0.25, 2, 3, -2}}));
    EXPECT_TRUE(gl::HasNormal(Slabs()[3], {0, 0, -1})) << "the last one stays current";
}

TEST_F(Town, ABoxIsOneDrawAndLeavesItsLastNormal)
{
    DrawTwistedBox(1, 3, 1, 2, 2, 0, 0, 0);
    EXPECT_EQ(1, gl::CountCalls("glDrawArrays"));
    EXPECT_EQ(0, gl::CountCalls("glPushMatrix"));
    EXPECT_EQ(1u, gl::Draws().size());
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {0, 0, -1}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(), {0.75, 0.25}));
}

TEST_F(Town, ATwistedBoxTurnsEachRowAboutItsFootAndCrossesItsNormals)
{
    const double a = 30, b = 20, c = -10;
    DrawTwistedBox(1, 2, 2, 1, 3, float(a), float(b), float(c)); // length 4
    ASSERT_EQ(5u, Slabs().size());
    for (int slab = 0; slab < 4; slab++) {
        const double t0 = slab / 4.0, t1 = (slab + 1) / 4.0;
        const double w0 = 3 * t0 + (1 - t0), w1 = 3 * t1 + (1 - t1);
        const gl::Draw draw = Slabs()[slab];
        const gl::Point lower = Turned({-w0, double(slab), w0}, a * t0, b * t0, c * t0);
        const gl::Point upper = Turned({-w1, slab + 1.0, -w1}, a * t1, b * t1, c * t1);
        EXPECT_TRUE(gl::IsPoint(draw.vertices[0].object, lower, 1e-5));
        EXPECT_TRUE(gl::IsPoint(draw.vertices[2].object, upper, 1e-5));
        const gl::Point n0 = Turned({-1, 0, 0}, a * t0, b * t0, c * t0),
                        n1 = Turned({-1, 0, 0}, a * t1, b * t1, c * t1);
        EXPECT_TRUE(gl::IsPoint(draw.vertices[0].normal, n0, 1e-5));
        EXPECT_TRUE(gl::IsPoint(draw.vertices[1].normal, n1, 1e-5)) << "the upper row's, on the lower row";
        EXPECT_TRUE(gl::IsPoint(draw.vertices[2].normal, n0, 1e-5)) << "and the other way round";
        EXPECT_TRUE(gl::IsPoint(draw.vertices[3].normal, n1, 1e-5));
    }
    EXPECT_TRUE(gl::IsPoint(Slabs()[4].vertices[0].object, Turned({3, 4, 3}, a, b, c), 1e-5));
}

TEST_F(Town, AStepThatDoesntDivideTheHeightOvershoots)
{
    DrawTwistedBox(0.35f, 12, 1, 1, 1.3f, 0, 0, 0);
    float y = 0;
    int slabs = 0;
    while (y < 12.0f) {
        y += 0.35f;
        slabs++;
    }
    ASSERT_EQ(size_t(slabs) + 1, Slabs().size());
    EXPECT_EQ(35, slabs);
    const gl::Draw roof = Slabs().back();
    EXPECT_EQ(y, roof.vertices[0].object.y);
    EXPECT_GT(y, 12.0f);
    EXPECT_GT(roof.vertices[0].object.x, 1.3f) << "t is above 1 there";
}

TEST_F(Town, WithoutAStepNothingIsDrawn)
{
    DrawTwistedBox(0, 3, 1, 1, 1, 0, 0, 0);
    DrawTwistedBox(-1, 3, 1, 1, 1, 0, 0, 0);
    Texture* textures[2] = {nullptr, nullptr};
    DrawLightPatch(0, 3, 1, 1, 1, 0, 0, 0, true, 1, 1, 1, 0, textures, false);
    EXPECT_TRUE(gl::Calls().empty());
}

// clang-format off
struct HouseFacts {
    double x, z;
    double scaleX, turn;
    bool back;
    double height, bottom, top, a, b, c;
};
static const HouseFacts houses[9] = {
    { 0, -4, 1,     0, false, 5, 1, 2,     2.5,  15,  0},
    { 8, -3, 2,     0, false, 3, 1, 1.66,  2.5,  15, -3},
    {18, -3, 1, -22.5, false, 3, 1, 1.3,     0,   5,  0},
    { 8,  8, 1,     0, true,  4, 2, 2.66,  2.5, -12, -3},
    {22,  6, 1,     0, true,  5, 1, 2,     2.5, -15,  0},
    {30,  4, 2,     0, true,  3, 1, 1.66,  2.5, -15, -3},
    {36,  2, 1,  22.5, true,  3, 1, 1.3,     0,  -5,  0},
    {30, -4, 1.4,   0, false, 3, 1, 1.66,  6.5,  15, -3},
    {38, -4, 1,     0, false, 8, 1, 0.66, 56.5,  40,  0},
};
// clang-format on

static gl::Matrix PlaceOf(const HouseFacts& house)
{
    return gl::Translation(house.x, 0, house.z) * gl::Scaling(house.scaleX, 1, 1) *
           gl::RotationDegrees(house.turn, 0, 1, 0);
}

TEST_F(Town, NineHousesStandInTheirPlaces)
{
    DrawHouses(nullptr);
    const auto boxes = Boxes();
    ASSERT_EQ(9u, boxes.size());
    for (int i = 0; i < 9; i++) {
        const HouseFacts& house = houses[i];
        EXPECT_EQ(size_t(house.height * 4) + 1, boxes[i].size()) << i;
        EXPECT_TRUE(gl::IsMatrix(boxes[i][0].modelview, PlaceOf(house), 1e-5)) << i;
        EXPECT_TRUE(gl::IsPoint(boxes[i][0].vertices[0].object, {-house.bottom, 0, house.bottom}, 1e-5)) << i;
        EXPECT_TRUE(gl::IsPoint(boxes[i].back().vertices[0].object,
                                Turned({house.top, house.height, house.top}, house.a, house.b, house.c),
                                1e-4))
            << i;
        EXPECT_TRUE(gl::IsPoint(boxes[i].back().vertices[2].object,
                                Turned({-house.top, house.height, -house.top}, house.a, house.b, house.c),
                                1e-4))
            << i;
    }
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(Town, ShadowsOfHousesLieFlatTheBackRowsInMirroredLight)
{
    const float light[4] = {5, 10, 8, 0};
    DrawHouses(light);
    const auto boxes = Boxes();
    ASSERT_EQ(9u, boxes.size());
    for (int i = 0; i < 9; i++) {
        const double s = houses[i].back ? -1 : 1;
        const double flatten[16] = {1, 0, 0, 0, -5 * s / 10, 0, -8 * s / 10, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        EXPECT_TRUE(gl::IsMatrix(boxes[i][0].modelview,
                                 PlaceOf(houses[i]) * gl::Translation(0, 0.1, 0) * gl::FromColumns(flatten),
                                 1e-5))
            << i;
        for (const gl::Draw& draw : boxes[i])
            for (const gl::Vertex& vertex : draw.vertices)
                ASSERT_NEAR(0.1, vertex.eye.y, 1e-5);
    }
}

TEST_F(Town, AShadowByHand)
{
    const float sun[3] = {5, 10, 10};
    ApplyShadowMatrix(sun, false);
    glBegin(GL_POINTS);
    glVertex3f(1, 2, 3);
    glEnd();
    // A point 2 high throws its shadow 2 * 5/10 back in x and 2 * 10/10 in z.
    EXPECT_TRUE(gl::IsPoint(gl::Draws()[0].vertices[0].eye, {0, 0.1, 1}, 1e-6));
}

TEST_F(Town, APointLightsMatrixHasXWithPlusAndZWithMinus)
{
    const float lamp[4] = {64, 40, 3, 1};
    ApplyShadowMatrix(lamp, true);
    const double flatten[16] = {40, 0, 0, 0, 64, 0, -3, -1, 0, 0, 40, 0, 0, 0, 0, 40};
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(0, 0.1, 0) * gl::FromColumns(flatten), 1e-5));
    glBegin(GL_POINTS);
    glVertex3f(1, 8, 2);
    glEnd();
    // w = 40 - 8; x = (40 + 64 * 8) / w, z = (40 * 2 - 3 * 8) / w
    const gl::Point p = gl::Draws()[0].vertices[0].eye;
    EXPECT_NEAR((40 + 512) / 32.0, p.x / p.w, 1e-4);
    EXPECT_NEAR((80 - 24) / 32.0, p.z / p.w, 1e-4);
}

// clang-format off
struct PatchFacts {
    int house;
    double start, length, aspect, shift;
    bool back;
};
static const PatchFacts patches[10] = {
    {1, 3.5,  1,   0.5,   0.25, false},
    {1, 1.75, 1,   0.5,  -0.5,  false},
    {2, 1,    0.5, 0.5,   0,    false},
    {3, 1.5,  1,   0.8,   0,    false},
    {4, 2,    1,   0.8,   0,    true },
    {5, 1,    1,   0.25,  0.25, true },
    {6, 1,    1,   0.25,  0.25, true },
    {7, 1,    1,   0.25,  0.25, true },
    {8, 1,    1,   0.25,  0.5,  false},
    {8, 1,    1,   0.25, -0.5,  false},
};
// clang-format on

class Windows : public Town
{
protected:
    Windows()
    {
        on.id = 71;
        off.id = 72;
        glBindTexture(GL_TEXTURE_2D, on.id);
        glBindTexture(GL_TEXTURE_2D, off.id);
        gl::ClearRecords();
    }
    Texture on, off;
    Texture* textures[2] = {&on, &off};
};

TEST_F(Windows, TenPatchesHangOnTheirHouses)
{
    glEnable(GL_LIGHTING);
    DrawLightPatches(textures);
    const std::vector<gl::Draw> slabsOfAll = gl::Quads(gl::Draws());
    size_t n = 0;
    for (int i = 0; i < 10; i++) {
        const PatchFacts& patch = patches[i];
        const HouseFacts& house = houses[patch.house - 1];
        const int slabs = int(patch.length * 4);
        for (int slab = 0; slab < slabs; slab++, n++) {
            ASSERT_LT(n, slabsOfAll.size());
            const gl::Draw& draw = slabsOfAll[n];
            EXPECT_TRUE(gl::IsMatrix(draw.modelview, PlaceOf(house), 1e-5)) << i;
            EXPECT_TRUE(gl::IsTextured(draw, 71u));
            EXPECT_TRUE(gl::HasColour(draw, {1, 1, 1, 1}));
            EXPECT_TRUE(gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
            EXPECT_TRUE(gl::IsLit(draw, false));
            gl::Point expected[4];
            for (int v = 0; v < 4; v++) {
                const double y = patch.start + 0.25 * (slab + v / 2);
                const double t = y / house.height;
                const double w = house.top * t + (1 - t) * house.bottom + 0.05;
                const double side = v == 1 || v == 2 ? 1 : -1;
                const double z = patch.back ? -(w + 0.01) : w + 0.01;
                expected[v] = Turned({side * w * patch.aspect, y, z}, house.a * t, house.b * t, house.c * t);
                expected[v].x += float(patch.shift);
                EXPECT_TRUE(gl::IsPoint(draw.vertices[v].object, expected[v], 1e-4))
                    << i << " " << slab << " " << v;
                EXPECT_NEAR(v == 0 || v == 3 ? 1 : 0, draw.vertices[v].texCoord[0].x, 1e-6);
                EXPECT_NEAR(1 - (y - patch.start) / patch.length, draw.vertices[v].texCoord[0].y, 1e-5);
                const double nt = (patch.start + 0.25 * (slab + v % 2)) / house.height;
                EXPECT_TRUE(gl::IsPoint(draw.vertices[v].normal,
                                        Turned({-1, 0, 0}, house.a * nt, house.b * nt, house.c * nt), 1e-4));
            }
        }
    }
    EXPECT_EQ(n, slabsOfAll.size());
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(Windows, TheWindowsOfAHouseGoOutInOneDraw)
{
    DrawLightPatches(textures);
    std::vector<size_t> slabs;
    for (const gl::Draw& draw : gl::Draws())
        slabs.push_back(draw.vertices.size() / 4);
    EXPECT_EQ((std::vector<size_t>{8, 2, 4, 4, 4, 4, 4, 8}), slabs) << "the ninth house has none";
}

TEST_F(Windows, ALitPatchSwitchesLightingBackOnAndBlendingOff)
{
    glDisable(GL_LIGHTING);
    DrawLightPatch(0.25f, 3, 1, 1, 1, 0, 0, 0, true, 1, 1, 0.5f, 0, textures, false);
    EXPECT_TRUE(gl::Now().Enabled(GL_LIGHTING));
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    ASSERT_EQ(4u, gl::Quads(gl::Draws()).size());
    for (const gl::Draw& draw : gl::Draws()) {
        EXPECT_TRUE(gl::IsTextured(draw, 71u));
        EXPECT_TRUE(gl::IsLit(draw, false));
        EXPECT_TRUE(gl::Blends(draw, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
        EXPECT_TRUE(gl::HasColour(draw, {1, 1, 1, 1}));
        for (const gl::Vertex& vertex : draw.vertices)
            EXPECT_TRUE(gl::IsPoint(vertex.normal, {-1, 0, 0}, 1e-6));
    }
}

TEST_F(Windows, APatchOnAStretchedBoxHangsAsOnOneOfThatHeight)
{
    DrawLightPatch(1, 2, 2, 1, 3, 10, 20, 30, true, 1, 2, 0.5f, 0.25f, textures, false);
    DrawLightPatch(1, 4, 1, 1, 3, 10, 20, 30, true, 1, 2, 0.5f, 0.25f, textures, false);
    const std::vector<gl::Draw> slabs = gl::Quads(gl::Draws());
    ASSERT_EQ(4u, slabs.size());
    for (int slab = 0; slab < 2; slab++)
        for (int v = 0; v < 4; v++)
            EXPECT_TRUE(
                gl::IsPoint(slabs[slab].vertices[v].object, slabs[slab + 2].vertices[v].object, 1e-5));
}

TEST_F(Windows, AnUnlitPatchTakesTheOtherPictureAndLeavesLightingAlone)
{
    glEnable(GL_LIGHTING);
    DrawLightPatch(0.25f, 3, 1, 1, 1, 0, 0, 0, false, 1, 1, 0.5f, 0, textures, false);
    ASSERT_EQ(4u, gl::Quads(gl::Draws()).size());
    EXPECT_TRUE(gl::IsTextured(gl::Draws()[0], 72u));
    EXPECT_TRUE(gl::IsLit(gl::Draws()[0]));
    EXPECT_TRUE(gl::Now().Enabled(GL_LIGHTING));
    glDisable(GL_LIGHTING);
    DrawLightPatch(0.25f, 3, 1, 1, 1, 0, 0, 0, false, 1, 1, 0.5f, 0, textures, false);
    EXPECT_FALSE(gl::Now().Enabled(GL_LIGHTING));
}

TEST_F(Town, SixPillarsInARingBendWithThePulse)
{
    const double heights[6] = {12, 8, 8, 12, 10, 12}, a[6] = {0, 2, 2, -2, 1, 4.6};
    const bool leans[6] = {false, true, false, true, false, true};
    for (const double bend : {0.0, 0.5, 2.0}) {
        gl::ClearRecords();
        DrawPillarRing(nullptr, 64, 1, 2, float(bend));
        const auto boxes = Boxes();
        ASSERT_EQ(6u, boxes.size());
        const double p = 5 - bend * 40, q = 10 - bend * 40;
        for (int i = 0; i < 6; i++) {
            const gl::Matrix place = gl::Translation(64, 1, 2) * gl::RotationDegrees(60 * i + 35, 0, 1, 0) *
                                     gl::Translation(7, 0, 0);
            EXPECT_TRUE(gl::IsMatrix(boxes[i][0].modelview, place, 1e-4)) << i;
            EXPECT_TRUE(gl::IsPoint(boxes[i][0].vertices[0].object, {-1, 0, 1}, 1e-5));
            float y = 0;
            int slabs = 0;
            for (; y < float(heights[i]); y += 0.35f)
                slabs++;
            EXPECT_EQ(size_t(slabs) + 1, boxes[i].size()) << i;
            const double t = y / heights[i], w = 1.3 * t + (1 - t);
            EXPECT_TRUE(gl::IsPoint(boxes[i].back().vertices[0].object,
                                    Turned({w, y, w}, a[i] * t, (leans[i] ? p : 5) * t, q * t), 2e-3))
                << i << " " << bend;
        }
        EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    }
}

TEST_F(Town, PillarShadowsAreAPointLightsInThePillarsOwnFrame)
{
    const float light[4] = {64, 40, 0, 1};
    DrawPillarRing(light, 64, 0, 0, 0);
    const auto boxes = Boxes();
    ASSERT_EQ(6u, boxes.size());
    const double flatten[16] = {40, 0, 0, 0, 64, 0, 0, -1, 0, 0, 40, 0, 0, 0, 0, 40};
    for (int i = 0; i < 6; i++) {
        const gl::Matrix place = gl::Translation(64, 0, 0) * gl::RotationDegrees(60 * i + 35, 0, 1, 0) *
                                 gl::Translation(7, 0, 0) * gl::Translation(0, 0.1, 0) *
                                 gl::FromColumns(flatten);
        EXPECT_TRUE(gl::IsMatrix(boxes[i][0].modelview, place, 1e-2)) << i;
    }
}
