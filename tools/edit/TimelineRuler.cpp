// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineRuler.h"

#include "platform/toolwindow/ToolFonts.h"
#include "tools/timeline/Layout.h"

#include <algorithm>
#include <cmath>

namespace edit
{

using namespace timeline;

// clang-format off
static const double figureGap  = 4;  // pixels of the design, between a mark and its figure
static const double minGap     = 12; // between figures
static const double headWidth  = 6;  // half of the play head's
static const double thumbLeast = 8;  // width
// clang-format on

static void PaintLoading(const TimelineView& view, const TimelineContents& contents,
                         const TimelineAreas& areas, TimelinePaint* paint)
{
    const size_t seconds = contents.model.loads.size();
    if (seconds == 0 || view.Start() >= 0)
        return;
    const double left = double(areas.PlotLeft());
    const Area body = areas.Body();
    const Area area = {float(std::max(left, left + view.X(-double(seconds)))), body.top,
                       float(std::min(double(body.right), left + view.X(0))), body.bottom};
    if (area.Empty())
        return;
    paint->Fill(area, loadColour);
    paint->Hatch(area, 9, hatchColour);
    double last = -1e9;
    for (size_t i = 0; i < seconds; i++) {
        const double x = left + view.X(-double(i));
        if (x < double(area.left) || x > double(area.right) || std::fabs(x - last) < 3)
            continue;
        paint->Down(x, double(areas.ruler.bottom - 5 * paint->scale), double(areas.ruler.bottom), Slate);
        last = x;
    }
    ImFont* const font = platform::FontOf(platform::NoteFont);
    if (TimelinePaint::TextWidth(font, "loading") + 6 * paint->scale < area.Width())
        paint->Text(font, double(area.left + 4 * paint->scale), double(areas.ruler.top + paint->scale), Slate,
                    "loading");
}

void PaintGrid(const EditorState& state, const TimelineView& view, const TimelineContents& contents,
               const TimelineAreas& areas, TimelinePaint* paint)
{
    const double s = double(paint->scale);
    const Area& ruler = areas.ruler;
    const double top = double(areas.Body().top), bottom = double(areas.Body().bottom);
    paint->list->PushClipRect({ruler.left, ruler.top}, {ruler.right, areas.Body().bottom}, true);
    PaintLoading(view, contents, areas, paint);

    ImFont* const barFont = platform::FontOf(platform::SmallFont);
    ImFont* const timeFont = platform::FontOf(platform::TinyFont);
    const double barLine = double(TimelinePaint::TextHeight(barFont));
    const double barTop = double(ruler.top) + s;
    const double timeTop = barTop + barLine + s;
    MarkRoom room = {};
    room.bar = double(TimelinePaint::TextWidth(barFont, "00000")) + (figureGap + minGap) * s;
    room.time = double(TimelinePaint::TextWidth(timeFont, ClockText(std::floor(std::max(view.End(), 0.0))))) +
                (figureGap + minGap) * s;
    room.decimals = double(TimelinePaint::TextWidth(timeFont, ".00"));
    room.narrowestBar *= s;
    room.narrowestBeat *= s;
    Scale shown = view.Shown(double(areas.PlotLeft()));
    // A figure stands right of its mark, which may be out of sight.
    shown.start = std::max(0.0, shown.start - room.bar / shown.perSecond);
    shown.zero += (shown.start - view.Start()) * shown.perSecond;
    for (const RulerMark& mark : PlaceMarks(shown, state.tempo, room))
        switch (mark.kind) {
        case BeatMark:
            paint->Down(mark.x, double(ruler.bottom) - 3 * s, bottom, beatColour);
            break;
        case BarMark:
            paint->Down(mark.x, double(ruler.bottom) - 6 * s, bottom, barColour);
            break;
        case NumberedBarMark:
            paint->Down(mark.x, double(ruler.top) + 3 * s, bottom, numberColour);
            paint->Text(barFont, mark.x + figureGap * s, barTop, Ink,
                        std::to_string(std::llround(mark.count)));
            break;
        case ClockMark:
            paint->Down(mark.x, timeTop + s, double(ruler.bottom), clockColour);
            paint->Text(timeFont, mark.x + figureGap * s, timeTop + s, Slate, ClockText(mark.count));
            break;
        }
    paint->Across(top, double(ruler.left), double(ruler.right), Slate);
    paint->list->PopClipRect();

    const double x = double(areas.gutter.left) + 12 * s;
    ImFont* const note = platform::FontOf(platform::NoteFont);
    paint->Text(note, x, barTop, Slate, "bar");
    paint->Text(note, x, timeTop - s, Slate, "time");
}

void PaintEnd(const TimelineView& view, const TimelineContents& contents, const TimelineAreas& areas,
              TimelinePaint* paint)
{
    const Area body = areas.Body();
    const double end = double(areas.PlotLeft()) + view.X(contents.model.end);
    if (contents.model.entries.empty() || end >= double(body.right))
        return;
    paint->Fill(std::max(end, double(body.left)), double(body.top), double(body.right), double(body.bottom),
                afterColour);
    if (end >= double(body.left))
        paint->Down(end, double(areas.ruler.top) + 3 * double(paint->scale), double(body.bottom), Ink);
}

void PaintLoop(const EditorState& state, const TimelineView& view, const TimelineAreas& areas,
               TimelinePaint* paint)
{
    const double s = double(paint->scale);
    paint->Fill(areas.loop, Mix(Bone, Parchment, 0.6f));
    paint->Text(platform::FontOf(platform::NoteFont), double(areas.gutter.left) + 12 * s,
                double(areas.loop.top), Slate, "loop");
    if (state.loopEnd <= state.loopStart)
        return;
    const double left = double(areas.PlotLeft());
    const double from = left + view.X(state.loopStart), to = left + view.X(state.loopEnd);
    const Area& loop = areas.loop;
    paint->list->PushClipRect({loop.left, loop.top}, {loop.right, areas.Body().bottom}, true);
    const uint32_t colour = state.looping ? Ochre : Mix(Parchment, Slate, 0.35f);
    paint->Fill(from, double(loop.top) + 2 * s, to, double(loop.bottom) - s, colour);
    paint->Fill(from, double(loop.top) + 2 * s, from + 3 * s, double(loop.bottom) - s,
                Mix(colour, Ink, 0.4f));
    paint->Fill(to - 3 * s, double(loop.top) + 2 * s, to, double(loop.bottom) - s, Mix(colour, Ink, 0.4f));
    if (state.looping) {
        const Area body = areas.Body();
        paint->Fill(from, double(body.top), to, double(body.bottom), Faded(Amber, 0.10f));
        paint->Down(from, double(loop.bottom), double(body.bottom), Faded(Ochre, 0.5f));
        paint->Down(to, double(loop.bottom), double(body.bottom), Faded(Ochre, 0.5f));
    }
    paint->list->PopClipRect();
}

void PaintMarkers(const EditorState& state, const TimelineView& view, const TimelineAreas& areas,
                  TimelinePaint* paint)
{
    const double s = double(paint->scale), left = double(areas.PlotLeft());
    for (const double marker : state.markers) {
        const double x = left + view.X(marker);
        if (x < left || x > double(areas.PlotRight()))
            continue;
        const float px = std::floor(float(x)) + 0.5f, bottom = areas.ruler.bottom, w = float(5 * s);
        paint->Down(x, double(areas.ruler.bottom) - 12 * s, double(areas.Body().bottom), Faded(Moss, 0.6f));
        paint->list->AddTriangleFilled({px, bottom - 2 * w - w}, {px + 2 * w, bottom - 2 * w},
                                       {px, bottom - w}, TimelinePaint::Of(Moss));
    }
}

void PaintPlayHead(const EditorState& state, const TimelineView& view, const TimelineAreas& areas,
                   TimelinePaint* paint)
{
    const double left = double(areas.PlotLeft());
    const double x = left + view.X(state.playhead);
    if (x < left - 1 || x > double(areas.PlotRight()))
        return;
    const float px = std::floor(float(x)) + 0.5f, w = float(headWidth) * paint->scale;
    const float top = areas.ruler.top, s = paint->scale;
    paint->Down(x, double(areas.ruler.top), double(areas.Body().bottom), Ink, 3);
    paint->Down(x, double(areas.ruler.top), double(areas.Body().bottom), Amber, 1);
    const ImVec2 outer[] = {
        {px - w, top}, {px + w, top}, {px + w, top + w}, {px, top + 2 * w}, {px - w, top + w}};
    const float v = w - 1.5f * s;
    const ImVec2 inner[] = {{px - v, top + 1.5f * s},
                            {px + v, top + 1.5f * s},
                            {px + v, top + w - 0.6f * s},
                            {px, top + 2 * w - 2.1f * s},
                            {px - v, top + w - 0.6f * s}};
    paint->list->AddConvexPolyFilled(outer, 5, TimelinePaint::Of(Ink));
    paint->list->AddConvexPolyFilled(inner, 5, TimelinePaint::Of(Amber));
}

Scale OverviewScale(const TimelineContents& contents, const TimelineView& view, const TimelineAreas& areas)
{
    const double from = std::min(-double(contents.model.loads.size()), view.Start());
    const double to = std::max({contents.model.end, view.End(), 1.0});
    return {from, to, double(areas.overview.left), double(areas.overview.Width()) / (to - from)};
}

void PaintOverview(const EditorState& state, const TimelineView& view, const TimelineContents& contents,
                   const TimelineAreas& areas, TimelinePaint* paint)
{
    const double s = double(paint->scale);
    const Area& strip = areas.overview;
    const Scale scale = OverviewScale(contents, view, areas);
    const double top = double(strip.top), bottom = double(strip.bottom);
    paint->Fill(strip, Mix(Bone, Parchment, 0.7f));
    // Entries as thin lines, a row for each lane.
    const double step = (bottom - top - 4 * s) / double(std::max<size_t>(contents.lanes.size(), 1));
    for (size_t i = 0; i < contents.model.entries.size() && step >= 1; i++) {
        const Entry& entry = contents.model.entries[i];
        const auto lane = std::find_if(contents.lanes.begin(), contents.lanes.end(),
                                       [&](const ContentsLane& each) { return each.layer == entry.layer; });
        const double y = top + 2 * s + double(lane - contents.lanes.begin()) * step;
        const double from = scale.X(std::min(entry.start, scale.end)),
                     to = scale.X(std::min(entry.stop, scale.end));
        paint->Fill(from, y, std::max(to, from + 1), y + std::max(1.0, step - s),
                    Faded(pigments[entry.wash].ink, 0.45f));
    }
    const double from = scale.X(view.Start());
    const double to = std::max(scale.X(std::min(view.End(), scale.end)), from + thumbLeast * s);
    paint->Fill(double(strip.left), top, from, bottom, Faded(Slate, 0.30f));
    paint->Fill(to, top, double(strip.right), bottom, Faded(Slate, 0.30f));
    paint->Frame(from, top, to, bottom, Slate, 1);
    paint->Down(scale.X(std::clamp(state.playhead, scale.start, scale.end)), top, bottom, Ochre, 2);
}

} // namespace edit
