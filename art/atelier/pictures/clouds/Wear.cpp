// SPDX-License-Identifier: MIT
#include "art/atelier/Glow.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Cloth.h"
#include "art/atelier/pictures/clouds/Moth.h"

namespace atelier
{

static void Wool(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    constexpr float Mouth = 0.26f, Cuff = 0.365f, Wide = 1.16f, Depth = 26;
    const LinearColour wool = Mix(palette::Slate, palette::Mist, 0.22f),
                       dark = Mix(palette::Night, palette::Slate, 0.2f);
    const Stuff knitted = {wool, palette::Night, 0.5f, 0.3f, 1.1f};
    // Soot.
    Mask soot(width, height);
    Pen drops(soot, SketchPaper(), {.width = 3}, seed + 6);
    drops.Splatter(limb.At(0.1f, 0.1f), 190, 60, 4);
    InkLines(canvas, soot.Multiply(canvas.Alpha()), nullptr, 0.4f);
    PaintOpening(canvas, limb, Mouth, Wide, Depth, Mix(dark, palette::Ink, 0.5f), seed + 30);
    const Mask cloth = OpenSleeve(canvas, limb, Cuff - 0.04f, Wide, 1.3f, Depth, 5, seed);
    Mask cuff = Melted(width, height,
                       Limb(Part(limb.along, Mouth, Cuff), limb.Half(Mouth) * Wide,
                            limb.Half(0.5f * (Mouth + Cuff)) * (Wide + 0.05f), limb.Half(Cuff) * Wide),
                       3);
    cuff.Fill(Opening(limb, Cuff, Wide, Depth)).Shake(3, 40, seed + 1);
    cuff.Erase(Opening(limb, Mouth, Wide, Depth));
    // What runs along the arm at an angle round it, and what goes round it.
    const auto lengthwise = [&](float angle, float from, float to) {
        std::vector<Vector2> points;
        for (int i = 0; i <= 4; i++) {
            const float t = Mix(from, to, float(i) / 4);
            points.push_back(limb.At(t, Sin(angle) * Wide) +
                             DirectionAt(limb.along, t) * (Depth * Cos(angle)));
        }
        return points;
    };
    PaintCloth(canvas, cloth, knitted, 1, seed);
    // Stitch by stitch, in rows.
    Mask stitches(width, height);
    Pen stitch(stitches, SketchPaper(), {.width = 2.2f, .wobble = 0.5f, .skip = 0.2f, .pool = 0.1f},
               seed + 3);
    constexpr float Row = 0.02f, Apart = 0.13f;
    for (float t = Cuff; t < 0.9f; t += Row)
        for (float angle = -1.4f; angle < 1.4f; angle += Apart) {
            const std::vector<Vector2> middle = lengthwise(angle, t, t + 0.8f * Row);
            for (const float side : {-0.45f, 0.45f})
                stitch.Stroke(Straight({lengthwise(angle + side * Apart, t, t + Row).front(), middle.back()}),
                              {0.3f, 0.9f, 0.3f});
        }
    canvas.Cover(stitches.Multiply(cloth), dark, 0.5f);
    ShadeRound(canvas, limb, cloth, Wide, dark, 0.65f, seed + 32);
    PaintFolds(canvas, limb,
               {{0.55f, -1.0f, 0.60f, -0.2f, 0.6f},
                {0.53f, 1.0f, 0.59f, 0.2f, 0.7f},
                {0.64f, -1.0f, 0.67f, 0.1f, 0.7f}},
               Wide, Depth, cloth, dark, Mix(wool, palette::Mist, 0.5f), seed + 2);
    Mask below = Mask(cuff).Blur(3);
    const Vector2 on = DirectionAt(limb.along, Cuff);
    Mask cast(width, height);
    cast.Each([&](float x, float y) { return below.Sample(x - 14 * on.x - 4, y - 14 * on.y); });
    canvas.Glaze(cast.Blur(2).Multiply(cloth), dark, 0.8f);
    PaintCloth(canvas, cuff, knitted, 1, seed + 33);
    // The cuff's ribs: a dark furrow beside each, and light on it.
    Mask furrows(width, height), ridges(width, height);
    Pen furrow(furrows, SketchPaper(), {.width = 5, .wobble = 0.8f, .skip = 0.1f}, seed + 4);
    Pen ridge(ridges, SketchPaper(), {.width = 3, .wobble = 0.8f, .skip = 0.25f}, seed + 5);
    for (float angle = -1.45f; angle < 1.5f; angle += 0.17f) {
        furrow.nib.width = 1.5f + 4 * Cos(angle);
        furrow.Stroke(Through(lengthwise(angle, Mouth + 0.006f, Cuff - 0.004f)), {0.5f, 0.9f, 0.4f});
        ridge.Stroke(Through(lengthwise(angle - 0.07f, Mouth + 0.012f, Cuff - 0.02f)), {0.3f, 0.8f, 0.2f});
    }
    canvas.Cover(furrows.Multiply(cuff), dark, 0.75f);
    canvas.Cover(ridges.Multiply(cuff), Mix(wool, palette::Mist, 0.6f), 0.5f);
    ShadeRound(canvas, limb, cuff, Wide, dark, 0.65f, seed + 34);
}

static void Rope(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    // A sleeve pushed up to the elbow.
    constexpr float Mouth = 0.575f, Wide = 1.2f, Depth = 34;
    const LinearColour linen = Mix(palette::Mist, palette::Slate, 0.45f),
                       dark = Mix(palette::Night, palette::Slate, 0.25f);
    PaintOpening(canvas, limb, Mouth, Wide, Depth, Mix(dark, palette::Ink, 0.5f), seed + 30);
    const Mask cloth = OpenSleeve(canvas, limb, Mouth, Wide, 1.3f, Depth, 5, seed);
    PaintCloth(canvas, cloth, {linen, palette::Night, 0.5f, 0.6f, 1.2f}, 1, seed);
    ShadeRound(canvas, limb, cloth, Wide, dark, 0.85f, seed + 31);
    PaintFolds(canvas, limb,
               {{0.625f, -1.0f, 0.65f, -0.2f, 0.6f},
                {0.63f, 1.0f, 0.67f, 0.1f, 0.7f},
                {0.68f, -1.0f, 0.70f, 0.2f, 0.7f}},
               Wide, Depth, cloth, dark, Mix(linen, palette::Bone, 0.4f), seed + 2);
    Mask hem(canvas.Width(), canvas.Height());
    Pen pen(hem, SketchPaper(), {.width = 3.4f, .wobble = 1, .skip = 0.2f}, seed + 1);
    pen.Stroke(limb.Turn(Mouth + 0.022f, Wide, Depth, 0), {0.6f, 0.9f, 0.5f});
    InkLines(canvas, hem, &cloth);
    // Three turns of rope round the wrist.
    for (int turn = 0; turn < 3; turn++) {
        const float t = 0.15f + 0.045f * float(turn);
        const Line ring = limb.Ring(t, 1.12f, 14);
        const Mask strand =
            Melted(canvas.Width(), canvas.Height(), Shaken(Limb(ring, 12, 14, 12), 1.5f, 14, seed + 3), 2);
        PaintCloth(canvas, strand,
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
    const Stuff linen = {Mix(palette::Bone, palette::Mist, 0.1f), Mix(palette::Slate, palette::Night, 0.2f),
                         0.4f, 0.4f, 1.1f};
    const LinearColour shade = Mix(Mix(palette::Slate, palette::Rust, 0.3f), palette::Mist, 0.1f);
    constexpr float Mouth = 0.46f, Roll = 0.56f, Depth = 26, Wide = 1.26f;
    const int width = canvas.Width(), height = canvas.Height();
    // The forearm is round, and the sinews of a wrist that is bent back are taut.
    Mask bare(width, height);
    const Vector2 wrist = limb.At(0.08f, 0), down = DirectionAt(limb.along, 0.2f);
    bare.Each(
            [&](float x, float y) {
                return Smooth(-50, 60, Dot(Vector2{x, y} - wrist, down));
            },
            2)
        .Multiply(canvas.Alpha());
    ShadeRound(canvas, limb, bare, 1, shade, 0.3f, seed + 36);
    PaintSinews(canvas, limb,
                {{{0.01f, -0.34f}, {0.07f, -0.32f}, {0.17f, -0.30f}},
                 {{0.05f, 0.26f}, {0.09f, 0.16f}, {0.18f, 0.14f}}},
                shade, seed + 37);
    // On the shadow's side the pen goes round the forearm.
    Mask strokes(width, height);
    Pen stroke(strokes, SketchPaper(), {.width = 2.8f, .wobble = 0.8f, .skip = 0.15f}, seed + 3);
    Dice dice(seed + 38);
    for (float t = 0.11f; t < Mouth + 0.03f; t += 0.0125f) {
        std::vector<Vector2> points;
        const float from = dice.Range(0.42f, 0.66f);
        for (int i = 0; i <= 4; i++) {
            const float u = Mix(from, 0.985f, float(i) / 4);
            points.push_back(limb.At(t, u) + DirectionAt(limb.along, t) * (Depth * Sqrt(1 - u * u)));
        }
        stroke.Stroke(Through(points), {0.05f, 0.6f, 0.8f});
    }
    InkLines(canvas, strokes.Multiply(canvas.Alpha()), nullptr, 0.5f);
    PaintOpening(canvas, limb, Mouth, Wide, Depth,
                 Mix(Mix(palette::Slate, palette::Rust, 0.35f), palette::Ink, 0.5f), seed + 30);
    const Mask cloth = OpenSleeve(canvas, limb, Mouth, Wide, 1.5f, Depth, 5, seed);
    // The sleeve comes out below the roll of its own end, which is a little wider.
    Mask roll =
        Melted(width, height,
               Limb(Part(limb.along, Mouth, Roll), limb.Half(Mouth) * Wide,
                    limb.Half(0.5f * (Mouth + Roll)) * (Wide + 0.08f), limb.Half(Roll) * (Wide + 0.04f)),
               3);
    roll.Fill(Opening(limb, Roll, Wide + 0.04f, Depth)).Shake(4, 60, seed + 31);
    roll.Erase(Opening(limb, Mouth, Wide, Depth));
    PaintCloth(canvas, cloth, linen, 1, seed);
    ShadeRound(canvas, limb, cloth, Wide, shade, 0.8f, seed + 32);
    Mask below = Mask(roll).Blur(3);
    const Vector2 on = DirectionAt(limb.along, Roll);
    Mask cast(width, height);
    cast.Each([&](float x, float y) { return below.Sample(x - 16 * on.x - 6, y - 16 * on.y); });
    canvas.Glaze(cast.Blur(2).Multiply(cloth), shade, 0.8f);
    PaintFolds(canvas, limb,
               {{0.59f, -1.0f, 0.625f, -0.5f, 0.45f},
                {0.585f, -0.1f, 0.66f, -0.3f, 0.4f},
                {0.60f, 1.0f, 0.655f, 0.2f, 0.75f},
                {0.66f, -1.0f, 0.69f, -0.45f, 0.5f},
                {0.665f, 1.0f, 0.67f, 0.45f, 0.55f},
                {0.70f, 1.0f, 0.73f, -0.3f, 0.7f}},
               Wide, Depth, cloth, shade, palette::Bone, seed + 2);
    PaintCloth(canvas, roll, linen, 1, seed + 33);
    ShadeRound(canvas, limb, roll, Wide + 0.04f, shade, 0.75f, seed + 34);
    PaintFolds(canvas, limb, {{0.48f, -1.0f, 0.505f, -0.5f, 0.35f}, {0.505f, 1.0f, 0.48f, 0.2f, 0.55f}}, Wide,
               Depth, roll, shade, palette::Bone, seed + 35);
    // Flour lies on hand and arm as a soft dust, most of it on the knuckles.
    struct Heap {
        Vector2 place;
        float radius, amount;
    };
    const Heap heaps[] = {{sight({-150, 22}), 40, 0.8f},      {sight({-100, 32}), 32, 0.8f},
                          {sight({-40, 6}), 24, 0.9f},        {sight({240, -40}), 30, 0.7f},
                          {limb.At(0.19f, -0.40f), 34, 0.8f}, {limb.At(0.37f, -0.35f), 44, 0.7f}};
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
    // On ink and in the shadow it would be a grey smudge.
    dust.By([&](float x, float y) {
        const Pixel& under = canvas.At(Floor(x), Floor(y));
        return Smooth(3, 15, inside.Sample(x, y)) * Smooth(0.2f, 0.4f, under.g);
    });
    canvas.Cover(dust.Subtract(cloth).Subtract(roll), Mix(palette::Bone, palette::Mist, 0.08f), 0.62f);
}

static void Lace(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const Mask cloth = Sleeve(canvas, limb, 0.34f, 1.2f, 1.4f, 5, seed);
    PaintCloth(canvas, cloth, {Mix(palette::Moss, palette::Slate, 0.35f), palette::Ink, 1.2f, 0.8f, 1.2f}, 1,
               seed);
    const LinearColour dark = Mix(palette::Moss * 0.5f, palette::Ink, 0.5f);
    ShadeRound(canvas, limb, cloth, 1.3f, dark, 0.9f, seed + 30);
    PaintFolds(canvas, limb,
               {{0.40f, -1.0f, 0.47f, 0.1f, 0.6f},
                {0.43f, 1.0f, 0.50f, 0.2f, 0.8f},
                {0.50f, -1.0f, 0.55f, -0.1f, 0.7f},
                {0.56f, 1.0f, 0.60f, 0.0f, 0.8f},
                {0.60f, -1.0f, 0.63f, -0.2f, 0.6f}},
               1.3f, 22, cloth, dark, Mix(palette::Moss, palette::Mist, 0.2f), seed + 2);
    // A cuff of lace: scallops, each with its own eyes.
    Shape scallops;
    Mask threads(canvas.Width(), canvas.Height());
    Pen pen(threads, SketchPaper(), {.width = 2.6f, .wobble = 0.6f, .skip = 0.1f}, seed + 3);
    for (int i = -3; i <= 3; i++) {
        // They lie round the wrist: closer to each other and narrower towards its outlines.
        const float angle = float(i) * 0.43f, u = Sin(angle) * 1.2f, narrow = 0.35f + 0.65f * Cos(angle);
        const Vector2 p = limb.At(0.285f, u) + DirectionAt(limb.along, 0.285f) * (18 * Cos(angle) - 12);
        const float turn = Angle(limb.Across(0.285f));
        scallops.Add(Ellipse(p, 19 * narrow, 24, turn));
        pen.Stroke(Ellipse(p, 11 * narrow, 15, turn), {0.6f, 0.8f, 0.5f});
        for (int k = 0; k < 5; k++)
            pen.Dot(p + limb.Across(0.285f) * (6 * narrow * Cos(1.2566f * float(k))) +
                        DirectionAt(limb.along, 0.285f) * (6 * Sin(1.2566f * float(k))),
                    1.6f);
        pen.Stroke(Through({limb.At(0.31f, u * 0.96f), limb.At(0.37f, u * 0.94f)}), {0.5f, 0.8f, 0.4f});
    }
    const Line band = limb.Ring(0.335f, 1.26f, 14);
    scallops.Add(Limb(band, 26, 30, 26));
    const Mask lace = Melted(canvas.Width(), canvas.Height(), scallops, 2);
    PaintCloth(canvas, lace, {palette::Bone, palette::Slate, 0.8f, 0.3f, 0.9f}, 0.7f, seed + 4);
    ShadeRound(canvas, limb, lace, 1.25f, Mix(palette::Slate, palette::Moss, 0.3f), 0.45f, seed + 31);
    pen.Stroke(limb.Ring(0.355f, 1.2f, 14), {0.7f, 0.9f, 0.6f});
    InkLines(canvas, threads, &lace, 0.8f);

    PaintMoth(canvas, limb, seed);
}

static void Leather(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const LinearColour hide = Mix(palette::Rust, palette::Ochre, 0.12f) * 0.85f;
    const LinearColour deep = Mix(palette::Ink, palette::Rust, 0.25f);
    const int width = canvas.Width(), height = canvas.Height();
    // A gauntlet's wide cuff, into whose end one looks: its inside first, then the sleeve that goes in there.
    constexpr float Top = 0.13f, End = 0.53f, Wide = 1.55f, Depth = 52;
    const Line opening = Opening(limb, End, Wide, Depth);
    const Mask hole = Filled(width, height, Shaken(opening, 3, 60, seed + 1));
    PaintCloth(canvas, hole, {Mix(hide, palette::Ink, 0.72f), palette::Ink, 0.6f, 0, 1.2f, palette::Rust, 0},
               1, seed + 30);
    const Mask cloth = Sleeve(canvas, limb, 0.5f, 1.12f, 1.3f, 6, seed);
    const LinearColour night = Mix(palette::Night, palette::Slate, 0.75f);
    PaintCloth(canvas, cloth, {night, palette::Ink, 0.7f, 0.8f, 1.2f, palette::Slate, 0}, 1, seed);
    ShadeRound(canvas, limb, cloth, 1.2f, palette::Ink, 0.6f, seed + 31);
    PaintFolds(canvas, limb,
               {{0.505f, -1.0f, 0.485f, 0.45f, 1.0f},
                {0.495f, 1.0f, 0.515f, -0.30f, 1.1f},
                {0.545f, -1.0f, 0.530f, 0.30f, 1.0f},
                {0.545f, 1.0f, 0.565f, -0.35f, 1.1f},
                {0.590f, -1.0f, 0.580f, 0.10f, 1.0f},
                {0.600f, 1.0f, 0.620f, -0.10f, 1.0f}},
               1.15f, 34, cloth, palette::Ink, Mix(palette::Slate, palette::Mist, 0.6f), seed + 32);
    // The cuff's shadow on it, deepest where the cloth comes out of the dark.
    const Vector2 on = DirectionAt(limb.along, End);
    const Mask soft = Mask(hole).Blur(3);
    Mask cast(width, height);
    cast.Each([&](float x, float y) {
            const auto within = [&](float reach) { return soft.Sample(x - reach * on.x, y - reach * on.y); };
            return 1 - 0.45f * within(26) - 0.35f * within(48) - 0.2f * within(70);
        })
        .Multiply(cloth)
        .Multiply(hole);
    canvas.Cover(cast, palette::Ink, 0.88f);
    const Shape shape = Limb(Part(limb.along, Top, End), limb.Half(Top) * 1.1f, limb.Half(0.33f) * 1.26f,
                             limb.Half(End) * Wide);
    Mask cuff = Melted(width, height, shape, 4);
    cuff.Fill(Opening(limb, Top, 1.1f, 13)).Shake(3, 60, seed + 1);
    cuff.Erase(opening);
    PaintCloth(canvas, cuff, {hide, deep, 0.9f, 0.6f, 1.25f}, 1, seed + 2);
    ShadeRound(canvas, limb, cuff, 1.3f, deep, 0.85f, seed + 33);
    Mask lines(width, height);
    Pen pen(lines, SketchPaper(), {.width = 4, .wobble = 1, .skip = 0.15f}, seed + 3);
    pen.Stroke(limb.Ring(0.165f, 1.2f, -12), {0.7f, 1, 0.5f});
    pen.Stroke(limb.Ring(0.185f, 1.2f, -12), {0.5f, 0.9f, 0.4f});
    pen.Stroke(limb.Ring(End - 0.022f, 1.55f, -Depth), {0.7f, 1, 0.5f});
    DrawFolds(pen, limb, 0.2f, 7, seed + 4);
    InkLines(canvas, lines, &cuff);
    // Its seam is laced, its border studded.
    Mask bright(canvas.Width(), canvas.Height());
    Pen thread(bright, SketchPaper(), {.width = 5, .skip = 0.1f}, seed + 5);
    for (float t = 0.22f; t < 0.36f; t += 0.04f) {
        thread.Stroke(Through({limb.At(t, 0.22f), limb.At(t + 0.035f, 0.42f)}), {0.7f, 1, 0.6f});
        thread.Stroke(Through({limb.At(t, 0.42f), limb.At(t + 0.035f, 0.22f)}), {0.7f, 1, 0.6f});
    }
    canvas.Cover(bright, palette::Parchment, 0.85f);
    Mask studs(canvas.Width(), canvas.Height()), spark(canvas.Width(), canvas.Height());
    Pen stud(studs, SketchPaper(), {.width = 3}, seed + 6),
        shine(spark, SketchPaper(), {.width = 2}, seed + 7);
    for (int i = -3; i <= 3; i++) {
        const float angle = float(i) * 0.44f, u = Sin(angle) * 1.42f;
        const Vector2 p = limb.At(0.475f, u) - DirectionAt(limb.along, 0.475f) * (Depth * Cos(angle));
        stud.Dot(p, 9);
        shine.Dot(p - Vector2{2, 2}, 4.6f);
    }
    canvas.Cover(studs, palette::Ink, 0.9f);
    canvas.Cover(spark, palette::Amber, 0.95f);
}

static void Wire(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    const LinearColour shade = Mix(Mix(palette::Slate, palette::Rust, 0.38f), palette::Mist, 0.12f);
    const LinearColour woven = Mix(palette::Ochre, palette::Parchment, 0.15f);
    constexpr float Mouth = 0.45f, Cuff = 0.525f, Wide = 1.24f, Depth = 34;
    Mask bare(width, height);
    const Vector2 wrist = limb.At(0.08f, 0), down = DirectionAt(limb.along, 0.2f);
    bare.Each(
            [&](float x, float y) {
                return Smooth(-50, 90, Dot(Vector2{x, y} - wrist, down));
            },
            2)
        .Multiply(canvas.Alpha());
    canvas.Glaze(bare, Mix(palette::Parchment, palette::Rust, 0.25f), 0.3f);
    ShadeRound(canvas, limb, bare, 1, shade, 0.75f, seed + 30);
    PaintOpening(canvas, limb, Mouth, Wide, Depth, Mix(palette::Rust, palette::Ink, 0.65f), seed + 31);
    const Mask cloth = OpenSleeve(canvas, limb, Cuff - 0.03f, Wide, 1.14f, Depth, 4, seed);
    Mask cuff =
        Melted(width, height,
               Limb(Part(limb.along, Mouth, Cuff), limb.Half(Mouth) * Wide,
                    limb.Half(0.5f * (Mouth + Cuff)) * (Wide + 0.02f), limb.Half(Cuff) * (Wide + 0.02f)),
               3);
    cuff.Fill(Opening(limb, Cuff, Wide + 0.02f, Depth)).Shake(2, 60, seed + 34);
    cuff.Erase(Opening(limb, Mouth, Wide, Depth));
    PaintCloth(canvas, cloth, {woven, palette::Rust, 0.5f, 0.5f, 1.2f}, 1, seed);
    // Checks that go round the arm as the cloth does: closer to each other towards its outlines.
    Mask checks(width, height), threads(width, height);
    Pen thread(threads, SketchPaper(), {.width = 2.6f, .wobble = 0.8f, .skip = 0.1f}, seed + 32);
    for (float t = Cuff + 0.035f; t < 0.98f; t += 0.075f) {
        checks.Screen(
            Filled(width, height, Limb(limb.Turn(t, Wide + 0.04f, 1.4f * Depth, 0), 6, 11, 6)).Scale(0.6f));
        thread.Stroke(limb.Turn(t + 0.0375f, Wide + 0.04f, 1.4f * Depth, 0), {0.8f, 0.9f, 0.8f});
    }
    constexpr float CheckApart = 0.42f; // radians round the arm
    for (int i = -3; i <= 3; i++) {
        const auto lengthwise = [&](float angle) {
            std::vector<Vector2> points;
            for (const float t : {Mouth - 0.01f, 0.5f, 0.6f, 0.7f, 0.85f, 0.97f})
                points.push_back(limb.At(t, Sin(angle) * Wide) +
                                 DirectionAt(limb.along, t) * (Depth * Cos(angle)));
            return Through(points);
        };
        const float angle = CheckApart * float(i), half = 2 + 9 * Cos(angle);
        checks.Screen(Filled(width, height, Limb(lengthwise(angle), half, half, half)).Scale(0.6f));
        thread.Stroke(lengthwise(angle + 0.5f * CheckApart), {0.8f, 0.9f, 0.8f});
    }
    // The folds draw them in and out.
    canvas.Glaze(checks.Shake(5, 46, seed + 36).Multiply(cloth), Mix(palette::Rust, palette::Ink, 0.25f),
                 0.8f);
    canvas.Cover(threads.Shake(5, 46, seed + 36).Multiply(cloth), Mix(palette::Bone, palette::Ochre, 0.2f),
                 0.4f);
    const LinearColour dark = Mix(palette::Rust, palette::Ink, 0.55f);
    ShadeRound(canvas, limb, cloth, Wide, dark, 0.8f, seed + 33);
    PaintFolds(canvas, limb,
               {{0.535f, -1.0f, 0.56f, 0.1f, 0.9f},
                {0.545f, 1.0f, 0.59f, 0.0f, 1.0f},
                {0.585f, -1.0f, 0.62f, 0.1f, 0.9f},
                {0.61f, 1.0f, 0.65f, 0.1f, 0.9f}},
               Wide, Depth, cloth, dark, Mix(woven, palette::Bone, 0.4f), seed + 3);
    // A plain cuff, buttoned, and its shadow on the sleeve that is gathered into it.
    const Mask cuffs = Mask(cuff).Blur(3);
    const Vector2 on = DirectionAt(limb.along, Cuff);
    Mask shadow(width, height);
    shadow.Each([&](float x, float y) { return cuffs.Sample(x - 12 * on.x - 4, y - 12 * on.y); });
    canvas.Glaze(shadow.Blur(2).Multiply(cloth), dark, 0.8f);
    const LinearColour linen = Mix(palette::Parchment, palette::Bone, 0.4f);
    PaintCloth(canvas, cuff, {linen, palette::Rust, 0.4f, 0.3f, 1.1f}, 1, seed + 35);
    ShadeRound(canvas, limb, cuff, Wide, Mix(palette::Slate, palette::Rust, 0.45f), 0.75f, seed + 37);
    Mask seams(width, height), button(width, height);
    Pen pen(seams, SketchPaper(), {.width = 2.6f, .wobble = 0.8f, .skip = 0.2f}, seed + 2);
    for (const float t : {Mouth + 0.012f, Cuff - 0.012f})
        pen.Stroke(limb.Turn(t, Wide, Depth, 0), {0.6f, 0.9f, 0.5f});
    const auto onCuff = [&](float t, float u) {
        return limb.At(t, u * Wide) + DirectionAt(limb.along, t) * (Depth * Sqrt(1 - u * u));
    };
    pen.Stroke(
        Through({onCuff(Mouth + 0.004f, -0.5f), onCuff(0.5f * (Mouth + Cuff), -0.51f), onCuff(Cuff, -0.5f)}),
        {0.9f, 0.9f, 0.7f});
    const Vector2 buttonAt = onCuff(0.5f * (Mouth + Cuff), -0.36f);
    pen.Stroke(Ellipse(buttonAt, 8, 8), {0.9f, 1, 0.9f});
    button.Fill(Ellipse(buttonAt, 8, 8));
    canvas.Cover(button, Mix(palette::Rust, palette::Ink, 0.35f));
    InkLines(canvas, seams, &cuff);
    // A wire wound round the wrist, whose end looks for somebody. It presses into the flesh, and its turns go on behind the
    // arm, a little beyond whose outlines one sees them.
    Mask wire(canvas.Width(), canvas.Height());
    Pen copper(wire, SketchPaper(), {.width = 7, .least = 0.6f, .wobble = 0.6f, .skip = 0}, seed + 4);
    constexpr float FirstTurn = 0.17f, TurnApart = 0.032f, Beyond = 1.35f, Bend = 64, Thick = 4;
    for (int turn = 0; turn < 5; turn++)
        copper.Stroke(limb.Turn(FirstTurn + TurnApart * float(turn), Beyond, Bend, 0.5f * TurnApart),
                      {1, 1, 1});
    wire.Multiply(canvas.Alpha().Outside(3 * Thick).Curve(Thick + 0.5f, Thick - 0.5f));
    // Its shadow on the skin, and the flesh that swells between the turns.
    Mask below(canvas.Width(), canvas.Height()), above(canvas.Width(), canvas.Height());
    const Vector2 way = DirectionAt(limb.along, FirstTurn);
    below.Each([&](float x, float y) { return wire.Sample(x - 6 * way.x - 2, y - 6 * way.y - 2); });
    above.Each([&](float x, float y) { return wire.Sample(x + 8 * way.x, y + 8 * way.y); });
    canvas.Glaze(below.Blur(2.4f).Multiply(canvas.Alpha()), Mix(palette::Slate, palette::Rust, 0.4f), 0.9f);
    const Mask inside = canvas.Alpha().Inside(30);
    above.Blur(2.4f).By([&](float x, float y) { return Smooth(6, 24, inside.Sample(x, y)); });
    canvas.Cover(above, palette::Bone, 0.25f);
    // From where the first turn comes round the arm.
    const Line first = limb.Turn(FirstTurn, Beyond, Bend, 0.5f * TurnApart);
    const Mask arm = canvas.Alpha();
    Vector2 start = first.front();
    for (float t = 0; arm.Sample(start.x, start.y) < 0.5f && t < 0.5f; t += 0.01f)
        start = PointAt(first, t);
    const Line aerial =
        Through({start, start + Vector2{-46, -4}, start + Vector2{-102, 2}, start + Vector2{-130, -54},
                 start + Vector2{-190, -62}, start + Vector2{-220, -122}});
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
