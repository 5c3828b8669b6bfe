// SPDX-License-Identifier: MIT
// The foot of the picture: the legend, and the list of the remarks.
#include "tools/timeline/LayoutParts.h"
#include "tools/timeline/Words.h"

#include <algorithm>

namespace timeline
{

// clang-format off
static const double sampleWidth  = 24;
static const double sampleHeight = 12;
static const double sampleGap    = 6;
static const double itemGap      = 24;
static const double legendStep   = 20;
static const double listGap      = 14;
static const double lineStep     = 15;
static const double numberRoom   = 34;
static const size_t maxRemarks  = 40;
static const int    maxLines    = 4; // of one remark
// clang-format on

static std::vector<std::string> Wrap(const std::string& text, TextStyle style, double width)
{
    std::vector<std::string> lines;
    std::string line;
    size_t i = 0;
    while (i < text.size()) {
        const size_t end = std::min(text.find_first_of(" \n", i), text.size());
        const std::string word = text.substr(i, end - i);
        const std::string longer = line.empty() ? word : line + " " + word;
        if (!line.empty() && TextWidth(longer, style) > width) {
            lines.push_back(line);
            line = word;
        } else {
            line = longer;
        }
        i = end + 1;
    }
    if (!line.empty())
        lines.push_back(line);
    if (int(lines.size()) > maxLines) {
        lines.resize(maxLines);
        lines.back() += " \xe2\x80\xa6";
    }
    for (std::string& each : lines)
        each = Elide(each, style, width);
    return lines;
}

static double PlaceLegend(const TimelineModel& model, double y, Layout* layout)
{
    bool clusters = false, unknown = false;
    for (const PlacedBar& bar : layout->bars)
        for (const PlacedTick& tick : bar.ticks) {
            clusters = clusters || tick.messages.size() > 1;
            unknown = unknown || tick.kind == UnknownTick;
        }
    const struct {
        LegendKind kind;
        bool wanted;
        const char* words;
    } items[] = {
        {LoadLegend, !model.loads.empty(), "loading, a second for each effect that is initialised"},
        {EntryLegend, !model.entries.empty(), "an effect on stage"},
        {TickLegend, !model.messages.empty(), "a message"},
        {ClusterLegend, clusters, "several, close together"},
        {UnknownLegend, unknown, "a message that the effect doesn't know"},
        {LostLegend, !layout->lost.empty(), "a message that nobody hears"},
        {FlagLegend, !model.remarks.empty(), "a remark of the linter"},
    };
    double x = margin;
    bool any = false;
    for (const auto& item : items) {
        if (!item.wanted)
            continue;
        const double right = layout->width - margin;
        const double textRoom = right - margin - sampleWidth - sampleGap;
        const std::string words = Elide(item.words, FindingText, textRoom);
        const double width = sampleWidth + sampleGap + TextWidth(words, FindingText);
        if (any && x + width > right) {
            x = margin;
            y += legendStep;
        }
        any = true;
        layout->legend.push_back({item.kind, {x, y, sampleWidth, sampleHeight}});
        layout->footTexts.push_back(
            PlaceText(words, FindingText, Slate, x + sampleWidth + sampleGap, y + sampleHeight - 2));
        x += width + itemGap;
    }
    return any ? y + legendStep : y;
}

// The indices of the remarks that the list shows, in ascending order: all, or if they are too many the grave ones
// before the others.
static std::vector<size_t> Listed(const TimelineModel& model)
{
    std::vector<size_t> listed;
    for (const bool grave : {true, false})
        for (size_t i = 0; i < model.remarks.size(); i++)
            if (model.remarks[i].grave == grave &&
                (listed.size() < maxRemarks || model.remarks.size() == maxRemarks + 1))
                listed.push_back(i);
    std::sort(listed.begin(), listed.end());
    return listed;
}

void PlaceFoot(const TimelineModel& model, double top, Layout* layout)
{
    double y = PlaceLegend(model, top + 8, layout);
    if (!model.remarks.empty())
        y += listGap;
    const double width = layout->width - 2 * margin - numberRoom;
    const std::vector<size_t> listed = Listed(model);
    for (const size_t i : listed) {
        const Remark& remark = model.remarks[i];
        layout->footTexts.push_back(
            PlaceText(std::to_string(i + 1), FindingText, remark.grave ? Rust : Ochre, margin, y + 10));
        for (const std::string& line : Wrap(Clean(remark.text), FindingText, width)) {
            layout->footTexts.push_back(PlaceText(line, FindingText, Ink, margin + numberRoom, y + 10));
            y += lineStep;
        }
    }
    if (listed.size() < model.remarks.size()) {
        const std::string rest = "and " + std::to_string(model.remarks.size() - listed.size()) + " more";
        layout->footTexts.push_back(PlaceText(rest, FindingText, Slate, margin + numberRoom, y + 10));
        y += lineStep;
    }
    layout->height = y + 12;
    layout->foot = {0, top, layout->width, layout->height - top};
}

} // namespace timeline
