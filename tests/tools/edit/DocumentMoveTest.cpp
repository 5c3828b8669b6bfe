// SPDX-License-Identifier: MIT
// What it does to all kinds of scripts is in DocumentRandomTest.cpp.
#include "tests/tools/edit/DocumentFixture.h"

class DocumentMove : public DocumentFixture
{
};

// ---- Move

TEST_F(DocumentMove, MoveShiftsStartAndStopOfAnEntryAndNothingElse)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 250, 0));
    ExpectNow(night, Exchanged(Exchanged(night, "= 1000 ;", "= 1250 ;"), "=11000;", "=11250;"));
}

TEST_F(DocumentMove, MoveShiftsOneTimeOfAListAndLeavesTheBlanks)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Hand, 1}}, -1500, 0));
    ExpectNow(night, Exchanged(night, "2000, 4000, 6000", "2000, 2500, 6000"));
}

TEST_F(DocumentMove, MoveShiftsAStepsGroupByItsFirstTime)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Flash, 0}}, 100, 0));
    ExpectNow(night, Exchanged(night, "ActivationTime=3000;", "ActivationTime=3100;"));
}

TEST_F(DocumentMove, MoveCutsTheShiftSoThatTheEarliestStaysAtZero)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}, {Hand, 0}}, -5000, 0));
    std::string now = Exchanged(night, "= 1000 ;", "= 0 ;");
    now = Exchanged(now, "=11000;", "=10000;");
    ExpectNow(night, Exchanged(now, "=2000, ", "=1000, "));
}

TEST_F(DocumentMove, MoveCutsTheShiftWhereANumberEnds)
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

TEST_F(DocumentMove, MoveShiftsLayersOfEntriesOnlyAndKeepsTheirDistance)
{
    Open(night);
    EXPECT_TRUE(document.Move({{White, -1}, {Clouds, -1}, {Hand, 2}}, 0, -4));
    ExpectNow(night, Exchanged(Exchanged(night, "LayerID=9;", "LayerID=8;"), "LayerID=1;", "LayerID=0;"));
}

TEST_F(DocumentMove, MoveOfAWholeMessageBlockMovesAllItsTimes)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Hand, -1}, {Hand, 1}}, 1, 0));
    ExpectNow(night, Exchanged(night, "2000, 4000, 6000", "2001, 4001, 6001"));
}

TEST_F(DocumentMove, MoveByNothingChangesNothingAndIsNoStep)
{
    Open(night);
    const uint64_t revision = document.Revision();
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 0, 0));
    EXPECT_EQ(night, document.Text());
    EXPECT_FALSE(document.CanUndo());
    EXPECT_EQ(revision, document.Revision());
    EXPECT_FALSE(document.IsModified());
}

TEST_F(DocumentMove, MoveRefusesWhatIsNotThereOrHasNoTime)
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

TEST_F(DocumentMove, MoveRefusesANumberBelowZero)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=-5;\nStopTime=10;\nLayerID=1;\n");
    EXPECT_FALSE(document.Move({{0, -1}}, 5, 0));
    ExpectRefusal("StartTime of line 1 is below 0. Write it anew first.");
    EXPECT_TRUE(document.Move({{0, -1}}, 0, 1)) << "its layer is sound";
    EXPECT_TRUE(document.SetValue(0, "StartTime", "0"));
    EXPECT_TRUE(document.Move({{0, -1}}, 5, 0));
    EXPECT_EQ("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5;\nStopTime=15;\nLayerID=2;\n", document.Text());
}

TEST_F(DocumentMove, MoveKeepsACommentInsideAValue)
{
    Open("[EFFECT]\r\nEffectName=FX_Clouds;\r\nStartTime=5#five#0#0#;\r\nStopTime=900;\r\nLayerID=1;\r\n");
    EXPECT_EQ(50u, document.GetOutline().blocks[0].start);
    EXPECT_TRUE(document.Move({{0, -1}}, 50, 0));
    EXPECT_EQ(
        "[EFFECT]\r\nEffectName=FX_Clouds;\r\nStartTime=100#five##0#;\r\nStopTime=950;\r\nLayerID=1;\r\n",
        document.Text());
}

// ---- Stretch

TEST_F(DocumentMove, StretchMovesOneEdgeOfEntries)
{
    Open(night);
    EXPECT_TRUE(document.Stretch({{Clouds, -1}, {White, -1}}, true, 500));
    std::string now = Exchanged(Exchanged(night, "=11000;", "=11500;"), "=20000;", "=20500;");
    ExpectNow(night, now);
    EXPECT_TRUE(document.Stretch({{Clouds, -1}}, false, -200));
    ExpectNow(now, Exchanged(now, "= 1000 ;", "= 800 ;"));
}

TEST_F(DocumentMove, StretchLeavesAMillisecondOfTheShortestEntry)
{
    Open(night);
    EXPECT_TRUE(document.Stretch({{Clouds, -1}, {White, -1}}, true, -15000));
    EXPECT_EQ(1001u, document.GetOutline().blocks[Clouds].stop);
    EXPECT_EQ(10001u, document.GetOutline().blocks[White].stop) << "by the same";
    document.Undo();
    EXPECT_TRUE(document.Stretch({{Clouds, -1}}, false, 15000));
    EXPECT_EQ(10999u, document.GetOutline().blocks[Clouds].start);
}

TEST_F(DocumentMove, StretchOfAGroupSpreadsItsDistances)
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

TEST_F(DocumentMove, StretchRefusesWhatHasNoLength)
{
    Open(night);
    EXPECT_FALSE(document.Stretch({{Hand, 0}}, true, 100));
    ExpectRefusal("Only entries and Steps groups have a length.");
    EXPECT_TRUE(document.Stretch({{Hand, 0}, {Clouds, -1}}, true, 100)) << "beside an entry it stays";
    EXPECT_EQ(Exchanged(night, "=11000;", "=11100;"), document.Text());
}

// ---- Gestures

TEST_F(DocumentMove, AGestureIsOneStepAndCountsFromWhereItBegan)
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

TEST_F(DocumentMove, AGestureThatLeadsBackLeavesNoStep)
{
    Open(night);
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 100, 0, 7));
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 0, 0, 7));
    EXPECT_EQ(night, document.Text());
    EXPECT_FALSE(document.CanUndo());
    EXPECT_TRUE(document.Move({{Clouds, -1}}, 50, 0, 7)) << "goes on";
    EXPECT_EQ(1050u, document.GetOutline().blocks[Clouds].start);
}

TEST_F(DocumentMove, AnotherGestureIsAStepOfItsOwn)
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

TEST_F(DocumentMove, UndoEndsAGesture)
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
