// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Arm.h"

#include "art/atelier/Wash.h"

namespace atelier
{

static Stuff Skin(const Arm& arm)
{
    const LinearColour pale = Mix(palette::Bone, palette::Parchment, 0.35f);
    const LinearColour weathered = Mix(Mix(palette::Parchment, palette::Ochre, 0.3f), palette::Rust, 0.16f);
    return {.light = Mix(pale, weathered, arm.tan),
            .shade = Mix(Mix(palette::Slate, palette::Rust, 0.38f), palette::Mist, 0.12f),
            .depth = 1.15f};
}

// A warm touch of wash: joints, fingertips, the ball of the thumb. It takes on what is painted already.
static void Flush(Canvas& canvas, const Sight& sight, Vector2 place, float radius, float strength)
{
    const float r = radius * sight.scale;
    Around(canvas, {sight(place)}, 2.6f * r, [&](Canvas& part, Vector2 origin) {
        const Vector2 at = sight(place) - origin;
        Mask spot(part.Width(), part.Height());
        spot.Each([&](float x, float y) { return Bell(Length(Vector2{x, y} - at) / r); }, 2);
        part.Glaze(spot, Mix(palette::Rust, palette::Ochre, 0.35f), strength);
    });
}

// Where a part grows out of another that is painted already: a soft spot.
static Mask Root(const Canvas& canvas, Vector2 at, float inner, float outer)
{
    return Mask(canvas.Width(), canvas.Height())
        .Each(
            [&](float x, float y) {
                return Smooth(outer, inner, Length(Vector2{x, y} - at));
            },
            2);
}

Line Forearm(const Sight& sight, const Arm& arm)
{
    // It bends at the wrist only: from there it is straight.
    const Vector2 wrist = sight({6, 322}), end = {410 - arm.bend, 1100};
    return Through({sight({4, 256}), sight({5, 290}), Mix(wrist, end, 0.02f), Mix(wrist, end, 0.1f),
                    Mix(wrist, end, 0.5f), end});
}

float ForearmHalf(const Arm& arm, float t)
{
    // Narrow at the wrist, broad where the muscles are.
    const float from = Mix(66, 55, Smooth(0, 0.13f, t));
    return arm.girth * (from + 54 * Smooth(0.1f, 0.75f, t) + 10 * Smooth(0.6f, 1, t));
}

// The points of a hand of common width, as the arm's girth has them.
static std::vector<Vector2> Widened(const Arm& arm, std::vector<Vector2> points)
{
    for (Vector2& p : points)
        p.x *= arm.girth;
    return points;
}

// A soft dark stroke, in the colour of the skin's shade.
static void PaintHollow(Canvas& canvas, const Sight& sight, const Arm& arm,
                        const std::vector<Vector2>& points, float radius, float density, uint32_t seed)
{
    Around(canvas, sight(Widened(arm, points)), 2.5f * radius, [&](Canvas& part, Vector2 origin) {
        const Shape shape =
            Sausage(sight.From(origin)(Widened(arm, points)), {radius * 0.3f, radius, radius * 0.4f});
        const Mask dark = Filled(part.Width(), part.Height(), shape).Blur(radius * 0.45f);
        Wash(part, SketchPaper(), dark,
             {.pigment = Skin(arm).shade,
              .density = density,
              .pool = 0,
              .bloomSize = 60,
              .stray = 3,
              .bleed = 0},
             seed);
    });
}

// The body of the forearm, as far as it is seen.
static Shape ForearmBody(const Sight& sight, const Arm& arm)
{
    const Line along = Forearm(sight, arm);
    std::vector<Vector2> points;
    std::vector<float> halves;
    for (int i = 0; i <= 10; i++) {
        points.push_back(PointAt(along, float(i) / 10));
        halves.push_back(ForearmHalf(arm, float(i) / 10));
    }
    return Sausage(points, halves);
}

static void PaintPalm(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    const float g = arm.girth;
    Shape palm = ForearmBody(sight, arm);
    palm.Add(Round(
        sight(Widened(arm, {{-84, 96},  {-60, 74},  {-36, 78},  {-14, 64},   {10, 72},   {34, 74},  {56, 88},
                            {78, 104},  {99, 122},  {105, 170}, {100, 226},  {84, 282},  {61, 322}, {0, 336},
                            {-52, 322}, {-78, 288}, {-98, 246}, {-104, 206}, {-92, 160}, {-90, 126}}))));
    // The bone of the wrist on the little finger's side.
    palm.Add(Ellipse(sight({51 * g, 352}), 11 * g, 24 * g, sight.turn + 0.15f));
    const Mask hand = Melted(canvas.Width(), canvas.Height(), palm, 4);
    PaintBody(canvas, hand, Skin(arm), 1, arm.seed);
    // The ball of the thumb and the heel of the hand stand out, and so do the pads below the fingers; between them it is
    // dark.
    PaintHollow(canvas, sight, arm, {{-44, 118}, {-6, 178}, {2, 268}}, 26, 0.55f, arm.seed + 60);
    PaintHollow(canvas, sight, arm, {{-34, 124}, {20, 136}, {76, 150}}, 13, 0.4f, arm.seed + 63);
    PaintHollow(canvas, sight, arm, {{-46, 306}, {6, 318}, {58, 306}}, 12, 0.6f, arm.seed + 61);
    PaintHollow(canvas, sight, arm, {{12, 344}, {14, 420}, {-4, 520}}, 12, 0.4f, arm.seed + 62);
    PaintHollow(canvas, sight, arm, {{44, 356}, {50, 380}, {40, 430}}, 9, 0.45f, arm.seed + 64);
    Flush(canvas, sight, {-72 * g, 232}, 56, 0.22f);
    Flush(canvas, sight, {78 * g, 222}, 50, 0.2f);
    for (const Vector2 pad : {Vector2{-58, 104}, Vector2{-12, 94}, Vector2{34, 102}, Vector2{76, 132}})
        Flush(canvas, sight, {pad.x * g, pad.y}, 24, 0.2f);
}

// A finger of a hand of common width: its root in the palm, its two joints and its tip, and half its width at the root.
struct HandFinger {
    Vector2 root, middle, end, tip;
    float half;
    bool folded =
        false; // in the palm: what is seen of it begins at the middle joint, and its nail looks at us
};

// The way along a finger and half its width there. It bends at its joints, is a little thicker in them, and tapers.
struct FingerBody {
    std::vector<Vector2> way;
    std::vector<float> halves;
};

static FingerBody BodyOf(const HandFinger& finger)
{
    FingerBody body;
    const auto add = [&](Vector2 a, Vector2 b, float t, float half) {
        body.way.push_back(Mix(a, b, t));
        body.halves.push_back(half * finger.half);
    };
    if (!finger.folded) {
        add(finger.root, finger.middle, 0, 1.06f);
        add(finger.root, finger.middle, 0.45f, 0.95f);
        add(finger.root, finger.middle, 0.88f, 0.97f);
    }
    add(finger.middle, finger.end, finger.folded ? 0 : 0.14f, 0.97f);
    add(finger.middle, finger.end, 0.5f, 0.87f);
    add(finger.middle, finger.end, 0.88f, 0.87f);
    add(finger.end, finger.tip, 0.14f, 0.86f);
    add(finger.end, finger.tip, 0.55f, 0.82f);
    add(finger.end, finger.tip, 1, 0.58f);
    return body;
}

// Forefinger, middle finger, ring finger, little finger.
static std::vector<HandFinger> FingersOf(const Arm& arm)
{
    HandFinger fore = {{-60, 100}, {-70, 8}, {-66, -50}, {-56, -98}, 25};
    HandFinger middle = {{-13, 92}, {-12, -10}, {-8, -74}, {-2, -122}, 26};
    HandFinger ring = {{34, 98}, {50, 6}, {60, -54}, {64, -100}, 24.5f};
    HandFinger little = {{78, 126}, {104, 56}, {116, 14}, {120, -26}, 21.5f};
    switch (arm.gesture) {
    case Gesture::Loose:
        little = {{60, 146}, {122 + 8 * arm.spread, 54}, {150, -4}, {112, -38}, 22.5f};
        break;
    case Gesture::Together:
        ring = {{34, 98}, {40, 4}, {44, -54}, {46, -100}, 25};
        little = {{79, 124}, {92, 52}, {98, 8}, {98, -30}, 22};
        break;
    case Gesture::Curled:
        ring = {{34, 98}, {42, 72}, {38, 122}, {22, 156}, 29, true};
        little = {{80, 126}, {88, 98}, {84, 142}, {68, 172}, 26, true};
        break;
    case Gesture::Fan:
        ring = {{36, 98}, {84, 18}, {108, -34}, {114, -80}, 24};
        little = {{58, 140}, {138, 86}, {174, 66}, {204, 38}, 22};
        break;
    }
    return {fore, middle, ring, little};
}

// A nail: the middle of its bed, the way to its end and the way to its side, in pixels of the canvas.
static void DrawNail(Canvas& canvas, Mask& lines, Vector2 bed, Vector2 up, Vector2 side, float scale,
                     uint32_t seed)
{
    std::vector<Vector2> nail;
    for (const Vector2 p :
         {Vector2{-0.92f, -0.5f}, Vector2{-0.98f, 0.3f}, Vector2{-0.6f, 0.95f}, Vector2{0, 1.12f},
          Vector2{0.6f, 0.95f}, Vector2{0.98f, 0.3f}, Vector2{0.92f, -0.5f}, Vector2{0.5f, -0.8f},
          Vector2{0, -0.88f}, Vector2{-0.5f, -0.8f}})
        nail.push_back(bed + side * p.x + up * p.y);
    const Mask plate = Filled(canvas.Width(), canvas.Height(), Round(nail)).Blur(0.6f * scale);
    canvas.Cover(plate, Mix(palette::Bone, palette::Parchment, 0.2f), 0.7f);
    Pen pen(lines, SketchPaper(), {.width = 2.6f * scale, .wobble = 0.6f * scale, .skip = 0.2f, .pool = 0.1f},
            seed);
    pen.Stroke(Round(nail), {0.5f, 0.9f, 0.3f});
    pen.nib.width = 1.6f * scale;
    pen.Stroke(Through({nail[2] - up * 0.12f, nail[3] - up * 0.1f, nail[4] - up * 0.12f}),
               {0.3f, 0.8f, 0.2f});
}

static void PaintFinger(Canvas& canvas, const Sight& sight, const Arm& arm, const HandFinger& finger,
                        uint32_t seed)
{
    FingerBody body = BodyOf(finger);
    for (float& half : body.halves)
        half *= arm.girth;
    Around(canvas, sight(Widened(arm, body.way)), 60, [&](Canvas& part, Vector2 origin) {
        const Sight here = sight.From(origin);
        const std::vector<Vector2> points = here(Widened(arm, body.way));
        const Mask shape = Melted(part.Width(), part.Height(), Sausage(points, body.halves), 1.6f);
        if (finger.folded) { // it lies on the palm, and throws a shadow there
            Mask shadow(part.Width(), part.Height());
            shadow.Each([&](float x, float y) { return shape.Sample(x - 8, y - 10); })
                .Blur(5)
                .Subtract(shape)
                .Multiply(part.Alpha());
            part.Glaze(shadow, Mix(palette::Slate, palette::Rust, 0.3f), 0.8f);
            PaintBody(part, shape, Skin(arm), 1, seed);
            Mask lines(part.Width(), part.Height());
            const Vector2 tip = points.back(), way = Normalised(tip - points[points.size() - 2]),
                          across = Vector2{-way.y, way.x};
            DrawNail(part, lines, tip - way * (finger.half * 0.14f), way * (finger.half * 0.55f),
                     across * (finger.half * 0.42f), 1, seed + 3);
            Pen pen(lines, SketchPaper(), {.width = 3, .wobble = 0.8f, .skip = 0.15f, .pool = 0.1f},
                    seed + 4);
            for (const float down : {0.5f, 0.8f}) { // on the knuckle
                const Vector2 a =
                    points[0] + Normalised(points[1] - points[0]) * (finger.half * (down - 0.4f));
                pen.Stroke(Through({a + Vector2{-13, 1}, a + Vector2{0, 5}, a + Vector2{13, 0}}),
                           {0.1f, 0.8f, 0.1f});
            }
            part.Cover(lines.Multiply(shape), palette::Ink, 0.8f);
            return;
        }
        Mask root = Root(part, points[0] + (points[1] - points[0]) * 0.1f, body.halves[0] * 1.15f,
                         body.halves[0] * 1.75f);
        root.Multiply(part.Alpha());
        PaintBody(part, shape, Skin(arm), 1, seed, &root);
    });
    Flush(canvas, sight, Widened(arm, {finger.tip})[0], 22, 0.35f);
    Flush(canvas, sight, Widened(arm, {finger.middle})[0], 16, 0.2f);
}

// The lines of the palm, the creases of joints and wrist, the sinews.
static void DrawCreases(Canvas& canvas, const Sight& sight, const Arm& arm,
                        const std::vector<HandFinger>& fingers)
{
    Mask creases(canvas.Width(), canvas.Height());
    Pen pen(creases, SketchPaper(), {.width = 3.6f, .wobble = 1, .skip = 0.25f, .pool = 0.1f}, arm.seed + 80);
    const auto draw = [&](const std::vector<Vector2>& points, Press press = {0.25f, 1, 0.1f}) {
        pen.Stroke(Through(sight(Widened(arm, points))), press);
    };
    draw({{-80, 122}, {-40, 148}, {-10, 204}, {-16, 286}}, {0.7f, 1, 0.1f});
    draw({{-82, 130}, {-30, 140}, {30, 166}, {76, 208}}, {0.6f, 0.9f, 0});
    if (arm.gesture != Gesture::Curled)
        draw({{98, 150}, {56, 144}, {14, 124}, {-16, 98}}, {0.7f, 1, 0.1f});
    draw({{16, 274}, {12, 214}, {2, 160}}, {0.1f, 0.6f, 0});
    pen.nib.width = 2.6f;
    draw({{-46, 316}, {-4, 327}, {54, 315}}, {0.2f, 1, 0.1f});
    draw({{-42, 329}, {2, 338}, {42, 331}}, {0.1f, 0.8f, 0});
    draw({{-12, 352}, {-12, 394}, {-26, 452}}, {0.1f, 0.8f, 0}); // two sinews
    draw({{10, 350}, {12, 400}, {-4, 470}}, {0.1f, 0.8f, 0});
    draw({{47, 334}, {56, 348}, {54, 366}}, {0.1f, 0.8f, 0}); // round the bone of the wrist
    for (const HandFinger& finger : fingers) {
        if (finger.folded)
            continue;
        const Vector2 way = Normalised(finger.middle - finger.root),
                      side = Vector2{-way.y, way.x} * (finger.half * 0.86f);
        const Vector2 at = finger.root + way * (finger.half * 0.95f); // where the finger begins
        for (const float step : {-3.0f, 4.0f})
            draw({at - side + way * step, at + way * (step - 4), at + side + way * step});
        for (const Vector2 joint : {finger.middle, finger.end}) {
            const bool last = joint.x == finger.end.x && joint.y == finger.end.y;
            const Vector2 on = Normalised((last ? finger.tip : finger.end) -
                                          (last ? finger.middle : finger.root)),
                          across = Vector2{-on.y, on.x} * (finger.half * 0.74f);
            for (const float step : {-3.0f, 3.0f})
                draw({joint - across + on * step, joint + on * (step + 2.5f), joint + across + on * step},
                     {0.1f, 0.8f, 0.1f});
        }
    }
    canvas.Cover(creases.Multiply(canvas.Alpha()), Mix(palette::Ink, palette::Rust, 0.15f), 0.8f);
}

void PaintHand(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    const std::vector<HandFinger> fingers = FingersOf(arm);
    PaintPalm(canvas, sight, arm);
    for (size_t i = 0; i < fingers.size(); i++)
        PaintFinger(canvas, sight, arm, fingers[i], arm.seed + 10 + 10 * uint32_t(i));
    DrawCreases(canvas, sight, arm, fingers);
    // The card's shadow on what is behind it.
    const float a = sight.cardHalf;
    const Mask shadow =
        Filled(canvas.Width(), canvas.Height(),
               Straight(
                   sight({{-a + 8, -2 * a}, {a + 10, -2 * a}, {a + 10, 13}, {-a + 8, 13}, {-a + 8, -2 * a}})))
            .Blur(6)
            .Multiply(canvas.Alpha());
    canvas.Glaze(shadow, Mix(palette::Slate, palette::Rust, 0.3f), 0.9f);
}

// What lies before the card: a body that grows out of what is painted about `root`, its shadow on the card, and its nail.
struct Digit {
    std::vector<Vector2> way;
    std::vector<float> halves;
    Vector2 root;
    float rootInner, rootOuter;
    Vector2 bed, up, side;      // of the nail
    std::vector<Vector2> joint; // a crease over it, drawn three times
};

static void PaintDigit(Canvas& whole, const Sight& far, const Arm& arm, const Digit& digit, uint32_t seed)
{
    const float s = far.scale;
    std::vector<float> halves = digit.halves;
    for (float& half : halves)
        half *= arm.girth * s;
    Around(whole, far(digit.way), 84 * s, [&](Canvas& canvas, Vector2 origin) {
        const Sight sight = far.From(origin);
        const Mask body =
            Melted(canvas.Width(), canvas.Height(), Sausage(sight(digit.way), halves), 2.2f * s);
        Mask root = Root(canvas, sight(digit.root), digit.rootInner * s, digit.rootOuter * s);
        root.Multiply(canvas.Alpha());
        const Vector2 cast = sight({9, 7}) - sight({0, 0});
        Mask shadow(canvas.Width(), canvas.Height());
        shadow.Each([&](float x, float y) { return body.Sample(x - cast.x, y - cast.y); })
            .Blur(4 * s)
            .Subtract(body);
        shadow.Multiply(canvas.Alpha())
            .Subtract(
                Root(canvas, sight(digit.root), 1.4f * digit.rootInner * s, 1.5f * digit.rootOuter * s));
        canvas.Glaze(shadow, Mix(palette::Slate, palette::Rust, 0.3f), 0.75f);

        PaintBody(canvas, body, Skin(arm), s, seed, &root);
        Flush(canvas, sight, digit.way.back(), 30, 0.45f);
        Mask lines(canvas.Width(), canvas.Height());
        Pen pen(lines, SketchPaper(), {.width = 2.6f * s, .wobble = 0.6f * s, .skip = 0.2f, .pool = 0.1f},
                seed + 5);
        for (int i = 0; i < 3 && !digit.joint.empty(); i++) {
            std::vector<Vector2> crease = digit.joint;
            for (Vector2& p : crease)
                p.y += 6.5f * float(i);
            pen.Stroke(Through(sight(crease)), {0.1f, 0.8f, 0.1f});
        }
        const Vector2 bed = sight(digit.bed);
        DrawNail(canvas, lines, bed, sight(digit.bed + digit.up) - bed, sight(digit.bed + digit.side) - bed,
                 s, seed + 6);
        canvas.Cover(lines.Multiply(body), palette::Ink, 0.85f);
    });
}

void PaintGrip(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    if (arm.gesture == Gesture::Loose) {
        const HandFinger little = FingersOf(arm)[3];
        const std::vector<Vector2> ends = Widened(arm, {little.middle, little.end, little.tip});
        const Vector2 way = Normalised(ends[2] - ends[1]), side = {-way.y, way.x};
        PaintDigit(
            canvas, sight, arm,
            {.way = {Mix(ends[0], ends[1], 0.86f), Mix(ends[1], ends[2], 0.16f), Mix(ends[1], ends[2], 0.6f),
                     ends[2]},
             .halves = {0.87f * little.half, 0.87f * little.half, 0.83f * little.half, 0.6f * little.half},
             .root = Mix(ends[0], ends[1], 0.8f),
             .rootInner = 13,
             .rootOuter = 24,
             .bed = ends[2] - way * 3,
             .up = way * 12,
             .side = side * 8.5f,
             .joint = {}},
            arm.seed + 70);
    }
    // The bone in the ball of the thumb, the joint, the last joint, the tip.
    PaintDigit(canvas, sight, arm,
               {.way = {{-46, 286},
                        {-76, 246},
                        {-106, 196},
                        {-117, 156},
                        {-119, 112},
                        {-116, 76},
                        {-106, 36},
                        {-93, 8},
                        {-80, -12}},
                .halves = {44, 45, 36, 28.5f, 26, 28.5f, 27, 24.5f, 17.5f},
                .root = {-48, 276},
                .rootInner = 54 * arm.girth,
                .rootOuter = 104 * arm.girth,
                .bed = {-85, -4},
                .up = {11, -18},
                .side = {12.5f, 7.5f},
                .joint = {{-134, 78}, {-116, 72}, {-102, 78}}},
               arm.seed + 90);
}

} // namespace atelier
