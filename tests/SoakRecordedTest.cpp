// SPDX-License-Identifier: MIT
// A day of each effect on the stepped clock, with all its messages again and again. The least that the
// process has in use, in bytes and in open files, is the same in each quarter of the day.
//
// MARLINEX_SOAK multiplies the number of frames that the day is made of and that of its messages; without it
// the frames are two minutes and more long, and the day takes a second.
#include "kernel/System.h"

#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/StartForm.h"
#include "platform/dialogs/StartFormHooks.h"
#include "tests/support/BytesInUse.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

static const int64_t day = 86400; // seconds
static const int fewestFrames = 600;
static const int fewestMessages = 100; // of a kind
static const int warmUp = 60;          // frames, in which each message comes ten times
static const size_t slack = 4096;      // bytes: small lists that grow when chance has it so
// Batches keep the room of the largest tree or of the most sparks so far, which chance makes larger now and then: the
// largest of 100 trees has 1,992 cubes, of 2,000 2,106. More rounds than five bring hardly larger ones.
static const size_t batchSlack = 256 * 1024;
static const int growingRounds = 5;

static int Rounds()
{
    const char* const soak = getenv("MARLINEX_SOAK");
    return soak ? std::max(atoi(soak), 1) : 1;
}

static int Frames()
{
    return fewestFrames * Rounds();
}

static int MessagesOfAKind()
{
    return fewestMessages * Rounds();
}

// What the least may grow by in some quarters of the day.
static size_t Allowed(const std::string& key, int quarters)
{
    const size_t sent = size_t(MessagesOfAKind() / 4 * quarters); // of each kind
    if (key == "FX_Credits" || key == "FX_Scroller_Intro")
        return batchSlack * size_t(std::min(Rounds(), growingRounds));
    if (key == "FX_RopeThing")
        return slack + 2 * sent * 608; // "intro" and "front" each keep a rope of 600 bytes
    if (key == "FX_Footprint")
        return slack + sent * 16; // prints of 8 bytes stay, in a list with room for twice as many
    return slack;
}

static size_t OpenFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return size_t(std::distance(begin(files), end(files)));
}

// The effect for the whole day, and each of its messages at even distances.
static std::string ScriptOf(const std::string& key)
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    std::string script = "[EFFECT] EffectName=" + key +
                         "; StartTime=0; StopTime=" + std::to_string(day * 1000) + "; LayerID=1;\n";
    for (const SynchMessageDeclaration& message : registry.GetMessageTable()->entries)
        if (message.owner == registry.FindEffect(key))
            script += "[MESSAGE] MessageText=" + message.name + "; ActivationTime=1000; TargetEffect=" + key +
                      "; Steps=" + std::to_string(MessagesOfAKind()) +
                      "; TimeDelta=" + std::to_string(day * 1000 / MessagesOfAKind()) + ";\n";
    return script;
}

class Day : public ShowFixture, public testing::WithParamInterface<std::string>
{
protected:
    Day()
    {
        AddModelsAndShaders();
        AddPicture("loading.jpg");
        for (const EffectRecord& row : ProductionEffects())
            for (const EffectFile& file : ListFiles(row.files))
                if (file.kind == TextureFile)
                    AddPicture(file.name);
        AddFile("script.txt", ScriptOf(GetParam()));

        gl::Reset(800, 600);
        UseNullWindows();
        gl::FollowNullWindows(); // takes the frame observer, which is the test's own below
        platform::UseSteppedClock();
        platform::AnswerStartForm([](platform::StartForm& form) {
            form.Check(1007, false); // no music
            return 1000;             // "Go"
        });
    }
    ~Day() override
    {
        platform::AnswerStartForm(nullptr);
        platform::SetFrameObserver(nullptr, nullptr);
    }

    static void AtSwap(void* user)
    {
        Day* const test = static_cast<Day*>(user);
        gl::ClearRecords(); // errors are kept even while paused
        test->debugText.clear();
        platform::StepClock(day * 1000000000 / Frames());
        test->frame++;
        const int quarter = test->frame * 4 / Frames();
        if (test->frame > warmUp && quarter < 4) {
            test->bytes[quarter] = std::min(test->bytes[quarter], BytesInUse());
            test->files[quarter] = std::min(test->files[quarter], OpenFiles());
        }
    }

    int frame = 0;
    size_t bytes[4] = {SIZE_MAX, SIZE_MAX, SIZE_MAX, SIZE_MAX};
    size_t files[4] = {SIZE_MAX, SIZE_MAX, SIZE_MAX, SIZE_MAX};
};

TEST_P(Day, KeepsNothing)
{
    ASSERT_TRUE(BuildSystem());
    ASSERT_TRUE(demoPlayer->LoadScript("script.txt"));
    platform::SetFrameObserver(AtSwap, this);
    gl::Pause();
    demoPlayer->Run();
    gl::Resume();
    EXPECT_EQ(uint32_t(PlayerEnded), demoPlayer->state);
    EXPECT_GE(frame, Frames());
    EXPECT_TRUE(boxes.empty());
    for (const int quarter : {1, 2, 3}) {
        EXPECT_LE(bytes[quarter], bytes[0] + Allowed(GetParam(), quarter)) << quarter;
        EXPECT_EQ(files[quarter], files[0]) << quarter;
    }
}

static std::vector<std::string> Keys()
{
    std::vector<std::string> keys;
    for (const EffectRecord& row : ProductionEffects())
        keys.push_back(row.key);
    return keys;
}

INSTANTIATE_TEST_SUITE_P(Of, Day, testing::ValuesIn(Keys()),
                         [](const testing::TestParamInfo<std::string>& row) { return row.param; });
