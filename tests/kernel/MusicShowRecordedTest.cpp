// SPDX-License-Identifier: MIT
// A show with music: what a device would hear, pulled by hand frame by frame, against the clock and the
// picture.
#include "kernel/DemoPlayer.h"

#include "display/GLWindow.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Report.h"
#include "music/SoundSystem.h"
#include "music/SoundSystemHooks.h"
#include "platform/CountedClock.h"
#include "platform/SoundOutputHooks.h"
#include "platform/SteppedClock.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/BoxWatch.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <algorithm>

static const int rate = 44100;
static const int ramp = 220; // frames in which a jump rises
static const int frameLength = rate / 50;
static const int64_t second = 1000000000;
typedef std::vector<std::string> Calls;

// One frame of the show is 1/50 s, in which the device takes 882 frames of sound.
class MusicShow : public ShowFixture
{
protected:
    MusicShow() : listener(this)
    {
        gl::Reset(800, 600);
        UseNullWindows();
        gl::FollowNullWindows();
        platform::UseSoundOutput(platform::SoundPulledByHand);
        window.Create(800, 600, 32, false);
        registry.Register("FX_A", &listener, "FX_A");
        AddPicture("loading.jpg");
        const soundfiles::Kind& kind = soundfiles::KindOf("16bit.wav");
        soundfiles::Write(PathOf("waltz.wav"), soundfiles::Tune(rate, 2, 3 * rate), kind);
        soundfiles::Write(PathOf("polka.wav"), soundfiles::Tune(40000, 2, rate / 2), kind);
        waltz = soundfiles::Decode(PathOf("waltz.wav"));
        polka = soundfiles::Decode(PathOf("polka.wav"));
        CollectSoundCalls(&calls);
        platform::SetFrameObserver(
            [](void* user) {
                MusicShow* const test = static_cast<MusicShow*>(user);
                test->swaps++;
                if (test->swaps == test->quitAtSwap)
                    platform::PostQuit(0);
            },
            this);
    }
    ~MusicShow() override
    {
        CollectSoundCalls(nullptr);
        platform::SetFrameObserver(nullptr, nullptr);
        platform::UseSdlWindows();
    }

    // The script's blocks, without white space.
    void Play(const std::string& script, uint32_t startOffset = 0)
    {
        AddFile("script.txt", script);
        player.SetStartOffset(startOffset);
        ASSERT_TRUE(player.Init(&window, &registry, new LoadingScreen(&window), true));
        EXPECT_TRUE(player.LoadScript("script.txt"));
        player.Run();
    }
    // For the counted clock: frames of the same length. Notes what the music was told before the first read.
    static int64_t CountsOfRead(void* user, int64_t read)
    {
        MusicShow* const test = static_cast<MusicShow*>(user);
        if (read == 0)
            test->callsAtFirstRead = test->calls;
        return read * second / 50;
    }
    static std::string Entry(int start, int stop)
    {
        return "[EFFECT]EffectName=FX_A;StartTime=" + std::to_string(start) +
               ";StopTime=" + std::to_string(stop) + ";LayerID=1;";
    }
    static std::string Music(const std::string& name) { return "[MUSIC]FileName=" + name + ";"; }

    // What sounds from a place of the piece on; silence behind its end.
    static std::vector<float> From(const std::vector<float>& piece, size_t frame, size_t frames)
    {
        std::vector<float> samples(2 * frames, 0.0f);
        for (size_t i = 0; i < samples.size() && 2 * frame + i < piece.size(); i++)
            samples[i] = piece[2 * frame + i];
        return samples;
    }

    // Stands in the timeline and takes what the device would.
    class Listener : public ProbeEffect
    {
    public:
        explicit Listener(MusicShow* theTest) : ProbeEffect(false), test(theTest) {}
        void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override
        {
            ProbeEffect::Init(newWindow, newPlayer);
            test->heardWhileLoading.push_back(Pull(frameLength));
            test->callsWhileLoading = test->calls;
            test->picturesWhileLoading = int(gl::DrawsWithTexture("loading.jpg").size());
        }
        void Render() override
        {
            if (test->times.empty())
                test->callsAtFirstFrame = test->calls;
            test->times.push_back(FrameTimer::GetTime());
            test->heard.push_back(Pull(frameLength));
            platform::StepClock(second / 50); // as if drawing had taken it
        }
        MusicShow* test;
    };

    GLWindow window;
    EffectRegistry registry;
    Listener listener;
    DemoPlayer player;
    std::vector<float> waltz, polka;
    Calls calls, callsWhileLoading, callsAtFirstRead, callsAtFirstFrame;
    std::vector<std::vector<float>> heardWhileLoading, heard;
    std::vector<float> times;
    int picturesWhileLoading = 0;
    int swaps = 0;
    int quitAtSwap = 0;
};

TEST_F(MusicShow, SilenceWhileThePictureLoadsThenMusicAndClockStartTogether)
{
    Play(Music("waltz.wav") + Entry(0, 200) + Entry(0, 100));
    EXPECT_EQ(2u, heardWhileLoading.size());
    for (const std::vector<float>& silence : heardWhileLoading)
        EXPECT_TRUE(IsSilent(silence));
    EXPECT_EQ(2, picturesWhileLoading) << "the loading picture was drawn ahead of each";
    EXPECT_EQ((Calls{"GetVersion", "SetDriver 1", "Init 44100 32 0", "SetBufferSize 20000",
                     "OpenStream " + PathOf("waltz.wav") + " 0x20041 0 0"}),
              callsWhileLoading);
    ASSERT_EQ(callsWhileLoading.size() + 3, callsAtFirstFrame.size());
    EXPECT_EQ((Calls{"GetPaused -3", "PlayStream -1", "SetStreamTime 0"}),
              Calls(callsAtFirstFrame.end() - 3, callsAtFirstFrame.end()));
    EXPECT_EQ(0.0f, times.at(0));
    EXPECT_EQ(From(waltz, 0, frameLength), heard.at(0)) << "from its first sample on";
}

TEST_F(MusicShow, TheClockStartsBehindTheMusicAndItsTime)
{
    platform::UseCountedClock(CountsOfRead, this);
    Play(Music("waltz.wav") + Entry(0, 200), 60);
    ASSERT_GE(callsAtFirstRead.size(), 2u);
    EXPECT_EQ((Calls{"PlayStream -1", "SetStreamTime 60"}),
              Calls(callsAtFirstRead.end() - 2, callsAtFirstRead.end()));
    EXPECT_EQ(0.06f, times.at(0)) << "and the clock has begun with the first read";
    EXPECT_EQ(0.06f + 0.02f, times.at(1));
}

TEST_F(MusicShow, EveryFrameHearsTheSamplesOfItsTime)
{
    Play(Music("waltz.wav") + Entry(0, 2000));
    ASSERT_GE(times.size(), 100u);
    for (size_t i = 0; i < times.size(); i++) {
        ASSERT_NEAR(double(i) / 50, times[i], 1e-5);
        ASSERT_EQ(From(waltz, i * frameLength, frameLength), heard[i]) << i;
    }
}

TEST_F(MusicShow, AStartOffsetSeeksBoth)
{
    Play(Music("waltz.wav") + Entry(0, 2000), 1500);
    EXPECT_EQ("SetStreamTime 1500", callsAtFirstFrame.back());
    EXPECT_EQ(1.5f, times.at(0));
    const size_t start = size_t(1.5 * rate);
    const std::vector<float> expected = From(waltz, start, frameLength);
    for (size_t i = 2 * ramp; i < expected.size(); i++)
        ASSERT_EQ(expected[i], heard.at(0)[i]) << i;
    for (size_t i = 1; i < heard.size(); i++)
        ASSERT_EQ(From(waltz, start + i * frameLength, frameLength), heard[i]) << i;
}

TEST_F(MusicShow, OfTwoMusicBlocksOnlyTheLastIsHeard)
{
    Play(Music("waltz.wav") + Music("polka.wav") + Entry(0, 300));
    EXPECT_TRUE(boxes.empty());
    int opened = 0;
    for (const std::string& call : calls)
        opened += call.rfind("OpenStream", 0) == 0;
    EXPECT_EQ(2, opened);
    EXPECT_EQ(0, std::count(calls.begin(), calls.end(), "CloseStream")) << "the first one stays open";
    for (size_t i = 0; i < heard.size(); i++)
        ASSERT_EQ(From(polka, i * frameLength, frameLength), heard[i]) << i;
}

TEST_F(MusicShow, MusicShorterThanTheShowEndsAndThePictureGoesOnInSilence)
{
    Play(Music("polka.wav") + Entry(0, 1000));
    ASSERT_GE(heard.size(), 50u);
    for (size_t i = 0; i < heard.size(); i++)
        ASSERT_EQ(From(polka, i * frameLength, frameLength), heard[i]) << i;
    EXPECT_TRUE(IsSilent(heard.back()));
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
}

TEST_F(MusicShow, TheNaturalEndStopsTheMusic)
{
    Play(Music("waltz.wav") + Entry(0, 200));
    EXPECT_EQ("StopStream", calls.back());
    Pull(ramp);
    EXPECT_TRUE(IsSilent(Pull(1000)));
}

TEST_F(MusicShow, TheLastTitleIsSetBeforeTheShowEnds)
{
    size_t callsAtLastTitle = 0;
    uint32_t stateAtLastTitle = 0;
    NullWindowState().titleSet = [&] {
        callsAtLastTitle = calls.size();
        stateAtLastTitle = player.state;
    };
    Play(Music("waltz.wav") + Entry(0, 100));
    NullWindowState().titleSet = nullptr;
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
    EXPECT_EQ(uint32_t(PlayerRunning), stateAtLastTitle);
    EXPECT_EQ(calls.size(), callsAtLastTitle + 1) << "the stop of the stream comes after it";
}

TEST_F(MusicShow, AQuitLeavesTheMusicToTheEndOfTheProcess)
{
    quitAtSwap = 8;
    Play(Music("waltz.wav") + Entry(0, 2000));
    EXPECT_EQ(uint32_t(PlayerRunning), player.state);
    EXPECT_EQ(0, std::count(calls.begin(), calls.end(), "StopStream"));
    EXPECT_EQ(From(waltz, heard.size() * frameLength, 1000), Pull(1000)) << "it plays on";
}

TEST_F(MusicShow, AMusicFileThatCannotBeOpenedIsToldAndEndsTheRunBehindTheWholeLoad)
{
    Play(Music("tango.wav") + Entry(0, 200) + Entry(0, 100));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: FMOD Music Player", boxes[0].caption);
    EXPECT_EQ(std::string("Bad: Cannot Open Music File: tango.wav") + ErrorTail, boxes[0].body);
    EXPECT_EQ(2, listener.Count("Init")) << "nothing unwinds";
    EXPECT_TRUE(times.empty()) << "no frame is drawn";
    EXPECT_EQ(uint32_t(PlayerRunning), player.state);
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(MusicShow, AMusicFileThatCannotBeOpenedIsToldBeforeTheQuitIsPosted)
{
    ASSERT_TRUE(player.Init(&window, &registry, nullptr, true));
    BoxWatch watch;
    player.SetMusic("tango.wav");
    EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox);
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(MusicShow, AMusicFileThatIsNoneIsToldInTheSameWords)
{
    AddFile("tango.wav", "not a sound in it");
    Play(Music("tango.wav") + Entry(0, 200));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ(std::string("Bad: Cannot Open Music File: tango.wav") + ErrorTail, boxes[0].body);
}

TEST_F(MusicShow, AFailedSecondBlockLeavesNoMusicAtAll)
{
    AddFile("script.txt", Music("waltz.wav") + Music("tango.wav") + Entry(0, 200));
    ASSERT_TRUE(player.Init(&window, &registry, nullptr, true));
    EXPECT_TRUE(player.LoadScript("script.txt"));
    EXPECT_EQ(1u, boxes.size());
    EXPECT_TRUE(QuitWasPosted());
    player.Run(); // whoever took the quit away: the show is silent
    for (const std::vector<float>& silence : heard)
        EXPECT_TRUE(IsSilent(silence));
}

class SilentMachine : public MusicShow
{
protected:
    void ExpectNoPlayer()
    {
        EXPECT_FALSE(player.Init(&window, &registry, nullptr, true));
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: Music Player", boxes[0].caption);
        EXPECT_EQ(std::string("Bad: Unable to initialize FMOD") + ErrorTail, boxes[0].body);
        EXPECT_EQ(uint32_t(PlayerFailed), player.state);
        EXPECT_TRUE(QuitWasPosted());
        AddFile("script.txt", Music("waltz.wav") + Entry(0, 200));
        EXPECT_FALSE(player.LoadScript("script.txt"));
        EXPECT_TRUE(player.timeline.empty());
        player.Run();
        EXPECT_TRUE(listener.calls.empty());
        EXPECT_EQ(1u, boxes.size()) << "nothing more is said";
    }
};

TEST_F(SilentMachine, AMissingSoundDeviceIsToldAndThereIsNoShow)
{
    platform::UseSoundOutput(platform::SoundMissing);
    ExpectNoPlayer();
}

TEST_F(SilentMachine, AMissingSoundDeviceIsToldBeforeTheQuitIsPosted)
{
    platform::UseSoundOutput(platform::SoundMissing);
    BoxWatch watch;
    EXPECT_FALSE(player.Init(&window, &registry, nullptr, true));
    EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox);
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(SilentMachine, AMissingSoundDeviceIsToldAheadOfAMissingWindow)
{
    platform::UseSoundOutput(platform::SoundMissing);
    EXPECT_FALSE(player.Init(nullptr, nullptr, nullptr, true));
    EXPECT_EQ(1u, boxes.size());
    EXPECT_TRUE(QuitWasPosted());
}

TEST_F(SilentMachine, ASoundSystemThatIsTooOldIsToldInTheSameWords)
{
    PretendSoundVersion(3.6f);
    ExpectNoPlayer();
}

TEST_F(SilentMachine, WithoutMusicNobodyAsksForADevice)
{
    platform::UseSoundOutput(platform::SoundMissing);
    AddFile("script.txt", Music("tango.wav") + Entry(0, 200));
    EXPECT_TRUE(player.Init(&window, &registry, nullptr, false));
    EXPECT_TRUE(player.LoadScript("script.txt"));
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(calls.empty());
}
