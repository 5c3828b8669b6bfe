// SPDX-License-Identifier: MIT
// The painting and the light that runs along its ways.
#include "tests/resources/TwoPicturesFixture.h"

#include <algorithm>
#include <cmath>

// Bands of the mask from black on the left to white on the right. A grey mask is all way.
class GlowShader : public TwoPicturesFixture
{
protected:
    static const int side = 120;
    static constexpr float lastLight = 5.4f; // delta, after which night falls, until 5.43

    static float Bands(float x, float) { return std::floor(x * 6) / 5; }

    void StartBands()
    {
        Start("data/glowmask.fp", PlainPicture(8, 8, 3, 100, 80, 60), Paint(side, Bands), side);
    }

    static void BlendAsTheEffectDoes()
    {
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    }

    // The red of band 0 (black) to 5 (white), in its middle.
    static int Red(const Picture& picture, int band)
    {
        return *picture.At(band * side / 6 + side / 12, side / 2);
    }
};

TEST_F(GlowShader, ShowsThePlainPaintingAtZeroAndBelow)
{
    Start("data/glowmask.fp", SlopePicture(64, 64), SlopePicture(64, 64));
    const Picture plain = DrawPlain(&firstTexture, 1, 0.5f, 0.25f);
    for (float delta : {0.0f, -1.0f, -1e6f})
        EXPECT_EQ(plain.pixels, Draw(delta, 1, 0.5f, 0.25f).pixels) << delta;
    EXPECT_NE(plain.pixels, Draw(1, 1, 0.5f, 0.25f).pixels);
}

TEST_F(GlowShader, StartsWithoutAJump)
{
    StartBands();
    const Picture plain = Draw(0);
    const Picture first = Draw(0.5f / 60); // a frame later
    for (size_t i = 0; i < plain.pixels.size(); i++)
        ASSERT_NEAR(plain.pixels[i], first.pixels[i], 1);
}

TEST_F(GlowShader, LetsTheLightReachTheDarkerBandsFirst)
{
    StartBands();
    // The light comes by a band of the mask's value m at delta = 2 m, and 0.16 later it is at its brightest.
    for (int band = 1; band <= 5; band++) {
        const float arrival = 2 * float(band) / 5;
        const int early = Red(Draw(arrival - 0.05f), band);
        const Picture peak = Draw(arrival + 0.16f);
        EXPECT_GT(Red(peak, band), early + 30) << band;
        for (int later = band + 1; later <= 5; later++)
            EXPECT_LT(Red(peak, later), Red(peak, band) - 30) << band << " " << later;
    }
}

TEST_F(GlowShader, NeverLightsWhatIsBlackInTheMask)
{
    StartBands();
    for (float delta = 0.1f; delta <= lastLight; delta += 0.3f)
        EXPECT_LE(Red(Draw(delta), 0), 100) << delta;
}

TEST_F(GlowShader, SendsASecondWaveLikeTheFirst)
{
    StartBands();
    const float again = 2 * 1.35f; // delta from one wave to the next
    for (int band = 3; band <= 5;
         band++) { // which the first one reaches when the painting has sunk into its dusk
        const float peak = 2 * float(band) / 5 + 0.16f;
        EXPECT_NEAR(Red(Draw(peak), band), Red(Draw(peak + again), band), 2);
        EXPECT_GT(Red(Draw(peak), band), Red(Draw(peak + again * 0.9f), band) + 20);
    }
}

// The mist over black is 0.066, 0.080 and 0.154 of 255, that is 17, 20 and 39. It is 0.80 to 1.18 of that, as it lies high or
// low, and by 14 parts in 100 thinner and by 16 thicker where the paper has its tooth: 12 to 23, 14 to 28 and 27 to 54. The
// haze of the moon adds nothing far from it, and 0.08 times 0.77, 0.82 and 1 of 255 where it stands, which is high, as much
// thicker with the tooth. Of what lies under them the mist hides 0.107 to 0.214, and up to 0.26 with the moon's haze: of a
// white 27 to 66 levels.
TEST_F(GlowShader, IsAThinMistOverWhatLiesUnderItWhenAllHasBeenSeen)
{
    const struct {
        float under;
        int darkest[3], brightest[3];
    } rows[] = {
        {0, {10, 13, 26}, {37, 42, 69}},
        {1, {220, 225, 249}, {241, 244, 255}},
    };
    StartBands();
    BlendAsTheEffectDoes();
    for (const auto& row : rows) {
        glClearColor(row.under, row.under, row.under, 1);
        const Picture night = Draw(5.43f);
        EXPECT_EQ(night.pixels, Draw(9).pixels) << row.under;
        int least = 255, most = 0; // of the red
        for (size_t i = 0; i < night.pixels.size(); i++) {
            ASSERT_LE(row.darkest[i % 3], night.pixels[i]) << row.under << " " << i;
            ASSERT_GE(row.brightest[i % 3], night.pixels[i]) << row.under << " " << i;
            least = i % 3 == 0 ? std::min<int>(least, night.pixels[i]) : least;
            most = i % 3 == 0 ? std::max<int>(most, night.pixels[i]) : most;
        }
        EXPECT_GE(most - least, 2) << "the tooth of the paper is seen";
    }
}

// The camera looks at the fire of the plaza, which stands a little under the middle of the screen. On the way there is none.
TEST_F(GlowShader, LaysAWarmHazeAboutTheFireOnceTheWayIsDone)
{
    StartBands();
    BlendAsTheEffectDoes();
    glClearColor(0, 0, 0, 1);
    struct Tint {
        int red = 0, blue = 0;
    };
    const auto mean = [](const Picture& picture, int x, int y) { // of 20 by 20 pixels
        Tint tint;
        for (int dy = 0; dy < 20; dy++)
            for (int dx = 0; dx < 20; dx++) {
                tint.red += picture.At(x + dx, y + dy)[0];
                tint.blue += picture.At(x + dx, y + dy)[2];
            }
        return Tint{tint.red / 400, tint.blue / 400};
    };
    const int middle = side / 2 - 10, lowest = side - 20; // the top row comes first
    const Picture way = Draw(8), plaza = Draw(20);
    // 0.12 of 255 is 31 of red, a tenth less over so many pixels, and 0.24 of that of blue.
    EXPECT_NEAR(17 + 28, mean(plaza, middle, middle).red, 5);
    EXPECT_NEAR(40 + 7, mean(plaza, middle, middle).blue, 5);
    EXPECT_LT(mean(way, middle, middle).red, mean(way, middle, middle).blue - 15);
    // In the corners it is cold: the mist alone, of which four parts in five are there.
    for (const int x : {0, side - 20}) {
        EXPECT_NEAR(14, mean(plaza, x, lowest).red, 5) << x;
        EXPECT_NEAR(32, mean(plaza, x, lowest).blue, 6) << x;
    }
    EXPECT_EQ(plaza.pixels, Draw(40).pixels);
}

// What stands on the ground is darker the higher it rises, most of all on the plaza.
TEST_F(GlowShader, LaysTheMistOnTheGround)
{
    StartBands();
    BlendAsTheEffectDoes();
    glClearColor(0, 0, 0, 1);
    const auto blue = [](const Picture& picture, int y) { // of 20 pixels at both borders and four rows
        int sum = 0;
        for (int dy = 0; dy < 4; dy++)
            for (int x = 0; x < 20; x++)
                sum += picture.At(x, y + dy)[2] + picture.At(side - 1 - x, y + dy)[2];
        return sum / 160;
    };
    const Picture plaza = Draw(20);
    // 39 of blue are 0.46 of that at the top, 1.18 where the mist is thickest, and 0.65 at the bottom.
    const int feet = 76; // of 120 rows
    EXPECT_NEAR(18, blue(plaza, 0), 4);
    EXPECT_NEAR(46, blue(plaza, feet), 7);
    EXPECT_NEAR(26, blue(plaza, side - 4), 5);
    for (int y = 0; y + 8 < feet; y += 8)
        EXPECT_LE(blue(plaza, y), blue(plaza, y + 8) + 2) << y;
    // On the way the sky keeps more of it.
    EXPECT_GE(blue(Draw(8), 0), blue(plaza, 0) + 8);
}

// The moon is seen right above the middle, and stays behind when the camera turns.
TEST_F(GlowShader, LaysAColdHazeAboutTheMoonAsLongAsOneIsOnTheWay)
{
    StartBands();
    BlendAsTheEffectDoes();
    glClearColor(0, 0, 0, 1);
    const auto blueAt = [](const Picture& picture, int x, int y) { // of 10 by 10 pixels
        int sum = 0;
        for (int dy = -5; dy < 5; dy++)
            for (int dx = -5; dx < 5; dx++)
                sum += picture.At(x + dx, y + dy)[2];
        return sum / 100;
    };
    // 0.61 of the width from the left, and 0.19 of the height from the top.
    const int x = 73, y = 23;
    const Picture way = Draw(8), plaza = Draw(20);
    EXPECT_NEAR(33 + 20, blueAt(way, x, y), 6);
    EXPECT_GE(blueAt(way, x, y), blueAt(way, 6, side - 6) + 9);
    EXPECT_GE(blueAt(way, x, y), blueAt(plaza, x, y) + 9);
}

// The painting of the black band has a red of 100, and of 86 in its dusk. Halfway, at 5.415, half of it is left, and half
// of the mist is there, which is 7 to 10 of red by itself. Of what lies under both, 0.41 to 0.44 comes through: 104 to
// 111 of a white.
TEST_F(GlowShader, GivesWayToTheMistWithoutHidingWhatLiesUnderBoth)
{
    StartBands();
    BlendAsTheEffectDoes();
    EXPECT_NEAR(86, Red(Draw(lastLight), 0), 1) << "it falls no sooner";
    EXPECT_NEAR(51.5, Red(Draw(5.415f), 0), 3);
    glClearColor(1, 1, 1, 1);
    EXPECT_NEAR(86, Red(Draw(lastLight), 0), 1) << "a painting hides what lies under it";
    EXPECT_NEAR(159, Red(Draw(5.415f), 0), 4);
    int last = 86;
    for (float delta = lastLight; delta < 5.44f; delta += 0.001f) {
        const int next = Red(Draw(delta), 0);
        ASSERT_GE(next, last - 1) << delta << ": no frame is darker than the one before";
        ASSERT_LE(next, last + 12) << delta;
        last = std::max(last, next);
    }
    EXPECT_NEAR(232, last, 5);
}

TEST_F(GlowShader, IsWarmAndNeverBurnsOut)
{
    StartBands();
    for (float delta = 0.5f; delta <= lastLight; delta += 0.5f) {
        const Picture picture = Draw(delta);
        for (int i = 0; i < picture.width * picture.height; i++) {
            const unsigned char* const pixel = &picture.pixels[size_t(i) * 3];
            ASSERT_GT(pixel[0], pixel[1]) << delta;
            ASSERT_GT(pixel[1], pixel[2]) << delta;
            ASSERT_LT(pixel[0], 255) << delta;
            ASSERT_LT(pixel[2], 210) << delta;
        }
    }
}

// But for the 0.06 seconds in which night falls, which a white flash hides.
TEST_F(GlowShader, MovesWithoutAJumpFromFrameToFrame)
{
    StartBands();
    BlendAsTheEffectDoes();
    Picture last = Draw(0.5f);
    for (float delta = 0.5f; delta <= 10; delta += 0.5f / 60) {
        const Picture next = Draw(delta);
        for (int band = 0; band < 6 && (delta <= lastLight || delta >= 5.43f + 0.5f / 60); band++)
            ASSERT_NEAR(Red(last, band), Red(next, band), 22) << band << " " << delta;
        last = next;
    }
}

// Masks of one colour over a plain painting. The light comes by at 0.4 and is brightest at 0.56: there it is at
// 1.125, at 0.59 of what it will be once the painting has sunk into its dusk, 0.55 parts of it from the way and 0.75
// from the halo. The painting's red of 100 is then 92 unlit.
TEST_F(GlowShader, TakesTheWaysFromRedTheirHaloFromGreenAndTheTimeFromBlue)
{
    const struct {
        int red, green, blue;
        int more; // red than unlit
    } masks[] = {
        {51, 51, 51, 127}, {0, 51, 51, 84}, {51, 0, 51, 65}, {0, 25, 51, 45}, {0, 0, 51, 0}, {51, 51, 0, 0},
    };
    Start("data/glowmask.fp", PlainPicture(4, 4, 3, 100, 80, 60), PlainPicture(4, 4, 3, 0, 0, 0));
    const int unlitBefore = *Draw(0.35f).At(30, 30), unlit = *Draw(0.56f).At(30, 30);
    EXPECT_NEAR(92, unlit, 1);
    for (const auto& mask : masks) {
        MakeTexture(&secondTexture, PlainPicture(4, 4, 3, mask.red, mask.green, mask.blue));
        EXPECT_EQ(unlitBefore, *Draw(0.35f).At(30, 30)) << "not before its time";
        EXPECT_NEAR(mask.more, *Draw(0.56f).At(30, 30) - unlit, 2)
            << mask.red << " " << mask.green << " " << mask.blue;
    }
}

TEST_F(GlowShader, KeepsTheAlphaOfPaintingAndVertices)
{
    Start("data/glowmask.fp", PlainPicture(4, 4, 4, 100, 100, 100, 128), PlainPicture(4, 4, 3, 0, 0, 0));
    BlendAsTheEffectDoes();
    const int whole = *Draw(5).At(30, 30);
    const int half = *Draw(5, 1, 1, 1, 0.5f).At(30, 30);
    EXPECT_NEAR(100 * 0.86 * 0.5, whole, 2);
    EXPECT_NEAR(whole * 0.5, half, 1);
}

// The golden images: a ring that the light runs round.

static float FromRing(float x, float y)
{
    const float dx = x - 0.5f, dy = y - 0.5f;
    return std::fabs(std::sqrt(dx * dx + dy * dy) - 0.33f) / 0.011f;
}

static float RingTime(float x, float y)
{
    const float time = 0.2f + 0.8f * (std::atan2(y - 0.5f, x - 0.5f) + 3.1415927f) / 6.2831853f;
    return FromRing(x, y) < 3 ? time : 0;
}

static float Ring(float x, float y)
{
    return RingTime(x, y) * std::max(0.0f, 1 - FromRing(x, y));
}

static float RingHalo(float x, float y)
{
    return RingTime(x, y) * 0.5f * std::max(0.0f, 1 - FromRing(x, y) / 2);
}

TEST_F(GlowShader, RunsRoundARing)
{
    Picture ring = Paint(256, Ring);
    const Picture halo = Paint(256, RingHalo), time = Paint(256, RingTime);
    for (size_t i = 0; i < ring.pixels.size(); i += 3) {
        ring.pixels[i + 1] = halo.pixels[i];
        ring.pixels[i + 2] = time.pixels[i];
    }
    Start("data/glowmask.fp", SlopePicture(60, 40), ring, 192);
    const char* const names[] = {"GlowShader-arriving", "GlowShader-halfway", "GlowShader-late"};
    const float deltas[] = {0.7f, 1.3f, 5.2f};
    for (int i = 0; i < 3; i++)
        EXPECT_TRUE(MatchesGolden(Draw(deltas[i]), names[i],
                                  Tolerance("exp and smoothstep are approximated").Maximum(3)));
}
