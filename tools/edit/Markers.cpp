// SPDX-License-Identifier: MIT
#include "tools/edit/Markers.h"

#include <algorithm>
#include <cmath>

namespace edit
{

static const double markSlack = 0.0005; // seconds: what is nearer is where the play head stands

void ToggleMarker(std::vector<double>* markers, double seconds)
{
    const auto same = [seconds](double marker) { return std::abs(marker - seconds) < markSlack; };
    if (std::erase_if(*markers, same) == 0)
        markers->insert(std::upper_bound(markers->begin(), markers->end(), seconds), seconds);
}

double NextMark(const Outline& outline, const std::vector<double>& markers, double seconds, int direction)
{
    bool found = false;
    double nearest = seconds;
    const auto look = [&](double mark) {
        if (direction * (mark - seconds) > markSlack && (!found || direction * (nearest - mark) > 0)) {
            nearest = mark;
            found = true;
        }
    };
    for (const double marker : markers)
        look(marker);
    for (const OutlineBlock& block : outline.blocks) {
        if (!block.complete)
            continue;
        if (block.type == BlockEffect) {
            look(block.start / 1000.0);
            look(block.stop / 1000.0);
        }
        for (const OutlineTime& time : block.times)
            for (uint32_t step = 0; step < block.steps; step++)
                look((time.milliseconds + double(step) * block.delta) / 1000.0);
    }
    return nearest;
}

} // namespace edit
