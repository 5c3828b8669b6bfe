// SPDX-License-Identifier: MIT
#include "tools/capture/CaptureOptions.h"

#include "platform/Paths.h"
#include "tools/capture/Encoding.h"
#include "tools/capture/OutputFile.h"
#include "tools/capture/PngSequence.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <thread>

namespace capture
{

static const int64_t maxSide = 16384; // pixels
// Of an animation unless told: pages load it as a whole. Its times are whole milliseconds.
static const int64_t animationWidth = 480; // pixels
static const int64_t animationHeight = 360;
static const FrameRate animationRate = {25, 1};
static const int64_t maxSegments = 100000;
static const int64_t maxTiles = 10000;
static const int64_t maxTileWidth = 2048;
static const int64_t maxThreads = 256;

const std::vector<cli::Option>& OptionTable()
{
    static const std::vector<cli::Option> table = {
        {"output", 'o', "PATH",
         "Where to write: a video (show.mp4; show.mkv keeps every pixel and sample), a moving picture for "
         "pages (part.webp), numbered pictures (a folder that ends with a slash, or a pattern such as "
         "x-%05d.png), or the picture of --sheet."},
        {"size", 's', "WxH",
         "The size of the picture in pixels; 1024x768 unless told, and 480x360 for .webp."},
        {"rate", 'r', "FRAMES",
         "Frames a second, as a whole number or a fraction: 30, 60000/1001; 60 unless told, and 25 for "
         ".webp."},
        {"from", 0, "TIME",
         "Begin with the first frame at or behind this time, in seconds or as m:ss.fraction. What comes "
         "before is "
         "played unseen."},
        {"to", 0, "TIME", "End ahead of the first frame at or behind this time."},
        {"every", 0, "SECONDS", "Take one picture in this many seconds and leave out the frames between."},
        {"sheet", 0, nullptr, "Make one picture of many small ones, each above its time."},
        {"tiles", 0, "N",
         "How many pictures a sheet has, spread evenly, unless --every says it; 30 unless told."},
        {"columns", 0, "N", "How many of them are in a row; 6 unless told."},
        {"tile-width", 0, "PIXELS", "How wide each of them is; 240 unless told."},
        {"segment", 0, "K/N",
         "Make the K-th of N parts; parts are made side by side, by other cores or machines."},
        {"join", 0, nullptr,
         "Put the parts FILE... of a video behind one another, as they are, and add the music. The other "
         "options "
         "are those that the parts were made with."},
        {"script", 0, "FILE", "The script, where FILE... are the parts of --join."},
        {"no-music", 0, nullptr, "Make a silent video."},
        {"encoder", 0, "ARGUMENTS", "Give ffmpeg further arguments, divided by blanks, such as \"-crf 20\"."},
        {"data", 0, "DIR", "Look for pictures and music in DIR instead of where the show looks."},
        {"threads", 0, "N", "Let the encoder use N threads; as many as there are cores unless told."},
        {"timing", 0, nullptr, "Tell at the end where the time went."},
        {"quiet", 'q', nullptr, "Say nothing but errors."},
    };
    return table;
}

// Reads two numbers with a character between them, such as "640x480" or "1/3".
static bool ReadPair(const std::string& text, char between, int64_t* first, int64_t* second)
{
    const char* const end = text.data() + text.size();
    const auto [middle, firstError] = std::from_chars(text.data(), end, *first);
    if (firstError != std::errc() || middle == end || *middle != between)
        return false;
    const auto [last, secondError] = std::from_chars(middle + 1, end, *second);
    return secondError == std::errc() && last == end;
}

static bool Refuse(cli::CommandLine& line, const std::string& text)
{
    line.Fail(text);
    return false;
}

bool ReadSize(cli::CommandLine& line, int64_t* width, int64_t* height)
{
    if (!line.Has("size"))
        return true;
    const std::string text = line.Value("size");
    if (ReadPair(text, 'x', width, height) && *width >= 1 && *height >= 1 && *width <= maxSide &&
        *height <= maxSide)
        return true;
    return Refuse(line, "option --size needs two numbers of 1 to " + std::to_string(maxSide) +
                            " such as 640x480, not \"" + text + "\"");
}

bool ReadMoment(cli::CommandLine& line, const char* name, int64_t* microseconds)
{
    if (!line.Has(name) || ReadTime(line.Value(name), microseconds))
        return true;
    return Refuse(line, std::string("option --") + name + " needs a time such as 90.5 or 1:30.5, not \"" +
                            line.Value(name) + "\"");
}

bool ReadRate(cli::CommandLine& line, FrameRate* rate)
{
    if (!line.Has("rate") || ReadFrameRate(line.Value("rate"), rate))
        return true;
    return Refuse(line, "option --rate needs a number such as 60, or a fraction such as 60000/1001, not \"" +
                            line.Value("rate") + "\"");
}

static bool ReadTimes(cli::CommandLine& line, CaptureOptions* options)
{
    if (!ReadRate(line, &options->rate))
        return false;
    if (!ReadMoment(line, "from", &options->from) || !ReadMoment(line, "to", &options->to) ||
        !ReadMoment(line, "every", &options->every))
        return false;
    if (line.Has("every") && options->every == 0)
        return Refuse(line, "option --every needs a time above 0");
    if (line.Has("to") && options->to <= options->from)
        return Refuse(line, "nothing lies between --from and --to");
    return true;
}

static bool ReadOperands(cli::CommandLine& line, CaptureOptions* options)
{
    options->join = line.Has("join");
    options->script = line.Value("script", platform::DataPath("script.txt"));
    if (options->join) {
        options->parts = line.operands;
        if (options->parts.empty())
            return Refuse(line, "option --join needs the parts, in their order");
        if (options->kind != OutputVideo)
            return Refuse(line, "option --join makes a video of videos; numbered pictures need no joining");
        if (line.Has("segment"))
            return Refuse(line, "option --join takes all parts, so --segment has no place beside it");
        return true;
    }
    if (line.operands.size() > 1)
        return Refuse(line, "\"" + line.operands[1] + "\" is one script too many");
    if (!line.operands.empty())
        options->script = line.operands[0];
    return true;
}

static bool ReadSegment(cli::CommandLine& line, CaptureOptions* options)
{
    if (!line.Has("segment"))
        return true;
    const std::string text = line.Value("segment");
    if (!ReadPair(text, '/', &options->segment, &options->segments) || options->segment < 1 ||
        options->segment > options->segments || options->segments > maxSegments)
        return Refuse(line, "option --segment needs the part and the number of parts such as 1/4, not \"" +
                                text + "\"");
    if (line.Has("sheet") || line.Has("every"))
        return Refuse(line, "option --segment goes with all frames, not with --sheet or --every");
    return true;
}

static bool ReadOutput(cli::CommandLine& line, CaptureOptions* options)
{
    const std::string path = line.Value("output");
    options->output = path;
    if (path.empty())
        return Refuse(line, "say where to write, with -o (--help tells more)");
    std::error_code error;
    if (line.Has("sheet")) {
        options->kind = OutputSheet;
        if (!path.ends_with(".png") && !OutputFile::IsStream(path))
            return Refuse(line,
                          "a sheet is a PNG file: -o needs a name that ends in .png, not \"" + path + "\"");
    } else if (IsPattern(path) || path.back() == '/' || std::filesystem::is_directory(path, error)) {
        options->kind = OutputPictures;
        if (!PatternOf(path, &options->output))
            return Refuse(
                line, "a pattern has one number such as %05d in its name, and %% for a per cent sign: \"" +
                          path + "\" has not");
    } else if (path.ends_with(".png")) {
        return Refuse(line,
                      "one PNG file can't hold a show: -o frames/ makes numbered ones, --sheet an overview");
    }
    if (options->kind == OutputVideo && IsAnimation(path)) {
        options->width = animationWidth;
        options->height = animationHeight;
        options->rate = animationRate;
        options->music = false;
        if (line.Has("join") || line.Has("segment"))
            return Refuse(line, "a moving picture is made in one piece: --segment and --join are for videos");
    }
    if (options->kind == OutputVideo && line.Has("every"))
        return Refuse(line, "option --every is for pictures: a video has all frames");
    return true;
}

bool ReadOptions(cli::CommandLine& line, CaptureOptions* options)
{
    options->timing = line.Has("timing");
    options->quiet = line.Has("quiet");
    if (!ReadOutput(line, options) || !ReadOperands(line, options) ||
        !ReadSize(line, &options->width, &options->height) || !ReadTimes(line, options) ||
        !ReadSegment(line, options) || !line.WholeNumber("columns", 1, maxTiles, &options->columns) ||
        !line.WholeNumber("tiles", 1, maxTiles, &options->tiles) ||
        !line.WholeNumber("tile-width", 1, maxTileWidth, &options->tileWidth) ||
        !line.WholeNumber("threads", 1, maxThreads, &options->threads))
        return false;
    if (options->threads == 0)
        options->threads = std::max(1u, std::thread::hardware_concurrency());
    options->music = options->music && !line.Has("no-music");
    options->encoder = line.Value("encoder");
    if (options->kind == OutputVideo && std::filesystem::path(options->output).extension().empty() &&
        options->encoder.empty() && !OutputFile::IsStream(options->output))
        return Refuse(line, "the end of the name says what to make, such as show.mp4 or night-%05d.png: \"" +
                                options->output + "\" has none");
    if (options->kind == OutputVideo && NeedsEvenSize(options->output) &&
        (options->width % 2 != 0 || options->height % 2 != 0))
        return Refuse(line, "an MP4 needs an even width and an even height");
    return true;
}

} // namespace capture
