// SPDX-License-Identifier: MIT
// ffmpeg or ffprobe at work. An interruption of the capture (see Interruption.h) lets it go on if somebody
// stopped it, since the capture could not end without it.
#pragma once

#include "platform/ChildProcess.h"

namespace capture
{

class FfmpegProcess
{
public:
    ~FfmpegProcess(); // closes its inputs and waits

    // With two pipes: standard input, and the one that it knows as "pipe:3". Its standard output is kept
    // unless `outputTo` is a descriptor for it. False: `Error` says why. Once per object.
    bool Start(const std::vector<std::string>& command, int outputTo = -1);

    // Closes the inputs and waits. False if it failed: `Error` says how.
    bool Finish();

    std::string Error() const { return error; }

    platform::ChildProcess process;

private:
    std::string error;
};

} // namespace capture
