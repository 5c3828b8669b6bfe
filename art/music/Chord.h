// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace waltz
{

// A chord by its symbol: root, kind and, after a slash, another bass: "Dm", "Bbmaj7", "Eb/G", "A7b9".
struct Chord {
    std::string symbol;
    int root = 0;             // pitch class, 0 for C
    int bass = 0;             // pitch class
    std::vector<int> tones;   // pitch classes, root first
    std::vector<int> colours; // those without which it is another chord: thirds, sevenths, what is added

    bool Has(int pitch) const;
};

// False if the symbol is none that the table in Chord.cpp has.
bool ReadChord(const std::string& symbol, Chord& chord);

} // namespace waltz
