// SPDX-License-Identifier: MIT
#include "resources/TextureLoader.h"

#include "kernel/Report.h"
#include "platform/EmbeddedFiles.h"
#include "platform/EmbeddedFilesHooks.h"
#include "resources/TextureLoaderHooks.h"
#include "tests/resources/ImageLibrary.h"
#include "tests/support/BoxWatch.h"
#include "tests/support/BytesInUse.h"
#include "tests/support/PictureKinds.h"
#include "tests/support/ReadFile.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/WithoutNewThreads.h"

#include <IL/il.h>
#include <IL/ilu.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

typedef std::vector<unsigned char> Bytes;

class ImageLoading : public ShowFixture
{
protected:
    ImageLoading() : loader(TextureLoader::GetInstance()) {}

    ~ImageLoading() override
    {
        for (ImageData& image : images)
            FreeImage(&image);
        ForgetPictureIntegers();
    }

    // The same, freed with the fixture.
    ImageData Keep(ImageData image)
    {
        images.push_back(image);
        return image;
    }

    Bytes Pixels(const ImageData& image, int bytesPerPixel) const
    {
        return Bytes(image.data, image.data + image.width * image.height * bytesPerPixel);
    }

    ImageData LoadPngOf(PngColour colour, int depth, int bytesPerPixel, bool interlaced = false)
    {
        RawPng png;
        png.width = 33;
        png.height = 17;
        png.colour = colour;
        png.depth = depth;
        png.interlaced = interlaced;
        png.bytes = PatternBytes(33, 17, bytesPerPixel);
        if (colour == PngPalette) {
            png.palette = PatternBytes(16, 16, 3);
        }
        SaveRawPng(PathOf("picture.png"), png);
        const ImageData image = Keep(loader->LoadImage("picture.png"));
        EXPECT_TRUE(boxes.empty());
        EXPECT_EQ(33, image.width);
        EXPECT_EQ(17, image.height);
        return image;
    }

    // One box with this text, one quit, no pixels.
    void ExpectFailure(const ImageData& image, std::string text)
    {
        EXPECT_EQ(nullptr, image.data);
        EXPECT_EQ(0, image.width);
        EXPECT_EQ(0, image.height);
        EXPECT_EQ(3, image.components);
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: Texture Loader", boxes[0].caption);
        EXPECT_EQ("Bad: " + text + ErrorTail, boxes[0].body);
        EXPECT_TRUE(QuitWasPosted());
        boxes.clear();
    }

    std::string Complaint(std::string name, const char* words) const
    {
        return PathOf(name) + ": Could not load texture. \n" + words;
    }

    std::string Complaint(std::string name, unsigned error) const
    {
        return PathOf(name) + ": Could not load texture. \n" + iluErrorString(error);
    }

    // A file that is cut off or broken may load or not, but it must do one of the two whole.
    void ExpectWholeAnswer(std::string name)
    {
        ImageData image = loader->LoadImage(name);
        if (image.data) {
            EXPECT_TRUE(boxes.empty());
            EXPECT_FALSE(QuitWasPosted());
            unsigned sum = 0; // every byte that GL would read is there
            for (int i = 0; i < image.width * image.height * image.components; i++)
                sum += image.data[i];
            EXPECT_LE(sum, 255u * unsigned(image.width * image.height * image.components));
        } else {
            EXPECT_EQ(1u, boxes.size());
            EXPECT_TRUE(QuitWasPosted());
        }
        FreeImage(&image);
        boxes.clear();
    }

    TextureLoader* loader;
    std::vector<ImageData> images;
};

// ---- Sound pictures

TEST_F(ImageLoading, AnRgbPngComesTopRowFirstWithItsBytesUntouched)
{
    const ImageData image = LoadPngOf(PngRgb, 8, 3);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 3), Pixels(image, 3));
}

TEST_F(ImageLoading, AnInterlacedPngIsTheSamePicture)
{
    EXPECT_EQ(PatternBytes(33, 17, 3), Pixels(LoadPngOf(PngRgb, 8, 3, true), 3));
}

TEST_F(ImageLoading, AnRgbaPngKeepsItsAlpha)
{
    const ImageData image = LoadPngOf(PngRgba, 8, 4);
    EXPECT_EQ(4, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 4), Pixels(image, 4));
}

TEST_F(ImageLoading, AGreyPngGoesOutAsRgbInABufferThatGlCanRead)
{
    const ImageData image = LoadPngOf(PngGrey, 8, 1);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 1), Pixels(image, 1));
    EXPECT_EQ(Bytes(33 * 17 * 2), Bytes(image.data + 33 * 17, image.data + 33 * 17 * 3));
}

TEST_F(ImageLoading, AGreyPngWithAlphaGoesOutAsRgbInABufferThatGlCanRead)
{
    const ImageData image = LoadPngOf(PngGreyAlpha, 8, 2);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 2), Pixels(image, 2));
    EXPECT_EQ(Bytes(33 * 17), Bytes(image.data + 33 * 17 * 2, image.data + 33 * 17 * 3));
}

TEST_F(ImageLoading, APalettePngIsHandedOnWithoutConversion)
{
    const ImageData image = LoadPngOf(PngPalette, 8, 1);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 1), Pixels(image, 1)); // indices, not colours
    EXPECT_EQ(Bytes(33 * 17 * 2), Bytes(image.data + 33 * 17, image.data + 33 * 17 * 3));
}

TEST_F(ImageLoading, A16BitPngIsHandedOnWithTwoBytesAChannel)
{
    const ImageData image = LoadPngOf(PngRgb, 16, 6);
    EXPECT_EQ(3, image.components);
    const Bytes inTheFile = PatternBytes(33, 17, 6);
    const Bytes loaded = Pixels(image, 6);
    for (size_t i = 0; i < loaded.size(); i += 2) {
        const uint16_t value = static_cast<uint16_t>(inTheFile[i] << 8 | inTheFile[i + 1]);
        ASSERT_EQ(0, memcmp(&value, &loaded[i], 2)) << i; // the machine's order
    }
}

TEST_F(ImageLoading, A16BitPngWithAlphaHas8BytesAPixelAndSoThreeComponents)
{
    EXPECT_EQ(3, LoadPngOf(PngRgba, 16, 8).components);
}

TEST_F(ImageLoading, A16BitGreyPngWithAlphaHas4BytesAPixelAndSoFourComponents)
{
    EXPECT_EQ(4, LoadPngOf(PngGreyAlpha, 16, 4).components);
}

TEST_F(ImageLoading, AJpegComesTopRowFirstWhateverItsSidesAndKind)
{
    const int sides[][2] = {{1, 1}, {2, 1}, {1, 2}, {7, 5}, {8, 8}, {17, 9}, {33, 31}, {64, 40}};
    for (const int* side : sides)
        for (bool progressive : {false, true}) {
            const Picture slope = SlopePicture(side[0], side[1]);
            if (progressive)
                SaveProgressiveJpeg(PathOf("slope.jpg"), slope);
            else
                SaveJpeg(PathOf("slope.jpg"), slope);
            const ImageData image = Keep(loader->LoadImage("slope.jpg"));
            ASSERT_TRUE(boxes.empty()) << side[0] << " by " << side[1];
            ASSERT_EQ(side[0], image.width);
            ASSERT_EQ(side[1], image.height);
            EXPECT_EQ(3, image.components);
            for (size_t i = 0; i < slope.pixels.size(); i++) // colour is kept at half the resolution
                ASSERT_NEAR(slope.pixels[i], image.data[i], 8) << side[0] << " by " << side[1] << ", " << i;
        }
}

TEST_F(ImageLoading, AGreyJpegGoesOutAsRgbInABufferThatGlCanRead)
{
    AddPicture("grey.jpg", PlainPicture(9, 5, 1, 100, 0, 0));
    const ImageData image = Keep(loader->LoadImage("grey.jpg"));
    EXPECT_EQ(3, image.components);
    EXPECT_NEAR(100, image.data[44], 1);
    EXPECT_EQ(Bytes(90), Bytes(image.data + 45, image.data + 135));
}

TEST_F(ImageLoading, TheExtensionPlaysNoPart)
{
    SavePng(PathOf("really.png"), PlainPicture(3, 2, 3, 1, 2, 3));
    SaveJpeg(PathOf("really.jpg"), PlainPicture(3, 2, 3, 1, 2, 3));
    for (const char* kind : {".png", ".jpg"})
        for (const char* name : {"liar.jpg", "liar.png", "liar.xpm", "liar.what", "liarwithnoname"}) {
            std::filesystem::copy_file(PathOf(std::string("really") + kind), PathOf(name),
                                       std::filesystem::copy_options::overwrite_existing);
            const ImageData image = Keep(loader->LoadImage(name));
            EXPECT_TRUE(boxes.empty()) << name << kind;
            EXPECT_EQ(3, image.width) << name << kind;
            EXPECT_EQ(2, image.height) << name << kind;
        }
}

TEST_F(ImageLoading, EveryPictureStaysWithTheLibraryUnderANameOfItsOwn)
{
    AddPicture("first.png", 2, 2);
    AddPicture("second.png", 3, 3);
    Keep(loader->LoadImage("first.png"));
    const int first = ilGetInteger(IL_CUR_IMAGE);
    Keep(loader->LoadImage("second.png"));
    const int second = ilGetInteger(IL_CUR_IMAGE);
    EXPECT_NE(first, second);
    EXPECT_TRUE(ilIsImage(ILuint(first)));
    EXPECT_TRUE(ilIsImage(ILuint(second)));
    ilBindImage(ILuint(first));
    EXPECT_EQ(2, ilGetInteger(IL_IMAGE_WIDTH));
}

TEST_F(ImageLoading, APathMayNameTheDataDirectoryInAnySpelling)
{
    AddPicture("there.png", 2, 3);
    for (const char* path : {"data\\there.png", "Data\\there.png", "data/there.png", "Data/there.png"}) {
        EXPECT_EQ(3, Keep(loader->LoadImageFile(path)).height) << path;
        EXPECT_EQ(3, Keep(loader->LoadJpegFile(path)).height) << path;
    }
    EXPECT_EQ(3, Keep(loader->LoadImageFile(PathOf("there.png"))).height);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ImageLoading, TheJpegLoaderCallsEverythingThreeComponents)
{
    RawPng png;
    png.width = 2;
    png.height = 2;
    png.colour = PngRgba;
    png.bytes = PatternBytes(2, 2, 4);
    SaveRawPng(PathOf("alpha.png"), png);
    const ImageData image = Keep(loader->LoadJpegFile(PathOf("alpha.png")));
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(2, 2, 4), Pixels(image, 4)); // all of it is there
}

// ---- What can't be loaded

static std::vector<std::string> seenPictures;

TEST_F(ImageLoading, AnObserverIsToldOfEachPictureAheadOfItsDecoding)
{
    AddPicture("one.png", 2, 2);
    ObservePictures([](const std::string& path) { seenPictures.push_back(path); });
    Keep(loader->LoadImage("one.png"));
    loader->LoadImage("missing.png");
    EXPECT_EQ((std::vector<std::string>{PathOf("one.png"), PathOf("missing.png")}), seenPictures);
    ObservePictures(nullptr);
    Keep(loader->LoadImage("one.png"));
    EXPECT_EQ(2u, seenPictures.size());
}

TEST_F(ImageLoading, ANameOfFourCharactersFailsWithoutTouchingTheFileSystem)
{
    AddPicture("a.jp.png", 1, 1);
    std::filesystem::rename(PathOf("a.jp.png"), PathOf("a.jp"));
    for (const char* name : {"a.jp", "abc", "ab", "a", ""})
        ExpectFailure(loader->LoadImage(name), std::string(name) + ": Could Not Load Texture");
}

TEST_F(ImageLoading, ANameOfFiveCharactersIsLookedFor)
{
    AddPicture("a.png", 1, 1);
    EXPECT_EQ(1, Keep(loader->LoadImage("a.png")).width);
    ExpectFailure(loader->LoadImage("b.png"), Complaint("b.png", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageLoading, AMissingFileIsReportedWithTheLibrarysWords)
{
    ExpectFailure(loader->LoadImage("missing.jpg"), Complaint("missing.jpg", IL_COULD_NOT_OPEN_FILE));
    ExpectFailure(loader->LoadImageFile("data\\missing.jpg"),
                  Complaint("missing.jpg", IL_COULD_NOT_OPEN_FILE));
    ExpectFailure(loader->LoadImageFile("/nowhere/missing.jpg"),
                  "/nowhere/missing.jpg: Could not load texture. \n" +
                      std::string(iluErrorString(IL_COULD_NOT_OPEN_FILE)));
}

TEST_F(ImageLoading, AMissingFileIsReportedBeforeTheQuitIsPosted)
{
    BoxWatch watch;
    EXPECT_EQ(nullptr, loader->LoadImage("nowhere.png").data);
    EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox);
    EXPECT_TRUE(QuitWasPosted());
}

// The library's reader would wait for ever for the rest of some of them.
TEST_F(ImageLoading, AJpegThatIsCutAnywhereIsLoadedOrTold)
{
    const std::string comment = "\xFF\xFE" + std::string("\0\x0C", 2) + "waltz time";
    for (bool progressive : {false, true}) {
        const Picture slope = SlopePicture(9, 7);
        if (progressive)
            SaveProgressiveJpeg(PathOf("slope.jpg"), slope);
        else
            SaveJpeg(PathOf("slope.jpg"), slope);
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

TEST_F(ImageLoading, TheJpegLoaderReportsInItsOwnWords)
{
    ExpectFailure(loader->LoadJpegFile("data\\missing.jpg"), PathOf("missing.jpg") +
                                                                 ": Could not load jpg-texture. \n" +
                                                                 iluErrorString(IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageLoading, AnEmptyFileIsReported)
{
    AddFile("empty.jpg", "");
    ExpectFailure(loader->LoadImage("empty.jpg"), Complaint("empty.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageLoading, ADirectoryIsReported)
{
    std::filesystem::create_directory(PathOf("folder.jpg"));
    ExpectFailure(loader->LoadImage("folder.jpg"), Complaint("folder.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageLoading, APipeDoesNotStopTheShow)
{
    ASSERT_EQ(0, mkfifo(PathOf("pipe.jpg").c_str(), 0600));
    ExpectFailure(loader->LoadImage("pipe.jpg"), Complaint("pipe.jpg", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ImageLoading, ATextNamedLikeAPictureIsReported)
{
    AddFile("text.jpg", "The night is long, and the waltz waits for nobody.\n");
    ExpectFailure(loader->LoadImage("text.jpg"), Complaint("text.jpg", IL_LIB_JPEG_ERROR));
    AddFile("text.png", "The night is long, and the waltz waits for nobody.\n");
    ExpectFailure(loader->LoadImage("text.png"), Complaint("text.png", IL_INVALID_VALUE));
}

TEST_F(ImageLoading, AFileThatMayNotBeReadIsReported)
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

TEST_F(ImageLoading, APngCutOffInTheMiddleIsReported)
{
    AddPicture("whole.png", SlopePicture(40, 40));
    const std::string whole = ReadFile(PathOf("whole.png"));
    AddFile("cut.png", whole.substr(0, whole.size() / 2));
    ExpectFailure(loader->LoadImage("cut.png"), Complaint("cut.png", IL_LIB_PNG_ERROR));
}

TEST_F(ImageLoading, AJpegCutOffInTheMiddleIsReported)
{
    for (bool progressive : {false, true}) {
        if (progressive)
            SaveProgressiveJpeg(PathOf("whole.jpg"), SlopePicture(40, 40));
        else
            SaveJpeg(PathOf("whole.jpg"), SlopePicture(40, 40));
        const std::string whole = ReadFile(PathOf("whole.jpg"));
        AddFile("cut.jpg", whole.substr(0, whole.size() / 2));
        ExpectFailure(loader->LoadImage("cut.jpg"), Complaint("cut.jpg", IL_LIB_JPEG_ERROR));
    }
}

TEST_F(ImageLoading, APngCutOffAnywhereNeitherHangsNorReadsOutOfBounds)
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

TEST_F(ImageLoading, AJpegCutOffAnywhereNeitherHangsNorReadsOutOfBounds)
{
    SaveJpeg(PathOf("whole.jpg"), SlopePicture(9, 5));
    const std::string whole = ReadFile(PathOf("whole.jpg"));
    for (size_t size = 1; size < whole.size(); size += 3) {
        AddFile("cut.jpg", whole.substr(0, size));
        ExpectWholeAnswer("cut.jpg");
    }
}

TEST_F(ImageLoading, APictureOfInsaneSidesIsRefusedUnseen)
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

TEST_F(ImageLoading, APictureOfTooManyPixelsIsRefusedUnseen)
{
    AddPicture("whole.png", 3, 3);
    std::string png = ReadFile(PathOf("whole.png"));
    png.replace(16, 8, std::string("\x00\x00\x40\x00\x00\x00\x40\x00", 8)); // 16384 by 16384
    AddFile("large.png", png);
    ExpectFailure(loader->LoadImage("large.png"),
                  Complaint("large.png", "The picture has more than 67108864 pixels."));
}

TEST_F(ImageLoading, AFileThatIsTooShortForItsPictureIsRefusedUnseen)
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
}

TEST_F(ImageLoading, ASideOf16384IsSane)
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

TEST_F(ImageLoading, APictureOfWhichTheLibraryTellsImpossibleSidesIsRefused)
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

TEST_F(ImageLoading, BytesThatTheLibraryDoesNotHoldAreZeros)
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

// 3 by 2 pixels of 24 bits: 9 bytes and 3 of padding a row, the lower row first.
static std::string SmallBitmap()
{
    return std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0", 30) +
           std::string(24, '\0') + std::string("lkjonmrqp\xEE\xEE\xEE", 12) +
           std::string("cbafedihg\xEE\xEE\xEE", 12);
}

// ---- Foreign formats, decoded in a child

class ForeignPictures : public ImageLoading
{
protected:
    ForeignPictures()
    {
        SetChildFate(ChildLives);
        AddFile("small.ppm", "P6 2 2 255\n" + pixels);
    }

    const std::string pixels = "abcdefghijkl";
};

TEST_F(ForeignPictures, AreDecodedInAnotherProcessAndArriveWhole)
{
    const ImageData image = Keep(loader->LoadImage("small.ppm"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(2, image.width);
    EXPECT_EQ(2, image.height);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(pixels, std::string(image.data, image.data + 12));
    EXPECT_NE(0, LastForeignDecoder());
    EXPECT_NE(getpid(), LastForeignDecoder());
}

TEST_F(ForeignPictures, ArriveWholeWhenTheyAreLarge)
{
    std::string large;
    for (int i = 0; i < 700 * 500 * 3; i++)
        large += static_cast<char>(i * 31 + i / 251);
    AddFile("large.ppm", "P6 700 500 255\n" + large);
    const ImageData image = Keep(loader->LoadImage("large.ppm"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(large, std::string(image.data, image.data + large.size()));
}

TEST_F(ForeignPictures, AreKnownByTheirContentToo)
{
    std::filesystem::copy_file(PathOf("small.ppm"), PathOf("liar.jpg"));
    EXPECT_EQ(2, Keep(loader->LoadImage("liar.jpg")).width);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ForeignPictures, FailWithTheLibrarysWordsFromTheChild)
{
    AddFile("odd.what", "nothing that anybody knows");
    ExpectFailure(loader->LoadImage("odd.what"), Complaint("odd.what", IL_INVALID_EXTENSION));
}

TEST_F(ForeignPictures, MayKillTheChildAndNotTheShow)
{
    for (ChildFate fate : {ChildCrashes, ChildCrashesAsItDecodes, ChildExits}) {
        SetChildFate(fate);
        ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    }
    SetChildFate(ChildLives);
    EXPECT_EQ(2, Keep(loader->LoadImage("small.ppm")).width);
}

TEST_F(ForeignPictures, FailWhereTheSystemRefusesTheChild)
{
    chmod(PathOf(".").c_str(), 0755); // for a process that is not root's any more
    WithoutNewThreads(
        [this] { ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR)); });
}

TEST_F(ForeignPictures, AreWaitedForThroughSignals)
{
    FailSystemCalls(3, EINTR);
    const ImageData image = Keep(loader->LoadImage("small.ppm"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(pixels, std::string(image.data, image.data + 12));
    FailSystemCalls(0, 0);
    EXPECT_EQ(-1, waitpid(LastForeignDecoder(), nullptr, 0)) << "the child is left as a zombie";
    FailSystemCalls(1, EINTR);
    SetChildFate(ChildExits);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
}

TEST_F(ForeignPictures, LeaveNoPipeOpen)
{
    const auto openDescriptors = [] {
        const std::filesystem::directory_iterator descriptors("/proc/self/fd");
        return std::distance(begin(descriptors), end(descriptors));
    };
    const auto before = openDescriptors();
    Keep(loader->LoadImage("small.ppm"));
    SetChildFate(ChildCrashes);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    EXPECT_EQ(before, openDescriptors());
}

TEST_F(ForeignPictures, OfWhichTheLibraryHoldsLessThanItTellsFail)
{
    SetPictureInteger(IL_IMAGE_SIZE_OF_DATA, 5);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
}

TEST_F(ForeignPictures, FailWhereTheirPipeDoes)
{
    FailSystemCalls(1, EIO);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    FailSystemCalls(0, 0);
}

TEST_F(ForeignPictures, FailWhereTheLibraryFailsAtTheKindThatTheirContentTells)
{
    AddFile("cut.gif", std::string("GIF89a\2\0\2\0\0\0\0", 13) + "!!!!!!");
    EXPECT_EQ(nullptr, loader->LoadImage("cut.gif").data);
    EXPECT_EQ(1u, boxes.size());
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(ForeignPictures, MayHangTheChildForTenSecondsOnly)
{
    std::signal(SIGALRM, SIG_IGN); // as whatever started the show may have left it
    SetChildFate(ChildHangs);
    ExpectFailure(loader->LoadImage("small.ppm"), Complaint("small.ppm", IL_INTERNAL_ERROR));
    EXPECT_EQ(10u, LastAlarm());
    EXPECT_FALSE(OutlivedAlarm());
    std::signal(SIGALRM, SIG_DFL);
}

TEST_F(ForeignPictures, MayTakeTwoGibibytesMoreThanTheShowAndLeaveNoCoreFile)
{
    rlimit limit;
    ASSERT_EQ(0, getrlimit(RLIMIT_CORE, &limit));
    limit.rlim_cur = limit.rlim_max;
    ASSERT_EQ(0, setrlimit(RLIMIT_CORE, &limit));
    SetChildFate(ChildLives);
    void* const room = mmap(nullptr, 1 << 30, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    EXPECT_EQ(2, Keep(loader->LoadImage("small.ppm")).width);
    munmap(room, 1 << 30);
    EXPECT_NEAR(2048.0, double(LastMemoryRoom()) / (1 << 20), 64)
        << "mebibytes, less what it took up to there";
    EXPECT_EQ(0u, LastCoreLimit());
}

TEST_F(ForeignPictures, OfASingleByteArriveWhole)
{
    AddFile("dot.tga", std::string("\0\0\3\0\0\0\0\0\0\0\0\0\1\0\1\0\x08\0", 18) + '\xC8');
    const ImageData image = Keep(loader->LoadImage("dot.tga"));
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(0xC8, image.data[0]);
}

TEST_F(ForeignPictures, ThatTellOfMoreThanTheyHoldAreRefused)
{
    const char* const tooLong = "The picture has a side of more than 16384 pixels.";
    const char* const tooMany = "The picture has more than 67108864 pixels.";
    const char* const tooShort = "The file is too short for the picture that it tells of.";
    AddFile("wrong.png", "P6 65536 65536 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooLong));
    AddFile("wrong.png", "P6 1431655766 1 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooLong));
    AddFile("wrong.png", "P5 16384 16384 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooMany));
    AddFile("wrong.png", "P6 8192 8192 255\nabcabcabc");
    ExpectFailure(loader->LoadImage("wrong.png"), Complaint("wrong.png", tooShort));

    std::string bitmap = SmallBitmap();
    bitmap.replace(18, 8, std::string("\0\0\1\0\0\0\1\0", 8)); // 65536 by 65536
    AddFile("wrong.bmp", bitmap);
    ExpectFailure(loader->LoadImage("wrong.bmp"), Complaint("wrong.bmp", tooLong));

    std::string targa = std::string("\0\0\2\0\0\0\0\0\0\0\0\0\xE8\3\xE8\3\x18\0", 18) + "abc";
    AddFile("wrong.tga", targa);
    ExpectFailure(loader->LoadImage("wrong.tga"), Complaint("wrong.tga", tooShort));
}

TEST_F(ForeignPictures, OfWhichTheLibraryMakesMoreThanTheFileCanHoldAreRefused)
{
    // 8000 by 8000 in a format whose header is not looked into; the library makes up what is missing.
    AddFile("large.cut", std::string("\x40\x1F\x40\x1F\0\0\0\0abc", 11));
    ExpectFailure(loader->LoadImage("large.cut"),
                  Complaint("large.cut", "The file is too short for the picture that it tells of."));
}

TEST_F(ForeignPictures, AreTheOnlyOnesThatNeedAChild)
{
    SetChildFate(ChildCrashes);
    AddPicture("own.png", 2, 2);
    AddPicture("own.jpg", 2, 2);
    EXPECT_EQ(2, Keep(loader->LoadImage("own.png")).width);
    EXPECT_EQ(2, Keep(loader->LoadImage("own.jpg")).width);
    ExpectFailure(loader->LoadImage("missing.tga"), Complaint("missing.tga", IL_COULD_NOT_OPEN_FILE));
}

TEST_F(ForeignPictures, ThatAreBrokenGiveTheirBox)
{
    // A picture of one plane that claims a million; the library's reader crashes on some of these.
    std::string psd("8BPS\0\1\0\0\0\0\0\0\0\x03\0\0\x03\xE8\0\0\x03\xE8\0\x08\0\x03", 26);
    psd += std::string(14, '\0') + std::string(200, '\x81');
    for (size_t size = 4; size < psd.size(); size += 7) {
        AddFile("broken.psd", psd.substr(0, size));
        ExpectWholeAnswer("broken.psd");
    }
}

// ---- The other loaders

TEST_F(ImageLoading, AWindowsBitmapIsReadByItsOwnLoader)
{
    AddFile("old.bmp", SmallBitmap());
    for (const std::string& path : {std::string("data\\old.bmp"), PathOf("old.bmp")}) {
        const ImageData image = Keep(loader->LoadDibFile(path));
        ASSERT_NE(nullptr, image.data) << path;
        EXPECT_EQ(3, image.width);
        EXPECT_EQ(2, image.height);
        EXPECT_EQ(3, image.components);
        EXPECT_EQ("abcdefghijklmnopqr", std::string(image.data, image.data + 18));
    }
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitWasPosted());
}

TEST_F(ImageLoading, AFileThatIsNoWindowsBitmapIsReportedWithItsPath)
{
    AddPicture("picture.png");
    ExpectFailure(loader->LoadDibFile("data\\picture.png"),
                  PathOf("picture.png") + ": Could Not Load Texture");
    ExpectFailure(loader->LoadDibFile(PathOf("none.bmp")), PathOf("none.bmp") + ": Could Not Load Texture");
    ExpectFailure(loader->LoadDibFile(PathOf("")), PathOf("") + ": Could Not Load Texture");
}

TEST_F(ImageLoading, ABitmapResourceIsPackedIntoABufferOfFourBytesAPixel)
{
    const std::string bytes = SmallBitmap();
    const platform::EmbeddedFile files[] = {
        {"moon.bmp", reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()},
        {nullptr, nullptr, 0},
    };
    platform::UseEmbeddedFiles(files);
    const ImageData image = Keep(loader->LoadBitmapResource("moon.bmp"));
    platform::UseEmbeddedFiles(nullptr);
    ASSERT_NE(nullptr, image.data);
    EXPECT_EQ(3, image.width);
    EXPECT_EQ(2, image.height);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(std::string("abcdefghijklmnopqr") + std::string(6, '\0'),
              std::string(image.data, image.data + 24));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ImageLoading, ABitmapResourceLeavesNothingInMemoryButItsPixels)
{
    const std::string bytes = SmallBitmap();
    const platform::EmbeddedFile files[] = {
        {"moon.bmp", reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()},
        {nullptr, nullptr, 0},
    };
    platform::UseEmbeddedFiles(files);
    const size_t before = BytesInUse();
    for (int i = 0; i < 1000; i++) {
        ImageData image = loader->LoadBitmapResource("moon.bmp");
        FreeImage(&image);
    }
    platform::UseEmbeddedFiles(nullptr);
    EXPECT_LT(BytesInUse(), before + 1000) << "a byte for each";
}

TEST_F(ImageLoading, AResourceThatIsNoBitmapGivesNothingAndSaysNothing)
{
    for (const char* name : {"start-form.png", "not-there.bmp", ""})
        EXPECT_EQ(nullptr, loader->LoadBitmapResource(name).data) << name;
    EXPECT_EQ(nullptr, loader->LoadBitmapResource(nullptr).data);
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitWasPosted());
}

TEST_F(ImageLoading, ABlankImageIsAllZeroRgba)
{
    const ImageData image = Keep(loader->MakeBlankImage(5, 3));
    EXPECT_EQ(5, image.width);
    EXPECT_EQ(3, image.height);
    EXPECT_EQ(4, image.components);
    EXPECT_EQ(Bytes(60), Pixels(image, 4));
}

TEST_F(ImageLoading, ABlankImageOfNoSizeIsThereButEmpty)
{
    const int sizes[][2] = {{0, 0}, {-1, -1}, {-50000, -50000}, {-1, 4}, {4, -1}, {0, 4}};
    for (const auto& size : sizes) {
        const ImageData image = Keep(loader->MakeBlankImage(size[0], size[1]));
        EXPECT_NE(nullptr, image.data) << size[0] << " by " << size[1];
        EXPECT_EQ(size[0], image.width);
        EXPECT_EQ(size[1], image.height);
    }
}

TEST(ImageDataRecord, StartsAsAFailureOfThreeComponents)
{
    const ImageData image;
    EXPECT_EQ(nullptr, image.data);
    EXPECT_EQ(0, image.width);
    EXPECT_EQ(0, image.height);
    EXPECT_EQ(3, image.components);
}

TEST(ImageDataRecord, PixelsAreZerosAndThereEvenIfThereAreNone)
{
    unsigned char* const pixels = AllocatePixels(1000);
    EXPECT_EQ(Bytes(1000), Bytes(pixels, pixels + 1000));
    FreePixels(pixels);
    unsigned char* const none = AllocatePixels(0);
    EXPECT_NE(nullptr, none);
    FreePixels(none);
}

TEST(ImageDataRecord, FreeingKeepsTheSizesAndMayBeDoneTwice)
{
    ImageData image;
    image.data = AllocatePixels(12);
    image.width = 2;
    image.height = 2;
    FreeImage(&image);
    EXPECT_EQ(nullptr, image.data);
    EXPECT_EQ(2, image.width);
    EXPECT_EQ(2, image.height);
    FreeImage(&image);
}
