// SPDX-License-Identifier: MIT
// The comparison with golden images fails where it must and leaves what a person needs to judge.
#include "tests/support/picture/Golden.h"

#include "tests/support/ShowFixture.h"

#include <filesystem>

class Golden : public ShowFixture
{
protected:
    Golden() : folder(PathOf("folder")), picture(PlainPicture(10, 10, 3, 100, 150, 200)) {}

    testing::AssertionResult Match(const Picture& actual, const Tolerance& tolerance, bool update = false)
    {
        return MatchesGoldenIn(folder + "/golden", folder + "/failures", update, actual, "Sample", tolerance);
    }

    void Keep() { ASSERT_TRUE(Match(picture, Tolerance("it is being made"), true)); }

    std::string Failure(const char* kind) const { return folder + "/failures/Sample-" + kind + ".png"; }

    std::string folder;
    Picture picture;
};

TEST_F(Golden, APictureMatchesItself)
{
    Keep();
    EXPECT_TRUE(Match(picture, Tolerance("nothing may differ")));
    EXPECT_FALSE(FileExists(Failure("actual")));
}

TEST_F(Golden, AMissingGoldenImageFailsAndLeavesThePicture)
{
    const testing::AssertionResult result = Match(picture, Tolerance("nothing may differ"));
    EXPECT_FALSE(result);
    EXPECT_NE(std::string::npos, std::string(result.message()).find("MARLINEX_UPDATE_GOLDEN=1"))
        << result.message();
    EXPECT_EQ(picture.pixels, LoadPng(Failure("actual")).pixels);
    EXPECT_FALSE(FileExists(folder + "/golden/Sample.png"));
}

TEST_F(Golden, OneStepOfOneChannelIsADifference)
{
    Keep();
    picture.pixels[(5 * 10 + 3) * 3 + 1]++;
    const testing::AssertionResult result = Match(picture, Tolerance("nothing may differ"));
    EXPECT_FALSE(result);
    const std::string message = result.message();
    EXPECT_NE(std::string::npos,
              message.find("the first at (3, 5) from the top left: 100 151 200, expected 100 150 200"))
        << message;
    EXPECT_NE(std::string::npos, message.find("1 of 100 pixels (1 %) by more than 0, allowed 0 %"))
        << message;
    EXPECT_NE(std::string::npos, message.find("tolerated because nothing may differ")) << message;
    for (const char* kind : {"actual", "expected", "difference"})
        EXPECT_NE(std::string::npos, message.find(Failure(kind))) << kind;
}

TEST_F(Golden, AFailureLeavesExpectedActualAndDifference)
{
    Keep();
    const Picture expected = picture;
    picture.pixels[0] = 110;
    picture.pixels[4] = 145;
    EXPECT_FALSE(Match(picture, Tolerance("nothing may differ")));
    EXPECT_EQ(expected.pixels, LoadPng(Failure("expected")).pixels);
    EXPECT_EQ(picture.pixels, LoadPng(Failure("actual")).pixels);
    const Picture difference = LoadPng(Failure("difference"));
    EXPECT_EQ(255, difference.pixels[0]) << "the largest in full brightness";
    EXPECT_EQ(127, difference.pixels[4]);
    EXPECT_EQ(0, difference.pixels[1]);

    EXPECT_TRUE(Match(expected, Tolerance("nothing may differ")));
    EXPECT_FALSE(FileExists(Failure("actual"))) << "a success leaves nothing of an earlier failure";
}

TEST_F(Golden, TheMaximumIsAllowedAndOneMoreIsNot)
{
    Keep();
    picture.pixels[0] += 2;
    EXPECT_TRUE(Match(picture, Tolerance("a step or two").Maximum(2)));
    EXPECT_FALSE(Match(picture, Tolerance("a step or two").Maximum(1)));
    picture.pixels[0] -= 4;
    EXPECT_TRUE(Match(picture, Tolerance("a step or two").Maximum(2)));
    EXPECT_FALSE(Match(picture, Tolerance("a step or two").Maximum(1)));
}

TEST_F(Golden, AShareOfThePixelsMayDifferByAnyAmount)
{
    Keep();
    for (int i = 0; i < 3; i++)
        picture.pixels[i * 3] = 255;
    EXPECT_TRUE(Match(picture, Tolerance("edges").Share(0.03)));
    EXPECT_FALSE(Match(picture, Tolerance("edges").Share(0.029)));
}

TEST_F(Golden, TheMeanHoldsTheWholeInPlace)
{
    Keep();
    for (unsigned char& channel : picture.pixels)
        channel++;
    EXPECT_TRUE(Match(picture, Tolerance("a step").Maximum(1).Mean(1)));
    EXPECT_FALSE(Match(picture, Tolerance("a step").Maximum(1).Mean(0.9)));
    EXPECT_TRUE(Match(picture, Tolerance("a step").Maximum(1))) << "no limit unless it is set";
}

TEST_F(Golden, AToleranceWithoutAReasonIsRefused)
{
    Keep();
    EXPECT_FALSE(Match(picture, Tolerance("")));
}

TEST_F(Golden, AnotherSizeIsADifference)
{
    Keep();
    const testing::AssertionResult result =
        Match(PlainPicture(10, 11, 3, 100, 150, 200), Tolerance("any").Maximum(255).Share(1));
    EXPECT_FALSE(result);
    EXPECT_NE(std::string::npos, std::string(result.message()).find("10 by 11 pixels")) << result.message();
}

TEST_F(Golden, AnEmptyPictureMatchesNothing)
{
    EXPECT_FALSE(Match(Picture(), Tolerance("any"), true));
}

TEST_F(Golden, PicturesComeBackFromTheirFiles)
{
    std::filesystem::create_directories(folder);
    const Picture rgba = PlainPicture(3, 2, 4, 1, 2, 3, 4);
    SavePng(folder + "/a.png", rgba);
    EXPECT_EQ(rgba.pixels, LoadPng(folder + "/a.png", 4).pixels);
    EXPECT_EQ(3, LoadPng(folder + "/a.png", 4).width);
    EXPECT_EQ(2, LoadPng(folder + "/a.png", 4).height);
}
