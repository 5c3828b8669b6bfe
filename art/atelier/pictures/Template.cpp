// SPDX-License-Identifier: MIT
// What a production of one's own begins with: the lantern of docs/EFFECTS.md, a loading picture and one for the form.
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"

namespace atelier
{

// Paper over ribs of wire, lit from within: its light, without anything round it.
static void DrawLantern(Canvas& canvas, Vector2 centre, float size)
{
    const int W = canvas.Width(), H = canvas.Height();
    const Paper& paper = SketchPaper();
    const Mask body =
        Filled(W, H, Shaken(Ellipse(centre, 0.62f * size, 0.76f * size), 0.02f * size, size, 51));
    Canvas lit(W, H, palette::Black);
    const Mask light = Mask(W, H).Each([&](float x, float y) {
        return Bell(Length(Vector2{x - centre.x, y - centre.y - 0.1f * size}) / (0.75f * size));
    });
    lit.Light(WashDensity(paper, body, {.density = 1, .pool = 0.3f, .bloomSize = size, .stray = 0}, 52),
              palette::Ochre, 0.7f);
    lit.Light(light, palette::Amber, 0.9f);
    Mask ribs(W, H);
    Pen pen(ribs, paper, {.width = 0.03f * size, .least = 0.4f, .skip = 0}, 53);
    for (int i = -2; i <= 2; i++) {
        const float y = 0.26f * size * float(i);
        const float half = 0.62f * size * Sqrt(Max(0, 1 - y * y / (0.5776f * size * size)));
        pen.Stroke(Through(
            {centre + Vector2{-half, y}, centre + Vector2{0, y + 0.07f * size}, centre + Vector2{half, y}}));
    }
    lit.Cover(ribs, palette::Rust, 0.55f);
    lit.CutOut(body);
    canvas.Light(body.Blurred(0.25f * size), palette::Amber, 0.22f);
    canvas.Lay(lit, 0, 0);
    Mask cord(W, H);
    Pen wire(cord, paper, {.width = 0.04f * size, .least = 0.5f, .skip = 0}, 54);
    wire.Stroke(Through({centre + Vector2{0, -1.1f * size}, centre + Vector2{0.02f * size, -0.9f * size},
                         centre + Vector2{0, -0.74f * size}}));
    canvas.Light(cord, palette::Amber, 0.6f);
}

static Canvas Lantern()
{
    constexpr int Side = 256;
    Canvas canvas(Side, Side, palette::Black);
    DrawLantern(canvas, {128, 132}, 104);
    DarkenBorder(canvas, 12);
    return canvas;
}

static Canvas Loading()
{
    Canvas canvas(1024, 512, palette::Black);
    DrawLantern(canvas, {512, 240}, 96);
    DarkenBorder(canvas, 24);
    return canvas;
}

// Painted three times as large.
static Canvas StartForm()
{
    constexpr int W = 1044, H = 414;
    Canvas canvas(W, H);
    const Paper& paper = SketchPaper();
    paper.Sheet(canvas, palette::Bone, 1.2f);
    const Mask night(W, H, 1);
    canvas.Glaze(WashDensity(paper, night, {.pool = 0, .bloom = 0.6f, .bloomSize = 200, .stray = 0}, 61),
                 palette::Slate, 1.9f);
    for (const Vector2 place : {Vector2{522, 190}, Vector2{300, 150}, Vector2{760, 140}})
        DrawLantern(canvas, place, place.x == 522 ? 120 : 70);
    paper.Show(canvas, 0.4f);
    // The form goes on below in plain ink.
    canvas.Cover(Mask(W, H).Each([](float, float y) { return Smooth(H - 48, H - 9, y); }), palette::Ink);
    return Squeezed(canvas, 348, 138);
}

// clang-format off
PictureGroup TemplatePictures()
{
    return {"Template", {
        {"template/Data/lantern.png",          256, 256, Format::PngRgb, Lantern},
        {"template/Data/loading.jpg",         1024, 512, Format::Jpeg,   Loading},
        {"template/embedded/start-form.png",   348, 138, Format::PngRgb, StartForm},
    }};
}
// clang-format on

} // namespace atelier
