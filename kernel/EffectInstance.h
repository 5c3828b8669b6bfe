// SPDX-License-Identifier: MIT
// One entry of the timeline: an effect and when it is shown. A plain value, owned by DemoPlayer::timeline.
#pragma once

#include <cstdint>

class Effect;

struct EffectInstance {
    float start;    // seconds, the first moment on the active list, included
    float stop;     // seconds, the last one, included
    uint32_t layer; // order of rendering, ascending: the lowest lies at the back
    Effect* effect; // borrowed
};
