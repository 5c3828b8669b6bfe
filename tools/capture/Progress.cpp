// SPDX-License-Identifier: MIT
#include "tools/capture/Progress.h"

#include "tools/cli/MonotonicSeconds.h"

#include <unistd.h>

namespace capture
{

static const double secondsBetweenBars = 0.1;
static const int barCells = 16; // keeps the line below 80 characters, so that terminals don't wrap it

Progress::Progress(FILE* newStream)
    : stream(newStream), terminal(newStream && isatty(fileno(newStream))), extent(), start(0), lastShown(0),
      tenths(0), barShown(false)
{
}

void Progress::Begin(int64_t first, int64_t end, int64_t pictures)
{
    extent = {first, end, pictures};
    start = cli::MonotonicSeconds();
    lastShown = start;
    tenths = 0;
}

void Progress::Show(int64_t frame, int64_t taken)
{
    if (!stream || extent.end == 0)
        return;
    // The time for loading, which ends with frame 0, and for undrawn frames must not enter the estimate for
    // drawn frames.
    if (frame == 0 || frame == extent.first)
        start = cli::MonotonicSeconds();
    if (terminal)
        ShowBar(frame, taken);
    else
        ShowTenth(frame, taken);
}

void Progress::ShowBar(int64_t frame, int64_t taken)
{
    const double now = cli::MonotonicSeconds();
    if (now - lastShown < secondsBetweenBars)
        return;
    lastShown = now;
    barShown = true;
    fprintf(stream, "\r%s %s\033[K", BarText(extent.Part(frame), barCells).c_str(),
            ProgressLine(extent, frame, taken, now - start).c_str());
    fflush(stream);
}

void Progress::ShowTenth(int64_t frame, int64_t taken)
{
    if (frame < extent.first) {
        if (frame == 0)
            fprintf(stream, "playing the %s before the first without drawing\n",
                    extent.first == 1 ? "frame" : (std::to_string(extent.first) + " frames").c_str());
        return;
    }
    const int reached = int(extent.Part(frame) * 10);
    if (reached <= tenths || reached == 10) // the caller reports the end itself
        return;
    tenths = reached;
    fprintf(stream, "%s\n", ProgressLine(extent, frame, taken, cli::MonotonicSeconds() - start).c_str());
    fflush(stream);
}

void Progress::Clear()
{
    if (barShown)
        fprintf(stream, "\r\033[K");
    barShown = false;
}

} // namespace capture
