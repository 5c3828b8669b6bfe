// SPDX-License-Identifier: MIT
// Each edit on scripts that one can see as a whole. What it does to all kinds of scripts is in
// DocumentRandomTest.cpp, files are in ScriptFileTest.cpp and RecoveryFileTest.cpp.
#include "tools/edit/Document.h"

#include "tests/support/PlayedScript.h"

#include <gtest/gtest.h>

#include <fstream>

#include <unistd.h>

using edit::ItemId;

static const char* const night = "# A night #\n"
                                 "\n"
                                 "[MUSIC]\n"
                                 "FileName=waltz.ogg;\n"
                                 "\n"
                                 "[EFFECT]\n"
                                 "EffectName=WhiteFlashOverlay;\n"
                                 "StartTime=0;\n"
                                 "StopTime=20000;\n"
                                 "LayerID=9;\n"
                                 "\n"
                                 "# The clouds #\n"
                                 "[EFFECT]\n"
                                 "EffectName=FX_Clouds;  # a comment #\n"
                                 "StartTime = 1000 ;\n"
                                 "StopTime=11000;\n"
                                 "LayerID=1;\n"
                                 "\n"
                                 "[MESSAGE]\n"
                                 "MessageText=hand;\n"
                                 "ActivationTime=2000, 4000, 6000;\n"
                                 "TargetEffect=FX_Clouds;\n"
                                 "\n"
                                 "[MESSAGE]\n"
                                 "MessageText=flash;\n"
                                 "ActivationTime=3000;\n"
                                 "TargetEffect=WhiteFlashOverlay;\n"
                                 "Parameter=2.00;\n"
                                 "Steps=4;\n"
                                 "TimeDelta=500;\n";

// The blocks of the night.
enum { Music, White, Clouds, Hand, Flash };

static std::string Exchanged(std::string text, const std::string& what, const std::string& with)
{
    const size_t at = text.find(what);
    EXPECT_NE(std::string::npos, at) << what;
    EXPECT_EQ(std::string::npos, text.find(what, at + 1)) << what << " stands there twice";
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

class DocumentEdits : public testing::Test
{
protected:
    DocumentEdits() : path(testing::TempDir() + "marlinex-document-" + std::to_string(getpid())) {}
    ~DocumentEdits() override { unlink(path.c_str()); }

    void Open(const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
        std::string reason;
        ASSERT_TRUE(document.Open(path, &reason)) << reason;
        ASSERT_EQ(text, document.Text());
    }

    // The text is now this, and undo leads back to what it was.
    void ExpectNow(const std::string& before, const std::string& now)
    {
        EXPECT_EQ(now, document.Text());
        EXPECT_EQ("", document.LastRefusal());
        EXPECT_TRUE(document.Undo());
        EXPECT_EQ(before, document.Text());
        EXPECT_TRUE(document.Redo());
        EXPECT_EQ(now, document.Text());
    }

    void ExpectRefusal(const std::string& sentence)
    {
        EXPECT_EQ(sentence, document.LastRefusal());
        EXPECT_FALSE(document.CanUndo());
    }

    const std::string path;
    edit::Document document;
};

// ---- Move

TEST_F(DocumentEdits, MoveShiftsStartAndStopOfAnEntryAndNothingElse)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 250, 0));
    ExpectNow(night, Exchanged(Exchanged(night, "= 1000 ;", "= 1250 ;"), "=11000;", "=11250;"));
}

TEST_F(DocumentEdits, MoveShiftsOneTimeOfAListAndLeavesTheBlanks)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Hand, 1}}, -1500, 0));
    ExpectNow(night, Exchanged(night, "2000, 4000, 6000", "2000, 2500, 6000"));
}

TEST_F(DocumentEdits, MoveShiftsAStepsGroupByItsFirstTime)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Flash, 0}}, 100, 0));
    ExpectNow(night, Exchanged(night, "ActivationTime=3000;", "ActivationTime=3100;"));
}

TEST_F(DocumentEdits, MoveCutsTheShiftSoThatTheEarliestStaysAtZero)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}, {Hand, 0}}, -5000, 0));
    std::string now = Exchanged(night, "= 1000 ;", "= 0 ;");
    now = Exchanged(now, "=11000;", "=10000;");
    ExpectNow(night, Exchanged(now, "=2000, ", "=1000, "));
}

TEST_F(DocumentEdits, MoveCutsTheShiftWhereANumberEnds)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, INT64_MAX, 0));
    std::string now = Exchanged(night, "= 1000 ;", "= 2147473647 ;");
    ExpectNow(night, Exchanged(now, "=11000;", "=2147483647;"));
    EXPECT_TRUE(document.Move({{Clouds, -1}}, INT64_MIN, INT64_MIN));
    EXPECT_EQ(0u, document.GetOutline().blocks[Clouds].start);
    EXPECT_EQ(10000u, document.GetOutline().blocks[Clouds].stop);
    EXPECT_EQ(0u, document.GetOutline().blocks[Clouds].layer);
}

TEST_F(DocumentEdits, MoveShiftsLayersOfEntriesOnlyAndKeepsTheirDistance)
{
    Open(night);
    EXPECT_TRUE(document.Move({{White, -1}, {Clouds, -1}, {Hand, 2}}, 0, -4));
    ExpectNow(night, Exchanged(Exchanged(night, "LayerID=9;", "LayerID=8;"), "LayerID=1;", "LayerID=0;"));
}

TEST_F(DocumentEdits, MoveOfAWholeMessageBlockMovesAllItsTimes)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Hand, -1}, {Hand, 1}}, 1, 0));
    ExpectNow(night, Exchanged(night, "2000, 4000, 6000", "2001, 4001, 6001"));
}

TEST_F(DocumentEdits, MoveByNothingChangesNothingAndIsNoStep)
{
    Open(night);
    const uint64_t revision = document.Revision();
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 0, 0));
    EXPECT_EQ(night, document.Text());
    EXPECT_FALSE(document.CanUndo());
    EXPECT_EQ(revision, document.Revision());
    EXPECT_FALSE(document.IsModified());
}

TEST_F(DocumentEdits, MoveRefusesWhatIsNotThereOrHasNoTime)
{
    Open(night);
    EXPECT_FALSE(document.Move({}, 5, 0));
    ExpectRefusal("Nothing is selected.");
    EXPECT_FALSE(document.Move({{5, -1}}, 5, 0));
    ExpectRefusal("What was selected is no longer in the script.");
    EXPECT_FALSE(document.Move({{Hand, 3}}, 5, 0));
    ExpectRefusal("What was selected is no longer in the script.");
    EXPECT_FALSE(document.Move({{Music, -1}}, 5, 0));
    ExpectRefusal("Only entries and messages have a time.");
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, MoveRefusesANumberBelowZero)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=-5;\nStopTime=10;\nLayerID=1;\n");
    EXPECT_FALSE(document.Move({{0, -1}}, 5, 0));
    ExpectRefusal("StartTime of line 1 is below 0. Write it anew first.");
    EXPECT_TRUE(document.Move({{0, -1}}, 0, 1)) << "its layer is sound";
    EXPECT_TRUE(document.SetValue(0, "StartTime", "0"));
    EXPECT_TRUE(document.Move({{0, -1}}, 5, 0));
    EXPECT_EQ("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5;\nStopTime=15;\nLayerID=2;\n", document.Text());
}

TEST_F(DocumentEdits, MoveKeepsACommentInsideAValue)
{
    Open("[EFFECT]\r\nEffectName=FX_Clouds;\r\nStartTime=5#five#0#0#;\r\nStopTime=900;\r\nLayerID=1;\r\n");
    EXPECT_EQ(50u, document.GetOutline().blocks[0].start);
    EXPECT_TRUE(document.Move({{0, -1}}, 50, 0));
    EXPECT_EQ(
        "[EFFECT]\r\nEffectName=FX_Clouds;\r\nStartTime=100#five##0#;\r\nStopTime=950;\r\nLayerID=1;\r\n",
        document.Text());
}

// ---- Gestures

TEST_F(DocumentEdits, AGestureIsOneStepAndCountsFromWhereItBegan)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 100, 0, 7));
    EXPECT_TRUE(document.Move({{Clouds, -1}}, -5000, 2, 7)) << "cut at 0";
    EXPECT_EQ(0u, document.GetOutline().blocks[Clouds].start);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 300, 1, 7)) << "and back";
    std::string now = Exchanged(night, "= 1000 ;", "= 1300 ;");
    now = Exchanged(now, "=11000;", "=11300;");
    now = Exchanged(now, "LayerID=1;", "LayerID=2;");
    ExpectNow(night, now);
    EXPECT_TRUE(document.Undo());
    EXPECT_FALSE(document.CanUndo());
}

TEST_F(DocumentEdits, AGestureThatLeadsBackLeavesNoStep)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 100, 0, 7));
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 0, 0, 7));
    EXPECT_EQ(night, document.Text());
    EXPECT_FALSE(document.CanUndo());
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 50, 0, 7)) << "goes on";
    EXPECT_EQ(1050u, document.GetOutline().blocks[Clouds].start);
}

TEST_F(DocumentEdits, AnotherGestureIsAStepOfItsOwn)
{
    Open(night);
    document.Move({{Clouds, -1}}, 100, 0, 7);
    document.Move({{Clouds, -1}}, 100, 0, 8);
    EXPECT_EQ(1200u, document.GetOutline().blocks[Clouds].start);
    document.Move({{Clouds, -1}}, 100, 0);
    document.Move({{Clouds, -1}}, 100, 0);
    EXPECT_EQ(1400u, document.GetOutline().blocks[Clouds].start);
    for (const uint32_t start : {1300u, 1200u, 1100u, 1000u}) {
        EXPECT_TRUE(document.Undo());
        EXPECT_EQ(start, document.GetOutline().blocks[Clouds].start);
    }
    EXPECT_FALSE(document.Undo());
}

TEST_F(DocumentEdits, UndoEndsAGesture)
{
    Open(night);
    document.Move({{Clouds, -1}}, 100, 0, 7);
    document.Undo();
    document.Redo();
    document.Move({{Clouds, -1}}, 100, 0, 7);
    EXPECT_EQ(1200u, document.GetOutline().blocks[Clouds].start);
    document.Undo();
    EXPECT_EQ(1100u, document.GetOutline().blocks[Clouds].start);
}

// ---- Stretch

TEST_F(DocumentEdits, StretchMovesOneEdgeOfEntries)
{
    Open(night);
    EXPECT_TRUE(document.Stretch({{Clouds, -1}, {White, -1}}, true, 500));
    std::string now = Exchanged(Exchanged(night, "=11000;", "=11500;"), "=20000;", "=20500;");
    ExpectNow(night, now);
    EXPECT_TRUE(document.Stretch({{Clouds, -1}}, false, -200));
    ExpectNow(now, Exchanged(now, "= 1000 ;", "= 800 ;"));
}

TEST_F(DocumentEdits, StretchLeavesAMillisecondOfTheShortestEntry)
{
    Open(night);
    EXPECT_TRUE(document.Stretch({{Clouds, -1}, {White, -1}}, true, -15000));
    EXPECT_EQ(1001u, document.GetOutline().blocks[Clouds].stop);
    EXPECT_EQ(10001u, document.GetOutline().blocks[White].stop) << "by the same";
    document.Undo();
    EXPECT_TRUE(document.Stretch({{Clouds, -1}}, false, 15000));
    EXPECT_EQ(10999u, document.GetOutline().blocks[Clouds].start);
}

TEST_F(DocumentEdits, StretchOfAGroupSpreadsItsDistances)
{
    Open(night); // 3000, 3500, 4000, 4500
    EXPECT_TRUE(document.Stretch({{Flash, 0}}, true, 601));
    ExpectNow(night, Exchanged(night, "TimeDelta=500;", "TimeDelta=700;"));
    document.Undo();
    EXPECT_TRUE(document.Stretch({{Flash, 0}}, false, 600)); // the last one stays at 4500
    std::string now = Exchanged(night, "ActivationTime=3000;", "ActivationTime=3600;");
    ExpectNow(night, Exchanged(now, "TimeDelta=500;", "TimeDelta=300;"));
    document.Undo();
    EXPECT_TRUE(document.Stretch({{Flash, 0}}, true, -9000));
    EXPECT_EQ(1u, document.GetOutline().blocks[Flash].delta);
    document.Undo();
    EXPECT_TRUE(document.Stretch({{Flash, 0}}, false, -9000)) << "the first one stays at 0";
    EXPECT_EQ(1500u, document.GetOutline().blocks[Flash].delta);
    EXPECT_EQ(0u, document.GetOutline().blocks[Flash].times[0].milliseconds);
}

TEST_F(DocumentEdits, StretchRefusesWhatHasNoLength)
{
    Open(night);
    EXPECT_FALSE(document.Stretch({{Hand, 0}}, true, 100));
    ExpectRefusal("Only entries and Steps groups have a length.");
    EXPECT_TRUE(document.Stretch({{Hand, 0}, {Clouds, -1}}, true, 100)) << "beside an entry it stays";
    EXPECT_EQ(Exchanged(night, "=11000;", "=11100;"), document.Text());
}

// ---- Values

TEST_F(DocumentEdits, SetTimeMovesAnEntryWithItsLength)
{
    Open(night);
    EXPECT_TRUE(document.SetTime({Clouds, -1}, 1800));
    ExpectNow(night, Exchanged(Exchanged(night, "= 1000 ;", "= 1800 ;"), "=11000;", "=11800;"));
    document.Undo();
    EXPECT_TRUE(document.SetTime({Hand, 2}, 0));
    ExpectNow(night, Exchanged(night, " 6000;", " 0;"));
    document.Undo();
    EXPECT_FALSE(document.SetTime({Clouds, -1}, 2147483647));
    EXPECT_EQ("Times go from 0 to 2147483647 ms.", document.LastRefusal());
    EXPECT_FALSE(document.SetTime({Hand, 0}, 2147483648u));
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, SetValueWritesParametersSoThatTheReaderMissesNothing)
{
    Open(night);
    EXPECT_TRUE(document.SetValue(Flash, "Parameter", "2.5"));
    ExpectNow(night, Exchanged(night, "Parameter=2.00;", "Parameter=2.50;"));
    EXPECT_EQ(std::vector<float>({2.5f}), document.GetOutline().blocks[Flash].parameters);
    EXPECT_TRUE(document.SetValue(Flash, "Parameter", "1.25 , -12"));
    EXPECT_EQ(Exchanged(night, "Parameter=2.00;", "Parameter=1.25,-12.00;"), document.Text());
    EXPECT_EQ(std::vector<float>({1.25f, -12.0f}), document.GetOutline().blocks[Flash].parameters);
}

TEST_F(DocumentEdits, SetValueAddsAMissingKeyBehindTheLastOne)
{
    Open(night);
    EXPECT_TRUE(document.SetValue(Hand, "Parameter", "7"));
    ExpectNow(night,
              Exchanged(night, "TargetEffect=FX_Clouds;\n", "TargetEffect=FX_Clouds;\nParameter=7.00;\n"));
}

TEST_F(DocumentEdits, SetValueAddsAKeyInTheLayoutOfItsBlock)
{
    Open("[EFFECT] EffectName=FX_Clouds; StartTime=5; StopTime=9; # soon #\r\n");
    EXPECT_FALSE(document.GetOutline().blocks[0].complete);
    EXPECT_TRUE(document.SetValue(0, "LayerID", "3"));
    EXPECT_EQ("[EFFECT] EffectName=FX_Clouds; StartTime=5; StopTime=9; # soon # LayerID=3;\r\n",
              document.Text());
    EXPECT_TRUE(document.GetOutline().blocks[0].complete);
}

TEST_F(DocumentEdits, SetValueFinishesAnEntryThatLacksItsSemicolon)
{
    const std::string text =
        "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5;\nStopTime=9;\nLayerID=1 # here #\n";
    Open(text);
    EXPECT_TRUE(document.SetValue(0, "LayerID", "3"));
    EXPECT_EQ(Exchanged(text, "LayerID=1 ", "LayerID=3; "), document.Text());
    document.Undo();
    EXPECT_TRUE(document.SetValue(0, "StopTime", "10")) << "beside it";
    EXPECT_EQ(Exchanged(text, "=9;", "=10;"), document.Text());
}

TEST_F(DocumentEdits, SetValueAddsAKeyAheadOfAnEntryThatLacksItsSemicolon)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5;\nLayerID=1\n\n[MUSIC]\nFileName=a.ogg\n");
    EXPECT_TRUE(document.SetValue(0, "StopTime", "9"));
    EXPECT_EQ(
        "[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5;\nStopTime=9;\nLayerID=1\n\n[MUSIC]\nFileName=a.ogg\n",
        document.Text());
    EXPECT_TRUE(document.SetValue(1, "FileName", "b.ogg")) << "here alone it counts without a ;";
    EXPECT_EQ("b.ogg", document.GetOutline().blocks[1].fileName);
    EXPECT_NE(std::string::npos, document.Text().find("FileName=b.ogg\n"));
}

TEST_F(DocumentEdits, SetValueGivesAKeyWithoutAnEqualsItsValue)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime;\nStop=Time;\nLayerID = #none# ;\n");
    EXPECT_TRUE(document.SetValue(0, "StartTime", "100"));
    EXPECT_TRUE(document.SetValue(0, "StopTime", "200"));
    EXPECT_TRUE(document.SetValue(0, "LayerID", "3"));
    EXPECT_EQ("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=100;\nStop=Time=200;\nLayerID = #none# 3;\n",
              document.Text());
    EXPECT_EQ(std::vector<std::string>({"FX_Clouds 0.100000001..0.200000003 on 3"}),
              Play(document.Text()).entries);
}

TEST_F(DocumentEdits, SetValueChangesTheFirstOfRepeatedKeys)
{
    Open("[MUSIC]\nFileName=a.ogg;\nFileName=b.ogg;\n");
    EXPECT_TRUE(document.SetValue(0, "FileName", "c.ogg"));
    EXPECT_EQ("[MUSIC]\nFileName=c.ogg;\nFileName=b.ogg;\n", document.Text());
}

TEST_F(DocumentEdits, SetValueOfNothingRemovesAnOptionalKeyWithItsLine)
{
    Open(night);
    EXPECT_TRUE(document.SetValue(Flash, "Parameter", " "));
    ExpectNow(night, Exchanged(night, "Parameter=2.00;\n", ""));
    document.Undo();
    EXPECT_FALSE(document.SetValue(Flash, "TargetEffect", ""));
    ExpectRefusal("TargetEffect has no value.");
    EXPECT_TRUE(document.SetValue(Hand, "Parameter", "")) << "which it does not have";
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, SetValueRefusesWhatTheKeyCantHold)
{
    Open(night);
    const struct {
        size_t block;
        const char *key, *value, *sentence;
    } rows[] = {
        {Clouds, "StartTime", "-1", "StartTime is a whole number from 0 to 2147483647."},
        {Clouds, "StopTime", "1.5", "StopTime is a whole number from 0 to 2147483647."},
        {Clouds, "StopTime", "2147483648", "StopTime is a whole number from 0 to 2147483647."},
        {Clouds, "LayerID", "1,2", "LayerID is a whole number from 0 to 2147483647."},
        {Clouds, "LayerID", "99999999999999999999", "LayerID is a whole number from 0 to 2147483647."},
        {Clouds, "Parameter", "1", "[EFFECT] has no key Parameter."},
        {Hand, "ActivationTime", "1000,x", "ActivationTime is a list of whole numbers from 0 to 2147483647."},
        {Hand, "ActivationTime", "1000,,2000",
         "ActivationTime is a list of whole numbers from 0 to 2147483647."},
        {Flash, "Parameter", "two",
         "Parameter is a list of numbers, with a point if they are no whole ones."},
        {Flash, "Parameter", "1.2.3",
         "Parameter is a list of numbers, with a point if they are no whole ones."},
        {Flash, "Parameter", "nan",
         "Parameter is a list of numbers, with a point if they are no whole ones."},
        {Flash, "Steps", "20001", "Steps is at most 20000."},
        {Music, "FileName", "my tune.ogg",
         "A value can hold letters a to z and A to Z, digits, and . , _ - only."},
        {Music, "FileName", "a;[EFFECT]",
         "A value can hold letters a to z and A to Z, digits, and . , _ - only."},
        {Music, "FileName", "a#b", "A value can hold letters a to z and A to Z, digits, and . , _ - only."},
        {7, "FileName", "a", "That block is no longer in the script."},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(document.SetValue(row.block, row.key, row.value)) << row.value;
        EXPECT_EQ(row.sentence, document.LastRefusal());
    }
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, SetValueRefusesAnEntryThatRunsOnIntoTheNext)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5\nStopTime=9;\nLayerID=1;\n");
    EXPECT_FALSE(document.SetValue(0, "StartTime", "7"));
    ExpectRefusal("A ; is missing behind StartTime in the block of line 1.");
}

// ---- Duplicate and delete

TEST_F(DocumentEdits, DuplicatePutsABlockBehindItsOriginal)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Clouds + 1, -1}}), document.Duplicate({{Clouds, -1}}, 10000));
    ExpectNow(night, Exchanged(night, "LayerID=1;\n",
                               "LayerID=1;\n"
                               "\n"
                               "[EFFECT]\n"
                               "EffectName=FX_Clouds;  # a comment #\n"
                               "StartTime = 11000 ;\n"
                               "StopTime=21000;\n"
                               "LayerID=1;\n"));
}

TEST_F(DocumentEdits, DuplicateAddsTimesToAListInTheirOrder)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Hand, 1}, {Hand, 3}}), document.Duplicate({{Hand, 1}, {Hand, 0}}, 1000));
    ExpectNow(night, Exchanged(night, "2000, 4000, 6000", "2000, 3000, 4000, 5000, 6000"));
}

TEST_F(DocumentEdits, DuplicateCutsTheShiftForAllAlike)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Clouds + 1, -1}, {Hand + 1, 0}}),
              document.Duplicate({{Hand, 0}, {Clouds, -1}}, -9000));
    EXPECT_EQ(0u, document.GetOutline().blocks[Clouds + 1].start);
    EXPECT_EQ(1000u, document.GetOutline().blocks[Hand + 1].times[0].milliseconds);
    EXPECT_NE(std::string::npos, document.Text().find("=1000, 2000, 4000, 6000;"));
}

TEST_F(DocumentEdits, DuplicateShiftsLayersOfEntriesAsOneStepAndKeepsTheirDistance)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=0;\nStopTime=10;\nLayerID=2;\n"
         "[EFFECT]\nEffectName=FX_Towers;\nStartTime=0;\nStopTime=10;\nLayerID=7;\n"
         "[MESSAGE]\nMessageText=hand;\nActivationTime=5;\nTargetEffect=FX_Clouds;\n");
    const std::string before = document.Text();
    const auto layersOfCopies = [&](int64_t layers) {
        const std::vector<ItemId> copies = document.Duplicate({{0, -1}, {1, -1}, {2, 0}}, 100, layers);
        std::vector<uint32_t> found;
        for (const ItemId copy : copies)
            if (document.GetOutline().blocks[copy.block].type == BlockEffect)
                found.push_back(document.GetOutline().blocks[copy.block].layer);
        EXPECT_EQ(3u, copies.size());
        EXPECT_TRUE(document.Undo());
        EXPECT_EQ(before, document.Text());
        return found;
    };
    EXPECT_EQ((std::vector<uint32_t>{5, 10}), layersOfCopies(3));
    EXPECT_EQ((std::vector<uint32_t>{0, 5}), layersOfCopies(-4)) << "none goes below 0";
    EXPECT_EQ((std::vector<uint32_t>{2147483642, 2147483647}), layersOfCopies(INT64_C(3000000000)));
    EXPECT_EQ((std::vector<uint32_t>{2, 7}), layersOfCopies(0));
}

TEST_F(DocumentEdits, DuplicateOfAGroupIsAGroup)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Flash + 1, 0}}), document.Duplicate({{Flash, 0}}, 4000));
    ExpectNow(night, std::string(night) + "\n"
                                          "[MESSAGE]\n"
                                          "MessageText=flash;\n"
                                          "ActivationTime=7000;\n"
                                          "TargetEffect=WhiteFlashOverlay;\n"
                                          "Parameter=2.00;\n"
                                          "Steps=4;\n"
                                          "TimeDelta=500;\n");
    document.Undo();
    EXPECT_EQ(std::vector<ItemId>(), document.Duplicate({{Music, -1}}, 0));
    EXPECT_EQ("A script has a single MUSIC only.", document.LastRefusal());
}

TEST_F(DocumentEdits, DeleteTakesABlockWithItsLinesAndTheGapBehindIt)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{White, -1}}));
    ExpectNow(
        night,
        Exchanged(night,
                  "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=0;\nStopTime=20000;\nLayerID=9;\n\n",
                  ""));
}

TEST_F(DocumentEdits, DeleteLeavesTheCommentAheadOfABlockAndItsGap)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{Clouds, -1}}));
    ExpectNow(night, Exchanged(night,
                               "[EFFECT]\nEffectName=FX_Clouds;  # a comment #\nStartTime = 1000 ;\n"
                               "StopTime=11000;\nLayerID=1;\n",
                               ""));
}

TEST_F(DocumentEdits, DeleteOfTheLastBlockTakesTheGapAheadOfIt)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{Flash, 0}}));
    const std::string text = night;
    ExpectNow(night, text.substr(0, text.find("\n[MESSAGE]\nMessageText=flash")));
}

TEST_F(DocumentEdits, DeleteTakesTimesOutOfAList)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{Hand, 0}}));
    ExpectNow(night, Exchanged(night, "=2000, 4000, 6000;", "=4000, 6000;"));
    document.Undo();
    EXPECT_TRUE(document.Delete({{Hand, 1}, {Hand, 2}}));
    ExpectNow(night, Exchanged(night, "=2000, 4000, 6000;", "=2000;"));
    document.Undo();
    EXPECT_TRUE(document.Delete({{Hand, 0}, {Hand, 2}}));
    ExpectNow(night, Exchanged(night, "=2000, 4000, 6000;", "=4000;"));
    document.Undo();
    EXPECT_TRUE(document.Delete({{Hand, 0}, {Hand, 1}, {Hand, 2}}));
    ExpectNow(night, Exchanged(night,
                               "[MESSAGE]\nMessageText=hand;\nActivationTime=2000, 4000, 6000;\n"
                               "TargetEffect=FX_Clouds;\n\n",
                               ""));
}

TEST_F(DocumentEdits, DeleteOfAllBlocksLeavesTheComments)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{0, -1}, {1, -1}, {2, -1}, {3, -1}, {4, -1}}));
    EXPECT_TRUE(document.GetOutline().blocks.empty());
    EXPECT_NE(std::string::npos, document.Text().find("# A night #"));
    EXPECT_NE(std::string::npos, document.Text().find("# The clouds #"));
    EXPECT_EQ(std::string::npos, document.Text().find("# a comment #")) << "which was in a block";
    document.Undo();
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, DeleteDoesNotWakeAStepsThatAListKeptAsleep)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=10,20;\nSteps=5;\nTargetEffect=FX_Clouds;\nTimeDelta="
         "9;\n");
    EXPECT_TRUE(document.Delete({{0, 0}}));
    EXPECT_EQ("[MESSAGE]\nMessageText=hand;\nActivationTime=20;\nTargetEffect=FX_Clouds;\n", document.Text());
    EXPECT_EQ(std::vector<std::string>({"FX_Clouds hand at 0.0199999996"}), Play(document.Text()).messages);
}

TEST_F(DocumentEdits, ACommentInAListSurvivesTheDeletionBesideIt)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=10, # two # 20, # three # "
         "30;\nTargetEffect=FX_Clouds;\n");
    EXPECT_TRUE(document.Delete({{0, 1}}));
    EXPECT_EQ(
        "[MESSAGE]\nMessageText=hand;\nActivationTime=10, # two # # three #30;\nTargetEffect=FX_Clouds;\n",
        document.Text());
}

// ---- Copy and paste

TEST_F(DocumentEdits, CopyGivesBlocksAndOfAListTheTimesThatAreSelected)
{
    Open(night);
    EXPECT_EQ(
        "[EFFECT]\nEffectName=FX_Clouds;  # a comment #\nStartTime = 1000 ;\nStopTime=11000;\nLayerID=1;\n\n"
        "[MESSAGE]\nMessageText=hand;\nActivationTime=2000, 6000;\nTargetEffect=FX_Clouds;\n",
        document.Copy({{Hand, 2}, {Clouds, -1}, {Hand, 0}}));
    EXPECT_EQ("", document.Copy({{9, -1}}));
    EXPECT_EQ("", document.Copy({}));
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, PasteShiftsEverythingToThePlaceAndKeepsItTogether)
{
    Open(night);
    const std::string copy = document.Copy({{Hand, 2}, {Clouds, -1}});
    EXPECT_EQ(std::vector<ItemId>({{5, -1}, {6, 0}}), document.Paste(copy, 30000));
    ExpectNow(
        night,
        std::string(night) +
            "\n[EFFECT]\nEffectName=FX_Clouds;  # a comment #\nStartTime = 30000 ;\nStopTime=40000;\n"
            "LayerID=1;\n\n[MESSAGE]\nMessageText=hand;\nActivationTime=35000;\nTargetEffect=FX_Clouds;\n");
}

TEST_F(DocumentEdits, PasteOfMessagesPutsEachToItsEffect)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Hand + 1, 0}}), document.Paste(document.Copy({{Hand, 1}}), 9000));
    ExpectNow(night,
              Exchanged(night, "TargetEffect=FX_Clouds;\n",
                        "TargetEffect=FX_Clouds;\n\n[MESSAGE]\nMessageText=hand;\nActivationTime=9000;\n"
                        "TargetEffect=FX_Clouds;\n"));
}

TEST_F(DocumentEdits, PasteTakesTheLineEndsOfTheScript)
{
    Open("[EFFECT]\r\nEffectName=FX_Clouds;\r\nStartTime=0;\r\nStopTime=9;\r\nLayerID=1;\r\n");
    EXPECT_EQ(
        1u,
        document.Paste("# junk # [MESSAGE]\nMessageText=hand;\nActivationTime=7;\nTargetEffect=FX_Clouds;", 3)
            .size());
    EXPECT_EQ("[EFFECT]\r\nEffectName=FX_Clouds;\r\nStartTime=0;\r\nStopTime=9;\r\nLayerID=1;\r\n\r\n"
              "[MESSAGE]\r\nMessageText=hand;\r\nActivationTime=3;\r\nTargetEffect=FX_Clouds;\r\n",
              document.Text());
}

TEST_F(DocumentEdits, PasteRefusesWhatHoldsNoBlocks)
{
    Open(night);
    for (const char* text : {"", "hello", "[MUSIC]\nFileName=a.ogg;", "junk [EFFECT] StartTime=0;", "#"}) {
        EXPECT_TRUE(document.Paste(text, 100).empty()) << text;
        ExpectRefusal("What was copied holds no entries and no messages.");
    }
    EXPECT_TRUE(document.Paste(document.Copy({{Clouds, -1}}), 2147483648u).empty());
    ExpectRefusal("Times go from 0 to 2147483647 ms.");
}

// ---- New blocks

TEST_F(DocumentEdits, ANewEntryStandsBehindTheMessagesOfTheEntryAheadOfIt)
{
    Open(night);
    EXPECT_EQ(ItemId({Flash + 1, -1}), document.InsertEntry("FX_Path", 11000, 20000, 1));
    ExpectNow(night, std::string(night) +
                         "\n[EFFECT]\nEffectName=FX_Path;\nStartTime=11000;\nStopTime=20000;\nLayerID=1;\n");
    document.Undo();
    EXPECT_EQ(ItemId({White + 1, -1}), document.InsertEntry("FX_Path", 500, 900, 1)) << "ahead of the clouds";
    ExpectNow(night, Exchanged(night, "LayerID=9;\n",
                               "LayerID=9;\n\n[EFFECT]\nEffectName=FX_Path;\nStartTime=500;\nStopTime=900;\n"
                               "LayerID=1;\n"));
}

TEST_F(DocumentEdits, ANewEntryOfAnEmptyScriptIsTheWholeScript)
{
    Open("");
    EXPECT_EQ(ItemId({0, -1}), document.InsertEntry("FX_Path", 0, 10, 1));
    ExpectNow("", "[EFFECT]\nEffectName=FX_Path;\nStartTime=0;\nStopTime=10;\nLayerID=1;\n");
    Open("# notes #\r\n# more #");
    EXPECT_EQ(ItemId({0, 0}), document.InsertMessage("FX_Clouds", "hand", 5, ""));
    EXPECT_EQ("# notes #\r\n# more #\r\n\r\n[MESSAGE]\r\nMessageText=hand;\r\nActivationTime=5;\r\n"
              "TargetEffect=FX_Clouds;\r\n",
              document.Text());
}

TEST_F(DocumentEdits, ANewMessageStandsBehindTheLastEarlierBlockOfItsEffect)
{
    Open(night);
    EXPECT_EQ(ItemId({Hand + 1, 0}), document.InsertMessage("FX_Clouds", "blend", 5000, ""));
    ExpectNow(night,
              Exchanged(night, "TargetEffect=FX_Clouds;\n",
                        "TargetEffect=FX_Clouds;\n\n[MESSAGE]\nMessageText=blend;\nActivationTime=5000;\n"
                        "TargetEffect=FX_Clouds;\n"));
    document.Undo();
    EXPECT_EQ(ItemId({Clouds + 1, 0}), document.InsertMessage("FX_Clouds", "blend", 1500, ""));
    document.Undo();
    EXPECT_EQ(ItemId({Flash + 1, 0}), document.InsertMessage("WhiteFlashOverlay", "flash", 9000, "6"));
    ExpectNow(night, std::string(night) + "\n[MESSAGE]\nMessageText=flash;\nActivationTime=9000;\n"
                                          "TargetEffect=WhiteFlashOverlay;\nParameter=6.00;\n");
}

TEST_F(DocumentEdits, ANewBlockTakesTheLayoutAroundIt)
{
    Open("[EFFECT] EffectName=FX_Clouds; StartTime=0; StopTime=9; LayerID=1; # clouds #\r\n"
         "[EFFECT] EffectName=FX_Path; StartTime=9; StopTime=99; LayerID=1;\r\n"
         "[MESSAGE] MessageText=tree1; ActivationTime=20; TargetEffect=FX_Path;\r\n");
    EXPECT_TRUE(document.InsertMessage("FX_Clouds", "hand", 5, ""));
    EXPECT_TRUE(document.InsertMessage("FX_Path", "tree2", 30, ""));
    EXPECT_EQ("[EFFECT] EffectName=FX_Clouds; StartTime=0; StopTime=9; LayerID=1; # clouds #\r\n"
              "[MESSAGE] MessageText=hand; ActivationTime=5; TargetEffect=FX_Clouds;\r\n"
              "[EFFECT] EffectName=FX_Path; StartTime=9; StopTime=99; LayerID=1;\r\n"
              "[MESSAGE] MessageText=tree1; ActivationTime=20; TargetEffect=FX_Path;\r\n"
              "[MESSAGE] MessageText=tree2; ActivationTime=30; TargetEffect=FX_Path;\r\n",
              document.Text());
}

TEST_F(DocumentEdits, NewItemsAreRefusedWithWords)
{
    Open(night);
    EXPECT_FALSE(document.InsertEntry("FX_Nothing", 0, 10, 1));
    ExpectRefusal("There is no effect \"FX_Nothing\".");
    EXPECT_FALSE(document.InsertEntry("FX_Path", 10, 10, 1));
    ExpectRefusal("An entry stops behind its start, and its numbers go up to 2147483647.");
    EXPECT_FALSE(document.InsertEntry("FX_Path", 0, 2147483648u, 1));
    EXPECT_FALSE(document.InsertMessage("FX_Path", "hand", 0, ""));
    ExpectRefusal("FX_Path has no message \"hand\".");
    EXPECT_FALSE(document.InsertMessage("FX_Clouds", "hand", 0, "x"));
    ExpectRefusal("Parameter is a list of numbers, with a point if they are no whole ones.");
    EXPECT_FALSE(document.InsertMessage("FX_Clouds", "hand", 4000000000u, ""));
    EXPECT_EQ(night, document.Text());
}

TEST_F(DocumentEdits, NothingCanBeAddedBehindAnOpenComment)
{
    Open("# a comment that nobody closes\n");
    EXPECT_FALSE(document.InsertEntry("FX_Path", 0, 10, 1));
    ExpectRefusal(
        "The show would not read this as it is meant: something around it is written in an odd way.");
    Open("junk [EFFECT] EffectName=FX_Clouds;");
    EXPECT_FALSE(document.InsertEntry("FX_Path", 0, 10, 1));
}

TEST_F(DocumentEdits, AddTimeGoesWhereTheTimeBelongs)
{
    Open(night);
    EXPECT_EQ(ItemId({Hand, 2}), document.AddTime(Hand, 5000));
    ExpectNow(night, Exchanged(night, "4000, 6000", "4000, 5000, 6000"));
    EXPECT_EQ(ItemId({Hand, 0}), document.AddTime(Hand, 1));
    EXPECT_EQ(ItemId({Hand, 5}), document.AddTime(Hand, 9000));
    EXPECT_EQ(Exchanged(night, "2000, 4000, 6000", "1, 2000, 4000, 5000, 6000, 9000"), document.Text());
    EXPECT_FALSE(document.AddTime(Flash, 1));
    EXPECT_EQ("With Steps, the message of line 24 can have a single time only.", document.LastRefusal());
    EXPECT_FALSE(document.AddTime(Clouds, 1));
    EXPECT_EQ("That is no message.", document.LastRefusal());
}

TEST_F(DocumentEdits, AddTimeGoesToTheEndOfAListWithoutOrder)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=30,10,;\nTargetEffect=FX_Clouds;\n");
    EXPECT_EQ(ItemId({0, 2}), document.AddTime(0, 20));
    EXPECT_EQ("[MESSAGE]\nMessageText=hand;\nActivationTime=30,10,20,;\nTargetEffect=FX_Clouds;\n",
              document.Text());
    EXPECT_EQ(3u, Play(document.Text()).messages.size());
}

TEST_F(DocumentEdits, TakeApartWritesTheTimesOfAGroupOut)
{
    Open(night);
    EXPECT_TRUE(document.TakeApart(Flash));
    std::string now = Exchanged(night, "ActivationTime=3000;", "ActivationTime=3000,3500,4000,4500;");
    ExpectNow(night, Exchanged(now, "Steps=4;\nTimeDelta=500;\n", ""));
    EXPECT_EQ(Play(night), Play(document.Text()));
    EXPECT_FALSE(document.TakeApart(Flash));
    EXPECT_EQ("That is no Steps group.", document.LastRefusal());
    EXPECT_FALSE(document.TakeApart(99));
}

TEST_F(DocumentEdits, TakeApartRefusesTooManyAndWhatLiesBelowZero)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=10;\nTargetEffect=FX_Clouds;\nSteps=1001;\nTimeDelta="
         "1;\n");
    EXPECT_FALSE(document.TakeApart(0));
    ExpectRefusal("These are 1001 messages; up to 1000 can be written out.");
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=10;\nTargetEffect=FX_Clouds;\nSteps=3;\nTimeDelta=-6;"
         "\n");
    EXPECT_FALSE(document.TakeApart(0));
    ExpectRefusal("Some of these messages lie below 0, which a list of times can't say.");
}

// ---- Music and colours

TEST_F(DocumentEdits, SetMusicChangesAddsAndRemovesTheBlock)
{
    Open(night);
    EXPECT_TRUE(document.SetMusic("other.flac"));
    ExpectNow(night, Exchanged(night, "waltz.ogg", "other.flac"));
    document.Undo();
    EXPECT_TRUE(document.SetMusic(""));
    const std::string silent = Exchanged(night, "[MUSIC]\nFileName=waltz.ogg;\n\n", "");
    ExpectNow(night, silent);
    EXPECT_TRUE(document.SetMusic("waltz.ogg"));
    EXPECT_EQ(night, document.Text());
    EXPECT_FALSE(document.SetMusic("a b"));
}

TEST_F(DocumentEdits, SetMusicChangesTheBlockThatCounts)
{
    Open("[MUSIC]\nFileName=a.ogg;\n[MUSIC]\nFileName=b.ogg;\n[MUSIC]\nFileName=;\n");
    EXPECT_TRUE(document.SetMusic("c.ogg"));
    EXPECT_EQ("[MUSIC]\nFileName=a.ogg;\n[MUSIC]\nFileName=c.ogg;\n[MUSIC]\nFileName=;\n", document.Text());
}

TEST_F(DocumentEdits, SetColorSchemeWritesOnlyTheColoursThatChange)
{
    Open(night);
    const ColorScheme scheme = {{1, 0.5f, 0}, {0, 0, 1}, {2, -1, 0.25f}};
    EXPECT_TRUE(document.SetColorScheme(scheme));
    const std::string now = Exchanged(night, "FileName=waltz.ogg;\n",
                                      "FileName=waltz.ogg;\n\n[COLORSCHEME]\nGlobalColor=255,128,0;\n"
                                      "SupportColor=0,0,255;\nFlowColor=255,0,64;\n");
    ExpectNow(night, now);
    document.SetColorScheme({{1, 128 / 255.0f, 0}, {0, 1, 1}, {1, 0, 64 / 255.0f}});
    EXPECT_EQ(Exchanged(now, "SupportColor=0,0,255;", "SupportColor=0,255,255;"), document.Text());
    Open("[COLORSCHEME]\nGlobalColor=300,7;\nFlowColor=1,2,3;\n");
    EXPECT_TRUE(document.SetColorScheme({{300 / 255.0f, 7 / 255.0f, 0}, {0, 0, 1}, {0, 0, 0}}));
    EXPECT_EQ("[COLORSCHEME]\nGlobalColor=300,7;\nFlowColor=0,0,0;\nSupportColor=0,0,255;\n",
              document.Text());
    EXPECT_EQ("0 0 1", Play(document.Text()).colours[1]);
}

// ---- The outline's way back

TEST_F(DocumentEdits, AnItemIsFoundByThePlaceThatTheLinterTells)
{
    Open(night);
    const lint::Report report = lint::CheckText(document.Text(), "", {});
    ItemId item;
    ASSERT_EQ(2u, report.show.entries.size());
    EXPECT_TRUE(
        document.GetOutline().FindItem(report.show.entries[1].line, report.show.entries[1].column, &item));
    EXPECT_EQ(ItemId({Clouds, -1}), item);
    std::vector<ItemId> found;
    for (const lint::SentMessage& message : report.show.messages) {
        EXPECT_TRUE(document.GetOutline().FindItem(message.line, message.column, &item));
        EXPECT_EQ(int(message.block), document.GetOutline().blocks[item.block].messageBlock);
        found.push_back(item);
    }
    EXPECT_EQ(std::vector<ItemId>(
                  {{Hand, 0}, {Flash, 0}, {Flash, 0}, {Hand, 1}, {Flash, 0}, {Flash, 0}, {Hand, 2}}),
              found);
    EXPECT_FALSE(document.GetOutline().FindItem(1, 1, &item));
}
