// SPDX-License-Identifier: MIT
#include "kernel/Report.h"

#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/support/BoxWatch.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <unistd.h>

class Report : public testing::Test
{
protected:
    Report() { platform::CollectMessageBoxes(&boxes); }
    ~Report() override { platform::CollectMessageBoxes(nullptr); }

    std::vector<platform::MessageBox> boxes;
};

TEST_F(Report, TheTailIsOneParagraphOf449CharactersSetApartByTwoLineEnds)
{
    const std::string tail = ErrorTail;
    EXPECT_EQ(449u, tail.size());
    EXPECT_EQ("\r\n\r\n", tail.substr(0, 4));
    EXPECT_EQ(std::string::npos, tail.find_first_of("\r\n%", 4));
}

TEST_F(Report, AnErrorIsFramedByEngineNameBadAndTail)
{
    ReportError("Window", "no glass");
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Window", boxes[0].caption);
    EXPECT_EQ(std::string("Bad: no glass") + ErrorTail, boxes[0].body);
    EXPECT_EQ(0x10u, boxes[0].icon);
}

TEST_F(Report, AnEmptyErrorGivesBadAndTheTail)
{
    ReportError("", "");
    EXPECT_EQ("Marlinex 1.5 Error: ", boxes.at(0).caption);
    EXPECT_EQ(std::string("Bad: ") + ErrorTail, boxes.at(0).body);
}

TEST_F(Report, AnInformationHasItsOwnFrameAndNoTail)
{
    ReportInfo("Script Parser", "one block lost");
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Information: Script Parser", boxes[0].caption);
    EXPECT_EQ("Info: one block lost", boxes[0].body);
    EXPECT_EQ(0x40u, boxes[0].icon);
}

TEST_F(Report, ReportingEndsNothing)
{
    ReportError("a", "b");
    ReportInfo("a", "b");
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind);
}

TEST_F(Report, AFileThatCannotBeOpenedIsNamedAndEndsTheRun)
{
    EXPECT_EQ(nullptr, OpenFile("no/such.file", "rb"));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
    EXPECT_EQ(std::string("Bad: no/such.file") + ErrorTail, boxes[0].body);
    EXPECT_EQ(platform::EventQuit, platform::TakeEvent().kind);
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind);
}

TEST_F(Report, TheBoxIsShownBeforeTheQuitIsPosted)
{
    BoxWatch watch;
    EXPECT_EQ(nullptr, OpenFile("no/such.file", "rb"));
    EXPECT_EQ(std::vector<bool>{false}, watch.quitAtBox);
    EXPECT_EQ(platform::EventQuit, platform::TakeEvent().kind);
}

TEST_F(Report, ALocalFileNeverMeansTheDataDirectory)
{
    platform::SetDataDirectory("/no/such/folder");
    EXPECT_EQ(nullptr, OpenLocalFile("data/note.txt", "rb"));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ(std::string("Bad: data/note.txt") + ErrorTail, boxes[0].body);
    EXPECT_EQ(platform::EventQuit, platform::TakeEvent().kind);
}

TEST_F(Report, AllSpellingsOfTheDataDirectoryMeanTheOneDirectory)
{
    const std::string folder = testing::TempDir() + "ReportTestData" + std::to_string(getpid());
    ASSERT_EQ(0, system(("mkdir -p '" + folder + "'").c_str()));
    std::ofstream(folder + "/note.txt") << "x";
    platform::SetDataDirectory(folder);
    for (const char* path : {"data\\note.txt", "Data\\note.txt", "data/note.txt", "Data/note.txt"}) {
        FILE* file = OpenFile(path, "rb");
        EXPECT_NE(nullptr, file) << path;
        CloseFile(file);
    }
    EXPECT_TRUE(boxes.empty());

    EXPECT_EQ(nullptr, OpenFile("Data\\missing.txt", "rb"));
    EXPECT_EQ("Bad: " + folder + "/missing.txt" + ErrorTail, boxes.at(0).body);
    std::filesystem::remove_all(folder);
}

TEST_F(Report, AClosedFileHasGivenItsDescriptorBack)
{
    FILE* const file = OpenFile("/proc/self/cmdline", "rb");
    ASSERT_NE(nullptr, file);
    const std::string descriptor = "/proc/self/fd/" + std::to_string(fileno(file));
    EXPECT_TRUE(std::filesystem::exists(descriptor));
    CloseFile(file);
    EXPECT_FALSE(std::filesystem::exists(descriptor));
}

TEST_F(Report, ClosingNoFileIsNoError)
{
    CloseFile(nullptr);
    EXPECT_TRUE(boxes.empty());
}
