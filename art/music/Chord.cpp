// SPDX-License-Identifier: MIT
#include "art/music/Chord.h"
#include "art/music/Pitch.h"

#include <algorithm>

namespace waltz
{

struct ChordQuality {
    const char* name;
    std::vector<int> tones;
    std::vector<int> colours;
};

// Half tones above the root.
static const std::vector<ChordQuality>& Kinds()
{
    // clang-format off
    static const std::vector<ChordQuality> kinds = {
        {"",       {0, 4, 7},         {4}},
        {"m",      {0, 3, 7},         {3}},
        {"5",      {0, 7},            {}},
        {"sus2",   {0, 2, 7},         {2}},
        {"sus4",   {0, 5, 7},         {5}},
        {"add9",   {0, 4, 7, 2},      {4, 2}},
        {"madd9",  {0, 3, 7, 2},      {3, 2}},
        {"6",      {0, 4, 7, 9},      {4, 9}},
        {"m6",     {0, 3, 7, 9},      {3, 9}},
        {"7",      {0, 4, 7, 10},     {4, 10}},
        {"7sus4",  {0, 5, 7, 10},     {5, 10}},
        {"7b5",    {0, 4, 6, 10},     {4, 6, 10}},
        {"7b9",    {0, 4, 7, 10, 1},  {4, 10, 1}},
        {"9",      {0, 4, 7, 10, 2},  {4, 10, 2}},
        {"m7",     {0, 3, 7, 10},     {3, 10}},
        {"m9",     {0, 3, 7, 10, 2},  {3, 10, 2}},
        {"m7b5",   {0, 3, 6, 10},     {3, 6, 10}},
        {"maj7",   {0, 4, 7, 11},     {4, 11}},
        {"maj9",   {0, 4, 7, 11, 2},  {4, 11, 2}},
        {"maj7#11",{0, 4, 7, 11, 6},  {4, 11, 6}},
        {"dim",    {0, 3, 6},         {3, 6}},
        {"dim7",   {0, 3, 6, 9},      {3, 6, 9}},
        {"aug",    {0, 4, 8},         {4, 8}},
    };
    // clang-format on
    return kinds;
}

bool Chord::Has(int pitch) const
{
    return std::find(tones.begin(), tones.end(), pitch % 12) != tones.end();
}

bool ReadChord(const std::string& symbol, Chord& chord)
{
    size_t at = 0;
    const int root = ReadPitchClass(symbol, at);
    if (root < 0)
        return false;
    const size_t slash = symbol.find('/', at);
    int bass = root;
    if (slash != std::string::npos) {
        size_t behind = slash + 1;
        bass = ReadPitchClass(symbol, behind);
        if (bass < 0 || behind != symbol.size())
            return false;
    }
    const std::string name = symbol.substr(at, slash == std::string::npos ? slash : slash - at);
    for (const ChordQuality& kind : Kinds()) {
        if (name != kind.name)
            continue;
        chord = {symbol, root, bass, {}, {}};
        for (const int step : kind.tones)
            chord.tones.push_back((root + step) % 12);
        for (const int step : kind.colours)
            chord.colours.push_back((root + step) % 12);
        return true;
    }
    return false;
}

} // namespace waltz
