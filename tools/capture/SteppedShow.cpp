// SPDX-License-Identifier: MIT
#include "tools/capture/SteppedShow.h"

#include "display/DrawingSwitch.h"
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "kernel/Report.h"
#include "platform/CountedClock.h"
#include "platform/Events.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "script/ScriptParser.h"

#include <GL/glew.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace capture
{

static const int displayModeBits = 32;
static const int64_t countsPerSecond = 1000000000;

SteppedShow::SteppedShow()
    : player(nullptr), window(nullptr), registry(nullptr), listener(nullptr), width(0), height(0),
      drawing(true)
{
}

void SteppedShow::Load(const std::string& script)
{
    platform::CollectMessageBoxes(&boxes);
    player = new DemoPlayer;
    window = new GLWindow;
    registry = new EffectRegistry;
    RegisterEffects(registry);
    // Without music, which plays or is decoded elsewhere: the picture does not depend on it.
    player->Init(window, registry, new LoadingScreen(window), false);
    ReadScript(script, player);
}

void SteppedShow::ReadScript(const std::string& script, DemoPlayer* player)
{
    // fmemopen of no bytes fails in some C libraries. An empty script has no blocks.
    FILE* const file =
        script.empty() ? nullptr : fmemopen(const_cast<char*>(script.data()), script.size(), "rb");
    if (!file)
        return;
    ScriptParser parser;
    parser.SetPlayer(player);
    parser.ReadBlocks(file);
    player->SortMessages();
    fclose(file);
}

int64_t SteppedShow::Duration() const
{
    // Script times are milliseconds, which rounding recovers from the float.
    return std::llround(double(player->endTime) * 1000) * 1000;
}

bool SteppedShow::Open(int newWidth, int newHeight)
{
    width = newWidth;
    height = newHeight;
    // The offscreen driver needs no display and allows any size.
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    setenv("SDL_NO_SIGNAL_HANDLERS", "1", 1); // SIGINT and SIGTERM are the program's own business
    if (!window->Create(width, height, displayModeBits, false)) {
        CollectBoxText();
        if (error.empty())
            error = "no off-screen window: SDL has no offscreen driver, or GL can't be had";
        return false;
    }
    if (const GLubyte* name = glGetString(GL_RENDERER))
        renderer = reinterpret_cast<const char*>(name);
    return true;
}

void SteppedShow::Play(const FrameRate& newRate, FrameListener& newListener)
{
    rate = newRate;
    listener = &newListener;
    // The listener determines the last frame. The end time is a float, whose rounding could make the player end
    // one frame early or late.
    player->endTime = FLT_MAX;
    platform::SetFrameObserver(BeforeSwap, this);
    platform::UseCountedClock(CountsOfRead, this);
    player->Run();
    platform::UseRealClock();
    platform::SetFrameObserver(nullptr, nullptr);
}

// The player reads the clock once when the show starts and once after each frame, including the current one, but
// not while the effects load.
int64_t SteppedShow::CountsOfRead(void* user, int64_t read)
{
    SteppedShow* const show = static_cast<SteppedShow*>(user);
    if (read == 0)
        show->listener->Loaded();
    return show->rate.MomentOf(read, countsPerSecond);
}

void SteppedShow::BeforeSwap(void* user)
{
    SteppedShow* const show = static_cast<SteppedShow*>(user);
    const int64_t reads = platform::ClockReads();
    if (reads >= 2)
        show->listener->FrameDone(reads - 2);
    else
        show->listener->LoadingStep();
}

void SteppedShow::DrawNext(bool on)
{
    if (drawing == on)
        return;
    drawing = on;
    SwitchDrawing(on);
}

void SteppedShow::ReadPixels(unsigned char* rgba) const
{
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
}

void SteppedShow::Stop()
{
    platform::PostQuit(0);
}

bool SteppedShow::CollectBoxText()
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

} // namespace capture
