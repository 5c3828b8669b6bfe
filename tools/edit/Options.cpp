// SPDX-License-Identifier: MIT
#include "tools/edit/Options.h"

#include "platform/Paths.h"
#include "tools/capture/CaptureOptions.h"

namespace edit
{

static const int64_t maxMegabytes = int64_t(1) << 20;

cli::CommandLine OptionTable()
{
    return cli::CommandLine(
        "marlinex-edit", "Shows a script as picture, sound and timeline, and edits it.", "[SCRIPT]",
        {
            {"size", 's', "WxH", "The size of the picture in pixels; 640x480 unless told."},
            {"rate", 'r', "FRAMES",
             "Frames a second, as a whole number or a fraction: 60 unless told, 30, 60000/1001."},
            {"data", 0, "DIR",
             "Look for pictures, models, shaders and music in DIR instead of where the show looks."},
            {"memory", 0, "MB",
             "What the processes that play the show may use together, in megabytes; a quarter of the "
             "machine's "
             "memory unless told."},
        });
}

bool ReadOptions(cli::CommandLine* line, int argc, const char* const* argv, Options* options)
{
    if (!line->Read(argc, argv) || !capture::ReadSize(*line, &options->width, &options->height) ||
        !capture::ReadRate(*line, &options->rate))
        return false;
    int64_t megabytes = 0;
    if (!line->WholeNumber("memory", 1, maxMegabytes, &megabytes))
        return false;
    options->memoryLimit = uint64_t(megabytes) << 20;
    options->data = line->Value("data");
    if (!line->operands.empty())
        options->script = line->operands[0];
    return true;
}

} // namespace edit
