// SPDX-License-Identifier: MIT
// What Data/moonwaltz.ogg sounds like, and that the composer wrote it. Every test runs in a process of its
// own and decoding takes seconds, so what needs the whole file stands in as few tests as can be.
#include "art/music/Listening.h"
#include "art/music/Loudness.h"
#include "art/music/Master.h"
#include "art/music/Mix.h"
#include "art/music/Rendition.h"
#include "art/music/ScoreReader.h"
#include "art/music/SoundFile.h"
#include "art/music/Spectrum.h"
#include "art/music/Verify.h"
#include "tests/Folders.h"
#include "tests/support/NightScript.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

using namespace waltz;

static const char* const musicFile = SOURCE_DIR "/Data/moonwaltz.ogg";

static Score NightScore()
{
    Score score;
    std::string error;
    EXPECT_TRUE(ReadScore(SOURCE_DIR "/art/music/score", score, error)) << error;
    return score;
}

static int64_t Bar(double bar)
{
    return int64_t(bar * samplesPerBar);
}

// The highest sample of a range, dBFS.
static double PeakIn(const Stereo& sound, int64_t from, int64_t end)
{
    float peak = 0;
    for (int64_t i = from; i < end; i++)
        peak = std::max({peak, std::fabs(sound.left[size_t(i)]), std::fabs(sound.right[size_t(i)])});
    return ToDecibel(double(peak));
}

static double PowerIn(const Stereo& sound, int64_t from, int64_t end)
{
    double sum = 0;
    for (int64_t i = from; i < end; i++)
        sum += double(sound.left[size_t(i)]) * double(sound.left[size_t(i)]) +
               double(sound.right[size_t(i)]) * double(sound.right[size_t(i)]);
    return 10 * std::log10(sum / double(2 * (end - from)) + 1e-20);
}

static void CheckLevels(const Stereo& sound)
{
    EXPECT_LT(PeakIn(sound, 0, sound.Size()), -1) << "peak";
    for (const Samples* side : {&sound.left, &sound.right}) {
        const Samples peaks = TruePeaks(*side);
        EXPECT_LT(ToDecibel(double(*std::max_element(peaks.begin(), peaks.end()))), -1) << "between samples";
        double sum = 0;
        for (const float x : *side)
            sum += double(x);
        EXPECT_LT(std::fabs(sum / double(side->size())), 1e-4) << "offset";
        EXPECT_TRUE(FindClicks(*side).empty());
    }
    EXPECT_LT(SilenceAtStart(sound), 0.05);
    EXPECT_LT(SilenceAtEnd(sound), 0.05);
}

// The arc: dusk is the quietest, the village dances, the painting holds its breath, and so on. Half a dB is
// what one may change a section by without hearing it.
static void CheckArc(const Score& score, const Stereo& sound)
{
    EXPECT_NEAR(-16, IntegratedLoudness(sound, 0, sound.Size()), 0.5);
    const double sections[] = {-22.2, -16.5, -16.7, -21.1, -13.1, -14.1, -18.5, -12.7, -19.2};
    ASSERT_EQ(std::size(sections), score.sections.size());
    for (size_t i = 0; i < score.sections.size(); i++) {
        const Section& section = score.sections[i];
        EXPECT_NEAR(sections[i], IntegratedLoudness(sound, Bar(section.firstBar), Bar(section.endBar)), 0.5)
            << section.name;
    }
    // The dance holds back for the step that it takes at bar 129.
    const double before = IntegratedLoudness(sound, Bar(121), Bar(129));
    const double behind = IntegratedLoudness(sound, Bar(129), Bar(133));
    EXPECT_GE(behind - before, 3);
    EXPECT_LE(behind - before, 6) << "it danced before, too";
    // The loudest three seconds are the last bars before the village breaks off.
    EXPECT_NEAR(LoudestShortTerm(sound, 0, Bar(207)), LoudestShortTerm(sound, Bar(132), Bar(136)), 1e-9);
}

static void CheckSilences(const Stereo& sound)
{
    // Each falls at least 15 dB under the chord ahead of it, and stays there.
    const double breaks[][3] = {{136, 136.5, 137}, {177, 177.6, 178}, {179, 179.6, 180}};
    for (const auto& [chord, from, end] : breaks)
        EXPECT_LT(PowerIn(sound, Bar(from), Bar(end)), PowerIn(sound, Bar(chord), Bar(chord + 0.33)) - 12)
            << "behind bar " << chord;
    EXPECT_LT(PowerIn(sound, Bar(96.4), Bar(97)), PowerIn(sound, Bar(93), Bar(94)) - 10)
        << "ahead of the painting";
    EXPECT_LT(PowerIn(sound, Bar(206), Bar(207)), -26) << "the end is quiet";
    EXPECT_GT(PowerIn(sound, Bar(206), Bar(207)), -50) << "and still there";
}

// Where something is struck on one, it is heard on one.
static void CheckDownbeats(const Score& score, const Stereo& sound)
{
    int clear = 0;
    for (int bar = 0; bar < 207; bar++) {
        const Attack attack = FindAttack(sound, Bar(bar));
        if (attack.strength >= 5) {
            EXPECT_NEAR(score.rubato.LateAt(bar * 3), attack.late, 0.02)
                << "bar " << bar << ", " << attack.strength << " dB";
            clear++;
        }
    }
    EXPECT_GE(clear, 120) << "bars of 207 have a clear downbeat";
    // Half a beat beside the bar lines there are few such attacks: the test above would fail with a wrong
    // tempo.
    int beside = 0;
    for (int bar = 0; bar < 207; bar++) {
        const Attack attack = FindAttack(sound, Bar(bar) + samplesPerBeat / 4);
        beside += attack.strength >= 5 && std::fabs(attack.late) < 0.02;
    }
    EXPECT_LT(beside, 10);
}

static void CheckEnding(const Stereo& sound)
{
    // D and A, and the box's A above: neither F nor F sharp tells whether all is well.
    Samples mono(samplesPerBar);
    for (size_t i = 0; i < mono.size(); i++)
        mono[i] = sound.left[size_t(Bar(206)) + i] + sound.right[size_t(Bar(206)) + i];
    const std::array<double, 12> chroma = Chroma(mono, 0, samplesPerBar);
    EXPECT_GT(chroma[9] + chroma[2], 0.45);
    EXPECT_LT(chroma[5] + chroma[6], 0.15);
    // It closes by itself: from half bar to half bar it dies away, and what the last moment cuts off is faint.
    double last = 0;
    for (const double bar : {205.0, 205.5, 206.0, 206.5}) {
        const double power = PowerIn(sound, Bar(bar), Bar(bar + 0.5));
        EXPECT_LT(power, last - 2) << "bar " << bar;
        last = power;
    }
    EXPECT_LT(PowerIn(sound, Bar(207) - sampleRate / 5, Bar(207) - sampleRate / 20), -50);
}

// Two windows in which, between them, nearly everybody plays: played again they are what the file has.
static void CheckWindows(const Score& score, const Stereo& sound)
{
    const int windows[][2] = {{133, 134}, {150, 151}};
    for (const auto& [from, end] : windows) {
        const Resemblance found = Verify(score, sound, from, end);
        EXPECT_TRUE(found.sameLength);
        EXPECT_GE(found.worst, nearness) << "bar " << double(found.worstAt) / samplesPerBar;
    }
}

TEST(TheNightsMusic, HasItsLevelsItsArcItsSilencesAndItsBeat)
{
    Stereo sound;
    ASSERT_TRUE(ReadSound(musicFile, sound));
    const Score score = NightScore();
    ASSERT_EQ(int64_t(NightScript().end) * sampleRate / 1000, sound.Size()) << "as long as the timeline";
    ASSERT_EQ(Bar(score.Bars()), sound.Size()) << "and as the score";
    CheckLevels(sound);
    CheckArc(score, sound);
    CheckSilences(sound);
    CheckDownbeats(score, sound);
    CheckEnding(sound);
}

TEST(TheNightsMusic, IsWhatTheScorePlays)
{
    Stereo sound;
    ASSERT_TRUE(ReadSound(musicFile, sound));
    CheckWindows(NightScore(), sound);
}

TEST(TheNightsMusic, WasWrittenSinceTheScoreWasChangedLast)
{
    const Rendition now = {ScoreDigest(NightScore()), FileDigest(musicFile)};
    Rendition written;
    ASSERT_TRUE(ReadRendition(SOURCE_DIR "/art/music/score/rendition.txt", written));
    EXPECT_EQ(written.score, now.score) << "the score was changed: run composer";
    EXPECT_EQ(written.sound, now.sound) << "the file is not the one that composer wrote: run composer";
}

TEST(TheNightsMusic, ADigestNoticesEveryChangeOfTheScore)
{
    const Score score = NightScore();
    const std::string digest = ScoreDigest(score);
    EXPECT_EQ(16u, digest.size());
    const auto changed = [&](auto&& change) {
        Score other = score;
        change(other);
        return ScoreDigest(other) != digest;
    };
    EXPECT_FALSE(changed([](Score&) {}));
    EXPECT_TRUE(changed([](Score& s) { s.voices[0].tones[3].pitch++; }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[5].tones[3].beat += 0.25; }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[5].tones[3].length += 0.25; }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[5].tones[3].lifted ^= true; }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[3].tones[0].line++; }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[8].tones.pop_back(); }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[8].dynamics.Mark(620, 1); }));
    EXPECT_TRUE(changed([](Score& s) { s.voices[8].dynamics.Hairpin(619); }));
    EXPECT_TRUE(changed([](Score& s) { s.sections.back().endBar++; }));
    EXPECT_TRUE(changed([](Score& s) { s.rubato.SetLate(100, 0.001); }));
}

TEST(TheComposer, PlaysTheSameSamplesEveryTimeAndInAnyWindow)
{
    const Score score = NightScore();
    Stereo once, again, longer;
    ASSERT_TRUE(RenderMix(score, Bar(8), Bar(9), "", once));
    ASSERT_TRUE(RenderMix(score, Bar(8), Bar(9), "", again));
    EXPECT_EQ(once.left, again.left);
    EXPECT_EQ(once.right, again.right);
    EXPECT_EQ(Bar(8), once.origin);
    ASSERT_TRUE(RenderMix(score, Bar(7), Bar(9), "", longer));
    EXPECT_GT(Compare(once, longer.origin == 0 ? longer : [&] {
                  Stereo night(0, Bar(9));
                  night.Add(longer, 1);
                  return night;
              }()).worst,
              50);
}

TEST(TheMaster, KeepsPeaksUnderItsCeilingAndLeavesTheRestAlone)
{
    Stereo loud(0, 2 * sampleRate), soft(0, 2 * sampleRate);
    for (int64_t i = 0; i < loud.Size(); i++) {
        const float wave = SineOfTurns(500.0 * double(i) / sampleRate);
        loud.left[size_t(i)] = loud.right[size_t(i)] = (i > sampleRate ? 3.0f : 0.2f) * wave;
        soft.left[size_t(i)] = soft.right[size_t(i)] = 0.2f * wave;
    }
    const int64_t farEnd = 100 * sampleRate;
    Master(loud, farEnd);
    Master(soft, farEnd);
    EXPECT_LE(PeakIn(loud, 0, loud.Size()), double(ceilingDecibel) + 0.01);
    // 0.2 and the gain of 3.5 dB, neither limited nor faded in the middle of the night.
    EXPECT_NEAR(ToDecibel(0.2) + 3.5, PeakIn(soft, sampleRate / 2, sampleRate), 0.05);
    for (int64_t i = sampleRate / 10; i < sampleRate / 2; i++)
        ASSERT_EQ(soft.left[size_t(i)], loud.left[size_t(i)]) << "the limiter works ahead of its peak only";
}

TEST(TheMaster, FadesTheNightsTwoEndsToNothing)
{
    Stereo mix(0, 3 * sampleRate);
    for (int64_t i = 0; i < mix.Size(); i++)
        mix.left[size_t(i)] = mix.right[size_t(i)] = 0.3f * SineOfTurns(500.0 * double(i) / sampleRate);
    Master(mix, mix.Size());
    EXPECT_EQ(0, mix.left.front());
    EXPECT_EQ(0, mix.left.back());
    EXPECT_GT(PeakIn(mix, 200, 400), -20) << "4 ms";
    EXPECT_GT(PeakIn(mix, mix.Size() - sampleRate / 50, mix.Size()), -30) << "heard up to the last moments";
    // 0.3 and the gain of 3.5 dB: a twentieth of a second ahead of the end nothing has been taken yet.
    EXPECT_NEAR(ToDecibel(0.3) + 3.5, PeakIn(mix, mix.Size() - sampleRate / 10, mix.Size() - sampleRate / 20),
                0.1);
}
