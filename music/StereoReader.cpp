// SPDX-License-Identifier: MIT
#include "music/StereoReader.h"

#include <algorithm>

StereoReader::StereoReader(std::unique_ptr<Decoder> decoder, int mixRate)
    : source(std::move(decoder)), gains(StereoGains(source->speakers)), resampler(source->rate, mixRate),
      block(Decoder::BlockFrames * gains.size()), inputLength(-1), atEnd(false)
{
    Seek(0);
}

void StereoReader::Seek(int64_t frame)
{
    position = std::max<int64_t>(frame, 0);
    const int64_t first = resampler.FirstInput(position);
    const int64_t asked = std::max<int64_t>(first, 0);
    const int64_t reached = source->Seek(asked);
    // Beyond the place, as no decoder should land, the frames for the interpolation would be missing.
    atEnd = reached < 0 || reached > asked;
    input.clear();
    inputStart = std::max<int64_t>(reached, 0);
    inputLength = -1;
    // Ahead of the music there is silence: written out, it needs no case of its own.
    if (inputStart == 0 && first < 0) {
        inputStart = first;
        input.resize(size_t(-first), {0.0f, 0.0f});
    }
}

void StereoReader::DecodeBlock()
{
    const int got = source->Read(block.data());
    if (got > 0) {
        input.resize(input.size() + size_t(got));
        MixDown(block.data(), got, gains, &input[input.size() - size_t(got)]);
    }
    if (got == 0) {
        inputLength = inputStart + int64_t(input.size());
        // After the music as well, as far as the last frame of the mix reaches.
        const int64_t last = resampler.OutputLength(inputLength) - 1;
        const int64_t missing = resampler.LastInput(last) + 1 - inputLength;
        input.resize(input.size() + size_t(std::max<int64_t>(missing, 0)), {0.0f, 0.0f});
    }
}

void StereoReader::DropBefore(int64_t frame)
{
    const int64_t dropped = std::clamp<int64_t>(frame - inputStart, 0, int64_t(input.size()));
    input.erase(input.begin(), input.begin() + dropped);
    inputStart += dropped;
}

int StereoReader::Read(StereoFrame* stereo, int count)
{
    if (atEnd)
        return 0;
    DropBefore(resampler.FirstInput(position));
    if (inputLength < 0 && resampler.LastInput(position + count - 1) >= inputStart + int64_t(input.size()))
        DecodeBlock();

    const int64_t inputEnd = inputStart + int64_t(input.size());
    int given = 0;
    while (given < count && resampler.LastInput(position) < inputEnd &&
           (inputLength < 0 || position < resampler.OutputLength(inputLength))) {
        const int64_t first = resampler.FirstInput(position);
        stereo[given] = resampler.Interpolate(position, &input[first - inputStart]);
        ++position;
        ++given;
    }
    atEnd = inputLength >= 0 && position >= resampler.OutputLength(inputLength);
    return given;
}
