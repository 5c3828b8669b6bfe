// SPDX-License-Identifier: MIT
#include "art/music/SoundFile.h"

#include <sndfile.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace waltz
{

constexpr double quality = 0.6;
constexpr uint32_t serialNumber = 0x4d4f4f4e; // "MOON"

// The library writes long buffers of Vorbis on the stack: small ones, then.
constexpr int64_t chunk = 2048;

static bool WriteFrames(SNDFILE* file, const Stereo& sound)
{
    Samples frames(2 * chunk);
    for (int64_t begin = 0; begin < sound.Size(); begin += chunk) {
        const int64_t count = std::min(chunk, sound.Size() - begin);
        for (int64_t i = 0; i < count; i++) {
            frames[2 * i] = sound.left[begin + i];
            frames[2 * i + 1] = sound.right[begin + i];
        }
        if (sf_writef_float(file, frames.data(), count) != count)
            return false;
    }
    return true;
}

static uint32_t OggChecksum(const unsigned char* bytes, size_t count)
{
    uint32_t sum = 0;
    for (size_t i = 0; i < count; i++) {
        sum ^= uint32_t(bytes[i]) << 24;
        for (int bit = 0; bit < 8; bit++)
            sum = (sum & 0x80000000u) != 0 ? (sum << 1) ^ 0x04c11db7u : sum << 1;
    }
    return sum;
}

static void StoreLittleEndian(unsigned char* bytes, uint32_t value)
{
    for (int i = 0; i < 4; i++)
        bytes[i] = static_cast<unsigned char>(value >> (8 * i));
}

// Gives every page of an Ogg file our serial number, and the checksum that goes with it.
static bool SetSerialNumber(const std::string& path)
{
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    if (file == nullptr)
        return false;
    std::vector<unsigned char> bytes;
    unsigned char block[65536];
    for (size_t count; (count = std::fread(block, 1, sizeof block, file)) > 0;)
        bytes.insert(bytes.end(), block, block + count);
    bool whole = !bytes.empty();
    size_t at = 0;
    // A page: 27 bytes of header, of which 14 to 17 are the serial number and 22 to 25 the checksum; byte 26
    // is the number of segments, their lengths follow, then the segments.
    while (whole && at < bytes.size()) {
        whole = at + 27 <= bytes.size() && std::memcmp(&bytes[at], "OggS", 4) == 0 &&
                at + 27 + bytes[at + 26] <= bytes.size();
        if (!whole)
            break;
        size_t length = 27 + bytes[at + 26];
        for (size_t i = 0; i < bytes[at + 26]; i++)
            length += bytes[at + 27 + i];
        whole = at + length <= bytes.size();
        if (!whole)
            break;
        StoreLittleEndian(&bytes[at + 14], serialNumber);
        StoreLittleEndian(&bytes[at + 22], 0);
        StoreLittleEndian(&bytes[at + 22], OggChecksum(&bytes[at], length));
        at += length;
    }
    std::rewind(file);
    whole = whole && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && whole;
}

static SNDFILE* OpenToWrite(const std::string& path, int format)
{
    SF_INFO info = {};
    info.samplerate = sampleRate;
    info.channels = 2;
    info.format = format;
    return sf_open(path.c_str(), SFM_WRITE, &info);
}

bool WriteWave(const std::string& path, const Stereo& sound)
{
    SNDFILE* file = OpenToWrite(path, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    if (file == nullptr)
        return false;
    // Without it the header holds the time of writing.
    sf_command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    const bool written = WriteFrames(file, sound);
    return sf_close(file) == 0 && written;
}

bool WriteVorbis(const std::string& path, const Stereo& sound)
{
    SNDFILE* file = OpenToWrite(path, SF_FORMAT_OGG | SF_FORMAT_VORBIS);
    if (file == nullptr)
        return false;
    double amount = quality;
    sf_command(file, SFC_SET_VBR_ENCODING_QUALITY, &amount, sizeof amount);
    sf_set_string(file, SF_STR_TITLE, "moonwaltz");
    sf_set_string(file, SF_STR_ARTIST, "tessel");
    sf_set_string(file, SF_STR_LICENSE, "CC BY 4.0");
    const bool written = WriteFrames(file, sound);
    return sf_close(file) == 0 && written && SetSerialNumber(path);
}

bool ReadSound(const std::string& path, Stereo& sound)
{
    SF_INFO info = {};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (file == nullptr)
        return false;
    sound = {};
    const bool fits = info.channels == 2 && info.samplerate == sampleRate;
    Samples frames(2 * chunk);
    while (fits) {
        const sf_count_t count = sf_readf_float(file, frames.data(), chunk);
        if (count <= 0)
            break;
        for (sf_count_t i = 0; i < count; i++) {
            sound.left.push_back(frames[2 * i]);
            sound.right.push_back(frames[2 * i + 1]);
        }
    }
    sf_close(file);
    return fits && sound.Size() > 0;
}

} // namespace waltz
