// SPDX-License-Identifier: MIT
// Places layers as lanes and entries as bars in them. The front layer is the topmost lane.
#include "tools/timeline/LayoutParts.h"
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace timeline
{

// The sizes of rows and bars, by the number of rows that the show needs.
struct Size {
    int maxRows; // of all lanes together
    double rowHeight, barHeight;
    double nameBaseline;     // 0: no names. From the top of the bar, as are the others.
    double tickTop;          // ticks go from here down to the bar's bottom
    double tickNameBaseline; // 0: no names
};

// clang-format off
static const Size sizes[] = {
    //   rows    row   bar  name  tick  tick's name
    {      14,    48,   44,   16,   22,   36.5},
    {      40,    35,   32,   13,   18,   28},
    {    1000,    22,   20,   12,   15,    0},
    { 1 << 30,     0,    0,    0,    0,    0}, // as high as the highest canvas allows
};
static const double laneGap       = 6;     // between lanes
static const double lanePadding   = 4;     // above and below the bars of a lane
static const double maxHeight    = 24000; // of all lanes together
static const double minBarWidth = 1.5;
static const double nameInset     = 7;
static const double nameGap       = 8;     // between the name and the bars that it spans
static const double repeatEvery   = 1100;  // names come again on long bars, for those who see a part of them
// clang-format on

std::vector<int> RowsOf(const TimelineModel& model)
{
    std::vector<size_t> order(model.entries.size());
    for (size_t i = 0; i < order.size(); i++)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return model.entries[a].start < model.entries[b].start; });
    std::vector<int> rows(order.size());
    std::map<uint32_t, std::vector<double>> ends; // of each row of a layer
    for (const size_t i : order) {
        const Entry& entry = model.entries[i];
        std::vector<double>& layer = ends[entry.layer];
        size_t row = 0;
        while (row < layer.size() && layer[row] > entry.start)
            row++;
        if (row == layer.size())
            layer.push_back(0);
        layer[row] = std::max(entry.stop, entry.start);
        rows[i] = int(row);
    }
    return rows;
}

static void NameLane(const PlacedLane& lane, bool front, bool back, Layout* layout)
{
    const std::string number = std::to_string(lane.layer);
    const std::string words = "layer " + number;
    const bool fits = TextWidth(words, GutterText) <= gutterWidth - margin - 8;
    const double middle = lane.box.y + std::min(lane.box.height, 60.0) / 2;
    const double line = TextHeight(GutterText);
    const char* const place = front ? "in front" : back ? "at the back" : "";
    if (lane.box.height < line)
        return;
    const bool twoLines = *place && lane.box.height >= line + TextHeight(CaptionText) + 1;
    AddGutterText(fits ? words : number, GutterText, Ink, twoLines ? middle - 1 : middle + 5, layout);
    if (twoLines)
        AddGutterText(place, CaptionText, Slate, middle + 13, layout);
}

// Places the name inside the bar if it fits; otherwise after the bar, up to x `free`, if it fits there; otherwise in
// the place that shows more of it.
static void NameBar(const Entry& entry, const Size& size, double free, const Layout& layout, PlacedBar* bar)
{
    if (size.nameBaseline == 0)
        return;
    const std::string name = Clean(entry.effect);
    const CanvasRect& box = bar->box;
    const double baseline = box.y + size.nameBaseline;
    const double inside = box.width - nameInset - 3;
    const double outsideLeft = box.Right() + 4;
    const double outside = free - outsideLeft - 2;
    const double width = TextWidth(name, EntryText);
    if (width <= inside) {
        for (double x = box.x + nameInset; x + width <= box.Right() - 3; x += repeatEvery) {
            const bool again = x > box.x + nameInset;
            bar->texts.push_back(PlaceText(name, EntryText, again ? Faded(Ink, 0.55f) : Ink, x, baseline));
        }
        const std::string note = BarsNote(entry, layout.tempo);
        const double noteLeft = box.x + nameInset + width + nameGap;
        if (noteLeft + TextWidth(note, NoteText) <= box.Right() - 4)
            bar->texts.push_back(PlaceText(note, NoteText, Slate, noteLeft, baseline));
        return;
    }
    const std::string behind = Elide(name, EntryText, outside);
    const std::string within = Elide(name, EntryText, inside);
    if (!behind.empty() && behind.size() > within.size())
        bar->texts.push_back(PlaceText(behind, EntryText, Ink, outsideLeft, baseline));
    else if (!within.empty())
        bar->texts.push_back(PlaceText(within, EntryText, Ink, box.x + nameInset, baseline));
}

static Size ChooseSize(int rows)
{
    Size size = *std::find_if(std::begin(sizes), std::end(sizes),
                              [&](const Size& each) { return rows <= each.maxRows; });
    if (size.rowHeight == 0) {
        size.rowHeight = maxHeight / rows;
        size.barHeight = size.rowHeight * 0.9;
        size.tickTop = size.barHeight * 0.6;
    }
    return size;
}

// The bar of an entry in a row that begins at y. heard: the messages that it gets.
static PlacedBar PlaceBar(const TimelineModel& model, size_t number, double y,
                          const std::vector<size_t>& heard, const Layout& layout)
{
    const Entry& entry = model.entries[number];
    PlacedBar bar = {};
    bar.entry = number;
    bar.never = entry.stop < entry.start;
    bar.cutLeft = entry.start < layout.start;
    bar.cutRight = entry.stop > layout.end;
    const double from = std::clamp(entry.start, layout.start, layout.end);
    const double to = std::clamp(std::max(entry.stop, entry.start), layout.start, layout.end);
    bar.box = {layout.X(from), y, std::max(layout.X(to) - layout.X(from), minBarWidth), layout.barHeight};
    bar.title = Clean(EntryTitle(model, number, heard, layout.tempo));
    return bar;
}

double PlaceLanes(const TimelineModel& model, double y, Layout* layout)
{
    const std::vector<int> rows = RowsOf(model);
    std::map<uint32_t, int> rowsOfLayer;
    for (size_t i = 0; i < rows.size(); i++) {
        int& most = rowsOfLayer[model.entries[i].layer];
        most = std::max(most, rows[i] + 1);
    }
    int allRows = 0;
    for (const auto& [layer, count] : rowsOfLayer)
        allRows += count;
    const Size size = ChooseSize(allRows);
    layout->rowHeight = size.rowHeight;
    layout->barHeight = size.barHeight;

    std::map<uint32_t, double> tops;
    for (auto each = rowsOfLayer.rbegin(); each != rowsOfLayer.rend(); ++each) {
        const auto& [layer, count] = *each;
        const CanvasRect box = {gutterWidth, y, layout->plotEnd - gutterWidth,
                                (count - 1) * size.rowHeight + size.barHeight + 2 * lanePadding};
        layout->lanes.push_back({layer, count, box});
        tops[layer] = y + lanePadding;
        y = box.Bottom() + laneGap;
        const bool several = rowsOfLayer.size() > 1;
        NameLane(layout->lanes.back(), several && each == rowsOfLayer.rbegin(),
                 several && std::next(each) == rowsOfLayer.rend(), layout);
    }

    // Collect the messages that each entry gets.
    std::vector<std::vector<size_t>> heard(model.entries.size());
    for (size_t i = 0; i < model.messages.size(); i++)
        for (const size_t entry : model.messages[i].entries)
            heard[entry].push_back(i);

    for (size_t i = 0; i < model.entries.size(); i++)
        layout->bars.push_back(
            PlaceBar(model, i, tops[model.entries[i].layer] + rows[i] * size.rowHeight, heard[i], *layout));

    // Place the names on the bars, each up to the next bar in its row, and the ticks of their messages.
    std::map<std::pair<uint32_t, int>, std::vector<size_t>> inRow;
    for (size_t i = 0; i < rows.size(); i++)
        inRow[{model.entries[i].layer, rows[i]}].push_back(i);
    for (auto& [place, bars] : inRow) {
        std::stable_sort(bars.begin(), bars.end(),
                         [&](size_t a, size_t b) { return model.entries[a].start < model.entries[b].start; });
        for (size_t k = 0; k < bars.size(); k++) {
            PlacedBar& bar = layout->bars[bars[k]];
            const double free = k + 1 < bars.size() ? layout->bars[bars[k + 1]].box.x : layout->width - 2;
            NameBar(model.entries[bars[k]], size, free, *layout, &bar);
            bar.ticks =
                PlaceTicks(model, heard[bars[k]], bar.box.y + size.tickTop, bar.box.Bottom(), *layout);
            if (size.tickNameBaseline > 0)
                bar.tickTexts =
                    NameTicks(model, bar.ticks, bar.box.y + size.tickNameBaseline, bar.box.Right() - 3);
        }
    }
    return layout->lanes.empty() ? y : y - laneGap;
}

} // namespace timeline
