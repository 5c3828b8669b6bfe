// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/FX_CloudsGreetings.h"

#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Wash.h"

namespace atelier
{

namespace
{

// Painted at twice the size of the file.
constexpr int Size = 1024;

// Where the show lays the face over the blank card.
constexpr Vec2 CardCentre = {0.69f * Size, 0.11f * Size};
constexpr float CardHalf = 0.13f * Size, CardTurn = 11.7f * Pi / 180;

struct Arm {
    uint32_t seed;
    float bend;   // pixels by which the elbow is out to the left
    float spread; // how far the little finger stands off
    float girth;
    float sleeve; // where the sleeve ends: 0 wrist to 1 elbow
    Colour cloth;
};

struct Greeting {
    const char* to;
    const char* tail;
    void (*emblem)(Pen& pen, Vec2 at);
    Arm arm;
};

// From the hand's own upright frame, whose origin is the middle of the card's lower edge, to the picture.
Vec2 InHand(Vec2 p)
{
    p.y += CardHalf;
    return CardCentre +
           Vec2{p.x * Cos(CardTurn) - p.y * Sin(CardTurn), p.x * Sin(CardTurn) + p.y * Cos(CardTurn)};
}

std::vector<Vec2> InHand(std::vector<Vec2> points)
{
    for (Vec2& p : points)
        p = InHand(p);
    return points;
}

Shape Finger(const std::vector<Vec2>& points, float root, float middle, float tip)
{
    const Line spine = Through(InHand(points));
    Shape finger = Limb(spine, root, middle, tip);
    finger.Add(Ellipse(spine.back() - DirectionAt(spine, 1) * 2, tip, tip * 1.05f));
    return finger;
}

// A body in ink and wash: light from the upper left, hatched where it turns away, a contour of changing
// weight.
void PaintBody(Canvas& canvas, const Mask& body, Colour tint, uint32_t seed)
{
    const Paper& paper = SketchPaper();
    const Noise noise(seed);
    canvas.Cover(body, tint);
    const Mask form = body.Blurred(22);
    Mask shade(Size, Size);
    shade.Each([&](float x, float y) {
        return body.Sample(x, y) *
               Smooth(0.02f, 0.75f, form.Sample(x - 20, y - 8) - form.Sample(x + 20, y + 8) + 0.12f);
    });
    canvas.Glaze(shade, Mix(palette::Slate, palette::Rust, 0.25f), 0.8f);
    Mask lines(Size, Size);
    Pen pen(lines, paper, {.width = 3.2f, .wobble = 0.8f, .skip = 0.25f}, seed + 1);
    Hatch(pen, shade, {.angle = 0.75f, .spacing = 8, .length = 46, .bend = 4, .faintest = 0.3f}, seed + 2);
    lines.Multiply(body);
    canvas.Cover(lines, palette::Ink, 0.75f);
    const Mask depth = body.Inside(12);
    Mask contour(Size, Size);
    contour.Each([&](float x, float y) {
        const float weight = 4.2f + 3.0f * noise.Gradient(x / 60, y / 60) + 2 * shade.Sample(x, y);
        return body.Sample(x, y) * Smooth(weight + 1, weight - 1, depth.Sample(x, y));
    });
    canvas.Cover(contour, palette::Ink, 0.95f);
}

Mask Body(const Shape& shape, float melt)
{
    return Filled(Size, Size, shape).Blur(melt).Curve(0.42f, 0.58f);
}

void Strokes(Pen& pen, const std::vector<std::vector<Vec2>>& strokes, Vec2 at = {}, float scale = 1)
{
    for (std::vector<Vec2> stroke : strokes) {
        for (Vec2& p : stroke)
            p = at + p * scale;
        pen.Stroke(Through(stroke), {.start = 0.6f, .middle = 1, .end = 0.35f});
    }
}

void Circle(Pen& pen, Vec2 centre, float radius)
{
    pen.Stroke(Ellipse(centre, radius, radius), {.start = 0.8f, .middle = 1, .end = 0.8f});
}

// clang-format off
void Lantern(Pen& pen, Vec2 at)
{
    Strokes(pen, {{{-62, -70}, {0, -78}, {62, -70}}, {{-62, -70}, {-44, 0}, {-36, 76}}, {{62, -70}, {44, 0}, {36, 76}}, {{-40, 78}, {0, 84}, {40, 78}},
                  {{-66, -72}, {-30, -112}, {0, -124}, {30, -112}, {66, -72}}, {{0, -124}, {-14, -144}, {0, -158}, {14, -144}, {0, -124}},
                  {{0, 84}, {2, 130}, {0, 190}}, {{0, 52}, {-22, 22}, {-4, -40}, {18, 14}, {0, 52}},
                  {{-104, -40}, {-146, -58}}, {{104, -40}, {146, -58}}, {{-96, 16}, {-140, 22}}, {{96, 16}, {140, 22}}}, at);
}

void Ferry(Pen& pen, Vec2 at)
{
    Strokes(pen, {{{-170, 50}, {-90, 72}, {60, 74}, {170, 40}}, {{-170, 50}, {-140, 100}, {-60, 120}, {60, 120}, {136, 94}, {170, 40}},
                  {{70, 66}, {64, 0}, {84, -60}, {104, 0}, {112, 62}}, {{120, -140}, {90, 0}, {52, 176}}, {{-86, 70}, {-84, -40}, {-86, -76}},
                  {{-190, 132}, {-150, 146}, {-110, 132}, {-70, 146}, {-30, 134}}, {{10, 144}, {60, 132}, {110, 146}, {160, 132}, {200, 142}}, {{-120, 172}, {-70, 182}, {-20, 170}}}, at);
    Circle(pen, at + Vec2{86, -82}, 22);
    Circle(pen, at + Vec2{-86, -98}, 20);
}

void Loaf(Pen& pen, Vec2 at)
{
    Strokes(pen, {{{-160, 110}, {-176, 50}, {-110, -8}, {0, -26}, {110, -8}, {176, 50}, {160, 110}, {0, 126}, {-160, 110}},
                  {{-100, 20}, {-76, 50}, {-70, 92}}, {{-24, 2}, {2, 40}, {8, 84}}, {{56, 4}, {80, 40}, {84, 84}},
                  {{-70, -60}, {-90, -92}, {-56, -120}, {-74, -156}}, {{0, -70}, {-20, -104}, {16, -132}, {-4, -170}}, {{70, -60}, {52, -92}, {86, -120}, {66, -156}}}, at);
}

void Moth(Pen& pen, Vec2 at)
{
    for (const float side : {-1.0f, 1.0f}) {
        std::vector<std::vector<Vec2>> wing = {{{8, -50}, {70, -120}, {170, -130}, {190, -80}, {130, -10}, {14, 4}}, {{14, 4}, {90, 30}, {124, 90}, {80, 134}, {36, 100}, {8, 40}},
                                               {{6, -74}, {24, -120}, {52, -156}}, {{30, -40}, {90, -84}, {160, -106}}, {{26, 20}, {66, 60}, {84, 112}}};
        for (std::vector<Vec2>& line : wing)
            for (Vec2& p : line)
                p.x *= side;
        Strokes(pen, wing, at);
        Circle(pen, at + Vec2{side * 112, -64}, 20);
    }
    Strokes(pen, {{{0, -70}, {-14, -30}, {-12, 50}, {0, 120}, {12, 50}, {14, -30}, {0, -70}}, {{-10, 0}, {10, 2}}, {{-11, 30}, {11, 32}}, {{-8, 60}, {8, 62}}}, at);
}

void Tower(Pen& pen, Vec2 at)
{
    Strokes(pen, {{{-64, 170}, {-50, 40}, {-46, -70}}, {{64, 170}, {50, 40}, {46, -70}}, {{-70, -72}, {0, -66}, {70, -72}}, {{-70, -72}, {-70, -112}}, {{70, -72}, {70, -112}},
                  {{-70, -112}, {-40, -112}}, {{-40, -112}, {-40, -92}}, {{-40, -92}, {-14, -92}}, {{-14, -92}, {-14, -112}}, {{-14, -112}, {16, -112}}, {{16, -112}, {16, -92}}, {{16, -92}, {42, -92}}, {{42, -92}, {42, -112}}, {{42, -112}, {70, -112}},
                  {{-16, 170}, {-16, 120}, {0, 98}, {16, 120}, {16, 170}}, {{-10, 0}, {-10, -28}, {0, -38}, {10, -28}, {10, 0}, {-10, 0}}, {{-130, 174}, {0, 170}, {130, 176}},
                  {{0, -112}, {2, -166}}, {{2, -166}, {30, -158}, {56, -164}}, {{56, -164}, {30, -142}, {2, -138}}}, at);
}

void Mast(Pen& pen, Vec2 at)
{
    Strokes(pen, {{{-70, 170}, {-34, 20}, {0, -110}}, {{70, 170}, {34, 20}, {0, -110}}, {{-58, 120}, {46, 70}}, {{58, 120}, {-46, 70}}, {{-46, 70}, {32, 16}}, {{46, 70}, {-32, 16}}, {{-32, 16}, {20, -34}}, {{32, 16}, {-20, -34}}, {{-110, 174}, {0, 170}, {110, 176}}}, at);
    for (const float radius : {44.0f, 84.0f, 124.0f}) {
        pen.Stroke(Arc(at + Vec2{0, -118}, radius, radius, -0.6f, 0.6f), {.start = 0.3f, .middle = 1, .end = 0.3f});
        pen.Stroke(Arc(at + Vec2{0, -118}, radius, radius, Pi - 0.6f, Pi + 0.6f), {.start = 0.3f, .middle = 1, .end = 0.3f});
    }
    pen.Dot(at + Vec2{0, -118}, 13);
}

const Greeting Greetings[] = {
    // to                tail                          emblem     seed bend spread girth  sleeve cloth
    {"lamplighters",    "who leave one burning",       Lantern, { 100,  60, 0.4f, 1.00f, 0.55f, palette::Slate}},
    {"ferrymen",        "who wait on the far side",    Ferry,   { 200, -30, 0.1f, 1.12f, 0.85f, Mix(palette::Slate, palette::Mist, 0.4f)}},
    {"night bakers",    "awake for our morning",       Loaf,    { 300,  20, 0.7f, 1.10f, 0.75f, palette::Bone}},
    {"moth collectors", "who let them go again",       Moth,    { 400,  90, 1.0f, 0.90f, 0.35f, palette::Moss}},
    {"tower guards",    "and all is well",             Tower,   { 500, -50, 0.2f, 1.06f, 0.30f, palette::Rust}},
    {"radio hams",      "is anybody there?",           Mast,    { 600,  40, 0.8f, 0.96f, 0.65f, palette::Ochre}},
};
// clang-format on

} // namespace

Canvas GreetingHand(int greeting)
{
    const Arm& arm = Greetings[greeting].arm;
    const Paper& paper = SketchPaper();
    Canvas canvas(Size, Size);
    Dice dice(arm.seed);
    const float g = arm.girth;
    const Colour skin =
        Mix(Mix(palette::Parchment, palette::Bone, dice.Range(0.2f, 0.6f)), palette::Ochre, 0.12f);

    // Behind the card: four fingers, the little one as it likes.
    const float off = 60 * arm.spread;
    const std::vector<std::vector<Vec2>> fingers = {
        {{78, 170}, {112 + off * 0.5f, 96}, {132 + off, 30}, {138 + off * 1.3f, -26 - off * 0.3f}},
        {{54, 150}, {76, 70}, {86, 0}, {84, -60}},
        {{8, 140}, {22, 60}, {28, -10}, {26, -80}},
        {{-36, 140}, {-30, 60}, {-26, -10}, {-24, -70}}};
    for (size_t i = 0; i < fingers.size(); ++i) {
        const float half = (i == 0 ? 25.0f : 30.0f) * g;
        PaintBody(canvas, Body(Finger(fingers[i], half * 1.1f, half, half * 0.68f), 3), skin,
                  arm.seed + 10 * static_cast<uint32_t>(i));
    }

    // The card, blank on this side of the show.
    Line corners;
    for (const Vec2 p : {Vec2{-1, -1}, Vec2{1, -1}, Vec2{1, 1}, Vec2{-1, 1}, Vec2{-1, -1}})
        corners.push_back(InHand(Vec2{p.x * CardHalf, p.y * CardHalf - CardHalf}));
    const Mask card = Filled(Size, Size, Shaken(Straight(corners), 1.2f, 40, arm.seed + 50));
    canvas.Cover(card, Mix(palette::Bone, palette::Parchment, 0.3f));
    Mask rim(Size, Size);
    Pen edge(rim, paper, {.width = 4, .wobble = 0.8f, .skip = 0.15f}, arm.seed + 51);
    for (size_t i = 0; i + 1 < corners.size(); ++i)
        edge.Stroke(Straight({corners[i], corners[i + 1]}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    canvas.Cover(rim.Multiply(card.Blurred(1)), palette::Ink, 0.9f);

    // Palm, wrist and forearm in one, the thumb before the card.
    const Line spine = Through(
        {InHand({8, 230}), InHand({10, 310}), Vec2{520 - arm.bend * 0.5f, 740}, Vec2{400 - arm.bend, 1090}});
    Shape hand = Limb(spine, 62 * g, 66 * g, 98 * g);
    hand.Add(Round(InHand({{-58, 120},
                           {-20, 104},
                           {40, 108},
                           {92, 130},
                           {104, 190},
                           {82, 262},
                           {60, 320},
                           {-44, 320},
                           {-66, 260},
                           {-74, 180}})));
    const Shape thumb =
        Finger({{0, 268}, {-58, 196}, {-82, 100}, {-60, 18}, {-46, -24}}, 30 * g, 34 * g, 21 * g);
    for (const Line& outline : thumb.outlines)
        hand.Add(outline);
    PaintBody(canvas, Body(hand, 7), skin, arm.seed + 60);
    Mask creases(Size, Size);
    Pen pen(creases, paper, {.width = 4, .wobble = 1, .skip = 0.2f, .pool = 0}, arm.seed + 80);
    Strokes(pen,
            {InHand({{-30, 150}, {10, 176}, {24, 240}, {8, 300}}), InHand({{-26, 140}, {30, 160}, {80, 196}}),
             InHand({{90, 160}, {50, 148}, {10, 124}}), InHand({{-40, 322}, {4, 332}, {52, 322}}),
             InHand({{-98, 84}, {-84, 78}, {-68, 84}}), InHand({{-96, 96}, {-82, 91}, {-68, 96}}),
             // Where the thumb rises from the palm, and its nail.
             InHand({{-34, 108}, {-36, 150}, {-18, 206}, {0, 236}}),
             InHand({{-60, -6}, {-52, -30}, {-36, -32}, {-38, -8}})});
    canvas.Cover(creases, palette::Ink, 0.8f);

    // The sleeve, with a wide mouth.
    const float mouth = 0.36f + 0.34f * arm.sleeve;
    const Line along = Part(spine, mouth, 1);
    const Vec2 down = DirectionAt(along, 0), across = {-down.y, down.x};
    Shape sleeve = Limb(along, 96 * g, 124 * g, 150 * g);
    sleeve.Add(Ellipse(along.front(), 30, 98 * g, Angle(down)));
    const Mask cloth = Body(sleeve, 5).Shake(5, 60, arm.seed + 90);
    PaintBody(canvas, cloth, arm.cloth, arm.seed + 91);
    Mask folds(Size, Size);
    Pen fold(folds, paper, {.width = 5, .wobble = 1.5f, .skip = 0.2f}, arm.seed + 95);
    for (int i = 0; i < 9; ++i) {
        const Vec2 p = along.front() + across * (dice.Range(-80, 70) * g) + down * dice.Range(16, 130);
        fold.Stroke(
            Through({p, p + down * 50 + across * dice.Range(-24, 24), p + down * dice.Range(80, 170)}),
            {.start = 0.2f, .middle = 0.8f, .end = 0});
    }
    for (const float hem : {16.0f, 28.0f})
        fold.Stroke(
            Through({along.front() - across * (94 * g) + down * hem, along.front() + down * (hem - 26),
                     along.front() + across * (94 * g) + down * hem}),
            {.start = 0.7f, .middle = 0.9f, .end = 0.6f});
    canvas.Cover(folds.Multiply(cloth), palette::Ink, 0.8f);

    paper.Show(canvas, 0.6f);
    // The arm comes out of the cloud.
    const Noise cloud(arm.seed + 99);
    canvas.CutOut(Mask(Size, Size).Each([&](float x, float y) {
        return Smooth(1000, 800, y + 70 * cloud.Fbm(x / 120, y / 120, 4));
    }));
    return Squeezed(canvas, Size / 2, Size / 2);
}

Canvas GreetingCard(int greeting)
{
    const Greeting& words = Greetings[greeting];
    const uint32_t seed = words.arm.seed + 1000;
    const Paper& paper = SketchPaper();
    const Mask card = Filled(
        Size, Size, Shaken(Straight({{8, 8}, {1016, 8}, {1016, 1016}, {8, 1016}, {8, 8}}), 4, 70, seed));
    Canvas canvas(Size, Size, palette::Bone);
    paper.Sheet(canvas, Mix(palette::Bone, palette::Parchment, 0.35f));
    const Vec2 at = {512, 312};
    Wash(
        canvas, paper, Filled(Size, Size, Shaken(Ellipse(at, 265, 205), 30, 120, seed + 1)),
        {.pigment = Mix(words.arm.cloth, palette::Amber, 0.55f), .density = 0.7f, .bloom = 0.7f, .bleed = 14},
        seed + 2);
    Wash(canvas, paper, Mask(Size, Size, 1).Subtract(card.Blurred(50).Curve(0.55f, 1)),
         {.pigment = palette::Ochre, .density = 0.3f}, seed + 3);

    Mask lines(Size, Size);
    Pen pen(lines, paper, {.width = 9, .wobble = 1.4f, .skip = 0.15f}, seed + 4);
    words.emblem(pen, at);
    for (const float inset : {44.0f, 62.0f}) {
        const float a = inset, b = Size - inset;
        pen.nib.width = inset < 50 ? 8 : 4;
        for (const Line& side : {Straight({{a, a}, {b, a}}), Straight({{b, a}, {b, b}}),
                                 Straight({{b, b}, {a, b}}), Straight({{a, b}, {a, a}})})
            pen.Stroke(side, {.start = 0.8f, .middle = 1, .end = 0.6f});
    }
    LetterStyle small{.size = 54};
    pen.nib = {.width = 6, .wobble = 0.6f, .skip = 0};
    Write(pen, "greetings to the", {512, 612}, small, Anchor::Middle, seed + 5);
    LetterStyle large{.size = 130};
    large.size *= Min(1, 820 / WidthOf(words.to, large));
    pen.nib.width = large.size / 8;
    Write(pen, words.to, {512, 788}, large, Anchor::Middle, seed + 6);
    pen.nib.width = 5;
    Write(pen, words.tail, {512, 922}, {.size = 46}, Anchor::Middle, seed + 7);
    canvas.Cover(lines, palette::Ink, 0.94f);
    canvas.CutOut(card);
    return Squeezed(canvas, Size / 2, Size / 2);
}

} // namespace atelier
