// SPDX-License-Identifier: MIT
#include "tools/edit/Moments.h"

#include <gtest/gtest.h>

using namespace edit;

static const timeline::Tempo waltz = {100, 3}; // a beat is 600 ms, a bar 1800 ms

// Reads what is typed; -1 with the reason if it is refused.
static double Typed(const std::string& text, std::string* reason = nullptr, timeline::Tempo tempo = waltz)
{
    double seconds = 0;
    std::string why;
    const bool read = ReadMoment(text, tempo, &seconds, &why);
    EXPECT_EQ(read, why.empty()) << why;
    if (reason)
        *reason = why;
    return read ? seconds : -1;
}

TEST(Moments, HaveTheFrameThatBeganLast)
{
    const capture::FrameRate rate = {60, 1};
    EXPECT_EQ(0, FrameAt(0, rate));
    EXPECT_EQ(0, FrameAt(-3, rate));
    EXPECT_EQ(0, FrameAt(0.016, rate));
    EXPECT_EQ(1, FrameAt(0.017, rate));
    EXPECT_EQ(60, FrameAt(1, rate));
    EXPECT_EQ(22350, FrameAt(372.5, rate));
}

TEST(Moments, OfAFrameAreThatFrameWhateverTheRate)
{
    for (const capture::FrameRate rate : {capture::FrameRate{60, 1}, capture::FrameRate{25, 1},
                                          capture::FrameRate{60000, 1001}, capture::FrameRate{1, 3}})
        for (const int64_t frame : {0, 1, 2, 59, 1001, 22355, 5000000})
            EXPECT_EQ(frame, FrameAt(SecondsOf(frame, rate), rate)) << rate.Text();
    EXPECT_DOUBLE_EQ(1.001, SecondsOf(60, {60000, 1001}));
}

TEST(Moments, ShowMinutesSecondsAndMilliseconds)
{
    EXPECT_EQ("0:00.000", ClockFace(0));
    EXPECT_EQ("0:00.000", ClockFace(-1));
    EXPECT_EQ("1:23.450", ClockFace(83.45));
    EXPECT_EQ("1:00.000", ClockFace(59.9996));
    EXPECT_EQ("61:01.001", ClockFace(3661.001));
}

TEST(Moments, ShowTheBarAndItsBeat)
{
    EXPECT_EQ("0:1", BarFace(0, waltz));
    EXPECT_EQ("0:3", BarFace(1.799, waltz));
    EXPECT_EQ("1:1", BarFace(1.8, waltz));
    EXPECT_EQ("46:2", BarFace(46 * 1.8 + 0.6, waltz));
    EXPECT_EQ("2:4", BarFace(5.5, {120, 4}));
}

TEST(Moments, StepToTheNextBeatAndBarBothWays)
{
    EXPECT_DOUBLE_EQ(0.6, NextBeat(0, waltz, 1));
    EXPECT_DOUBLE_EQ(1.2, NextBeat(0.6, waltz, 1));
    EXPECT_DOUBLE_EQ(1.2, NextBeat(0.7, waltz, 1));
    EXPECT_DOUBLE_EQ(0.6, NextBeat(0.7, waltz, -1));
    EXPECT_DOUBLE_EQ(0.6, NextBeat(1.2, waltz, -1));
    EXPECT_DOUBLE_EQ(0, NextBeat(0, waltz, -1));
    EXPECT_DOUBLE_EQ(1.8, NextBar(0, waltz, 1));
    EXPECT_DOUBLE_EQ(3.6, NextBar(1.8, waltz, 1));
    EXPECT_DOUBLE_EQ(1.8, NextBar(3.5, waltz, -1));
    EXPECT_DOUBLE_EQ(0, NextBar(1.8, waltz, -1));
}

// A play head that went from beat to beat has errors of rounding, and must not stay on one.
TEST(Moments, StepOnFromABeatThatIsOneButForRounding)
{
    const timeline::Tempo odd = {97.3, 4};
    double seconds = 0;
    for (int i = 0; i < 1000; i++)
        seconds = NextBeat(seconds, odd, 1);
    EXPECT_NEAR(1000 * 60 / 97.3, seconds, 1e-6);
    for (int i = 0; i < 1000; i++)
        seconds = NextBeat(seconds, odd, -1);
    EXPECT_DOUBLE_EQ(0, seconds);
}

TEST(Moments, AreTypedAsMilliseconds)
{
    EXPECT_DOUBLE_EQ(83.45, Typed("83450"));
    EXPECT_DOUBLE_EQ(0, Typed("0"));
    EXPECT_DOUBLE_EQ(0.007, Typed("  7\t"));
    EXPECT_DOUBLE_EQ(4294967.295, Typed("4294967295"));
}

TEST(Moments, AreTypedAsMinutesAndSeconds)
{
    EXPECT_DOUBLE_EQ(83.45, Typed("1:23.45"));
    EXPECT_DOUBLE_EQ(60, Typed("1:00"));
    EXPECT_DOUBLE_EQ(59.999, Typed("0:59.999"));
    EXPECT_DOUBLE_EQ(7200.5, Typed("120:00.5"));
}

TEST(Moments, AreTypedAsABarAndItsBeat)
{
    EXPECT_DOUBLE_EQ(0, Typed("0:1"));
    EXPECT_DOUBLE_EQ(46 * 1.8 + 0.6, Typed("46:2"));
    EXPECT_DOUBLE_EQ(1.8 + 1.2, Typed("1:3"));
    EXPECT_DOUBLE_EQ(5.5, Typed("2:4", nullptr, {120, 4}));
}

TEST(Moments, ThatMakeNoSenseAreRefusedInWords)
{
    const std::string forms =
        "Type milliseconds (83450), minutes and seconds (1:23.45) or a bar and its beat (46:2).";
    std::string reason;
    for (const char* text : {"", "  ", "now", "-5", "1.5", "1:", ":30", "1:2:3", "1:-2", "0x10", "1e3",
                             "1:30.", "1:.5", "12 34", "nan", "1:in", "+5"}) {
        EXPECT_EQ(-1, Typed(text, &reason)) << text;
        EXPECT_EQ(forms, reason) << text;
    }
    EXPECT_EQ(-1, Typed("46:4", &reason));
    EXPECT_EQ("A bar has the beats 1 to 3.", reason);
    EXPECT_EQ(-1, Typed("46:0", &reason));
    EXPECT_EQ("A bar has the beats 1 to 3.", reason);
    EXPECT_EQ(-1, Typed("1:60", &reason));
    EXPECT_EQ("A minute has 60 seconds.", reason);
    EXPECT_EQ(-1, Typed("1:5.5", &reason));
    EXPECT_EQ("Seconds have two digits: write 1:05.5, not 1:5.5.", reason);
    EXPECT_EQ(-1, Typed("4294967296", &reason));
    EXPECT_EQ("No show is as long as that.", reason);
    EXPECT_EQ(-1, Typed(std::string(400, '9'), &reason));
}
