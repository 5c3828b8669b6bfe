// SPDX-License-Identifier: MIT
#include "art/music/Filters.h"
#include "art/music/Pitch.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Sustained.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

constexpr int controlStep = 32;
constexpr int harmonics = 14;

// Where wood and bell help the tone along, and by how much.
struct Formant {
    double hz, width, gain;
};

// clang-format off
constexpr Formant formants[] = {
    { 620, 260, 1.10},
    {1150, 330, 1.60},
    {2450, 500, 0.70},
};
// clang-format on

static double Resonance(double hz)
{
    double gain = 0.55;
    for (const Formant& formant : formants) {
        const double off = (hz - formant.hz) / formant.width;
        gain += formant.gain / (1 + off * off);
    }
    return gain / (1 + std::pow(hz / 4200, 3));
}

class Blower
{
public:
    Blower(const Phrase& notes, const Dynamics& course)
        : phrase(notes), dynamics(course), noise(notes[0].seed),
          wanderPitch(notes[0].seed + 1, sampleRate / 5), wanderBreath(notes[0].seed + 2, sampleRate / 7),
          wanderRate(notes[0].seed + 3, sampleRate / 2)
    {
        pitch = notes[0].pitch - 0.35;
        hiss.HighPass(2600);
    }

    // Returns how loud tone and breath are; sets pitch, harmonics and the colour of the breath.
    void Blow(int64_t now)
    {
        while (at + 1 < phrase.size() && now >= phrase[at + 1].start)
            at++;
        const Note& note = phrase[at];
        const double since = double(now - note.start) / sampleRate;
        const double length = double(note.length) / sampleRate;
        const double sinceStart = double(now - phrase[0].start) / sampleRate + 0.018;
        const double level = dynamics.LevelAt(double(now) / samplesPerBeat);
        const bool last = at + 1 == phrase.size();

        const double attack = 0.075 - 0.035 * level;
        double press = sinceStart <= 0 ? 0 : std::pow(std::min(1.0, sinceStart / attack), 1.5);
        if (at > 0) {
            // The tongue touches the reed between notes, or only the fingers move.
            const double touch = (since - 0.004) / 0.014;
            press *= 1 - (phrase[at - 1].pitch == note.pitch ? 0.8 : 0.30) * std::exp(-touch * touch);
        }
        if (length > 0.7)
            press *= 0.84 + 0.18 * std::sin(pi * std::pow(std::clamp(since / length, 0.0, 1.0), 0.8));
        if (note.accent && since >= 0)
            press *= 1 + 0.3 * std::exp(-since / 0.12);
        double gone = 1;
        if (last && since > length - 0.05)
            gone = std::exp(-(since - length + 0.05) / 0.055);
        const double settled = std::clamp((since - 0.28) / 0.5, 0.0, 1.0);
        vibratoTurns += 4.9 * (1 + 0.12 * wanderRate.Skip(controlStep)) * controlStep / sampleRate;
        const double vibrato = settled * SineOfTurns(vibratoTurns);
        press *= gone * (1 + 0.09 * vibrato + 0.07 * wanderBreath.Skip(controlStep));

        pitch += (1 - std::exp(-controlStep / (0.014 * sampleRate))) * (note.pitch - pitch);
        const double hz =
            Frequency(pitch + 0.14 * vibrato + 0.035 * wanderPitch.Skip(controlStep) - 0.10 * (1 - gone));
        step = hz / sampleRate;
        const double blown = std::clamp(level * press, 0.0, 1.2);
        // The harder it is blown, the slower the harmonics fall.
        const double fall = 1.85 - 1.05 * blown;
        double power = 0;
        for (int n = 1; n <= harmonics; n++) {
            const bool even = n % 2 == 0;
            goal[n - 1] = hz * n > 11000 ? 0 : std::pow(n, -fall) * Resonance(hz * n) * (even ? 0.66 : 1.0);
            power += goal[n - 1] * goal[n - 1];
        }
        const double loud = 0.62 * std::pow(level, 1.35) * press / std::sqrt(power + 1e-9);
        for (double& each : goal)
            each *= loud;
        tube.BandPass(std::min(2.0 * hz, 6000.0), 1.6);
        const double chiff = 1 + 2.2 * std::exp(-std::max(sinceStart, 0.0) / 0.045);
        const double intake = sinceStart < 0 ? std::exp(-std::pow((sinceStart + 0.16) / 0.07, 2)) : 0;
        breathGoal = std::pow(level, 0.9) * (0.060 * press * chiff + 0.010 * intake);
    }

    void Play(Samples& sound, int64_t origin)
    {
        for (size_t begin = 0; begin < sound.size(); begin += controlStep) {
            Blow(origin + int64_t(begin));
            const size_t end = std::min(sound.size(), begin + controlStep);
            double slopes[harmonics];
            for (int n = 0; n < harmonics; n++)
                slopes[n] = (goal[n] - height[n]) / controlStep;
            const double breathSlope = (breathGoal - breath) / controlStep;
            for (size_t i = begin; i < end; i++) {
                turns += step;
                turns -= std::floor(turns);
                double tone = 0;
                for (int n = 0; n < harmonics; n++) {
                    height[n] += slopes[n];
                    if (height[n] > 1e-7)
                        tone += height[n] * SineOfTurns(turns * (n + 1));
                }
                breath += breathSlope;
                const float white = noise.White();
                // The reed chops the breath as it opens and shuts.
                const double chopped = 0.65 + 0.35 * SineOfTurns(turns);
                const double air = tube.Next(white) + 0.30 * hiss.Next(white);
                sound[i] = float(tone + breath * chopped * air);
            }
        }
    }

private:
    const Phrase& phrase;
    const Dynamics& dynamics;
    WhiteNoise noise;
    Wander wanderPitch, wanderBreath, wanderRate;
    Biquad tube, hiss;
    double pitch;
    double turns = 0, step = 0, vibratoTurns = 0;
    double goal[harmonics] = {}, height[harmonics] = {};
    double breathGoal = 0, breath = 0;
    size_t at = 0;
};

Stereo PlayReed(const Phrase& phrase, const Dynamics& dynamics, float pan)
{
    const int64_t before = sampleRate * 35 / 100, after = sampleRate * 6 / 10;
    const int64_t origin = phrase.front().start - before;
    const int64_t count = phrase.back().start + phrase.back().length + after - origin;
    Samples sound(count);
    Blower(phrase, dynamics).Play(sound, origin);
    for (int64_t i = 0; i < 441; i++)
        sound[count - 1 - i] *= float(i) / 441;
    Stereo stage(origin, count);
    stage.Add(sound, origin, 1, pan);
    return stage;
}

} // namespace waltz
