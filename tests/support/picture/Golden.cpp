// SPDX-License-Identifier: MIT
#include "tests/support/picture/Golden.h"

#include "tests/Folders.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

Tolerance::Tolerance(std::string whyAtAll) : reason(whyAtAll), maximum(0), mean(255), share(0) {}

Tolerance& Tolerance::Maximum(int channelSteps)
{
    maximum = channelSteps;
    return *this;
}

Tolerance& Tolerance::Mean(double channelSteps)
{
    mean = channelSteps;
    return *this;
}

Tolerance& Tolerance::Share(double ofPixels)
{
    share = ofPixels;
    return *this;
}

static int PixelDifference(const unsigned char* a, const unsigned char* b, int components)
{
    int largest = 0;
    for (int i = 0; i < components; i++)
        largest = std::max(largest, std::abs(int(a[i]) - int(b[i])));
    return largest;
}

PictureDifference Compare(const Picture& actual, const Picture& expected, int maximum)
{
    PictureDifference difference = {0, 0, 0, -1, -1, actual.width * actual.height};
    double sum = 0;
    for (int y = 0; y < actual.height; y++)
        for (int x = 0; x < actual.width; x++) {
            const unsigned char* const a = actual.At(x, y);
            const unsigned char* const b = expected.At(x, y);
            for (int i = 0; i < actual.components; i++)
                sum += std::abs(int(a[i]) - int(b[i]));
            const int largest = PixelDifference(a, b, actual.components);
            difference.maximum = std::max(difference.maximum, largest);
            if (largest <= maximum)
                continue;
            if (difference.pixelsBeyond++ == 0) {
                difference.firstX = x;
                difference.firstY = y;
            }
        }
    difference.mean = sum / std::max(1, difference.total * actual.components);
    return difference;
}

static Picture DifferencePicture(const Picture& actual, const Picture& expected, int largest)
{
    Picture picture = actual;
    for (size_t i = 0; i < picture.pixels.size(); i++)
        picture.pixels[i] = static_cast<unsigned char>(
            std::abs(int(actual.pixels[i]) - int(expected.pixels[i])) * 255 / std::max(1, largest));
    return picture;
}

static AssertionResult Missing(const std::string& golden, const std::string& actualPath)
{
    return AssertionFailure()
           << "there is no golden image " << golden << "\n  the picture is " << actualPath
           << "\n  look at it, and if it is good, run the test with MARLINEX_UPDATE_GOLDEN=1";
}

AssertionResult MatchesGoldenIn(std::string goldenFolder, std::string failureFolder, bool update,
                                const Picture& actual, std::string name, const Tolerance& tolerance)
{
    if (tolerance.reason.empty())
        return AssertionFailure() << name << ": the tolerance gives no reason";
    if (actual.Empty())
        return AssertionFailure() << name << ": the picture is empty";
    const std::string golden = goldenFolder + "/" + name + ".png";
    const std::string failure = failureFolder + "/" + name;
    if (update) {
        std::filesystem::create_directories(goldenFolder);
        SavePng(golden, actual);
        return AssertionSuccess();
    }
    // Pictures that an earlier failure left would be taken for this one's.
    for (const char* kind : {"-actual.png", "-expected.png", "-difference.png"})
        std::filesystem::remove(failure + kind);
    std::filesystem::create_directories(failureFolder);

    if (!FileExists(golden)) {
        SavePng(failure + "-actual.png", actual);
        return Missing(golden, failure + "-actual.png");
    }
    const Picture expected = LoadPng(golden, actual.components);
    if (expected.width != actual.width || expected.height != actual.height) {
        SavePng(failure + "-actual.png", actual);
        return AssertionFailure() << name << ": " << actual.width << " by " << actual.height << " pixels, "
                                  << golden << " has " << expected.width << " by " << expected.height
                                  << "\n  actual " << failure << "-actual.png";
    }
    const PictureDifference difference = Compare(actual, expected, tolerance.maximum);
    const double share = double(difference.pixelsBeyond) / std::max(1, difference.total);
    if (share <= tolerance.share && difference.mean <= tolerance.mean)
        return AssertionSuccess();

    SavePng(failure + "-actual.png", actual);
    SavePng(failure + "-expected.png", expected);
    SavePng(failure + "-difference.png", DifferencePicture(actual, expected, difference.maximum));
    AssertionResult result = AssertionFailure();
    result << name << " differs from its golden image\n  largest difference of a channel "
           << difference.maximum << "\n  mean difference " << difference.mean << ", allowed "
           << tolerance.mean << "\n  " << difference.pixelsBeyond << " of " << difference.total << " pixels ("
           << share * 100 << " %) by more than " << tolerance.maximum << ", allowed " << tolerance.share * 100
           << " %";
    if (difference.firstX >= 0) {
        const unsigned char* const a = actual.At(difference.firstX, difference.firstY);
        const unsigned char* const b = expected.At(difference.firstX, difference.firstY);
        result << "\n  the first at (" << difference.firstX << ", " << difference.firstY
               << ") from the top left:";
        for (int i = 0; i < actual.components; i++)
            result << " " << int(a[i]);
        result << ", expected";
        for (int i = 0; i < actual.components; i++)
            result << " " << int(b[i]);
    }
    result << "\n  tolerated because " << tolerance.reason << "\n  expected " << failure << "-expected.png"
           << "\n  actual " << failure << "-actual.png\n  difference " << failure << "-difference.png";
    return result;
}

AssertionResult MatchesGolden(const Picture& actual, std::string name, const Tolerance& tolerance)
{
    const char* const update = getenv("MARLINEX_UPDATE_GOLDEN");
    return MatchesGoldenIn(SOURCE_DIR "/tests/golden", BINARY_DIR "/golden",
                           update && strcmp(update, "1") == 0, actual, name, tolerance);
}
