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

    // What there is to do: the frames of the show from `first` to the one ahead of `end` are played at full
    // length, `pictures` of them are taken. Those ahead of `first` are played unseen.
    void Begin(int64_t first, int64_t end, int64_t pictures);

    void Show(int64_t frame, int64_t taken); // behind each frame
    void Clear();                            // takes the bar off, so that other lines can follow

    static double Now(); // seconds of a real clock that never goes back

    // What stands on the line: for tests. `seconds` since the first of these frames began.
    std::string Line(int64_t frame, int64_t taken, double seconds) const;
    static std::string BarText(double part, int cells);
    static std::string DurationText(double seconds); // "8 s", "3 min 05 s", "2 h 07 min"

private:
    void ShowBar(int64_t frame, int64_t taken);
    void ShowTenth(int64_t frame, int64_t taken);
    double Part(int64_t frame) const; // of the way, 0 to 1

    FILE* stream;
    bool terminal;
    int64_t first;
    int64_t end;
    int64_t pictures;
    double start; // of the first frame, or of the whole show while that hasn't come
    double lastShown;
    int tenths; // told so far
    bool barShown;
};

} // namespace capture
