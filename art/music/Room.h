// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

namespace waltz
{

// The one room in which everybody plays: a wooden hall with a high ceiling. A few first reflections, then a
// feedback delay network of sixteen lines whose tail loses 60 dB in 2.7 s, in the treble sooner.
//
// Returns what comes back from the walls, for the window of `sent`, without `sent` itself.
Stereo RoomOf(const Stereo& sent);

} // namespace waltz
