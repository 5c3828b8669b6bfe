// SPDX-License-Identifier: MIT
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/opening/Opening.h"
#include "art/atelier/pictures/opening/Panorama.h"

namespace atelier
{

namespace
{

Canvas Sky1()
{
    return SkyPart(0);
}
Canvas Sky2()
{
    return SkyPart(1);
}
Canvas Sky3()
{
    return SkyPart(2);
}
Canvas Sky4()
{
    return SkyPart(3);
}

// A spark: a bright core in a soft dot, on black. It is also the tail of the fish and the fire of the tree,
// where dozens of them lie over each other and are added up: the halo is so faint and so red that they burn
// through rust and ochre before they are white. The core is not quite round.
Canvas Spark()
{
    constexpr int Size = 128;
    constexpr float Middle = Size / 2.0f;
    const Noise ragged(91);
    Canvas canvas(Size, Size, palette::Black);
    const auto dot = [&](float width, float uneven) {
        return Mask(Size, Size).Each([&](float x, float y) {
            const Vec2 off = {(x - Middle) / Middle, (y - Middle) / Middle};
            const float d = Length(off);
            const Vec2 way = Normalised(off);
            const float own = 1 + uneven * ragged.Fbm(way.x * 2.2f + 3, way.y * 2.2f, 3);
            return Bell(d / (width * own)) * Smooth(0.96f, 0.5f, d);
        });
    };
    canvas.Light(dot(0.075f, 0.12f), palette::Bone, 1.25f);
    canvas.Light(dot(0.17f, 0.1f), palette::Amber, 0.24f);
    canvas.Light(dot(0.32f, 0), Mix(palette::Ochre, palette::Rust, 0.25f), 0.060f);
    canvas.Light(dot(0.60f, 0), Mix(palette::Rust, palette::Ochre, 0.4f), 0.016f);
    return canvas;
}

} // namespace

// clang-format off
Group FX_Scroller_IntroPictures()
{
    return {"FX_Scroller_Intro", {
        {"Data/sky-background_01.jpg",      1024, 540, Format::Jpeg,    Sky1},
        {"Data/sky-background_02.jpg",      1024, 540, Format::Jpeg,    Sky2},
        {"Data/sky-background_03.jpg",      1024, 540, Format::Jpeg,    Sky3},
        {"Data/sky-background_04.jpg",      1024, 540, Format::Jpeg,    Sky4},
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
