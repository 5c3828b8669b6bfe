// SPDX-License-Identifier: MIT
// A show whose script is exchanged while it plays goes on as one that had the new script from the start.
#include "tools/edit/ScriptExchange.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/FrameTimer.h"
#include "platform/Events.h"
#include "platform/SteppedClock.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/RandomScript.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"
#include "tools/capture/SteppedShow.h"

#include <cfloat>
#include <memory>

static const int64_t frameCounts = 100000000; // 0.1 s

// Writes what happens to all of them into one list.
class NamedEffect : public ProbeEffect
{
public:
    NamedEffect(std::string effectName, std::vector<std::string>* newLog, bool attaches = true)
        : ProbeEffect(attaches), name(effectName), log(newLog)
    {
    }
    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override
    {
        ProbeEffect::Init(newWindow, newPlayer);
        log->push_back("load " + name);
    }
    void Render() override { log->push_back(name); }
    void Update() override {}
    void ReceiveMessage(int id, float* params, int count) override
    {
        std::string line = name + " gets " + std::to_string(id == flashId) + std::to_string(id == stepId);
        for (int i = 0; i < count; i++)
            line += " " + std::to_string(params[i]);
        log->push_back(line);
    }

private:
    std::string name;
    std::vector<std::string>* log;
};

struct Exchange {
    int64_t frame; // after which the script is exchanged
    std::string script;
};

class ExchangedRun : public ShowFixture
{
protected:
    ExchangedRun() { gl::Reset(64, 48); }
    ~ExchangedRun() override { platform::SetFrameObserver(nullptr, nullptr); }

    // Plays so many frames and returns what happened, frame by frame. An exchange that is refused ends the run.
    std::vector<std::string> Play(const std::string& script, std::vector<Exchange> newExchanges,
                                  int64_t newFrames)
    {
        UseNullWindows();
        window = std::make_unique<GLWindow>(); // one that a quit has ended stays so
        window->Create(64, 48, 32, false);
        platform::UseSteppedClock();
        FrameTimer::Init(0); // from 0 again, whatever was played before
        FrameTimer::Update();
        FrameTimer::SetTime(0);
        log.clear();
        times = {0};
        lead = 0;
        frames = newFrames;
        exchanges = newExchanges;
        refused = -2;
        NamedEffect a("A", &log), b("B", &log), c("C", &log, false);
        EffectRegistry all;
        all.Register("A", &a, "");
        all.Register("B", &b, "");
        all.Register("C", &c, "");
        registry = &all;
        DemoPlayer show;
        player = &show;
        show.Init(window.get(), registry, nullptr, false);
        current = script;
        capture::SteppedShow::ReadScript(script, &show);
        show.endTime = FLT_MAX;
        platform::SetFrameObserver(AtSwap, this);
        show.Run();
        return log;
    }

    std::unique_ptr<DemoPlayer> Lists(const std::string& script)
    {
        std::unique_ptr<DemoPlayer> lists = std::make_unique<DemoPlayer>();
        lists->Init(window.get(), registry, nullptr, false);
        capture::SteppedShow::ReadScript(script, lists.get());
        return lists;
    }

    static void AtSwap(void* user)
    {
        ExchangedRun* const test = static_cast<ExchangedRun*>(user);
        const int64_t number = int64_t(test->times.size()) - 1;
        test->times.push_back(FrameTimer::GetTime());
        test->log.push_back("-- " + std::to_string(number));
        platform::StepClock(frameCounts);
        if (!test->exchanges.empty() && test->exchanges.front().frame == number)
            test->TakeScript();
        if (number + 1 == test->frames)
            platform::PostQuit(0);
    }

    void TakeScript()
    {
        edit::ScriptExchange exchange(Lists(current), Lists(exchanges.front().script));
        const std::vector<float> played(times.begin(), times.end() - 1);
        refused = -1;
        if (exchange.LoadsAlike())
            refused = exchange.FirstDifference(played);
        if (refused == int64_t(played.size())) {
            ASSERT_TRUE(exchange.Apply(player, &lead));
            refused = -2;
        }
        current = exchanges.front().script;
        exchanges.erase(exchanges.begin());
        if (refused != -2)
            platform::PostQuit(0);
    }

    // The frame that was the reason for the refusal of one exchange after this frame, -2 if it was taken.
    int64_t Refusal(const std::string& script, const std::string& newScript, int64_t frame)
    {
        Play(script, {{frame, newScript}}, frame + 1);
        return refused;
    }

    std::unique_ptr<GLWindow> window;
    EffectRegistry* registry = nullptr;
    DemoPlayer* player = nullptr;
    std::vector<std::string> log;
    std::vector<float> times;
    std::vector<Exchange> exchanges;
    std::string current;
    int64_t lead = 0;
    int64_t frames = 0;
    int64_t refused = -2;
};

static std::string Entry(const std::string& effect, int start, int stop, int layer)
{
    return "[EFFECT]EffectName=" + effect + ";StartTime=" + std::to_string(start) +
           ";StopTime=" + std::to_string(stop) + ";LayerID=" + std::to_string(layer) + ";";
}

static std::string Message(const std::string& effect, int time, const std::string& more = "")
{
    return "[MESSAGE]MessageText=flash;TargetEffect=" + effect + ";ActivationTime=" + std::to_string(time) +
           ";" + more;
}

TEST_F(ExchangedRun, WhatLiesAheadIsPlayedByTheNewScript)
{
    const std::string before = Entry("A", 0, 2000, 1) + Entry("B", 1500, 3000, 2) + Message("A", 1800);
    const std::string after = Entry("A", 0, 1600, 1) + Entry("B", 1200, 3000, 0) +
                              Message("A", 1400, "Parameter=2.00;") + Message("B", 1700);
    const std::vector<std::string> exchanged = Play(before, {{10, after}}, 25);
    EXPECT_EQ(-2, refused);
    EXPECT_EQ(Play(after, {}, 25), exchanged);
    EXPECT_NE(Play(before, {}, 25), exchanged);
}

TEST_F(ExchangedRun, AnotherPastIsRefusedWithItsFirstFrame)
{
    const std::string script = Entry("A", 0, 2000, 1) + Entry("B", 500, 3000, 2) + Message("A", 700);
    // Frames 0 and 1 are at time 0, frame n is at (n - 1) / 10 s. After frame 10:
    EXPECT_EQ(-2, Refusal(script, script, 10));
    EXPECT_EQ(6, Refusal(script, Entry("A", 0, 2000, 1) + Entry("B", 600, 3000, 2) + Message("A", 700), 10));
    EXPECT_EQ(6, Refusal(script, Entry("A", 0, 2000, 3) + Entry("B", 500, 3000, 2) + Message("A", 700), 10));
    EXPECT_EQ(8, Refusal(script, Entry("A", 0, 2000, 1) + Entry("B", 500, 3000, 2) + Message("A", 800), 10));
    EXPECT_EQ(
        8, Refusal(script,
                   Entry("A", 0, 2000, 1) + Entry("B", 500, 3000, 2) + Message("A", 700, "Parameter=1.00;"),
                   10));
    EXPECT_EQ(8, Refusal(script, Entry("A", 0, 2000, 1) + Entry("B", 500, 3000, 2) + Message("B", 700), 10));
    EXPECT_EQ(9, Refusal(script, script + Message("B", 800), 10));
    // The same changes right behind the last frame.
    EXPECT_EQ(-2, Refusal(script, Entry("A", 0, 2000, 1) + Entry("B", 600, 3000, 2) + Message("A", 700), 5));
    EXPECT_EQ(-2, Refusal(script, script + Message("B", 800), 8));
    EXPECT_EQ(9, Refusal(script, script + Message("B", 800), 9));
}

TEST_F(ExchangedRun, WhatWouldLoadAnotherWayIsRefused)
{
    const std::string script = Entry("A", 0, 2000, 1) + Entry("B", 5000, 6000, 2);
    EXPECT_EQ(-1, Refusal(script, Entry("B", 5000, 6000, 2) + Entry("A", 0, 2000, 1), 3));
    EXPECT_EQ(-1, Refusal(script, Entry("A", 0, 2000, 1), 3));
    EXPECT_EQ(-1, Refusal(script, script + Entry("C", 5000, 6000, 2), 3));
    EXPECT_EQ(-1, Refusal(script,
                          script + "[COLORSCHEME]GlobalColor=1,2,3;SupportColor=1,2,3;FlowColor=1,2,3;", 3));
    // A has loaded and does not load again; C does, at each entry.
    EXPECT_EQ(-2, Refusal(script, script + Entry("A", 7000, 8000, 1), 3));
    const std::string withC = Entry("C", 0, 2000, 1);
    EXPECT_EQ(-1, Refusal(withC, withC + Entry("C", 7000, 8000, 1), 3));
}

TEST_F(ExchangedRun, MessagesThatNobodyGotDoNotMatter)
{
    // Messages in the past for an effect that is not there: added, and taken away, between two exchanges.
    const std::string script = Entry("A", 0, 9000, 1) + Message("A", 3000) + Message("A", 3100);
    const std::string lost = script + Message("B", 300) + Message("B", 500) + Message("B", 900);
    const std::vector<std::string> exchanged = Play(script, {{15, lost}, {20, script}, {25, lost}}, 40);
    EXPECT_EQ(-2, refused);
    EXPECT_EQ(Play(script, {}, 40), exchanged);
    EXPECT_EQ(Play(script, {}, 40), Play(lost, {{15, script}, {20, lost}, {25, script}}, 40));
}

// The player exchanges entries of one layer as it sorts, so that their order depends on all frames before.
TEST_F(ExchangedRun, EntriesOfOneLayerStayInTheOrderThatThePlayerHasBroughtThemTo)
{
    const std::string script = Entry("B", 0, 9000, 2) + Entry("A", 500, 9000, 2) + Entry("C", 300, 700, 1);
    const std::vector<std::string> exchanged = Play(script, {{10, script + Entry("A", 2000, 9000, 1)}}, 40);
    EXPECT_EQ(-2, refused);
    EXPECT_EQ(Play(script + Entry("A", 2000, 9000, 1), {}, 40), exchanged);
}

TEST_F(ExchangedRun, RandomScriptsGoOnAsIfTheyHadBeenThereFromTheStart)
{
    RandomScript random(11, {"A", "B", "C"}, {"flash", "step"}, 6000);
    int taken = 0;
    for (int round = 0; round < 400; round++) {
        const std::string before = random.Write(int(3 + random.Below(8)), false);
        const std::string after = random.Mutate(before);
        const int64_t frame = random.Below(30);
        const std::vector<std::string> exchanged = Play(before, {{frame, after}}, 60);
        if (refused != -2)
            continue;
        taken++;
        ASSERT_EQ(Play(after, {}, 60), exchanged) << before << "\n\n" << after << "\n" << frame;
    }
    EXPECT_GT(taken, 50);
}
