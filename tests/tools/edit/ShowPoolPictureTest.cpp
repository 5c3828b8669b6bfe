// SPDX-License-Identifier: MIT
// The frames that the editor shows are those that marlinex-capture makes, whichever way they are come by.
#include "tests/support/ShowPoolFixture.h"

#include "tests/Folders.h"
#include "tests/support/ReadFile.h"

#include <algorithm>
#include <filesystem>
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
    for (int64_t wish = 61; wish < 120; wish++) {
        const int before = framesTaken;
        const int64_t shown = last.number;
        // As if the music waited for the picture, but not for ever: a machine that is too slow to draw each frame draws
        // some that are due later, a quarter of a second at most.
        pool.PlayTo(wish);
        PollUntil([&] { return framesTaken > before; }, 0.5);
        if (framesTaken == before)
            continue;
        EXPECT_LE(last.number, wish);
        EXPECT_GT(last.number, shown);
        EXPECT_TRUE(captured.at(last.number) == WithoutAlpha(last.rgba)) << last.number;
    }
    EXPECT_GE(last.number, 119 - 16);
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

// ---- Scripts that change while they are shown

TEST_F(ShowPoolPicture, AChangeAheadLeavesTheFrameAndTheProcessAndAFreshCaptureIsTheSame)
{
    StartPool();
    pool.SetScript(night, 1);
    const std::vector<uint8_t> frame = FrameAt(900);
    ASSERT_FALSE(frame.empty());
    const std::vector<int> children = Children();

    // At 15 s: sparks, which come at 14.4, 21.6, 28.8 s and so on; the next at 20 s instead.
    const std::string was = "ActivationTime=14400;\nTargetEffect=FX_Scroller_Intro;\nSteps=5;";
    ASSERT_NE(std::string::npos, night.find(was));
    std::string changed = night;
    changed.replace(night.find(was), was.size(),
                    "ActivationTime=14400,20000;\nTargetEffect=FX_Scroller_Intro;");
    pool.SetScript(changed, 2);
    EXPECT_TRUE(frame == FrameAt(900, 2));
    EXPECT_EQ(children.at(0), Children().at(0)); // it lives on

    const auto captured = Captured(changed, {"--from", "19.9", "--to", "22.4", "--every", "0.25"});
    ASSERT_GE(captured.size(), 9u);
    for (const auto& [number, pixels] : captured)
        EXPECT_TRUE(pixels == FrameAt(number, 2)) << number;
    EXPECT_EQ(children.at(0), Children().at(0));
    // The change is to be seen, or this would prove nothing.
    const auto before = Captured(night, {"--from", "19.9", "--to", "22.4", "--every", "0.25"});
    EXPECT_FALSE(before == captured);
}

TEST_F(ShowPoolPicture, AChangeInThePastIsMadeAnew)
{
    StartPool();
    pool.SetScript(night, 1);
    const std::vector<uint8_t> frame = FrameAt(900);
    std::string changed = night;
    const std::string was = "ActivationTime=14400;";
    changed.replace(night.find(was), was.size(), "ActivationTime=14000;");
    pool.SetScript(changed, 2);
    const std::vector<uint8_t> anew = FrameAt(900, 2);
    EXPECT_FALSE(frame == anew);
    EXPECT_TRUE(Captured(changed, {"--from", "15", "--to", "15.01"}).at(900) == anew);
    // And back.
    pool.SetScript(night, 3);
    EXPECT_TRUE(frame == FrameAt(900, 3));
    EXPECT_TRUE(events.empty());
}

TEST_F(ShowPoolPicture, RandomEditsAllOverTheNightGiveTheFramesOfAFreshCapture)
{
    StartPool();
    std::minstd_rand random(3);
    std::string script = night;
    pool.SetScript(script, 1);
    for (uint64_t revision = 2; revision < 5; revision++) {
        // Some time of the script becomes another one nearby.
        std::vector<size_t> places;
        for (size_t at = script.find("Time="); at != std::string::npos; at = script.find("Time=", at + 1))
            places.push_back(at + 5);
        const size_t place = places.at(random() % places.size());
        const size_t end = script.find_first_of(",;", place);
        const int time = std::stoi(script.substr(place, end - place));
        script.replace(place, end - place, std::to_string(time + int(random() % 900)));
        const int64_t frame = std::max<int64_t>(int64_t(time) * 60 / 1000 + int64_t(random() % 120), 0);
        FrameAt(frame, revision - 1);
        pool.SetScript(script, revision);
        const std::vector<uint8_t> made = FrameAt(frame + 7, revision);
        const std::string from = std::to_string(double(frame + 7) / 60 - 0.001);
        const std::string to = std::to_string(double(frame + 7) / 60 + 0.001);
        const auto captured = Captured(script, {"--from", from, "--to", to});
        if (captured.empty())
            continue; // behind the end
        EXPECT_TRUE(captured.begin()->second == made)
            << captured.begin()->first << " " << script.substr(place - 40, 80);
    }
}

TEST_F(ShowPoolPicture, ChangedDataAreSeen)
{
    // The production's own files but for one picture.
    for (const auto& file : std::filesystem::directory_iterator(SOURCE_DIR "/Data"))
        if (file.path().filename() != "ochre_painting1.jpg")
            std::filesystem::create_symlink(file.path(), PathOf("Data/" + file.path().filename().string()));
    SavePicture(PathOf("Data/ochre_painting1.jpg"), PlainPicture(64, 64, 3, 200, 40, 40));
    const std::string script = "[EFFECT]EffectName=FS_Image;StartTime=0;StopTime=5000;LayerID=1;";
    settings.data = PathOf("Data");
    StartPool();
    pool.SetScript(script, 1);
    const auto red = Captured(script, {"--from", "1", "--to", "1.01"});
    EXPECT_TRUE(red.at(60) == FrameAt(60));
    SavePicture(PathOf("Data/ochre_painting1.jpg"), PlainPicture(64, 64, 3, 40, 200, 40));
    const auto green = Captured(script, {"--from", "1", "--to", "1.01"});
    EXPECT_FALSE(red == green);
    pool.DataChanged("ochre_painting1.jpg");
    EXPECT_TRUE(
        PollUntil([&] { return green.at(60) == WithoutAlpha(last.rgba); })); // without being asked again
}
