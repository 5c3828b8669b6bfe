// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

namespace waltz
{

// What is done to the finished mix of the night, or of a window of it: rumble goes, the level comes up to
// about -16 LUFS by a fixed gain, a limiter that sees peaks coming keeps them, between the samples too, below
// the ceiling, and the night's two ends fade in and out.
//
// `nightEnd` is the sample after the night's last.
void Master(Stereo& mix, int64_t nightEnd);

// dBFS; what Vorbis adds to peaks still stays below -1.
constexpr float ceilingDecibel = -2.0f;

} // namespace waltz
