// SPDX-License-Identifier: MIT
#include "art/music/Filters.h"
#include "art/music/Pitch.h"
#include "art/music/WhiteNoise.h"
#include "art/music/instruments/Sustained.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace waltz
{

constexpr int controlStep = 32; // samples between two looks at bow and fingers

// clang-format off
// The air in the body, the two lowest modes of the wood, what lies between them and the hill of the bridge, and what
// the bridge keeps back above it.
static const BowedKind violins = {4, 0.22, 0.13, 5.6, 31, 1000, 3600, 0.055, 2.0, 1.0,
    {{275, 12, 4.5}, {405, 16, 2}, {460, 15, 5}, {545, 16, 5}, {650, 6, -4}, {780, 13, 3}, {900, 14, -3},
     {1060, 13, 3.5}, {1280, 9, -4}, {1520, 12, 3}, {2050, 8, 3}, {2550, 4, 3.5}, {3300, 7, 2}, {6000, 0.9, -5}}};
static const BowedKind violas  = {3, 0.18, 0.15, 5.2, 30,  800, 2900, 0.050, 2.1, 1.0,
    {{222, 12, 4.5}, {320, 16, 2}, {365, 14, 4.5}, {432, 15, 4.5}, {520, 6, -3.5}, {630, 13, 3}, {730, 14, -3},
     {860, 12, 3}, {1040, 9, -3.5}, {1230, 12, 3}, {1620, 8, 3}, {2000, 4, 3}, {2700, 7, 2}, {5000, 0.9, -5}}};
static const BowedKind cellos  = {3, 0.16, 0.16, 4.9, 29,  650, 2500, 0.045, 2.3, 1.0,
    {{ 98, 9, 3.5}, {143, 13, 2}, {178, 12, 4}, {207, 12, 4}, {262, 6, -3}, {312, 11, 3}, {385, 11, -2.5},
     {480, 11, 3}, {620, 8, -3}, {790, 10, 3}, {1000, 8, 2}, {1300, 4, 3.5}, {1900, 7, 2}, {4200, 0.9, -4}}};
static const BowedKind soloCello = {1, 0, 0.11, 5.1, 33, 800, 3000, 0.055, 2.5, 1.5,
    {{101, 10, 4}, {148, 13, 2.5}, {182, 13, 5}, {212, 13, 4.5}, {268, 6, -3}, {320, 12, 3.5}, {395, 11, -3},
     {492, 11, 3.5}, {636, 8, -3.5}, {810, 10, 3.5}, {1030, 8, 2.5}, {1340, 4, 4}, {1980, 7, 3}, {4800, 0.9, -3}}};
// clang-format on

constexpr double onsetOfVibrato = 0.09; // seconds into a note
constexpr double growthOfVibrato = 0.28;
constexpr double smallestSlide = 3; // half tones; smaller steps fall at once

// When the bow turns: on a note that is struck again or accented, when the next one would not fit on what is left of
// the hair, and within a note that is longer than a bow.
static std::vector<int64_t> BowsOf(const Phrase& phrase, double longestBow)
{
    const int64_t longest = int64_t(longestBow * sampleRate);
    std::vector<int64_t> bows = {phrase[0].start};
    for (size_t i = 0; i < phrase.size(); i++) {
        const Note& note = phrase[i];
        const bool again = i > 0 && (note.accent || note.pitch == phrase[i - 1].pitch);
        if (i > 0 && (again || note.start + note.length - bows.back() > longest))
            bows.push_back(note.start);
        const int64_t parts = (note.length + longest - 1) / longest;
        for (int64_t part = 1; part < parts; part++)
            bows.push_back(note.start + note.length * part / parts);
    }
    return bows;
}

// What a body makes of a string. Each instrument of a section is a little larger or smaller than the next: `size`.
static void RunBody(Samples& sound, const BowedKind& kind, double size)
{
    for (const BodyPeak& peak : kind.body) {
        Biquad resonance;
        resonance.Peak(peak.hz / size, peak.q, peak.decibel);
        resonance.Run(sound);
    }
}

// One bow on one string, along a phrase.
class Player
{
public:
    Player(const Phrase& notes, const Dynamics& course, const BowedKind& bowed, uint32_t seed)
        : phrase(notes), dynamics(course), kind(bowed), noise(seed), wanderPitch(seed + 1, sampleRate / 3),
          wanderBow(seed + 2, sampleRate / 4), wanderRate(seed + 3, sampleRate / 2),
          bows(BowsOf(notes, bowed.longestBow))
    {
        late = int64_t(0.011 * noise.Around() * sampleRate);
        detune = 0.030 * noise.Around(); // half tones
        turns = 0.5 + 0.5 * noise.White();
        vibratoTurns = noise.White();
        width = 1 + 0.12 * noise.White();
        slideTime = kind.slide * (0.9 + 0.3 * noise.White());
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
        while (bow + 1 < bows.size() && now >= bows[bow + 1])
            bow++;
        const double since = double(now - phrase[at].start) / sampleRate;
        const double level = dynamics.LevelAt(double(now) / samplesPerBeat);
        const double height = Stroke(now, since, level);

        const double settled = std::clamp((since - onsetOfVibrato) / growthOfVibrato, 0.0, 1.0);
        vibratoTurns +=
            kind.vibratoRate * (1 + 0.10 * wanderRate.Skip(controlStep)) * controlStep / sampleRate;
        const double rocking = settled * (0.68 + 0.32 * level) * SineOfTurns(vibratoTurns);
        const double vibrato = width * kind.vibratoCents / 100 * rocking;
        const double glide = 1 - std::exp(-controlStep / (0.009 * sampleRate));
        pitch += glide * (Finger(now) - pitch);
        const double hz = Frequency(pitch + detune + vibrato + 0.028 * wanderPitch.Skip(controlStep));
        step = hz / sampleRate;
        const double press = level * std::min(1.0, height);
        // The bow answers every turn of the vibrato with another colour, and the body with many.
        const double colour =
            (kind.darkest + (kind.brightest - kind.darkest) * press + 0.8 * hz) * (1 + 0.12 * rocking);
        fallFirst.Set(colour);
        fallSecond.Set(2.2 * colour);
        const double sinceBow = double(now - bows[bow]) / sampleRate;
        scratching = float(kind.bowNoise * (0.5 + 1.3 * std::exp(-std::max(sinceBow, 0.0) / 0.05)));
        return std::pow(level, 1.45) * height * (1 + 0.06 * rocking);
    }

    // How strongly the bow speaks, without the part's loudness.
    double Stroke(int64_t now, double since, double level)
    {
        const Note& note = phrase[at];
        const double length = double(note.length) / sampleRate;
        const double attack = kind.attack * (1.15 - 0.6 * level);
        // The first bow bites a little before the beat, so that the tone stands on it.
        const double sinceFirst = double(now - phrase[0].start) / sampleRate + 0.045;
        double height = sinceFirst <= 0 ? 0 : std::pow(std::min(1.0, sinceFirst / attack), 1.3);
        if (at > 0) {
            // A finger comes down under the bow.
            const double turn = (since - 0.010) / 0.020;
            height *= 1 - 0.14 * std::exp(-turn * turn);
        }
        const double sinceBow = double(now - bows[bow]) / sampleRate;
        if (bow > 0)
            height *= 1 - Turning(sinceBow, bow);
        const bool lastBow = bow + 1 == bows.size();
        const int64_t bowEnd = lastBow ? phrase.back().start + phrase.back().length : bows[bow + 1];
        if (!lastBow)
            height *= 1 - Turning(double(now - bowEnd) / sampleRate, bow + 1);
        // A bow drawn down weakens towards its tip, one pushed up gains towards the frog.
        const int64_t bowLength = std::max<int64_t>(1, bowEnd - bows[bow]);
        const double way = std::clamp(double(now - bows[bow]) / double(bowLength), 0.0, 1.0);
        height *= bow % 2 == 0 ? 1.05 - 0.11 * way : 0.94 + 0.11 * way;
        if (length > 0.8)
            height *= 0.86 + 0.16 * std::sin(pi * std::pow(std::clamp(since / length, 0.0, 1.0), 0.85));
        if (at + 1 == phrase.size() && since > length - 0.06)
            height *= std::exp(-(since - length + 0.06) / 0.095);
        if (note.accent && since >= 0)
            height *= 1 + 0.45 * std::exp(-since / 0.16);
        return height * (1 + 0.11 * wanderBow.Skip(controlStep));
    }

    // What the turn into a bow takes from the tone, `seconds` after it; the same from both sides. Within a long note one
    // turns as smoothly as one can.
    double Turning(double seconds, size_t into) const
    {
        const bool within = std::none_of(phrase.begin(), phrase.end(),
                                         [&](const Note& note) { return note.start == bows[into]; });
        const double turn = seconds / 0.026;
        return (within ? 0.35 : 0.60) * std::exp(-turn * turn);
    }

    // Where the finger is, in half tones: it sets out for the next note ahead of it if that is a leap away.
    double Finger(int64_t now) const
    {
        const Note& note = phrase[at];
        if (at + 1 == phrase.size())
            return note.pitch;
        const Note& next = phrase[at + 1];
        const double leap = next.pitch - note.pitch;
        const double room = 0.4 * double(note.length) / sampleRate;
        const double seconds = std::min(room, slideTime * (0.045 + 0.009 * std::fabs(leap)));
        if (std::fabs(leap) < smallestSlide || next.accent || seconds < 0.02)
            return note.pitch;
        const double ahead = double(next.start - now) / sampleRate;
        const double way = std::clamp(1 - ahead / seconds, 0.0, 1.0);
        return note.pitch + leap * way * way * (3 - 2 * way);
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
    double width = 1, slideTime = 1;
    float scratching = 0;
    std::vector<int64_t> bows; // when each begins
    size_t at = 0, bow = 0;    // the note and the bow that are sounding
};

const BowedKind& BowedKindOf(Sound sound, int line)
{
    if (sound == Sound::Pad)
        return line == 0 ? cellos : line == 1 ? violas : violins;
    switch (sound) {
    case Sound::Violins:
        return violins;
    case Sound::Violas:
        return violas;
    case Sound::SoloCello:
        return soloCello;
    default:
        return cellos;
    }
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
        RunBody(sound, kind, 1 + 0.035 * (i - 0.5 * (kind.players - 1)));
        const double seat = kind.players > 1 ? 2.0 * i / (kind.players - 1) - 1 : 0;
        section.Add(sound, origin, 0.85f / std::sqrt(float(kind.players)), pan + float(kind.spread * seat));
    }
    // The bows have left the strings by now; a few milliseconds make sure of it.
    for (int64_t i = 0; i < 441; i++) {
        section.left[count - 1 - i] *= float(i) / 441;
        section.right[count - 1 - i] *= float(i) / 441;
    }
    return section;
}

} // namespace waltz
