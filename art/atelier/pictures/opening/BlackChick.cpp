// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Opening.h"

#include "art/atelier/DryBrush.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"

namespace atelier
{

// The chick is painted in the proportion in which it is seen, 430 by 542, at twice that size; the claws reach
// below the 1084 rows in which it stands.
static const int W = 860, H = 1124;

// A toe: a knobbly limb with a claw, from the ankle to the tip.
static void DrawToe(Mask& skin, Mask& ink, Pen& pen, Vector2 ankle, Vector2 knuckle, Vector2 tip, float width,
                    Dice& dice)
{
    const Line spine = Through({ankle, Mix(ankle, knuckle, 0.6f) + Vector2{0, -6}, knuckle,
                                Mix(knuckle, tip, 0.6f) + Vector2{0, -width * 0.2f}, tip});
    const Line outline =
        Shaken(Limb(spine, width * 0.42f, width * 0.62f, width * 0.36f), 2.5f, 22, dice.Next());
    skin.Fill(outline);
    pen.nib.width = 5;
    pen.Stroke(outline, {.start = 0.8f, .middle = 0.6f, .end = 0.7f});
    for (float t = 0.14f; t < 0.94f; t += dice.Range(0.07f, 0.12f)) {
        const Vector2 at = PointAt(spine, t), d = DirectionAt(spine, t), n = {-d.y, d.x};
        pen.nib.width = 3;
        pen.Stroke(Through({at - n * (width * 0.5f), at + d * 5, at + n * (width * 0.5f)}),
                   {.start = 0.7f, .middle = 0.5f, .end = 0.05f});
    }
    const Vector2 d = DirectionAt(spine, 0.97f), n = {-d.y, d.x};
    ink.Fill(Round({tip - n * (width * 0.32f), tip + d * (width * 0.7f) - n * 2,
                    tip + d * (width * 1.5f) + Vector2{0, width * 0.35f},
                    tip + d * (width * 0.5f) + n * (width * 0.3f), tip + n * (width * 0.3f)}));
}

// Legs and feet: each of its enormous feet points another way.
static void PaintLegs(Canvas& canvas, const Paper& paper, Dice& dice)
{
    Mask skin(W, H), claws(W, H), lines(W, H);
    Pen pen(lines, paper, {.width = 5, .wobble = 1, .skip = 0.15f}, 22);
    const Vector2 leftAnkle = {296, 968}, rightAnkle = {566, 958};
    const Line legs[] = {Through({{372, 700}, {366, 800}, {330, 880}, leftAnkle}),
                         Through({{486, 700}, {500, 790}, {546, 866}, rightAnkle})};
    for (const Line& leg : legs) {
        const Line outline = Shaken(Limb(leg, 17, 11, 17), 2, 30, dice.Next());
        skin.Fill(outline);
        pen.Stroke(outline, {.start = 0.7f, .middle = 0.7f, .end = 0.7f});
        for (float t = 0.35f; t < 0.98f; t += 0.06f) {
            const Vector2 at = PointAt(leg, t);
            pen.nib.width = 3;
            pen.Stroke(Through({at + Vector2{-12, -3}, at + Vector2{0, 4}, at + Vector2{12, -2}}),
                       {.start = 0.5f, .middle = 0.6f, .end = 0.1f});
            pen.nib.width = 5;
        }
    }
    DrawToe(skin, claws, pen, leftAnkle + Vector2{8, 0}, leftAnkle + Vector2{70, 24},
            leftAnkle + Vector2{124, 46}, 26, dice);
    DrawToe(skin, claws, pen, leftAnkle, leftAnkle + Vector2{-90, 2}, leftAnkle + Vector2{-206, 26}, 32,
            dice);
    DrawToe(skin, claws, pen, leftAnkle, leftAnkle + Vector2{-70, 36}, leftAnkle + Vector2{-150, 70}, 34,
            dice);
    DrawToe(skin, claws, pen, leftAnkle, leftAnkle + Vector2{-14, 44}, leftAnkle + Vector2{-26, 84}, 34,
            dice);
    DrawToe(skin, claws, pen, rightAnkle + Vector2{-6, 2}, rightAnkle + Vector2{-60, 30},
            rightAnkle + Vector2{-104, 50}, 26, dice);
    DrawToe(skin, claws, pen, rightAnkle, rightAnkle + Vector2{100, -2}, rightAnkle + Vector2{214, 18}, 32,
            dice);
    DrawToe(skin, claws, pen, rightAnkle, rightAnkle + Vector2{80, 36}, rightAnkle + Vector2{170, 70}, 36,
            dice);
    DrawToe(skin, claws, pen, rightAnkle, rightAnkle + Vector2{24, 46}, rightAnkle + Vector2{50, 88}, 36,
            dice);
    Canvas horn(W, H, palette::Bone);
    Wash(horn, paper, Mask(W, H, 1),
         {.pigment = palette::Ochre,
          .density = 0.85f,
          .pool = 0,
          .granulation = 0.8f,
          .bloom = 0.8f,
          .bloomSize = 60,
          .stray = 0},
         23);
    Wash(horn, paper, skin,
         {.pigment = palette::Rust,
          .density = 0.5f,
          .pool = 1.4f,
          .poolWidth = 7,
          .bloom = 0.8f,
          .bloomSize = 70,
          .stray = 0},
         24);
    canvas.Lay(horn.CutOut(skin), 0, 0);
    canvas.Cover(claws, palette::Ink);
    canvas.Cover(lines, palette::Ink, 0.95f);
}

// The outline of body and head.
static Mask Silhouette()
{
    Mask dark(W, H);
    dark.Fill(Round({{470, 160},
                     {590, 200},
                     {640, 310},
                     {650, 430},
                     {660, 580},
                     {580, 710},
                     {430, 752},
                     {270, 715},
                     {190, 600},
                     {200, 470},
                     {290, 370},
                     {320, 240}}));
    return dark;
}

// The direction in which the down grows at a place, in radians: away from the middle of body or head, ruffled.
static float FeatherAngle(Vector2 p, Dice& dice)
{
    static const Noise whirl(26);
    const Vector2 body = {424, 500}, head = {470, 330};
    const Vector2 out = p - Mix(body, head, Smooth(620, 220, p.y));
    return Angle(out) + 0.5f + 0.9f * whirl.Fbm(p.x / 150, p.y / 150, 2) + 0.35f * dice.Bell();
}

// The body as one dark wash, then feather upon feather. Roughens the edge of `dark`, the silhouette.
static void PaintDown(Canvas& canvas, Mask& dark, const Paper& paper, Dice& dice)
{
    Mask down(W, H);
    Pen feather(down, paper, {.width = 5, .wobble = 1.6f, .wave = 30, .skip = 0.1f, .dry = 0.35f, .pool = 0},
                25);
    const auto plume = [&](Vector2 p, float length, float width, float press) {
        const float a = FeatherAngle(p, dice);
        feather.nib.width = width;
        const Vector2 d = {Cos(a), Sin(a)}, n = {-d.y, d.x};
        const float curl = dice.Range(-0.3f, 0.3f) * length;
        feather.Stroke(Through({p, p + d * (length * 0.5f) + n * (curl * 0.3f), p + d * length + n * curl}),
                       {.start = press, .middle = press * 0.8f, .end = 0});
    };
    const Mask edge = dark.Inside(60);
    for (int i = 0; i < 3400; i++) {
        const Vector2 p = {dice.Range(150, 700), dice.Range(140, 760)};
        if (dark.Sample(p.x, p.y) > 0.5f) {
            const bool rim = edge.Sample(p.x, p.y) < 26;
            plume(p, dice.Range(26, 62) * (rim ? 1.15f : 0.8f), rim ? 3.4f : 5, 0.9f);
        }
    }
    // A few that stand up on its crown, and a tail that is none yet.
    for (int i = 0; i < 16; i++)
        feather.Stroke(Through({{462 + 5.0f * dice.Bell(), 180},
                                {452 + 12.0f * dice.Bell(), 130},
                                {430 + 40.0f * dice.Bell(), dice.Range(64, 116)}}),
                       {.start = 0.9f, .middle = 0.6f, .end = 0});
    for (int i = 0; i < 40; i++)
        feather.Stroke(Through({{230 + 10.0f * dice.Bell(), 590 + 24 * dice.Bell()},
                                {180, 570 + 30 * dice.Bell()},
                                {120 + 20.0f * dice.Bell(), 540 + 46.0f * dice.Bell()}}),
                       {.start = 0.9f, .middle = 0.7f, .end = 0});
    canvas.Cover(dark.Shake(8, 30, 27), palette::Ink);
    canvas.Cover(down, palette::Ink);
}

// Light from behind on single feathers; the breast is greyer.
static void PaintSheen(Canvas& canvas, const Mask& dark, const Paper& paper, Dice& dice)
{
    Mask grey(W, H);
    Pen sheen(grey, paper, {.width = 2.4f, .wobble = 1.4f, .wave = 26, .skip = 0.5f, .dry = 0.7f, .pool = 0},
              28);
    for (int i = 0; i < 1500; i++) {
        const Vector2 p = {dice.Range(170, 680), dice.Range(150, 750)};
        if (dark.Sample(p.x, p.y) < 0.5f)
            continue;
        const float a = FeatherAngle(p, dice), length = dice.Range(16, 46),
                    light = 0.2f + 0.7f * Smooth(480, 200, p.x) + 0.4f * Hill(620, 160, p.y);
        if (dice.Chance(light))
            sheen.Stroke(Through({p, p + Vector2{Cos(a), Sin(a)} * (length * 0.5f),
                                  p + Vector2{Cos(a + 0.25f), Sin(a + 0.25f)} * length}),
                         {.start = 0.5f, .middle = 0.8f, .end = 0});
    }
    canvas.Cover(grey, palette::Slate, 0.55f);
}

// The stub of a wing.
static void PaintWing(Canvas& canvas, const Paper& paper)
{
    Mask wing(W, H);
    Pen quill(wing, paper, {.width = 7, .wobble = 1, .pool = 0}, 29);
    for (int i = 0; i < 13; i++) {
        const float k = float(i);
        quill.Stroke(Through({{330 + 3 * k, 500 + 3 * k},
                              {292 + 5 * k, 560 + 5 * k},
                              {244 + 11 * k, 596 + 8.5f * k - 0.55f * k * k}}),
                     {.start = 0.3f, .middle = 0.8f, .end = 0});
    }
    canvas.Cover(wing.Blurred(1.5f), palette::Slate, 0.30f);
    canvas.Cover(wing, palette::Ink, 0.55f);
}

static void PaintBeak(Canvas& canvas, const Paper& paper)
{
    Mask beak(W, H), beakLine(W, H);
    Pen beakPen(beakLine, paper, {.width = 5, .wobble = 0.6f}, 30);
    const Line upper = Round({{618, 392}, {660, 380}, {716, 418}, {672, 424}, {622, 432}}),
               lower = Round({{622, 430}, {668, 428}, {698, 436}, {656, 452}, {620, 452}});
    beak.Fill(upper).Fill(lower);
    Canvas horned(W, H, palette::Amber);
    Wash(horned, paper, beak,
         {.pigment = palette::Rust,
          .density = 0.55f,
          .pool = 1.3f,
          .poolWidth = 9,
          .bloom = 0.7f,
          .bloomSize = 50,
          .stray = 0},
         31);
    canvas.Lay(horned.CutOut(beak), 0, 0);
    beakPen.Stroke(upper, {.start = 0.6f, .middle = 0.8f, .end = 0.6f});
    beakPen.Stroke(lower, {.start = 0.6f, .middle = 0.6f, .end = 0.4f});
    canvas.Cover(beakLine, palette::Ink);
}

// The one eye that sees you.
static void PaintEye(Canvas& canvas, const Paper& paper)
{
    const Vector2 eye = {520, 330};
    Mask white(W, H), iris(W, H), pupil(W, H), lid(W, H);
    white.Fill(Shaken(Ellipse(eye, 66, 70), 2.5f, 40, 32));
    iris.Fill(Shaken(Ellipse(eye + Vector2{13, 8}, 38, 40), 1.5f, 30, 33));
    pupil.Fill(Ellipse(eye + Vector2{16, 10}, 22, 24));
    Canvas ball(W, H, palette::Bone);
    Wash(ball, paper, white,
         {.pigment = palette::Mist,
          .density = 0.5f,
          .pool = 1.5f,
          .poolWidth = 12,
          .bloom = 0.6f,
          .bloomSize = 60,
          .stray = 0},
         34);
    Wash(ball, paper, iris,
         {.pigment = palette::Amber, .density = 1.2f, .pool = 1, .poolWidth = 6, .stray = 1}, 35);
    // Brushed as the feathers are: round the ball, and out from the pupil.
    Mask turned(W, H), rays(W, H);
    DryBrush brush(turned, paper,
                   {.width = 15, .count = 12, .thickness = 1.8f, .load = 0.5f, .ragged = 0.3f, .wave = 40},
                   37),
        ray(rays, paper,
            {.width = 9, .count = 6, .thickness = 1.6f, .load = 0.6f, .ragged = 0.4f, .wave = 30}, 38);
    for (int i = 0; i < 7; i++) {
        const float r = 44 + 3.6f * float(i), from = 0.3f + 0.5f * float(i % 3);
        brush.Stroke(Arc(eye, r * 0.95f, r, from, from + 3.2f));
    }
    for (int i = 0; i < 16; i++) {
        const float a = 0.3927f * float(i);
        const Vector2 d = {Cos(a), Sin(a)};
        ray.Stroke(Straight({eye + Vector2{15, 9} + d * 22, eye + Vector2{14, 8} + d * 37}));
    }
    ball.Glaze(turned.Multiply(white), Mix(palette::Mist, palette::Slate, 0.45f), 0.75f);
    ball.Glaze(rays.Multiply(iris), palette::Rust, 0.8f);
    ball.Cover(pupil, palette::Ink);
    ball.Cover(Filled(W, H, Ellipse(eye + Vector2{4, -6}, 7, 8)).Blur(1.2f), palette::Bone);
    canvas.Lay(ball.CutOut(white), 0, 0);
    Pen lidPen(lid, paper, {.width = 8, .wobble = 1}, 36);
    lidPen.Stroke(Ellipse(eye, 67, 71, 0.4f), {.start = 0.6f, .middle = 0.8f, .end = 0.5f});
    // Down lies over its border.
    Dice tuft(39);
    for (int i = 0; i < 110; i++) {
        const float a = tuft.Range(0, 2 * Pi), lean = a + tuft.Range(-0.16f, 0.16f);
        const float in = tuft.Range(50, 66) + (Sin(a) < -0.2f ? -5.0f : 3.0f);
        lidPen.nib.width = tuft.Range(3, 5.5f);
        lidPen.Stroke(
            Through({eye + Vector2{Cos(lean), Sin(lean)} * 84, eye + Vector2{Cos(a), Sin(a) * 1.05f} * 70,
                     eye + Vector2{Cos(a), Sin(a) * 1.05f} * in}),
            {.start = 0.9f, .middle = 0.8f, .end = 0});
    }
    lidPen.nib.width = 4;
    for (int i = 0; i < 9; i++) {
        const float a = -2.7f + 0.27f * float(i);
        const Vector2 d = {Cos(a), Sin(a)};
        lidPen.Stroke(Through({eye + d * 68, eye + d * 84 + Vector2{0, -3}, eye + d * 98 + Vector2{-5, -3}}),
                      {.start = 0.9f, .middle = 0.5f, .end = 0});
    }
    canvas.Cover(lid, palette::Ink);
}

// A ruffled black chick that does not know where to go, squeezed into the top 343 rows of its texture.
Canvas BlackChick()
{
    const Paper& paper = SketchPaper();
    Canvas canvas(W, H);
    Dice dice(21);
    Mask shadow(W, H);
    shadow.Fill(Ellipse({430, 1020}, 300, 22)).Blur(14).FadeToBorder(60);
    canvas.Cover(shadow, palette::Ink, 0.45f);

    PaintLegs(canvas, paper, dice);
    Mask dark = Silhouette();
    PaintDown(canvas, dark, paper, dice);
    PaintSheen(canvas, dark, paper, dice);
    PaintWing(canvas, paper);
    PaintBeak(canvas, paper);
    PaintEye(canvas, paper);
    paper.Show(canvas, 0.6f);

    Canvas texture(512, 512);
    texture.Lay(Squeezed(canvas, 512, 343), 0, 0);
    return texture;
}

} // namespace atelier
