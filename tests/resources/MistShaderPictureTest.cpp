// SPDX-License-Identifier: MIT
// What the blur's shader makes of a scene: night and mist where nothing was drawn, banks of mist over a young scene,
// uneven edges, and shade told apart from shadow.
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

    // At which the mist of a young scene is all but gone and that of an old one has hardly come.
    static constexpr float clearest = 0.4f;
};

TEST_F(MistShader, ShowsALandWithoutLightAsNightAndLeavesBoneAsItIs)
{
    Start(64);
    Texture black, bone;
    MakeTexture(&black, PlainPicture(8, 8, 4, 0, 0, 0, 255));
    MakeTexture(&bone, PlainPicture(8, 8, 4, 239, 230, 210, 255));
    for (float strength : {0.0f, 0.25f, 1.0f}) {
        const Picture night = DrawScene(&black, strength);
        // Above all mist, a seventeenth below the top.
        const double lifted[3] = {20, 25, 48}, kept[3] = {239, 230, 210};
        const Picture paper = DrawScene(&bone, strength);
        for (int channel = 0; channel < 3; channel++) {
            EXPECT_NEAR(lifted[channel], MeanOfRow(night, 60, channel), 3) << strength;
            EXPECT_NEAR(kept[channel], MeanOfRow(paper, 60, channel), 8) << strength; // the paper's grain
        }
        EXPECT_EQ(0, MeanOf(DrawBlurred(&black, strength))) << "a picture that is laid over a scene";
    }
}

TEST_F(MistShader, LetsANightSkyRiseFromALineOfMistWhereNothingWasDrawn)
{
    Start(128);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(128, 40, 140));
    for (float strength : {0.35f, clearest}) {
        const Picture scene = DrawScene(&texture, strength);
        const double drawn = MeanOfRow(scene, 20, 2), mist = MeanOfRow(scene, 46, 2),
                     night = MeanOfRow(scene, 75, 2), top = MeanOfRow(scene, 124, 2);
        EXPECT_NEAR(140, drawn, 18) << "behind a little mist";
        EXPECT_GT(mist, night + 10) << "close over the land";
        EXPECT_GT(night, top + 8) << "and then ever darker";
        EXPECT_GT(top, 30) << "but never black";
        EXPECT_LT(mist, 0.45 * 255);
        const Picture laid = DrawBlurred(&texture, strength);
        EXPECT_EQ(0, MeanOfRow(laid, 75, 2)) << "not behind a picture that is laid over another";
    }
}

TEST_F(MistShader, HidesTheBorderOfALandThatHasNoLight)
{
    Start(128);
    Texture land, nothing;
    MakeTexture(&land, LandBelowTheSky(128, 40, 0));
    MakeTexture(&nothing, PlainPicture(8, 8, 4, 0, 0, 0, 0));
    for (float strength : {-0.75f, 0.25f}) {
        const Picture scene = DrawScene(&land, strength), night = DrawScene(&nothing, strength);
        for (int row = 4; row < 128; row += 8)
            for (int channel = 0; channel < 3; channel++)
                EXPECT_NEAR(MeanOfRow(night, row, channel), MeanOfRow(scene, row, channel), 1.5) << row;
    }
}

// The patch of lit bark lies apart from all black, whose shade looks for it.
TEST_F(MistShader, DarkensBarkWithTheLand)
{
    Start(128);
    for (unsigned char light : {0, 140}) {
        Picture land = LandBelowTheSky(128, 128, light);
        Fill(&land, 40, 80, 112, 120, 200, 120, 40);
        Texture texture;
        MakeTexture(&texture, land);
        const Picture scene = DrawScene(&texture, clearest);
        EXPECT_NEAR(light == 0 ? 20 : 200, MeanOf(scene, 50, 70, 114, 118, 0), 12) << int(light);
    }
}

// Lit land up to a height, and on it a shadow or a tree's side: how much darker than the land beside it that is.
class MistOfAYoungScene : public MistShader
{
protected:
    void Stand(int foot, int head)
    {
        Picture land = LandBelowTheSky(128, 118, 140);
        Fill(&land, 40, 88, foot, head, 0, 0, 0);
        MakeTexture(&texture, land);
        low = foot + 6;
        high = head - 6;
    }

    double Contrast(float strength)
    {
        const Picture scene = DrawScene(&texture, strength);
        return (MeanOf(scene, 6, 34, low, high, 0) + MeanOf(scene, 94, 122, low, high, 0)) / 2 -
               MeanOf(scene, 46, 82, low, high, 0);
    }

    Texture texture;
    int low = 0, high = 0;
};

TEST_F(MistOfAYoungScene, HidesWhatStandsOnTheLandAndLiftsAsTheIntensityGrows)
{
    Start(128);
    Stand(20, 60);
    const double newest = Contrast(-0.75f), young = Contrast(-0.4f), growing = Contrast(0),
                 resting = Contrast(0.25f), clear = Contrast(clearest);
    EXPECT_LT(newest, 20);
    EXPECT_LT(young, 20) << "it does not lift below -0.1";
    EXPECT_LT(newest, growing);
    EXPECT_LT(growing, 0.5 * clear);
    EXPECT_NEAR(0.75 * clear, resting, 0.12 * clear) << "a little is left at the resting strength";
    EXPECT_GT(clear, 50);
}

TEST_F(MistOfAYoungScene, ClosesAboutTheFootOfAnOldSceneOnly)
{
    Start(128);
    Stand(10, 50);
    EXPECT_LT(Contrast(0.9f), 0.4 * Contrast(clearest)) << "at its foot";
    Stand(86, 100);
    EXPECT_NEAR(Contrast(clearest), Contrast(0.9f), 15) << "above the banks";
    EXPECT_LT(Contrast(-0.75f), 0.6 * Contrast(0.9f)) << "which reach higher over a young one";
}

TEST_F(MistShader, LetsACrownComeBeforeTheBanksAsTheyLift)
{
    Start(128);
    Picture trunk = LandBelowTheSky(128, 40, 140);
    Fill(&trunk, 40, 88, 20, 110, 0, 0, 0);
    Texture texture;
    MakeTexture(&texture, trunk);
    const auto shade = [&](float strength) {
        return MeanOf(DrawScene(&texture, strength), 46, 82, 78, 88, 0);
    };
    EXPECT_NEAR(shade(clearest), shade(0.25f), 10);
    EXPECT_GT(shade(-0.4f), shade(0.25f) + 20);
}

TEST_F(MistOfAYoungScene, IsBanksWithMoonlitEdgesThatDrift)
{
    Start(128);
    Stand(20, 60);
    const Picture mist = DrawScene(&texture, -0.75f);
    double darkest = 255, lightest = 0;
    for (int y = 10; y < 105; y += 4) {
        const double blue = MeanOf(mist, 8, 24, y, y + 4, 2);
        darkest = std::min(darkest, blue);
        lightest = std::max(lightest, blue);
    }
    EXPECT_GT(lightest, darkest + 35);
    EXPECT_LT(lightest, 190) << "names stand on it in bone";
    EXPECT_GT(MeanOf(mist, 0, 128, 0, 128, 2), MeanOf(mist, 0, 128, 0, 128, 0) + 20) << "it is cold";
    EXPECT_GT(Compare(mist, DrawScene(&texture, -0.6f), 0).maximum, 15) << "it drifts";
}

TEST_F(MistShader, DrawsTheEdgesOfASceneUnevenlyButNotThoseOfAPhotograph)
{
    Start(256);
    Texture texture;
    MakeTexture(&texture, Paint(256, [](float x, float) { return x < 0.5f ? 0.6f : 0.9f; }));
    const auto edge = [](const Picture& picture, int y) {
        int x = 0;
        while (picture.At(x, y)[0] < 191)
            x++;
        return x;
    };
    const Picture scene = DrawScene(&texture, clearest), photograph = DrawBlurred(&texture, 0);
    int leftmost = 256, rightmost = 0;
    for (int y = 222; y < 256; y++) { // above all mist
        EXPECT_EQ(128, edge(photograph, y));
        leftmost = std::min(leftmost, edge(scene, y));
        rightmost = std::max(rightmost, edge(scene, y));
    }
    // By half of 0.016 and 0.007 of the side at most, which is 3 pixels, and 2 of the blur and the grain.
    EXPECT_GE(leftmost, 123);
    EXPECT_LE(rightmost, 133);
    EXPECT_GE(rightmost, leftmost + 3);
}

TEST_F(MistShader, TellsATreesOwnShadeFromItsShadowOnTheLand)
{
    Start(256);
    Picture wood = LandBelowTheSky(256, 150, 140);
    Fill(&wood, 40, 90, 80, 110, 0, 0, 0);        // a shadow
    Fill(&wood, 150, 180, 80, 220, 0, 0, 0);      // a trunk that rises before the sky,
    Fill(&wood, 126, 150, 80, 150, 200, 120, 40); // with bark in the light at its foot
    Texture texture;
    MakeTexture(&texture, wood);
    const Picture scene = DrawScene(&texture, clearest);
    const auto mean = [&](int x, int y, int channel) {
        double sum = 0;
        for (int i = 0; i < 36; i++)
            sum += scene.At(x + i % 6, y + i / 6)[channel];
        return sum / 36;
    };
    EXPECT_GT(mean(62, 92, 2), mean(62, 92, 0) + 15) << "a shadow is blue,";
    EXPECT_GT(mean(62, 92, 2), mean(162, 200, 2) + 30) << "lighter than the trunk before the sky,";
    EXPECT_GT(mean(62, 92, 2) - mean(62, 92, 0), mean(156, 92, 2) - mean(156, 92, 0) + 10)
        << "bluer than the trunk before the land";
    EXPECT_GT(mean(156, 92, 0), mean(162, 200, 0) + 6) << "beside lit bark the shade is warm";
}
