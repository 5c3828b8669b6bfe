// SPDX-License-Identifier: MIT
// How a score is played: the swing of the waltz, how far a hand errs, and what each instrument makes of a
// note.
#include "art/music/Performance.h"

#include "art/music/Listening.h"
#include "art/music/Mix.h"
#include "art/music/ScoreReader.h"
#include "art/music/instruments/Struck.h"
#include "art/music/instruments/Sustained.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace waltz;

static Score NightScore()
{
    Score score;
    std::string error;
    EXPECT_TRUE(ReadScore(SOURCE_DIR "/art/music/score", score, error)) << error;
    return score;
}

// The place of the nearest half beat, and how late the note is, in seconds.
static double LateBy(const Note& note, double& place)
{
    const double beats = double(note.start) / samplesPerBeat;
    place = std::round(beats * 4) / 4;
    return (beats - place) * samplesPerBeat / sampleRate;
}

TEST(ThePerformance, KeepsDownbeatsWithin4MillisecondsAndAllElseWithin25)
{
    const Score score = NightScore();
    int downbeats = 0;
    for (size_t i = 0; i < score.voices.size(); i++) {
        const Part& part = Orchestra()[i];
        for (const Phrase& phrase : Perform(score.voices[i], part)) {
            for (const Note& note : phrase) {
                double place = 0;
                const double late = LateBy(note, place);
                EXPECT_LE(std::fabs(late), 0.025) << part.name << " at beat " << place;
                if (std::fmod(place, 3) != 0)
                    continue;
                // A chord is spread a little from below.
                EXPECT_LE(std::fabs(late), 0.004 + (note.line > 0 ? 0.006 : 0.0))
                    << part.name << " at beat " << place;
                downbeats++;
            }
        }
    }
    EXPECT_GT(downbeats, 1000);
}

TEST(ThePerformance, SwingsTheSecondBeatEarlyAndTheThirdLighter)
{
    const Score score = NightScore();
    const int hand = FindPart("hand");
    double late[3] = {}, strength[3] = {};
    int count[3] = {};
    for (const Phrase& phrase : Perform(score.voices[size_t(hand)], Orchestra()[size_t(hand)])) {
        double place = 0;
        const double by = LateBy(phrase[0], place);
        const double inBar = std::fmod(place, 3);
        // The village's waltz at one loudness throughout, the lowest note of each chord.
        if (place < 105 * 3 || place >= 113 * 3 || inBar != std::floor(inBar) || phrase[0].line > 1)
            continue;
        late[int(inBar)] += by;
        strength[int(inBar)] += double(phrase[0].strength);
        ++count[int(inBar)];
    }
    for (int beat = 0; beat < 3; beat++) {
        ASSERT_EQ(8, count[beat]);
        late[beat] /= 8;
        strength[beat] /= 8;
    }
    EXPECT_NEAR(0, late[0], 0.002);
    EXPECT_NEAR(-0.013, late[1] - late[2], 0.004);
    EXPECT_NEAR(0.92, strength[1] / strength[0], 0.05);
    EXPECT_NEAR(0.82, strength[2] / strength[0], 0.05);
}

TEST(ThePerformance, IsTheSameEveryTime)
{
    const Score score = NightScore();
    for (size_t i = 0; i < score.voices.size(); i++) {
        const std::vector<Phrase> once = Perform(score.voices[i], Orchestra()[i]);
        const std::vector<Phrase> again = Perform(score.voices[i], Orchestra()[i]);
        ASSERT_EQ(once.size(), again.size());
        for (size_t k = 0; k < once.size(); k++) {
            EXPECT_EQ(once[k][0].start, again[k][0].start);
            EXPECT_EQ(once[k][0].strength, again[k][0].strength);
            EXPECT_EQ(once[k][0].seed, again[k][0].seed);
        }
    }
}

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
