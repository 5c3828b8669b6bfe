// SPDX-License-Identifier: MIT
#include "tools/edit/TextChange.h"
#include "tools/edit/UndoStack.h"

#include <gtest/gtest.h>

#include <random>

using edit::TextChange;

TEST(TextChange, AppliesSeveralAndTakesThemBack)
{
    const std::string text = "one two three";
    const std::vector<TextChange> changes = {{0, "one", "1"}, {4, "", "a "}, {4, "two ", ""}, {13, "", "!"}};
    EXPECT_EQ("1 a three!", edit::Apply(text, changes));
    EXPECT_EQ(text, edit::Revert("1 a three!", changes));
    EXPECT_EQ(text, edit::Apply(text, {}));
}

TEST(TextChange, TheDifferenceIsByLineWhereTheLinesAreAsMany)
{
    const std::vector<TextChange> changes = edit::Difference("a\nb1\nc\nd1\ne\n", "a\nb22\nc\nd\ne\n");
    ASSERT_EQ(2u, changes.size());
    EXPECT_EQ(3u, changes[0].at);
    EXPECT_EQ("1\n", changes[0].removed);
    EXPECT_EQ("22\n", changes[0].inserted);
    EXPECT_EQ("d1", changes[1].removed);
    EXPECT_EQ("d", changes[1].inserted);
    EXPECT_EQ(1u, edit::Difference("a\nb\n", "a\nc\nd\n").size());
    EXPECT_TRUE(edit::Difference("a", "a").empty());
    EXPECT_TRUE(edit::Difference("", "").empty());
}

TEST(TextChange, TheDifferenceOfAnyTextsLeadsThereAndBack)
{
    std::mt19937 random(3);
    for (int i = 0; i < 3000; i++) {
        std::string texts[2];
        for (std::string& text : texts)
            for (size_t length = random() % 12; text.size() < length;)
                text += "ab\n"[random() % 3];
        const std::vector<TextChange> changes = edit::Difference(texts[0], texts[1]);
        ASSERT_EQ(texts[1], edit::Apply(texts[0], changes)) << texts[0] << "->" << texts[1];
        ASSERT_EQ(texts[0], edit::Revert(texts[1], changes)) << texts[0] << "->" << texts[1];
    }
}

TEST(UndoStack, GoesBackAndForthAndForgetsWhatWasUndone)
{
    edit::UndoStack undo;
    EXPECT_FALSE(undo.CanUndo());
    EXPECT_EQ("", undo.UndoName());
    EXPECT_EQ("x", undo.Undo("x"));
    undo.Add("First", "a", "b", 0);
    undo.Add("Second", "b", "c", 0);
    EXPECT_EQ("Second", undo.UndoName());
    EXPECT_EQ("", undo.RedoName());
    EXPECT_EQ("b", undo.Undo("c"));
    EXPECT_EQ("a", undo.Undo("b"));
    EXPECT_EQ("First", undo.RedoName());
    EXPECT_EQ("b", undo.Redo("a"));
    EXPECT_EQ("Second", undo.RedoName());
    undo.Add("Third", "b", "d", 0);
    EXPECT_FALSE(undo.CanRedo());
    EXPECT_EQ("d", undo.Redo("d"));
    EXPECT_EQ("b", undo.Undo("d"));
    undo.Clear();
    EXPECT_FALSE(undo.CanUndo() || undo.CanRedo());
}

TEST(UndoStack, JoinsTheStepsOfAGestureOnly)
{
    edit::UndoStack undo;
    undo.Add("Drag", "a", "b", 5);
    EXPECT_TRUE(undo.Continues(5));
    EXPECT_FALSE(undo.Continues(6));
    EXPECT_FALSE(undo.Continues(0));
    undo.Add("Drag", "a", "c", 5);
    EXPECT_EQ("a", undo.Undo("c"));
    EXPECT_FALSE(undo.Continues(5));
    EXPECT_FALSE(undo.CanUndo());
    undo.Redo("a");
    EXPECT_FALSE(undo.Continues(5));
    undo.Add("Drag", "c", "d", 5);
    undo.EndGesture();
    EXPECT_FALSE(undo.Continues(5));
    EXPECT_EQ("c", undo.Undo("d"));
    EXPECT_EQ("a", undo.Undo("c"));
}
