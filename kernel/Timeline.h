// SPDX-License-Identifier: MIT
// The two records that a show is made of. Both are plain values, owned by the DemoPlayer's arrays.
#pragma once

#include <cstdint>

class Effect;

// An effect on the timeline.
struct EffectInstance {
    float start;    // seconds, the first moment on the active list, included
    float stop;     // seconds, the last one, included
    uint32_t layer; // order of rendering, ascending: the lowest lies at the back
    Effect* effect; // borrowed
};

// A message on its way to an effect.
struct SynchMessage {
    float time;     // seconds
    int id;         // of the SynchMessageTable; 0 if the target never declared the name
    Effect* effect; // the target, borrowed
    float* params;  // count floats, freed by the DemoPlayer's destructor
    int count;      // 0 if the script gave none
};
