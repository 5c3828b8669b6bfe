// SPDX-License-Identifier: MIT
#include "tools/timeline/Picture.h"

#include "tools/timeline/Pen.h"

#include <algorithm>

namespace timeline
{

Drawing::~Drawing() {}

// clang-format off
static const Colour paper     = Bone;
static const double barRadius = 2.5;
static const size_t maxPoles  = 8; // flags whose poles reach down to the music; more would be a fence
// clang-format on

static Wash Even(Colour colour)
{
    return {colour, colour};
}

static void WriteAll(const std::vector<PlacedText>& texts, Drawing* drawing)
{
    for (const PlacedText& text : texts)
        drawing->Write(text);
}

static void DrawHead(const Layout& layout, Drawing* drawing)
{
    const Point moon = {layout.width - 62, 48};
    drawing->FillShape(Disc(moon, 27), Faded(Amber, 0.16f));
    drawing->FillShape(Disc(moon, 21), Faded(Parchment, 0.75f));
    drawing->FillShape(Crescent(moon, 21), Ochre);
    WriteAll(layout.headTexts, drawing);
    drawing->FillShape(LevelStroke(24, layout.width - 24, layout.head.Bottom() - 5, 1.6, 7), Ink);
}

static void DrawGutter(const Layout& layout, Drawing* drawing)
{
    WriteAll(layout.gutterTexts, drawing);
}

// Lines at 45 degrees, clipped to the box by hand.
static std::vector<Segment> Hatching(const Box& box, double step)
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

static void DrawLoading(const Layout& layout, Drawing* drawing)
{
    if (layout.loads.empty())
        return;
    drawing->BeginGroup({"loading", layout.loadingTitle, {{"seconds", std::to_string(layout.loads.size())}}});
    Box box = layout.loading;
    drawing->FillBox({box.x, layout.rulerBottom, box.width, box.Bottom() - layout.rulerBottom},
                     Even(loadColour), 0);
    drawing->StrokeSegments(
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
    drawing->StrokeSegments(seconds, Slate, 0.8);
    if (layout.loadingCut) {
        // Draw the sign of a broken scale.
        const double x = box.x + box.width / 2, y = layout.rulerBottom;
        drawing->FillShape({{x - 5, y + 6}, {x - 1, y - 6}, {x + 5, y - 6}, {x + 1, y + 6}}, paper);
        drawing->StrokeSegments({{{x - 5, y + 6}, {x - 1, y - 6}}, {{x + 1, y + 6}, {x + 5, y - 6}}}, Slate,
                                1);
    }
    drawing->Sense(box);
    WriteAll(layout.loadingTexts, drawing);
    drawing->EndGroup();
}

static void DrawGrid(const Layout& layout, Drawing* drawing)
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
    drawing->StrokeSegments(beats, beatColour, 0.6);
    drawing->StrokeSegments(bars, barColour, 0.7);
    drawing->StrokeSegments(numbered, numberColour, 0.8);
    drawing->StrokeSegments(clock, clockColour, 0.8);
    drawing->FillShape(LevelStroke(layout.loading.x, layout.plotEnd, ruler, 1.1, 11), Slate);
    WriteAll(layout.rulerTexts, drawing);
}

static void DrawTick(const TimelineModel& model, const Layout& layout, const PlacedTick& tick,
                     Drawing* drawing)
{
    Group group = {"message", tick.title, {}};
    std::string times;
    for (const size_t index : tick.messages)
        times += (times.empty() ? "" : " ") + MillisecondText(model.messages[index].time);
    group.data.push_back({"times", times});
    if (tick.kind != HeardTick)
        group.data.push_back({"fate", tick.kind == LostTick ? "lost" : "unknown"});
    drawing->BeginGroup(group);
    const Box& box = tick.box;
    const double x = box.x + box.width / 2;
    const Colour head = tick.kind == HeardTick ? Ochre : Rust;
    if (tick.messages.size() > 1) {
        const double width = std::max(box.width, 6.4); // wide enough to be told from a single one
        drawing->FillBox({x - width / 2, box.y + 3, width, box.height - 4}, Even(groupColour), 1);
        double last = -1;
        for (const size_t index : tick.messages) {
            const double at = layout.X(std::clamp(model.messages[index].time, layout.start, layout.end));
            if (at - last < 1.5)
                continue;
            drawing->FillShape(DownStroke(at, box.y + 3, box.Bottom() - 1, 1.4), Ink);
            last = at;
        }
        drawing->FillBox({x - width / 2, box.y, width, 3}, Even(head), 1);
    } else {
        drawing->FillShape(DownStroke(x, box.y + 2, box.Bottom() - 1, 2), tick.kind == LostTick ? Rust : Ink);
        drawing->FillShape(Diamond({x, box.y + 2}, 3.2), head);
        if (tick.kind != HeardTick)
            drawing->FillShape(Diamond({x, box.y + 2}, 1.6), paper);
    }
    drawing->Sense({box.x - 2.5, box.y - 2, box.width + 5, box.height + 3});
    drawing->EndGroup();
}

static void DrawBar(const TimelineModel& model, const Layout& layout, const PlacedBar& bar, Drawing* drawing)
{
    const Entry& entry = model.entries[bar.entry];
    const Pigment& pigment = pigments[entry.wash];
    const Colour dark = pigment.ink;
    drawing->BeginGroup({"entry",
                         bar.title,
                         {{"effect", Clean(entry.effect)},
                          {"layer", std::to_string(entry.layer)},
                          {"start", MillisecondText(entry.start)},
                          {"stop", MillisecondText(entry.stop)}}});
    const Box& box = bar.box;
    if (bar.never) {
        drawing->FillBox(box, Even(Faded(Rust, 0.8f)), 0);
        drawing->FillShape(Diamond({box.x, box.y + 4}, 3.5), Rust);
    } else {
        drawing->FillBox(box, WashOf(pigment), std::min(barRadius, box.width / 3));
        const double edge = std::min(3.0, box.width);
        if (!bar.cutLeft)
            drawing->FillBox({box.x, box.y, edge, box.height}, Even(dark), std::min(1.2, edge / 3));
        if (box.width > 4)
            drawing->FillShape(LevelStroke(box.x, box.Right(), box.Bottom() - 0.7, 1.5, uint32_t(bar.entry)),
                               dark);
        // The entry goes on behind the axis: three strokes that become fainter.
        if (bar.cutRight)
            for (int i = 0; i < 3; i++)
                drawing->FillShape(
                    DownStroke(box.Right() + 3 + 3 * i, box.y + 3 + 4 * i, box.Bottom() - 3 - 4 * i, 1.2),
                    dark);
    }
    WriteAll(bar.texts, drawing);
    for (const PlacedTick& tick : bar.ticks)
        DrawTick(model, layout, tick, drawing);
    WriteAll(bar.tickTexts, drawing);
    drawing->EndGroup();
}

static void DrawLost(const TimelineModel& model, const Layout& layout, Drawing* drawing)
{
    if (layout.lost.empty())
        return;
    drawing->FillBox(layout.lostLane, Even(lostColour), barRadius);
    for (const PlacedTick& tick : layout.lost)
        DrawTick(model, layout, tick, drawing);
    WriteAll(layout.lostTexts, drawing);
}

static void DrawFlags(const Layout& layout, Drawing* drawing)
{
    for (const PlacedFlag& flag : layout.flags) {
        std::string numbers;
        for (const size_t remark : flag.remarks)
            numbers += (numbers.empty() ? "" : " ") + std::to_string(remark + 1);
        drawing->BeginGroup({"remark", flag.title, {{"numbers", numbers}}});
        const Colour colour = flag.grave ? graveColour : slightColour;
        if (flag.extent > flag.pole)
            drawing->FillBox({flag.pole, flag.box.Bottom() + 1, flag.extent - flag.pole, 2},
                             Even(Faded(colour, 0.5f)), 0);
        const double foot =
            layout.flags.size() <= maxPoles ? layout.musicLane.Bottom() : layout.flagRow.Bottom();
        drawing->StrokeSegments({{{flag.pole, flag.box.y}, {flag.pole, foot}}}, Faded(colour, 0.55f), 0.9);
        drawing->FillBox(flag.box, Even(colour), 2);
        drawing->Write(flag.number);
        drawing->EndGroup();
    }
}

static void DrawMusic(const Layout& layout, Drawing* drawing)
{
    drawing->FillBox(layout.musicLane, laneWash, barRadius);
    Group group = {"music", layout.musicTitle, {}};
    if (!layout.wave.empty())
        group.data.push_back(
            {"length", LengthText(layout.start + (layout.musicEnd - layout.zero) / layout.perSecond)});
    drawing->BeginGroup(group);
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
        drawing->FillShape(outline(&WaveColumn::peak), peakColour);
        drawing->FillShape(outline(&WaveColumn::loudness), loudColour);
    }
    drawing->Sense(layout.musicLane);
    WriteAll(layout.musicTexts, drawing);
    drawing->EndGroup();
}

static void DrawPlot(const TimelineModel& model, const Layout& layout, Drawing* drawing)
{
    for (const PlacedLane& lane : layout.lanes)
        drawing->FillBox(lane.box, laneWash, barRadius);
    DrawMusic(layout, drawing);
    DrawLoading(layout, drawing);
    DrawGrid(layout, drawing);
    if (layout.showEnd < layout.plotEnd) {
        drawing->FillBox({layout.showEnd, layout.rulerBottom, layout.plotEnd - layout.showEnd,
                          layout.musicLane.Bottom() - layout.rulerBottom},
                         Even(afterColour), 0);
    }
    for (const PlacedBar& bar : layout.bars)
        DrawBar(model, layout, bar, drawing);
    DrawLost(model, layout, drawing);
    drawing->StrokeSegments(
        {{{layout.showEnd, layout.plot.y + 3}, {layout.showEnd, layout.musicLane.Bottom()}}}, Ink, 1.2);
    DrawFlags(layout, drawing);
}

static void DrawSample(const PlacedLegend& item, Drawing* drawing)
{
    const Box& box = item.box;
    const Point middle = {box.x + box.width / 2, box.y + box.height / 2};
    const auto needle = [&](double x, Colour stroke) {
        drawing->FillShape(DownStroke(x, box.y + 2, box.Bottom(), 2), stroke);
    };
    switch (item.kind) {
    case LoadLegend:
        drawing->FillBox(box, Even(loadColour), 0);
        drawing->StrokeSegments(Hatching(box, 7), hatchColour, 0.6);
        break;
    case EntryLegend:
        drawing->FillBox(box, WashOf(pigments[SlateWash]), barRadius);
        drawing->FillBox({box.x, box.y, 3, box.height}, Even(pigments[SlateWash].ink), 1);
        break;
    case TickLegend:
    case UnknownLegend:
    case LostLegend:
        needle(middle.x, item.kind == LostLegend ? Rust : Ink);
        drawing->FillShape(Diamond({middle.x, box.y + 2}, 3.2), item.kind == TickLegend ? Ochre : Rust);
        if (item.kind != TickLegend)
            drawing->FillShape(Diamond({middle.x, box.y + 2}, 1.6), paper);
        break;
    case ClusterLegend:
        drawing->FillBox({box.x + 5, box.y + 3, 14, box.height - 3}, Even(groupColour), 1);
        for (const double x : {6.5, 10.0, 12.0, 17.5})
            drawing->FillShape(DownStroke(box.x + x, box.y + 3, box.Bottom(), 1.4), Ink);
        drawing->FillBox({box.x + 5, box.y, 14, 3}, Even(Ochre), 1);
        break;
    case FlagLegend:
        drawing->FillBox({box.x + 6, box.y, 14, box.height - 2}, Even(Rust), 2);
        drawing->StrokeSegments({{{box.x + 6, box.y}, {box.x + 6, box.Bottom()}}}, Rust, 0.9);
        break;
    }
}

static void DrawFoot(const Layout& layout, Drawing* drawing)
{
    for (const PlacedLegend& item : layout.legend)
        DrawSample(item, drawing);
    WriteAll(layout.footTexts, drawing);
}

void DrawPicture(const TimelineModel& model, const Layout& layout, int parts, Drawing* drawing)
{
    const struct {
        PicturePart part;
        const Box* box;
    } grounds[] = {{HeadPart, &layout.head},
                   {GutterPart, &layout.gutter},
                   {PlotPart, &layout.plot},
                   {FootPart, &layout.foot}};
    if (parts == WholePicture)
        drawing->FillBox({0, 0, layout.width, layout.height}, Even(paper), 0);
    else
        for (const auto& ground : grounds)
            if (parts & ground.part)
                drawing->FillBox(*ground.box, Even(paper), 0);
    if (parts & HeadPart)
        DrawHead(layout, drawing);
    if (parts & GutterPart)
        DrawGutter(layout, drawing);
    if (parts & PlotPart)
        DrawPlot(model, layout, drawing);
    if (parts & FootPart)
        DrawFoot(layout, drawing);
}

} // namespace timeline
