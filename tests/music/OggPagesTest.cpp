// SPDX-License-Identifier: MIT
#include "music/OggPages.h"

#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>

#include <unistd.h>

static const int64_t longest = 1468800; // 255 packets of 120 ms at 48000 Hz

static std::string Little(uint64_t number, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += char(number >> (8 * i) & 255);
    return text;
}

static std::string Page(uint64_t granule, uint32_t serial, size_t content = 300, uint32_t number = 0)
{
    return "OggS" + std::string(2, '\0') + Little(granule, 8) + Little(serial, 4) + Little(number, 4) +
           std::string(5, '\0') + std::string(content, 'x');
}

static int64_t FramesOf(const std::string& bytes)
{
    const std::string path = soundfiles::TemporaryPath("pages.ogg");
    soundfiles::WriteBytes(path, bytes);
    return LastOggPageFrames(path);
}

TEST(OggPages, TheLastPageHoldsWhatItsEndLiesBehindTheEndOfThePageBeforeIt)
{
    EXPECT_EQ(4500, FramesOf(Page(77, 5) + Page(1000, 5) + Page(5500, 5)));
    EXPECT_EQ(0x300000000 - 0x2FFFF8000, FramesOf(Page(0x2FFFF8000, 5) + Page(0x300000000, 5)));
    EXPECT_EQ(0, FramesOf(Page(1000, 5) + Page(1000, 5)));
    EXPECT_EQ(4500, FramesOf(Page(1000, 5) + Page(5500, 5, 0))) << "a page that ends with its header";
}

TEST(OggPages, PagesOfOtherStreamsAndPagesInWhichNoPacketEndsAreSkipped)
{
    EXPECT_EQ(4500, FramesOf(Page(1000, 5) + Page(2000, 6) + Page(5500, 5)));
    EXPECT_EQ(4500, FramesOf(Page(1000, 5) + Page(uint64_t(-1), 5) + Page(5500, 5)));
    EXPECT_EQ(4500, FramesOf(Page(1000, 5) + Page(5500, 5) + Page(uint64_t(-1), 5)));
    EXPECT_EQ(4500, FramesOf(Page(1000, 5) + Page(5500, 5) + "OggS, and the rest is cut"));
}

TEST(OggPages, AStreamIsKnownByAllOfItsNumberAndPagesAreCounted)
{
    EXPECT_EQ(4500, FramesOf(Page(1000, 0x12345678, 300, 40) + Page(2000, 0x13345678, 300, 40) +
                             Page(2000, 0x12345679, 300, 40) + Page(5500, 0x12345678, 300, 41)));
}

TEST(OggPages, TheFirstPageMayBeTheOneBeforeTheLast)
{
    EXPECT_EQ(700, FramesOf(Page(0, 5) + Page(700, 5)));
}

TEST(OggPages, TheFileIsClosedAgain)
{
    const int next = dup(STDOUT_FILENO); // the lowest number that is free
    close(next);
    FramesOf(Page(1000, 5));
    const int nextNow = dup(STDOUT_FILENO);
    close(nextNow);
    EXPECT_EQ(next, nextNow);
}

TEST(OggPages, TheLongestPageIsTakenForOneThatCannotBeMeasured)
{
    EXPECT_EQ(longest, FramesOf(""));
    EXPECT_EQ(longest, FramesOf("no Ogg"));
    EXPECT_EQ(longest, FramesOf(Page(5500, 5)));
    EXPECT_EQ(longest, FramesOf(Page(5500, 5) + Page(1000, 5))) << "backwards";
    EXPECT_EQ(longest, FramesOf(Page(0, 5) + Page(1468800, 5)));
    EXPECT_EQ(longest, FramesOf(Page(0, 5) + Page(1468801, 5))) << "no page holds that much";
    EXPECT_EQ(longest, LastOggPageFrames("/no/such/file"));
}

TEST(OggPages, TheLargestPagesThereAreAreFoundAtTheEndOfALargeFile)
{
    const size_t most = 65307 - 27;
    EXPECT_EQ(4500, FramesOf(std::string(1000000, 'y') + Page(1000, 5, most) + Page(5500, 5, most)));
}
