// SPDX-License-Identifier: MIT
#include "tools/capture/Progress.h"

#include <chrono>
#include <cmath>

#include <unistd.h>

namespace capture
{

static const double secondsBetweenBars = 0.1;
static const int barCells = 16; // keeps the line below 80 characters, so that terminals don't wrap it

Progress::Progress(FILE* newStream)
    : stream(newStream), terminal(newStream && isatty(fileno(newStream))), first(0), end(0), pictures(0),
      start(0), lastShown(0), tenths(0), barShown(false)
{
}

double Progress::Now()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void Progress::Begin(int64_t newFirst, int64_t newEnd, int64_t newPictures)
{
    first = newFirst;
    end = newEnd;
    pictures = newPictures;
    start = Now();
    lastShown = start;
    tenths = 0;
}

void Progress::Show(int64_t frame, int64_t taken)
{
    if (!stream || end == 0)
        return;
    // The time for loading, which ends with frame 0, and for undrawn frames must not enter the estimate for
    // drawn frames.
    if (frame == 0 || frame == first)
        start = Now();
    if (terminal)
        ShowBar(frame, taken);
    else
        ShowTenth(frame, taken);
}

double Progress::Part(int64_t frame) const
{
    if (frame < first)
        return double(frame + 1) / double(first);
    return double(frame + 1 - first) / double(end - first);
}

void Progress::ShowBar(int64_t frame, int64_t taken)
{
    const double now = Now();
    if (now - lastShown < secondsBetweenBars)
        return;
    lastShown = now;
    barShown = true;
    fprintf(stream, "\r%s %s\033[K", BarText(Part(frame), barCells).c_str(),
            Line(frame, taken, now - start).c_str());
    fflush(stream);
}

void Progress::ShowTenth(int64_t frame, int64_t taken)
{
    if (frame < first) {
        if (frame == 0)
            fprintf(stream, "playing the %s before the first without drawing\n",
                    first == 1 ? "frame" : (std::to_string(first) + " frames").c_str());
        return;
    }
    const int reached = int(Part(frame) * 10);
    if (reached <= tenths || reached == 10) // the caller reports the end itself
        return;
    tenths = reached;
    fprintf(stream, "%s\n", Line(frame, taken, Now() - start).c_str());
    fflush(stream);
}

void Progress::Clear()
{
    if (barShown)
        fprintf(stream, "\r\033[K");
    barShown = false;
}

std::string Progress::Line(int64_t frame, int64_t taken, double seconds) const
{
    const bool unseen = frame < first;
    const int64_t played = unseen ? frame + 1 : frame + 1 - first;
    const int64_t all = unseen ? first : end - first;
    const double speed = seconds > 0 ? double(played) / seconds : 0;
    char text[160];
    if (unseen)
        snprintf(text, sizeof text, "%3d %%  of what comes before", int(played * 100 / all));
    else
        snprintf(text, sizeof text, "%3d %%  %lld of %lld  %.0f a second", int(played * 100 / all),
                 static_cast<long long>(taken), static_cast<long long>(pictures), speed);
    std::string line = text;
    if (speed > 0)
        line += "  " + DurationText(double(all - played) / speed) + " left";
    return line;
}

std::string Progress::BarText(double part, int cells)
{
    const int full = int(part * cells + 0.5);
    return "[" + std::string(size_t(full), '#') + std::string(size_t(cells - full), '.') + "]";
}

std::string Progress::DurationText(double seconds)
{
    const long long whole = std::llround(seconds);
    char text[64];
    if (whole < 60)
        snprintf(text, sizeof text, "%lld s", whole);
    else if (whole < 3600)
        snprintf(text, sizeof text, "%lld min %02lld s", whole / 60, whole % 60);
    else
        snprintf(text, sizeof text, "%lld h %02lld min", whole / 3600, whole / 60 % 60);
    return text;
}

} // namespace capture
