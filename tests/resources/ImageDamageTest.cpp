// SPDX-License-Identifier: MIT
#include "tests/resources/ImageFixture.h"

#include "tests/support/BoxWatch.h"

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

class ImageDamage : public ImageFixture
{
};

TEST_F(ImageDamage, ANameOfFourCharactersFailsWithoutTouchingTheFileSystem)
{
    AddPicture("a.jp.png", 1, 1);
    std::filesystem::rename(PathOf("a.jp.png"), PathOf("a.jp"));
    for (const char* name : {"a.jp", "abc", "ab", "a", ""})
        ExpectFailure(loader->LoadImage(name), std::string(name) + ": Could Not Load Texture");
}

TEST_F(ImageDamage, ANameOfFiveCharactersIsLookedFor)
{
    AddPicture("a.png", 1, 1);
    EXPECT_EQ(1, Keep(loader->LoadImage("a.png")).width);
    ExpectFailure(loader->LoadImage("b.png"), Complaint("b.png", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageDamage, AMissingFileIsReportedWithTheLibrarysWords)
{
    ExpectFailure(loader->LoadImage("missing.jpg"), Complaint("missing.jpg", IL_COULD_NOT_OPEN_FILE));
    ExpectFailure(loader->LoadImageFile("data\\missing.jpg"),
                  Complaint("missing.jpg", IL_COULD_NOT_OPEN_FILE));
    ExpectFailure(loader->LoadImageFile("/nowhere/missing.jpg"),
                  "/nowhere/missing.jpg: Could not load texture. \n" +
                      std::string(iluErrorString(IL_COULD_NOT_OPEN_FILE)));
}

TEST_F(ImageDamage, AMissingFileIsReportedBeforeTheQuitIsPosted)
{
    BoxWatch watch;
    EXPECT_EQ(nullptr, loader->LoadImage("nowhere.png").data);
    EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox);
    EXPECT_TRUE(QuitWasPosted());
}

// The library's reader would wait for ever for the rest of some of them.
TEST_F(ImageDamage, AJpegThatIsCutAnywhereIsLoadedOrTold)
{
    const std::string comment = "\xFF\xFE" + std::string("\0\x0C", 2) + "waltz time";
    for (bool progressive : {false, true}) {
        const Picture slope = SlopePicture(9, 7);
        SaveJpeg(PathOf("slope.jpg"), slope, progressive);
        std::string whole = ReadFile(PathOf("slope.jpg"));
        whole.insert(whole.size() - 2, comment); // ahead of the end of the image
        whole.insert(2, comment);
        AddFile("whole.jpg", whole);
        ASSERT_EQ(9, Keep(loader->LoadImage("whole.jpg")).width);
        for (size_t length = 3; length < whole.size(); length++) {
            boxes.clear();
            AddFile("cut.jpg", whole.substr(0, length));
            const ImageData image = Keep(loader->LoadImage("cut.jpg"));
            ASSERT_EQ(image.data ? 0u : 1u, boxes.size()) << length << " of " << whole.size();
        }
        boxes.clear();
        AddFile("cut.jpg", whole.substr(0, 10));
        ExpectFailure(loader->LoadImage("cut.jpg"),
                      Complaint("cut.jpg", "The file is too short for the picture that it tells of."));
    }
}

TEST_F(ImageDamage, TheJpegLoaderReportsInItsOwnWords)
{
    ExpectFailure(loader->LoadJpegFile("data\\missing.jpg"), PathOf("missing.jpg") +
                                                                 ": Could not load jpg-texture. \n" +
                                                                 iluErrorString(IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageDamage, AnEmptyFileIsReported)
{
    AddFile("empty.jpg", "");
    ExpectFailure(loader->LoadImage("empty.jpg"), Complaint("empty.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageDamage, ADirectoryIsReported)
{
    std::filesystem::create_directory(PathOf("folder.jpg"));
    ExpectFailure(loader->LoadImage("folder.jpg"), Complaint("folder.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageDamage, APipeDoesNotStopTheShow)
{
    ASSERT_EQ(0, mkfifo(PathOf("pipe.jpg").c_str(), 0600));
    ExpectFailure(loader->LoadImage("pipe.jpg"), Complaint("pipe.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageDamage, ATextNamedLikeAPictureIsReported)
{
    AddFile("text.jpg", "The night is long, and the waltz waits for nobody.\n");
    ExpectFailure(loader->LoadImage("text.jpg"), Complaint("text.jpg", IL_LIB_JPEG_ERROR));
    AddFile("text.png", "The night is long, and the waltz waits for nobody.\n");
    ExpectFailure(loader->LoadImage("text.png"), Complaint("text.png", IL_INVALID_VALUE));
}

TEST_F(ImageDamage, AFileThatMayNotBeReadIsReported)
{
    AddPicture("secret.jpg");
    ASSERT_EQ(0, chmod(PathOf("secret.jpg").c_str(), 0));
    ASSERT_EQ(0, chmod(PathOf("").c_str(), 0755));
    const bool isRoot = geteuid() == 0; // whom permissions do not bind
    if (isRoot) {
        ASSERT_EQ(0, seteuid(65534));
    }
    const ImageData image = Keep(loader->LoadImage("secret.jpg"));
    if (isRoot) {
        ASSERT_EQ(0, seteuid(0));
    }
    ExpectFailure(image, Complaint("secret.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageDamage, APngCutOffInTheMiddleIsReported)
{
    AddPicture("whole.png", SlopePicture(40, 40));
    const std::string whole = ReadFile(PathOf("whole.png"));
    AddFile("cut.png", whole.substr(0, whole.size() / 2));
    ExpectFailure(loader->LoadImage("cut.png"), Complaint("cut.png", IL_LIB_PNG_ERROR));
}

TEST_F(ImageDamage, AJpegCutOffInTheMiddleIsReported)
{
    for (bool progressive : {false, true}) {
        SaveJpeg(PathOf("whole.jpg"), SlopePicture(40, 40), progressive);
        const std::string whole = ReadFile(PathOf("whole.jpg"));
        AddFile("cut.jpg", whole.substr(0, whole.size() / 2));
        ExpectFailure(loader->LoadImage("cut.jpg"), Complaint("cut.jpg", IL_LIB_JPEG_ERROR));
    }
}

TEST_F(ImageDamage, APngCutOffAnywhereNeitherHangsNorReadsOutOfBounds)
{
    RawPng png;
    png.width = 9;
    png.height = 5;
    png.colour = PngPalette; // a chunk more ahead of the pixels
    png.bytes = PatternBytes(9, 5, 1);
    png.palette = PatternBytes(16, 16, 3);
    SaveRawPng(PathOf("whole.png"), png);
    const std::string whole = ReadFile(PathOf("whole.png"));
    for (size_t size = 1; size<whole.size(); size += size> 60 && size < 740 ? 17 : 1) {
        AddFile("cut.png", whole.substr(0, size));
        ExpectWholeAnswer("cut.png");
    }
}

TEST_F(ImageDamage, AJpegCutOffAnywhereNeitherHangsNorReadsOutOfBounds)
{
    SaveJpeg(PathOf("whole.jpg"), SlopePicture(9, 5));
    const std::string whole = ReadFile(PathOf("whole.jpg"));
    for (size_t size = 1; size < whole.size(); size += 3) {
        AddFile("cut.jpg", whole.substr(0, size));
        ExpectWholeAnswer("cut.jpg");
    }
}

TEST_F(ImageDamage, APictureOfInsaneSidesIsRefusedUnseen)
{
    const char* const sideTooLong = "The picture has a side of more than 16384 pixels.";
    AddPicture("whole.jpg", SlopePicture(40, 40));
    const std::string jpeg = ReadFile(PathOf("whole.jpg"));
    const size_t frame = jpeg.find("\xFF\xC0");
    ASSERT_NE(std::string::npos, frame);
    std::string tall = jpeg;
    std::string wide = jpeg;
    tall.replace(frame + 5, 2, "\x40\x01"); // 16385
    wide.replace(frame + 7, 2, "\x40\x01");
    AddFile("tall.jpg", tall);
    AddFile("wide.jpg", wide);
    ExpectFailure(loader->LoadImage("tall.jpg"), Complaint("tall.jpg", sideTooLong));
    ExpectFailure(loader->LoadImage("wide.jpg"), Complaint("wide.jpg", sideTooLong));

    // What stands in front of the frame header is walked over as the decoder does it.
    const std::string ahead[] = {
        std::string("\xFF\xFF\xFF", 3),                                          // padding
        std::string("\xFF\xFE\x00\x0B\xFF\xC0\x00\x08\x08\x00\x01\x00\x01", 13), // a comment
        std::string("\xFF\xD0\xFF\x01", 4),                                      // markers alone
        std::string("\xFF\x00", 2),                                              // no marker
        std::string("junk", 4),
    };
    for (const std::string& bytes : ahead) {
        AddFile("tall.jpg", tall.substr(0, frame) + bytes + tall.substr(frame));
        ExpectFailure(loader->LoadImage("tall.jpg"), Complaint("tall.jpg", sideTooLong));
    }

    AddPicture("whole.png", 3, 3);
    for (size_t at : {16, 20}) {
        std::string png = ReadFile(PathOf("whole.png"));
        png.replace(at, 4, std::string("\x00\x00\x40\x01", 4));
        AddFile("large.png", png);
        ExpectFailure(loader->LoadImage("large.png"), Complaint("large.png", sideTooLong));
        png.replace(at, 4, std::string("\x01\x00\x00\x01", 4));
        AddFile("large.png", png);
        ExpectFailure(loader->LoadImage("large.png"), Complaint("large.png", sideTooLong));
    }
}

TEST_F(ImageDamage, APictureOfTooManyPixelsIsRefusedUnseen)
{
    AddPicture("whole.png", 3, 3);
    std::string png = ReadFile(PathOf("whole.png"));
    png.replace(16, 8, std::string("\x00\x00\x40\x00\x00\x00\x40\x00", 8)); // 16384 by 16384
    AddFile("large.png", png);
    ExpectFailure(loader->LoadImage("large.png"),
                  Complaint("large.png", "The picture has more than 67108864 pixels."));
}

TEST_F(ImageDamage, AFileThatIsTooShortForItsPictureIsRefusedUnseen)
{
    const char* const tooShort = "The file is too short for the picture that it tells of.";
    AddPicture("whole.png", 3, 3);
    std::string png = ReadFile(PathOf("whole.png"));
    png.replace(16, 8, std::string("\x00\x00\x20\x00\x00\x00\x20\x00", 8)); // 8192 by 8192
    AddFile("large.png", png);
    ExpectFailure(loader->LoadImage("large.png"), Complaint("large.png", tooShort));

    AddPicture("whole.jpg", SlopePicture(40, 40));
    std::string jpeg = ReadFile(PathOf("whole.jpg"));
    jpeg.replace(jpeg.find("\xFF\xC0") + 5, 4, "\x1F\xFF\x1F\xFF");
    AddFile("large.jpg", jpeg);
    ExpectFailure(loader->LoadImage("large.jpg"), Complaint("large.jpg", tooShort));

    // One that is cut behind its sides is told as cut, however large they are.
    jpeg.replace(jpeg.find("\xFF\xC0") + 5, 4, "\x7F\xFF\x7F\xFF");
    AddFile("cut.jpg", jpeg.substr(0, jpeg.find("\xFF\xC0") + 12));
    ExpectFailure(loader->LoadImage("cut.jpg"), Complaint("cut.jpg", tooShort));
}

TEST_F(ImageDamage, ASideOf16384IsSane)
{
    AddPicture("long.png", PlainPicture(16384, 1, 3, 1, 2, 3));
    AddPicture("tall.png", PlainPicture(1, 16384, 3, 1, 2, 3));
    AddPicture("long.jpg", PlainPicture(16384, 1, 3, 1, 2, 3));
    AddPicture("tall.jpg", PlainPicture(1, 16384, 3, 1, 2, 3));
    for (const char* name : {"long.png", "tall.png", "long.jpg", "tall.jpg"}) {
        const ImageData image = Keep(loader->LoadImage(name));
        EXPECT_EQ(16384, image.width * image.height) << name;
    }
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ImageDamage, APictureOfWhichTheLibraryTellsImpossibleSidesIsRefused)
{
    AddPicture("odd.png", 4, 2);
    const std::pair<ILenum, ILint> integers[] = {
        {IL_IMAGE_WIDTH, 0},           {IL_IMAGE_WIDTH, -1},          {IL_IMAGE_HEIGHT, 0},
        {IL_IMAGE_HEIGHT, -1},         {IL_IMAGE_BYTES_PER_PIXEL, 0}, {IL_IMAGE_BYTES_PER_PIXEL, -1},
        {IL_IMAGE_BYTES_PER_PIXEL, 33}};
    for (const auto& [what, value] : integers) {
        SetPictureInteger(what, value);
        ExpectFailure(loader->LoadImage("odd.png"), Complaint("odd.png", IL_ILLEGAL_FILE_VALUE));
        SetPictureInteger(what, what == IL_IMAGE_HEIGHT ? 2 : 4); // as it is
    }
    SetPictureInteger(IL_IMAGE_BYTES_PER_PIXEL, 32); // four doubles
    EXPECT_EQ(4, Keep(loader->LoadImage("odd.png")).width);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ImageDamage, BytesThatTheLibraryDoesNotHoldAreZeros)
{
    AddPicture("short.png", 4, 2);
    const ImageData whole = Keep(loader->LoadImage("short.png"));
    SetPictureInteger(IL_IMAGE_SIZE_OF_DATA, 5);
    const ImageData image = Keep(loader->LoadImage("short.png"));
    ASSERT_NE(nullptr, image.data);
    Bytes expected(whole.data, whole.data + 5);
    EXPECT_NE(Bytes(5, 0), expected);
    expected.resize(4 * 2 * 4);
    EXPECT_EQ(expected, Pixels(image, 4));
}
