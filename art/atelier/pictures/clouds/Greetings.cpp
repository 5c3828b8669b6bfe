// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Greetings.h"

#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Arm.h"
#include "art/atelier/pictures/clouds/CloudBank.h"
#include "art/atelier/pictures/clouds/Emblems.h"
#include "art/atelier/pictures/clouds/Tools.h"

namespace atelier
{

// Both are painted at this size. The face is squeezed to half of it: it covers a quarter of what the hand covers and is
// drawn with a finer pen.
constexpr int Size = 1024;

// Where the show lays the face into the hand's picture: its centre lies 0.386699 of half the picture to the
// right of the middle and 0.787674 above it, it is 0.26 as large and turned 11.73 degrees clockwise.
constexpr float Half = 0.5f * Size;
constexpr float CardHalf = 0.26f * Half;
static const Sight InPicture = {
    {Half * (1 + 0.386699f), Half*(1 - 0.787674f)}, 11.729964f * Pi / 180, 1, CardHalf};
// The same drawing seen from so near that the card fills the canvas.
static const Sight OnCard = {{Half, Half}, 0, Half / CardHalf, CardHalf};

// The show rolls each card its own way, dives to it twice, and shows a part of it only. The words stand level half-way
// between the two rolls, in what is seen of the card for as long as it is near. The emblem lies where there is room: below
// them, small enough for what is left, or above them on a card that is held upright, whose upper part is out of the
// picture while the hand is seen.
constexpr float ElbowAt = 0.68f; // of the forearm

struct Greeting {
    const char* to;
    const char* tail;
    void (*emblem)(Canvas& canvas, Vector2 at, uint32_t seed);
    float roll;    // degrees, clockwise, at which the card is read
    Vector2 place; // of the words' middle, in sides of the card
    float large;   // capital letters of the name, likewise
    float small;   // capital letters of the lines above and below
    // How far the first line is to the right of the others, in sides of the card: the card's corner is above it.
    float aside;
    float above, below; // room between the lines, in small capitals
    float emblemSize;
    bool emblemAbove;
    float rises; // degrees, clockwise, by which the picture is rolled while the hand is seen whole
    Arm arm;
};

// clang-format off
static const Greeting Greetings[] = {
    // to                tail                        emblem         roll  place            large   small   aside   above  below  emblem       rises  seed  elbow        girth  tan    wear, gesture
    {"lamplighters",    "who leave one burning",     LanternEmblem, 69, {0.327f, 0.380f}, 0.108f, 0.062f,  0.010f, 0.12f, 1.00f, 0.48f, false, 38, {100, {-430, 830}, 0.95f, 0.45f, Wear::Wool, Gesture::Fist}},
    {"ferrymen",        "who wait on the far side",  FerryEmblem,   54, {0.326f, 0.320f}, 0.116f, 0.060f, -0.026f, 0.30f, 1.10f, 0.50f, false, 21, {200, {-70, 806},  1.10f, 0.72f, Wear::Rope, Gesture::Lean}},
    {"night bakers",    "awake for our morning",     LoafEmblem,    18, {0.51f, 0.495f},  0.090f, 0.056f,  0,      0.50f, 1.15f, 0.58f, true,  -2, {300, {-500, 830}, 1.08f, 0.35f, Wear::Flour, Gesture::Tray}},
    {"moth collectors", "who let them go again",     MothEmblem,    36, {0.410f, 0.312f}, 0.100f, 0.062f, -0.042f, 0.12f, 0.90f, 0.54f, false, 15, {400, {-190, 815}, 0.90f, 0.10f, Wear::Lace, Gesture::Pinch}},
    {"tower guards",    "and all is well",           TowerEmblem,   18, {0.50f, 0.470f},  0.096f, 0.062f,  0,      0.12f, 1.45f, 0.58f, true,  0, {500, {-400, 850}, 1.06f, 0.60f, Wear::Leather, Gesture::Clench}},
    {"radio hams",      "is anybody there?",         MastEmblem,    38, {0.408f, 0.322f}, 0.112f, 0.064f, -0.045f, 0.12f, 0.90f, 0.54f, false, 15, {600, {-110, 826}, 0.96f, 0.25f, Wear::Wire, Gesture::Corner}},
};
// clang-format on

// The paper of the cards and its darker border, which the hand's picture needs too: it looks out from under
// the face by a hair.
static void PaintBlankCard(Canvas& canvas, const Sight& sight, uint32_t seed)
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

// The thumb's shadow on the card, tight where it presses and wide where it stands off.
static void ShadeUnderThumb(Canvas& canvas, const Mask& thumb, const Sight& sight)
{
    struct Layer {
        float away, soft, density; // pixels of the hand's frame, the first two
    };
    const float a = CardHalf - 1, s = sight.scale;
    const Mask card =
        Filled(canvas.Width(), canvas.Height(),
               Shape(Straight(sight({{-a, -1}, {a, -1}, {a, -2 * a}, {-a, -2 * a}, {-a, -1}}))));
    for (const Layer& layer : {Layer{3, 1.6f, 0.8f}, Layer{11, 5, 0.6f}}) {
        const Vector2 off = Vector2{0.75f, 0.6f} * (layer.away * s);
        Mask shadow(canvas.Width(), canvas.Height());
        shadow.Each([&](float x, float y) { return thumb.Sample(x - off.x, y - off.y); });
        canvas.Glaze(shadow.Blur(layer.soft * s).Multiply(card), Mix(palette::Ochre, palette::Night, 0.62f),
                     layer.density);
    }
}

// The cloud that the arm comes out of. Its crest crosses the upper border of the sleeve, behind the elbow if the arm lies
// level as the show holds it. The sky turns to rust before the third hand comes.
constexpr float BankBehindElbow = 36, BankFarther = 70, BankAbove = 26;

// Upwards as one sees it, on a canvas that is turned clockwise by `level` before.
static Vector2 UpOn(float level)
{
    return {-Sin(level), -Cos(level)};
}

// Where an outline of the sleeve goes down into the cloud, on the left (-1) or on the right (1). One that stands upright goes
// in by its whole width above the crest.
static Vector2 FootOf(const Arm& arm, const Line& along, float side, Vector2 crest, Vector2 up)
{
    constexpr float AboveUpright = 38, BelowLevel = 14, Wide = 1.4f;
    const Vector2 d = DirectionAt(along, ElbowAt);
    const float below = Mix(-AboveUpright, BelowLevel, Abs(Dot({d.y, -d.x}, up)));
    float t = 0.5f;
    Vector2 p;
    do {
        const Vector2 on = DirectionAt(along, t);
        p = PointAt(along, t) + Vector2{on.y, -on.x} * (side * Wide * ForearmHalf(arm, t));
        t += 0.01f;
    } while (t < 1 && Dot(p - crest, up) > -below);
    return p;
}

// For a sleeve that lies more level than this, the bank's crest is so far behind the elbow, and there is more cloud before it
// at these parts of the forearm's length, so many times its half width to the right of its middle.
constexpr float LiesLevel = 0.9f, BankAtLevel = 34;
constexpr Vector2 LevelFeet[] = {{0.55f, 1.25f}, {0.48f, 1.25f}, {0.42f, 1.25f}, {0.72f, -1.4f}};

static CloudBank BankOf(const Greeting& greeting, bool rust)
{
    const float level = greeting.rises * Pi / 180;
    const Vector2 up = UpOn(level);
    const Line along = Forearm(InPicture, greeting.arm);
    const Vector2 on = DirectionAt(along, ElbowAt), side = {on.y, -on.x};
    const float lies = Abs(Dot(side, up)), half = 1.3f * ForearmHalf(greeting.arm, ElbowAt);
    const bool levelSleeve = lies > LiesLevel;
    const Vector2 crest = PointAt(along, ElbowAt) +
                          on * (BankBehindElbow + (levelSleeve ? BankAtLevel : BankFarther * lies)) +
                          up * ((half + BankAbove) * lies);
    CloudBank bank = {
        crest,
        level,
        rust ? AmberNight : BlueNight,
        greeting.arm.seed + 97,
        {FootOf(greeting.arm, along, -1, crest, up), FootOf(greeting.arm, along, 1, crest, up)}};
    // A sleeve that lies level goes in slowly: its outlines are covered farther on, below as far as its cuff.
    if (levelSleeve)
        for (const Vector2 place : LevelFeet) {
            const Vector2 d = DirectionAt(along, place.x);
            bank.feet.push_back(PointAt(along, place.x) +
                                Vector2{d.y, -d.x} * (place.y * ForearmHalf(greeting.arm, place.x)));
        }
    return bank;
}

// The border of flesh is found pixel by pixel: there each becomes the mean of its neighbours, and within the pen's finest
// lines stay as they are.
static void SmoothBorder(Canvas& canvas)
{
    constexpr float Wide = 2; // pixels, to both sides of the border
    const int width = canvas.Width(), height = canvas.Height();
    // Half a pixel aside each is the mean of four.
    Canvas soft = Placed(canvas, {0, 0}, 0, 1, width, height, {0.5f, 0.5f});
    soft = Placed(soft, {0, 0}, 0, 1, width, height, {-0.5f, -0.5f});
    const Mask alpha = canvas.Alpha(), in = alpha.Inside(2 * Wide), out = alpha.Outside(2 * Wide);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float near = Smooth(Wide + 1, Wide, Max(in.At(x, y), out.At(x, y)));
            const Pixel& to = soft.At(x, y);
            Pixel& p = canvas.At(x, y);
            p = {Mix(p.r, to.r, near), Mix(p.g, to.g, near), Mix(p.b, to.b, near), Mix(p.a, to.a, near)};
        }
}

Canvas GreetingHand(int greeting)
{
    const Arm& arm = Greetings[greeting].arm;
    Canvas canvas(Size, Size);
    const DrawnHand hand(arm, InPicture, Size, Size);
    hand.Paint(canvas);
    SmoothBorder(canvas);
    const Mask thumb = ThumbOnCard(arm, InPicture, Size, Size);
    const Canvas before = Canvas(canvas).CutOut(thumb);
    PaintWear(canvas, InPicture, arm);
    // Behind the elbow and below the crest of the bank it is all cloud, and at the borders that arms come from.
    const CloudBank bank = BankOf(Greetings[greeting], greeting >= 2);
    const Line along = Forearm(InPicture, arm);
    const Vector2 elbow = PointAt(along, ElbowAt), on = DirectionAt(along, ElbowAt), up = UpOn(bank.level);
    canvas.CutOut(Mask(Size, Size)
                      .Each(
                          [&](float x, float y) {
                              const Vector2 p = {x, y};
                              return Max(Smooth(-130, -85, Dot(p - bank.place, up)),
                                         Smooth(-20, -80, Dot(p - elbow, on))) *
                                     Smooth(50, 150, x) * Smooth(Size - 2, Size - 60, y);
                          },
                          2));
    PaintTool(canvas, InPicture, arm, hand);
    PaintBlankCard(canvas, InPicture, arm.seed + 1000);
    ShadeUnderThumb(canvas, thumb, InPicture);
    canvas.Lay(before, 0, 0);
    SketchPaper().Show(canvas, 0.6f);
    Canvas picture(Size, Size);
    bank.PaintBehind(picture);
    picture.Lay(canvas, 0, 0);
    bank.PaintBefore(picture);
    return picture;
}

Canvas GreetingCard(int greeting)
{
    const Greeting& words = Greetings[greeting];
    const uint32_t seed = words.arm.seed + 1000;
    const Paper& paper = SketchPaper();
    Canvas canvas(Size, Size);
    PaintBlankCard(canvas, OnCard, seed);
    const Mask card = canvas.Alpha();

    // As the show holds it: level is turned back by the roll.
    const float level = -words.roll * Pi / 180;
    const Vector2 down = {-Sin(level), Cos(level)};
    const Vector2 middle = {Half, Half}, place = words.place * Size;

    // The words, level and about the middle of a sheet of their own.
    const LetterStyle large{.size = words.large * Size, .spacing = 1.1f},
        small{.size = words.small * Size, .spacing = 1.2f};
    // Ascenders and descenders keep clear of the lines above and below.
    const float base = Half + 0.34f * large.size,
                above = base - 1.22f * large.size - words.above * small.size,
                below = base + 0.46f * large.size + words.below * small.size;
    Mask written(Size, Size);
    Pen quill(written, paper, {.width = small.size / 5.6f, .least = 0.4f, .wobble = 0.6f, .skip = 0},
              seed + 4);
    Write(quill, "greetings to the", {Half + words.aside * Size, above}, small, Anchor::Middle, seed + 5);
    Write(quill, words.tail, {Half, below}, small, Anchor::Middle, seed + 7);
    quill.nib.width = large.size / 6.6f;
    Write(quill, words.to, {Half, base}, large, Anchor::Middle, seed + 6);
    Canvas text(Size, Size);
    text.Cover(written, palette::Ink, 0.95f);

    // A patch of night with something kind in it, below or above them.
    const float patchScale = words.emblemSize;
    const float apart = words.emblemAbove ? above - Half - 1.4f * small.size - 206 * patchScale
                                          : below - Half + 0.4f * small.size + 206 * patchScale;
    Canvas night(Size, Size, palette::Bone);
    paper.Sheet(night, palette::Bone);
    const Mask patch = Filled(Size, Size, Shaken(Ellipse(middle, 318, 206), 26, 210, seed + 2));
    Wash(night, paper, patch,
         {.pigment = Mix(palette::Night, palette::Slate, 0.3f),
          .density = 0.97f,
          .pool = 0.5f,
          .poolWidth = 7,
          .granulation = 0.9f,
          .bloom = 0.75f,
          .bloomSize = 190,
          .stray = 0,
          .bleed = 0},
         seed + 3);
    words.emblem(night, middle, seed + 30);
    night.CutOut(Mask(patch).Blur(2.5f));
    canvas.Lay(Placed(night, middle, level, patchScale, Size, Size, place + down * apart), 0, 0);

    Mask lines(Size, Size);
    Pen pen(lines, paper, {.width = 9, .wobble = 1.4f, .skip = 0.15f}, seed + 8);
    for (const float inset : {40.0f, 58.0f}) {
        const float a = inset, b = Size - inset;
        pen.nib.width = inset < 50 ? 8 : 4;
        for (const Line& side : {Straight({{a, a}, {b, a}}), Straight({{b, a}, {b, b}}),
                                 Straight({{b, b}, {a, b}}), Straight({{a, b}, {a, a}})})
            pen.Stroke(side, {.start = 0.8f, .middle = 1, .end = 0.6f});
    }
    canvas.Cover(lines, palette::Ink, 0.94f);
    canvas.Lay(Placed(text, middle, level, 1, Size, Size, place), 0, 0);
    PaintFastening(canvas, OnCard, words.arm);
    canvas.CutOut(card);
    const Mask thumb = ThumbOnCard(words.arm, OnCard, Size, Size);
    ShadeUnderThumb(canvas, thumb, OnCard);
    canvas.CutOut(Mask(Size, Size, 1).Subtract(thumb));
    return Squeezed(canvas, Size / 2, Size / 2);
}

} // namespace atelier
