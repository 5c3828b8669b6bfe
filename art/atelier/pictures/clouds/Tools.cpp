// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Tools.h"

#include "art/atelier/Glow.h"
#include "art/atelier/Wash.h"

namespace atelier
{

// Where pole, pin and shaft run upright in the hand's frame.
constexpr float PoleX = 44, PinX = 24, ShaftX = 30;
// The planes in which they lie, as of DrawnHand::InFrontOf: what of the hand is nearer hides them. The fist
// round the pole leans: its little finger is farther away than its forefinger.
constexpr float PoleZ = 2, PoleSlope = 0.46f, PinZ = 34, ShaftZ = -84;

// clang-format off
static const Stuff Wood   = {Mix(palette::Ochre, palette::Rust, 0.45f) * 0.8f, Mix(palette::Ink, palette::Rust, 0.3f), 1.1f, 0.5f, 0.9f};
static const Stuff Oak    = {Mix(palette::Rust, palette::Slate, 0.45f) * 0.8f, Mix(palette::Ink, palette::Night, 0.3f), 1.1f, 0.5f, 0.9f};
static const Stuff Iron   = {Mix(palette::Slate, palette::Mist, 0.25f), palette::Ink, 1.1f, 0.4f, 1};
static const Stuff Steel  = {Mix(palette::Mist, palette::Bone, 0.3f), Mix(palette::Night, palette::Slate, 0.4f), 1.1f, 0.4f, 1};
static const Stuff Brass  = {Mix(palette::Ochre, palette::Amber, 0.45f), Mix(palette::Rust, palette::Ink, 0.4f), 1.1f, 0.3f, 0.9f};
static const Stuff Wax    = {Mix(palette::Rust, palette::Amber, 0.08f), Mix(palette::Rust, palette::Ink, 0.6f), 1.2f, 0.3f, 1};
// clang-format on

// Paints bodies in the hand's frame.
class Bench
{
public:
    Bench(Canvas& newCanvas, const Sight& newSight, uint32_t newSeed)
        : canvas(newCanvas), sight(newSight), seed(newSeed)
    {
    }

    // A round bar through these points.
    void Bar(const std::vector<Vector2>& way, float halfFrom, float halfTo, const Stuff& stuff)
    {
        const float s = sight.scale;
        const Line limb = Limb(Through(sight(way)), halfFrom * s, 0.5f * (halfFrom + halfTo) * s, halfTo * s);
        Body(Shape(Shaken(limb, 0.8f * s, 40 * s, ++seed)), stuff);
    }
    void Plate(const std::vector<Vector2>& outline, const Stuff& stuff, bool round)
    {
        std::vector<Vector2> points = outline;
        if (!round)
            points.push_back(points.front());
        Body(Shape(round ? Round(sight(points)) : Straight(sight(points))), stuff);
    }
    // A plane of a thing that is painted already.
    void Facet(std::vector<Vector2> outline, LinearColour colour, float opacity)
    {
        outline.push_back(outline.front());
        canvas.Cover(Filled(canvas.Width(), canvas.Height(), Shape(Straight(sight(outline))))
                         .Blur(0.8f * sight.scale)
                         .Multiply(canvas.Alpha()),
                     colour, opacity);
    }
    void Knob(Vector2 place, float radius, const Stuff& stuff)
    {
        Body(Shape(Shaken(Ellipse(sight(place), radius * sight.scale, radius * sight.scale),
                          0.04f * radius * sight.scale, 20 * sight.scale, ++seed)),
             stuff);
    }
    void Lines(const std::vector<std::vector<Vector2>>& strokes, float width, LinearColour colour,
               float opacity)
    {
        Mask lines(canvas.Width(), canvas.Height());
        Pen pen(lines, SketchPaper(),
                {.width = width * sight.scale, .wobble = 0.5f * sight.scale, .skip = 0.15f}, ++seed);
        for (const std::vector<Vector2>& stroke : strokes)
            pen.Stroke(Through(sight(stroke)), {0.5f, 1, 0.3f});
        canvas.Cover(lines.Multiply(canvas.Alpha()), colour, opacity);
    }
    // A bar so thin that it has no shade: steel between two lines of ink.
    void Needle(const std::vector<Vector2>& way, float halfFrom, float halfTo)
    {
        const Line middle = Through(sight(way));
        const auto cover = [&](float part, Vector2 off, LinearColour colour) {
            const float from = halfFrom * part * sight.scale, to = halfTo * part * sight.scale;
            canvas.Cover(Filled(canvas.Width(), canvas.Height(),
                                Shape(Limb(Moved(middle, off * sight.scale), from, 0.5f * (from + to), to))),
                         colour);
        };
        cover(1.0f, {}, palette::Ink);
        cover(0.66f, {-0.3f, -0.1f}, Mix(palette::Slate, palette::Mist, 0.55f));
        cover(0.26f, {-1.0f, -0.3f}, Mix(palette::Mist, palette::Bone, 0.8f));
    }
    // The shadow of a shape that stands off the card, to the lower right of it.
    void ShadowOf(const Shape& shape, float away)
    {
        Mask mask = Filled(canvas.Width(), canvas.Height(), shape);
        const Vector2 off = Vector2{0.7f, 0.6f} * (away * sight.scale);
        Mask moved(canvas.Width(), canvas.Height());
        moved.Each([&](float x, float y) { return mask.Sample(x - off.x, y - off.y); });
        canvas.Glaze(moved.Blur(0.5f * away * sight.scale).Multiply(canvas.Alpha()),
                     Mix(palette::Slate, palette::Rust, 0.4f), 0.7f);
    }

    Canvas& canvas;
    const Sight& sight;
    uint32_t seed;

private:
    void Body(const Shape& shape, const Stuff& stuff)
    {
        PaintBody(canvas, Filled(canvas.Width(), canvas.Height(), shape), stuff, 0.55f * sight.scale, ++seed);
    }
};

// A lamplighter's pole: a brass head with a burning wick on a side arm that looks out from behind the card.
static void Pole(Bench& bench)
{
    bench.Bar({{PoleX, -60}, {PoleX, 690}}, 15, 15, Wood);
    bench.Bar({{PoleX, 622}, {PoleX, 680}}, 18, 17, Brass);
    bench.Knob({PoleX, 696}, 21, Brass);
    bench.Lines({{{PoleX - 4, 350}, {PoleX - 3, 410}, {PoleX - 4, 480}},
                 {{PoleX + 4, 380}, {PoleX + 5, 450}, {PoleX + 4, 560}}},
                2.2f, palette::Ink, 0.6f);
    bench.Bar({{PoleX, -30}, {PoleX, 52}}, 18, 18, Brass);
    bench.Knob({PoleX, 26}, 22, Brass);
    bench.Bar({{PoleX + 10, 26}, {104, 30}, {150, 18}, {168, -20}, {170, -58}}, 8, 7, Brass);
    bench.Bar({{170, -48}, {170, -74}}, 12, 9, Brass);
    // The flame brings a little of its own light along, where the picture is clear.
    const Vector2 wick = bench.sight({171, -92});
    const float s = bench.sight.scale;
    Mask halo(bench.canvas.Width(), bench.canvas.Height());
    halo.Each([&](float x, float y) {
        const float far = Length(Vector2{x, y} - wick) / s;
        return 0.55f * Bell(far / 34) + 0.25f * Bell(far / 64);
    });
    bench.canvas.Cover(halo, Mix(palette::Amber, palette::Ochre, 0.3f), 0.9f);
    Mask flame = Filled(bench.canvas.Width(), bench.canvas.Height(),
                        Shape(Round(bench.sight(
                            {{170, -74}, {160, -88}, {164, -106}, {175, -132}, {180, -104}, {181, -86}}))));
    bench.canvas.Cover(flame.Blur(1.2f * s), Mix(palette::Amber, palette::Bone, 0.35f), 1);
    Mask core = Filled(bench.canvas.Width(), bench.canvas.Height(),
                       Shape(Round(bench.sight({{170, -76}, {166, -88}, {172, -106}, {176, -88}}))));
    bench.canvas.Cover(core.Blur(1.5f * s), palette::Bone, 0.95f);
}

// A long pin with a head of amber, whose point is in the card.
static void Pin(Bench& bench)
{
    bench.Needle({{PinX + 3, -20}, {PinX, 50}, {PinX - 4, 146}}, 5.2f, 5.6f);
    bench.Knob({PinX - 4, 152}, 15, Brass);
}

// A halberd, whose blade looks out from behind the card on both sides.
static void Shaft(Bench& bench)
{
    bench.Bar({{ShaftX, -60}, {ShaftX, 650}}, 14, 14, Oak);
    bench.Bar({{ShaftX, 590}, {ShaftX, 640}}, 17, 16, Iron);
    bench.Knob({ShaftX, 656}, 21, Iron);
    bench.Lines({{{ShaftX - 5, 380}, {ShaftX - 4, 440}, {ShaftX - 5, 510}},
                 {{ShaftX + 6, 400}, {ShaftX + 6, 460}, {ShaftX + 5, 560}}},
                2.2f, palette::Ink, 0.6f);
    bench.Bar({{ShaftX, -40}, {ShaftX, 60}}, 18, 18, Iron);
    const LinearColour ground = Mix(palette::Mist, palette::Bone, 0.55f),
                       dull = Mix(palette::Slate, palette::Mist, 0.45f);
    // The axe: its cutting edge is ground bright from a line that runs along it.
    bench.Plate({{-60, -118},
                 {-150, -132},
                 {-204, -158},
                 {-219, -122},
                 {-224, -84},
                 {-219, -44},
                 {-206, -6},
                 {-150, -40},
                 {-60, -60}},
                Steel, false);
    bench.Facet({{-60, -76}, {-150, -62}, {-186, -40}, {-206, -6}, {-150, -40}, {-60, -60}}, dull, 0.7f);
    bench.Facet({{-204, -158},
                 {-219, -122},
                 {-224, -84},
                 {-219, -44},
                 {-206, -6},
                 {-190, -44},
                 {-196, -84},
                 {-192, -122}},
                ground, 0.85f);
    bench.Lines({{{-203, -152}, {-192, -122}, {-196, -84}, {-190, -44}, {-204, -12}}}, 2.4f, palette::Ink,
                0.7f);
    bench.Lines({{{-205, -150}, {-217, -118}, {-221, -84}, {-216, -46}}}, 3.4f, palette::Bone, 1);
    bench.Lines({{{-150, -129}, {-110, -121}, {-64, -115}}}, 2.6f, palette::Bone, 0.8f);
    // The spike has a ridge: its upper side is in the light, its lower one is not.
    bench.Plate({{90, -132}, {226, -96}, {90, -70}}, Steel, false);
    bench.Facet({{90, -101}, {226, -96}, {90, -70}}, dull, 0.8f);
    bench.Lines({{{92, -102}, {150, -99}, {222, -96}}}, 2.2f, palette::Ink, 0.7f);
    bench.Lines({{{92, -128}, {150, -113}, {210, -98}}}, 2.6f, palette::Bone, 0.9f);
}

void PaintTool(Canvas& canvas, const Sight& sight, const Arm& arm, const DrawnHand& hand)
{
    Canvas layer(canvas.Width(), canvas.Height());
    Bench bench(layer, sight, arm.seed + 400);
    float z = 0, slope = 0;
    float below = 8; // how far down the fingers' shadow reaches, in the hand's frame
    switch (arm.gesture) {
    case Gesture::Fist:
        Pole(bench);
        z = PoleZ;
        slope = PoleSlope;
        below = 20;
        break;
    case Gesture::Pinch:
        Pin(bench);
        z = PinZ;
        break;
    case Gesture::Clench:
        Shaft(bench);
        z = ShaftZ;
        break;
    default:
        return;
    }
    const Mask hidden = hand.InFrontOf(z, slope);
    layer.CutOut(Mask(canvas.Width(), canvas.Height(), 1).Subtract(hidden));
    // It throws a shadow on the palm behind it, and the fingers before it throw one on it.
    Mask shadow(canvas.Width(), canvas.Height());
    const Mask alpha = layer.Alpha();
    const float s = sight.scale;
    shadow.Each([&](float x, float y) { return alpha.Sample(x - 9 * s, y - 7 * s); });
    canvas.Glaze(shadow.Blur(5 * s).Subtract(hidden).Multiply(canvas.Alpha()),
                 Mix(palette::Slate, palette::Rust, 0.4f), 0.55f);
    Mask under(canvas.Width(), canvas.Height());
    under.Each([&](float x, float y) { return hidden.Sample(x - 7 * s, y - below * s); });
    layer.Glaze(under.Blur(4 * s).Multiply(layer.Alpha()), palette::Ink, 0.8f);
    canvas.Lay(layer, 0, 0);
}

// Each nail's head as one draws it with a pen: an uneven outline, two strokes of hatching on its dark side, a speck of light.
static void Nails(Bench& bench)
{
    constexpr float Half = 7.5f, Hatches[] = {0.66f, 0.38f};
    const float s = bench.sight.scale;
    const int width = bench.canvas.Width(), height = bench.canvas.Height();
    for (const float y : {-22.0f, -50.0f}) {
        const Vector2 middle = {PoleX, y};
        const auto arc = [&](float radius, float from, float to) {
            std::vector<Vector2> points;
            for (int i = 0; i <= 12; i++) {
                const float a = Mix(from, to, float(i) / 12);
                points.push_back(middle + Vector2{Cos(a), 0.94f * Sin(a)} * radius);
            }
            return points;
        };
        bench.ShadowOf(Ellipse(bench.sight(middle), Half * s, Half * s), 5);
        const Line head = Through(bench.sight(arc(Half, 0, 2 * Pi)));
        bench.canvas.Cover(Filled(width, height, Shaken(head, 0.4f * s, 9 * s, ++bench.seed)),
                           Mix(palette::Ochre, palette::Rust, 0.25f));
        bench.Lines({arc(Half, 0.6f, 2.2f * Pi)}, 1.9f, palette::Ink, 0.95f);
        for (const float part : Hatches)
            bench.Lines({arc(part * Half, -0.35f, 1.9f)}, 1.3f, palette::Ink, 0.85f);
        bench.Lines({arc(0.55f * Half, 3.4f, 4.4f)}, 1.5f, Mix(palette::Amber, palette::Bone, 0.5f), 0.9f);
    }
}

static void PinsPoint(Bench& bench)
{
    const float s = bench.sight.scale;
    const std::vector<Vector2> way = {{PinX + 4, -18}, {PinX + 7, -40}, {PinX + 10, -60}};
    bench.ShadowOf(
        Shape(Limb(Through(bench.sight({way[0], {way[2].x + 6, way[2].y + 8}})), 2 * s, 2 * s, 0.5f * s)), 3);
    bench.canvas.Cover(
        Filled(bench.canvas.Width(), bench.canvas.Height(), Ellipse(bench.sight(way[0]), 4.6f * s, 3 * s))
            .Blur(0.6f * s),
        palette::Ink, 0.85f);
    bench.Needle(way, 5, 0.8f);
}

// Wax over two ends of a ribbon, with a tower pressed into it.
static void Seal(Bench& bench)
{
    const float s = bench.sight.scale, y = -42;
    const Stuff ribbon = {Mix(palette::Night, palette::Slate, 0.5f), palette::Ink, 1, 0.4f, 0.8f};
    bench.Plate({{ShaftX - 14, y},
                 {ShaftX - 32, y + 29},
                 {ShaftX - 21, y + 27},
                 {ShaftX - 16, y + 34},
                 {ShaftX + 1, y + 6}},
                ribbon, false);
    bench.Plate({{ShaftX + 14, y},
                 {ShaftX + 28, y + 30},
                 {ShaftX + 18, y + 27},
                 {ShaftX + 12, y + 33},
                 {ShaftX - 2, y + 6}},
                ribbon, false);
    bench.ShadowOf(Ellipse(bench.sight({ShaftX, y}), 23 * s, 23 * s), 6);
    bench.Plate({{ShaftX - 24, y - 4},
                 {ShaftX - 15, y - 20},
                 {ShaftX + 4, y - 25},
                 {ShaftX + 21, y - 16},
                 {ShaftX + 25, y + 3},
                 {ShaftX + 15, y + 21},
                 {ShaftX - 5, y + 23},
                 {ShaftX - 20, y + 15}},
                Wax, true);
    bench.Lines({{{ShaftX - 15, y + 1},
                  {ShaftX - 9, y - 12},
                  {ShaftX + 4, y - 16},
                  {ShaftX + 15, y - 7},
                  {ShaftX + 15, y + 7},
                  {ShaftX + 4, y + 15},
                  {ShaftX - 10, y + 12},
                  {ShaftX - 15, y + 1}}},
                1.6f, palette::Ink, 0.6f);
    bench.Lines({{{ShaftX - 5, y + 8}, {ShaftX - 4, y - 5}},
                 {{ShaftX + 5, y + 8}, {ShaftX + 4, y - 5}},
                 {{ShaftX - 7, y - 9}, {ShaftX - 7, y - 4}, {ShaftX + 7, y - 4}, {ShaftX + 7, y - 9}},
                 {{ShaftX, y - 9}, {ShaftX, y - 5}}},
                1.8f, palette::Ink, 0.7f);
}

void PaintFastening(Canvas& canvas, const Sight& sight, const Arm& arm)
{
    Bench bench(canvas, sight, arm.seed + 500);
    switch (arm.gesture) {
    case Gesture::Fist:
        return Nails(bench);
    case Gesture::Pinch:
        return PinsPoint(bench);
    case Gesture::Clench:
        return Seal(bench);
    default:
        return;
    }
}

} // namespace atelier
