// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

// Clouds as a painter builds them, billow over billow, and their colours on the two nights of the flight.

namespace atelier
{

struct CloudTones {
    LinearColour zenith, middle, horizon; // of the sky
    LinearColour moon, halo;
    LinearColour shade, body, lit; // of the clouds
};

// clang-format off
constexpr CloudTones BlueNight = {
    palette::Ink * 0.8f, palette::Night, Mix(palette::Slate, palette::Mist, 0.18f),
    Mix(palette::Bone, palette::Mist, 0.12f), palette::Mist * 0.8f,
    Mix(palette::Ink, palette::Night, 0.75f), Mix(palette::Night, palette::Slate, 0.75f), Mix(palette::Mist, palette::Bone, 0.35f)};
constexpr CloudTones AmberNight = {
    Mix(palette::Ink, palette::Rust, 0.12f) * 0.8f, palette::Rust * 0.42f, Mix(palette::Rust, palette::Ochre, 0.55f),
    Mix(palette::Bone, palette::Amber, 0.4f), palette::Ochre * 0.9f,
    Mix(palette::Ink, palette::Rust, 0.28f) * 0.9f, Mix(palette::Rust, palette::Ink, 0.25f), Mix(palette::Amber, palette::Bone, 0.2f)};
// clang-format on

struct Billow {
    Vector2 centre;
    float rx, ry; // half its size, in pixels
    float light;  // of the moon on its head, 0 to 1
    float haze;   // how much air lies before it, 0 to 1
    float nib;    // of the pen that goes round its head, in pixels
};

// A ragged ball of wash, lit from where the moon is, that loses itself downwards. It may be painted on a clear canvas.
void PaintBillow(Canvas& canvas, const Noise& noise, const Billow& billow, Vector2 moon,
                 const CloudTones& tones);

} // namespace atelier
