// SPDX-License-Identifier: MIT
// Every effect of the production is complete, as CONTRIBUTING.md tells what that is. What an effect lacks
// fails under its name here, and the message says which file wants what.
#include "kernel/Production.h"

#include "kernel/Effect.h"
#include "kernel/SynchMessageTable.h"
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>

namespace fs = std::filesystem;

static void PrintTo(const EffectRecord& row, std::ostream* out)
{
    *out << row.key;
}

class CompleteEffect : public testing::TestWithParam<EffectRecord>
{
protected:
    CompleteEffect() : key(GetParam().key)
    {
        SynchMessageTable table;
        const std::unique_ptr<Effect> effect(GetParam().make());
        effect->DeclareMessages(&table);
        for (const SynchMessageDeclaration& row : table.entries)
            messages.push_back(row.name);
    }

    // The text of a file under the project's root; one that is missing fails the test, with what it is for.
    std::string Text(const std::string& path, const std::string& purpose) const
    {
        if (!fs::exists(SOURCE_DIR "/" + path))
            ADD_FAILURE() << path << " is missing: " << purpose;
        return ReadFile(SOURCE_DIR "/" + path);
    }
    // A file that is missing was told already.
    void ExpectPart(const std::string& path, const std::string& text, const std::string& part,
                    const std::string& purpose) const
    {
        if (!text.empty() && text.find(part) == std::string::npos)
            ADD_FAILURE() << path << " lacks '" << part << "': " << purpose;
    }
    // The number of files in a folder under the project's root that are called KEY-something.
    long CountFiles(const std::string& folder) const
    {
        const fs::directory_iterator files(SOURCE_DIR "/" + folder);
        return std::count_if(begin(files), end(files), [&](const fs::directory_entry& file) {
            return file.path().filename().string().starts_with(key + "-");
        });
    }

    const std::string key;
    std::vector<std::string> messages; // that it declares
};

TEST_P(CompleteEffect, HasAHeaderThatTellsItsContract)
{
    const std::string path = "effects/" + key + ".h";
    const std::string text = Text(path, "the class " + key + " and above it its contract");
    const std::string contract = text.substr(0, text.find("#pragma once"));
    EXPECT_GE(std::count(contract.begin(), contract.end(), '\n'), 4)
        << path << " wants a comment above #pragma once: what the scene is";
    ExpectPart(path, contract, "Leaves behind", "what it leaves in the GL state");
    for (const std::string& message : messages)
        ExpectPart(path, contract, "\"" + message + "\"", "what the message does");
}

TEST_P(CompleteEffect, HasASourceOfItsName)
{
    Text("effects/" + key + ".cpp", "the effect in the order of its life");
}

TEST_P(CompleteEffect, HasTheFilesThatItLoads)
{
    for (const EffectFile& file : ListFiles(GetParam().files))
        EXPECT_TRUE(fs::exists(SOURCE_DIR "/Data/" + file.name))
            << "Data/" << file.name << " is missing, which " << key << "::Init loads";
}

// So that no picture of a timeline shows two colours alike before all have been seen.
TEST_P(CompleteEffect, HasAWashThatTheRowsAheadOfItHaveNot)
{
    const std::vector<EffectRecord>& rows = ProductionEffects();
    const auto row = size_t(
        std::find_if(rows.begin(), rows.end(), [&](const EffectRecord& each) { return each.key == key; }) -
        rows.begin());
    for (size_t ahead = 1; ahead < WashCount && ahead <= row; ahead++)
        EXPECT_NE(rows[row - ahead].wash, rows[row].wash)
            << "kernel/Production.cpp paints " << key << " like " << rows[row - ahead].key << ", " << ahead
            << " rows ahead of it: a row has a wash that the " << WashCount - 1 << " before it have not"
            << (row < WashCount ? "" : ", that of ") << (row < WashCount ? "" : rows[row - WashCount].key);
}

TEST_P(CompleteEffect, HasAShowOfItsOwnWithAllItsMessages)
{
    const std::string path = "tests/shows/" + key + ".txt";
    const std::string show = Text(path, "a script that puts " + key + " on stage and sends its messages");
    ExpectPart(path, show, "EffectName=" + key + ";", "an [EFFECT] block of its own");
    for (const std::string& message : messages)
        ExpectPart(path, show, "MessageText=" + message + ";", "a [MESSAGE] block");
}

TEST_P(CompleteEffect, HasARecordedTest)
{
    const std::string path = "tests/effects/" + key + "RecordedTest.cpp";
    const std::string test =
        Text(path, "each pass with its exact figures, each message, what is left behind");
    ExpectPart(path, test, "(" + key + "Recorded, ", "its first test");
}

TEST_P(CompleteEffect, HasPictures)
{
    const std::string path = "tests/effects/" + key + "PictureTest.cpp";
    const std::string test = Text(path, "its telling moments against golden images");
    ExpectPart(path, test, "(" + key + "Picture, ", "its first test");
    EXPECT_GT(CountFiles("tests/golden"), 0)
        << "tests/golden has no " << key << "-MOMENT.png: let " << path << " write them";
}

TEST_P(CompleteEffect, HasATranscript)
{
    const std::string path = "tests/effects/TranscriptsRecordedTest.cpp";
    ExpectPart(path, Text(path, ""), "TEST_F(Transcripts, " + key + ")",
               "its Init and its frames, call by call");
    EXPECT_GT(CountFiles("tests/golden/calls"), 1)
        << "tests/golden/calls lacks " << key << "-init.txt or any later moment: let " << path
        << " write them";
}

// In ViewersMomentsRecordedTest.cpp, or as a suite of its own beside its other tests.
TEST_P(CompleteEffect, HasTheMomentsThatAViewerSees)
{
    const std::string path = "tests/effects/ViewersMomentsRecordedTest.cpp";
    const std::string own = ReadFile(SOURCE_DIR "/tests/effects/" + key + "RecordedTest.cpp");
    if (own.find("TEST_P(" + key + "Moments, ") == std::string::npos)
        ExpectPart(path, Text(path, ""), "TEST_P(ViewersMoments, " + key + "_",
                   "what is seen when, at three frame rates");
}

TEST_P(CompleteEffect, HasItsRowsInTheScriptWritersPage)
{
    const std::string path = "docs/SCRIPT.md";
    const std::string page = Text(path, "");
    ExpectPart(path, page, "| `" + key + "` | ", "a row of the table of effects");
    for (const std::string& message : messages)
        ExpectPart(path, page, "| `" + key + "` | `" + message + "` | ", "a row of the table of messages");
}

INSTANTIATE_TEST_SUITE_P(Named, CompleteEffect, testing::ValuesIn(ProductionEffects()),
                         [](const testing::TestParamInfo<EffectRecord>& row) { return row.param.key; });
