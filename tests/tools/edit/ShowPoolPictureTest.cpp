// SPDX-License-Identifier: MIT
// The frames that the editor shows are those that marlinex-capture makes, whichever way they are come by.
#include "tests/support/ShowPoolFixture.h"

#include "tests/Folders.h"
#include "tests/support/ReadFile.h"

#include <algorithm>
#include <random>

class ShowPoolPicture : public ShowPoolFixture
{
protected:
    const std::string night = ReadFile(SOURCE_DIR "/Data/script.txt");
};

TEST_F(ShowPoolPicture, FortyMomentsOfTheNightInRandomOrderAreTheCapturedOnes)
{
    const auto captured = Captured(night, {"--every", "9.17"});
    ASSERT_GE(captured.size(), 40u);
    std::vector<int64_t> frames;
    for (const auto& [frame, pixels] : captured)
        frames.push_back(frame);
    std::shuffle(frames.begin(), frames.end(), std::minstd_rand(7));

    StartPool();
    pool.SetScript(night, 1);
    for (int64_t frame : frames)
        EXPECT_TRUE(captured.at(frame) == FrameAt(frame)) << frame;
    EXPECT_TRUE(events.empty());
    // They are worth comparing.
    EXPECT_FALSE(captured.at(frames[0]) == captured.at(frames[1]));
}

TEST_F(ShowPoolPicture, FramesAreSteppedThroughBothWays)
{
    const auto captured = Captured(night, {"--from", "20", "--to", "20.5"});
    ASSERT_EQ(30u, captured.size());
    StartPool();
    pool.SetScript(night, 1);
    for (int64_t frame :
         {1200, 1201, 1202, 1203, 1202, 1201, 1200, 1201, 1229, 1228, 1227, 1226, 1225, 1224, 1223, 1222})
        EXPECT_TRUE(captured.at(frame) == FrameAt(frame)) << frame;
}

TEST_F(ShowPoolPicture, TheFirstFramesAreTheCapturedOnes)
{
    const auto captured = Captured(night, {"--to", "0.1"});
    StartPool();
    pool.SetScript(night, 1);
    for (int64_t frame : {5, 0, 1, 2, 3, 4, 2, 1, 0})
        EXPECT_TRUE(captured.at(frame) == FrameAt(frame)) << frame;
}

TEST_F(ShowPoolPicture, BeyondTheEndIsTheLastFrame)
{
    WriteFlashShow(500, false);
    settings.data = PathOf("Data");
    const std::string script = Bytes("Data/script.txt");
    const auto captured = Captured(script, {});
    ASSERT_EQ(30u, captured.size());
    StartPool();
    pool.SetScript(script, 1);
    pool.Seek(1000000);
    ASSERT_TRUE(PollUntil([&] { return framesTaken > 0; }));
    EXPECT_EQ(29, last.number);
    EXPECT_TRUE(captured.at(29) == WithoutAlpha(last.rgba));
}

TEST_F(ShowPoolPicture, PlayingShowsEachFrameInItsTurn)
{
    const auto captured = Captured(night, {"--from", "0.9", "--to", "2.1"});
    StartPool();
    pool.SetScript(night, 1);
    ASSERT_FALSE(FrameAt(60).empty());
    for (int64_t wish = 61; wish < 120;) {
        pool.PlayTo(wish);
        const int before = framesTaken;
        PollFor(0.01);
        if (framesTaken == before)
            continue; // as if the music waited for the picture
        EXPECT_LE(last.number, wish);
        EXPECT_TRUE(captured.at(last.number) == WithoutAlpha(last.rgba)) << last.number;
        wish++;
    }
    EXPECT_EQ(119, last.number);
}

TEST_F(ShowPoolPicture, PlayingOnWithoutWaitingSkipsDrawingAndSaysSo)
{
    const auto captured = Captured(night, {"--from", "1", "--to", "4"});
    StartPool();
    pool.SetScript(night, 1);
    ASSERT_FALSE(FrameAt(60).empty());
    std::vector<int64_t> numbers;
    for (int64_t wish = 60; wish < 239; wish += 6) { // far quicker than the show
        pool.PlayTo(wish);
        PollFor(0.001);
        numbers.push_back(last.number);
        if (last.number > 60) {
            EXPECT_TRUE(captured.at(last.number) == WithoutAlpha(last.rgba)) << last.number;
        }
    }
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    const edit::ShowPool::Status status = pool.GetStatus();
    EXPECT_GT(status.skipped, 0);
    EXPECT_LE(status.skipped, 179);
}
