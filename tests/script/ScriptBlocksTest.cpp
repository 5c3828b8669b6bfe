// SPDX-License-Identifier: MIT
// The four blocks: what each becomes, and what is said when it can't.
#include "script/ScriptParser.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "platform/Events.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/kernel/ProbeEffect.h"

#include <gtest/gtest.h>

class ScriptBlocksTest : public testing::Test
{
protected:
    ScriptBlocksTest()
    {
        platform::CollectMessageBoxes(&boxes);
        registry.Register("FX_A", &a, "FX_A");
        player.Init(&window, &registry, nullptr, false);
        parser.SetPlayer(&player);
    }
    ~ScriptBlocksTest() override
    {
        platform::CollectMessageBoxes(nullptr);
        EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind) << "no block ends a run";
    }

    void ParseMessage(const std::string& entries)
    {
        parser.ParseMessage("MessageText=flash;TargetEffect=FX_A;" + entries);
    }
    std::vector<float> Times() const
    {
        std::vector<float> times;
        for (const SynchMessage& message : player.messages)
            times.push_back(message.time);
        return times;
    }
    std::vector<float> Params(const std::string& text)
    {
        ParseMessage("ActivationTime=1;Parameter=" + text + ";");
        const SynchMessage& message = player.messages.back();
        return std::vector<float>(message.params, message.params + message.count);
    }
    // The one box, which must be an information of the parser.
    std::string BoxText()
    {
        EXPECT_EQ(1u, boxes.size());
        if (boxes.size() != 1)
            return "";
        EXPECT_EQ("Marlinex 1.5 Information: Script Parser", boxes[0].caption);
        EXPECT_EQ(platform::BoxInformationIcon, boxes[0].icon);
        const std::string body = boxes[0].body;
        boxes.clear();
        return body;
    }
    std::vector<float> Colour(const std::string& text)
    {
        float rgb[3] = {0, 0, 0};
        parser.ParseColor(text, rgb);
        return {rgb[0], rgb[1], rgb[2]};
    }

    typedef std::vector<float> Floats;

    std::vector<platform::MessageBox> boxes;
    GLWindow window;
    EffectRegistry registry;
    ProbeEffect a;
    DemoPlayer player;
    ScriptParser parser;
};

TEST_F(ScriptBlocksTest, AFourthComponentOfAColourIsDropped)
{
    float rgb[4] = {0, 0, 0, -7};
    parser.ParseColor("255,255,255,255,255", rgb);
    EXPECT_EQ((Floats{1, 1, 1, -7}), Floats(rgb, rgb + 4));
}

TEST_F(ScriptBlocksTest, AnEffectBlockBecomesATimelineEntry)
{
    parser.ParseEffect("LayerID=3;StopTime=10000;StartTime=250;EffectName=FX_A;Comment=none;");
    ASSERT_EQ(1u, player.timeline.size());
    EXPECT_EQ(0.25f, player.timeline[0].start);
    EXPECT_EQ(10.0f, player.timeline[0].stop);
    EXPECT_EQ(3u, player.timeline[0].layer);
    EXPECT_EQ(&a, player.timeline[0].effect);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptBlocksTest, NegativeNumbersInAnEffectBlockAreHugeUnsignedOnes)
{
    parser.ParseEffect("EffectName=FX_A;StartTime=0;StopTime=-1;LayerID=-1;");
    ASSERT_EQ(1u, player.timeline.size());
    EXPECT_EQ(4294967295u, player.timeline[0].layer);
    EXPECT_EQ(4294967.5f, player.endTime) << "4294967.295 among floats that are 0.5 apart";
}

TEST_F(ScriptBlocksTest, AnEmptyLayerCountsAsZero)
{
    parser.ParseEffect("EffectName=FX_A;StartTime=0;StopTime=10;LayerID=;");
    ASSERT_EQ(1u, player.timeline.size());
    EXPECT_EQ(0u, player.timeline[0].layer);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptBlocksTest, AnUnknownEffectIsThePlayersBusinessToReport)
{
    parser.ParseEffect("EffectName=FX_C;StartTime=0;StopTime=10;LayerID=0;");
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Init", boxes[0].caption);
}

TEST_F(ScriptBlocksTest, KeysBehindAMissingOneAreToldAsMissingToo)
{
    const std::string head = "Info: Error in Effect: \n", tail = "\n\nThis Effect will be skipped";
    const std::string noLayer = "\n\n\t\tNO LAYER ID DEFINED", noStop = "\n\n\t\tNO STOP TIME DEFINED",
                      noStart = "\n\n\t\tNO START TIME DEFINED", noName = "\n\n\t\tNO EFFECT NAME DEFINED";
    struct {
        const char* body;
        std::string reasons;
    } const cases[] = {
        {"EffectName=FX_A;StartTime=0;StopTime=10;", noLayer},
        {"EffectName=FX_A;StartTime=0;LayerID=0;", noLayer + noStop},
        {"EffectName=FX_A;StopTime=10;LayerID=0;", noLayer + noStop + noStart},
        {"StartTime=0;StopTime=10;LayerID=0;", noLayer + noStop + noStart + noName},
        {"", noLayer + noStop + noStart + noName},
        {"EffectName=;StartTime=1;StopTime=2;", noLayer + noName},
        {"EffectName=FX_A;StartTime=1;StopTime=2;LayerID=7", ""}, // filled, though it counts as not found
    };
    for (const auto& each : cases) {
        parser.ParseEffect(each.body);
        EXPECT_EQ(head + each.body + each.reasons + tail, BoxText());
    }
    EXPECT_TRUE(player.timeline.empty());
}

TEST_F(ScriptBlocksTest, AMusicBlockWithoutANameIsToldAndSkipped)
{
    for (const char* body : {"", "FileName=;", "filename=a.mp3;"}) {
        parser.ParseMusic(body);
        EXPECT_EQ(std::string("Info: Error in Music: ") + body +
                      "\n\n\t\tNO MUSIC AVAILABLE\n\nThis Music Region will be skipped",
                  BoxText());
    }
}

TEST_F(ScriptBlocksTest, AMusicNameCountsEvenWithoutItsSemicolon)
{
    parser.ParseMusic("FileName=a.mp3");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptBlocksTest, MusicWithoutAPlayerIsToldAsWell)
{
    ScriptParser alone;
    alone.ParseMusic("FileName=a.mp3;");
    EXPECT_NE(std::string::npos, BoxText().find("NO MUSIC AVAILABLE"));
}

TEST_F(ScriptBlocksTest, ThePlainBlocksWithoutAPlayerDoNothing)
{
    ScriptParser alone;
    alone.ParseEffect("EffectName=FX_A;StartTime=0;StopTime=10;LayerID=0;");
    alone.ParseMessage("MessageText=flash;ActivationTime=1;TargetEffect=FX_A;Steps=3;TimeDelta=1;");
    alone.ParseColorScheme("GlobalColor=1,2,3;SupportColor=1,2,3;FlowColor=1,2,3;");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptBlocksTest, AColourSchemeReplacesTheWholeScheme)
{
    parser.ParseColorScheme("GlobalColor=255,255,255;SupportColor=128,128,128;FlowColor=0,0,51;");
    const ColorScheme scheme = player.GetColorScheme();
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(1.0f, scheme.global[i]);
        EXPECT_EQ(0.50196078431f, scheme.support[i]);
        EXPECT_EQ(i == 2 ? 0.2f : 0.0f, scheme.flow[i]);
    }
    parser.ParseColorScheme("GlobalColor=;SupportColor=0,0;FlowColor=0;");
    EXPECT_EQ(0.0f, player.GetColorScheme().global[0]);
    EXPECT_EQ(0.0f, player.GetColorScheme().support[2]) << "starts from all zero, not from the old one";
}

TEST_F(ScriptBlocksTest, ColoursAreParsedAsTheyComeAndNeverClamped)
{
    EXPECT_EQ((Floats{1.1764705882f, 0, 0}), Colour("300,0,0"));
    EXPECT_EQ((Floats{1, 0.0078431372549f, 0.011764705882f}), Colour("255,2,3,4,5"));
    EXPECT_EQ((Floats{0.0039215686275f, 0.0078431372549f, 0}), Colour("1,2"));
    EXPECT_EQ((Floats{0, 0, 0.027450980392f}), Colour(",,7"));
    EXPECT_EQ((Floats{0, 0, 0}), Colour(""));
    // 4294967295 is 255 times 16843009, which lies between two floats; the even one is the lower.
    EXPECT_EQ((Floats{16843008.0f, 0, 0}), Colour("-1,red,0"));
    EXPECT_EQ((Floats{16843006.0f, 0, 0}), Colour("-1000,0,0"))
        << "16843005.08 among floats that are 2 apart";
}

TEST_F(ScriptBlocksTest, AColourSchemeThatLacksAKeyIsToldAndSkipped)
{
    for (const char* body : {"", "GlobalColor=1,1,1;SupportColor=1,1,1;",
                             "SupportColor=1,1,1;FlowColor=1,1,1;", "GlobalColor=1,1,1;FlowColor=1,1,1;"}) {
        parser.ParseColorScheme(body);
        EXPECT_EQ(std::string("Info: Error in ColorScheme: \n") + body +
                      "\n\n\t\tWRONG COLOR DEFINITION\n\nThis Color Scheme will be skipped",
                  BoxText());
    }
    EXPECT_EQ(1.0f, player.GetColorScheme().support[0]);
}

TEST_F(ScriptBlocksTest, AMessageBlockThatLacksAKeyIsToldAndSkipped)
{
    const std::string head = "Info: Error in Message: \n", tail = "\n\nThis Message will be skipped";
    const std::string noTarget = "\n\n\t\tNO TARGET EFFECT DEFINED",
                      noTime = "\n\n\t\tNO ACTIVATION TIME DEFINED",
                      noText = "\n\n\t\tNO MESSAGE TEXT DEFINED";
    struct {
        const char* body;
        std::string reasons;
    } const cases[] = {
        {"MessageText=flash;ActivationTime=1;", noTarget},
        {"MessageText=flash;TargetEffect=FX_A;", noTarget + noTime},
        {"ActivationTime=1;TargetEffect=FX_A;", noTarget + noTime + noText},
        {"MessageText=flash;ActivationTime=1;TargetEffect=FX_A", ""},
    };
    for (const auto& each : cases) {
        parser.ParseMessage(each.body);
        EXPECT_EQ(head + each.body + each.reasons + tail, BoxText());
    }
    EXPECT_TRUE(player.messages.empty());
}

TEST_F(ScriptBlocksTest, AMessageWithoutParametersHasNone)
{
    ParseMessage("ActivationTime=9250;");
    ASSERT_EQ(1u, player.messages.size());
    EXPECT_EQ(9.25f, player.messages[0].time);
    EXPECT_EQ(a.flashId, player.messages[0].id);
    EXPECT_EQ(0, player.messages[0].count);
}

TEST_F(ScriptBlocksTest, AParameterListLosesItsLastCharacter)
{
    EXPECT_EQ(Floats{0.0f}, Params("0.5"));
    EXPECT_EQ(Floats{2.5f}, Params("2.50"));
    EXPECT_EQ(Floats{2.0f}, Params("2.00"));
    EXPECT_EQ(Floats{1.0f}, Params("12"));
    EXPECT_EQ(Floats{0.0f}, Params("7"));
    EXPECT_EQ((Floats{1.5f, 2.0f}), Params("1.5,2.5"));
    EXPECT_EQ((Floats{-3.25f, 10.0f}), Params("-3.25,100"));
}

TEST_F(ScriptBlocksTest, ACommaAtTheEndSavesTheNumberAndAddsAParameterOfZero)
{
    EXPECT_EQ((Floats{1.5f, 2.5f, 0.0f}), Params("1.5,2.5,"));
    EXPECT_EQ((Floats{7.0f, 0.0f}), Params("7,"));
}

TEST_F(ScriptBlocksTest, EmptyParametersAreZero)
{
    EXPECT_EQ(Floats{0.0f}, Params(""));
    EXPECT_EQ((Floats{0.0f, 0.0f}), Params(","));
    EXPECT_EQ((Floats{1.0f, 0.0f, 2.0f}), Params("1,,2x"));
}

TEST_F(ScriptBlocksTest, AParameterWithoutItsSemicolonIsAbsent)
{
    ParseMessage("ActivationTime=1;Parameter=2.00");
    EXPECT_EQ(0, player.messages.at(0).count);
}

TEST_F(ScriptBlocksTest, ATimeListGivesAMessageEachAndKeepsItsLastCharacter)
{
    ParseMessage("ActivationTime=9000,9250;Parameter=2.00;");
    EXPECT_EQ((Floats{9.0f, 9.25f}), Times());
    EXPECT_EQ(2.0f, player.messages[0].params[0]);
    EXPECT_EQ(2.0f, player.messages[1].params[0]);
    EXPECT_NE(player.messages[0].params, player.messages[1].params) << "each owns its array";
}

TEST_F(ScriptBlocksTest, AnEmptyItemOfATimeListIsTimeZero)
{
    ParseMessage("ActivationTime=1000,,2000;");
    EXPECT_EQ((Floats{1.0f, 0.0f, 2.0f}), Times());
}

TEST_F(ScriptBlocksTest, AnEmptyItemIsDroppedByAnOffset)
{
    player.SetStartOffset(1);
    ParseMessage("ActivationTime=1000,,2000;");
    EXPECT_EQ((Floats{1.0f, 2.0f}), Times());
}

TEST_F(ScriptBlocksTest, AFinalCommaInATimeListAddsNothing)
{
    ParseMessage("ActivationTime=1000,2000,;");
    EXPECT_EQ((Floats{1.0f, 2.0f}), Times()) << "it lands in the last token";
}

TEST_F(ScriptBlocksTest, AnEmptyTimeGivesNoMessageAndNoError)
{
    ParseMessage("ActivationTime=;Steps=5;TimeDelta=10;");
    EXPECT_TRUE(player.messages.empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ScriptBlocksTest, StepsIsTheNumberOfMessagesInAll)
{
    ParseMessage("ActivationTime=1000;Steps=4;TimeDelta=500;Parameter=2.00;");
    EXPECT_EQ((Floats{1.0f, 1.5f, 2.0f, 2.5f}), Times());
    for (const SynchMessage& message : player.messages) {
        EXPECT_EQ(1, message.count);
        EXPECT_EQ(2.0f, message.params[0]);
    }
}

TEST_F(ScriptBlocksTest, StepsOfOneAndNoneAddNothing)
{
    ParseMessage("ActivationTime=1000;Steps=1;TimeDelta=500;");
    ParseMessage("ActivationTime=2000;Steps=0;TimeDelta=500;");
    EXPECT_EQ((Floats{1.0f, 2.0f}), Times());
}

TEST_F(ScriptBlocksTest, StepsGoWithASingleTimeAndTheirDeltaOnly)
{
    ParseMessage("ActivationTime=1000,2000;Steps=4;TimeDelta=500;");
    ParseMessage("ActivationTime=3000;Steps=4;");
    ParseMessage("ActivationTime=4000;TimeDelta=500;");
    EXPECT_EQ((Floats{1.0f, 2.0f, 3.0f, 4.0f}), Times());
}

TEST_F(ScriptBlocksTest, StepsOrTheirDeltaWithoutItsSemicolonIsAbsent)
{
    ParseMessage("ActivationTime=1000;TimeDelta=500;Steps=4");
    ParseMessage("ActivationTime=2000;Steps=4;TimeDelta=500");
    EXPECT_EQ((Floats{1.0f, 2.0f}), Times());
}

TEST_F(ScriptBlocksTest, ANegativeDeltaWalksBackwardIntoHugeTimes)
{
    ParseMessage("ActivationTime=100;Steps=3;TimeDelta=-100;");
    EXPECT_EQ((Floats{0.1f, 0.0f, 4294967.0f}), Times()) << "4294967.196 among floats that are 0.5 apart";
}

TEST_F(ScriptBlocksTest, AnExpansionThatStraddlesTheOffsetKeepsItsLaterPart)
{
    player.SetStartOffset(1500);
    ParseMessage("ActivationTime=1000;Steps=4;TimeDelta=500;");
    EXPECT_EQ((Floats{1.5f, 2.0f, 2.5f}), Times());
}

TEST_F(ScriptBlocksTest, TheWorkedExampleGivesTwoEntriesAndSixMessages)
{
    ProbeEffect clouds, white;
    registry.Register("FX_Clouds", &clouds, "FX_Clouds");
    registry.Register("WhiteFlashOverlay", &white, "WhiteFlashOverlay");
    parser.ParseMusic("FileName=tune.mp3;");
    parser.ParseColorScheme("GlobalColor=255,255,255;SupportColor=128,128,128;FlowColor=0,0,0;");
    parser.ParseEffect("EffectName=FX_Clouds;StartTime=0;StopTime=30000;LayerID=1;");
    parser.ParseEffect("EffectName=WhiteFlashOverlay;StartTime=500;StopTime=30000;LayerID=9;");
    parser.ParseMessage("MessageText=flash;ActivationTime=1000;TargetEffect=WhiteFlashOverlay;Parameter=2.00;"
                        "Steps=4;TimeDelta=500;");
    parser.ParseMessage("MessageText=flash;ActivationTime=9000,9250;TargetEffect=WhiteFlashOverlay;");
    EXPECT_EQ(30.0f, player.endTime);
    EXPECT_EQ(2u, player.timeline.size());
    EXPECT_EQ((Floats{1.0f, 1.5f, 2.0f, 2.5f, 9.0f, 9.25f}), Times());
    for (int i = 0; i < 6; i++) {
        EXPECT_EQ(i < 4 ? 1 : 0, player.messages[i].count);
        EXPECT_EQ(white.flashId, player.messages[i].id);
    }
}
