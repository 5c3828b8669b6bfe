// SPDX-License-Identifier: MIT
#include "music/OggPages.h"

#include <algorithm>
#include <cstdio>
#include <vector>

// A page has a header of 27 bytes and up to 255 segments, a byte of length and up to 255 bytes of content
// each.
static const size_t headerBytes = 27;
static const size_t maxPageBytes = headerBytes + 255 + 255 * 255;

// Every packet takes a segment at least, and no packet of Vorbis or Opus has more frames than Opus' longest.
static const int64_t maxPageFrames = 255 * 5760;

// Offsets into the header. All numbers are little-endian.
static const size_t granuleAt = 6; // i64, frames up to the end of the last packet that ends here, or -1
static const size_t serialAt = 14; // u32, of the stream

static uint64_t ReadNumber(const std::string& bytes, size_t at, int size)
{
    uint64_t number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + size_t(i)]);
    return number;
}

static std::string ReadEnd(const std::string& path)
{
    FILE* file = fopen(path.c_str(), "rb");
    if (!file)
        return "";
    fseek(file, 0, SEEK_END);
    fseek(file, std::max<long>(ftell(file) - long(2 * maxPageBytes), 0), SEEK_SET);
    std::string bytes(2 * maxPageBytes, '\0');
    bytes.resize(fread(bytes.data(), 1, bytes.size(), file));
    fclose(file);
    return bytes;
}

int64_t LastOggPageFrames(const std::string& path)
{
    const std::string bytes = ReadEnd(path);
    bool found = false;
    uint64_t serial = 0;
    int64_t end = 0;
    size_t at = bytes.size();
    while (at > 0 && (at = bytes.rfind("OggS", at - 1)) != std::string::npos) {
        if (at + headerBytes > bytes.size())
            continue;
        const int64_t granule = int64_t(ReadNumber(bytes, at + granuleAt, 8));
        const uint64_t itsSerial = ReadNumber(bytes, at + serialAt, 4);
        if (granule < 0 || (found && itsSerial != serial))
            continue;
        if (found)
            return end - granule >= 0 && end - granule <= maxPageFrames ? end - granule : maxPageFrames;
        found = true;
        serial = itsSerial;
        end = granule;
    }
    return maxPageFrames;
}
