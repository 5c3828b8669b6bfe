// SPDX-License-Identifier: MIT
// A window whose frames are kept shows the same pixels as one that is drawn as a whole each time.
#include "platform/toolwindow/KeptFrame.h"

#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>
#include <backends/imgui_impl_opengl2.h>

#include <cstring>
#include <functional>
#include <string>

static const int pictureWidth = 320, pictureHeight = 200;
static const ImVec4 ground(0.2f, 0.1f, 0.3f, 1);

class KeptWindow : public PictureFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Open(pictureWidth, pictureHeight));
        ImGui::CreateContext();
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = {float(pictureWidth), float(pictureHeight)};
        io.DeltaTime = 1 / 60.0f;
        ASSERT_TRUE(ImGui_ImplOpenGL2_Init());
        ImGui_ImplOpenGL2_NewFrame();
        kept.Open(ground);
    }
    void TearDown() override
    {
        kept.Close();
        ImGui_ImplOpenGL2_Shutdown();
        ImGui::DestroyContext();
    }

    // Draws a frame, kept, and returns whether there was something to swap. The buffer is soiled before, as a swap may.
    bool Draw(const std::function<void(ImDrawList*)>& paint)
    {
        ImGui::NewFrame();
        paint(ImGui::GetBackgroundDrawList());
        ImGui::Render();
        if (swapSoils)
            Soil();
        return kept.Draw(ImGui::GetDrawData());
    }

    // The frame of the last Draw, drawn as a whole.
    Picture Whole() const
    {
        glViewport(0, 0, pictureWidth, pictureHeight);
        glClearColor(ground.x, ground.y, ground.z, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        ImGui_ImplOpenGL2_RenderDrawData(ImGui::GetDrawData());
        return Grab();
    }

    static void Soil()
    {
        glClearColor(1, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    platform::KeptFrame kept;
    bool swapSoils = true;
};

static void Words(ImDrawList* list, int step)
{
    list->AddRectFilled({10, 10}, {300, 180}, IM_COL32(30, 60, 90, 255));
    list->AddRectFilled({40.5f, 30}, {140, 90.25f}, IM_COL32(200, 180, 40, 120), 8);
    list->AddCircleFilled({float(20 + 11 * step % 280), float(30 + 7 * step % 150)}, 13,
                          IM_COL32(255, 255, 255, 180));
    list->AddLine({float(step * 5 % 320), 0}, {float(step * 5 % 320), 200}, IM_COL32(240, 176, 80, 255),
                  1.5f);
    list->PushClipRect({60.5f, 100.25f}, {250.75f, 150.5f + float(step % 3)});
    list->AddText({50, 95}, IM_COL32(0, 255, 0, 255), ("the moon is gone " + std::to_string(step)).c_str());
    list->AddRectFilled({240, 90}, {280, 170}, IM_COL32(0, 0, 200, 90));
    list->PopClipRect();
}

TEST_F(KeptWindow, IsThatOfAWholeDrawing)
{
    for (int step = 0; step < 40; step++) {
        ASSERT_TRUE(Draw([step](ImDrawList* list) { Words(list, step); }));
        if (step > 0) {
            EXPECT_GT(1, kept.DrawnShare());
            EXPECT_LT(0, kept.DrawnShare());
        }
        const Picture seen = Grab();
        ASSERT_EQ(Whole().pixels, seen.pixels) << "frame " << step;
    }
}

TEST_F(KeptWindow, IsLeftAsItIsWhereNothingChanges)
{
    EXPECT_TRUE(Draw([](ImDrawList* list) { Words(list, 1); }));
    EXPECT_EQ(1, kept.DrawnShare());
    EXPECT_FALSE(Draw([](ImDrawList* list) { Words(list, 1); }));
    EXPECT_EQ(0, kept.DrawnShare());
}

TEST_F(KeptWindow, IsShownAnewWithoutDrawingWhenItWasCovered)
{
    EXPECT_TRUE(Draw([](ImDrawList* list) { Words(list, 1); }));
    kept.Expose();
    EXPECT_TRUE(Draw([](ImDrawList* list) { Words(list, 1); }));
    EXPECT_EQ(0, kept.DrawnShare());
    const Picture seen = Grab();
    EXPECT_EQ(Whole().pixels, seen.pixels);
    EXPECT_FALSE(Draw([](ImDrawList* list) { Words(list, 1); }));
}

TEST_F(KeptWindow, DrawsTheTilesThatChangeAndNoOthers)
{
    Draw([](ImDrawList* list) { list->AddRectFilled({10, 10}, {20, 20}, IM_COL32_WHITE); });
    Draw([](ImDrawList* list) { list->AddRectFilled({10, 10}, {21, 20}, IM_COL32_WHITE); });
    EXPECT_FLOAT_EQ(64 * 64 / 64000.0f, kept.DrawnShare());
}

TEST_F(KeptWindow, OfAnotherSizeIsDrawnAsAWhole)
{
    Draw([](ImDrawList* list) { Words(list, 1); });
    ImGui::GetIO().DisplaySize = {200, 100};
    EXPECT_TRUE(Draw([](ImDrawList* list) { Words(list, 1); }));
    EXPECT_EQ(1, kept.DrawnShare());
    ImGui::GetIO().DisplaySize = {float(pictureWidth), float(pictureHeight)};
    EXPECT_TRUE(Draw([](ImDrawList* list) { Words(list, 1); }));
    EXPECT_EQ(1, kept.DrawnShare());
    const Picture seen = Grab();
    EXPECT_EQ(Whole().pixels, seen.pixels);
}

TEST_F(KeptWindow, WithPixelsOfAPartIsAlwaysDrawnAsAWhole)
{
    ImGui::GetIO().DisplayFramebufferScale = {1.5f, 1.5f};
    ImGui::GetIO().DisplaySize = {float(pictureWidth) / 1.6f,
                                  float(pictureHeight) / 1.6f}; // 300 by 187 pixels
    for (int i = 0; i < 2; i++) {
        EXPECT_TRUE(Draw([](ImDrawList* list) { Words(list, 1); }));
        EXPECT_EQ(1, kept.DrawnShare());
    }
}

TEST_F(KeptWindow, IsShownAnewBehindFramesThatWereNotKept)
{
    const auto paint = [](ImDrawList* list) { Words(list, 1); };
    Draw(paint);
    ImGui::GetIO().DisplayFramebufferScale = {1.5f, 1.5f};
    Draw(paint);
    ImGui::GetIO().DisplayFramebufferScale = {1, 1};
    EXPECT_TRUE(Draw(paint));
    const Picture seen = Grab();
    EXPECT_EQ(Whole().pixels, seen.pixels);
    EXPECT_FALSE(Draw(paint));
}

TEST_F(KeptWindow, LeavesTheFrameAsItWas)
{
    Draw([](ImDrawList* list) { Words(list, 1); });
    ImGui::NewFrame();
    Words(ImGui::GetBackgroundDrawList(), 2);
    ImGui::Render();
    ImDrawData* const data = ImGui::GetDrawData();
    const ImVector<ImDrawCmd> commands = data->CmdLists[0]->CmdBuffer;
    const ImVector<ImDrawIdx> indices = data->CmdLists[0]->IdxBuffer;
    ASSERT_TRUE(kept.Draw(data));
    ASSERT_GT(1, kept.DrawnShare());
    const ImDrawList& list = *data->CmdLists[0];
    ASSERT_EQ(commands.Size, list.CmdBuffer.Size);
    for (int i = 0; i < commands.Size; i++) {
        EXPECT_EQ(commands[i].IdxOffset, list.CmdBuffer[i].IdxOffset) << i;
        EXPECT_EQ(commands[i].ElemCount, list.CmdBuffer[i].ElemCount) << i;
        EXPECT_EQ(0, memcmp(&commands[i].ClipRect, &list.CmdBuffer[i].ClipRect, sizeof(ImVec4))) << i;
    }
    ASSERT_EQ(indices.Size, list.IdxBuffer.Size);
    EXPECT_EQ(0, memcmp(indices.Data, list.IdxBuffer.Data, size_t(indices.Size) * sizeof(ImDrawIdx)));
}

TEST_F(KeptWindow, OfNoSizeDrawsNothing)
{
    ImGui::GetIO().DisplaySize = {0, 0};
    EXPECT_FALSE(Draw([](ImDrawList*) {}));
}

// The back buffer stays as it is behind a swap.
class WindowKeptInItself : public KeptWindow
{
protected:
    void SetUp() override
    {
        KeptWindow::SetUp();
        kept.KeepInBackBuffer();
        swapSoils = false;
        Soil();
        DrawToRest();
        ExpectWhole();
    }
    // Until no more frames are drawn as a whole.
    void DrawToRest()
    {
        int frames = 0;
        while (Draw([](ImDrawList* list) { Words(list, 0); }) && frames < 100)
            frames++;
        EXPECT_LT(frames, 10);
    }
    // The window looks like a frame that is drawn as a whole, and stays as it is.
    void ExpectWhole()
    {
        const Picture seen = Grab();
        EXPECT_EQ(Whole().pixels, seen.pixels);
    }
};

TEST_F(WindowKeptInItself, IsThatOfAWholeDrawing)
{
    for (int step = 1; step < 40; step++) {
        ASSERT_TRUE(Draw([step](ImDrawList* list) { Words(list, step); }));
        EXPECT_GT(1, kept.DrawnShare());
        const Picture seen = Grab();
        // Only now, since it would soil or mend the buffer, is the whole drawn over it.
        ASSERT_EQ(Whole().pixels, seen.pixels) << "frame " << step;
    }
    EXPECT_FALSE(Draw([](ImDrawList* list) { Words(list, 39); }));
}

TEST_F(WindowKeptInItself, LeavesThePixelsThatDoNotChangeAlone)
{
    const Picture before = Grab();
    Soil();
    ASSERT_TRUE(Draw([](ImDrawList* list) {
        Words(list, 0);
        list->AddRectFilled({2, 2}, {3, 3}, IM_COL32_WHITE);
    }));
    Picture seen = Grab();
    EXPECT_NE(before.pixels, seen.pixels) << "what was soiled elsewhere stays so";
    kept.Forget();
    Draw([](ImDrawList* list) { Words(list, 0); });
    EXPECT_EQ(1, kept.DrawnShare());
    ExpectWhole();
}

TEST_F(WindowKeptInItself, IsDrawnAsAWholeAgainWhenItsSizeMayHaveChanged)
{
    Soil();
    kept.Forget();
    DrawToRest();
    ExpectWhole();
    ImGui::GetIO().DisplaySize = {200, 100};
    DrawToRest();
    ImGui::GetIO().DisplaySize = {float(pictureWidth), float(pictureHeight)};
    Soil();
    DrawToRest();
    ExpectWhole();
}

TEST_F(WindowKeptInItself, IsDrawnAsAWholeBehindFramesThatWereNotKept)
{
    ImGui::GetIO().DisplayFramebufferScale = {1.5f, 1.5f};
    Draw([](ImDrawList* list) { Words(list, 3); });
    ImGui::GetIO().DisplayFramebufferScale = {1, 1};
    DrawToRest();
    ExpectWhole();
}
