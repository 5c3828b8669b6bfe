// SPDX-License-Identifier: MIT
// docs/SCRIPT.md held against the program: its tables against what the effects declare, its examples and the
// accidents it tells of against the real reader.
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "tests/Folders.h"
#include "tests/support/Patterns.h"
#include "tests/support/ShowFixture.h"

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

class ScriptPage : public ShowFixture
{
protected:
    ScriptPage()
    {
        std::ifstream file(SOURCE_DIR "/docs/SCRIPT.md");
        std::string line;
        while (std::getline(file, line))
            lines.push_back(line);
        RegisterEffects(&registry);
    }

    // The examples between ```script and ```.
    std::vector<std::string> Examples() const
    {
        std::vector<std::string> examples;
        bool inside = false;
        for (const std::string& line : lines) {
            if (line == "```script") {
                examples.emplace_back();
                inside = true;
            } else if (line == "```") {
                inside = false;
            } else if (inside) {
                examples.back() += line + "\n";
            }
        }
        return examples;
    }

    // The rows of the table under a headline, by their cells, without the blanks and back quotes around them.
    std::vector<std::vector<std::string>> Table(const std::string& headline) const
    {
        std::vector<std::vector<std::string>> rows;
        size_t i = 0;
        while (i < lines.size() && lines[i] != headline)
            ++i;
        for (i += 2; i < lines.size() && lines[i].rfind("|", 0) == 0; ++i) {
            rows.emplace_back();
            std::istringstream row(lines[i].substr(1));
            for (std::string cell; std::getline(row, cell, '|');)
                rows.back().push_back(ReplaceAll(cell, "^[ `]+|[ `]+$", ""));
        }
        return rows;
    }

    void Load(DemoPlayer& player, const std::string& script)
    {
        AddFile("script.txt", script);
        player.Init(&window, &registry, nullptr, false);
        EXPECT_TRUE(player.LoadScript("script.txt"));
    }

    std::vector<std::string> lines;
    GLWindow window;
    EffectRegistry registry;
};

TEST_F(ScriptPage, TellsOfEveryEffectAndOfNoOther)
{
    std::set<std::string> told, registered;
    for (const std::vector<std::string>& row : Table("| Effect | What it is | Band it leaves |")) {
        EXPECT_TRUE(told.insert(row.at(0)).second) << row[0] << " twice";
        EXPECT_GT(row.at(1).size(), 10u);
    }
    for (const RegisteredEffect& row : registry.effects)
        registered.insert(row.name);
    EXPECT_EQ(registered, told);
}

TEST_F(ScriptPage, TellsOfEveryMessageAndOfNoOther)
{
    std::set<std::pair<std::string, std::string>> told, declared;
    for (const std::vector<std::string>& row :
         Table("| Effect | Message | What it does, and when it is good |")) {
        EXPECT_TRUE(told.emplace(row.at(0), row.at(1)).second) << row[1] << " twice";
        EXPECT_GT(row.at(2).size(), 10u);
    }
    for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
        for (const RegisteredEffect& effect : registry.effects)
            if (effect.effect == row.owner)
                declared.emplace(effect.name, row.name);
    EXPECT_EQ(declared, told);
}

TEST_F(ScriptPage, ItsExamplesAreShows)
{
    const std::vector<std::string> examples = Examples();
    ASSERT_GE(examples.size(), 2u);
    for (const std::string& example : examples) {
        DemoPlayer player;
        Load(player, example);
        EXPECT_TRUE(boxes.empty()) << boxes.front().body;
        EXPECT_FALSE(player.timeline.empty());
        for (const SynchMessage& message : player.messages) {
            EXPECT_NE(0, message.id) << example;
            bool on = false;
            for (const EffectInstance& entry : player.timeline)
                on = on || (entry.effect == message.effect && entry.start <= message.time &&
                            message.time <= entry.stop);
            EXPECT_TRUE(on) << message.time;
        }
    }
}

TEST_F(ScriptPage, TheFirstShowFlashesNineTimesWithParameterTwo)
{
    DemoPlayer player;
    Load(player, Examples().at(0));
    EXPECT_EQ(2u, player.timeline.size());
    EXPECT_EQ(10.0f, player.endTime);
    ASSERT_EQ(9u, player.messages.size());
    for (size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(float(i + 1), player.messages[i].time);
        ASSERT_EQ(1, player.messages[i].count);
        EXPECT_EQ(2.0f, player.messages[i].params[0]);
    }
}

TEST_F(ScriptPage, TheSecondWalksThroughEightBars)
{
    DemoPlayer player;
    Load(player, Examples().at(1));
    ASSERT_EQ(16u, player.messages.size());
    for (size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(double(1 + i / 2) * 1.8 + double(i % 2) * 0.6, player.messages[i].time, 1e-5);
}

static std::string Message(const std::string& entries)
{
    return "[MESSAGE]MessageText=flash;TargetEffect=WhiteFlashOverlay;" + entries;
}

TEST_F(ScriptPage, ItsTableOfParametersIsWhatTheReaderMakesOfThem)
{
    const std::vector<std::vector<std::string>> rows = Table("| Written | Read |");
    ASSERT_GE(rows.size(), 7u);
    for (const std::vector<std::string>& row : rows) {
        DemoPlayer player;
        Load(player, Message("ActivationTime=0;" + row.at(0)));
        ASSERT_EQ(1u, player.messages.size()) << row[0];
        std::vector<float> expected;
        std::istringstream numbers(row.at(1));
        for (std::string number; std::getline(numbers, number, ',');)
            expected.push_back(std::stof(number));
        const SynchMessage& message = player.messages[0];
        EXPECT_EQ(expected, std::vector<float>(message.params, message.params + message.count)) << row[0];
    }
}

TEST_F(ScriptPage, ItsOtherAccidentsHappen)
{
    const auto count = [this](const std::string& script) {
        DemoPlayer player;
        Load(player, script);
        return player.messages.size();
    };
    const std::string fine = Message("ActivationTime=100;");
    EXPECT_EQ(2u, count(fine + fine));
    EXPECT_EQ(1u, count(fine + "[MESAGE]x=1;" + fine)) << "a header that is none of the four";
    EXPECT_EQ(0u, count("words " + fine)) << "something that is no comment";
    EXPECT_EQ(1u, count(fine + "# half a comment " + fine));
    EXPECT_EQ(3u, count(Message("ActivationTime=1000,,2000;")));
    EXPECT_EQ(2u, count(Message("ActivationTime=1000,2000;Steps=5;TimeDelta=10;")));
    EXPECT_EQ(5u, count(Message("ActivationTime=1000;Steps=5;TimeDelta=10;")));
    EXPECT_TRUE(boxes.empty()) << "all of it in silence";
    EXPECT_EQ(0u, count(Message("ActivationTime=1000"))) << "no semicolon";
    EXPECT_EQ(1u, boxes.size());
    DemoPlayer player;
    Load(player,
         Message("ActivationTime=100;ActivationTime=200;") + Message("MessageText=no;ActivationTime=-1;"));
    ASSERT_EQ(2u, player.messages.size());
    EXPECT_EQ(0.1f, player.messages[0].time) << "the first wins";
    EXPECT_GT(player.messages[1].time, 4e6f) << "a negative time is a large one";
}

TEST_F(ScriptPage, EveryToolThatItNamesHasAPage)
{
    std::string page;
    for (const std::string& line : lines)
        page += line + "\n";
    for (const PatternMatch& tool : FindAll(page, "marlinex-[a-z]+"))
        EXPECT_TRUE(std::ifstream(SOURCE_DIR "/docs/man/" + tool[0] + ".h2m").good()) << tool[0];
}
