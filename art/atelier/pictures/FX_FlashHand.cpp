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

// What can be seen between the fingers: a brow, an eye that looks at us.
struct Eye {
    Mask lines, white;
};

static Eye EyeBetweenFingers(const Paper& paper)
{
    Mask eye(W, H), ball(W, H);
    Pen look(eye, paper, {.width = 6, .wobble = 0.8f, .skip = 0, .pool = 0.2f}, 21);
    const Vector2 at = {742, 412};
    ball.Fill(
        Round({at + Vector2{-34, 2}, at + Vector2{-4, -15}, at + Vector2{32, -2}, at + Vector2{2, 13}}));
    look.Stroke(Through({at + Vector2{-40, 4}, at + Vector2{-6, -19}, at + Vector2{38, -2}}),
                {.start = 0.5f, .middle = 1, .end = 0.4f});
    look.Stroke(Through({at + Vector2{-32, 6}, at + Vector2{2, 16}, at + Vector2{32, 2}}),
                {.start = 0.2f, .middle = 0.5f, .end = 0.2f});
    look.Stroke(Through({at + Vector2{-44, -24}, at + Vector2{-4, -38}, at + Vector2{46, -22}}),
                {.start = 0.5f, .middle = 0.5f, .end = 0.2f});
    for (int i = 0; i < 16; i++) {
        const float k = float(i) * 5.6f;
        look.Stroke(Through({at + Vector2{-44 + k, -46 - 6 * Hill(7, 9, float(i))},
                             at + Vector2{-34 + k, -56 - 5 * Hill(7, 9, float(i))}}),
                    {.start = 0.9f, .middle = 0.9f, .end = 0.3f});
    }
    look.Dot(at + Vector2{1, -1}, 11);
    return {eye.Blur(1.6f), ball.Blurred(2)};
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
    const Eye eye = EyeBetweenFingers(paper);
    const Noise plaster(11), cloth(12);
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
        v = Mix(v,
                cheek * (1 - 0.9f * eye.lines.At(px, py)) +
                    0.3f * eye.white.At(px, py) * (1 - eye.lines.At(px, py)),
                person.face.At(px, py));
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
        return Mix(Mix(palette::Ink, palette::Rust, 0.12f) * 0.8f,
                   Mix(palette::Bone, palette::Parchment, 0.15f), Clamp(Pow(Max(v, 0), 1.15f)));
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
        const float corner = Min(Min(Length({x, y - 46}), Length({W - x, y - 46})),
                                 Min(Length({x, H - 46 - y}), Length({W - x, H - 46 - y})));
        return Smooth(90, 10, corner + 40 * plaster.Fbm(x / 30, y / 30, 3)) +
               0.4f * Smooth(14, 0, Min(x, W - x));
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
    return Squeezed(canvas, 1024, 1024);
}

// clang-format off
PictureGroup FX_FlashHandPictures()
{
    return {"FX_FlashHand", {
        {"Data/foto.png",                   1024, 1024, Format::PngRgb, Photograph},
    }};
}
// clang-format on

} // namespace atelier
