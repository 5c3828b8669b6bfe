// SPDX-License-Identifier: MIT
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/opening/Opening.h"
#include "art/atelier/pictures/opening/Panorama.h"

namespace atelier
{

// How much of a tongue of fire there is at a place, measured from the middle of the spark in halves of its side: nine of
// them lick out of the core, each bent its own way, narrow to a point and as long as the dice say.
static float TonguesAt(Vector2 off)
{
    static const std::vector<std::pair<Line, float>> tongues = [] {
        std::vector<std::pair<Line, float>> lines;
        Dice dice(92);
        for (int i = 0; i < 9; i++) {
            const float a = 2 * Pi * (float(i) + dice.Range(-0.3f, 0.3f)) / 9;
            const float reach = dice.Range(0.34f, 0.62f),
                        bend = dice.Range(0.25f, 0.6f) * (i % 3 ? 1.0f : -1.0f);
            const Vector2 d = {Cos(a), Sin(a)}, tip = {Cos(a + bend), Sin(a + bend)};
            lines.push_back({Through({d * 0.06f, d * (0.55f * reach), tip * reach}, 0.01f), reach});
        }
        return lines;
    }();
    float most = 0;
    for (const auto& [line, reach] : tongues)
        for (size_t k = 0; k < line.size(); k++) {
            const float along = float(k) / float(line.size()), half = 0.042f * (1 - along) + 0.006f;
            most = Max(most, (1 - along) * Bell(Length(off - line[k]) / half));
        }
    return most;
}

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
        const float tongue = TonguesAt(off);
        const auto light = [&](float ofCore, float ofEmber, float ofHalo, float ofGlow, float ofTongue) {
            return FromScreen(fade * Min(1, ofCore * core + ofEmber * ember + ofHalo * halo + ofGlow * glow +
                                                ofTongue * tongue));
        };
        return LinearColour{light(0.34f, 0.28f, 0.190f, 0.033f, 0.06f),
                            light(0.33f, 0.13f, 0.077f, 0.0095f, 0.026f),
                            light(0.17f, 0.04f, 0.008f, 0, 0.004f)};
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
