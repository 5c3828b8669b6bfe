// SPDX-License-Identifier: MIT
// How a recording for any number of loudspeakers becomes stereo.
#pragma once

#include "platform/SoundOutput.h"

#include <vector>

using platform::StereoFrame;

enum Speaker {
    SpeakerLeft,
    SpeakerRight,
    SpeakerCentre, // the only one of a mono recording too
    SpeakerSurroundLeft,
    SpeakerSurroundRight,
    SpeakerSurroundCentre,
    SpeakerLowFrequency // left out, as domestic stereo does
};

struct StereoGain {
    float left;
    float right;
};

// The speakers of a file that doesn't say: the usual orders for up to 8 channels, left and right in turns
// beyond that.
std::vector<Speaker> UsualSpeakers(int channels);

// The part that each channel has in the two sides. The louder side's gains add up to 1, so that a full-scale
// recording can't come out louder than full scale. Mono is heard at gain 1 on both sides, stereo as it is.
std::vector<StereoGain> StereoGains(const std::vector<Speaker>& speakers);

// Mixes count frames of gains.size() interleaved samples down to count stereo frames. A sample that is no
// number counts as silence, one beyond MaxSample is brought down to it: a damaged file may hold anything.
const float MaxSample = 64.0f; // 36 dB over full scale
void MixDown(const float* samples, int count, const std::vector<StereoGain>& gains, StereoFrame* stereo);
