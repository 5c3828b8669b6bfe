// SPDX-License-Identifier: MIT
// The off-screen target's picture, and its life.
#include "tests/display/RenderTargetFixture.h"

TEST_F(OffScreen, ItsPictureHasItsOriginAtTheLowerLeft)
{
    RenderTarget::Begin();
    FlatInTarget();
    Fill(0, 0, 0.5f, 0.5f, 1, 0, 0);
    Fill(0.5f, 0, 1, 0.5f, 0, 1, 0);
    Fill(0, 0.5f, 0.5f, 1, 0, 0, 1);
    RenderTarget::End();
    Show();
    EXPECT_EQ(Red(), At(25, 25));
    EXPECT_EQ(Green(), At(75, 25));
    EXPECT_EQ(Blue(), At(25, 75));
    EXPECT_EQ(Black(), At(75, 75));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(OffScreen, ItsPictureIsFilteredLinearlyBetweenTwoTexels)
{
    RenderTarget::Begin();
    FlatInTarget();
    Fill(0.5f, 0, 1, 1, 1, 1, 1);
    RenderTarget::End();
    // Four texels across the window, 25 pixels each; the second and the third are centred on 37.5 and 62.5.
    Show(254.0f / targetSide, 0, 258.0f / targetSide, 1);
    const Picture picture = Grab();
    for (int x = 0; x < side; x++) {
        const double way = (x + 0.5 - 37.5) / 25;
        const double expected = way < 0 ? 0 : way > 1 ? 255 : 255 * way;
        EXPECT_NEAR(expected, picture.At(x, 50)[0], 1 + tolerated) << x;
    }
}

TEST_F(OffScreen, ItsPictureIsClampedToItsEdges)
{
    RenderTarget::Begin();
    FlatInTarget();
    Fill(0, 0, 0.5f, 1, 1, 0, 0);
    Fill(0.5f, 0, 1, 1, 0, 0, 1);
    RenderTarget::End();
    Show(-1, 0, 2, 1);
    EXPECT_EQ(Red(), At(2, 50)) << "repeated it would be blue";
    EXPECT_EQ(Red(), At(33, 50)) << "at the edge itself nothing of the other side comes in";
    EXPECT_EQ(Blue(), At(66, 50));
    EXPECT_EQ(Blue(), At(97, 50));

    RenderTarget::Begin();
    FlatInTarget();
    Fill(0, 0, 1, 0.5f, 1, 0, 0);
    Fill(0, 0.5f, 1, 1, 0, 0, 1);
    RenderTarget::End();
    Show(0, -1, 1, 2);
    EXPECT_EQ(Red(), At(50, 2));
    EXPECT_EQ(Red(), At(50, 33));
    EXPECT_EQ(Blue(), At(50, 66));
    EXPECT_EQ(Blue(), At(50, 97));
}

TEST_F(OffScreen, HasEightBitsAChannelAndADepthBufferOf24)
{
    RenderTarget::Begin();
    for (const GLenum bits : {GL_RED_BITS, GL_GREEN_BITS, GL_BLUE_BITS, GL_ALPHA_BITS})
        EXPECT_EQ(8, GetInt(bits)) << bits;
    EXPECT_EQ(24, GetInt(GL_DEPTH_BITS));

    // Two planes that a depth buffer of 16 bits can't tell apart.
    FlatInTarget();
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glTranslatef(0, 0, 0.000004f);
    Fill(0, 0, 1, 1, 0, 1, 0);
    glLoadIdentity();
    Fill(0, 0, 1, 1, 1, 0, 0);
    RenderTarget::End();
    Show();
    EXPECT_EQ(Green(), At(50, 50));
}

TEST_F(OffScreen, KeepsTheAlphaOfWhatIsDrawn)
{
    RenderTarget::Begin();
    FlatInTarget();
    glColor4f(1, 1, 1, 0.5f);
    glRectf(0, 0, 1, 1);
    RenderTarget::End();
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClear(GL_COLOR_BUFFER_BIT);
    Show();
    EXPECT_NEAR(128, At(50, 50)[0], tolerated);
}

TEST_F(OffScreen, BeginsWithItsOwnClearColourAndAFreshDepth)
{
    glClearColor(1, 0, 0, 1);
    RenderTarget::Begin();
    RenderTarget::End();
    Show();
    EXPECT_EQ(Black(), At(50, 50)) << "the window's clear colour is the window's";

    RenderTarget::Begin();
    glClearColor(0, 0, 1, 1);
    FlatInTarget();
    glEnable(GL_DEPTH_TEST);
    Fill(0, 0, 1, 1, 0, 1, 0); // depth is written here
    RenderTarget::End();
    RenderTarget::Begin();
    glTranslatef(0, 0, -0.5f); // behind it
    Fill(0, 0, 0.5f, 1, 1, 0, 0);
    RenderTarget::End();
    Show();
    EXPECT_EQ(Red(), At(25, 50)) << "the depth of the frame before is gone";
    EXPECT_EQ(Blue(), At(75, 50)) << "the target's own clear colour";
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_EQ(Red(), At(50, 50)) << "the window still has its own";
}

TEST_F(OffScreen, MadeAgainItHasTheNewSizeAndAStateAsNew)
{
    RenderTarget::BindTexture();
    const int firstPicture = GetInt(GL_TEXTURE_BINDING_2D);
    RenderTarget::Begin();
    glClearColor(1, 0, 0, 1);
    glEnable(GL_LIGHTING);
    RenderTarget::End();

    ASSERT_TRUE(RenderTarget::Create(&window, anotherSide, anotherSide / 2));
    EXPECT_EQ(0, GetInt(GL_FRAMEBUFFER_BINDING)) << "the window's context is current";
    RenderTarget::BindTexture();
    EXPECT_NE(firstPicture, GetInt(GL_TEXTURE_BINDING_2D));
    int size = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &size);
    EXPECT_EQ(anotherSide, size);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &size);
    EXPECT_EQ(anotherSide / 2, size);

    RenderTarget::Begin();
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    FlatInTarget(anotherSide, anotherSide / 2);
    Fill(0, 0, 0.5f, 1, 0, 1, 0);
    RenderTarget::End();
    Show();
    EXPECT_EQ(Green(), At(25, 50));
    EXPECT_EQ(Black(), At(75, 50)) << "not in the first one's clear colour";
}

TEST_F(OffScreen, MadeAgainInTheMiddleOfAFrameTheWindowIsStillTheWindow)
{
    RenderTarget::Begin();
    ASSERT_TRUE(RenderTarget::Create(&window, anotherSide, anotherSide));
    EXPECT_EQ(0, GetInt(GL_FRAMEBUFFER_BINDING));
    RenderTarget::Begin();
    FlatInTarget(anotherSide, anotherSide);
    Fill(0, 0, 1, 1, 0, 0, 1);
    RenderTarget::End();
    EXPECT_EQ(0, GetInt(GL_FRAMEBUFFER_BINDING));
    Show();
    EXPECT_EQ(Blue(), At(50, 50));
}

TEST_F(OffScreen, GivenBackTheSceneGoesIntoTheWindow)
{
    RenderTarget::Destroy();
    RenderTarget::Destroy();
    window.SetLetterbox(1);
    glBindTexture(GL_TEXTURE_2D, 0);
    glClear(GL_COLOR_BUFFER_BIT);

    RenderTarget::Begin();
    RenderTarget::SetProjection(side, side / 2, 90); // half a window: the one operation that still works
    glTranslatef(0, 0, -1);
    Fill(-2, -1, 2, 1, 1, 0, 0);
    RenderTarget::End();
    EXPECT_EQ(Red(), At(50, 25));
    EXPECT_EQ(Black(), At(50, 75));
    int viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(side / 2, viewport[3]) << "End left the band alone";
    RenderTarget::BindTexture();
    EXPECT_EQ(0, GetInt(GL_TEXTURE_BINDING_2D));
    RenderTarget::ReleaseTexture();

    ASSERT_TRUE(RenderTarget::Create(&window, targetSide, targetSide));
    RenderTarget::Begin();
    FlatInTarget();
    Fill(0, 0, 1, 1, 0, 1, 0);
    RenderTarget::End();
    Show();
    EXPECT_EQ(Green(), At(50, 75));
}

TEST_F(OffScreen, GivenBackInTheMiddleOfAFrameTheWindowIsCurrent)
{
    RenderTarget::Begin();
    RenderTarget::Destroy();
    EXPECT_EQ(0, GetInt(GL_FRAMEBUFFER_BINDING));
    RenderTarget::End();
    Flat();
    window.SetLetterbox(1);
    Fill(0, 0, 1, 1, 0, 0, 1);
    EXPECT_EQ(Blue(), At(50, 50));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(OffScreen, AfterTheWindowIsGoneNothingHappens)
{
    platform::PostQuit(0);
    window.PumpMessage();
    window.Destroy();
    RenderTarget::Begin();
    RenderTarget::End();
    RenderTarget::BindTexture();
    RenderTarget::ReleaseTexture();
    RenderTarget::Destroy();
    EXPECT_FALSE(RenderTarget::Create(&window, anotherSide, anotherSide));
}

class NoOffScreen : public PictureFixture
{
};

TEST_F(NoOffScreen, WithoutAWindowItCannotBeMadeAndEverythingIsHarmless)
{
    EXPECT_FALSE(RenderTarget::Create(&window, anotherSide, anotherSide));
    RenderTarget::Begin();
    RenderTarget::End();
    RenderTarget::BindTexture();
    RenderTarget::ReleaseTexture();
    RenderTarget::Destroy();
    ASSERT_TRUE(Open(side, side)) << "and it is made with the window after all";
    RenderTarget::Begin();
    EXPECT_EQ(24, [] {
        int bits = 0;
        glGetIntegerv(GL_DEPTH_BITS, &bits);
        return bits;
    }());
    RenderTarget::End();
}
