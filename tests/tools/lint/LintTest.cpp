// SPDX-License-Identifier: MIT
// The linter as a library. What it finds in which script stands in corpus/.
#include "tools/lint/Lint.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/Report.h"
#include "kernel/SynchMessageTable.h"
#include "music/MusicPlayer.h"
#include "script/ScriptParser.h"
#include "tests/Folders.h"
#include "tests/support/RandomScript.h"
#include "tests/support/ReadFile.h"
#include "tests/support/ShowFixture.h"
#include "tools/lint/KeyValues.h"
#include "tools/lint/Print.h"
#include "tools/lint/Schedule.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

class Lint : public ShowFixture
{
protected:
    Lint()
    {
        RegisterEffects(&registry);
        options.checkFiles = false;
    }

    std::vector<std::string> EffectNames() const
    {
        std::vector<std::string> names;
        for (const RegisteredEffect& row : registry.effects)
            names.push_back(row.name);
        return names;
    }
    std::vector<std::string> MessageNames() const
    {
        std::vector<std::string> names;
        for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
            names.push_back(row.name);
        return names;
    }

    bool Asks(const lint::Report& report, const std::string& code) const
    {
        return std::any_of(report.findings.begin(), report.findings.end(),
                           [&](const lint::Finding& finding) { return finding.code == code; });
    }

    // Lets a real player load the script, and holds the linter's show against it.
    void CompareWithThePlayer(const std::string& text)
    {
        const lint::Report report = lint::CheckText(text, "script.txt", options);
        if (Asks(report, "many-steps") || Asks(report, "many-messages"))
            return; // which the player would take for an order
        AddFile("script.txt", text);
        DemoPlayer player;
        GLWindow window;
        player.SetStartOffset(options.startOffset);
        ASSERT_TRUE(player.Init(&window, &registry, nullptr, false));
        MusicPlayer music; // which nobody has started, so that it tells in a box what it was to open
        player.music = &music;
        boxes.clear();
        ASSERT_TRUE(player.LoadScript("script.txt"));
        player.music = nullptr;

        std::vector<const lint::ShownEntry*> entries;
        for (const lint::ShownEntry& entry : report.show.entries)
            if (entry.kept)
                entries.push_back(&entry);
        ASSERT_EQ(player.timeline.size(), entries.size());
        for (size_t i = 0; i < entries.size(); i++) {
            const EffectInstance& got = player.timeline[i];
            EXPECT_EQ(got.effect, registry.FindEffect(entries[i]->effect));
            EXPECT_EQ(got.start, float(entries[i]->start / 1000.0));
            EXPECT_EQ(got.stop, float(entries[i]->stop / 1000.0));
            EXPECT_EQ(got.layer, entries[i]->layer);
        }
        EXPECT_EQ(player.endTime, float(report.show.end / 1000.0));

        std::vector<const lint::SentMessage*> messages;
        for (const lint::SentMessage& message : report.show.messages)
            if (message.kept)
                messages.push_back(&message);
        ASSERT_EQ(player.messages.size(), messages.size());
        for (size_t i = 0; i < messages.size(); i++) {
            const SynchMessage& got = player.messages[i];
            EXPECT_EQ(got.time, float(messages[i]->time / 1000.0));
            EXPECT_EQ(got.effect, registry.FindEffect(messages[i]->effect));
            EXPECT_EQ(got.id, messages[i]->id);
            EXPECT_EQ(got.id, registry.GetMessageTable()->FindMessage(messages[i]->name.c_str(), got.effect));
            // What a comma at the end makes is a value that nobody wrote; it is 0 for both.
            EXPECT_EQ(std::vector<float>(got.params, got.params + got.count), messages[i]->params);
        }

        const ColorScheme scheme = player.GetColorScheme();
        for (int i = 0; i < 3; i++) {
            EXPECT_EQ(scheme.global[i], report.show.scheme.global[i]);
            EXPECT_EQ(scheme.support[i], report.show.scheme.support[i]);
            EXPECT_EQ(scheme.flow[i], report.show.scheme.flow[i]);
        }

        std::string name;
        const std::string opening = "Bad: Cannot Open Music File: ";
        for (const platform::MessageBox& box : boxes)
            if (box.body.compare(0, opening.size(), opening) == 0)
                name = box.body.substr(opening.size(), box.body.find('\r') - opening.size());
        EXPECT_EQ(name, report.show.music);
    }

    // The places of all findings lie in the script, in order, and every finding has its words.
    void CheckFindings(const std::string& text)
    {
        const lint::Report report = lint::CheckText(text, "name", options);
        const int lines = 1 + int(std::count(text.begin(), text.end(), '\n'));
        int line = 0, column = 0;
        for (const lint::Finding& finding : report.findings) {
            EXPECT_TRUE(finding.line > line || (finding.line == line && finding.column >= column));
            line = finding.line;
            column = finding.column;
            EXPECT_LE(line, lines);
            EXPECT_EQ("name", finding.file);
            for (const std::string& words : {finding.text, finding.consequence, finding.cure}) {
                ASSERT_FALSE(words.empty()) << finding.code;
                EXPECT_TRUE(words.back() == '.' || words.back() == '?') << words;
            }
            EXPECT_LE(finding.spanStart, finding.spanStop);
        }
    }

    EffectRegistry registry;
    lint::CheckOptions options;
};

// ---- What is scheduled

TEST_F(Lint, HasTheIdeaOfARandomShowThatThePlayerHas)
{
    for (unsigned seed = 0; seed < 150; seed++) {
        SCOPED_TRACE(seed);
        RandomScript random(seed, EffectNames(), MessageNames());
        options.startOffset = random.OneIn(2) ? 0 : random.Below(20000);
        CompareWithThePlayer(random.Write(1 + int(random.Below(25)), seed % 2 == 1));
    }
}

TEST_F(Lint, HasTheIdeaOfTheNightAndOfTheTestShowsThatThePlayerHas)
{
    std::vector<fs::path> paths = {fs::path(SOURCE_DIR) / "Data/script.txt"};
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tests/shows"))
        paths.push_back(entry.path());
    for (const fs::path& path : paths)
        for (uint32_t offset : {0, 1, 10000, 90000, 200000, 4000000}) {
            SCOPED_TRACE(path.string() + " from " + std::to_string(offset));
            options.startOffset = offset;
            CompareWithThePlayer(ReadFile(path));
        }
}

TEST_F(Lint, HasTheIdeaOfTheWorkedExampleThatScriptWritersAreGiven)
{
    const lint::Report report = lint::CheckText(
        "[MUSIC]FileName=tune.mp3;"
        "[COLORSCHEME]GlobalColor=255,255,255;SupportColor=128,128,128;FlowColor=0,0,0;"
        "[EFFECT]EffectName=FX_Clouds;StartTime=0;StopTime=30000;LayerID=1;"
        "[EFFECT]EffectName=WhiteFlashOverlay;StartTime=500;StopTime=30000;LayerID=9;"
        "[MESSAGE]MessageText=flash;ActivationTime=1000;TargetEffect=WhiteFlashOverlay;Parameter=2.00;"
        "Steps=4;TimeDelta=500;"
        "[MESSAGE]MessageText=flash;ActivationTime=9000,9250;TargetEffect=WhiteFlashOverlay;",
        "script.txt", options);
    EXPECT_TRUE(report.readable);
    EXPECT_TRUE(report.findings.empty());
    EXPECT_EQ("tune.mp3", report.show.music);
    EXPECT_EQ(1.0f, report.show.scheme.global[0]);
    EXPECT_EQ(0.50196078431f, report.show.scheme.support[2]);
    ASSERT_EQ(2u, report.show.entries.size());
    EXPECT_EQ("WhiteFlashOverlay", report.show.entries[1].effect);
    EXPECT_EQ(500u, report.show.entries[1].start);
    EXPECT_EQ(30000u, report.show.entries[1].stop);
    EXPECT_EQ(9u, report.show.entries[1].layer);
    EXPECT_EQ(30000u, report.show.end);
    EXPECT_EQ(2, report.show.loads);
    ASSERT_EQ(6u, report.show.messages.size());
    const uint32_t times[] = {1000, 1500, 2000, 2500, 9000, 9250};
    for (size_t i = 0; i < 6; i++) {
        EXPECT_EQ(times[i], report.show.messages[i].time);
        EXPECT_TRUE(report.show.messages[i].heard);
        EXPECT_EQ(0.0, report.show.messages[i].delay);
        EXPECT_EQ(i < 4 ? std::vector<float>{2.0f} : std::vector<float>{}, report.show.messages[i].params);
        EXPECT_EQ(i < 4 ? 0u : 1u, report.show.messages[i].block);
    }
}

TEST_F(Lint, CountsALoadForEachEntryButOneForEffectsThatStayLoaded)
{
    std::string text;
    for (const char* name : {"FX_Clouds", "FX_RopeThing", "FX_RopeThing", "FX_Clouds", "FX_RopeThing"}) {
        text += std::string("[EFFECT]EffectName=") + name +
                ";StartTime=0;StopTime=" + std::to_string(1000 + text.size()) + ";LayerID=1;";
    }
    EXPECT_EQ(4, lint::CheckText(text, "", options).show.loads);
    options.startOffset = 1000; // the first entry goes, the second keeps the clouds
    EXPECT_EQ(4, lint::CheckText(text, "", options).show.loads);
    options.startOffset = 1100; // and two of the fish
    EXPECT_EQ(3, lint::CheckText(text, "", options).show.loads);
}

TEST_F(Lint, LeavesTheNightClean)
{
    options.checkFiles = true;
    options.data = SOURCE_DIR "/Data";
    const lint::Report report = lint::CheckFile(SOURCE_DIR "/Data/script.txt", options);
    ASSERT_TRUE(report.readable);
    for (const lint::Finding& finding : report.findings)
        ADD_FAILURE() << "line " << finding.line << ": " << finding.text;
    EXPECT_FALSE(report.show.music.empty());
    EXPECT_TRUE(std::all_of(report.show.messages.begin(), report.show.messages.end(),
                            [](const lint::SentMessage& message) { return message.heard; }));
}

TEST_F(Lint, FindsNoErrorInTheShowsOfTheTests)
{
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tests/shows"))
        EXPECT_EQ(0, lint::CheckFile(entry.path(), options).Count(lint::Error)) << entry.path();
}

// ---- Places

TEST_F(Lint, CountsColumnsInCharactersOfTheLine)
{
    const lint::Report report =
        lint::CheckText("[MUSIC]\r\n# \xC3\xA4\xC3\xB6 # FileName=a.ogg; $\r\n", "", options);
    ASSERT_EQ(2u, report.findings.size()); // and nothing-shown, of the whole file
    EXPECT_EQ(0, report.findings[0].line);
    EXPECT_EQ("vanished", report.findings[1].code);
    EXPECT_EQ(2, report.findings[1].line);
    EXPECT_EQ(24, report.findings[1].column);
}

TEST_F(Lint, CountsColumnsOfALineOfAnyLength)
{
    std::string line;
    for (int i = 0; i < 3000; i++)
        line += "# \xC3\xA4 #"; // five characters, six bytes
    const lint::Report report = lint::CheckText("#\n#" + line + "$" + line + "\xC3\xA4", "", options);
    ASSERT_EQ(2u, report.findings.size()); // and nothing-shown, of the whole file
    EXPECT_EQ("vanished", report.findings[1].code);
    EXPECT_EQ(2, report.findings[1].line);
    EXPECT_EQ(2 + 3000 * 5, report.findings[1].column);
}

TEST_F(Lint, TakesAByteOrderMarkForNothing)
{
    const lint::Report report = lint::CheckText(
        "\xEF\xBB\xBF[EFFECT]EffectName=FX_Clouds;StartTime=0;StopTime=1;LayerID=1;", "", options);
    EXPECT_TRUE(report.findings.empty());
    EXPECT_EQ(1u, report.show.entries.size());
}

// ---- When effects are on stage

TEST_F(Lint, JoinsEntriesOfAnEffectThatMeetOrOverlap)
{
    std::string script;
    for (const char* times : {"30;StopTime=40", "10;StopTime=20", "12;StopTime=15", "20;StopTime=25",
                              "26;StopTime=28", "60;StopTime=50"})
        script += std::string("[EFFECT]EffectName=FX_Clouds;LayerID=1;StartTime=") + times + ";";
    const lint::Show show = lint::CheckText(script, "", options).show;
    ASSERT_EQ(1u, show.stage.size());
    std::string spans;
    for (const lint::Span& span : show.stage.at("FX_Clouds"))
        spans += std::to_string(span.start) + "-" + std::to_string(span.stop) + " ";
    EXPECT_EQ("10-25 26-28 30-40 ", spans);
    for (double time : {10.0, 15.0, 20.0, 22.5, 25.0, 26.0, 30.0, 40.0})
        EXPECT_TRUE(lint::IsOnStage(show, "FX_Clouds", time)) << time;
    for (double time : {0.0, 9.5, 25.5, 29.0, 40.5, 55.0})
        EXPECT_FALSE(lint::IsOnStage(show, "FX_Clouds", time)) << time;
    EXPECT_FALSE(lint::IsOnStage(show, "FX_Towers", 10));
}

// ---- What it survives

// With the square of their number as cost this would take longer than a test may.
TEST_F(Lint, ReadsAListOfAHundredThousandTimes)
{
    std::string times = "0";
    for (int i = 1; i < 100000; i++)
        times += "," + std::to_string(i * 20);
    const lint::Report report =
        lint::CheckText("[EFFECT]EffectName=FX_Clouds;StartTime=0;StopTime=2000000;LayerID=1;"
                        "[MESSAGE]MessageText=hand;TargetEffect=FX_Clouds;ActivationTime=" +
                            times + ";",
                        "", options);
    EXPECT_EQ(0, report.Count(lint::Error));
    ASSERT_EQ(100000u, report.show.messages.size());
    EXPECT_EQ(1999980u, report.show.messages.back().time);
}

TEST_F(Lint, ReadsTenThousandEntriesAndAHundredThousandMessages)
{
    std::string script;
    for (int i = 0; i < 10000; i++)
        script += "[EFFECT]EffectName=FX_Clouds;StartTime=" + std::to_string(i * 200) +
                  ";StopTime=" + std::to_string(i * 200 + 200) + ";LayerID=1;";
    for (int i = 0; i < 100000; i++)
        script +=
            "[MESSAGE]MessageText=hand;TargetEffect=FX_Clouds;ActivationTime=" + std::to_string(i * 20) + ";";
    const lint::Report report = lint::CheckText(script, "", options);
    EXPECT_EQ(10000u, report.show.entries.size());
    EXPECT_EQ(100000u, report.show.messages.size());
    EXPECT_EQ(0, report.Count(lint::Error));
}

TEST_F(Lint, KeepsAThousandFindingsOfAKindAndCountsTheRest)
{
    std::string times;
    for (int i = 0; i < 5000; i++)
        times += "x,";
    const lint::Report report = lint::CheckText(
        "[MESSAGE]MessageText=hand;TargetEffect=FX_Clouds;ActivationTime=" + times + ";", "", options);
    EXPECT_EQ(1002, report.Count(lint::Error)) << "nobody hears them, and nothing is shown";
    EXPECT_EQ(4000u, report.findingsLeftOut);
    EXPECT_EQ(5000u, report.show.messages.size());
    EXPECT_NE(std::string::npos, lint::PrintText("a.txt", report, false)
                                     .find("\n    4000 further findings of the same kinds left out\n"));
    EXPECT_NE(std::string::npos, lint::PrintJson("a.txt", report, options).find("\"findingsLeftOut\": 4000"));
}

TEST_F(Lint, RefusesWhatIsLargerThanAnyScript)
{
    const std::string large((16 << 20) + 1, 'a');
    const lint::Report report = lint::CheckText(large, "", options);
    EXPECT_FALSE(report.readable);
    EXPECT_EQ("larger than any script (16 MiB)", report.reason);
    EXPECT_EQ("larger than any script (16 MiB)", lint::CheckFile("/dev/zero", options).reason)
        << "a file without an end";
    EXPECT_TRUE(lint::CheckText(large.substr(1), "", options).readable);
}

// 20,000 messages of 20,000 parameters each would be 1.6 GB.
TEST_F(Lint, BoundsTheParametersOfAllMessagesTogether)
{
    std::string parameters;
    for (int i = 0; i < 20000; i++)
        parameters += "1,";
    const std::string head = "[MESSAGE]MessageText=hand;TargetEffect=FX_Clouds;Parameter=" + parameters + ";";
    lint::Report report = lint::CheckText(head + "ActivationTime=0;Steps=20000;TimeDelta=1;", "", options);
    EXPECT_TRUE(Asks(report, "many-messages"));
    EXPECT_EQ(104u, report.show.messages.size()) << "of 2,097,152 parameters in all, 20,001 each";

    std::string times;
    for (int i = 0; i < 20000; i++)
        times += "0,";
    report = lint::CheckText(head + "ActivationTime=" + times + ";", "", options);
    EXPECT_TRUE(Asks(report, "many-messages"));
    EXPECT_EQ(104u, report.show.messages.size());

    report = lint::CheckText(head + "ActivationTime=0;Steps=104;TimeDelta=1;", "", options);
    EXPECT_FALSE(Asks(report, "many-messages"));
}

TEST_F(Lint, BoundsTheMessagesOfAListOfTimes)
{
    std::string times;
    for (int i = 0; i < 300000; i++)
        times += "0,";
    const lint::Report report = lint::CheckText(
        "[MESSAGE]MessageText=hand;TargetEffect=FX_Clouds;ActivationTime=" + times + ";", "", options);
    EXPECT_TRUE(Asks(report, "many-messages"));
    EXPECT_EQ(200000u, report.show.messages.size());
}

TEST_F(Lint, SurvivesRandomBytes)
{
    RandomScript random(1, EffectNames(), MessageNames());
    for (int i = 0; i < 300; i++) {
        const std::string bytes = random.Bytes(random.Below(600));
        CheckFindings(bytes);
        CheckFindings("[EFFECT]" + bytes);
        CheckFindings("[MESSAGE]MessageText=flash;TargetEffect=FX_Clouds;ActivationTime=" + bytes);
    }
}

TEST_F(Lint, HasThePlayersIdeaOfMutatedScriptsToo)
{
    std::vector<std::string> seeds;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tests/tools/lint/corpus"))
        if (entry.path().extension() == ".txt") // but for two that fill the player to its brim each time
            if (entry.path().stem() != "many-steps" && entry.path().stem() != "negative-number")
                seeds.push_back(ReadFile(entry.path()));
    std::sort(seeds.begin(), seeds.end());
    ASSERT_GT(seeds.size(), 40u);
    RandomScript random(2, EffectNames(), MessageNames());
    for (int i = 0; i < 400; i++) {
        SCOPED_TRACE(i);
        const std::string text = random.Mutate(seeds[random.Below(unsigned(seeds.size()))]);
        options.startOffset = random.OneIn(3) ? random.Below(12000) : 0;
        CheckFindings(text);
        CompareWithThePlayer(text);
    }
}

TEST_F(Lint, FindsInEntriesWhatTheReaderFindsInTheBlock)
{
    const char* const keys[] = {"FileName",    "EffectName",     "StartTime",    "StopTime",  "LayerID",
                                "MessageText", "ActivationTime", "TargetEffect", "Parameter", "Steps",
                                "TimeDelta",   "GlobalColor",    "SupportColor", "FlowColor"};
    ScriptParser reader;
    int found = 0;
    for (unsigned seed = 0; seed < 200; seed++) {
        RandomScript random(seed, EffectNames(), MessageNames());
        std::string text = random.Write(6, true);
        if (seed % 2 == 0)
            text = random.Mutate(text);
        const lint::Reading script(text, &registry, 0);
        for (const lint::Block& block : script.blocks) {
            if (block.type == BlockNone)
                continue;
            const std::vector<lint::KeyValue> entries = lint::SplitKeyValues(block);
            std::string joined;
            for (const lint::KeyValue& entry : entries) {
                EXPECT_EQ(block.body + joined.size(), entry.begin);
                joined += entry.text;
                ASSERT_EQ(entry.value.size() + 1, entry.valuePlaces.size());
                for (size_t i = 0; i < entry.value.size(); i++)
                    EXPECT_EQ(entry.value[i], script.stream[entry.valuePlaces[i]]);
            }
            EXPECT_EQ(block.text, joined);
            for (const char* key : keys) {
                const std::vector<std::string>& own = SyntaxOf(block.type).keys;
                if (std::find(own.begin(), own.end(), key) == own.end())
                    continue;
                std::string value;
                const bool isThere = reader.GetValue(block.text, key, &value);
                const lint::KeyValue* const entry = lint::FindKeyValue(entries, key);
                EXPECT_EQ(isThere, entry != nullptr);
                if (isThere && entry) {
                    EXPECT_EQ(value, entry->value);
                    found++;
                }
            }
        }
    }
    EXPECT_GT(found, 1000);
}

TEST_F(Lint, ShowsTheBoxesAgainThatItCollected)
{
    lint::CheckText("[EFFECT]EffectName=FX_Nothing;StartTime=0;StopTime=1;LayerID=1;", "", options);
    EXPECT_TRUE(boxes.empty());
    ReportInfo("Test", "after");
    EXPECT_EQ(1u, boxes.size());
}

TEST_F(Lint, SaysWhyAFileCannotBeRead)
{
    const lint::Report missing = lint::CheckFile(PathOf("nothing.txt"), options);
    EXPECT_FALSE(missing.readable);
    EXPECT_EQ("No such file or directory", missing.reason);
    const lint::Report folder = lint::CheckFile(PathOf(""), options);
    EXPECT_FALSE(folder.readable);
    EXPECT_EQ("Is a directory", folder.reason);
}
