// SPDX-License-Identifier: MIT
// The low drum and the brushes, and feet in the sand.
#include "art/music/Filters.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Struck.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

// A skin's modes: how many times the lowest, how loud when hit off its middle, seconds for 60 dB.
struct SkinMode {
    double ratio, level, decay;
};

// clang-format off
constexpr SkinMode skinModes[] = {
    {1.00, 1.00, 1.30},
    {1.59, 0.42, 0.75},
    {2.14, 0.22, 0.50},
    {2.30, 0.18, 0.45},
    {2.65, 0.10, 0.35},
    {2.92, 0.08, 0.30},
};
// clang-format on
constexpr double drumPitch = 55; // Hz, A

// What comes down of a foot: when, for how long, and how many grains of sand give way under it.
struct FootFall {
    double seconds, spread;
    int grains;
    double level;
};

// clang-format off
constexpr FootFall footFalls[] = {
    {0.004, 0.016, 46, 1.00}, // the heel
    {0.075, 0.040, 60, 0.55}, // the sole
    {0.150, 0.028, 40, 0.70}, // the ball and the toes push off
};
// clang-format on

Samples PlayDrum(const Note& note)
{
    const double v = note.strength;
    const double level = 0.75 * std::pow(v, 1.4);
    Samples sound(static_cast<size_t>(1.4 * sampleRate));
    for (const SkinMode& mode : skinModes) {
        double turns = 0;
        double height = level * mode.level * (mode.ratio > 1 ? 0.5 + 0.5 * v : 1.0);
        const double shrink = std::exp(-6.907755 / (mode.decay * sampleRate));
        for (size_t i = 0; i < sound.size(); i++) {
            const double t = double(i) / sampleRate;
            sound[i] += float(height * SineOfTurns(turns));
            // A hard hit stretches the skin: it starts sharp and sinks.
            turns += drumPitch * mode.ratio * (1 + 0.22 * v * std::exp(-t / 0.05)) / sampleRate;
            height *= shrink;
        }
    }
    WhiteNoise noise(note.seed);
    Biquad felt;
    felt.LowPass(260 + 700 * v);
    const size_t rise = size_t(0.003 * sampleRate);
    for (size_t i = 0; i < sound.size(); i++) {
        const double t = double(i) / sampleRate;
        if (t < 0.15)
            sound[i] += float(0.9 * level * std::exp(-t / 0.012)) * felt.Next(noise.White());
        if (i < rise)
            sound[i] *= float(i) / float(rise);
    }
    FadeOut(&sound, sampleRate / 10);
    return sound;
}

Samples PlayBrush(const Note& note)
{
    const double v = note.strength;
    const bool circles = int(note.pitch) == swish;
    const double length = circles ? double(note.length) / sampleRate : 0.16;
    const double level = (circles ? 0.30 : 0.65) * std::pow(v, 1.3);
    Samples sound(static_cast<size_t>((length + 0.12) * sampleRate));
    WhiteNoise noise(note.seed);
    Biquad wires, skin;
    skin.BandPass(360, 0.9);
    Wander hand(note.seed + 3, sampleRate / 14);
    for (size_t i = 0; i < sound.size(); i++) {
        const double t = double(i) / sampleRate;
        const float white = noise.White();
        double height = 0;
        if (circles) {
            // The hand comes round once: quickest, so loudest and brightest, two thirds of the way.
            const double way = std::clamp(t / length, 0.0, 1.0);
            height = std::pow(std::sin(pi * std::pow(way, 1.6)), 1.5);
            if (i % 64 == 0)
                wires.BandPass(2300 + 2600 * height + 300 * hand.Skip(64), 0.55);
            sound[i] = float(level * height) * wires.Next(white);
        } else {
            if (i == 0)
                wires.BandPass(3400, 0.5);
            height = std::min(1.0, t / 0.0015) * (0.8 * std::exp(-t / 0.011) + 0.2 * std::exp(-t / 0.045));
            sound[i] = float(level * height) * (wires.Next(white) + 0.5f * skin.Next(white));
        }
    }
    FadeOut(&sound, sampleRate / 50);
    return sound;
}

// One grain that gives way: a short ring, let in over a third of a millisecond so that it does not click.
static void AddGrain(Samples& sound, double seconds, double hz, double decay, double level)
{
    const size_t begin = size_t(seconds * sampleRate);
    const size_t end = std::min(sound.size(), begin + size_t(decay * 7 * sampleRate));
    for (size_t i = begin; i < end; i++) {
        const double t = double(i - begin) / sampleRate;
        sound[i] += float(level * std::min(1.0, t / 0.00035) * std::exp(-t / decay) * SineOfTurns(hz * t));
    }
}

Samples PlayStep(const Note& note)
{
    const double level = 0.30 * std::pow(note.strength, 1.2);
    Samples sound(static_cast<size_t>(0.42 * sampleRate));
    WhiteNoise noise(note.seed);
    for (const FootFall& fall : footFalls) {
        for (int i = 0; i < fall.grains; i++) {
            const double chance = 0.5 + 0.5 * double(noise.White());
            // Most grains lie near the first touch; small ones ring higher, shorter and softer.
            const double when = fall.seconds - fall.spread * std::log(1 - 0.97 * chance);
            const double size = 0.5 + 0.5 * double(noise.White());
            const double hz = 1300 * std::pow(4.2, 1 - size) * (1 + 0.1 * double(noise.White()));
            AddGrain(sound, when, hz, 0.0009 + 0.0028 * size,
                     level * fall.level * (0.25 + 0.75 * size) *
                         (0.4 + 0.6 * std::fabs(double(noise.White()))));
        }
    }
    // The sand that slides with them, and the weight that comes down.
    Biquad slide;
    slide.BandPass(2600, 0.6);
    for (size_t i = 0; i < sound.size(); i++) {
        const double t = double(i) / sampleRate;
        double height = 0;
        for (const FootFall& fall : footFalls)
            if (t > fall.seconds)
                height += fall.level * (t - fall.seconds) / 0.01 * std::exp(1 - (t - fall.seconds) / 0.03);
        sound[i] += float(0.055 * level * height) * slide.Next(noise.White());
        sound[i] +=
            float(0.9 * level * std::min(1.0, t / 0.006) * std::exp(-t / 0.035)) * SineOfTurns(82 * t);
    }
    FadeOut(&sound, sampleRate / 20);
    return sound;
}

} // namespace waltz
