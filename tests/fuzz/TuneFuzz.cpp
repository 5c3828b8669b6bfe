// SPDX-License-Identifier: MIT
// Music files, read from their start and from places that the end of the input tells.
#include "music/StereoReader.h"
#include "tests/fuzz/FuzzInput.h"

#include <cmath>
#include <cstdlib>

static const int mixRate = 44100;
static const int pieceFrames = 1024;

// Some pieces, and never an endless wait for one.
static void Read(StereoReader* reader, int pieces)
{
    StereoFrame stereo[pieceFrames];
    for (int tries = 0; tries < 2000 && pieces > 0 && !reader->IsAtEnd(); ++tries) {
        const int got = reader->Read(stereo, pieceFrames);
        if (got < 0 || got > pieceFrames)
            abort();
        for (int i = 0; i < got; ++i)
            if (!std::isfinite(stereo[i].left) || !std::isfinite(stereo[i].right))
                abort();
        pieces -= got > 0;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const uint32_t farSeek = TakeFuzzNumber(data, &size);
    const uint32_t nearSeek = TakeFuzzNumber(data, &size);
    // The decoders look at the name for MP3 alone.
    const std::string path = WriteFuzzInput(nearSeek % 4 == 0 ? "tune.mp3" : "tune", data, size);
    std::unique_ptr<Decoder> decoder = OpenDecoder(path, mixRate);
    if (!decoder)
        return 0;
    StereoReader reader(std::move(decoder), mixRate);
    Read(&reader, 4);
    for (int64_t frame :
         {int64_t(nearSeek % 65536), int64_t(0), int64_t(farSeek) * 30, int64_t(farSeek % 4096)}) {
        reader.Seek(frame);
        Read(&reader, 4);
    }
    return 0;
}
