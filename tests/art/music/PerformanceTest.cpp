// SPDX-License-Identifier: MIT
// How a score is played: the swing of the waltz, how far a hand errs, and what each instrument makes of a
// note.
#include "art/music/Performance.h"

#include "art/music/Filters.h"
#include "art/music/Listening.h"
#include "art/music/Mix.h"
#include "art/music/Pitch.h"
#include "art/music/ScoreReader.h"
#include "art/music/instruments/Struck.h"
#include "art/music/instruments/Sustained.h"
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
