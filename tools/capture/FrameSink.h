// SPDX-License-Identifier: MIT
// Where captured frames go: a video, numbered pictures, a contact sheet.
#pragma once

#include "tools/capture/Schedule.h"

#include <memory>
#include <string>
#include <vector>

namespace capture
{

// One finished frame of the show, read back from the window.
struct Frame {
    int64_t number = 0; // of the show, from 0, whatever part of it is captured
    int width = 0;      // pixels
    int height = 0;
    std::vector<unsigned char>
        pixels; // red, green, blue and a fourth byte that means nothing; bottom row first

    const unsigned char* Row(int y) const // y counts from the top
    {
        return &pixels[size_t(height - 1 - y) * size_t(width) * 4];
    }
};

class FrameSink
{
public:
    virtual ~FrameSink() {}

    // Order of calls: Begin once, Take for each frame that the schedule wants, in order, and Finish once. All
    // of them give false after a failure, whose reason stands in `error`; the capture is over then.
    virtual bool Begin(int width, int height, const Schedule& schedule) = 0;
    virtual bool Take(std::unique_ptr<Frame> frame) = 0;

    // What was taken becomes complete and usable, also when it is less than was announced: an interruption
    // ends so. With keep false the show has failed, and one file is not left behind or replaced.
    virtual bool Finish(bool keep) = 0;

    std::string error;
};

} // namespace capture
