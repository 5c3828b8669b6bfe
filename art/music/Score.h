// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Chord.h"

#include <string>
#include <vector>

namespace waltz
{

// Times in a score are beats from the start of the night, as doubles; a bar has three.

struct Tone {
    double beat = 0;
    double length = 0; // in beats
    int pitch = 0;
    int line = 0;           // of a part that plays several lines at once: 0 is the lowest
    bool accent = false;    // '^'
    bool staccato = false;  // '\''
    bool lifted = false;    // ',': ends a little early, for a breath or a new bow
    bool tied = false;      // '~': goes on in the next tone of the same pitch
    bool accompany = false; // comes from a pattern: swings with the band
};

// The course of a part's loudness: steps at the marks, slopes where a hairpin stands.
class Dynamics
{
public:
    // In the order of time. `level` as a share of the part's full strength, 0 to 1.
    void Mark(double beat, float level);
    void Hairpin(double beat); // from here to the next mark in a straight line
    float LevelAt(double beat) const;
    bool Empty() const { return points.empty(); }

    struct LevelPoint {
        double beat;
        float level;
        bool sloping;
    };
    const std::vector<LevelPoint>& Points() const { return points; } // in the order of time

private:
    std::vector<LevelPoint> points;
};

struct Voice {
    std::string part; // a name from the table of Orchestra.h
    std::vector<Tone> tones;
    Dynamics dynamics;
};

struct ChordSpan {
    double beat = 0;
    double length = 0;
    Chord chord;
};

// Where the beat bends: by how much each beat of the night comes late. Between two beats it goes in a straight
// line, so a bend is a slower or a quicker pace and never a jump. The whole band bends together.
class Rubato
{
public:
    void SetLate(int beat, double seconds); // negative for early
    // In seconds; 0 wherever nothing was set.
    double LateAt(double beat) const;
    // Of each beat from the first, as far as any was set.
    const std::vector<double>& Beats() const { return late; }

private:
    std::vector<double> late;
};

struct Section {
    std::string name;
    int firstBar = 0;
    int endBar = 0; // the first bar after it
};

struct Score {
    std::vector<Section> sections;
    std::vector<ChordSpan> harmony; // in the order of time
    std::vector<Voice> voices;      // in the order of the orchestra's table
    Rubato rubato;

    int Bars() const { return sections.empty() ? 0 : sections.back().endBar; }
    // Null where nothing is written.
    const ChordSpan* HarmonyAt(double beat) const;
    const Voice* Find(const std::string& part) const;
};

// The score as a table of names, a line a bar and part, for reading.
std::string Print(const Score& score, int firstBar, int endBar);

} // namespace waltz
