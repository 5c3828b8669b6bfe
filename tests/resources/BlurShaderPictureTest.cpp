// SPDX-License-Identifier: MIT
// The blur of a picture that is laid over a scene. What the same shader makes of a scene stands in
// MistShaderPictureTest.cpp.
#include "tests/resources/BlurFixture.h"

#include <algorithm>
#include <cmath>

class BlurShader : public BlurFixture
{
protected:
    static int LargestStep(const Picture& picture)
    {
        int largest = 0;
        for (int y = 0; y < picture.height; y++)
            for (int x = 0; x < picture.width; x++) {
                if (x > 0)
                    largest = std::max(largest, abs(*picture.At(x, y) - *picture.At(x - 1, y)));
                if (y > 0)
                    largest = std::max(largest, abs(*picture.At(x, y) - *picture.At(x, y - 1)));
            }
        return largest;
    }
};

TEST_F(BlurShader, ShowsThePlainPictureAtZeroAndBelow)
{
    Start(64);
    Texture texture;
    MakeTexture(&texture, SlopePicture(64, 64));
    const Picture plain = DrawPlain(&texture, 1, 0.5f, 0.25f);
    for (float strength : {0.0f, -0.25f, -100.0f})
        EXPECT_EQ(plain.pixels, DrawBlurred(&texture, strength, 1, 0.5f, 0.25f).pixels) << strength;
    EXPECT_NE(plain.pixels, DrawBlurred(&texture, 0.5f, 1, 0.5f, 0.25f).pixels);
}

TEST_F(BlurShader, KeepsAPlainColourAndAppliesColourAndAlpha)
{
    Start(64);
    Texture texture;
    MakeTexture(&texture, PlainPicture(8, 8, 4, 200, 100, 40, 128));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    const Picture plain = DrawPlain(&texture, 1, 0.5f, 0.25f, 0.5f);
    EXPECT_NEAR(50, *plain.At(30, 30), 2); // 200 at a quarter: both alphas count
    for (float strength : {0.25f, 1.0f}) {
        const Picture blurred = DrawBlurred(&texture, strength, 1, 0.5f, 0.25f, 0.5f);
        for (size_t i = 0; i < plain.pixels.size(); i++)
            ASSERT_NEAR(plain.pixels[i], blurred.pixels[i], 1) << strength;
    }
}

TEST_F(BlurShader, HasNoVisibleStepsAt512By512)
{
    Start(512);
    float (*const edges[])(float, float) = {
        [](float x, float) { return x < 0.5f ? 0.0f : 1.0f; },
        [](float, float y) { return y < 0.5f ? 0.0f : 1.0f; },
        [](float x, float y) { return x + 0.7f * y < 0.8f ? 0.0f : 1.0f; },
    };
    for (auto edge : edges) {
        Texture texture;
        MakeTexture(&texture, Paint(512, edge));
        EXPECT_EQ(255, LargestStep(DrawPlain(&texture)));
        // The stronger the blur, the more pixels share the edge: about 5 at the resting strength, 22 at 1.
        EXPECT_LE(LargestStep(DrawBlurred(&texture, 0.25f)), 85);
        EXPECT_LE(LargestStep(DrawBlurred(&texture, 0.5f)), 55);
        EXPECT_LE(LargestStep(DrawBlurred(&texture, 1)), 42);
    }
}

TEST_F(BlurShader, SpreadsABrightLineByAFiftiethOfTheSideAndKeepsItsLight)
{
    Start(512);
    Texture texture;
    MakeTexture(&texture, Paint(512, [](float x, float) { return x > 0.49f && x < 0.51f ? 1.0f : 0.0f; }));
    const double light = MeanOf(DrawPlain(&texture));
    const Picture blurred = DrawBlurred(&texture, 1);
    EXPECT_NEAR(light, MeanOf(blurred), 0.15);
    int left = 0;
    while (*blurred.At(left, 256) == 0)
        left++;
    EXPECT_NEAR(0.49 - 0.022, left / 512.0, 0.004); // where the disc's rim ends
    const Picture half = DrawBlurred(&texture, 0.5f);
    EXPECT_NEAR(light, MeanOf(half), 0.15);
    left = 0;
    while (*half.At(left, 256) == 0)
        left++;
    EXPECT_NEAR(0.49 - 0.011, left / 512.0, 0.004);
    EXPECT_GT(*half.At(256, 256), *blurred.At(256, 256));
}

TEST_F(BlurShader, GrowsWithoutAJumpFromThePlainPicture)
{
    Start(128);
    Texture texture;
    MakeTexture(&texture, SlopePicture(64, 40));
    const Picture plain = DrawPlain(&texture);
    const Picture faint = DrawBlurred(&texture, 0.002f);
    for (int y = 4; y < 124; y++) // the border is another matter: the wrap repeats, the blur does not
        for (int x = 4; x < 124; x++)
            ASSERT_NEAR(*plain.At(x, y), *faint.At(x, y), 2) << x << " " << y;
}

TEST_F(BlurShader, LetsNothingInFromTheOtherSide)
{
    Start(256);
    Texture texture;
    MakeTexture(&texture, Paint(1024, [](float x, float y) { return x > 0.5f && y > 0.5f ? 1.0f : 0.0f; }));
    const Picture blurred = DrawBlurred(&texture, 1);
    for (int i = 0; i < 256; i++) {
        ASSERT_EQ(0, *blurred.At(0, i));
        ASSERT_EQ(0, *blurred.At(i, 0));
    }
    EXPECT_EQ(255, *blurred.At(255, 255));
}

TEST_F(BlurShader, PutsALineAndADotOutOfFocus)
{
    Start(128);
    Texture texture;
    MakeTexture(&texture, Paint(512, [](float x, float y) {
        const float dx = x - 0.7f, dy = y - 0.3f;
        return std::fabs(x + 2 * y - 1.1f) < 0.02f || dx * dx + dy * dy < 0.006f ? 1.0f : 0.1f;
    }));
    EXPECT_TRUE(MatchesGolden(DrawBlurred(&texture, 0.25f), "BlurShader-resting",
                              Tolerance("the taps' places are rounded").Maximum(3)));
    EXPECT_TRUE(MatchesGolden(DrawBlurred(&texture, 1), "BlurShader-strong",
                              Tolerance("the taps' places are rounded").Maximum(3)));
}
