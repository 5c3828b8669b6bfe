// SPDX-License-Identifier: MIT
// The script of the night, by the bar: a bar of the waltz is 1800 ms, a beat 600.
#include "tests/support/NightScript.h"
#include "art/music/ScoreReader.h"
#include "kernel/Production.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

static const uint32_t beat = 600, bar = 1800;
static const uint32_t dawn = 181 * bar; // the roll begins
static const uint32_t lastFade = 203 * bar + 2 * beat;

class TheNight : public testing::Test
{
protected:
    TheNight()
    {
        std::string error;
        EXPECT_TRUE(waltz::ReadScore(SOURCE_DIR "/art/music/score", score, error)) << error;
    }

    bool IsFlash(const NightScript::Message& message) const
    {
        return message.name == "flash" &&
               (message.effect == "WhiteFlashOverlay" || message.effect == "BlackFlashOverlay");
    }

    // The second look at a card, a bar after the first: it keeps the card bright under whatever is played there.
    static bool IsSecondLook(const NightScript::Message& message)
    {
        return message.name == "handFrakt" && message.time / bar % 3 == 2;
    }

    // The sky behind the last lines goes as they come up, on no stroke of the music, which is broadening then.
    static bool IsLastFade(const NightScript::Message& message)
    {
        return message.name == "fadeOut" && message.time == lastFade;
    }

    // When a message comes to an effect, in bars.
    std::vector<double> Bars(const std::string& effect, const std::string& name) const
    {
        std::vector<double> bars;
        for (const NightScript::Message& message : night.messages)
            if (message.effect == effect && message.name == name)
                bars.push_back(double(message.time) / bar);
        return bars;
    }

    NightScript night;
    waltz::Score score;
};

TEST_F(TheNight, UsesEveryEffect)
{
    ASSERT_FALSE(night.effects.empty());
    for (const std::string& effect : night.effects)
        EXPECT_NE(~0u, night.StartOf(effect)) << "no entry of Data/script.txt shows " << effect;
}

TEST_F(TheNight, SendsEveryMessageThatDoesSomething)
{
    const auto isIdle = [](const std::string& effect, const std::string& message) {
        const std::vector<std::string>& idle = FindRecord(effect)->idleMessages;
        return std::count(idle.begin(), idle.end(), message) > 0;
    };
    std::set<std::pair<std::string, std::string>> sent;
    for (const NightScript::Message& message : night.messages)
        sent.emplace(message.effect, message.name);
    for (const auto& [effect, name] : night.declared)
        EXPECT_EQ(!isIdle(effect, name), sent.count({effect, name}) == 1)
            << "Data/script.txt " << (isIdle(effect, name) ? "sends " : "never sends ") << effect
            << " the message " << name << (isIdle(effect, name) ? ", which changes nothing" : "");
    for (const auto& [effect, name] : sent)
        EXPECT_NE("?", name) << "a message that " << effect << " never declared";
}

TEST_F(TheNight, PutsEverythingOnABeat)
{
    for (const NightScript::Entry& entry : night.entries) {
        EXPECT_EQ(0u, entry.start % bar) << entry.effect;
        // Both moments belong to an entry: a black overlay that gives way to one below leaves ahead of the beat.
        const bool givesWay = entry.effect == "BlackFlashOverlay" && entry.stop < night.end;
        EXPECT_EQ(0u, (entry.stop + (givesWay ? 1 : 0)) % bar) << entry.effect;
    }
    for (const NightScript::Message& message : night.messages)
        EXPECT_EQ(0u, message.time % beat) << message.effect << " " << message.name << " " << message.time;
}

TEST_F(TheNight, LosesNoMessage)
{
    // A target must be on at the time, and still be on a few frames later when several are due at once.
    for (const NightScript::Message& message : night.messages) {
        const bool on =
            std::any_of(night.entries.begin(), night.entries.end(), [&](const NightScript::Entry& entry) {
                return entry.effect == message.effect && entry.start <= message.time &&
                       entry.stop >= message.time + beat;
            });
        EXPECT_TRUE(on) << message.effect << " " << message.name << " " << message.time;
    }
}

TEST_F(TheNight, MarksEveryBorderOfTheMusicWithAFlash)
{
    std::set<uint32_t> flashes;
    for (const NightScript::Message& message : night.messages)
        if (IsFlash(message))
            flashes.insert(message.time);
    for (const waltz::Section& section : score.sections) {
        const uint32_t border = uint32_t(section.firstBar) * bar;
        EXPECT_EQ(border > 0, flashes.count(border) == 1) << section.name;
    }
    // All others come with another message: the photograph's own flash, and the dark that lets the fish in.
    for (const uint32_t flash : flashes) {
        const bool border =
            std::any_of(score.sections.begin(), score.sections.end(),
                        [&](const auto& section) { return uint32_t(section.firstBar) * bar == flash; });
        const bool company =
            std::any_of(night.messages.begin(), night.messages.end(),
                        [&](const auto& message) { return message.time == flash && !IsFlash(message); });
        EXPECT_TRUE(border || company) << flash;
    }
}

TEST_F(TheNight, EveryFlashHasASpeedThatDecaysAndIsOfUse)
{
    for (const NightScript::Message& message : night.messages) {
        if (!IsFlash(message))
            continue;
        ASSERT_EQ(1u, message.params.size()) << message.time;
        if (message.time == dawn) { // slow enough to have a sky behind the roll, and to hide half of it still
            EXPECT_GT(message.params[0], 0.01f);
            EXPECT_LT(message.params[0], 0.03f);
            continue;
        }
        EXPECT_GE(message.params[0], 1) << message.time;
        EXPECT_LE(message.params[0], 6) << message.time;
    }
}

TEST_F(TheNight, FlashesLeaveAheadOfWhatElseIsDueAtTheirTime)
{
    // One message leaves per frame: the first of a time is the one that is exact.
    for (size_t i = 1; i < night.messages.size(); i++) {
        if (!IsFlash(night.messages[i]))
            continue;
        if (night.messages[i].time == 297000) // The sand is back a frame ahead: over black the flash is grey.
            EXPECT_EQ("trigger_base", night.messages[i - 1].name);
        else
            EXPECT_LT(night.messages[i - 1].time, night.messages[i].time);
    }
    // And no more than four are due at once.
    for (size_t i = 4; i < night.messages.size(); i++)
        EXPECT_LT(night.messages[i - 4].time, night.messages[i].time);
}

TEST_F(TheNight, OverlaysLieOverItAllUntilTheBlackOneGoesDownBehindTheRoll)
{
    uint32_t sky = 0, black = 0, roll = 0; // layers behind the roll, from back to front
    for (const NightScript::Entry& entry : night.entries) {
        const bool overlay = entry.effect.find("Overlay") != std::string::npos;
        if (overlay && entry.layer >= 90) {
            EXPECT_EQ(0u, entry.start) << entry.effect;
            // At dawn the black one would cover the fish for the frame of its own flash.
            EXPECT_EQ(entry.effect == "WhiteFlashOverlay" ? night.end : dawn - 1, entry.stop) << entry.effect;
        }
        if (!overlay) {
            EXPECT_LT(entry.layer, 90u) << entry.effect;
        }
        if (entry.stop < night.end || entry.layer >= 90)
            continue;
        if (entry.effect == "BlackFlashOverlay") {
            EXPECT_EQ(dawn, entry.start);
        }
        (overlay ? black : entry.effect == "FX_Clouds" ? sky : roll) = entry.layer;
    }
    EXPECT_LT(0u, sky);
    EXPECT_LT(sky, black);
    EXPECT_LT(black, roll);
    // Effects that are on together have layers of their own: those of one layer have no settled order.
    for (const NightScript::Entry& a : night.entries)
        for (const NightScript::Entry& b : night.entries)
            if (&a != &b && a.start < b.stop && b.start < a.stop) {
                EXPECT_NE(a.layer, b.layer) << a.effect << " and " << b.effect;
            }
}

// They leave the projection and the borders of their wide picture behind, into which whatever is drawn over them falls: the
// black flash too. In the frame in which they end, the painting begins, and it would be seen in those borders from below.
TEST_F(TheNight, NothingIsDrawnBeneathTheNames)
{
    int found = 0;
    for (const NightScript::Entry& names : night.entries) {
        if (names.effect != "FX_Credits")
            continue;
        found++;
        for (const NightScript::Entry& entry : night.entries) {
            if (entry.start <= names.stop && entry.stop >= names.start) {
                EXPECT_GE(entry.layer, names.layer) << entry.effect;
            }
        }
    }
    EXPECT_EQ(1, found);
}

TEST_F(TheNight, SomethingIsOnAtEveryMoment)
{
    for (uint32_t time = 0; time <= night.end; time += beat) {
        const bool scene =
            std::any_of(night.entries.begin(), night.entries.end(), [&](const NightScript::Entry& entry) {
                return entry.layer < 90 && entry.start <= time && time <= entry.stop;
            });
        EXPECT_TRUE(scene) << time;
    }
}

TEST_F(TheNight, TheBeatIsOnTimeAtEveryCutAndEveryMessage)
{
    std::map<uint32_t, std::string> times; // of the script, and what is there
    for (const NightScript::Entry& entry : night.entries) {
        times[entry.start] = entry.effect + " begins";
        times[entry.stop] = entry.effect + " ends";
    }
    for (const NightScript::Message& message : night.messages)
        if (!IsSecondLook(message) && !IsLastFade(message))
            times[message.time] = message.effect + " " + message.name;
    EXPECT_GT(times.size(), 90u);
    for (const auto& [time, what] : times)
        EXPECT_EQ(0, score.rubato.LateAt(time / 600.0))
            << what << " at " << time << ", where the music leaves its beat (the rubato of art/music/score)";
}

TEST_F(TheNight, EndsWithTheMusic)
{
    EXPECT_EQ(uint32_t(score.Bars()) * bar, night.end);
}

static std::vector<double> Every(double first, double step, int count)
{
    std::vector<double> bars;
    for (int i = 0; i < count; i++)
        bars.push_back(first + step * i);
    return bars;
}

TEST_F(TheNight, HandsReachUpOnTheFirstBarOfAPhraseAndCardsAreReadOnTheOthers)
{
    // The seventh hand is none: it takes the last card away before it is a shadow.
    EXPECT_EQ(Every(54, 3, 7), Bars("FX_Clouds", "hand"));
    std::vector<double> dives = Bars("FX_Clouds", "handFrakt");
    std::sort(dives.begin(), dives.end());
    EXPECT_EQ((std::vector<double>{55, 56, 58, 59, 61, 62, 64, 65, 67, 68, 70, 71}), dives);
    EXPECT_EQ(Every(60, 0, 1), Bars("FX_Clouds", "blend"));
}

TEST_F(TheNight, FourTreesArePlantedWithTheFourTunesAndTheLastOneIsRisenOver)
{
    // The trees on 79, 85 and 91, and each name a bar later. The first tree stands there already, and has its light
    // a beat before its name on 74.
    std::vector<double> bars = Bars("FX_Credits", "fade_in");
    EXPECT_NEAR(73 + 2 / 3.0, bars.at(0), 1e-9);
    bars.erase(bars.begin());
    EXPECT_EQ((std::vector<double>{74, 79, 80, 85, 86, 91}), bars);
    // The eighth step, and twice more the message that takes no further one, so that the last camera goes on.
    EXPECT_EQ((std::vector<double>{92, 93, 94}), Bars("FX_Credits", "fade_last_in"));
}

TEST_F(TheNight, TheTreeOfLightWaitsForTheCamera)
{
    const double camera = Bars("FX_Path", "trigger_cam").at(0);
    EXPECT_EQ(113, camera) << "the strings' long tune";
    for (const char* name : {"tree1", "tree2", "tree3"})
        for (const double at : Bars("FX_Path", name))
            EXPECT_GT(at, camera) << name;
    const std::vector<double> fires = Bars("FX_Path", "tree2");
    for (int climb = 129; climb <= 136; climb++) {
        const uint32_t early = climb == 131 ? beat : 0; // on the bar the camera would be in the ground
        EXPECT_TRUE(std::count(fires.begin(), fires.end(), (climb * double(bar) - early) / bar))
            << "bar " << climb;
    }
}

// Whether a part begins a note at a time of the script.
static bool Strikes(const waltz::Score& score, const char* part, uint32_t time)
{
    const std::vector<waltz::Tone>& tones = score.Find(part)->tones;
    return std::any_of(tones.begin(), tones.end(), [&](const waltz::Tone& tone) {
        return tone.beat * 600 > double(time) - 1 && tone.beat * 600 < double(time) + 1;
    });
}

TEST_F(TheNight, EachCardIsStruckAndTheSparksOfTheSkyHaveNotesOfTheirOwn)
{
    int cards = 0;
    for (const NightScript::Message& message : night.messages) {
        if (message.name != "handFrakt" || IsSecondLook(message))
            continue;
        cards++;
        for (const char* part : {"drum", "pizz", "celesta"})
            EXPECT_TRUE(Strikes(score, part, message.time)) << part << " " << message.time;
    }
    EXPECT_EQ(6, cards);
    for (const uint32_t spark : {43200u, 54000u, 72000u})
        EXPECT_TRUE(Strikes(score, "celesta", spark)) << spark;
}

TEST_F(TheNight, TheSandCrunchesLeftAndRightUnderEveryPrintAndNowhereElse)
{
    std::vector<double> prints, feet;
    for (const NightScript::Message& message : night.messages)
        if (message.effect == "FX_Footprint" && message.name == "step")
            prints.push_back(message.time / 600.0);
    int last = 0;
    for (const waltz::Tone& tone : score.Find("steps")->tones) {
        feet.push_back(tone.beat);
        EXPECT_NE(last, tone.pitch) << "the same foot twice at beat " << tone.beat;
        last = tone.pitch;
    }
    EXPECT_EQ(prints, feet);
}

TEST_F(TheNight, TheDrumWalksWithTheSteps)
{
    std::set<double> drum;
    for (const waltz::Tone& tone : score.Find("drum")->tones)
        drum.insert(tone.beat / 3);
    const std::vector<double> steps = Bars("FX_Footprint", "step");
    EXPECT_EQ(29u, steps.size());
    for (const double step : steps)
        EXPECT_TRUE(std::any_of(drum.begin(), drum.end(),
                                [&](double stroke) { return stroke > step - 1e-6 && stroke < step + 1e-6; }))
            << "bar " << step;
}

TEST_F(TheNight, ThePhotographAndTheFishComeOnTheirChords)
{
    EXPECT_EQ(Every(157, 4, 3), Bars("FX_FlashHand", "flash"));
    EXPECT_EQ(Every(177, 2, 2), Bars("FX_RopeThing", "shock"));
    EXPECT_EQ(Every(205, 0, 1), Bars("FX_VerticalScroller", "stopScroll"));
    EXPECT_EQ(205 * 3, score.Find("musicbox")->tones.back().beat) << "with the last note";
}
