// SPDX-License-Identifier: MIT
// The command line of marlinex-edit.
#pragma once

#include "tools/capture/FrameRate.h"
#include "tools/cli/CommandLine.h"

#include <cstdint>
#include <string>

namespace edit
{

struct Options {
    std::string script;                // empty: the last one, or the show's own
    std::string data;                  // empty: where the show looks
    int64_t width = 640, height = 480; // of the picture, pixels
    capture::FrameRate rate;
    uint64_t memoryLimit = 0; // bytes for all processes of the show; 0: a quarter of the machine's
};

cli::CommandLine OptionTable();

// False if the program has to end with line->exitStatus: after --help, --version, or a mistake that was told on
// standard error.
bool ReadOptions(cli::CommandLine* line, int argc, const char* const* argv, Options* options);

} // namespace edit
