// SPDX-License-Identifier: MIT
// What goes into the sequencer: filtering, conversion, sorting. What comes out of it is in
// DemoPlayerRecordedTest.cpp.
#include "kernel/DemoPlayer.h"

#include "display/GLWindow.h"
#include "kernel/EffectRegistry.h"
#include "platform/Events.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/kernel/ProbeEffect.h"

#include <gtest/gtest.h>

#include <random>

class DemoPlayerTest : public testing::Test
{
protected:
    DemoPlayerTest()
    {
        platform::CollectMessageBoxes(&boxes);
        registry.Register("FX_A", &a, "FX_A");
        registry.Register("FX_B", &b, "FX_B");
        player.Init(&window, &registry, nullptr, false);
    }
    ~DemoPlayerTest() override { platform::CollectMessageBoxes(nullptr); }

    std::vector<platform::MessageBox> boxes;
    GLWindow window;
    EffectRegistry registry;
    ProbeEffect a, b;
    DemoPlayer player;
};

TEST(DemoPlayerBirth, AllFieldsHaveTheirStartValues)
{
    DemoPlayer player;
    EXPECT_EQ(0u, player.state);
    EXPECT_EQ(0u, player.startOffset);
    EXPECT_EQ(0.0f, player.endTime);
    EXPECT_EQ(nullptr, player.loadingScreen);
    EXPECT_EQ(nullptr, player.window);
    EXPECT_EQ(nullptr, player.registry);
    EXPECT_EQ(nullptr, player.music);
    EXPECT_TRUE(player.timeline.empty());
    EXPECT_TRUE(player.messages.empty());
    const ColorScheme scheme = player.GetColorScheme();
    const float expected[9] = {0, 0, 0, 1, 0, 0, 0, 0, 1};
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(expected[i], scheme.global[i]);
        EXPECT_EQ(expected[3 + i], scheme.support[i]);
        EXPECT_EQ(expected[6 + i], scheme.flow[i]);
    }
}

TEST(DemoPlayerBirth, StatesHaveTheirValues)
{
    EXPECT_EQ(1u, PlayerReady);
    EXPECT_EQ(2u, PlayerRunning);
    EXPECT_EQ(4u, PlayerEnded);
    EXPECT_EQ(8u, PlayerDestroyed);
    EXPECT_EQ(0x10u, PlayerFailed);
}

TEST(DemoPlayerBirth, InitWithoutWindowOrRegistryFails)
{
    GLWindow window;
    EffectRegistry registry;
    DemoPlayer one, two, three;
    EXPECT_FALSE(one.Init(nullptr, &registry, nullptr, false));
    EXPECT_EQ(uint32_t(PlayerFailed), one.state);
    EXPECT_FALSE(two.Init(&window, nullptr, nullptr, false));
    EXPECT_EQ(uint32_t(PlayerFailed), two.state);
    EXPECT_TRUE(three.Init(&window, &registry, nullptr, false));
    EXPECT_EQ(uint32_t(PlayerReady), three.state);
    EXPECT_EQ(nullptr, three.music) << "no music was asked for";
}

TEST(DemoPlayerBirth, AFailedPlayerNeitherLoadsNorRuns)
{
    DemoPlayer player;
    EXPECT_FALSE(player.LoadScript("script.txt"));
    player.Run();
    EXPECT_EQ(0u, player.state);
    player.Init(nullptr, nullptr, nullptr, false);
    EXPECT_FALSE(player.LoadScript("script.txt"));
    player.Run();
    EXPECT_EQ(uint32_t(PlayerFailed), player.state);
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind) << "the file was not even looked for";
}

TEST_F(DemoPlayerTest, TimesBecomeSecondsAndEndTimeIsTheLargestStop)
{
    EXPECT_TRUE(player.AddEffect(500, 30000, "FX_A", 9));
    EXPECT_TRUE(player.AddEffect(0, 1234, "FX_B", 1));
    ASSERT_EQ(2u, player.timeline.size());
    EXPECT_EQ(0.5f, player.timeline[0].start);
    EXPECT_EQ(30.0f, player.timeline[0].stop);
    EXPECT_EQ(9u, player.timeline[0].layer);
    EXPECT_EQ(&a, player.timeline[0].effect);
    EXPECT_EQ(1.234f, player.timeline[1].stop);
    EXPECT_EQ(&b, player.timeline[1].effect);
    EXPECT_EQ(30.0f, player.endTime);
}

TEST_F(DemoPlayerTest, AnUnknownEffectIsReportedAndDropped)
{
    EXPECT_FALSE(player.AddEffect(0, 1000, "FX_C", 0));
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Init", boxes[0].caption);
    EXPECT_EQ(0u, boxes[0].body.find("Bad: Unknown Effect Name!\r\n"));
    EXPECT_TRUE(player.timeline.empty());
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind) << "the show goes on";
}

TEST_F(DemoPlayerTest, AnEntryThatEndsExactlyAtTheOffsetIsDropped)
{
    player.SetStartOffset(1000);
    EXPECT_FALSE(player.AddEffect(0, 1000, "FX_A", 0));
    EXPECT_TRUE(player.AddEffect(0, 1001, "FX_A", 0));
    player.AddEffectInstance(0, 1000, &a, 0);
    ASSERT_EQ(1u, player.timeline.size());
    EXPECT_EQ(1.001f, player.timeline[0].stop);
}

TEST_F(DemoPlayerTest, AnEntryOfNoLengthAtTimeZeroIsDroppedEvenWithoutOffset)
{
    EXPECT_FALSE(player.AddEffect(0, 0, "FX_A", 0));
}

TEST_F(DemoPlayerTest, AWrongNameInADroppedEntryGoesUnnoticed)
{
    player.SetStartOffset(1000);
    EXPECT_FALSE(player.AddEffect(0, 1000, "no such effect", 0));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(DemoPlayerTest, ANegativeStopKeepsTheEntryAndMovesTheEndFarAway)
{
    EXPECT_TRUE(player.AddEffect(0, uint32_t(-1), "FX_A", 0));
    EXPECT_EQ(4294967.5f, player.endTime) << "4294967.295 among floats that are 0.5 apart";
}

TEST_F(DemoPlayerTest, MillisecondsBecomeTheNearestFloatAlsoWhereTheyAreNoFloatsThemselves)
{
    // From 16384 to 32768 floats are 2^-9 apart: 16777.219 is 8589936.128 of these steps.
    player.AddEffectInstance(16777219, 16777227, &a, 0);
    EXPECT_EQ(8589936 / 512.0f, player.timeline[0].start);
    EXPECT_EQ(8589940 / 512.0f, player.timeline[0].stop) << "8589940.224 steps";
    // In the millions they are 0.5 apart.
    player.AddMessage(uint32_t(-2998), "flash", nullptr, 0, "FX_A");
    EXPECT_EQ(4294964.5f, player.messages[0].time) << "4294964.298";
}

TEST_F(DemoPlayerTest, AMillisecondOfTheScriptIsTheSameMomentOnTheClock)
{
    platform::UseSteppedClock();
    FrameTimer::Init(0);
    for (uint32_t milliseconds = 10; milliseconds <= 600000; milliseconds += 10) {
        platform::StepClock(10000000);
        FrameTimer::Update();
        player.timeline.clear();
        player.AddEffectInstance(milliseconds, milliseconds, &a, 0);
        ASSERT_EQ(player.timeline[0].start, FrameTimer::GetTime()) << milliseconds;
        ASSERT_EQ(player.timeline[0].stop, FrameTimer::GetTime()) << milliseconds;
    }
    platform::UseRealClock();
}

TEST_F(DemoPlayerTest, AMessageExactlyAtTheOffsetIsKept)
{
    player.SetStartOffset(1000);
    player.AddMessage(999, "flash", nullptr, 0, "FX_A");
    player.AddMessage(1000, "flash", nullptr, 0, "FX_A");
    ASSERT_EQ(1u, player.messages.size());
    EXPECT_EQ(1.0f, player.messages[0].time);
}

TEST_F(DemoPlayerTest, AMessageForAnUnknownEffectIsReportedAndDroppedUnlessTheOffsetDropsItFirst)
{
    player.AddMessage(0, "flash", nullptr, 0, "FX_C");
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Message Init", boxes[0].caption);
    EXPECT_EQ(0u, boxes[0].body.find("Bad: Unknown Effect Name!\r\n"));
    EXPECT_TRUE(player.messages.empty());
    player.SetStartOffset(1);
    player.AddMessage(0, "flash", nullptr, 0, "FX_C");
    EXPECT_EQ(1u, boxes.size());
}

TEST_F(DemoPlayerTest, AMessageNameThatWasNeverDeclaredIsKeptWithIdZero)
{
    player.AddMessage(0, "thunder", nullptr, 0, "FX_A");
    ASSERT_EQ(1u, player.messages.size());
    EXPECT_EQ(0, player.messages[0].id);
    EXPECT_EQ(&a, player.messages[0].effect);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(DemoPlayerTest, AMessageOwnsACopyOfItsParameters)
{
    float params[2] = {1.5f, -2};
    player.AddMessage(2500, "step", params, 2, "FX_B");
    params[0] = 99;
    ASSERT_EQ(1u, player.messages.size());
    const SynchMessage& message = player.messages[0];
    EXPECT_EQ(2.5f, message.time);
    EXPECT_EQ(b.stepId, message.id);
    EXPECT_EQ(2, message.count);
    EXPECT_EQ(1.5f, message.params[0]);
    EXPECT_EQ(-2.0f, message.params[1]);
}

TEST_F(DemoPlayerTest, AMessageWithoutParametersHasAValidEmptyArray)
{
    player.AddMessage(0, "flash", nullptr, 0, "FX_A");
    EXPECT_EQ(0, player.messages[0].count);
    EXPECT_NE(nullptr, player.messages[0].params);
}

TEST_F(DemoPlayerTest, MusicInASilentShowDoesNothingAndSaysNothing)
{
    player.SetMusic("tune.ogg");
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind);
}

TEST_F(DemoPlayerTest, MessagesAreSortedByTimeAndEqualOnesKeepTheirOrder)
{
    std::mt19937 random(7);
    for (int i = 0; i < 60; i++) {
        const float serial = float(i);
        player.AddMessage(random() % 8 * 100, "flash", &serial, 1, "FX_A");
    }
    player.SortMessages();
    for (size_t i = 1; i < player.messages.size(); i++) {
        const SynchMessage &before = player.messages[i - 1], &after = player.messages[i];
        ASSERT_LE(before.time, after.time);
        if (before.time == after.time) {
            ASSERT_LT(before.params[0], after.params[0]);
        }
    }
}

TEST_F(DemoPlayerTest, MessagesInFallingOrderAreTurnedRoundDownToTheLastTwo)
{
    for (const uint32_t time : {3000, 2000, 1000})
        player.AddMessage(time, "flash", nullptr, 0, "FX_A");
    player.SortMessages();
    ASSERT_EQ(3u, player.messages.size());
    for (int i = 0; i < 3; i++)
        EXPECT_EQ(float(i + 1), player.messages[i].time);
}

TEST_F(DemoPlayerTest, SortingNoMessagesIsFine)
{
    player.SortMessages();
    EXPECT_TRUE(player.messages.empty());
}

// The sort of the active list as one would write it down from the rule: pointers stay where they are, the
// records that they point at are exchanged.
static void LiteralSort(std::vector<EffectInstance>& timeline, const std::vector<int>& active)
{
    for (int i = int(active.size()); i >= 2; i--)
        for (int j = 1; j <= i - 1; j++) {
            EffectInstance& left = timeline[active[j - 1]];
            EffectInstance& right = timeline[active[j]];
            if (left.layer > right.layer) {
                const EffectInstance kept = left;
                left = right;
                right = kept;
            }
        }
}

TEST_F(DemoPlayerTest, SortingTheActiveListPermutesTheTimelineItself)
{
    std::mt19937 random(11);
    for (int round = 0; round < 200; round++) {
        player.timeline.clear();
        const int size = 1 + int(random() % 9);
        for (int i = 0; i < size; i++) {
            // start serves as the record's name
            player.timeline.push_back({float(i), 1, uint32_t(random() % 4), &a});
        }
        std::vector<EffectInstance> expected = player.timeline;
        std::vector<EffectInstance*> active;
        std::vector<int> activeIndex;
        for (int i = 0; i < size; i++)
            if (random() % 3 != 0) {
                active.push_back(&player.timeline[i]);
                activeIndex.push_back(i);
            }
        const std::vector<EffectInstance*> pointers = active;
        player.SortActiveByLayer(active);
        LiteralSort(expected, activeIndex);
        EXPECT_EQ(pointers, active) << "the pointers stay";
        for (int i = 0; i < size; i++) {
            EXPECT_EQ(expected[i].start, player.timeline[i].start);
            EXPECT_EQ(expected[i].layer, player.timeline[i].layer);
        }
        for (size_t i = 1; i < active.size(); i++)
            EXPECT_LE(active[i - 1]->layer, active[i]->layer);
    }
}

TEST_F(DemoPlayerTest, LayersAreComparedUnsigned)
{
    player.AddEffect(0, 1000, "FX_A", uint32_t(-1));
    player.AddEffect(0, 1000, "FX_B", 1);
    std::vector<EffectInstance*> active = {&player.timeline[0], &player.timeline[1]};
    player.SortActiveByLayer(active);
    EXPECT_EQ(&b, player.timeline[0].effect) << "a layer of -1 is the frontmost of all";
}

TEST_F(DemoPlayerTest, EndStopsARunAndIsAState)
{
    player.End();
    EXPECT_EQ(uint32_t(PlayerEnded), player.state);
    EXPECT_FALSE(player.LoadScript("script.txt"));
}
