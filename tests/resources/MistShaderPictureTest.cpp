// SPDX-License-Identifier: MIT
// What the blur's shader makes of the scene of the names: a night landscape with furrows, trees that grow with the
// drawn one, and mist that hides them while they are young, lifts and drifts.
#include "tests/resources/BlurFixture.h"
#include "tests/support/picture/Golden.h"

#include <algorithm>
#include <cmath>
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
    static const int side = 256;

    // How the effect's cameras see the land's far border: the first and the third look down on it.
    enum Camera { firstCamera, secondCamera, thirdCamera, lastCamera };

    static int Horizon(Camera camera)
    {
        const int horizons[] = {212, 100, 256, 144};
        return horizons[camera];
    }
    static Picture Land(Camera camera, unsigned char light = 140)
    {
        return LandBelowTheSky(side, Horizon(camera), light);
    }

    // A scene over the whole screen, as the names have it, with the strength at which its mist has lifted.
    Picture Draw(const Picture& drawn, float strength)
    {
        Texture texture;
        MakeTexture(&texture, drawn);
        return DrawBlurred(&texture, strength, 1, 1, 1, 1);
    }
    static float Clearest(Camera camera)
    {
        return camera == lastCamera ? 0.25f : camera == firstCamera ? 0.94f : 0.44f;
    }
    Picture DrawScene(Camera camera) { return Draw(Land(camera), Clearest(camera)); }

    static double MeanOf(const Picture& picture, int left, int right, int low, int high, int channel)
    {
        double sum = 0;
        for (int y = low; y < high; y++)
            for (int x = left; x < right; x++)
                sum += picture.At(x, y)[channel];
        return sum / ((right - left) * (high - low));
    }

    using ShaderFiles::MeanOf;

    static Picture Upright(Picture picture)
    {
        const size_t row = picture.pixels.size() / size_t(picture.height);
        for (size_t y = 0; y < size_t(picture.height) / 2; y++)
            std::swap_ranges(&picture.pixels[row * y], &picture.pixels[row * y] + row,
                             &picture.pixels[row * (size_t(picture.height) - 1 - y)]);
        return picture;
    }

    // Of some rows' left half: the sky between the trees, which cover less than half of it, and the stars.
    static double OpenSky(const Picture& picture, int low, int high, int channel)
    {
        std::vector<int> values;
        for (int y = low; y < high; y++)
            for (int x = 0; x < side / 2; x++)
                values.push_back(picture.At(x, y)[channel]);
        std::sort(values.begin(), values.end());
        return values[values.size() * 7 / 10];
    }

    // How many waves in the picture's width some rows have most of, right of the middle.
    static double Waves(const Picture& picture, int low, int high)
    {
        const int left = picture.width * 2 / 5, right = picture.width * 18 / 25;
        double most = 0, found = 0;
        for (double count = 12; count < 40; count += 0.25) {
            const double turn = 6.283185307179586 * count / picture.width;
            double sum = 0;
            for (int y = low; y < high; y++) {
                const double mean = MeanOf(picture, left, right, y, y + 1, 2);
                double even = 0, odd = 0;
                for (int x = left; x < right; x++) {
                    even += (picture.At(x, y)[2] - mean) * std::cos(turn * x);
                    odd += (picture.At(x, y)[2] - mean) * std::sin(turn * x);
                }
                sum += std::hypot(even, odd);
            }
            if (sum > most) {
                most = sum;
                found = count;
            }
        }
        return found;
    }

    // The blue of the darkest three pixels side by side about a column.
    static double Darkest(const Picture& picture, int column, int row)
    {
        double darkest = 255;
        for (int x = column - 7; x <= column + 7; x++)
            darkest = std::min(darkest, MeanOf(picture, x - 1, x + 2, row, row + 1, 2));
        return darkest;
    }

    // The column and row at which red is most above blue.
    static void FindWarmest(const Picture& picture, int* column, int* row)
    {
        int most = -256;
        for (int y = 0; y < side; y++)
            for (int x = 0; x < side; x++) {
                const int warmth = picture.At(x, y)[0] - picture.At(x, y)[2];
                if (warmth > most) {
                    most = warmth;
                    *column = x;
                    *row = y;
                }
            }
        EXPECT_GT(most, 50);
    }
};

TEST_F(MistShader, StandsInANightThatIsDarkerAbove)
{
    Start(side);
    const Picture scene = DrawScene(secondCamera);
    // 51 % of the way from 0.35 to 1.05 of the height, which is as much of the way up the night when eased; and 95 %,
    // which is 99. The wash makes a seventh more or less of it.
    const double middle[3] = {22, 28, 55}, top[3] = {15, 20, 41};
    for (int channel = 0; channel < 3; channel++) {
        EXPECT_NEAR(middle[channel], OpenSky(scene, 176, 186, channel), 8) << channel;
        EXPECT_NEAR(top[channel], OpenSky(scene, 254, 256, channel), 7) << channel;
    }
    Texture texture;
    MakeTexture(&texture, Land(secondCamera));
    EXPECT_EQ(0, MeanOf(DrawBlurred(&texture, 0.44f), 0, side, 240, 250, 2))
        << "not behind a picture that is laid over another";
}

TEST_F(MistShader, HangsAMoonIntoTheNightOfEachCamera)
{
    Start(side);
    // Middles of the disc; between its black borders the picture is five thirds as wide as high, so that a radius of
    // 0.042 of the height is 6.5 columns and 10.8 rows. The land hides the lower half of the first and the third.
    const int middles[][2] = {{215, 191}, {220, 212}, {33, 216}, {137, 179}};
    for (Camera camera : {firstCamera, secondCamera, thirdCamera, lastCamera}) {
        const Picture scene = DrawScene(camera);
        const int x = middles[camera][0], y = middles[camera][1];
        EXPECT_GT(MeanOf(scene, x - 2, x + 3, y + 3, y + 8, 0), 160) << camera;
        EXPECT_GT(MeanOf(scene, x - 2, x + 3, y + 3, y + 8, 0), MeanOf(scene, x - 2, x + 3, y + 3, y + 8, 2))
            << "it is warm, " << camera;
        EXPECT_LT(MeanOf(scene, x - 2, x + 3, y + 13, y + 16, 0), 150) << camera;
        for (int aside : {-1, 1}) {
            EXPECT_GT(scene.At(x + 4 * aside, y + 4)[0], 100) << "a bough may cross it; " << camera;
            EXPECT_LT(scene.At(x + 9 * aside, y + 4)[0], 150) << camera;
        }
        if (camera == secondCamera || camera == lastCamera)
            EXPECT_GT(MeanOf(scene, x - 2, x + 3, y - 8, y - 3, 0), 160) << camera;
        else
            EXPECT_LT(MeanOf(scene, x - 2, x + 3, y - 9, y - 6, 0), 180) << camera;
    }
    const Picture second = DrawScene(secondCamera);
    EXPECT_GT(MeanOf(second, 230, 234, 208, 217, 2), MeanOf(second, 150, 154, 208, 217, 2) + 15)
        << "it has a glow";
}

TEST_F(MistShader, HasItsLightFromTheLand)
{
    Start(side);
    const Picture lit = DrawScene(secondCamera);
    // A blue of 0.22 is half way from 0.12 to 0.32, and from 0.12 of the light to all of it.
    const double parts[][2] = {{0, 0.12}, {30, 0.12}, {56, 0.56}, {82, 1.00}};
    for (const double* part : parts) {
        const Picture scene = Draw(Land(secondCamera, static_cast<unsigned char>(part[0])), 0.44f);
        for (int y = 4; y < side; y += 12)
            EXPECT_NEAR(part[1] * MeanOf(lit, 0, side, y, y + 4, 2), MeanOf(scene, 0, side, y, y + 4, 2), 2)
                << part[0] << " " << y;
    }
}

TEST_F(MistShader, CoversWhatTheFirstCameraAndTheThirdSee)
{
    Start(side);
    for (Camera camera : {firstCamera, thirdCamera}) {
        Picture drawn = Land(camera, 140);
        const Picture bare = Draw(drawn, Clearest(camera));
        Fill(&drawn, 40, 120, 10, 200, 0, 0, 0);
        Fill(&drawn, 20, 90, 140, 210, 200, 120, 40);
        EXPECT_LE(Compare(bare, Draw(drawn, Clearest(camera)), 0).maximum, 1) << camera;
    }
}

TEST_F(MistShader, JoinsTheDrawnTreesCubesBeforeTheSky)
{
    Start(side);
    for (Camera camera : {secondCamera, lastCamera}) {
        Picture chain = Land(camera);
        for (int low = 150; low < 190; low += 9)
            Fill(&chain, 150, 157, low, low + 7, 0, 0, 0);
        const Picture bare = DrawScene(camera), scene = Draw(chain, Clearest(camera));
        double gap = 0, beside = 0, without = 0;
        for (int y = 157; y < 190; y += 9) {
            without += MeanOf(bare, 152, 155, y, y + 2, 2);
            gap += MeanOf(scene, 152, 155, y, y + 2, 2);
            beside = std::max(
                beside, std::abs(MeanOf(scene, 140, 144, y, y + 2, 2) - MeanOf(bare, 140, 144, y, y + 2, 2)));
        }
        EXPECT_LT(gap, 0.975 * without) << camera;
        EXPECT_LT(beside, 1) << camera;
    }
}

TEST_F(MistShader, DrawsALimbThatTheLightReachesLikeOneInTheShade)
{
    Start(side);
    Picture shaded = Land(secondCamera), lit = shaded;
    Fill(&shaded, 130, 158, 150, 196, 0, 0, 0);
    Fill(&lit, 130, 158, 150, 196, 200, 120, 40);
    const Picture bare = DrawScene(secondCamera), first = Draw(shaded, 0.44f), second = Draw(lit, 0.44f);
    for (int channel = 0; channel < 3; channel++)
        EXPECT_NEAR(MeanOf(first, 138, 150, 160, 186, channel), MeanOf(second, 138, 150, 160, 186, channel),
                    3);
    // 12 % of ink, of which the blue is 18, over the night, with a little mist before it.
    const double night = MeanOf(bare, 138, 150, 160, 186, 2);
    EXPECT_NEAR(0.88 * night + 0.12 * 18, MeanOf(first, 138, 150, 160, 186, 2), 6);
}

TEST_F(MistShader, KeepsTheFieldBeforeTheDrawnTreeAndItsShadow)
{
    Start(side);
    for (Camera camera : {secondCamera, lastCamera}) {
        Picture drawn = Land(camera);
        Fill(&drawn, 100, 200, 30, 110, 0, 0, 0);
        EXPECT_LE(Compare(DrawScene(camera), Draw(drawn, Clearest(camera)), 0).maximum, 1) << camera;
    }
}

TEST_F(MistShader, KnowsTheLastCameraWhateverItsTreeHides)
{
    Start(side);
    Picture drawn = Land(lastCamera);
    Fill(&drawn, 160, 172, 120, 200, 0, 0, 0); // where the others look for the sky
    const Picture bare = DrawScene(lastCamera), scene = Draw(drawn, 0.25f);
    for (int x = 0; x < 150; x += 10)
        for (int y = 0; y < side; y += 16)
            EXPECT_NEAR(MeanOf(bare, x, x + 10, y, y + 16, 1), MeanOf(scene, x, x + 10, y, y + 16, 1), 0.5)
                << x << " " << y;
}

TEST_F(MistShader, HasASlopeOfParchmentByTheMoonWhereTheCameraLooksDown)
{
    Start(side);
    // Beside the moon and below it, and at the other end: first column and row of 14 by 8.
    struct Slope {
        Camera camera;
        int nearLeft, nearLow, farLeft, farLow;
    };
    for (const Slope& slope : {Slope{firstCamera, 196, 172, 2, 160}, Slope{thirdCamera, 40, 190, 240, 160}}) {
        const Picture scene = DrawScene(slope.camera);
        const auto warmth = [&](int left, int low) {
            return MeanOf(scene, left, left + 14, low, low + 8, 0) -
                   MeanOf(scene, left, left + 14, low, low + 8, 2);
        };
        EXPECT_GT(warmth(slope.nearLeft, slope.nearLow), 8) << slope.camera;
        EXPECT_LT(warmth(slope.farLeft, slope.farLow), warmth(slope.nearLeft, slope.nearLow) - 8)
            << slope.camera;
    }
    for (Camera camera : {secondCamera, lastCamera}) {
        const Picture scene = DrawScene(camera);
        EXPECT_GT(MeanOf(scene, 130, 160, 133, 138, 2), MeanOf(scene, 130, 160, 133, 138, 0) + 15) << camera;
    }
}

TEST_F(MistShader, LightsOneWindowOfAFarm)
{
    Start(side);
    // The window is a quarter of 0.024 of the height, or 0.9 columns, to the left of the farm's place.
    const int columns[] = {153, 199, 139, 40};
    for (Camera camera : {firstCamera, secondCamera, thirdCamera, lastCamera}) {
        int column = 0, row = 0;
        FindWarmest(DrawScene(camera), &column, &row);
        EXPECT_NEAR(columns[camera], column, 1) << camera;
        EXPECT_GT(row, camera == firstCamera || camera == thirdCamera ? 185 : 125) << camera;
        EXPECT_LT(row, camera == firstCamera || camera == thirdCamera ? 222 : 170) << camera;
    }
}

TEST_F(MistShader, DrawsFurrowsThatRunTogetherFarOff)
{
    Start(512);
    const Picture scene = DrawScene(thirdCamera);
    // The field's furrows run to a point 0.06 above its border, which is near 0.54 of the height. Each is a 3.4th of
    // the height apart where it is as far from the point as the picture is high: 0.31 below it, 18.3 go into the width,
    // 0.26 below it 21.8, and 0.19 below it 29.8.
    EXPECT_NEAR(18.3, Waves(scene, 145, 152), 1.5);
    EXPECT_NEAR(21.8, Waves(scene, 171, 178), 1.5);
    EXPECT_NEAR(29.8, Waves(scene, 207, 214), 2.5);
}

TEST_F(MistShader, LetsGrassStandAtItsFoot)
{
    Start(side);
    for (Camera camera : {firstCamera, secondCamera, thirdCamera, lastCamera}) {
        const Picture scene = DrawScene(camera);
        int low = 0, high = 0, above = 0;
        for (int x = 0; x < side; x++) {
            low += scene.At(x, 1)[2] < 26;
            high += scene.At(x, 14)[2] < 26;
            above += scene.At(x, camera == firstCamera || camera == thirdCamera ? 50 : 36)[2] < 26;
        }
        EXPECT_GT(low, 20) << camera;
        EXPECT_LT(low, 140) << camera;
        EXPECT_LT(high, low) << camera;
        EXPECT_EQ(0, above) << camera;
    }
}

TEST_F(MistShader, FencesTheNearFieldOfTheSecondCameraAndTheLast)
{
    Start(512);
    for (Camera camera : {firstCamera, secondCamera, thirdCamera, lastCamera}) {
        const Picture scene = DrawScene(camera);
        // Seven posts go into the width, each 0.07 of their distance wide, that is 5.1 columns. They stand on a border
        // that descends by 0.18 from left to right and from a quarter of the height, or ascends by 0.1 from a fifth.
        int found = 0;
        for (int post = 0; post < 6; post++) {
            double most = 0;
            for (int x = 73 * post + 20; x < 73 * post + 110; x++) {
                const double along = x / 512.0 - 0.5;
                const int row =
                    int(512 * (camera == secondCamera ? 0.25 - 0.18 * along : 0.21 + 0.1 * along)) + 16;
                double dark = 0;
                for (int y = row - 2; y < row + 8; y++)
                    dark += scene.At(x, y)[2] < 32;
                most = std::max(most, dark);
            }
            found += most >= 9;
        }
        if (camera == secondCamera || camera == lastCamera)
            EXPECT_GE(found, 5) << camera;
        else
            EXPECT_LE(found, 3) << camera;
    }
}

TEST_F(MistShader, LetsTwoTreesGrowOnTheField)
{
    Start(side);
    // Both trees' trunks, below their forks.
    const int trunks[][2] = {{28, 102}, {36, 77}, {192, 72}, {117, 159}};
    for (Camera camera : {firstCamera, secondCamera, thirdCamera, lastCamera}) {
        const Picture young =
            camera == lastCamera ? Draw(LandBelowTheSky(side, 120, 140), 0.25f) : Draw(Land(camera), 0.0f);
        const Picture grown = DrawScene(camera);
        for (int x : trunks[camera]) {
            EXPECT_LT(Darkest(grown, x, 134), 50) << camera << " " << x;
            EXPECT_GT(Darkest(young, x, 150), Darkest(grown, x, 134) + 15) << camera << " " << x;
        }
    }
}

TEST_F(MistShader, LaysTheTreesShadowsAwayFromTheMoon)
{
    Start(side);
    // The third camera's moon stands at the left.
    const Picture scene = DrawScene(thirdCamera);
    EXPECT_LT(MeanOf(scene, 195, 212, 96, 108, 2) + 8, MeanOf(scene, 165, 182, 96, 108, 2));
    EXPECT_LT(MeanOf(scene, 72, 84, 96, 112, 2) + 4, MeanOf(scene, 50, 62, 96, 112, 2));
}

TEST_F(MistShader, SetsAWoodBehindTheField)
{
    Start(side);
    for (Camera camera : {secondCamera, lastCamera}) {
        const Picture scene = DrawScene(camera);
        int dark = 0;
        for (int y = 170; y < 230; y += 10) {
            const double sky = OpenSky(scene, y, y + 1, 2);
            for (int x = 130; x < 205; x++) // to the right of the trees
                dark += scene.At(x, y)[2] + 6 < sky;
        }
        EXPECT_GT(dark, 20) << camera;
        EXPECT_LT(dark, 250) << camera;
    }
}

TEST_F(MistShader, HidesTheNightWhileTheTreesAreYoungAndLiftsAsTheyGrow)
{
    Start(side);
    const auto moon = [&](float strength) {
        return MeanOf(Draw(Land(secondCamera), strength), 217, 223, 208, 216, 0);
    };
    // The mist's way is 0.06 for each time that what is left to 0.45 becomes an e-th: it lifts from 0.05, which is an
    // intensity of 0.0154, until 0.22, which is 0.4244. Between is 0.135, which is 0.3446.
    const double newest = moon(-0.75f), young = moon(0.015f), growing = moon(0.3446f), grown = moon(0.4244f);
    EXPECT_LT(newest, 110);
    EXPECT_LT(young, 110);
    EXPECT_NEAR((young + grown) / 2, growing, 20);
    EXPECT_GT(grown, young + 80);
    EXPECT_NEAR(grown, moon(0.44f), 3);
}

TEST_F(MistShader, LiftsFromTheLastTreeAsItsCameraRises)
{
    Start(side);
    const auto mist = [&](int horizon, float strength) {
        return MeanOf(Draw(LandBelowTheSky(side, horizon, 140), strength), 0, 70, 225, 245, 0);
    };
    const double low = mist(118, 0.25f), middle = mist(129, 0.25f), high = mist(140, 0.25f);
    EXPECT_GT(low, 40);
    EXPECT_LT(middle, low - 8);
    EXPECT_LT(high, middle - 8);
    EXPECT_NEAR(mist(118, 0.26f), mist(140, 0.26f), 3) << "of another camera the land's border says nothing";
}

// The intensity approaches 0.45 as exp(-t) approaches 0: these are a second apart.
TEST_F(MistShader, DriftsOnAsTheIntensityComesToRest)
{
    Start(side);
    Picture last = Draw(Land(thirdCamera), 0.45f - 0.22f);
    for (float left : {0.081f, 0.030f, 0.011f, 0.004f}) {
        const Picture next = Draw(Land(thirdCamera), 0.45f - left);
        EXPECT_GT(Compare(next, last, 0).maximum, 6) << left;
        last = next;
    }
    EXPECT_LE(Compare(Draw(Land(thirdCamera), 0.449999f), Draw(Land(thirdCamera), 0.450001f), 0).maximum, 3)
        << "without a jump at the end";
}

TEST_F(MistShader, DriftsOnForTenSecondsBehindTheFirstTrees)
{
    Start(side);
    Picture last = Draw(Land(firstCamera), 0.95f - 0.5f);
    EXPECT_LE(Compare(Draw(Land(firstCamera), 0.95f - 0.4999f), last, 0).maximum, 6)
        << "the others come to rest here";
    for (float left : {0.0677f, 0.00916f, 0.00124f, 0.000168f}) { // two seconds each
        const Picture next = Draw(Land(firstCamera), 0.95f - left);
        EXPECT_GT(Compare(next, last, 0).maximum, 6) << left;
        last = next;
    }
}

TEST_F(MistShader, PaintsALandscapeForEachCamera)
{
    Start(side);
    const char* const names[] = {"MistShader-first", "MistShader-second", "MistShader-third",
                                 "MistShader-last"};
    for (Camera camera : {firstCamera, secondCamera, thirdCamera, lastCamera}) {
        Picture drawn = Land(camera);
        Fill(&drawn, 190, 206, 125, 210, 200, 120, 40);
        EXPECT_TRUE(MatchesGolden(
            Upright(Draw(drawn, Clearest(camera))), names[camera],
            Tolerance("noise may differ in its last digit, which moves edges by a part of a pixel")
                .Maximum(4)
                .Mean(0.15)
                .Share(0.003)));
    }
}
