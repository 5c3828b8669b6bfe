// SPDX-License-Identifier: MIT
// Messages as ticks, remarks as flags: what lies too close together becomes one.
#include "tools/timeline/LayoutParts.h"
#include "tools/timeline/Words.h"

#include <algorithm>

namespace timeline
{

// clang-format off
static const double tickWidth      = 3;
static const double closestTicks   = 4;  // nearer ones become a cluster
static const double widestCluster  = 26; // and from here on another
static const double nameGap        = 3;
static const double lostGap        = 8;
static const double lostHeight     = 30;
static const double lostBaseline   = 19;
static const double flagRowHeight  = 22;
static const double flagHeight     = 14;
static const double flagPadding    = 4;
static const double closestFlags   = 3;
static const char*  dash           = "\xe2\x80\x93";
// clang-format on

static TickKind KindOf(const Message& message)
{
    return message.entries.empty() ? LostTick : message.known ? HeardTick : UnknownTick;
}

std::vector<PlacedTick> PlaceTicks(const TimelineModel& model, const std::vector<size_t>& messages,
                                   double top, double bottom, const Layout& layout)
{
    std::vector<PlacedTick> ticks;
    double first = 0, last = 0; // x of the latest cluster's messages
    for (const size_t index : messages) {
        const Message& message = model.messages[index];
        const double x = layout.X(std::clamp(message.time, layout.start, layout.end));
        if (ticks.empty() || x - last >= closestTicks || x - first > widestCluster) {
            ticks.push_back({{}, KindOf(message), {}, {}});
            first = x;
        }
        last = x;
        PlacedTick& tick = ticks.back();
        tick.messages.push_back(index);
        tick.kind = std::max(tick.kind, KindOf(message));
        tick.box = {first - tickWidth / 2, top, last - first + tickWidth, bottom - top};
    }
    for (PlacedTick& tick : ticks)
        tick.title = Clean(MessagesTitle(model, tick.messages, layout.tempo));
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

static void ShapeFlag(const TimelineModel& model, double y, const Layout& layout, PlacedFlag* flag)
{
    // Remarks are numbered in their order, so a flag's numbers are a run.
    std::string number = std::to_string(flag->remarks.front() + 1);
    if (flag->remarks.size() > 1)
        number += dash + std::to_string(flag->remarks.back() + 1);
    const double width = TextWidth(number, FlagText) + 2 * flagPadding;
    // At the right end of the canvas a flag flies to the left.
    const bool leftward = flag->pole + width > layout.width - 2;
    flag->box = {leftward ? flag->pole - width : flag->pole, y + 4, width, flagHeight};
    flag->number = PlaceText(number, FlagText, Bone, flag->box.x + flagPadding, flag->box.y + 10);
    flag->grave = false;
    flag->extent = flag->pole;
    for (const size_t index : flag->remarks) {
        const Remark& remark = model.remarks[index];
        flag->grave = flag->grave || remark.grave;
        flag->extent = std::max(flag->extent, layout.X(std::clamp(remark.stop, layout.start, layout.end)));
    }
}

double PlaceFlags(const TimelineModel& model, double y, Layout* layout)
{
    for (size_t i = 0; i < model.remarks.size(); i++) {
        const Remark& remark = model.remarks[i];
        if (!remark.placed)
            continue;
        PlacedFlag flag = {};
        flag.remarks = {i};
        flag.pole = layout->X(std::clamp(remark.start, layout->start, layout->end));
        ShapeFlag(model, y, *layout, &flag);
        // Two that touch become one, which may then touch the one before.
        while (!layout->flags.empty() && flag.box.x < layout->flags.back().box.Right() + closestFlags) {
            PlacedFlag& before = layout->flags.back();
            flag.remarks.insert(flag.remarks.begin(), before.remarks.begin(), before.remarks.end());
            flag.pole = before.pole;
            layout->flags.pop_back();
            ShapeFlag(model, y, *layout, &flag);
        }
        layout->flags.push_back(flag);
    }
    if (layout->flags.empty())
        return y;
    for (PlacedFlag& flag : layout->flags)
        flag.title = Clean(RemarksTitle(model, flag.remarks));
    layout->flagRow = {gutterWidth, y, layout->plotEnd - gutterWidth, flagRowHeight};
    AddGutterText("remarks", CaptionText, Rust, y + 15, layout);
    return y + flagRowHeight;
}

} // namespace timeline
