// SPDX-License-Identifier: MIT
// The thread at the end of the process. What it does for streams is tested with SoundSystem.
#include "music/DecodeThread.h"

#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

// Gives one frame at a time, so that its window is never full. From the beginning of the end on each Read
// takes a while; or all time, if it hangs.
class SlowDecoder : public NumberedDecoder
{
public:
    SlowDecoder() : NumberedDecoder(1 << 30) { shortest = 1; }
    int Read(float* samples) override
    {
        reads++;
        if (ending) {
            slow = true;
            do
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            while (hangs);
            fputs("read ", stderr);
        }
        return NumberedDecoder::Read(samples);
    }

    static std::atomic<int> reads;
    static std::atomic<bool> ending;
    static std::atomic<bool> slow; // such a Read has begun
    static bool hangs;
};
std::atomic<int> SlowDecoder::reads{0};
std::atomic<bool> SlowDecoder::ending{false};
std::atomic<bool> SlowDecoder::slow{false};
bool SlowDecoder::hangs = false;

static EventCount wakeUp;

// Stands for a decoder's library: whatever is read from here on would be read without it.
static uint32_t notified;
static void TidyUp()
{
    fputs("tidied ", stderr);
    if (wakeUp.Current() == notified)
        fputs("without waking the thread ", stderr);
    const int before = SlowDecoder::reads;
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    if (SlowDecoder::reads != before)
        fputs("too soon ", stderr);
}

// Reading as the end comes: TidyUp was there before the thread and so runs after it has stopped.
[[noreturn]] static void EndWhileItReads()
{
    std::atexit(TidyUp);
    SoundMixer mixer(44100, 1);
    static DecodeThread thread(&mixer, &wakeUp);
    thread.Start();
    thread.Add(new SoundStream(std::make_unique<SlowDecoder>(), 44100, 60000, &wakeUp));
    Eventually([] { return SlowDecoder::reads > 0; });
    std::atexit([] {
        SlowDecoder::ending = true;
        Eventually([] { return SlowDecoder::slow.load(); });
        notified = wakeUp.Current();
    });
    exit(0);
}

TEST(DecodeThreadDeathTest, IsOutOfTheDecodersBeforeTheirLibrariesTidyUp)
{
    EXPECT_EXIT(EndWhileItReads(), testing::ExitedWithCode(0), "^(read )+tidied $");
}

TEST(DecodeThreadDeathTest, IsNotWaitedForWhereTheDiskHangs)
{
    SlowDecoder::hangs = true;
    EXPECT_EXIT(EndWhileItReads(), testing::ExitedWithCode(0), "^tidied $");
}
