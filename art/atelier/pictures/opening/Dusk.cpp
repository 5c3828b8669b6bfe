// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Panorama.h"

#include "art/atelier/DryBrush.h"
#include "art/atelier/pictures/Wood.h"

namespace atelier::panorama
{

// A bare field, ploughed towards the sun, with what is left of the stubble.
static void PaintFurrows(Canvas& canvas, const Paper& paper, const Ridge& ridge)
{
    Mask furrows(W, H), stubble(W, H);
    DryBrush brush(furrows, paper,
                   {.width = 10, .count = 7, .thickness = 1.6f, .load = 0.55f, .spread = 1.2f, .wave = 90},
                   210);
    Pen pen(stubble, paper, {.width = 1.8f, .pool = 0}, 211);
    Dice dice(212);
    for (int i = -9; i <= 26; i++) {
        const float at = float(i) + 0.3f * dice.Bell();
        const float far = Sun.x + at * 30, near = Sun.x + at * 118;
        if (far > 1180)
            break;
        const float top = ridge.At(far) + 6;
        const Line furrow =
            Through({{far, top}, {Mix(far, near, 0.28f), Mix(top, H, 0.3f)}, {Mix(far, near, 0.98f), H + 6}});
        brush.Stroke(furrow, Smooth(1300, 700, far) * dice.Range(0.75f, 1.1f));
        for (int k = 0; k < 16; k++) {
            const float t = Sqrt(dice.Unit());
            const Vector2 p = PointAt(furrow, t) + Vector2{dice.Range(-5, 5) * t, 0};
            const float tall = (3 + 11 * t) * dice.Range(0.5f, 1.2f);
            pen.Stroke(Straight({p, p + Vector2{dice.Range(-0.35f, 0.35f) * tall, -tall}}),
                       {.start = 0.8f, .middle = 0.7f, .end = 0.05f});
        }
    }
    canvas.Cover(furrows, palette::Ink, 0.62f);
    canvas.Cover(stubble, palette::Ink, 0.8f);
}

// Somebody's old coat on a pole, and who is not afraid of it.
static void DrawScarecrow(Mask& ink, const Paper& paper, Vector2 foot)
{
    Pen pen(ink, paper, {.width = 4, .skip = 0}, 220);
    pen.Stroke(Through({foot, foot + Vector2{2, -50}, foot + Vector2{-2, -104}}),
               {.start = 0.8f, .middle = 0.8f, .end = 0.7f});
    pen.Stroke(Through({foot + Vector2{-46, -72}, foot + Vector2{0, -80}, foot + Vector2{44, -84}}),
               {.start = 0.7f, .middle = 0.9f, .end = 0.6f});
    ink.Fill(Round({foot + Vector2{-40, -77}, foot + Vector2{-4, -84}, foot + Vector2{40, -88},
                    foot + Vector2{36, -72}, foot + Vector2{15, -66}, foot + Vector2{18, -40},
                    foot + Vector2{12, -22}, foot + Vector2{4, -30}, foot + Vector2{-5, -19},
                    foot + Vector2{-13, -30}, foot + Vector2{-12, -60}, foot + Vector2{-35, -62}},
                   1));
    ink.Fill(Ellipse(foot + Vector2{-2, -99}, 9, 11, 0.2f));
    ink.Fill(Round({foot + Vector2{-20, -104}, foot + Vector2{-8, -107}, foot + Vector2{-6, -121},
                    foot + Vector2{5, -122}, foot + Vector2{5, -108}, foot + Vector2{17, -109},
                    foot + Vector2{0, -102}},
                   1));
    for (int i = 0; i < 7; i++)
        pen.Stroke(Through({foot + Vector2{-42 + 2.0f * float(i % 4), -72},
                            foot + Vector2{-48 + 3.0f * float(i), -62 + float(i % 3)}}),
                   {.start = 0.4f, .middle = 0.3f, .end = 0});
    // The crow on its arm.
    const Vector2 crow = foot + Vector2{33, -88};
    ink.Fill(
        Round({crow + Vector2{-9, 3}, crow + Vector2{-4, -6}, crow + Vector2{3, -10}, crow + Vector2{6, -16},
               crow + Vector2{11, -15}, crow + Vector2{17, -12}, crow + Vector2{11, -11},
               crow + Vector2{9, -3}, crow + Vector2{1, 1}, crow + Vector2{-14, 8}},
              1));
}

static void DrawCrow(Pen& pen, Vector2 at, float size)
{
    pen.nib.width = size * 0.17f + 0.8f;
    pen.Stroke(Through({at + Vector2{-size, -size * 0.25f}, at + Vector2{-size * 0.5f, -size * 0.4f}, at}),
               {.start = 0.02f, .middle = 0.8f, .end = 1});
    pen.Stroke(Through({at, at + Vector2{size * 0.45f, -size * 0.5f}, at + Vector2{size, -size * 0.2f}}),
               {.start = 1, .middle = 0.8f, .end = 0.02f});
}

// The bare field, who stands in it, and the evening that comes over it.
void DrawField(Canvas& canvas, const Paper& paper, const Ridge& ridge)
{
    PaintFurrows(canvas, paper, ridge);
    const Mask evening =
        Mask(W, H).Each([](float x, float y) { return Smooth(400, H + 60, y) * Smooth(3000, 1200, x); }, 4);
    canvas.Glaze(WashDensity(paper, evening, SkyWash(), 215), palette::Slate, 0.8f);
    Mask field(W, H);
    DrawScarecrow(field, paper, {668, 432});
    Pen crows(field, paper, {.width = 2, .wobble = 0.2f, .skip = 0, .pool = 0}, 221);
    for (const Vector2 at : {Vector2{540, 236}, Vector2{560, 226}, Vector2{588, 242}})
        DrawCrow(crows, at, 6);
    canvas.Cover(field, palette::Ink);
}

void DrawWood(Canvas& canvas, const Paper& paper)
{
    Mask far(W, H), middle(W, H), near(W, H);
    Pen farPen(far, paper, {.width = 2, .wobble = 0.8f}, 300), middlePen(middle, paper, {.width = 2}, 301),
        pen(near, paper, {.width = 3}, 302);
    Dice dice(303);
    for (int i = 0; i < 30; i++) {
        const float x = 960 + 1180 * (float(i) + dice.Unit()) / 30;
        DrawDeadTree(farPen, {x, 405 + dice.Range(-14, 10)},
                     {.height = dice.Range(120, 250),
                      .trunk = dice.Range(3, 6),
                      .lean = 0.06f * dice.Bell(),
                      .generations = 4,
                      .density = 0.8f},
                     310 + uint32_t(i));
    }
    canvas.Cover(
        far,
        [](float x, float) {
            return Mix(Mix(palette::Rust, palette::Slate, 0.35f), palette::Slate, Night(x)) * 0.62f;
        },
        0.7f);

    struct Standing {
        float x, foot, height, trunk, lean;
    };
    // clang-format off
    const Standing behind[] = {
        { 985, 425, 190,  7,  0.10f},
        {1245, 440, 300, 11,  0.08f},
        {1565, 446, 350, 13, -0.06f},
        {1720, 440, 270,  9,  0.12f},
        {1900, 440, 330, 12, -0.07f},
        {2075, 430, 230,  8,  0.09f},
    };
    const Standing trees[] = {
        {1128, 506, 470, 20, -0.05f},
        {1418, 522, 560, 27,  0.05f},
        {1640, 500, 430, 16, -0.09f},
        {1812, 530, 600, 30,  0.03f},
        {1990, 498, 370, 15,  0.10f},
    };
    // clang-format on
    uint32_t seed = 400;
    for (const Standing& tree : behind)
        DrawDeadTree(middlePen, {tree.x, tree.foot},
                     {.height = tree.height, .trunk = tree.trunk, .lean = tree.lean}, ++seed);
    canvas.Cover(
        middle,
        [](float x, float) { return Mix(Mix(palette::Rust, palette::Ink, 0.75f), palette::Night, Night(x)); },
        0.85f);
    for (const Standing& tree : trees)
        DrawDeadTree(pen, {tree.x, tree.foot},
                     {.height = tree.height, .trunk = tree.trunk, .lean = tree.lean}, ++seed);
    canvas.Cover(near, palette::Ink, 0.97f);
    // What light there is comes from the left: a dry edge of it on the stems.
    // The edge is drawn with a dry brush down the stems: streaks, and none on twigs.
    Mask bark(W, H);
    const Noise dry(304);
    for (int y = 0; y < H; y++)
        for (int x = 3; x < W - 5; x++)
            if (near.At(x, y) > 0)
                bark.At(x, y) = near.At(x, y) * near.At(x + 2, y) * near.At(x + 5, y) *
                                (1 - near.At(x - 3, y)) *
                                Smooth(-0.05f, 0.25f, dry.Fbm(float(x) / 7, float(y) / 26, 3));
    bark.Blur(0.6f);
    canvas.Cover(bark.By([](float x, float) { return 1 - 0.6f * Night(x); }),
                 Mix(palette::Ochre, palette::Rust, 0.3f), 0.55f);
}

} // namespace atelier::panorama
