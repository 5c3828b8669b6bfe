// SPDX-License-Identifier: MIT
// What the desktop and the packages are told: the tools that everybody checks such files with find nothing wrong, and
// they agree with the programs.
#include "kernel/Production.h"
#include "platform/WindowSystem.h"
#include "tests/Folders.h"
#include "tests/support/Patterns.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

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

static void ExpectValidDescription(const std::string& file)
{
    const ProgramRun run = RunProgram("/usr/bin/appstreamcli", {"validate", "--no-net", file});
    EXPECT_EQ(0, run.status) << run.output << run.errors;
    EXPECT_EQ(std::string::npos, run.output.find("W: ")) << run.output;
}

TEST(DesktopFiles, DescribeTheShowToSoftwareCentres)
{
    ExpectValidDescription(BINARY_DIR "/desktop/moonwaltz.metainfo.xml");
}

// The text of the description that is made with these words as desktop/publisher.txt.
static std::string DescriptionFor(const std::string& publisher)
{
    const std::string folder = testing::TempDir() + "description-" + std::to_string(getpid());
    fs::create_directory(folder);
    const std::string file = folder + "/moonwaltz.metainfo.xml";
    std::ofstream(folder + "/publisher.txt") << publisher;
    const ProgramRun run =
        RunProgram("/usr/bin/cmake", {"-DPUBLISHER=" + folder + "/publisher.txt", "-DPROJECT_VERSION=1.5",
                                      "-DOUTPUT=" + file, "-P", SOURCE_DIR "/cmake/MakeMetainfo.cmake"});
    EXPECT_EQ(0, run.status) << run.errors;
    ExpectValidDescription(file);
    const std::string text = ReadFile(file);
    fs::remove_all(folder);
    return text;
}

TEST(DesktopFiles, ShowScreenshotsOfTheSite)
{
    const std::string text =
        DescriptionFor("Homepage: https://example.org/waltz\nAppStream-Id: org.example.moonwaltz\n");
    EXPECT_NE(std::string::npos, text.find("<id>org.example.moonwaltz</id>")) << text;
    EXPECT_NE(std::string::npos, text.find("<url type=\"homepage\">https://example.org/waltz</url>")) << text;
    EXPECT_NE(std::string::npos, text.find(">https://example.org/waltz/screenshots/title.jpg</image>"))
        << text;
}

TEST(DesktopFiles, ShowNoScreenshotsWhereThereIsNoSite)
{
    const std::string text =
        DescriptionFor("Homepage: https://waltz.invalid\nAppStream-Id: org.example.moonwaltz\n");
    EXPECT_NE(std::string::npos, text.find("<url type=\"homepage\">https://waltz.invalid</url>")) << text;
    EXPECT_EQ(std::string::npos, text.find("screenshot")) << text;
    EXPECT_EQ(std::string::npos, text.find('@')) << text;
}

// The screenshots are read from a site; what is to be put there lies in docs/pictures/screenshots.
TEST(DesktopFiles, NameScreenshotsThatAreThere)
{
    const std::string text = ReadFile(SOURCE_DIR "/desktop/screenshots.xml.in");
    const std::vector<PatternMatch> images = FindAll(text, "/screenshots/([a-z]+\\.jpg)</image>");
    EXPECT_EQ(4u, images.size());
    for (const PatternMatch& image : images)
        EXPECT_TRUE(fs::exists(SOURCE_DIR "/docs/pictures/screenshots/" + image[1])) << image[1];
}

TEST(Packages, AgreeWithTheListsOfPackagesAndThePublisher)
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
