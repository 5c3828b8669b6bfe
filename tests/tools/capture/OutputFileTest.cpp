// SPDX-License-Identifier: MIT
#include "tools/capture/OutputFile.h"

#include "tests/support/CaptureFixture.h"

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

using capture::OutputFile;
using capture::PartHidesEnding;
using capture::PartKeepsEnding;

class CaptureOutputFile : public CaptureFixture
{
protected:
    static void Write(const OutputFile& file, const std::string& text)
    {
        EXPECT_EQ(ssize_t(text.size()), write(file.Descriptor(), text.data(), text.size()));
    }

    unsigned ModeOf(const std::string& name) const
    {
        struct stat status = {};
        EXPECT_EQ(0, stat(PathOf(name).c_str(), &status)) << name;
        return status.st_mode & 07777;
    }
};

TEST_F(CaptureOutputFile, HasItsNameOnlyWhenItIsComplete)
{
    WriteFile("show.mp4", "what was there before");
    OutputFile file;
    ASSERT_TRUE(file.Open(PathOf("show.mp4"), PartKeepsEnding));
    EXPECT_EQ(PathOf("show.part-" + std::to_string(getpid()) + ".mp4"), file.Name());
    Write(file, "new");
    EXPECT_EQ("what was there before", Bytes("show.mp4"));
    ASSERT_TRUE(file.Keep()) << file.error;
    EXPECT_EQ("new", Bytes("show.mp4"));
    EXPECT_EQ((std::vector<std::string>{"Data", "show.mp4"}), Names("."));
}

TEST_F(CaptureOutputFile, GoesWithoutATraceUnlessItIsKept)
{
    {
        OutputFile discarded, forgotten;
        ASSERT_TRUE(discarded.Open(PathOf("a.mp4"), PartKeepsEnding));
        ASSERT_TRUE(forgotten.Open(PathOf("b.mp4"), PartKeepsEnding));
        discarded.Discard();
        EXPECT_EQ(2u, Names(".").size());
    }
    EXPECT_EQ((std::vector<std::string>{"Data"}), Names("."));
}

TEST_F(CaptureOutputFile, CanHideItsEnding)
{
    OutputFile file;
    ASSERT_TRUE(file.Open(PathOf("7.png"), PartHidesEnding));
    EXPECT_EQ(PathOf("7.png.part-" + std::to_string(getpid())), file.Name());
}

TEST_F(CaptureOutputFile, SharesItsUnfinishedFileWithNobody)
{
    OutputFile one, two;
    ASSERT_TRUE(one.Open(PathOf("show.mp4"), PartKeepsEnding));
    ASSERT_TRUE(two.Open(PathOf("show.mp4"), PartKeepsEnding));
    EXPECT_NE(one.Name(), two.Name());
    EXPECT_EQ(".mp4", fs::path(two.Name()).extension());
    Write(one, "one");
    Write(two, "two");
    ASSERT_TRUE(one.Keep());
    EXPECT_EQ("one", Bytes("show.mp4"));
    ASSERT_TRUE(two.Keep());
    EXPECT_EQ("two", Bytes("show.mp4"));
}

TEST_F(CaptureOutputFile, NeverWritesThroughALinkThatWaitsUnderItsUnfinishedName)
{
    WriteFile("precious", "untouched");
    const std::string expected = "show.part-" + std::to_string(getpid()) + ".mp4";
    fs::create_symlink(PathOf("precious"), PathOf(expected));
    OutputFile file;
    ASSERT_TRUE(file.Open(PathOf("show.mp4"), PartKeepsEnding));
    Write(file, "video");
    ASSERT_TRUE(file.Keep());
    EXPECT_EQ("untouched", Bytes("precious"));
    EXPECT_TRUE(fs::is_symlink(PathOf(expected)));
    EXPECT_EQ("video", Bytes("show.mp4"));
    EXPECT_FALSE(fs::is_symlink(PathOf("show.mp4")));
}

TEST_F(CaptureOutputFile, FollowsLinksAndLeavesThemInPlace)
{
    fs::create_directory(PathOf("disk"));
    WriteFile("disk/old.mp4", "old");
    fs::create_symlink("old.mp4", PathOf("disk/inner.mp4"));
    fs::create_symlink("disk/inner.mp4", PathOf("outer.mp4"));
    fs::create_symlink("disk/new.mp4", PathOf("dangling.mp4"));
    for (const char* name : {"outer.mp4", "dangling.mp4"}) {
        OutputFile file;
        ASSERT_TRUE(file.Open(PathOf(name), PartKeepsEnding)) << file.error;
        EXPECT_EQ(PathOf("disk"), fs::path(file.Name()).parent_path());
        Write(file, name);
        ASSERT_TRUE(file.Keep());
        EXPECT_TRUE(fs::is_symlink(PathOf(name)));
    }
    EXPECT_EQ("outer.mp4", Bytes("disk/old.mp4"));
    EXPECT_EQ("dangling.mp4", Bytes("disk/new.mp4"));
    EXPECT_TRUE(fs::is_symlink(PathOf("disk/inner.mp4")));

    fs::create_symlink("round.mp4", PathOf("round.mp4"));
    OutputFile round;
    EXPECT_FALSE(round.Open(PathOf("round.mp4"), PartKeepsEnding));
    EXPECT_EQ(PathOf("round.mp4") + ": Too many levels of symbolic links", round.error);
}

TEST_F(CaptureOutputFile, HasThePermissionsOfTheFileThatItReplaces)
{
    const mode_t previous = umask(027);
    WriteFile("old.mp4", "");
    fs::permissions(PathOf("old.mp4"), fs::perms(0664));
    OutputFile old, fresh;
    ASSERT_TRUE(old.Open(PathOf("old.mp4"), PartKeepsEnding));
    ASSERT_TRUE(fresh.Open(PathOf("new.mp4"), PartKeepsEnding));
    ASSERT_TRUE(old.Keep());
    ASSERT_TRUE(fresh.Keep());
    umask(previous);
    EXPECT_EQ(0664u, ModeOf("old.mp4"));
    EXPECT_EQ(0640u, ModeOf("new.mp4"));
}

TEST_F(CaptureOutputFile, IsRefusedWhereAFolderIsOrNone)
{
    OutputFile inPlaceOfFolder, nowhere;
    EXPECT_FALSE(inPlaceOfFolder.Open(PathOf("Data"), PartKeepsEnding));
    EXPECT_EQ(PathOf("Data") + ": Is a directory", inPlaceOfFolder.error);
    EXPECT_FALSE(nowhere.Open(PathOf("no/x.mp4"), PartKeepsEnding));
    EXPECT_EQ(PathOf("no/x.mp4") + ": No such file or directory", nowhere.error);
}

TEST_F(CaptureOutputFile, IsWrittenThroughIntoWhatIsNoRegularFile)
{
    OutputFile device;
    ASSERT_TRUE(device.Open("/dev/null", PartKeepsEnding)) << device.error;
    EXPECT_TRUE(device.IsStream());
    EXPECT_EQ("/dev/null", device.Name());
    ASSERT_TRUE(device.Keep());
    EXPECT_TRUE(fs::is_character_file("/dev/null"));

    ASSERT_EQ(0, mkfifo(PathOf("pipe.mp4").c_str(), 0600));
    const int reader = open(PathOf("pipe.mp4").c_str(), O_RDONLY | O_NONBLOCK);
    OutputFile pipe;
    ASSERT_TRUE(pipe.Open(PathOf("pipe.mp4"), PartKeepsEnding)) << pipe.error;
    Write(pipe, "through");
    pipe.Discard();
    char got[16];
    EXPECT_EQ(7, read(reader, got, sizeof got));
    EXPECT_EQ(0, read(reader, got, sizeof got)); // the end
    close(reader);
    EXPECT_TRUE(fs::is_fifo(PathOf("pipe.mp4")));
    EXPECT_EQ((std::vector<std::string>{"Data", "pipe.mp4"}), Names("."));
}

TEST_F(CaptureOutputFile, CanBeTheProcessesStandardOutput)
{
    const int savedOutput = dup(STDOUT_FILENO);
    const int there = open(PathOf("out").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(5, write(there, "head ", 5));
    dup2(there, STDOUT_FILENO);
    for (const char* name : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        OutputFile file;
        EXPECT_TRUE(OutputFile::IsStream(name)) << name;
        EXPECT_TRUE(file.Open(name, PartKeepsEnding)) << name;
        EXPECT_EQ("-", file.Name()) << name;
        Write(file, ".");
        EXPECT_TRUE(file.Keep());
    }
    dup2(savedOutput, STDOUT_FILENO);
    close(savedOutput);
    close(there);
    EXPECT_EQ("head ....", Bytes("out")); // behind what was there, as the shell's >> wants it
}

TEST_F(CaptureOutputFile, CanAllBeDiscardedAtOnce)
{
    WriteFile("kept.mp4", "");
    OutputFile one, kept, two;
    ASSERT_TRUE(one.Open(PathOf("1.mp4"), PartKeepsEnding));
    ASSERT_TRUE(kept.Open(PathOf("kept.mp4"), PartKeepsEnding));
    ASSERT_TRUE(kept.Keep());
    ASSERT_TRUE(two.Open(PathOf("2.png"), PartHidesEnding));
    OutputFile::DiscardAll();
    EXPECT_EQ((std::vector<std::string>{"Data", "kept.mp4"}), Names("."));
}
