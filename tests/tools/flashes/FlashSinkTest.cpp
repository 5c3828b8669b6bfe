// SPDX-License-Identifier: MIT
#include "tools/flashes/FlashSink.h"
#include "tools/flashes/FlashReport.h"

#include <gtest/gtest.h>

// Frames of 128 by 96 pixels, two by two for each cell, of one colour; every second one is black.
static void Flash(flashes::FlashMeter* meter, unsigned char red, unsigned char green, unsigned char blue,
                  int every = 2)
{
    flashes::FlashSink sink(meter);
    ASSERT_TRUE(sink.Begin(128, 96, capture::FrameSelection()));
    for (int number = 0; number < 60; number++) {
        std::unique_ptr<capture::Frame> frame(new capture::Frame);
        frame->number = number;
        frame->width = 128;
        frame->height = 96;
        for (int i = 0; i < 128 * 96; i++) {
            const bool lit = number % 20 < 10 && i % every != 0;
            frame->pixels.insert(frame->pixels.end(),
                                 {(unsigned char)(lit ? red : 0), (unsigned char)(lit ? green : 0),
                                  (unsigned char)(lit ? blue : 0), 0});
        }
        ASSERT_TRUE(sink.Take(std::move(frame)));
    }
    EXPECT_TRUE(sink.Finish(true));
}

static int FlashesOf(unsigned char red, unsigned char green, unsigned char blue, int every = 1000000)
{
    flashes::FlashMeter meter(60, 0);
    Flash(&meter, red, green, blue, every);
    return meter.picture.flashes;
}

// Five changes in 60 frames, so two flashes, wherever a change counts.
TEST(FlashSink, WeighsColoursAsTheEyeDoes)
{
    EXPECT_EQ(2, FlashesOf(255, 0, 0)) << "0.21 of white";
    EXPECT_EQ(2, FlashesOf(0, 255, 0)) << "0.72";
    EXPECT_EQ(0, FlashesOf(0, 0, 255)) << "0.07";
}

TEST(FlashSink, MeasuresLightAndNotTheValuesOfTheScreen)
{
    EXPECT_EQ(0, FlashesOf(88, 88, 88)) << "0.098 of white, though 0.35 of its value";
    EXPECT_EQ(2, FlashesOf(90, 90, 90)) << "0.102";
}

TEST(FlashSink, TakesTheMeanOfACellsPixels)
{
    EXPECT_EQ(0, FlashesOf(122, 122, 122, 2)) << "half of the pixels at 0.195";
    EXPECT_EQ(2, FlashesOf(126, 126, 126, 2)) << "half of the pixels at 0.209";
}

TEST(FlashSink, RefusesAPictureWithFewerPixelsThanCells)
{
    flashes::FlashMeter meter(60, 0);
    flashes::FlashSink sink(&meter);
    EXPECT_FALSE(sink.Begin(63, 48, capture::FrameSelection()));
    EXPECT_NE("", sink.error);
    EXPECT_TRUE(sink.Begin(64, 48, capture::FrameSelection()));
}

TEST(FlashReport, TellsPeaksAndStretchesInWordsAndForPrograms)
{
    flashes::FlashMeter meter(60, 0);
    EXPECT_EQ("The most flashes within a second\n"
              "  over a quarter of a field of 10 degrees: 0\n"
              "  over a quarter of the picture:           0\n"
              "Never more than 3 a second.\n",
              flashes::TextOf(meter));
    meter.field = {5, 83.456};
    meter.above.push_back({83.3, 84, 5});
    EXPECT_EQ("The most flashes within a second\n"
              "  over a quarter of a field of 10 degrees: 5, in the second up to 1:23.46\n"
              "  over a quarter of the picture:           0\n"
              "More than 3 a second\n"
              "  1:23.3 to 1:24: 5\n",
              flashes::TextOf(meter));
    const std::string json = flashes::JsonOf(meter);
    EXPECT_NE(std::string::npos, json.find("\"time\": 83.456")) << json;
    EXPECT_NE(std::string::npos, json.find("\"time\": null")) << json;
    EXPECT_NE(std::string::npos, json.find("\"to\": 84")) << json;
}
