// SPDX-License-Identifier: MIT
// The destination of captured frames: a video, numbered pictures or a contact sheet.
#pragma once

#include "tools/capture/FrameSelection.h"

#include <memory>
#include <string>
#include <vector>

namespace capture
{

// One frame of the show as it was read back from the window.
struct Frame {
    int64_t number = 0; // counted from the first frame of the show, which is 0
    int width = 0;      // pixels
    int height = 0;

    // Red, green, blue and an unused byte for each pixel, without padding. The bottom row comes first.
    std::vector<unsigned char> pixels;

    // The first pixel of a row; y counts from the top.
    const unsigned char* Row(int y) const { return &pixels[size_t(height - 1 - y) * size_t(width) * 4]; }
};

class FrameSink
{
public:
    virtual ~FrameSink() {}

    // Order of calls: Begin once, Take for each selected frame in ascending order, Finish once. Each returns
    // false if it fails and sets `error`; after a failure only Finish may be called.
    virtual bool Begin(int width, int height, const FrameSelection& selection) = 0;
    virtual bool Take(std::unique_ptr<Frame> frame) = 0;

    // Completes the output with the frames taken so far; after an interruption these are fewer than Begin was
    // told. keep is false if the show failed: then no video or sheet is written or replaced.
    virtual bool Finish(bool keep) = 0;

    std::string error;
};

} // namespace capture
