// SPDX-License-Identifier: MIT
// marlinex-capture: the show as a video with its music, as numbered pictures or as a contact sheet. Needs no
// display.
#include "platform/Paths.h"
#include "tools/capture/ContactSheet.h"
#include "tools/capture/Options.h"
#include "tools/capture/PngSequence.h"
#include "tools/capture/Progress.h"
#include "tools/capture/ShowPlayer.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <thread>

#include <unistd.h>

using namespace capture;

static const int exitFailed = 1;
static const int exitInterrupted = 130;

static const int64_t end = -1;

static void StopShow(int)
{
    ShowPlayer::RequestStop();
}

// Ctrl-C, and what a job scheduler sends ahead of killing: both end the capture properly.
static void CatchSignals()
{
    struct sigaction action = {};
    action.sa_handler = StopShow;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    signal(SIGPIPE, SIG_IGN); // a broken pipe is an error of write
}

static int Complain(const std::string& text)
{
    for (size_t begin = 0; begin <= text.size();) {
        const size_t stop = std::min(text.find('\n', begin), text.size());
        fprintf(stderr, "marlinex-capture: %s\n", text.substr(begin, stop - begin).c_str());
        begin = stop + 1;
    }
    return exitFailed;
}

static Schedule ScheduleOf(const Options& options, int64_t duration)
{
    const int64_t to = options.to == end ? duration : std::min(options.to, duration);
    Schedule schedule = Schedule::Of(options.rate, options.from, to);
    if (options.segments > 1)
        schedule = schedule.Part(options.segment, options.segments);
    if (options.every)
        schedule = schedule.Every(options.every);
    else if (options.kind == OutputSheet)
        schedule = schedule.Spread(options.tiles);
    return schedule;
}

static std::unique_ptr<FrameSink> SinkOf(const Options& options, int threads)
{
    if (options.kind == OutputSheet)
        return std::make_unique<ContactSheet>(options.output, int(options.columns), int(options.tileWidth));
    return std::make_unique<PngSequence>(options.output, threads);
}

static void TellTiming(const Timing& timing)
{
    fprintf(
        stderr,
        "Time: loading %.1f s, frames left out %.1f s, drawing %.1f s, reading back %.1f s, waiting for the "
        "output %.1f s\n",
        timing.loading, timing.skipping, timing.drawing, timing.reading, timing.handing);
}

static int Capture(const Options& options)
{
    if (access(options.script.c_str(), R_OK) != 0) {
        Complain(options.script + ": " + strerror(errno));
        return cli::ExitUsage;
    }
    ShowPlayer show;
    if (!show.Load(options.script))
        return Complain(show.error);
    if (show.Duration() == 0)
        return Complain(options.script + ": the script puts nothing on the timeline");
    const Schedule schedule = ScheduleOf(options, show.Duration());
    if (schedule.first == schedule.end) {
        Complain("there is no frame in that part: the show is " + TimeText(show.Duration()) + " long");
        return cli::ExitUsage;
    }

    const int threads = options.threads ? int(options.threads) : int(std::thread::hardware_concurrency());
    const std::unique_ptr<FrameSink> sink = SinkOf(options, std::max(threads, 1));
    if (!sink->Begin(int(options.width), int(options.height), schedule))
        return Complain(sink->error);

    Progress progress(options.quiet ? nullptr : stderr);
    progress.Begin(schedule.Pick(schedule.picks - 1) + 1, schedule.picks);
    CatchSignals();
    const double start = Progress::Now();
    const PlayResult result = show.Play(int(options.width), int(options.height), schedule, *sink, progress);
    const bool finished = sink->Finish();
    const double seconds = Progress::Now() - start;
    progress.Clear();
    if (result == PlayFailed)
        return Complain(show.error);
    if (!finished)
        return Complain(sink->error);

    if (!options.quiet)
        fprintf(stderr, "%s: %lld %s in %s%s\n", options.output.c_str(), static_cast<long long>(show.taken),
                show.taken == 1 ? "frame" : "frames", Progress::DurationText(seconds).c_str(),
                result == PlayInterrupted ? ", and no more: interrupted" : "");
    if (options.timing)
        TellTiming(show.timing);
    return result == PlayInterrupted ? exitInterrupted : cli::ExitClean;
}

int main(int argc, char** argv)
{
    cli::CommandLine line("marlinex-capture",
                          "Makes pictures of the show, or of another script's. Frame by frame, "
                          "none lost; needs no display.",
                          "[FILE]", OptionTable());
    if (!line.Read(argc, argv))
        return line.exitStatus;
    platform::FindDataDirectory();
    if (line.Has("data"))
        platform::SetDataDirectory(line.Value("data"));
    Options options;
    if (!ReadOptions(line, &options))
        return line.exitStatus;
    const int status = Capture(options);
    fflush(nullptr);
    // Effects and sound live to the end of the process and have no order in which they could go.
    _exit(status);
}
