// SPDX-License-Identifier: MIT
#include "effects/FS_Image.h"

#include "tests/support/recorder/EffectFixture.h"

class FS_ImageRecorded : public EffectFixture
{
protected:
    FS_ImageRecorded() : image("ochre_painting1.jpg") { Prepare(&image); }
    void Step(double seconds)
    {
        PassTime(seconds);
        image.Update();
    }
    gl::Draw Picture()
    {
        Frame(&image);
        EXPECT_EQ(1u, gl::Draws().size());
        return gl::Draws().at(0);
    }

    FS_Image image;
};

TEST_F(FS_ImageRecorded, DeclaresFlashAndFadeAndAttaches)
{
    EXPECT_EQ((std::vector<std::string>{
                  "flash: screen fades from black to transparent. PARAM 0: fading speed", "fade: NA"}),
              DeclaredMessages(&image));
    EXPECT_TRUE(image.IsInitialised());
}

TEST_F(FS_ImageRecorded, AsksForItsPictureItsMaskAndItsShader)
{
    EXPECT_EQ((std::vector<std::string>{"ochre_painting1.jpg 0 0 1", "glowmask.jpg 1 1 1"}),
              TextureRequests());
    ASSERT_EQ(1u, gl::Programs().size());
    EXPECT_EQ((std::vector<std::string>{"sampler0", "sampler1", "delta"}), gl::Programs()[0].uniformNames);
}

TEST_F(FS_ImageRecorded, WhatIsMissingIsToldPicturesFirstThenTheShader)
{
    FS_Image bare("bare.jpg");
    EXPECT_EQ((std::vector<std::string>{"bare.jpg", "glowmask.jpg", "glowmask.vp", "glowmask.fp",
                                        "Marlinex 1.5 Error: No Programs for Shader defined!"}),
              ToldMissing(&bare));
}

TEST_F(FS_ImageRecorded, ShowsThePictureItWasBuiltWith)
{
    AddPicture("another.png");
    FS_Image other("another.png");
    Prepare(&other);
    Frame(&other);
    EXPECT_TRUE(gl::IsTextured(gl::Draws().at(0), "another.png"));
}

TEST_F(FS_ImageRecorded, FillsTheWholeWindowThroughItsShader)
{
    window.SetLetterbox(0.85f);
    const gl::Draw picture = Picture();
    EXPECT_TRUE(gl::IsQuad(picture, {{0, 0, 0, 1}, {1, 0, 1, 1}, {1, 0.75, 1, 0}, {0, 0.75, 0, 0}}));
    EXPECT_TRUE(gl::HasViewport(picture, 0, 0, 800, 600));
    EXPECT_TRUE(gl::IsTextured(picture, "ochre_painting1.jpg", 0));
    EXPECT_TRUE(gl::IsTextured(picture, "glowmask.jpg", 1));
    EXPECT_TRUE(gl::UsesProgram(picture, gl::Programs()[0].id));
    EXPECT_TRUE(gl::HasUniform(picture, "sampler0", {0}));
    EXPECT_TRUE(gl::HasUniform(picture, "sampler1", {1}));
    EXPECT_TRUE(gl::HasUniform(picture, "delta", {0}));
    EXPECT_TRUE(gl::HasColour(picture, {1, 1, 1, 1}));
    EXPECT_TRUE(gl::Blends(picture, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_TRUE(gl::TestsDepth(picture, false));
    EXPECT_TRUE(gl::WritesDepth(picture, false));
    EXPECT_TRUE(gl::IsMatrix(picture.projection, gl::Ortho(0, 1, 0, 1)));
    EXPECT_TRUE(gl::IsMatrix(picture.modelview, gl::Translation(0, 0, -1)));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(FS_ImageRecorded, TheZoomLetsTheEdgesMoveOutOfTheWindow)
{
    for (const double t : {10.0, 30.0}) {
        image.SetLocalTime(float(t));
        const double z = (t * 0.02) * (t * 0.02);
        EXPECT_TRUE(gl::IsQuad(
            Picture(), {{0, 0, -z, 1 + z}, {1, 0, 1 + z, 1 + z}, {1, 0.75, 1 + z, -z}, {0, 0.75, -z, -z}},
            1e-6));
    }
    image.SetLocalTime(10);
    EXPECT_NEAR(-0.04, Picture().vertices[0].object.x, 1e-6);
    image.SetLocalTime(30);
    EXPECT_NEAR(-0.36, Picture().vertices[0].object.x, 1e-6);
}

TEST_F(FS_ImageRecorded, WithoutFadeDeltaStaysZero)
{
    for (int i = 0; i < 10; i++)
        Step(1);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0}));
}

TEST_F(FS_ImageRecorded, FadeRunsDeltaUpWithoutEnd)
{
    Send(&image, "fade", {3});
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0}));
    Step(0.5);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0.25}));
    Step(1.5);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {1})) << "two seconds after the message";
    Step(18);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {10}));
}

TEST_F(FS_ImageRecorded, ASecondFadeStartsAgainFromZero)
{
    Send(&image, "fade");
    Step(2);
    Send(&image, "fade");
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0}));
    Step(1);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0.5}));
}

TEST_F(FS_ImageRecorded, FlashWithOrWithoutParameterChangesNothingToBeSeen)
{
    Frame(&image);
    const std::vector<std::string> before = gl::Calls();
    Send(&image, "flash");
    Frame(&image);
    EXPECT_EQ(before, gl::Calls());
    Send(&image, "flash", {5});
    Step(0.25);
    Frame(&image);
    EXPECT_EQ(before, gl::Calls());
}

TEST_F(FS_ImageRecorded, TheCallsComeInOrder)
{
    gl::ClearRecords();
    image.Render();
    EXPECT_TRUE(gl::CallsContain(gl::Outline(), {"glMatrixMode(GL_PROJECTION)",
                                                 "glPushMatrix()",
                                                 "glLoadIdentity()",
                                                 "gluOrtho2D(0, 1, 0, 1)",
                                                 "glMatrixMode(GL_MODELVIEW)",
                                                 "glLoadIdentity()",
                                                 "glViewport(0, 0, 800, 600)",
                                                 "glTranslatef(0, 0, -1)",
                                                 "glUseProgramObjectARB",
                                                 "glBindTexture(GL_TEXTURE_2D, 0)",
                                                 "glDisable(GL_DEPTH_TEST)",
                                                 "glDepthMask(GL_FALSE)",
                                                 "glEnable(GL_BLEND)",
                                                 "glBegin(GL_QUADS)",
                                                 "glEnd()",
                                                 "glUseProgramObjectARB(0)",
                                                 "glDisable(GL_BLEND)",
                                                 "glDepthMask(GL_TRUE)",
                                                 "glEnable(GL_DEPTH_TEST)",
                                                 "glMatrixMode(GL_PROJECTION)",
                                                 "glPopMatrix()",
                                                 "glMatrixMode(GL_MODELVIEW)",
                                                 "glLoadIdentity()"}));
}

TEST_F(FS_ImageRecorded, LeavesTheWholeWindowNoTexturesAndUnitZero)
{
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    Frame(&image);
    EXPECT_EQ(600, gl::Now().viewport.height);
    EXPECT_EQ(0, gl::Now().viewport.y);
    EXPECT_EQ(0, gl::Now().activeUnit);
    EXPECT_EQ(0u, gl::Now().units[0].bound);
    EXPECT_EQ(0u, gl::Now().units[1].bound);
    EXPECT_EQ(0u, gl::Now().program);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::Now().Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity()));
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
}

TEST_F(FS_ImageRecorded, ASecondInitStopsTheFadeAndKeepsTheZoom)
{
    Send(&image, "fade");
    Step(2);
    image.SetLocalTime(10);
    Init(&image);
    Step(2);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0}));
    EXPECT_NEAR(-0.04, Picture().vertices[0].object.x, 1e-6);
}

TEST_F(FS_ImageRecorded, UnknownMessagesAreIgnored)
{
    float params[1] = {1};
    image.ReceiveMessage(0, params, 1);
    Step(2);
    EXPECT_TRUE(gl::HasUniform(Picture(), "delta", {0}));
}
