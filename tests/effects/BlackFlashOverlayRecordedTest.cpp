// SPDX-License-Identifier: MIT
#include "effects/BlackFlashOverlay.h"

#include "tests/effects/FlashOverlayRecorded.h"

#include <cmath>

class BlackFlashOverlayRecorded : public FlashOverlayRecorded
{
protected:
    BlackFlashOverlayRecorded() { Prepare(&black); }

    BlackFlashOverlay black;
};

TEST_F(BlackFlashOverlayRecorded, DeclaresOneMessage)
{
    EXPECT_EQ(
        (std::vector<std::string>{"flash: screen fades from black to transparent. PARAM 0: fading speed"}),
        DeclaredMessages(&black));
}

TEST_F(BlackFlashOverlayRecorded, AttachesAndLoadsNothing)
{
    EXPECT_TRUE(black.IsInitialised());
    EXPECT_TRUE(TextureRequests().empty());
}

TEST_F(BlackFlashOverlayRecorded, MultipliesTheWholePictureByNothing)
{
    Send(&black, "flash");
    ExpectQuad(&black, 0, GL_DST_COLOR, GL_ZERO);
}

TEST_F(BlackFlashOverlayRecorded, AtRestItDrawsAQuadThatChangesNothing)
{
    EXPECT_EQ(1.0, Grey(&black)) << "multiplied by";
}

TEST_F(BlackFlashOverlayRecorded, DisablesTexturingAheadOfItsMove)
{
    gl::ClearRecords();
    black.Render();
    EXPECT_TRUE(gl::CallsContain(gl::Outline(),
                                 {"glPushMatrix()", "glLoadIdentity()", "glDisable(GL_TEXTURE_2D)",
                                  "glTranslatef(0, 0, -1.5)", "gluPerspective", "glColor3f",
                                  "glEnable(GL_BLEND)", "glBlendFunc(GL_DST_COLOR, GL_ZERO)",
                                  "glBegin(GL_QUADS)", "glEnd()", "glDisable(GL_BLEND)", "glPopMatrix()"}));
}

TEST_F(BlackFlashOverlayRecorded, LeavesTexturingAndBlendingOffAndTheDepthStateAlone)
{
    ExpectStateLeft(&black);
}

TEST_F(BlackFlashOverlayRecorded, WithoutParameterItDecaysAtRateOne)
{
    Send(&black, "flash");
    for (int i = 0; i < 1024; i++)
        Step(&black, 1.0 / 1024);
    EXPECT_NEAR(1 - std::exp(-1.0), Grey(&black), 0.001);
}

TEST_F(BlackFlashOverlayRecorded, AParameterOfFiveHalvesItInAboutASeventhOfASecond)
{
    Send(&black, "flash", {5});
    for (int i = 0; i < 142; i++)
        Step(&black, 1.0 / 1024);
    EXPECT_NEAR(0.5, 1 - Grey(&black), 0.003);
}

TEST_F(BlackFlashOverlayRecorded, ADecayIsOneStepOfTheFirstOrder)
{
    Send(&black, "flash", {2});
    Step(&black, 0.25);
    EXPECT_FLOAT_EQ(0.5f, float(Grey(&black)));
}

TEST_F(BlackFlashOverlayRecorded, ASpeedOnceGivenStaysForLaterFlashes)
{
    Send(&black, "flash", {2});
    Send(&black, "flash");
    Step(&black, 0.25);
    EXPECT_FLOAT_EQ(0.5f, float(Grey(&black)));
}

TEST_F(BlackFlashOverlayRecorded, ASecondFlashDuringTheDecayStartsAtOnceFromTheTop)
{
    Send(&black, "flash", {2});
    Step(&black, 0.25);
    Send(&black, "flash");
    EXPECT_EQ(0.0, Grey(&black));
}

TEST_F(BlackFlashOverlayRecorded, AParameterOfZeroFreezesIt)
{
    Send(&black, "flash", {0});
    for (int i = 0; i < 100; i++)
        Step(&black, 1);
    EXPECT_EQ(0.0, Grey(&black));
}

TEST_F(BlackFlashOverlayRecorded, ANegativeParameterMakesItGrowWithoutLimit)
{
    Send(&black, "flash", {-1});
    Step(&black, 1);
    EXPECT_FLOAT_EQ(-1.0f, float(Grey(&black)));
}

TEST_F(BlackFlashOverlayRecorded, ATooFastDecaySwingsThroughZero)
{
    Send(&black, "flash", {3});
    Step(&black, 0.5);
    EXPECT_FLOAT_EQ(1.5f, float(Grey(&black)));
}

TEST_F(BlackFlashOverlayRecorded, UnknownMessagesAreIgnored)
{
    float params[1] = {2};
    black.ReceiveMessage(0, params, 1);
    black.ReceiveMessage(99, params, 1);
    EXPECT_EQ(1.0, Grey(&black));
    Send(&black, "flash");
    Step(&black, 0.25);
    EXPECT_FLOAT_EQ(0.25f, float(Grey(&black))) << "nor was the speed taken";
}
