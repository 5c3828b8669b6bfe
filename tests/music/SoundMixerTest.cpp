// SPDX-License-Identifier: MIT
#include "music/SoundMixer.h"

#include <gtest/gtest.h>

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
