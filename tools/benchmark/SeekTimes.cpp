// SPDX-License-Identifier: MIT
// Measures how long the editor's picture takes to get to another moment of the show, and what memory that costs:
//
//     edit-benchmark PROGRAM [WIDTH HEIGHT [MEGABYTES]]     640 by 480, a quarter of the machine's memory
//
// PROGRAM is marlinex-edit. Start it in the project's folder; the show is Data/script.txt at 60 frames a second.
// Without LIBGL_ALWAYS_SOFTWARE=1 in the environment a graphics card is used where there is one. The load of the machine
// is told beside the figures; while it is above 0 they are too large.
//
//   first picture   from a cold start
//   near            to a moment within 10 s of the one before, either way, the pool at rest
//   far             to any moment, the pool at rest
//   in a row        the same, each as soon as the one before was there, so that the pool is used up
//
// For each: the median and the longest time until the picture is there, and the same without the time in which it, and
// the two frames ahead of it, were drawn.
#include "tools/edit/ShowPool.h"

#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/cli/MonotonicSeconds.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>
#include <vector>

static const int seeks = 40;
static const double longestWait = 60; // seconds

static void Rest()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// Seconds until the frame is there; below 0 if it does not come.
static double Seek(edit::ShowPool* pool, int64_t frame)
{
    const double start = cli::MonotonicSeconds();
    pool->Seek(frame);
    edit::ShownFrame shown;
    while (cli::MonotonicSeconds() < start + longestWait) {
        pool->Poll();
        if (pool->TakeFrame(&shown) && shown.number == frame)
            return cli::MonotonicSeconds() - start;
        Rest();
    }
    return -1;
}

// Until nothing has changed for a while.
static void Settle(edit::ShowPool* pool)
{
    std::vector<int64_t> parked;
    double since = cli::MonotonicSeconds();
    const double start = since;
    while (cli::MonotonicSeconds() < since + 1.5 && cli::MonotonicSeconds() < start + longestWait) {
        pool->Poll();
        const edit::ShowPool::Status status = pool->GetStatus();
        if (status.parked != parked)
            since = cli::MonotonicSeconds();
        parked = status.parked;
        Rest();
    }
}

static double Load()
{
    double load = 0;
    std::ifstream("/proc/loadavg") >> load;
    return load;
}

struct Times {
    std::vector<double> all;
    std::vector<double> undrawn;

    void Add(double seconds, double drawing)
    {
        all.push_back(seconds * 1000);
        undrawn.push_back(std::max(seconds - drawing, 0.0) * 1000);
    }
    void Print(const char* name)
    {
        std::sort(all.begin(), all.end());
        std::sort(undrawn.begin(), undrawn.end());
        printf("%-14s %9.0f %9.0f %9.0f %9.0f %9.1f\n", name, all[all.size() / 2], all.back(),
               undrawn[undrawn.size() / 2], undrawn.back(), Load());
        fflush(stdout);
    }
};

// Puts the times of seeks to frames that `next` chooses into *times. False if one did not come.
static bool Measure(edit::ShowPool* pool, const std::vector<int64_t>& frames, bool rests, Times* times)
{
    for (int64_t frame : frames) {
        if (rests)
            Settle(pool);
        const double seconds = Seek(pool, frame);
        if (seconds < 0) {
            fprintf(stderr, "edit-benchmark: frame %lld does not come\n", static_cast<long long>(frame));
            return false;
        }
        times->Add(seconds, pool->GetStatus().drawSeconds);
    }
    return true;
}

int main(int count, char** arguments)
{
    edit::ShowSettings settings;
    if (count > 3) {
        settings.width = atoi(arguments[2]);
        settings.height = atoi(arguments[3]);
    }
    if (count > 4)
        settings.memoryLimit = uint64_t(atoll(arguments[4])) << 20;
    std::ifstream file("Data/script.txt");
    const std::string script{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (count < 2 || settings.width < 1 || settings.height < 1 || script.empty()) {
        fprintf(stderr,
                "usage: edit-benchmark PROGRAM [WIDTH HEIGHT [MEGABYTES]], in the project's folder\n");
        return 2;
    }
    platform::FindDataDirectory(ProductionName);
    settings.data = platform::GetDataDirectory();
    edit::ShowPool pool;
    std::string reason;
    if (!pool.Start(settings, arguments[1], &reason)) {
        fprintf(stderr, "edit-benchmark: %s\n", reason.c_str());
        return 1;
    }
    printf("%d by %d, %d seeks each, milliseconds\n\n", settings.width, settings.height, seeks);
    printf("%-14s %9s %9s %9s %9s %9s\n", "", "median", "longest", "undrawn", "longest", "load");

    pool.SetScript(script, 1);
    Times first;
    if (!Measure(&pool, {3000}, false, &first))
        return 1;
    first.Print("first picture");
    Settle(&pool);
    const edit::ShowPool::Status warm = pool.GetStatus();

    std::minstd_rand random(1);
    std::vector<int64_t> far;
    std::vector<int64_t> row;
    std::vector<int64_t> near = {3000};
    const int64_t last = 19000;
    for (int i = 0; i < seeks; i++) {
        near.push_back(std::clamp<int64_t>(near.back() + int64_t(random() % 1201) - 600, 3, last));
        far.push_back(int64_t(random() % uint64_t(last)));
        row.push_back(int64_t(random() % uint64_t(last)));
    }
    near.erase(near.begin());
    Times nearTimes, farTimes, rowTimes;
    if (!Measure(&pool, near, true, &nearTimes))
        return 1;
    nearTimes.Print("near");
    if (!Measure(&pool, far, true, &farTimes))
        return 1;
    farTimes.Print("far");
    if (!Measure(&pool, row, false, &rowTimes))
        return 1;
    rowTimes.Print("in a row");

    printf("\n%d processes, %.0f MB, %.0f MB each\n", warm.processes, double(warm.memory) / (1 << 20),
           double(warm.memory) / (1 << 20) / std::max(warm.processes, 1));
    for (const edit::ShowEvent& event : pool.TakeEvents())
        printf("%s\n", event.text.c_str());
    return 0;
}
