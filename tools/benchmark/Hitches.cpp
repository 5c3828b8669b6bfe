// SPDX-License-Identifier: MIT
// Plays the whole show and lists the frames that hitch:
//
//     hitches [RATE [WIDTH HEIGHT]]        30 frames a second, 640 by 480, unless told otherwise
//
// Start it in the project's folder. The show runs on the counted clock in an off-screen window, so that every machine
// plays the same frames. A frame's time is the processor time of all threads from the end of the frame before
// until GL has finished it. A frame hitches if it takes more than three times as long as is usual around it:
// the median of the two seconds before it or of the two after it, whichever is longer, so that the first frame of a
// slower scene is not one. A frame may take a millisecond whatever is usual.
//
// Most of a frame's time without a graphics card is its pixels. What remains in a window of 64 by 48 pixels is what
// the show, the driver's calls and the compiling of shaders take.
//
// Ahead of it stands how long each effect took to load, by the clock and in processor time.
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/benchmark/ProcessorTime.h"
#include "tools/capture/SteppedShow.h"
#include "tools/cli/MonotonicSeconds.h"

#include <GL/glew.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

static const double seconds = 2;  // to either side of a frame
static const double tooMuch = 3;  // times the usual
static const double allowed = 1;  // millisecond
static const size_t firstOne = 1; // frame 0 waits for the last of what loading sent

class FrameClock : public capture::FrameListener
{
public:
    explicit FrameClock(capture::SteppedShow* newShow) : show(newShow) {}

    void LoadingStep() override
    {
        glFinish();
        loading.push_back({cli::MonotonicSeconds() * 1000, ProcessorMilliseconds()});
    }

    void Loaded() override
    {
        LoadingStep();
        last = ProcessorMilliseconds();
    }

    void FrameDone(int64_t number) override
    {
        glFinish();
        const double now = ProcessorMilliseconds();
        frames.push_back(now - last);
        if (number + 1 == wanted)
            show->Stop();
        last = ProcessorMilliseconds();
    }

    struct Moment {
        double clock, processor; // milliseconds
    };
    std::vector<Moment> loading; // ahead of each effect, and at the end
    std::vector<double> frames;  // milliseconds
    int64_t wanted = 0;

private:
    capture::SteppedShow* show;
    double last = 0;
};

static double MedianOf(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::nth_element(values.begin(), values.begin() + long(values.size() / 2), values.end());
    return values[values.size() / 2];
}

static double UsualAround(const std::vector<double>& frames, size_t i, size_t reach)
{
    const size_t from = std::max(firstOne, i < reach ? 0 : i - reach);
    const size_t to = std::min(frames.size(), i + reach + 1);
    return std::max(MedianOf({frames.begin() + long(from), frames.begin() + long(std::max(from, i))}),
                    MedianOf({frames.begin() + long(i) + 1, frames.begin() + long(to)}));
}

static void PrintLoading(const std::vector<FrameClock::Moment>& moments)
{
    printf("%-10s %9s %9s\n", "loading", "clock", "processor");
    for (size_t i = 1; i < moments.size(); i++)
        printf("%-10zu %9.0f %9.0f\n", i, moments[i].clock - moments[i - 1].clock,
               moments[i].processor - moments[i - 1].processor);
}

static void PrintHitches(const std::vector<double>& frames, const capture::FrameRate& rate)
{
    const size_t reach = size_t(seconds * double(rate.frames) / double(rate.seconds));
    int hitches = 0;
    printf("\n%-12s %9s %9s %9s\n", "frame at", "ms", "usual", "times");
    for (size_t i = firstOne; i < frames.size(); i++) {
        const double usual = UsualAround(frames, i, reach);
        if (frames[i] <= tooMuch * usual || frames[i] <= usual + allowed)
            continue;
        hitches++;
        printf("%-12s %9.2f %9.2f %9.1f\n", capture::TimeText(rate.MomentOf(int64_t(i), 1000) * 1000).c_str(),
               frames[i], usual, frames[i] / usual);
    }
    printf("%d of %zu frames\n", hitches, frames.size());
}

int main(int count, char** arguments)
{
    capture::FrameRate rate;
    rate.frames = 30;
    const int width = count > 3 ? atoi(arguments[2]) : 640;
    const int height = count > 3 ? atoi(arguments[3]) : 480;
    if ((count > 1 && !capture::ReadFrameRate(arguments[1], &rate)) || width < 1 || height < 1) {
        fprintf(stderr, "usage: hitches [RATE [WIDTH HEIGHT]]\n");
        return 2;
    }
    platform::FindDataDirectory(ProductionName);
    std::ifstream file(platform::ResolvePath("data\\script.txt"));
    capture::SteppedShow show;
    show.Load({std::istreambuf_iterator<char>(file), {}});
    FrameClock timer(&show);
    timer.wanted = rate.FramesBefore(show.Duration());
    if (!show.Open(width, height) || timer.wanted == 0) {
        fprintf(stderr, "hitches: %s\n", show.error.c_str());
        return 1;
    }
    show.Play(rate, timer);
    printf("%s\n%d by %d, %s frames a second, milliseconds of processor time\n\n", show.renderer.c_str(),
           width, height, rate.Text().c_str());
    PrintLoading(timer.loading);
    PrintHitches(timer.frames, rate);
    return 0;
}
