// SPDX-License-Identifier: MIT
// For runs of the sequencer, on the stepped clock and windows in memory, with effects that note what they get.
#pragma once

#include "kernel/DemoPlayer.h"

#include "display/GLWindow.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "platform/Events.h"
#include "platform/EventsHooks.h"
#include "platform/SteppedClock.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

const int64_t second = 1000000000;

class DemoPlayerFixture : public ShowFixture
{
protected:
    DemoPlayerFixture()
    {
        gl::Reset(800, 600);
        UseNullWindows();
        platform::UseSteppedClock();
        window.Create(800, 600, 32, false);
        registry.Register("FX_A", &a, "FX_A");
        registry.Register("FX_B", &b, "FX_B");
        registry.Register("FX_C", &c, "FX_C");
        player.Init(&window, &registry, nullptr, false);
        platform::SetFrameObserver(AtSwap, this);
        FollowEffects();
    }
    ~DemoPlayerFixture() override { platform::SetFrameObserver(nullptr, nullptr); }

    void FollowEffects() { a.order = b.order = c.order = &order; }

    // Plays with frames of this length. The clock moves at the end of each effect frame, ahead of the timer's
    // Update, as if drawing had taken it.
    void Play(double frameSeconds)
    {
        frame = int64_t(frameSeconds * double(second));
        ticker.test = this;
        player.AddEffectInstance(0, uint32_t(-1), &ticker, uint32_t(-1)); // frontmost: the last in each frame
        player.endTime = end;
        player.Run();
    }
    void Add(Effect* effect, uint32_t start, uint32_t stop, uint32_t layer = 0)
    {
        player.AddEffectInstance(start, stop, effect, layer);
        end = player.endTime;
    }

    // Moves the clock once per frame.
    class Ticker : public ProbeEffect
    {
    public:
        void Init(GLWindow* w, DemoPlayer* p) override { Attach(w, p); }
        void Render() override { platform::StepClock(test->frame); }
        void Update() override {}
        DemoPlayerFixture* test = nullptr;
    };

    static void AtSwap(void* user)
    {
        DemoPlayerFixture* test = static_cast<DemoPlayerFixture*>(user);
        test->swaps++;
        if (test->swaps == test->quitAtSwap)
            platform::PostQuit(0);
        test->timesAtSwap.push_back(FrameTimer::GetTime());
        test->countsAtSwap.push_back(platform::ReadCounter());
        test->picturesAtSwap.push_back(gl::DrawsWithTexture("loading.jpg").size());
        test->titlesAtSwap.push_back(NullWindowState().title);
        gl::PostSwap();
    }

    GLWindow window;
    EffectRegistry registry;
    ProbeEffect a, b, c;
    Ticker ticker;
    DemoPlayer player;
    std::vector<Effect*> order;
    int64_t frame = 0;
    float end = 0;
    int swaps = 0;
    int quitAtSwap = 0;
    std::vector<float> timesAtSwap;
    std::vector<int64_t> countsAtSwap;
    std::vector<size_t> picturesAtSwap;
    std::vector<std::string> titlesAtSwap;
};

inline std::vector<float> TimesOf(const ProbeEffect& effect, const std::string& what)
{
    std::vector<float> times;
    for (const ProbeCall& call : effect.calls)
        if (call.what == what)
            times.push_back(call.time);
    return times;
}

typedef std::vector<float> Floats;
