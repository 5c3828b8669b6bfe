// SPDX-License-Identifier: MIT
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/opening/Opening.h"
#include "art/atelier/pictures/opening/Panorama.h"

namespace atelier
{

// A spark: a small core in a soft flame that leans upward out of it, on black. It is also the wake of the fish and the
// fire of the tree, where dozens of them lie over each other and are added up, so it has hardly any blue: the sum burns
// through rust and ochre to amber, and only where cores lie on cores to bone. Nothing in it but the core is finer than
// the distance of two links of the wake, or they would show as beads; and where the wake is seen from its end, and all
// its links lie on one spot, they still are a flame with a tip.
static Canvas Spark()
{
    constexpr int Size = 128;
    constexpr float Middle = Size / 2.0f;
    const Noise ragged(91);
    Canvas canvas(Size, Size, palette::Black);
    // The way of the light outward, as it is added up: in values of the screen.
    canvas.Ground([&](float x, float y) {
        const Vector2 off = {(x - Middle) / Middle, (y - Middle) / Middle};
        const float far = Length(off), up = Max(-off.y, 0), down = Max(off.y, 0);
        const Vector2 way = Normalised(off);
        const float rough = 1 + 0.12f * ragged.Fbm(way.x * 2.2f + 3, way.y * 2.2f, 3);
        const float core = Bell(far / (0.09f * rough));
        // The flame: its foot is round, its tip narrow and bent a little.
        const float bent = off.x - 0.25f * up * up;
        const float d = Length({bent * (1 + 0.9f * up), 0.62f * up + 1.05f * down}) / rough;
        const float ember = Bell(d / 0.15f), halo = Bell(d / 0.25f), glow = Bell(d / 0.42f);
        const float fade = Smooth(0.96f, 0.5f, far);
        const auto light = [&](float ofCore, float ofEmber, float ofHalo, float ofGlow) {
            return FromScreen(fade * Min(1, ofCore * core + ofEmber * ember + ofHalo * halo + ofGlow * glow));
        };
        return LinearColour{light(0.27f, 0.17f, 0.125f, 0.030f), light(0.26f, 0.078f, 0.047f, 0.008f),
                            light(0.12f, 0.020f, 0.003f, 0)};
    });
    return canvas;
}

// clang-format off
PictureGroup FX_Scroller_IntroPictures()
{
    return {"FX_Scroller_Intro", {
        {"Data/sky-background_01.jpg",      1024, 540, Format::Jpeg,    [] { return SkyPart(0); }},
        {"Data/sky-background_02.jpg",      1024, 540, Format::Jpeg,    [] { return SkyPart(1); }},
        {"Data/sky-background_03.jpg",      1024, 540, Format::Jpeg,    [] { return SkyPart(2); }},
        {"Data/sky-background_04.jpg",      1024, 540, Format::Jpeg,    [] { return SkyPart(3); }},
        {"Data/partikel_2.jpg",              128, 128, Format::Jpeg,    Spark},
        {"Data/tessel-logo.png",            1024, 512, Format::PngRgba, TesselLogo},
        {"Data/black-chick.png",             512, 512, Format::PngRgba, BlackChick},
        {"Data/moonwaltz-logo.png",         1024, 512, Format::PngRgba, MoonwaltzLogo},
        {"Data/waldsterben.png",            1024, 268, Format::PngRgba, Waldsterben},
        {"Data/waldsterben2.png",           1024, 268, Format::PngRgba, Waldsterben2},
    }};
}
// clang-format on

} // namespace atelier
