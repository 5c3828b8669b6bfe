// SPDX-License-Identifier: MIT
// Measures how long each effect's frame takes on the current GL driver, and how long its messages take:
//
//     frame-times [FRAMES [WIDTH HEIGHT]]        120 frames an effect, 1024 by 768, unless told otherwise
//
// Start it in the project's folder. Each effect plays its own show of tests/shows, with the messages of that
// script spread over the frames. The show runs on the stepped clock, so that every machine draws the same
// frames. The measured time is real time, from the clear of the frame until the driver has finished it
// (glFinish), without the swap, which may wait for the display.
// The first line names the driver. Without SDL_VIDEODRIVER in the environment the window is one of SDL's
// offscreen driver, which needs no display and takes the graphics card where it finds one; with
// LIBGL_ALWAYS_SOFTWARE=1 it is the software rasteriser.
//
//   median      median time of a frame, milliseconds
//   longest     the longest frame without its messages and without the first frame
//   of empty    the median as a multiple of an empty frame's, measured in the same run
//   message     the longest time of one message before its frame, such as the one that generates a tree
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/EffectRegistry.h"
#include "kernel/FrameTimer.h"
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/MessageBox.h"

#include <GL/glew.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

static const char* const showFolder = "tests/shows";

struct Times {
    double median;
    double longest;
    double message;
};

static double Milliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

static void PassTime(double seconds)
{
    platform::StepClock(int64_t(seconds * double(platform::CounterFrequency())));
    FrameTimer::Update();
}

static void StartFrame(GLWindow* window)
{
    window->ClearFrame();
    window->ClearDepthAndReset();
}

static Times Summary(std::vector<double> frames, double message)
{
    frames.erase(frames.begin()); // the first frame may include loading and compiling
    std::sort(frames.begin(), frames.end());
    return {frames[frames.size() / 2], frames.back(), message};
}

static Times MeasureEmptyFrame(GLWindow* window, int count)
{
    std::vector<double> frames;
    for (int i = 0; i < count; i++) {
        const double start = Milliseconds();
        StartFrame(window);
        glFinish();
        frames.push_back(Milliseconds() - start);
    }
    return Summary(frames, 0);
}

static Times Measure(const DemoPlayer& show, Effect* effect, GLWindow* window, int count)
{
    std::vector<double> frames;
    double longestMessage = 0;
    std::vector<SynchMessage> messages = show.messages; // sorted by time
    auto next = messages.begin();
    const double step = double(show.endTime) / count;
    for (int i = 0; i < count; i++) {
        PassTime(step);
        effect->AddLocalTime(FrameTimer::GetDelta());
        for (; next != messages.end() && next->time <= float(i * step); ++next) {
            if (next->effect != effect)
                continue;
            const double start = Milliseconds();
            effect->ReceiveMessage(next->id, next->params, next->count);
            longestMessage = std::max(longestMessage, Milliseconds() - start);
        }
        const double start = Milliseconds();
        StartFrame(window);
        effect->Render();
        effect->Update();
        glFinish();
        frames.push_back(Milliseconds() - start);
    }
    return Summary(frames, longestMessage);
}

static void Print(const char* name, const Times& times, const Times& empty)
{
    printf("%-20s %9.3f %9.3f %9.1f", name, times.median, times.longest, times.median / empty.median);
    if (times.message > 0)
        printf(" %9.3f", times.message);
    printf("\n");
    fflush(stdout);
}

int main(int count, char** arguments)
{
    const int frames = count > 1 ? atoi(arguments[1]) : 120;
    const int width = count > 3 ? atoi(arguments[2]) : 1024;
    const int height = count > 3 ? atoi(arguments[3]) : 768;
    if (frames < 2 || width < 1 || height < 1) {
        fprintf(stderr, "usage: frame-times [FRAMES [WIDTH HEIGHT]]\n");
        return 2;
    }
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    std::vector<platform::MessageBox> boxes; // collected here, since a box would wait for a click
    platform::CollectMessageBoxes(&boxes);
    platform::FindDataDirectory();
    platform::UseSteppedClock();

    GLWindow window;
    if (!window.Create(width, height, 32, false)) {
        fprintf(stderr, "frame-times: no window with an OpenGL context here\n");
        return 1;
    }
    printf("%s, %s\n", reinterpret_cast<const char*>(glGetString(GL_RENDERER)),
           reinterpret_cast<const char*>(glGetString(GL_VERSION)));
    printf("%d by %d, %d frames each, milliseconds\n\n", width, height, frames);
    printf("%-20s %9s %9s %9s %9s\n", "", "median", "longest", "of empty", "message");

    EffectRegistry registry;
    RegisterEffects(&registry);
    FrameTimer::Init(0);
    window.SetLetterbox(1);
    window.SetPerspective(45);
    window.SetLetterbox(0.85f); // the band of the show
    const Times empty = MeasureEmptyFrame(&window, frames);
    Print("(empty frame)", empty, empty);
    for (const RegisteredEffect& row : registry.effects) {
        platform::SetDataDirectory(showFolder);
        DemoPlayer show;
        show.Init(&window, &registry, nullptr, false);
        const bool loaded = show.LoadScript(row.name + ".txt");
        platform::FindDataDirectory();
        if (!loaded) {
            fprintf(stderr, "frame-times: %s/%s.txt can't be read\n", showFolder, row.name.c_str());
            return 1;
        }
        row.effect->Init(&window, &show);
        Print(row.name.c_str(), Measure(show, row.effect, &window, frames), empty);
    }
    return 0;
}
