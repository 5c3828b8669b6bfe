// SPDX-License-Identifier: MIT
// The options of marlinex-capture, checked as far as that is possible before the show is loaded.
#pragma once

#include "tools/capture/FrameRate.h"
#include "tools/cli/CommandLine.h"

namespace capture
{

enum OutputKind { OutputVideo, OutputPictures, OutputSheet };

struct CaptureOptions {
    std::string script; // path
    std::string output; // path, or the pattern of numbered pictures (see PngSequence.h)
    OutputKind kind = OutputVideo;
    int64_t width = 1024; // pixels
    int64_t height = 768;
    FrameRate rate;
    int64_t from = 0;    // microseconds
    int64_t to = -1;     // -1: the end of the show
    int64_t every = 0;   // microseconds between pictures; 0: each frame
    int64_t segment = 1; // of segments
    int64_t segments = 1;
    int64_t columns = 6;     // of a sheet
    int64_t tiles = 30;      // of a sheet
    int64_t tileWidth = 240; // pixels
    int64_t threads = 0;     // 0: as many as there are cores
    std::string encoder;     // further arguments for ffmpeg
    bool music = true;
    bool timing = false;
    bool quiet = false;
    bool join = false;
    std::vector<std::string> parts; // paths of the videos that --join puts together, in order
};

const std::vector<cli::Option>& OptionTable();

// False after a mistake, which was reported on stderr as one line; line.exitStatus is set. Call
// platform::FindDataDirectory, and SetDataDirectory for --data, before: the default script lies there.
bool ReadOptions(cli::CommandLine& line, CaptureOptions* options);

// Two options by themselves, for other programs that have --size and --rate: what they point to stays as it is
// if the option was not given. They fail as ReadOptions does.
bool ReadSize(cli::CommandLine& line, int64_t* width, int64_t* height);
bool ReadRate(cli::CommandLine& line, FrameRate* rate);
bool ReadMoment(cli::CommandLine& line, const char* name, int64_t* microseconds); // --name=TIME

} // namespace capture
