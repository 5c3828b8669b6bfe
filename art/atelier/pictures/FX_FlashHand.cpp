// SPDX-License-Identifier: MIT
// Somebody did not want to be photographed: a hand raised against the flash.
#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Pictures.h"

namespace atelier
{

// Painted in the proportion in which it is shown at rest, 717 to 591. Of that the screen cuts 4.5 percent
// above and below.
constexpr int W = 1242, H = 1024;
constexpr float BorderX = 46, BorderY = 92;

struct Finger {
    std::vector<Vec2> spine;
    float root, middle, tip; // half widths
};

// clang-format off
static const std::vector<Finger> Fingers = {
    {{{530, 560}, {508, 420}, {490, 318}, {478, 232}}, 38, 35, 21}, // index
    {{{602, 545}, {600, 390}, {606, 264}, {612, 168}}, 39, 36, 22},
    {{{668, 552}, {690, 414}, {712, 300}, {726, 214}}, 37, 34, 21},
    {{{708, 604}, {790, 504}, {850, 436}, {898, 380}}, 34, 28, 17}, // little finger
    {{{560, 742}, {462, 676}, {396, 588}, {352, 496}}, 56, 43, 24}, // thumb
};
static const std::vector<Vec2> Palm = {{504, 560}, {560, 520}, {650, 520}, {720, 560}, {742, 640}, {728, 740}, {690, 830}, {686, 920}, {566, 924}, {548, 840}, {508, 760}, {492, 660}};
// clang-format on

// The hand comes in a little from the right, as hands do that are thrown up in haste.
static Line Tilted(const Line& line)
{
    return Turned(line, -0.13f, {610, 760});
}

static Shape Hand()
{
    Shape hand = Tilted(Round(Palm));
    for (const Finger& finger : Fingers) {
        const Line spine = Tilted(Through(finger.spine));
        hand.Add(Limb(spine, finger.root, finger.middle, finger.tip));
        const Vec2 end = spine.back() - DirectionAt(spine, 1) * 3;
        hand.Add(Ellipse(end, finger.tip, finger.tip * 1.1f, Angle(DirectionAt(spine, 1))));
    }
    return hand;
}

// A joint: two or three short creases across a finger.
static void DrawCreases(Pen& pen, const Line& spine, float at, float half, int count)
{
    for (int i = 0; i < count; i++) {
        const float t = at + 0.022f * float(i);
        const Vec2 p = PointAt(spine, t), d = DirectionAt(spine, t), n = {-d.y, d.x};
        pen.Stroke(Through({p - n * (half * 0.75f), p - d * 3, p + n * (half * 0.7f)}),
                   {.start = 0.2f, .middle = 0.9f, .end = 0.1f});
    }
}

static Canvas Photograph()
{
    const Paper& paper = SketchPaper();
    // The parts of the hand grow together where they meet.
    const Mask hand = Filled(W, H, Hand()).Blur(8).Curve(0.42f, 0.58f);
    const Mask shirt =
        Filled(W, H, Tilted(Round({{540, 890}, {620, 868}, {712, 880}, {730, 930}, {620, 950}, {532, 936}})));
    const Mask sleeve =
        Filled(W, H,
               Tilted(Round(
                   {{508, 925}, {560, 908}, {640, 902}, {724, 910}, {768, 938}, {800, 1120}, {450, 1120}})));

    // Value: 0 no light came back, 1 the paper's white, above it burnt.
    Mask value(W, H);
    const Noise plaster(11), cloth(12);
    value.Each(
        [&](float x, float y) {
            const float flash = Bell(Length(Vec2{(x - 600) * 0.8f, y - 470}) / 560);
            return (0.19f + 0.06f * plaster.Fbm(x / 130, y / 130, 5)) * (0.2f + 1.15f * flash);
        },
        2);
    // Whoever it is: a hat, a coat, and no face, for the hand is before it.
    Mask figure(W, H);
    figure.Fill(Ellipse({660, 420}, 150, 196));
    figure.Fill(Round({{150, 1080},
                       {190, 880},
                       {330, 760},
                       {520, 690},
                       {780, 690},
                       {980, 760},
                       {1110, 890},
                       {1150, 1080}}));
    Mask hat(W, H);
    hat.Fill(Round({{360, 300},
                    {470, 262},
                    {490, 150},
                    {560, 118},
                    {740, 118},
                    {812, 152},
                    {830, 262},
                    {940, 304},
                    {800, 330},
                    {650, 338},
                    {500, 330}}));
    const Mask face = Filled(W, H, Ellipse({668, 430}, 138, 186));
    const Mask coatShade = figure.Blurred(26), faceShade = face.Blurred(22), hatShade = hat.Blurred(10);
    // The hard shadow that a flash throws: the hand's own shape, to the right and below, on the coat and the
    // face.
    const Mask handShade = Mask(W, H)
                               .Each([&](float x, float y) {
                                   return Max(hand.Sample(x + 58, y - 34), sleeve.Sample(x + 58, y - 34));
                               })
                               .Blur(5);
    const Mask round = hand.Blurred(13), form = hand.Blurred(34);
    Mask creases(W, H);
    Pen pen(creases, paper, {.width = 5, .wobble = 1.2f, .wave = 40, .skip = 0.2f, .pool = 0}, 13);
    for (size_t i = 0; i < Fingers.size(); i++) {
        const Line spine = Tilted(Through(Fingers[i].spine));
        pen.nib.width = 4;
        DrawCreases(pen, spine, i == 4 ? 0.52f : 0.36f, Fingers[i].middle, 3);
        DrawCreases(pen, spine, i == 4 ? 0.78f : 0.68f, Fingers[i].middle * 0.85f, 2);
    }
    pen.nib.width = 7;
    pen.Stroke(Tilted(Through({{500, 628}, {560, 650}, {610, 700}, {618, 790}, {590, 870}})),
               {.start = 0.7f, .middle = 1, .end = 0.1f}); // life
    pen.nib.width = 5.5f;
    pen.Stroke(Tilted(Through({{498, 620}, {570, 622}, {650, 650}, {706, 690}})),
               {.start = 0.8f, .middle = 0.9f, .end = 0}); // head
    pen.Stroke(Tilted(Through({{738, 620}, {680, 612}, {620, 590}, {584, 556}})),
               {.start = 0.7f, .middle = 0.9f, .end = 0}); // heart
    pen.nib.width = 4;
    pen.Stroke(Tilted(Through({{560, 908}, {620, 916}, {684, 904}})),
               {.start = 0.3f, .middle = 0.8f, .end = 0.3f});
    pen.Stroke(Tilted(Through({{660, 560}, {652, 640}, {650, 720}})),
               {.start = 0.1f, .middle = 0.5f, .end = 0});
    pen.nib.width = 2.2f;
    Dice dice(14);
    for (int i = 0; i < 70; i++) {
        const Vec2 p = {dice.Range(510, 720), dice.Range(540, 890)};
        const float a = dice.Range(-0.9f, 0.9f), length = dice.Range(10, 34);
        pen.Stroke(Through({p, p + Vec2{Cos(a), Sin(a)} * (length * 0.5f) + Vec2{0, 2},
                            p + Vec2{Cos(a), Sin(a)} * length}),
                   {.start = 0, .middle = 0.6f, .end = 0});
    }
    creases.Blur(1.4f);
    // What can be seen between the fingers: a brow, an eye that looks at us.
    Mask eye(W, H), ball(W, H);
    Pen look(eye, paper, {.width = 6, .wobble = 0.8f, .skip = 0, .pool = 0.2f}, 21);
    const Vec2 at = {742, 412};
    ball.Fill(Round({at + Vec2{-34, 2}, at + Vec2{-4, -15}, at + Vec2{32, -2}, at + Vec2{2, 13}}));
    look.Stroke(Through({at + Vec2{-40, 4}, at + Vec2{-6, -19}, at + Vec2{38, -2}}),
                {.start = 0.5f, .middle = 1, .end = 0.4f});
    look.Stroke(Through({at + Vec2{-32, 6}, at + Vec2{2, 16}, at + Vec2{32, 2}}),
                {.start = 0.2f, .middle = 0.5f, .end = 0.2f});
    look.Stroke(Through({at + Vec2{-44, -24}, at + Vec2{-4, -38}, at + Vec2{46, -22}}),
                {.start = 0.5f, .middle = 0.5f, .end = 0.2f});
    for (int i = 0; i < 16; i++) {
        const float k = float(i) * 5.6f;
        look.Stroke(Through({at + Vec2{-44 + k, -46 - 6 * Hill(7, 9, float(i))},
                             at + Vec2{-34 + k, -56 - 5 * Hill(7, 9, float(i))}}),
                    {.start = 0.9f, .middle = 0.9f, .end = 0.3f});
    }
    look.Dot(at + Vec2{1, -1}, 11);
    eye.Blur(1.6f);
    const Mask white = ball.Blurred(2), cuffLight = shirt.Blurred(3);
    const Mask skin = hand, cuff = sleeve.Blurred(3);
    for (int y = 0; y < H; y++)
        for (int x = 0; x < W; x++) {
            const float fx = float(x), fy = float(y);
            const float weave = 0.03f * cloth.Gradient(fx / 3.1f, fy / 3.1f);
            float v = value.At(x, y);
            v = Mix(v, 0.045f + weave * 0.7f + 0.05f * Bell(Length(Vec2{fx - 860, fy - 800}) / 230),
                    coatShade.At(x, y));
            const float cheek =
                0.72f * (0.25f + 0.75f * Smooth(1.05f, 0.3f, Length({(fx - 710) / 150, (fy - 450) / 210}))) *
                (1 - 0.5f * Smooth(380, 330, fy));
            v = Mix(v, cheek * (1 - 0.9f * eye.At(x, y)) + 0.3f * white.At(x, y) * (1 - eye.At(x, y)),
                    faceShade.At(x, y));
            v = Mix(v, 0.05f + weave * 0.8f + 0.05f * Hill(318, 26, fy), hatShade.At(x, y));
            v *= 1 - 0.8f * handShade.At(x, y);
            // The nearer, the brighter: fingertips and the ball of the thumb burn out. What turns away falls
            // into the dark.
            const float turned =
                Smooth(0.42f, 1.0f, round.At(x, y)) * (0.35f + 0.65f * Smooth(0.35f, 0.95f, form.At(x, y)));
            const float lit = 0.12f + 0.78f * turned + 0.42f * Bell(Length(Vec2{fx - 520, fy - 740}) / 120) +
                              0.5f * Smooth(430, 200, fy) * turned + 0.05f * plaster.Fbm(fx / 60, fy / 60, 3);
            v = Mix(v, lit * (1 - 0.75f * creases.At(x, y)), skin.At(x, y));
            v = Mix(v, 0.95f - 0.25f * Smooth(560, 700, fx) + weave, cuffLight.At(x, y));
            v = Mix(v, 0.06f + 0.9f * weave + 0.10f * Hill(610, 120, fx), cuff.At(x, y));
            value.At(x, y) = v;
        }
    // Burnt light spills over its edges.
    Mask burnt = value;
    burnt.Curve(0.95f, 1.5f).Blur(16);
    const Noise grain(15), clumps(16);
    Canvas canvas(W, H);
    canvas.Ground([&](float x, float y) {
        const int px = Floor(x), py = Floor(y);
        const float far = Length(Vec2{(x - W / 2.0f) / W, (y - H / 2.0f) / H});
        float v = (value.At(px, py) + 0.35f * burnt.At(px, py)) * (1 - 0.55f * Smooth(0.35f, 0.75f, far));
        // Grain: silver in clumps, most visible where it is neither dark nor white.
        const float g = 0.6f * grain.Gradient(x / 1.7f, y / 1.7f) + 0.5f * clumps.Fbm(x / 3.6f, y / 3.6f, 2);
        v += g * (0.035f + 0.24f * v * Smooth(1.25f, 0.2f, v));
        return Mix(Mix(palette::Ink, palette::Rust, 0.12f) * 0.8f,
                   Mix(palette::Bone, palette::Parchment, 0.15f), Clamp(Pow(Max(v, 0), 1.15f)));
    });
    // Scratches and a hair on the negative.
    Mask dust(W, H);
    Pen scratch(dust, paper, {.width = 1.6f, .wobble = 1.5f, .wave = 90, .skip = 0.4f, .pool = 0}, 17);
    scratch.Stroke(Through({{930, 100}, {936, 360}, {928, 640}, {934, 900}}),
                   {.start = 0.1f, .middle = 0.6f, .end = 0});
    scratch.Stroke(Through({{212, 300}, {240, 330}, {236, 372}, {204, 380}, {190, 352}}),
                   {.start = 0.5f, .middle = 0.8f, .end = 0.2f});
    for (int i = 0; i < 60; i++)
        scratch.Dot({dice.Range(60, W - 60), dice.Range(100, H - 100)}, dice.Range(0.5f, 1.5f));
    canvas.Cover(dust, palette::Bone, 0.5f);

    // The print's border, a little worn at the corners, with a word in pen.
    Canvas border(W, H);
    paper.Sheet(border, palette::Bone, 0.8f);
    Mask frame(W, H, 1);
    frame.Erase(Shaken(Straight({{BorderX, BorderY},
                                 {W - BorderX, BorderY},
                                 {W - BorderX, H - BorderY},
                                 {BorderX, H - BorderY},
                                 {BorderX, BorderY}}),
                       0.8f, 120, 18));
    const Mask wear = Mask(W, H).Each([&](float x, float y) {
        const float corner = Min(Min(Length({x, y - 46}), Length({W - x, y - 46})),
                                 Min(Length({x, H - 46 - y}), Length({W - x, H - 46 - y})));
        return Smooth(90, 10, corner + 40 * plaster.Fbm(x / 30, y / 30, 3)) +
               0.4f * Smooth(14, 0, Min(x, W - x));
    });
    border.Glaze(wear, palette::Parchment, 1);
    border.Glaze(wear, palette::Ochre, 0.2f);
    Mask words(W, H);
    Pen quill(words, paper, {.width = 2.4f}, 19);
    Write(quill, "not now", {W - 84, H - 58}, {.size = 24, .slant = 0.18f}, Anchor::Right, 20);
    border.Cover(words, palette::Slate, 0.85f);
    canvas.Lay(border.CutOut(frame), 0, 0);
    return Squeezed(canvas, 1024, 1024);
}

// clang-format off
Group FX_FlashHandPictures()
{
    return {"FX_FlashHand", {
        {"Data/foto.png",                   1024, 1024, Format::PngRgb, Photograph},
    }};
}
// clang-format on

} // namespace atelier
