// SPDX-License-Identifier: MIT
#include "music/Mp3Decoder.h"

#include <algorithm>
#include <cstdio>
#include <mpg123.h>
#include <strings.h>

// The frames that a seek leaves to be decoded ahead of the place asked for. A frame of MP3 takes bits from up to 255
// bytes before it, at the low sampling rates, where the lowest bit rate leaves it 3 bytes of its own: that is 85 frames
// of 576 samples. At 22050 Hz and 8 kbit/s 24600 samples were measured to be wrong right after a seek.
static const int64_t runUpFrames = 65536;

// An ID3 tag: 10 bytes of header, the last 4 of them the length of what follows, 7 bits a byte.
static const size_t tagHeaderBytes = 10;
static const size_t tagLengthAt = 6;

static bool IsTag(const unsigned char* bytes)
{
    return bytes[0] == 'I' && bytes[1] == 'D' && bytes[2] == '3';
}

static long TagLength(const unsigned char* bytes)
{
    long length = 0;
    for (size_t i = tagLengthAt; i < tagHeaderBytes; ++i)
        length = length << 7 | (bytes[i] & 0x7F);
    return length;
}

// 11 bits of synchronisation, then values that leave one code out for "reserved" each.
static bool IsFrameHeader(const unsigned char* bytes)
{
    const bool synchronised = bytes[0] == 0xFF && (bytes[1] & 0xE0) == 0xE0;
    const bool hasVersion = (bytes[1] & 0x18) != 0x08;
    const bool hasLayer = (bytes[1] & 0x06) != 0;
    const bool hasBitRate = (bytes[2] & 0xF0) != 0xF0;
    const bool hasSampleRate = (bytes[2] & 0x0C) != 0x0C;
    return synchronised && hasVersion && hasLayer && hasBitRate && hasSampleRate;
}

bool Mp3Decoder::Recognises(const std::string& path)
{
    FILE* file = fopen(path.c_str(), "rb");
    if (!file)
        return false;
    unsigned char bytes[tagHeaderBytes] = {};
    size_t got = fread(bytes, 1, sizeof(bytes), file);
    while (got == sizeof(bytes) && IsTag(bytes) && fseek(file, TagLength(bytes), SEEK_CUR) == 0)
        got = fread(bytes, 1, sizeof(bytes), file);
    fclose(file);
    return got >= 3 && IsFrameHeader(bytes);
}

bool Mp3Decoder::HasExtension(const std::string& path)
{
    return path.size() >= 4 && strcasecmp(path.c_str() + path.size() - 4, ".mp3") == 0;
}

static mpg123_handle* NewHandle()
{
    mpg123_init();
    mpg123_handle* handle = mpg123_new(nullptr, nullptr);
    if (!handle)
        return nullptr;
    mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_FORCE_FLOAT | MPG123_SKIP_ID3V2, 0.0);
    mpg123_param(handle, MPG123_RESYNC_LIMIT, -1, 0.0); // damage may be of any length
    mpg123_param(handle, MPG123_INDEX_SIZE, -1, 0.0);   // of every frame, so that seeks are exact
    return handle;
}

// A stream that changes its form on the way is brought into the one that it begins with.
static bool FixFormat(mpg123_handle* handle, long* rate, int* channels)
{
    int encoding = 0;
    return mpg123_getformat(handle, rate, channels, &encoding) == MPG123_OK &&
           mpg123_format_none(handle) == MPG123_OK &&
           mpg123_format(handle, *rate, *channels, MPG123_ENC_FLOAT_32) == MPG123_OK;
}

std::unique_ptr<Decoder> Mp3Decoder::Open(const std::string& path)
{
    long rate = 0;
    int channels = 0;
    mpg123_handle* handle = NewHandle();
    if (!handle)
        return nullptr;
    if (mpg123_open(handle, path.c_str()) != MPG123_OK || !FixFormat(handle, &rate, &channels) ||
        mpg123_scan(handle) != MPG123_OK) {
        mpg123_delete(handle);
        return nullptr;
    }
    return std::unique_ptr<Decoder>(new Mp3Decoder(handle, rate, channels));
}

Mp3Decoder::Mp3Decoder(mpg123_handle_struct* openHandle, long fileRate, int channels) : handle(openHandle)
{
    rate = int(fileRate);
    speakers = UsualSpeakers(channels);
}

Mp3Decoder::~Mp3Decoder()
{
    mpg123_delete(handle);
}

int Mp3Decoder::Read(float* samples)
{
    const size_t frameBytes = speakers.size() * sizeof(float);
    size_t got = 0;
    mpg123_read(handle, samples, BlockFrames * frameBytes, &got);
    return int(got / frameBytes);
}

int64_t Mp3Decoder::Seek(int64_t frame)
{
    return mpg123_seek(handle, off_t(std::max<int64_t>(frame - runUpFrames, 0)), SEEK_SET);
}
