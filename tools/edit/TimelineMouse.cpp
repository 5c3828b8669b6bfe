// SPDX-License-Identifier: MIT
// The mouse on the timeline: what a press takes hold of, and what becomes of it until the release.
#include "tools/edit/TimelineFlags.h"
#include "tools/edit/TimelinePanel.h"
#include "tools/edit/TimelineRuler.h"
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>

namespace edit
{

using namespace timeline;

// clang-format off
static const double dragThreshold = 4;    // pixels of the design: less is a click
static const double snapReach     = 8;    // how far away a moment attracts
static const double loopGrip      = 6;    // how near to an end of the loop a press takes hold of it
static const double wheelZoom     = 1.25; // by a notch of the wheel
static const double wheelScroll   = 80;   // pixels of the design by a notch
static const double scrollMargin  = 20;   // a drag that comes this near to the edge scrolls
static const double scrollSpeed   = 500;  // pixels of the design per second
static const double tooltipDelay  = 0.35; // seconds
// clang-format on

SnapGrid TimelinePanel::GridFor(const EditorState& state, const Selection& moved) const
{
    SnapGrid grid(state.snap, state.tempo);
    grid.AddContents(contents, moved);
    if (state.snap.on) {
        grid.AddMoment(state.playhead);
        for (const double marker : state.markers)
            grid.AddMoment(marker);
    }
    return grid;
}

double TimelinePanel::Snapped(const EditorState& state, double seconds) const
{
    double snapped = seconds;
    if (!ImGui::GetIO().KeyAlt)
        GridFor(state, {}).Nearest(seconds, snapReach * double(state.scale) / view.PerSecond(), &snapped);
    return std::max(0.0, snapped);
}

DragPoint TimelinePanel::PointAt(double x, double y) const
{
    return {view.Seconds(x - double(areas.PlotLeft())), LayerAt(places, y), x, y};
}

void TimelinePanel::HandleWheel(const EditorState& state)
{
    const ImGuiIO& io = ImGui::GetIO();
    const double s = double(state.scale);
    const double x = double(io.MousePos.x), left = double(areas.PlotLeft());
    if (io.MouseWheelH != 0)
        view.Scroll(-double(io.MouseWheelH) * wheelScroll * s);
    if (io.MouseWheel == 0)
        return;
    if (io.KeyCtrl || x < left)
        lanesScroll -= double(io.MouseWheel) * wheelScroll / 2 * s;
    else if (io.KeyShift)
        view.Scroll(-double(io.MouseWheel) * wheelScroll * s);
    else
        view.ZoomAt(x - left, std::pow(wheelZoom, double(io.MouseWheel)));
}

ItemHit TimelinePanel::HandleMouse(EditorState* state)
{
    const ImGuiIO& io = ImGui::GetIO();
    const double x = double(io.MousePos.x), y = double(io.MousePos.y);
    const bool over = ImGui::IsItemHovered();
    ItemHit hit;
    const auto hitAt = [&](double hitX, double hitY) {
        return areas.lanes.Has(hitX, hitY) || areas.lost.Has(hitX, hitY)
                   ? FindHit(contents, view, sizes, places, double(areas.PlotLeft()), hitX, hitY)
                   : ItemHit();
    };
    if (over && mode == NoMouse)
        hit = hitAt(x, y);
    if (over)
        HandleWheel(*state);

    if (over && mode == NoMouse) {
        if (ImGui::IsMouseDoubleClicked(ImGuiMouseButton_Left) && !io.KeyCtrl)
            DoubleClick(state, hit);
        else if (ImGui::IsMouseClicked(ImGuiMouseButton_Left)) // where it went down, not where it is by now
            Press(state, hitAt(double(io.MouseClickedPos[0].x), double(io.MouseClickedPos[0].y)));
        else if (ImGui::IsMouseClicked(ImGuiMouseButton_Middle))
            mode = PanMode;
        else if (ImGui::IsMouseClicked(ImGuiMouseButton_Right))
            OpenMenu(state, hit);
    } else if (mode != NoMouse) {
        const bool down = io.MouseDown[mode == PanMode ? ImGuiMouseButton_Middle : ImGuiMouseButton_Left];
        if (mode == DragMode && ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape))) {
            drag.Cancel(state->document);
            mode = NoMouse;
        } else if (down) {
            DragOn(state);
        } else {
            DragOn(state); // the last of the way
            Release(state);
        }
    }

    const bool edge = hit.part == HitStart || hit.part == HitStop;
    if (edge || (mode == DragMode && (drag.Kind() == StartDrag || drag.Kind() == StopDrag)))
        ImGui::SetMouseCursor(ImGuiMouseCursor_ResizeEW);
    else if (mode == PanMode)
        ImGui::SetMouseCursor(ImGuiMouseCursor_Hand);
    return hit;
}

void TimelinePanel::Press(EditorState* state, const ItemHit& hit)
{
    const ImGuiIO& io = ImGui::GetIO();
    pressX = double(io.MouseClickedPos[0].x);
    pressY = double(io.MouseClickedPos[0].y);
    pressSeconds = view.Seconds(pressX - double(areas.PlotLeft()));
    pressControl = io.KeyCtrl;
    pressed = {};
    if (areas.overview.Has(pressX, pressY)) {
        mode = OverviewMode;
        const Scale scale = OverviewScale(contents, view, areas);
        // A press outside of what is shown brings the middle of the view there.
        const double at = scale.Seconds(pressX);
        if (at < view.Start() || at > view.End())
            view.MoveTo(at - view.Width() / view.PerSecond() / 2);
        panStart = view.Start();
    } else if (areas.ruler.Has(pressX, pressY)) {
        mode = ScrubMode;
        state->scrubTo = std::max(0.0, pressSeconds);
    } else if (areas.loop.Has(pressX, pressY)) {
        mode = LoopMode;
        const double reach = loopGrip * double(state->scale) / view.PerSecond();
        const bool hasLoop = state->loopEnd > state->loopStart;
        if (hasLoop && std::fabs(pressSeconds - state->loopStart) <= reach)
            loopAnchor = state->loopEnd;
        else if (hasLoop && std::fabs(pressSeconds - state->loopEnd) <= reach)
            loopAnchor = state->loopStart;
        else
            loopAnchor = Snapped(*state, pressSeconds);
    } else if (areas.flags.Has(pressX, pressY) && state->analysis) {
        const std::vector<FlagGroup> flags = PlaceFlags(state->analysis->model, view, areas, state->scale);
        const int flag = FlagAt(flags, pressX);
        if (flag >= 0)
            state->goTo = std::max(0.0, state->analysis->model.remarks[flags[size_t(flag)].first].start);
    } else if (areas.lanes.Has(pressX, pressY) || areas.lost.Has(pressX, pressY)) {
        PressLanes(state, hit);
    }
}

void TimelinePanel::PressLanes(EditorState* state, const ItemHit& hit)
{
    const bool bandAnyhow = ImGui::GetIO().KeyCtrl && ImGui::GetIO().KeyShift;
    if (hit.part == HitNothing || bandAnyhow) {
        mode = BandMode;
        bandBase = pressControl ? state->selection : Selection();
        state->selection = bandBase;
        return;
    }
    mode = PressMode;
    pressed = hit;
    pressed.ticks = nullptr;
    pressLanes = places;
    wasSelected = IsSelected(state->selection, hit.item);
    if (!wasSelected) {
        if (!pressControl)
            state->selection.clear();
        Select(&state->selection, hit.item);
    }
    // The edges that may snap.
    dragAnchors.clear();
    if (hit.part == HitMessage) {
        dragAnchors = {contents.model.messages[hit.index].time};
    } else {
        const Entry& entry = contents.model.entries[hit.index];
        dragAnchors = {hit.part == HitStop ? entry.stop : entry.start};
        if (hit.part == HitBar)
            dragAnchors.push_back(entry.stop);
    }
}

void TimelinePanel::BeginDrag(EditorState* state)
{
    const DragKind kind = pressed.part == HitStart  ? StartDrag
                          : pressed.part == HitStop ? StopDrag
                          : pressControl            ? CopyDrag
                                                    : MoveDrag;
    Selection items = state->selection;
    const Outline& outline = state->document->GetOutline();
    std::erase_if(items, [&](ItemId item) {
        return kind == StartDrag || kind == StopDrag ? !IsEntry(outline, item)
                                                     : item.time < 0 && !IsEntry(outline, item);
    });
    // The way counts from where the button went down, also if the view has scrolled since.
    DragPoint from = PointAt(pressX, pressY);
    from.seconds = pressSeconds;
    drag.Begin(kind, items, dragAnchors, from);
    dragGrid = GridFor(*state, items);
    mode = DragMode;
}

void TimelinePanel::DragOn(EditorState* state)
{
    const ImGuiIO& io = ImGui::GetIO();
    const double s = double(state->scale);
    const double x = double(io.MousePos.x), y = double(io.MousePos.y);
    const double left = double(areas.PlotLeft()), right = double(areas.PlotRight());
    const double reach = snapReach * s / view.PerSecond();
    if (mode == DragMode || mode == BandMode || mode == LoopMode || mode == ScrubMode) {
        const double step = scrollSpeed * s * double(std::min(io.DeltaTime, 0.1f));
        if (x < left + scrollMargin * s && view.Start() > -1 - double(contents.model.loads.size()) &&
            !view.ShowsExtent()) {
            view.Scroll(-step);
            wantsFrame = true;
        } else if (x > right - scrollMargin * s && !view.ShowsExtent()) {
            view.Scroll(step);
            wantsFrame = true;
        }
    }
    const double seconds = view.Seconds(std::clamp(x, left, right) - left);
    switch (mode) {
    case PressMode:
        if (std::max(std::fabs(x - pressX), std::fabs(y - pressY)) < dragThreshold * s)
            return;
        BeginDrag(state);
        [[fallthrough]];
    case DragMode: {
        const uint64_t before = state->document->Revision();
        // Where the layers lie must not follow the drag itself: the lanes of the press decide.
        drag.Update(state->document, {seconds, LayerAt(pressLanes, y), x, y}, io.KeyShift,
                    io.KeyAlt ? nullptr : &dragGrid, reach);
        if (state->document->Revision() == before && !state->document->LastRefusal().empty())
            state->notice = state->document->LastRefusal();
        break;
    }
    case BandMode:
        SelectBand(state);
        break;
    case ScrubMode:
        if (state->playhead != std::max(0.0, seconds))
            state->scrubTo = std::max(0.0, seconds);
        break;
    case LoopMode:
        if (std::fabs(x - pressX) >= dragThreshold * s || state->loopEnd > state->loopStart) {
            const double to = Snapped(*state, seconds);
            state->loopStart = std::min(loopAnchor, to);
            state->loopEnd = std::max(loopAnchor, to);
        }
        break;
    case PanMode:
        view.Scroll(-double(io.MouseDelta.x));
        lanesScroll -= double(io.MouseDelta.y);
        break;
    case OverviewMode: {
        const Scale scale = OverviewScale(contents, view, areas);
        view.MoveTo(panStart + (x - pressX) / scale.perSecond);
        break;
    }
    case NoMouse:
        break;
    }
}

void TimelinePanel::Release(EditorState* state)
{
    const ImGuiIO& io = ImGui::GetIO();
    switch (mode) {
    case PressMode: // a click: of several that were selected, or without Ctrl, this one alone remains
        if (pressControl && wasSelected)
            Toggle(&state->selection, pressed.item);
        else if (!pressControl)
            state->selection = {pressed.item};
        break;
    case DragMode:
        drag.Drop(state->document, &state->selection);
        break;
    case ScrubMode:
        state->goTo = std::max(0.0, view.Seconds(double(io.MousePos.x) - double(areas.PlotLeft())));
        break;
    case LoopMode:
        if (std::fabs(double(io.MousePos.x) - pressX) < dragThreshold * double(state->scale))
            state->looping = state->loopEnd > state->loopStart && !state->looping; // a click
        else
            state->looping = state->loopEnd > state->loopStart;
        break;
    default:
        break;
    }
    mode = NoMouse;
}

void TimelinePanel::DoubleClick(EditorState* state, const ItemHit& hit)
{
    const double x = double(ImGui::GetIO().MousePos.x), y = double(ImGui::GetIO().MousePos.y);
    if (areas.loop.Has(x, y)) {
        state->loopStart = state->loopEnd = 0;
        state->looping = false;
        return;
    }
    if (areas.overview.Has(x, y)) {
        view.ZoomToExtent();
        return;
    }
    if (x < double(areas.PlotLeft()) || areas.flags.Has(x, y))
        return;
    double seconds = view.Seconds(x - double(areas.PlotLeft()));
    if (hit.part == HitMessage)
        seconds = contents.model.messages[hit.index].time;
    else if (hit.part == HitStart || hit.part == HitStop)
        seconds = hit.part == HitStart ? contents.model.entries[hit.index].start
                                       : contents.model.entries[hit.index].stop;
    state->goTo = std::max(0.0, seconds);
}

void TimelinePanel::OpenMenu(EditorState* state, const ItemHit& hit)
{
    const double x = double(ImGui::GetIO().MousePos.x), y = double(ImGui::GetIO().MousePos.y);
    if (x < double(areas.PlotLeft()) || areas.overview.Has(x, y))
        return;
    std::string effect;
    if (hit.part == HitNothing) {
        state->selection.clear();
    } else {
        effect = state->document->GetOutline().blocks[hit.item.block].effect;
        if (!IsSelected(state->selection, hit.item))
            state->selection = {hit.item};
    }
    const double seconds = Snapped(*state, view.Seconds(x - double(areas.PlotLeft())));
    menu.Open(uint32_t(std::llround(std::min(seconds * 1000, 4294967295.0))), uint32_t(LayerAt(places, y)),
              effect);
}

void TimelinePanel::SelectBand(EditorState* state)
{
    const ImGuiIO& io = ImGui::GetIO();
    const double from = std::min(pressSeconds, view.Seconds(double(io.MousePos.x - areas.PlotLeft())));
    const double to = std::max(pressSeconds, view.Seconds(double(io.MousePos.x - areas.PlotLeft())));
    const double top = std::min(pressY, double(io.MousePos.y)),
                 bottom = std::max(pressY, double(io.MousePos.y));
    Selection band = bandBase;
    // Entries that lie in it from end to end, so that those over the whole night stay out; messages that it touches.
    for (const PlacedEntry& placed : places.entries) {
        const Entry& entry = contents.model.entries[placed.entry];
        if (placed.top <= bottom && placed.bottom >= top && entry.start >= from &&
            std::max(entry.stop, entry.start) <= to)
            band.push_back(contents.entryItems[placed.entry]);
    }
    for (const std::vector<PlacedTicks>* list : {&places.ticks, &places.lost})
        for (const PlacedTicks& ticks : *list) {
            if (ticks.top > bottom || ticks.bottom < top)
                continue;
            for (size_t i = 0; i < ticks.group.count; i++) {
                const size_t message = (*ticks.messages)[ticks.group.first + i];
                const double time = contents.model.messages[message].time;
                if (time >= from && time <= to)
                    band.push_back(contents.messageItems[message]);
            }
        }
    Sort(&band);
    state->selection = band;
}

void TimelinePanel::ShowTooltip(const EditorState& state, const ItemHit& hit)
{
    std::string words;
    const double x = double(ImGui::GetIO().MousePos.x), y = double(ImGui::GetIO().MousePos.y);
    const TimelineModel* const analysed = state.analysis ? &state.analysis->model : nullptr;
    if (mode == NoMouse && ImGui::IsItemHovered() && !ImGui::IsAnyMouseDown()) {
        if (hit.part == HitMessage && hit.ticks) {
            const auto first = hit.ticks->messages->begin() + ptrdiff_t(hit.ticks->group.first);
            words = MessagesTitle(contents.model, {first, first + ptrdiff_t(hit.ticks->group.count)},
                                  state.tempo);
        } else if (hit.part != HitNothing) {
            words = EntryTitle(contents.model, hit.index, contents.heard[hit.index], state.tempo);
        } else if (analysed && areas.flags.Has(x, y)) {
            const std::vector<FlagGroup> flags = PlaceFlags(*analysed, view, areas, state.scale);
            const int flag = FlagAt(flags, x);
            std::vector<size_t> remarks;
            for (size_t i = 0; flag >= 0 && i < flags[size_t(flag)].count; i++)
                remarks.push_back(flags[size_t(flag)].first + i);
            if (!remarks.empty())
                words = RemarksTitle(*analysed, remarks);
        } else if (analysed && areas.music.Has(x, y)) {
            words = IsMusicKnown(state) ? MusicTitle(*analysed) : "";
        } else if (areas.ruler.Has(x, y) && view.Seconds(x - double(areas.PlotLeft())) < 0 &&
                   !contents.model.loads.empty()) {
            words = LoadingTitle(contents.model);
        }
    }
    const double now = ImGui::GetTime();
    if (words != restingOn) {
        restingOn = words;
        restingSince = now;
    }
    if (words.empty())
        return;
    if (now - restingSince < tooltipDelay) {
        wantsFrame = true;
        return;
    }
    ImGui::BeginTooltip();
    ImGui::PushTextWrapPos(420 * state.scale);
    ImGui::TextUnformatted(Clean(words).c_str());
    ImGui::PopTextWrapPos();
    ImGui::EndTooltip();
}

} // namespace edit
