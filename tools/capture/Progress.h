// SPDX-License-Identifier: MIT
// Shows the progress of a capture: on a terminal as a bar with speed and remaining time, elsewhere as one
// line for each tenth of the frames.
#pragma once

#include "tools/capture/ProgressText.h"

#include <cstdint>
#include <cstdio>

namespace capture
{

class Progress
{
public:
    // Writes to `stream`, which is borrowed. Nothing is written if it is null.
    explicit Progress(FILE* stream);

    // Frames 0 to first - 1 are played without being drawn. Frames first to end - 1 are drawn, and `pictures`
    // of them are captured.
    void Begin(int64_t first, int64_t end, int64_t pictures);

    // Call after each frame. `taken` is the number of pictures captured so far.
    void Show(int64_t frame, int64_t taken);

    // Erases the bar, so that other lines can follow.
    void Clear();

private:
    void ShowBar(int64_t frame, int64_t taken);
    void ShowTenth(int64_t frame, int64_t taken);
    FILE* stream;
    bool terminal;
    CaptureExtent extent;
    double start; // when the undrawn frames, or later the drawn ones, began
    double lastShown;
    int tenths; // of the drawn frames that were reported
    bool barShown;
};

} // namespace capture
