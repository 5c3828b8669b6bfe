// SPDX-License-Identifier: MIT
// The outline of a piece of music, as the show would play it.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <vector>

namespace timeline
{

// A stretch of the music.
struct Swing {
    float peak;     // of either side, 0 to 1 (more where the file goes over full scale)
    float loudness; // the root of the mean square of both sides
};

class Waveform
{
public:
    static constexpr int SwingsPerSecond = 100;

    // Decodes the whole file. False if the show can't open it. With `stop` another thread can end the reading early;
    // what there is by then is kept.
    bool Read(const std::string& path, const std::atomic<bool>* stop = nullptr);

    double Length() const { return length; } // seconds
    bool Empty() const { return swings.empty(); }

    // What lies from one moment to another, in seconds; what the music doesn't reach is silent.
    Swing Between(double from, double to) const;

    std::vector<Swing> swings; // from the start on; the last may be a shorter piece

private:
    double length = 0;
};

} // namespace timeline
