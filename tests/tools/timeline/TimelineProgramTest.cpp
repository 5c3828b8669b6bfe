// SPDX-License-Identifier: MIT
// marlinex-timeline from its command line.
#include "tests/Folders.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/Xml.h"

#include <gtest/gtest.h>

#include <filesystem>

static const std::string script = std::string(SOURCE_DIR) + "/tests/shows/FX_Path.txt";

static ProgramRun Draw(const std::vector<std::string>& words)
{
    return RunProgram("marlinex-timeline", words);
}

TEST(TimelineProgram, WritesTheFormatOfTheEnding)
{
    const std::string svg = soundfiles::TemporaryPath("night.svg"),
                      png = soundfiles::TemporaryPath("night.png"),
                      html = soundfiles::TemporaryPath("night.html");
    for (const std::string& path : {svg, png, html}) {
        const ProgramRun run = Draw({script, "-o", path, "--width=900"});
        EXPECT_EQ(0, run.status) << run.errors;
        EXPECT_EQ("", run.output);
        EXPECT_EQ("", run.errors);
    }
    XmlElement root;
    std::string error;
    ASSERT_TRUE(ParseXml(ReadFile(svg), &root, &error)) << error;
    EXPECT_EQ("900", root["width"]);
    EXPECT_EQ(900, LoadPng(png).width);
    EXPECT_EQ(0u, ReadFile(html).find("<!DOCTYPE html>"));
}

TEST(TimelineProgram, ADashIsSvgOnStandardOutput)
{
    const ProgramRun run = Draw({"-o", "-", "--title", "The <night>", "-t", "120", "-b", "4", script});
    EXPECT_EQ(0, run.status) << run.errors;
    XmlElement root;
    std::string error;
    ASSERT_TRUE(ParseXml(run.output, &root, &error)) << error;
    bool headed = false, counted = false;
    for (const XmlElement* text : root.All("text")) {
        headed = headed || text->text == "The <night>";
        counted =
            counted || text->text.find("120 beats a minute, 4 a bar: a beat is 500 ms, a bar 2000 ms") !=
                           std::string::npos;
    }
    EXPECT_TRUE(headed);
    EXPECT_TRUE(counted);
}

TEST(TimelineProgram, AnOffsetDrawsTheRestOfTheShow)
{
    const ProgramRun run = Draw({"-o", "-", "--offset=20000", script});
    EXPECT_EQ(0, run.status) << run.errors;
    XmlElement root;
    std::string error;
    ASSERT_TRUE(ParseXml(run.output, &root, &error)) << error;
    EXPECT_EQ("20000", root["data-start"]);
    EXPECT_FALSE(root.All("g", "entry").empty());
    for (const XmlElement* entry : root.All("g", "entry"))
        EXPECT_GT(entry->Number("data-stop"), 20000);
}

TEST(TimelineProgram, ScaleMakesAFinerPng)
{
    const std::string path = soundfiles::TemporaryPath("fine.png");
    EXPECT_EQ(0, Draw({script, "-o", path, "-w", "700", "--scale=1.5"}).status);
    EXPECT_EQ(1050, LoadPng(path).width);
}

TEST(TimelineProgram, MistakesAreToldInOneLineWithTheFileThatTheyConcern)
{
    const struct {
        std::vector<std::string> words;
        const char* names;
    } mistakes[] = {
        {{script}, "-o FILE.svg"},
        {{script, "-o", "picture.gif"}, "picture.gif: the ending must be"},
        {{script, "-o", "/nowhere/at/all.svg"}, "/nowhere/at/all.svg: No such file"},
        {{"/nowhere/script.txt", "-o", "-"}, "/nowhere/script.txt: No such file"},
        {{SOURCE_DIR "/Data", "-o", "-"}, "/Data: "},
        {{script, "-o", "-", "--width=10"}, "--width"},
        {{script, "-o", "-", "--tempo=fast"}, "--tempo"},
        {{script, "-o", "-", "--beats=0"}, "--beats"},
        {{script, "-o", "/tmp/never.png", "--width=30000", "--scale=10"},
         "/tmp/never.png: the picture would be"},
        {{script, "-o", "-", "--colour"}, "--colour"},
        {{"-o", "-"}, "FILE"},
    };
    for (const auto& mistake : mistakes) {
        const ProgramRun run = Draw(mistake.words);
        EXPECT_EQ(2, run.status) << mistake.names;
        EXPECT_EQ("", run.output);
        EXPECT_EQ(0u, run.errors.find("marlinex-timeline: ")) << run.errors;
        EXPECT_NE(std::string::npos, run.errors.find(mistake.names)) << run.errors;
        EXPECT_EQ(run.errors.size() - 1, run.errors.find('\n')) << run.errors;
    }
    EXPECT_FALSE(std::filesystem::exists("/tmp/never.png"));
}

TEST(TimelineProgram, HelpAndVersionGoToStandardOutput)
{
    const ProgramRun help = Draw({"--help"});
    EXPECT_EQ(0, help.status);
    EXPECT_NE(std::string::npos, help.output.find("--output=FILE"));
    EXPECT_EQ("marlinex-timeline 1.5\n", Draw({"--version"}).output);
}
