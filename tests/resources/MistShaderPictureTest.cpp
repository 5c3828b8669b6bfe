// SPDX-License-Identifier: MIT
// What the blur's shader makes of the scene of the names: night and haze where nothing was drawn, limbs out of cubes,
// shade told apart from shadow, leaves, and mist that hides a young tree, lifts and drifts.
#include "tests/resources/BlurFixture.h"

#include <algorithm>

// Land in the lower rows and nothing above it. Texture coordinate t is the height: row 0 has t = 0.
static Picture LandBelowTheSky(int side, int horizon, unsigned char light)
{
    Picture land = PlainPicture(side, side, 4, 0, 0, 0, 0);
    for (int i = 0; i < side * horizon; i++) {
        unsigned char* const pixel = &land.pixels[size_t(i) * 4];
        pixel[0] = pixel[1] = pixel[2] = light;
        pixel[3] = 255;
    }
    return land;
}

static void Fill(Picture* picture, int left, int right, int low, int high, unsigned char red,
                 unsigned char green, unsigned char blue)
{
    for (int y = low; y < high; y++)
        for (int x = left; x < right; x++) {
            unsigned char* const pixel = &picture->pixels[size_t(y * picture->width + x) * 4];
            pixel[0] = red;
            pixel[1] = green;
            pixel[2] = blue;
            pixel[3] = 255;
        }
}

class MistShader : public BlurFixture
{
protected:
    // A scene over the whole screen, as the names have it.
    Picture DrawScene(Texture* texture, float strength) { return DrawBlurred(texture, strength, 1, 1, 1, 1); }

    static double MeanOf(const Picture& picture, int left, int right, int low, int high, int channel)
    {
        double sum = 0;
        for (int y = low; y < high; y++)
            for (int x = left; x < right; x++)
                sum += picture.At(x, y)[channel];
        return sum / ((right - left) * (high - low));
    }

    using ShaderFiles::MeanOf;

    static double MeanOfRow(const Picture& picture, int y, int channel)
    {
        double sum = 0;
        for (int x = 0; x < picture.width; x++)
            sum += picture.At(x, y)[channel];
        return sum / picture.width;
    }

    // At which the mist of a young scene is gone and no leaves have come.
    static constexpr float clearest = 0.4f;
};

// What is looked at lies at heights where there is no mist, unless it is the mist: between 0.05 and 0.18 and between 0.67
// and 0.77 of the picture.

TEST_F(MistShader, ShowsALandWithoutLightAsNightAndLeavesBoneAsItIs)
{
    Start(64);
    Texture black, bone;
    MakeTexture(&black, PlainPicture(8, 8, 4, 0, 0, 0, 255));
    MakeTexture(&bone, PlainPicture(8, 8, 4, 239, 230, 210, 255));
    for (float strength : {0.35f, clearest}) {
        const Picture night = DrawScene(&black, strength);
        // Half way between the two colours of the night.
        const double lifted[3] = {22, 28, 55}, kept[3] = {239, 230, 210};
        const Picture paper = DrawScene(&bone, strength);
        for (int channel = 0; channel < 3; channel++) {
            EXPECT_NEAR(lifted[channel], MeanOfRow(night, 45, channel), 3) << strength;
            EXPECT_NEAR(kept[channel], MeanOfRow(paper, 45, channel), 8) << strength; // the paper's grain
        }
        EXPECT_EQ(0, MeanOf(DrawBlurred(&black, strength))) << "a picture that is laid over a scene";
    }
}

TEST_F(MistShader, LetsANightSkyStandOverAHazeWhereNothingWasDrawn)
{
    Start(128);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(128, 72, 140));
    const Picture scene = DrawScene(&texture, clearest);
    EXPECT_NEAR(140, MeanOfRow(scene, 12, 2), 10);
    const double night[3] = {20, 26, 51};
    for (int channel = 0; channel < 3; channel++)
        EXPECT_NEAR(night[channel], MeanOfRow(scene, 97, channel), 3);
    // The nearest of twelve looks down misses the land and weighs 1 of 6.5: (1 - 0.15)^2 of the way to 98.
    EXPECT_NEAR(85, MeanOfRow(scene, 74, 2), 6) << "haze close over the land,";
    EXPECT_GT(MeanOfRow(scene, 79, 2), MeanOfRow(scene, 84, 2) + 5) << "thinning out";
    EXPECT_GT(MeanOfRow(scene, 84, 2), night[2] + 5);
    EXPECT_EQ(0, MeanOfRow(DrawBlurred(&texture, clearest), 97, 2))
        << "not behind a picture that is laid over another";
}

TEST_F(MistShader, HidesTheBorderOfALandThatHasNoLight)
{
    Start(128);
    Texture land, nothing;
    MakeTexture(&land, LandBelowTheSky(128, 40, 0));
    MakeTexture(&nothing, PlainPicture(8, 8, 4, 0, 0, 0, 0));
    for (float strength : {-0.75f, 0.25f, clearest}) {
        const Picture scene = DrawScene(&land, strength), night = DrawScene(&nothing, strength);
        for (int row = 4; row < 128; row += 8)
            for (int channel = 0; channel < 3; channel++)
                EXPECT_NEAR(MeanOfRow(night, row, channel), MeanOfRow(scene, row, channel), 1.5) << row;
    }
}

TEST_F(MistShader, DarkensBarkWithTheLand)
{
    Start(128);
    for (unsigned char light : {0, 140}) {
        Picture land = LandBelowTheSky(128, 128, light);
        Fill(&land, 40, 80, 82, 102, 200, 120, 40);
        Texture texture;
        MakeTexture(&texture, land);
        const Picture scene = DrawScene(&texture, clearest);
        const double red = MeanOf(scene, 50, 70, 87, 97, 0), blue = MeanOf(scene, 50, 70, 87, 97, 2);
        if (light == 0) {
            EXPECT_NEAR(22, red, 4);
            EXPECT_NEAR(55, blue, 6);
        } else {
            // 0.255 and 0.110 of 255, in strokes that take a twentieth of it on average
            EXPECT_NEAR(62, red, 4);
            EXPECT_NEAR(27, blue, 4);
        }
    }
}

// Lit land up to the top, and on it a tree's shaded side, 28 rows high: how much darker that is than the land beside it.
class MistOfAYoungScene : public MistShader
{
protected:
    double Contrast(float strength)
    {
        Picture land = LandBelowTheSky(128, 128, 140);
        Fill(&land, 52, 90, 84, 102, 0, 0, 0);
        MakeTexture(&texture, land);
        const Picture scene = DrawScene(&texture, strength);
        return MeanOf(scene, 98, 122, 88, 98, 0) - MeanOf(scene, 58, 84, 88, 98, 0);
    }

    Texture texture;
};

TEST_F(MistOfAYoungScene, HidesWhatStandsOnTheLandAndLiftsAsTheIntensityGrows)
{
    Start(128);
    const double newest = Contrast(-0.75f), young = Contrast(-0.4f), growing = Contrast(0.1f),
                 clear = Contrast(clearest);
    EXPECT_LT(newest, 30);
    EXPECT_LT(young, 30) << "it does not lift below -0.1";
    EXPECT_LT(newest + 20, growing);
    EXPECT_LT(growing + 20, clear);
    EXPECT_GT(clear, 100);
}

TEST_F(MistOfAYoungScene, StaysBeforeTheHighestLimbsAndNowhereElse)
{
    Start(128);
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    const Picture scene = DrawScene(&texture, clearest);
    for (int y = 8; y < 98; y += 6)
        for (int x = 0; x < 128; x += 16)
            EXPECT_NEAR(140, MeanOf(scene, x, x + 16, y, y + 6, 0), 8) << x << " " << y;
    EXPECT_LT(MeanOf(scene, 0, 128, 122, 128, 0), 128) << "top";
}

TEST_F(MistOfAYoungScene, HasMoonlitHeads)
{
    Start(128);
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    const Picture mist = DrawScene(&texture, -0.75f);
    double darkest = 255, lightest = 0;
    for (int y = 10; y < 105; y += 5)
        for (int x = 0; x < 120; x += 8) {
            const double blue = MeanOf(mist, x, x + 8, y, y + 5, 2);
            darkest = std::min(darkest, blue);
            lightest = std::max(lightest, blue);
        }
    EXPECT_GT(lightest, darkest + 35);
    EXPECT_LT(lightest, 190) << "names stand on it in bone";
    EXPECT_GT(MeanOf(mist, 0, 128, 0, 128, 2), MeanOf(mist, 0, 128, 0, 128, 0) + 20) << "it is cold";
}

// The intensity approaches 0.45 as exp(-t) approaches 0: these are a second apart.
TEST_F(MistOfAYoungScene, DriftsOnAsTheIntensityComesToRest)
{
    Start(128);
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    Picture last = DrawScene(&texture, 0.45f - 0.22f);
    for (float left : {0.081f, 0.030f, 0.011f, 0.004f}) {
        const Picture next = DrawScene(&texture, 0.45f - left);
        EXPECT_GT(Compare(next, last, 0).maximum, 15) << left;
        last = next;
    }
}

TEST_F(MistOfAYoungScene, DoesNotJumpWhereTheFirstTreeOutgrowsTheOthers)
{
    Start(128);
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    EXPECT_LE(Compare(DrawScene(&texture, 0.449999f), DrawScene(&texture, 0.450001f), 0).maximum, 3);
}

TEST_F(MistOfAYoungScene, LiftsFromTheLastTreeAsItsCameraRises)
{
    Start(128);
    // In the sky beside the tree, where the night has a red of 20.
    const auto mist = [&](int horizon, float strength) {
        MakeTexture(&texture, LandBelowTheSky(128, horizon, 140));
        return MeanOf(DrawScene(&texture, strength), 0, 128, 95, 99, 0) - 20;
    };
    EXPECT_GT(mist(56, 0.25f), 15);
    EXPECT_NEAR(0, mist(72, 0.25f), 3);
    EXPECT_NEAR(mist(56, 0.26f), mist(72, 0.26f), 3) << "of another camera the land's border says nothing";
}

TEST_F(MistShader, JoinsCubesIntoLimbs)
{
    Start(256);
    Picture chain = LandBelowTheSky(256, 256, 140);
    for (int low = 150; low < 210; low += 11)
        Fill(&chain, 120, 128, low, low + 8, 0, 0, 0);
    Texture texture;
    MakeTexture(&texture, chain);
    const Picture plain = DrawPlain(&texture), scene = DrawScene(&texture, clearest);
    for (int gap = 169; gap < 200; gap += 11) { // between the second and the third cube, and further up
        EXPECT_EQ(140, plain.At(124, gap + 1)[0]) << gap;
        EXPECT_LT(scene.At(124, gap + 1)[0], 60) << gap;
        EXPECT_GT(scene.At(108, gap + 1)[0], 110) << gap;
        EXPECT_GT(scene.At(140, gap + 1)[0], 110) << gap;
    }
}

TEST_F(MistShader, GivesLimbsARimTowardsTheMoon)
{
    Start(256);
    Picture wood = LandBelowTheSky(256, 256, 140);
    Fill(&wood, 100, 160, 150, 196, 0, 0, 0);
    Texture texture;
    MakeTexture(&texture, wood);
    const Picture scene = DrawScene(&texture, clearest);
    const double left = MeanOf(scene, 101, 103, 172, 182, 2), right = MeanOf(scene, 157, 159, 172, 182, 2),
                 core = MeanOf(scene, 120, 140, 172, 182, 2);
    EXPECT_GT(core, 18) << "ink with strokes of moonlight";
    EXPECT_LT(core, 45);
    EXPECT_GT(right, left + 10);
    EXPECT_GT(MeanOf(scene, 115, 145, 184, 190, 2), MeanOf(scene, 115, 145, 156, 162, 2) + 10)
        << "inside its borders, too, the upper side is the lighter one";
}

TEST_F(MistShader, ShowsBarkOnALimbOfWhichAQuarterIsLit)
{
    Start(256);
    Picture wood = LandBelowTheSky(256, 256, 140);
    Fill(&wood, 100, 160, 150, 196, 0, 0, 0);
    for (int left = 100; left < 160; left += 8)
        Fill(&wood, left, left + 2, 150, 196, 200, 120, 40);
    Texture texture;
    MakeTexture(&texture, wood);
    const Picture scene = DrawScene(&texture, clearest);
    const double red = MeanOf(scene, 116, 144, 165, 181, 0);
    EXPECT_GT(red, 45);
    EXPECT_GT(red, MeanOf(scene, 116, 144, 165, 181, 2) + 8) << "bark is warm";
}

TEST_F(MistShader, TellsATreesOwnShadeFromItsShadowOnTheLand)
{
    Start(256);
    Picture wood = LandBelowTheSky(256, 150, 140);
    Fill(&wood, 40, 90, 0, 46, 0, 0, 0);           // a shadow
    Fill(&wood, 150, 180, 80, 220, 0, 0, 0);       // a trunk that rises before the sky,
    Fill(&wood, 126, 150, 100, 220, 200, 120, 40); // whose other side lies in the light
    Texture texture;
    MakeTexture(&texture, wood);
    const Picture scene = DrawScene(&texture, clearest);
    const double shadow[3] = {MeanOf(scene, 55, 75, 28, 38, 0), 0, MeanOf(scene, 55, 75, 28, 38, 2)};
    EXPECT_LT(shadow[0], 90);
    EXPECT_GT(shadow[2], shadow[0] + 4) << "a shadow is blue,";
    EXPECT_GT(shadow[2], MeanOf(scene, 162, 170, 176, 188, 2) + 25) << "lighter than the trunk,";
    EXPECT_GT(MeanOf(scene, 55, 75, 3, 10, 0), shadow[0] + 5) << "and feathers out towards the foot";
    EXPECT_GT(MeanOf(scene, 134, 140, 176, 188, 0), MeanOf(scene, 134, 140, 176, 188, 2) + 30)
        << "bark is warm";
}

TEST_F(MistShader, GivesLeavesToTheFirstTreeAlone)
{
    Start(128);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    const auto crown = [&](float strength) {
        return MeanOf(DrawScene(&texture, strength), 49, 59, 103, 112, 0);
    };
    EXPECT_GT(crown(0.44f), 90);
    EXPECT_LT(crown(0.94f), 50);
    EXPECT_NEAR(140, MeanOf(DrawScene(&texture, 0.94f), 96, 120, 88, 98, 0), 6) << "and to nothing else";
}
