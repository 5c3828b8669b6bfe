// SPDX-License-Identifier: MIT
// marlinex-capture: the show as a video with its music, as numbered pictures or as a contact sheet. Needs no
// display.
#include "platform/Paths.h"
#include "tools/capture/ContactSheet.h"
#include "tools/capture/Join.h"
#include "tools/capture/Options.h"
#include "tools/capture/PngSequence.h"
#include "tools/capture/Progress.h"
#include "tools/capture/ShowPlayer.h"
#include "tools/capture/VideoPipe.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace capture;

static const int exitFailed = 1;
static const int exitInterrupted = 130;

static void StopShow(int)
{
    ShowPlayer::RequestStop();
}

// Ctrl-C, what a job scheduler sends ahead of killing, and the terminal's farewell: the first of each ends
// the capture properly, the second ends it as ever.
static void CatchSignals()
{
    for (int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN) // nohup, or a shell that has put this in the background
            continue;
        action.sa_handler = StopShow;
        action.sa_flags = int(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }
    signal(SIGPIPE, SIG_IGN); // a broken pipe is an error of write
}

static int Complain(const std::string& text, int status = exitFailed)
{
    for (size_t begin = 0; begin <= text.size();) {
        const size_t stop = std::min(text.find('\n', begin), text.size());
        fprintf(stderr, "marlinex-capture: %s\n", text.substr(begin, stop - begin).c_str());
        begin = stop + 1;
    }
    return status;
}

// Told at once, and not when the show has been loaded. A file that wasn't there isn't there afterwards.
static bool CanWrite(const std::string& path)
{
    const bool there = access(path.c_str(), F_OK) == 0;
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    close(file);
    if (!there)
        unlink(path.c_str());
    return true;
}

static Schedule ScheduleOf(const Options& options, int64_t duration)
{
    const int64_t to = options.to < 0 ? duration : std::min(options.to, duration);
    const Schedule schedule = Schedule::Of(options.rate, options.from, to);
    if (options.segments > 1)
        return schedule.Part(options.segment, options.segments);
    if (options.every)
        return schedule.Every(options.every);
    return options.kind == OutputSheet ? schedule.Spread(options.tiles) : schedule;
}

static Encoding EncodingOf(const Options& options)
{
    Encoding encoding;
    encoding.output = options.output;
    encoding.threads = int(options.threads);
    encoding.more = options.encoder;
    return encoding;
}

static std::unique_ptr<FrameSink> SinkOf(const Options& options, MusicTrack* track)
{
    switch (options.kind) {
    case OutputSheet:
        return std::make_unique<ContactSheet>(options.output, int(options.columns), int(options.tileWidth));
    case OutputPictures:
        return std::make_unique<PngSequence>(options.output, int(options.threads));
    default:
        return std::make_unique<VideoPipe>(EncodingOf(options), track);
    }
}

static double ProcessorSeconds(int who)
{
    rusage usage = {};
    getrusage(who, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// By the clock on the wall, where the show waits for an encoder that works meanwhile, and by what the
// processors did, which other programs on the machine change little.
static void TellTiming(const ShowPlayer& show)
{
    const Timing& timing = show.timing;
    fprintf(
        stderr,
        "time: loading %.1f s, frames left out %.1f s, drawing %.1f s, reading back %.1f s, waiting for the "
        "output %.1f s\n",
        timing.loading, timing.skipping, timing.drawing, timing.reading, timing.handing);
    fprintf(stderr, "processors: the show %.1f s, the encoder %.1f s; drawn by %s\n",
            ProcessorSeconds(RUSAGE_SELF), ProcessorSeconds(RUSAGE_CHILDREN), show.renderer.c_str());
}

static int Join(const Options& options, const Schedule& schedule, MusicTrack* track)
{
    Encoding encoding = EncodingOf(options);
    encoding.rate = options.rate;
    encoding.sound = track != nullptr;
    std::string error;
    if (!JoinParts(options.parts, encoding, schedule, track, &error))
        return Complain(error);
    if (!options.quiet)
        fprintf(stderr, "%s: %zu parts joined\n", options.output.c_str(), options.parts.size());
    return cli::ExitClean;
}

static int Capture(const Options& options, ShowPlayer& show, const Schedule& schedule, MusicTrack* track)
{
    const std::unique_ptr<FrameSink> sink = SinkOf(options, track);
    const int width = int(options.width);
    const int height = int(options.height);
    if (!sink->Begin(width, height, schedule))
        return Complain(sink->error);

    Progress progress(options.quiet ? nullptr : stderr);
    progress.Begin(schedule.Pick(0), schedule.Pick(schedule.picks - 1) + 1, schedule.picks);
    const double start = Progress::Now();
    const PlayResult result = show.Play(width, height, schedule, *sink, progress);
    const bool finished = sink->Finish(result != PlayFailed);
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
        TellTiming(show);
    return result == PlayInterrupted ? exitInterrupted : cli::ExitClean;
}

static int Run(const Options& options)
{
    if (access(options.script.c_str(), R_OK) != 0)
        return Complain(options.script + ": " + strerror(errno), cli::ExitUsage);
    if ((options.kind != OutputPictures && !CanWrite(options.output)) ||
        (options.kind == OutputVideo && !CanWrite(UnfinishedName(options.output))))
        return Complain(options.output + ": " + strerror(errno), cli::ExitUsage);

    ShowPlayer show;
    if (!show.Load(options.script))
        return Complain(show.error);
    if (show.Duration() == 0)
        return Complain(options.script + ": the script puts nothing on the timeline");
    const Schedule schedule = ScheduleOf(options, show.Duration());
    if (schedule.first == schedule.end)
        return Complain("there is no frame in that part: the show is " + TimeText(show.Duration()) + " long",
                        cli::ExitUsage);

    // A part has no sound: what compresses sound would leave a gap at each seam.
    MusicTrack music;
    if (options.kind == OutputVideo && options.music && options.segments == 1 && !music.Open(options.script))
        return Complain(music.error);
    MusicTrack* const track = music.IsSilent() ? nullptr : &music;

    CatchSignals();
    return options.join ? Join(options, schedule, track) : Capture(options, show, schedule, track);
}

int main(int argc, char** argv)
{
    cli::CommandLine line(
        "marlinex-capture",
        "Makes a video of the show, or of the script FILE, or pictures of it. Frame by frame, none "
        "lost; needs no display.",
        "[FILE...]", OptionTable());
    if (!line.Read(argc, argv))
        return line.exitStatus;
    platform::FindDataDirectory();
    if (line.Has("data"))
        platform::SetDataDirectory(line.Value("data"));
    Options options;
    if (!ReadOptions(line, &options))
        return line.exitStatus;
    const int status = Run(options);
    fflush(nullptr);
    // Effects and GL live to the end of the process and have no order in which they could go.
    _exit(status);
}
