// SPDX-License-Identifier: MIT
#include "resources/PictureClaims.h"

#include <IL/il.h>
#include <gtest/gtest.h>

static std::string Big(uint64_t number, int bytes)
{
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text += char(number >> (8 * i) & 255);
    return text;
}

static std::string Little(uint64_t number, int bytes)
{
    const std::string big = Big(number, bytes);
    return std::string(big.rbegin(), big.rend());
}

static std::string Zeros(size_t count)
{
    return std::string(count, '\0');
}

static std::string PngHeader(uint64_t width, uint64_t height, int depth, int colourType)
{
    return "\x89PNG\r\n\x1A\n" + Big(13, 4) + "IHDR" + Big(width, 4) + Big(height, 4) + char(depth) +
           char(colourType);
}

static std::string BmpHeader(uint32_t width, uint32_t height, int bits, int compression)
{
    return "BM" + Zeros(12) + Little(40, 4) + Little(width, 4) + Little(height, 4) + Little(1, 2) +
           Little(uint64_t(bits), 2) + Little(uint64_t(compression), 4);
}

static std::string TgaHeader(int type, uint32_t width, uint32_t height, int bits)
{
    return Zeros(2) + char(type) + Zeros(9) + Little(width, 2) + Little(height, 2) + char(bits) + '\0';
}

static std::string SgiHeader(int inRuns, int valueBytes, int dimensions, int width, int height, int channels)
{
    return Big(474, 2) + char(inRuns) + char(valueBytes) + Big(uint64_t(dimensions), 2) +
           Big(uint64_t(width), 2) + Big(uint64_t(height), 2) + Big(uint64_t(channels), 2);
}

static std::string PcxHeader(int bits, int left, int top, int right, int bottom, int planes)
{
    return std::string("\x0A\x05\x01") + char(bits) + Little(uint64_t(left), 2) + Little(uint64_t(top), 2) +
           Little(uint64_t(right), 2) + Little(uint64_t(bottom), 2) + Zeros(53) + char(planes);
}

// That the header of a sound picture is understood, down to its last byte, and one byte less tells nothing.
static void ExpectClaim(unsigned type, const std::string& header, uint64_t width, uint64_t height,
                        uint64_t fewestBytes)
{
    const PictureClaim claim = ReadPictureClaim(type, header);
    EXPECT_EQ(width, claim.width);
    EXPECT_EQ(height, claim.height);
    EXPECT_EQ(fewestBytes, claim.fewestBytes);
}

static void ExpectNoClaim(unsigned type, const std::string& header)
{
    ExpectClaim(type, header, 0, 0, 0);
    EXPECT_EQ(nullptr, WhyPictureIsRefused(ReadPictureClaim(type, header), 0))
        << "the decoder has words for it";
}

TEST(PictureClaims, OfAPngFollowItsColourTypeAndDepthAt1032To1)
{
    ExpectClaim(IL_PNG, PngHeader(100, 50, 8, 2), 100, 50, 14);
    ExpectClaim(IL_PNG, PngHeader(1000, 1000, 1, 0), 1000, 1000, 121);
    ExpectClaim(IL_PNG, PngHeader(1000, 1000, 4, 3), 1000, 1000, 484);
    ExpectClaim(IL_PNG, PngHeader(1000, 1000, 8, 4), 1000, 1000, 1937);
    ExpectClaim(IL_PNG, PngHeader(100, 100, 16, 6), 100, 100, 77);
    ExpectNoClaim(IL_PNG, PngHeader(100, 100, 16, 6).substr(0, 25));
    EXPECT_EQ(70000u, ReadPictureClaim(IL_PNG, PngHeader(70000, 0xFFFFFFFF, 8, 6)).width);
    EXPECT_EQ(0xFFFFFFFFu, ReadPictureClaim(IL_PNG, PngHeader(70000, 0xFFFFFFFF, 255, 255)).height);
}

TEST(PictureClaims, OfAPngKnowEachColourTypeAndRoundUpToWholeBytes)
{
    const uint64_t channels[] = {1, 1, 3, 1, 2, 1, 4, 4}; // 1, 5 and 7 are no types
    for (int type = 0; type < 8; type++)
        ExpectClaim(IL_PNG, PngHeader(1032, 1000, 8, type), 1032, 1000, 1000 * channels[type]);
    ExpectClaim(IL_PNG, PngHeader(1032, 1000, 8, 200), 1032, 1000, 4000);
    ExpectClaim(IL_PNG, PngHeader(1032, 1000, 17, 0), 1032, 1000, 2000);
    ExpectClaim(IL_PNG, PngHeader(1, 1032, 1, 0), 1, 1032, 1);
    ExpectClaim(IL_PNG, PngHeader(0xFFFFFFFF, 1, 8, 0), 0xFFFFFFFF, 1, 4161790);
}

TEST(PictureClaims, OfAJpegStandInItsFrameHeaderAndTakeABitForEachBlock)
{
    const std::string frame = "\xFF\xC0" + Big(17, 2) + "\x08" + Big(480, 2) + Big(640, 2);
    ExpectClaim(IL_JPG, "\xFF\xD8" + frame, 640, 480, 600);
    ExpectClaim(IL_JPG, "\xFF\xD8\xFF\xFE" + Big(9, 2) + "\xFF\xC0 no " + "  \xFF" + frame, 640, 480, 600);
    ExpectNoClaim(IL_JPG, "\xFF\xD8" + frame.substr(0, 8));
    ExpectNoClaim(IL_JPG, "\xFF\xD8");
}

// The two bytes of a marker, a length and what it counts: a frame of 1 by 1 pixel.
static std::string SmallFrame(int marker)
{
    return '\xFF' + std::string(1, char(marker)) + Big(11, 2) + "\x08" + Big(1, 2) + Big(1, 2) + "\xFF\xFF";
}

TEST(PictureClaims, OfAJpegAreFoundBehindEachMarker)
{
    const std::string frame = "\xFF\xC0" + Big(17, 2) + "\x08" + Big(480, 2) + Big(640, 2);
    for (int marker = 0; marker < 0xFF; marker++) {
        SCOPED_TRACE(marker);
        const bool isOther = marker == 0xC4 || marker == 0xC8 || marker == 0xCC; // tables, an extension
        if (marker >= 0xC0 && marker < 0xD0 && !isOther) {
            ExpectClaim(IL_JPG, "\xFF\xD8" + SmallFrame(marker) + frame, 1, 1, 0);
        } else {
            const std::string bare = '\xFF' + std::string(1, char(marker));
            const bool isBare = marker < 2 || (marker >= 0xD0 && marker <= 0xD8);
            const std::string segment = isBare ? bare : bare + Big(13, 2) + SmallFrame(0xC0).substr(0, 11);
            ExpectClaim(IL_JPG, "\xFF\xD8" + segment + frame, 640, 480, 600);
        }
    }
    ExpectClaim(IL_JPG, "\xFF\xD8\x11" + SmallFrame(0xC0).substr(1) + frame, 640, 480, 600);
}

TEST(PictureClaims, TellOfAJpegThatIsCutInsideASegment)
{
    const std::string start = "\xFF\xD8";
    const std::string comment = "\xFF\xFE" + Big(5, 2) + "abc";
    // A stuffed byte, a restart, padding.
    const std::string coded = std::string("\xFF\0 \xFF\xD3 \xFF\xFF", 8);
    EXPECT_FALSE(JpegEndsInSegment(start));
    EXPECT_FALSE(JpegEndsInSegment(start + comment));
    EXPECT_FALSE(JpegEndsInSegment(start + comment + "\xFF\xDA" + Big(2, 2) + coded + comment));
    EXPECT_TRUE(JpegEndsInSegment(start + comment.substr(0, 6)));
    EXPECT_TRUE(JpegEndsInSegment(start + comment.substr(0, 4)));
    EXPECT_FALSE(JpegEndsInSegment(start + comment.substr(0, 3))) << "has no length";
    EXPECT_TRUE(JpegEndsInSegment(start + comment + comment.substr(0, 6)));
    EXPECT_TRUE(JpegEndsInSegment(start + "\xFF\xDA" + Big(2, 2) + coded + comment.substr(0, 6)));
    EXPECT_TRUE(JpegEndsInSegment(start + "\xFF\xE0\xFF\xFF"));
    EXPECT_TRUE(JpegEndsInSegment(start + "\xFF\xCF\x70\x70"));
    EXPECT_TRUE(JpegEndsInSegment(start + "\xFF\x01" + comment.substr(0, 6)))
        << "behind a mark without a length";
    EXPECT_FALSE(JpegEndsInSegment(start + "\xFF\xDA" + Big(2, 2) + "\x12\xE1\x70\x70")) << "coded pixels";
    EXPECT_FALSE(JpegEndsInSegment(start + "\xFF\xD9" + comment.substr(0, 6)))
        << "is behind the end of the image";
    for (int tooSmall : {0, 1}) // the length counts its own two bytes, and at least these are skipped
        EXPECT_TRUE(JpegEndsInSegment(start + "\xFF\xFE" + Big(tooSmall, 2) + comment.substr(0, 6)));
}

TEST(PictureClaims, OfAPnmAreExact)
{
    ExpectClaim(IL_PNM, "P1 10 5\n", 10, 5, 50);
    ExpectClaim(IL_PNM, "P2 10 5 255\n", 10, 5, 99);
    ExpectClaim(IL_PNM, "P3 10 5 255\n", 10, 5, 299);
    ExpectClaim(IL_PNM, "P4 10 5\n", 10, 5, 10);
    ExpectClaim(IL_PNM, "P5 10 5 255\n", 10, 5, 50);
    ExpectClaim(IL_PNM, "P6 10 5 255\n", 10, 5, 150);
    ExpectClaim(IL_PNM, "P6\n# 7 8\n10#\n\t5", 10, 5, 150);
    ExpectClaim(IL_PNM, "P6#7\n10 5", 10, 5, 150);
    ExpectClaim(IL_PNM, "P4 9 5\n", 9, 5, 10);
    ExpectClaim(IL_PNM, "P4 8 5\n", 8, 5, 5);
    ExpectClaim(IL_PNM, "P7 10 5", 10, 5, 0);
    ExpectClaim(IL_PNM, "P6 1:5 7", 1, 0, 0);
    ExpectClaim(IL_PNM, "P6 42949672951 1", 42949672951, 1, 0);
    ExpectClaim(IL_PNM, "P5 4294967295 4294967295", 4294967295, 4294967295, 0);
    EXPECT_EQ(18446744073u, ReadPictureClaim(IL_PNM, "P6 18446744073709551626 1").width) << "not 10";
    for (const char* header : {"", "P", "P6", "P6 #", "P6 # without an end", "P2 x", "P6 !10 5"})
        ExpectNoClaim(IL_PNM, header);
    EXPECT_LT(MaxPictureSide, ReadPictureClaim(IL_PNM, "P6 99999999999999999999999 1 255").width);
}

TEST(PictureClaims, OfABitmapAreThoseOfItsRowsWithoutPadding)
{
    ExpectClaim(IL_BMP, BmpHeader(3, 2, 24, 0), 3, 2, 18);
    ExpectClaim(IL_BMP, BmpHeader(3, uint32_t(-2), 24, 0), 3, 2, 18);
    ExpectClaim(IL_BMP, BmpHeader(10, 5, 1, 0), 10, 5, 10);
    ExpectClaim(IL_BMP, BmpHeader(10, 5, 32, 3), 10, 5, 200);
    ExpectClaim(IL_BMP, BmpHeader(1, 5, 1, 0), 1, 5, 5);
    ExpectClaim(IL_BMP, BmpHeader(1, 8, 64, 0), 1, 8, 32);
    for (int runs : {1, 2})
        ExpectClaim(IL_BMP, BmpHeader(16384, 3, 8, runs), 16384, 3, 3);
    ExpectClaim(IL_BMP, BmpHeader(16383, 1, 8, 1), 16383, 1, 0);
    ExpectClaim(IL_BMP, BmpHeader(65536, 0x80000000, 24, 0), 65536, 0x80000000, 0);
    ExpectNoClaim(IL_BMP, BmpHeader(3, 2, 24, 0).substr(0, 33));
}

TEST(PictureClaims, OfATgaAreThoseOfItsPixelsOrOfItsRuns)
{
    ExpectClaim(IL_TGA, TgaHeader(2, 10, 5, 24), 10, 5, 150);
    ExpectClaim(IL_TGA, TgaHeader(2, 10, 5, 15), 10, 5, 100);
    ExpectClaim(IL_TGA, TgaHeader(1, 10, 5, 8), 10, 5, 50);
    ExpectClaim(IL_TGA, TgaHeader(2, 10, 5, 1), 10, 5, 50);
    ExpectClaim(IL_TGA, TgaHeader(2, 10, 5, 255), 10, 5, 200);
    ExpectClaim(IL_TGA, TgaHeader(10, 127, 1, 24), 127, 1, 0);
    ExpectClaim(IL_TGA, TgaHeader(10, 128, 4, 24), 128, 4, 16);
    ExpectClaim(IL_TGA, TgaHeader(11, 128, 4, 8), 128, 4, 8);
    ExpectNoClaim(IL_TGA, TgaHeader(2, 10, 5, 24).substr(0, 17));
}

TEST(PictureClaims, OfAnSgiAreThoseOfItsChannelsOrOfItsTableOfRows)
{
    ExpectClaim(IL_SGI, SgiHeader(0, 1, 3, 10, 20, 3), 10, 20, 600);
    ExpectClaim(IL_SGI, SgiHeader(0, 2, 3, 10, 20, 3), 10, 20, 1200);
    ExpectClaim(IL_SGI, SgiHeader(0, 1, 2, 10, 20, 3), 10, 20, 200);
    ExpectClaim(IL_SGI, SgiHeader(0, 1, 1, 10, 20, 3), 10, 1, 10);
    ExpectClaim(IL_SGI, SgiHeader(1, 1, 3, 10, 20, 4), 10, 20, 640);
    ExpectClaim(IL_SGI, SgiHeader(0, 1, 3, 10, 20, 60000), 10, 20, 800);
    ExpectNoClaim(IL_SGI, SgiHeader(0, 1, 3, 10, 20, 3).substr(0, 11));
}

TEST(PictureClaims, OfAPcxAreThoseOfItsRuns)
{
    ExpectClaim(IL_PCX, PcxHeader(8, 10, 0, 19, 4, 3), 10, 5, 4);
    ExpectClaim(IL_PCX, PcxHeader(1, 0, 100, 629, 199, 1), 630, 100, 246);
    ExpectClaim(IL_PCX, PcxHeader(255, 0, 100, 629, 199, 1), 630, 100, 2000);
    ExpectClaim(IL_PCX, PcxHeader(8, 0, 0, 62, 0, 255), 63, 1, 8);
    ExpectClaim(IL_PCX, PcxHeader(8, 20, 20, 10, 10, 1), 1, 1, 0);
    ExpectNoClaim(IL_PCX, PcxHeader(8, 10, 0, 19, 4, 3).substr(0, 65));
}

TEST(PictureClaims, OfOtherFormatsAreLoose)
{
    ExpectClaim(IL_PSD, "8BPS" + Zeros(10) + Big(10, 4) + Big(128, 4) + Big(0, 4), 128, 10, 20);
    ExpectClaim(IL_PSD, "8BPS" + Zeros(10) + Big(1, 4) + Big(127, 4) + Big(0, 4), 127, 1, 0);
    ExpectNoClaim(IL_PSD, "8BPS" + Zeros(10) + Big(10, 4) + Big(128, 4) + Big(0, 3));
    ExpectClaim(IL_GIF, "GIF89a" + Little(16384, 2) + Little(9, 2), 16384, 9, 1);
    ExpectNoClaim(IL_GIF, "GIF89a" + Little(16384, 2) + Little(9, 1));
    ExpectNoClaim(IL_TIF, std::string(100, 'x'));
    EXPECT_EQ(1u, LoosestPictureClaim(16384, 8).fewestBytes);
    EXPECT_EQ(0u, LoosestPictureClaim(16384, 7).fewestBytes);
}

TEST(PictureClaims, OfSidesThatCannotBeCountedHaveNoBytes)
{
    EXPECT_EQ(0u, LoosestPictureClaim(131071, 1).fewestBytes);
    EXPECT_EQ(2048u, LoosestPictureClaim(1, 1u << 28).fewestBytes);
    EXPECT_EQ(0u, LoosestPictureClaim(1, (1u << 28) + 1).fewestBytes);
    EXPECT_EQ(0u, LoosestPictureClaim(uint64_t{1} << 33, 1).fewestBytes);
    // The product may be 2^58 - 1, a 64th of what 64 bits hold.
    const uint64_t factors[2] = {1610612733, 178956971};
    EXPECT_EQ((uint64_t{1} << 41) - 1, LoosestPictureClaim(factors[0], factors[1]).fewestBytes);
    EXPECT_EQ((uint64_t{1} << 41) - 512, LoosestPictureClaim(0xFFFFFFFF, 1u << 26).fewestBytes);
    EXPECT_EQ(0u, LoosestPictureClaim(0xFFFFFFFF, (1u << 26) + 1).fewestBytes);
}

static const char* Refusal(uint64_t width, uint64_t height, uint64_t fewestBytes, uint64_t fileBytes)
{
    PictureClaim claim;
    claim.width = width;
    claim.height = height;
    claim.fewestBytes = fewestBytes;
    return WhyPictureIsRefused(claim, fileBytes);
}

TEST(PictureClaims, AreRefusedWithTheirReasonWhereTheyAreTooLargeForUsOrForTheFile)
{
    const char* const side = "The picture has a side of more than 16384 pixels.";
    const char* const pixels = "The picture has more than 67108864 pixels.";
    const char* const bytes = "The file is too short for the picture that it tells of.";
    EXPECT_EQ(nullptr, Refusal(16384, 4096, 100, 100));
    EXPECT_EQ(nullptr, Refusal(4096, 16384, 100, 100));
    EXPECT_EQ(nullptr, Refusal(8192, 8192, 100, 100));
    EXPECT_STREQ(side, Refusal(16385, 1, 0, 100));
    EXPECT_STREQ(side, Refusal(1, 16385, 0, 100));
    EXPECT_STREQ(side, Refusal(16385, 16384, 0, 100)) << "ahead of the pixels";
    EXPECT_STREQ(side, Refusal(uint64_t{1} << 32, uint64_t{1} << 32, 0, 100));
    EXPECT_STREQ(pixels, Refusal(8192, 8193, 0, 100));
    EXPECT_STREQ(pixels, Refusal(16384, 16384, 0, 1000000000));
    EXPECT_STREQ(pixels, Refusal(8192, 8193, 101, 100)) << "ahead of the bytes";
    EXPECT_STREQ(bytes, Refusal(8192, 8192, 101, 100));
}
