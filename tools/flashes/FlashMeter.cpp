// SPDX-License-Identifier: MIT
#include "tools/flashes/FlashMeter.h"

#include <algorithm>

namespace flashes
{

static const float change = 0.1f;  // of relative luminance
static const float darkest = 0.8f; // the darker moment of a change is below this
static const int fieldColumns = FlashMeter::Columns / 3;
static const int fieldRows = FlashMeter::Rows / 3;
static const int quarter = 4;
static const double together = 0.25; // seconds within which changes of cells are one change of the field

FlashMeter::FlashMeter(double framesPerSecond, double startTime)
    : rate(framesPerSecond), start(startTime), frame(0), cells(size_t(Columns) * Rows),
      sums(size_t(Columns + 1) * (Rows + 1)), whole{0, 0, Columns, Rows, 0, {}}
{
    for (int y = 0; y + fieldRows <= Rows; y++)
        for (int x = 0; x + fieldColumns <= Columns; x++)
            fields.push_back({x, y, fieldColumns, fieldRows, 0, {}});
}

void FlashMeter::Take(const std::vector<float>& luminances)
{
    for (size_t i = 0; i < cells.size(); i++) {
        if (frame == 0)
            cells[i].lowest = cells[i].highest = luminances[i];
        Follow(&cells[i], luminances[i]);
    }
    SumUp();
    size_t changes = 0;
    for (PictureField& each : fields) {
        Follow(&each);
        changes = std::max(changes, each.moments.size());
    }
    Follow(&whole);

    const double time = start + double(frame) / rate;
    const int now = int(changes / 2);
    if (now > field.flashes)
        field = {now, time};
    if (int(whole.moments.size() / 2) > picture.flashes)
        picture = {int(whole.moments.size() / 2), time};
    if (now > Limit) {
        const bool goesOn = !above.empty() && (above.back().to - start) * rate > double(frame) - 1.5;
        if (!goesOn)
            above.push_back({time, time, 0});
        above.back().to = time;
        above.back().flashes = std::max(above.back().flashes, now);
    }
    frame++;
}

void FlashMeter::Follow(Cell* cell, float luminance) const
{
    cell->lowest = std::min(cell->lowest, luminance);
    cell->highest = std::max(cell->highest, luminance);
    const bool brighter =
        cell->direction <= 0 && luminance - cell->lowest >= change && cell->lowest < darkest;
    const bool darker = cell->direction >= 0 && cell->highest - luminance >= change && luminance < darkest;
    if (!brighter && !darker)
        return;
    cell->direction = brighter ? 1 : -1;
    cell->lowest = cell->highest = luminance;
    cell->moment = frame;
}

void FlashMeter::SumUp()
{
    for (int y = 0; y < Rows; y++)
        for (int x = 0; x < Columns; x++) {
            const Cell& cell = cells[size_t(y) * Columns + size_t(x)];
            const bool counts = cell.moment >= 0 && double(frame - cell.moment) < together * rate;
            sums[size_t(y + 1) * (Columns + 1) + size_t(x + 1)] =
                SumAt(x, y + 1) + SumAt(x + 1, y) - SumAt(x, y) + (counts ? cell.direction : 0);
        }
}

void FlashMeter::Follow(PictureField* area) const
{
    const int right = area->left + area->columns, bottom = area->top + area->rows;
    const int sum = SumAt(right, bottom) - SumAt(area->left, bottom) - SumAt(right, area->top) +
                    SumAt(area->left, area->top);
    const int direction = sum > 0 ? 1 : -1;
    if (sum * direction * quarter >= area->columns * area->rows && direction != area->direction) {
        area->direction = direction;
        area->moments.push_back(frame);
    }
    while (!area->moments.empty() && double(frame - area->moments.front()) >= rate)
        area->moments.pop_front();
}

} // namespace flashes
