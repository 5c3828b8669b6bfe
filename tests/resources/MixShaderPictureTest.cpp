// SPDX-License-Identifier: MIT
// The cross-fade of two pictures.
#include "tests/resources/TwoPicturesFixture.h"

#include <algorithm>

class MixShader : public TwoPicturesFixture
{
};

TEST_F(MixShader, CrossFadesFromTheFirstToTheSecond)
{
    Picture second = SlopePicture(64, 64);
    std::reverse(second.pixels.begin(), second.pixels.end());
    Start("data/mix.fp", SlopePicture(64, 64), second);
    const Picture atZero = DrawPlain(&firstTexture, 1, 0.5f, 0.25f);
    const Picture atOne = DrawPlain(&secondTexture, 1, 0.5f, 0.25f);
    for (float delta : {0.0f, 0.25f, 1.0f}) {
        const Picture mixed = Draw(delta, 1, 0.5f, 0.25f);
        for (size_t i = 0; i < mixed.pixels.size(); i++)
            ASSERT_NEAR((1 - delta) * atZero.pixels[i] + delta * atOne.pixels[i], mixed.pixels[i], 1.01)
                << delta;
    }
}

TEST_F(MixShader, CrossFadesWithTheirAlphaAndThatOfTheVertices)
{
    Start("data/mix.fp", PlainPicture(4, 4, 4, 200, 200, 200, 255), PlainPicture(4, 4, 4, 200, 200, 200, 0));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_NEAR(200, *Draw(0).At(30, 30), 1);
    EXPECT_NEAR(150, *Draw(0.25f).At(30, 30), 1);
    EXPECT_NEAR(0, *Draw(1).At(30, 30), 1);
    EXPECT_NEAR(100, *Draw(0, 1, 1, 1, 0.5f).At(30, 30), 1);
    EXPECT_NEAR(75, *Draw(0.25f, 1, 1, 1, 0.5f).At(30, 30), 1);
}
