// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

#include <vector>

namespace waltz
{

// A body that rings: any number of decaying sines, four at a time. Strings, bars and skins are made of it.
class ModalBank
{
public:
    // `decay` is the time in seconds in which a mode loses 60 dB. Phase, in turns: from silence at 0. Add all
    // modes before the first Ring.
    void Add(double hz, double amplitude, double decay, double phase);
    // Adds the next samples to `sound` from `begin` to `end`. Modes that can no longer be heard fall away.
    void Ring(Samples& sound, size_t begin, size_t end);
    // From now on everything decays at least so quickly: a damper.
    void Damp(double decay);

private:
    using Lanes = float __attribute__((vector_size(16)));
    struct ModeGroup { // of four modes: each a point that turns and shrinks
        Lanes x, y, cosine, sine;
    };
    std::vector<ModeGroup> groups;
    int used = 4; // lanes of the last group
};

} // namespace waltz
