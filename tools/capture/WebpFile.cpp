// SPDX-License-Identifier: MIT
#include "tools/capture/WebpFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace capture
{

// A RIFF file: twelve bytes of head, then chunks of a name, a size and that many bytes, with one to fill up odd sizes.
static const int headSize = 12;
static const int chunkHeadSize = 8;
// A chunk "ANMF" begins with four numbers of place and size and the time that the frame is shown, three bytes each.
static const int durationPlace = 12;

static int64_t Number(const unsigned char* bytes, int count)
{
    int64_t number = 0;
    for (int i = count - 1; i >= 0; i--)
        number = number * 256 + bytes[i];
    return number;
}

// The sum of the durations; -1 if the chunks don't fill the file exactly.
static int64_t SumOfDurations(FILE* file, int64_t fileSize)
{
    unsigned char head[headSize];
    if (fread(head, 1, sizeof head, file) != sizeof head || memcmp(head, "RIFF", 4) != 0 ||
        memcmp(head + 8, "WEBP", 4) != 0 || Number(head + 4, 4) + chunkHeadSize != fileSize)
        return -1;
    int64_t sum = 0;
    int64_t place = headSize;
    while (place < fileSize) {
        unsigned char chunk[chunkHeadSize + durationPlace + 3] = {};
        if (fseek(file, long(place), SEEK_SET) != 0 || fread(chunk, 1, sizeof chunk, file) < chunkHeadSize)
            return -1;
        if (memcmp(chunk, "ANMF", 4) == 0)
            sum += Number(chunk + chunkHeadSize + durationPlace, 3);
        const int64_t size = Number(chunk + 4, 4);
        place += chunkHeadSize + size + size % 2;
    }
    return place == fileSize ? sum : -1;
}

int64_t AnimationLength(const std::string& path, std::string* error)
{
    FILE* const file = fopen(path.c_str(), "rb");
    if (!file) {
        *error = path + ": " + strerror(errno);
        return -1;
    }
    const bool sought = fseek(file, 0, SEEK_END) == 0;
    const int64_t size = ftell(file);
    rewind(file);
    const int64_t length = sought ? SumOfDurations(file, size) : -1;
    fclose(file);
    if (length < 0)
        *error = path + ": there is no whole WebP picture in it";
    return length;
}

} // namespace capture
