// SPDX-License-Identifier: MIT
#include "platform/Paths.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

TEST(Paths, TheDirectoryIsDataUntilItIsSet)
{
    EXPECT_EQ("Data", platform::GetDataDirectory());
    EXPECT_EQ("Data/stoned.jpg", platform::DataPath("stoned.jpg"));
    platform::SetDataDirectory("/somewhere/else");
    EXPECT_EQ("/somewhere/else", platform::GetDataDirectory());
    EXPECT_EQ("/somewhere/else/stoned.jpg", platform::DataPath("stoned.jpg"));
}

TEST(Paths, FourSpellingsOfTheDirectoryMeanTheOne)
{
    for (const char* name : {"data\\fish.vp", "Data\\fish.vp", "data/fish.vp", "Data/fish.vp"}) {
        EXPECT_TRUE(platform::NamesDataDirectory(name)) << name;
        EXPECT_EQ("Data/fish.vp", platform::DataPath(name));
    }
    for (const char* name : {"DATA/fish.vp", "data", "database.txt", "/data/fish.vp", "./data/fish.vp", ""})
        EXPECT_FALSE(platform::NamesDataDirectory(name)) << name;
    EXPECT_EQ("Data/data/fish.vp", platform::DataPath("data/data/fish.vp")) << "once";
}

// A program in <root>/build/bin that is asked from <root>/here.
class DataDirectory : public testing::Test
{
protected:
    DataDirectory() : root(fs::canonical(testing::TempDir()) / ("PathsTest" + std::to_string(getpid())))
    {
        fs::create_directories(root / "build" / "bin");
        fs::create_directories(root / "here");
        fs::copy_file(BINARY_DIR "/tests/DataPlaceProgram", root / "build" / "bin" / "program");
    }
    ~DataDirectory() override { fs::remove_all(root); }

    std::string Found() const
    {
        const std::string command = "cd '" + (root / "here").string() + "' && ../build/bin/program";
        std::string line(1000, '\0');
        FILE* const program = popen(command.c_str(), "r");
        if (!program || !fgets(line.data(), int(line.size()), program))
            ADD_FAILURE() << command;
        if (program) {
            EXPECT_EQ(0, pclose(program));
        }
        return line.substr(0, line.find('\n'));
    }

    const fs::path root;
};

TEST_F(DataDirectory, IsTheFirstOfItsPlacesThatIsThere)
{
    EXPECT_EQ("Data", Found()) << "none is there, and so the names in reports are the usual ones";
    // From the last place to the first.
    const fs::path places[] = {root / "build" / "share" / "moonwaltz" / "Data", root / "Data",
                               root / "build" / "Data", root / "build" / "bin" / "Data"};
    for (const fs::path& place : places) {
        fs::create_directories(place);
        EXPECT_EQ(place.string(), Found());
    }
    fs::create_directories(root / "here" / "Data");
    EXPECT_EQ("Data", Found()) << "here, before all others";
}

TEST_F(DataDirectory, IsADirectoryAndNoFileOfThatName)
{
    fs::create_directories(root / "build" / "Data");
    fclose(fopen((root / "build" / "bin" / "Data").c_str(), "w"));
    fclose(fopen((root / "here" / "Data").c_str(), "w"));
    EXPECT_EQ((root / "build" / "Data").string(), Found());
}

TEST(Paths, APathIsResolvedOnlyIfItNamesTheDataDirectory)
{
    platform::SetDataDirectory("/somewhere/else");
    for (const char* name : {"data\\fish.vp", "Data\\fish.vp", "data/fish.vp", "Data/fish.vp"})
        EXPECT_EQ("/somewhere/else/fish.vp", platform::ResolvePath(name));
    for (const char* name : {"fish.vp", "datafish.vp", "sub/fish.vp", "/data/fish.vp", "DATA/fish.vp", ""})
        EXPECT_EQ(name, platform::ResolvePath(name));
}
