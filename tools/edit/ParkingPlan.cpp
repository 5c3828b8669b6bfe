// SPDX-License-Identifier: MIT
#include "tools/edit/ParkingPlan.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace edit
{

static const size_t nobody = SIZE_MAX;

std::vector<int64_t> ParkingPlaces(int64_t frames, int count)
{
    std::vector<int64_t> places;
    for (int i = 1; i <= count; i++) {
        const int64_t place = frames * i / (count + 1);
        if (place > (places.empty() ? 0 : places.back()) && place < frames)
            places.push_back(place);
    }
    return places;
}

// Which process keeps which place. A process belongs to the next place that it has not passed; of several that belong to
// one place the furthest keeps it.
struct Assignment {
    size_t fresh = nobody;       // the process at -1
    std::vector<size_t> keepers; // of each place, or nobody
    std::vector<size_t> surplus; // the rest
};

static Assignment Assign(const std::vector<int64_t>& positions, const std::vector<int64_t>& places)
{
    Assignment result;
    result.keepers.assign(places.size(), nobody);
    for (size_t i = 0; i < positions.size(); i++) {
        if (positions[i] < 0) {
            if (result.fresh == nobody)
                result.fresh = i;
            else
                result.surplus.push_back(i);
            continue;
        }
        const size_t place =
            size_t(std::lower_bound(places.begin(), places.end(), positions[i]) - places.begin());
        size_t rest = i; // who keeps no place
        if (place < places.size() &&
            (result.keepers[place] == nobody || positions[i] > positions[result.keepers[place]]))
            rest = std::exchange(result.keepers[place], i);
        if (rest != nobody)
            result.surplus.push_back(rest);
    }
    return result;
}

// The missing place nearest to the wanted frame.
static size_t MissingPlace(const Assignment& now, const std::vector<int64_t>& places, int64_t wanted)
{
    size_t best = nobody;
    for (size_t i = 0; i < places.size(); i++)
        if (now.keepers[i] == nobody &&
            (best == nobody || std::llabs(places[i] - wanted) < std::llabs(places[best] - wanted)))
            best = i;
    return best;
}

ParkingStep NextParkingStep(const std::vector<int64_t>& positions, const std::vector<int64_t>& places,
                            int64_t wanted, bool roomForMore)
{
    const Assignment now = Assign(positions, places);
    const size_t missing = MissingPlace(now, places, wanted);
    if (missing != nobody) {
        size_t mover = now.fresh;
        for (size_t i : now.surplus)
            if (positions[i] <= places[missing] && (mover == nobody || positions[i] >= positions[mover]))
                mover = i;
        if (mover != nobody)
            return {ParkingStep::Move, mover, places[missing]};
    }
    if (now.fresh == nobody && roomForMore)
        return {ParkingStep::StartNew, 0, 0};
    if (now.fresh == nobody && !now.surplus.empty())
        return {ParkingStep::End, now.surplus.front(), 0};
    for (size_t i = 0; i < places.size(); i++) {
        const size_t keeper = now.keepers[i];
        if (keeper == nobody || positions[keeper] == places[i])
            continue;
        const bool passesWanted = positions[keeper] < wanted && places[i] >= wanted;
        if (!passesWanted)
            return {ParkingStep::Move, keeper, places[i]};
    }
    return {};
}

} // namespace edit
