// SPDX-License-Identifier: MIT
// Measures what docs/PERFORMANCE.md sets limits to, and says which of them hold on this machine:
//
//     performance-report [--json] [--frames N]
//
// Start it in the project's folder, on a machine that does nothing else; it takes some minutes without a
// graphics card. Each row is a figure and its ratio to something that was measured in the same run or does
// not depend on the machine, such as the time that the same stretch of the show takes to play.
#include "kernel/DemoPlayer.h"
#include "kernel/Production.h"
#include "platform/ChildProcess.h"
#include "platform/Paths.h"
#include "tools/benchmark/EffectFrames.h"
#include "tools/cli/CommandLine.h"
#include "tools/cli/JsonWriter.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/cli/Output.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

static const int width = 640, height = 480;
static const double frameSeconds = 1 / 60.0;
static const int timelineEntries = 10000, timelineMessages = 100000;

// The limits, as ratios.
static const double nightLimit = 4 / 372.6;           // of the playing time, in processor time
static const double undrawnFrameLimit = 0.15e-3 * 60; // of a frame at 60 a second
static const double loadLimit = 1;                    // of the second that each effect's loading shows
static const double memoryLimit = 1;                  // of 300 MB
static const double megabytesAllowed = 300;
static const double captureLimit = 1; // of the time that it plays
static const double noLimit = INFINITY;

struct Row {
    std::string name;
    double figure;
    const char* unit;
    double ratio; // NaN: not to be had
    const char* base;
    double limit;
};

// What a program took.
struct Cost {
    bool worked;
    double seconds;   // by the clock
    double processor; // seconds, with what it started itself
    double megabytes; // largest resident set of one process
};

static std::string programs; // the folder of the build

static double Seconds(const timeval& time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

static Cost Run(std::vector<std::string> command)
{
    command[0] = programs + "/" + command[0];
    rusage before, after;
    getrusage(RUSAGE_CHILDREN, &before);
    const double start = cli::MonotonicSeconds();
    platform::ChildProcess child;
    const bool worked = child.Start(command) && child.Finish();
    const double end = cli::MonotonicSeconds();
    getrusage(RUSAGE_CHILDREN, &after);
    if (!worked)
        fprintf(stderr, "performance-report: %s: %s\n", command[0].c_str(), child.error.c_str());
    const double processor = Seconds(after.ru_utime) + Seconds(after.ru_stime) - Seconds(before.ru_utime) -
                             Seconds(before.ru_stime);
    return {worked, end - start, processor, double(after.ru_maxrss) / 1024};
}

static Cost Capture(const char* from, const char* to, const std::string& output, const char* rate)
{
    return Run({"marlinex-capture", "--from", from, "--to", to, "--size",
                std::to_string(width) + "x" + std::to_string(height), "--rate", rate, "-o", output});
}

static void AddRow(std::vector<Row>* rows, const std::string& name, double figure, const char* unit,
                   double ratio, const char* base, double limit)
{
    rows->push_back({name, figure, unit, ratio, base, limit});
}

// One picture of the start costs the loading; one of the end costs besides that the whole night undrawn.
static void MeasureCapture(const std::string& folder, std::vector<Row>* rows)
{
    const double night = 372.6;
    const Cost load = Capture("0", "0.01", folder + "/first%03d.png", "60");
    const Cost whole = Capture("372.5", "372.51", folder + "/last%03d.png", "60");
    const double loads = 15; // entries of the script, a second each
    if (load.worked)
        AddRow(rows, "load", load.seconds, "s", load.seconds / loads, "of the shown second, per effect",
               loadLimit);
    if (whole.worked)
        AddRow(rows, "night undrawn, load included", whole.processor, "s", whole.processor / night,
               "of its playing time", nightLimit);
    const double length = 10;
    const struct {
        const char *name, *from, *to;
    } scenes[] = {{"capture of the opening", "40", "50"}, {"capture of the clouds", "100", "110"}};
    for (const auto& scene : scenes) {
        const Cost cost = Capture(scene.from, scene.to, folder + "/scene.mp4", "30");
        if (cost.worked)
            AddRow(rows, scene.name, cost.seconds, "s", cost.seconds / length, "of its playing time",
                   captureLimit);
    }
    // The largest of all processes so far, so the last row of those that run the show.
    rusage all;
    getrusage(RUSAGE_CHILDREN, &all);
    const double megabytes = double(all.ru_maxrss) / 1024;
    AddRow(rows, "memory of a capture", megabytes, "MB", megabytes / megabytesAllowed, "of 300 MB",
           memoryLimit);
}

static void MeasureTimeline(const std::string& folder, std::vector<Row>* rows)
{
    const std::string script = folder + "/large.txt";
    FILE* const file = fopen(script.c_str(), "w");
    if (!file)
        return;
    for (int i = 0; i < timelineEntries; i++)
        fprintf(file, "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=%d;\nStopTime=%d;\nLayerID=%d;\n",
                i * 300, i * 300 + 1000, i % 20);
    for (int i = 0; i < timelineMessages; i++)
        fprintf(file, "[MESSAGE]\nMessageText=flash;\nActivationTime=%d;\nTargetEffect=WhiteFlashOverlay;\n",
                i * 30);
    fclose(file);
    // What the show's own reader takes for the same script.
    platform::SetDataDirectory(folder);
    GLWindow window;
    EffectRegistry registry;
    RegisterEffects(&registry);
    DemoPlayer player;
    player.Init(&window, &registry, nullptr, false);
    const double start = cli::MonotonicSeconds();
    player.LoadScript("large.txt");
    const double reading = cli::MonotonicSeconds() - start;
    platform::FindDataDirectory(ProductionName);
    const Cost drawn = Run({"marlinex-timeline", script, "-o", folder + "/large.svg"});
    if (drawn.worked)
        AddRow(rows, "timeline of 10,000 entries, 100,000 messages", drawn.seconds, "s",
               drawn.seconds / reading, "of the show's own reading", noLimit);
}

// In a process of its own: some effects go on where they stopped, so that a second show of one in the same
// process would not be the same. One median for each effect; fewer after an error.
static std::vector<double> MeasureUndrawn(int frames)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        EffectFrames effects;
        FrameTime time;
        bool good = effects.Open(width, height);
        for (size_t i = 0; good && i < effects.Count(); i++)
            good = effects.Measure(i, frames, UndrawnFrames, &time) &&
                   write(ends[1], &time.median, sizeof time.median) == ssize_t(sizeof time.median);
        _exit(0);
    }
    close(ends[1]);
    std::vector<double> medians;
    double median;
    while (child > 0 && read(ends[0], &median, sizeof median) == ssize_t(sizeof median))
        medians.push_back(median);
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    return medians;
}

static bool MeasureFrames(int frames, std::string* driver, std::vector<Row>* rows)
{
    const std::vector<double> undrawn = MeasureUndrawn(frames);
    EffectFrames effects;
    if (!effects.Open(width, height)) {
        fprintf(stderr, "performance-report: %s\n", effects.error.c_str());
        return false;
    }
    *driver = effects.Driver();
    const double empty = effects.MeasureEmpty(frames).median;
    AddRow(rows, "empty frame", empty, "ms", 1, "of an empty frame", noLimit);
    for (size_t i = 0; i < effects.Count(); i++) {
        FrameTime drawn;
        if (!effects.Measure(i, frames, ReplayedFrames, &drawn)) {
            fprintf(stderr, "performance-report: %s\n", effects.error.c_str());
            return false;
        }
        const std::string name = effects.Name(i);
        AddRow(rows, name + " drawn", drawn.median, "ms", drawn.median / empty, "of an empty frame", noLimit);
        if (drawn.replay > 0)
            AddRow(rows, name + " replayed", drawn.replay, "ms", drawn.median / drawn.replay,
                   "is a drawn frame of it", noLimit);
        if (i < undrawn.size())
            AddRow(rows, name + " undrawn", undrawn[i], "ms", undrawn[i] / 1000 / frameSeconds,
                   "of a frame at 60 a second", undrawnFrameLimit);
        if (drawn.message > 0)
            AddRow(rows, name + " message", drawn.message, "ms", drawn.message / drawn.median,
                   "of its drawn frame", noLimit);
    }
    return true;
}

static bool Holds(const Row& row)
{
    return !(row.ratio > row.limit);
}

static std::string Table(const std::string& driver, const std::vector<Row>& rows)
{
    std::string text = driver + "\n" + std::to_string(width) + " by " + std::to_string(height) + "\n\n";
    for (const Row& row : rows) {
        char line[256];
        snprintf(line, sizeof line, "%-44s %9.3f %-2s", row.name.c_str(), row.figure, row.unit);
        text += line;
        if (!std::isnan(row.ratio)) {
            snprintf(line, sizeof line, " %9.4f %s", row.ratio, row.base);
            text += line;
        }
        if (std::isfinite(row.limit)) {
            snprintf(line, sizeof line, ", limit %.4f%s", row.limit, Holds(row) ? "" : ": BROKEN");
            text += line;
        }
        text += "\n";
    }
    return text;
}

static std::string Json(const std::string& driver, const std::vector<Row>& rows)
{
    cli::JsonWriter json;
    json.StartObject();
    json.Member("driver", driver);
    json.Member("width", width);
    json.Member("height", height);
    json.Key("rows").StartArray();
    for (const Row& row : rows) {
        json.StartObject();
        json.Member("name", row.name);
        json.Member("figure", row.figure);
        json.Member("unit", row.unit);
        json.Member("ratio", row.ratio);
        json.Member("base", row.base);
        json.Member("limit", row.limit);
        json.Member("holds", Holds(row));
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return json.Finish();
}

static const std::vector<cli::Option> options = {
    {"json", 0, nullptr, "Write JSON instead of a table; a ratio or limit that there is none of is null."},
    {"frames", 0, "COUNT", "Measure so many frames of each effect in each way; 120 unless told."},
};

int main(int argc, char** argv)
{
    cli::CommandLine line("performance-report", "Measures the show and its tools against their limits.", "",
                          options);
    int64_t frames = 120;
    if (!line.Read(argc, argv) || !line.WholeNumber("frames", 2, 100000, &frames))
        return line.exitStatus;
    // This program lies in tools/benchmark of the build folder, the tools at its root.
    programs =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path().parent_path().string();
    char folder[] = "/tmp/performance-report-XXXXXX";
    if (!mkdtemp(folder))
        return line.Fail("/tmp: no folder can be made there");

    std::vector<Row> rows;
    std::string driver;
    MeasureCapture(folder, &rows); // ahead of what this process takes for itself
    MeasureTimeline(folder, &rows);
    const bool measured = MeasureFrames(int(frames), &driver, &rows);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    std::string reason;
    if (!cli::WriteOutput("-", line.Has("json") ? Json(driver, rows) : Table(driver, rows), &reason))
        return line.Fail("standard output: " + reason);
    return measured ? cli::ExitClean : 1;
}
