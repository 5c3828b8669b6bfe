// SPDX-License-Identifier: MIT
#include "art/music/Pitch.h"

#include <cmath>

namespace waltz
{

int ReadPitchClass(const std::string& text, size_t& at)
{
    static const int classOf['H' - 'A'] = {9, 11, 0, 2, 4, 5, 7};
    if (at >= text.size() || text[at] < 'A' || text[at] > 'G')
        return -1;
    int pitchClass = classOf[text[at++] - 'A'];
    if (at < text.size() && (text[at] == 'b' || text[at] == '#'))
        pitchClass += text[at++] == 'b' ? -1 : 1;
    return (pitchClass + 12) % 12;
}

int ReadPitch(const std::string& text, size_t& at)
{
    const size_t begin = at;
    const int pitchClass = ReadPitchClass(text, at);
    if (pitchClass < 0 || at >= text.size() || text[at] < '0' || text[at] > '8') {
        at = begin;
        return -1;
    }
    int octave = text[at++] - '0';
    // The octave's number counts by letters: Cb4 lies below C4, B#3 above B3.
    if (text.compare(begin, 2, "Cb") == 0)
        --octave;
    if (text.compare(begin, 2, "B#") == 0)
        octave++;
    return 12 * (octave + 1) + pitchClass;
}

std::string PitchName(int pitch)
{
    static const char* const names[12] = {"C", "C#", "D", "Eb", "E", "F", "F#", "G", "Ab", "A", "Bb", "B"};
    return names[pitch % 12] + std::to_string(pitch / 12 - 1);
}

double Frequency(double pitch)
{
    return 440.0 * std::exp2((pitch - 69.0) / 12.0);
}

} // namespace waltz
