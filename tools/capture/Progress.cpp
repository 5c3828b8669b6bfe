// SPDX-License-Identifier: MIT
#include "tools/capture/Progress.h"

#include <chrono>
#include <cmath>

#include <unistd.h>

namespace capture
{

static const double secondsBetweenBars = 0.1;
static const int barCells = 24;

Progress::Progress(FILE* newStream)
    : stream(newStream), terminal(newStream && isatty(fileno(newStream))), frames(0), pictures(0), start(0),
      lastShown(0), tenths(0), barShown(false)
{
}

double Progress::Now()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void Progress::Begin(int64_t framesToPlay, int64_t picturesToTake)
{
    frames = framesToPlay;
    pictures = picturesToTake;
    start = Now();
    lastShown = start;
    tenths = 0;
}

void Progress::Show(int64_t frame, int64_t taken)
{
    if (!stream || frames == 0)
        return;
    const double now = Now();
    if (frame == 0) // the effects have been loaded: what went into that says nothing about the frames to come
        start = now;
    if (terminal) {
        if (now - lastShown < secondsBetweenBars)
            return;
        lastShown = now;
        barShown = true;
        fprintf(stream, "\r%s %s\033[K", BarText(double(frame + 1) / double(frames), barCells).c_str(),
                Line(frame, taken, now - start).c_str());
        fflush(stream);
        return;
    }
    const int reached = int((frame + 1) * 10 / frames);
    if (reached <= tenths)
        return;
    tenths = reached;
    if (tenths < 10) // the end has its own words
        fprintf(stream, "%s\n", Line(frame, taken, now - start).c_str());
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
    const int64_t played = frame + 1;
    const double speed = seconds > 0 ? double(played) / seconds : 0;
    char text[160];
    snprintf(text, sizeof text, "%3d %%  %lld of %lld frames  %.0f a second", int(played * 100 / frames),
             static_cast<long long>(taken), static_cast<long long>(pictures), speed);
    std::string line = text;
    if (speed > 0)
        line += "  " + DurationText(double(frames - played) / speed) + " left";
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
