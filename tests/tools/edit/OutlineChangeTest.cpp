// SPDX-License-Identifier: MIT
// Whatever is changed, the outline is the one that reading the whole text gives.
#include "tools/edit/OutlineChange.h"

#include "tests/support/OutlineText.h"

#include <gtest/gtest.h>

#include <random>

using edit::TextChange;

static const char* const lines = "# \u00e9 # [MUSIC]\nFileName=a.ogg;\n\n"
                                 "[EFFECT]\nEffectName=FX_Clouds; # a # comment #\nStartTime = 1000 ;\n"
                                 "StopTime=9000;\nLayerID=1;\n\n"
                                 "[MESSAGE]\nMessageText=hand;\nActivationTime=2000, 4000 # x # , 6000;\n"
                                 "TargetEffect=FX_Clouds;\nParameter=1,2.50;\n"
                                 "[MESSAGE]\nMessageText=hand;\nActivationTime=5;\nTargetEffect=FX_Clouds;\n"
                                 "Steps=3;\nTimeDelta=10;\n# the end #\n";

// The same with all in one line.
static std::string InOneLine()
{
    std::string text = lines;
    for (char& c : text)
        if (c == '\n')
            c = ' ';
    return text;
}

static void ExpectSame(const std::string& before, const std::vector<TextChange>& changes)
{
    const std::string after = edit::Apply(before, changes);
    EXPECT_EQ(OutlineText(edit::ReadOutline(after)),
              OutlineText(edit::ReadChanged(before, edit::ReadOutline(before), changes, after)))
        << after;
}

static TextChange Exchange(const std::string& text, const std::string& from, const std::string& to)
{
    return {text.find(from), from, to};
}

TEST(AChangedOutline, FollowsNumbersThatGrowAndShrink)
{
    for (const std::string& text : {std::string(lines), InOneLine()}) {
        ExpectSame(text, {Exchange(text, "1000", "123456")});
        ExpectSame(text, {Exchange(text, "9000", "1")});
        ExpectSame(text, {Exchange(text, "1000", "7"), Exchange(text, "9000", "1000000"),
                          Exchange(text, "4000", "40"), Exchange(text, "=5;", "=555555;"),
                          Exchange(text, "=10;", "=1;")});
        ExpectSame(text, {Exchange(text, "2.50", "2.75,9")});
        ExpectSame(text, {Exchange(text, "Steps=3", "Steps=30000")});
        ExpectSame(text, {});
    }
}

TEST(AChangedOutline, FollowsWhatMovesTheBordersOfBlocks)
{
    for (const std::string& text : {std::string(lines), InOneLine()}) {
        for (const char* const inserted : {"#", "[", "]", "[EFFECT]", ";", "=", "\n", "\u00e9", "x", ""})
            for (size_t at = 0; at < text.size(); at++) {
                ExpectSame(text, {{at, "", inserted}});
                ExpectSame(text, {{at, text.substr(at, 1), inserted}});
                ExpectSame(text, {{at, text.substr(at, 7), inserted}});
            }
    }
}

TEST(AChangedOutline, FollowsRandomDigitsAnywhere)
{
    std::mt19937 random(3);
    const std::string texts[] = {lines, InOneLine()};
    for (int round = 0; round < 2000; round++) {
        const std::string& text = texts[round % 2];
        std::vector<TextChange> changes;
        for (size_t at = random() % 60; at + 4 < text.size(); at += 5 + random() % 120)
            changes.push_back(
                {at, text.substr(at, random() % 4), std::string(random() % 4, char('0' + random() % 10))});
        ExpectSame(text, changes);
    }
}

TEST(AChangedOutline, FollowsManyBlocksAtOnceAndThoseBeyondTheLimits)
{
    std::string text;
    std::vector<TextChange> changes;
    for (int i = 0; i < 200; i++) {
        text += "[EFFECT]EffectName=FX_Clouds;StartTime=";
        if (i % 3 == 0)
            changes.push_back({text.size(), "5", "12"});
        text += "5;StopTime=9;LayerID=1;\n";
    }
    ExpectSame(text, changes);
    // All messages together are more than are read.
    const std::string group = "[MESSAGE]MessageText=hand;ActivationTime=5;TargetEffect=FX_Clouds;Steps=15000;"
                              "TimeDelta=1;\n";
    text += group + group + group;
    ExpectSame(text, {changes[0]});
    const size_t last = text.rfind("15000");
    ExpectSame(text, {{last, "15000", "2"}});
}
