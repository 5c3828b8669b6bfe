// SPDX-License-Identifier: MIT
#include "tools/cli/Output.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(Output, GoesIntoAFileWithEveryByte)
{
    const std::string path = testing::TempDir() + "marlinex-output-" + std::to_string(getpid());
    const std::string text("a\0\r\nb", 5);
    std::string reason;
    EXPECT_TRUE(cli::WriteOutput(path, text, &reason));
    EXPECT_EQ(text, ReadFile(path));
    std::filesystem::remove(path);
}

// A folder that goes with the test.
class OutputFolder : public testing::Test
{
protected:
    OutputFolder() : folder(testing::TempDir() + "marlinex-output-" + std::to_string(getpid()) + "/")
    {
        fs::create_directories(folder);
    }
    ~OutputFolder() override { fs::remove_all(folder); }

    std::string Names() const
    {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.insert(entry.path().filename());
        std::string all;
        for (const std::string& name : names)
            all += name + " ";
        return all;
    }
    std::string Content(const std::string& name) const { return ReadFile(folder + name); }

    const std::string folder;
    std::string reason;
};

TEST_F(OutputFolder, HasTheOldFileWhereTheNewOneHasNoRoom)
{
    std::ofstream(folder + "old") << "old";
    const rlimit limit = {1000, 1000}; // bytes of a file, as a disk that is nearly full
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
    EXPECT_FALSE(cli::WriteOutput(folder + "old", std::string(100000, 'a'), &reason));
    EXPECT_EQ("File too large", reason);
    EXPECT_FALSE(cli::WriteOutput(folder + "new", std::string(100000, 'a'), &reason));
    EXPECT_EQ("old", Content("old"));
    EXPECT_EQ("old ", Names()) << "and nothing beside it";
}

TEST_F(OutputFolder, HasTheNewFileWithTheModeOfTheOldOne)
{
    std::ofstream(folder + "old") << "old";
    chmod((folder + "old").c_str(), 0640);
    EXPECT_TRUE(cli::WriteOutput(folder + "old", "new", &reason));
    EXPECT_EQ("new", Content("old"));
    struct stat file = {};
    stat((folder + "old").c_str(), &file);
    EXPECT_EQ(mode_t(0640), file.st_mode & 07777);
    umask(027);
    EXPECT_TRUE(cli::WriteOutput(folder + "other", "new", &reason));
    stat((folder + "other").c_str(), &file);
    EXPECT_EQ(mode_t(0640), file.st_mode & 07777) << "the process' mask";
    EXPECT_EQ("old other ", Names());
}

TEST_F(OutputFolder, HasItsLinksFollowed)
{
    fs::create_directory(folder + "deep");
    fs::create_symlink("deep/target", folder + "link");
    fs::create_symlink("link", folder + "linklink");
    EXPECT_TRUE(cli::WriteOutput(folder + "linklink", "first", &reason)) << "a link to nothing";
    EXPECT_EQ("first", Content("deep/target"));
    EXPECT_TRUE(cli::WriteOutput(folder + "link", "second", &reason));
    EXPECT_EQ("second", Content("deep/target"));
    EXPECT_TRUE(fs::is_symlink(folder + "link"));
    EXPECT_TRUE(fs::is_symlink(folder + "linklink"));
    fs::create_symlink("loop", folder + "loop");
    EXPECT_FALSE(cli::WriteOutput(folder + "loop", "third", &reason));
    EXPECT_EQ("Too many levels of symbolic links", reason);
}

TEST_F(OutputFolder, HasItsPipesWrittenIntoAndNotReplaced)
{
    const std::string pipe = folder + "pipe";
    ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_TRUE(cli::WriteOutput(pipe, "text", &reason));
    char text[8] = "";
    EXPECT_EQ(4, read(reader, text, sizeof text));
    EXPECT_STREQ("text", text);
    close(reader);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_FALSE(cli::WriteOutput(folder, "text", &reason));
    EXPECT_EQ("Is a directory", reason);
}

TEST(Output, TellsWhyNotAllOfItArrived)
{
    std::string reason;
    EXPECT_FALSE(cli::WriteOutput("/no/such/folder/file", "a", &reason));
    EXPECT_EQ("No such file or directory", reason);
    EXPECT_FALSE(cli::WriteOutput("", "a", &reason));
    EXPECT_EQ("No such file or directory", reason);
    EXPECT_FALSE(cli::WriteOutput("/dev/full", "a", &reason));
    EXPECT_EQ("No space left on device", reason);
    EXPECT_FALSE(cli::WriteOutput("/dev/full", std::string(1000000, 'a'), &reason));
    EXPECT_EQ("No space left on device", reason);
}
