// SPDX-License-Identifier: MIT
// The window of a stream, with all three threads played by hand.
#include "music/SoundStream.h"

#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <climits>
#include <thread>

static const int64_t longMusic = 100 * 44100;

class SoundStreamWindow : public testing::Test
{
protected:
    void Open(int bufferMilliseconds, int64_t frames = longMusic)
    {
        auto numbered = std::make_unique<NumberedDecoder>(frames);
        decoder = numbered.get();
        stream = std::make_unique<SoundStream>(std::move(numbered), 44100, bufferMilliseconds, &wakeUp);
    }
    void DecodeAll()
    {
        while (stream->Decode()) {
        }
    }
    // What the device thread does when it finds a new order, in front of the frames that it then copies.
    void ObeySeek()
    {
        const StreamOrder order = stream->LastOrder();
        if (!stream->Holds(stream->PositionOf(order.milliseconds)))
            stream->Want(order);
        stream->Report(order, stream->PositionOf(order.milliseconds), false);
    }
    float LeftAt(int64_t position)
    {
        StereoFrame frame;
        stream->Copy(position, 1, &frame);
        return frame.left;
    }

    EventCount wakeUp;
    NumberedDecoder* decoder = nullptr;
    std::unique_ptr<SoundStream> stream;
};

TEST_F(SoundStreamWindow, IsOpenStoppedAndAtItsStartAndHoldsNothingYet)
{
    Open(1000);
    EXPECT_FALSE(stream->closed);
    EXPECT_TRUE(stream->HasAppliedOrder());
    EXPECT_FALSE(stream->HasRunOut());
    EXPECT_EQ(0, stream->Reported());
    EXPECT_TRUE(stream->Holds(0));
    EXPECT_FALSE(stream->Holds(1));
    EXPECT_EQ(0, stream->FramesFrom(0));
    EXPECT_FALSE(stream->EndsAt(0));
}

TEST_F(SoundStreamWindow, TimesBecomeTheNearestFrameHalvesUp)
{
    Open(1000);
    EXPECT_EQ(0, stream->PositionOf(0));
    EXPECT_EQ(44, stream->PositionOf(1));   // 44.1
    EXPECT_EQ(221, stream->PositionOf(5));  // 220.5
    EXPECT_EQ(309, stream->PositionOf(7));  // 308.7
    EXPECT_EQ(662, stream->PositionOf(15)); // 661.5
    EXPECT_EQ(44100, stream->PositionOf(1000));
    EXPECT_EQ(94704028833, stream->PositionOf(INT_MAX)); // 94704028832.7
}

TEST_F(SoundStreamWindow, FramesBecomeTheNearestMillisecondHalvesUp)
{
    Open(1000);
    EXPECT_EQ(0, stream->TimeOf(0));
    EXPECT_EQ(0, stream->TimeOf(22)); // 0.4989
    EXPECT_EQ(1, stream->TimeOf(23)); // 0.5215
    EXPECT_EQ(1, stream->TimeOf(66)); // 1.4966
    EXPECT_EQ(2, stream->TimeOf(67)); // 1.5193
    EXPECT_EQ(1000, stream->TimeOf(44100));
    EXPECT_EQ(4, stream->TimeOf(198)); // 4.4898
    EXPECT_EQ(5, stream->TimeOf(199)); // 4.5125
}

TEST_F(SoundStreamWindow, ATimeBeyondAllNumbersStaysAtTheLargest)
{
    Open(1000);
    EXPECT_EQ(INT_MAX, stream->TimeOf(94704028833));
    EXPECT_EQ(INT_MAX, stream->TimeOf(94704028833 + 44100));
    EXPECT_EQ(INT_MAX - 1, stream->TimeOf(94704028833 - 44));
}

TEST_F(SoundStreamWindow, EveryTimeSurvivesTheWayToAFrameAndBack)
{
    Open(1000);
    for (int time = 0; time < 100000; ++time)
        ASSERT_EQ(time, stream->TimeOf(stream->PositionOf(time)));
    ASSERT_EQ(INT_MAX, stream->TimeOf(stream->PositionOf(INT_MAX)));
}

TEST_F(SoundStreamWindow, AnOrderArrivesWithAllItsParts)
{
    Open(1000);
    EXPECT_EQ((StreamOrder{false, 0, 0}), stream->LastOrder());
    stream->Give(true, INT_MAX);
    EXPECT_EQ((StreamOrder{true, INT_MAX, 1}), stream->LastOrder());
    stream->Give(false, 1);
    EXPECT_EQ((StreamOrder{false, 1, 2}), stream->LastOrder());
    stream->Give(true, -1);
    EXPECT_EQ((StreamOrder{true, 0, 3}), stream->LastOrder());
    EXPECT_EQ((StreamOrder{false, 0, 0}), stream->AppliedOrder());
}

TEST_F(SoundStreamWindow, OrdersDifferIfAnyPartDoes)
{
    const StreamOrder order = {true, 7, 3};
    EXPECT_TRUE(order == (StreamOrder{true, 7, 3}));
    EXPECT_FALSE(order == (StreamOrder{false, 7, 3}));
    EXPECT_FALSE(order == (StreamOrder{true, 8, 3}));
    EXPECT_FALSE(order == (StreamOrder{true, 7, 4}));
}

TEST_F(SoundStreamWindow, TheTimeIsTheOrderedOneUntilTheDeviceKnowsBetter)
{
    Open(1000);
    EXPECT_TRUE(stream->HasAppliedOrder());
    EXPECT_EQ(0, stream->GetTime());
    stream->Give(true, 300);
    EXPECT_FALSE(stream->HasAppliedOrder());
    EXPECT_EQ(300, stream->GetTime());
    stream->Report(stream->LastOrder(), 44100, false);
    EXPECT_TRUE(stream->HasAppliedOrder());
    EXPECT_EQ(1000, stream->GetTime());
    EXPECT_EQ(44100, stream->Reported());
    stream->Give(true, 20);
    EXPECT_EQ(20, stream->GetTime());
}

TEST_F(SoundStreamWindow, RunningOutIsForgottenWithTheNextOrder)
{
    Open(1000);
    stream->Give(true, 0);
    EXPECT_FALSE(stream->HasRunOut());
    stream->Report(stream->LastOrder(), 5, true);
    EXPECT_TRUE(stream->HasRunOut());
    stream->Give(true, 0);
    EXPECT_FALSE(stream->HasRunOut());
}

TEST_F(SoundStreamWindow, UnheardASecondIsDecodedAhead)
{
    Open(20000);
    DecodeAll();
    EXPECT_EQ(43 * 1024, decoder->position); // the last whole piece within 44100 frames
    EXPECT_EQ(43 * 1024, stream->FramesFrom(0));
    EXPECT_EQ(43 * 1024 - 1000, stream->FramesFrom(1000));
    EXPECT_EQ(0, stream->FramesFrom(43 * 1024 + 1));
}

// At these rates a second is a piece of 1024 frames less one frame, and ten pieces to the frame.
TEST_F(SoundStreamWindow, UnheardASecondIsDecodedAheadToTheFrame)
{
    for (int rate : {10239, 10240}) {
        auto numbered = std::make_unique<NumberedDecoder>(longMusic);
        numbered->rate = rate;
        stream = std::make_unique<SoundStream>(std::move(numbered), rate, 20000, &wakeUp);
        DecodeAll();
        EXPECT_EQ((rate == 10240 ? 10 : 9) * 1024, stream->FramesFrom(0));
    }
}

TEST_F(SoundStreamWindow, OnceOrderedItIsDecodedAsFarAheadAsTheBufferReaches)
{
    Open(20000);
    stream->Give(true, 0);
    DecodeAll();
    EXPECT_EQ(861 * 1024, decoder->position); // within 882000 frames
}

TEST_F(SoundStreamWindow, ABufferThatIsTooShortOrTooLongIsBroughtIntoRange)
{
    for (int milliseconds : {INT_MIN, -1, 0, 499, 500}) {
        Open(milliseconds);
        stream->Give(true, 0);
        DecodeAll();
        EXPECT_EQ(21 * 1024, decoder->position) << milliseconds; // within 22050
    }
    Open(600);
    stream->Give(true, 0);
    DecodeAll();
    EXPECT_EQ(25 * 1024, decoder->position); // within 26460
    for (int milliseconds : {60000, 60001, INT_MAX}) {
        Open(milliseconds);
        stream->Give(true, 0);
        DecodeAll();
        EXPECT_EQ(2583 * 1024, decoder->position) << milliseconds; // within 2646000
    }
}

TEST_F(SoundStreamWindow, WhatTheDeviceHasPlayedMakesRoomExceptForItsHistory)
{
    Open(2000); // 88200 frames, a quarter of it history
    stream->Give(true, 0);
    DecodeAll();
    EXPECT_EQ(86 * 1024, decoder->position);
    stream->Report(stream->LastOrder(), 22050, false);
    DecodeAll();
    EXPECT_EQ(86 * 1024, decoder->position);
    stream->Report(stream->LastOrder(), 22050 + 888, false); // room for one piece: 87 * 1024 is 88200 + 888
    DecodeAll();
    EXPECT_EQ(87 * 1024, decoder->position);
    EXPECT_FALSE(stream->Holds(887));
    for (int64_t position = 888; position < 87 * 1024; ++position) {
        ASSERT_TRUE(stream->Holds(position));
        ASSERT_EQ(NumberedDecoder::Sample(position), LeftAt(position));
    }
    EXPECT_TRUE(stream->Holds(87 * 1024));
    EXPECT_FALSE(stream->Holds(87 * 1024 + 1));
}

TEST_F(SoundStreamWindow, TheHistoryIsASecondAtMost)
{
    Open(20000);
    stream->Give(true, 0);
    DecodeAll();
    stream->Report(stream->LastOrder(), 44100 + 5, false);
    EXPECT_TRUE(stream->Holds(5));
    EXPECT_FALSE(stream->Holds(4));
}

TEST_F(SoundStreamWindow, AWayBackLeavesTheRestOfTheHistoryWhereItIs)
{
    Open(20000);
    stream->Give(true, 0);
    DecodeAll();
    stream->Report(stream->LastOrder(), 60000, false);
    stream->Report(stream->LastOrder(), 20000, false);
    EXPECT_TRUE(stream->Holds(15900));
    EXPECT_FALSE(stream->Holds(15899));
}

TEST_F(SoundStreamWindow, CopyingGoesRoundTheEndOfTheRing)
{
    Open(2000);
    stream->Give(true, 0);
    DecodeAll();
    stream->Report(stream->LastOrder(), 80000, false);
    DecodeAll();
    StereoFrame frames[1000];
    stream->Copy(88200 - 300, 1000, frames);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(NumberedDecoder::Sample(88200 - 300 + i), frames[i].left) << i;
        ASSERT_EQ(-NumberedDecoder::Sample(88200 - 300 + i), frames[i].right) << i;
    }
}

TEST_F(SoundStreamWindow, ASeekWithinTheWindowLeavesItAlone)
{
    Open(20000);
    stream->Give(true, 0);
    DecodeAll();
    const int64_t decoded = decoder->position;
    stream->Give(true, 15000);
    ObeySeek();
    EXPECT_TRUE(stream->Holds(15 * 44100));
    EXPECT_EQ(decoded, decoder->position);
    EXPECT_EQ(NumberedDecoder::Sample(15 * 44100), LeftAt(15 * 44100));
}

TEST_F(SoundStreamWindow, ASeekElsewhereThrowsAwayWhatWasBuffered)
{
    Open(2000);
    stream->Give(true, 0);
    DecodeAll();
    stream->Give(true, 50000);
    const uint32_t seen = wakeUp.Current();
    ObeySeek();
    EXPECT_NE(seen, wakeUp.Current()); // or the decode thread would sleep on
    EXPECT_FALSE(stream->Holds(0));
    EXPECT_FALSE(stream->Holds(50 * 44100));
    EXPECT_EQ(0, stream->FramesFrom(0));
    EXPECT_EQ(0, stream->FramesFrom(50 * 44100));
    EXPECT_TRUE(stream->Decode());
    EXPECT_FALSE(stream->Holds(0));
    EXPECT_FALSE(stream->Holds(50 * 44100 - 1));
    EXPECT_TRUE(stream->Holds(50 * 44100));
    EXPECT_EQ(1024, stream->FramesFrom(50 * 44100));
    EXPECT_EQ(NumberedDecoder::Sample(50 * 44100), LeftAt(50 * 44100));
    DecodeAll();
    EXPECT_EQ(50 * 44100 + 86 * 1024, decoder->position);
}

TEST_F(SoundStreamWindow, OfTwoSeeksTheLaterWins)
{
    Open(2000);
    stream->Give(true, 40000);
    ObeySeek();
    stream->Give(true, 80000);
    ObeySeek();
    DecodeAll();
    EXPECT_FALSE(stream->Holds(40 * 44100));
    EXPECT_TRUE(stream->Holds(80 * 44100));
    stream->Give(true, 0);
    ObeySeek();
    EXPECT_FALSE(stream->Holds(0)) << "frames of the later place lie there";
    DecodeAll();
    EXPECT_TRUE(stream->Holds(0));
    EXPECT_EQ(NumberedDecoder::Sample(0), LeftAt(0));
}

TEST_F(SoundStreamWindow, TheEndOfTheMusicIsWhereItsLastFrameIs)
{
    Open(20000, 3000);
    stream->Give(true, 0);
    EXPECT_FALSE(stream->EndsAt(3000));
    DecodeAll();
    EXPECT_FALSE(stream->EndsAt(2999));
    EXPECT_TRUE(stream->EndsAt(3000));
    EXPECT_TRUE(stream->EndsAt(3001));
    EXPECT_EQ(3000, stream->FramesFrom(0));
    stream->WaitFor(100000); // returns, as nothing more will come
}

TEST_F(SoundStreamWindow, AfterItsEndAStreamCanBeMovedBack)
{
    Open(2000, 30 * 44100);
    stream->Give(true, 29000);
    ObeySeek();
    DecodeAll();
    EXPECT_TRUE(stream->EndsAt(30 * 44100));
    stream->Give(true, 1000);
    ObeySeek();
    EXPECT_FALSE(stream->EndsAt(30 * 44100));
    DecodeAll();
    EXPECT_FALSE(stream->EndsAt(44100));
    EXPECT_EQ(NumberedDecoder::Sample(44100), LeftAt(44100));
}

TEST_F(SoundStreamWindow, APlaceBehindTheEndIsSilentAtOnce)
{
    Open(2000, 3000);
    DecodeAll();
    stream->Give(true, 50000);
    ObeySeek();
    DecodeAll();
    EXPECT_TRUE(stream->EndsAt(50 * 44100));
    EXPECT_EQ(0, stream->FramesFrom(50 * 44100));
    EXPECT_EQ(50000, stream->GetTime());
}

// A device thread that waits for frames: how many of them it finds when it goes on.
class WaitingDevice
{
public:
    WaitingDevice(const SoundStream* stream, int64_t from, int64_t position)
        : found(-1), thread([=, this] {
              stream->WaitFor(position);
              found = stream->FramesFrom(from);
          })
    {
    }
    ~WaitingDevice() { thread.join(); }

    std::atomic<int64_t> found;

private:
    std::thread thread;
};

TEST_F(SoundStreamWindow, APatientDeviceWaitsUntilTheFramesAreThere)
{
    Open(2000);
    stream->Give(true, 0);
    WaitingDevice device(stream.get(), 0, 2048);
    std::this_thread::sleep_for(std::chrono::milliseconds(5)); // a chance to go on too soon
    stream->Decode();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(-1, device.found) << "half of them";
    stream->Decode();
    EXPECT_TRUE(Eventually([&] { return device.found == 2048; }));
    stream->WaitFor(2048); // returns at once: they are there
}

TEST_F(SoundStreamWindow, APatientDeviceIsNotContentWithFramesOfThePlaceBefore)
{
    Open(2000);
    stream->Give(true, 40000);
    ObeySeek();
    DecodeAll();
    stream->Give(true, 0);
    ObeySeek();
    WaitingDevice device(stream.get(), 0, 1024);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(-1, device.found);
    stream->Decode();
    EXPECT_TRUE(Eventually([&] { return device.found == 1024; }));
}
