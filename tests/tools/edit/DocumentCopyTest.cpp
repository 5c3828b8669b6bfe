// SPDX-License-Identifier: MIT
#include "tests/tools/edit/DocumentFixture.h"

#include "tests/support/PlayedScript.h"

class DocumentCopy : public DocumentFixture
{
};

// ---- Duplicate and delete

TEST_F(DocumentCopy, DuplicatePutsABlockBehindItsOriginal)
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

TEST_F(DocumentCopy, DuplicateAddsTimesToAListInTheirOrder)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Hand, 1}, {Hand, 3}}), document.Duplicate({{Hand, 1}, {Hand, 0}}, 1000));
    ExpectNow(night, Exchanged(night, "2000, 4000, 6000", "2000, 3000, 4000, 5000, 6000"));
}

TEST_F(DocumentCopy, DuplicateCutsTheShiftForAllAlike)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Clouds + 1, -1}, {Hand + 1, 0}}),
              document.Duplicate({{Hand, 0}, {Clouds, -1}}, -9000));
    EXPECT_EQ(0u, document.GetOutline().blocks[Clouds + 1].start);
    EXPECT_EQ(1000u, document.GetOutline().blocks[Hand + 1].times[0].milliseconds);
    EXPECT_NE(std::string::npos, document.Text().find("=1000, 2000, 4000, 6000;"));
}

TEST_F(DocumentCopy, DuplicateShiftsLayersOfEntriesAsOneStepAndKeepsTheirDistance)
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

TEST_F(DocumentCopy, DuplicateOfAGroupIsAGroup)
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

TEST_F(DocumentCopy, DeleteTakesABlockWithItsLinesAndTheGapBehindIt)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{White, -1}}));
    ExpectNow(
        night,
        Exchanged(night,
                  "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=0;\nStopTime=20000;\nLayerID=9;\n\n",
                  ""));
}

TEST_F(DocumentCopy, DeleteLeavesTheCommentAheadOfABlockAndItsGap)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{Clouds, -1}}));
    ExpectNow(night, Exchanged(night,
                               "[EFFECT]\nEffectName=FX_Clouds;  # a comment #\nStartTime = 1000 ;\n"
                               "StopTime=11000;\nLayerID=1;\n",
                               ""));
}

TEST_F(DocumentCopy, DeleteOfTheLastBlockTakesTheGapAheadOfIt)
{
    Open(night);
    EXPECT_TRUE(document.Delete({{Flash, 0}}));
    const std::string text = night;
    ExpectNow(night, text.substr(0, text.find("\n[MESSAGE]\nMessageText=flash")));
}

TEST_F(DocumentCopy, DeleteTakesTimesOutOfAList)
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

static std::string ListOf(const std::string& times)
{
    return "[MESSAGE]\nMessageText=hand;\nActivationTime=" + times + ";\nTargetEffect=FX_Clouds;\n";
}

TEST_F(DocumentCopy, DeleteLeavesAnEmptyItemThatIsReadAs0)
{
    const std::string at0 = "FX_Clouds hand at 0", at5 = "FX_Clouds hand at 5";
    const struct {
        const char* before;
        std::vector<ItemId> deleted;
        const char* after;
        std::vector<std::string> messages;
    } cases[] = {
        {"5000,,6000", {{0, 0}, {0, 2}}, ",", {at0}},
        {"5000,,6000", {{0, 2}}, "5000,,", {at5, at0}},
        {"5000, # none # ,6000", {{0, 2}}, "5000, # none # ,", {at5, at0}},
        {"5000,,,6000", {{0, 2}, {0, 3}}, "5000,,", {at5, at0}},
        {",5000,6000", {{0, 1}, {0, 2}}, ",", {at0}},
        {"5000,,6000,", {{0, 2}}, "5000,,", {at5, at0}},
        {"5000,,", {{0, 0}}, ",", {at0}},
        {"5000,,6000", {{0, 1}, {0, 2}}, "5000", {at5}},
        {"6000,,5000", {{0, 0}, {0, 1}}, "5000", {at5}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.before) + " to " + each.after);
        Open(ListOf(each.before));
        EXPECT_TRUE(document.Delete(each.deleted));
        ExpectNow(ListOf(each.before), ListOf(each.after));
        EXPECT_EQ(each.messages, Play(document.Text()).messages);
    }
}

TEST_F(DocumentCopy, CopyOfAnEmptyItemIsAMessageAt0)
{
    Open(ListOf("5000,,6000"));
    EXPECT_EQ(ListOf(","), document.Copy({{0, 1}}));
    document.Paste(document.Copy({{0, 1}}), 7000);
    EXPECT_EQ(std::vector<std::string>({"FX_Clouds hand at 5", "FX_Clouds hand at 0", "FX_Clouds hand at 6",
                                        "FX_Clouds hand at 7"}),
              Play(document.Text()).messages);
}

TEST_F(DocumentCopy, DeleteOfAllBlocksLeavesTheComments)
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

TEST_F(DocumentCopy, DeleteDoesNotWakeAStepsThatAListKeptAsleep)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=10,20;\nSteps=5;\nTargetEffect=FX_Clouds;\nTimeDelta="
         "9;\n");
    EXPECT_TRUE(document.Delete({{0, 0}}));
    EXPECT_EQ("[MESSAGE]\nMessageText=hand;\nActivationTime=20;\nTargetEffect=FX_Clouds;\n", document.Text());
    EXPECT_EQ(std::vector<std::string>({"FX_Clouds hand at 0.0199999996"}), Play(document.Text()).messages);
}

TEST_F(DocumentCopy, ACommentInAListSurvivesTheDeletionBesideIt)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=10, # two # 20, # three # "
         "30;\nTargetEffect=FX_Clouds;\n");
    EXPECT_TRUE(document.Delete({{0, 1}}));
    EXPECT_EQ(
        "[MESSAGE]\nMessageText=hand;\nActivationTime=10, # two # # three #30;\nTargetEffect=FX_Clouds;\n",
        document.Text());
}

// ---- Copy and paste

TEST_F(DocumentCopy, CopyGivesBlocksAndOfAListTheTimesThatAreSelected)
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

TEST_F(DocumentCopy, PasteShiftsEverythingToThePlaceAndKeepsItTogether)
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

TEST_F(DocumentCopy, PasteOfMessagesPutsEachToItsEffect)
{
    Open(night);
    EXPECT_EQ(std::vector<ItemId>({{Hand + 1, 0}}), document.Paste(document.Copy({{Hand, 1}}), 9000));
    ExpectNow(night,
              Exchanged(night, "TargetEffect=FX_Clouds;\n",
                        "TargetEffect=FX_Clouds;\n\n[MESSAGE]\nMessageText=hand;\nActivationTime=9000;\n"
                        "TargetEffect=FX_Clouds;\n"));
}

TEST_F(DocumentCopy, PasteTakesTheLineEndsOfTheScript)
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

TEST_F(DocumentCopy, PasteRefusesWhatHoldsNoBlocks)
{
    Open(night);
    for (const char* text : {"", "hello", "[MUSIC]\nFileName=a.ogg;", "junk [EFFECT] StartTime=0;", "#"}) {
        EXPECT_TRUE(document.Paste(text, 100).empty()) << text;
        ExpectRefusal("What was copied holds no entries and no messages.");
    }
    EXPECT_TRUE(document.Paste(document.Copy({{Clouds, -1}}), 2147483648u).empty());
    ExpectRefusal("Times go from 0 to 2147483647 ms.");
}
