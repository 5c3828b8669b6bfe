// SPDX-License-Identifier: MIT
// The colours of the timeline's picture, mixed from those of the show (ShowColours.h): ink and watercolour on paper.
// Channels are sRGB, 0 to 255.
#pragma once

#include "kernel/EffectRecord.h"
#include "platform/ShowColours.h"

#include <cstdint>

namespace timeline
{

struct Colour {
    uint8_t red, green, blue;
    float alpha = 1; // 0 clear to 1 opaque
};

inline bool operator==(const Colour& a, const Colour& b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}

constexpr Colour ColourOf(uint32_t rgb)
{
    return {uint8_t(rgb >> 16), uint8_t(rgb >> 8), uint8_t(rgb)};
}

constexpr Colour Faded(Colour colour, float alpha)
{
    return {colour.red, colour.green, colour.blue, alpha};
}

// The channel of 0 to 255 on the way from one to another, rounded. std::lround is not constexpr before C++23.
constexpr uint8_t MixChannel(uint8_t from, uint8_t to, float way)
{
    return uint8_t(int(2 * (float(from) + (float(to) - float(from)) * way) + 1) / 2);
}

// The way from one colour to another: 0 is from, 1 is to.
constexpr Colour Mix(Colour from, Colour to, float way)
{
    return {MixChannel(from.red, to.red, way), MixChannel(from.green, to.green, way),
            MixChannel(from.blue, to.blue, way)};
}

// clang-format off
constexpr Colour Ink       = ColourOf(showcolours::Ink);
constexpr Colour Night     = ColourOf(showcolours::Night);
constexpr Colour Slate     = ColourOf(showcolours::Slate);
constexpr Colour Mist      = ColourOf(showcolours::Mist);
constexpr Colour Ochre     = ColourOf(showcolours::Ochre);
constexpr Colour Amber     = ColourOf(showcolours::Amber);
constexpr Colour Rust      = ColourOf(showcolours::Rust);
constexpr Colour Moss      = ColourOf(showcolours::Moss);
constexpr Colour Bone      = ColourOf(showcolours::Bone); // the paper
constexpr Colour Parchment = ColourOf(showcolours::Parchment);

// The pigments of the entries, by the wash of the effect's record: the ink of an edge, and the tint that the
// brush leaves. Blues lie on warm paper, where they would turn grey, so theirs are stronger.
struct Pigment {
    Colour ink, tint;
};
constexpr Pigment pigments[] = {
    /* SlateWash */ {Slate,                  {0x56, 0x72, 0xb4}},
    /* OchreWash */ {Mix(Ochre, Ink, 0.3f),  Ochre},
    /* MossWash  */ {Mix(Moss, Ink, 0.2f),   {0x6f, 0x82, 0x32}},
    /* RustWash  */ {Rust,                   {0xae, 0x52, 0x30}},
    /* MistWash  */ {Mix(Slate, Mist, 0.5f), {0x86, 0xa4, 0xd2}},
    /* NightWash */ {Night,                  {0x4a, 0x54, 0x98}},
    /* AmberWash */ {Ochre,                  Amber},
};
static_assert(sizeof pigments / sizeof pigments[0] == WashCount);

// A wash: from one colour at the top to another at the bottom.
struct Wash {
    Colour top, bottom;
};

// What the timeline is drawn with, on paper of Bone.
constexpr Wash   laneWash     = {Mix(Bone, Parchment, 0.32f), Mix(Bone, Parchment, 0.45f)};
constexpr Colour beatColour   = Faded(Slate, 0.10f);
constexpr Colour barColour    = Faded(Slate, 0.16f);
constexpr Colour numberColour = Faded(Slate, 0.36f);
constexpr Colour clockColour  = Faded(Slate, 0.55f);
constexpr Colour loadColour   = Faded(Parchment, 0.6f);
constexpr Colour hatchColour  = Faded(Slate, 0.38f);
constexpr Colour lostColour   = Faded(Rust, 0.10f);      // of the lane of messages that nobody hears
constexpr Colour afterColour  = Faded(Parchment, 0.55f); // behind the end of the show
constexpr Colour groupColour  = Faded(Night, 0.34f);     // behind messages that lie closely together
constexpr Colour graveColour  = Rust;                    // of an error's flag
constexpr Colour slightColour = Mix(Ochre, Ink, 0.25f);  // of a warning's
constexpr Colour peakColour   = Mix(Parchment, Ochre, 0.45f);
constexpr Colour loudColour   = Mix(Ochre, Rust, 0.55f);
// clang-format on

// The wash of an entry: the pigment pools at the bottom.
constexpr Wash WashOf(const Pigment& pigment)
{
    return {Mix(Bone, pigment.tint, 0.36f), Mix(Bone, pigment.tint, 0.54f)};
}

} // namespace timeline
