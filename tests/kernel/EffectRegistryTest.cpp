// SPDX-License-Identifier: MIT
#include "kernel/EffectRegistry.h"

#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

class SilentEffect : public ProbeEffect
{
public:
    void DeclareMessages(SynchMessageTable*) override {}
};

TEST(EffectRegistry, FindsEffectsByExactName)
{
    EffectRegistry registry;
    ProbeEffect a, b;
    EXPECT_TRUE(registry.Register("FX_A", &a, "first"));
    EXPECT_TRUE(registry.Register("FX_B", &b, "second"));
    EXPECT_EQ(&a, registry.FindEffect("FX_A"));
    EXPECT_EQ(&b, registry.FindEffect("FX_B"));
    EXPECT_EQ(nullptr, registry.FindEffect("fx_a"));
    EXPECT_EQ(nullptr, registry.FindEffect("FX_"));
    EXPECT_EQ(nullptr, registry.FindEffect(""));
    EXPECT_EQ("first", registry.effects[0].description);
}

TEST(EffectRegistry, RegisteringLetsTheEffectDeclareItsMessagesAtOnce)
{
    EffectRegistry registry;
    ProbeEffect a, b;
    registry.Register("FX_A", &a, "FX_A");
    EXPECT_EQ(1, a.flashId);
    EXPECT_EQ(2, a.stepId);
    registry.Register("FX_B", &b, "FX_B");
    EXPECT_EQ(3, b.flashId);
    EXPECT_EQ(4, b.stepId);
}

// Looks itself up while it declares its messages.
class CuriousEffect : public ProbeEffect
{
public:
    explicit CuriousEffect(EffectRegistry* newRegistry) : registry(newRegistry) {}
    void DeclareMessages(SynchMessageTable* table) override
    {
        found = registry->FindEffect("FX_Curious");
        sameTable = table == registry->GetMessageTable();
    }
    EffectRegistry* registry;
    Effect* found = nullptr;
    bool sameTable = false;
};

TEST(EffectRegistry, AnEffectHasItsRowBeforeItDeclaresItsMessages)
{
    EffectRegistry registry;
    CuriousEffect curious(&registry);
    EXPECT_TRUE(registry.Register("FX_Curious", &curious, ""));
    EXPECT_EQ(&curious, curious.found);
    EXPECT_TRUE(curious.sameTable);
}

TEST(EffectRegistry, ASecondEffectUnderATakenNameIsLeftAloneAndDeclaresNothing)
{
    EffectRegistry registry;
    ProbeEffect a, b;
    registry.Register("FX_A", &a, "one");
    EXPECT_FALSE(registry.Register("FX_A", &b, "two"));
    EXPECT_EQ(1u, registry.effects.size());
    EXPECT_EQ("one", registry.effects[0].description);
    EXPECT_EQ(&a, registry.FindEffect("FX_A"));
    EXPECT_EQ(0, b.flashId);
    EXPECT_EQ(2u, registry.GetMessageTable()->entries.size());
}

TEST(EffectRegistry, ClearForgetsTheRowsAndLeavesEffectsAndMessages)
{
    EffectRegistry registry;
    ProbeEffect a;
    registry.Register("FX_A", &a, "FX_A");
    registry.Clear();
    EXPECT_TRUE(registry.effects.empty());
    EXPECT_EQ(nullptr, registry.FindEffect("FX_A"));
    EXPECT_EQ(1, registry.GetMessageTable()->FindMessage("flash", &a));
    EXPECT_TRUE(a.calls.empty());
}

TEST(SynchMessageTable, IdsRunFromOneAcrossAllOwners)
{
    SynchMessageTable table;
    ProbeEffect a, b;
    EXPECT_EQ(1, table.DeclareMessage("x", &a, ""));
    EXPECT_EQ(2, table.DeclareMessage("y", &b, ""));
    EXPECT_EQ(3, table.DeclareMessage("z", &a, ""));
}

TEST(SynchMessageTable, MessagesArePerOwnerAndExact)
{
    SynchMessageTable table;
    ProbeEffect a, b;
    table.DeclareMessage("flash", &a, "");
    table.DeclareMessage("flash", &b, "");
    table.DeclareMessage("step", &b, "");
    EXPECT_EQ(1, table.FindMessage("flash", &a));
    EXPECT_EQ(2, table.FindMessage("flash", &b));
    EXPECT_EQ(0, table.FindMessage("step", &a)) << "another effect's message";
    EXPECT_EQ(0, table.FindMessage("Flash", &a));
    EXPECT_EQ(0, table.FindMessage("flas", &a));
    EXPECT_EQ(0, table.FindMessage("flash", nullptr));
}

TEST(SynchMessageTable, ANullOwnerFindsNothingEvenIfOneDeclared)
{
    SynchMessageTable table;
    table.DeclareMessage("flash", nullptr, "");
    EXPECT_EQ(0, table.FindMessage("flash", nullptr));
}

TEST(SynchMessageTable, ASecondDeclarationGetsAnIdThatIsNeverFound)
{
    SynchMessageTable table;
    ProbeEffect a;
    EXPECT_EQ(1, table.DeclareMessage("flash", &a, "one"));
    EXPECT_EQ(2, table.DeclareMessage("flash", &a, "two"));
    EXPECT_EQ(1, table.FindMessage("flash", &a));
}

TEST(SynchMessageTable, ListsOneOwnersMessagesInOrder)
{
    SynchMessageTable table;
    ProbeEffect a, b;
    table.DeclareMessage("one", &a, "first");
    table.DeclareMessage("other", &b, "not listed");
    table.DeclareMessage("two", &a, "second");
    EXPECT_EQ("one  (first)\ntwo  (second)\n", table.ListMessages(&a));
    EXPECT_EQ("", table.ListMessages(nullptr));
}

TEST(DemoInfo, ListsEffectsWithTheirMessagesByteForByte)
{
    EffectRegistry registry;
    ProbeEffect a;
    SilentEffect b;
    registry.Register("FX_A", &a, "what it is");
    registry.Register("FX_B", &b, "FX_B");
    const std::string path = testing::TempDir() + "DemoInfoTest" + std::to_string(getpid()) + ".txt";
    std::ofstream(path) << "an older file, which is longer than nothing and must be gone";
    registry.WriteDemoInfo(path);
    EXPECT_EQ("DemoInfo: GENERATED BY MARLINEX 1.5\n"
              " available effects with their messages (and description) for this demo.\n\n\n\n"
              "-----------------------------------------------------\n"
              "Effect: FX_A\n"
              "Description: what it is\n"
              "Available Synch Messages:\n"
              "flash  (a flash)\n"
              "step  (a step)\n"
              "-----------------------------------------------------\n\n"
              "-----------------------------------------------------\n"
              "Effect: FX_B\n"
              "Description: FX_B\n"
              "Available Synch Messages:\n"
              "-----------------------------------------------------\n\n",
              ReadFile(path));
    remove(path.c_str());
}

TEST(DemoInfo, AFileThatCannotBeOpenedIsLeftOutInSilence)
{
    std::vector<platform::MessageBox> boxes;
    platform::CollectMessageBoxes(&boxes);
    EffectRegistry registry;
    registry.WriteDemoInfo("no/such/folder/DemoInfo.txt");
    platform::CollectMessageBoxes(nullptr);
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(std::filesystem::exists("no"));
}
