// SPDX-License-Identifier: MIT
#include "tests/resources/ImageFixture.h"

#include "platform/EmbeddedFiles.h"
#include "platform/EmbeddedFilesHooks.h"
#include "resources/TextureLoaderHooks.h"
#include "tests/support/BytesInUse.h"

#include <filesystem>

class ImageFormats : public ImageFixture
{
};

TEST_F(ImageFormats, AnRgbPngComesTopRowFirstWithItsBytesUntouched)
{
    const ImageData image = LoadPngOf(PngRgb, 8, 3);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 3), Pixels(image, 3));
}

TEST_F(ImageFormats, AnInterlacedPngIsTheSamePicture)
{
    EXPECT_EQ(PatternBytes(33, 17, 3), Pixels(LoadPngOf(PngRgb, 8, 3, true), 3));
}

TEST_F(ImageFormats, AnRgbaPngKeepsItsAlpha)
{
    const ImageData image = LoadPngOf(PngRgba, 8, 4);
    EXPECT_EQ(4, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 4), Pixels(image, 4));
}

TEST_F(ImageFormats, AGreyPngGoesOutAsRgbInABufferThatGlCanRead)
{
    const ImageData image = LoadPngOf(PngGrey, 8, 1);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 1), Pixels(image, 1));
    EXPECT_EQ(Bytes(33 * 17 * 2), Bytes(image.data + 33 * 17, image.data + 33 * 17 * 3));
}

TEST_F(ImageFormats, AGreyPngWithAlphaGoesOutAsRgbInABufferThatGlCanRead)
{
    const ImageData image = LoadPngOf(PngGreyAlpha, 8, 2);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 2), Pixels(image, 2));
    EXPECT_EQ(Bytes(33 * 17), Bytes(image.data + 33 * 17 * 2, image.data + 33 * 17 * 3));
}

TEST_F(ImageFormats, APalettePngIsHandedOnWithoutConversion)
{
    const ImageData image = LoadPngOf(PngPalette, 8, 1);
    EXPECT_EQ(3, image.components);
    EXPECT_EQ(PatternBytes(33, 17, 1), Pixels(image, 1)); // indices, not colours
    EXPECT_EQ(Bytes(33 * 17 * 2), Bytes(image.data + 33 * 17, image.data + 33 * 17 * 3));
}

TEST_F(ImageFormats, A16BitPngIsHandedOnWithTwoBytesAChannel)
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

TEST_F(ImageFormats, A16BitPngWithAlphaHas8BytesAPixelAndSoThreeComponents)
{
    EXPECT_EQ(3, LoadPngOf(PngRgba, 16, 8).components);
}

TEST_F(ImageFormats, A16BitGreyPngWithAlphaHas4BytesAPixelAndSoFourComponents)
{
    EXPECT_EQ(4, LoadPngOf(PngGreyAlpha, 16, 4).components);
}

TEST_F(ImageFormats, AJpegComesTopRowFirstWhateverItsSidesAndKind)
{
    const int sides[][2] = {{1, 1}, {2, 1}, {1, 2}, {7, 5}, {8, 8}, {17, 9}, {33, 31}, {64, 40}};
    for (const int* side : sides)
        for (bool progressive : {false, true}) {
            const Picture slope = SlopePicture(side[0], side[1]);
            SaveJpeg(PathOf("slope.jpg"), slope, progressive);
            const ImageData image = Keep(loader->LoadImage("slope.jpg"));
            ASSERT_TRUE(boxes.empty()) << side[0] << " by " << side[1];
            ASSERT_EQ(side[0], image.width);
            ASSERT_EQ(side[1], image.height);
            EXPECT_EQ(3, image.components);
            for (size_t i = 0; i < slope.pixels.size(); i++) // colour is kept at half the resolution
                ASSERT_NEAR(slope.pixels[i], image.data[i], 8) << side[0] << " by " << side[1] << ", " << i;
        }
}

TEST_F(ImageFormats, AGreyJpegGoesOutAsRgbInABufferThatGlCanRead)
{
    AddPicture("grey.jpg", PlainPicture(9, 5, 1, 100, 0, 0));
    const ImageData image = Keep(loader->LoadImage("grey.jpg"));
    EXPECT_EQ(3, image.components);
    EXPECT_NEAR(100, image.data[44], 1);
    EXPECT_EQ(Bytes(90), Bytes(image.data + 45, image.data + 135));
}

TEST_F(ImageFormats, TheExtensionPlaysNoPart)
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

TEST_F(ImageFormats, EveryPictureStaysWithTheLibraryUnderANameOfItsOwn)
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

TEST_F(ImageFormats, APathMayNameTheDataDirectoryInAnySpelling)
{
    AddPicture("there.png", 2, 3);
    for (const char* path : {"data\\there.png", "Data\\there.png", "data/there.png", "Data/there.png"}) {
        EXPECT_EQ(3, Keep(loader->LoadImageFile(path)).height) << path;
        EXPECT_EQ(3, Keep(loader->LoadJpegFile(path)).height) << path;
    }
    EXPECT_EQ(3, Keep(loader->LoadImageFile(PathOf("there.png"))).height);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ImageFormats, TheJpegLoaderCallsEverythingThreeComponents)
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

static std::vector<std::string> seenPictures;

TEST_F(ImageFormats, AnObserverIsToldOfEachPictureAheadOfItsDecoding)
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

// ---- The other loaders

TEST_F(ImageFormats, AWindowsBitmapIsReadByItsOwnLoader)
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

TEST_F(ImageFormats, AFileThatIsNoWindowsBitmapIsReportedWithItsPath)
{
    AddPicture("picture.png");
    ExpectFailure(loader->LoadDibFile("data\\picture.png"),
                  PathOf("picture.png") + ": Could Not Load Texture");
    ExpectFailure(loader->LoadDibFile(PathOf("none.bmp")), PathOf("none.bmp") + ": Could Not Load Texture");
    ExpectFailure(loader->LoadDibFile(PathOf("")), PathOf("") + ": Could Not Load Texture");
}

TEST_F(ImageFormats, ABitmapResourceIsPackedIntoABufferOfFourBytesAPixel)
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

TEST_F(ImageFormats, ABitmapResourceLeavesNothingInMemoryButItsPixels)
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

TEST_F(ImageFormats, AResourceThatIsNoBitmapGivesNothingAndSaysNothing)
{
    for (const char* name : {"start-form.png", "not-there.bmp", ""})
        EXPECT_EQ(nullptr, loader->LoadBitmapResource(name).data) << name;
    EXPECT_EQ(nullptr, loader->LoadBitmapResource(nullptr).data);
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitWasPosted());
}

TEST_F(ImageFormats, ABlankImageIsAllZeroRgba)
{
    const ImageData image = Keep(loader->MakeBlankImage(5, 3));
    EXPECT_EQ(5, image.width);
    EXPECT_EQ(3, image.height);
    EXPECT_EQ(4, image.components);
    EXPECT_EQ(Bytes(60), Pixels(image, 4));
}

TEST_F(ImageFormats, ABlankImageOfNoSizeIsThereButEmpty)
{
    const int sizes[][2] = {{0, 0}, {-1, -1}, {-50000, -50000}, {-1, 4}, {4, -1}, {0, 4}};
    for (const auto& size : sizes) {
        const ImageData image = Keep(loader->MakeBlankImage(size[0], size[1]));
        EXPECT_NE(nullptr, image.data) << size[0] << " by " << size[1];
        EXPECT_EQ(size[0], image.width);
        EXPECT_EQ(size[1], image.height);
    }
}
