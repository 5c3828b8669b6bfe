// SPDX-License-Identifier: MIT
#include "tools/timeline/PngWriter.h"

#include "tests/support/BusyShow.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

using namespace timeline;

static Picture Paint(const TimelineModel& model, const Layout& layout, double scale)
{
    std::string png, reason;
    EXPECT_TRUE(PngPicture(model, layout, scale, &png, &reason)) << reason;
    const std::string path = soundfiles::TemporaryPath("timeline.png");
    soundfiles::WriteBytes(path, png);
    return LoadPng(path, 3);
}

static bool IsAbout(const unsigned char* pixel, uint32_t colour, int tolerance)
{
    return std::abs(pixel[0] - RedOf(colour)) <= tolerance &&
           std::abs(pixel[1] - GreenOf(colour)) <= tolerance &&
           std::abs(pixel[2] - BlueOf(colour)) <= tolerance;
}

TEST(TimelinePng, HasTheSizeThatItWasTold)
{
    const TimelineModel model = BusyShow(10, 10, 3);
    for (const double width : {480.0, 1000.0, 1600.0})
        for (const double scale : {0.5, 1.0, 2.0}) {
            LayoutOptions options;
            options.width = width;
            const Layout layout = LayOut(model, options);
            const Picture picture = Paint(model, layout, scale);
            EXPECT_EQ(int(std::lround(width * scale)), picture.width);
            EXPECT_EQ(int(std::ceil(layout.height * scale)), picture.height);
        }
}

TEST(TimelinePng, IsPaintedOnBoneUpToItsEdges)
{
    const TimelineModel model = BusyShow(10, 10, 3);
    const Picture picture = Paint(model, LayOut(model, {}), 1.3);
    for (int x = 0; x < picture.width; x++) {
        EXPECT_TRUE(IsAbout(picture.At(x, 0), Bone, 0));
        EXPECT_TRUE(IsAbout(picture.At(x, picture.height - 1), Bone, 0));
    }
    for (int y = 0; y < picture.height; y++)
        EXPECT_TRUE(IsAbout(picture.At(0, y), Bone, 0));
}

TEST(TimelinePng, ABarHasTheWashOfItsEffectFromItsStartToItsStop)
{
    TimelineModel model;
    model.end = 100;
    model.entries = {{20, 60, 1, "FX_Credits", SlateWash}, {70, 90, 1, "FX_Scroller_Intro", OchreWash}};
    const Layout layout = LayOut(model, {});
    const Picture picture = Paint(model, layout, 1);
    for (size_t i = 0; i < 2; i++) {
        const CanvasRect& box = layout.bars[i].box;
        const int y = int(box.y + box.height / 2);
        const Pigment& pigment = pigments[i];
        // Half way down the wash is half way between its ends; the ruler's marks show through nowhere.
        const uint32_t wash = Mix(Bone, pigment.tint, 0.45f);
        EXPECT_TRUE(IsAbout(picture.At(int(box.Right()) - 12, y), wash, 6)) << i;
        EXPECT_FALSE(IsAbout(picture.At(int(box.Right()) + 3, y), wash, 6)) << i;
        EXPECT_TRUE(IsAbout(picture.At(int(box.x) + 1, y), pigment.ink, 24)) << i; // its inked edge
        EXPECT_FALSE(IsAbout(picture.At(int(box.x) - 3, y), wash, 6)) << i;
    }
}

TEST(TimelinePng, TheColoursAreThoseOfTheShow)
{
    const TimelineModel model = BusyShow(60, 60, 6);
    const Picture picture = Paint(model, LayOut(model, {}), 1);
    // All that is mixed from warm paper, ink and earths: red is never far below green, and no pixel is purer
    // than amber or rust.
    std::map<int, int> saturated;
    for (int y = 0; y < picture.height; y++)
        for (int x = 0; x < picture.width; x++) {
            const unsigned char* const pixel = picture.At(x, y);
            EXPECT_FALSE(pixel[0] == 255 && pixel[1] == 255 && pixel[2] == 255);
            EXPECT_GE(int(pixel[0]) + 60, int(pixel[1]));
            if (HasFailure())
                return;
        }
}

TEST(TimelinePng, APictureBeyondTheLimitIsRefusedWithItsSize)
{
    TimelineModel model;
    LayoutOptions options;
    options.width = 20000;
    std::string png, reason;
    EXPECT_FALSE(PngPicture(model, LayOut(model, options), 2, &png, &reason));
    EXPECT_EQ(0u, reason.find("the picture would be 40000 by "));
}

TEST(TimelinePng, TwoRunsGiveTheSameBytes)
{
    const TimelineModel model = BusyShow(30, 60, 6);
    std::string one, two, reason;
    ASSERT_TRUE(PngPicture(model, LayOut(model, {}), 1, &one, &reason));
    ASSERT_TRUE(PngPicture(model, LayOut(model, {}), 1, &two, &reason));
    EXPECT_EQ(one, two);
}

TEST(TimelinePng, OddNamesDoNotStopThePainter)
{
    TimelineModel model;
    model.title = "\xff\xfe odd \x01";
    model.end = 10;
    model.entries = {{0, 10, 1, "\xc3", SlateWash}};
    model.messages = {{5, 0, "\xf0\x9f", true, "\xc3", {}, {0}}};
    model.music.file = "\x80";
    model.remarks = {{true, true, 1, 2, "\xed\xa0\x80"}};
    EXPECT_EQ(1600, Paint(model, LayOut(model, {}), 1).width);
}

TEST(TimelinePng, NoWashIsGrey)
{
    for (const Pigment& pigment : pigments)
        for (const float strength : {0.36f, 0.54f}) {
            const uint32_t wash = Mix(Bone, pigment.tint, strength);
            const auto [least, most] = std::minmax({RedOf(wash), GreenOf(wash), BlueOf(wash)});
            EXPECT_GE(most - least, 8);
        }
}
