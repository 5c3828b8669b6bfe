// SPDX-License-Identifier: MIT
// The paths of the opening's sparks, also painted into the sky pictures as threads: paths 0 to 2 in the
// second picture, 3 to 5 in the third, 6 to 8 in the fourth.
//
// Pairs x, y in 1/1024 of the picture, y upward, from left to right; an x of exactly -1 ends a path.
#pragma once

const float scrollerPathUnit = 1024.0f;
const float scrollerPathEnd = -1.0f;

const int scrollerPathCount = 9;
extern const float* const scrollerPaths[scrollerPathCount];
