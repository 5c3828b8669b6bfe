// SPDX-License-Identifier: MIT
// The measures by which the music is judged, held against sounds whose figures are known.
#include "art/music/Listening.h"

#include "art/music/Loudness.h"
#include "art/music/Spectrum.h"
#include "art/music/Verify.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace waltz;

static Samples Sine(double hz, double amplitude, double seconds, double phase = 0)
{
    Samples sound(size_t(seconds * sampleRate));
    for (size_t i = 0; i < sound.size(); i++)
        sound[i] = float(amplitude * std::sin(2 * pi * (hz * double(i) / sampleRate + phase)));
    return sound;
}

static Stereo OnBothSides(const Samples& sound)
{
    Stereo both(0, int64_t(sound.size()));
    both.left = both.right = sound;
    return both;
}

static double AtLevel(double decibel)
{
    return std::pow(10, decibel / 20);
}

static double Integrated(const Stereo& sound)
{
    return IntegratedLoudness(sound, 0, sound.Size());
}

TEST(LoudnessMeter, GivesASineOf1000HzAtMinus23OnBothSidesMinus23)
{
    // The first of the meter's own test signals.
    const Stereo sound = OnBothSides(Sine(1000, AtLevel(-23), 20));
    EXPECT_NEAR(-23, Integrated(sound), 0.1);
    EXPECT_NEAR(-23, LoudestShortTerm(sound, 0, sound.Size()), 0.1);
}

TEST(LoudnessMeter, LeavesQuietStretchesOutOfTheMean)
{
    Samples sound = Sine(1000, AtLevel(-36), 10);
    for (const double decibel : {-23.0, -36.0}) {
        const Samples more = Sine(1000, AtLevel(decibel), decibel > -30 ? 60 : 10);
        sound.insert(sound.end(), more.begin(), more.end());
    }
    EXPECT_NEAR(-23, Integrated(OnBothSides(sound)), 0.1);
}

TEST(LoudnessMeter, HearsBassLessAndTrebleMore)
{
    const double middle = Integrated(OnBothSides(Sine(1000, 0.1, 4)));
    EXPECT_NEAR(-0.9, Integrated(OnBothSides(Sine(100, 0.1, 4))) - middle, 1.0);
    EXPECT_NEAR(3.3, Integrated(OnBothSides(Sine(8000, 0.1, 4))) - middle, 0.4);
    EXPECT_EQ(-200, Integrated(OnBothSides(Samples(4 * sampleRate))));
}

TEST(TruePeak, LiesBetweenTheSamples)
{
    // A quarter of the sample rate, sampled half-way up: no sample comes over 0.707 of the wave.
    const Samples sound = Sine(sampleRate / 4.0, 0.5, 0.1, 0.125);
    const Samples peaks = TruePeaks(sound);
    EXPECT_NEAR(0.3536, *std::max_element(sound.begin(), sound.end()), 1e-3);
    EXPECT_NEAR(0.5, *std::max_element(peaks.begin() + 100, peaks.end() - 100), 0.02);
}

TEST(Measures, TellLevelOffsetAndWidth)
{
    Stereo sound = OnBothSides(Sine(500, 0.5, 2));
    Figures figures = Measure(sound, 0, sound.Size());
    EXPECT_NEAR(-6.02, figures.peak, 0.05);
    EXPECT_NEAR(0, figures.offset, 1e-6);
    EXPECT_NEAR(1, figures.likeness, 1e-6);
    EXPECT_NEAR(0, figures.monoLoss, 1e-6);
    EXPECT_NEAR(0, figures.mid, 0.1);
    EXPECT_LT(figures.low, -40);
    EXPECT_LT(figures.high, -40);
    for (float& x : sound.right)
        x = 0.01f - x;
    figures = Measure(sound, 0, sound.Size());
    EXPECT_NEAR(0.01, figures.offset, 1e-5);
    EXPECT_NEAR(-1, figures.likeness, 0.01);
    EXPECT_GT(figures.monoLoss, 30);
}

TEST(Silence, IsWhatLiesBelowMinus60AtTheEnds)
{
    Stereo sound(0, sampleRate);
    for (int64_t i = 0; i < sound.Size(); i++)
        sound.left[i] = 0.0009f; // below
    sound.right[sampleRate / 10] = 0.0011f;
    sound.right[sampleRate / 2] = -0.0011f;
    EXPECT_NEAR(0.1, SilenceAtStart(sound), 1e-4);
    EXPECT_NEAR(0.5, SilenceAtEnd(sound), 1e-4);
}

TEST(Clicks, AreFoundInATuneAndNotWhereThereAreNone)
{
    Samples sound = Sine(440, 0.3, 1);
    EXPECT_TRUE(FindClicks(sound).empty());
    sound[20000] += 0.05f; // a sample that fell out of line
    std::vector<int64_t> clicks = FindClicks(sound);
    ASSERT_FALSE(clicks.empty());
    EXPECT_NEAR(20000, double(clicks[0]), 1);
    sound[20000] -= 0.05f;
    for (size_t i = 30000; i < sound.size(); i++) // a cut
        sound[i] = 0;
    clicks = FindClicks(sound);
    ASSERT_FALSE(clicks.empty());
    EXPECT_NEAR(30000, double(clicks[0]), 1);
}

TEST(Attack, IsFoundToTwoMillisecondsAndNotInASteadyTone)
{
    Samples sound = Sine(300, 0.02, 1);
    EXPECT_LT(FindAttack(OnBothSides(sound), sampleRate / 2).strength, 1);
    const Samples struck = Sine(700, 0.3, 0.4);
    for (const int late : {-60, -7, 0, 12, 80}) {
        Samples both = sound;
        const int at = sampleRate / 2 + late * sampleRate / 1000;
        for (size_t i = 0; i < struck.size(); i++)
            both[at + i] += struck[i];
        const Attack found = FindAttack(OnBothSides(both), sampleRate / 2);
        EXPECT_NEAR(late * 0.001, found.late, 0.002);
        EXPECT_GT(found.strength, 3);
    }
}

TEST(Spectrum, HasALineWhereTheToneIs)
{
    const std::vector<double> spectrum = MeanSpectrum(Sine(1000, 0.5, 1), 0, sampleRate, 4096);
    ASSERT_EQ(2049u, spectrum.size());
    const auto line = std::max_element(spectrum.begin(), spectrum.end()) - spectrum.begin();
    EXPECT_NEAR(1000, double(line) * sampleRate / 4096, sampleRate / 4096.0);
}

TEST(Spectrum, TellsPitchClasses)
{
    Samples chord = Sine(440, 0.3, 1);            // A
    const Samples other = Sine(293.665, 0.15, 1); // D
    for (size_t i = 0; i < chord.size(); i++)
        chord[i] += other[i];
    const std::array<double, 12> chroma = Chroma(chord, 0, sampleRate);
    EXPECT_GT(chroma[9], chroma[2]);
    EXPECT_GT(chroma[9] + chroma[2], 0.9);
}

TEST(Resemblance, IsHighForTheSameSoundAndFallsWithAWrongNote)
{
    const Samples tune = Sine(440, 0.2, 2);
    const Stereo file = OnBothSides(tune);
    Stereo rendered(sampleRate / 2, sampleRate); // a window out of it
    for (int64_t i = 0; i < rendered.Size(); i++)
        rendered.left[i] = rendered.right[i] = tune[size_t(rendered.origin + i)];
    EXPECT_GT(Compare(rendered, file).worst, 60);
    for (int64_t i = sampleRate / 4; i < sampleRate / 2; i++)
        rendered.left[i] += 0.1f * SineOfTurns(600.0 * double(i) / sampleRate);
    const Resemblance found = Compare(rendered, file);
    EXPECT_LT(found.worst, nearness);
    EXPECT_NEAR(0.75 * sampleRate, double(found.worstAt), 0.1 * sampleRate);
    EXPECT_TRUE(found.sameLength);
    EXPECT_FALSE(Compare(rendered, Stereo(0, sampleRate)).sameLength) << "the file ends too early";
}
