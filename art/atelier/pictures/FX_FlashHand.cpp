// SPDX-License-Identifier: MIT
// Somebody did not want to be photographed: a hand raised against the flash.
#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/photograph/Hand.h"

namespace atelier
{

using photograph::H;
using photograph::Tilted;
using photograph::W;

// The print's border; it is broad below, where something is written.
constexpr float BorderX = 46, BorderY = 92, Foot = H - 176;

// What is behind the hand: a hat, a coat, and no face, for the hand is before it.
struct Person {
    Mask coat, face, hat;
};

static Person WhoeverItIs()
{
    Mask figure(W, H), hat(W, H);
    figure.Fill(Ellipse({660, 420}, 150, 196));
    figure.Fill(Round({{150, 1080},
                       {190, 880},
                       {330, 760},
                       {520, 690},
                       {780, 690},
                       {980, 760},
                       {1110, 890},
                       {1150, 1080}}));
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
    return {figure.Blurred(26), Filled(W, H, Ellipse({668, 430}, 138, 186)).Blurred(22), hat.Blurred(10)};
}

// What can be seen between the fingers: an eye that looks at us, and its brow.
constexpr Vector2 EyePlace = {744, 410};
constexpr float EyeHalf = 48; // from the middle to a corner

// The hairs of brow and lashes.
static Mask EyeHairs(const Paper& paper)
{
    Mask hairs(W, H);
    Pen pen(hairs, paper, {.width = 3.6f, .wobble = 0.6f, .skip = 0.05f, .pool = 0}, 21);
    Dice dice(23);
    const Vector2 at = EyePlace;
    for (int i = 0; i < 44; i++) { // the brow: hairs that lie over each other, up and outward
        const float t = float(i) / 43, x = Mix(-50, 54, t), arch = -47 - 15 * Hill(0.58f, 0.62f, t);
        const float lift = dice.Range(6, 12) * (1 - 0.5f * t);
        pen.nib.width = dice.Range(2.6f, 4.4f);
        pen.Stroke(Through({at + Vector2{x, arch + dice.Range(0, 9)}, at + Vector2{x + 7, arch - lift * 0.6f},
                            at + Vector2{x + dice.Range(12, 19), arch - lift}}),
                   {.start = 0.8f, .middle = 0.9f, .end = 0.1f});
    }
    for (int i = 0; i < 15; i++) { // lashes
        const float t = float(i) / 14, x = Mix(-0.86f, 0.95f, t);
        const Vector2 root = at + Vector2{x * EyeHalf, -23 * (1 - x * x)};
        pen.nib.width = 2.2f;
        pen.Stroke(
            Through({root, root + Vector2{9 * x - 1, -6}, root + Vector2{17 * x + 1, -11 - 3 * (1 - x * x)}}),
            {.start = 1, .middle = 0.7f, .end = 0.1f});
        if (i % 2 == 0) {
            const Vector2 below = at + Vector2{x * EyeHalf * 0.9f, 15 * (1 - 0.81f * x * x)};
            pen.nib.width = 1.5f;
            pen.Stroke(Through({below, below + Vector2{5 * x, 7}}),
                       {.start = 0.6f, .middle = 0.5f, .end = 0});
        }
    }
    return hairs.Blur(0.9f);
}

// The light that comes back from the eye and from what is round it, where the skin's would be `skin`.
static float EyeLight(Vector2 place, float skin, const Noise& fibres)
{
    const Vector2 d = place - EyePlace;
    const float x = d.x / EyeHalf, bow = Max(0, 1 - x * x);
    const float upper = -23 * bow, lower = 15 * bow; // the lids
    // The socket is in shade, deepest at the inner corner and below the brow; the lid has a crease and the lower one a bag.
    float v = skin * (1 - 0.34f * Bell(Length({(d.x + 8) / 62, (d.y + 16) / 34})) -
                      0.22f * Bell(Length({(d.x + 50) / 20, d.y / 26})));
    v *= 1 - 0.55f * Hill(upper - 11 - 2 * x, 5, d.y) * Smooth(1.25f, 0.7f, Abs(x));
    v *= 1 - 0.28f * Hill(lower + 15, 8, d.y) * Smooth(1.1f, 0.5f, Abs(x));
    v += 0.10f * Hill(upper - 5, 5, d.y) * Smooth(1, 0.6f, Abs(x)) +
         0.08f * Hill(lower + 5, 4, d.y) * Smooth(1, 0.6f, Abs(x));
    const float open =
        Smooth(-1.2f, 1.2f, d.y - upper) * Smooth(1.2f, -1.2f, d.y - lower) * (bow > 0 ? 1.0f : 0.0f);
    if (open > 0) {
        // The ball is round: darker to its corners, and below the lid.
        float ball = 0.86f * (1 - 0.42f * x * x) * (1 - 0.55f * Smooth(12, 0, d.y - upper));
        const Vector2 c = d - Vector2{2, -4};
        const float r = Length(c) / 18;
        const float ray = fibres.Fbm(Angle(c) * 6, r * 1.4f, 3);
        const float iris = (0.30f + 0.20f * ray + 0.16f * Smooth(0.25f, 0.8f, c.y / 18)) *
                           (1 - 0.75f * Smooth(0.78f, 0.97f, r)) * (1 - 0.5f * Smooth(14, 0, d.y - upper));
        ball = Mix(ball, iris, Smooth(1.04f, 0.96f, r));
        ball = Mix(ball, 0.015f, Smooth(0.50f, 0.42f, r));
        ball = Mix(ball, 1.25f, Smooth(4.8f, 3.2f, Length(c - Vector2{-5, -6}))); // the flash
        ball += 0.20f * Bell(Length(c - Vector2{6, 8}) / 5) * Smooth(0.5f, 0.6f, r) * Smooth(1, 0.9f, r);
        v = Mix(v, ball, open);
    }
    // The edges of the lids: the upper one heavy with lashes.
    v *= 1 - 0.92f * Hill(upper, 3.6f + 1.6f * Smooth(-0.6f, 0.8f, x), d.y) * Smooth(1.08f, 0.98f, Abs(x));
    v *= 1 - 0.40f * Hill(lower, 2.4f, d.y) * Smooth(1.04f, 0.9f, Abs(x));
    return v;
}

// Value of the negative: 0 no light came back, 1 the paper's white, above it burnt.
static Mask Exposed(const Paper& paper)
{
    const Mask hand = photograph::HandShape(), lit = photograph::LitHand(hand, paper);
    const Mask shirt =
        Filled(W, H, Tilted(Round({{540, 890}, {620, 868}, {712, 880}, {730, 930}, {620, 950}, {532, 936}})))
            .Blur(3);
    const Mask sleeve =
        Filled(W, H,
               Tilted(Round(
                   {{508, 925}, {560, 908}, {640, 902}, {724, 910}, {768, 938}, {800, 1120}, {450, 1120}})));
    const Mask cuff = sleeve.Blurred(3);
    // The hard shadow that a flash throws: the hand's own shape, to the left and below, on the coat and the face.
    const Mask handShade = Mask(W, H)
                               .Each([&](float x, float y) {
                                   return Max(hand.Sample(x + 58, y - 34), sleeve.Sample(x + 58, y - 34));
                               })
                               .Blur(5);
    const Person person = WhoeverItIs();
    const Mask hairs = EyeHairs(paper);
    const Noise plaster(11), cloth(12), fibres(24);
    return Mask(W, H).Each([&](float x, float y) {
        const int px = Floor(x), py = Floor(y);
        const float flash = Bell(Length(Vector2{(x - 600) * 0.8f, y - 470}) / 560);
        const float weave = 0.03f * cloth.Gradient(x / 3.1f, y / 3.1f);
        float v = (0.19f + 0.06f * plaster.Fbm(x / 130, y / 130, 5)) * (0.2f + 1.15f * flash);
        v = Mix(v, 0.045f + weave * 0.7f + 0.05f * Bell(Length(Vector2{x - 860, y - 800}) / 230),
                person.coat.At(px, py));
        const float cheek =
            0.72f * (0.25f + 0.75f * Smooth(1.05f, 0.3f, Length({(x - 710) / 150, (y - 450) / 210}))) *
            (1 - 0.5f * Smooth(380, 330, y));
        v = Mix(v, EyeLight({x, y}, cheek, fibres) * (1 - 0.9f * hairs.At(px, py)), person.face.At(px, py));
        v = Mix(v, 0.05f + weave * 0.8f + 0.05f * Hill(318, 26, y), person.hat.At(px, py));
        v *= 1 - 0.8f * handShade.At(px, py);
        v = Mix(v, lit.At(px, py) + 0.03f * plaster.Fbm(x / 60, y / 60, 3), hand.At(px, py));
        v = Mix(v, 0.95f - 0.25f * Smooth(560, 700, x) + weave, shirt.At(px, py));
        return Mix(v, 0.06f + 0.9f * weave + 0.10f * Hill(610, 120, x), cuff.At(px, py));
    });
}

// The positive, with its grain, a hair and scratches on the negative.
static Canvas Positive(const Mask& value, const Paper& paper)
{
    // Burnt light spills over its edges.
    Mask burnt = value;
    burnt.Curve(0.95f, 1.5f).Blur(16);
    const Noise grain(15), clumps(16);
    Canvas canvas(W, H);
    canvas.Ground([&](float x, float y) {
        const int px = Floor(x), py = Floor(y);
        const float far = Length(Vector2{(x - W / 2.0f) / W, (y - H / 2.0f) / H});
        float v = (value.At(px, py) + 0.35f * burnt.At(px, py)) * (1 - 0.55f * Smooth(0.35f, 0.75f, far));
        // Grain: silver in clumps, most visible where it is neither dark nor white.
        const float g = 0.6f * grain.Gradient(x / 1.7f, y / 1.7f) + 0.5f * clumps.Fbm(x / 3.6f, y / 3.6f, 2);
        v += g * (0.035f + 0.24f * v * Smooth(1.25f, 0.2f, v));
        // Toned brown, so that what is between dark and white is never grey over the sand.
        const float light = Clamp(Pow(Max(v, 0), 1.15f));
        const LinearColour toned = Mix(LinearColour{1, 1, 1}, {1.1f, 0.93f, 0.74f}, Smooth(1, 0.3f, light));
        return toned * Mix(Mix(palette::Ink, palette::Rust, 0.12f) * 0.8f,
                           Mix(palette::Bone, palette::Parchment, 0.15f), light);
    });
    Mask dust(W, H);
    Dice dice(22);
    Pen scratch(dust, paper, {.width = 1.6f, .wobble = 1.5f, .wave = 90, .skip = 0.4f, .pool = 0}, 17);
    scratch.Stroke(Through({{930, 100}, {936, 360}, {928, 640}, {934, 900}}),
                   {.start = 0.1f, .middle = 0.6f, .end = 0});
    scratch.Stroke(Through({{212, 300}, {240, 330}, {236, 372}, {204, 380}, {190, 352}}),
                   {.start = 0.5f, .middle = 0.8f, .end = 0.2f});
    for (int i = 0; i < 60; i++)
        scratch.Dot({dice.Range(60, W - 60), dice.Range(100, H - 100)}, dice.Range(0.5f, 1.5f));
    canvas.Cover(dust, palette::Bone, 0.5f);
    return canvas;
}

// The paper's edge at both sides, worn by pockets: it thins out in fibres and dents, so that no straight line is left over
// the sand when the photograph is going. Above and below it is never seen.
static Mask PaperLeft()
{
    constexpr float Thinned = 16; // pixels
    const Noise dents(25), fibres(26);
    return Mask(W, H).Each([&](float x, float y) {
        const float side = Min(x, W - x), left = x < W / 2.0f ? 0.0f : 30.0f;
        const float torn = 8 + 10 * dents.Fbm(y / 110, left, 4);
        return Smooth(0, Thinned, side - torn + 5 * fibres.Fbm(x / 5, y / 9, 3)) * Smooth(3, 6, side);
    });
}

// The print's border, a little worn at the corners, with a word in pen.
static Canvas Border(const Paper& paper)
{
    Canvas border(W, H);
    paper.Sheet(border, palette::Bone, 0.8f);
    Mask frame(W, H, 1);
    frame.Erase(Shaken(Straight({{BorderX, BorderY},
                                 {W - BorderX, BorderY},
                                 {W - BorderX, Foot},
                                 {BorderX, Foot},
                                 {BorderX, BorderY}}),
                       0.8f, 120, 18));
    const Noise plaster(11);
    const Mask wear = Mask(W, H).Each([&](float x, float y) {
        // Each corner has been bent as often as it was: one not at all.
        const float rub = 40 * plaster.Fbm(x / 30, y / 30, 3) + 26 * plaster.Fbm(x / 90 + 4, y / 90, 2);
        float corner = Smooth(64, 6, Length({x, (y - 46) * 1.6f}) + rub);
        corner = Max(corner, 0.5f * Smooth(50, 8, Length({W - x, y - 46}) + rub));
        corner = Max(corner, Smooth(128, 20, Length({(W - x) * 1.3f, H - 46 - y}) + rub));
        return corner + 0.4f * Smooth(14, 0, Min(x, W - x));
    });
    border.Glaze(wear, palette::Parchment, 1);
    border.Glaze(wear, palette::Ochre, 0.2f);
    Mask words(W, H);
    Pen quill(words, paper, {.width = 10, .skip = 0.04f}, 19);
    Write(quill, "not now", {W / 2.0f + 30, H - 92}, {.size = 66, .slant = 0.16f, .spacing = 1.3f},
          Anchor::Middle, 20);
    border.Cover(words, palette::Ink, 0.92f);
    return border.CutOut(frame);
}

static Canvas Photograph()
{
    const Paper& paper = SketchPaper();
    Canvas canvas = Positive(Exposed(paper), paper);
    canvas.Lay(Border(paper), 0, 0);
    canvas.CutOut(PaperLeft());
    return Squeezed(canvas, 1024, 1024);
}

// clang-format off
PictureGroup FX_FlashHandPictures()
{
    return {"FX_FlashHand", {
        {"Data/foto.png",                   1024, 1024, Format::PngRgba,Photograph},
    }};
}
// clang-format on

} // namespace atelier
