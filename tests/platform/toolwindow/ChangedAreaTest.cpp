// SPDX-License-Identifier: MIT
// Which tiles of a window of 200 by 130 pixels are to be drawn anew: four columns, the last 8 pixels wide, and three rows, the
// last 2 pixels high.
#include "platform/toolwindow/ChangedArea.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using namespace platform;

class ChangedTiles : public testing::Test
{
protected:
    ChangedTiles()
    {
        data.CmdListsCount = 1;
        data.CmdLists = lists;
        data.DisplaySize = {200, 130};
        data.FramebufferScale = {1, 1};
    }

    struct Box {
        float left, top, right, bottom;
        ImU32 colour = 0xff000000;
        uintptr_t texture = 1;
        ImVec4 clip = {0, 0, 200, 130};
        ImVec2 texel = {0, 0};
    };

    // The rectangles for a frame of these boxes, such as "0,0-64,64 128,0-200,64".
    std::string Find(const std::vector<Box>& boxes)
    {
        list.VtxBuffer.clear();
        list.IdxBuffer.clear();
        list.CmdBuffer.clear();
        for (const Box& box : boxes) {
            ImDrawCmd command;
            command.ClipRect = box.clip;
            command.TextureId = reinterpret_cast<ImTextureID>(box.texture);
            command.IdxOffset = unsigned(list.IdxBuffer.Size);
            command.ElemCount = 6;
            const int first = list.VtxBuffer.Size;
            for (const ImVec2 corner : {ImVec2(box.left, box.top), ImVec2(box.right, box.top),
                                        ImVec2(box.right, box.bottom), ImVec2(box.left, box.bottom)})
                list.VtxBuffer.push_back({corner, box.texel, box.colour});
            for (const int index : {0, 1, 2, 0, 2, 3})
                list.IdxBuffer.push_back(ImDrawIdx(first + index));
            list.CmdBuffer.push_back(command);
        }
        rects = area.Find(data);
        std::string text;
        for (const FrameRect& rect : rects)
            text += (text.empty() ? "" : " ") + std::to_string(rect.left) + "," + std::to_string(rect.top) +
                    "-" + std::to_string(rect.right) + "," + std::to_string(rect.bottom);
        return text;
    }

    ChangedArea area;
    std::vector<FrameRect> rects; // of the last frame
    ImDrawList list{nullptr};
    ImDrawList* lists[1] = {&list};
    ImDrawData data;
};

TEST_F(ChangedTiles, TheFirstFrameIsAllOfTheWindow)
{
    EXPECT_EQ("0,0-200,130", Find({}));
    EXPECT_EQ("", Find({}));
}

TEST_F(ChangedTiles, TheSameFrameAgainIsNothing)
{
    const std::vector<Box> boxes = {{10, 10, 90, 100}, {20, 20, 150, 40, 0xff00ff00}};
    Find(boxes);
    EXPECT_EQ("", Find(boxes));
}

TEST_F(ChangedTiles, WhatIsForgottenIsDrawnAnew)
{
    Find({});
    area.Forget();
    EXPECT_EQ("0,0-200,130", Find({}));
    EXPECT_EQ("", Find({}));
}

TEST_F(ChangedTiles, AnotherSizeOfTheWindowIsAllOfIt)
{
    Find({});
    data.DisplaySize = {190, 130};
    EXPECT_EQ("0,0-190,130", Find({}));
    data.DisplaySize = {190, 131};
    EXPECT_EQ("0,0-190,131", Find({}));
    EXPECT_EQ("", Find({}));
}

TEST_F(ChangedTiles, WhatComesAndGoesIsInTheTilesThatItReaches)
{
    Find({});
    EXPECT_EQ("64,0-128,64", Find({{70, 10, 90, 20}}));
    EXPECT_EQ("64,0-128,64", Find({}));
    EXPECT_EQ("64,64-128,128", Find({{64, 64, 128, 128}})); // and not one further
    EXPECT_EQ("64,64-128,128", Find({}));
    EXPECT_EQ("0,0-128,128", Find({{63.5f, 63.5f, 64.5f, 64.5f}}));
}

TEST_F(ChangedTiles, EachCornerOfABoxCounts)
{
    Find({{10, 10, 90, 20}});
    for (int corner = 0; corner < 4; corner++) {
        list.VtxBuffer[corner].col = 0xff0000ff;
        EXPECT_EQ(1u, area.Find(data).size()) << corner;
        EXPECT_EQ(0u, area.Find(data).size());
    }
    list.VtxBuffer[3].pos = {10, 70}; // the lower left one reaches into the next row
    rects = area.Find(data);
    ASSERT_EQ(1u, rects.size());
    EXPECT_EQ(128, rects[0].bottom);
}

// Two triangles, the one in the first tile and the other in the third of the second row, with these indices.
TEST_F(ChangedTiles, TrianglesThatShareNoEdgeAreTwo)
{
    const ImVec2 places[] = {{10, 10}, {20, 10}, {10, 20}, {140, 70}, {150, 70}, {140, 80}};
    Find({{10, 10, 20, 20}});
    list.VtxBuffer.clear();
    for (const ImVec2 place : places)
        list.VtxBuffer.push_back({place, {0, 0}, 0xff000000});
    for (int i = 0; i < 6; i++)
        list.IdxBuffer[i] = ImDrawIdx(i);
    area.Find(data);
    list.VtxBuffer[4].col = 0xff0000ff;
    rects = area.Find(data);
    ASSERT_EQ(1u, rects.size());
    EXPECT_EQ(128, rects[0].left);
    EXPECT_EQ(64, rects[0].top);

    list.IdxBuffer[3] = 0; // a corner in common is no edge
    area.Find(data);
    for (const int corner : {4, 5}) {
        list.VtxBuffer[corner].col = 0xff00ff00;
        EXPECT_EQ(1u, area.Find(data).size()) << corner;
    }
}

TEST_F(ChangedTiles, WhatMovesIsWhereItWasAndWhereItIs)
{
    Find({{10, 10, 20, 20}});
    EXPECT_EQ("0,0-64,64 128,64-192,128", Find({{130, 70, 140, 80}}));
}

TEST_F(ChangedTiles, TheLastTilesEndWithTheWindow)
{
    Find({});
    EXPECT_EQ("192,128-200,130", Find({{195, 129, 199, 130}}));
}

TEST_F(ChangedTiles, ColourTextureAndTexelCount)
{
    Find({{10, 10, 20, 20}});
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 20, 20, 0xff000001}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 20, 20, 0xff000001, 2}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 20, 20, 0xff000001, 2, {0, 0, 200, 130}, {0.5f, 0}}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 20, 20, 0xff000001, 2, {0, 0, 200, 130}, {0.5f, 0.5f}}}));
    EXPECT_EQ("", Find({{10, 10, 20, 20, 0xff000001, 2, {0, 0, 200, 130}, {0.5f, 0.5f}}}));
}

TEST_F(ChangedTiles, TheOrderOfWhatLiesOverOneAnotherCounts)
{
    const Box red = {10, 10, 20, 20, 0xff0000ff}, blue = {15, 15, 25, 25, 0xffff0000};
    Find({red, blue});
    EXPECT_EQ("0,0-64,64", Find({blue, red}));
}

TEST_F(ChangedTiles, WhatLiesElsewhereInTheBuffersDoesNotCount)
{
    const Box first = {10, 10, 20, 20}, second = {130, 10, 140, 20};
    Find({first, second});
    EXPECT_EQ("0,0-64,64", Find({second})); // its corners have other numbers now
}

TEST_F(ChangedTiles, WhatTheClipRectangleLeavesCounts)
{
    Find({{10, 10, 190, 20, 0xff000000, 1, {0, 0, 100, 130}}});
    EXPECT_EQ("64,0-128,64", Find({{10, 10, 190, 20, 0xff000000, 1, {0, 0, 90, 130}}}));
    EXPECT_EQ("64,0-128,64", Find({{10, 10, 190, 20, 0xff000000, 1, {0, 0, 64, 130}}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 190, 20, 0xff000000, 1, {0, 12, 64, 130}}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 190, 20, 0xff000000, 1, {0, 12, 64, 15}}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 190, 20, 0xff000000, 1, {5, 12, 64, 15}}}));
    EXPECT_EQ("0,0-64,64", Find({{10, 10, 190, 20, 0xff000000, 1, {5, 30, 64, 60}}})); // nothing is left
    EXPECT_EQ("", Find({{10, 10, 190, 20, 0xff000000, 1, {60, 30, 50, 60}}}));
}

TEST_F(ChangedTiles, WhatLiesOutsideTheWindowIsNotLookedAt)
{
    Find({});
    EXPECT_EQ("", Find({{-50, -50, -10, -10}, {300, 10, 400, 20}, {10, 131, 20, 140}}));
    EXPECT_EQ("0,0-64,64", Find({{-1e9f, -1e9f, 10, 10}}));
}

TEST_F(ChangedTiles, RunsUnderOneAnotherBecomeOneRectangle)
{
    Find({});
    EXPECT_EQ("64,0-192,128", Find({{70, 10, 180, 100}}));
}

TEST_F(ChangedTiles, ThereAreNeverMoreThanFourRectanglesAndNoneLieOverOneAnother)
{
    data.DisplaySize = {640, 640};
    Find({});
    for (int round = 0; round < 200; round++) {
        std::vector<Box> boxes;
        for (int i = 0; i < 6; i++) {
            const float x = float((round * 131 + i * 197) % 620), y = float((round * 89 + i * 251) % 620);
            boxes.push_back({x, y, x + 12, y + 12, 0xff000000, 1, {0, 0, 640, 640}});
        }
        Find(boxes);
        EXPECT_LE(1u, rects.size());
        EXPECT_GE(4u, rects.size());
        for (const Box& box : boxes)
            for (const ImVec2 corner : {ImVec2(box.left, box.top), ImVec2(box.right - 1, box.bottom - 1)}) {
                int holding = 0;
                for (const FrameRect& rect : rects)
                    holding += int(corner.x) >= rect.left && int(corner.x) < rect.right &&
                               int(corner.y) >= rect.top && int(corner.y) < rect.bottom;
                EXPECT_EQ(1, holding) << "round " << round << ": " << corner.x << ", " << corner.y;
            }
        Find({});
    }
}

// The backend cuts the lower left corner and the sides down to whole pixels; the window is 130 high.
TEST(ClipOfACommand, IsWhatTheBackendLetsThrough)
{
    ImDrawData data;
    data.DisplaySize = {200, 130};
    data.FramebufferScale = {1, 1};
    const auto clip = [&](ImVec4 rect) {
        ImDrawCmd command;
        command.ClipRect = rect;
        const FrameRect left = ClipOf(command, data);
        return std::to_string(left.left) + "," + std::to_string(left.top) + "-" + std::to_string(left.right) +
               "," + std::to_string(left.bottom);
    };
    EXPECT_EQ("10,20-30,40", clip({10, 20, 30, 40}));
    EXPECT_EQ("10,21-29,41",
              clip({10.5f, 20.25f, 30.25f, 40.75f})); // from row 89 (89.25) up, 19 wide and 20 high
    EXPECT_EQ("0,0-0,0", clip({30, 20, 10, 40}));
    EXPECT_EQ("0,0-0,0", clip({10, 40, 30, 40}));
    data.FramebufferScale = {2, 2};
    EXPECT_EQ("20,40-60,80", clip({10, 20, 30, 40}));
    data.DisplayPos = {5, 10};
    EXPECT_EQ("10,20-50,60", clip({10, 20, 30, 40}));
}
