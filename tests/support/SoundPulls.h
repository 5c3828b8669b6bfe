// SPDX-License-Identifier: MIT
// Reads the samples that the sound system plays, without a device.
#pragma once

#include "music/Decoder.h"

#include <functional>
#include <string>
#include <vector>

// Starts the sound system on the output that is pulled by hand.
void StartHandPulledSound(int channels = 32);

// The next frames that a device would get, interleaved stereo. Patient, see platform/SoundOutput.h.
std::vector<float> Pull(int frames);

// True if all samples are exactly 0.
bool IsSilent(const std::vector<float>& samples);

// The largest step between neighbouring samples of either side.
float LargestStep(const std::vector<float>& stereo);

// Polls the condition until it is true, with a time limit that suits a busy machine. False at the limit.
bool Eventually(const std::function<bool()>& condition);

// How far into the file at the path this process has read, in bytes, by the one handle that has it open;
// -1 if none has.
long ReadPositionOf(const std::string& path);

// A decoder whose samples tell the number of their frame.
class NumberedDecoder : public Decoder
{
public:
    explicit NumberedDecoder(int64_t frames);
    int Read(float* samples) override;
    int64_t Seek(int64_t frame) override;

    static float Sample(int64_t frame); // of the left channel; the right one has the opposite sign

    int64_t length;
    int64_t position = 0;
    int shortest = BlockFrames; // a Read gives at most that many frames
    int64_t seekBackOff = 0;    // a Seek lands at most that many frames before its target
    bool seekFails = false;
};
