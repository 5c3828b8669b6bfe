// SPDX-License-Identifier: MIT
#include "tools/flashes/FlashMeter.h"

#include <gtest/gtest.h>

using flashes::FlashMeter;

static const int rate = 60; // frames a second

// A part of the picture that is dark for `half` frames, then bright for as many, and so on.
struct Lamp {
    int columns = FlashMeter::Columns, rows = FlashMeter::Rows; // of the part, from the upper left corner
    float dark = 0.2f, bright = 0.6f;
    int half = 6;
};

static void Play(FlashMeter* meter, const Lamp& lamp, int frames)
{
    for (int frame = 0; frame < frames; frame++) {
        std::vector<float> picture(size_t(FlashMeter::Columns) * FlashMeter::Rows, lamp.dark);
        if (frame / lamp.half % 2 == 1)
            for (int y = 0; y < lamp.rows; y++)
                for (int x = 0; x < lamp.columns; x++)
                    picture[size_t(y * FlashMeter::Columns + x)] = lamp.bright;
        meter->Take(picture);
    }
}

static FlashMeter Measured(const Lamp& lamp, int frames = 4 * rate)
{
    FlashMeter meter(rate, 0);
    Play(&meter, lamp, frames);
    return meter;
}

TEST(FlashMeter, CountsAFlashForEachPairOfOpposingChanges)
{
    // A change every 6 frames: ten within a second.
    const FlashMeter meter = Measured({});
    EXPECT_EQ(5, meter.field.flashes);
    EXPECT_EQ(5, meter.picture.flashes);
}

TEST(FlashMeter, TellsWhenTheWorstSecondEnds)
{
    // Changes in frames 6, 12, 18...: the tenth in frame 60.
    const FlashMeter meter = Measured({});
    EXPECT_DOUBLE_EQ(1.0, meter.field.time);
    ASSERT_EQ(1u, meter.above.size());
    EXPECT_DOUBLE_EQ(0.8, meter.above[0].from) << "the eighth change, in frame 48, makes the fourth flash";
    EXPECT_DOUBLE_EQ(239.0 / 60, meter.above[0].to) << "the last frame";
    EXPECT_EQ(5, meter.above[0].flashes);
}

TEST(FlashMeter, CountsTimesFromThatOfTheFirstFrame)
{
    FlashMeter meter(rate, 100);
    Play(&meter, {}, 4 * rate);
    EXPECT_DOUBLE_EQ(101.0, meter.field.time);
    ASSERT_EQ(1u, meter.above.size());
}

TEST(FlashMeter, FindsNothingAboveTheLimitInThreeFlashesASecond)
{
    const FlashMeter meter = Measured({.half = 10});
    EXPECT_EQ(3, meter.field.flashes);
    EXPECT_TRUE(meter.above.empty());
}

TEST(FlashMeter, ForgetsChangesThatAreASecondOld)
{
    FlashMeter meter(rate, 0);
    Play(&meter, {}, 25);                   // changes in frames 6, 12, 18, 24: two flashes
    Play(&meter, {.half = 1000}, rate - 1); // dark, as the last frame is: nothing
    Play(&meter, {}, 25);
    EXPECT_EQ(2, meter.field.flashes);
}

TEST(FlashMeter, StartsANewStretchWhenASecondHadFewer)
{
    FlashMeter meter(rate, 0);
    Play(&meter, {}, 2 * rate);
    Play(&meter, {.half = 1000}, 2 * rate);
    Play(&meter, {}, 2 * rate);
    EXPECT_EQ(2u, meter.above.size());
}

TEST(FlashMeter, TakesNoChangeBelowATenthForAFlash)
{
    EXPECT_EQ(0, Measured({.dark = 0.2f, .bright = 0.29f}).field.flashes);
    EXPECT_EQ(5, Measured({.dark = 0.2f, .bright = 0.31f}).field.flashes);
}

TEST(FlashMeter, TakesNoChangeBetweenBrightMomentsForAFlash)
{
    EXPECT_EQ(0, Measured({.dark = 0.81f, .bright = 1}).field.flashes);
    EXPECT_EQ(5, Measured({.dark = 0.79f, .bright = 1}).field.flashes);
}

TEST(FlashMeter, AddsUpAChangeOfManyFrames)
{
    // Up from 0.2 to 0.5 and down again within 20 frames each, 0.015 a frame.
    FlashMeter meter(rate, 0);
    for (int frame = 0; frame < 4 * rate; frame++) {
        const int step = frame % 40 < 20 ? frame % 40 : 40 - frame % 40;
        meter.Take(
            std::vector<float>(size_t(FlashMeter::Columns) * FlashMeter::Rows, 0.2f + 0.015f * float(step)));
    }
    EXPECT_EQ(1, meter.field.flashes) << "three changes in a second of 60 frames";
}

TEST(FlashMeter, TakesNothingThatMovesForAFlash)
{
    FlashMeter meter(rate, 0);
    for (int frame = 0; frame < 4 * rate; frame++) {
        std::vector<float> picture(size_t(FlashMeter::Columns) * FlashMeter::Rows);
        for (size_t i = 0; i < picture.size();
             i++) // stripes of four columns that go a column to the right in a frame
            picture[i] = (int(i % FlashMeter::Columns) + 240 - frame) / 4 % 2 ? 0.6f : 0.1f;
        meter.Take(picture);
    }
    EXPECT_EQ(0, meter.field.flashes);
}

TEST(FlashMeter, TakesChangesForOneThatComeWithinAQuarterOfASecond)
{
    // The upper half of the picture flashes once a second, the lower one so many frames behind it.
    for (const int behind : {14, 16}) {
        FlashMeter meter(rate, 0);
        for (int frame = 0; frame < 3 * rate; frame++) {
            std::vector<float> picture(size_t(FlashMeter::Columns) * FlashMeter::Rows, 0.0f);
            for (int x = 0; x < FlashMeter::Columns * FlashMeter::Rows; x++) {
                // Every seventh cell flashes with the first, and every seventh with the others.
                const int shifted = x % 7 == 0 ? frame : x % 7 == 1 ? frame - behind : -1;
                picture[size_t(x)] = shifted >= 0 && shifted % 60 >= 30 ? 0.5f : 0;
            }
            meter.Take(picture);
        }
        EXPECT_EQ(behind == 14 ? 1 : 0, meter.picture.flashes) << "two sevenths together, or one";
    }
}

// A field of 10 degrees has 21 by 16 cells, a quarter of it is 84; a quarter of the picture is 768.
TEST(FlashMeter, WantsAQuarterOfAField)
{
    EXPECT_EQ(0, Measured({.columns = 83, .rows = 1}).field.flashes)
        << "a line has no more than 21 cells in a field";
    EXPECT_EQ(0, Measured({.columns = 10, .rows = 8}).field.flashes);
    EXPECT_EQ(5, Measured({.columns = 12, .rows = 7}).field.flashes);
    EXPECT_EQ(0, Measured({.columns = 12, .rows = 7}).picture.flashes);
    EXPECT_EQ(0, Measured({.columns = 59, .rows = 13}).picture.flashes);
    EXPECT_EQ(5, Measured({.columns = 59, .rows = 14}).picture.flashes);
}

TEST(FlashMeter, LooksForTheFieldEverywhere)
{
    FlashMeter meter(rate, 0);
    for (int frame = 0; frame < 2 * rate; frame++) {
        std::vector<float> picture(size_t(FlashMeter::Columns) * FlashMeter::Rows, 0.0f);
        for (int y = FlashMeter::Rows - 9; y < FlashMeter::Rows; y++)
            for (int x = FlashMeter::Columns - 10; x < FlashMeter::Columns; x++)
                picture[size_t(y * FlashMeter::Columns + x)] = frame / 6 % 2 ? 0.5f : 0;
        meter.Take(picture);
    }
    EXPECT_EQ(5, meter.field.flashes) << "90 cells in the lower right corner";
}
