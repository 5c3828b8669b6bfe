// SPDX-License-Identifier: MIT
// What the linter says of messages and of loading, against shows that are really played.
#include "tools/lint/Schedule.h"

#include "display/GLWindow.h"
#include "kernel/EffectRegistry.h"
#include "platform/SteppedClock.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/RandomScript.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

// Frames of 15.625 ms: the timer's single precision stays near them, and no millisecond comes nearer to them
// than an eighth but those that fall on them.
static const int framesPerSecond = 64;

class Played : public ShowFixture
{
protected:
    Played()
    {
        gl::Reset(800, 600);
        UseNullWindows();
        window.Create(800, 600, 32, false);
        for (size_t i = 0; i < 3; i++)
            registry.Register(names[i], &probes[i], "");
        platform::SetFrameObserver([](void*) {}, nullptr);
    }
    ~Played() override { platform::SetFrameObserver(nullptr, nullptr); }

    // Moves the clock, ahead of the timer's look at it. Lies on top of everything and hears nothing.
    class Ticker : public ProbeEffect
    {
    public:
        void Init(GLWindow* w, DemoPlayer* p) override { Attach(w, p); }
        void Render() override { platform::StepClock(1000000000 / framesPerSecond); }
        void Update() override {}
    };

    void Play(const std::string& script, uint32_t offset)
    {
        AddFile("script.txt", script);
        DemoPlayer player;
        player.SetStartOffset(offset);
        ASSERT_TRUE(player.Init(&window, &registry, nullptr, false));
        ASSERT_TRUE(player.LoadScript("script.txt"));
        const float end = player.endTime;
        player.AddEffectInstance(0, uint32_t(-1), &ticker, uint32_t(-1));
        player.endTime = end;
        gl::Pause();
        platform::UseSteppedClock();
        StartTimer();
        player.Run();
        gl::Resume();
    }

    const char* names[3] = {"FX_A", "FX_B", "FX_C"};
    GLWindow window;
    EffectRegistry registry;
    ProbeEffect probes[3];
    Ticker ticker;
};

TEST_F(Played, MessagesAreHeardThenAndThereWhereTheLinterSaysSo)
{
    int heard = 0, lost = 0, late = 0;
    for (unsigned seed = 0; seed < 120; seed++) {
        SCOPED_TRACE(seed);
        RandomScript random(seed, {names[0], names[1], names[2]}, {"flash", "step"}, 4000);
        const std::string script = random.Write(12, false);
        lint::CheckOptions options;
        options.frameRate = framesPerSecond;
        options.startOffset = random.OneIn(2) ? 0 : 125 * random.Below(20); // whole frames
        const lint::Reading whole(script, &registry, 0);
        const lint::Reading kept(script, &registry, options.startOffset);
        const lint::Show show = lint::BuildShow(whole, kept, registry, options);

        std::map<std::string, std::vector<long>> expected; // the frames in which each effect hears something
        for (const lint::SentMessage& message : show.messages) {
            if (!message.kept)
                continue;
            heard += message.heard;
            lost += !message.heard;
            late += message.delay > 0;
            if (!message.heard)
                continue;
            const double frame = 1000.0 / framesPerSecond;
            const double due = std::ceil((double(message.time) - options.startOffset) / frame);
            expected[message.effect].push_back(
                lround(options.startOffset / frame + due + message.delay / frame));
        }
        for (ProbeEffect& probe : probes)
            probe.calls.clear();
        Play(script, options.startOffset);
        for (size_t i = 0; i < 3; i++) {
            std::vector<long> frames;
            for (const ProbeCall& call : probes[i].calls) {
                const long frame = lround(double(call.time) * framesPerSecond);
                if (call.what == "message" && (frames.empty() || frames.back() != frame))
                    frames.push_back(frame); // once, however many entries are on
            }
            EXPECT_EQ(expected[names[i]], frames) << names[i];
        }
    }
    EXPECT_GT(heard, 100);
    EXPECT_GT(lost, 100);
    EXPECT_GT(late, 20);
}
