// SPDX-License-Identifier: MIT
#include "tests/tools/edit/DocumentFixture.h"

#include "tests/support/PlayedScript.h"

class DocumentInsert : public DocumentFixture
{
};

TEST_F(DocumentInsert, ANewEntryStandsBehindTheMessagesOfTheEntryAheadOfIt)
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

TEST_F(DocumentInsert, ANewEntryOfAnEmptyScriptIsTheWholeScript)
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

TEST_F(DocumentInsert, ANewMessageStandsBehindTheLastEarlierBlockOfItsEffect)
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

TEST_F(DocumentInsert, ANewBlockTakesTheLayoutAroundIt)
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

TEST_F(DocumentInsert, NewItemsAreRefusedWithWords)
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

TEST_F(DocumentInsert, NothingCanBeAddedBehindAnOpenComment)
{
    Open("# a comment that nobody closes\n");
    EXPECT_FALSE(document.InsertEntry("FX_Path", 0, 10, 1));
    ExpectRefusal(
        "The show would not read this as it is meant: something around it is written in an odd way.");
    Open("junk [EFFECT] EffectName=FX_Clouds;");
    EXPECT_FALSE(document.InsertEntry("FX_Path", 0, 10, 1));
}

TEST_F(DocumentInsert, AddTimeGoesWhereTheTimeBelongs)
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

TEST_F(DocumentInsert, AddTimeGoesToTheEndOfAListWithoutOrder)
{
    Open("[MESSAGE]\nMessageText=hand;\nActivationTime=30,10,;\nTargetEffect=FX_Clouds;\n");
    EXPECT_EQ(ItemId({0, 2}), document.AddTime(0, 20));
    EXPECT_EQ("[MESSAGE]\nMessageText=hand;\nActivationTime=30,10,20,;\nTargetEffect=FX_Clouds;\n",
              document.Text());
    EXPECT_EQ(3u, Play(document.Text()).messages.size());
}

TEST_F(DocumentInsert, TakeApartWritesTheTimesOfAGroupOut)
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

TEST_F(DocumentInsert, TakeApartRefusesTooManyAndWhatLiesBelowZero)
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
