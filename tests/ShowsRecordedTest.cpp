// SPDX-License-Identifier: MIT
// The scripts of tests/shows play from form to end, frame by frame on the stepped clock: each effect in a
// script of its own, and rows of them, where one begins on the state that another left behind.
#include "kernel/System.h"

#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/StartForm.h"
#include "platform/dialogs/StartFormHooks.h"
#include "tests/Folders.h"
#include "tests/support/AllEffectsShow.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/ReadFile.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

struct ShowCase {
    std::string script;
    int resolution; // the radio button of the form
};

static void PrintTo(const ShowCase& show, std::ostream* out)
{
    *out << show.script << " " << show.resolution;
}

static void InventPicture(const char* path)
{
    if (std::filesystem::exists(path))
        return;
    const std::string name = path;
    SavePicture(path,
                PlainPicture(1, 1, name.compare(name.size() - 4, 4, ".png") == 0 ? 4 : 3, 255, 255, 255));
}

static const char* const allEffects = "AllEffects"; // the only one that is no file

static std::string ScriptOf(const std::string& show)
{
    if (show == allEffects)
        return allEffectsShow::Script();
    const std::string path = "tests/shows/" + show + ".txt";
    EXPECT_TRUE(std::filesystem::exists(SOURCE_DIR "/" + path))
        << path << " is missing: a show of " << show << " with all its messages";
    return ReadFile(SOURCE_DIR "/" + path);
}

class Shows : public ShowFixture, public testing::WithParamInterface<ShowCase>
{
protected:
    Shows()
    {
        AddModelsAndShaders();
        AddFile("script.txt", ScriptOf(GetParam().script));

        gl::Reset(800, 600);
        gl::InventPictures(InventPicture);
        UseNullWindows();
        gl::FollowNullWindows(); // takes the frame observer, so the clock is moved by hand below
        platform::UseSteppedClock();
        const int resolution = GetParam().resolution;
        platform::AnswerStartForm([=](platform::StartForm& form) {
            form.Check(1007, false); // no music
            form.Click(resolution);
            return 1000; // "Go"
        });
    }
    ~Shows() override
    {
        platform::AnswerStartForm(nullptr);
        platform::SetFrameObserver(nullptr, nullptr);
        gl::InventPictures(nullptr);
    }
};

static int frames = 0;

TEST_P(Shows, PlaysToItsEndWithoutErrorsButThoseThatTheEffectsProvoke)
{
    ASSERT_TRUE(BuildSystem());
    ASSERT_TRUE(demoPlayer->LoadScript("script.txt"));
    EXPECT_TRUE(boxes.empty()) << "the script names nothing unknown";
    std::set<Effect*> scheduled;
    for (const EffectInstance& entry : demoPlayer->timeline)
        scheduled.insert(entry.effect);
    for (const SynchMessage& message : demoPlayer->messages) {
        EXPECT_NE(0, message.id) << "every message is one that its effect declared";
        EXPECT_TRUE(scheduled.count(message.effect));
    }
    if (GetParam().script == allEffects) {
        EXPECT_EQ(ProductionEffects().size(), scheduled.size());
    }

    frames = 0;
    platform::SetFrameObserver(
        [](void*) {
            frames++;
            platform::StepClock(1000000000 / 30);
        },
        nullptr);
    gl::ClearRecords();
    gl::Pause();
    demoPlayer->Run();
    gl::Resume();
    EXPECT_EQ(uint32_t(PlayerEnded), demoPlayer->state);
    EXPECT_GE(frames, int(demoPlayer->endTime * 30));
    EXPECT_TRUE(boxes.empty());
    // The loading screen and the towers pop once too often, the blur asks a program for what only shaders
    // have, and nothing else goes wrong.
    for (const gl::Error& error : gl::Errors())
        EXPECT_TRUE(error.code == GL_STACK_UNDERFLOW || error.text.rfind("glGetObjectParameterivARB", 0) == 0)
            << error.text;
}

static const int small = 1019, middle = 1020, large = 1021;

static std::vector<ShowCase> ShowsOfOneEffect()
{
    std::vector<ShowCase> shows;
    for (const EffectRecord& row : ProductionEffects())
        shows.push_back({row.key, large});
    return shows;
}

INSTANTIATE_TEST_SUITE_P(OfOneEffect, Shows, testing::ValuesIn(ShowsOfOneEffect()),
                         [](const testing::TestParamInfo<ShowCase>& show) { return show.param.script; });

INSTANTIATE_TEST_SUITE_P(OfMany, Shows,
                         testing::Values(ShowCase{"FlatScenes", small}, ShowCase{"FlatScenes", middle},
                                         ShowCase{"FlatScenes", large}, ShowCase{allEffects, small},
                                         ShowCase{allEffects, middle}, ShowCase{allEffects, large}),
                         [](const testing::TestParamInfo<ShowCase>& show) {
                             return show.param.script + std::to_string(show.param.resolution);
                         });
