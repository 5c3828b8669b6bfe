// SPDX-License-Identifier: MIT
// How a score is played: the swing of the waltz and how far a hand errs.
#include "art/music/Performance.h"

#include "art/music/Pitch.h"
#include "art/music/ScoreReader.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>

#include <algorithm>
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

// The tone that a note plays: of its pitch and line the one that lies nearest.
static const Tone& ToneOf(const Note& note, const Voice& voice)
{
    const Tone* nearest = nullptr;
    double distance = 1e9;
    for (const Tone& tone : voice.tones) {
        const double off = std::fabs(tone.beat - double(note.start) / samplesPerBeat);
        if (tone.pitch == int(note.pitch) && tone.line == note.line && off < distance) {
            distance = off;
            nearest = &tone;
        }
    }
    return *nearest;
}

TEST(ThePerformance, KeepsDownbeatsWithin4MillisecondsAndAllElseWithin25OfTheBentBeat)
{
    const Score score = NightScore();
    int downbeats = 0;
    for (size_t i = 0; i < score.voices.size(); i++) {
        const Part& part = Orchestra()[i];
        for (const Phrase& phrase : Perform(score.voices[i], part, score.rubato)) {
            for (const Note& note : phrase) {
                const double beat = ToneOf(note, score.voices[i]).beat;
                const double late = double(note.start) / sampleRate - 0.6 * beat - score.rubato.LateAt(beat);
                EXPECT_LE(std::fabs(late), 0.025) << part.name << " at beat " << beat;
                if (std::fmod(beat, 3) != 0)
                    continue;
                // A chord is spread a little from below.
                EXPECT_LE(std::fabs(late), 0.004 + (note.line > 0 ? 0.006 : 0.0))
                    << part.name << " at beat " << beat;
                downbeats++;
            }
        }
    }
    EXPECT_GT(downbeats, 1000);
}

// When the notes of a part fall from bar `first` to before bar `end`, against a metronome, in milliseconds.
static std::vector<double> AgainstTheMetronome(const Score& score, const std::string& name, int first,
                                               int end)
{
    std::vector<double> late;
    const size_t part = size_t(FindPart(name));
    for (const Phrase& phrase : Perform(score.voices[part], Orchestra()[part], score.rubato))
        for (const Note& note : phrase) {
            const double beat = ToneOf(note, score.voices[part]).beat;
            if (beat >= first * 3 && beat < end * 3)
                late.push_back(double(note.start) * 1000 / sampleRate - 600 * beat);
        }
    return late;
}

TEST(ThePerformance, BendsEverySoloBy30To80MillisecondsWithinAPhrase)
{
    const Score score = NightScore();
    struct Solo {
        const char* part;
        int first, end;
    };
    const Solo solos[] = {{"musicbox", 4, 8},   {"musicbox", 8, 12},  {"musicbox", 12, 16},
                          {"piano", 16, 20},    {"piano", 20, 24},    {"reed", 24, 28},
                          {"reed", 28, 32},     {"musicbox", 41, 46}, {"reed", 75, 79},
                          {"cello", 81, 85},    {"solo", 97, 99},     {"solo", 99, 105},
                          {"musicbox", 87, 91}, {"piano", 182, 185},  {"piano", 185, 189},
                          {"violin", 189, 193}, {"violin", 193, 197}, {"musicbox", 201, 205}};
    for (const Solo& solo : solos) {
        double most = 0, first = 0;
        for (const double late : AgainstTheMetronome(score, solo.part, solo.first, solo.end))
            most = std::max(most, std::fabs(late));
        first = AgainstTheMetronome(score, solo.part, solo.first, solo.end).front();
        EXPECT_GE(most, 30 - 4) << solo.part << " from bar " << solo.first << ", less what the hand strays";
        EXPECT_LE(most, 80 + 10) << solo.part << " from bar " << solo.first;
        if (solo.first != 41) { // goes on from a late beat
            EXPECT_NEAR(0, first, 10) << solo.part << " begins bar " << solo.first << " on time";
        }
    }
}

TEST(ThePerformance, BroadensTheLastBeatOfACadence)
{
    const Score score = NightScore();
    // Where a part plays on the third beat of the last bar and on the first of the next.
    const std::pair<const char*, int> cadences[] = {{"musicbox", 11}, {"bass", 31},     {"bass", 47},
                                                    {"bass", 84},     {"bass", 112},    {"piano", 184},
                                                    {"bass", 199},    {"musicbox", 204}};
    for (const auto& [part, bar] : cadences) {
        const double third = AgainstTheMetronome(score, part, bar, bar + 1).back();
        const double next = AgainstTheMetronome(score, part, bar + 1, bar + 2).front();
        // 600 ms and at least 8 more; what the two notes may stray would hide less.
        EXPECT_GT(next - third, 8) << part << " into bar " << bar + 1;
        EXPECT_LT(next - third, 70) << part << " into bar " << bar + 1;
    }
}

TEST(TheRubato, GoesInAStraightLineFromBeatToBeatAndIsNothingWhereNothingIsSet)
{
    Rubato rubato;
    EXPECT_EQ(0, rubato.LateAt(5));
    rubato.SetLate(2, 0.06);
    rubato.SetLate(3, -0.03);
    EXPECT_NEAR(0.06, rubato.LateAt(2), 1e-9);
    EXPECT_NEAR(0.015, rubato.LateAt(2.5), 1e-9);
    EXPECT_NEAR(0.03, rubato.LateAt(1.5), 1e-9);
    EXPECT_NEAR(-0.015, rubato.LateAt(3.5), 1e-9);
    EXPECT_EQ(0, rubato.LateAt(4));
    EXPECT_EQ(0, rubato.LateAt(400));
    EXPECT_EQ(0, rubato.LateAt(0.5));
    EXPECT_EQ(0, rubato.LateAt(-2));
    rubato.SetLate(-1, 1); // before the night there is nothing to bend
    EXPECT_EQ(0, rubato.LateAt(0));
}

TEST(TheRubato, MovesNotesAndStretchesThem)
{
    Voice voice;
    voice.part = "musicbox";
    voice.dynamics.Mark(0, 0.5f);
    Tone tone;
    tone.pitch = 81;
    for (const double beat : {0.0, 1.0, 2.0}) {
        tone.beat = beat;
        tone.length = 1;
        voice.tones.push_back(tone);
    }
    Rubato rubato;
    rubato.SetLate(1, 0.090);
    const std::vector<Phrase> phrases = Perform(voice, Orchestra()[0], rubato);
    ASSERT_EQ(3u, phrases.size());
    EXPECT_NEAR(0.000, double(phrases[0][0].start) / sampleRate, 0.012);
    EXPECT_NEAR(0.690, double(phrases[1][0].start) / sampleRate, 0.012);
    EXPECT_NEAR(1.200, double(phrases[2][0].start) / sampleRate, 0.012);
    EXPECT_NEAR(0.690, double(phrases[0][0].length) / sampleRate, 1e-3);
    EXPECT_NEAR(0.510, double(phrases[1][0].length) / sampleRate, 1e-3);
    EXPECT_NEAR(0.600, double(phrases[2][0].length) / sampleRate, 1e-3);
}

TEST(ThePerformance, SwingsTheSecondBeatEarlyAndTheThirdLighter)
{
    const Score score = NightScore();
    const int hand = FindPart("hand");
    double late[3] = {}, strength[3] = {};
    int count[3] = {};
    for (const Phrase& phrase :
         Perform(score.voices[size_t(hand)], Orchestra()[size_t(hand)], score.rubato)) {
        double place = 0;
        const double by = LateBy(phrase[0], place);
        const double inBar = std::fmod(place, 3);
        // The village's waltz at one loudness and one pace throughout, the lowest note of each chord.
        if (place < 105 * 3 || place >= 111 * 3 || inBar != std::floor(inBar) || phrase[0].line > 1)
            continue;
        late[int(inBar)] += by;
        strength[int(inBar)] += double(phrase[0].strength);
        ++count[int(inBar)];
    }
    for (int beat = 0; beat < 3; beat++) {
        ASSERT_EQ(6, count[beat]);
        late[beat] /= 6;
        strength[beat] /= 6;
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
        const std::vector<Phrase> once = Perform(score.voices[i], Orchestra()[i], score.rubato);
        const std::vector<Phrase> again = Perform(score.voices[i], Orchestra()[i], score.rubato);
        ASSERT_EQ(once.size(), again.size());
        for (size_t k = 0; k < once.size(); k++) {
            EXPECT_EQ(once[k][0].start, again[k][0].start);
            EXPECT_EQ(once[k][0].strength, again[k][0].strength);
            EXPECT_EQ(once[k][0].seed, again[k][0].seed);
        }
    }
}
