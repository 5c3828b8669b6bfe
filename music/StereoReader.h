// SPDX-License-Identifier: MIT
// Reads a decoder as stereo at the rate of the mix. Positions are frames of the mix from the start of the
// music, whatever the rate of the file.
#pragma once

#include "music/Decoder.h"
#include "music/Resampler.h"

class StereoReader
{
public:
    StereoReader(std::unique_ptr<Decoder> decoder, int mixRate);

    // The next Read gives the frames from `frame` on, or from 0 if that is below. A frame always has the same
    // bits, wherever reading began.
    void Seek(int64_t frame);

    // Gives up to count frames and goes on after them. It decodes one block of the file at most: 0 frames
    // mean that a place isn't reached yet, and that one has to ask again, unless IsAtEnd.
    int Read(StereoFrame* stereo, int count);

    // Past the last frame, or at a place that can't be reached.
    bool IsAtEnd() const { return atEnd; }

private:
    void DecodeBlock();
    void DropBefore(int64_t frame);

    std::unique_ptr<Decoder> source;
    std::vector<StereoGain> gains;
    Resampler resampler;
    std::vector<float> block; // as the decoder gives it

    std::vector<StereoFrame> input; // frames of the file, the first of them at inputStart
    int64_t inputStart;
    int64_t inputLength; // of the whole file, once the end has been seen; -1 until then
    int64_t position;    // of the next frame to give
    bool atEnd;
};
