// SPDX-License-Identifier: MIT
// The notation of the score: every sign of art/music/score/README.md, and what is told about mistakes.
#include "art/music/ScoreReader.h"

#include "art/music/Orchestra.h"
#include "art/music/Pitch.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace waltz;

// Four bars of D minor, and what follows.
static bool Read(const std::string& parts, Score& score, std::string& error)
{
    ScoreReader reader;
    const bool read =
        reader.ReadText("a.txt", "section a 0 4\nharmony\n 0: Dm | Gm | A7sus4:1 A7:2 | Dm\n" + parts) &&
        reader.Finish();
    score = reader.Result();
    error = reader.Error();
    return read;
}

static std::vector<Tone> Tones(const std::string& part, const std::string& text)
{
    Score score;
    std::string error;
    EXPECT_TRUE(Read(text, score, error)) << error;
    return score.Find(part)->tones;
}

static std::string ErrorOf(const std::string& text)
{
    Score score;
    std::string error;
    EXPECT_FALSE(Read(text, score, error));
    return error;
}

TEST(Pitches, HaveTheNumbersAndFrequenciesOfTheKeyboard)
{
    const std::pair<const char*, int> pitches[] = {{"C4", 60}, {"A4", 69},  {"Bb3", 58}, {"C#5", 73},
                                                   {"A0", 21}, {"Cb4", 59}, {"B#3", 60}, {"F#2", 42}};
    for (const auto& [name, number] : pitches) {
        size_t at = 0;
        EXPECT_EQ(number, ReadPitch(name, at)) << name;
        EXPECT_EQ(std::string(name).size(), at);
    }
    for (const char* name : {"", "H4", "a4", "C", "C9", "4"}) {
        size_t at = 0;
        EXPECT_EQ(-1, ReadPitch(name, at)) << name;
        EXPECT_EQ(0u, at);
    }
    EXPECT_DOUBLE_EQ(440, Frequency(69));
    EXPECT_DOUBLE_EQ(220, Frequency(57));
    EXPECT_NEAR(261.6256, Frequency(60), 1e-3);
    EXPECT_EQ("Bb3", PitchName(58));
    EXPECT_EQ("C#5", PitchName(73));
}

TEST(Chords, AreReadByTheirSymbols)
{
    Chord chord;
    ASSERT_TRUE(ReadChord("Dm", chord));
    EXPECT_EQ((std::vector<int>{2, 5, 9}), chord.tones);
    EXPECT_EQ(2, chord.bass);
    ASSERT_TRUE(ReadChord("Eb/G", chord));
    EXPECT_EQ((std::vector<int>{3, 7, 10}), chord.tones);
    EXPECT_EQ(7, chord.bass);
    ASSERT_TRUE(ReadChord("A7b9", chord));
    EXPECT_EQ((std::vector<int>{9, 1, 4, 7, 10}), chord.tones);
    EXPECT_TRUE(chord.Has(70));
    EXPECT_FALSE(chord.Has(71));
    for (const char* name : {"", "H", "Dx", "D/", "D/x", "dm"})
        EXPECT_FALSE(ReadChord(name, chord)) << name;
}

TEST(Notation, ANoteHasABeatOfItsOwnUnlessItsLengthIsWritten)
{
    const std::vector<Tone> tones = Tones("reed", "reed\n 0: p A4 F5:2 | r:1.5 D5:.5 Bb4\n");
    ASSERT_EQ(4u, tones.size());
    const double beats[] = {0, 1, 4.5, 5}, lengths[] = {1, 2, 0.5, 1};
    const int pitches[] = {69, 77, 74, 70};
    for (size_t i = 0; i < 4; i++) {
        EXPECT_DOUBLE_EQ(beats[i], tones[i].beat);
        EXPECT_DOUBLE_EQ(lengths[i], tones[i].length);
        EXPECT_EQ(pitches[i], tones[i].pitch);
    }
}

TEST(Notation, SignsOfTouchChordsAndStrokes)
{
    std::vector<Tone> tones = Tones("piano", "piano\n 1: p D4' E4^ F4,\n");
    ASSERT_EQ(3u, tones.size());
    EXPECT_TRUE(tones[0].staccato && !tones[0].accent && !tones[0].lifted);
    EXPECT_TRUE(tones[1].accent && !tones[1].staccato);
    EXPECT_TRUE(tones[2].lifted);
    EXPECT_DOUBLE_EQ(3, tones[0].beat) << "bar 1 begins at beat 3";

    tones = Tones("piano", "piano\n 0: p [D2,A2]:3\n");
    ASSERT_EQ(2u, tones.size());
    EXPECT_EQ(38, tones[0].pitch);
    EXPECT_EQ(0, tones[0].line);
    EXPECT_EQ(45, tones[1].pitch);
    EXPECT_EQ(1, tones[1].line);

    tones = Tones("drum", "drum\n 0: p x r s\n");
    ASSERT_EQ(2u, tones.size());
    EXPECT_EQ(stroke, tones[0].pitch);
    EXPECT_EQ(swish, tones[1].pitch);
}

TEST(Notation, TiesAndLongNotesRunOverBarLines)
{
    std::vector<Tone> tones = Tones("reed", "reed\n 0: p D5:3~ | D5:2 r\n");
    ASSERT_EQ(1u, tones.size());
    EXPECT_DOUBLE_EQ(5, tones[0].length);
    tones = Tones("wind", "wind\n 0: p D4:12\n");
    ASSERT_EQ(1u, tones.size());
    EXPECT_DOUBLE_EQ(12, tones[0].length);
}

TEST(Notation, CommentsAndEmptyLinesAreNothing)
{
    EXPECT_EQ(1u, Tones("reed", "\n-- a word\nreed -- the long tune\n\n 0: p D5:3 -- alone\n").size());
}

TEST(Dynamics, StepAtMarksAndSlopeAtHairpins)
{
    Score score;
    std::string error;
    ASSERT_TRUE(Read("reed\n 0: p < D5:3 | f D5:3 | > D5:3 | n D5:3\n", score, error)) << error;
    const Dynamics& dynamics = score.Find("reed")->dynamics;
    EXPECT_FLOAT_EQ(0.39f, dynamics.LevelAt(0));
    EXPECT_NEAR((0.39 + 0.79) / 2, dynamics.LevelAt(1.5), 1e-5);
    EXPECT_FLOAT_EQ(0.79f, dynamics.LevelAt(3));
    EXPECT_FLOAT_EQ(0.79f, dynamics.LevelAt(5));
    EXPECT_NEAR(0.79 / 3, dynamics.LevelAt(8), 1e-5);
    EXPECT_FLOAT_EQ(0, dynamics.LevelAt(9));
    EXPECT_FLOAT_EQ(0.39f, dynamics.LevelAt(-1)) << "ahead of the first mark";
    EXPECT_FLOAT_EQ(0, Dynamics().LevelAt(0));
    const std::pair<const char*, float> marks[] = {{"pppp", 0.12f}, {"ppp", 0.19f}, {"pp", 0.28f},
                                                   {"p", 0.39f},    {"mp", 0.51f},  {"mf", 0.64f},
                                                   {"f", 0.79f},    {"ff", 0.92f},  {"fff", 1.0f}};
    for (const auto& [name, level] : marks) {
        ASSERT_TRUE(Read(std::string("reed\n 0: ") + name + " D5:3\n", score, error)) << error;
        EXPECT_FLOAT_EQ(level, score.Find("reed")->dynamics.LevelAt(0)) << name;
    }
}

TEST(Patterns, WaltzIsBassOnOneAndChordsOnTwoAndThree)
{
    const std::vector<Tone> tones = Tones("hand", "hand\n 0: p waltz*2\n");
    ASSERT_EQ(14u, tones.size());
    for (int bar = 0; bar < 2; bar++) {
        const Tone* const bars = &tones[size_t(bar) * 7];
        EXPECT_DOUBLE_EQ(bar * 3, bars[0].beat);
        EXPECT_EQ(bar == 0 ? 2 : 7, bars[0].pitch % 12) << "the chord's own bass";
        for (int i = 1; i < 7; i++) {
            EXPECT_DOUBLE_EQ(bar * 3 + (i < 4 ? 1 : 2), bars[i].beat);
            EXPECT_TRUE(bars[i].staccato && bars[i].accompany);
        }
    }
}

TEST(Patterns, EachHasItsStrikes)
{
    const std::pair<const char*, std::vector<double>> patterns[] = {
        {"two", {0, 1, 1, 1}},
        {"one", {0, 0, 0, 0}},
        {"after", {1, 1, 1, 2, 2, 2}},
        {"arp", {0, 0.5, 1, 1.5, 2, 2.5}},
        {"pulse", {0, .5, .5, .5, 1, 1, 1, 1.5, 1.5, 1.5, 2, 2, 2, 2.5, 2.5, 2.5}},
    };
    for (const auto& [name, beats] : patterns) {
        const std::vector<Tone> tones = Tones("hand", std::string("hand\n 0: p ") + name + "\n");
        std::vector<double> found;
        for (const Tone& tone : tones)
            found.push_back(tone.beat);
        EXPECT_EQ(beats, found) << name;
    }
}

TEST(Patterns, PadHoldsWhatStaysAndTremRepeatsIt)
{
    // Dm and Gm have D in common: one of the three lines has a long note.
    std::vector<Tone> tones = Tones("pad", "pad\n 0: p pad*2\n");
    EXPECT_EQ(5u, tones.size());
    int held = 0;
    for (const Tone& tone : tones)
        held += tone.length > 3 && tone.pitch % 12 == 2 ? 1 : 0;
    EXPECT_EQ(1, held);
    tones = Tones("pad", "pad\n 0: p trem\n");
    ASSERT_EQ(18u, tones.size());
    EXPECT_DOUBLE_EQ(0.5, tones[0].length);
}

TEST(Patterns, FollowAHarmonyThatChangesWithinTheBar)
{
    const std::vector<Tone> tones = Tones("hand", "hand\n 2: p waltz\n"); // A7sus4 on one, A7 behind it
    ASSERT_EQ(7u, tones.size());
    EXPECT_DOUBLE_EQ(3, tones[0].length) << "the bass stays, and is held through";
    bool third = false;
    for (size_t i = 1; i < 7; i++)
        third = third || tones[i].pitch % 12 == 1;
    EXPECT_TRUE(third) << "C sharp comes with A7";
}

TEST(Notation, RubatoIsHowLateEachBeatComesInMilliseconds)
{
    Score score;
    std::string error;
    ASSERT_TRUE(Read("rubato\n 1: 0 25 -40 | 12.5 0 0\n", score, error)) << error;
    EXPECT_DOUBLE_EQ(0, score.rubato.LateAt(3));
    EXPECT_DOUBLE_EQ(0.025, score.rubato.LateAt(4));
    EXPECT_DOUBLE_EQ(-0.040, score.rubato.LateAt(5));
    EXPECT_DOUBLE_EQ(0.0125, score.rubato.LateAt(6));
    EXPECT_DOUBLE_EQ(0, score.rubato.LateAt(2));
    EXPECT_DOUBLE_EQ(0, score.rubato.LateAt(7));
}

TEST(Notation, MistakesAreToldWithFileAndLine)
{
    const std::pair<const char*, const char*> mistakes[] = {
        {"reed\n 0: p A4 F5\n", "a.txt:5: bar 0 has not three beats"},
        {"reed\n 0: p A4 F5:2 | H4:3\n", "a.txt:5: neither note nor mark: H4:3"},
        {"reed\n 0: A4:3\n", "a.txt:5: reed has no dynamics yet"},
        {"reed\n 0: p C2:3\n", "a.txt:5: reed does not reach C2"},
        {"reed\n 4: p A4:3\n", "a.txt:5: bar 4 is not in this section"},
        {"reed\n 1: p A4:3\n 0: A4:3\n", "a.txt:6: bar 0 is written already"},
        {"kazoo\n 0: p A4:3\n", "a.txt:4: no part is called kazoo"},
        {"reed\n 3: p A4:3 | A4:3\n", "a.txt:5: runs over the section's end"},
        {"reed\n 0: p A4:0 r:3\n", "a.txt:5: no length: A4:0"},
        {"reed\n 0: p A4:1x r:2\n", "a.txt:5: what is 'x' in A4:1x"},
        {"reed\n 0: p [A4 r:3\n", "a.txt:5: no chord of notes: [A4"},
        {"drum\n 0: p A4:3\n", "a.txt:5: neither note nor mark: A4:3"},
        {"hand\n 0: p waltz*0\n", "a.txt:5: how many bars? waltz*0"},
        {"hand\n 0: waltz\n", "a.txt:5: hand has no dynamics yet"},
        {"hand\n 0: p D3 waltz\n", "a.txt:5: a pattern has a bar of its own: waltz"},
        {"what is this\n", "a.txt:4: neither a part's name nor bars: what is this"},
        {"section b 4 8\n", "a.txt:4: one section a file"},
        {"rubato\n 1: 0 20\n", "a.txt:5: bar 1 of the rubato has not three beats"},
        {"rubato\n 1: 0 20 x\n", "a.txt:5: no milliseconds up to 150: x"},
        {"rubato\n 1: 0 20 151\n", "a.txt:5: no milliseconds up to 150: 151"},
        {"rubato\n 1: 0 20 -151\n", "a.txt:5: no milliseconds up to 150: -151"},
        {"rubato\n 1: 0 2 nan\n", "a.txt:5: no milliseconds up to 150: nan"},
        {"rubato\n 1: 0 20 0\n 1: 0 0 0\n", "a.txt:6: bar 1 of the rubato is written already"},
        {"rubato\n 3: 0 20 0 | 0 0 0\n", "a.txt:5: rubato runs over the section's end"},
    };
    for (const auto& [text, error] : mistakes)
        EXPECT_EQ(error, ErrorOf(text)) << text;
}

TEST(Notation, SectionsFollowEachOtherAndHarmonyHasEveryBar)
{
    ScoreReader early;
    EXPECT_FALSE(early.ReadText("b.txt", "reed\n"));
    EXPECT_EQ("b.txt:1: the section comes first", early.Error());
    ScoreReader gap;
    EXPECT_FALSE(gap.ReadText("b.txt", "section b 1 4\n"));
    EXPECT_EQ("b.txt:1: the section has to begin at bar 0", gap.Error());
    ScoreReader late;
    EXPECT_FALSE(late.ReadText("b.txt", "section b 0 4\nharmony\n 1: Dm\n"));
    EXPECT_EQ("b.txt:3: harmony goes on at bar 0", late.Error());
    ScoreReader chord;
    EXPECT_FALSE(chord.ReadText("b.txt", "section b 0 4\nharmony\n 0: Hm\n"));
    EXPECT_EQ("b.txt:3: no chord: Hm", chord.Error());
    ScoreReader bare;
    ASSERT_TRUE(bare.ReadText("b.txt", "section b 0 4\nhand\n 2: p waltz\n"));
    EXPECT_FALSE(bare.Finish());
    EXPECT_EQ("b.txt:3: no harmony in bar 2", bare.Error());
    Score score;
    std::string error;
    EXPECT_FALSE(ReadScore("/no/such/folder", score, error));
    EXPECT_EQ("cannot read /no/such/folder/0-dusk.txt", error);
}
