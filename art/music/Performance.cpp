// SPDX-License-Identifier: MIT
#include "art/music/Performance.h"
#include "art/music/Theme.h"
#include "art/music/WhiteNoise.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

// How the hand errs. In seconds, except weights.
constexpr double secondBeatEarly = 0.013;
constexpr double strayDownbeat = 0.002;
constexpr double strayTune = 0.005;
constexpr double strayBand = 0.004;
constexpr double strayLimit = 2.0;    // times the above
constexpr double chordSpread = 0.006; // between the notes of one hand, from below
constexpr float thirdBeatWeight = 0.82f;
constexpr float secondBeatWeight = 0.92f;
constexpr float eighthWeight = 0.88f;
constexpr float strayWeight = 0.05f;
constexpr float accentWeight = 1.22f;
constexpr double staccatoShare = 0.55;
constexpr double liftedShare = 0.82;

static double PlaceInBar(double beat)
{
    return beat - beatsPerBar * std::floor(beat / beatsPerBar + 1e-9);
}

static bool IsAt(double place, double beat)
{
    return std::abs(place - beat) < 1e-3;
}

static float Weight(double place)
{
    if (IsAt(place, 0))
        return 1;
    if (IsAt(place, 1))
        return secondBeatWeight;
    if (IsAt(place, 2))
        return thirdBeatWeight;
    return eighthWeight;
}

static uint32_t SeedOf(const Part& part, const Tone& tone)
{
    uint32_t seed = 17;
    for (const char* letter = part.name; *letter != 0; letter++)
        seed = seed * 31 + uint32_t(*letter);
    return WhiteNoise::Mix(seed * 7919 + uint32_t(std::lround(tone.beat * 24)) * 131 + uint32_t(tone.pitch));
}

// When a beat of the night comes, in seconds.
static double TimeOf(double beat, const Rubato& rubato)
{
    return beat * samplesPerBeat / sampleRate + rubato.LateAt(beat);
}

static Note PlayTone(const Tone& tone, const Voice& voice, const Part& part, const Rubato& rubato)
{
    Note note;
    note.seed = SeedOf(part, tone);
    WhiteNoise noise(note.seed);
    const double place = PlaceInBar(tone.beat);
    // One hand's notes stray together: the seed of the beat, not of the tone.
    Tone beatOnly = tone;
    beatOnly.pitch = 0;
    WhiteNoise hand(SeedOf(part, beatOnly));
    const double stray = IsAt(place, 0) ? strayDownbeat : part.melodic ? strayTune : strayBand;
    double seconds = TimeOf(tone.beat, rubato) +
                     std::clamp<double>(stray * hand.Around(), -strayLimit * stray, strayLimit * stray);
    if (tone.accompany && IsAt(place, 1))
        seconds -= secondBeatEarly;
    if (!IsSustained(part.sound) && tone.line > 0)
        seconds += std::min(tone.line * chordSpread, 0.012) * (IsAt(place, 0) ? 0.5 : 1.0);
    note.start = std::max<int64_t>(0, std::lround(seconds * sampleRate));
    double length = TimeOf(tone.beat + tone.length, rubato) - TimeOf(tone.beat, rubato);
    if (tone.staccato)
        length *= staccatoShare;
    if (tone.lifted)
        length *= liftedShare;
    note.length = std::lround(length * sampleRate);
    note.pitch = tone.pitch;
    note.accent = tone.accent;
    note.line = tone.line;
    float weight = tone.accent ? accentWeight : Weight(place);
    if (!IsSustained(part.sound))
        weight *= 1 + strayWeight * noise.Around();
    note.strength = std::clamp(voice.dynamics.LevelAt(tone.beat) * weight, 0.0f, 1.0f);
    return note;
}

std::vector<Phrase> Perform(const Voice& voice, const Part& part, const Rubato& rubato)
{
    std::vector<Phrase> phrases;
    std::vector<int64_t> lineEnds;
    std::vector<size_t> linePhrases;
    for (const Tone& tone : voice.tones) {
        const Note note = PlayTone(tone, voice, part, rubato);
        if (IsSustained(part.sound)) {
            const size_t line = tone.line;
            if (lineEnds.size() <= line) {
                lineEnds.resize(line + 1, -samplesPerBar);
                linePhrases.resize(line + 1, 0);
            }
            // Slurred: the gap is smaller than what the hand may err by.
            const bool joined = note.start - lineEnds[line] < sampleRate / 25;
            lineEnds[line] = note.start + note.length;
            if (joined) {
                Phrase& phrase = phrases[linePhrases[line]];
                phrase.back().length = note.start - phrase.back().start;
                phrase.push_back(note);
                continue;
            }
            linePhrases[line] = phrases.size();
        }
        phrases.push_back({note});
    }
    return phrases;
}

} // namespace waltz
