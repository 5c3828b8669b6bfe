// SPDX-License-Identifier: MIT
// What the desktop and the packages are told: the tools that everybody checks such files with find nothing wrong, and
// they agree with the programs.
#include "kernel/Production.h"
#include "platform/WindowSystem.h"
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

namespace fs = std::filesystem;

TEST(DesktopFiles, HaveAnEntryThatIsValid)
{
    const ProgramRun run =
        RunProgram("/usr/bin/desktop-file-validate", {SOURCE_DIR "/desktop/moonwaltz.desktop"});
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("", run.output + run.errors);
}

TEST(DesktopFiles, HaveAnEntryThatStartsTheProgramAndKnowsItsWindow)
{
    const std::string entry = ReadFile(SOURCE_DIR "/desktop/moonwaltz.desktop");
    EXPECT_NE(std::string::npos, entry.find(std::string("\nExec=") + ProductionName + "\n"));
    EXPECT_NE(std::string::npos, entry.find(std::string("\nIcon=") + ProductionName + "\n"));
}

TEST(DesktopFiles, DescribeTheShowToSoftwareCentres)
{
    const ProgramRun run =
        RunProgram("/usr/bin/appstreamcli",
                   {"validate", "--no-net", BINARY_DIR "/desktop/art.tessel.moonwaltz.metainfo.xml"});
    EXPECT_EQ(0, run.status) << run.output << run.errors;
    EXPECT_EQ(std::string::npos, run.output.find("W: ")) << run.output;
}

// The screenshots are read from a site; what is to be put there lies in docs/pictures/screenshots.
TEST(DesktopFiles, NameScreenshotsThatAreThere)
{
    const std::string text = ReadFile(SOURCE_DIR "/desktop/moonwaltz.metainfo.xml.in");
    const std::regex image("/screenshots/([a-z]+\\.jpg)</image>");
    int count = 0;
    for (std::sregex_iterator each(text.begin(), text.end(), image), none; each != none; ++each, count++)
        EXPECT_TRUE(fs::exists(SOURCE_DIR "/docs/pictures/screenshots/" + (*each)[1].str())) << (*each)[1];
    EXPECT_EQ(4, count);
}

TEST(Packages, AskForWhatTheListsOfPackagesAskFor)
{
    const ProgramRun run = RunProgram(SOURCE_DIR "/tools/debian-control", {"--check"});
    EXPECT_EQ(0, run.status) << run.errors;
}

TEST(Packages, HaveEveryProgramWithItsManual)
{
    const std::string programs = ReadFile(SOURCE_DIR "/debian/marlinex-tools.install");
    for (const auto& entry : fs::directory_iterator(SOURCE_DIR "/tools"))
        if (fs::exists(entry.path() / "Main.cpp")) {
            const std::string name = "marlinex-" + entry.path().filename().string();
            EXPECT_NE(std::string::npos, programs.find("usr/bin/" + name + "\n")) << name;
            EXPECT_NE(std::string::npos, programs.find("usr/share/man/man1/" + name + ".1\n")) << name;
        }
}

TEST(Packages, HaveTheVersionOfTheProject)
{
    const std::string log = ReadFile(SOURCE_DIR "/debian/changelog");
    const std::string version = RunProgram("marlinex-list", {"--version"}).output; // "marlinex-list 1.5\n"
    const std::string number = version.substr(version.find(' ') + 1, version.size() - version.find(' ') - 2);
    EXPECT_EQ(0u, log.find("marlinex (" + number + ") ")) << log.substr(0, 40);
}
