// SPDX-License-Identifier: MIT
#include "effects/BlackFlashOverlay.h"
#include "effects/WhiteFlashOverlay.h"

#include "tests/support/recorder/EffectFixture.h"

#include <cmath>

class FlashOverlays : public EffectFixture
{
protected:
    // The grey of the quad that a frame draws now.
    double Grey(Effect* effect)
    {
        Frame(effect);
        EXPECT_EQ(1u, gl::Draws().size());
        const gl::Colour colour = gl::Draws().at(0).vertices.at(0).colour;
        EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {colour.r, colour.r, colour.r}));
        return colour.r;
    }
    void Step(Effect* effect, double seconds)
    {
        PassTime(seconds);
        effect->Update();
    }

    WhiteFlashOverlay white;
    BlackFlashOverlay black;
};

TEST_F(FlashOverlays, EachDeclaresOneMessageInItsOwnWords)
{
    Declare(&white);
    EXPECT_EQ(
        (std::vector<std::string>{"flash: screen fades from white to transparent. PARAM 0: fading speed"}),
        DeclaredMessages(&white));
    Declare(&black);
    EXPECT_EQ(
        (std::vector<std::string>{"flash: screen fades from black to transparent. PARAM 0: fading speed"}),
        DeclaredMessages(&black));
}

TEST_F(FlashOverlays, BothAttachAndLoadNothing)
{
    Prepare(&white);
    Prepare(&black);
    EXPECT_TRUE(white.IsInitialised());
    EXPECT_TRUE(black.IsInitialised());
    EXPECT_TRUE(TextureRequests().empty());
}

TEST_F(FlashOverlays, WhiteAddsNineTenthsOverTheWholePicture)
{
    Prepare(&white);
    Send(&white, "flash");
    Frame(&white);
    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Draw& flash = gl::Draws()[0];
    EXPECT_EQ(GLenum(GL_QUADS), flash.mode);
    EXPECT_TRUE(gl::HasVertices(flash, {{-4, 4, 0}, {4, 4, 0}, {4, -4, 0}, {-4, -4, 0}}));
    EXPECT_TRUE(gl::HasColour(flash, {0.9, 0.9, 0.9}));
    EXPECT_TRUE(gl::Blends(flash, GL_ONE, GL_ONE));
    EXPECT_TRUE(gl::IsUntextured(flash));
    EXPECT_TRUE(gl::IsMatrix(flash.modelview, gl::Translation(0, 0, -1.5)));
    EXPECT_NEAR(1 / std::tan(22.5 * 3.14159265358979323846 / 180), flash.projection.m[5], 1e-6);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FlashOverlays, BlackMultipliesTheWholePictureByNothing)
{
    Prepare(&black);
    Send(&black, "flash");
    Frame(&black);
    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Draw& flash = gl::Draws()[0];
    EXPECT_EQ(GLenum(GL_QUADS), flash.mode);
    EXPECT_TRUE(gl::HasVertices(flash, {{-4, 4, 0}, {4, 4, 0}, {4, -4, 0}, {-4, -4, 0}}));
    EXPECT_TRUE(gl::HasColour(flash, {0, 0, 0}));
    EXPECT_TRUE(gl::Blends(flash, GL_DST_COLOR, GL_ZERO));
    EXPECT_TRUE(gl::IsUntextured(flash));
    EXPECT_TRUE(gl::IsMatrix(flash.modelview, gl::Translation(0, 0, -1.5)));
    EXPECT_NEAR(1 / std::tan(22.5 * 3.14159265358979323846 / 180), flash.projection.m[5], 1e-6);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FlashOverlays, AtRestBothDrawAQuadThatChangesNothing)
{
    Prepare(&white);
    EXPECT_EQ(0.0, Grey(&white)) << "added";
    Prepare(&black);
    EXPECT_EQ(1.0, Grey(&black)) << "multiplied by";
}

TEST_F(FlashOverlays, WhiteSendsItsCallsInOrder)
{
    Prepare(&white);
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

TEST_F(FlashOverlays, BlackDisablesTexturingAheadOfItsMove)
{
    Prepare(&black);
    gl::ClearRecords();
    black.Render();
    EXPECT_TRUE(gl::CallsContain(gl::Outline(),
                                 {"glPushMatrix()", "glLoadIdentity()", "glDisable(GL_TEXTURE_2D)",
                                  "glTranslatef(0, 0, -1.5)", "gluPerspective", "glColor3f",
                                  "glEnable(GL_BLEND)", "glBlendFunc(GL_DST_COLOR, GL_ZERO)",
                                  "glBegin(GL_QUADS)", "glEnd()", "glDisable(GL_BLEND)", "glPopMatrix()"}));
}

TEST_F(FlashOverlays, TheyLeaveTexturingAndBlendingOffAndTheDepthStateAlone)
{
    Effect* const both[2] = {&white, &black};
    for (Effect* effect : both) {
        Prepare(effect);
        for (const bool depth : {false, true}) {
            glEnable(GL_TEXTURE_2D);
            glEnable(GL_BLEND);
            depth ? glEnable(GL_DEPTH_TEST) : glDisable(GL_DEPTH_TEST);
            glDepthMask(depth);
            Frame(effect);
            EXPECT_FALSE(gl::Now().units[0].texture2D);
            EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
            EXPECT_EQ(depth, gl::Now().Enabled(GL_DEPTH_TEST));
            EXPECT_EQ(depth, gl::Now().depthWrites);
            EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
            EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
        }
    }
}

TEST_F(FlashOverlays, WithoutParameterTheyDecayAtRateOne)
{
    Prepare(&white);
    Send(&white, "flash");
    for (int i = 0; i < 1024; i++)
        Step(&white, 1.0 / 1024);
    EXPECT_NEAR(0.9 * std::exp(-1.0), Grey(&white), 0.001) << "0.37 of the start after a second";
    Prepare(&black);
    Send(&black, "flash");
    for (int i = 0; i < 1024; i++)
        Step(&black, 1.0 / 1024);
    EXPECT_NEAR(1 - std::exp(-1.0), Grey(&black), 0.001);
}

TEST_F(FlashOverlays, AParameterOfFiveHalvesThemInAboutASeventhOfASecond)
{
    Prepare(&black);
    Send(&black, "flash", {5});
    for (int i = 0; i < 142; i++)
        Step(&black, 1.0 / 1024);
    EXPECT_NEAR(0.5, 1 - Grey(&black), 0.003);
}

TEST_F(FlashOverlays, ADecayIsOneStepOfTheFirstOrder)
{
    Prepare(&white);
    Send(&white, "flash", {2});
    Step(&white, 0.25);
    EXPECT_FLOAT_EQ(0.5f * 0.9f, float(Grey(&white)));
    Prepare(&black);
    Send(&black, "flash", {2});
    Step(&black, 0.25);
    EXPECT_FLOAT_EQ(0.5f, float(Grey(&black)));
}

TEST_F(FlashOverlays, ASpeedOnceGivenStaysForLaterFlashes)
{
    Prepare(&white);
    Send(&white, "flash", {2});
    Send(&white, "flash");
    Step(&white, 0.25);
    EXPECT_FLOAT_EQ(0.45f, float(Grey(&white)));
    Prepare(&black);
    Send(&black, "flash", {2});
    Send(&black, "flash");
    Step(&black, 0.25);
    EXPECT_FLOAT_EQ(0.5f, float(Grey(&black)));
}

TEST_F(FlashOverlays, FurtherParametersAreIgnored)
{
    Prepare(&white);
    Send(&white, "flash", {2, 77, 88});
    Step(&white, 0.25);
    EXPECT_FLOAT_EQ(0.45f, float(Grey(&white)));
}

TEST_F(FlashOverlays, ASecondFlashDuringTheDecayStartsAtOnceFromTheTop)
{
    Prepare(&white);
    Send(&white, "flash", {2});
    Step(&white, 0.25);
    Send(&white, "flash");
    EXPECT_FLOAT_EQ(0.9f, float(Grey(&white)));
    Prepare(&black);
    Send(&black, "flash", {2});
    Step(&black, 0.25);
    Send(&black, "flash");
    EXPECT_EQ(0.0, Grey(&black));
}

TEST_F(FlashOverlays, AParameterOfZeroFreezesThem)
{
    Prepare(&white);
    Send(&white, "flash", {0});
    for (int i = 0; i < 100; i++)
        Step(&white, 1);
    EXPECT_FLOAT_EQ(0.9f, float(Grey(&white)));
    Prepare(&black);
    Send(&black, "flash", {0});
    for (int i = 0; i < 100; i++)
        Step(&black, 1);
    EXPECT_EQ(0.0, Grey(&black));
}

TEST_F(FlashOverlays, ANegativeParameterMakesThemGrowWithoutLimit)
{
    Prepare(&white);
    Send(&white, "flash", {-1});
    Step(&white, 1);
    Step(&white, 1);
    EXPECT_FLOAT_EQ(4 * 0.9f, float(Grey(&white)));
    Prepare(&black);
    Send(&black, "flash", {-1});
    Step(&black, 1);
    EXPECT_FLOAT_EQ(-1.0f, float(Grey(&black)));
}

TEST_F(FlashOverlays, ATooFastDecaySwingsThroughZero)
{
    Prepare(&white);
    Send(&white, "flash", {3});
    Step(&white, 0.5);
    EXPECT_FLOAT_EQ(-0.45f, float(Grey(&white)));
    Prepare(&black);
    Send(&black, "flash", {3});
    Step(&black, 0.5);
    EXPECT_FLOAT_EQ(1.5f, float(Grey(&black)));
}

TEST_F(FlashOverlays, UnknownMessagesAreIgnored)
{
    Prepare(&white);
    Prepare(&black);
    float params[1] = {2};
    white.ReceiveMessage(0, params, 1);
    white.ReceiveMessage(99, params, 1);
    EXPECT_EQ(0.0, Grey(&white));
    black.ReceiveMessage(0, params, 1);
    black.ReceiveMessage(99, params, 1);
    EXPECT_EQ(1.0, Grey(&black));
    Send(&black, "flash");
    Step(&black, 0.25);
    EXPECT_FLOAT_EQ(0.25f, float(Grey(&black))) << "nor was the speed taken";
}

TEST_F(FlashOverlays, AFlashIsSeenWholeInTheFrameThatBringsIt)
{
    Prepare(&white);
    PassTime(0.5);
    Send(&white, "flash");
    EXPECT_FLOAT_EQ(0.9f, float(Grey(&white))) << "the decay comes after the picture";
}
