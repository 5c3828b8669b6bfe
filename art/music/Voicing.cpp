// SPDX-License-Identifier: MIT
#include "art/music/Voicing.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace waltz
{

// Prices of what one would rather not hear; the row of voicings with the smallest sum wins.
constexpr int missingColour = 30;
constexpr int missingRoot = 2; // the bass has it
constexpr int missingFifth = 1;
constexpr int doubledTone = 4;
constexpr int doubledColour = 9;
constexpr int rubbingHalfTone = 9;
constexpr int rubbingWholeTone = 2;
constexpr int wideGap = 5; // more than a ninth between neighbours
constexpr int parallel = 14;
constexpr int leap = 4; // for every line that moves by more than a fourth
constexpr int perHalfTone = 1;

struct Candidate {
    Voicing voicing;
    int price;
};

static int PriceOf(const Chord& chord, const Voicing& v)
{
    int price = 0;
    const auto count = [&](int tone) {
        return std::count_if(v.begin(), v.end(), [&](int pitch) { return pitch % 12 == tone; });
    };
    for (const int colour : chord.colours)
        price += count(colour) == 0 ? missingColour : 0;
    if (count(chord.root) == 0)
        price += missingRoot;
    if (chord.tones.size() > 2 && count(chord.tones[2]) == 0)
        price += missingFifth;
    for (const int tone : chord.tones) {
        if (count(tone) < 2)
            continue;
        const bool colour = std::count(chord.colours.begin(), chord.colours.end(), tone) > 0;
        price += colour ? doubledColour : doubledTone;
    }
    for (size_t i = 0; i + 1 < v.size(); i++) {
        const int gap = v[i + 1] - v[i];
        price += gap == 1 ? rubbingHalfTone : gap == 2 ? rubbingWholeTone : gap > 14 ? wideGap : 0;
    }
    return price;
}

static int PriceOfStep(const Voicing& from, const Voicing& to)
{
    int price = 0;
    for (size_t i = 0; i < from.size(); i++) {
        const int way = std::abs(to[i] - from[i]);
        price += way * perHalfTone + (way > 5 ? leap : 0);
    }
    for (size_t low = 0; low < from.size(); low++) {
        for (size_t high = low + 1; high < from.size(); high++) {
            const int before = (from[high] - from[low]) % 12, after = (to[high] - to[low]) % 12;
            const bool together = (to[low] - from[low]) * (to[high] - from[high]) > 0;
            if (together && before == after && (after == 0 || after == 7))
                price += parallel;
        }
    }
    return price;
}

static std::vector<Candidate> CandidatesOf(const Chord& chord, const VoicingRange& range)
{
    std::vector<Candidate> candidates;
    Voicing v{};
    for (v[0] = range.low[0]; v[0] <= range.high[0]; ++v[0]) {
        if (!chord.Has(v[0]))
            continue;
        for (v[1] = std::max(range.low[1], v[0] + 1); v[1] <= range.high[1]; ++v[1]) {
            if (!chord.Has(v[1]))
                continue;
            for (v[2] = std::max(range.low[2], v[1] + 1); v[2] <= range.high[2]; ++v[2])
                if (chord.Has(v[2]))
                    candidates.push_back({v, PriceOf(chord, v)});
        }
    }
    return candidates;
}

std::vector<Voicing> SetVoices(const std::vector<Chord>& chords, const VoicingRange& range)
{
    // Column by column the cheapest way to each candidate, then back along it.
    struct CheapestWay {
        int price;
        size_t from;
    };
    std::vector<std::vector<Candidate>> columns;
    std::vector<std::vector<CheapestWay>> ways;
    for (const Chord& chord : chords) {
        std::vector<Candidate> column = CandidatesOf(chord, range);
        if (column.empty())
            column.push_back({{0, 0, 0}, 0});
        std::vector<CheapestWay> cells;
        for (const Candidate& candidate : column) {
            CheapestWay best = {candidate.price, 0};
            if (!columns.empty()) {
                best.price = std::numeric_limits<int>::max();
                for (size_t i = 0; i < columns.back().size(); i++) {
                    const int price = ways.back()[i].price + candidate.price +
                                      PriceOfStep(columns.back()[i].voicing, candidate.voicing);
                    if (price < best.price)
                        best = {price, i};
                }
            }
            cells.push_back(best);
        }
        columns.push_back(column);
        ways.push_back(cells);
    }
    std::vector<Voicing> voicings(chords.size());
    if (chords.empty())
        return voicings;
    const auto cheaper = [](const CheapestWay& a, const CheapestWay& b) { return a.price < b.price; };
    size_t at = std::min_element(ways.back().begin(), ways.back().end(), cheaper) - ways.back().begin();
    for (size_t i = chords.size(); i-- > 0;) {
        voicings[i] = columns[i][at].voicing;
        at = ways[i][at].from;
    }
    return voicings;
}

} // namespace waltz
