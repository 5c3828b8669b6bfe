// SPDX-License-Identifier: MIT
#include "tests/support/recorder/EffectFixture.h"

#include "effects/FX_Credits.h"
#include "effects/FX_FlashHand.h"
#include "effects/FX_VerticalScroller.h"
#include "effects/WhiteFlashOverlay.h"
#include "platform/Events.h"
#include "platform/WindowSystem.h"
#include "resources/TextureLoader.h"

// The example of GLRecorder.h.
TEST_F(EffectFixture, TheFlashAddsWhiteOverTheWholePicture)
{
    WhiteFlashOverlay overlay;
    Prepare(&overlay);
    Send(&overlay, "flash");
    Frame(&overlay);

    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Draw& flash = gl::Draws()[0];
    EXPECT_TRUE(gl::HasVertices(flash, {{-4, 4, 0}, {4, 4, 0}, {4, -4, 0}, {-4, -4, 0}}));
    EXPECT_TRUE(gl::HasColour(flash, {0.9, 0.9, 0.9}));
    EXPECT_TRUE(gl::Blends(flash, GL_ONE, GL_ONE));
    EXPECT_TRUE(gl::IsUntextured(flash));
    EXPECT_TRUE(gl::IsMatrix(flash.modelview, gl::Translation(0, 0, -1.5)));
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(EffectFixture, PicturesAreInventedAndTexturesBearTheirNames)
{
    FX_VerticalScroller scroller;
    Prepare(&scroller);
    EXPECT_EQ(
        (std::vector<std::string>{"abspanner_1.png 1 1 1", "abspanner_2.png 1 1 1", "abspanner_3.png 1 1 1"}),
        TextureRequests());
    EXPECT_TRUE(boxes.empty());
    Frame(&scroller);
    ASSERT_EQ(3u, gl::Draws().size());
    EXPECT_TRUE(gl::IsTextured(gl::Draws()[1], "abspanner_2.png"));
    EXPECT_EQ(4, gl::FindTexture(gl::TextureNamed("abspanner_1.png"))->givenComponents);
}

TEST_F(EffectFixture, APictureThatTheTestAddedIsTaken)
{
    AddPicture("abspanner_1.png", 8, 4);
    FX_VerticalScroller scroller;
    Prepare(&scroller);
    EXPECT_EQ(8, gl::FindTexture(gl::TextureNamed("abspanner_1.png"))->givenWidth);
    EXPECT_EQ(4, gl::FindTexture(gl::TextureNamed("abspanner_1.png"))->givenHeight);
    EXPECT_EQ(1, gl::FindTexture(gl::TextureNamed("abspanner_2.png"))->givenWidth);
}

TEST_F(EffectFixture, ATextureLoaderOfAnEarlierTestHasNothingLeft)
{
    EXPECT_EQ(0u, gl::TextureNamed("abspanner_1.png"));
    FX_VerticalScroller scroller;
    Prepare(&scroller);
    EXPECT_NE(0u, gl::TextureNamed("abspanner_1.png"));
}

TEST_F(EffectFixture, AFrameBeginsClearedAndAtTheIdentityWithoutATrace)
{
    glTranslatef(1, 2, 3);
    WhiteFlashOverlay overlay;
    Prepare(&overlay);
    EXPECT_TRUE(gl::Calls().empty());
    Frame(&overlay);
    EXPECT_TRUE(gl::Clears().empty());
    EXPECT_EQ("glMatrixMode(GL_MODELVIEW)", gl::Calls().at(0));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity(), 0));
}

TEST_F(EffectFixture, AShowFrameAddsTheLastFramesLengthAndUpdatesBehindRender)
{
    FX_FlashHand hand;
    Prepare(&hand);
    Send(&hand, "flash");
    ShowFrame(&hand, 0.25);
    EXPECT_EQ(0, hand.GetLocalTime());
    EXPECT_TRUE(gl::HasColour(gl::Draws().at(0), {1, 1, 1, 1}));
    ShowFrame(&hand, 0.25); // the Update of this one sees the quarter second
    EXPECT_EQ(0.25f, hand.GetLocalTime());
    EXPECT_TRUE(gl::HasColour(gl::Draws().at(0), {1, 1, 1, 1}));
    ShowFrame(&hand, 0.25);
    EXPECT_EQ(0.5f, hand.GetLocalTime());
    EXPECT_TRUE(gl::HasColour(gl::Draws().at(0), {1, 1, 1, 0.95}, 1e-6));
}

TEST_F(EffectFixture, RunningForATimeMakesThatManyFramesAndLeavesNoRecords)
{
    FX_FlashHand hand;
    Prepare(&hand);
    Send(&hand, "flash");
    RunFor(&hand, 2, 1.0 / 64);
    EXPECT_EQ(127.0f / 64, hand.GetLocalTime()) << "the first frame has no length";
    EXPECT_EQ(2, FrameTimer::GetTime());
    EXPECT_TRUE(gl::Draws().empty());
    Frame(&hand);
    EXPECT_TRUE(gl::HasColour(gl::Draws().at(0), {1, 1, 1, 1 - 0.2 * 127 / 64}, 1e-5));
}

TEST_F(EffectFixture, MessagesReachTheEffectThatDeclaredThem)
{
    WhiteFlashOverlay overlay;
    Prepare(&overlay);
    EXPECT_EQ(
        (std::vector<std::string>{"flash: screen fades from white to transparent. PARAM 0: fading speed"}),
        DeclaredMessages(&overlay));
    EXPECT_EQ(1, MessageId(&overlay, "flash"));
    Send(&overlay, "flash", {2});
    PassTime(0.25);
    overlay.Update();
    Frame(&overlay);
    EXPECT_TRUE(gl::HasColour(gl::Draws().at(0), {0.45, 0.45, 0.45}, 1e-6));
}

TEST_F(EffectFixture, TheOffScreenTargetDrawsInContextTwo)
{
    FX_Credits credits;
    Prepare(&credits);
    Frame(&credits);
    EXPECT_FALSE(gl::DrawsInContext(2).empty());
    EXPECT_FALSE(gl::DrawsInContext(1).empty());
    EXPECT_NE(0u, gl::DrawsInContext(2)[0].state->framebuffer);
    EXPECT_EQ(512, gl::DrawsInContext(2)[0].state->viewport.width);
    EXPECT_TRUE(gl::CallsContain(gl::Outline(), {"context 2", "glClear", "glBegin", "context 1", "glBegin"}));
}

TEST_F(EffectFixture, SwapsOfTheWindowAreSeen)
{
    window.SwapBuffers();
    EXPECT_EQ(1, gl::Swaps());
    EXPECT_EQ("swap", gl::Calls().at(0));
}

// ---- ShowFixture

TEST_F(EffectFixture, AMissingPictureIsReportedIntoTheCollectedBoxes)
{
    gl::InventPictures(nullptr);
    EXPECT_EQ(nullptr, TextureLoader::GetInstance()->GetTexture("nowhere.png", true, true, true));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Texture Loader", boxes[0].caption);
    EXPECT_NE(std::string::npos, boxes[0].body.find(PathOf("nowhere.png")));
    EXPECT_TRUE(QuitWasPosted());
    EXPECT_FALSE(QuitWasPosted());
}

TEST_F(EffectFixture, TheClockMovesOnlyWhenItIsTold)
{
    EXPECT_EQ(0, FrameTimer::GetTime());
    EXPECT_EQ(0, FrameTimer::GetDelta());
    PassTime(0.5);
    PassTime(0.25);
    EXPECT_EQ(0.25f, FrameTimer::GetDelta());
    EXPECT_EQ(0.75f, FrameTimer::GetTime());
    StartTimer(10);
    EXPECT_EQ(10, FrameTimer::GetTime());
    EXPECT_EQ(0, FrameTimer::GetDelta());
}
