// SPDX-License-Identifier: MIT
// Edits of all kinds on scripts of all kinds: those of the project and of its tests, random ones and broken ones.
// Whatever an edit did, only its own bytes have changed, the show's player reads what was meant, and undo gives the
// first bytes back. What is meant is worked out on plain records, which are written as a clean script of their own
// and played as well.
#include "tools/edit/Document.h"

#include "kernel/EffectRegistry.h"
#include "kernel/SynchMessageTable.h"
#include "tests/Folders.h"
#include "tests/support/OutlineText.h"
#include "tests/support/PlayedScript.h"
#include "tests/support/RandomScript.h"
#include "tests/support/ReadFile.h"
#include "tests/support/ScriptRecords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include <unistd.h>

namespace fs = std::filesystem;

using edit::ItemId;
using edit::OutlineBlock;

static const uint32_t maxSteps = 3000; // of a group that is played here

static std::vector<std::string> Sorted(std::vector<std::string> lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

// ---- Bytes

// The text without the values of these keys of these blocks.
static std::string Frame(const std::string& text, const edit::Outline& outline,
                         const std::set<size_t>& blocks, const std::vector<std::string>& keys)
{
    std::string frame;
    size_t from = 0;
    for (const size_t block : blocks)
        for (const edit::OutlineValue& value : outline.blocks[block].values) {
            if (std::find(keys.begin(), keys.end(), value.key) == keys.end())
                continue;
            frame += text.substr(from, value.place.begin - from) + "|";
            from = value.place.end;
        }
    return frame + text.substr(from);
}

// True if the one can be had from the other by taking bytes away.
static bool IsPartOf(const std::string& part, const std::string& whole)
{
    size_t found = 0;
    for (size_t i = 0; i < whole.size() && found < part.size(); i++)
        found += whole[i] == part[found] ? 1 : 0;
    return found == part.size();
}

// ---- The scripts

static std::string WithCarriageReturns(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return result;
}

static std::vector<std::string> ProjectScripts()
{
    std::vector<std::string> scripts = {ReadFile(fs::path(SOURCE_DIR) / "Data/script.txt")};
    for (const char* folder : {"tests/shows", "tests/tools/lint/corpus", "tests/fuzz/corpus/Script"})
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / folder))
            if (entry.path().extension() == ".txt")
                scripts.push_back(ReadFile(entry.path()));
    std::sort(scripts.begin() + 1, scripts.end());
    return scripts;
}

class RandomEdits : public testing::Test
{
protected:
    RandomEdits() : path(testing::TempDir() + "marlinex-random-edits-" + std::to_string(getpid())), random(1)
    {
        for (const RegisteredEffect& row : lint::ProductionRegistry()->effects)
            effects.push_back(row.name);
        for (const SynchMessageDeclaration& row : lint::ProductionRegistry()->GetMessageTable()->entries)
            messages.push_back(row.name);
    }
    ~RandomEdits() override { unlink(path.c_str()); }

    int64_t Between(int64_t low, int64_t high) { return low + int64_t(random() % uint64_t(high - low + 1)); }

    bool CanBePlayed() const
    {
        for (const OutlineBlock& block : document->GetOutline().blocks)
            if (block.steps > maxSteps)
                return false;
        return document->Text().size() < 200000;
    }

    std::vector<ItemId> AllItems() const
    {
        std::vector<ItemId> items;
        for (size_t i = 0; i < document->GetOutline().blocks.size(); i++) {
            const OutlineBlock& block = document->GetOutline().blocks[i];
            if (block.type == BlockEffect)
                items.push_back({i, -1});
            for (size_t t = 0; t < block.times.size(); t++)
                items.push_back({i, int(t)});
        }
        return items;
    }
    std::vector<ItemId> SomeItems(size_t most)
    {
        std::vector<ItemId> items = AllItems();
        std::shuffle(items.begin(), items.end(), random);
        items.resize(std::min(items.size(), size_t(Between(1, int64_t(most)))));
        return items;
    }

    void ExpectPlayed(const ScriptRecords& meant, const std::string& what)
    {
        const PlayedScript got = Play(document->Text()), wanted = Play(meant.Write());
        EXPECT_EQ(Sorted(wanted.entries), Sorted(got.entries)) << what;
        EXPECT_EQ(Sorted(wanted.messages), Sorted(got.messages)) << what;
    }

    static std::set<size_t> BlocksOf(const std::vector<ItemId>& items)
    {
        std::set<size_t> blocks;
        for (const ItemId& item : items)
            blocks.insert(item.block);
        return blocks;
    }

    void TryMove();
    void TryStretch();
    void TrySetValue();
    void TryDuplicate();
    void TryDelete();
    void TryInsert();
    void TryTakeApart();
    void TryPaste();
    bool Check(bool done, const std::string& before);

    void Work(const std::string& script, int edits);

    const std::string path;
    std::mt19937_64 random;
    std::vector<std::string> effects, messages;
    std::unique_ptr<edit::Document> document;
    int did = 0, refused = 0;
};

// True if the edit was done. One that was not has words and has left everything alone.
bool RandomEdits::Check(bool done, const std::string& before)
{
    done ? did++ : refused++;
    if (!done) {
        EXPECT_EQ(before, document->Text());
        EXPECT_FALSE(document->LastRefusal().empty());
        return false;
    }
    EXPECT_EQ("", document->LastRefusal());
    EXPECT_EQ(OutlineText(edit::ReadOutline(document->Text())), OutlineText(document->GetOutline()));
    return true;
}

void RandomEdits::TryMove()
{
    const std::string before = document->Text();
    const edit::Outline outline = document->GetOutline();
    ScriptRecords records(outline);
    const std::vector<ItemId> items = SomeItems(6);
    const int64_t amount = Between(-3000, 3000), layers = Between(0, 3) ? 0 : Between(-2, 2);
    if (!Check(document->Move(items, amount, layers), before))
        return;
    // Blocks that lack a key are moved as well, and can hold the others back.
    if (records.HaveAll(items)) {
        records.Move(items, amount, layers);
        ExpectPlayed(records, "moved");
    }
    const std::vector<std::string> keys = {"StartTime", "StopTime", "LayerID", "ActivationTime"};
    const std::set<size_t> blocks = BlocksOf(items);
    EXPECT_EQ(Frame(before, outline, blocks, keys),
              Frame(document->Text(), document->GetOutline(), blocks, keys));
}

void RandomEdits::TryStretch()
{
    const std::string before = document->Text();
    const edit::Outline outline = document->GetOutline();
    ScriptRecords records(outline);
    const std::vector<ItemId> items = SomeItems(1);
    if (items.empty() || outline.blocks[items[0].block].type != BlockEffect)
        return;
    const bool stop = Between(0, 1) == 1;
    const int64_t amount = Between(-5000, 5000);
    if (!Check(document->Stretch(items, stop, amount), before))
        return;
    if (ScriptRecord* const record = records.Find(items[0].block)) {
        ScriptRecords::Stretch(record, stop, amount);
        ExpectPlayed(records, "stretched");
    }
    EXPECT_EQ(Frame(before, outline, BlocksOf(items), {"StartTime", "StopTime"}),
              Frame(document->Text(), document->GetOutline(), BlocksOf(items), {"StartTime", "StopTime"}));
}

void RandomEdits::TrySetValue()
{
    const std::string before = document->Text();
    const edit::Outline outline = document->GetOutline();
    if (outline.blocks.empty())
        return;
    ScriptRecords records(outline);
    const auto block = size_t(Between(0, int64_t(outline.blocks.size()) - 1));
    if (outline.blocks[block].type == BlockEffect) {
        const char* const key = Between(0, 1) ? "StopTime" : "LayerID";
        const int64_t number = Between(0, 90000);
        if (!Check(document->SetValue(block, key, std::to_string(number)), before))
            return;
        if (ScriptRecord* const record = records.Find(block)) {
            (std::string(key) == "LayerID" ? record->layer : record->stop) = number;
            ExpectPlayed(records, std::string("set ") + key);
            EXPECT_EQ(Frame(before, outline, {block}, {key}),
                      Frame(document->Text(), document->GetOutline(), {block}, {key}));
        }
    } else if (outline.blocks[block].type == BlockMessage) {
        if (!Check(document->SetValue(block, "Parameter", "1.5,7"), before))
            return;
        if (ScriptRecord* const record = records.Find(block)) {
            record->hasParameters = true;
            record->parameters = "1.5,7.0";
            ExpectPlayed(records, "parameters");
        }
        const OutlineBlock& was = outline.blocks[block];
        const bool wasThere = was.FindValue("Parameter") || std::any_of(was.unused.begin(), was.unused.end(),
                                                                        [](const edit::OutlineValue& value) {
                                                                            return value.key == "Parameter";
                                                                        });
        EXPECT_TRUE(wasThere || IsPartOf(before, document->Text()));
    }
}

void RandomEdits::TryDuplicate()
{
    const std::string before = document->Text();
    ScriptRecords records(document->GetOutline());
    const std::vector<ItemId> items = SomeItems(4);
    const int64_t amount = Between(-1000, 4000);
    const std::vector<ItemId> copies = document->Duplicate(items, amount);
    if (!Check(!copies.empty(), before))
        return;
    EXPECT_EQ(items.size(), copies.size());
    EXPECT_TRUE(IsPartOf(before, document->Text()));
    if (records.Duplicate(items, amount))
        ExpectPlayed(records, "duplicated");
}

void RandomEdits::TryDelete()
{
    const std::string before = document->Text();
    ScriptRecords records(document->GetOutline());
    const std::vector<ItemId> items = SomeItems(3);
    if (!Check(document->Delete(items), before))
        return;
    EXPECT_TRUE(IsPartOf(document->Text(), before));
    EXPECT_EQ(std::count(before.begin(), before.end(), '#') % 2,
              std::count(document->Text().begin(), document->Text().end(), '#') % 2);
    records.Delete(items);
    ExpectPlayed(records, "deleted");
}

void RandomEdits::TryInsert()
{
    const std::string before = document->Text();
    ScriptRecords records(document->GetOutline());
    ScriptRecord added;
    const int64_t time = Between(0, 30000);
    if (Between(0, 1)) {
        added.isEntry = true;
        added.effect = effects[size_t(Between(0, int64_t(effects.size()) - 1))];
        added.start = time;
        added.stop = time + Between(1, 5000);
        added.layer = Between(0, 9);
        if (!Check(document
                       ->InsertEntry(added.effect, uint32_t(added.start), uint32_t(added.stop),
                                     uint32_t(added.layer))
                       .has_value(),
                   before))
            return;
    } else {
        added.effect = "FX_Clouds";
        added.message = "blend";
        added.times = {time};
        added.hasParameters = Between(0, 1) == 1;
        added.parameters = "3.00";
        const std::optional<ItemId> item = document->InsertMessage(
            added.effect, added.message, uint32_t(time), added.hasParameters ? "3" : "");
        if (!Check(item.has_value(), before))
            return;
        EXPECT_EQ(uint32_t(time),
                  document->GetOutline().blocks[item->block].times[size_t(item->time)].milliseconds);
    }
    records.Add(added);
    ExpectPlayed(records, "inserted");
    EXPECT_TRUE(IsPartOf(before, document->Text()));
}

void RandomEdits::TryTakeApart()
{
    const std::string before = document->Text();
    const PlayedScript played = Play(before);
    for (size_t i = 0; i < document->GetOutline().blocks.size(); i++) {
        if (!document->GetOutline().blocks[i].IsGroup())
            continue;
        if (Check(document->TakeApart(i), before)) {
            EXPECT_EQ(Told(played), Told(Play(document->Text())));
        }
        return;
    }
}

void RandomEdits::TryPaste()
{
    const std::string before = document->Text();
    ScriptRecords records(document->GetOutline());
    const std::vector<ItemId> items = SomeItems(1);
    const std::string copy = document->Copy(items);
    if (copy.empty())
        return;
    const int64_t at = Between(0, 40000);
    if (!Check(!document->Paste(copy, uint32_t(at)).empty(), before))
        return;
    EXPECT_TRUE(IsPartOf(before, document->Text()));
    if (records.Paste(items[0], at))
        ExpectPlayed(records, "pasted");
}

void RandomEdits::Work(const std::string& script, int edits)
{
    SCOPED_TRACE(script.substr(0, 2000));
    document = std::make_unique<edit::Document>();
    std::ofstream(path, std::ios::binary) << script;
    std::string reason;
    ASSERT_TRUE(document->Open(path, &reason)) << reason;
    void (RandomEdits::*const tries[])() = {
        &RandomEdits::TryMove,      &RandomEdits::TryStretch, &RandomEdits::TrySetValue,
        &RandomEdits::TryDuplicate, &RandomEdits::TryDelete,  &RandomEdits::TryInsert,
        &RandomEdits::TryTakeApart, &RandomEdits::TryPaste,
    };
    for (int i = 0; i < edits && CanBePlayed() && !HasFailure(); i++)
        (this->*tries[Between(0, 7)])();
    const std::string last = document->Text();
    while (document->Undo()) {
    }
    EXPECT_EQ(script, document->Text());
    EXPECT_FALSE(document->IsModified());
    while (document->Redo()) {
    }
    EXPECT_EQ(last, document->Text());
}

TEST_F(RandomEdits, OnTheScriptsOfTheProjectDoWhatTheyMean)
{
    for (const std::string& script : ProjectScripts()) {
        Work(script, 12);
        Work(WithCarriageReturns(script), 6);
        if (HasFailure())
            break;
    }
    EXPECT_GT(did, 3 * refused) << "most can be done";
}

TEST_F(RandomEdits, OnCleanRandomScriptsDoWhatTheyMean)
{
    for (unsigned seed = 0; seed < 120 && !HasFailure(); seed++) {
        RandomScript source(seed, effects, messages);
        Work(source.Write(12, false), 10);
    }
    EXPECT_GT(did, 10 * refused);
}

TEST_F(RandomEdits, OnMessyRandomScriptsDoWhatTheyMeanOrAreRefused)
{
    for (unsigned seed = 1000; seed < 1300 && !HasFailure(); seed++) {
        RandomScript source(seed, effects, messages);
        Work(source.Write(8, true), 8);
    }
    EXPECT_GT(did, refused);
}

TEST_F(RandomEdits, OnMutatedScriptsDoWhatTheyMeanOrAreRefused)
{
    const std::string night = ReadFile(fs::path(SOURCE_DIR) / "tests/shows/FX_Clouds.txt");
    for (unsigned seed = 2000; seed < 2300 && !HasFailure(); seed++) {
        RandomScript source(seed, effects, messages);
        Work(source.Mutate(seed % 2 ? night : source.Write(8, true)), 6);
    }
    EXPECT_GT(did, 100);
}

TEST_F(RandomEdits, OnRandomBytesDoNoHarm)
{
    for (unsigned seed = 3000; seed < 3100 && !HasFailure(); seed++) {
        RandomScript source(seed, effects, messages);
        Work(source.Bytes(source.Below(3000)), 6);
    }
    EXPECT_GT(refused, 100);
}
