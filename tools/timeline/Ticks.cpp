// SPDX-License-Identifier: MIT
// Places messages as ticks and remarks as flags, and groups those that lie too close together.
#include "tools/timeline/LayoutParts.h"
#include "tools/timeline/Words.h"

#include <algorithm>

namespace timeline
{

// clang-format off
static const double tickWidth      = 3;
static const double nameGap        = 3;
static const double lostGap        = 8;
static const double lostHeight     = 30;
static const double lostBaseline   = 19;
static const double flagRowHeight  = 22;
static const double flagHeight     = 14;
static const char*  dash           = "\xe2\x80\x93";
// clang-format on

TickKind KindOf(const Message& message)
{
    return message.entries.empty() ? LostTick : message.known ? HeardTick : UnknownTick;
}

std::vector<TickGroup> GroupTicks(const TimelineModel& model, const std::vector<size_t>& messages,
                                  const Scale& scale, const TickGaps& gaps)
{
    std::vector<TickGroup> groups;
    for (size_t i = 0; i < messages.size(); i++) {
        const Message& message = model.messages[messages[i]];
        const double x = scale.X(std::clamp(message.time, scale.start, scale.end));
        if (groups.empty() || x - groups.back().right >= gaps.closest || x - groups.back().left > gaps.widest)
            groups.push_back({i, 0, KindOf(message), x, x});
        TickGroup& group = groups.back();
        group.count++;
        group.kind = std::max(group.kind, KindOf(message));
        group.right = x;
    }
    return groups;
}

std::vector<PlacedTick> PlaceTicks(const TimelineModel& model, const std::vector<size_t>& messages,
                                   double top, double bottom, const Layout& layout)
{
    std::vector<PlacedTick> ticks;
    for (const TickGroup& group : GroupTicks(model, messages, layout)) {
        const auto first = messages.begin() + ptrdiff_t(group.first);
        ticks.push_back({{first, first + ptrdiff_t(group.count)}, group.kind, {}, {}});
        PlacedTick& tick = ticks.back();
        tick.box = {group.left - tickWidth / 2, top, group.right - group.left + tickWidth, bottom - top};
        tick.title = Clean(MessagesTitle(model, tick.messages, layout.tempo));
    }
    return ticks;
}

std::vector<PlacedText> NameTicks(const TimelineModel& model, const std::vector<PlacedTick>& ticks,
                                  double baseline, double right)
{
    std::vector<PlacedText> names;
    for (size_t i = 0; i < ticks.size(); i++) {
        const double end = i + 1 < ticks.size() ? std::min(ticks[i + 1].box.x - nameGap, right) : right;
        const PlacedText name = PlaceText(Clean(MessagesLabel(model, ticks[i].messages)), MessageText, Ink,
                                          ticks[i].box.Right() + nameGap, baseline);
        if (name.box.Right() <= end)
            names.push_back(name);
    }
    return names;
}

double PlaceLost(const TimelineModel& model, double y, Layout* layout)
{
    std::vector<size_t> lost;
    for (size_t i = 0; i < model.messages.size(); i++)
        if (model.messages[i].entries.empty())
            lost.push_back(i);
    if (lost.empty())
        return y;
    y += lostGap;
    layout->lostLane = {gutterWidth, y, layout->plotEnd - gutterWidth, lostHeight};
    AddGutterText("lost", GutterText, Rust, y + lostBaseline, layout);
    layout->lost = PlaceTicks(model, lost, y + 5, y + lostHeight - 5, *layout);
    layout->lostTexts = NameTicks(model, layout->lost, y + lostBaseline - 1, layout->width - 3);
    return y + lostHeight;
}

std::string FlagNumber(const FlagGroup& group)
{
    // Remarks are numbered in their order, so a flag's numbers are consecutive.
    const std::string number = std::to_string(group.first + 1);
    return group.count > 1 ? number + dash + std::to_string(group.first + group.count) : number;
}

static void ShapeFlag(const TimelineModel& model, const Scale& scale, const FlagRoom& room, FlagGroup* flag)
{
    flag->width = room.textWidth(FlagNumber(*flag)) + 2 * room.padding;
    const bool leftward = flag->pole + flag->width > room.right;
    flag->left = leftward ? flag->pole - flag->width : flag->pole;
    flag->grave = false;
    flag->extent = flag->pole;
    for (size_t i = flag->first; i < flag->first + flag->count; i++) {
        const Remark& remark = model.remarks[i];
        flag->grave = flag->grave || remark.grave;
        flag->extent = std::max(flag->extent, scale.X(std::clamp(remark.stop, scale.start, scale.end)));
    }
}

std::vector<FlagGroup> GroupFlags(const TimelineModel& model, const Scale& scale, const FlagRoom& room)
{
    std::vector<FlagGroup> flags;
    for (size_t i = 0; i < model.remarks.size(); i++) {
        const Remark& remark = model.remarks[i];
        if (!remark.placed)
            continue;
        FlagGroup flag = {};
        flag.first = i;
        flag.count = 1;
        flag.pole = scale.X(std::clamp(remark.start, scale.start, scale.end));
        ShapeFlag(model, scale, room, &flag);
        // Two groups that touch become one, which may then touch the group before it.
        while (!flags.empty() && flag.left < flags.back().left + flags.back().width + room.closest) {
            flag.first = flags.back().first;
            flag.count += flags.back().count;
            flag.pole = flags.back().pole;
            flags.pop_back();
            ShapeFlag(model, scale, room, &flag);
        }
        flags.push_back(flag);
    }
    return flags;
}

double PlaceFlags(const TimelineModel& model, double y, Layout* layout)
{
    FlagRoom room = {};
    room.textWidth = [](const std::string& text) { return TextWidth(text, FlagText); };
    room.right = layout->width - 2;
    for (const FlagGroup& group : GroupFlags(model, *layout, room)) {
        PlacedFlag flag = {};
        for (size_t i = 0; i < group.count; i++)
            flag.remarks.push_back(group.first + i);
        flag.grave = group.grave;
        flag.pole = group.pole;
        flag.extent = group.extent;
        flag.box = {group.left, y + 4, group.width, flagHeight};
        flag.number =
            PlaceText(FlagNumber(group), FlagText, Bone, flag.box.x + room.padding, flag.box.y + 10);
        flag.title = Clean(RemarksTitle(model, flag.remarks));
        layout->flags.push_back(flag);
    }
    if (layout->flags.empty())
        return y;
    layout->flagRow = {gutterWidth, y, layout->plotEnd - gutterWidth, flagRowHeight};
    AddGutterText("remarks", CaptionText, Rust, y + 15, layout);
    return y + flagRowHeight;
}

} // namespace timeline
