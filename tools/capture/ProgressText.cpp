// SPDX-License-Identifier: MIT
#include "tools/capture/ProgressText.h"

#include <cmath>
#include <cstdio>

namespace capture
{

double CaptureExtent::Part(int64_t frame) const
{
    if (frame < first)
        return double(frame + 1) / double(first);
    return double(frame + 1 - first) / double(end - first);
}

std::string ProgressLine(const CaptureExtent& extent, int64_t frame, int64_t taken, double seconds)
{
    const bool unseen = frame < extent.first;
    const int64_t played = unseen ? frame + 1 : frame + 1 - extent.first;
    const int64_t all = unseen ? extent.first : extent.end - extent.first;
    const double speed = seconds > 0 ? double(played) / seconds : 0;
    char text[160];
    if (unseen)
        snprintf(text, sizeof text, "%3d %%  of what comes before", int(played * 100 / all));
    else
        snprintf(text, sizeof text, "%3d %%  %lld of %lld  %.0f a second", int(played * 100 / all),
                 static_cast<long long>(taken), static_cast<long long>(extent.pictures), speed);
    std::string line = text;
    if (speed > 0)
        line += "  " + DurationText(double(all - played) / speed) + " left";
    return line;
}

std::string BarText(double part, int cells)
{
    const int full = int(std::lround(part * cells));
    return "[" + std::string(size_t(full), '#') + std::string(size_t(cells - full), '.') + "]";
}

std::string DurationText(double seconds)
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
