// SPDX-License-Identifier: MIT
// What ffmpeg is told to make of the frames, by the end of the file's name.
//
//   .mp4 .mov .m4v   H.264 and AAC for every player, the colours of HDTV, the index in front
//   .mkv             FFV1 and float samples: each pixel and each sample as the show made it
//   others           what ffmpeg makes of such a name
// A stream without an ending in its name gets what .mkv has.
#pragma once

#include "tools/capture/FrameRate.h"

#include <vector>

namespace capture
{

struct Encoding {
    std::string output;    // "-" is standard output
    bool streamed = false; // the output can't be read back or sought in: a pipe, a device
    int width = 0;
    int height = 0;
    FrameRate rate;
    int threads = 1;
    bool sound = false;
    std::string more; // further arguments, divided by blanks

    // True where, without further arguments, each frame becomes one packet of the file.
    bool HasOnePacketPerFrame() const;
};

// True if the format can't have an odd width or height.
bool NeedsEvenSize(const std::string& output);

// The command that reads frames on its standard input (4 bytes a pixel, bottom row first) and, with sound,
// stereo frames on "pipe:3".
std::vector<std::string> EncoderCommand(const Encoding& encoding);

// The command that reads a list of parts on its standard input (JoinList) and the music as above. The
// pictures are taken over as they are.
std::vector<std::string> JoinCommand(const Encoding& encoding);
struct VideoPart {
    std::string path;
    int64_t frames;
};
std::string JoinList(const std::vector<VideoPart>& parts, const FrameRate& rate);

} // namespace capture
