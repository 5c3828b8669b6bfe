// SPDX-License-Identifier: MIT
#include "tools/capture/PngSequence.h"

#include "tests/support/PictureFiles.h"
#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

namespace fs = std::filesystem;

using capture::PatternName;
using capture::PatternOf;
using capture::PngSequence;

static std::unique_ptr<capture::Frame> FrameOf(int64_t number)
{
    std::unique_ptr<capture::Frame> frame(new capture::Frame);
    frame->number = number;
    frame->width = 3;
    frame->height = 2;
    for (int i = 0; i < 3 * 2; i++)
        frame->pixels.insert(frame->pixels.end(),
                             {static_cast<unsigned char>(number), static_cast<unsigned char>(10 * i), 7, 99});
    return frame;
}

TEST(PngSequence, NamesFilesInAFolderOrByAPattern)
{
    std::string pattern;
    EXPECT_TRUE(PatternOf("frames", &pattern));
    EXPECT_EQ("frames/000042.png", PatternName(pattern, 42));
    EXPECT_TRUE(PatternOf("frames/", &pattern));
    EXPECT_EQ("frames/1234567.png", PatternName(pattern, 1234567));
    EXPECT_TRUE(PatternOf("x-%03d.png", &pattern));
    EXPECT_EQ("x-007.png", PatternName(pattern, 7));
    EXPECT_TRUE(PatternOf("%d.png", &pattern));
    EXPECT_EQ("7.png", PatternName(pattern, 7));
    EXPECT_TRUE(PatternOf("x%4dy.png", &pattern));
    EXPECT_EQ("x   7y.png", PatternName(pattern, 7));
    for (const char* wrong : {"%.png", "%s.png", "%05.png", "%d%d.png", "%0005d.png", "a%%d.png", "%d%s.png",
                              "%d%.png", "%%%%.png", "%%%.png", ""})
        EXPECT_FALSE(PatternOf(wrong, &pattern)) << wrong;
}

TEST(PngSequence, TakesOnlyTheNameOfAPngForAPattern)
{
    for (const char* pattern : {"%d.png", "a/b-%05d.png", "100%.png", "50%/50%%-%d.png"})
        EXPECT_TRUE(capture::IsPattern(pattern)) << pattern;
    for (const char* other : {"50%/x.png", "%d/x.png", "a%03d.mp4", "%d", "%d.png/", "50%/"})
        EXPECT_FALSE(capture::IsPattern(other)) << other;
    std::string pattern;
    EXPECT_TRUE(PatternOf("50%/%d/x-%d.png", &pattern));
    EXPECT_EQ("50%/%d/x-3.png", PatternName(pattern, 3));
    EXPECT_TRUE(PatternOf("50%/", &pattern));
    EXPECT_EQ("50%/000003.png", PatternName(pattern, 3));
}

TEST(PngSequence, WritesADoubledPerCentSignOnce)
{
    std::string pattern;
    EXPECT_TRUE(PatternOf("a%%/100%%-%02d%%d%%%%.png", &pattern));
    EXPECT_EQ("a%%/100%-04%d%%.png", PatternName(pattern, 4));
    EXPECT_TRUE(PatternOf("%%%d.png", &pattern));
    EXPECT_EQ("%4.png", PatternName(pattern, 4));
}

TEST(PngSequence, WritesEachFrameTheRightWayUp)
{
    const fs::path folder = soundfiles::TemporaryPath("frames");
    PngSequence sequence((folder / "deep/%02d.png").string(), 2);
    ASSERT_TRUE(sequence.Begin(3, 2, capture::FrameSelection()));
    for (int number = 0; number < 20; number++)
        ASSERT_TRUE(sequence.Take(FrameOf(number)));
    ASSERT_TRUE(sequence.Finish(true));
    int files = 0;
    for (const auto& entry : fs::directory_iterator(folder / "deep")) {
        EXPECT_EQ(".png", entry.path().extension());
        files++;
    }
    EXPECT_EQ(20, files);
    const Picture picture = LoadPng((folder / "deep/17.png").string());
    EXPECT_EQ(3, picture.width);
    EXPECT_EQ(2, picture.height);
    EXPECT_EQ(17, picture.At(0, 0)[0]);
    EXPECT_EQ(30, picture.At(0, 0)[1]); // GL's bottom row comes first
    EXPECT_EQ(0, picture.At(0, 1)[1]);
    EXPECT_EQ(7, picture.At(2, 1)[2]);
}

TEST(PngSequence, TellsWhatItCanNotWrite)
{
    const std::string folder = soundfiles::TemporaryPath("taken");
    soundfiles::WriteBytes(folder, "a file");
    PngSequence blocked(folder + "/%d.png", 1);
    EXPECT_FALSE(blocked.Begin(3, 2, capture::FrameSelection()));
    EXPECT_NE(std::string::npos, blocked.error.find(folder)) << blocked.error;

    const fs::path other = soundfiles::TemporaryPath("occupied");
    fs::create_directories(other / "0.png/inside"); // a folder where the picture should be
    PngSequence late((other / "%d.png").string(), 1);
    ASSERT_TRUE(late.Begin(3, 2, capture::FrameSelection()));
    late.Take(FrameOf(0));
    EXPECT_FALSE(late.Finish(true));
    EXPECT_EQ((other / "0.png").string() + ": Is a directory", late.error);
    EXPECT_EQ(1, std::distance(fs::directory_iterator(other), fs::directory_iterator()));
}
