// SPDX-License-Identifier: MIT
#include "tests/tools/edit/DocumentFixture.h"

#include "tests/support/PlayedScript.h"

class DocumentValues : public DocumentFixture
{
};

// ---- Values

TEST_F(DocumentValues, SetTimeMovesAnEntryWithItsLength)
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

TEST_F(DocumentValues, SetValueWritesParametersSoThatTheReaderMissesNothing)
{
    Open(night);
    EXPECT_TRUE(document.SetValue(Flash, "Parameter", "2.5"));
    ExpectNow(night, Exchanged(night, "Parameter=2.00;", "Parameter=2.50;"));
    EXPECT_EQ(std::vector<float>({2.5f}), document.GetOutline().blocks[Flash].parameters);
    EXPECT_TRUE(document.SetValue(Flash, "Parameter", "1.25 , -12"));
    EXPECT_EQ(Exchanged(night, "Parameter=2.00;", "Parameter=1.25,-12.00;"), document.Text());
    EXPECT_EQ(std::vector<float>({1.25f, -12.0f}), document.GetOutline().blocks[Flash].parameters);
}

TEST_F(DocumentValues, SetValueAddsAMissingKeyBehindTheLastOne)
{
    Open(night);
    EXPECT_TRUE(document.SetValue(Hand, "Parameter", "7"));
    ExpectNow(night,
              Exchanged(night, "TargetEffect=FX_Clouds;\n", "TargetEffect=FX_Clouds;\nParameter=7.00;\n"));
}

TEST_F(DocumentValues, SetValueAddsAKeyInTheLayoutOfItsBlock)
{
    Open("[EFFECT] EffectName=FX_Clouds; StartTime=5; StopTime=9; # soon #\r\n");
    EXPECT_FALSE(document.GetOutline().blocks[0].complete);
    EXPECT_TRUE(document.SetValue(0, "LayerID", "3"));
    EXPECT_EQ("[EFFECT] EffectName=FX_Clouds; StartTime=5; StopTime=9; # soon # LayerID=3;\r\n",
              document.Text());
    EXPECT_TRUE(document.GetOutline().blocks[0].complete);
}

TEST_F(DocumentValues, SetValueFinishesAnEntryThatLacksItsSemicolon)
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

TEST_F(DocumentValues, SetValueAddsAKeyAheadOfAnEntryThatLacksItsSemicolon)
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

TEST_F(DocumentValues, SetValueGivesAKeyWithoutAnEqualsItsValue)
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

TEST_F(DocumentValues, SetValueChangesTheFirstOfRepeatedKeys)
{
    Open("[MUSIC]\nFileName=a.ogg;\nFileName=b.ogg;\n");
    EXPECT_TRUE(document.SetValue(0, "FileName", "c.ogg"));
    EXPECT_EQ("[MUSIC]\nFileName=c.ogg;\nFileName=b.ogg;\n", document.Text());
}

TEST_F(DocumentValues, SetValueOfNothingRemovesAnOptionalKeyWithItsLine)
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

TEST_F(DocumentValues, SetValueRefusesWhatTheKeyCantHold)
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

TEST_F(DocumentValues, SetValueRefusesAnEntryThatRunsOnIntoTheNext)
{
    Open("[EFFECT]\nEffectName=FX_Clouds;\nStartTime=5\nStopTime=9;\nLayerID=1;\n");
    EXPECT_FALSE(document.SetValue(0, "StartTime", "7"));
    ExpectRefusal("A ; is missing behind StartTime in the block of line 1.");
}

// ---- Music and colours

TEST_F(DocumentValues, SetMusicChangesAddsAndRemovesTheBlock)
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

TEST_F(DocumentValues, SetMusicChangesTheBlockThatCounts)
{
    Open("[MUSIC]\nFileName=a.ogg;\n[MUSIC]\nFileName=b.ogg;\n[MUSIC]\nFileName=;\n");
    EXPECT_TRUE(document.SetMusic("c.ogg"));
    EXPECT_EQ("[MUSIC]\nFileName=a.ogg;\n[MUSIC]\nFileName=c.ogg;\n[MUSIC]\nFileName=;\n", document.Text());
}

TEST_F(DocumentValues, SetColorSchemeWritesOnlyTheColoursThatChange)
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
