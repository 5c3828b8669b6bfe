// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineFlags.h"

#include "platform/toolwindow/ToolFonts.h"

namespace edit
{

using namespace timeline;

static const size_t maxPoles = 8; // flags whose poles reach down to the music; more would be a fence

bool HasFlags(const TimelineModel& model)
{
    return !model.remarks.empty() && model.remarks.front().placed; // those with a place come first
}

std::vector<FlagGroup> PlaceFlags(const TimelineModel& model, const TimelineView& view,
                                  const TimelineAreas& areas, float scale)
{
    FlagRoom room = {};
    room.textWidth = [](const std::string& text) {
        return double(TimelinePaint::TextWidth(platform::FontOf(platform::TinyFont), text));
    };
    room.padding *= double(scale);
    room.closest *= double(scale);
    room.right = 1e12; // a flag may leave the window, as all else does
    std::vector<FlagGroup> flags = GroupFlags(model, view.Whole(double(areas.PlotLeft())), room);
    std::erase_if(flags, [&](const FlagGroup& flag) {
        return flag.pole > double(areas.PlotRight()) ||
               (flag.left + flag.width < double(areas.PlotLeft()) && flag.extent < double(areas.PlotLeft()));
    });
    return flags;
}

void PaintFlags(const std::vector<FlagGroup>& flags, const TimelineAreas& areas, TimelinePaint* paint)
{
    if (areas.flags.Empty())
        return;
    const Area& row = areas.flags;
    const double s = double(paint->scale);
    ImFont* const font = platform::FontOf(platform::TinyFont);
    ImFont* const note = platform::FontOf(platform::NoteFont);
    const double line = double(TimelinePaint::TextHeight(font));
    const double top = double(row.top) + 3 * s, bottom = double(row.bottom) - 4 * s;
    paint->Text(note, double(areas.gutter.left) + 12 * s,
                (top + bottom - double(TimelinePaint::TextHeight(note))) / 2, Rust, "findings");
    paint->list->PushClipRect({row.left, row.top}, {row.right, areas.Body().bottom}, true);
    for (const FlagGroup& flag : flags) {
        const uint32_t colour = flag.grave ? graveColour : slightColour;
        if (flag.extent > flag.pole)
            paint->Fill(flag.pole, bottom + s, flag.extent, bottom + 3 * s, Faded(colour, 0.5f));
        paint->Down(flag.pole, top,
                    flags.size() <= maxPoles ? double(areas.Body().bottom) : double(row.bottom),
                    Faded(colour, 0.55f));
        paint->Fill(flag.left, top, flag.left + flag.width, bottom, colour);
        paint->Text(font, flag.left + 4 * s, (top + bottom - line) / 2, Bone, FlagNumber(flag));
    }
    paint->list->PopClipRect();
}

int FlagAt(const std::vector<FlagGroup>& flags, double x)
{
    for (size_t i = flags.size(); i-- > 0;)
        if (x >= flags[i].left && x <= flags[i].left + flags[i].width)
            return int(i);
    return -1;
}

} // namespace edit
