// SPDX-License-Identifier: MIT
#include "tools/capture/ContactSheet.h"

#include "tests/support/PictureFiles.h"
#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>

using capture::ContactSheet;
using capture::FrameRate;
using capture::FrameSelection;

class ContactSheets : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(file.Open(path, capture::PartHidesEnding)) << file.error; }

    // Left half of one brightness, right half of another, and one bright row on top.
    static std::unique_ptr<capture::Frame> FrameOf(int64_t number)
    {
        std::unique_ptr<capture::Frame> frame(new capture::Frame);
        frame->number = number;
        frame->width = 80;
        frame->height = 60;
        for (int y = 0; y < 60; y++)
            for (int x = 0; x < 80; x++) {
                const unsigned char value = y == 59 ? 255 : x < 40 ? 40 : 120; // GL's top row is the last
                frame->pixels.insert(frame->pixels.end(), {value, value, value, 0});
            }
        return frame;
    }

    // What a label looks like: '#' where it is ink, 6 columns and a gap of 2 for each character.
    static std::string Row(const Picture& sheet, int x, int y, int width)
    {
        std::string row;
        for (int i = 0; i < width; i++)
            row += *sheet.At(x + i, y) == 200 ? '#' : ' ';
        return row;
    }

    const std::string path = soundfiles::TemporaryPath("sheet.png");
    capture::OutputFile file;
};

TEST_F(ContactSheets, ShrinkEachFrameToTheMeanOfWhatLiesUnderAPixel)
{
    ContactSheet sheet(file, 2, 20);
    const FrameSelection three = FrameSelection::Of(FrameRate(), 0, 50000);
    ASSERT_EQ(3, three.picks);
    ASSERT_TRUE(sheet.Begin(80, 60, three));
    for (int64_t i = 0; i < 3; i++)
        ASSERT_TRUE(sheet.Take(FrameOf(i)));
    ASSERT_TRUE(sheet.Finish(true));
    const Picture picture = LoadPng(path);
    EXPECT_EQ(8 + 2 * 28, picture.width);
    EXPECT_EQ(8 + 2 * (15 + 16 + 8), picture.height);
    EXPECT_EQ((3 * 40 + 255 + 2) / 4, *picture.At(8, 8)); // one row of four is the bright one
    EXPECT_EQ(40, *picture.At(8 + 9, 8 + 1));
    EXPECT_EQ(120, *picture.At(8 + 10, 8 + 1));
    EXPECT_EQ(40, *picture.At(8 + 28, 8 + 14));
    EXPECT_EQ(40, *picture.At(8, 8 + 39 + 14));
    EXPECT_EQ(16, *picture.At(8 + 28, 8 + 39 + 14)); // the fourth place stays paper
    EXPECT_EQ(16, *picture.At(7, 8));
}

TEST_F(ContactSheets, WriteTheTimeUnderEachTile)
{
    ContactSheet sheet(file, 1, 80);
    FrameSelection late = FrameSelection::Of(FrameRate(), 67500000, 67501000);
    ASSERT_EQ(4050, late.first); // 1:07.50
    ASSERT_TRUE(sheet.Begin(80, 60, late));
    ASSERT_TRUE(sheet.Take(FrameOf(4050)));
    ASSERT_TRUE(sheet.Finish(true));
    const Picture picture = LoadPng(path);
    const char* const rows[] = {
        "  ##            ######  ######          ######  ######  ",
        "  ##            ######  ######          ######  ######  ",
        "####      ##    ##  ##      ##          ##      ##  ##  ",
    };
    for (int y = 0; y < 3; y++)
        EXPECT_EQ(rows[y], Row(picture, 8, 8 + 60 + 3 + y, 56)) << y;
}

TEST_F(ContactSheets, ThatWereBrokenOffShowWhatThereIs)
{
    ContactSheet sheet(file, 3, 20);
    ASSERT_TRUE(sheet.Begin(80, 60, FrameSelection::Of(FrameRate(), 0, 50000)));
    ASSERT_TRUE(sheet.Take(FrameOf(0)));
    ASSERT_TRUE(sheet.Finish(true));
    const Picture picture = LoadPng(path);
    EXPECT_EQ(40, *picture.At(8, 8 + 5));
    EXPECT_EQ(16, *picture.At(8 + 28, 8 + 5));
}

TEST_F(ContactSheets, OfAShowThatFailedAreNotWritten)
{
    ContactSheet failed(file, 3, 20);
    ASSERT_TRUE(failed.Begin(80, 60, FrameSelection::Of(FrameRate(), 0, 50000)));
    ASSERT_TRUE(failed.Take(FrameOf(0)));
    EXPECT_TRUE(failed.Finish(false));
    EXPECT_FALSE(FileExists(path));
    ContactSheet empty(file, 3, 20);
    ASSERT_TRUE(empty.Begin(80, 60, FrameSelection::Of(FrameRate(), 0, 50000)));
    EXPECT_TRUE(empty.Finish(true));
    EXPECT_FALSE(FileExists(path));
}

TEST_F(ContactSheets, ThatNobodyCouldOpenAreRefused)
{
    ContactSheet sheet(file, 10000, 2048);
    EXPECT_FALSE(sheet.Begin(80, 60, FrameSelection::Of(FrameRate(), 0, 100000000)));
    EXPECT_EQ("a sheet of that many tiles of that size is too large: 12336008 x 1568 pixels", sheet.error);
}
