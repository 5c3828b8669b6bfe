// SPDX-License-Identifier: MIT
#include "art/music/Score.h"
#include "art/music/Pitch.h"
#include "art/music/Theme.h"

#include <algorithm>
#include <cstdio>

namespace waltz
{

// Beats come from sums of eighths and triplets.
constexpr double epsilon = 1e-6;

void Dynamics::Mark(double beat, float level)
{
    points.push_back({beat, level, false});
}

void Dynamics::Hairpin(double beat)
{
    points.push_back({beat, LevelAt(beat), true});
}

float Dynamics::LevelAt(double beat) const
{
    if (points.empty())
        return 0;
    const auto behind = std::upper_bound(points.begin(), points.end(), beat + epsilon,
                                         [](double at, const LevelPoint& point) { return at < point.beat; });
    if (behind == points.begin())
        return points.front().level;
    const LevelPoint& from = *(behind - 1);
    if (!from.sloping || behind == points.end())
        return from.level;
    const double way = (beat - from.beat) / std::max(behind->beat - from.beat, epsilon);
    return from.level + (behind->level - from.level) * float(std::clamp(way, 0.0, 1.0));
}

void Rubato::SetLate(int beat, double seconds)
{
    if (beat < 0)
        return;
    if (size_t(beat) >= late.size())
        late.resize(size_t(beat) + 1);
    late[size_t(beat)] = seconds;
}

double Rubato::LateAt(double beat) const
{
    if (beat < 0)
        return 0;
    const size_t before = size_t(beat + epsilon);
    const auto of = [this](size_t whole) { return whole < late.size() ? late[whole] : 0.0; };
    return of(before) + (of(before + 1) - of(before)) * std::max(0.0, beat - double(before));
}

const ChordSpan* Score::HarmonyAt(double beat) const
{
    for (const ChordSpan& span : harmony)
        if (beat > span.beat - epsilon && beat < span.beat + span.length - epsilon)
            return &span;
    return nullptr;
}

const Voice* Score::Find(const std::string& part) const
{
    for (const Voice& voice : voices)
        if (voice.part == part)
            return &voice;
    return nullptr;
}

std::string Print(const Score& score, int firstBar, int endBar)
{
    std::string text;
    char cell[64];
    for (int bar = firstBar; bar < endBar; bar++) {
        std::snprintf(cell, sizeof cell, "bar %d  %.1f s ", bar, bar * 1.8);
        text += cell;
        for (const ChordSpan& span : score.harmony)
            if (span.beat > bar * beatsPerBar - epsilon && span.beat < (bar + 1) * beatsPerBar - epsilon)
                text += " " + span.chord.symbol;
        text += "\n";
        for (const Voice& voice : score.voices) {
            std::string row;
            for (const Tone& tone : voice.tones) {
                const double beat = tone.beat - bar * beatsPerBar;
                if (beat < -epsilon || beat >= beatsPerBar - epsilon)
                    continue;
                std::snprintf(cell, sizeof cell, "  %.2g %s:%.2g%s", beat + 1, PitchName(tone.pitch).c_str(),
                              tone.length, tone.accent ? "^" : "");
                row += cell;
            }
            if (row.empty())
                continue;
            std::snprintf(cell, sizeof cell, "    %-10s%4.2f", voice.part.c_str(),
                          double(voice.dynamics.LevelAt(bar * beatsPerBar)));
            text += cell + row + "\n";
        }
    }
    return text;
}

} // namespace waltz
