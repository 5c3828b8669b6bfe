// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineLanes.h"

#include "platform/toolwindow/ToolFonts.h"
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>

namespace edit
{

using namespace timeline;

// clang-format off
static const double laneGap       = 4;   // pixels of the design, as are the others
static const double lanePadding   = 3;
static const double rowGap        = 3;
static const double grip          = 5;
static const double tickReach     = 5;
static const double minTicks      = 9;   // height that ticks need below a name
static const double nameInset     = 7;
static const double nameTop       = 2;   // from the top of a bar to the name's line
static const double nameGap       = 8;   // between the name of an entry and its note
static const double tickNameGap   = 4;   // between a tick and its name
static const double headHeight    = 3;   // of a group of ticks
static const double closestLines  = 1.5; // nearer ones in a group are one
static const double gutterInset   = 12;
static const uint32_t selectedEdge  = Ink;
static const uint32_t selectedGlow  = Amber;
// clang-format on

LaneSizes ChooseLaneSizes(const TimelineContents& contents, double height, float scale)
{
    const double s = double(scale);
    const double name =
        double(TimelinePaint::TextHeight(platform::FontOf(platform::SmallFont))) + nameTop * s;
    const double small = double(TimelinePaint::TextHeight(platform::FontOf(platform::TinyFont)));
    LaneSizes sizes = {};
    sizes.grip = grip * s;
    sizes.tickReach = tickReach * s;
    sizes.gaps.closest *= s;
    sizes.gaps.widest *= s;
    const struct {
        double barHeight, tickTop;
        bool tickNames;
        double spare; // of the gaps between lanes
    } choices[] = {
        {name + small + 8 * s, name + 3 * s, true, 1},
        {name + minTicks * s, name, false, 1},
        {name + 4 * s, name - 2 * s, false, 0.5},
    };
    for (const auto& choice : choices) {
        sizes.barHeight = std::round(choice.barHeight);
        sizes.tickTop = std::round(choice.tickTop);
        sizes.tickNames = choice.tickNames;
        sizes.rowHeight = sizes.barHeight + std::round(rowGap * s * choice.spare);
        sizes.laneGap = std::round(laneGap * s * choice.spare);
        sizes.lanePadding = std::round(lanePadding * s * choice.spare);
        if (HeightOfLanes(contents, sizes) <= height)
            break;
    }
    return sizes;
}

void PaintLaneGrounds(const LanesToPaint& what, TimelinePaint* paint)
{
    const Area& lanes = what.areas.lanes;
    for (const PlacedLaneBox& lane : what.places.lanes)
        if (lane.bottom > double(lanes.top) && lane.top < double(lanes.bottom))
            paint->Fill(double(lanes.left), lane.top, double(lanes.right), lane.bottom, laneWash);
    if (!what.areas.lost.Empty())
        paint->Fill(what.areas.lost, lostColour);
}

// After a bar that is too narrow for it, as far as the next bar in the row.
static void NameBehind(const LanesToPaint& what, const PlacedEntry& placed, double free,
                       const std::string& whole, TimelinePaint* paint)
{
    ImFont* const font = platform::FontOf(platform::SmallFont);
    const double s = double(paint->scale), left = placed.right + 4 * s;
    const double right = std::min(free, double(what.areas.PlotRight())) - 3 * s;
    if (left < double(what.areas.PlotLeft()) || right - left < 12 * s)
        return;
    const std::string name = TimelinePaint::Elide(font, whole, float(right - left));
    if (!name.empty())
        paint->Text(font, left, placed.top + nameTop * s, Ink, name);
}

// The name stays in sight at the left edge while its bar leaves there. free: x of the next bar in the row.
static void NameEntry(const LanesToPaint& what, const PlacedEntry& placed, double free, TimelinePaint* paint)
{
    const Entry& entry = what.contents.model.entries[placed.entry];
    const double s = double(paint->scale);
    const double left = std::max(placed.left, double(what.areas.PlotLeft())) + nameInset * s;
    const double right = std::min(placed.right, double(what.areas.PlotRight())) - 3 * s;
    if (!paint->HasRoom())
        return;
    ImFont* const font = platform::FontOf(platform::SmallFont);
    const bool unknown = what.contents.unknown[placed.entry];
    const std::string whole = Clean(entry.effect.empty() ? "(no effect)" : entry.effect);
    const std::string name =
        right - left < 12 * s ? "" : TimelinePaint::Elide(font, whole, float(right - left));
    if (name.empty()) {
        NameBehind(what, placed, free, whole, paint);
        return;
    }
    paint->Text(font, left, placed.top + nameTop * s, unknown ? Rust : Ink, name);
    ImFont* const noteFont = platform::FontOf(platform::TinyFont);
    const std::string note = unknown ? "there is no such effect" : BarsNote(entry, what.tempo);
    const double noteLeft = left + double(TimelinePaint::TextWidth(font, name)) + nameGap * s;
    if (name == whole && noteLeft + double(TimelinePaint::TextWidth(noteFont, note)) <= right)
        paint->Text(noteFont, noteLeft, placed.top + (nameTop + 2) * s, unknown ? Rust : Slate, note);
}

static void PaintEntry(const LanesToPaint& what, const PlacedEntry& placed, TimelinePaint* paint)
{
    const Entry& entry = what.contents.model.entries[placed.entry];
    const Pigment& pigment = pigments[entry.wash];
    const double s = double(paint->scale);
    const bool selected = IsSelected(what.selection, what.contents.entryItems[placed.entry]);
    const bool hovered = what.hovered.ticks == nullptr && what.hovered.part != HitNothing &&
                         what.hovered.index == placed.entry;
    if (entry.stop < entry.start) {
        paint->Fill(placed.left, placed.top, placed.left + 2 * s, placed.bottom, Faded(Rust, 0.8f));
        paint->Diamond(placed.left + s, placed.top + 4 * s, 4, Rust);
    } else if (what.contents.unknown[placed.entry]) {
        const Area area = {float(std::max(placed.left, double(what.areas.PlotLeft()))), float(placed.top),
                           float(std::min(placed.right, double(what.areas.PlotRight()))),
                           float(placed.bottom)};
        paint->Fill(area, Faded(Rust, 0.10f));
        paint->Hatch(area, 8, Faded(Rust, 0.35f));
    } else {
        Wash wash = WashOf(pigment);
        if (hovered && !selected)
            wash = {Mix(wash.top.rgb, Bone, 0.3f), Mix(wash.bottom.rgb, Bone, 0.2f)};
        paint->Fill(placed.left, placed.top, placed.right, placed.bottom, wash);
    }
    if (entry.stop >= entry.start) {
        const uint32_t dark = what.contents.unknown[placed.entry] ? Rust : pigment.ink;
        const double width = placed.right - placed.left;
        paint->Fill(placed.left, placed.top, placed.left + std::min(3 * s, width), placed.bottom, dark);
        if (width > 4 * s)
            paint->Across(placed.bottom - s, placed.left, placed.right, dark, 1.5);
    }
    if (selected) {
        paint->Frame(placed.left - s, placed.top - s, placed.right + s, placed.bottom + s, selectedEdge, 1);
        paint->Frame(placed.left, placed.top, placed.right, placed.bottom, selectedGlow, 2);
    }
}

static void PaintTicks(const LanesToPaint& what, const PlacedTicks& ticks, TimelinePaint* paint)
{
    const double s = double(paint->scale), left = double(what.areas.PlotLeft());
    const uint32_t head = ticks.group.kind == HeardTick ? Ochre : Rust;
    const auto messageAt = [&](size_t i) { return (*ticks.messages)[ticks.group.first + i]; };
    const auto isSelected = [&](size_t message) {
        return !what.selection.empty() && IsSelected(what.selection, what.contents.messageItems[message]);
    };
    if (ticks.group.count == 1) {
        const size_t message = messageAt(0);
        const double x = ticks.group.left;
        const bool hovered = what.hovered.part == HitMessage && what.hovered.index == message;
        if (isSelected(message))
            paint->Fill(x - 4 * s, ticks.top - s, x + 4 * s, ticks.bottom, selectedGlow);
        else if (hovered)
            paint->Fill(x - 4 * s, ticks.top - s, x + 4 * s, ticks.bottom, Faded(Amber, 0.45f));
        paint->Down(x, ticks.top + 2 * s, ticks.bottom - s, ticks.group.kind == LostTick ? Rust : Ink, 2);
        paint->Diamond(x, ticks.top + 2 * s, 3.6, head);
        if (ticks.group.kind != HeardTick)
            paint->Diamond(x, ticks.top + 2 * s, 1.7, Bone);
        return;
    }
    const double width = std::max(ticks.group.right - ticks.group.left + 3 * s, 6.4 * s);
    const double middle = (ticks.group.left + ticks.group.right) / 2;
    const bool hovered = what.hovered.ticks == &ticks;
    paint->Fill(middle - width / 2, ticks.top + headHeight * s, middle + width / 2, ticks.bottom - s,
                hovered ? Faded(Night, 0.5f) : groupColour);
    // The glow of selected ones that stand close together is one, of even strength.
    const double reach = 2 * s;
    double glowStart = 0, glowEnd = -1e9;
    const auto paintGlow = [&] {
        if (glowEnd > glowStart && paint->HasRoom())
            paint->Fill(glowStart, ticks.top, glowEnd, ticks.bottom, selectedGlow);
    };
    double last = -1e9, lastSelected = -1e9;
    std::vector<double> lines;
    for (size_t i = 0; i < ticks.group.count; i++) {
        const size_t message = messageAt(i);
        const double x = TickX(what.contents, what.view, left, message);
        const bool selected = isSelected(message);
        if (selected && x - reach > glowEnd) {
            paintGlow();
            glowStart = x - reach;
        }
        if (selected)
            glowEnd = x + reach;
        if (x - (selected ? lastSelected : last) < closestLines * s)
            continue;
        lines.push_back(x);
        last = x;
        if (selected)
            lastSelected = x;
    }
    paintGlow();
    for (const double x : lines)
        if (paint->HasRoom())
            paint->Down(x, ticks.top + headHeight * s, ticks.bottom - s, Ink, 1);
    paint->Fill(middle - width / 2, ticks.top, middle + width / 2, ticks.top + headHeight * s, head);
}

// Names as far as the next tick, where there is room below the name of the entry.
static void NameTicks(const LanesToPaint& what, const std::vector<PlacedTicks>& ticks, double right,
                      size_t from, size_t to, TimelinePaint* paint)
{
    ImFont* const font = platform::FontOf(platform::TinyFont);
    const double s = double(paint->scale), height = double(TimelinePaint::TextHeight(font));
    const double narrowest = 14 * s; // no name of a message finds room there
    for (size_t i = from; i < to && paint->HasRoom(); i++) {
        const double end = i + 1 < to ? std::min(ticks[i + 1].group.left - 5 * s, right) : right;
        const double x = ticks[i].group.right + (tickNameGap + 1) * s;
        if (end - x < narrowest || x < double(what.areas.PlotLeft()) - 200 * s)
            continue;
        const auto first = ticks[i].messages->begin() + ptrdiff_t(ticks[i].group.first);
        const std::string name =
            Clean(MessagesLabel(what.contents.model, {first, first + ptrdiff_t(ticks[i].group.count)}));
        if (x + double(TimelinePaint::TextWidth(font, name)) <= end)
            paint->Text(font, x, ticks[i].bottom - height - s, Ink, name);
    }
}

void PaintLanes(const LanesToPaint& what, TimelinePaint* paint)
{
    const Area& lanes = what.areas.lanes;
    paint->list->PushClipRect({lanes.left, lanes.top}, {lanes.right, lanes.bottom}, true);
    for (const PlacedEntry& entry : what.places.entries)
        PaintEntry(what, entry, paint);
    for (size_t i = 0; i < what.places.entries.size(); i++) {
        const PlacedEntry& entry = what.places.entries[i];
        const bool rowGoesOn =
            i + 1 < what.places.entries.size() && what.places.entries[i + 1].top == entry.top;
        NameEntry(what, entry, rowGoesOn ? what.places.entries[i + 1].left : double(lanes.right), paint);
    }
    for (const PlacedTicks& ticks : what.places.ticks)
        PaintTicks(what, ticks, paint);
    if (what.sizes.tickNames)
        for (size_t from = 0, to = 0; from < what.places.ticks.size(); from = to) {
            // The ticks of one entry stand side by side in the list.
            const std::vector<size_t>* const messages = what.places.ticks[from].messages;
            while (to < what.places.ticks.size() && what.places.ticks[to].messages == messages)
                to++;
            const size_t entry = size_t(messages - what.contents.heard.data());
            const double end =
                double(lanes.left) +
                std::min(what.view.X(what.contents.model.entries[entry].stop), what.view.Width()) - 3;
            NameTicks(what, what.places.ticks, end, from, to, paint);
        }
    paint->list->PopClipRect();
    if (what.areas.lost.Empty())
        return;
    const Area& lost = what.areas.lost;
    paint->list->PushClipRect({lost.left, lost.top}, {lost.right, lost.bottom}, true);
    for (const PlacedTicks& ticks : what.places.lost)
        PaintTicks(what, ticks, paint);
    NameTicks(what, what.places.lost, double(lost.right) - 3, 0, what.places.lost.size(), paint);
    paint->list->PopClipRect();
}

void PaintLaneScroll(const LanesToPaint& what, double scroll, TimelinePaint* paint)
{
    const Area& lanes = what.areas.lanes;
    const double height = double(lanes.Height());
    if (what.places.height <= height + 1)
        return;
    const double s = double(paint->scale), right = double(lanes.right) - 2 * s;
    const double top = double(lanes.top) + scroll / what.places.height * height;
    paint->Fill(right - 4 * s, top, right, top + height / what.places.height * height, Faded(Slate, 0.55f));
}

void PaintLaneNames(const LanesToPaint& what, TimelinePaint* paint)
{
    const Area& gutter = what.areas.gutter;
    const Area& lanes = what.areas.lanes;
    const double s = double(paint->scale), x = double(gutter.left) + gutterInset * s;
    ImFont* const font = platform::FontOf(platform::HeadingFont);
    ImFont* const small = platform::FontOf(platform::NoteFont);
    const double line = double(TimelinePaint::TextHeight(font));
    const double smallLine = double(TimelinePaint::TextHeight(small));
    const float room = gutter.Width() - float((gutterInset + 4) * s);
    paint->list->PushClipRect({gutter.left, lanes.top}, {gutter.right, lanes.bottom}, true);
    for (size_t i = 0; i < what.places.lanes.size(); i++) {
        const PlacedLaneBox& lane = what.places.lanes[i];
        if (lane.bottom < double(lanes.top) || lane.top > double(lanes.bottom))
            continue;
        const std::string number = std::to_string(lane.layer);
        const bool fits = TimelinePaint::TextWidth(font, "layer " + number) <= room;
        const char* const place = what.places.lanes.size() < 2        ? ""
                                  : i == 0                            ? "in front"
                                  : i + 1 == what.places.lanes.size() ? "at the back"
                                                                      : "";
        // The name of a lane that is partly out of sight stands in the part that is seen.
        const double top = std::max(lane.top, double(lanes.top)) + 2 * s;
        const bool twoLines = *place && lane.bottom - top >= line + smallLine;
        const double height = std::min(lane.bottom - top, 56 * s);
        const double y = twoLines ? top + (height - line - smallLine) / 2 : top + (height - line) / 2;
        if (lane.bottom - top < line - 2 * s)
            continue;
        paint->Text(font, x, y, Ink, TimelinePaint::Elide(font, fits ? "layer " + number : number, room));
        if (twoLines)
            paint->Text(small, x, y + line - s, Slate, TimelinePaint::Elide(small, place, room));
    }
    paint->list->PopClipRect();
    if (!what.areas.lost.Empty())
        paint->Text(font, x, double(what.areas.lost.top) + (double(what.areas.lost.Height()) - line) / 2,
                    Rust, "lost");
}

} // namespace edit
