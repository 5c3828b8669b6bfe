// SPDX-License-Identifier: MIT
#include "tools/edit/TimelinePanel.h"

#include "platform/toolwindow/ToolFonts.h"
#include "tools/edit/EffectCatalogue.h"
#include "tools/edit/Nudge.h"
#include "tools/edit/TimelineFlags.h"
#include "tools/edit/TimelineLanes.h"
#include "tools/edit/TimelineMusic.h"
#include "tools/edit/TimelineRuler.h"
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>

namespace edit
{

using namespace timeline;

// clang-format off
static const double gutterWidth    = 104; // pixels of the design, as are the others
static const double loopHeight     = 16;
static const double rulerGap       = 5;   // below the figures
static const double flagsHeight    = 20;
static const double lostHeight     = 28;
static const double musicHeight    = 54;
static const double musicLeast     = 34;
static const double areaGap        = 5;
static const double overviewHeight = 16;
static const double zoomStep       = 1.5; // of a key
static const double behindTheEnd   = 0.08; // of the show: as much is to be seen of what comes after it
// clang-format on

// What the analysis knows, as far as it is there.
static const TimelineModel* AnalysedModel(const EditorState& state)
{
    return state.analysis ? &state.analysis->model : nullptr;
}

bool TimelinePanel::IsMusicKnown(const EditorState& state)
{
    return state.analysis && (state.analysis->musicIsKnown || state.analysis->model.music.file.empty());
}

void TimelinePanel::Refresh(EditorState* state)
{
    const Outline& outline = state->document->GetOutline();
    if (contentsRevision != state->document->Revision()) {
        contents = ReadContents(outline);
        contentsRevision = state->document->Revision();
    }
    DropStale(outline, &state->selection);
    if (!std::is_sorted(state->selection.begin(), state->selection.end()))
        Sort(&state->selection);
    double end = std::max(contents.model.end, 1.0);
    double last = end;
    if (!contents.model.messages.empty())
        last = std::max(last, contents.model.messages.back().time);
    if (const TimelineModel* const analysed = AnalysedModel(*state))
        last = std::max(last, analysed->music.wave.Length());
    end = contents.model.entries.empty() ? std::max(last, 10.0)
                                         : std::max(end, std::min(last, end * (1 + behindTheEnd)));
    // A long loading would leave no room for the show; what is cut off here can be scrolled to.
    const double loading = std::min(double(contents.model.loads.size()), 0.06 * end);
    // While something is dragged the scale must not move under the pointer.
    if (mode != DragMode)
        view.SetExtent(-loading, end);
}

void TimelinePanel::RunActions(EditorState* state)
{
    std::vector<TimelineAction> actions;
    actions.swap(state->timelineActions);
    for (const TimelineAction action : actions) {
        const double head = view.X(state->playhead);
        const double about = head >= 0 && head <= view.Width() ? head : view.Width() / 2;
        switch (action) {
        case ZoomIn:
            view.ZoomAt(about, zoomStep);
            break;
        case ZoomOut:
            view.ZoomAt(about, 1 / zoomStep);
            break;
        case ZoomToShow:
            view.ZoomToExtent();
            break;
        case Tap:
            tapping.Tap(state);
            break;
        case NewItem: {
            uint32_t layer = contents.lanes.empty() ? 1 : contents.lanes.back().layer;
            std::string effect;
            for (const ItemId item : state->selection) {
                const OutlineBlock& block = state->document->GetOutline().blocks[item.block];
                effect = block.effect;
                layer = block.type == BlockEffect ? block.layer : layer;
            }
            menu.Open(uint32_t(std::max(0ll, std::llround(Snapped(*state, state->playhead) * 1000))), layer,
                      effect);
            break;
        }
        default:
            Nudge(action, state);
        }
        if (contentsRevision != state->document->Revision())
            Refresh(state);
    }
    if (state->revealSelection) {
        const Outline& outline = state->document->GetOutline();
        uint32_t from = UINT32_MAX, to = 0;
        for (const ItemId item : state->selection)
            if (item.time >= 0 || IsEntry(outline, item)) {
                from = std::min(from, StartOf(outline, item));
                to = std::max(to, StopOf(outline, item));
            }
        if (from <= to)
            view.Reveal(from / 1000.0, to / 1000.0);
        state->revealSelection = false;
    }
}

void TimelinePanel::PlaceAreas(const EditorState& state, float x, float y, float width, float height)
{
    const float s = state.scale;
    const auto size = [&](double design) { return std::round(float(design) * s); };
    x = std::floor(x), y = std::floor(y), width = std::floor(width), height = std::floor(height);
    areas.whole = {x, y, x + width, y + height};
    const float left = x + std::min(size(gutterWidth), width / 3), right = x + width;
    float top = y;
    const auto place = [&](float areaHeight) {
        const Area area = {left, top, right, top + areaHeight};
        top += areaHeight;
        return area;
    };
    areas.loop = place(size(loopHeight));
    const float figures = TimelinePaint::TextHeight(platform::FontOf(platform::SmallFont)) +
                          TimelinePaint::TextHeight(platform::FontOf(platform::TinyFont));
    areas.ruler = place(figures + size(rulerGap));
    const TimelineModel* const analysed = AnalysedModel(state);
    areas.flags = place(analysed && HasFlags(*analysed) ? size(flagsHeight) : 0);
    const float lost = contents.lost.empty() ? 0 : size(lostHeight);
    const float bottom = y + height - size(overviewHeight) - size(areaGap);
    // The music gives way to lanes that would not all be in sight otherwise.
    float music = size(musicHeight);
    const double room = double(bottom - top - lost - music - 3 * size(areaGap));
    if (HeightOfLanes(contents, ChooseLaneSizes(contents, room, s)) > room)
        music = size(musicLeast);
    top += size(2);
    areas.lanes = place(
        std::max(size(10), bottom - top - music - size(areaGap) - (lost > 0 ? lost + size(areaGap) : 0)));
    if (lost > 0)
        top += size(areaGap);
    areas.lost = place(lost);
    top += size(areaGap);
    areas.music = place(music);
    areas.overview = {x, areas.whole.bottom - size(overviewHeight), right, areas.whole.bottom};
    areas.gutter = {x, y, left, areas.music.bottom};
    view.SetWidth(double(right - left));
}

void TimelinePanel::PaintBand(TimelinePaint* paint) const
{
    const ImVec2 mouse = ImGui::GetIO().MousePos;
    const double x = double(areas.PlotLeft()) + view.X(pressSeconds);
    const double fromX = std::min(x, double(mouse.x)), toX = std::max(x, double(mouse.x));
    const double fromY = std::min(pressY, double(mouse.y)), toY = std::max(pressY, double(mouse.y));
    paint->list->PushClipRect({areas.lanes.left, areas.lanes.top}, {areas.lanes.right, areas.music.top},
                              true);
    paint->Fill(fromX, fromY, toX, toY, Faded(Slate, 0.15f));
    paint->Frame(fromX, fromY, toX, toY, Slate, 1);
    paint->list->PopClipRect();
}

// The copies of a CopyDrag where they would come to lie.
void TimelinePanel::PaintCopies(TimelinePaint* paint) const
{
    const double left = double(areas.PlotLeft());
    const double shift = double(drag.Milliseconds()) / 1000 * view.PerSecond();
    const auto topOf = [&](int64_t layer) {
        for (const PlacedLaneBox& lane : places.lanes)
            if (lane.layer == layer)
                return lane.top;
        return places.lanes.empty() ? 0 : places.lanes.front().top;
    };
    for (const PlacedEntry& entry : places.entries)
        if (IsSelected(drag.Items(), contents.entryItems[entry.entry])) {
            const int64_t layer = contents.model.entries[entry.entry].layer;
            const double fall = topOf(layer + drag.Layers()) - topOf(layer);
            paint->Fill(entry.left + shift, entry.top + fall, entry.right + shift, entry.bottom + fall,
                        Faded(Amber, 0.35f));
            paint->Frame(entry.left + shift, entry.top + fall, entry.right + shift, entry.bottom + fall, Ink,
                         1);
        }
    for (size_t i = 0; i < contents.messageItems.size(); i++) {
        const double x = TickX(contents, view, left, i) + shift;
        if (x >= left && x <= double(areas.Body().right) &&
            IsSelected(drag.Items(), contents.messageItems[i]))
            paint->Down(x, double(areas.lanes.top), double(areas.music.top), Faded(Ochre, 0.9f));
    }
}

void TimelinePanel::PaintDrag(TimelinePaint* paint) const
{
    const Area body = areas.Body();
    paint->list->PushClipRect({body.left, areas.ruler.top}, {body.right, body.bottom}, true);
    if (drag.HasSnapped()) {
        const double x = double(areas.PlotLeft()) + view.X(drag.SnappedAt());
        paint->Down(x, double(areas.ruler.top), double(body.bottom), Faded(Rust, 0.9f));
        paint->Diamond(x, double(body.top), 4, Rust);
    }
    if (drag.Kind() == CopyDrag)
        PaintCopies(paint);
    paint->list->PopClipRect();
}

// Beside the pointer: how far a drag has gone, and where to.
void TimelinePanel::ShowDragTooltip(const EditorState& state) const
{
    std::string words = (drag.Milliseconds() > 0 ? "+" : "") + std::to_string(drag.Milliseconds()) + " ms";
    if (drag.Layers() != 0)
        words += std::string(drag.Layers() > 0 ? ", +" : ", ") + std::to_string(drag.Layers()) +
                 (std::llabs(drag.Layers()) == 1 ? " layer" : " layers");
    if (!dragAnchors.empty()) {
        const double moment = std::max(dragAnchors[0] + double(drag.Milliseconds()) / 1000, 0.0);
        words += "\n" + ClockText(moment) + "  \xc2\xb7  " + MusicalText(moment, state.tempo);
    }
    if (drag.Kind() == CopyDrag)
        words = "copy " + words;
    const ImVec2 mouse = ImGui::GetIO().MousePos;
    ImGui::SetNextWindowPos({mouse.x + 14 * state.scale, mouse.y + 18 * state.scale});
    ImGui::BeginTooltip();
    ImGui::TextUnformatted(words.c_str());
    ImGui::EndTooltip();
}

void TimelinePanel::Paint(const EditorState& state, const ItemHit& hovered)
{
    TimelinePaint paint(ImGui::GetWindowDrawList(), state.scale);
    const TimelineModel* const analysed = AnalysedModel(state);
    paint.Fill(areas.whole, Bone);
    const LanesToPaint lanes = {contents, view, sizes, places, areas, state.selection, state.tempo, hovered};
    paint.list->PushClipRect({areas.lanes.left, areas.lanes.top}, {areas.lanes.right, areas.lost.bottom},
                             true);
    PaintLaneGrounds(lanes, &paint);
    paint.list->PopClipRect();
    PaintMusic(analysed ? &analysed->music : nullptr, IsMusicKnown(state), view, areas, &paint);
    PaintLoop(state, view, areas, &paint);
    PaintGrid(state, view, contents, areas, &paint);
    PaintEnd(view, contents, areas, &paint);
    PaintLanes(lanes, &paint);
    PaintMarkers(state, view, areas, &paint);
    if (analysed)
        PaintFlags(PlaceFlags(*analysed, view, areas, state.scale), areas, &paint);
    PaintPlayHead(state, view, areas, &paint);
    PaintLaneNames(lanes, &paint);
    PaintLaneScroll(lanes, lanesScroll, &paint);
    PaintOverview(state, view, contents, areas, &paint);
    if (contents.model.entries.empty() && contents.model.messages.empty()) {
        ImFont* const font = platform::FontOf(platform::HeadingFont);
        const std::string words = "Nothing is on stage yet. The right button, or N, puts an effect here.";
        paint.Text(font, double(areas.lanes.left) + 16 * double(state.scale),
                   double(areas.lanes.top + areas.lanes.Height() / 2 - TimelinePaint::TextHeight(font)),
                   Slate, TimelinePaint::Elide(font, words, areas.lanes.Width() - 32 * state.scale));
    }
}

void TimelinePanel::Draw(EditorState* state)
{
    wantsFrame = false;
    Refresh(state);
    DrawBar(state);
    const ImVec2 at = ImGui::GetCursorScreenPos(), room = ImGui::GetContentRegionAvail();
    if (room.x < 80 * state->scale || room.y < 80 * state->scale) {
        state->timelineActions.clear();
        return;
    }
    PlaceAreas(*state, at.x, at.y, room.x, room.y);
    RunActions(state);
    if (state->playing && state->follow && mode == NoMouse)
        view.Follow(state->playhead);

    sizes = ChooseLaneSizes(contents, double(areas.lanes.Height()), state->scale);
    const double height = HeightOfLanes(contents, sizes);
    lanesScroll = std::clamp(lanesScroll, 0.0, std::max(0.0, height - double(areas.lanes.Height())));
    const auto place = [&] {
        const double inset = 4 * double(state->scale);
        const bool lost = !areas.lost.Empty();
        places =
            PlaceLanes(contents, view, sizes, double(areas.PlotLeft()), double(areas.lanes.top),
                       double(areas.lanes.bottom), lanesScroll, lost ? double(areas.lost.top) + inset : 0,
                       lost ? double(areas.lost.bottom) - inset : 0);
    };
    place();

    // One item for all of the canvas: what the pointer is over is known here, not to ImGui.
    ImGui::InvisibleButton("timeline", {areas.whole.Width(), areas.whole.Height()},
                           ImGuiButtonFlags_MouseButtonLeft | ImGuiButtonFlags_MouseButtonRight |
                               ImGuiButtonFlags_MouseButtonMiddle);
    const ItemHit hovered = HandleMouse(state);
    if (contentsRevision != state->document->Revision())
        Refresh(state); // so that what was dragged is drawn where it is
    place();
    ImGui::PushClipRect({areas.whole.left, areas.whole.top}, {areas.whole.right, areas.whole.bottom}, true);
    ItemHit shown = hovered;
    if (hovered.part != HitNothing) { // the pointer to the ticks was one into the places before
        const ImVec2 mouse = ImGui::GetIO().MousePos;
        shown = FindHit(contents, view, sizes, places, double(areas.PlotLeft()), double(mouse.x),
                        double(mouse.y));
    }
    Paint(*state, shown);
    ImGui::PopClipRect();
    TimelinePaint paint(ImGui::GetWindowDrawList(), state->scale);
    if (mode == BandMode)
        PaintBand(&paint);
    if (mode == DragMode) {
        PaintDrag(&paint);
        ShowDragTooltip(*state);
    }
    ShowTooltip(*state, shown);
    menu.Draw(state, &tapping);
}

void TimelinePanel::DrawBar(EditorState* state)
{
    ImGui::PushFont(platform::FontOf(platform::SmallFont));
    ImGui::PushStyleVar(ImGuiStyleVar_FramePadding, {6 * state->scale, 2 * state->scale});
    const ImVec2 corner = ImGui::GetCursorPos();
    ImGui::SetCursorPos({corner.x + 10 * state->scale, corner.y + 5 * state->scale});
    ImGui::Checkbox("Snap to", &state->snap.on);
    const struct {
        const char* name;
        bool* value;
    } kinds[] = {{"beats", &state->snap.toBeats},
                 {"bars", &state->snap.toBars},
                 {"messages", &state->snap.toMessages},
                 {"edges", &state->snap.toEdges}};
    ImGui::BeginDisabled(!state->snap.on);
    for (const auto& kind : kinds) {
        ImGui::SameLine();
        ImGui::Checkbox(kind.name, kind.value);
    }
    ImGui::EndDisabled();
    ImGui::SameLine(0, 20 * state->scale);
    ImGui::Checkbox("Follow", &state->follow);
    ImGui::SameLine(0, 20 * state->scale);
    ImGui::AlignTextToFramePadding();
    ImGui::TextUnformatted("T taps");
    ImGui::SameLine();
    DrawTapChoice(state);
    ImGui::PopStyleVar();
    ImGui::PopFont();
}

void TimelinePanel::DrawTapChoice(EditorState* state)
{
    const std::string chosen =
        tapping.IsChosen() ? tapping.Message() + "  \xe2\x80\x94  " + tapping.Effect() : "choose a message";
    ImGui::SetNextItemWidth(std::min(260 * state->scale, std::max(80.0f, ImGui::GetContentRegionAvail().x)));
    if (!ImGui::BeginCombo("##tap", chosen.c_str(), ImGuiComboFlags_HeightLarge))
        return;
    // The effects that are in the script come first.
    const EffectCatalogue& catalogue = EffectCatalogue::Production();
    for (const bool used : {true, false}) {
        bool any = false;
        for (const CatalogueEffect& effect : catalogue.effects) {
            const bool isUsed = std::any_of(contents.model.entries.begin(), contents.model.entries.end(),
                                            [&](const Entry& entry) { return entry.effect == effect.key; });
            if (isUsed != used || effect.messages.empty())
                continue;
            if (!any && !used)
                ImGui::Separator();
            any = true;
            ImGui::TextDisabled("%s", effect.key.c_str());
            for (const CatalogueMessage& message : effect.messages) {
                ImGui::PushID((effect.key + "/" + message.name).c_str());
                const bool is = tapping.Effect() == effect.key && tapping.Message() == message.name;
                if (ImGui::Selectable(("    " + message.name).c_str(), is))
                    tapping.Choose(effect.key, message.name, UsualParameters(message));
                ImGui::PopID();
            }
        }
    }
    ImGui::EndCombo();
}

} // namespace edit
