// SPDX-License-Identifier: MIT
// The place in the mix that a stream plays on. Everything here belongs to the device thread.
//
// In steady play the channel adds the stream's samples to the mix as they are, bit by bit. Where sound starts
// or breaks off in the middle of the music there is a ramp of FadeMilliseconds, so that nothing clicks:
//
//   stop, pause  the music goes on for the length of the ramp while it falls to silence
//   seek         the same at the old place, and on top of it the new place rises, from its exact frame on
//   resume       the music rises, from the frame on that follows the last one which the pause let through
//   late decoder the last frame falls to silence; as soon as there is music again it rises
//
// There is none at the first frame of the music and none at its last: they are as their author made them.
//
// When the decoder is late the time of the stream goes on in silence, as the picture does, and what should
// have been heard meanwhile is left out.
#pragma once

#include "music/SoundStream.h"

#include <vector>

class SoundChannel
{
public:
    static constexpr int FadeMilliseconds = 5;
    static constexpr int MaxFrames = 512; // of one Mix

    explicit SoundChannel(int rate);

    // Adds the next count frames of the stream to the mix. `user` is the stream that has the channel, or
    // null. A stream may take the place of another only when that one's order to stop has been applied.
    void Mix(SoundStream* user, bool paused, StereoFrame* mix, int count, bool patient);

private:
    void ApplyOrder(const StreamOrder& order, bool paused);
    void MixStream(StereoFrame* mix, int count, bool patient);
    void CatchTail(int most);
    void MixTail(StereoFrame* mix, int count);
    float RampGain() const;

    const int fadeFrames;

    SoundStream* stream;   // borrowed, null without one
    bool sounding;         // playing and not paused
    int64_t position;      // of the next frame
    int64_t lateFrames;    // frames that should have been heard by now and weren't: the decoder is late
    int rampFrames;        // frames of the rising ramp that are done; fadeFrames in steady play
    StereoFrame lastFrame; // before its ramp

    std::vector<StereoFrame> tail; // what falls to silence
    int tailStart;                 // how much of it is mixed already
    std::vector<StereoFrame> scratch;
};
