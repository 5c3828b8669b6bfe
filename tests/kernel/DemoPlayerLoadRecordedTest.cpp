// SPDX-License-Identifier: MIT
// The load ahead of the first frame: which effects are initialised when, and the picture that stands meanwhile.
#include "tests/kernel/DemoPlayerFixture.h"

class DemoPlayerLoad : public DemoPlayerFixture
{
};

TEST_F(DemoPlayerLoad, AnEffectThatAttachesIsInitialisedOnceAndOthersForEveryEntry)
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

TEST_F(DemoPlayerLoad, EachInitialisationIsPrecededByAWaitOfOneSecond)
{
    Add(&a, 0, 10);
    Add(&b, 0, 10);
    Add(&a, 0, 10, 1); // initialised by then: no wait
    const int64_t before = platform::ReadCounter();
    Play(1.0); // the ticker attaches, too: three waits, then one frame of a second
    EXPECT_EQ(before + 4 * second, platform::ReadCounter());
}

TEST_F(DemoPlayerLoad, TheClockStartsAfterAllLoading)
{
    Add(&a, 0, 10);
    Play(1.0);
    EXPECT_EQ((Floats{0.0f}), TimesOf(a, "Render"));
}

TEST_F(DemoPlayerLoad, AnEffectWithoutEntriesIsNeverTouched)
{
    Add(&a, 0, 10);
    Play(1.0);
    EXPECT_TRUE(b.calls.empty());
}

TEST_F(DemoPlayerLoad, AQuitWhileLoadingRunsTheLoadToItsEndAndNoFrame)
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

TEST_F(DemoPlayerLoad, AQuitOfTheLastInitIsTakenAheadOfTheFirstFrame)
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

TEST_F(DemoPlayerLoad, APlayerThatEndsWhileLoadingLoadsNothingMoreAndDrawsNoFrame)
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

TEST_F(DemoPlayerLoad, TheLoadPumpsOnceForEveryEntryAlsoForThoseThatNeedNoInit)
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

class MortalScreen : public LoadingScreen
{
public:
    explicit MortalScreen(int* newDeaths) : LoadingScreen(nullptr), deaths(newDeaths) {}
    ~MortalScreen() override { (*deaths)++; }

private:
    int* deaths;
};

TEST_F(DemoPlayerLoad, TheDestructorDeletesTheLoadingScreen)
{
    int deaths = 0;
    {
        DemoPlayer other;
        other.Init(&window, &registry, new MortalScreen(&deaths), false);
        EXPECT_EQ(0, deaths);
    }
    EXPECT_EQ(1, deaths);
}

class LoadingRun : public DemoPlayerFixture
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
