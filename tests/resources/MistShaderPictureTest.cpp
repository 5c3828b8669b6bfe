// SPDX-License-Identifier: MIT
// What the blur's shader makes of the scene of the names: night and haze where nothing was drawn, limbs of ink out of
// cubes, shade told apart from shadow, a wood about the first tree, and mist that hides a young tree, lifts and drifts.
#include "tests/resources/BlurFixture.h"

#include <algorithm>
#include <vector>

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

    // Of the lighter half of a row's left half: the sky between the trees, without the moon.
    static double OpenSky(const Picture& picture, int y, int channel)
    {
        std::vector<int> row;
        for (int x = 0; x < picture.width / 2; x++)
            row.push_back(picture.At(x, y)[channel]);
        std::sort(row.begin(), row.end());
        double sum = 0;
        for (size_t i = row.size() / 2; i < row.size(); i++)
            sum += row[i];
        return sum / double(row.size() - row.size() / 2);
    }

    // Of its left half: the moon stands in the right one.
    static double MeanOfRow(const Picture& picture, int y, int channel)
    {
        return MeanOf(picture, 0, picture.width / 2, y, y + 1, channel);
    }

    // At which the mist of a young scene is gone but for what stays on the land.
    static constexpr float clearest = 0.4f;
    // The last camera's: there the mist is gone when the land's border has risen, and no wood stands before it.
    static constexpr float plainest = 0.25f;
};

// What is looked at lies at heights where no mist stays, above 0.62 of the picture, unless it is the mist.

TEST_F(MistShader, ShowsALandWithoutLightAsNightAndLeavesBoneAsItIs)
{
    Start(64);
    Texture black, bone;
    MakeTexture(&black, PlainPicture(8, 8, 4, 0, 0, 0, 255));
    MakeTexture(&bone, PlainPicture(8, 8, 4, 239, 230, 210, 255));
    for (float strength : {plainest}) {
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
    MakeTexture(&texture, LandBelowTheSky(128, 86, 140));
    const Picture scene = DrawScene(&texture, clearest);
    // Three quarters of the way from 0.35 to 1.05 of the height, eased: 85 % of the way up the night.
    const double night[3] = {17, 22, 45};
    for (int channel = 0; channel < 3; channel++)
        EXPECT_NEAR(night[channel], OpenSky(scene, 112, channel), 4);
    // Three of 28 looks down miss the land and weigh 2.9 of 14.5: (1 - 0.2)^2 of the way from 51 to 98.
    EXPECT_NEAR(81, OpenSky(scene, 88, 2), 6) << "haze close over the land,";
    EXPECT_GT(OpenSky(scene, 90, 2), OpenSky(scene, 94, 2) + 5) << "thinning out";
    EXPECT_GT(OpenSky(scene, 94, 2), night[2] + 5);
    EXPECT_EQ(0, MeanOfRow(DrawBlurred(&texture, clearest), 112, 2))
        << "not behind a picture that is laid over another";
}

TEST_F(MistShader, HangsAMoonIntoTheNightAboveTheLand)
{
    Start(256);
    Texture sky, land;
    MakeTexture(&sky, LandBelowTheSky(256, 150, 140));
    MakeTexture(&land, LandBelowTheSky(256, 256, 140));
    // The disc's middle is at 0.84 and 0.79; between its black borders the picture
    // is five thirds as wide as high, so that a radius of 0.042 of the height is 6.5 columns and 10.8 rows.
    const Picture night = DrawScene(&sky, 0.25f);
    EXPECT_GT(MeanOf(night, 212, 219, 198, 207, 0), 165);
    EXPECT_GT(MeanOf(night, 212, 219, 198, 207, 0), MeanOf(night, 212, 219, 198, 207, 2)) << "it is warm,";
    for (int side : {-1, 1}) {
        EXPECT_GT(night.At(215 + side * 5, 202)[0], 105); // a bough may cross it
        EXPECT_LT(night.At(215 + side * 7, 202)[0], 100);
        EXPECT_GT(night.At(215, 202 + side * 9)[0], 140);
        EXPECT_LT(night.At(215, 202 + side * 13)[0], 100);
    }
    EXPECT_GT(MeanOf(night, 224, 228, 198, 207, 2), MeanOf(night, 40, 44, 198, 207, 2) + 25) << "has a glow,";
    EXPECT_NEAR(140, MeanOf(DrawScene(&land, plainest), 212, 219, 198, 207, 0), 6)
        << "and is behind the land";
}

TEST_F(MistShader, HasNoStepsInTheHaze)
{
    Start(512);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(512, 344, 140));
    const Picture scene = DrawScene(&texture, clearest);
    for (int row = 352; row < 440; row++)
        EXPECT_LT(OpenSky(scene, row, 2) - OpenSky(scene, row + 1, 2), 5) << row;
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

TEST_F(MistShader, DrawsBarkInInkAndLeavesItToTheNightWhileTheLandHasNoLight)
{
    Start(128);
    for (unsigned char light : {0, 140}) {
        Picture land = LandBelowTheSky(128, 128, light);
        Fill(&land, 40, 80, 82, 102, 200, 120, 40);
        Texture texture;
        MakeTexture(&texture, land);
        const Picture scene = DrawScene(&texture, plainest);
        const double red = MeanOf(scene, 50, 70, 87, 97, 0), blue = MeanOf(scene, 50, 70, 87, 97, 2);
        EXPECT_NEAR(light == 0 ? 22 : 43, red, 5);
        EXPECT_NEAR(light == 0 ? 55 : 69, blue, 6);
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
    const double newest = Contrast(-0.75f), young = Contrast(-0.4f), growing = Contrast(0.24f),
                 clear = Contrast(clearest);
    EXPECT_LT(newest, 30);
    EXPECT_LT(young, 30) << "it does not lift below 0";
    EXPECT_LT(newest + 20, growing);
    EXPECT_GT(clear, 55);
}

TEST_F(MistOfAYoungScene, LeavesSomeOfItselfOnTheLandAndNoneAboveIt)
{
    Start(128);
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    const Picture scene = DrawScene(&texture, plainest);
    for (int y = 80; y < 128; y += 6)
        for (int x = 0; x < 128; x += 16)
            EXPECT_NEAR(140, MeanOf(scene, x, x + 16, y, y + 6, 0), 8) << x << " " << y;
    double least = 140, most = 0;
    for (int y = 0; y < 48; y += 6)
        for (int x = 0; x < 128; x += 16) {
            least = std::min(least, MeanOf(scene, x, x + 16, y, y + 6, 0));
            most = std::max(most, MeanOf(scene, x, x + 16, y, y + 6, 0));
        }
    EXPECT_LT(least, 100);
    EXPECT_GT(most, 95) << "it has gaps";
}

TEST_F(MistOfAYoungScene, LiesInBanksWithMoonlitBorders)
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

TEST_F(MistOfAYoungScene, DoesNotJumpWhereTheOthersComeToRest)
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
        return MeanOf(DrawScene(&texture, strength), 0, 64, 95, 99, 0) - 20;
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
        EXPECT_LT(scene.At(124, gap + 1)[0], 70) << gap;
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
    const Picture scene = DrawScene(&texture, plainest);
    const double left = MeanOf(scene, 100, 102, 172, 182, 2), right = MeanOf(scene, 158, 160, 172, 182, 2),
                 core = MeanOf(scene, 120, 140, 170, 178, 2);
    EXPECT_NEAR(66, core, 8) << "ink in a veil";
    EXPECT_GT(right, left + 10);
    EXPECT_GT(MeanOf(scene, 115, 145, 184, 190, 2), MeanOf(scene, 115, 145, 156, 162, 2) + 10)
        << "inside its borders, too, the upper side is the lighter one";
}

TEST_F(MistShader, DrawsALimbThatTheLightReachesLikeOneInTheShade)
{
    Start(256);
    Texture texture;
    const auto limb = [&](bool lit) {
        Picture wood = LandBelowTheSky(256, 256, 140);
        Fill(&wood, 100, 160, 150, 196, 0, 0, 0);
        for (int left = 100; lit && left < 160; left += 8)
            Fill(&wood, left, left + 4, 150, 196, 200, 120, 40);
        MakeTexture(&texture, wood);
        return DrawScene(&texture, clearest);
    };
    const Picture shaded = limb(false), lit = limb(true);
    for (int channel = 0; channel < 3; channel++)
        EXPECT_NEAR(MeanOf(shaded, 116, 144, 165, 181, channel), MeanOf(lit, 116, 144, 165, 181, channel), 3);
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
    EXPECT_GT(MeanOf(scene, 55, 75, 3, 10, 0), shadow[0] + 5) << "and feathers out towards the foot";
}

// The first camera's land ends at the left between 0.75, where land at the right tells of a camera that looks down, and
// 0.835 of the picture's height.
class MistOfTheFirstTree : public MistShader
{
protected:
    Picture DrawFirst(float strength)
    {
        MakeTexture(&texture, LandBelowTheSky(128, 104, 140));
        return DrawScene(&texture, strength);
    }

    Texture texture;
};

TEST_F(MistOfTheFirstTree, StaysUpToTheStumps)
{
    Start(128);
    const Picture scene = DrawFirst(0.94f);
    MakeTexture(&texture, LandBelowTheSky(128, 104, 240));
    const Picture bright = DrawScene(&texture, 0.94f);
    for (int y = 0; y < 64; y += 8)
        for (int x = 0; x < 128; x += 16)
            EXPECT_NEAR(MeanOf(scene, x, x + 16, y, y + 8, 0), MeanOf(bright, x, x + 16, y, y + 8, 0), 2)
                << "nothing is seen of the land; " << x << " " << y;
    EXPECT_NEAR(140, scene.At(30, 86)[0], 12) << "a gap of the wood";
}

TEST_F(MistOfTheFirstTree, DriftsOnForTenSecondsWithoutAJump)
{
    Start(128);
    Picture last = DrawFirst(0.95f - 0.5f);
    EXPECT_LE(Compare(DrawFirst(0.95f - 0.4999f), last, 0).maximum, 6) << "the others come to rest here";
    for (float left : {0.0677f, 0.00916f, 0.00124f, 0.000168f}) { // two seconds each
        const Picture next = DrawFirst(0.95f - left);
        EXPECT_GT(Compare(next, last, 0).maximum, 15) << left;
        last = next;
    }
}

TEST_F(MistOfTheFirstTree, HasAWoodBehindItAndBoughsThatGrow)
{
    Start(128);
    const Picture young = DrawFirst(0.3f), grown = DrawFirst(0.94f);
    // The trunks of the stumps stand on 0.085 and 0.405 of the width and lean a little.
    for (int x : {11, 53}) {
        EXPECT_LT(MeanOf(grown, x - 1, x + 2, 84, 88, 0), 60) << x;
        EXPECT_GT(MeanOf(young, x - 1, x + 2, 84, 88, 0), MeanOf(grown, x - 1, x + 2, 84, 88, 0) + 20) << x;
    }
    // Between and beside them trunks of the wood, which do not grow.
    int dark = 0;
    for (int x = 64; x < 128; x++) {
        EXPECT_NEAR(young.At(x, 88)[0], grown.At(x, 88)[0], 30) << x;
        dark += grown.At(x, 88)[0] < 110;
        EXPECT_GT(grown.At(x, 88)[0], 30) << "paler than ink; " << x;
    }
    EXPECT_GE(dark, 4);
    EXPECT_LE(dark, 40);
}

TEST_F(MistOfTheFirstTree, TakesTheStumpsAwayAboveTheForksOfItsBoughs)
{
    Start(128);
    Picture land = LandBelowTheSky(128, 104, 140);
    Fill(&land, 72, 84, 60, 104, 0, 0, 0);
    MakeTexture(&texture, land);
    for (float strength : {0.3f, 0.94f})
        EXPECT_GT(MeanOf(DrawScene(&texture, strength), 76, 80, 92, 98, 2), 60) << strength;
}

TEST_F(MistShader, PutsNoWoodBeforeTheLastTree)
{
    Start(128);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(128, 128, 140));
    const Picture scene = DrawScene(&texture, plainest);
    for (int x = 0; x < 128; x++)
        EXPECT_NEAR(140, scene.At(x, 84)[0], 12) << x;
}

TEST_F(MistShader, ShowsTheThirdTreeInAVeilBehindAWood)
{
    Start(256);
    Picture land = LandBelowTheSky(256, 256, 140);
    Fill(&land, 100, 160, 150, 226, 0, 0, 0);
    Texture texture;
    MakeTexture(&texture, land);
    const Picture third = DrawScene(&texture, clearest), last = DrawScene(&texture, plainest);
    // Veil of 0.335, 55 to 95 % of it from half the height to the top: some 70 % here, over ink of
    // 0.07, with the wood before it.
    EXPECT_NEAR(54, MeanOf(third, 120, 140, 185, 200, 2), 12);
    int dark = 0;
    for (int x = 0; x < 90; x++)
        for (int y = 160; y < 220; y += 10)
            dark += third.At(x, y)[0] + 20 < last.At(x, y)[0];
    EXPECT_GT(dark, 40);
    EXPECT_LT(dark, 300);
}

TEST_F(MistShader, SetsAWoodFarBehindTheSecondTreeAndTheLast)
{
    Start(256);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(256, 150, 140));
    for (float strength : {clearest, plainest}) {
        const Picture scene = DrawScene(&texture, strength);
        int dark = 0;
        for (int y = 170; y < 230; y += 10)
            for (int x = 0; x < 128; x++)
                dark += scene.At(x, y)[2] + 8 < OpenSky(scene, y, 2);
        EXPECT_GT(dark, 60) << strength;
        EXPECT_LT(dark, 450) << strength;
    }
}

TEST_F(MistShader, LetsTwoTreesGrowBeforeTheSecond)
{
    Start(256);
    Texture texture;
    MakeTexture(&texture, LandBelowTheSky(256, 150, 140));
    const Picture young = DrawScene(&texture, 0.0f), grown = DrawScene(&texture, clearest);
    // The stem of the larger one, below its fork at 0.61 and above the land.
    EXPECT_LT(MeanOf(grown, 33, 38, 170, 174, 2), 40);
    EXPECT_GT(MeanOf(young, 33, 38, 170, 174, 2), MeanOf(grown, 33, 38, 170, 174, 2) + 10);
}
