// SPDX-License-Identifier: MIT
// The program that writes the music, by its command line.
#include "art/music/Master.h"
#include "art/music/Mix.h"
#include "art/music/ScoreReader.h"
#include "art/music/SoundFile.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

using namespace waltz;

class Composer : public testing::Test
{
protected:
    Composer() : folder(testing::TempDir() + "composer-" + std::to_string(getpid()))
    {
        std::filesystem::create_directories(folder);
    }
    ~Composer() override { std::filesystem::remove_all(folder); }

    // The exit status; what the program said stands in `said`.
    int Run(const std::string& arguments)
    {
        const std::string command =
            "cd " SOURCE_DIR " && " BINARY_DIR "/art/music/composer " + arguments + " 2>&1";
        FILE* const pipe = popen(command.c_str(), "r");
        said.clear();
        std::array<char, 4096> block;
        for (size_t count; (count = fread(block.data(), 1, block.size(), pipe)) > 0;)
            said.append(block.data(), count);
        return WEXITSTATUS(pclose(pipe));
    }

    std::string folder, said;
};

TEST_F(Composer, WritesASectionAndItsStemsThatAddUpToIt)
{
    ASSERT_EQ(0, Run("--section 3 -o " + folder + "/section.wav --stems " + folder + "/stems")) << said;
    EXPECT_NE(std::string::npos, said.find("painting")) << said;
    Stereo section;
    ASSERT_TRUE(ReadSound(folder + "/section.wav", section));
    ASSERT_EQ(8 * samplesPerBar, section.Size());
    Stereo sum(int64_t(97) * samplesPerBar, section.Size());
    int stems = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "/stems")) {
        Stereo stem;
        ASSERT_TRUE(ReadSound(entry.path(), stem));
        ASSERT_EQ(section.Size(), stem.Size());
        stem.origin = sum.origin;
        sum.Add(stem, 1);
        stems++;
    }
    EXPECT_TRUE(std::filesystem::exists(folder + "/stems/violin.wav"));
    EXPECT_TRUE(std::filesystem::exists(folder + "/stems/room.wav"));
    EXPECT_EQ(19, stems) << "the eighteen parts and the room";
    Master(sum, int64_t(207) * samplesPerBar);
    for (int64_t i = 0; i < section.Size(); i++)
        ASSERT_NEAR(sum.left[size_t(i)], section.left[size_t(i)], 1e-4) << "sample " << i;
}

TEST_F(Composer, PrintsASectionOfTheScore)
{
    ASSERT_EQ(0, Run("--print --section 3"));
    EXPECT_EQ(0u, said.find("bar 97  174.6 s  Eb\n")) << said.substr(0, 100);
    EXPECT_NE(std::string::npos, said.find("    solo      0.51  1 Bb3:2  3 C4:1\n")) << said.substr(0, 300);
    EXPECT_EQ(std::string::npos, said.find("bar 105"));
}

TEST_F(Composer, TellsWhatItCannotDo)
{
    EXPECT_EQ(2, Run("--section 9"));
    EXPECT_EQ("there are 9 sections, from 0\n", said);
    EXPECT_EQ(2, Run("--dance"));
    EXPECT_EQ("composer: unknown option --dance (--help lists what there is)\n", said);
    EXPECT_EQ(2, Run("-o"));
    EXPECT_EQ("composer: option -o needs a value, SOUND\n", said);
    EXPECT_EQ(2, Run("--section three"));
    EXPECT_EQ("composer: option --section needs a whole number of 0 to 9999, not \"three\"\n", said);
    EXPECT_EQ(1, Run("--measure " + folder + "/none.ogg"));
    EXPECT_EQ("cannot read " + folder + "/none.ogg\n", said);
}
