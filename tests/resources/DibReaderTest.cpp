// SPDX-License-Identifier: MIT
#include "resources/DibReader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

typedef std::vector<unsigned char> Bytes;

static void Put16(Bytes* bytes, size_t at, unsigned value)
{
    (*bytes)[at] = static_cast<unsigned char>(value);
    (*bytes)[at + 1] = static_cast<unsigned char>(value >> 8);
}

static void Put32(Bytes* bytes, size_t at, unsigned value)
{
    Put16(bytes, at, value);
    Put16(bytes, at + 2, value >> 16);
}

// The two headers of a bitmap whose pixels start at byte `start`.
static Bytes Headers(int width, int height, unsigned bits, unsigned start = 54)
{
    Bytes bytes(54);
    bytes[0] = 'B';
    bytes[1] = 'M';
    Put32(&bytes, 10, start);
    Put32(&bytes, 14, 40);
    Put32(&bytes, 18, static_cast<unsigned>(width));
    Put32(&bytes, 22, static_cast<unsigned>(height));
    Put16(&bytes, 26, 1);
    Put16(&bytes, 28, bits);
    return bytes;
}

static Bytes With(Bytes bytes, const Bytes& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}

// 2 by 2, 24 bits: rows of 6 bytes and 2 of padding, the lower row first.
static Bytes Small24(int height = 2)
{
    return With(Headers(2, height, 24), {1, 2, 3, 4, 5, 6, 0xEE, 0xEE, 7, 8, 9, 10, 11, 12, 0xEE, 0xEE});
}

// 3 by 1 with a palette of 2 rows behind the headers.
static Bytes Small8()
{
    Bytes bytes = With(Headers(3, 1, 8, 62), {10, 20, 30, 0, 40, 50, 60, 0, 0, 1, 0, 0xEE});
    Put32(&bytes, 46, 2);
    return bytes;
}

static Bytes Small32(unsigned compression = 0)
{
    Bytes bytes = With(Headers(1, 2, 32), {1, 2, 3, 99, 4, 5, 6, 99});
    Put32(&bytes, 30, compression);
    return bytes;
}

// Exactly as large as told, so that a read behind the end is found.
static bool Read(const Bytes& bytes, ImageData* image)
{
    Bytes exact(bytes);
    exact.shrink_to_fit();
    return ReadDib(exact.data(), exact.size(), image);
}

static Bytes PixelsOf(const Bytes& bytes)
{
    ImageData image;
    image.components = 4;
    if (!Read(bytes, &image))
        return {};
    EXPECT_EQ(3, image.components);
    const Bytes pixels(image.data, image.data + size_t(image.width) * size_t(image.height) * 3);
    FreeImage(&image);
    return pixels;
}

static bool IsRefused(const Bytes& bytes)
{
    ImageData image;
    image.width = 77;
    const bool refused = !Read(bytes, &image);
    if (refused) {
        EXPECT_EQ(nullptr, image.data) << "the record is not to be touched";
        EXPECT_EQ(77, image.width);
    }
    FreeImage(&image);
    return refused;
}

TEST(DibReader, TurnsRowsAndColoursRoundAndSkipsThePadding)
{
    EXPECT_EQ((Bytes{9, 8, 7, 12, 11, 10, 3, 2, 1, 6, 5, 4}), PixelsOf(Small24()));
}

TEST(DibReader, KeepsTheRowsOfATopDownBitmap)
{
    EXPECT_EQ((Bytes{3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10}), PixelsOf(Small24(-2)));
}

TEST(DibReader, TellsTheSidesAsPositiveNumbers)
{
    for (int height : {2, -2}) {
        ImageData image;
        ASSERT_TRUE(Read(Small24(height), &image));
        EXPECT_EQ(2, image.width);
        EXPECT_EQ(2, image.height);
        FreeImage(&image);
    }
}

TEST(DibReader, LeavesTheFourthByteOf32BitsAway)
{
    EXPECT_EQ((Bytes{6, 5, 4, 3, 2, 1}), PixelsOf(Small32()));
}

TEST(DibReader, TakesBitFieldsInTheUsualOrder)
{
    Bytes bytes = With(Headers(1, 1, 32, 66), Bytes(12));
    Put32(&bytes, 30, 3);
    Put32(&bytes, 54, 0x00FF0000);
    Put32(&bytes, 58, 0x0000FF00);
    Put32(&bytes, 62, 0x000000FF);
    bytes = With(bytes, {1, 2, 3, 4});
    EXPECT_EQ((Bytes{3, 2, 1}), PixelsOf(bytes));

    for (size_t mask : {54, 58, 62}) {
        Bytes other = bytes;
        other[mask + 3] = 1;
        EXPECT_TRUE(IsRefused(other)) << mask;
    }
}

TEST(DibReader, RefusesBitFieldsWhoseMasksAreNotThere)
{
    Bytes bytes = Headers(1, 1, 32, 50); // the pixel lies inside the headers
    Put32(&bytes, 30, 3);
    for (size_t more = 0; more < 12; more++)
        EXPECT_TRUE(IsRefused(With(bytes, Bytes(more)))) << more;
}

TEST(DibReader, TakesBitFieldsWhoseMasksEndTheFile)
{
    Bytes bytes = With(Headers(1, 1, 32, 50), {0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0});
    Put32(&bytes, 30, 3);
    EXPECT_FALSE(IsRefused(bytes));
    ImageData image;
    EXPECT_FALSE(ReadDib(bytes.data(), bytes.size() - 1, &image)) << "though the last byte is in memory";
}

TEST(DibReader, RefusesOtherCompressionsThatHaveTheMasksOfBitFields)
{
    Bytes bytes = With(Headers(1, 1, 32, 50), {0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0});
    for (unsigned compression : {1u, 2u, 4u}) {
        Put32(&bytes, 30, compression);
        EXPECT_TRUE(IsRefused(bytes)) << compression;
    }
}

TEST(DibReader, RefusesBitFieldsOf24Bits)
{
    Bytes bytes = With(Headers(1, 1, 24, 66), {0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0, 1, 2, 3, 4});
    EXPECT_FALSE(IsRefused(bytes));
    Put32(&bytes, 30, 3);
    EXPECT_TRUE(IsRefused(bytes));
}

TEST(DibReader, LooksUpThePalette)
{
    EXPECT_EQ((Bytes{30, 20, 10, 60, 50, 40, 30, 20, 10}), PixelsOf(Small8()));
}

TEST(DibReader, ShowsAnIndexBehindThePaletteAsBlack)
{
    Bytes bytes = Small8();
    bytes[63] = 2;
    EXPECT_EQ((Bytes{30, 20, 10, 0, 0, 0, 30, 20, 10}), PixelsOf(bytes));
}

TEST(DibReader, TakesAFullPaletteWhereNoCountIsTold)
{
    Bytes palette;
    for (int i = 0; i < 256; i++)
        palette.insert(palette.end(), {static_cast<unsigned char>(i), 1, 2, 0});
    const Bytes bytes = With(With(Headers(4, 1, 8, 54 + 1024), palette), {0, 1, 254, 255});
    for (unsigned told : {0u, 256u, 257u, 0xFFFFFFFFu}) {
        Bytes counted = bytes;
        Put32(&counted, 46, told);
        EXPECT_EQ((Bytes{2, 1, 0, 2, 1, 1, 2, 1, 254, 2, 1, 255}), PixelsOf(counted)) << told;
    }
}

TEST(DibReader, TakesAFullPaletteThatEndsTheFile)
{
    const Bytes bytes = With(Headers(1, 1, 8, 50), Bytes(1024, 7)); // the pixel lies inside the headers
    EXPECT_EQ((Bytes{7, 7, 7}), PixelsOf(bytes));
}

TEST(DibReader, FindsThePaletteBehindALongerHeader)
{
    Bytes bytes = With(Headers(1, 1, 8, 70), Bytes(8)); // a header of 48 bytes
    Put32(&bytes, 14, 48);
    Put32(&bytes, 46, 2);
    EXPECT_EQ((Bytes{6, 5, 4}), PixelsOf(With(bytes, {1, 2, 3, 0, 4, 5, 6, 0, 1, 0, 0, 0})));
}

TEST(DibReader, RefusesAPaletteThatIsNotAllThere)
{
    // The pixels lie inside the headers, so that only the palette reaches the end of the file.
    Bytes bytes = Headers(1, 1, 8, 40);
    Put32(&bytes, 46, 3);
    EXPECT_FALSE(IsRefused(With(bytes, Bytes(12))));
    for (size_t size = 0; size < 12; size++)
        EXPECT_TRUE(IsRefused(With(bytes, Bytes(size)))) << size;
    Put32(&bytes, 14, 0xFFFFFFFF);
    EXPECT_TRUE(IsRefused(With(bytes, Bytes(12))));
}

TEST(DibReader, WantsTheSignature)
{
    for (size_t at : {0, 1}) {
        Bytes bytes = Small24();
        bytes[at]++;
        EXPECT_TRUE(IsRefused(bytes)) << at;
    }
}

TEST(DibReader, WantsTheHeaderOfWindowsOrALongerOne)
{
    Bytes bytes = Small24();
    Put32(&bytes, 14, 39);
    EXPECT_TRUE(IsRefused(bytes));
    Put32(&bytes, 14, 12);
    EXPECT_TRUE(IsRefused(bytes));
    Put32(&bytes, 14, 124);
    EXPECT_FALSE(IsRefused(bytes));
}

TEST(DibReader, WantsOnePlaneAndNoCompression)
{
    for (unsigned planes : {0u, 2u}) {
        Bytes bytes = Small24();
        Put16(&bytes, 26, planes);
        EXPECT_TRUE(IsRefused(bytes)) << planes;
    }
    for (unsigned compression : {1u, 2u, 4u, 5u, 0x10000u})
        EXPECT_TRUE(IsRefused(Small32(compression))) << compression;
}

TEST(DibReader, KnowsThreeDepths)
{
    for (unsigned bits = 0; bits <= 64; bits++) {
        const bool known = bits == 8 || bits == 24 || bits == 32;
        EXPECT_EQ(!known, IsRefused(With(Headers(1, 1, bits), Bytes(1024 + 8)))) << bits;
    }
}

TEST(DibReader, RefusesSidesThatNoPictureHas)
{
    const Bytes pixels(64);
    EXPECT_TRUE(IsRefused(With(Headers(0, 1, 24), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(-1, 1, 24), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(1, 0, 24), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(1, INT32_MIN, 24), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(INT32_MAX, INT32_MAX, 24), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(INT32_MAX, INT32_MAX, 32), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(1, INT32_MAX, 8), pixels)));
    EXPECT_TRUE(IsRefused(With(Headers(1, INT32_MIN + 1, 8), pixels)));
}

TEST(DibReader, RefusesABitmapThatIsCutOffAnywhere)
{
    for (const Bytes& whole : {Small24(), Small24(-2), Small8(), Small32()})
        for (size_t size = 0; size < whole.size(); size++)
            EXPECT_TRUE(IsRefused(Bytes(whole.begin(), whole.begin() + long(size)))) << size;
}

TEST(DibReader, WantsBothHeadersWhole)
{
    EXPECT_FALSE(IsRefused(Headers(1, 1, 24, 50))); // the pixel lies inside them
    Bytes bytes = Headers(1, 1, 24, 49);
    bytes.pop_back();
    EXPECT_TRUE(IsRefused(bytes));
}

TEST(DibReader, RefusesPixelsThatStartBehindTheEnd)
{
    for (unsigned start : {55u, 69u, 70u, 71u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        Bytes bytes = Small24();
        Put32(&bytes, 10, start);
        EXPECT_TRUE(IsRefused(bytes)) << start;
    }
}

TEST(DibReader, ReadsNothingOutOfBoundsWhateverTheFileHolds)
{
    std::mt19937 random(20061);
    const Bytes seeds[] = {Small24(), Small24(-2), Small8(), Small32(), Small32(3)};
    int read = 0;
    for (int round = 0; round < 40000; round++) {
        Bytes bytes = seeds[random() % 5];
        bytes = With(bytes, Bytes(random() % 40));
        const size_t changes = 1 + random() % 4;
        for (size_t i = 0; i < changes; i++)
            bytes[random() % bytes.size()] = random() % 3 ? static_cast<unsigned char>(random() % 8)
                                                          : static_cast<unsigned char>(random());
        if (random() % 4 == 0)
            bytes.resize(random() % (bytes.size() + 1));
        ImageData image;
        if (!Read(bytes, &image))
            continue;
        read++;
        ASSERT_GT(image.width, 0);
        ASSERT_GT(image.height, 0);
        ASSERT_LE(size_t(image.width) * size_t(image.height), bytes.size());
        unsigned sum = 0;
        for (int i = 0; i < image.width * image.height * 3; i++)
            sum += image.data[i];
        ASSERT_LE(sum, 255u * unsigned(image.width * image.height * 3));
        FreeImage(&image);
    }
    EXPECT_GT(read, 4000); // enough of them got as far as the pixels
}
