// SPDX-License-Identifier: MIT
#include "effects/WhiteFlashOverlay.h"

#include "tests/effects/FlashOverlayRecorded.h"

#include <cmath>

class WhiteFlashOverlayRecorded : public FlashOverlayRecorded
{
protected:
    WhiteFlashOverlayRecorded() { Prepare(&white); }

    WhiteFlashOverlay white;
};

TEST_F(WhiteFlashOverlayRecorded, DeclaresOneMessage)
{
    EXPECT_EQ(
        (std::vector<std::string>{"flash: screen fades from white to transparent. PARAM 0: fading speed"}),
        DeclaredMessages(&white));
}

TEST_F(WhiteFlashOverlayRecorded, AttachesAndLoadsNothing)
{
    EXPECT_TRUE(white.IsInitialised());
    EXPECT_TRUE(TextureRequests().empty());
}

TEST_F(WhiteFlashOverlayRecorded, AddsNineTenthsOverTheWholePicture)
{
    Send(&white, "flash");
    ExpectQuad(&white, 0.9, GL_ONE, GL_ONE);
}

TEST_F(WhiteFlashOverlayRecorded, AtRestItDrawsAQuadThatChangesNothing)
{
    EXPECT_EQ(0.0, Grey(&white)) << "added";
}

TEST_F(WhiteFlashOverlayRecorded, SendsItsCallsInOrder)
{
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(5, 6, 7);
    gl::ClearRecords();
    white.Render();
    EXPECT_TRUE(gl::CallsContain(
        gl::Outline(),
        {"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glLoadIdentity()", "glTranslatef(0, 0, -1.5)",
         "glMatrixMode(GL_PROJECTION)", "glLoadIdentity()", "gluPerspective", "glMatrixMode(GL_MODELVIEW)",
         "glColor3f", "glDisable(GL_TEXTURE_2D)", "glEnable(GL_BLEND)", "glBlendFunc(GL_ONE, GL_ONE)",
         "glBegin(GL_QUADS)", "glEnd()", "glDisable(GL_BLEND)", "glPopMatrix()"}));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(5, 6, 7)));
}

TEST_F(WhiteFlashOverlayRecorded, LeavesTexturingAndBlendingOffAndTheDepthStateAlone)
{
    ExpectStateLeft(&white);
}

TEST_F(WhiteFlashOverlayRecorded, WithoutParameterItDecaysAtRateOne)
{
    Send(&white, "flash");
    for (int i = 0; i < 1024; i++)
        Step(&white, 1.0 / 1024);
    EXPECT_NEAR(0.9 * std::exp(-1.0), Grey(&white), 0.001) << "0.37 of the start after a second";
}

TEST_F(WhiteFlashOverlayRecorded, ADecayIsOneStepOfTheFirstOrder)
{
    Send(&white, "flash", {2});
    Step(&white, 0.25);
    EXPECT_FLOAT_EQ(0.5f * 0.9f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, ASpeedOnceGivenStaysForLaterFlashes)
{
    Send(&white, "flash", {2});
    Send(&white, "flash");
    Step(&white, 0.25);
    EXPECT_FLOAT_EQ(0.45f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, FurtherParametersAreIgnored)
{
    Send(&white, "flash", {2, 77, 88});
    Step(&white, 0.25);
    EXPECT_FLOAT_EQ(0.45f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, ASecondFlashDuringTheDecayStartsAtOnceFromTheTop)
{
    Send(&white, "flash", {2});
    Step(&white, 0.25);
    Send(&white, "flash");
    EXPECT_FLOAT_EQ(0.9f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, AParameterOfZeroFreezesIt)
{
    Send(&white, "flash", {0});
    for (int i = 0; i < 100; i++)
        Step(&white, 1);
    EXPECT_FLOAT_EQ(0.9f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, ANegativeParameterMakesItGrowWithoutLimit)
{
    Send(&white, "flash", {-1});
    Step(&white, 1);
    Step(&white, 1);
    EXPECT_FLOAT_EQ(4 * 0.9f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, ATooFastDecaySwingsThroughZero)
{
    Send(&white, "flash", {3});
    Step(&white, 0.5);
    EXPECT_FLOAT_EQ(-0.45f, float(Grey(&white)));
}

TEST_F(WhiteFlashOverlayRecorded, UnknownMessagesAreIgnored)
{
    float params[1] = {2};
    white.ReceiveMessage(0, params, 1);
    white.ReceiveMessage(99, params, 1);
    EXPECT_EQ(0.0, Grey(&white));
}

TEST_F(WhiteFlashOverlayRecorded, AFlashIsSeenWholeInTheFrameThatBringsIt)
{
    PassTime(0.5);
    Send(&white, "flash");
    EXPECT_FLOAT_EQ(0.9f, float(Grey(&white))) << "the decay comes after the picture";
}
