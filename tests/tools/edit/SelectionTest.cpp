// SPDX-License-Identifier: MIT
#include "tools/edit/Selection.h"

#include "tests/support/EditedScript.h"

#include <gtest/gtest.h>

using namespace edit;

TEST(Selection, StaysInOrderAndHasNothingTwice)
{
    Selection selection;
    Select(&selection, {5, 1});
    Select(&selection, {2, -1});
    Select(&selection, {5, 0});
    Select(&selection, {2, -1});
    EXPECT_EQ((Selection{{2, -1}, {5, 0}, {5, 1}}), selection);
    EXPECT_TRUE(IsSelected(selection, {5, 0}));
    EXPECT_FALSE(IsSelected(selection, {5, 2}));
    Toggle(&selection, {5, 0});
    Toggle(&selection, {3, -1});
    EXPECT_EQ((Selection{{2, -1}, {3, -1}, {5, 1}}), selection);
    Selection anyhow = {{5, 1}, {2, -1}, {5, 1}};
    Sort(&anyhow);
    EXPECT_EQ((Selection{{2, -1}, {5, 1}}), anyhow);
}

TEST(Selection, DropsWhatTheScriptNoLongerHas)
{
    EditedScript script(EditedScript::Night());
    const size_t hand = script.Block("hand");
    Selection selection = {{0, -1}, {hand, 1}, {hand, 2}, {99, -1}};
    DropStale(script.document.GetOutline(), &selection);
    EXPECT_EQ((Selection{{0, -1}, {hand, 1}}), selection);
}

TEST(Selection, TellsWhenAnItemBeginsAndEnds)
{
    const EditedScript script(EditedScript::Night());
    const Outline& outline = script.document.GetOutline();
    const size_t towers = script.Block("40000"), hand = script.Block("hand"), flash = script.Block("flash");
    EXPECT_EQ(20000u, StartOf(outline, {towers, -1}));
    EXPECT_EQ(40000u, StopOf(outline, {towers, -1}));
    EXPECT_EQ(9000u, StartOf(outline, {hand, 1}));
    EXPECT_EQ(9000u, StopOf(outline, {hand, 1}));
    EXPECT_EQ(1200u, StartOf(outline, {flash, 0}));
    EXPECT_EQ(2400u, StopOf(outline, {flash, 0})) << "the last of the group";
    EXPECT_TRUE(IsEntry(outline, {towers, -1}));
    EXPECT_FALSE(IsEntry(outline, {hand, 0}));
}

TEST(Selection, HasItsCopiesBeginWhereItEnds)
{
    const EditedScript script(EditedScript::Night());
    const Outline& outline = script.document.GetOutline();
    const timeline::Tempo& tempo = script.state.tempo; // a beat is 600 ms
    const size_t clouds = script.Block("20000"), towers = script.Block("40000"), hand = script.Block("hand");
    EXPECT_EQ(20000, CopyShift(outline, {{towers, -1}}, tempo));
    EXPECT_EQ(40000, CopyShift(outline, {{clouds, -1}, {towers, -1}}, tempo));
    EXPECT_EQ(3000, CopyShift(outline, {{hand, 0}, {hand, 1}}, tempo)) << "at 6 and 9 s";
    EXPECT_EQ(600, CopyShift(outline, {{hand, 1}}, tempo)) << "takes no time";
    EXPECT_EQ(600, CopyShift(outline, {}, tempo));
}

TEST(Selection, OfAllHasEntriesAndEachTimeOfAMessage)
{
    const EditedScript script("[MUSIC]\nFileName=a.ogg;\n" + EditedScript::Night());
    EXPECT_EQ(3u + 2 + 1 + 1, AllItems(script.document.GetOutline()).size());
}

TEST(Selection, GoesOnToTheItemThatFollowsInTime)
{
    const EditedScript script(EditedScript::Night());
    const Outline& outline = script.document.GetOutline();
    const size_t flash = script.Block("flash"), hand = script.Block("hand"), towers = script.Block("40000"),
                 lost = script.Block("flash_line");
    EXPECT_EQ((Selection{{hand, 0}}), NextItem(outline, {{flash, 0}}, 1, 0));
    EXPECT_EQ((Selection{{hand, 1}}), NextItem(outline, {{hand, 0}}, 1, 0));
    EXPECT_EQ((Selection{{towers, -1}}), NextItem(outline, {{hand, 1}}, 1, 0));
    EXPECT_EQ((Selection{{hand, 1}}), NextItem(outline, {{towers, -1}}, -1, 0));
    EXPECT_EQ((Selection{{0, -1}}), NextItem(outline, {{lost, 0}}, 1, 0)) << "the end leads to the beginning";
    EXPECT_EQ((Selection{{lost, 0}}), NextItem(outline, {{0, -1}}, -1, 0));
    EXPECT_EQ((Selection{{1, -1}}), NextItem(outline, {{0, -1}}, 1, 0)) << "of two that begin together";
    EXPECT_EQ((Selection{{towers, -1}}), NextItem(outline, {{flash, 0}, {hand, 1}}, 1, 0))
        << "the last of several leads on";
}

TEST(Selection, BeginsAtThePlayHead)
{
    const EditedScript script(EditedScript::Night());
    const Outline& outline = script.document.GetOutline();
    const size_t hand = script.Block("hand");
    EXPECT_EQ((Selection{{hand, 0}}), NextItem(outline, {}, 1, 5.0));
    EXPECT_EQ((Selection{{hand, 0}}), NextItem(outline, {}, 1, 6.0));
    EXPECT_EQ((Selection{{hand, 0}}), NextItem(outline, {}, -1, 9.0)) << "the one before";
    EXPECT_EQ((Selection{{0, -1}}), NextItem(outline, {}, 1, 55.0));
    EXPECT_TRUE(NextItem(Outline(), {}, 1, 0).empty());
}
