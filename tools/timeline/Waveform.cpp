// SPDX-License-Identifier: MIT
#include "tools/timeline/Waveform.h"

#include "music/StereoReader.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace timeline
{

static const int mixRate = 44100; // the show's own
static const int framesPerSwing = mixRate / Waveform::SwingsPerSecond;
static const double longest = 24 * 3600; // seconds: what plays on without an end is cut here

static Swing Measure(const std::vector<StereoFrame>& frames)
{
    Swing swing = {0, 0};
    double squares = 0;
    for (const StereoFrame& frame : frames) {
        swing.peak = std::max({swing.peak, std::fabs(frame.left), std::fabs(frame.right)});
        squares += double(frame.left) * double(frame.left) + double(frame.right) * double(frame.right);
    }
    swing.loudness = float(std::sqrt(squares / (2 * double(frames.size()))));
    return swing;
}

bool Waveform::Read(const std::string& path, const std::atomic<bool>* stop)
{
    swings.clear();
    length = 0;
    std::unique_ptr<Decoder> decoder = OpenDecoder(path, mixRate);
    if (!decoder)
        return false;
    StereoReader reader(std::move(decoder), mixRate);
    std::vector<StereoFrame> block(framesPerSwing), piece;
    int64_t frames = 0;
    while (!reader.IsAtEnd() && double(frames) < longest * mixRate && !(stop && *stop)) {
        const int got = reader.Read(block.data(), framesPerSwing - int(piece.size()));
        piece.insert(piece.end(), block.begin(), block.begin() + got);
        frames += got;
        if (int(piece.size()) == framesPerSwing) {
            swings.push_back(Measure(piece));
            piece.clear();
        }
    }
    if (!piece.empty())
        swings.push_back(Measure(piece));
    length = double(frames) / mixRate;
    return true;
}

Swing Waveform::Between(double from, double to) const
{
    const size_t first = size_t(std::max(0.0, std::floor(from * SwingsPerSecond)));
    const size_t end = std::min(swings.size(), size_t(std::max(0.0, std::ceil(to * SwingsPerSecond))));
    Swing swing = {0, 0};
    double squares = 0;
    for (size_t i = first; i < end; i++) {
        swing.peak = std::max(swing.peak, swings[i].peak);
        squares += double(swings[i].loudness) * double(swings[i].loudness);
    }
    if (first < end)
        swing.loudness = float(std::sqrt(squares / double(end - first)));
    return swing;
}

} // namespace timeline
