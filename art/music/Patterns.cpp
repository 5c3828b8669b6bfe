// SPDX-License-Identifier: MIT
#include "art/music/Patterns.h"
#include "art/music/Theme.h"
#include "art/music/Voicing.h"

#include <algorithm>
#include <cstdlib>

namespace waltz
{

// clang-format off
constexpr VoicingRange handRange = {{50, 53, 57}, {60, 64, 67}}; // the pianist's right hand, under the tune
constexpr VoicingRange padRange  = {{48, 55, 60}, {59, 67, 74}}; // cello, viola, violin
// clang-format on
constexpr int bassLow = 36, bassHigh = 52; // of the pianist's left hand

struct Strike {
    double beat;
    double length;
    int what; // 0 the bass, 1 to 3 a note of the chord from below, 4 the whole chord
    bool staccato;
};

struct Pattern {
    const char* name;
    std::vector<Strike> strikes;
};

constexpr int bass = 0, chord = 4;

static const std::vector<Pattern>& StruckPatterns()
{
    // clang-format off
    static const std::vector<Pattern> patterns = {
        {"waltz", {{0, 3, bass, false}, {1, 0.8, chord, true},  {2, 0.8, chord, true}}},
        {"two",   {{0, 3, bass, false}, {1, 2,   chord, false}}},
        {"one",   {{0, 3, bass, false}, {0, 3,   chord, false}}},
        {"after", {{1, 0.8, chord, true}, {2, 0.8, chord, true}}},
        {"arp",   {{0, 3, bass, false}, {0.5, 2.5, 1, false}, {1, 2, 2, false}, {1.5, 1.5, 3, false},
                   {2, 1, 2, false}, {2.5, 0.5, 1, false}}},
        {"pulse", {{0, 3, bass, false}, {0.5, 0.5, chord, true}, {1, 0.5, chord, true}, {1.5, 0.5, chord, true},
                   {2, 0.5, chord, true}, {2.5, 0.5, chord, true}}},
    };
    // clang-format on
    return patterns;
}

static const Pattern* FindStruck(const std::string& name)
{
    for (const Pattern& pattern : StruckPatterns())
        if (name == pattern.name)
            return &pattern;
    return nullptr;
}

static bool IsBowed(const std::string& name)
{
    return name == "pad" || name == "trem";
}

// The bass note nearest to the last one.
static int NextBass(int pitchClass, int last)
{
    int best = 0;
    for (int pitch = bassLow; pitch <= bassHigh; pitch++)
        if (pitch % 12 == pitchClass && (best == 0 || std::abs(pitch - last) < std::abs(best - last)))
            best = pitch;
    return best;
}

struct HarmonySpan {
    const PatternBar* bar;
    const ChordSpan* harmony;
    double beat, end;
    double bassEnd; // where another bass comes, or the bar ends
    bool joined;    // to the span before it, without a gap
};

static void PlayStruck(const HarmonySpan& span, const Voicing& voicing, int bassPitch,
                       std::vector<Tone>& tones)
{
    const double barBeat = span.bar->bar * beatsPerBar;
    for (const Strike& strike : FindStruck(span.bar->pattern)->strikes) {
        Tone tone;
        tone.beat = barBeat + strike.beat;
        if (tone.beat < span.beat - 1e-6 || tone.beat > span.end - 1e-6)
            continue;
        tone.length = std::min(strike.length, (strike.what == bass ? span.bassEnd : span.end) - tone.beat);
        tone.staccato = strike.staccato;
        tone.accompany = true;
        if (strike.what == bass) {
            tone.pitch = bassPitch;
            tones.push_back(tone);
        } else {
            for (int i = 0; i < 3; i++) {
                if (strike.what != chord && strike.what != i + 1)
                    continue;
                tone.pitch = voicing[i];
                tone.line = i + 1;
                tones.push_back(tone);
            }
        }
    }
}

static void PlayBowed(const HarmonySpan& span, const Voicing& voicing, std::vector<Tone>& tones)
{
    for (int i = 0; i < 3; i++) {
        Tone tone;
        tone.beat = span.beat;
        tone.length = span.end - span.beat;
        tone.pitch = voicing[i];
        tone.line = i;
        tone.accompany = true;
        if (span.bar->pattern == "trem") {
            tone.length = 0.5;
            for (; tone.beat < span.end - 1e-6; tone.beat += 0.5)
                tones.push_back(tone);
            continue;
        }
        // A line whose note stays holds it.
        const auto last =
            std::find_if(tones.rbegin(), tones.rend(), [&](const Tone& t) { return t.line == i; });
        if (span.joined && last != tones.rend() && last->pitch == tone.pitch)
            last->length += tone.length;
        else
            tones.push_back(tone);
    }
}

bool IsPattern(const std::string& name)
{
    return IsBowed(name) || FindStruck(name) != nullptr;
}

bool PlayPatterns(const Score& score, const std::vector<PatternBar>& bars, std::vector<Tone>& tones,
                  int& badBar)
{
    std::vector<HarmonySpan> spans;
    std::vector<Chord> handChords, padChords;
    for (const PatternBar& bar : bars) {
        double beat = bar.bar * beatsPerBar;
        const double end = beat + beatsPerBar;
        while (beat < end - 1e-6) {
            const ChordSpan* harmony = score.HarmonyAt(beat);
            if (harmony == nullptr) {
                badBar = bar.bar;
                return false;
            }
            const double spanEnd = std::min(end, harmony->beat + harmony->length);
            const bool joined = !spans.empty() && spans.back().bar->pattern == bar.pattern &&
                                std::abs(spans.back().end - beat) < 1e-6;
            spans.push_back({&bar, harmony, beat, spanEnd, spanEnd, joined});
            (IsBowed(bar.pattern) ? padChords : handChords).push_back(harmony->chord);
            beat = spanEnd;
        }
    }
    for (size_t i = spans.size(); i-- > 1;)
        if (spans[i].bar == spans[i - 1].bar &&
            spans[i].harmony->chord.bass == spans[i - 1].harmony->chord.bass)
            spans[i - 1].bassEnd = spans[i].bassEnd;
    const std::vector<Voicing> hand = SetVoices(handChords, handRange);
    const std::vector<Voicing> pad = SetVoices(padChords, padRange);
    size_t nextHand = 0, nextPad = 0;
    int bassPitch = (bassLow + bassHigh) / 2;
    for (const HarmonySpan& span : spans) {
        if (IsBowed(span.bar->pattern)) {
            PlayBowed(span, pad[nextPad++], tones);
        } else {
            bassPitch = NextBass(span.harmony->chord.bass, bassPitch);
            PlayStruck(span, hand[nextHand++], bassPitch, tones);
        }
    }
    return true;
}

} // namespace waltz
