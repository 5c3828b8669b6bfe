// SPDX-License-Identifier: MIT
// What ./play does with a display and without one. Everything that it calls is a stand-in that writes down
// how it was called.
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

class Play : public testing::Test
{
protected:
    Play()
    {
        std::string name = testing::TempDir() + "marlinex-play-XXXXXX";
        if (mkdtemp(name.data()))
            root = name;
        fs::create_directories(root / "house/build/release");
        fs::create_directories(root / "bin");
        fs::create_directories(root / "guest");
        fs::create_directories(root / "house/tools");
        fs::copy_file(SOURCE_DIR "/play", root / "house/play");
        AddStandIn("bin/cmake");
        AddStandIn("house/tools/install-packages");
        AddStandIn("house/build/release/moonwaltz");
        AddStandIn("house/build/release/marlinex-capture");
    }
    ~Play() override { fs::remove_all(root); }

    void AddStandIn(const std::string& path)
    {
        const fs::path file = root / path;
        std::ofstream(file) << "#!/bin/sh\necho \"" << file.filename().string() << " $*\" >>\""
                            << root.string() << "/calls\"\n";
        fs::permissions(file, fs::perms::owner_all);
    }

    ProgramRun Start(const std::string& display)
    {
        return RunProgram(root / "house/play", {},
                          {"DISPLAY=" + display, "PATH=" + (root / "bin").string() + ":/usr/bin:/bin"},
                          root / "guest");
    }

    std::string Calls() const { return ReadFile(root / "calls"); }

    fs::path root;
};

TEST_F(Play, WithADisplayBuildsAndStartsTheShowAndNothingElse)
{
    EXPECT_EQ(0, Start(":7").status);
    EXPECT_EQ("install-packages play build\n"
              "cmake --preset release -DMARLINEX_TOOLS=OFF -DMARLINEX_TESTS=OFF -DMARLINEX_ART=OFF\n"
              "cmake --build --preset release --target moonwaltz\n"
              "moonwaltz \n",
              Calls());
}

TEST_F(Play, ConfiguresNoSecondTime)
{
    std::ofstream(root / "house/build/release/build.ninja") << "\n";
    EXPECT_EQ(0, Start(":7").status);
    EXPECT_EQ("install-packages play build\ncmake --build --preset release --target moonwaltz\nmoonwaltz \n",
              Calls());
}

TEST_F(Play, WithoutADisplayRecordsTheShowIntoTheCallersFolder)
{
    const ProgramRun run = Start("");
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("install-packages play build capture\n"
              "cmake --preset release -DMARLINEX_TOOLS=ON -DMARLINEX_TESTS=OFF -DMARLINEX_ART=OFF\n"
              "cmake --build --preset release --target marlinex-capture\n"
              "marlinex-capture -o moonwaltz.mp4\n",
              Calls());
    const std::string place = fs::canonical(root / "guest").string() + "/moonwaltz.mp4\n";
    EXPECT_NE(std::string::npos, run.errors.find(place)) << run.errors;
}

TEST_F(Play, AddsTheToolsToABuildThatHasNone)
{
    std::ofstream(root / "house/build/release/build.ninja") << "\n";
    EXPECT_EQ(0, Start("").status);
    EXPECT_NE(std::string::npos, Calls().find("cmake --preset release -DMARLINEX_TOOLS=ON\n")) << Calls();
}

TEST_F(Play, LeavesVideosThatAreThereAlone)
{
    std::ofstream(root / "guest/moonwaltz.mp4") << "dear to somebody";
    std::ofstream(root / "guest/moonwaltz-2.mp4") << "too";
    const ProgramRun run = Start("");
    EXPECT_NE(std::string::npos, Calls().find("marlinex-capture -o moonwaltz-3.mp4\n")) << Calls();
    EXPECT_NE(std::string::npos, run.errors.find("/moonwaltz-3.mp4\n")) << run.errors;
}
