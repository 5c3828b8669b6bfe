// SPDX-License-Identifier: MIT
// The envelope of a piece of music, decoded as the show plays it: peaks and loudness in slices of equal length.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <vector>

namespace timeline
{

// The level of a slice of the music.
struct Swing {
    float peak;     // of the louder channel; 1 is full scale, which a file may exceed
    float loudness; // root mean square of both channels
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

    // The level from one moment to another, in seconds; outside of the music it is silent.
    Swing Between(double from, double to) const;

    std::vector<Swing> swings; // from the start on; the last may be a shorter piece

private:
    double length = 0;
};

} // namespace timeline
