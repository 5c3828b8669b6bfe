// SPDX-License-Identifier: MIT
#include "tools/capture/FfmpegProcess.h"

#include "tools/capture/Interruption.h"

#include <cerrno>

namespace capture
{

FfmpegProcess::~FfmpegProcess()
{
    Finish();
}

bool FfmpegProcess::Start(const std::vector<std::string>& command, int outputTo)
{
    platform::ChildSettings settings;
    settings.pipes = 2;
    settings.outputTo = outputTo;
    if (process.Start(command, settings)) {
        ContinueOnInterruption(process.Id());
        return true;
    }
    error = process.cause == ENOENT
                ? command[0] + " is not installed, or not on PATH: videos are made with it"
                : process.error;
    return false;
}

bool FfmpegProcess::Finish()
{
    const bool good = process.Finish();
    ContinueOnInterruption(0);
    if (!good && error.empty())
        error = process.error;
    return good;
}

} // namespace capture
