// SPDX-License-Identifier: MIT
// The frames of a run: what effects get when, and when it ends.
#include "tests/kernel/DemoPlayerFixture.h"

#include "tests/support/BytesInUse.h"

class DemoPlayerRun : public DemoPlayerFixture
{
};

TEST_F(DemoPlayerRun, AnEmptyTimelineGivesOneFrameOfClearsAndEnds)
{
    // On the stepped clock no time would ever pass.
    platform::UseRealClock();
    player.Run();
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
    EXPECT_EQ(1, NullWindowState().swaps);
    ASSERT_EQ(1u, gl::Clears().size());
    EXPECT_EQ(GLbitfield(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT), gl::Clears()[0].mask);
    EXPECT_TRUE(gl::Draws().empty());
}

TEST_F(DemoPlayerRun, StartAndStopAreBothIncluded)
{
    Add(&a, 500, 1000);
    Add(&b, 0, 2000);
    Play(0.25);
    EXPECT_EQ((Floats{0.5f, 0.75f, 1.0f}), TimesOf(a, "Render"));
}

TEST_F(DemoPlayerRun, WholeMillisecondsFallOnTheirFramesAtTwentyFramesASecond)
{
    Add(&a, 2250, 2350);
    Add(&b, 0, 2400);
    player.AddMessage(2250, "flash", nullptr, 0, "FX_B");
    Play(0.05);
    EXPECT_EQ((Floats{2.25f, 2.3f, 2.35f}), TimesOf(a, "Render")) << "frames 45 to 47";
    EXPECT_EQ((Floats{2.25f}), TimesOf(b, "message"));
    EXPECT_EQ(49, b.Count("Render")) << "frames 0 to 48";
    EXPECT_EQ(49, swaps);
}

TEST_F(DemoPlayerRun, TheShowEndsOnlyWhenTheTimePassesTheEnd)
{
    Add(&a, 0, 1000);
    Play(0.5);
    EXPECT_EQ((Floats{0.0f, 0.5f, 1.0f}), TimesOf(a, "Render"));
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
}

TEST_F(DemoPlayerRun, InAFrameTheMessageComesFirstThenRenderThenUpdate)
{
    Add(&a, 0, 600);
    const float params[2] = {2, 3};
    player.AddMessage(500, "step", params, 2, "FX_A");
    Play(0.5);
    std::vector<std::string> whats;
    for (const ProbeCall& call : a.calls)
        whats.push_back(call.what);
    EXPECT_EQ((std::vector<std::string>{"Init", "Render", "Update", "message", "Render", "Update"}), whats);
    EXPECT_EQ(a.stepId, a.calls[3].id);
    EXPECT_EQ((Floats{2, 3}), a.calls[3].params);
    EXPECT_EQ(0.5f, a.calls[3].localTime) << "the frame's delta was added ahead of the message";
}

TEST_F(DemoPlayerRun, TheFirstFrameHasNoDeltaAndEachGetsTheLengthOfTheOneBefore)
{
    Add(&a, 0, 1000);
    Play(0.5);
    std::vector<float> local;
    for (const ProbeCall& call : a.calls)
        if (call.what == "Render")
            local.push_back(call.localTime);
    EXPECT_EQ((Floats{0.0f, 0.5f, 1.0f}), local);
}

TEST_F(DemoPlayerRun, MessagesOfOneTimeLeaveInOrderOnePerFrame)
{
    Add(&a, 0, 1000);
    const float one = 1, two = 2, three = 3;
    player.AddMessage(250, "flash", &one, 1, "FX_A");
    player.AddMessage(250, "flash", &two, 1, "FX_A");
    player.AddMessage(250, "flash", &three, 1, "FX_A");
    Play(0.25);
    EXPECT_EQ((Floats{0.25f, 0.5f, 0.75f}), TimesOf(a, "message"));
    float expected = 1;
    for (const ProbeCall& call : a.calls)
        if (call.what == "message") {
            EXPECT_EQ(expected++, call.params[0]);
        }
}

TEST_F(DemoPlayerRun, ALateMessageIsNotSkipped)
{
    Add(&a, 0, 3000);
    for (uint32_t time : {100, 200, 300})
        player.AddMessage(time, "flash", nullptr, 0, "FX_A");
    Play(1.0);
    EXPECT_EQ((Floats{1, 2, 3}), TimesOf(a, "message"));
}

TEST_F(DemoPlayerRun, AMessageExactlyDueLeavesAndOneAtZeroLeavesInTheFirstFrame)
{
    Add(&a, 0, 1000);
    player.AddMessage(0, "flash", nullptr, 0, "FX_A");
    player.AddMessage(500, "flash", nullptr, 0, "FX_A");
    Play(0.5);
    EXPECT_EQ((Floats{0.0f, 0.5f}), TimesOf(a, "message"));
}

TEST_F(DemoPlayerRun, AMessageForAnEffectThatIsNotActiveIsLost)
{
    Add(&a, 500, 1000);
    Add(&b, 0, 1000);
    player.AddMessage(250, "flash", nullptr, 0, "FX_A"); // before its entry
    player.AddMessage(750, "step", nullptr, 0, "FX_A");  // inside
    Play(0.25);
    EXPECT_EQ((Floats{0.75f}), TimesOf(a, "message"));
    EXPECT_EQ(0, b.Count("message"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(DemoPlayerRun, LayersAreDrawnFromTheLowestUp)
{
    Add(&a, 0, 100, 7);
    Add(&b, 0, 100, 2);
    Add(&c, 0, 100, 5);
    Play(0.25);
    EXPECT_EQ((std::vector<Effect*>{&b, &c, &a}), order);
}

TEST_F(DemoPlayerRun, TwoLayersAreDrawnFromTheLowerUpToo)
{
    Add(&a, 0, 100, 7);
    Add(&b, 0, 100, 2);
    quitAtSwap = 1;
    player.Run(); // without the ticker of Play, which would be a third
    EXPECT_EQ((std::vector<Effect*>{&b, &a}), order);
}

TEST_F(DemoPlayerRun, TwoOverlappingEntriesOfOneEffectDrawTwiceAndRunItsTimeDouble)
{
    Add(&a, 0, 1000);
    Add(&a, 0, 1000, 3);
    player.AddMessage(500, "flash", nullptr, 0, "FX_A");
    Play(0.5);
    EXPECT_EQ(6, a.Count("Render"));
    EXPECT_EQ(2, a.Count("message"));
    EXPECT_EQ(2.0f, a.GetLocalTime());
}

TEST_F(DemoPlayerRun, LocalTimeGoesOnInALaterEntry)
{
    Add(&a, 0, 500);
    Add(&a, 1500, 2000);
    Play(0.5);
    EXPECT_EQ((Floats{0.0f, 0.5f, 1.5f, 2.0f}), TimesOf(a, "Render"));
    EXPECT_EQ(1.5f, a.GetLocalTime()) << "0, 0.5, then two more frames of 0.5";
}

TEST_F(DemoPlayerRun, WithAStartOffsetTheClockStartsThereAndLocalTimeAtZero)
{
    player.SetStartOffset(1500);
    Add(&a, 0, 2000);
    player.AddMessage(1500, "flash", nullptr, 0, "FX_A");
    Play(0.25);
    EXPECT_EQ((Floats{1.5f, 1.75f, 2.0f}), TimesOf(a, "Render"));
    EXPECT_EQ((Floats{1.5f}), TimesOf(a, "message"));
    EXPECT_EQ(0.5f, a.GetLocalTime());
}

TEST_F(DemoPlayerRun, AnOffsetBehindAllEntriesEndsTheShowAfterItsFirstFrame)
{
    player.SetStartOffset(5000);
    player.AddEffect(0, 2000, "FX_A", 0);
    player.Run();
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
    EXPECT_EQ(1, swaps);
    EXPECT_TRUE(a.calls.empty()) << "it was not even initialised";
}

TEST_F(DemoPlayerRun, TheLastFramePumpsAnEventBehindTheEnd)
{
    Add(&a, 0, 10);
    for (int entry = 0; entry < 2; entry++)
        platform::PostEvent({platform::EventWindow, 0});
    platform::PostEvent({platform::EventKeyDown, 'x'});
    Play(1.0);
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
    EXPECT_EQ(1, swaps);
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind) << "the one frame took the third event";
}

TEST_F(DemoPlayerRun, AQuitInTheLastFrameReachesTheWindowThoughTheShowHasEnded)
{
    Add(&a, 0, 10);
    quitAtSwap = 1;
    Play(1.0);
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(DemoPlayerRun, AQuitDuringTheShowEndsItWithTheFrame)
{
    Add(&a, 0, 10000);
    quitAtSwap = 3;
    Play(0.5);
    EXPECT_EQ(3, a.Count("Render"));
    EXPECT_EQ(uint32_t(PlayerRunning), player.state);
}

TEST_F(DemoPlayerRun, EscapeTakesAFrameForTheKeyAndOneForTheQuit)
{
    Add(&a, 0, 10000);
    platform::PostEvent({platform::EventWindow, 0}); // taken by the load loop, as the next one is
    platform::PostEvent({platform::EventWindow, 0});
    platform::PostEvent({platform::EventKeyDown, platform::KeyEscape});
    Play(0.5);
    EXPECT_EQ(2, a.Count("Render"));
}

TEST_F(DemoPlayerRun, TheTitleIsTheFrameRate)
{
    Add(&a, 0, 1000);
    Play(0.25);
    EXPECT_NE(0, FrameTimer::GetFPS());
    EXPECT_EQ("FPS: " + std::to_string(FrameTimer::GetFPS()), NullWindowState().title);
}

TEST_F(DemoPlayerRun, AFrameEndsWithTheClockThenTheSwapThenTheTitle)
{
    Add(&a, 0, 1000);
    Play(0.5);
    EXPECT_EQ((Floats{0.5f, 1.0f, 1.5f}), timesAtSwap) << "the clock has moved by then";
    EXPECT_NE(0, FrameTimer::GetFPS());
    EXPECT_EQ(
        (std::vector<std::string>{"marlinex", "FPS: 0", "FPS: " + std::to_string(FrameTimer::GetFPS())}),
        titlesAtSwap)
        << "the title is that of the frame before";
}

TEST_F(DemoPlayerRun, EachEffectStartsWithAClearDepthBufferAndTheIdentity)
{
    Add(&a, 0, 10);
    Add(&b, 0, 10, 1);
    gl::ClearRecords();
    Play(1.0);
    const GLbitfield both = GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT, depth = GL_DEPTH_BUFFER_BIT;
    std::vector<GLbitfield> masks;
    for (const gl::Clear& clear : gl::Clears())
        masks.push_back(clear.mask);
    EXPECT_EQ((std::vector<GLbitfield>{both, depth, depth, depth}), masks) << "and one for the ticker";
}

// Counts the clears that were sent up to each call.
class ClearCounter : public ProbeEffect
{
public:
    void ReceiveMessage(int, float*, int) override { clears.push_back(gl::Clears().size()); }
    void Render() override { clears.push_back(gl::Clears().size()); }
    void Update() override { clears.push_back(gl::Clears().size()); }
    std::vector<size_t> clears;
};

TEST_F(DemoPlayerRun, AMessageArrivesBeforeItsEffectsDepthBufferIsCleared)
{
    ClearCounter counter;
    registry.Register("FX_Counter", &counter, "");
    Add(&counter, 0, 10);
    player.AddMessage(0, "flash", nullptr, 0, "FX_Counter");
    gl::ClearRecords();
    Play(1.0);
    EXPECT_EQ((std::vector<size_t>{1, 2, 2}), counter.clears) << "message, Render, Update";
}

TEST_F(DemoPlayerRun, TheShowIsLetterboxed)
{
    Add(&a, 0, 10);
    Play(1.0);
    const gl::Rectangle& band = gl::Now().viewport;
    EXPECT_EQ(0, band.x);
    EXPECT_EQ(89, band.y);
    EXPECT_EQ(800, band.width);
    EXPECT_EQ(420, band.height);
}

TEST_F(DemoPlayerRun, ARunThatIsNotReadyDoesNothing)
{
    player.state = PlayerEnded;
    player.Run();
    EXPECT_EQ(0, swaps);
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
}

TEST_F(DemoPlayerRun, TheDestructorFreesAllMessages)
{
    const std::vector<float> params(1 << 16); // a quarter of a megabyte for each message
    const size_t before = BytesInUse();
    {
        DemoPlayer other;
        other.Init(&window, &registry, nullptr, false);
        for (int i = 0; i < 40; i++)
            other.AddMessage(0, "flash", params.data(), int(params.size()), "FX_A");
        EXPECT_GT(BytesInUse(), before + (10 << 20));
    }
    EXPECT_LT(BytesInUse(), before + (1 << 18)) << "less than a single one of them";
}
