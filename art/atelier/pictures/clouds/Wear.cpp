// SPDX-License-Identifier: MIT
#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Arm.h"

namespace atelier
{

// A place on the forearm: `t` along it, `u` across it, -1 to 1 from the left outline to the right one.
struct RoundArm {
    Line along;
    const Arm& arm;

    float Half(float t) const { return ForearmHalf(arm, t); }
    Vector2 Across(float t) const
    {
        const Vector2 d = DirectionAt(along, t);
        return {d.y, -d.x};
    }
    Vector2 At(float t, float u) const { return PointAt(along, t) + Across(t) * (Half(t) * u); }
    // Round the arm, bent as a ring is that is seen a little from above.
    Line Ring(float t, float wider, float bend) const
    {
        std::vector<Vector2> points;
        for (int i = -4; i <= 4; i++) {
            const float u = float(i) / 4;
            points.push_back(At(t, u * wider) + DirectionAt(along, t) * (bend * (1 - u * u)));
        }
        return Through(points);
    }
    // The half that one sees of a turn of something wound round the arm, as an ellipse that goes on behind it at both ends;
    // it climbs by `pitch` of the arm's length.
    Line Turn(float t, float wider, float bend, float pitch) const
    {
        constexpr int Steps = 12;
        std::vector<Vector2> points;
        for (int i = 0; i <= Steps; i++) {
            const float part = float(i) / Steps, a = Mix(-0.52f, 0.52f, part) * Pi;
            const float at = t + pitch * (0.5f - part);
            points.push_back(At(at, Sin(a) * wider) + DirectionAt(along, at) * (bend * Cos(a)));
        }
        return Through(points);
    }
};

static Mask Sleeve(const Canvas& canvas, const RoundArm& limb, float from, float mouth, float end,
                   float shake, uint32_t seed)
{
    const Line part = Part(limb.along, from, 1);
    const float half = limb.Half(from);
    Shape shape = Limb(part, half * mouth, half * (mouth + end) * 0.5f + 8, limb.Half(1) * end);
    const Vector2 d = DirectionAt(part, 0);
    shape.Add(Ellipse(part.front(), half * 0.2f, half * mouth, Angle(d)));
    return Melted(canvas.Width(), canvas.Height(), shape, 4).Shake(shake, 70, seed);
}

static void InkLines(Canvas& canvas, Mask& lines, const Mask* within, float strength = 0.85f)
{
    if (within != nullptr)
        lines.Multiply(*within);
    canvas.Cover(lines, palette::Ink, strength);
}

static void Folds(Pen& pen, const RoundArm& limb, float from, int count, uint32_t seed)
{
    Dice dice(seed);
    for (int i = 0; i < count; i++) {
        const float t = Mix(from + 0.06f, 0.8f, dice.Unit()), u = dice.Range(-0.95f, 0.95f);
        pen.Stroke(Through({limb.At(t, u), limb.At(t + 0.06f, u * 0.8f + dice.Range(-0.2f, 0.2f)),
                            limb.At(t + 0.15f, u * 0.9f + dice.Range(-0.3f, 0.3f))}),
                   {0.2f, 0.9f, 0});
    }
}

static void Wool(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const Mask cloth = Sleeve(canvas, limb, 0.40f, 1.24f, 1.3f, 6, seed);
    PaintBody(canvas, cloth, {Mix(palette::Slate, palette::Night, 0.35f), palette::Ink, 1.1f, 0.8f, 1.2f}, 1,
              seed);
    Mask cuff = Sleeve(canvas, limb, 0.36f, 1.3f, 1.0f, 3, seed + 1);
    cuff.Multiply(Mask(cuff.Width(), cuff.Height())
                      .Fill(Sausage({limb.At(0.42f, -1.6f), limb.At(0.42f, 1.6f)}, {46, 46})));
    PaintBody(canvas, cuff, {palette::Slate, palette::Ink, 1.1f, 0.3f, 1.2f}, 1, seed + 2);
    Mask lines(canvas.Width(), canvas.Height());
    Pen pen(lines, SketchPaper(), {.width = 4, .wobble = 1.2f, .skip = 0.2f}, seed + 3);
    for (int i = -8; i <= 8; i++) { // the ribs of the knitting
        const float u = float(i) * 0.15f;
        pen.Stroke(Through({limb.At(0.365f, u), limb.At(0.42f, u * 1.03f), limb.At(0.485f, u)}),
                   {0.5f, 0.9f, 0.3f});
    }
    InkLines(canvas, lines, &cuff, 0.7f);
    Mask folds(canvas.Width(), canvas.Height());
    Pen fold(folds, SketchPaper(), {.width = 5, .wobble = 2, .skip = 0.25f}, seed + 4);
    Folds(fold, limb, 0.5f, 12, seed + 5);
    InkLines(canvas, folds, &cloth);
    // Soot.
    Mask soot(canvas.Width(), canvas.Height());
    Pen drops(soot, SketchPaper(), {.width = 3}, seed + 6);
    drops.Splatter(limb.At(0.1f, 0.1f), 190, 60, 5);
    InkLines(canvas, soot.Multiply(canvas.Alpha()), nullptr, 0.5f);
}

static void Rope(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const Mask cloth = Sleeve(canvas, limb, 0.66f, 1.34f, 1.3f, 7, seed);
    PaintBody(canvas, cloth, {Mix(palette::Mist, palette::Slate, 0.45f), palette::Night, 1.1f, 0.8f, 1.2f}, 1,
              seed);
    Mask lines(canvas.Width(), canvas.Height());
    Pen pen(lines, SketchPaper(), {.width = 5, .wobble = 1.5f, .skip = 0.2f}, seed + 1);
    for (const float t : {0.70f, 0.735f})
        pen.Stroke(limb.Ring(t, 1.3f, 26), {0.6f, 1, 0.4f});
    Folds(pen, limb, 0.7f, 9, seed + 2);
    InkLines(canvas, lines, &cloth);
    // Three turns of rope round the wrist.
    for (int turn = 0; turn < 3; turn++) {
        const float t = 0.15f + 0.045f * float(turn);
        const Line ring = limb.Ring(t, 1.12f, 14);
        const Mask strand =
            Melted(canvas.Width(), canvas.Height(), Shaken(Limb(ring, 12, 14, 12), 1.5f, 14, seed + 3), 2);
        PaintBody(canvas, strand,
                  {Mix(palette::Parchment, palette::Ochre, 0.45f), palette::Rust, 0.9f, 0.2f, 0.9f}, 0.7f,
                  seed + 4 + uint32_t(turn));
        Mask lay(canvas.Width(), canvas.Height());
        Pen twist(lay, SketchPaper(), {.width = 3.2f, .skip = 0}, seed + 8);
        for (float s = 0.01f; s < 1; s += 0.055f) {
            const Vector2 p = PointAt(ring, s), d = DirectionAt(ring, s), n = {-d.y, d.x};
            twist.Stroke(Through({p - n * 12 - d * 7, p, p + n * 12 + d * 7}), {0.5f, 1, 0.5f});
        }
        InkLines(canvas, lay, &strand, 0.75f);
    }
    // An anchor that was tattooed long ago.
    Mask tattoo(canvas.Width(), canvas.Height());
    Pen needle(tattoo, SketchPaper(), {.width = 5, .wobble = 1, .skip = 0.1f}, seed + 9);
    const Vector2 at = limb.At(0.47f, -0.05f), d = DirectionAt(limb.along, 0.47f), n = {d.y, -d.x};
    const auto p = [&](float x, float y) { return at + n * x + d * y; };
    Strokes(needle, {{p(0, -34), p(0, 0), p(0, 42)},
                     {p(-22, -18), p(0, -20), p(22, -18)},
                     {p(-34, 14), p(-24, 38), p(0, 46), p(24, 38), p(34, 14)},
                     {p(-34, 14), p(-40, 24)},
                     {p(-34, 14), p(-24, 20)},
                     {p(34, 14), p(40, 24)},
                     {p(34, 14), p(24, 20)}});
    needle.Stroke(Ellipse(p(0, -43), 9, 9), {0.8f, 1, 0.8f});
    canvas.Cover(tattoo.Blur(0.8f), Mix(palette::Slate, palette::Night, 0.5f), 0.8f);
}

static void Flour(Canvas& canvas, const Sight& sight, const RoundArm& limb, uint32_t seed)
{
    const Mask cloth = Sleeve(canvas, limb, 0.46f, 1.5f, 1.5f, 9, seed);
    PaintBody(canvas, cloth,
              {Mix(palette::Bone, palette::Mist, 0.22f), Mix(palette::Slate, palette::Night, 0.2f), 1.0f,
               0.6f, 1.1f},
              1, seed);
    Mask lines(canvas.Width(), canvas.Height());
    Pen pen(lines, SketchPaper(), {.width = 4.4f, .wobble = 1.5f, .skip = 0.25f}, seed + 1);
    pen.Stroke(limb.Ring(0.505f, 1.44f, 24), {0.6f, 1, 0.4f});
    pen.Stroke(limb.Ring(0.55f, 1.46f, 26), {0.4f, 0.9f, 0.2f});
    Folds(pen, limb, 0.5f, 11, seed + 2);
    InkLines(canvas, lines, &cloth);
    // A few long strokes on the shadow's side of the forearm.
    Mask shade(canvas.Width(), canvas.Height());
    Pen stroke(shade, SketchPaper(), {.width = 4.2f, .wobble = 1, .skip = 0.1f}, seed + 3);
    for (int i = 0; i < 6; i++) {
        const float u = 0.46f + 0.085f * float(i), from = 0.13f - 0.012f * float(i);
        stroke.Stroke(Through({limb.At(from, u), limb.At(0.26f, u + 0.03f), limb.At(0.42f, u + 0.01f)}),
                      {0.15f, 0.8f, 0.3f});
    }
    InkLines(canvas, shade.Multiply(canvas.Alpha()).Subtract(cloth), nullptr, 0.6f);
    // Flour lies on hand and arm as a soft dust, most of it on the knuckles.
    struct Heap {
        Vector2 place;
        float radius, amount;
    };
    const Heap heaps[] = {{sight({-168, 46}), 46, 0.8f},     {sight({-96, 66}), 40, 0.9f},
                          {sight({-20, 74}), 34, 1},         {sight({66, 46}), 46, 0.8f},
                          {sight({158, 42}), 44, 0.9f},      {sight({236, 24}), 36, 0.8f},
                          {limb.At(0.16f, -0.2f), 56, 0.6f}, {limb.At(0.36f, -0.1f), 70, 0.5f}};
    const Noise drift(seed + 6);
    Mask dust(canvas.Width(), canvas.Height());
    dust.Each([&](float x, float y) {
        float amount = 0;
        for (const Heap& heap : heaps)
            amount = Max(amount, heap.amount * Bell(Length(Vector2{x, y} - heap.place) / heap.radius));
        const float tooth = SketchPaper().Height(Floor(x), Floor(y));
        return amount * Clamp(0.5f + 0.8f * drift.Fbm(x / 30, y / 30, 3) + 0.7f * (tooth - 0.5f));
    });
    Pen drops(dust, SketchPaper(), {.width = 2}, seed + 4);
    drops.Splatter(sight({40, 56}), 190, 60, 2.2f);
    const Mask inside = canvas.Alpha().Inside(20);
    dust.By([&](float x, float y) { return Smooth(3, 15, inside.Sample(x, y)); });
    canvas.Cover(dust.Subtract(cloth), Mix(palette::Bone, palette::Mist, 0.08f), 0.62f);
}

static void Lace(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const Mask cloth = Sleeve(canvas, limb, 0.34f, 1.2f, 1.4f, 5, seed);
    PaintBody(canvas, cloth, {Mix(palette::Moss, palette::Slate, 0.35f), palette::Ink, 1.2f, 0.8f, 1.2f}, 1,
              seed);
    Mask folds(canvas.Width(), canvas.Height());
    Pen fold(folds, SketchPaper(), {.width = 5, .wobble = 2, .skip = 0.25f}, seed + 1);
    Folds(fold, limb, 0.38f, 13, seed + 2);
    InkLines(canvas, folds, &cloth);
    // A cuff of lace: scallops, each with its own eyes.
    Shape scallops;
    Mask threads(canvas.Width(), canvas.Height());
    Pen pen(threads, SketchPaper(), {.width = 2.6f, .wobble = 0.6f, .skip = 0.1f}, seed + 3);
    for (int i = -3; i <= 3; i++) {
        const float u = float(i) * 0.38f;
        const Vector2 p = limb.At(0.285f, u) + DirectionAt(limb.along, 0.285f) * (16 * (1 - u * u * 0.5f));
        scallops.Add(Ellipse(p, 19, 24));
        pen.Stroke(Ellipse(p, 11, 15), {0.6f, 0.8f, 0.5f});
        for (int k = 0; k < 5; k++)
            pen.Dot(p + Vector2{Cos(1.2566f * float(k)), Sin(1.2566f * float(k))} * 6, 1.6f);
        pen.Stroke(Through({limb.At(0.31f, u * 0.96f), limb.At(0.37f, u * 0.94f)}), {0.5f, 0.8f, 0.4f});
    }
    const Line band = limb.Ring(0.335f, 1.26f, 14);
    scallops.Add(Limb(band, 26, 30, 26));
    const Mask lace = Melted(canvas.Width(), canvas.Height(), scallops, 2);
    PaintBody(canvas, lace, {palette::Bone, palette::Slate, 0.8f, 0.3f, 0.9f}, 0.7f, seed + 4);
    pen.Stroke(limb.Ring(0.355f, 1.2f, 14), {0.7f, 0.9f, 0.6f});
    InkLines(canvas, threads, &lace, 0.8f);

    // One that she let go again has come back.
    const Vector2 at = limb.At(0.13f, 0.2f), d = Normalised(Vector2{-0.35f, -1}), n = {-d.y, d.x};
    const auto p = [&](float x, float y) { return at + n * x + d * y; };
    for (const float side : {-1.0f, 1.0f}) {
        const auto q = [&](float x, float y) { return p(side * x, y); };
        const Mask hind = Melted(canvas.Width(), canvas.Height(),
                                 Round({q(4, 4), q(44, -4), q(58, -38), q(36, -58), q(12, -30)}), 2);
        const Mask fore = Melted(canvas.Width(), canvas.Height(),
                                 Round({q(3, 24), q(48, 58), q(92, 56), q(84, 22), q(46, -4), q(6, 0)}), 2);
        PaintBody(canvas, hind, {Mix(palette::Ochre, palette::Parchment, 0.4f), palette::Rust, 1, 0.5f, 1},
                  0.6f, seed + 5);
        PaintBody(canvas, fore, {Mix(palette::Mist, palette::Parchment, 0.4f), palette::Night, 1, 0.6f, 1},
                  0.6f, seed + 6);
        Mask marks(canvas.Width(), canvas.Height());
        Pen ink(marks, SketchPaper(), {.width = 3, .skip = 0.1f}, seed + 7);
        ink.Stroke(Ellipse(q(60, 34), 9, 9), {0.8f, 1, 0.8f});
        ink.Dot(q(60, 34), 4);
        Strokes(ink, {{q(10, 16), q(40, 30), q(84, 36)},
                      {q(12, 20), q(44, 46), q(80, 54)},
                      {q(12, -6), q(34, -22), q(44, -48)}});
        ink.Stroke(Through({q(3, 42), q(10, 60), q(22, 68)}), {0.6f, 0.8f, 0.8f});
        InkLines(canvas, marks, nullptr, 0.85f);
    }
    PaintBody(canvas,
              Melted(canvas.Width(), canvas.Height(), Sausage({p(0, 40), p(0, 10), p(0, -34)}, {7, 9, 5}), 1),
              {Mix(palette::Night, palette::Slate, 0.4f), palette::Ink, 1, 0.6f, 1}, 0.6f, seed + 8);
}

static void Leather(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const LinearColour hide = Mix(palette::Rust, palette::Ochre, 0.12f) * 0.85f;
    const Mask cloth = Sleeve(canvas, limb, 0.5f, 1.15f, 1.3f, 6, seed);
    PaintBody(canvas, cloth, {Mix(palette::Night, palette::Slate, 0.4f), palette::Ink, 1.1f, 0.8f, 1.2f}, 1,
              seed);
    // A gauntlet's wide cuff.
    Shape shape = Limb(Part(limb.along, 0.13f, 0.56f), limb.Half(0.13f) * 1.1f, limb.Half(0.35f) * 1.28f,
                       limb.Half(0.56f) * 1.62f);
    const Mask cuff = Melted(canvas.Width(), canvas.Height(), shape, 5).Shake(4, 60, seed + 1);
    PaintBody(canvas, cuff, {hide, Mix(palette::Ink, palette::Rust, 0.25f), 1.2f, 0.8f, 1.25f}, 1, seed + 2);
    Mask lines(canvas.Width(), canvas.Height());
    Pen pen(lines, SketchPaper(), {.width = 4, .wobble = 1, .skip = 0.15f}, seed + 3);
    pen.Stroke(limb.Ring(0.165f, 1.2f, 12), {0.7f, 1, 0.5f});
    pen.Stroke(limb.Ring(0.185f, 1.2f, 12), {0.5f, 0.9f, 0.4f});
    pen.Stroke(limb.Ring(0.51f, 1.6f, 30), {0.7f, 1, 0.5f});
    Folds(pen, limb, 0.2f, 7, seed + 4);
    InkLines(canvas, lines, &cuff);
    // Its seam is laced, its border studded.
    Mask bright(canvas.Width(), canvas.Height());
    Pen thread(bright, SketchPaper(), {.width = 5, .skip = 0.1f}, seed + 5);
    for (float t = 0.22f; t < 0.5f; t += 0.04f) {
        thread.Stroke(Through({limb.At(t, 0.22f), limb.At(t + 0.035f, 0.42f)}), {0.7f, 1, 0.6f});
        thread.Stroke(Through({limb.At(t, 0.42f), limb.At(t + 0.035f, 0.22f)}), {0.7f, 1, 0.6f});
    }
    canvas.Cover(bright, palette::Parchment, 0.85f);
    Mask studs(canvas.Width(), canvas.Height()), spark(canvas.Width(), canvas.Height());
    Pen stud(studs, SketchPaper(), {.width = 3}, seed + 6),
        shine(spark, SketchPaper(), {.width = 2}, seed + 7);
    for (int i = -3; i <= 3; i++) {
        const float u = float(i) * 0.42f;
        const Vector2 p = limb.At(0.475f, u) + DirectionAt(limb.along, 0.475f) * (24 * (1 - u * u * 0.4f));
        stud.Dot(p, 9);
        shine.Dot(p - Vector2{2, 2}, 4.6f);
    }
    canvas.Cover(studs, palette::Ink, 0.9f);
    canvas.Cover(spark, palette::Amber, 0.95f);
}

static void Wire(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const Mask cloth = Sleeve(canvas, limb, 0.5f, 1.26f, 1.3f, 6, seed);
    PaintBody(canvas, cloth,
              {Mix(palette::Ochre, palette::Parchment, 0.15f), palette::Rust, 1.1f, 0.7f, 1.2f}, 1, seed);
    // Checks, woven askew.
    Mask checks(canvas.Width(), canvas.Height());
    DryBrush brush(checks, SketchPaper(), {.width = 13, .count = 14, .thickness = 1.6f, .load = 0.8f},
                   seed + 1);
    for (float t = 0.54f; t < 0.98f; t += 0.065f)
        brush.Stroke(limb.Ring(t, 1.4f, 26));
    for (float u = -1.1f; u <= 1.2f; u += 0.36f)
        brush.Stroke(Through({limb.At(0.49f, u), limb.At(0.7f, u), limb.At(0.97f, u)}));
    canvas.Glaze(checks.Multiply(cloth), Mix(palette::Rust, palette::Ink, 0.25f), 0.8f);
    Mask lines(canvas.Width(), canvas.Height());
    Pen pen(lines, SketchPaper(), {.width = 4.4f, .wobble = 1.5f, .skip = 0.25f}, seed + 2);
    pen.Stroke(limb.Ring(0.53f, 1.26f, 24), {0.6f, 1, 0.4f});
    Folds(pen, limb, 0.55f, 10, seed + 3);
    InkLines(canvas, lines, &cloth);
    // A wire wound round the wrist, whose end looks for somebody.
    Mask wire(canvas.Width(), canvas.Height());
    Pen copper(wire, SketchPaper(), {.width = 7, .least = 0.6f, .wobble = 0.6f, .skip = 0}, seed + 4);
    constexpr float FirstTurn = 0.17f, TurnApart = 0.032f;
    for (int turn = 0; turn < 5; turn++)
        copper.Stroke(limb.Turn(FirstTurn + TurnApart * float(turn), 1.03f, 24, 0.5f * TurnApart),
                      {0.7f, 1, 0.7f});
    // It throws a shadow on the skin.
    Mask below(canvas.Width(), canvas.Height());
    below.Each([&](float x, float y) { return wire.Sample(x - 3, y - 5); });
    canvas.Glaze(below.Blur(2).Multiply(canvas.Alpha()), Mix(palette::Slate, palette::Rust, 0.4f), 0.6f);
    const Vector2 start = limb.Turn(FirstTurn, 1.03f, 24, 0.5f * TurnApart).front();
    const Line aerial =
        Through({start, start + Vector2{-52, 22}, start + Vector2{-112, 6}, start + Vector2{-136, -58},
                 start + Vector2{-196, -66}, start + Vector2{-226, -126}});
    copper.Stroke(aerial, {0.8f, 0.9f, 0.7f});
    canvas.Cover(Mask(wire).Blur(1.4f).Curve(0.1f, 0.4f), palette::Ink, 0.95f);
    canvas.Cover(wire.Blur(0.5f).Curve(0.75f, 1), Mix(palette::Amber, palette::Rust, 0.25f));
    // Its light has to bring a little of its own sky along, where the picture is clear.
    const Vector2 tip = aerial.back();
    Mask halo(canvas.Width(), canvas.Height());
    halo.Each([&](float x, float y) {
        return 0.75f * Bell(Length(Vector2{x, y} - tip) / 26) + Bell(Length(Vector2{x, y} - tip) / 8);
    });
    canvas.Cover(
        halo,
        [&](float x, float y) {
            return Mix(palette::ColdLight * 0.8f, palette::Bone, Bell(Length(Vector2{x, y} - tip) / 9));
        },
        0.95f);
    Mask waves(canvas.Width(), canvas.Height());
    Pen faint(waves, SketchPaper(), {.width = 3.4f, .skip = 0.15f}, seed + 5);
    for (const float r : {42.0f, 64.0f, 88.0f})
        for (const float side : {0.0f, Pi})
            faint.Stroke(Arc(tip, r, r, side - 0.55f, side + 0.55f), {0.2f, 1, 0.2f});
    canvas.Cover(waves, palette::ColdLight, 0.7f);
}

void PaintWear(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    const RoundArm limb = {Forearm(sight, arm), arm};
    const uint32_t seed = arm.seed + 200;
    switch (arm.wear) {
    case Wear::Wool:
        return Wool(canvas, limb, seed);
    case Wear::Rope:
        return Rope(canvas, limb, seed);
    case Wear::Flour:
        return Flour(canvas, sight, limb, seed);
    case Wear::Lace:
        return Lace(canvas, limb, seed);
    case Wear::Leather:
        return Leather(canvas, limb, seed);
    case Wear::Wire:
        return Wire(canvas, limb, seed);
    }
}

} // namespace atelier
