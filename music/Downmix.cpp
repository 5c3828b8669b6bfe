// SPDX-License-Identifier: MIT
#include "music/Downmix.h"

#include <algorithm>
#include <cmath>

static const int knownOrders = 8;

// clang-format off
static const Speaker usualOrder[knownOrders][knownOrders] = {
    {SpeakerCentre},
    {SpeakerLeft, SpeakerRight},
    {SpeakerLeft, SpeakerRight, SpeakerCentre},
    {SpeakerLeft, SpeakerRight, SpeakerSurroundLeft, SpeakerSurroundRight},
    {SpeakerLeft, SpeakerRight, SpeakerCentre, SpeakerSurroundLeft, SpeakerSurroundRight},
    {SpeakerLeft, SpeakerRight, SpeakerCentre, SpeakerLowFrequency, SpeakerSurroundLeft, SpeakerSurroundRight},
    {SpeakerLeft, SpeakerRight, SpeakerCentre, SpeakerLowFrequency, SpeakerSurroundCentre,
     SpeakerSurroundLeft, SpeakerSurroundRight},
    {SpeakerLeft, SpeakerRight, SpeakerCentre, SpeakerLowFrequency, SpeakerSurroundLeft, SpeakerSurroundRight,
     SpeakerSurroundLeft, SpeakerSurroundRight},
};

// A speaker in the middle is 3 dB down on either side, one behind as well.
static const StereoGain speakerGain[] = {
    {1.0f,        0.0f       }, // left
    {0.0f,        1.0f       }, // right
    {0.70710678f, 0.70710678f}, // centre
    {0.70710678f, 0.0f       }, // surround left
    {0.0f,        0.70710678f}, // surround right
    {0.5f,        0.5f       }, // surround centre
    {0.0f,        0.0f       }, // low frequency
};
// clang-format on

std::vector<Speaker> UsualSpeakers(int channels)
{
    std::vector<Speaker> speakers;
    for (int i = 0; i < channels; ++i) {
        if (channels <= knownOrders)
            speakers.push_back(usualOrder[channels - 1][i]);
        else
            speakers.push_back(i % 2 == 0 ? SpeakerLeft : SpeakerRight);
    }
    return speakers;
}

std::vector<StereoGain> StereoGains(const std::vector<Speaker>& speakers)
{
    std::vector<StereoGain> gains;
    StereoGain sum = {0.0f, 0.0f};
    for (Speaker speaker : speakers) {
        gains.push_back(speakerGain[speaker]);
        sum.left += speakerGain[speaker].left;
        sum.right += speakerGain[speaker].right;
    }
    const float louder = std::max(sum.left, sum.right);
    if (louder > 0.0f)
        for (StereoGain& gain : gains) {
            gain.left /= louder;
            gain.right /= louder;
        }
    return gains;
}

void MixDown(const float* samples, int count, const std::vector<StereoGain>& gains, StereoFrame* stereo)
{
    for (int i = 0; i < count; ++i) {
        StereoFrame sum = {0.0f, 0.0f};
        for (const StereoGain& gain : gains) {
            const float sample = std::isnan(*samples) ? 0.0f : std::clamp(*samples, -MaxSample, MaxSample);
            ++samples;
            sum.left += gain.left * sample;
            sum.right += gain.right * sample;
        }
        stereo[i] = sum;
    }
}
