// SPDX-License-Identifier: MIT
#include "tools/edit/UserSettings.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using namespace edit;

// A home of the test's own.
class UserSettingsFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        folder = fs::path(testing::TempDir()) / ("settings-" + std::to_string(getpid()));
        fs::create_directories(folder);
        setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
        setenv("HOME", (folder / "home").c_str(), 1);
    }
    void TearDown() override { fs::remove_all(folder); }

    fs::path folder;
};

static UserSettings Changed()
{
    UserSettings settings;
    settings.width = 1600;
    settings.height = 1000;
    settings.maximised = true;
    settings.stageShare = 0.25f;
    settings.pictureShare = 0.5f;
    settings.inspectorShare = 0.75f;
    settings.inspector = false;
    settings.findings = false;
    settings.follow = false;
    settings.snap = {false, false, false, false, false};
    settings.Remember({"/shows/day.txt", 1.5, {128, 4}, {}, 0, 0});
    settings.Remember({"/shows/night \"b\".txt", 83.45, {99.5, 3}, {1, 2.5}, 4, 8});
    return settings;
}

static void ExpectChanged(const UserSettings& settings)
{
    EXPECT_EQ(1600, settings.width);
    EXPECT_EQ(1000, settings.height);
    EXPECT_TRUE(settings.maximised);
    EXPECT_EQ(0.25f, settings.stageShare);
    EXPECT_EQ(0.5f, settings.pictureShare);
    EXPECT_EQ(0.75f, settings.inspectorShare);
    EXPECT_FALSE(settings.inspector);
    EXPECT_FALSE(settings.findings);
    EXPECT_FALSE(settings.follow);
    EXPECT_FALSE(settings.snap.on);
    EXPECT_FALSE(settings.snap.toBeats);
    EXPECT_FALSE(settings.snap.toBars);
    EXPECT_FALSE(settings.snap.toMessages);
    EXPECT_FALSE(settings.snap.toEdges);
    ASSERT_EQ(2u, settings.scripts.size());
    EXPECT_EQ("/shows/night \"b\".txt", settings.scripts[0].path);
    EXPECT_EQ(83.45, settings.scripts[0].playhead);
    EXPECT_EQ(99.5, settings.scripts[0].tempo.beatsPerMinute);
    EXPECT_EQ(3, settings.scripts[0].tempo.beatsPerBar);
    EXPECT_EQ((std::vector<double>{1, 2.5}), settings.scripts[0].markers);
    EXPECT_EQ(4, settings.scripts[0].loopStart);
    EXPECT_EQ(8, settings.scripts[0].loopEnd);
    EXPECT_EQ("/shows/day.txt", settings.scripts[1].path);
    EXPECT_EQ(128, settings.scripts[1].tempo.beatsPerMinute);
    EXPECT_EQ(4, settings.scripts[1].tempo.beatsPerBar);
}

TEST(UserSettings, ComeBackFromTheirText)
{
    UserSettings read;
    ASSERT_TRUE(read.FromJson(Changed().ToJson()));
    ExpectChanged(read);
}

TEST(UserSettings, PassOverWhatCantBeUsed)
{
    UserSettings settings;
    ASSERT_TRUE(settings.FromJson(R"({"width": "wide", "height": -5, "stageShare": 12, "inspector": 0,
        "follow": null, "snap": [], "pictureShare": 0.4, "more": {"of": "this"},
        "scripts": [7, {"playhead": 3}, {"path": "/a", "playhead": -1, "beatsPerMinute": 0, "beatsPerBar": 3.0,
        "loopStart": 9, "loopEnd": 2, "markers": [5, "x", -2, 1, 1e99]}, {"path": 4}]})"));
    const UserSettings fresh;
    EXPECT_EQ(fresh.width, settings.width);
    EXPECT_EQ(fresh.height, settings.height);
    EXPECT_EQ(fresh.stageShare, settings.stageShare);
    EXPECT_TRUE(settings.inspector);
    EXPECT_TRUE(settings.follow);
    EXPECT_TRUE(settings.snap.on);
    EXPECT_EQ(0.4f, settings.pictureShare);
    ASSERT_EQ(1u, settings.scripts.size());
    const ScriptMemory& memory = settings.scripts[0];
    EXPECT_EQ("/a", memory.path);
    EXPECT_EQ(0, memory.playhead);
    EXPECT_EQ(100, memory.tempo.beatsPerMinute);
    EXPECT_EQ(3, memory.tempo.beatsPerBar);
    EXPECT_EQ(0, memory.loopStart);
    EXPECT_EQ(0, memory.loopEnd);
    EXPECT_EQ((std::vector<double>{1, 5}), memory.markers);
}

TEST(UserSettings, StayAsTheyAreIfTheTextIsBroken)
{
    for (const std::string text :
         {"", "{", "[]", "12", "{\"width\": 900", "\xff\xfe", "{\"width\": 900} x"}) {
        UserSettings settings;
        EXPECT_FALSE(settings.FromJson(text)) << text;
        EXPECT_EQ(1280, settings.width) << text;
    }
    UserSettings settings;
    EXPECT_FALSE(settings.FromJson(std::string(200000, '['))); // no deeper than the stack
}

TEST(UserSettings, RememberTheLatestScriptsFirstAndEachOnce)
{
    UserSettings settings;
    for (int i = 0; i < 30; i++)
        settings.Remember({"/s" + std::to_string(i), double(i), {}, {}, 0, 0});
    ASSERT_EQ(UserSettings::MaxScripts, settings.scripts.size());
    EXPECT_EQ("/s29", settings.scripts.front().path);
    EXPECT_EQ("/s10", settings.scripts.back().path);
    settings.Remember({"/s15", 99, {}, {}, 0, 0});
    ASSERT_EQ(UserSettings::MaxScripts, settings.scripts.size());
    EXPECT_EQ("/s15", settings.scripts.front().path);
    EXPECT_EQ(99, settings.MemoryOf("/s15").playhead);
}

TEST(UserSettings, GiveANewScriptTheTempoUsedLast)
{
    UserSettings settings = Changed();
    const ScriptMemory memory = settings.MemoryOf("/shows/new.txt");
    EXPECT_EQ("/shows/new.txt", memory.path);
    EXPECT_EQ(99.5, memory.tempo.beatsPerMinute);
    EXPECT_EQ(0, memory.playhead);
    EXPECT_TRUE(memory.markers.empty());
    EXPECT_EQ(100, UserSettings().MemoryOf("/x").tempo.beatsPerMinute);
}

TEST_F(UserSettingsFiles, LieWhereTheDesktopKeepsThem)
{
    EXPECT_EQ((folder / "config/marlinex/edit.json").string(), UserSettings::Path());
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ((folder / "home/.config/marlinex/edit.json").string(), UserSettings::Path());
    setenv("XDG_CONFIG_HOME", "not/absolute", 1);
    EXPECT_EQ((folder / "home/.config/marlinex/edit.json").string(), UserSettings::Path());
    unsetenv("HOME");
    EXPECT_EQ("", UserSettings::Path());
    std::string reason;
    EXPECT_FALSE(UserSettings().Save(&reason));
    EXPECT_EQ("there is no home folder", reason);
}

TEST_F(UserSettingsFiles, ComeBackFromTheirFile)
{
    std::string reason;
    ASSERT_TRUE(Changed().Save(&reason)) << reason;
    UserSettings read;
    read.Load();
    ExpectChanged(read);
}

TEST_F(UserSettingsFiles, AreThoseOfAFirstStartWithoutAFile)
{
    UserSettings settings;
    settings.Load();
    EXPECT_EQ(1280, settings.width);
    EXPECT_EQ(800, settings.height);
    EXPECT_TRUE(settings.scripts.empty());
}

TEST_F(UserSettingsFiles, SayWhyTheyCantBeWritten)
{
    fs::create_directories(folder / "config");
    std::ofstream(folder / "config/marlinex") << "a file where the folder should be";
    std::string reason;
    EXPECT_FALSE(UserSettings().Save(&reason));
    EXPECT_NE("", reason);
}
