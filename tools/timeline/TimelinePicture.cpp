// SPDX-License-Identifier: MIT
#include "tools/timeline/TimelinePicture.h"

#include "tools/timeline/InkShapes.h"

#include <algorithm>

namespace timeline
{

Painter::~Painter() {}

// clang-format off
static const uint32_t paper     = Bone;
static const double barRadius = 2.5;
static const size_t maxPoles  = 8; // flags whose poles reach down to the music; more would be a fence
// clang-format on

static Wash Even(ScreenColour colour)
{
    return {colour, colour};
}

static void WriteAll(const std::vector<PlacedText>& texts, Painter* painter)
{
    for (const PlacedText& text : texts)
        painter->Write(text);
}

static void DrawHead(const Layout& layout, Painter* painter)
{
    const Point moon = {layout.width - 62, 48};
    painter->FillShape(Disc(moon, 27), Faded(Amber, 0.16f));
    painter->FillShape(Disc(moon, 21), Faded(Parchment, 0.75f));
    painter->FillShape(Crescent(moon, 21), Ochre);
    WriteAll(layout.headTexts, painter);
    painter->FillShape(LevelStroke(24, layout.width - 24, layout.head.Bottom() - 5, 1.6, 7), Ink);
}

// Lines at 45 degrees, clipped to the box by hand.
static std::vector<Segment> Hatching(const CanvasRect& box, double step)
{
    std::vector<Segment> lines;
    for (double offset = step; offset < box.width + box.height; offset += step) {
        // Each runs from the left or lower edge to the top or right edge.
        const double x0 = std::max(0.0, offset - box.height), y0 = std::min(offset, box.height);
        const double x1 = std::min(offset, box.width), y1 = std::max(0.0, offset - box.width);
        lines.push_back({{box.x + x0, box.y + y0}, {box.x + x1, box.y + y1}});
    }
    return lines;
}

static void DrawLoading(const Layout& layout, Painter* painter)
{
    if (layout.loads.empty())
        return;
    painter->BeginGroup({"loading", layout.loadingTitle, {{"seconds", std::to_string(layout.loads.size())}}});
    CanvasRect box = layout.loading;
    painter->FillRect({box.x, layout.rulerBottom, box.width, box.Bottom() - layout.rulerBottom},
                      Even(loadColour), 0);
    painter->StrokeSegments(
        Hatching({box.x, layout.rulerBottom, box.width, box.Bottom() - layout.rulerBottom}, 9), hatchColour,
        0.6);
    std::vector<Segment> seconds;
    double last = box.x;
    for (const double x : layout.loads) {
        if (x - last < 1.5)
            continue;
        seconds.push_back({{x, layout.rulerBottom - 5}, {x, layout.rulerBottom}});
        last = x;
    }
    painter->StrokeSegments(seconds, Slate, 0.8);
    if (layout.loadingCut) {
        // Draw the sign of a broken scale.
        const double x = box.x + box.width / 2, y = layout.rulerBottom;
        painter->FillShape({{x - 5, y + 6}, {x - 1, y - 6}, {x + 5, y - 6}, {x + 1, y + 6}}, paper);
        painter->StrokeSegments({{{x - 5, y + 6}, {x - 1, y - 6}}, {{x + 1, y + 6}, {x + 5, y - 6}}}, Slate,
                                1);
    }
    painter->Sense(box);
    WriteAll(layout.loadingTexts, painter);
    painter->EndGroup();
}

static void DrawGrid(const Layout& layout, Painter* painter)
{
    const double top = layout.plot.y, bottom = layout.musicLane.Bottom();
    const double ruler = layout.rulerBottom;
    std::vector<Segment> beats, bars, numbered, clock;
    for (const RulerMark& mark : layout.marks)
        switch (mark.kind) {
        case BeatMark:
            beats.push_back({{mark.x, ruler - 3}, {mark.x, bottom}});
            break;
        case BarMark:
            bars.push_back({{mark.x, ruler - 6}, {mark.x, bottom}});
            break;
        case NumberedBarMark:
            numbered.push_back({{mark.x, top + 3}, {mark.x, bottom}});
            break;
        case ClockMark:
            clock.push_back({{mark.x, top + 22}, {mark.x, top + 34}});
            break;
        }
    painter->StrokeSegments(beats, beatColour, 0.6);
    painter->StrokeSegments(bars, barColour, 0.7);
    painter->StrokeSegments(numbered, numberColour, 0.8);
    painter->StrokeSegments(clock, clockColour, 0.8);
    painter->FillShape(LevelStroke(layout.loading.x, layout.plotEnd, ruler, 1.1, 11), Slate);
    WriteAll(layout.rulerTexts, painter);
}

static void DrawTick(const TimelineModel& model, const Layout& layout, const PlacedTick& tick,
                     Painter* painter)
{
    PaintedGroup group = {"message", tick.title, {}};
    std::string times;
    for (const size_t index : tick.messages)
        times += (times.empty() ? "" : " ") + MillisecondText(model.messages[index].time);
    group.data.push_back({"times", times});
    if (tick.kind != HeardTick)
        group.data.push_back({"fate", tick.kind == LostTick ? "lost" : "unknown"});
    painter->BeginGroup(group);
    const CanvasRect& box = tick.box;
    const double x = box.x + box.width / 2;
    const uint32_t head = tick.kind == HeardTick ? Ochre : Rust;
    if (tick.messages.size() > 1) {
        const double width = std::max(box.width, 6.4); // wide enough to be told from a single one
        painter->FillRect({x - width / 2, box.y + 3, width, box.height - 4}, Even(groupColour), 1);
        double last = -1;
        for (const size_t index : tick.messages) {
            const double at = layout.X(std::clamp(model.messages[index].time, layout.start, layout.end));
            if (at - last < 1.5)
                continue;
            painter->FillShape(DownStroke(at, box.y + 3, box.Bottom() - 1, 1.4), Ink);
            last = at;
        }
        painter->FillRect({x - width / 2, box.y, width, 3}, Even(head), 1);
    } else {
        painter->FillShape(DownStroke(x, box.y + 2, box.Bottom() - 1, 2), tick.kind == LostTick ? Rust : Ink);
        painter->FillShape(Diamond({x, box.y + 2}, 3.2), head);
        if (tick.kind != HeardTick)
            painter->FillShape(Diamond({x, box.y + 2}, 1.6), paper);
    }
    painter->Sense({box.x - 2.5, box.y - 2, box.width + 5, box.height + 3});
    painter->EndGroup();
}

static void DrawBar(const TimelineModel& model, const Layout& layout, const PlacedBar& bar, Painter* painter)
{
    const Entry& entry = model.entries[bar.entry];
    const Pigment& pigment = pigments[entry.wash];
    const uint32_t dark = pigment.ink;
    painter->BeginGroup({"entry",
                         bar.title,
                         {{"effect", Clean(entry.effect)},
                          {"layer", std::to_string(entry.layer)},
                          {"start", MillisecondText(entry.start)},
                          {"stop", MillisecondText(entry.stop)}}});
    const CanvasRect& box = bar.box;
    if (bar.never) {
        painter->FillRect(box, Even(Faded(Rust, 0.8f)), 0);
        painter->FillShape(Diamond({box.x, box.y + 4}, 3.5), Rust);
    } else {
        painter->FillRect(box, WashOf(pigment), std::min(barRadius, box.width / 3));
        const double edge = std::min(3.0, box.width);
        if (!bar.cutLeft)
            painter->FillRect({box.x, box.y, edge, box.height}, Even(dark), std::min(1.2, edge / 3));
        if (box.width > 4)
            painter->FillShape(LevelStroke(box.x, box.Right(), box.Bottom() - 0.7, 1.5, uint32_t(bar.entry)),
                               dark);
        // The entry goes on past the axis: three strokes that become fainter.
        if (bar.cutRight)
            for (int i = 0; i < 3; i++)
                painter->FillShape(
                    DownStroke(box.Right() + 3 + 3 * i, box.y + 3 + 4 * i, box.Bottom() - 3 - 4 * i, 1.2),
                    dark);
    }
    WriteAll(bar.texts, painter);
    for (const PlacedTick& tick : bar.ticks)
        DrawTick(model, layout, tick, painter);
    WriteAll(bar.tickTexts, painter);
    painter->EndGroup();
}

static void DrawLost(const TimelineModel& model, const Layout& layout, Painter* painter)
{
    if (layout.lost.empty())
        return;
    painter->FillRect(layout.lostLane, Even(lostColour), barRadius);
    for (const PlacedTick& tick : layout.lost)
        DrawTick(model, layout, tick, painter);
    WriteAll(layout.lostTexts, painter);
}

static void DrawFlags(const Layout& layout, Painter* painter)
{
    for (const PlacedFlag& flag : layout.flags) {
        std::string numbers;
        for (const size_t remark : flag.remarks)
            numbers += (numbers.empty() ? "" : " ") + std::to_string(remark + 1);
        painter->BeginGroup({"remark", flag.title, {{"numbers", numbers}}});
        const uint32_t colour = flag.grave ? graveColour : slightColour;
        if (flag.extent > flag.pole)
            painter->FillRect({flag.pole, flag.box.Bottom() + 1, flag.extent - flag.pole, 2},
                              Even(Faded(colour, 0.5f)), 0);
        const double foot =
            layout.flags.size() <= maxPoles ? layout.musicLane.Bottom() : layout.flagRow.Bottom();
        painter->StrokeSegments({{{flag.pole, flag.box.y}, {flag.pole, foot}}}, Faded(colour, 0.55f), 0.9);
        painter->FillRect(flag.box, Even(colour), 2);
        painter->Write(flag.number);
        painter->EndGroup();
    }
}

static void DrawMusic(const Layout& layout, Painter* painter)
{
    painter->FillRect(layout.musicLane, laneWash, barRadius);
    PaintedGroup group = {"music", layout.musicTitle, {}};
    if (!layout.wave.empty())
        group.data.push_back(
            {"length", LengthText(layout.start + (layout.musicEnd - layout.zero) / layout.perSecond)});
    painter->BeginGroup(group);
    const double middle = layout.musicLane.y + layout.musicLane.height / 2;
    const double half = layout.musicLane.height / 2 - 4;
    if (!layout.wave.empty()) {
        const auto outline = [&](float WaveColumn::*level) {
            std::vector<Point> points = {{layout.musicStart, middle}};
            for (const WaveColumn& column : layout.wave)
                points.push_back({column.x, middle - half * double(column.*level)});
            points.push_back({layout.musicEnd, middle});
            for (size_t i = layout.wave.size(); i-- > 0;)
                points.push_back({layout.wave[i].x, middle + half * double(layout.wave[i].*level)});
            return points;
        };
        painter->FillShape(outline(&WaveColumn::peak), peakColour);
        painter->FillShape(outline(&WaveColumn::loudness), loudColour);
    }
    painter->Sense(layout.musicLane);
    WriteAll(layout.musicTexts, painter);
    painter->EndGroup();
}

static void DrawPlot(const TimelineModel& model, const Layout& layout, Painter* painter)
{
    for (const PlacedLane& lane : layout.lanes)
        painter->FillRect(lane.box, laneWash, barRadius);
    DrawMusic(layout, painter);
    DrawLoading(layout, painter);
    DrawGrid(layout, painter);
    if (layout.showEnd < layout.plotEnd) {
        painter->FillRect({layout.showEnd, layout.rulerBottom, layout.plotEnd - layout.showEnd,
                           layout.musicLane.Bottom() - layout.rulerBottom},
                          Even(afterColour), 0);
    }
    for (const PlacedBar& bar : layout.bars)
        DrawBar(model, layout, bar, painter);
    DrawLost(model, layout, painter);
    painter->StrokeSegments(
        {{{layout.showEnd, layout.plot.y + 3}, {layout.showEnd, layout.musicLane.Bottom()}}}, Ink, 1.2);
    DrawFlags(layout, painter);
}

static void DrawSample(const PlacedLegend& item, Painter* painter)
{
    const CanvasRect& box = item.box;
    const Point middle = {box.x + box.width / 2, box.y + box.height / 2};
    const auto needle = [&](double x, ScreenColour stroke) {
        painter->FillShape(DownStroke(x, box.y + 2, box.Bottom(), 2), stroke);
    };
    switch (item.kind) {
    case LoadLegend:
        painter->FillRect(box, Even(loadColour), 0);
        painter->StrokeSegments(Hatching(box, 7), hatchColour, 0.6);
        break;
    case EntryLegend:
        painter->FillRect(box, WashOf(pigments[SlateWash]), barRadius);
        painter->FillRect({box.x, box.y, 3, box.height}, Even(pigments[SlateWash].ink), 1);
        break;
    case TickLegend:
    case UnknownLegend:
    case LostLegend:
        needle(middle.x, item.kind == LostLegend ? Rust : Ink);
        painter->FillShape(Diamond({middle.x, box.y + 2}, 3.2), item.kind == TickLegend ? Ochre : Rust);
        if (item.kind != TickLegend)
            painter->FillShape(Diamond({middle.x, box.y + 2}, 1.6), paper);
        break;
    case ClusterLegend:
        painter->FillRect({box.x + 5, box.y + 3, 14, box.height - 3}, Even(groupColour), 1);
        for (const double x : {6.5, 10.0, 12.0, 17.5})
            painter->FillShape(DownStroke(box.x + x, box.y + 3, box.Bottom(), 1.4), Ink);
        painter->FillRect({box.x + 5, box.y, 14, 3}, Even(Ochre), 1);
        break;
    case FlagLegend:
        painter->FillRect({box.x + 6, box.y, 14, box.height - 2}, Even(Rust), 2);
        painter->StrokeSegments({{{box.x + 6, box.y}, {box.x + 6, box.Bottom()}}}, Rust, 0.9);
        break;
    }
}

static void DrawFoot(const Layout& layout, Painter* painter)
{
    for (const PlacedLegend& item : layout.legend)
        DrawSample(item, painter);
    WriteAll(layout.footTexts, painter);
}

void DrawPicture(const TimelineModel& model, const Layout& layout, int parts, Painter* painter)
{
    const struct {
        PicturePart part;
        const CanvasRect* box;
    } grounds[] = {{HeadPart, &layout.head},
                   {GutterPart, &layout.gutter},
                   {PlotPart, &layout.plot},
                   {FootPart, &layout.foot}};
    if (parts == WholePicture)
        painter->FillRect({0, 0, layout.width, layout.height}, Even(paper), 0);
    else
        for (const auto& ground : grounds)
            if (parts & ground.part)
                painter->FillRect(*ground.box, Even(paper), 0);
    if (parts & HeadPart)
        DrawHead(layout, painter);
    if (parts & GutterPart)
        WriteAll(layout.gutterTexts, painter);
    if (parts & PlotPart)
        DrawPlot(model, layout, painter);
    if (parts & FootPart)
        DrawFoot(layout, painter);
}

} // namespace timeline
