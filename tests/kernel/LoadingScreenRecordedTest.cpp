// SPDX-License-Identifier: MIT
#include "kernel/LoadingScreen.h"

#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

class LoadingScreenTest : public ShowFixture
{
protected:
    LoadingScreenTest() : screen(nullptr)
    {
        gl::Reset(800, 600);
        AddPicture("loading.jpg");
    }
    LoadingScreen screen;
};

TEST_F(LoadingScreenTest, InitClearsToTransparentBlackAndAsksForItsPicture)
{
    glClearColor(1, 1, 1, 1);
    screen.Init();
    EXPECT_TRUE(gl::IsColour(gl::Now().clearColour, {0, 0, 0, 0}));
    const gl::TextureObject* picture = gl::FindTexture(gl::TextureNamed("loading.jpg"));
    ASSERT_NE(nullptr, picture);
    EXPECT_TRUE(picture->builtByGlu) << "with mipmaps";
    EXPECT_EQ(GL_REPEAT, picture->wrapS);
    EXPECT_EQ(GL_REPEAT, picture->wrapT);
    EXPECT_EQ(GL_LINEAR, picture->minFilter);
    EXPECT_EQ(GL_LINEAR, picture->magFilter);
}

TEST_F(LoadingScreenTest, ThePictureFillsTheMiddleOfTheScreen)
{
    screen.Init();
    gl::ClearRecords();
    screen.Render();
    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Draw& picture = gl::Draws()[0];
    EXPECT_TRUE(gl::IsTextured(picture, "loading.jpg"));
    EXPECT_TRUE(
        gl::IsQuad(picture, {{0, 0, 0.2, 0.35}, {1, 0, 0.8, 0.35}, {1, 1, 0.8, 0.7}, {0, 1, 0.2, 0.7}}));
    // From the top left corner of 800 by 600: the window's origin is at the lower left.
    EXPECT_TRUE(gl::HasWindowPoints(picture, {{160, 390}, {640, 390}, {640, 180}, {160, 180}}));
}

TEST_F(LoadingScreenTest, ThePictureStandsInItsPlaceWhateverTheMatricesAre)
{
    screen.Init();
    gl::ClearRecords();
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(4, 5, 6);
    glMatrixMode(GL_PROJECTION);
    glScalef(2, 3, 4);
    screen.Render(); // the matrix mode is that of the projection here
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_TRUE(gl::HasWindowPoints(gl::Draws()[0], {{160, 390}, {640, 390}, {640, 180}, {160, 180}}));
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Scaling(2, 3, 4)));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(4, 5, 6)));
}

TEST_F(LoadingScreenTest, ThePictureStandsInTheMiddleOfTheDepthRange)
{
    screen.Init();
    gl::ClearRecords();
    screen.Render();
    const gl::Matrix& projection = gl::Draws().at(0).projection;
    EXPECT_EQ(-1, projection.m[10]) << "two units deep, so that one unit is one of the depth from -1 to 1";
    EXPECT_EQ(0, projection.m[14]);
    EXPECT_EQ(2, projection.m[0]);
    EXPECT_EQ(-2, projection.m[5]);
    EXPECT_TRUE(gl::IsMatrix(gl::Draws()[0].modelview, gl::Identity()));
}

TEST_F(LoadingScreenTest, ItLeavesWhiteAndOneUnderflowBehind)
{
    screen.Init();
    glColor3f(0.5f, 0.5f, 0.5f);
    gl::ClearRecords();
    screen.Render();
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 1, 1}));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_UNDERFLOW}));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
}

TEST_F(LoadingScreenTest, MatricesComeBackAsTheyWere)
{
    screen.Init();
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(4, 5, 6);
    screen.Render();
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(4, 5, 6)));
}

TEST_F(LoadingScreenTest, ProgressIsKeptAndChangesNothingInThePicture)
{
    screen.Init();
    EXPECT_EQ(0.0f, screen.GetProgress());
    std::vector<std::string> calls[2];
    const float progress[2] = {0.1f, 1.0f};
    for (int i = 0; i < 2; i++) {
        screen.SetProgress(progress[i]);
        EXPECT_EQ(progress[i], screen.GetProgress());
        gl::ClearRecords();
        screen.Render();
        calls[i] = gl::Calls();
    }
    EXPECT_EQ(calls[0], calls[1]);
}

TEST(LoadingScreenWithoutItsPicture, IsTheLoadersAffairAndDrawsOn)
{
    class Bare : public ShowFixture
    {
    public:
        void TestBody() override {}
        using ShowFixture::boxes;
        using ShowFixture::QuitWasPosted;
    } bare;
    gl::Reset(800, 600);
    LoadingScreen screen(nullptr);
    screen.Init();
    EXPECT_EQ(1u, bare.boxes.size());
    EXPECT_TRUE(bare.QuitWasPosted());
    screen.Render();
    EXPECT_EQ(1u, gl::Draws().size());
}
