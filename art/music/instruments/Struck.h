// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Performance.h"

namespace waltz
{

// Instruments whose tones are struck or plucked once and die away. Each returns the sound of one note, from
// its start to its end, in mono. At full strength the peaks lie between 0.3 and 1.

// Modelled strings: stiff, two to a key and a little apart, hit by a hammer in thick felt, damped at the end.
Samples PlayFeltPiano(const Note& note);
// A gut string plucked with the fleshy side of a finger far up the fingerboard.
Samples PlayPluckedBass(const Note& note);
// Several players plucking the same note, never quite together.
Samples PlayPizzicato(const Note& note);

// Frequency modulation: a steel plate over a wooden box, hit by a small felt hammer.
Samples PlayCelesta(const Note& note);
// Frequency modulation: a tine of a comb, let go by a pin. `broken` tines are bent out of tune, and some
// rattle.
Samples PlayMusicBox(const Note& note, bool broken);

// A large skin hit with a soft mallet.
Samples PlayDrum(const Note& note);
// A wire brush on a skin: a stroke taps, a swish circles for as long as the note lasts.
Samples PlayBrush(const Note& note);
// A bare foot in dry sand: the heel breaks the crust, the sole rolls down to the toes.
Samples PlayStep(const Note& note);

} // namespace waltz
