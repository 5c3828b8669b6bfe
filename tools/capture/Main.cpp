// SPDX-License-Identifier: MIT
// marlinex-capture: the show as a video with its music, as numbered pictures or as a contact sheet. Needs no
// display.
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/capture/CaptureOptions.h"
#include "tools/capture/ContactSheet.h"
#include "tools/capture/Interruption.h"
#include "tools/capture/Join.h"
#include "tools/capture/PngSequence.h"
#include "tools/capture/Progress.h"
#include "tools/capture/ShowPlayer.h"
#include "tools/capture/VideoPipe.h"
#include "tools/cli/Input.h"
#include "tools/cli/MonotonicSeconds.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>

#include <sys/resource.h>
#include <unistd.h>

using namespace capture;

static const int exitFailed = 1;
static const int exitInterrupted = 130;

static int Complain(const std::string& text, int status = exitFailed)
{
    for (size_t begin = 0; begin <= text.size();) {
        const size_t stop = std::min(text.find('\n', begin), text.size());
        fprintf(stderr, "%s: %s\n", MARLINEX_PROGRAM, text.substr(begin, stop - begin).c_str());
        begin = stop + 1;
    }
    return status;
}

// The standard library throws std::bad_alloc or std::system_error if memory or threads can't be had. Nothing
// here catches them.
[[noreturn]] static void EndWithoutMemory()
{
    OutputFile::DiscardAll();
    _exit(Complain("the system refuses more memory or more threads"));
}

static FrameSelection SelectionOf(const CaptureOptions& options, int64_t duration)
{
    const int64_t to = options.to < 0 ? duration : std::min(options.to, duration);
    const FrameSelection selection = FrameSelection::Of(options.rate, options.from, to);
    if (options.segments > 1)
        return selection.Part(options.segment, options.segments);
    if (options.every)
        return selection.Every(options.every);
    return options.kind == OutputSheet ? selection.Spread(options.tiles) : selection;
}

static Encoding EncodingOf(const CaptureOptions& options)
{
    Encoding encoding;
    encoding.threads = int(options.threads);
    encoding.more = options.encoder;
    return encoding;
}

static std::unique_ptr<FrameSink> SinkOf(const CaptureOptions& options, OutputFile& file, MusicTrack* track)
{
    switch (options.kind) {
    case OutputSheet:
        return std::make_unique<ContactSheet>(file, int(options.columns), int(options.tileWidth));
    case OutputPictures:
        return std::make_unique<PngSequence>(options.output, int(options.threads));
    default:
        return std::make_unique<VideoPipe>(file, EncodingOf(options), track);
    }
}

static double ProcessorSeconds(int who)
{
    rusage usage = {};
    getrusage(who, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// Reports wall clock time, which includes waiting for the encoder, and processor time, which depends less on
// other programs on the machine.
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

static int Join(const CaptureOptions& options, OutputFile& file, const FrameSelection& selection,
                MusicTrack* track)
{
    Encoding encoding = EncodingOf(options);
    encoding.rate = options.rate;
    encoding.sound = track != nullptr;
    std::string error;
    if (!JoinParts(options.parts, file, encoding, selection, track, &error))
        return Complain(error);
    if (!options.quiet)
        fprintf(stderr, "%s: %zu parts joined\n", options.output.c_str(), options.parts.size());
    return cli::ExitClean;
}

static int Capture(const CaptureOptions& options, OutputFile& file, ShowPlayer& show,
                   const FrameSelection& selection, MusicTrack* track)
{
    const std::unique_ptr<FrameSink> sink = SinkOf(options, file, track);
    const int width = int(options.width);
    const int height = int(options.height);
    if (!show.Open(width, height))
        return Complain(show.error);
    if (!sink->Begin(width, height, selection))
        return Complain(sink->error);

    Progress progress(options.quiet ? nullptr : stderr);
    progress.Begin(selection.Pick(0), selection.Pick(selection.picks - 1) + 1, selection.picks);
    const double start = cli::MonotonicSeconds();
    const PlayResult result = show.Play(selection, *sink, progress);
    const bool finished = sink->Finish(result != PlayFailed);
    const double seconds = cli::MonotonicSeconds() - start;
    progress.Clear();
    if (result == PlayFailed)
        return Complain(show.error);
    if (!finished)
        return Complain(sink->error);

    if (!options.quiet)
        fprintf(stderr, "%s: %lld %s in %s%s\n", options.output.c_str(), static_cast<long long>(show.taken),
                show.taken == 1 ? "frame" : "frames", DurationText(seconds).c_str(),
                result == PlayInterrupted ? ", and no more: interrupted" : "");
    if (options.timing)
        TellTiming(show);
    return result == PlayInterrupted ? exitInterrupted : cli::ExitClean;
}

// Reads the script, checks the data directory and opens the output, all before the show is loaded. Returns
// ExitClean, or the exit status after a failure that was reported.
static int Prepare(const CaptureOptions& options, std::string* script, OutputFile* file)
{
    std::string reason;
    if (!cli::ReadInput(options.script, script, &reason))
        return IsInterrupted() ? exitInterrupted : Complain(options.script + ": " + reason, cli::ExitUsage);
    const std::string data = platform::GetDataDirectory();
    // A path that ends with a slash must be a directory.
    if (access((data + "/").c_str(), R_OK | X_OK) != 0)
        return Complain("the data directory can't be read: " + data + ": " + strerror(errno), cli::ExitUsage);
    if (options.kind != OutputPictures &&
        !file->Open(options.output, options.kind == OutputVideo ? PartKeepsEnding : PartHidesEnding,
                    options.quiet))
        return IsInterrupted() ? exitInterrupted : Complain(file->error, cli::ExitUsage);
    return cli::ExitClean;
}

static int Run(const CaptureOptions& options)
{
    std::set_terminate(EndWithoutMemory);
    CatchInterruptions();
    // A broken pipe and a file above the size limit shall be errors of write. ffmpeg inherits the second.
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    std::string script;
    OutputFile file;
    const int status = Prepare(options, &script, &file);
    if (status != cli::ExitClean)
        return status;

    ShowPlayer show;
    if (!show.Load(script))
        return Complain(show.error);
    if (show.Duration() == 0)
        return Complain(options.script + ": the script puts nothing on the timeline");
    const FrameSelection selection = SelectionOf(options, show.Duration());
    if (selection.first == selection.end)
        return Complain("there is no frame in that part: the show is " + TimeText(show.Duration()) + " long",
                        cli::ExitUsage);

    // Segments are made without sound, because AAC would leave a gap between two of them. --join adds it.
    MusicTrack music;
    if (options.kind == OutputVideo && options.music && options.segments == 1 && !music.Open(script))
        return Complain(music.error);
    MusicTrack* const track = music.IsSilent() ? nullptr : &music;
    return options.join ? Join(options, file, selection, track)
                        : Capture(options, file, show, selection, track);
}

int main(int argc, char** argv)
{
    cli::CommandLine line(
        MARLINEX_PROGRAM,
        "Makes a video of the show, or of the script FILE, or pictures of it. Frame by frame, none "
        "lost; needs no display.",
        "[FILE...]", OptionTable());
    if (!line.Read(argc, argv))
        return line.exitStatus;
    platform::FindDataDirectory(ProductionName);
    if (line.Has("data"))
        platform::SetDataDirectory(line.Value("data"));
    CaptureOptions options;
    if (!ReadOptions(line, &options))
        return line.exitStatus;
    const int status = Run(options);
    fflush(nullptr);
    // No destructors of static objects: effects and GL objects live to the end of the process, and there is
    // no order in which they could be destroyed.
    _exit(status);
}
