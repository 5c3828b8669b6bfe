// SPDX-License-Identifier: MIT
#include "tools/timeline/TimelineModel.h"

#include "tests/support/ShowFixture.h"
#include "tests/support/SoundFiles.h"

using namespace timeline;

class Timeline : public ShowFixture
{
protected:
    TimelineModel Read(const std::string& script, uint32_t offset = 0)
    {
        AddFile("script.txt", script);
        TimelineModel model;
        std::string reason;
        ReadOptions options;
        options.startOffset = offset;
        EXPECT_TRUE(ReadTimeline(PathOf("script.txt"), options, &model, &reason)) << reason;
        return model;
    }
};

static std::string EntryBlock(const std::string& effect, int start, int stop, int layer)
{
    return "[EFFECT]\nEffectName=" + effect + ";\nStartTime=" + std::to_string(start) +
           ";\nStopTime=" + std::to_string(stop) + ";\nLayerID=" + std::to_string(layer) + ";\n";
}

static std::string MessageBlock(const std::string& name, const std::string& times, const std::string& effect,
                                const std::string& more = "")
{
    return "[MESSAGE]\nMessageText=" + name + ";\nActivationTime=" + times + ";\nTargetEffect=" + effect +
           ";\n" + more;
}

TEST_F(Timeline, HoldsTheEntriesThatTheShowPlays)
{
    const TimelineModel model =
        Read(EntryBlock("FX_Clouds", 86400, 131400, 2) + EntryBlock("NoSuchEffect", 0, 500000, 1) +
             EntryBlock("WhiteFlashOverlay", 0, 100000, 90));
    ASSERT_EQ(2u, model.entries.size());
    EXPECT_EQ("FX_Clouds", model.entries[0].effect);
    EXPECT_NEAR(86.4, model.entries[0].start, 1e-5);
    EXPECT_NEAR(131.4, model.entries[0].stop, 1e-5);
    EXPECT_EQ(2u, model.entries[0].layer);
    EXPECT_EQ("WhiteFlashOverlay", model.entries[1].effect);
    EXPECT_EQ(90u, model.entries[1].layer);
    EXPECT_NEAR(131.4, model.end, 1e-5);
    EXPECT_EQ(0, model.start);
    EXPECT_EQ("script.txt", model.title);
    EXPECT_EQ(NightWash, model.entries[0].wash);
    EXPECT_EQ(MistWash, model.entries[1].wash);
}

TEST_F(Timeline, HoldsTheMessagesInTheOrderInWhichTheyLeave)
{
    const TimelineModel model =
        Read(EntryBlock("FX_Clouds", 0, 20000, 2) +
             MessageBlock("hand", "1000", "FX_Clouds", "Steps=3;\nTimeDelta=4000;\n") +
             MessageBlock("blend", "2000,900", "FX_Clouds", "Parameter=1.50,2.50;\n"));
    ASSERT_EQ(5u, model.messages.size());
    const char* const names[] = {"blend", "hand", "blend", "hand", "hand"};
    const double times[] = {0.9, 1, 2, 5, 9};
    for (size_t i = 0; i < 5; i++) {
        EXPECT_EQ(names[i], model.messages[i].name);
        EXPECT_NEAR(times[i], model.messages[i].time, 1e-6);
        EXPECT_EQ("FX_Clouds", model.messages[i].effect);
        EXPECT_EQ(std::vector<size_t>{0}, model.messages[i].entries);
    }
    // The reader loses the last character of the last number, and here it is a nought.
    EXPECT_EQ((std::vector<float>{1.5f, 2.5f}), model.messages[0].parameters);
    EXPECT_TRUE(model.messages[1].parameters.empty());
}

TEST_F(Timeline, AMessageReachesEveryEntryOfItsEffectThatIsOnStage)
{
    const TimelineModel model =
        Read(EntryBlock("FX_Clouds", 0, 20000, 2) + EntryBlock("FX_Path", 0, 60000, 1) +
             EntryBlock("FX_Clouds", 10000, 30000, 3) + EntryBlock("FX_Clouds", 50000, 60000, 3) +
             MessageBlock("hand", "0,9999,10000,15000,25000,40000,50000", "FX_Clouds"));
    ASSERT_EQ(7u, model.messages.size());
    EXPECT_EQ((std::vector<size_t>{0}), model.messages[0].entries);
    EXPECT_EQ((std::vector<size_t>{0, 2}), model.messages[2].entries);
    EXPECT_EQ((std::vector<size_t>{0, 2}), model.messages[3].entries);
    EXPECT_EQ((std::vector<size_t>{2}), model.messages[4].entries);
    EXPECT_TRUE(model.messages[5].entries.empty());
    EXPECT_EQ((std::vector<size_t>{3}), model.messages[6].entries);
}

TEST_F(Timeline, ListenersStandInTheOrderOfTheScriptAndLeaveWhenTheirEntriesStop)
{
    // In the script the later entries come first, and a short one lies inside a long one.
    const TimelineModel model =
        Read(EntryBlock("FX_Clouds", 20000, 30000, 4) + EntryBlock("FX_Clouds", 0, 40000, 2) +
             EntryBlock("FX_Clouds", 5000, 10000, 3) + EntryBlock("FX_Clouds", 9000, 8000, 5) +
             MessageBlock("hand", "25000,8500,12000,6000,35000", "FX_Clouds"));
    ASSERT_EQ(5u, model.messages.size());
    EXPECT_EQ((std::vector<size_t>{1, 2}), model.messages[0].entries); // at 6 s
    EXPECT_EQ((std::vector<size_t>{1, 2}), model.messages[1].entries); // 8.5 s
    EXPECT_EQ((std::vector<size_t>{1}), model.messages[2].entries);    // 12 s
    EXPECT_EQ((std::vector<size_t>{0, 1}), model.messages[3].entries); // 25 s
    EXPECT_EQ((std::vector<size_t>{1}), model.messages[4].entries);    // 35 s
}

TEST_F(Timeline, AMessageWhoseEffectIsNotOnStageReachesNobody)
{
    const TimelineModel model =
        Read(EntryBlock("FX_Clouds", 1000, 2000, 2) + MessageBlock("hand", "500,3000", "FX_Clouds") +
             MessageBlock("flash", "1500", "WhiteFlashOverlay"));
    ASSERT_EQ(3u, model.messages.size());
    for (const Message& message : model.messages)
        EXPECT_TRUE(message.entries.empty());
}

TEST_F(Timeline, AMessageThatTheEffectNeverDeclaredIsUnknownAndStillArrives)
{
    const TimelineModel model =
        Read(EntryBlock("FX_Clouds", 0, 2000, 2) + MessageBlock("wave", "500", "FX_Clouds"));
    ASSERT_EQ(1u, model.messages.size());
    EXPECT_FALSE(model.messages[0].known);
    EXPECT_EQ((std::vector<size_t>{0}), model.messages[0].entries);
}

TEST_F(Timeline, AStartOffsetDropsWhatTheRunDrops)
{
    const std::string script = EntryBlock("FX_Clouds", 0, 5000, 2) + EntryBlock("FX_Path", 0, 5001, 1) +
                               EntryBlock("FX_Towers", 7000, 9000, 1) +
                               MessageBlock("tree1", "4999,5000", "FX_Path");
    const TimelineModel model = Read(script, 5000);
    EXPECT_EQ(5, model.start);
    ASSERT_EQ(2u, model.entries.size());
    EXPECT_EQ("FX_Path", model.entries[0].effect);
    ASSERT_EQ(1u, model.messages.size());
    EXPECT_EQ(5, model.messages[0].time);
    EXPECT_EQ((std::vector<std::string>{"FX_Path", "FX_Towers"}), model.loads);
    EXPECT_NEAR(9, model.end, 1e-6);
    EXPECT_EQ(60, Read(script, 60000).end); // over as soon as it has begun
}

TEST_F(Timeline, FourEffectsLoadOnceAndTheOthersForEachEntry)
{
    std::string script;
    for (const char* effect : {"FX_Credits", "FX_Scroller_Intro", "FX_Path", "Transition_Fish", "FX_Towers",
                               "FX_Clouds", "FX_FlashHand", "FX_Footprint", "FX_VerticalScroller",
                               "FX_RopeThing", "FS_Image", "WhiteFlashOverlay", "BlackFlashOverlay"})
        script += EntryBlock(effect, 0, 1000, 1) + EntryBlock(effect, 2000, 3000, 1);
    const TimelineModel model = Read(script);
    EXPECT_EQ(26u, model.entries.size());
    EXPECT_EQ(22u, model.loads.size());
    for (const char* once : {"FX_Clouds", "FS_Image", "WhiteFlashOverlay", "BlackFlashOverlay"})
        EXPECT_EQ(1, std::count(model.loads.begin(), model.loads.end(), once)) << once;
    EXPECT_EQ(2, std::count(model.loads.begin(), model.loads.end(), "FX_Path"));
}

TEST_F(Timeline, TheMusicOfTheLastBlockCounts)
{
    soundfiles::Write(PathOf("one.wav"), soundfiles::Tune(44100, 2, 44100), soundfiles::KindOf("16bit.wav"));
    soundfiles::Write(PathOf("two.wav"), soundfiles::Tune(44100, 2, 88200), soundfiles::KindOf("16bit.wav"));
    const TimelineModel model = Read("[MUSIC]\nFileName=one.wav;\n[MUSIC]\nFileName=two.wav;\n");
    EXPECT_EQ("two.wav", model.music.file);
    EXPECT_TRUE(model.music.plays);
    EXPECT_NEAR(2, model.music.wave.Length(), 1e-4);
}

TEST_F(Timeline, MusicThatIsMissingOrBrokenDoesNotPlay)
{
    TimelineModel model = Read("[MUSIC]\nFileName=gone.ogg;\n");
    EXPECT_EQ("gone.ogg", model.music.file);
    EXPECT_FALSE(model.music.plays);
    AddFile("noise.ogg", "this is no music");
    model = Read("[MUSIC]\nFileName=noise.ogg;\n");
    EXPECT_EQ("noise.ogg", model.music.file);
    EXPECT_FALSE(model.music.plays);
}

TEST_F(Timeline, AScriptWithoutMusicIsSilent)
{
    const TimelineModel model = Read(EntryBlock("FX_Clouds", 0, 5000, 2));
    EXPECT_EQ("", model.music.file);
    EXPECT_FALSE(model.music.plays);
    EXPECT_TRUE(model.music.wave.Empty());
}

TEST_F(Timeline, MusicOfAnotherFolderIsFoundThere)
{
    soundfiles::Write(PathOf("one.wav"), soundfiles::Tune(44100, 2, 44100), soundfiles::KindOf("16bit.wav"));
    const std::string place = soundfiles::TemporaryPath("script.txt");
    soundfiles::WriteBytes(place, "[MUSIC]\nFileName=one.wav;\n");
    TimelineModel model;
    std::string reason;
    ReadOptions options; // the show's data directory is the fixture's
    ASSERT_TRUE(ReadTimeline(place, options, &model, &reason));
    EXPECT_TRUE(model.music.plays);
    options.data = "/nowhere";
    ASSERT_TRUE(ReadTimeline(place, options, &model, &reason));
    EXPECT_FALSE(model.music.plays);
}

TEST_F(Timeline, AnEmptyScriptIsAnEmptyShow)
{
    const TimelineModel model = Read("");
    EXPECT_TRUE(model.entries.empty());
    EXPECT_TRUE(model.messages.empty());
    EXPECT_TRUE(model.loads.empty());
    EXPECT_EQ(0, model.end);
}

TEST_F(Timeline, AFileThatCannotBeReadGivesItsReason)
{
    TimelineModel model;
    std::string reason;
    EXPECT_FALSE(ReadTimeline(PathOf("missing.txt"), {}, &model, &reason));
    EXPECT_EQ("No such file or directory", reason);
    EXPECT_FALSE(ReadTimeline(PathOf("."), {}, &model, &reason));
    EXPECT_FALSE(reason.empty());
}
