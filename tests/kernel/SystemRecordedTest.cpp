// SPDX-License-Identifier: MIT
// The ways through a run, from the form to the tear-down, on windows on paper.
#include "kernel/System.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/SynchMessageTable.h"
#include "platform/Events.h"
#include "platform/SoundOutputHooks.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/StartForm.h"
#include "platform/dialogs/StartFormHooks.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/OddFiles.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

static const int go = 1000, leave = 1001, fullscreenBox = 1002, musicBox = 1007;

class Run : public ShowFixture
{
protected:
    Run()
    {
        gl::Reset(800, 600);
        UseNullWindows();
        gl::FollowNullWindows();
        platform::UseSteppedClock();
        platform::SetFrameObserver(AtSwap, this);
        folder = testing::TempDir() + "Run" + std::to_string(getpid());
        std::filesystem::create_directory(folder);
        oldFolder = std::filesystem::current_path();
        std::filesystem::current_path(folder); // the start-offset file is looked for here
        Answer(go, false);
        AddPicture("loading.jpg");
    }
    ~Run() override
    {
        platform::AnswerStartForm(nullptr);
        platform::SetFrameObserver(nullptr, nullptr);
        std::filesystem::current_path(oldFolder);
        std::filesystem::remove_all(folder);
    }
    // How the user leaves the form. Music is off in most tests: they make no sound.
    void Answer(int button, bool fullscreen, bool music = false)
    {
        platform::AnswerStartForm([=](platform::StartForm& form) {
            form.Check(musicBox, music);
            form.Check(fullscreenBox, fullscreen);
            return button;
        });
    }
    static void AtSwap(void* user)
    {
        Run* run = static_cast<Run*>(user);
        run->swaps++;
        platform::StepClock(500000000);
        if (run->swaps == run->quitAtSwap)
            platform::PostQuit(0);
    }
    void WriteOffset(const std::string& text)
    {
        std::ofstream(folder + "/editoren_sind_fuer_clickscener.txt") << text;
    }
    uint32_t OffsetAfterBuild()
    {
        EXPECT_TRUE(BuildSystem());
        return demoPlayer->startOffset;
    }

    std::string folder;
    std::filesystem::path oldFolder;
    NullWindows& system = NullWindowState();
    int swaps = 0;
    int quitAtSwap = 0;
};

static const char* const shortShow =
    "[EFFECT]EffectName=WhiteFlashOverlay;StartTime=0;StopTime=2000;LayerID=0;";

TEST_F(Run, LeavingTheFormCreatesNothingAndEndsWithZero)
{
    Answer(leave, false);
    EXPECT_EQ(0, RunShow());
    EXPECT_EQ(nullptr, demoPlayer);
    EXPECT_EQ(nullptr, glWindow);
    EXPECT_EQ(nullptr, effectRegistry);
    EXPECT_EQ(0, system.windows);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Run, TheFormComesUpWithTheDefaults)
{
    platform::StartForm shown;
    platform::AnswerStartForm([&](platform::StartForm& form) {
        shown = form;
        return leave;
    });
    BuildSystem();
    EXPECT_TRUE(shown.IsChecked(1021)) << "1024 x 768";
    EXPECT_TRUE(shown.IsChecked(fullscreenBox));
    EXPECT_TRUE(shown.IsChecked(musicBox));
}

TEST_F(Run, TheWindowHasTheChosenSizeInTheChosenWay)
{
    platform::AnswerStartForm([](platform::StartForm& form) {
        form.Check(musicBox, false);
        form.Click(1019);
        return go;
    });
    EXPECT_TRUE(BuildSystem());
    EXPECT_EQ(640, system.last.width);
    EXPECT_EQ(480, system.last.height);
    EXPECT_TRUE(system.last.fullscreen);
    EXPECT_EQ(640, system.modeWidth);
}

TEST_F(Run, TheEffectsAreRegisteredInTheirOrderAheadOfTheWindow)
{
    system.refuseWindow = true;
    EXPECT_FALSE(BuildSystem());
    // The first ones, whose order scripts and listings know. New ones come behind them.
    const char* const names[] = {
        "FX_Credits", "FX_Scroller_Intro", "FX_Path",          "Transition_Fish",     "FX_Towers",
        "FX_Clouds",  "FX_FlashHand",      "FX_Footprint",     "FX_VerticalScroller", "FX_RopeThing",
        "FS_Image",   "WhiteFlashOverlay", "BlackFlashOverlay"};
    ASSERT_LE(std::size(names), effectRegistry->effects.size());
    for (size_t i = 0; i < std::size(names); i++) {
        EXPECT_EQ(names[i], effectRegistry->effects[i].name);
        EXPECT_EQ(names[i], effectRegistry->effects[i].description);
    }
}

TEST_F(Run, MessageIdsFollowTheOrderOfRegistrationAndDeclaration)
{
    EffectRegistry& registry = (BuildSystem(), *effectRegistry);
    const char* const declared[][2] = {{"FX_Credits", "fade_in"},
                                       {"FX_Credits", "fade_last_in"},
                                       {"FX_Credits", "fade_out"},
                                       {"FX_Scroller_Intro", "fadein_logo"},
                                       {"FX_Scroller_Intro", "fadeout"},
                                       {"FX_Scroller_Intro", "light_flash"},
                                       {"FX_Path", "flash_all"},
                                       {"FX_Path", "tree1"},
                                       {"FX_Path", "tree2"},
                                       {"FX_Path", "tree3"},
                                       {"FX_Path", "trigger_cam"},
                                       {"FX_Path", "flash_cam"},
                                       {"FX_Towers", "flash_line"},
                                       {"FX_Clouds", "hand"},
                                       {"FX_Clouds", "handFrakt"},
                                       {"FX_Clouds", "fadeOut"},
                                       {"FX_Clouds", "blend"},
                                       {"FX_FlashHand", "flash"},
                                       {"FX_Footprint", "step"},
                                       {"FX_Footprint", "trigger_base"},
                                       {"FX_VerticalScroller", "stopScroll"},
                                       {"FX_RopeThing", "front"},
                                       {"FX_RopeThing", "intro"},
                                       {"FX_RopeThing", "shock"},
                                       {"FS_Image", "flash"},
                                       {"FS_Image", "fade"},
                                       {"WhiteFlashOverlay", "flash"},
                                       {"BlackFlashOverlay", "flash"}};
    const std::vector<SynchMessageDeclaration>& entries = registry.GetMessageTable()->entries;
    ASSERT_LE(std::size(declared), entries.size());
    for (size_t i = 0; i < std::size(declared); i++) {
        EXPECT_EQ(registry.FindEffect(declared[i][0]), entries[i].owner) << i;
        EXPECT_EQ(declared[i][1], entries[i].name);
        EXPECT_EQ(int(i) + 1, entries[i].id);
    }
}

TEST_F(Run, WithoutAStartOffsetFileTheShowStartsAtZero)
{
    EXPECT_EQ(0u, OffsetAfterBuild());
}

TEST_F(Run, AStartOffsetFileIsMilliseconds)
{
    WriteOffset("90000\n");
    EXPECT_EQ(90000u, OffsetAfterBuild());
}

TEST_F(Run, TheStartOffsetFileIsClosedAgain)
{
    WriteOffset("90000\n");
    EXPECT_TRUE(BuildSystem());
    std::error_code error;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd"))
        EXPECT_EQ(std::string::npos,
                  std::filesystem::read_symlink(descriptor, error).string().find("clickscener"));
}

TEST_F(Run, AStartOffsetThatIsNoNumberIsZero)
{
    WriteOffset("later");
    EXPECT_EQ(0u, OffsetAfterBuild());
}

TEST_F(Run, ANegativeStartOffsetIsAHugeUnsignedOne)
{
    WriteOffset("-1");
    EXPECT_EQ(0xFFFFFFFFu, OffsetAfterBuild());
}

TEST_F(Run, AStartOffsetIsReadUpToWhereTheNumberEnds)
{
    WriteOffset("  1500ms");
    EXPECT_EQ(1500u, OffsetAfterBuild());
}

TEST_F(Run, AStartOffsetFileThatIsNoFileIsNone)
{
    system.refuseWindow = true; // so that the run can be built again
    for (const OddFile& odd : OddFiles()) {
        odd.make(folder + "/editoren_sind_fuer_clickscener.txt");
        boxes.clear();
        EXPECT_FALSE(BuildSystem());
        EXPECT_EQ(0u, demoPlayer->startOffset) << odd.name;
        EXPECT_LE(boxes.size(), 1u) << "nothing is said but of the window";
        remove((folder + "/editoren_sind_fuer_clickscener.txt").c_str());
    }
}

TEST_F(Run, AScriptThatIsAFolderIsToldLikeAMissingOne)
{
    std::filesystem::create_directory(PathOf("script.txt"));
    EXPECT_EQ(0, RunShow());
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
    EXPECT_EQ(nullptr, demoPlayer);
    EXPECT_EQ(0, swaps);
}

TEST_F(Run, TheStartOffsetIsReadAheadOfTheWindow)
{
    system.refuseWindow = true;
    WriteOffset("1500");
    EXPECT_FALSE(BuildSystem());
    ASSERT_NE(nullptr, demoPlayer);
    EXPECT_EQ(1500u, demoPlayer->startOffset);
}

TEST_F(Run, ATickedMusicBoxMakesAMusicPlayer)
{
    platform::UseSoundOutput(platform::SoundPulledByHand);
    Answer(go, false, true);
    EXPECT_TRUE(BuildSystem());
    EXPECT_NE(nullptr, demoPlayer->music);
    EXPECT_EQ(uint32_t(PlayerReady), demoPlayer->state);
}

TEST_F(Run, APlayerThatFailsToInitialiseStillCountsAsBuilt)
{
    platform::UseSoundOutput(platform::SoundMissing);
    Answer(go, false, true);
    EXPECT_TRUE(BuildSystem());
    EXPECT_EQ(uint32_t(PlayerFailed), demoPlayer->state);
    EXPECT_EQ(1u, boxes.size());
}

TEST_F(Run, WithoutASoundDeviceTheRunIsTakenDownUnplayed)
{
    platform::UseSoundOutput(platform::SoundMissing);
    Answer(go, false, true);
    AddFile("script.txt", shortShow);
    EXPECT_EQ(0, RunShow());
    ASSERT_EQ(1u, boxes.size()) << "nothing is said of the script";
    EXPECT_EQ("Marlinex 1.5 Error: Music Player", boxes[0].caption);
    EXPECT_EQ(0, swaps);
    EXPECT_EQ(nullptr, demoPlayer) << "the tear-down ran";
    EXPECT_EQ(nullptr, effectRegistry);
}

TEST_F(Run, AWindowThatCannotBeCreatedEndsTheRunWithoutAScript)
{
    system.refuseWindow = true;
    EXPECT_EQ(0, RunShow());
    ASSERT_EQ(1u, boxes.size()) << "and no word of the script, which isn't there either";
    EXPECT_EQ("Marlinex 1.5 Error: Window", boxes[0].caption);
    EXPECT_NE(nullptr, demoPlayer) << "nothing is taken down";
}

TEST_F(Run, AMissingScriptIsToldAndTheRunIsTakenDown)
{
    EXPECT_EQ(0, RunShow());
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
    EXPECT_EQ(nullptr, demoPlayer);
    EXPECT_EQ(0, swaps);
    EXPECT_EQ(1, system.windows) << "nobody pumped the quit, so the window stays up";
}

TEST_F(Run, ANaturalEndLeavesTheWindowUp)
{
    AddFile("script.txt", shortShow);
    EXPECT_EQ(0, RunShow());
    EXPECT_GT(swaps, 4);
    EXPECT_EQ(1, system.windows);
    EXPECT_EQ(nullptr, demoPlayer);
    EXPECT_EQ(nullptr, glWindow);
    EXPECT_EQ(nullptr, effectRegistry);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Run, AQuitClosesTheWindow)
{
    AddFile("script.txt", shortShow);
    quitAtSwap = 4;
    EXPECT_EQ(0, RunShow());
    EXPECT_EQ(4, swaps);
    EXPECT_EQ(0, system.windows);
}

// Which context the textures are deleted in: 0 is none.
static std::vector<int> ContextsOfDeletion()
{
    std::vector<int> contexts;
    for (const gl::Event& event : gl::Events())
        if (std::string(event.name) == "glDeleteTextures")
            contexts.push_back(event.context);
    return contexts;
}

TEST_F(Run, TheTexturesAreDeletedBehindTheWindowIfThatClosed)
{
    AddFile("script.txt", shortShow);
    quitAtSwap = 4;
    EXPECT_EQ(0, RunShow());
    EXPECT_EQ((std::vector<int>{0}), ContextsOfDeletion());
}

TEST_F(Run, TheTexturesAreDeletedInTheWindowThatStays)
{
    AddFile("script.txt", shortShow);
    EXPECT_EQ(0, RunShow());
    EXPECT_EQ((std::vector<int>{1}), ContextsOfDeletion());
}

// Looks round when the player deletes it.
class Witness : public LoadingScreen
{
public:
    struct Sight {
        size_t effects = 99;
        int windows = 99;
        size_t deletedTextures = 99;
        const void* player = nullptr;
        const void* window = nullptr;
        const void* registry = nullptr;
    };
    explicit Witness(Sight* newSight) : LoadingScreen(nullptr), sight(newSight) {}
    ~Witness() override
    {
        sight->effects = effectRegistry->effects.size();
        sight->windows = NullWindowState().windows;
        sight->deletedTextures = ContextsOfDeletion().size();
        sight->player = demoPlayer;
        sight->window = glWindow;
        sight->registry = effectRegistry;
        // From here on only the window's own destructor can close it.
        platform::PostQuit(0);
        glWindow->PumpMessage();
    }

private:
    Sight* sight;
};

TEST_F(Run, TheTearDownClearsTheEffectsClosesDeletesTexturesThenPlayerThenWindow)
{
    AddFile("script.txt", shortShow);
    EXPECT_TRUE(BuildSystem());
    EXPECT_TRUE(demoPlayer->LoadScript("script.txt"));
    demoPlayer->Run();
    Witness::Sight sight;
    delete demoPlayer->loadingScreen;
    demoPlayer->loadingScreen = new Witness(&sight);
    EXPECT_EQ(1, system.windows);
    ::TearDown();
    EXPECT_EQ(0u, sight.effects) << "the registry was cleared first";
    EXPECT_EQ(1, sight.windows) << "no quit was pumped up to there";
    EXPECT_EQ(1u, sight.deletedTextures);
    EXPECT_NE(nullptr, sight.player);
    EXPECT_NE(nullptr, sight.window);
    EXPECT_NE(nullptr, sight.registry);
    EXPECT_EQ(0, system.windows) << "its destructor tries again";
}

TEST_F(Run, AfterAQuitTheTearDownClosesTheWindowBeforeTheRest)
{
    AddFile("script.txt", shortShow);
    quitAtSwap = 4;
    EXPECT_TRUE(BuildSystem());
    EXPECT_TRUE(demoPlayer->LoadScript("script.txt"));
    demoPlayer->Run();
    Witness::Sight sight;
    delete demoPlayer->loadingScreen;
    demoPlayer->loadingScreen = new Witness(&sight);
    ::TearDown();
    EXPECT_EQ(0, sight.windows);
    EXPECT_EQ(1u, sight.deletedTextures);
}

TEST_F(Run, AnUntickedMusicBoxPlaysInSilenceAndSaysNothingOfAMusicBlock)
{
    AddFile("script.txt", std::string("[MUSIC]FileName=nothing.ogg;") + shortShow);
    EXPECT_TRUE(BuildSystem());
    EXPECT_EQ(nullptr, demoPlayer->music);
    EXPECT_TRUE(demoPlayer->LoadScript("script.txt"));
    demoPlayer->Run();
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(uint32_t(PlayerEnded), demoPlayer->state);
}

TEST_F(Run, AFailedPlayerRefusesTheScript)
{
    EXPECT_TRUE(BuildSystem());
    demoPlayer->state = PlayerFailed;
    AddFile("script.txt", shortShow);
    EXPECT_FALSE(demoPlayer->LoadScript("script.txt"));
    ::TearDown();
    EXPECT_EQ(nullptr, demoPlayer);
}

TEST_F(Run, TheListingHasASectionForEachEffectInOrder)
{
    BuildSystem();
    effectRegistry->WriteDemoInfo(folder + "/info.txt");
    std::ifstream file(folder + "/info.txt");
    std::vector<std::string> names;
    bool fishHasMessages = false;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("Effect: ", 0) == 0)
            names.push_back(line.substr(8));
        else if (!names.empty() && names.back() == "Transition_Fish" && line.find("  (") != std::string::npos)
            fishHasMessages = true;
    }
    std::vector<std::string> registered;
    for (const RegisteredEffect& row : effectRegistry->effects)
        registered.push_back(row.name);
    EXPECT_EQ(registered, names);
    EXPECT_FALSE(fishHasMessages);
}
