// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

// Light with a core and a halo, added to the canvas. Light has no paper in it.

namespace atelier
{

struct Light {
    LinearColour core = palette::Bone; // what the eye takes for white
    LinearColour halo = palette::Amber;
    float strength = 1;
    float haloPart = 0.5f; // brightness of the halo beside the core
};

// A lamp: a core of `radius` pixels, and a halo that is gone at `reach` pixels.
void GlowAt(Canvas& canvas, Vector2 place, float radius, float reach, const Light& light = {});

// Lines or shapes that shine: the mask is the core, the halo is as wide as `reach` pixels say.
void GlowAlong(Canvas& canvas, const Mask& lines, float reach, const Light& light = {});

// Takes all light from the border, so that a picture that is added to another shows no edge: falls to nothing
// over `pixels`, black on the outermost two.
void DarkenBorder(Canvas& canvas, float pixels);

} // namespace atelier
