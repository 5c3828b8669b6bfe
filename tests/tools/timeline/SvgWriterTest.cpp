// SPDX-License-Identifier: MIT
// The picture read back as XML and compared with what the show's own player made of the same script.
#include "tools/timeline/SvgWriter.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/support/BusyShow.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/Xml.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

using namespace timeline;

static XmlElement Parse(const std::string& svg)
{
    XmlElement root;
    std::string error;
    EXPECT_TRUE(ParseXml(svg, &root, &error)) << error;
    EXPECT_EQ("svg", root.name);
    EXPECT_EQ("http://www.w3.org/2000/svg", root["xmlns"]);
    return root;
}

class TimelineSvg : public ShowFixture
{
protected:
    XmlElement Draw(const std::string& path, double width = 1600, double zoom = 1)
    {
        std::string reason;
        EXPECT_TRUE(ReadTimeline(path, {}, &model, &reason)) << reason;
        LayoutOptions options;
        options.width = width;
        options.zoom = zoom;
        return Parse(SvgPicture(model, LayOut(model, options)));
    }

    // The script as the show has it, read without the timeline's help.
    void Play(const std::string& name)
    {
        static EffectRegistry registry;
        if (registry.effects.empty())
            RegisterEffects(&registry);
        ASSERT_TRUE(player.Init(&window, &registry, nullptr, false));
        std::vector<platform::MessageBox> ignored;
        platform::CollectMessageBoxes(&ignored);
        ASSERT_TRUE(player.LoadScript(name));
        for (const RegisteredEffect& row : registry.effects)
            names[row.effect] = row.name;
    }

    void ExpectPictureOfThePlayer(const XmlElement& svg);

    TimelineModel model;
    GLWindow window;
    DemoPlayer player;
    std::map<Effect*, std::string> names;
};

static std::string Milliseconds(float seconds)
{
    return std::to_string(std::lround(double(seconds) * 1000));
}

// Each entry its bar, each message its tick on the bars that hear it or in the lane of the lost.
void TimelineSvg::ExpectPictureOfThePlayer(const XmlElement& svg)
{
    const double zero = svg.Number("data-zero"), perSecond = svg.Number("data-per-second");
    const std::vector<const XmlElement*> bars = svg.All("g", "entry");
    ASSERT_EQ(player.timeline.size(), bars.size());
    for (size_t i = 0; i < bars.size(); i++) {
        const EffectInstance& entry = player.timeline[i];
        const XmlElement& bar = *bars[i];
        EXPECT_EQ(names[entry.effect], bar["data-effect"]);
        EXPECT_EQ(std::to_string(entry.layer), bar["data-layer"]);
        EXPECT_EQ(Milliseconds(entry.start), bar["data-start"]);
        EXPECT_EQ(Milliseconds(entry.stop), bar["data-stop"]);
        EXPECT_EQ(0u, bar.Title().find(names[entry.effect] + "\nlayer " + std::to_string(entry.layer)));
        const XmlElement* const box = bar.Child("rect");
        ASSERT_NE(nullptr, box);
        // The figures are rounded to hundredths.
        EXPECT_NEAR(zero + double(entry.start) * perSecond, box->Number("x"), 0.02);
        // Too short to be seen is 1.5 wide.
        EXPECT_NEAR(std::max(double(entry.stop - entry.start) * perSecond, 1.5), box->Number("width"), 0.02);
    }

    // The times of all ticks, by the entry that hears them.
    std::multiset<std::string> expected, found;
    const double frame = 1.0 / 60;
    double free = 0; // the first frame that hands nothing out yet
    for (const SynchMessage& message : player.messages) {
        const double due = std::ceil(std::lround(double(message.time) * 1000) / 1000.0 / frame - 1e-6);
        const double leaves = std::max(due, free);
        free = leaves + 1;
        bool heard = false;
        for (size_t i = 0; i < player.timeline.size(); i++) {
            const EffectInstance& entry = player.timeline[i];
            const auto exact = [](float seconds) { return std::lround(double(seconds) * 1000) / 1000.0; };
            if (entry.effect == message.effect && leaves * frame >= exact(entry.start) - 1e-6 &&
                leaves * frame <= exact(entry.stop) + 1e-6) {
                expected.insert(std::to_string(i) + " " + Milliseconds(message.time));
                heard = true;
            }
        }
        if (!heard)
            expected.insert("lost " + Milliseconds(message.time));
    }
    const auto gather = [&](const XmlElement& tick, const std::string& where) {
        std::istringstream times(tick["data-times"]);
        const XmlElement* const sense = &tick.children.back(); // what feels the pointer
        for (std::string each; times >> each;) {
            found.insert(where + " " + each);
            const double x = zero + atof(each.c_str()) / 1000 * perSecond;
            if (atof(each.c_str()) / 1000 <= svg.Number("data-end") / 1000) {
                EXPECT_GE(x, sense->Number("x") - 0.02);
                EXPECT_LE(x, sense->Number("x") + sense->Number("width") + 0.02);
            }
        }
        EXPECT_NE("", tick.Title());
    };
    size_t onBars = 0;
    for (size_t i = 0; i < bars.size(); i++)
        for (const XmlElement* tick : bars[i]->All("g", "message")) {
            gather(*tick, std::to_string(i));
            onBars++;
        }
    for (const XmlElement* tick : svg.All("g", "message"))
        if ((*tick)["data-fate"] == "lost") {
            gather(*tick, "lost");
            onBars++;
        }
    EXPECT_EQ(svg.All("g", "message").size(), onBars);
    EXPECT_EQ(expected, found);
}

TEST_F(TimelineSvg, TheNightIsDrawnAsItPlays)
{
    UseRealData();
    const XmlElement svg = Draw(platform::DataPath("script.txt"));
    Play("script.txt");
    ASSERT_GT(player.timeline.size(), 10u);
    ExpectPictureOfThePlayer(svg);

    EXPECT_EQ("1600", svg["width"]);
    const std::string& end = svg["data-end"];
    EXPECT_LE(std::lround(double(player.endTime) * 1000), atol(end.c_str()));
    const XmlElement& music = *svg.All("g", "music").at(0);
    EXPECT_EQ(0u, music.Title().find("moonwaltz.ogg\n"));
}

TEST_F(TimelineSvg, FiveHundredEntriesAreDrawnAsTheyPlay)
{
    AddFile("script.txt", BusyScript(500));
    Play("script.txt");
    ASSERT_EQ(500u, player.timeline.size());
    ExpectPictureOfThePlayer(Draw(PathOf("script.txt")));
    ExpectPictureOfThePlayer(Draw(PathOf("script.txt"), 480));
    ExpectPictureOfThePlayer(Draw(PathOf("script.txt"), 1600, 8));
}

// Washes are numbered in the order in which they are met, so bars of one fill are painted alike.
TEST_F(TimelineSvg, EffectsAreOnlyPaintedAlikeWhenAllWashesLieBetweenThemInTheListing)
{
    std::string script;
    for (const EffectRecord& row : ProductionEffects()) {
        EXPECT_LT(row.wash, WashCount) << row.key;
        script +=
            std::string("[EFFECT]\nEffectName=") + row.key + ";\nStartTime=0;\nStopTime=10000;\nLayerID=1;\n";
    }
    AddFile("script.txt", script);
    const XmlElement svg = Draw(PathOf("script.txt"));
    const std::vector<const XmlElement*> bars = svg.All("g", "entry");
    ASSERT_EQ(ProductionEffects().size(), bars.size());
    for (size_t i = 0; i < bars.size(); i++)
        for (size_t before = i < WashCount ? 0 : i - (WashCount - 1); before < i; before++)
            EXPECT_NE((*bars[before]->Child("rect"))["fill"], (*bars[i]->Child("rect"))["fill"])
                << (*bars[before])["data-effect"] << " and " << (*bars[i])["data-effect"];
    EXPECT_EQ(size_t(WashCount), svg.All("linearGradient").size() - 1) << "one more is that of the lanes";
}

TEST_F(TimelineSvg, TheLoadingLiesLeftOfTheStartOnTheSameScale)
{
    UseRealData();
    const XmlElement svg = Draw(platform::DataPath("script.txt"));
    const XmlElement& loading = *svg.All("g", "loading").at(0);
    EXPECT_EQ(std::to_string(model.loads.size()), loading["data-seconds"]);
    EXPECT_EQ(0u,
              loading.Title().find("loading takes at least " + std::to_string(model.loads.size()) + " s"));
    const XmlElement* const ground = loading.Child("rect");
    EXPECT_NEAR(svg.Number("data-zero"), ground->Number("x") + ground->Number("width"), 0.02);
    EXPECT_NEAR(double(model.loads.size()) * svg.Number("data-per-second"), ground->Number("width"), 0.02);
}

// The leftmost and rightmost x of a path of relative steps.
static std::pair<double, double> ExtentOf(const std::string& path)
{
    std::string spaced;
    for (const char c : path)
        spaced += c == 'M' || c == 'l' || c == 'z' ? " " : c == '-' ? " -" : std::string(1, c);
    std::istringstream numbers(spaced);
    double x = 0, left = 1e9, right = -1e9, stepX, stepY;
    while (numbers >> stepX >> stepY) {
        x += stepX;
        left = std::min(left, x);
        right = std::max(right, x);
    }
    return {left, right};
}

TEST_F(TimelineSvg, TheWaveformReachesFromTheStartToTheEndOfTheMusic)
{
    soundfiles::Write(PathOf("tune.wav"), soundfiles::Tune(44100, 2, 44100 * 7),
                      soundfiles::KindOf("16bit.wav"));
    AddFile("script.txt",
            "[MUSIC]\nFileName=tune.wav;\n[EFFECT]\nEffectName=FX_Path;\nStartTime=0;\nStopTime=10000;\n"
            "LayerID=1;\n");
    const XmlElement svg = Draw(PathOf("script.txt"));
    const XmlElement& music = *svg.All("g", "music").at(0);
    EXPECT_EQ("7 s", music["data-length"]);
    EXPECT_NE(std::string::npos, music.Title().find("the last 3 s of the show are silent"));
    const std::vector<const XmlElement*> outlines = music.All("path");
    ASSERT_EQ(2u, outlines.size()); // peaks and loudness
    for (const XmlElement* outline : outlines) {
        const auto [left, right] = ExtentOf((*outline)["d"]);
        EXPECT_NEAR(svg.Number("data-zero"), left, 0.02);
        EXPECT_NEAR(svg.Number("data-zero") + 7 * svg.Number("data-per-second"), right, 0.02);
    }
}

TEST_F(TimelineSvg, MissingMusicIsToldInItsPlace)
{
    AddFile("script.txt", "[MUSIC]\nFileName=gone.ogg;\n");
    const std::string title = Draw(PathOf("script.txt")).All("g", "music").at(0)->Title();
    EXPECT_EQ("gone.ogg\ncan't be opened: the show will not start", title);
    AddFile("script.txt", "");
    EXPECT_EQ("no music: the show plays in silence",
              Draw(PathOf("script.txt")).All("g", "music").at(0)->Title());
}

TEST_F(TimelineSvg, AnEmptyScriptIsAnEmptyPicture)
{
    AddFile("script.txt", "# nothing to see #");
    const XmlElement svg = Draw(PathOf("script.txt"));
    EXPECT_TRUE(svg.All("g", "entry").empty());
    EXPECT_TRUE(svg.All("g", "message").empty());
    EXPECT_TRUE(svg.All("g", "loading").empty());
    EXPECT_EQ(1u, svg.All("g", "music").size());
}

TEST(TimelineSvgText, RemarksBecomeFlagsAndLines)
{
    const TimelineModel busy = BusyShow(20, 10, 12);
    const XmlElement svg = Parse(SvgPicture(busy, LayOut(busy, {})));
    std::set<std::string> numbers;
    for (const XmlElement* flag : svg.All("g", "remark")) {
        std::istringstream list((*flag)["data-numbers"]);
        for (std::string each; list >> each;) {
            EXPECT_TRUE(numbers.insert(each).second);
            EXPECT_NE(std::string::npos,
                      flag->Title().find(busy.remarks[size_t(atoi(each.c_str()) - 1)].text));
        }
    }
    const auto placed = std::count_if(busy.remarks.begin(), busy.remarks.end(),
                                      [](const Remark& remark) { return remark.placed; });
    EXPECT_EQ(size_t(placed), numbers.size());
}

TEST(TimelineSvgText, OddNamesComeThroughWhole)
{
    const std::string odd = "<b>&amp; \"it's\" ]]> \xc3\xa4\xe6\x9c\x88 -- #{}\\";
    TimelineModel model;
    model.title = odd;
    model.end = 100;
    model.entries = {{0, 100, 1, odd, SlateWash}};
    model.messages = {{50, 0, odd, true, odd, {}, {0}}};
    model.music.file = odd;
    model.remarks = {{true, true, 1, 2, odd}};
    const XmlElement svg = Parse(SvgPicture(model, LayOut(model, {})));
    EXPECT_EQ(odd, svg["aria-label"]);
    EXPECT_EQ(odd, (*svg.All("g", "entry").at(0))["data-effect"]);
    EXPECT_EQ(0u, svg.All("g", "message").at(0)->Title().find(odd + "\nto " + odd));
    EXPECT_EQ(0u, svg.All("g", "music").at(0)->Title().find(odd + "\n"));
    EXPECT_EQ(odd, svg.All("g", "remark").at(0)->Title());
    int shown = 0;
    for (const XmlElement* text : svg.All("text"))
        shown += text->text == odd;
    EXPECT_GE(shown, 3); // head, bar, tick
}

TEST(TimelineSvgText, BytesThatAreNoTextAreReplaced)
{
    TimelineModel model;
    model.title = std::string("a\0b\xff\x1b[31m", 9);
    const XmlElement svg = Parse(SvgPicture(model, LayOut(model, {})));
    EXPECT_EQ("a\xef\xbf\xbd"
              "b\xef\xbf\xbd\xef\xbf\xbd[31m",
              svg["aria-label"]);
}

TEST(TimelineSvgText, FiguresHaveTwoDecimalsAtMost)
{
    EXPECT_EQ("0", Figure(0));
    EXPECT_EQ("0", Figure(-0.001));
    EXPECT_EQ("12.5", Figure(12.5));
    EXPECT_EQ("12.35", Figure(12.346));
    EXPECT_EQ("-0.05", Figure(-0.05));
    EXPECT_EQ("1600", Figure(1600));
}

TEST(TimelineSvgText, OnlyThePaletteOfTheShowIsUsed)
{
    const TimelineModel busy = BusyShow(50, 80, 10);
    const std::string svg = SvgPicture(busy, LayOut(busy, {}));
    // No pure white, no pure black, no pure grey.
    for (size_t at = svg.find("=\"#"); at != std::string::npos; at = svg.find("=\"#", at + 1)) {
        unsigned red, green, blue;
        ASSERT_EQ(3, sscanf(svg.c_str() + at, "=\"#%2x%2x%2x\"", &red, &green, &blue));
        EXPECT_FALSE(red == green && green == blue) << svg.substr(at, 12);
    }
}

TEST(TimelineSvgText, ThePictureAsksForNothingFromOutside)
{
    const TimelineModel busy = BusyShow(50, 80, 10);
    const std::string svg = SvgPicture(busy, LayOut(busy, {}));
    EXPECT_EQ(std::string::npos, svg.find("href"));
    EXPECT_EQ(std::string::npos, svg.find("@import"));
    EXPECT_EQ(std::string::npos, svg.find("<script"));
}
