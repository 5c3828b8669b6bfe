// SPDX-License-Identifier: MIT
#include "tools/timeline/Layout.h"

#include "tests/support/BusyShow.h"
#include "tools/timeline/LayoutParts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

using namespace timeline;

static TimelineModel Plain()
{
    TimelineModel model;
    model.title = "plain.txt";
    model.entries = {{0, 100, 1, "FX_Path", MossWash},
                     {20, 60, 9, "FX_Clouds", NightWash},
                     {60, 90, 9, "FX_Towers", MistWash}};
    model.end = 100;
    model.loads = {"FX_Path", "FX_Clouds", "FX_Towers"};
    return model;
}

static LayoutOptions Options(double width, double zoom = 1)
{
    LayoutOptions options;
    options.width = width;
    options.zoom = zoom;
    return options;
}

// Sharing an edge is no overlap.
static bool Overlap(const CanvasRect& a, const CanvasRect& b)
{
    return a.x < b.Right() && b.x < a.Right() && a.y < b.Bottom() && b.y < a.Bottom();
}

// They may share edges.
static bool Contains(const CanvasRect& outer, const CanvasRect& inner)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.Right() <= outer.Right() &&
           inner.Bottom() <= outer.Bottom();
}

static std::vector<PlacedText> AllTexts(const Layout& layout)
{
    std::vector<PlacedText> all;
    const auto add = [&](const std::vector<PlacedText>& texts) {
        all.insert(all.end(), texts.begin(), texts.end());
    };
    add(layout.headTexts);
    add(layout.gutterTexts);
    add(layout.rulerTexts);
    add(layout.loadingTexts);
    for (const PlacedFlag& flag : layout.flags)
        all.push_back(flag.number);
    for (const PlacedBar& bar : layout.bars) {
        add(bar.texts);
        add(bar.tickTexts);
    }
    add(layout.lostTexts);
    add(layout.musicTexts);
    add(layout.footTexts);
    return all;
}

// Texts apart, everything on the canvas, every label in the lane of its bar.
static void ExpectTidy(const Layout& layout, const std::string& what)
{
    const CanvasRect canvas = {0, 0, layout.width, layout.height};
    const std::vector<PlacedText> texts = AllTexts(layout);
    for (const PlacedText& text : texts)
        EXPECT_TRUE(Contains(canvas, text.box)) << what << ": \"" << text.text << "\" leaves the canvas";
    // Sorted by their left edge, each needs a look only at those that begin ahead of its right one.
    std::vector<const PlacedText*> order;
    for (const PlacedText& text : texts)
        order.push_back(&text);
    std::sort(order.begin(), order.end(), [](const auto* a, const auto* b) { return a->box.x < b->box.x; });
    int overlaps = 0;
    for (size_t i = 0; i < order.size(); i++)
        for (size_t k = i + 1; k < order.size() && order[k]->box.x < order[i]->box.Right(); k++)
            if (Overlap(order[i]->box, order[k]->box) && overlaps++ < 5)
                ADD_FAILURE() << what << ": \"" << order[i]->text << "\" lies on \"" << order[k]->text
                              << "\"";
    EXPECT_EQ(0, overlaps) << what;

    for (const PlacedBar& bar : layout.bars) {
        EXPECT_TRUE(Contains(layout.plot, bar.box)) << what;
        int lanes = 0;
        for (const PlacedLane& lane : layout.lanes)
            lanes += lane.box.y <= bar.box.y && bar.box.Bottom() <= lane.box.Bottom();
        EXPECT_EQ(1, lanes) << what;
        for (const PlacedTick& tick : bar.ticks)
            EXPECT_TRUE(tick.box.y >= bar.box.y && tick.box.Bottom() <= bar.box.Bottom() + 1e-9) << what;
    }
    for (size_t i = 1; i < layout.flags.size(); i++)
        EXPECT_FALSE(Overlap(layout.flags[i].box, layout.flags[i - 1].box)) << what;
    for (const PlacedFlag& flag : layout.flags)
        EXPECT_TRUE(Contains(canvas, flag.box)) << what;
}

TEST(TimelineLayout, ShowsOfAllSizesAreTidyOnCanvasesOfAllSizes)
{
    for (const int entries : {0, 1, 10, 100, 500, 2000})
        for (const double width : {480.0, 1000.0, 1600.0, 5000.0})
            for (const double zoom : {1.0, 4.0}) {
                const TimelineModel model = BusyShow(entries, entries * 2, entries / 5);
                ExpectTidy(LayOut(model, Options(width, zoom)), std::to_string(entries) + " entries, width " +
                                                                    std::to_string(int(width)) + ", zoom " +
                                                                    std::to_string(int(zoom)));
            }
}

TEST(TimelineLayout, OtherTemposAreTidyToo)
{
    const TimelineModel model = BusyShow(50, 100, 7);
    for (const double tempo : {1.0, 33.3, 180.0, 1000.0})
        for (const int beats : {1, 4, 64})
            for (const double zoom : {1.0, 16.0}) {
                LayoutOptions options = Options(1200, zoom);
                options.tempo = {tempo, beats};
                ExpectTidy(LayOut(model, options), std::to_string(tempo) + " by " + std::to_string(beats));
            }
}

TEST(TimelineLayout, BarsOfOneRowNeverOverlap)
{
    const TimelineModel model = BusyShow(500, 0, 0);
    const std::vector<int> rows = RowsOf(model);
    for (size_t i = 0; i < rows.size(); i++)
        for (size_t k = 0; k < i; k++)
            if (model.entries[i].layer == model.entries[k].layer && rows[i] == rows[k]) {
                EXPECT_FALSE(model.entries[i].start < model.entries[k].stop &&
                             model.entries[k].start < model.entries[i].stop);
            }
}

TEST(TimelineLayout, ALaneHasNoMoreRowsThanItsEntriesNeed)
{
    TimelineModel model = Plain();
    EXPECT_EQ((std::vector<int>{0, 0, 0}), RowsOf(model)); // one ends where the next begins
    model.entries.push_back({50, 70, 9, "FS_Image", RustWash});
    EXPECT_EQ((std::vector<int>{0, 0, 0, 1}), RowsOf(model));
    const Layout layout = LayOut(model, Options(1600));
    ASSERT_EQ(2u, layout.lanes.size());
    EXPECT_EQ(2, layout.lanes[0].rows);
    EXPECT_EQ(1, layout.lanes[1].rows);
}

TEST(TimelineLayout, TheFrontLayerLiesOnTop)
{
    const Layout layout = LayOut(Plain(), Options(1600));
    ASSERT_EQ(2u, layout.lanes.size());
    EXPECT_EQ(9u, layout.lanes[0].layer);
    EXPECT_EQ(1u, layout.lanes[1].layer);
    EXPECT_LT(layout.lanes[0].box.Bottom(), layout.lanes[1].box.y);
}

TEST(TimelineLayout, ABarSpansItsTimeOnTheScale)
{
    const Layout layout = LayOut(Plain(), Options(1600));
    EXPECT_DOUBLE_EQ(1600, layout.width);
    // 3 seconds of loading and 100 of show share the plot.
    EXPECT_NEAR((1600 - 134 - 24) / 103.0, layout.perSecond, 1e-9);
    EXPECT_NEAR(134 + 3 * layout.perSecond, layout.zero, 1e-9);
    EXPECT_NEAR(1600 - 24, layout.plotEnd, 1e-9);
    EXPECT_NEAR(layout.zero + 20 * layout.perSecond, layout.bars[1].box.x, 1e-9);
    EXPECT_NEAR(40 * layout.perSecond, layout.bars[1].box.width, 1e-9);
    EXPECT_FALSE(layout.loadingCut);
    ASSERT_EQ(3u, layout.loads.size());
    EXPECT_NEAR(134 + layout.perSecond, layout.loads[0], 1e-9);
    EXPECT_NEAR(layout.zero, layout.loads[2], 1e-9);
}

TEST(TimelineLayout, AZoomWidensThePlotAndNothingElse)
{
    const Layout one = LayOut(Plain(), Options(1600)), four = LayOut(Plain(), Options(1600, 4));
    EXPECT_NEAR((1600 - 134 - 24) * 4 + 134 + 24, four.width, 1e-9);
    EXPECT_NEAR(one.perSecond * 4, four.perSecond, 1e-9);
    EXPECT_EQ(one.gutter.height, four.gutter.height);
    EXPECT_EQ(one.plot.height, four.plot.height);
    EXPECT_EQ(one.bars[1].box.height, four.bars[1].box.height);
}

TEST(TimelineLayout, ALongLoadingIsDrawnNarrower)
{
    TimelineModel model = Plain();
    model.loads.assign(500, "FX_Path");
    const Layout layout = LayOut(model, Options(1600));
    EXPECT_TRUE(layout.loadingCut);
    EXPECT_NEAR(0.06 * (1600 - 134 - 24), layout.loading.width, 1e-9);
    EXPECT_EQ(500u, layout.loads.size());
    EXPECT_NEAR(0.94 * (1600 - 134 - 24) / 100, layout.perSecond, 1e-9);
}

TEST(TimelineLayout, TicksThatLieTooCloseBecomeOneAndNoneIsLost)
{
    TimelineModel model = Plain();
    std::set<size_t> all;
    for (int i = 0; i < 300; i++) {
        model.messages.push_back({i * 0.3, 0, "flash", true, "FX_Path", {}, {0}});
        all.insert(size_t(i));
    }
    for (const double zoom : {0.3, 1.0, 8.0}) {
        const Layout layout = LayOut(model, Options(1600, zoom));
        const std::vector<PlacedTick>& ticks = layout.bars[0].ticks;
        std::set<size_t> seen;
        for (const PlacedTick& tick : ticks) {
            for (const size_t message : tick.messages)
                EXPECT_TRUE(seen.insert(message).second);
            EXPECT_LE(tick.box.width, 26 + 3 + 1e-9);
            const double first = layout.X(model.messages[tick.messages.front()].time);
            const double last = layout.X(model.messages[tick.messages.back()].time);
            EXPECT_NEAR(first - 1.5, tick.box.x, 1e-9);
            EXPECT_NEAR(last + 1.5, tick.box.Right(), 1e-9);
        }
        EXPECT_EQ(all, seen);
        if (0.3 * layout.perSecond >= 4) {
            EXPECT_EQ(300u, ticks.size());
        } else {
            EXPECT_LT(ticks.size(), 120u);
        }
    }
}

TEST(TimelineLayout, ATickIsNamedWhereThereIsRoom)
{
    TimelineModel model = Plain();
    model.messages = {{10, 0, "hand", true, "FX_Path", {}, {0}},
                      {12, 0, "handFrakt", true, "FX_Path", {}, {0}},
                      {50, 0, "blend", true, "FX_Path", {}, {0}}};
    const Layout layout = LayOut(model, Options(1600));
    std::vector<std::string> names;
    for (const PlacedText& text : layout.bars[0].tickTexts)
        names.push_back(text.text);
    EXPECT_EQ((std::vector<std::string>{"handFrakt", "blend"}), names); // "hand" has 28 pixels less the ticks
    EXPECT_EQ(3u, LayOut(model, Options(1600, 2)).bars[0].tickTexts.size());
}

TEST(TimelineLayout, ALostMessageLiesInALaneOfItsOwn)
{
    TimelineModel model = Plain();
    EXPECT_TRUE(LayOut(model, Options(1600)).lost.empty());
    EXPECT_EQ(0, LayOut(model, Options(1600)).lostLane.height);
    model.messages = {{10, 0, "flash", true, "WhiteFlashOverlay", {}, {}}};
    const Layout layout = LayOut(model, Options(1600));
    ASSERT_EQ(1u, layout.lost.size());
    EXPECT_EQ(LostTick, layout.lost[0].kind);
    EXPECT_NEAR(layout.X(10), layout.lost[0].box.x + 1.5, 1e-9);
    EXPECT_GT(layout.lostLane.y, layout.lanes.back().box.Bottom());
    EXPECT_LT(layout.lostLane.Bottom(), layout.musicLane.y);
    EXPECT_NE(std::string::npos, layout.lost[0].title.find("lost: WhiteFlashOverlay is not on stage then"));
}

TEST(TimelineLayout, TheNameOfABarLiesInsideElseBehindElseShortened)
{
    TimelineModel model;
    model.end = 100;
    model.entries = {{0, 20, 1, "FX_Path", MossWash},
                     {40, 41, 1, "FX_Clouds", NightWash},
                     {60, 64, 1, "FX_Scroller_Intro", OchreWash},
                     {64, 68, 1, "FX_Towers", MistWash},
                     {70, 70.5, 1, "FX_Path", MossWash},
                     {70.5, 100, 1, "FX_Path", MossWash}};
    const Layout layout = LayOut(model, Options(1600));
    const auto name = [&](size_t bar) { return layout.bars[bar].texts.at(0); };
    EXPECT_TRUE(Contains(layout.bars[0].box, name(0).box));
    EXPECT_EQ("FX_Clouds", name(1).text);
    EXPECT_GE(name(1).box.x, layout.bars[1].box.Right());
    EXPECT_EQ("FX_S\xe2\x80\xa6", name(2).text);
    EXPECT_TRUE(Contains(layout.bars[2].box, name(2).box));
    EXPECT_TRUE(layout.bars[4].texts.empty()); // no room anywhere: the title still tells
    EXPECT_NE("", layout.bars[4].title);
}

TEST(TimelineLayout, RulerFiguresThinOutUntilTheyHaveRoom)
{
    TimelineModel model = Plain();
    for (const double width : {480.0, 1600.0, 9000.0}) {
        const Layout layout = LayOut(model, Options(width));
        std::vector<double> bars, numbers;
        for (const RulerMark& mark : layout.marks)
            if (mark.kind == NumberedBarMark)
                bars.push_back(mark.x);
        ASSERT_GT(bars.size(), 1u);
        const double step = (bars[1] - bars[0]) / layout.perSecond / 1.8;
        EXPECT_NEAR(step, std::exp2(std::round(std::log2(step))), 1e-6); // a power of two
        EXPECT_GE(bars[1] - bars[0], 50);
        if (step > 1.5) {
            EXPECT_LT(bars[1] - bars[0], 130); // or half the step would have done
        }
        int figures = 0;
        for (const PlacedText& text : layout.rulerTexts)
            figures += text.style == BarText;
        EXPECT_NEAR(double(bars.size()), figures, 1); // the last may lack room at the edge
    }
}

TEST(TimelineLayout, MarksLieWhereTheirFiguresSay)
{
    const Layout layout = LayOut(BusyShow(10, 0, 0), Options(1600));
    for (const PlacedText& text : layout.rulerTexts)
        if (text.style == BarText) {
            EXPECT_NEAR(layout.X(atof(text.text.c_str()) * 1.8) + 4, text.x, 1e-6);
        } else {
            int minutes = 0;
            double seconds = 0;
            ASSERT_EQ(2, sscanf(text.text.c_str(), "%d:%lf", &minutes, &seconds));
            EXPECT_NEAR(layout.X(minutes * 60 + seconds) + 4, text.x, 1e-6);
        }
}

TEST(TimelineLayout, TheAxisShowsALittleOfWhatComesTooLate)
{
    TimelineModel model = Plain();
    EXPECT_EQ(100, LayOut(model, Options(1600)).end);
    model.messages = {{104, 0, "flash", true, "FX_Path", {}, {}}};
    EXPECT_EQ(104, LayOut(model, Options(1600)).end);
    model.messages[0].time = 5000; // a slip of the pen must not squeeze the show
    const Layout layout = LayOut(model, Options(1600));
    EXPECT_EQ(108, layout.end);
    EXPECT_NEAR(layout.plotEnd, layout.lost.at(0).box.Right() - 1.5, 1e-9);
    EXPECT_NEAR(layout.X(100), layout.showEnd, 1e-9);
}

TEST(TimelineLayout, AStopBeyondAllReasonIsCutOff)
{
    TimelineModel model = Plain();
    model.entries[0].stop = model.end = 4294966.296;
    const Layout layout = LayOut(model, Options(1600));
    EXPECT_NEAR(97.2, layout.end, 1e-9); // the last moment that makes sense, and a little
    EXPECT_TRUE(layout.bars[0].cutRight);
    EXPECT_FALSE(layout.bars[1].cutRight);
    EXPECT_NEAR(layout.plotEnd, layout.bars[0].box.Right(), 1e-9);
    model.entries = {{4294960, 4294967, 4294967295u, "FX_Path", MossWash}};
    ExpectTidy(LayOut(model, Options(1600)), "all beyond the axis");
}

TEST(TimelineLayout, AnOffsetCutsBarsAtTheLeft)
{
    TimelineModel model = Plain();
    model.start = 30;
    const Layout layout = LayOut(model, Options(1600));
    EXPECT_TRUE(layout.bars[0].cutLeft);
    EXPECT_TRUE(layout.bars[1].cutLeft);
    EXPECT_FALSE(layout.bars[2].cutLeft);
    EXPECT_NEAR(layout.zero, layout.bars[1].box.x, 1e-9);
    EXPECT_NEAR(30 * layout.perSecond, layout.bars[1].box.width, 1e-9);
    ExpectTidy(layout, "with an offset");
}

TEST(TimelineLayout, AnEntryThatStopsBeforeItStartsIsMarked)
{
    TimelineModel model = Plain();
    model.entries[1].stop = 10;
    const Layout layout = LayOut(model, Options(1600));
    EXPECT_TRUE(layout.bars[1].never);
    EXPECT_NEAR(layout.X(20), layout.bars[1].box.x, 1e-9);
    EXPECT_NE(std::string::npos, layout.bars[1].title.find("never on stage"));
}

TEST(TimelineLayout, RemarksThatHaveAPlaceFlyAFlagThere)
{
    TimelineModel model = Plain();
    model.remarks = {
        {true, true, 10, 20, "first"}, {false, true, 60, 60, "second"}, {false, false, 0, 0, "third"}};
    const Layout layout = LayOut(model, Options(1600));
    ASSERT_EQ(2u, layout.flags.size());
    EXPECT_NEAR(layout.X(10), layout.flags[0].pole, 1e-9);
    EXPECT_NEAR(layout.X(20), layout.flags[0].extent, 1e-9);
    EXPECT_TRUE(layout.flags[0].grave);
    EXPECT_FALSE(layout.flags[1].grave);
    EXPECT_EQ("first", layout.flags[0].title);
    EXPECT_EQ("2", layout.flags[1].number.text);
    std::string foot;
    for (const PlacedText& text : layout.footTexts)
        foot += text.text + "|";
    EXPECT_NE(std::string::npos, foot.find("1|first|2|second|3|third|"));
}

TEST(TimelineLayout, FlagsThatTouchBecomeOneThatNamesThemAll)
{
    TimelineModel model = Plain();
    for (int i = 0; i < 5; i++)
        model.remarks.push_back({i == 3, true, 40 + i * 0.1, 41, "remark " + std::to_string(i + 1)});
    const Layout layout = LayOut(model, Options(1600));
    ASSERT_EQ(1u, layout.flags.size());
    EXPECT_EQ("1\xe2\x80\x93"
              "5",
              layout.flags[0].number.text);
    EXPECT_TRUE(layout.flags[0].grave);
    for (int i = 1; i <= 5; i++)
        EXPECT_NE(std::string::npos, layout.flags[0].title.find("remark " + std::to_string(i)));
}

TEST(TimelineLayout, ALongListOfRemarksEndsWithTheNumberOfTheRest)
{
    const Layout layout = LayOut(BusyShow(10, 0, 100), Options(1600));
    EXPECT_EQ("and 60 more", layout.footTexts.back().text);
    // Every third is grave, and those come first.
    std::set<std::string> numbers;
    for (const PlacedText& text : layout.footTexts)
        numbers.insert(text.text);
    const TimelineModel model = BusyShow(10, 0, 100);
    for (size_t i = 0; i < model.remarks.size(); i++)
        if (model.remarks[i].grave) {
            EXPECT_EQ(1u, numbers.count(std::to_string(i + 1)));
        }
}

TEST(TimelineLayout, AnEmptyShowStillHasAnAxisAndSaysSo)
{
    const Layout layout = LayOut(TimelineModel(), Options(1600));
    EXPECT_EQ(10, layout.end);
    EXPECT_TRUE(layout.loads.empty());
    EXPECT_EQ(layout.gutter.Right(), layout.zero);
    std::string head, music;
    for (const PlacedText& text : layout.headTexts)
        head += text.text;
    for (const PlacedText& text : layout.musicTexts)
        music += text.text;
    EXPECT_NE(std::string::npos, head.find("nothing is on stage"));
    EXPECT_EQ("no music: the show plays in silence", music);
}
