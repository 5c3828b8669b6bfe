// SPDX-License-Identifier: MIT
// The script that starts the show in the folder that tools/release makes.
#include "tests/Folders.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

class ReleaseFolder : public testing::Test
{
protected:
    ReleaseFolder()
    {
        std::string name = testing::TempDir() + "release-XXXXXX";
        if (mkdtemp(name.data()))
            root = fs::canonical(name);
        folder = root / "a folder";
        fs::create_directories(folder / "lib/spare");
        fs::copy_file(SOURCE_DIR "/desktop/release/moonwaltz.sh", folder / "moonwaltz");
        // What the program itself would see.
        std::ofstream(folder / "lib/moonwaltz")
            << "#!/bin/sh\necho \"$LD_LIBRARY_PATH|$FONTCONFIG_FILE|$(pwd)\"\n";
        fs::permissions(folder / "lib/moonwaltz", fs::perms::owner_all);
    }
    ~ReleaseFolder() override { fs::remove_all(root); }

    std::string Said(const fs::path& program, const std::string& path = "LD_LIBRARY_PATH=")
    {
        const ProgramRun run = RunProgram(program, {}, {path}, root);
        EXPECT_EQ("", run.errors);
        return run.output;
    }
    std::string Fonts() const { return (folder / "lib/fonts.conf").string(); }

    fs::path root, folder;
};

TEST_F(ReleaseFolder, StartsTheProgramWithItsFontsAndLeavesTheWorkingDirectory)
{
    EXPECT_EQ("|" + Fonts() + "|" + root.string() + "\n", Said(folder / "moonwaltz"));
}

TEST_F(ReleaseFolder, TakesSparesOnlyForWhatTheSystemLacks)
{
    fs::create_directories(folder / "lib/spare/libc.so.6"); // which every system has
    fs::create_directories(folder / "lib/spare/libnowhere-one.so.1");
    fs::create_directories(folder / "lib/spare/libnowhere-two.so.1");
    const std::string spares = (folder / "lib/spare/libnowhere-one.so.1").string() + ":" +
                               (folder / "lib/spare/libnowhere-two.so.1").string();
    EXPECT_EQ(spares + "|" + Fonts() + "|" + root.string() + "\n", Said(folder / "moonwaltz"));
    EXPECT_EQ(spares + ":/opt/lib|" + Fonts() + "|" + root.string() + "\n",
              Said(folder / "moonwaltz", "LD_LIBRARY_PATH=/opt/lib"));
}

TEST_F(ReleaseFolder, IsFoundThroughALink)
{
    fs::create_symlink(folder / "moonwaltz", root / "link");
    EXPECT_EQ("|" + Fonts() + "|" + root.string() + "\n", Said(root / "link"));
}

// Party tools show the first lines of it in a box of that size.
TEST(ReleaseTexts, DescriptionFitsTheBoxThatShowsIt)
{
    std::ifstream text(SOURCE_DIR "/desktop/release/file_id.diz");
    int lines = 0;
    for (std::string line; std::getline(text, line); lines++)
        EXPECT_LE(line.size(), 45u) << line;
    EXPECT_GE(lines, 1);
    EXPECT_LE(lines, 10);
}
