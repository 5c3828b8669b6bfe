// SPDX-License-Identifier: MIT
// marlinex-flashes: how often a show flashes. Needs no display.
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/capture/CaptureOptions.h"
#include "tools/capture/Interruption.h"
#include "tools/capture/Progress.h"
#include "tools/capture/ShowPlayer.h"
#include "tools/cli/CommandLine.h"
#include "tools/cli/Input.h"
#include "tools/cli/Output.h"
#include "tools/flashes/FlashReport.h"
#include "tools/flashes/FlashSink.h"

#include <algorithm>

#include <unistd.h>

static const int exitAbove = 1;
static const int exitInterrupted = 130;
static const int64_t width = 320, height = 240; // pixels: five by five for each cell

static const std::vector<cli::Option> options = {
    {"data", 0, "DIR", "Look for pictures in DIR instead of where the show looks."},
    {"from", 0, "TIME", "Begin to measure at this time, in seconds or as m:ss.fraction."},
    {"to", 0, "TIME", "Measure no further than to this time."},
    {"json", 0, nullptr, "Write JSON."},
    {"quiet", 'q', nullptr, "Say nothing while it plays."},
};

static int Measure(cli::CommandLine& line, int64_t from, int64_t to)
{
    const std::string path = line.operands.empty() ? platform::DataPath("script.txt") : line.operands[0];
    std::string script, reason;
    if (!cli::ReadInput(path, &script, &reason))
        return line.Fail(path + ": " + reason);
    capture::CatchInterruptions();
    capture::ShowPlayer show;
    if (!show.Load(script))
        return line.Fail(show.error);
    const capture::FrameRate rate;
    const int64_t end = to < 0 ? show.Duration() : std::min(to, show.Duration());
    const capture::FrameSelection selection = capture::FrameSelection::Of(rate, from, end);
    if (selection.first >= selection.end)
        return line.Fail("there is no frame in that part: the show is " + capture::TimeText(show.Duration()) +
                         " long");

    if (!show.Open(int(width), int(height)))
        return line.Fail(show.error);
    flashes::FlashMeter meter(double(rate.frames) / double(rate.seconds), double(from) / 1e6);
    flashes::FlashSink sink(&meter);
    capture::Progress progress(line.Has("quiet") ? nullptr : stderr);
    progress.Begin(selection.first, selection.end, selection.picks);
    const capture::PlayResult result = show.Play(selection, sink, progress);
    progress.Clear();
    if (result == capture::PlayFailed)
        return line.Fail(show.error);
    if (result == capture::PlayInterrupted)
        return exitInterrupted;
    const std::string text = line.Has("json") ? flashes::JsonOf(meter) : flashes::TextOf(meter);
    if (!cli::WriteOutput("-", text, &reason))
        return line.Fail("standard output: " + reason);
    return meter.above.empty() ? cli::ExitClean : exitAbove;
}

int main(int argc, char** argv)
{
    cli::CommandLine line(
        MARLINEX_PROGRAM,
        "Plays the show, or the script FILE, unseen and tells how often it flashes, against the limit "
        "of three flashes a second.",
        "[FILE]", options);
    if (!line.Read(argc, argv))
        return line.exitStatus;
    int64_t from = 0, to = -1;
    if (!capture::ReadMoment(line, "from", &from) || !capture::ReadMoment(line, "to", &to))
        return line.exitStatus;
    platform::FindDataDirectory(ProductionName);
    if (line.Has("data"))
        platform::SetDataDirectory(line.Value("data"));
    const int status = Measure(line, from, to);
    fflush(nullptr);
    // No destructors of static objects, as in marlinex-capture: effects and GL objects live to the end.
    _exit(status);
}
