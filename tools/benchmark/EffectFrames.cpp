// SPDX-License-Identifier: MIT
#include "tools/benchmark/EffectFrames.h"

#include "display/DrawingSwitch.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/FrameTimer.h"
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "platform/SteppedClock.h"
#include "platform/WindowSystem.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tools/benchmark/ProcessorTime.h"
#include "tools/cli/MonotonicSeconds.h"

#include <GL/glew.h>

#include <algorithm>
#include <cstdlib>

static const char* const showFolder = "tests/shows";
static const int displayModeBits = 32;
static const float showBand = 0.85f; // the letterbox that most of the show plays in

static double Milliseconds()
{
    return 1000 * cli::MonotonicSeconds();
}

static void StartFrame(GLWindow* window)
{
    window->ClearFrame();
    window->ClearDepthAndReset();
}

// Without the first frame, which may include loading and compiling.
static void Summarise(std::vector<double> frames, double* median, double* longest)
{
    frames.erase(frames.begin());
    std::sort(frames.begin(), frames.end());
    *median = frames[frames.size() / 2];
    *longest = frames.back();
}

// How often an effect made a context current. One that draws in a context of its own has calls that no list
// of the window's context can hold.
static int contextChanges = 0;
static platform::WindowSystem counting; // SDL's, but for the one function

static bool CountContextChange(platform::DeviceContext device, platform::ContextHandle context)
{
    contextChanges++;
    platform::UseSdlWindows();
    const bool done = platform::Windows().makeCurrent(device, context);
    platform::UseWindowSystem(counting);
    return done;
}

EffectFrames::EffectFrames()
{
    platform::CollectMessageBoxes(&boxes);
    platform::FindDataDirectory(ProductionName);
    platform::UseSteppedClock();
    RegisterEffects(&registry);
}

bool EffectFrames::Open(int width, int height)
{
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    if (!window.Create(width, height, displayModeBits, false)) {
        error = "no window with an OpenGL context here";
        return false;
    }
    FrameTimer::Init(0);
    window.SetLetterbox(1);
    window.SetPerspective(45);
    window.SetLetterbox(showBand);
    return true;
}

std::string EffectFrames::Driver() const
{
    return std::string(reinterpret_cast<const char*>(glGetString(GL_RENDERER))) + ", " +
           reinterpret_cast<const char*>(glGetString(GL_VERSION));
}

FrameTime EffectFrames::MeasureEmpty(int frames)
{
    std::vector<double> times, processor;
    for (int i = 0; i < frames; i++) {
        const double processorStart = ProcessorMilliseconds();
        const double start = Milliseconds();
        StartFrame(&window);
        glFinish();
        times.push_back(Milliseconds() - start);
        processor.push_back(ProcessorMilliseconds() - processorStart);
    }
    FrameTime time = {};
    double ignored;
    Summarise(times, &time.median, &time.longest);
    Summarise(processor, &time.processor, &ignored);
    return time;
}

double EffectFrames::MeasureFrame(Effect* effect, double* processor)
{
    const double processorStart = ProcessorMilliseconds();
    const double start = Milliseconds();
    StartFrame(&window);
    effect->Render();
    effect->Update();
    glFinish();
    *processor = ProcessorMilliseconds() - processorStart;
    return Milliseconds() - start;
}

// The frame as it stands, without an Update, and then again from a list of its calls. Negative if the effect
// left the window's context.
double EffectFrames::MeasureReplay(Effect* effect)
{
    counting = platform::Windows();
    counting.makeCurrent = CountContextChange;
    contextChanges = 0;
    platform::UseWindowSystem(counting);
    const unsigned list = glGenLists(1);
    glNewList(list, GL_COMPILE_AND_EXECUTE);
    effect->Render();
    glEndList();
    platform::UseSdlWindows();
    glFinish();
    double time = -1;
    if (contextChanges == 0) {
        StartFrame(&window);
        glFinish();
        const double start = Milliseconds();
        StartFrame(&window);
        glCallList(list);
        glFinish();
        time = Milliseconds() - start;
    }
    glDeleteLists(list, 1);
    return time;
}

bool EffectFrames::Measure(size_t index, int frames, FrameMode mode, FrameTime* time)
{
    const RegisteredEffect& row = registry.effects[index];
    platform::SetDataDirectory(showFolder);
    DemoPlayer show;
    show.Init(&window, &registry, nullptr, false);
    const bool loaded = show.LoadScript(row.name + ".txt");
    platform::FindDataDirectory(ProductionName);
    if (!loaded) {
        error = std::string(showFolder) + "/" + row.name + ".txt can't be read";
        return false;
    }
    row.effect->Init(&window, &show);
    if (mode == UndrawnFrames)
        SwitchDrawing(false);

    *time = {};
    std::vector<double> drawn, processor, replayed;
    bool canReplay = mode == ReplayedFrames;
    auto next = show.messages.begin(); // sorted by time
    const double step = double(show.endTime) / frames;
    for (int i = 0; i < frames; i++) {
        platform::StepClock(int64_t(step * double(platform::CounterFrequency())));
        FrameTimer::Update();
        row.effect->AddLocalTime(FrameTimer::GetDelta());
        for (; next != show.messages.end() && next->time <= float(i * step); ++next) {
            if (next->effect != row.effect)
                continue;
            const double start = Milliseconds();
            row.effect->ReceiveMessage(next->id, next->params, next->count);
            time->message = std::max(time->message, Milliseconds() - start);
        }
        if (canReplay) {
            replayed.push_back(MeasureReplay(row.effect));
            canReplay = replayed.back() >= 0;
        }
        double used;
        drawn.push_back(MeasureFrame(row.effect, &used));
        processor.push_back(used);
    }
    SwitchDrawing(true);
    double ignored; // the longest
    Summarise(drawn, &time->median, &time->longest);
    Summarise(processor, &time->processor, &ignored);
    if (canReplay)
        Summarise(replayed, &time->replay, &ignored);
    return true;
}
