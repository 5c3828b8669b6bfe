// SPDX-License-Identifier: MIT
// Strings that are struck or plucked: banks of modes, and the noise of what touches them.
#include "art/music/Filters.h"
#include "art/music/ModalBank.h"
#include "art/music/Pitch.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Struck.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

// How one string of a kind behaves at a pitch and a strength.
struct StringKind {
    double stiffness;  // partial n lies at n * sqrt(1 + stiffness * n * n) times the fundamental
    double touchPlace; // where it is struck or plucked, share of its length
    double tilt;       // partial n is excited by 1 / n to this power
    double soft;       // Hz above which what touches it is too soft to excite much
    double softness;   // how steeply
    double decay;      // seconds for 60 dB, of the fundamental
    double decayKnee;  // Hz at which it is half as long
    double highest;    // Hz
};

// Strings of one note at slightly different pitch: their beating is what makes two stages of the decay.
struct Course {
    double cents;
    double share;
    double decay; // times the kind's
};

static void AddString(ModalBank& bank, const StringKind& kind, double hz, double amplitude,
                      const Course& course)
{
    const double base = hz * std::exp2(course.cents / 1200);
    double power = 0;
    std::vector<double> heights;
    for (int n = 1; n <= 48; n++) {
        const double partial = n * base * std::sqrt(1 + kind.stiffness * n * n);
        if (partial > kind.highest)
            break;
        const double touched = std::fabs(std::sin(pi * n * kind.touchPlace)) + 0.02;
        const double felt = std::pow(1 + (partial / kind.soft) * (partial / kind.soft), -kind.softness);
        heights.push_back(touched * felt * std::pow(n, -kind.tilt));
        power += heights.back() * heights.back();
    }
    const double level = amplitude * course.share / std::sqrt(power + 1e-12);
    for (size_t i = 0; i < heights.size(); i++) {
        const double n = double(i + 1);
        const double partial = n * base * std::sqrt(1 + kind.stiffness * n * n);
        const double decay = course.decay * kind.decay / (1 + partial / kind.decayKnee);
        // The body sends each partial its own way round: they do not set out together, or all their peaks
        // would fall on the first moment. The two lowest do, so that the tone begins from silence.
        const double phase = i < 2 ? 0 : 0.618034 * n * n;
        bank.Add(partial, level * heights[i], decay, phase);
    }
}

// Lets the bank ring for the note and then for as long as the damper takes.
static void RingOut(ModalBank& bank, Samples& sound, int64_t length, double damping, double longest)
{
    const size_t held = std::min<size_t>(length, size_t(longest * sampleRate));
    const size_t all = held + size_t(damping * sampleRate);
    sound.resize(std::max(sound.size(), all));
    bank.Ring(sound, 0, held);
    bank.Damp(damping);
    bank.Ring(sound, held, all);
    FadeOut(&sound, 441);
}

// A short noise of something soft, from the start of the sound.
static void Knock(Samples& sound, uint32_t seed, double hz, double q, double seconds, float level)
{
    WhiteNoise noise(seed);
    Biquad colour;
    colour.BandPass(hz, q);
    const size_t count = std::min<size_t>(sound.size(), size_t(seconds * 6 * sampleRate));
    for (size_t i = 0; i < count; i++) {
        const double t = double(i) / sampleRate;
        const double rise = std::min(1.0, t / 0.0015);
        sound[i] += level * colour.Next(noise.White()) * float(rise * std::exp(-t / seconds));
    }
}

// What the hammer's own give does to the first moment.
static void SoftenStart(Samples& sound, double seconds)
{
    const size_t count = std::min<size_t>(sound.size(), size_t(seconds * sampleRate));
    for (size_t i = 0; i < count; i++) {
        const double x = double(i) / double(count);
        sound[i] *= float(0.5 - 0.5 * std::cos(pi * x));
    }
}

Samples PlayFeltPiano(const Note& note)
{
    const double hz = Frequency(note.pitch), v = note.strength;
    const double octaves = (note.pitch - 60) / 12;
    StringKind kind;
    kind.stiffness = 2.8e-4 * std::exp2(octaves * 1.3);
    kind.touchPlace = 0.121;
    kind.tilt = 0.35;
    kind.soft = 260 + 1900 * v * std::sqrt(v) + 0.75 * hz;
    kind.softness = 1.15;
    kind.decay = 11.0 * std::exp2(-octaves * 0.75);
    kind.decayKnee = 650;
    kind.highest = 8000;
    WhiteNoise noise(note.seed);
    const double level = 0.42 * std::pow(v, 1.5);
    const double apart = 0.45 + 0.25 * noise.White(); // cents
    ModalBank bank;
    AddString(bank, kind, hz, level, {-apart, 0.62, 0.62});
    AddString(bank, kind, hz, level, {apart, 0.45, 1.5});
    Samples sound;
    const double damping = note.pitch > 88 ? 1.5 : 0.42 - 0.05 * octaves;
    RingOut(bank, sound, note.length, damping, 7);
    SoftenStart(sound, 0.0045 - 0.0025 * v);
    Knock(sound, note.seed + 1, 240 + 500 * v, 0.8, 0.007, float(0.42 * level));
    Knock(sound, note.seed + 2, 92, 2.5, 0.022, float(0.85 * level)); // the key at its bed
    // The damper's felt coming down.
    const size_t held = std::min<size_t>(note.length, sound.size());
    Biquad felt;
    felt.BandPass(420, 0.7);
    for (size_t i = held; i < sound.size(); i++) {
        const double t = double(i - held) / sampleRate;
        const double hump = (t / 0.03) * std::exp(1 - t / 0.03);
        sound[i] += float(0.008 * level * hump) * felt.Next(noise.White());
    }
    return sound;
}

Samples PlayPluckedBass(const Note& note)
{
    const double hz = Frequency(note.pitch), v = note.strength;
    StringKind kind;
    kind.stiffness = 6e-5;
    kind.touchPlace = 0.27;
    kind.tilt = 0.75;
    kind.soft = 380 + 900 * v;
    kind.softness = 0.9;
    kind.decay = 3.4 * std::pow(hz / 60, -0.35);
    kind.decayKnee = 230;
    kind.highest = 4200;
    const double level = 0.62 * std::pow(v, 1.3);
    ModalBank bank;
    AddString(bank, kind, hz, level, {0.0, 0.85, 1.0});
    AddString(bank, kind, hz, level, {2.2, 0.28, 0.55}); // the other way in which it can swing
    Samples sound;
    RingOut(bank, sound, note.length, 0.16, 4);
    SoftenStart(sound, 0.004);
    Knock(sound, note.seed + 1, 700 + 500 * v, 0.6, 0.009, float(0.28 * level));
    Knock(sound, note.seed + 2, 105, 3, 0.05, float(0.9 * level)); // the body
    return sound;
}

Samples PlayPizzicato(const Note& note)
{
    const double v = note.strength;
    const double octaves = (note.pitch - 60) / 12;
    StringKind kind;
    kind.stiffness = 8e-5;
    kind.touchPlace = 0.19;
    kind.tilt = 0.8;
    kind.soft = 900 + 2200 * v;
    kind.softness = 0.8;
    kind.decay = 1.25 * std::exp2(-octaves * 0.55);
    kind.decayKnee = 700;
    kind.highest = 9000;
    const double level = 0.40 * std::pow(v, 1.3);
    WhiteNoise noise(note.seed);
    Samples sound;
    for (int player = 0; player < 3; player++) {
        const double hz = Frequency(note.pitch + 0.045 * noise.White());
        ModalBank bank;
        AddString(bank, kind, hz, level * (player == 0 ? 0.80 : 0.38), {0.0, 1.0, 1.0});
        Samples one;
        RingOut(bank, one, std::max<int64_t>(note.length, sampleRate / 3), 0.12, 2);
        SoftenStart(one, 0.0016);
        Knock(one, note.seed + 11 + player, 1500, 0.5, 0.004, float(0.25 * level));
        Knock(one, note.seed + 21 + player, 290, 2, 0.03, float(0.30 * level)); // the body
        const size_t late = player == 0 ? 0 : size_t((0.004 + 0.003 * noise.White()) * sampleRate);
        sound.resize(std::max(sound.size(), one.size() + late));
        for (size_t i = 0; i < one.size(); i++)
            sound[late + i] += one[i];
    }
    return sound;
}

} // namespace waltz
