// SPDX-License-Identifier: MIT
// The colours of the timeline's picture, mixed from those of the show (ShowColours.h): ink and watercolour on paper.
#pragma once

#include "kernel/EffectRecord.h"
#include "platform/ShowColours.h"

#include <cstdint>

namespace timeline
{

using namespace showcolours;

// A colour of the show, or between two of them, that may let the paper through.
struct ScreenColour {
    constexpr ScreenColour(uint32_t colour = Ink, float opacity = 1) : rgb(colour), alpha(opacity) {}

    constexpr bool operator==(const ScreenColour& other) const = default;

    uint32_t rgb; // 0xRRGGBB
    float alpha;  // 0 clear to 1 opaque
};

constexpr ScreenColour Faded(uint32_t rgb, float alpha)
{
    return {rgb, alpha};
}

// clang-format off
// The pigments of the entries, by the wash of the effect's record: the ink of an edge, and the tint that the
// brush leaves. Blues lie on warm paper, where they would turn grey, so theirs are stronger.
struct Pigment {
    uint32_t ink, tint;
};
constexpr Pigment pigments[] = {
    /* SlateWash */ {Slate,                  0x5672b4},
    /* OchreWash */ {Mix(Ochre, Ink, 0.3f),  Ochre},
    /* MossWash  */ {Mix(Moss, Ink, 0.2f),   0x6f8232},
    /* RustWash  */ {Rust,                   0xae5230},
    /* MistWash  */ {Mix(Slate, Mist, 0.5f), 0x86a4d2},
    /* NightWash */ {Night,                  0x4a5498},
    /* AmberWash */ {Ochre,                  Amber},
};
static_assert(sizeof pigments / sizeof pigments[0] == WashCount, "each wash of kernel/EffectRecord.h has its pigment");

// A wash: from one colour at the top to another at the bottom.
struct Wash {
    ScreenColour top, bottom;
};

// What the timeline is drawn with, on paper of Bone.
constexpr Wash         laneWash     = {Mix(Bone, Parchment, 0.32f), Mix(Bone, Parchment, 0.45f)};
constexpr ScreenColour beatColour   = Faded(Slate, 0.10f);
constexpr ScreenColour barColour    = Faded(Slate, 0.16f);
constexpr ScreenColour numberColour = Faded(Slate, 0.36f);
constexpr ScreenColour clockColour  = Faded(Slate, 0.55f);
constexpr ScreenColour loadColour   = Faded(Parchment, 0.6f);
constexpr ScreenColour hatchColour  = Faded(Slate, 0.38f);
constexpr ScreenColour lostColour   = Faded(Rust, 0.10f);      // of the lane of messages that nobody hears
constexpr ScreenColour afterColour  = Faded(Parchment, 0.55f); // after the end of the show
constexpr ScreenColour groupColour  = Faded(Night, 0.34f);     // behind messages that lie closely together
constexpr uint32_t     graveColour  = Rust;                    // of an error's flag
constexpr uint32_t     slightColour = Mix(Ochre, Ink, 0.25f);  // of a warning's
constexpr uint32_t     peakColour   = Mix(Parchment, Ochre, 0.45f);
constexpr uint32_t     loudColour   = Mix(Ochre, Rust, 0.55f);
// clang-format on

// The wash of an entry: the pigment pools at the bottom.
constexpr Wash WashOf(const Pigment& pigment)
{
    return {Mix(Bone, pigment.tint, 0.36f), Mix(Bone, pigment.tint, 0.54f)};
}

} // namespace timeline
