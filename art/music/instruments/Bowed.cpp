// SPDX-License-Identifier: MIT
#include "art/music/Filters.h"
#include "art/music/Pitch.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Sustained.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace waltz
{

struct BodyPeak {
    double hz, q, decibel;
};

struct BowedKind {
    int players;
    double spread;      // of their seats, in pan
    double attack;      // seconds, when soft
    double vibratoRate; // Hz
    double vibratoCents;
    double darkest, brightest; // Hz, where the strings' spectrum begins to fall, from pp to ff
    double bowNoise;
    BodyPeak body[5];
};

constexpr double pi = 3.14159265358979323846;
constexpr int controlStep = 32; // samples between two looks at bow and fingers

// clang-format off
static const BowedKind violins = {4, 0.22, 0.13, 5.6, 13, 1000, 3600, 0.055,
    {{285, 2.5, 3.5}, {470, 3.0, 4.0}, {980, 2.0, -2.5}, {2300, 1.3, 2.5}, {6000, 0.9, -5.0}}};
static const BowedKind violas  = {3, 0.18, 0.15, 5.2, 12,  800, 2900, 0.050,
    {{225, 2.5, 3.5}, {365, 3.0, 3.5}, {750, 2.0, -2.0}, {1800, 1.3, 2.5}, {5000, 0.9, -5.0}}};
static const BowedKind cellos  = {3, 0.16, 0.16, 4.9, 12,  650, 2500, 0.045,
    {{ 98, 2.0, 2.5}, {185, 2.5, 3.0}, {400, 2.0, -1.5}, {1250, 1.3, 3.0}, {4200, 0.9, -4.0}}};
// clang-format on

// One bow on one string, along a phrase.
class Player
{
public:
    Player(const Phrase& notes, const Dynamics& course, const BowedKind& bowed, uint32_t seed)
        : phrase(notes), dynamics(course), kind(bowed), noise(seed), wanderPitch(seed + 1, sampleRate / 3),
          wanderBow(seed + 2, sampleRate / 4), wanderRate(seed + 3, sampleRate / 2)
    {
        late = int64_t(0.011 * noise.Around() * sampleRate);
        detune = 0.030 * noise.Around(); // half tones
        turns = 0.5 + 0.5 * noise.White();
        vibratoTurns = noise.White();
        pitch = notes[0].pitch - 0.12;
        scratch.BandPass(2100, 0.45);
    }

    void Play(Samples& sound, int64_t origin)
    {
        double height = 0;
        for (size_t begin = 0; begin < sound.size(); begin += controlStep) {
            const size_t end = std::min(sound.size(), begin + controlStep);
            const double goal = Bow(origin + int64_t(begin) - late);
            const double slope = (goal - height) / controlStep;
            for (size_t i = begin; i < end; i++) {
                height += slope;
                sound[i] += float(height) * String();
            }
            height = goal;
        }
    }

private:
    // Looks at where in the phrase we are; sets pitch and colour, returns how loud.
    double Bow(int64_t now)
    {
        while (at + 1 < phrase.size() && now >= phrase[at + 1].start)
            at++;
        const Note& note = phrase[at];
        const double since = double(now - note.start) / sampleRate;
        const double length = double(note.length) / sampleRate;
        const bool last = at + 1 == phrase.size();
        const double level = dynamics.LevelAt(double(now) / samplesPerBeat);

        const double attack = kind.attack * (1.15 - 0.6 * level);
        // The first bow bites a little before the beat, so that the tone stands on it.
        const double sinceBow = double(now - phrase[0].start) / sampleRate + 0.045;
        double height = sinceBow <= 0 ? 0 : std::pow(std::min(1.0, sinceBow / attack), 1.3);
        if (at > 0) {
            const bool same = phrase[at - 1].pitch == note.pitch;
            const double turn = (since - 0.012) / 0.028;
            height *= 1 - (same ? 0.72 : 0.38) * std::exp(-turn * turn);
        }
        if (length > 0.8)
            height *= 0.86 + 0.16 * std::sin(pi * std::pow(std::clamp(since / length, 0.0, 1.0), 0.85));
        if (last && since > length - 0.06)
            height *= std::exp(-(since - length + 0.06) / 0.095);
        if (note.accent && since >= 0)
            height *= 1 + 0.45 * std::exp(-since / 0.16);
        height *= 1 + 0.11 * wanderBow.Skip(controlStep);

        const double settled = std::clamp((since - 0.16) / 0.42, 0.0, 1.0);
        vibratoTurns +=
            kind.vibratoRate * (1 + 0.10 * wanderRate.Skip(controlStep)) * controlStep / sampleRate;
        const double rocking = settled * (0.55 + 0.45 * level) * SineOfTurns(vibratoTurns);
        const double vibrato = kind.vibratoCents / 100 * rocking;
        // The finger slides over a wide leap and only falls for a step.
        const bool leap = at > 0 && std::fabs(note.pitch - phrase[at - 1].pitch) > 4;
        const double glide = 1 - std::exp(-controlStep / ((leap ? 0.020 : 0.009) * sampleRate));
        pitch += glide * (note.pitch - pitch);
        const double hz = Frequency(pitch + detune + vibrato + 0.028 * wanderPitch.Skip(controlStep));
        step = hz / sampleRate;
        const double press = level * std::min(1.0, height);
        // The body answers every turn of the vibrato with another colour.
        const double colour =
            (kind.darkest + (kind.brightest - kind.darkest) * press + 0.8 * hz) * (1 + 0.22 * rocking);
        fallFirst.Set(colour);
        fallSecond.Set(2.2 * colour);
        scratching = float(kind.bowNoise * (0.5 + 0.9 * std::exp(-std::max(since, 0.0) / 0.07)));
        return std::pow(level, 1.45) * height * (1 + 0.06 * rocking);
    }

    float String()
    {
        turns += step;
        turns -= std::floor(turns);
        // A sawtooth, its step rounded over two samples so that nothing folds back loudly.
        double saw = 2 * turns - 1;
        if (turns < step) {
            const double x = turns / step;
            saw -= 2 * x - x * x - 1;
        } else if (turns > 1 - step) {
            const double x = (turns - 1) / step;
            saw -= x * x + 2 * x + 1;
        }
        const float hair = scratch.Next(noise.White()) * (0.6f + 0.4f * float(saw));
        return fallSecond.Next(fallFirst.Next(float(saw))) + scratching * hair;
    }

    const Phrase& phrase;
    const Dynamics& dynamics;
    const BowedKind& kind;
    WhiteNoise noise;
    Wander wanderPitch, wanderBow, wanderRate;
    OnePole fallFirst, fallSecond;
    Biquad scratch;
    int64_t late;
    double detune, turns, vibratoTurns, pitch;
    double step = 0;
    float scratching = 0;
    size_t at = 0;
};

const BowedKind& BowedKindOf(Sound sound, int line)
{
    if (sound == Sound::Pad)
        return line == 0 ? cellos : line == 1 ? violas : violins;
    return sound == Sound::Violins ? violins : sound == Sound::Violas ? violas : cellos;
}

Stereo PlayBowed(const Phrase& phrase, const Dynamics& dynamics, const BowedKind& kind, float pan)
{
    const int64_t before = sampleRate / 10, after = 9 * sampleRate / 10;
    const int64_t origin = phrase.front().start - before;
    const int64_t count = phrase.back().start + phrase.back().length + after - origin;
    Stereo section(origin, count);
    for (int i = 0; i < kind.players; i++) {
        Samples sound(count);
        Player player(phrase, dynamics, kind, phrase[0].seed + 977 * i);
        player.Play(sound, origin);
        const double seat = kind.players > 1 ? 2.0 * i / (kind.players - 1) - 1 : 0;
        section.Add(sound, origin, 0.85f / std::sqrt(float(kind.players)), pan + float(kind.spread * seat));
    }
    for (const BodyPeak& peak : kind.body) {
        for (Samples* side : {&section.left, &section.right}) {
            Biquad body;
            body.Peak(peak.hz, peak.q, peak.decibel);
            body.Run(*side);
        }
    }
    // The bows have left the strings by now; a few milliseconds make sure of it.
    for (int64_t i = 0; i < 441; i++) {
        section.left[count - 1 - i] *= float(i) / 441;
        section.right[count - 1 - i] *= float(i) / 441;
    }
    return section;
}

} // namespace waltz
