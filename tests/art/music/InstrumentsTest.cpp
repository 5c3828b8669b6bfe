// SPDX-License-Identifier: MIT
// What each instrument makes of a note: its pitch, its beginning and end, how it answers a harder stroke.
#include "art/music/Filters.h"
#include "art/music/Listening.h"
#include "art/music/Mix.h"
#include "art/music/Performance.h"
#include "art/music/Pitch.h"
#include "art/music/instruments/Struck.h"
#include "art/music/instruments/Sustained.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace waltz;

static Note LoudA(double pitch)
{
    Note note;
    note.length = samplesPerBeat * 2;
    note.pitch = pitch;
    note.strength = 0.8f;
    note.seed = 12345;
    return note;
}

// Power at a frequency, over the middle of a sound.
static double PowerAt(const Samples& sound, double hz)
{
    double x = 0, y = 0;
    const size_t from = 4000, end = std::min(sound.size(), size_t(30000));
    for (size_t i = from; i < end; i++) {
        const double turn = 2 * 3.14159265358979323846 * hz * double(i) / sampleRate;
        const double window =
            0.5 - 0.5 * std::cos(2 * 3.14159265358979323846 * double(i - from) / double(end - from));
        x += double(sound[i]) * std::cos(turn) * window;
        y += double(sound[i]) * std::sin(turn) * window;
    }
    return x * x + y * y;
}

// How many cents over `pitch` the sound's own fundamental lies, looked for within a half tone.
static double Cents(const Samples& sound, double pitch)
{
    double best = 0, bestPower = 0;
    for (double cents = -100; cents <= 100; cents += 2) {
        const double power = PowerAt(sound, 440 * std::exp2((pitch - 69 + cents / 100) / 12));
        if (power > bestPower) {
            bestPower = power;
            best = cents;
        }
    }
    return best;
}

static float PeakOf(const Samples& sound)
{
    float peak = 0;
    for (const float x : sound)
        peak = std::max(peak, std::fabs(x));
    return peak;
}

static void ExpectGoodSound(const char* name, const Samples& sound, double pitch, double cents)
{
    SCOPED_TRACE(name);
    EXPECT_NEAR(0, Cents(sound, pitch), cents);
    EXPECT_GT(PeakOf(sound), 0.1f);
    EXPECT_LT(PeakOf(sound), 1.0f);
    EXPECT_LT(std::fabs(sound.front()), 0.01f) << "begins from silence";
    EXPECT_LT(std::fabs(sound.back()), 0.002f) << "ends in silence";
    EXPECT_TRUE(FindClicks(sound).empty());
    for (const float x : sound)
        ASSERT_TRUE(std::isfinite(x));
}

TEST(StruckInstruments, AreInTuneAndBeginAndEndInSilence)
{
    ExpectGoodSound("piano", PlayFeltPiano(LoudA(57)), 57, 6);
    ExpectGoodSound("bass", PlayPluckedBass(LoudA(45)), 45, 8);
    ExpectGoodSound("pizzicato", PlayPizzicato(LoudA(57)), 57, 10);
    ExpectGoodSound("celesta", PlayCelesta(LoudA(81)), 81, 6);
    ExpectGoodSound("music box", PlayMusicBox(LoudA(81), false), 81, 6);
}

TEST(StruckInstruments, TheBrokenBoxIsOutOfTuneNowAndThen)
{
    double worst = 0;
    for (const double pitch : {69.0, 74.0, 77.0, 81.0, 84.0})
        worst = std::max(worst, std::fabs(Cents(PlayMusicBox(LoudA(pitch), true), pitch)));
    EXPECT_GT(worst, 15);
}

TEST(SustainedInstruments, AreInTune)
{
    Dynamics dynamics;
    dynamics.Mark(0, 0.8f);
    const Phrase phrase = {LoudA(69)};
    const auto sides = [](const Stereo& sound) {
        Samples mono(sound.left);
        for (size_t i = 0; i < mono.size(); i++)
            mono[i] = 0.5f * (mono[i] + sound.right[i]);
        return mono;
    };
    // Vibrato and several players make a wide line: within a quarter of a half tone.
    EXPECT_NEAR(0, Cents(sides(PlayReed(phrase, dynamics, 0)), 69), 25);
    EXPECT_NEAR(0, Cents(sides(PlayBowed(phrase, dynamics, BowedKindOf(Sound::Violins, 0), 0)), 69), 25);
    EXPECT_NEAR(0, Cents(sides(PlayBowed(phrase, dynamics, BowedKindOf(Sound::Cellos, 0), 0)), 69), 25);
}

static Samples MonoOf(const Stereo& sound)
{
    Samples mono(sound.left);
    for (size_t i = 0; i < mono.size(); i++)
        mono[i] = 0.5f * (mono[i] + sound.right[i]);
    return mono;
}

// One player of a kind, without the others who would blur what he does.
static Samples OnePlayer(const BowedKind& kind, const Phrase& phrase, float level)
{
    BowedKind alone = kind;
    alone.players = 1;
    Dynamics dynamics;
    dynamics.Mark(0, level);
    return MonoOf(PlayBowed(phrase, dynamics, alone, 0));
}

struct PitchAt {
    double seconds, pitch;
};

// The course of the fundamental: everything above `highest` filtered away, then the time between two rises through
// nothing.
static std::vector<PitchAt> CourseOf(const Samples& sound, double highest)
{
    Samples low = sound;
    for (int i = 0; i < 4; i++) {
        Biquad filter;
        filter.LowPass(1.1 * Frequency(highest));
        filter.Run(low);
    }
    std::vector<PitchAt> course;
    double last = -1;
    for (size_t i = 1; i < low.size(); i++) {
        if (low[i - 1] >= 0 || low[i] < 0)
            continue;
        const double rise = double(i) - double(low[i]) / double(low[i] - low[i - 1]);
        if (last >= 0)
            course.push_back({rise / sampleRate, 69 + 12 * std::log2(sampleRate / (rise - last) / 440)});
        last = rise;
    }
    return course;
}

TEST(BowedStrings, SingWithAVibratoOf40To80CentsThatSetsInLate)
{
    const std::pair<Sound, double> strings[] = {
        {Sound::Violins, 76}, {Sound::Violas, 67}, {Sound::Cellos, 57}, {Sound::SoloCello, 60}};
    for (const auto& [sound, pitch] : strings)
        for (const float level : {0.39f, 0.64f, 0.92f}) {
            Note note = LoudA(pitch);
            note.start = sampleRate;
            note.length = 18 * sampleRate / 10;
            const Samples played = OnePlayer(BowedKindOf(sound, 0), {note}, level);
            // A tenth of a second comes before the note.
            double low = 1e9, high = -1e9, early = 0;
            int count = 0;
            for (const PitchAt& at : CourseOf(played, pitch)) {
                if (at.seconds > 0.7 && at.seconds < 1.6) {
                    low = std::min(low, at.pitch);
                    high = std::max(high, at.pitch);
                }
                if (at.seconds > 0.14 && at.seconds < 0.19) {
                    early += at.pitch - pitch;
                    count++;
                }
            }
            EXPECT_GE(100 * (high - low), 40) << int(sound) << " at " << level;
            EXPECT_LE(100 * (high - low), 80) << int(sound) << " at " << level;
            EXPECT_LT(std::fabs(100 * early / count), 20) << "the note begins where it stands";
        }
}

TEST(BowedStrings, AFingerSlidesOverALeapAndFallsForAStep)
{
    for (const double interval : {7.0, 2.0}) {
        Note from = LoudA(57), to = LoudA(57 + interval);
        from.start = sampleRate;
        from.length = to.length = sampleRate;
        to.start = 2 * sampleRate;
        const Samples played = OnePlayer(BowedKindOf(Sound::SoloCello, 0), {from, to}, 0.6f);
        double underWay = 0, last = 0;
        for (const PitchAt& at : CourseOf(played, to.pitch)) {
            const double way = (at.pitch - from.pitch) / interval;
            if (at.seconds > 0.8 && at.seconds < 1.25 && way > 0.2 && way < 0.8 && interval > 3)
                underWay += at.seconds - last;
            if (at.seconds > 1.2 && at.seconds < 1.3) {
                EXPECT_NEAR(to.pitch, at.pitch, 0.5) << "arrived";
            }
            if (at.seconds > 0.9 && at.seconds < 1.085 && interval < 3) {
                EXPECT_NEAR(from.pitch, at.pitch, 0.6) << "a step is not slid";
            }
            last = at.seconds;
        }
        if (interval > 3) {
            EXPECT_GT(underWay, 0.03);
            EXPECT_LT(underWay, 0.15);
        }
    }
}

// The power of a tenth of a second around `seconds` against the one around `other`, in dB.
static double PowerAgainst(const Samples& sound, double seconds, double other, double span)
{
    const auto power = [&](double at) {
        double sum = 1e-12;
        for (size_t i = size_t((at - span / 2) * sampleRate); i < size_t((at + span / 2) * sampleRate); i++)
            sum += double(sound[i]) * double(sound[i]);
        return sum;
    };
    return 10 * std::log10(power(seconds) / power(other));
}

TEST(BowedStrings, TheBowTurnsWhenItsHairIsUsedUpAndNotBetweenSlurredNotes)
{
    // Two notes that fit on one bow, two that do not: what the middle loses against a little later.
    double dips[2] = {};
    for (int i = 0; i < 2; i++) {
        const double length = i == 0 ? 0.9 : 1.5;
        Note from = LoudA(69), to = LoudA(71);
        from.start = sampleRate;
        from.length = to.length = int64_t(length * sampleRate);
        to.start = from.start + from.length;
        const Samples played = OnePlayer(BowedKindOf(Sound::Violins, 0), {from, to}, 0.6f);
        dips[i] = PowerAgainst(played, 0.1 + length, 0.1 + length + 0.12, 0.02);
    }
    EXPECT_GT(dips[0], -3.5) << "slurred";
    EXPECT_LT(dips[1], dips[0] - 3) << "two bows";
}

TEST(BowedStrings, HaveABodyThatAnswersOneNoteMoreThanAnother)
{
    // The violin's second mode of the wood at 545 Hz, and the hole above it at 650.
    double fundamentals[2] = {};
    for (int i = 0; i < 2; i++) {
        const double hz = i == 0 ? 545 : 650;
        const Samples played =
            OnePlayer(BowedKindOf(Sound::Violins, 0), {LoudA(69 + 12 * std::log2(hz / 440))}, 0.6f);
        for (double cents = -50; cents <= 50; cents += 5)
            fundamentals[i] += PowerAt(played, hz * std::exp2(cents / 1200));
    }
    EXPECT_GT(10 * std::log10(fundamentals[0] / fundamentals[1]), 4);
}

TEST(AStepInTheSand, CrunchesUnderHeelAndToesAndDoesNotClick)
{
    Note note = LoudA(stroke);
    const Samples step = PlayStep(note);
    EXPECT_GT(PeakOf(step), 0.1f);
    EXPECT_LT(PeakOf(step), 1.0f);
    EXPECT_LT(std::fabs(step.front()), 0.01f);
    EXPECT_LT(std::fabs(step.back()), 0.002f);
    EXPECT_TRUE(FindClicks(step).empty());
    Stereo both(0, int64_t(step.size()));
    both.left = both.right = step;
    const Attack heel = FindAttack(
        [&] {
            Stereo later(0, sampleRate);
            later.Add(step, sampleRate / 2, 1, 0);
            return later;
        }(),
        sampleRate / 2);
    EXPECT_NEAR(0, heel.late, 0.012);
    EXPECT_GT(heel.strength, 8);
    EXPECT_GT(Measure(both, 0, both.Size()).centroid, 1800) << "sand, not a drum";
    // Heel, sole and toes: the last third of the sound is not only what rings on.
    EXPECT_GT(PowerAgainst(step, 0.18, 0.015, 0.03), -16);
    EXPECT_LT(PowerAgainst(step, 0.18, 0.015, 0.03), -1);
}

TEST(Instruments, PlayLouderAndBrighterWhenHitHarder)
{
    Note soft = LoudA(69), hard = soft;
    soft.strength = 0.3f;
    hard.strength = 0.95f;
    for (Samples (*play)(const Note&) : {PlayFeltPiano, PlayPizzicato, PlayCelesta}) {
        const Samples a = play(soft), b = play(hard);
        EXPECT_GT(PeakOf(b), 1.5f * PeakOf(a));
        const auto brightness = [](const Samples& sound) {
            Stereo both(0, int64_t(sound.size()));
            both.left = both.right = sound;
            return Measure(both, 0, both.Size()).centroid;
        };
        EXPECT_GT(brightness(b), brightness(a));
    }
}
