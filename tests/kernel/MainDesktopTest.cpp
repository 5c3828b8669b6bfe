// SPDX-License-Identifier: MIT
// The whole program as a viewer meets it: from the form to the end of a show.
#include "tests/Folders.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/desktop/DesktopFixture.h"
#include "tests/support/desktop/ShowFolder.h"

#include <algorithm>
#include <csignal>
#include <cstring>

// What the white overlay adds at its peak, 0.9, over black; drivers round either way.
static const Pixel flashed = {0xe6, 0xe6, 0xe6};

// From the start white at its peak, frozen by the parameter 0, and from four seconds on black in front of it.
// (The last character of a parameter is lost, hence the zeros.)
static const char* const flashes =
    "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=6000; LayerID=1;\n"
    "[EFFECT] EffectName=BlackFlashOverlay; StartTime=0; StopTime=6000; LayerID=2;\n"
    "[MESSAGE] MessageText=flash; ActivationTime=100;\n"
    "          TargetEffect=WhiteFlashOverlay; Parameter=0.00;\n"
    "[MESSAGE] MessageText=flash; ActivationTime=4000;\n"
    "          TargetEffect=BlackFlashOverlay; Parameter=0.00;\n";

class MainDesktop : public DesktopFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.Start(1024, 768)); }

    void Start(const std::string& script)
    {
        ASSERT_TRUE(folder.CopyData("loading.jpg"));
        if (!script.empty())
            folder.Write("Data/script.txt", script);
        program = desktop.Run("moonwaltz", {}, folder.path);
        ASSERT_NE(nullptr, program);
        ASSERT_NE(0u, desktop.WaitForFocusedWindow("")) << program->Errors();
    }

    // "Go" on 640 by 480 in a window.
    void GoInAWindow()
    {
        for (const char* key : {"Tab", "Down", "Tab", "space", "Return"})
            desktop.Key(key);
    }

    void GoInAWindowWithoutMusic()
    {
        for (const char* key : {"Tab", "Down", "Tab", "space", "Tab", "space", "Return"})
            desktop.Key(key);
    }

    bool ShowIsUp()
    {
        return WaitUntil([&] { return (show = desktop.FindWindowStarting("FPS: ")) != 0; });
    }

    // The picture's middle is all of that colour.
    bool Shows(Pixel colour)
    {
        return WaitUntil([&] {
            const Screenshot shot = desktop.Capture(show);
            return shot.width > 0 &&
                   shot.Count(shot.width / 4, shot.height / 4, shot.width / 2, shot.height / 2, colour, 1) ==
                       (shot.width / 2) * (shot.height / 2);
        });
    }

    bool EndsWell()
    {
        EXPECT_TRUE(program->WaitForExit());
        EXPECT_EQ("", program->Output());
        EXPECT_EQ("", program->Errors());
        return program->ExitStatus() == 0;
    }

    ShowFolder folder;
    Process* program = nullptr;
    WindowId show = 0;
};

TEST(MainWithoutDesktop, WithoutADisplayOneLineSaysSoAndTheStatusIsOne)
{
    for (const char* display : {"DISPLAY", "DISPLAY=", "DISPLAY=:4711"}) {
        Process program;
        ASSERT_TRUE(program.Start({BINARY_DIR "/moonwaltz"}, {display, "WAYLAND_DISPLAY"}));
        ASSERT_TRUE(program.WaitForExit());
        EXPECT_EQ(1, program.ExitStatus());
        EXPECT_EQ("", program.Output());
        const std::string errors = program.Errors();
        ASSERT_FALSE(errors.empty());
        EXPECT_EQ(1, std::count(errors.begin(), errors.end(), '\n')) << errors;
        EXPECT_EQ('\n', errors.back());
    }
}

TEST(MainWithoutDesktop, OnWaylandWithoutXWaylandTheLineSaysWhatIsMissing)
{
    const struct {
        const char* display;
        const char* wayland;
        bool missing;
    } rows[] = {
        {"DISPLAY=", "WAYLAND_DISPLAY=wayland-0", true},
        {"DISPLAY=:4711", "WAYLAND_DISPLAY=wayland-0", false}, // XWayland was there and is not now
        {"DISPLAY=", "WAYLAND_DISPLAY=", false},
    };
    for (const auto& row : rows) {
        Process program;
        ASSERT_TRUE(program.Start({BINARY_DIR "/moonwaltz"}, {row.display, row.wayland}));
        ASSERT_TRUE(program.WaitForExit());
        EXPECT_EQ(1, program.ExitStatus());
        const std::string errors = program.Errors();
        EXPECT_EQ(row.missing, errors.find("XWayland") != std::string::npos) << errors;
        EXPECT_EQ(!row.missing, errors.find("DISPLAY is not set") != std::string::npos) << errors;
    }
}

TEST_F(MainDesktop, LeavingTheFormEndsWithStatusZero)
{
    Start(flashes);
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AShowPlaysInAWindowFromTheFormToItsNaturalEnd)
{
    Start(flashes);
    GoInAWindow();
    ASSERT_TRUE(ShowIsUp());
    const WindowPlace place = desktop.Place(show);
    EXPECT_EQ(640, place.width);
    EXPECT_EQ(480, place.height);
    EXPECT_EQ((1024 - 640) / 2, place.x);
    EXPECT_EQ((768 - 480) / 2, place.y);
    EXPECT_FALSE(desktop.IsDecorated(show));
    EXPECT_TRUE(Shows(flashed));
    EXPECT_EQ(std::string::npos, desktop.Title(show).find_first_not_of("0123456789", 5))
        << desktop.Title(show);
    EXPECT_TRUE(Shows({0, 0, 0}));
    EXPECT_TRUE(program->IsRunning());
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AShowFillsTheScreenAndEscapeEndsIt)
{
    Start(flashes);
    desktop.Key("Return");
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(
        WaitUntil([&] { return desktop.Place(show).width == 1024 && desktop.Place(show).height == 768; }));
    EXPECT_TRUE(Shows(flashed));
    desktop.Key("a");
    EXPECT_TRUE(program->IsRunning());
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, ACloseRequestDoesNotEndTheShowButASignalDoes)
{
    Start("[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=60000; LayerID=1;\n"
          "[MESSAGE] MessageText=flash; ActivationTime=0; TargetEffect=WhiteFlashOverlay; Parameter=0.00;\n");
    GoInAWindow();
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(Shows(flashed));
    desktop.Close(show);
    EXPECT_FALSE(program->WaitForExit(0.5));
    EXPECT_TRUE(Shows(flashed));
    program->Signal(SIGTERM);
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AMissingScriptIsToldAboveTheFullScreenAndEndsTheRun)
{
    Start("");
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Error: File Not Found!"));
    desktop.Key("Return");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, ABadEntryIsToldAndTheRestOfTheShowPlays)
{
    Start(std::string("[EFFECT] EffectName=NoSuchEffect; StartTime=0; StopTime=9000; LayerID=3;\n"
                      "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0;\n") +
          flashes);
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Error: Init"));
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Information: Script Parser"));
    desktop.Key("Escape");
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(Shows(flashed));
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AMissingSoundDeviceIsToldAndEndsTheRun)
{
    desktop.ownEnvironment = {"SDL_AUDIODRIVER=no such driver"};
    Start(flashes);
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Error: Music Player"));
    desktop.Key("Return");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, WithoutMusicNoSoundDeviceIsNeeded)
{
    desktop.ownEnvironment = {"SDL_AUDIODRIVER=no such driver"};
    Start(std::string("[MUSIC] FileName=tune.wav;\n") + flashes);
    GoInAWindowWithoutMusic();
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(Shows(flashed));
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}

static std::vector<float> ReadSamples(const std::string& path)
{
    const std::string bytes = ReadFile(path);
    std::vector<float> samples(bytes.size() / sizeof(float));
    memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
    return samples;
}

// Its sound device is a file, which takes what a device would, at a device's pace.
TEST_F(MainDesktop, TheMusicIsSilentWhileTheShowLoadsAndThenPlaysFromTheStartOffsetOn)
{
    const int rate = 44100, offset = 4, steady = 3000; // Hz, s, frames from the first sound on
    const int piece = 1024;                            // frames that the device asks for at a time
    soundfiles::Write(folder.path + "/Data/tune.wav", soundfiles::Tune(rate, 2, 8 * rate),
                      soundfiles::KindOf("16bit.wav"));
    const std::vector<float> tune = soundfiles::Decode(folder.path + "/Data/tune.wav");
    folder.Write("editoren_sind_fuer_clickscener.txt", "4000");
    desktop.ownEnvironment = {"SDL_AUDIODRIVER=disk", "SDL_DISKAUDIOFILE=" + folder.path + "/sound.raw"};
    Start("[MUSIC] FileName=tune.wav;\n"
          "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=6000; LayerID=1;\n"
          "[MESSAGE] MessageText=flash; ActivationTime=4000;\n"
          "          TargetEffect=WhiteFlashOverlay; Parameter=0.00;\n");
    GoInAWindow();
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(Shows(flashed));
    ASSERT_TRUE(program->WaitForExit());
    EXPECT_EQ(0, program->ExitStatus());

    const std::vector<float> heard = ReadSamples(folder.path + "/sound.raw");
    const size_t first =
        size_t(std::find_if(heard.begin(), heard.end(), [](float sample) { return sample != 0; }) -
               heard.begin()) /
        2;
    EXPECT_GT(first, size_t(rate / 4)) << "the effect takes a second to load, and the file some time to fill";
    ASSERT_GT(heard.size(), 2 * (first + 2 * steady));

    // Between Play and the seek the device may have asked for some samples of the start, a piece or two; the
    // first one of a rise is nothing; and where the file is late behind the seek, time goes on in silence.
    // Which place of the tune is it that sounds a moment later?
    const float* const sound = &heard[2 * (first + steady)];
    const size_t latest = size_t(offset * rate + steady + 1 + 8 * piece);
    size_t place = offset * rate;
    while (place <= latest && memcmp(&tune[2 * place], sound, 8 * sizeof(float)) != 0)
        place++;
    EXPECT_LE(place, latest);
    EXPECT_GE(place, size_t(offset * rate + steady - 2 * piece));
    size_t same = 0;
    while (2 * (first + steady) + same < heard.size() && sound[same] == tune[2 * place + same])
        same++;
    EXPECT_GT(same / 2, size_t(rate / 4)) << "and so it goes on, sample by sample";
}

TEST_F(MainDesktop, NumbersOfTheScriptAreTheSameUnderALocaleWithADecimalComma)
{
    ASSERT_EQ("", MakeCommaLocale(folder.path));
    desktop.ownEnvironment = {"LC_ALL", "LC_NUMERIC=comma", "LOCPATH=" + folder.path};
    Start("[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=60000; LayerID=1;\n"
          "[MESSAGE] MessageText=flash; ActivationTime=0; TargetEffect=WhiteFlashOverlay; Parameter=0.50;\n");
    GoInAWindow();
    ASSERT_TRUE(ShowIsUp());
    // At the rate 0.5 it fades within some seconds; read as 0 it would stand for ever.
    double brightness = 0;
    const auto look = [&] {
        const Screenshot shot = desktop.Capture(show);
        brightness = shot.width > 0 ? shot.Brightness() : brightness;
        return brightness;
    };
    EXPECT_TRUE(WaitUntil([&] { return look() > 0.2; }));
    EXPECT_TRUE(WaitUntil([&] { return look() < 0.1; })) << brightness;
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}
