// SPDX-License-Identifier: MIT
// The command lines of ffmpeg. The format depends on the ending of the file's name:
//
//   .mp4 .mov .m4v   H.264 and AAC, BT.709 colours, the index at the start of the file
//   .mkv             FFV1 and 32-bit float samples, both lossless
//   .webp            an animated picture without sound that begins anew at its end, as pages show it
//   others           the codecs that ffmpeg chooses for the ending
// A stream without an ending gets the format of .mkv.
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
    std::string more; // further arguments for ffmpeg, separated by blanks

    // True where, without further arguments, each frame becomes one packet of the file.
    bool HasOnePacketPerFrame() const;
};

// True if the format can't have an odd width or height.
bool NeedsEvenSize(const std::string& output);

// True if the output is an animated picture, by its ending .webp.
bool IsAnimation(const std::string& output);

// The command that reads frames on its standard input (4 bytes a pixel, bottom row first) and, with sound,
// stereo frames on "pipe:3".
std::vector<std::string> EncoderCommand(const Encoding& encoding);

// The command that reads a list of parts (JoinList) on its standard input, and the music on "pipe:3". The
// encoded pictures are copied.
std::vector<std::string> JoinCommand(const Encoding& encoding);
struct VideoPart {
    std::string path;
    int64_t frames;
};
std::string JoinList(const std::vector<VideoPart>& parts, const FrameRate& rate);

} // namespace capture
