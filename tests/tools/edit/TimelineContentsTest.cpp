// SPDX-License-Identifier: MIT
// What the timeline draws of the text as it stands is what the linter and marlinex-timeline make of the file.
#include "tools/edit/TimelineContents.h"

#include "tests/support/BusyShow.h"
#include "tests/support/EditedScript.h"
#include "tools/timeline/TimelineModel.h"

#include <gtest/gtest.h>

using namespace edit;

static TimelineContents Read(const EditedScript& script)
{
    return ReadContents(script.document.GetOutline());
}

static void ExpectAsTheToolHasIt(const EditedScript& script)
{
    const TimelineContents contents = Read(script);
    timeline::TimelineModel told;
    std::string reason;
    ASSERT_TRUE(timeline::ReadTimeline(script.document.Path(), {}, &told, &reason)) << reason;
    EXPECT_EQ(told.end, contents.model.end);
    EXPECT_EQ(told.loads, contents.model.loads);
    ASSERT_EQ(told.entries.size(), contents.model.entries.size());
    for (size_t i = 0; i < told.entries.size(); i++) {
        EXPECT_EQ(told.entries[i].start, contents.model.entries[i].start);
        EXPECT_EQ(told.entries[i].stop, contents.model.entries[i].stop);
        EXPECT_EQ(told.entries[i].layer, contents.model.entries[i].layer);
        EXPECT_EQ(told.entries[i].effect, contents.model.entries[i].effect);
        EXPECT_EQ(told.entries[i].wash, contents.model.entries[i].wash);
    }
    ASSERT_EQ(told.messages.size(), contents.model.messages.size());
    for (size_t i = 0; i < told.messages.size(); i++) {
        EXPECT_EQ(told.messages[i].time, contents.model.messages[i].time);
        EXPECT_EQ(told.messages[i].delay, contents.model.messages[i].delay);
        EXPECT_EQ(told.messages[i].name, contents.model.messages[i].name);
        EXPECT_EQ(told.messages[i].known, contents.model.messages[i].known);
        EXPECT_EQ(told.messages[i].parameters, contents.model.messages[i].parameters);
        EXPECT_EQ(told.messages[i].entries, contents.model.messages[i].entries) << i;
    }
}

TEST(TimelineContents, AreWhatTheTimelineToolMakesOfTheScript)
{
    ExpectAsTheToolHasIt(EditedScript(EditedScript::Night()));
}

TEST(TimelineContents, AreThatOfManyEntriesAndMessagesToo)
{
    ExpectAsTheToolHasIt(EditedScript(BusyScript(120)));
}

TEST(TimelineContents, NameTheItemOfEachEntryAndMessage)
{
    const EditedScript script(EditedScript::Night());
    const TimelineContents contents = Read(script);
    const size_t hand = script.Block("hand"), flash = script.Block("flash");
    ASSERT_EQ(6u, contents.model.messages.size());
    const std::vector<ItemId> wanted = {{flash, 0}, {flash, 0}, {flash, 0},
                                        {hand, 0},  {hand, 1},  {script.Block("flash_line"), 0}};
    EXPECT_EQ(wanted, contents.messageItems);
    const size_t clouds = contents.entryOf.at(script.Block("20000")); // the stop of the clouds
    EXPECT_EQ("FX_Clouds", contents.model.entries[clouds].effect);
    EXPECT_EQ((ItemId{script.Block("20000"), -1}), contents.entryItems[clouds]);
    EXPECT_EQ((std::vector<size_t>{3, 4}), contents.heard[clouds]);
    EXPECT_EQ((std::vector<size_t>{5}), contents.lost);
}

TEST(TimelineContents, HaveALaneForEachLayerTheFrontOneFirst)
{
    const EditedScript script(
        EditedScript::Entry("FX_Clouds", 0, 5000, 3) + EditedScript::Entry("FX_Towers", 4000, 9000, 3) +
        EditedScript::Entry("FX_Path", 0, 9000, 90) + EditedScript::Entry("FX_Credits", 9000, 9500, 3));
    const TimelineContents contents = Read(script);
    ASSERT_EQ(2u, contents.lanes.size());
    EXPECT_EQ(90u, contents.lanes[0].layer);
    EXPECT_EQ(1, contents.lanes[0].rows);
    EXPECT_EQ(3u, contents.lanes[1].layer);
    EXPECT_EQ(2, contents.lanes[1].rows) << "clouds and towers overlap";
    EXPECT_EQ((std::vector<size_t>{0, 3}), contents.inRow.at({3, 0}));
    EXPECT_EQ((std::vector<size_t>{1}), contents.inRow.at({3, 1}));
}

TEST(TimelineContents, KeepWhatTheShowDoesNotKnowSoThatItCanBeMended)
{
    const EditedScript script(EditedScript::Entry("FX_Clouds", 0, 5000, 1) +
                              EditedScript::Entry("FX_Clowds", 5000, 9000, 2) +
                              EditedScript::Message("FX_Clowds", "hand", "6000"));
    const TimelineContents contents = Read(script);
    ASSERT_EQ(2u, contents.model.entries.size());
    EXPECT_FALSE(contents.unknown[0]);
    EXPECT_TRUE(contents.unknown[1]);
    EXPECT_EQ("FX_Clowds", contents.model.entries[1].effect);
    EXPECT_EQ(2u, contents.lanes.size());
    EXPECT_EQ(5.0, contents.model.end) << "the show ends with what it knows";
    EXPECT_EQ(1u, contents.model.loads.size());
    EXPECT_EQ((std::vector<size_t>{0}), contents.lost);
}

TEST(TimelineContents, BoundTheMessagesOfAGroupWithoutEnd)
{
    const EditedScript script(
        EditedScript::Message("FX_Clouds", "hand", "0", "Steps=2000000000;\nTimeDelta=1;\n"));
    EXPECT_LE(Read(script).model.messages.size(), MaxMessages);
}
