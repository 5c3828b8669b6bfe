// SPDX-License-Identifier: MIT
#include "tests/support/picture/PictureFixture.h"

#include "effects/BlackFlashOverlay.h"
#include "effects/WhiteFlashOverlay.h"

#include <GL/glew.h>

// What lies below the flash: black to full colour from left to right, a red and a green corner on top.
class Backdrop : public Effect
{
public:
    void Init(GLWindow*, DemoPlayer*) override {}
    void DeclareMessages(SynchMessageTable*) override {}
    void Update() override {}
    void ReceiveMessage(int, float*, int) override {}

    void Render() override
    {
        GLWindow::SetPerspective(45);
        glTranslatef(0, 0, -1);
        glDisable(GL_TEXTURE_2D);
        glBegin(GL_QUADS);
        {
            glColor3f(0, 0, 0);
            glVertex2f(-0.6f, -0.6f);
            glColor3f(1, 1, 1);
            glVertex2f(0.6f, -0.6f);
            glColor3f(0, 1, 0);
            glVertex2f(0.6f, 0.6f);
            glColor3f(1, 0, 0);
            glVertex2f(-0.6f, 0.6f);
        }
        glEnd();
    }
};

class FlashOverlaysPicture : public PictureFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(Open(320, 240)); }

    void DrawOver(Effect* overlay)
    {
        Frame(&backdrop);
        Overlay(overlay);
    }

    static Tolerance Smooth()
    {
        return Tolerance("a ramp of colours: interpolation and blending may round the other way").Maximum(1);
    }

    Backdrop backdrop;
};

TEST_F(FlashOverlaysPicture, TheBackdropIsWhereAnOverlayAtRestLeavesIt)
{
    Frame(&backdrop);
    const Picture below = Grab();
    EXPECT_TRUE(MatchesGolden(below, "Flash-backdrop", Smooth()));
    WhiteFlashOverlay white;
    Prepare(&white);
    DrawOver(&white);
    EXPECT_EQ(0, Compare(Grab(), below, 0).maximum);
    BlackFlashOverlay black;
    Prepare(&black);
    DrawOver(&black);
    EXPECT_EQ(0, Compare(Grab(), below, 0).maximum);
}

TEST_F(FlashOverlaysPicture, AtItsPeakTheWhiteFlashAddsNineTenthsEverywhere)
{
    WhiteFlashOverlay overlay;
    Prepare(&overlay);
    Send(&overlay, "flash");
    DrawOver(&overlay);
    const Picture picture = Grab();
    for (int y : {0, 119, 239})
        for (int x : {0, 160, 319})
            for (int i = 0; i < 3; i++)
                EXPECT_GE(picture.At(x, y)[i], 229) << x << " " << y;
    EXPECT_TRUE(MatchesGolden(picture, "WhiteFlash-peak", Smooth()));
}

TEST_F(FlashOverlaysPicture, HalfWayTheWhiteFlashAddsHalfOfThat)
{
    WhiteFlashOverlay overlay;
    Prepare(&overlay);
    Send(&overlay, "flash", {2});
    PassTime(0.25);
    overlay.Update();
    DrawOver(&overlay);
    EXPECT_TRUE(MatchesGolden(Grab(), "WhiteFlash-half", Smooth()));
}

TEST_F(FlashOverlaysPicture, AtItsPeakTheBlackFlashLeavesNothing)
{
    BlackFlashOverlay overlay;
    Prepare(&overlay);
    Send(&overlay, "flash");
    DrawOver(&overlay);
    EXPECT_EQ(0, Compare(Grab(), PlainPicture(320, 240, 3, 0, 0, 0), 0).maximum);
}

TEST_F(FlashOverlaysPicture, HalfWayTheBlackFlashHalvesThePicture)
{
    BlackFlashOverlay overlay;
    Prepare(&overlay);
    Send(&overlay, "flash", {2});
    PassTime(0.25);
    overlay.Update();
    DrawOver(&overlay);
    EXPECT_TRUE(MatchesGolden(Grab(), "BlackFlash-half", Smooth()));
}

TEST_F(FlashOverlaysPicture, ASwapShowsTheSamePicture)
{
    GrabAtSwaps();
    Frame(&backdrop);
    const Picture picture = Grab();
    window.SwapBuffers();
    EXPECT_EQ(1, swaps);
    EXPECT_EQ(0, Compare(shown, picture, 0).maximum);
}
