// SPDX-License-Identifier: MIT
// Measures the frames of a show as they are drawn.
#pragma once

#include "tools/capture/FrameSink.h"
#include "tools/flashes/FlashMeter.h"

namespace flashes
{

class FlashSink : public capture::FrameSink
{
public:
    explicit FlashSink(FlashMeter* flashMeter); // borrowed

    bool Begin(int width, int height, const capture::FrameSelection& selection) override;
    bool Take(std::unique_ptr<capture::Frame> frame) override;
    bool Finish(bool keep) override;

private:
    FlashMeter* meter;
    float linear[256]; // the light of a value of the screen, sRGB
    std::vector<float> luminances;
    std::vector<int> counts; // of a cell's pixels
};

} // namespace flashes
