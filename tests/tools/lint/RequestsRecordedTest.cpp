// SPDX-License-Identifier: MIT
// The linter's table of what effects ask for, against what they do: each effect is initialised, played for a
// while with every message that it knows, and the kernel tells which files were opened.
#include "tools/lint/Requests.h"

#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "platform/Clock.h"
#include "tests/Folders.h"
#include "tests/support/recorder/EffectFixture.h"
#include "tools/lint/Lint.h"

#include <filesystem>
#include <set>
#include <sys/inotify.h>
#include <unistd.h>

// The files of one folder that are opened from here on.
class OpenedFiles
{
public:
    explicit OpenedFiles(const std::string& folder) : queue(inotify_init1(IN_NONBLOCK))
    {
        EXPECT_GE(inotify_add_watch(queue, folder.c_str(), IN_OPEN), 0);
    }
    ~OpenedFiles() { close(queue); }

    std::set<std::string> Names() const
    {
        std::set<std::string> names;
        alignas(inotify_event) char events[65536];
        for (ssize_t got = read(queue, events, sizeof events); got > 0;
             got = read(queue, events, sizeof events))
            for (ssize_t at = 0; at < got;) {
                const inotify_event* const event = reinterpret_cast<const inotify_event*>(events + at);
                EXPECT_FALSE(event->mask & IN_Q_OVERFLOW);
                if (event->len > 0 && !(event->mask & IN_ISDIR))
                    names.insert(event->name);
                at += ssize_t(sizeof(inotify_event) + event->len);
            }
        return names;
    }

private:
    int queue;
};

class Requests : public EffectFixture, public testing::WithParamInterface<size_t>
{
protected:
    Requests() : opened(PathOf("")) { RegisterEffects(&registry); }

    EffectRegistry registry;
    OpenedFiles opened;
};

TEST_P(Requests, AreWhatTheEffectLoads)
{
    const lint::EffectRequests& row = lint::RequestsOfProduction()[GetParam()];
    Effect* const effect = registry.effects[GetParam()].effect;
    ASSERT_EQ(registry.effects[GetParam()].name, row.effect) << "in the order of registration";

    Prepare(effect);
    EXPECT_EQ(row.loadsOnce, effect->IsInitialised());
    const std::set<std::string> expected(row.files.begin(), row.files.end());
    EXPECT_EQ(expected.size(), row.files.size());
    EXPECT_EQ(expected, opened.Names());

    for (const SynchMessageDeclaration& message : messages.entries) {
        Send(effect, message.name);
        RunFor(effect, 2, 1.0 / 16);
    }
    RunFor(effect, 10, 1.0 / 16);
    for (const std::string& late : opened.Names())
        EXPECT_TRUE(expected.count(late)) << late << " is loaded during the show";
}

INSTANTIATE_TEST_SUITE_P(OfEffect, Requests, testing::Range(size_t(0), lint::RequestsOfProduction().size()),
                         [](const testing::TestParamInfo<size_t>& row) {
                             return std::string(lint::RequestsOfProduction()[row.param].effect);
                         });

class RequestTable : public EffectFixture
{
};

TEST_P(Requests, ThatAreNotMetHaveTheLossThatTheTableTells)
{
    const lint::EffectRequests& row = lint::RequestsOfProduction()[GetParam()];
    for (const std::string& name : row.files) {
        if (name.ends_with(".jpg") || name.ends_with(".png"))
            continue;
        SCOPED_TRACE(name);
        std::filesystem::rename(PathOf(name), PathOf("elsewhere"));
        boxes.clear();
        QuitWasPosted();
        EffectRegistry fresh;
        RegisterEffects(&fresh);
        Init(fresh.FindEffect(row.effect));
        const lint::Loss loss = lint::LossOf(name);
        EXPECT_EQ(loss == lint::LossIsSilent, boxes.empty());
        EXPECT_EQ(loss == lint::LossEndsShow, QuitWasPosted());
        std::filesystem::rename(PathOf("elsewhere"), PathOf(name));
    }
}

// The pictures by themselves: what was found once stays in the cache.
TEST_P(Requests, ForPicturesThatAreNotMetEndTheShow)
{
    const lint::EffectRequests& row = lint::RequestsOfProduction()[GetParam()];
    gl::InventPictures(nullptr);
    Init(registry.FindEffect(row.effect));
    size_t pictures = 0;
    for (const std::string& name : row.files)
        if (name.ends_with(".jpg") || name.ends_with(".png")) {
            EXPECT_EQ(lint::LossEndsShow, lint::LossOf(name));
            pictures++;
        }
    EXPECT_EQ(pictures, boxes.size());
    EXPECT_EQ(pictures > 0, QuitWasPosted());
}

TEST_F(RequestTable, HasEveryEffectOfTheProduction)
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    EXPECT_EQ(registry.effects.size(), lint::RequestsOfProduction().size());
    EXPECT_EQ(nullptr, lint::FindRequests("FX_Nothing"));
}

TEST_F(RequestTable, KnowsThePictureOfTheLoadingScreen)
{
    const OpenedFiles opened(PathOf(""));
    LoadingScreen screen(&window);
    screen.Init();
    EXPECT_EQ(std::set<std::string>{lint::loadingPicture}, opened.Names());
}

// What an effect draws that nothing was sent to: nothing, or something that leaves the picture as it is.
TEST_F(RequestTable, CallsOverlayWhatShowsNothingWithoutAMessage)
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    for (const RegisteredEffect& row : registry.effects) {
        if (!lint::FindRequests(row.name)->overlay)
            continue;
        SCOPED_TRACE(row.name);
        Prepare(row.effect);
        ShowFrame(row.effect, 0.5);
        Frame(row.effect);
        for (const gl::Draw& draw : gl::Draws()) {
            const bool addsNothing = row.name == "WhiteFlashOverlay";
            EXPECT_TRUE(addsNothing || row.name == "BlackFlashOverlay");
            EXPECT_TRUE(addsNothing ? gl::HasColour(draw, {0, 0, 0}) : gl::HasColour(draw, {1, 1, 1}));
            EXPECT_TRUE(addsNothing ? gl::Blends(draw, GL_ONE, GL_ONE)
                                    : gl::Blends(draw, GL_DST_COLOR, GL_ZERO));
        }
    }
}

TEST_F(RequestTable, MakesTheSecondsThatLoadingReallyTakes)
{
    std::vector<std::filesystem::path> scripts = {std::filesystem::path(SOURCE_DIR) / "Data/script.txt"};
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(SOURCE_DIR) / "tests/shows"))
        scripts.push_back(entry.path());
    lint::Options options;
    options.checkFiles = false;
    gl::Pause();
    for (const std::filesystem::path& script : scripts)
        for (uint32_t offset : {0, 20000}) {
            SCOPED_TRACE(script.string() + " from " + std::to_string(offset));
            std::filesystem::copy_file(script, PathOf("script.txt"),
                                       std::filesystem::copy_options::overwrite_existing);
            EffectRegistry registry;
            RegisterEffects(&registry);
            DemoPlayer show;
            show.SetStartOffset(offset);
            ASSERT_TRUE(show.Init(&window, &registry, nullptr, false));
            ASSERT_TRUE(show.LoadScript("script.txt"));
            show.state = PlayerRunning;
            const int64_t begin = platform::ReadCounter();
            show.InitEffects();
            options.startOffset = offset;
            const int loads = lint::CheckFile(script, options).show.loads;
            EXPECT_EQ(loads * platform::CounterFrequency(), platform::ReadCounter() - begin);
        }
}
