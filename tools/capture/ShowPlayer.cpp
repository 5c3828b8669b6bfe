// SPDX-License-Identifier: MIT
#include "tools/capture/ShowPlayer.h"

#include "display/DrawingSwitch.h"
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "kernel/Report.h"
#include "platform/CountedClock.h"
#include "platform/Events.h"
#include "script/ScriptParser.h"
#include "tools/capture/Interruption.h"
#include "tools/capture/Progress.h"

#include <GL/glew.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace capture
{

static const int displayModeBits = 32;
static const int64_t countsPerSecond = 1000000000;

// Number of frames that are drawn before each selected one. No effect of today shows what an earlier frame
// drew. For one that draws into a texture and keeps it, a frame of lead is enough; the second is a reserve.
static const int64_t warmUpFrames = 2;

ShowPlayer::ShowPlayer()
    : taken(0), player(nullptr), window(nullptr), registry(nullptr), sink(nullptr), progress(nullptr),
      width(0), height(0), drawing(true), failed(false), lastMoment(0)
{
}

bool ShowPlayer::Load(const std::string& script)
{
    platform::CollectMessageBoxes(&boxes);
    player = new DemoPlayer;
    window = new GLWindow;
    registry = new EffectRegistry;
    RegisterEffects(registry);
    // Without music: MusicTrack decodes it separately, and the picture does not depend on it.
    player->Init(window, registry, new LoadingScreen(window), false);
    // fmemopen of no bytes fails in some C libraries. An empty script has no blocks.
    FILE* const file =
        script.empty() ? nullptr : fmemopen(const_cast<char*>(script.data()), script.size(), "rb");
    if (file) {
        ScriptParser parser;
        parser.SetPlayer(player);
        parser.ReadBlocks(file);
        player->SortMessages();
        fclose(file);
    }
    return !CollectBoxText();
}

int64_t ShowPlayer::Duration() const
{
    // Script times are milliseconds, which rounding recovers from the float.
    return std::llround(double(player->endTime) * 1000) * 1000;
}

// Makes each collected box a line of `error`, without the closing paragraph that all error boxes share.
bool ShowPlayer::CollectBoxText()
{
    for (const platform::MessageBox& box : boxes) {
        std::string body = box.body;
        const size_t tail = body.find(ErrorTail);
        if (tail != std::string::npos)
            body.erase(tail);
        std::string line = box.caption + ": " + body;
        for (char& c : line)
            if (c == '\n' || c == '\r' || c == '\t')
                c = ' ';
        error += (error.empty() ? "" : "\n") + line;
    }
    const bool any = !boxes.empty();
    boxes.clear();
    return any;
}

int64_t ShowPlayer::CountsOfRead(void* show, int64_t read)
{
    return static_cast<ShowPlayer*>(show)->selection.rate.MomentOf(read, countsPerSecond);
}

PlayResult ShowPlayer::Play(int newWidth, int newHeight, const FrameSelection& newSelection,
                            FrameSink& newSink, Progress& newProgress)
{
    width = newWidth;
    height = newHeight;
    selection = newSelection;
    sink = &newSink;
    progress = &newProgress;
    if (selection.picks == 0)
        return PlayedToTheEnd;

    // The offscreen driver needs no display and allows any size.
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    setenv("SDL_NO_SIGNAL_HANDLERS", "1", 1); // an interruption ends the file properly: see Interruption.h
    lastMoment = progress->Now();
    if (!window->Create(width, height, displayModeBits, false)) {
        CollectBoxText();
        if (error.empty())
            error = "no off-screen window: SDL has no offscreen driver, or GL can't be had";
        return PlayFailed;
    }

    if (const GLubyte* name = glGetString(GL_RENDERER))
        renderer = reinterpret_cast<const char*>(name);

    // The selection determines the last frame exactly. The end time is a float, whose rounding could make the
    // player end one frame early or late.
    player->endTime = FLT_MAX;
    platform::SetFrameObserver(FrameDone, this);
    platform::UseCountedClock(CountsOfRead, this);
    player->Run();
    platform::UseRealClock();
    platform::SetFrameObserver(nullptr, nullptr);

    if (CollectBoxText() || failed)
        return PlayFailed;
    if (taken == selection.picks)
        return PlayedToTheEnd;
    if (IsInterrupted())
        return PlayInterrupted;
    error = "the show ended by itself, " + std::to_string(selection.picks - taken) + " frames early";
    return PlayFailed;
}

void ShowPlayer::Stop()
{
    platform::PostQuit(0);
}

// Called at each buffer swap. The player reads the clock once when the show starts and once after each frame,
// including the current one, but not while the effects load.
void ShowPlayer::FrameDone(void* user)
{
    ShowPlayer* const show = static_cast<ShowPlayer*>(user);
    const int64_t reads = platform::ClockReads();
    if (IsInterrupted())
        show->Stop();
    else if (reads >= 2)
        show->LookAtFrame(reads - 2);
}

void ShowPlayer::LookAtFrame(int64_t number)
{
    if (number == 0) {
        const double now = progress->Now();
        timing.loading = now - lastMoment;
        lastMoment = now;
    }
    if (CollectBoxText()) {
        failed = true;
        Stop();
        return;
    }
    const bool wanted = selection.Wants(number);
    if (wanted && !HandFrame(number)) {
        failed = true;
        Stop();
        return;
    }
    if (!wanted) {
        const double now = progress->Now();
        timing.skipping += now - lastMoment;
        lastMoment = now;
    }
    progress->Show(number, taken);
    if (taken == selection.picks)
        Stop();
    else
        PrepareFrame(number + 1);
}

bool ShowPlayer::HandFrame(int64_t number)
{
    glFinish(); // glReadPixels would wait as well; this separates the two times at no cost
    const double drawn = progress->Now();
    std::unique_ptr<Frame> frame(new Frame);
    frame->number = number;
    frame->width = width;
    frame->height = height;
    frame->pixels.resize(size_t(width) * size_t(height) * 4);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, frame->pixels.data());
    const double read = progress->Now();
    const bool good = sink->Take(std::move(frame));
    const double handed = progress->Now();

    timing.drawing += drawn - lastMoment;
    timing.reading += read - drawn;
    timing.handing += handed - read;
    lastMoment = handed;
    if (good)
        taken++;
    else
        error = sink->error;
    return good;
}

void ShowPlayer::PrepareFrame(int64_t number)
{
    SetDrawing(number + warmUpFrames >= selection.NextWanted(number));
}

void ShowPlayer::SetDrawing(bool on)
{
    if (drawing == on)
        return;
    drawing = on;
    SwitchDrawing(on);
}

} // namespace capture
