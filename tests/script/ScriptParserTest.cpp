// SPDX-License-Identifier: MIT
// The lexical layer of the script reader.
#include "script/ScriptParser.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/OddFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

static std::string Filtered(const std::string& text)
{
    FILE* file = tmpfile();
    fwrite(text.data(), 1, text.size(), file);
    rewind(file);
    ScriptParser parser;
    const std::string stream = parser.ReadFiltered(file);
    fclose(file);
    return stream;
}

TEST(ScriptFilter, KeepsJustThePermittedCharacters)
{
    std::string all;
    for (int c = 0; c < 256; c++)
        if (c != '#')
            all += char(c);
    EXPECT_EQ(",-.0123456789;=ABCDEFGHIJKLMNOPQRSTUVWXYZ[]_abcdefghijklmnopqrstuvwxyz", Filtered(all));
}

TEST(ScriptFilter, WhiteSpaceDoesNoHarmAndNoGood)
{
    EXPECT_EQ("StartTime=100;", Filtered("Start Time = 100 ;\r\n\t"));
    EXPECT_EQ("FileName=mytune.mp3;", Filtered("FileName=my tune.mp3;"));
    EXPECT_EQ("FileName=subtune.mp3;", Filtered("FileName=sub/tune.mp3;"));
}

TEST(ScriptFilter, ACommentRunsFromOneHashToTheNextAcrossLines)
{
    EXPECT_EQ("StartTime=5;", Filtered("Start#comment#Time=5;"));
    EXPECT_EQ("ab", Filtered("a# one\n two [EFFECT]\n#b"));
    EXPECT_EQ("ab", Filtered("a##b"));
    EXPECT_EQ("ac", Filtered("a#b##b#c"));
}

TEST(ScriptFilter, AHashWithoutAPartnerCommentsOutTheRest)
{
    EXPECT_EQ("a", Filtered("a#b\n[EFFECT]\n"));
}

TEST(ScriptFilter, AnEmptyFileGivesAnEmptyStream)
{
    EXPECT_EQ("", Filtered(""));
}

TEST(ScriptFilter, ZeroBytesAreDroppedAndEndNothing)
{
    EXPECT_EQ("ab", Filtered(std::string("a\0b", 3)));
}

// A file is read in pieces, and none of its lengths may lose a byte.
TEST(ScriptFilter, AFileOfAnyLengthIsReadToItsLastByte)
{
    std::string text;
    for (int i = 0; i < 20001; i++)
        text += char('a' + i % 26);
    for (const size_t length : {1, 2, 1024, 1025, 4095, 4096, 4097, 8192, 8193, 16385, 20001})
        EXPECT_EQ(text.substr(0, length), Filtered(text.substr(0, length))) << length;
    EXPECT_EQ("ac", Filtered("a#" + text + "#c"));
}

TEST(ScriptStream, PopTakesAndPeekLeaves)
{
    ScriptParser parser;
    std::string stream = "ab";
    EXPECT_EQ('a', parser.PeekChar(stream));
    EXPECT_EQ('a', parser.PopChar(stream));
    EXPECT_EQ("b", stream);
    EXPECT_EQ('b', parser.PopChar(stream));
    EXPECT_EQ('\0', parser.PeekChar(stream));
    EXPECT_EQ('\0', parser.PopChar(stream));
    EXPECT_EQ("", stream);
}

static BlockType Next(std::string text, const std::string& rest)
{
    ScriptParser parser;
    const BlockType type = parser.NextBlock(text);
    EXPECT_EQ(rest, text);
    return type;
}

TEST(ScriptStream, HeadersAreExact)
{
    EXPECT_EQ(BlockMusic, Next("[MUSIC]a", "a"));
    EXPECT_EQ(BlockEffect, Next("[EFFECT]a=b;[", "a=b;["));
    EXPECT_EQ(BlockMessage, Next("[MESSAGE]", ""));
    EXPECT_EQ(BlockColorScheme, Next("[COLORSCHEME]", ""));
    EXPECT_EQ(1, BlockMusic);
    EXPECT_EQ(2, BlockEffect);
    EXPECT_EQ(3, BlockMessage);
    EXPECT_EQ(4, BlockColorScheme);
    EXPECT_EQ(0, BlockNone);
}

TEST(ScriptStream, ALowerCaseHeaderEatsTheRestOfTheFile)
{
    EXPECT_EQ(BlockNone, Next("[music]FileName=a.mp3;[EFFECT]EffectName=x;", ""));
}

TEST(ScriptStream, AnUnknownHeaderSpoilsTheNextOneRightBehindIt)
{
    EXPECT_EQ(BlockNone, Next("[music][EFFECT]a=b;", ""));
    EXPECT_EQ(BlockNone, Next("[EFFECTS][EFFECT]a=b;[MUSIC]c", ""));
}

TEST(ScriptStream, AfterABracketThatOpenedEveryOneThatClosesIsCompared)
{
    EXPECT_EQ(BlockEffect, Next("[]EFFECT]a=b;", "a=b;"));
    EXPECT_EQ(BlockMusic, Next("[]]MUSIC]a", "a"));
}

TEST(ScriptStream, JunkBeforeAHeaderSpoilsAllThatFollow)
{
    EXPECT_EQ(BlockNone, Next("x[MUSIC]a[EFFECT]b", ""));
}

TEST(ScriptStream, ABracketThatClosesNothingGoesIntoTheWord)
{
    EXPECT_EQ(BlockNone, Next("][MUSIC]a", ""));
}

TEST(ScriptStream, OpeningBracketsAreNotPartOfTheWord)
{
    // Junk in front that happens to complete the word counts as the word.
    EXPECT_EQ(BlockMusic, Next("MU[[SIC]a", "a"));
}

TEST(ScriptStream, AnEmptyHeaderIsNoBlockAndSpoilsNothing)
{
    EXPECT_EQ(BlockMusic, Next("[][MUSIC]a", "a"));
}

TEST(ScriptStream, ABodyEndsBeforeTheNextOpeningBracket)
{
    ScriptParser parser;
    std::string stream = "a=b;c]d[EFFECT]x";
    EXPECT_EQ("a=b;c]d", parser.ReadBlockBody(stream));
    EXPECT_EQ("[EFFECT]x", stream);
    EXPECT_EQ("", parser.ReadBlockBody(stream));
    EXPECT_EQ("[EFFECT]x", stream);
    stream = "last=1;";
    EXPECT_EQ("last=1;", parser.ReadBlockBody(stream));
    EXPECT_EQ("", stream);
}

static bool Get(const std::string& body, const std::string& key, const std::string& expected)
{
    ScriptParser parser;
    std::string value;
    const bool found = parser.GetValue(body, key, &value);
    EXPECT_EQ(expected, value) << body;
    return found;
}

TEST(ScriptValue, AnEntryIsKeyValueSemicolon)
{
    EXPECT_TRUE(Get("A=1;B=2;", "A", "1"));
    EXPECT_TRUE(Get("A=1;B=2;", "B", "2"));
    EXPECT_FALSE(Get("A=1;B=2;", "C", ""));
}

TEST(ScriptValue, AValueWithoutItsSemicolonIsNotFoundThoughItIsFilled)
{
    EXPECT_FALSE(Get("A=1", "A", "1"));
}

TEST(ScriptValue, TheFirstEntryOfAKeyWins)
{
    EXPECT_TRUE(Get("A=1;A=2;", "A", "1"));
}

TEST(ScriptValue, CaseMattersAndSoDoesTheWholeKey)
{
    EXPECT_FALSE(Get("a=1;", "A", ""));
    EXPECT_FALSE(Get("AB=1;", "A", ""));
    EXPECT_FALSE(Get("A=1;", "AB", ""));
}

TEST(ScriptValue, AFurtherEqualsSignInAValueIsDropped)
{
    EXPECT_TRUE(Get("A=B=C;", "A", "BC"));
}

TEST(ScriptValue, AKeyAloneCountsAsFoundAndEmpty)
{
    EXPECT_TRUE(Get("A;", "A", ""));
    EXPECT_TRUE(Get("A=;", "A", ""));
}

TEST(ScriptValue, TheJoinedTextOfAnotherEntryIsComparedToo)
{
    EXPECT_TRUE(Get("Start=Time;", "StartTime", ""));
    EXPECT_TRUE(Get("X=1;Start=Time;StartTime=5;", "StartTime", "")) << "and wins over a later honest entry";
}

TEST(ScriptValue, AnUnknownEntryIsSkipped)
{
    EXPECT_TRUE(Get("Colour=red;;A=1;", "A", "1"));
}

TEST(ScriptValue, TheValueIsAppendedToWhatIsThere)
{
    ScriptParser parser;
    std::string value = "x";
    EXPECT_TRUE(parser.GetValue("A=1;", "A", &value));
    EXPECT_EQ("x1", value);
}

class ScriptFileTest : public testing::Test
{
protected:
    ScriptFileTest()
    {
        platform::CollectMessageBoxes(&boxes);
        folder = testing::TempDir() + "ScriptFileTest" + std::to_string(getpid());
        std::filesystem::create_directory(folder);
        platform::SetDataDirectory(folder);
        registry.Register("FX_A", &a, "FX_A");
        player.Init(&window, &registry, nullptr, false);
    }
    ~ScriptFileTest() override
    {
        platform::CollectMessageBoxes(nullptr);
        std::filesystem::remove_all(folder);
    }
    bool Load(const std::string& text)
    {
        std::ofstream(folder + "/script.txt", std::ios::binary) << text;
        return player.LoadScript("script.txt");
    }

    std::vector<platform::MessageBox> boxes;
    std::string folder;
    GLWindow window;
    EffectRegistry registry;
    ProbeEffect a;
    DemoPlayer player;
};

TEST_F(ScriptFileTest, AMissingScriptIsReportedWithItsPathAndEndsTheRun)
{
    EXPECT_FALSE(player.LoadScript("script.txt"));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
    EXPECT_EQ(0u, boxes[0].body.find("Bad: " + folder + "/script.txt\r\n"));
    EXPECT_EQ(platform::EventQuit, platform::TakeEvent().kind);
}

TEST_F(ScriptFileTest, WhatIsNoFileIsReportedLikeAMissingScript)
{
    for (const OddFile& odd : OddFiles()) {
        odd.make(folder + "/script.txt");
        boxes.clear();
        EXPECT_FALSE(player.LoadScript("script.txt")) << odd.name;
        ASSERT_EQ(1u, boxes.size()) << odd.name;
        EXPECT_EQ("Marlinex 1.5 Error: File Not Found!", boxes[0].caption);
        EXPECT_EQ(0u, boxes[0].body.find("Bad: " + folder + "/script.txt\r\n"));
        EXPECT_EQ(platform::EventQuit, platform::TakeEvent().kind);
        remove((folder + "/script.txt").c_str());
    }
}

TEST_F(ScriptFileTest, TheFileIsClosedAgain)
{
    ASSERT_TRUE(Load(""));
    const int next = dup(STDOUT_FILENO); // the lowest number that is free
    close(next);
    ASSERT_TRUE(Load("[MUSIC]"));
    const int nextNow = dup(STDOUT_FILENO);
    close(nextNow);
    EXPECT_EQ(next, nextNow);
}

TEST_F(ScriptFileTest, AnEmptyFileIsLoadedAndLeavesAnEmptyTimeline)
{
    EXPECT_TRUE(Load(""));
    EXPECT_TRUE(player.timeline.empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptFileTest, BlocksAreReadUpToTheFirstSpoiltHeader)
{
    EXPECT_TRUE(Load("# a show #\n"
                     "[EFFECT] EffectName=FX_A; StartTime=0; StopTime=10; LayerID=0;\n"
                     "[EFFECT] EffectName=FX_A; StartTime=0; StopTime=20; LayerID=0;\n"
                     "[effect] EffectName=FX_A; StartTime=0; StopTime=30; LayerID=0;\n"
                     "[EFFECT] EffectName=FX_A; StartTime=0; StopTime=40; LayerID=0;\n"));
    EXPECT_EQ(2u, player.timeline.size());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptFileTest, AnUnknownHeaderRightAheadOfABlockLosesIt)
{
    EXPECT_TRUE(Load("[music][EFFECT]EffectName=FX_A;StartTime=0;StopTime=10;LayerID=0;"));
    EXPECT_TRUE(player.timeline.empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptFileTest, AnEmptyHeaderOpensTheBracketForTheNextWord)
{
    EXPECT_TRUE(Load("[]EFFECT]EffectName=FX_A;StartTime=0;StopTime=10;LayerID=0;"));
    EXPECT_EQ(1u, player.timeline.size());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptFileTest, ABracketInsideAValueEndsTheBlockThere)
{
    EXPECT_TRUE(Load("[EFFECT] EffectName=FX_A; StartTime=0; StopTime=1[0]; LayerID=0;\n"));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Information: Script Parser", boxes[0].caption);
    EXPECT_EQ("Info: Error in Effect: \nEffectName=FX_A;StartTime=0;StopTime=1"
              "\n\n\t\tNO LAYER ID DEFINED"
              "\n\nThis Effect will be skipped",
              boxes[0].body);
    EXPECT_TRUE(player.timeline.empty());
}

TEST_F(ScriptFileTest, MessagesAreSortedAfterTheLoad)
{
    EXPECT_TRUE(Load("[MESSAGE]MessageText=flash;ActivationTime=500,100,300;TargetEffect=FX_A;"));
    ASSERT_EQ(3u, player.messages.size());
    EXPECT_EQ(0.1f, player.messages[0].time);
    EXPECT_EQ(0.3f, player.messages[1].time);
    EXPECT_EQ(0.5f, player.messages[2].time);
}

TEST_F(ScriptFileTest, NoFileWhateverItHoldsDoesHarm)
{
    const char* const pieces[] = {"[EFFECT]",
                                  "[MESSAGE]",
                                  "[MUSIC]",
                                  "[COLORSCHEME]",
                                  "EffectName=",
                                  "FX_A",
                                  ";",
                                  "=",
                                  ",",
                                  "[",
                                  "]",
                                  "#",
                                  "StartTime=",
                                  "StopTime=",
                                  "LayerID=",
                                  "Parameter=",
                                  "ActivationTime=",
                                  "TargetEffect=",
                                  "MessageText=",
                                  "GlobalColor=",
                                  "1,2,3",
                                  "-1",
                                  "\xff",
                                  "FlowColor=",
                                  "SupportColor=",
                                  "99999999999999999999",
                                  "FileName="};
    std::mt19937 random(3);
    for (int round = 0; round < 300; round++) {
        std::string text;
        for (unsigned i = random() % 60; i > 0; i--)
            text += pieces[random() % std::size(pieces)];
        DemoPlayer other;
        other.Init(&window, &registry, nullptr, false);
        std::ofstream(folder + "/script.txt", std::ios::binary) << text;
        EXPECT_TRUE(other.LoadScript("script.txt"));
    }
}
