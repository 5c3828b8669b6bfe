// SPDX-License-Identifier: MIT
// The channels and their sum: what the device hears. The main thread assigns streams to channels, the device
// thread mixes them, the decode thread asks when a closed stream is out of use. No thread waits for another.
//
// Written by hand because the ramps of a channel are exact to the frame and its steady play is exact to the bit.
#pragma once

#include "music/SoundChannel.h"

#include <atomic>
#include <memory>
#include <vector>

class SoundMixer
{
public:
    SoundMixer(int rate, int channels);

    // Main thread. Gives the stream a channel that is free: never used, used up by a stream that is closed,
    // or by one that has stopped. A stream that has a channel keeps it. Returns the channel's number, or -1
    // if none is free. Order the stream to play first.
    int AssignChannel(SoundStream* stream);
    // Main thread. Call before closing the stream. The caller must not use the stream again; the mixer may until
    // IsDoneWith is true.
    void Forget(SoundStream* stream);

    // Device thread: the sum of all channels, at most SoundChannel::MaxFrames frames at a time. It isn't
    // kept within full scale.
    void Mix(StereoFrame* frames, int count, bool patient);

    // Decode thread: true if the device thread has let a closed stream fall silent and never touches it
    // again. False means to ask again after the next Mix.
    bool IsDoneWith(SoundStream* stream);

    std::atomic<bool> paused; // all channels; written by the main thread

private:
    std::vector<SoundStream*> users; // main thread: the stream of each channel, null if forgotten
    std::unique_ptr<std::atomic<SoundStream*>[]> assigned; // the same for the other threads
    std::vector<SoundChannel> channels;                    // device thread
    std::atomic<uint64_t> rounds;                          // counts at both ends of a Mix: odd inside
};
