// SPDX-License-Identifier: MIT
// Celesta and music box: frequency modulation, with partials that die one after the other.
#include "art/music/Filters.h"
#include "art/music/Pitch.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Struck.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

// One pair of oscillators: a sine at `ratio` times the pitch, its phase moved by a sine at `modulator` times
// it.
struct OscillatorPair {
    double ratio;
    double modulator;
    double depth;      // in radians at the start
    double depthFades; // seconds to an e-th
    double level;
    double decay; // seconds for 60 dB
};

constexpr double twoPi = 6.28318530717958647692;

static void AddPair(Samples& sound, double hz, const OscillatorPair& pair, double level, double phase)
{
    const double turn = hz * pair.ratio / sampleRate, modulatorTurn = hz * pair.modulator / sampleRate;
    // Sidebands that would fold back are not made.
    if (turn > 0.45)
        return;
    const double room = 0.45 - turn;
    double depth = pair.depth / twoPi * std::clamp(room / modulatorTurn - 0.5, 0.0, 1.0);
    double height = pair.level * level;
    const double shrink = std::exp(-6.907755 / (pair.decay * sampleRate));
    const double depthShrink = std::exp(-1 / (pair.depthFades * sampleRate));
    double carrier = phase, modulator = phase;
    for (float& sample : sound) {
        sample += float(height) * SineOfTurns(carrier + depth * SineOfTurns(modulator));
        carrier += turn;
        modulator += modulatorTurn;
        height *= shrink;
        depth *= depthShrink;
        if (height < 2e-6)
            break;
    }
}

// Ends the sound softly: the damper from `held` on, and nothing left at the end.
static void Finish(Samples& sound, size_t held, double damping, double attack)
{
    const size_t rise = size_t(attack * sampleRate);
    for (size_t i = 0; i < std::min(rise, sound.size()); i++)
        sound[i] *= float(0.5 - 0.5 * std::cos(twoPi / 2 * double(i) / rise));
    const double shrink = std::exp(-6.907755 / (damping * sampleRate));
    double height = 1;
    for (size_t i = held; i < sound.size(); i++) {
        sound[i] *= float(height);
        height *= shrink;
    }
    FadeOut(&sound, 882);
}

static void Tick(Samples& sound, uint32_t seed, double hz, double q, double seconds, double level)
{
    WhiteNoise noise(seed);
    Biquad colour;
    colour.BandPass(hz, q);
    const size_t count = std::min<size_t>(sound.size(), size_t(seconds * 7 * sampleRate));
    for (size_t i = 0; i < count; i++) {
        const double t = double(i) / sampleRate;
        const double height = level * std::min(1.0, t / 0.0006) * std::exp(-t / seconds);
        sound[i] += float(height) * colour.Next(noise.White());
    }
}

Samples PlayCelesta(const Note& note)
{
    const double hz = Frequency(note.pitch), v = note.strength;
    const double octaves = (note.pitch - 72) / 12;
    const double decay = 4.2 * std::exp2(-octaves * 0.6);
    const double level = 0.36 * std::pow(v, 1.35);
    WhiteNoise noise(note.seed);
    const size_t held = std::max<size_t>(note.length, sampleRate / 4);
    Samples sound(held + size_t(0.9 * sampleRate));
    // clang-format off
    const OscillatorPair pairs[] = {
        // ratio  modulator  depth           fades  level            decay
        {1.0,     1.0,       0.25 + 0.35*v,  0.18,  1.00,            decay},
        {1.0006,  2.756,     0.55 * v,       0.045, 0.30,            decay * 0.8},
        {2.756,   5.404,     0.40 * v,       0.020, 0.13 * v,        decay * 0.22},
        {4.0,     1.0,       0.20,           0.050, 0.10 * v,        decay * 0.30},
        {0.5,     0.5,       0.10,           0.100, 0.035,           0.25}, // the box below the plate
    };
    // clang-format on
    for (const OscillatorPair& pair : pairs)
        AddPair(sound, hz, pair, level, 0.0);
    Finish(sound, held, 0.9, 0.0022);
    Tick(sound, note.seed, 1150 + 60 * noise.White(), 1.1, 0.006, 0.30 * level);
    Tick(sound, note.seed + 1, 330, 2.5, 0.018, 0.35 * level);
    return sound;
}

Samples PlayMusicBox(const Note& note, bool broken)
{
    const double v = note.strength;
    const double octaves = (note.pitch - 72) / 12;
    // A tine is out of tune for good: its error hangs on the pitch alone.
    WhiteNoise tine(static_cast<uint32_t>(note.pitch) * 977 + (broken ? 5 : 0));
    const double cents = (broken ? 38.0 : 4.5) * tine.White();
    const bool rattles = broken && tine.White() > 0.2f;
    const double hz = Frequency(note.pitch + cents / 100);
    const double decay = 3.6 * std::exp2(-octaves * 0.5) * (broken ? 0.7 : 1.0);
    const double level = 0.34 * std::pow(v, 1.2);
    // No dampers: it rings for as long as it likes.
    Samples sound(static_cast<size_t>((std::min(decay, 3.4) * 0.85) * sampleRate));
    // clang-format off
    const OscillatorPair pairs[] = {
        // ratio  modulator  depth                         fades  level  decay
        {1.0,     2.0,       0.30 + 0.30 * v,              0.080, 0.85,  decay},
        {1.0023,  3.0,       0.25,                         0.120, 0.30,  decay * 0.9}, // its neighbour on the comb
        {6.267,   1.0,       0.50 * v,                     0.030, 0.14,  decay * 0.12},
        {2.0,     rattles ? 7.31 : 1.0, rattles ? 1.8 : 0.15, 0.060, 0.10, decay * 0.35},
        {17.55,   1.0,       0.10,                         0.010, 0.035, 0.05},
    };
    // clang-format on
    for (const OscillatorPair& pair : pairs)
        AddPair(sound, hz, pair, level, 0.0);
    Finish(sound, sound.size(), 1, 0.0009);
    Tick(sound, note.seed, 3400, 1.2, 0.0022, 0.55 * level);   // the pin lets go
    Tick(sound, note.seed + 1, 620, 3.0, 0.014, 0.40 * level); // the wooden case
    return sound;
}

} // namespace waltz
