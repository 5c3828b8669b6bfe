// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Greetings.h"

#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Arm.h"
#include "art/atelier/pictures/clouds/Emblems.h"

namespace atelier
{

namespace
{

// Both are painted at twice the size of the file.
constexpr int Size = 1024;

// Where the show lays the face into the hand's picture: its centre lies 0.386699 of half the picture to the
// right of the middle and 0.787674 above it, it is 0.26 as large and turned 11.73 degrees clockwise.
constexpr float Half = 0.5f * Size;
constexpr float CardHalf = 0.26f * Half;
const Sight InPicture = {{Half * (1 + 0.386699f), Half*(1 - 0.787674f)}, 11.729964f * Pi / 180, 1, CardHalf};
// The same drawing seen from so near that the card fills the canvas.
const Sight OnCard = {{Half, Half}, 0, Half / CardHalf, CardHalf};

struct Greeting {
    const char* to;
    const char* tail;
    void (*emblem)(Canvas& canvas, Vec2 at, uint32_t seed);
    Arm arm;
};

// clang-format off
const Greeting Greetings[] = {
    // to                tail                        emblem         seed bend spread girth  tan   wear
    {"lamplighters",    "who leave one burning",     LanternEmblem, {100,  60, 0.4f, 1.00f, 0.45f, Wear::Wool}},
    {"ferrymen",        "who wait on the far side",  FerryEmblem,   {200, -30, 0.1f, 1.10f, 0.85f, Wear::Rope}},
    {"night bakers",    "awake for our morning",     LoafEmblem,    {300,  20, 0.7f, 1.08f, 0.35f, Wear::Flour}},
    {"moth collectors", "who let them go again",     MothEmblem,    {400,  90, 1.0f, 0.90f, 0.10f, Wear::Lace}},
    {"tower guards",    "and all is well",           TowerEmblem,   {500, -50, 0.2f, 1.06f, 0.60f, Wear::Leather}},
    {"radio hams",      "is anybody there?",         MastEmblem,    {600,  40, 0.8f, 0.96f, 0.25f, Wear::Wire}},
};
// clang-format on

// The paper of the cards and its darker border, which the hand's picture needs too: it looks out from under
// the face by a hair.
void PaintBlankCard(Canvas& canvas, const Sight& sight, uint32_t seed)
{
    const auto square = [&](float inset) {
        const float a = CardHalf - inset;
        return Straight(sight({{-a, -a - CardHalf},
                               {a, -a - CardHalf},
                               {a, a - CardHalf},
                               {-a, a - CardHalf},
                               {-a, -a - CardHalf}}));
    };
    const float s = sight.scale;
    const Mask card = Filled(canvas.Width(), canvas.Height(), Shaken(square(2), 1.0f * s, 18 * s, seed));
    Canvas sheet(canvas.Width(), canvas.Height(), palette::Bone);
    SketchPaper().Sheet(sheet, Mix(palette::Bone, palette::Parchment, 0.35f));
    Wash(sheet, SketchPaper(), Mask(card).Subtract(Mask(card).Blur(13 * s).Curve(0.55f, 1)),
         {.pigment = palette::Ochre, .density = 0.4f, .bloomSize = 34 * s}, seed + 1);
    canvas.Lay(sheet.CutOut(card), 0, 0);
}

} // namespace

Canvas GreetingHand(int greeting)
{
    const Arm& arm = Greetings[greeting].arm;
    Canvas canvas(Size, Size);
    PaintHand(canvas, InPicture, arm);
    PaintWear(canvas, InPicture, arm);
    PaintBlankCard(canvas, InPicture, arm.seed + 1000);
    PaintThumb(canvas, InPicture, arm);
    SketchPaper().Show(canvas, 0.6f);
    // The arm comes out of the cloud.
    const Noise cloud(arm.seed + 99);
    canvas.CutOut(
        Mask(Size, Size)
            .Each(
                [&](float x, float y) { return Smooth(1000, 800, y + 70 * cloud.Fbm(x / 120, y / 120, 4)); },
                2));
    return Squeezed(canvas, Size / 2, Size / 2);
}

Canvas GreetingCard(int greeting)
{
    const Greeting& words = Greetings[greeting];
    const uint32_t seed = words.arm.seed + 1000;
    const Paper& paper = SketchPaper();
    Canvas canvas(Size, Size);
    PaintBlankCard(canvas, OnCard, seed);
    const Mask card = canvas.Alpha();

    // A patch of night with something kind in it.
    const Vec2 at = {512, 282};
    const Mask patch = Filled(Size, Size, Shaken(Ellipse(at, 318, 206), 26, 210, seed + 2));
    Wash(canvas, paper, patch,
         {.pigment = Mix(palette::Night, palette::Slate, 0.3f),
          .density = 0.97f,
          .pool = 0.5f,
          .poolWidth = 7,
          .granulation = 0.9f,
          .bloom = 0.75f,
          .bloomSize = 190,
          .stray = 6,
          .bleed = 12,
          .wetness = 0.3f},
         seed + 3);
    words.emblem(canvas, at, seed + 30);

    Mask lines(Size, Size);
    Pen pen(lines, paper, {.width = 9, .wobble = 1.4f, .skip = 0.15f}, seed + 4);
    for (const float inset : {40.0f, 58.0f}) {
        const float a = inset, b = Size - inset;
        pen.nib.width = inset < 50 ? 8 : 4;
        for (const Line& side : {Straight({{a, a}, {b, a}}), Straight({{b, a}, {b, b}}),
                                 Straight({{b, b}, {a, b}}), Straight({{a, b}, {a, a}})})
            pen.Stroke(side, {.start = 0.8f, .middle = 1, .end = 0.6f});
    }
    pen.nib = {.width = 6, .wobble = 0.6f, .skip = 0};
    Write(pen, "greetings to the", {512, 580}, {.size = 54}, Anchor::Middle, seed + 5);
    LetterStyle large{.size = 140};
    large.size *= Min(1, 830 / WidthOf(words.to, large));
    pen.nib.width = large.size / 7.5f;
    Write(pen, words.to, {512, 742}, large, Anchor::Middle, seed + 6);
    pen.nib.width = 6;
    Write(pen, words.tail, {570, 886}, {.size = 50}, Anchor::Middle, seed + 7);
    canvas.Cover(lines, palette::Ink, 0.94f);
    PaintThumb(canvas, OnCard, words.arm);
    canvas.CutOut(card);
    return Squeezed(canvas, Size / 2, Size / 2);
}

} // namespace atelier
