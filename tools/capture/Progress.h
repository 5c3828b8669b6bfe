// SPDX-License-Identifier: MIT
// Tells how far a capture is: a bar with speed and time left on a terminal, a plain line for each tenth of
// the way elsewhere.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace capture
{

class Progress
{
public:
    // Writes to `stream` (borrowed; null: says nothing).
    explicit Progress(FILE* stream);

    // What there is to do: frames to play, from 0 to the last, and pictures to take on the way.
    void Begin(int64_t framesToPlay, int64_t picturesToTake);

    void Show(int64_t frame, int64_t taken); // behind each frame
    void Clear();                            // takes the bar off, so that other lines can follow

    static double Now(); // seconds of a real clock that never goes back

    // What stands on the line: for tests, and for whoever wants it elsewhere. `seconds` since Begin.
    std::string Line(int64_t frame, int64_t taken, double seconds) const;
    static std::string BarText(double part, int cells);
    static std::string DurationText(double seconds); // "8 s", "3 min 05 s", "2 h 07 min"

private:
    FILE* stream;
    bool terminal;
    int64_t frames;
    int64_t pictures;
    double start;
    double lastShown;
    int tenths; // told so far
    bool barShown;
};

} // namespace capture
