// SPDX-License-Identifier: MIT
// The records of the effects against what the effects do: each is initialised, played for a while with every
// message that it knows, and the kernel tells which files were opened.
#include "kernel/Production.h"

#include "kernel/EffectRegistry.h"
#include "kernel/LoadingScreen.h"
#include "math/Random.h"
#include "tests/support/recorder/EffectFixture.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>
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

static std::set<std::string> Names(const std::vector<EffectFile>& files)
{
    std::set<std::string> names;
    for (const EffectFile& file : files)
        EXPECT_TRUE(names.insert(file.name).second) << file.name << " stands twice in the list";
    return names;
}

static void PrintTo(const EffectRecord& row, std::ostream* out)
{
    *out << row.key;
}

class EffectRecords : public EffectFixture, public testing::WithParamInterface<EffectRecord>
{
protected:
    EffectRecords() : opened(PathOf("")), effect(Make()) {}

    // A new object of the effect, which lives as long as the test.
    Effect* Make()
    {
        made.emplace_back(GetParam().make());
        return made.back().get();
    }

    OpenedFiles opened;
    std::vector<std::unique_ptr<Effect>> made;
    Effect* effect;
};

TEST_P(EffectRecords, ListTheFilesThatTheEffectLoads)
{
    Prepare(effect);
    EXPECT_EQ(GetParam().loadsOnce, effect->IsInitialised()) << "loadsOnce in kernel/Production.cpp";
    const std::set<std::string> listed = Names(ListFiles(GetParam().files));
    EXPECT_EQ(listed, opened.Names()) << "the lists of " << GetParam().key << "::files, and what Init opened";

    for (const SynchMessageDeclaration& message : messages.entries) {
        Send(effect, message.name);
        RunFor(effect, 2, 1.0 / 16);
    }
    RunFor(effect, 10, 1.0 / 16);
    for (const std::string& late : opened.Names())
        EXPECT_TRUE(listed.count(late)) << late << " is loaded during the show";
}

// Textures in a test of their own: what was found once stays in the cache.
TEST_P(EffectRecords, TellByTheKindOfAFileWhatItsLossDoes)
{
    for (const EffectFile& file : ListFiles(GetParam().files)) {
        if (file.kind == TextureFile)
            continue;
        SCOPED_TRACE(file.name);
        std::filesystem::rename(PathOf(file.name), PathOf("elsewhere"));
        boxes.clear();
        QuitWasPosted();
        Init(Make());
        EXPECT_EQ(file.kind == ModelFile, boxes.empty());
        EXPECT_EQ(file.kind == ProgramFile, QuitWasPosted());
        std::filesystem::rename(PathOf("elsewhere"), PathOf(file.name));
    }
}

TEST_P(EffectRecords, ATextureThatIsMissingEndsTheShow)
{
    gl::InventPictures(nullptr);
    Init(effect);
    size_t textures = 0;
    for (const EffectFile& file : ListFiles(GetParam().files))
        textures += file.kind == TextureFile ? 1 : 0;
    EXPECT_EQ(textures, boxes.size());
    EXPECT_EQ(textures > 0, QuitWasPosted());
}

TEST_P(EffectRecords, NameOnlyMessagesThatTheEffectDeclares)
{
    Declare(effect);
    const auto expectDeclared = [&](const std::string& name, const char* field) {
        EXPECT_NE(0, messages.FindMessage(name.c_str(), effect))
            << "kernel/Production.cpp has '" << name << "' in the " << field << " of " << GetParam().key
            << ", which declares no such message";
    };
    for (const std::string& name : GetParam().idleMessages)
        expectDeclared(name, "idleMessages");
    for (const MessageOrder& order : GetParam().orders) {
        expectDeclared(order.after, "orders");
        const std::string begin = order.begin;
        EXPECT_TRUE(std::any_of(
            messages.entries.begin(), messages.entries.end(),
            [&](const SynchMessageDeclaration& message) { return message.name.starts_with(begin); }))
            << "kernel/Production.cpp has '" << begin << "' in the orders of " << GetParam().key
            << ", which declares no message that begins so";
    }
    for (const MessageLimit& limit : GetParam().limits) {
        expectDeclared(limit.message, "limits");
        expectDeclared(limit.harmless, "limits");
    }
}

// A frame's calls, but for the names of programs and lists, of which each effect has its own.
static std::vector<std::string> DrawnCalls()
{
    std::vector<std::string> calls = gl::Calls();
    std::erase_if(calls, [](const std::string& call) {
        return call.starts_with("glUseProgram") || call.starts_with("glCallList");
    });
    return calls;
}

// Two shows, of which one got the message, draw the same.
TEST_P(EffectRecords, CallIdleWhatChangesNothing)
{
    for (const std::string& name : GetParam().idleMessages) {
        SCOPED_TRACE(name);
        std::vector<std::string> calls[2];
        for (const bool sent : {false, true}) {
            Effect* const each = Make();
            SeedRandom(1);
            StartTimer();
            Prepare(each);
            RunFor(each, 1, 1.0 / 16);
            if (sent)
                Send(each, name);
            RunFor(each, 1, 1.0 / 16);
            Frame(each);
            calls[sent] = DrawnCalls();
        }
        EXPECT_FALSE(calls[false].empty());
        EXPECT_EQ(calls[false], calls[true]);
    }
}

// Adding black or multiplying by white leaves the picture as it is.
static bool ChangesNothing(const gl::Draw& draw)
{
    return (gl::Blends(draw, GL_ONE, GL_ONE) && gl::HasColour(draw, {0, 0, 0})) ||
           (gl::Blends(draw, GL_DST_COLOR, GL_ZERO) && gl::HasColour(draw, {1, 1, 1}));
}

// An overlay to which nothing was sent shows nothing, and what it shows on a message lets through what lies below.
TEST_P(EffectRecords, CallOverlayWhatShowsNothingWithoutAMessageAndIsNeverOpaque)
{
    Prepare(effect);
    bool isOverlay = true;
    for (int i = 0; i < 4; i++) {
        RunFor(effect, 0.5, 1.0 / 16);
        Frame(effect);
        for (const gl::Draw& draw : gl::Draws())
            isOverlay = isOverlay && ChangesNothing(draw);
    }
    for (const SynchMessageDeclaration& message : messages.entries) {
        Send(effect, message.name);
        RunFor(effect, 0.25, 1.0 / 16);
        Frame(effect);
        for (const gl::Draw& draw : gl::Draws())
            isOverlay = isOverlay && !gl::DoesNotBlend(draw);
    }
    EXPECT_EQ(GetParam().isOverlay, isOverlay) << "isOverlay in kernel/Production.cpp";
}

INSTANTIATE_TEST_SUITE_P(Of, EffectRecords, testing::ValuesIn(ProductionEffects()),
                         [](const testing::TestParamInfo<EffectRecord>& row) { return row.param.key; });

class Production : public EffectFixture
{
};

TEST_F(Production, RegistersItsEffectsInTheOrderOfItsRecords)
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    ASSERT_EQ(ProductionEffects().size(), registry.effects.size());
    for (size_t i = 0; i < registry.effects.size(); i++) {
        EXPECT_EQ(ProductionEffects()[i].key, registry.effects[i].name);
        EXPECT_EQ(&ProductionEffects()[i], FindRecord(registry.effects[i].name));
    }
    EXPECT_EQ(nullptr, FindRecord("FX_Nothing"));
}

TEST_F(Production, LoadsBehindThePictureOfTheLoadingScreen)
{
    const OpenedFiles opened(PathOf(""));
    LoadingScreen screen(&window);
    screen.Init();
    EXPECT_EQ(std::set<std::string>{loadingPicture}, opened.Names());
}
