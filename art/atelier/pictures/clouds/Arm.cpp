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
    return Through({sight({8, 262}), sight({14, 330}), sight({6, 430}), Vector2{496 - arm.bend * 0.6f, 790},
                    Vector2{400 - arm.bend, 1100}});
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

static void PaintPalm(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    const float g = arm.girth;
    const Line along = Forearm(sight, arm);
    Shape palm = Limb(along, 66 * g, 76 * g, 122 * g);
    palm.Add(Round(sight(Widened(arm, {{-80, 74},
                                       {-44, 58},
                                       {4, 52},
                                       {54, 58},
                                       {96, 84},
                                       {112, 136},
                                       {109, 196},
                                       {95, 256},
                                       {74, 318},
                                       {8, 334},
                                       {-60, 322},
                                       {-92, 276},
                                       {-118, 218},
                                       {-124, 166},
                                       {-104, 118}}))));
    const Mask hand = Melted(canvas.Width(), canvas.Height(), palm, 7);
    PaintBody(canvas, hand, Skin(arm), 1, arm.seed);
    // The heel of the hand and the ball of the thumb stand out; the hollow between them is dark.
    PaintHollow(canvas, sight, arm, {{-38, 112}, {6, 176}, {6, 262}}, 30, 0.5f, arm.seed + 60);
    PaintHollow(canvas, sight, arm, {{-52, 300}, {6, 312}, {66, 300}}, 12, 0.55f, arm.seed + 61);
    PaintHollow(canvas, sight, arm, {{20, 340}, {24, 420}, {4, 520}}, 13, 0.35f, arm.seed + 62);
    Flush(canvas, sight, {-92 * g, 210}, 66, 0.2f);
    Flush(canvas, sight, {84 * g, 232}, 56, 0.18f);
    Flush(canvas, sight, {20 * g, 80}, 60, 0.14f);
}

// A finger of a hand of common width: the line from the palm to the tip, and its half width at each point.
struct HandFinger {
    std::vector<Vector2> points;
    std::vector<float> radii;
};

// The four fingers: little finger, ring finger, middle finger, forefinger.
static std::vector<HandFinger> FingersOf(const Arm& arm)
{
    const float off = 66 * arm.spread;
    HandFinger little = {{{78, 118},
                          {104 + off * 0.25f, 66},
                          {140 + off * 0.5f, 22},
                          {158 + off * 0.7f, -22},
                          {156 + off * 0.8f, -56}},
                         {23, 21, 21, 18.5f, 15}};
    HandFinger ring = {{{44, 96}, {54, 40}, {64, -20}, {62, -80}}, {24, 22.5f, 22, 18}};
    if (arm.gesture == Gesture::Together) {
        little = {{{80, 122}, {92, 76}, {102, 20}, {104, -34}}, {22, 21, 20.5f, 17}};
    } else if (arm.gesture == Gesture::Curled) {
        little = {{{92, 104}, {116, 92}, {118, 124}, {92, 152}, {66, 156}}, {20, 23, 22, 19, 15}};
        ring = {{{46, 92}, {66, 62}, {72, 92}, {56, 128}, {34, 142}}, {22, 24, 23, 21, 17}};
    } else if (arm.gesture == Gesture::Fan) {
        little = {{{84, 140}, {124, 104}, {176, 80}, {220, 72}, {246, 56}}, {22, 20, 19, 17, 13}};
        ring = {{{52, 100}, {92, 48}, {134, 10}, {164, -34}, {170, -70}}, {24, 22, 21, 19, 15}};
    }
    return {
        little,
        ring,
        {{{0, 90}, {2, 30}, {4, -30}, {2, -90}}, {25, 23.5f, 23, 18}},
        {{{-48, 100}, {-56, 40}, {-58, -20}, {-50, -80}}, {25, 23, 22, 18}},
    };
}

static void PaintFingers(Canvas& canvas, const Sight& sight, const Arm& arm,
                         const std::vector<HandFinger>& fingers)
{
    for (size_t i = 0; i < fingers.size(); i++) {
        std::vector<float> radii = fingers[i].radii;
        for (float& r : radii)
            r *= arm.girth;
        Around(canvas, sight(Widened(arm, fingers[i].points)), 60, [&](Canvas& part, Vector2 origin) {
            const Sight here = sight.From(origin);
            const std::vector<Vector2> points = here(Widened(arm, fingers[i].points));
            const Mask finger = Melted(part.Width(), part.Height(), Sausage(points, radii), 2.5f);
            Mask root =
                Root(part, points[0] + (points[1] - points[0]) * 0.12f, radii[0] * 1.3f, radii[0] * 2.1f);
            root.Multiply(part.Alpha());
            PaintBody(part, finger, Skin(arm), 1, arm.seed + 10 + 10 * uint32_t(i), &root);
        });
        Flush(canvas, sight, Widened(arm, {fingers[i].points.back()})[0], 26, 0.35f);
    }
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
    draw({{-66, 104}, {-26, 138}, {4, 200}, {-4, 276}}, {0.7f, 1, 0.1f});
    draw({{-70, 112}, {-20, 128}, {40, 158}, {82, 204}}, {0.6f, 0.9f, 0});
    draw({{104, 138}, {62, 130}, {14, 106}, {-6, 84}}, {0.7f, 1, 0.1f});
    draw({{22, 270}, {18, 210}, {8, 150}}, {0.1f, 0.6f, 0});
    pen.nib.width = 2.6f;
    draw({{-54, 318}, {-10, 328}, {64, 316}}, {0.2f, 1, 0.1f});
    draw({{-50, 330}, {0, 338}, {44, 332}}, {0.1f, 0.8f, 0});
    draw({{-6, 350}, {-2, 390}, {-14, 450}}, {0.1f, 0.7f, 0});
    draw({{16, 348}, {20, 400}, {6, 470}}, {0.1f, 0.6f, 0});
    for (const float y : {66.0f, 72.0f}) { // where the fingers begin
        draw({{-76, y + 8}, {-54, y - 2}, {-34, y}});
        draw({{-22, y - 6}, {0, y - 12}, {22, y - 6}});
        draw({{32, y}, {52, y - 4}, {74, y + 8}});
    }
    // Joints of the fingers that are seen beside the card or in the palm, and the sinews of the wrist.
    const auto joint = [&](const HandFinger& finger, size_t knuckle) {
        const Vector2 at = finger.points[knuckle],
                      way = Normalised(finger.points[knuckle + 1] - finger.points[knuckle - 1]);
        const Vector2 across = Vector2{-way.y, way.x} * (finger.radii[knuckle] * 0.82f);
        for (const float step : {-3.5f, 3.0f})
            draw({at - across + way * step, at + way * (step + 2.5f), at + across + way * step});
    };
    const HandFinger &little = fingers[0], &ring = fingers[1];
    if (arm.gesture != Gesture::Together) {
        joint(little, 2);
        joint(little, 3);
    }
    if (arm.gesture == Gesture::Curled || arm.gesture == Gesture::Fan) {
        joint(ring, 2);
        joint(ring, 3);
    }
    pen.nib.width = 3;
    draw({{-22, 344}, {-20, 382}, {-34, 436}}, {0, 0.8f, 0});
    draw({{34, 340}, {40, 386}, {30, 440}}, {0, 0.7f, 0});
    canvas.Cover(creases, Mix(palette::Ink, palette::Rust, 0.15f), 0.8f);
}

void PaintHand(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    const std::vector<HandFinger> fingers = FingersOf(arm);
    PaintPalm(canvas, sight, arm);
    PaintFingers(canvas, sight, arm, fingers);
    DrawCreases(canvas, sight, arm, fingers);
}

void PaintThumb(Canvas& whole, const Sight& far, const Arm& arm)
{
    const float s = far.scale, g = arm.girth;
    const Stuff skin = Skin(arm);
    const std::vector<Vector2> way = {{-72, 214}, {-106, 150}, {-114, 84}, {-98, 24}, {-78, -12}};
    std::vector<float> radii = {44, 34, 27, 26, 19};
    for (float& r : radii)
        r *= g * s;
    Around(whole, far(way), 84 * s, [&](Canvas& canvas, Vector2 origin) {
        const Sight sight = far.From(origin);
        const Mask thumb = Melted(canvas.Width(), canvas.Height(), Sausage(sight(way), radii), 2.5f * s);
        Mask root = Root(canvas, sight({-68, 208}), 56 * g * s, 110 * g * s);
        root.Multiply(canvas.Alpha());
        // Its shadow on the card.
        const Vector2 cast = sight({9, 7}) - sight({0, 0});
        Mask shadow(canvas.Width(), canvas.Height());
        shadow.Each([&](float x, float y) { return thumb.Sample(x - cast.x, y - cast.y); })
            .Blur(4 * s)
            .Subtract(thumb);
        shadow.Multiply(canvas.Alpha()).Subtract(Root(canvas, sight({-76, 190}), 100 * s, 150 * s));
        canvas.Glaze(shadow, Mix(palette::Slate, palette::Rust, 0.3f), 0.75f);

        PaintBody(canvas, thumb, skin, s, arm.seed + 90, &root);
        Flush(canvas, sight, way.back(), 34, 0.5f);
        Flush(canvas, sight, way[2], 30, 0.25f);

        Mask lines(canvas.Width(), canvas.Height());
        Pen pen(lines, SketchPaper(), {.width = 2.6f * s, .wobble = 0.6f * s, .skip = 0.2f, .pool = 0.1f},
                arm.seed + 95);
        // The joint, and the nail.
        for (const float y : {0.0f, 6.0f, 13.0f})
            pen.Stroke(Through(sight({{-128 + y * 0.3f, 70 + y}, {-112, 65 + y}, {-98, 69 + y}})),
                       {0.1f, 0.8f, 0.1f});
        const Vector2 bed = sight({-83, -5}), up = sight({-73, -23}) - bed, side = sight({-70, 2}) - bed;
        std::vector<Vector2> nail;
        for (const Vector2 p :
             {Vector2{-0.92f, -0.5f}, Vector2{-0.98f, 0.3f}, Vector2{-0.6f, 0.95f}, Vector2{0, 1.12f},
              Vector2{0.6f, 0.95f}, Vector2{0.98f, 0.3f}, Vector2{0.92f, -0.5f}, Vector2{0.5f, -0.8f},
              Vector2{0, -0.88f}, Vector2{-0.5f, -0.8f}})
            nail.push_back(bed + side * p.x + up * p.y);
        const Mask plate = Filled(canvas.Width(), canvas.Height(), Round(nail)).Blur(0.6f * s);
        canvas.Cover(plate, Mix(palette::Bone, palette::Parchment, 0.2f), 0.7f);
        pen.Stroke(Round(nail), {0.5f, 0.9f, 0.3f});
        pen.nib.width = 1.6f * s;
        pen.Stroke(Through({nail[2] - up * 0.12f, nail[3] - up * 0.1f, nail[4] - up * 0.12f}),
                   {0.3f, 0.8f, 0.2f});
        canvas.Cover(lines.Multiply(thumb), palette::Ink, 0.85f);
    });
}

} // namespace atelier
