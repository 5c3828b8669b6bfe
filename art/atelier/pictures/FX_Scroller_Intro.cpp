// SPDX-License-Identifier: MIT
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/opening/Opening.h"
#include "art/atelier/pictures/opening/Panorama.h"

namespace atelier
{

// A spark: a small bright core in a soft dot, on black. It is also the tail of the fish and the fire of the
// tree, where dozens of them lie over each other and are added up, so it falls off steeply and has hardly any
// blue: the sum burns through rust and ochre to amber, and only where cores lie on cores to bone. The core is
// not quite round.
static Canvas Spark()
{
    constexpr int Size = 128;
    constexpr float Middle = Size / 2.0f;
    const Noise ragged(91);
    Canvas canvas(Size, Size, palette::Black);
    // The way of the light outward, as it is added up: in values of the screen.
    canvas.Ground([&](float x, float y) {
        const Vector2 off = {(x - Middle) / Middle, (y - Middle) / Middle};
        const float far = Length(off);
        const Vector2 way = Normalised(off);
        const float d = far / (1 + 0.1f * ragged.Fbm(way.x * 2.2f + 3, way.y * 2.2f, 3));
        const float core = Bell(d / 0.10f), ember = Bell(d / 0.16f), halo = Bell(d / 0.22f),
                    glow = Bell(d / 0.44f);
        const float fade = Smooth(0.96f, 0.5f, far);
        const auto light = [&](float ofCore, float ofEmber, float ofHalo, float ofGlow) {
            return FromScreen(fade * Min(1, ofCore * core + ofEmber * ember + ofHalo * halo + ofGlow * glow));
        };
        return LinearColour{light(0.34f, 0.29f, 0.210f, 0.034f), light(0.33f, 0.14f, 0.085f, 0.010f),
                            light(0.25f, 0.045f, 0.010f, 0)};
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
