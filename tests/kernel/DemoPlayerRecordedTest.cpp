// SPDX-License-Identifier: MIT
// A run of the sequencer, on the stepped clock and windows on paper: what effects get when, and when it ends.
#include "kernel/DemoPlayer.h"

#include "display/GLWindow.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "platform/Events.h"
#include "platform/EventsHooks.h"
#include "platform/SteppedClock.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/BytesInUse.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

static const int64_t second = 1000000000;

class DemoPlayerRun : public ShowFixture
{
protected:
    DemoPlayerRun()
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
    ~DemoPlayerRun() override { platform::SetFrameObserver(nullptr, nullptr); }

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
        DemoPlayerRun* test = nullptr;
    };

    static void AtSwap(void* user)
    {
        DemoPlayerRun* test = static_cast<DemoPlayerRun*>(user);
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

static std::vector<float> TimesOf(const ProbeEffect& effect, const std::string& what)
{
    std::vector<float> times;
    for (const ProbeCall& call : effect.calls)
        if (call.what == what)
            times.push_back(call.time);
    return times;
}

typedef std::vector<float> Floats;

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

TEST_F(DemoPlayerRun, AnEffectThatAttachesIsInitialisedOnceAndOthersForEveryEntry)
{
    ProbeEffect loose(false);
    for (int i = 0; i < 3; i++) {
        Add(&a, 0, 10);
        Add(&loose, 0, 10);
    }
    Play(1.0);
    EXPECT_EQ(1, a.Count("Init"));
    EXPECT_EQ(3, loose.Count("Init"));
    EXPECT_EQ(&window, a.GetWindow());
    EXPECT_EQ(&player, a.GetPlayer());
    EXPECT_EQ(nullptr, loose.GetWindow());
}

TEST_F(DemoPlayerRun, EachInitialisationIsPrecededByAWaitOfOneSecond)
{
    Add(&a, 0, 10);
    Add(&b, 0, 10);
    Add(&a, 0, 10, 1); // initialised by then: no wait
    const int64_t before = platform::ReadCounter();
    Play(1.0); // the ticker attaches, too: three waits, then one frame of a second
    EXPECT_EQ(before + 4 * second, platform::ReadCounter());
}

TEST_F(DemoPlayerRun, TheClockStartsAfterAllLoading)
{
    Add(&a, 0, 10);
    Play(1.0);
    EXPECT_EQ((Floats{0.0f}), TimesOf(a, "Render"));
}

TEST_F(DemoPlayerRun, AnEffectWithoutEntriesIsNeverTouched)
{
    Add(&a, 0, 10);
    Play(1.0);
    EXPECT_TRUE(b.calls.empty());
}

TEST_F(DemoPlayerRun, AQuitWhileLoadingRunsTheLoadToItsEndAndNoFrame)
{
    Add(&a, 0, 1000);
    Add(&b, 0, 1000);
    platform::PostQuit(0);
    Play(0.5);
    EXPECT_EQ(1, a.Count("Init"));
    EXPECT_EQ(1, b.Count("Init"));
    EXPECT_EQ(0, a.Count("Render"));
    EXPECT_EQ(uint32_t(PlayerRunning), player.state) << "the window left first, not the time";
    EXPECT_FALSE(window.IsRunning());
}

// Posts a quit while it loads, as a failed load does.
class Quitter : public ProbeEffect
{
public:
    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override
    {
        ProbeEffect::Init(newWindow, newPlayer);
        platform::PostQuit(0);
    }
};

TEST_F(DemoPlayerRun, AQuitOfTheLastInitIsTakenAheadOfTheFirstFrame)
{
    Quitter quitter;
    player.AddEffectInstance(0, 1000, &quitter, 0);
    player.Run();
    EXPECT_EQ(1, quitter.Count("Init"));
    EXPECT_EQ(0, quitter.Count("Render"));
    EXPECT_FALSE(window.IsRunning());
}

// Has the player end the show while it loads.
class Stopper : public ProbeEffect
{
public:
    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override
    {
        ProbeEffect::Init(newWindow, newPlayer);
        newPlayer->End();
    }
};

TEST_F(DemoPlayerRun, APlayerThatEndsWhileLoadingLoadsNothingMoreAndDrawsNoFrame)
{
    Stopper stopper;
    Add(&a, 0, 1000);
    Add(&stopper, 0, 1000);
    Add(&b, 0, 1000);
    Play(0.5);
    EXPECT_EQ(1, a.Count("Init"));
    EXPECT_EQ(1, stopper.Count("Init"));
    EXPECT_EQ(0, b.Count("Init"));
    EXPECT_EQ(0, swaps);
    EXPECT_EQ(2 * second, platform::ReadCounter()) << "two waits";
}

TEST_F(DemoPlayerRun, TheLoadPumpsOnceForEveryEntryAlsoForThoseThatNeedNoInit)
{
    Add(&a, 0, 10000);
    Add(&a, 0, 10000);
    Add(&b, 0, 10000);
    for (int entry = 0; entry < 4; entry++) // the ticker's is the fourth
        platform::PostEvent({platform::EventWindow, 0});
    platform::PostEvent(
        {platform::EventKeyDown, platform::KeyEscape}); // taken by frame 1, its quit by frame 2
    Play(0.5);
    EXPECT_EQ(2, b.Count("Render"));
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

class MortalScreen : public LoadingScreen
{
public:
    explicit MortalScreen(int* newDeaths) : LoadingScreen(nullptr), deaths(newDeaths) {}
    ~MortalScreen() override { (*deaths)++; }

private:
    int* deaths;
};

TEST_F(DemoPlayerRun, TheDestructorDeletesTheLoadingScreen)
{
    int deaths = 0;
    {
        DemoPlayer other;
        other.Init(&window, &registry, new MortalScreen(&deaths), false);
        EXPECT_EQ(0, deaths);
    }
    EXPECT_EQ(1, deaths);
}

class LoadingRun : public DemoPlayerRun
{
protected:
    LoadingRun()
    {
        AddPicture("loading.jpg");
        player.Init(&window, &registry, new LoadingScreen(&window), false);
        gl::ClearRecords();
    }
};

TEST_F(LoadingRun, ThePictureStandsOnceForEachEffectThatLoads)
{
    Add(&a, 0, 10);
    Add(&b, 0, 10);
    Add(&a, 0, 10, 3);
    Play(1.0);
    EXPECT_EQ(3u, gl::DrawsWithTexture("loading.jpg").size()) << "a, b and the ticker";
    EXPECT_EQ(1 + 3 + 1, swaps) << "one ahead of the picture, three with it, one frame";
}

TEST_F(LoadingRun, ThePictureIsOnTheScreenBeforeTheWaitBegins)
{
    Add(&a, 0, 10);
    Add(&b, 0, 10);
    Play(1.0);
    // An empty frame, then a picture for a, b and the ticker, each shown at the end of the wait before.
    EXPECT_EQ((std::vector<size_t>{0, 1, 2, 3, 3}), picturesAtSwap);
    EXPECT_EQ((std::vector<int64_t>{0, 0, second, 2 * second, 4 * second}), countsAtSwap);
}

TEST_F(LoadingRun, EachPictureIsDrawnBetweenAClearAndASwap)
{
    Add(&a, 0, 10);
    Play(1.0);
    std::vector<std::string> steps;
    for (const std::string& call : gl::Calls())
        for (const char* step : {"glClear(", "glEnd", "swap"})
            if (call.rfind(step, 0) == 0)
                steps.push_back(step);
    EXPECT_EQ((std::vector<std::string>{"glClear(", "swap",                         // ahead of the picture
                                        "glClear(", "glEnd", "swap",                // for a
                                        "glClear(", "glEnd", "swap",                // for the ticker
                                        "glClear(", "glClear(", "glClear(", "swap"} // the frame of the show
               ),
              steps);
}

TEST_F(LoadingRun, ThePictureHasTheWholeWindow)
{
    Add(&a, 0, 10);
    Play(1.0);
    const std::vector<gl::Draw> pictures = gl::DrawsWithTexture("loading.jpg");
    ASSERT_FALSE(pictures.empty());
    EXPECT_TRUE(gl::HasViewport(pictures[0], 0, 0, 800, 600));
}

TEST_F(LoadingRun, TheLoadBeginsWithAnEmptyFrameInItsOwnPerspective)
{
    Add(&a, 0, 10);
    Play(1.0);
    const std::vector<std::string> calls = gl::Calls();
    const std::vector<std::string> beginning = {
        "glViewport(0, 0, 800, 600)",
        "glMatrixMode(GL_PROJECTION)",
        "glLoadIdentity()",
        "gluPerspective(45, 1.3300000429153442, 0.10000000149011612, 2000)",
        "glMatrixMode(GL_MODELVIEW)",
        "glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT)",
        "glMatrixMode(GL_MODELVIEW)",
        "glLoadIdentity()",
        "swap",
        "glClearColor(0, 0, 0, 0)"};
    ASSERT_GT(calls.size(), beginning.size());
    EXPECT_TRUE(gl::CallsAre(std::vector<std::string>(calls.begin(), calls.begin() + long(beginning.size())),
                             beginning));
}

// Notes how far the load is when it is its turn.
class ProgressProbe : public ProbeEffect
{
public:
    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override
    {
        ProbeEffect::Init(newWindow, newPlayer);
        progress.push_back(newPlayer->loadingScreen->GetProgress());
        pictures.push_back(gl::DrawsWithTexture("loading.jpg").size());
        waited.push_back(platform::ReadCounter());
    }
    std::vector<float> progress;
    std::vector<size_t> pictures;
    std::vector<int64_t> waited;
};

TEST_F(LoadingRun, ProgressCountsTheEntriesAndThePictureComesAheadOfTheWait)
{
    ProgressProbe early, late;
    Add(&early, 0, 10);
    Add(&early, 0, 10); // initialised by then, so its share is passed over
    Add(&late, 0, 10);
    Play(1.0); // and the ticker
    EXPECT_EQ((Floats{0.25f}), early.progress);
    EXPECT_EQ((Floats{0.75f}), late.progress);
    EXPECT_EQ((std::vector<size_t>{1}), early.pictures);
    EXPECT_EQ((std::vector<size_t>{2}), late.pictures);
    EXPECT_EQ((std::vector<int64_t>{1000000000}), early.waited);
    EXPECT_EQ((std::vector<int64_t>{2000000000}), late.waited);
    EXPECT_EQ(1.0f, player.loadingScreen->GetProgress());
}

TEST_F(LoadingRun, AnEmptyTimelineInitialisesTheScreenAndNeverDrawsIt)
{
    platform::UseRealClock();
    player.Run();
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_NE(0u, gl::TextureNamed("loading.jpg"));
    EXPECT_EQ(2, swaps);
}
