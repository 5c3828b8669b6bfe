// SPDX-License-Identifier: MIT
#include "music/SoundMixer.h"

#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

TEST(SoundMixer, WithNothingToPlayItPutsSilenceOverWhatTheBufferHeld)
{
    SoundMixer mixer(44100, 4);
    std::vector<StereoFrame> frames(SoundChannel::MaxFrames, StereoFrame{0.5f, -0.25f});
    mixer.Mix(frames.data(), int(frames.size()) - 1, false);
    for (size_t i = 0; i + 1 < frames.size(); i++) {
        ASSERT_EQ(0.0f, frames[i].left) << i;
        ASSERT_EQ(0.0f, frames[i].right) << i;
    }
    EXPECT_EQ(0.5f, frames.back().left) << "and over no frame more";
}

TEST(SoundMixer, AStreamThatIsForgottenKeepsItsChannelUntilTheDeviceIsDoneWithIt)
{
    EventCount wakeUp;
    SoundStream first(std::make_unique<NumberedDecoder>(1000), 44100, 1000, &wakeUp);
    SoundStream second(std::make_unique<NumberedDecoder>(1000), 44100, 1000, &wakeUp);
    SoundMixer mixer(44100, 1);
    StereoFrame frames[10];
    ASSERT_EQ(0, mixer.AssignChannel(&first));
    first.Give(false, 0);
    mixer.Forget(&first);
    EXPECT_FALSE(mixer.IsDoneWith(&first)) << "its last order has not reached the device";
    mixer.Mix(frames, 10, false);
    EXPECT_EQ(-1, mixer.AssignChannel(&second))
        << "a stopped stream's channel is free, a forgotten one's not yet";
    EXPECT_TRUE(mixer.IsDoneWith(&first));
    EXPECT_EQ(0, mixer.AssignChannel(&second));
}

// The device thread may have read the stream from the channel just before it was let go.
TEST(SoundMixer, IsDoneWithNoStreamWhileTheDeviceMixes)
{
    EventCount wakeUp;
    SoundStream slow(std::make_unique<NumberedDecoder>(1000), 44100, 1000, &wakeUp);
    SoundStream closed(std::make_unique<NumberedDecoder>(1000), 44100, 1000, &wakeUp);
    SoundMixer mixer(44100, 2);
    slow.Give(true, 0);
    ASSERT_EQ(0, mixer.AssignChannel(&slow));
    EXPECT_TRUE(mixer.IsDoneWith(&closed));
    std::thread device([&mixer] {
        StereoFrame frames[10];
        mixer.Mix(frames, 10, true); // waits for the music of the slow stream
    });
    EXPECT_TRUE(Eventually([&] { return !mixer.IsDoneWith(&closed); }));
    slow.Decode();
    device.join();
    EXPECT_TRUE(mixer.IsDoneWith(&closed));
}
