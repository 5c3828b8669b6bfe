// SPDX-License-Identifier: MIT
// How long each effect's frame takes on the driver at hand, and how long its messages hold up a frame:
//
//     frame-times [FRAMES [WIDTH HEIGHT]]        120 frames an effect, 1024 by 768, unless told otherwise
//
// The show's clock is the stepped one, so that every machine draws the same frames: the effect's seconds and
// messages as the table below has them, spread over the frames. What is measured is real time: from the clear
// of the frame until the driver has finished it (glFinish), without the swap, which may wait for the display.
// The first line says who draws. Without SDL_VIDEODRIVER in the environment the window is one of SDL's
// offscreen driver, which needs no display and takes the graphics card where it finds one; with
// LIBGL_ALWAYS_SOFTWARE=1 it is the software rasteriser.
//
//   median      milliseconds of a frame, the middle one of all
//   longest     the longest frame without the messages; the first one is left out
//   of empty    the median as a multiple of an empty frame's, measured in the same run
//   message     the longest that one message took, ahead of its frame: a tree is planted in one
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/EffectRegistry.h"
#include "kernel/FrameTimer.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "platform/Paths.h"
#include "platform/SteppedClock.h"

#include <GL/glew.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

struct Cue {
    float seconds;
    const char* message; // null ends the list
};

struct Act {
    const char* effect;
    float seconds;
    Cue cues[17];
};

// What the show asks of each effect, in shorter time.
// clang-format off
static const Act acts[] = {
    {"FX_Credits", 24, {{0, "fade_in"}, {3, "fade_in"}, {6, "fade_in"}, {9, "fade_in"}, {12, "fade_in"},
                        {15, "fade_in"}, {18, "fade_in"}, {21, "fade_last_in"}}},
    {"FX_Scroller_Intro", 80, {{14, "light_flash"}, {28, "light_flash"}, {42, "light_flash"},
                               {56, "light_flash"}, {66, "fadein_logo"}}},
    {"FX_Path", 40, {{14, "trigger_cam"}, {16, "tree1"}, {18, "tree1"}, {20, "tree1"}, {22, "tree2"},
                     {24, "tree2"}, {26, "tree2"}, {28, "tree2"}, {30, "tree2"}, {34, "tree3"}}},
    {"Transition_Fish", 7, {}},
    {"FX_Towers", 20, {{5, "flash_line"}, {10, "flash_line"}, {15, "flash_line"}}},
    {"FX_Clouds", 30, {{4, "hand"}, {8, "handFrakt"}, {10, "hand"}, {14, "handFrakt"}, {16, "blend"}}},
    {"FX_FlashHand", 6, {{0, "flash"}, {3, "flash"}}},
    {"FX_Footprint", 10, {{2, "step"}, {3, "step"}, {4, "step"}, {5, "step"}, {6, "step"},
                          {7, "trigger_base"}}},
    {"FX_VerticalScroller", 20, {{18, "stopScroll"}}},
    {"FX_RopeThing", 12, {{0, "intro"}, {4, "front"}, {7, "shock"}, {9, "shock"}}},
    {"FS_Image", 12, {{2, "fade"}, {6, "flash"}}},
    {"WhiteFlashOverlay", 4, {{0, "flash"}, {2, "flash"}}},
    {"BlackFlashOverlay", 4, {{0, "flash"}, {2, "flash"}}},
};
// clang-format on

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
    frames.erase(frames.begin()); // it may still be loading and compiling
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

static Times Measure(const Act& act, Effect* effect, SynchMessageTable* messages, GLWindow* window, int count)
{
    std::vector<double> frames;
    double longestMessage = 0;
    const Cue* cue = act.cues;
    const double step = double(act.seconds) / count;
    for (int i = 0; i < count; i++) {
        PassTime(step);
        effect->AddLocalTime(FrameTimer::GetDelta());
        for (; cue->message && cue->seconds <= float(i * step); cue++) {
            const double start = Milliseconds();
            effect->ReceiveMessage(messages->FindMessage(cue->message, effect), nullptr, 0);
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
    DemoPlayer player;
    FrameTimer::Init(0);
    window.SetLetterbox(1);
    window.SetPerspective(45);
    window.SetLetterbox(0.85f); // what the show plays in
    const Times empty = MeasureEmptyFrame(&window, frames);
    Print("(empty frame)", empty, empty);
    for (const Act& act : acts) {
        Effect* const effect = registry.FindEffect(act.effect);
        if (!effect) {
            fprintf(stderr, "frame-times: there is no effect %s\n", act.effect);
            return 1;
        }
        effect->Init(&window, &player);
        Print(act.effect, Measure(act, effect, registry.GetMessageTable(), &window, frames), empty);
    }
    return 0;
}
