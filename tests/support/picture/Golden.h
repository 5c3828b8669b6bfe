// SPDX-License-Identifier: MIT
// Golden images: tests/golden/NAME.png is what a picture looked like when somebody looked at it and found it
// good.
//
//     EXPECT_TRUE(MatchesGolden(Grab(), "WhiteFlashOverlay-half",
//                               Tolerance("blending rounds either way").Maximum(1)));
//
// When a comparison fails, the build directory's golden/ holds NAME-expected.png, NAME-actual.png and
// NAME-difference.png (black where equal, the largest difference in full brightness); the message names them
// and the measures. To accept new pictures, look at them first, then
//
//     MARLINEX_UPDATE_GOLDEN=1 ctest --preset release -L pictures -R NAME
//
// writes them to tests/golden. A golden image that is missing fails the test.
//
// WHY A TOLERANCE. On one machine the software rasteriser gives the same bytes on every run. Between versions
// of Mesa it may not: its shaders go through LLVM, which is free to reorder single precision arithmetic and
// to use what the processor has. Measured on six scenes of the show at 640 by 480 (Mesa 22.3, llvmpipe): the
// number of threads and the width of its vectors change nothing; AVX2 against SSE4.1 moves up to 101 of
// 307200 pixels, by one or two steps of a channel; plain SSE2, which rounds in another way, moves up to 59 %
// of the pixels by up to 5 steps. The fixture pins SSE4.1, so that all x86-64 machines agree; another Mesa or
// another architecture is what the tolerance is for.
//
// What moves is the last bit of an interpolated colour or texture coordinate: a step or two on smooth
// surfaces; at edges, and where a texture is sampled without filter or strongly magnified, single pixels by
// any amount. So a picture of smooth surfaces takes a Maximum of 1 to 5; a picture with edges a Share of
// pixels that may differ at all, with a Mean that keeps the whole in place. A picture that needs more isn't a
// good test.
#pragma once

#include "tests/support/PictureFiles.h"

#include <gtest/gtest.h>

#include <string>

// What may differ, and why: a reason must be given. Without further calls nothing may.
class Tolerance
{
public:
    explicit Tolerance(std::string reason);

    // No channel of any pixel by more than this (0 to 255), apart from the pixels that Share excuses.
    Tolerance& Maximum(int channelSteps);

    // All channels of all pixels on average by no more than this, in steps of a channel. 255 unless it is
    // set.
    Tolerance& Mean(double channelSteps);

    // This share of the pixels (0 to 1) may differ by any amount.
    Tolerance& Share(double ofPixels);

    std::string reason;
    int maximum;
    double mean;
    double share;
};

// The measures of two pictures of one size.
struct PictureDifference {
    int maximum;        // of any channel
    double mean;        // of all channels of all pixels
    int pixelsBeyond;   // with a channel beyond the tolerance's maximum
    int firstX, firstY; // the first of those, row by row from the top; -1 without one
    int total;          // pixels
};

PictureDifference Compare(const Picture& actual, const Picture& expected, int maximum);

testing::AssertionResult MatchesGolden(const Picture& actual, std::string name, const Tolerance& tolerance);

// The same with the folders named: MatchesGolden calls it with those of the project.
testing::AssertionResult MatchesGoldenIn(std::string goldenFolder, std::string failureFolder, bool update,
                                         const Picture& actual, std::string name, const Tolerance& tolerance);
