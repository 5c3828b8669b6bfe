// SPDX-License-Identifier: MIT
// What an observer hears of a script, and that the show doesn't notice that it listens.
#include "script/ScriptObserver.h"

#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "script/ScriptParser.h"
#include "tests/kernel/ProbeEffect.h"
#include "tests/support/ShowFixture.h"

#include <gtest/gtest.h>

class Listener : public ScriptObserver
{
public:
    void ByteRead(size_t place, char byte, ByteFate fate) override
    {
        EXPECT_EQ(bytes.size(), place);
        bytes += byte;
        fates += "k.cm"[fate];
        if (fate == ByteKept)
            stream += byte;
    }
    void BlockBegins(BlockType type, size_t header, size_t body, const std::string& text) override
    {
        EXPECT_FALSE(inBlock);
        inBlock = true;
        EXPECT_EQ(text, stream.substr(body, text.size()));
        heard += std::to_string(type) + ":" + stream.substr(header, body - header) + text + "\n";
        entries = player ? player->timeline.size() : 0;
    }
    void BlockEnds() override
    {
        EXPECT_TRUE(inBlock);
        inBlock = false;
        if (player && player->timeline.size() > entries)
            heard += "an entry\n";
    }
    bool TakesMessage(size_t parameters) override
    {
        parametersAsked.push_back(parameters);
        return parametersAsked.size() <= messagesTaken;
    }

    uint32_t LimitSteps(uint32_t steps) override
    {
        asked = steps;
        return steps < limit ? steps : limit;
    }

    std::string bytes, fates, stream, heard;
    bool inBlock = false;
    uint32_t asked = 0;
    uint32_t limit = uint32_t(-1);
    std::vector<size_t> parametersAsked;
    size_t messagesTaken = size_t(-1);
    DemoPlayer* player = nullptr;
    size_t entries = 0;
};

class Observed : public ShowFixture
{
protected:
    Observed()
    {
        registry.Register("FX_A", &effect, "");
        player.registry = &registry;
    }

    void Read(std::string script, ScriptObserver* observer)
    {
        FILE* const file = fmemopen(script.data(), script.size(), "rb");
        ScriptParser parser;
        parser.SetPlayer(&player);
        parser.SetObserver(observer);
        parser.ReadBlocks(file);
        fclose(file);
    }

    ProbeEffect effect;
    EffectRegistry registry;
    DemoPlayer player;
};

static const char* const script = "[EFFECT]EffectName=FX_A;StartTime=0;StopTime=10;LayerID=1;"
                                  "[MESSAGE]MessageText=flash;ActivationTime=5;TargetEffect=FX_A;"
                                  "Steps=4;TimeDelta=1;";

TEST_F(Observed, EachByteIsToldWithItsPlaceAndItsFate)
{
    Listener listener;
    Read("a #b\n# [c$]\xC3", &listener);
    EXPECT_EQ("a #b\n# [c$]\xC3", listener.bytes);
    EXPECT_EQ("k.mccm.kk.k.", listener.fates);
    EXPECT_EQ("a[c]", listener.stream);
}

TEST_F(Observed, EachBlockIsToldBeforeAndAfterItIsHandedOver)
{
    Listener listener;
    listener.player = &player;
    Read(script, &listener);
    EXPECT_EQ("2:[EFFECT]EffectName=FX_A;StartTime=0;StopTime=10;LayerID=1;\n"
              "an entry\n"
              "3:[MESSAGE]MessageText=flash;ActivationTime=5;TargetEffect=FX_A;Steps=4;TimeDelta=1;\n",
              listener.heard);
    EXPECT_FALSE(listener.inBlock);
}

TEST_F(Observed, WhatIsEatenUpIsToldAsABlockOfNoType)
{
    Listener listener;
    Read("[MUSIC][junk]FileName=a;[EFFECT]", &listener);
    EXPECT_EQ("1:[MUSIC]\n0:[junk]FileName=a;[EFFECT]\n", listener.heard);
    EXPECT_EQ(1u, boxes.size()) << "for the music that the first block lacks";
}

TEST_F(Observed, StepsCanBeLimitedAndAreNotUnlessTheyAre)
{
    Listener listener;
    Read(script, &listener);
    EXPECT_EQ(4u, listener.asked);
    EXPECT_EQ(4u, player.messages.size());
    Listener limiting;
    limiting.limit = 2;
    Read(script, &limiting);
    EXPECT_EQ(6u, player.messages.size());
}

TEST_F(Observed, EachMessageIsTakenOrRefusedByTheNumberOfItsParameters)
{
    Listener listener;
    listener.messagesTaken = 4;
    Read("[MESSAGE]MessageText=a;ActivationTime=5,6,;TargetEffect=FX_A;"
         "[MESSAGE]MessageText=b;ActivationTime=7;TargetEffect=FX_A;Steps=4;TimeDelta=1;Parameter=1,2,;",
         &listener);
    EXPECT_EQ((std::vector<size_t>{0, 0, 3, 3, 3, 3}), listener.parametersAsked)
        << "a comma at the end opens a last parameter, and no time";
    ASSERT_EQ(4u, player.messages.size());
    EXPECT_EQ(0.008f, player.messages[3].time);
}

TEST_F(Observed, AShowWithoutObserverIsTheSame)
{
    Read(script, nullptr);
    EXPECT_EQ(1u, player.timeline.size());
    EXPECT_EQ(4u, player.messages.size());
}
