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

// A spark: a bright core in a soft dot, on black. It is also the tail of the fish and the fire of the tree.
Canvas Spark()
{
    constexpr int Size = 128;
    constexpr float Middle = Size / 2.0f;
    Canvas canvas(Size, Size, palette::Black);
    const Mask distance = Mask(Size, Size).Each([](float x, float y) {
        return Length({x - Middle, y - Middle}) / Middle;
    });
    const auto dot = [&](float width) {
        return Mask(Size, Size).Each([&](float x, float y) {
            const float d = distance.At(Floor(x), Floor(y));
            return Bell(d / width) * Smooth(0.96f, 0.6f, d);
        });
    };
    canvas.Light(dot(0.09f), palette::Bone, 1.2f);
    canvas.Light(dot(0.22f), Mix(palette::Amber, palette::Bone, 0.3f), 0.30f);
    canvas.Light(dot(0.48f), palette::Amber, 0.085f);
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
