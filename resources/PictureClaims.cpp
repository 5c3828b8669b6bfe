// SPDX-License-Identifier: MIT
#include "resources/PictureClaims.h"

#include <IL/il.h>

#include <algorithm>

// The best compression of each format.
static const uint64_t deflatedBytesPerByte = 1032;    // of the compression of PNG
static const uint64_t jpegPixelsPerByte = 512;        // a bit for each block of 8 by 8
static const uint64_t faxPixelsPerByte = 16384 * 8;   // a bit for each row
static const uint64_t bitmapRunPixelsPerByte = 16384; // 2 bytes end a row that is left blank, 2 all of them

static unsigned Byte(const std::string& bytes, size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

static unsigned Big16(const std::string& bytes, size_t at)
{
    return Byte(bytes, at) << 8 | Byte(bytes, at + 1);
}

static unsigned Big32(const std::string& bytes, size_t at)
{
    return Big16(bytes, at) << 16 | Big16(bytes, at + 2);
}

static unsigned Little16(const std::string& bytes, size_t at)
{
    return Byte(bytes, at) | Byte(bytes, at + 1) << 8;
}

static unsigned Little32(const std::string& bytes, size_t at)
{
    return Little16(bytes, at) | Little16(bytes, at + 2) << 16;
}

// The length of a picture that is stored in runs of at most maxRun values, of which each takes a byte more than its
// value.
static uint64_t RunBytes(uint64_t values, uint64_t valueBytes, uint64_t maxRun)
{
    return values / maxRun * (valueBytes + 1);
}

// Whether the length in bytes can be calculated in 64 bits. A claim of larger sides has none: it is refused in any
// case.
static bool SidesCanBeCounted(const PictureClaim& claim)
{
    return claim.width <= UINT32_MAX && claim.height <= MaxPictureSide * MaxPictureSide &&
           claim.width * claim.height <= UINT64_MAX / 64;
}

PictureClaim LoosestPictureClaim(uint64_t width, uint64_t height)
{
    PictureClaim claim;
    claim.width = width;
    claim.height = height;
    if (SidesCanBeCounted(claim))
        claim.fewestBytes = width * height / faxPixelsPerByte;
    return claim;
}

static PictureClaim PngClaim(const std::string& bytes)
{
    static const unsigned channels[] = {1, 1, 3, 1, 2, 1, 4}; // for each colour type
    PictureClaim claim;
    if (bytes.size() < 26)
        return claim;
    claim.width = Big32(bytes, 16);
    claim.height = Big32(bytes, 20);
    const unsigned colourType = std::min(Byte(bytes, 25), 6u);
    const uint64_t bits = uint64_t{std::min(Byte(bytes, 24), 16u)} * channels[colourType];
    if (SidesCanBeCounted(claim))
        claim.fewestBytes = (claim.width * bits + 7) / 8 * claim.height / deflatedBytesPerByte;
    return claim;
}

static bool StartsFrame(unsigned marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

static const unsigned lengthBytes = 2; // of a segment's length, which counts itself

static bool HasLength(unsigned marker)
{
    return marker > 0x01 && (marker < 0xD0 || marker > 0xD8);
}

// Goes from marker to marker as the decoder does, to the one that tells the sides.
static PictureClaim JpegClaim(const std::string& bytes)
{
    const size_t heightAt = 5; // counted from the 0xFF in front of the marker
    const size_t widthAt = 7;
    PictureClaim claim;
    size_t at = 2;
    while (at + widthAt + 2 <= bytes.size()) {
        const unsigned marker = Byte(bytes, at + 1);
        if (Byte(bytes, at) != 0xFF || marker == 0xFF) {
            ++at; // padding, or junk that the decoder skips
        } else if (StartsFrame(marker)) {
            claim.width = Big16(bytes, at + widthAt);
            claim.height = Big16(bytes, at + heightAt);
            claim.fewestBytes = claim.width * claim.height / jpegPixelsPerByte;
            return claim;
        } else {
            at += 2 + (HasLength(marker) ? Big16(bytes, at + 2) : 0);
        }
    }
    return claim;
}

bool JpegEndsInSegment(const std::string& bytes)
{
    const unsigned endOfImage = 0xD9;
    size_t at = 2;
    while (at + 4 <= bytes.size()) {
        const unsigned marker = Byte(bytes, at + 1);
        if (Byte(bytes, at) != 0xFF || marker == 0xFF) {
            ++at; // padding, coded pixels, or junk that the decoder skips
        } else if (marker == endOfImage) {
            return false;
        } else if (HasLength(marker)) {
            at += 2 + std::max(Big16(bytes, at + 2), lengthBytes);
            if (at > bytes.size())
                return true;
        } else {
            at += 2;
        }
    }
    return false;
}

// The next number of a PNM header, after blanks and comments. 0 if there is none.
static uint64_t NextNumber(const std::string& bytes, size_t* at)
{
    while (*at < bytes.size() && (Byte(bytes, *at) <= ' ' || bytes[*at] == '#')) {
        if (bytes[*at] == '#')
            *at = std::min(bytes.find('\n', *at), bytes.size() - 1);
        ++*at;
    }
    uint64_t number = 0;
    while (*at < bytes.size() && bytes[*at] >= '0' && bytes[*at] <= '9' && number <= UINT32_MAX)
        number = number * 10 + uint64_t(bytes[(*at)++] - '0');
    return number;
}

static PictureClaim PnmClaim(const std::string& bytes)
{
    PictureClaim claim;
    size_t at = 2;
    claim.width = NextNumber(bytes, &at);
    claim.height = NextNumber(bytes, &at);
    const uint64_t pixels = claim.width * claim.height;
    if (bytes.size() < 2 || !SidesCanBeCounted(claim) || pixels == 0)
        return claim;
    switch (bytes[1]) {
    case '1': // a digit for each pixel
    case '5':
        claim.fewestBytes = pixels;
        break;
    case '2': // a digit and a blank for each value
        claim.fewestBytes = pixels * 2 - 1;
        break;
    case '3':
        claim.fewestBytes = pixels * 6 - 1;
        break;
    case '4':
        claim.fewestBytes = (claim.width + 7) / 8 * claim.height;
        break;
    case '6':
        claim.fewestBytes = pixels * 3;
        break;
    }
    return claim;
}

static PictureClaim BitmapClaim(const std::string& bytes)
{
    PictureClaim claim;
    if (bytes.size() < 34)
        return claim;
    claim.width = Little32(bytes, 18);
    const int64_t height = static_cast<int32_t>(Little32(bytes, 22)); // below 0 with the top row first
    claim.height = uint64_t(height < 0 ? -height : height);
    if (!SidesCanBeCounted(claim))
        return claim;
    const uint64_t bits = std::min(Little16(bytes, 28), 32u);
    const unsigned compression = Little32(bytes, 30);
    const bool inRuns = compression == 1 || compression == 2;
    if (inRuns)
        claim.fewestBytes = claim.width * claim.height / bitmapRunPixelsPerByte;
    else
        claim.fewestBytes = (claim.width * bits + 7) / 8 * claim.height;
    return claim;
}

static PictureClaim TargaClaim(const std::string& bytes)
{
    PictureClaim claim;
    if (bytes.size() < 18)
        return claim;
    claim.width = Little16(bytes, 12);
    claim.height = Little16(bytes, 14);
    const uint64_t valueBytes = (std::min(Byte(bytes, 16), 32u) + 7) / 8;
    const uint64_t pixels = claim.width * claim.height;
    const bool inRuns = (Byte(bytes, 2) & 8) != 0;
    claim.fewestBytes = inRuns ? RunBytes(pixels, valueBytes, 128) : pixels * valueBytes;
    return claim;
}

static PictureClaim SgiClaim(const std::string& bytes)
{
    PictureClaim claim;
    if (bytes.size() < 12)
        return claim;
    const bool inRuns = Byte(bytes, 2) != 0;
    const uint64_t valueBytes = Byte(bytes, 3) == 2 ? 2 : 1;
    const unsigned dimensions = Big16(bytes, 4);
    const uint64_t channels = dimensions < 3 ? 1 : std::min(Big16(bytes, 10), 4u);
    claim.width = Big16(bytes, 6);
    claim.height = dimensions < 2 ? 1 : Big16(bytes, 8);
    // Rows in runs may be shared, but each has an entry of 8 bytes in the table of rows.
    claim.fewestBytes =
        inRuns ? claim.height * channels * 8 : claim.width * claim.height * channels * valueBytes;
    return claim;
}

static PictureClaim PcxClaim(const std::string& bytes)
{
    PictureClaim claim;
    if (bytes.size() < 66)
        return claim;
    const unsigned right = Little16(bytes, 8);
    const unsigned bottom = Little16(bytes, 10);
    claim.width = right - std::min(Little16(bytes, 4), right) + 1;
    claim.height = bottom - std::min(Little16(bytes, 6), bottom) + 1;
    const uint64_t bits = uint64_t{std::min(Byte(bytes, 3), 8u)} * std::min(Byte(bytes, 65), 4u);
    claim.fewestBytes = RunBytes(claim.width * bits / 8 * claim.height, 1, 63);
    return claim;
}

static PictureClaim PhotoshopClaim(const std::string& bytes)
{
    PictureClaim claim;
    if (bytes.size() < 26)
        return claim;
    claim.height = Big32(bytes, 14);
    claim.width = Big32(bytes, 18);
    // In runs, the closest that it packs.
    if (SidesCanBeCounted(claim))
        claim.fewestBytes = RunBytes(claim.width * claim.height, 1, 128);
    return claim;
}

// Its pictures may be smaller than its screen, so no more is known of them.
static PictureClaim GifClaim(const std::string& bytes)
{
    if (bytes.size() < 10)
        return PictureClaim();
    return LoosestPictureClaim(Little16(bytes, 6), Little16(bytes, 8));
}

PictureClaim ReadPictureClaim(unsigned type, const std::string& bytes)
{
    switch (type) {
    case IL_PNG:
        return PngClaim(bytes);
    case IL_JPG:
        return JpegClaim(bytes);
    case IL_PNM:
        return PnmClaim(bytes);
    case IL_BMP:
        return BitmapClaim(bytes);
    case IL_TGA:
        return TargaClaim(bytes);
    case IL_SGI:
        return SgiClaim(bytes);
    case IL_PCX:
        return PcxClaim(bytes);
    case IL_PSD:
        return PhotoshopClaim(bytes);
    case IL_GIF:
        return GifClaim(bytes);
    default:
        return PictureClaim();
    }
}

const char* const PictureTooShort = "The file is too short for the picture that it tells of.";

const char* WhyPictureIsRefused(const PictureClaim& claim, uint64_t fileBytes)
{
    if (claim.width > MaxPictureSide || claim.height > MaxPictureSide)
        return "The picture has a side of more than 16384 pixels.";
    if (claim.width * claim.height > MaxPicturePixels)
        return "The picture has more than 67108864 pixels.";
    if (claim.fewestBytes > fileBytes)
        return PictureTooShort;
    return nullptr;
}
