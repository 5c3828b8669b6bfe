// SPDX-License-Identifier: MIT
// Where the idle processes of the show wait, so that one of them is always shortly before a frame that may be wanted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace edit
{

// `count` frames, ascending, that divide a show of this many frames into equal parts; fewer in a very short one.
std::vector<int64_t> ParkingPlaces(int64_t frames, int count);

struct ParkingStep {
    enum Kind {
        Rest,     // all is well, or nothing can be done
        StartNew, // one more process, which then is at -1
        Move,     // `process` plays up to `place`
        End       // `process` is of no use, and takes the room of one that is missing
    } kind = Rest;
    size_t process = 0; // index into `positions`
    int64_t place = 0;
};

// The next step towards one process at -1, at the start of the show, and one at each place, ascending. `positions` are
// the last frames that the waiting processes have done, in any order. `wanted` is the frame that is looked at: what is
// missing nearest to it is seen to first, and no process is moved beyond it that waits just ahead of it.
ParkingStep NextParkingStep(const std::vector<int64_t>& positions, const std::vector<int64_t>& places,
                            int64_t wanted, bool roomForMore);

} // namespace edit
