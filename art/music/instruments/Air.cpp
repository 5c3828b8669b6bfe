// SPDX-License-Identifier: MIT
// Wind and shore: noise, and hands that turn the knobs.
#include "art/music/Filters.h"
#include "art/music/Pitch.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Sustained.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

constexpr int controlStep = 64;

static double BeatOf(int64_t sample)
{
    return double(sample) / samplesPerBeat;
}

// Both ends in a straight line over half a second, or less for a short sound. The night itself may begin and
// end in the wind: there the mastering takes over.
static void FadeEnds(Samples& sound, int64_t origin)
{
    const size_t fade = std::min<size_t>(sampleRate / 2, sound.size() / 2);
    for (size_t i = 0; i < fade; i++) {
        const float share = float(i) / float(fade);
        if (origin > 0)
            sound[i] *= share;
        sound[sound.size() - 1 - i] *= share;
    }
}

Stereo PlayWind(const Phrase& phrase, const Dynamics& dynamics)
{
    const int64_t origin = phrase.front().start;
    const int64_t count = phrase.back().start + phrase.back().length + sampleRate / 2 - origin;
    Stereo stage(origin, count);
    for (int side = 0; side < 2; side++) {
        Samples& sound = side == 0 ? stage.left : stage.right;
        // A gust crosses from one side to the other: what both have in common is half of it.
        WhiteNoise noise(phrase[0].seed + 71 * side);
        Wander gust(phrase[0].seed + 5, 2 * sampleRate), own(phrase[0].seed + 9 + side, sampleRate);
        Wander drift(phrase[0].seed + 13 + side, 3 * sampleRate);
        Biquad low, song, overtone;
        OnePole body;
        body.Set(420);
        double pitch = phrase[0].pitch;
        double height = 0;
        size_t at = 0;
        for (int64_t begin = 0; begin < count; begin += controlStep) {
            const int64_t now = origin + begin;
            while (at + 1 < phrase.size() && now >= phrase[at + 1].start)
                at++;
            const double level = dynamics.LevelAt(BeatOf(now));
            const double force = 0.62 + 0.26 * gust.Skip(controlStep) + 0.12 * own.Skip(controlStep);
            pitch += 0.0035 * (phrase[at].pitch - pitch);
            const double hz = Frequency(pitch + 0.5 * drift.Skip(controlStep) + 2.0 * (force - 0.6));
            low.BandPass(0.5 * hz, 0.8);
            song.BandPass(hz, 11);
            overtone.BandPass(2.02 * hz, 8);
            const double goal = std::pow(level, 1.3) * std::pow(force, 1.6);
            const double slope = (goal - height) / controlStep;
            const int64_t end = std::min(count, begin + controlStep);
            for (int64_t i = begin; i < end; i++) {
                height += slope;
                const float white = noise.White();
                const float air = 0.55f * low.Next(white) + 1.25f * song.Next(white) +
                                  0.40f * overtone.Next(white) + 0.35f * body.Next(white);
                sound[i] = float(height) * air;
            }
            height = goal;
        }
        FadeEnds(sound, origin);
    }
    return stage;
}

Stereo PlayShore(const Phrase& phrase, const Dynamics& dynamics)
{
    constexpr double breakAt = 0.4;
    const int64_t origin = phrase.front().start;
    // A wave runs on for half its length again, under the next one.
    const int64_t count = phrase.back().start + phrase.back().length * 3 / 2 - origin;
    Stereo stage(origin, count);
    for (const Note& note : phrase) {
        const int64_t length = note.length * 3 / 2;
        const double level = dynamics.LevelAt(BeatOf(note.start + note.length / 2));
        WhiteNoise chance(note.seed);
        const double drift = 0.4 * chance.White(); // where it breaks
        for (int side = 0; side < 2; side++) {
            Samples wave(length);
            WhiteNoise noise(note.seed + 31 + side);
            Wander lap(note.seed + 41 + side, sampleRate / 3), fizz(note.seed + 51 + side, sampleRate / 40);
            Biquad surge, foam;
            OnePole deep;
            deep.Set(110);
            double height = 0, hissing = 0;
            for (int64_t begin = 0; begin < length; begin += controlStep) {
                const double way = double(begin) / double(note.length);
                const double side01 = (side == 0 ? -1 : 1) * (drift + 0.7 * (way - 0.5));
                const double near = 0.75 + 0.25 * std::clamp(side01, -1.0, 1.0);
                const double swell =
                    way < breakAt ? std::pow(way / breakAt, 2.4) : std::exp(-(way - breakAt) * 2.9);
                const double run = way < breakAt ? 0 : std::min(1.0, (way - breakAt) / 0.10);
                const double ebb = std::exp(-std::max(way - breakAt - 0.1, 0.0) * 3.2);
                surge.LowPass(240 + 2300 * swell * swell, 0.8);
                foam.BandPass(3600 + 2200 * (1 - ebb), 0.5);
                const double last = std::clamp((1.5 - way) / 0.2, 0.0, 1.0);
                const double goal = level * near * swell * last * (1 + 0.2 * lap.Skip(controlStep));
                const double hissGoal =
                    level * near * run * ebb * last * (0.7 + 0.4 * fizz.Skip(controlStep));
                const double slope = (goal - height) / controlStep,
                             hissSlope = (hissGoal - hissing) / controlStep;
                const int64_t end = std::min(length, begin + controlStep);
                for (int64_t i = begin; i < end; i++) {
                    height += slope;
                    hissing += hissSlope;
                    const float white = noise.White();
                    wave[i] = float(height) * (0.75f * surge.Next(white) + 1.4f * deep.Next(white)) +
                              float(0.24 * hissing) * foam.Next(white);
                }
                height = goal;
                hissing = hissGoal;
            }
            Samples& sound = side == 0 ? stage.left : stage.right;
            for (int64_t i = 0; i < length && note.start - origin + i < count; i++)
                sound[note.start - origin + i] += wave[i];
        }
    }
    return stage;
}

} // namespace waltz
