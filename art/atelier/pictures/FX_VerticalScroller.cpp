// SPDX-License-Identifier: MIT
// The closing roll: three pages that follow one another upwards without a gap, half a screen wide, two
// screens high each. Bone-white pen on whatever lies behind, with a little night about each stroke.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/Wood.h"
#include "art/atelier/pictures/roll/Page.h"

namespace atelier
{

constexpr int W = PageWidth, H = PageHeight;
constexpr float Middle = PageMiddle;
constexpr float Small = 42; // what is said of a name

static void DrawMoon(Page& page, Vector2 at, float radius)
{
    const Line outer = Arc(at, radius, radius, -2.0f, 2.0f),
               inner = Arc(at - Vector2{radius * 0.46f, 0}, radius * 1.02f, radius * 1.05f, -1.12f, 1.12f);
    Line sickle = outer;
    sickle.insert(sickle.end(), inner.rbegin(), inner.rend());
    page.lights.Fill(Shaken(sickle, 1.5f, 50, 3));
    page.Draw(outer, 5, {.start = 0.1f, .middle = 1, .end = 0.1f});
    Mask shade = Filled(W, H, Ellipse(at, radius * 0.97f, radius * 0.97f));
    shade.Erase(sickle).Scale(0.5f);
    page.pen.nib.width = 2;
    Hatch(page.pen, shade.Blur(5), {.angle = 0.9f, .spacing = 9, .length = 80}, 4);
}

// A tarogato: a cone of wood with keys, a bell, a beak.
static void DrawReed(Page& page, Vector2 at)
{
    const Line axis = Through({at + Vector2{-250, -62}, at + Vector2{0, -4}, at + Vector2{232, 58}});
    page.Body(Limb(axis, 9, 22, 40));
    page.Body(Limb(Through({at + Vector2{228, 57}, at + Vector2{262, 66}}), 38, 46, 66), 5);
    page.Body(
        Limb(Through({at + Vector2{-306, -84}, at + Vector2{-272, -74}, at + Vector2{-248, -62}}), 3, 9, 11));
    for (int i = 0; i < 9; i++) {
        const float t = 0.12f + 0.082f * float(i);
        const Vector2 p = PointAt(axis, t), d = DirectionAt(axis, t), n = {-d.y, d.x};
        page.Draw(Ellipse(p - n * 3, 8 + 4 * t, 6 + 3 * t, 0.2f), 3);
        if (i % 3 == 1)
            page.Draw(Through({p - n * (20 + 10 * t), p - n * 16 + d * 20, p + d * 40}), 3);
    }
    for (float t = 0.05f; t < 1; t += 0.3f) {
        const Vector2 p = PointAt(axis, t), d = DirectionAt(axis, t), n = {-d.y, d.x};
        page.Draw(Through({p - n * (12 + 24 * t), p + d * 4, p + n * (12 + 24 * t)}), 5);
    }
    // What comes out of it: three notes, the last one leaving.
    for (int i = 0; i < 3; i++) {
        const float k = float(i);
        const Vector2 head = at + Vector2{306 + 46 * k, 34 - 34 * k + 20 * float(i % 2)};
        page.accents.Fill(Ellipse(head, 12, 8, -0.4f));
        page.amber.nib.width = 4;
        page.amber.Stroke(Through({head + Vector2{10, -2}, head + Vector2{11, -30}, head + Vector2{13, -58}}),
                          {.start = 0.8f, .middle = 0.7f, .end = 0.7f});
        page.amber.Stroke(
            Through({head + Vector2{13, -58}, head + Vector2{24, -44}, head + Vector2{26, -28}}),
            {.start = 1, .middle = 0.6f, .end = 0});
    }
}

static void DrawBrush(Page& page, Vector2 at)
{
    page.Body(
        Limb(Through({at + Vector2{290, -70}, at + Vector2{120, -34}, at + Vector2{-40, 8}}), 5, 15, 13));
    page.Body(Limb(Through({at + Vector2{-40, 8}, at + Vector2{-96, 24}}), 17, 21, 25), 5);
    for (float k = 0; k < 3; k++)
        page.Draw(Through({at + Vector2{-50 - 16 * k, -9 + 3 * k}, at + Vector2{-46 - 16 * k, 12 + 4 * k},
                           at + Vector2{-40 - 16 * k, 30 + 5 * k}}),
                  3);
    DryBrush hair(
        page.lines, SketchPaper(),
        {.width = 52, .count = 30, .thickness = 2.2f, .load = 0.9f, .ragged = 0.12f, .spread = -0.75f}, 31);
    hair.Stroke(Through({at + Vector2{-92, 24}, at + Vector2{-150, 42}, at + Vector2{-206, 74}}));
    DryBrush trail(page.accents, SketchPaper(),
                   {.width = 26, .count = 16, .thickness = 1.8f, .load = 0.62f, .ragged = 0.3f}, 32);
    trail.Stroke(Through(
        {at + Vector2{-200, 76}, at + Vector2{-120, 110}, at + Vector2{60, 88}, at + Vector2{220, 102}}));
}

static void DrawGear(Page& page, Vector2 at, float radius, int teeth, float turn, uint32_t seed)
{
    Line rim;
    for (int i = 0; i < teeth; i++)
        for (int k = 0; k < 4; k++) {
            const float a = turn + (float(i) + 0.25f * float(k)) * 2 * Pi / float(teeth);
            rim.push_back(at + Vector2{Cos(a), Sin(a)} * (radius * (k < 2 ? 1.0f : 0.83f)));
        }
    rim.push_back(rim.front());
    const Line outline = Shaken(Straight(rim, 2), 1.4f, 20, seed);
    page.Body(outline, 4);
    page.washes.Erase(Ellipse(at, radius * 0.56f, radius * 0.56f));
    page.Draw(Ellipse(at, radius * 0.58f, radius * 0.58f, turn), 4);
    page.Draw(Ellipse(at, radius * 0.17f, radius * 0.17f, turn), 5);
    for (int i = 0; i < 5; i++) {
        const float a = turn + 0.3f + float(i) * 2 * Pi / 5;
        const Vector2 d = {Cos(a), Sin(a)}, n = {-d.y, d.x};
        page.Draw(Through({at + d * (radius * 0.17f) + n * 4, at + d * (radius * 0.4f) + n * 2,
                           at + d * (radius * 0.57f) + n * 6}),
                  4);
        page.Draw(Through({at + d * (radius * 0.17f) - n * 4, at + d * (radius * 0.4f) - n * 2,
                           at + d * (radius * 0.57f) - n * 6}),
                  3);
    }
}

// A lantern held low.
static void DrawLamp(Page& page, Vector2 at)
{
    page.Draw(Arc(at + Vector2{0, -92}, 46, 60, -3.0f, -0.14f), 5);
    page.Body(Round({at + Vector2{-40, -84}, at + Vector2{-14, -108}, at + Vector2{16, -108},
                     at + Vector2{42, -84}}),
              4);
    page.Draw(Through({at + Vector2{-44, -84}, at + Vector2{-56, -10}, at + Vector2{-46, 66}}), 4);
    page.Draw(Through({at + Vector2{44, -84}, at + Vector2{56, -10}, at + Vector2{46, 66}}), 4);
    page.Draw(Through({at + Vector2{-18, -84}, at + Vector2{-24, -10}, at + Vector2{-18, 66}}), 3,
              {.start = 0.3f, .middle = 0.6f, .end = 0.3f});
    page.Draw(Through({at + Vector2{-54, -8}, at + Vector2{0, -2}, at + Vector2{54, -9}}), 3,
              {.start = 0.5f, .middle = 0.3f, .end = 0.5f});
    page.Body(Straight({at + Vector2{-56, 66}, at + Vector2{-64, 96}, at + Vector2{64, 96},
                        at + Vector2{56, 66}, at + Vector2{-56, 66}}),
              5);
    page.lights.Fill(Round({at + Vector2{0, -44}, at + Vector2{13, -8}, at + Vector2{10, 28},
                            at + Vector2{0, 40}, at + Vector2{-11, 26}, at + Vector2{-12, -6}}));
    // Its light goes out from the glass on both sides, the longest rays a little downwards, as the name says.
    const Vector2 flame = at + Vector2{0, -6};
    constexpr int Rays = 8;
    for (int i = 0; i < Rays; i++) {
        const float a = -0.86f + 1.32f * float(i) / (Rays - 1);
        const float from = 86 + page.dice.Range(0, 5);
        const float to = from + (i % 2 == 0 ? 44.0f : 80.0f) * (0.75f + 0.5f * Bell((a - 0.1f) / 0.5f));
        for (float side = -1; side < 2; side += 2) {
            const Vector2 d = {side * Cos(a), Sin(a)};
            const float wander = page.dice.Range(-1.5f, 1.5f), r0 = from, r1 = to + page.dice.Range(-8, 8);
            page.amber.nib.width = 5;
            page.amber.Stroke(
                Through({flame + d * r0, flame + d * (0.5f * (r0 + r1)) + Vector2{-d.y, d.x} * wander,
                         flame + d * r1}),
                {.start = 0.9f, .middle = 0.8f, .end = 0.1f});
        }
    }
}

// An inkpot and a pen that has been put down.
static void DrawInkpot(Page& page, Vector2 at)
{
    page.Body(
        Round({at + Vector2{-70, 70}, at + Vector2{-84, 10}, at + Vector2{-52, -34}, at + Vector2{-28, -44},
               at + Vector2{28, -44}, at + Vector2{54, -32}, at + Vector2{84, 12}, at + Vector2{70, 70}}),
        5);
    page.Body(Straight({at + Vector2{-34, -44}, at + Vector2{-38, -72}, at + Vector2{38, -72},
                        at + Vector2{34, -44}, at + Vector2{-34, -44}}),
              4);
    page.Draw(Ellipse(at + Vector2{0, -72}, 38, 10), 4);
    page.Body(Limb(Through({at + Vector2{6, -68}, at + Vector2{88, -132}, at + Vector2{178, -180}}), 4, 9, 3),
              4);
    for (int i = 0; i < 26; i++) {
        const float t = 0.35f + 0.024f * float(i);
        const Vector2 p =
            PointAt(Through({at + Vector2{6, -68}, at + Vector2{88, -132}, at + Vector2{178, -180}}), t);
        page.Draw(Through({p, p + Vector2{34, -2}, p + Vector2{58, -22}}), 2.6f,
                  {.start = 0.6f, .middle = 0.6f, .end = 0});
        page.Draw(Through({p, p + Vector2{-8, -26}, p + Vector2{10, -52}}), 2.6f,
                  {.start = 0.6f, .middle = 0.6f, .end = 0});
    }
    page.pen.Splatter(at + Vector2{-120, 70}, 60, 16, 5);
}

static void DrawMoth(Page& page, Vector2 at, float size, float turn)
{
    const auto put = [&](Line line) { return Turned(Moved(Scaled(std::move(line), size), at), turn, at); };
    for (float side = -1; side < 2; side += 2) {
        page.Body(put(Round({{0, -4},
                             {side * 30, -46},
                             {side * 76, -56},
                             {side * 84, -30},
                             {side * 54, 2},
                             {side * 14, 10}})),
                  3.4f);
        page.Body(
            put(Round({{side * 4, 8}, {side * 44, 8}, {side * 58, 34}, {side * 34, 52}, {side * 10, 34}})), 3,
            0.8f);
        page.Draw(put(Ellipse({side * 52, -28}, 9, 9)), 3);
        page.Draw(put(Through({{side * 3, -16}, {side * 14, -40}, {side * 30, -62}})), 2.4f,
                  {.start = 0.7f, .middle = 0.5f, .end = 0.1f});
    }
    page.Draw(put(Through({{0, -20}, {2, 10}, {0, 44}})), 9 * size,
              {.start = 0.9f, .middle = 1, .end = 0.2f});
}

// A leg from the body to the ankle, and three toes spread on the ground as seen from a little above, with a spur behind.
static void DrawChickLeg(Page& page, Vector2 hip, Vector2 ankle, float side)
{
    const auto limb = [&](const Line& line, float start, float middle, float end) {
        page.accents.Fill(Shaken(Limb(line, start, middle, end), 1.2f, 18, page.dice.Next()));
        for (float t = 0.3f; t < 0.95f; t += 14 / LengthOf(line)) { // scales
            const Vector2 at = PointAt(line, t), d = DirectionAt(line, t), n = {-d.y, d.x};
            page.accents.Erase(Limb(Through({at - n * 9, at + d * 3, at + n * 9}), 0.6f, 1.3f, 0.6f), 0.6f);
        }
    };
    limb(Through({hip, Mix(hip, ankle, 0.55f) + Vector2{side * 3, 0}, ankle}), 8, 6, 8);
    limb(Through({ankle, ankle + Vector2{-side * 14, 8}, ankle + Vector2{-side * 30, 9}}), 6, 5, 2);
    for (const Vector2 toe : {Vector2{side * 62, 10}, Vector2{side * 46, 32}, Vector2{side * 6, 38}})
        limb(Through({ankle, ankle + toe * 0.55f + Vector2{0, -4}, ankle + toe}), 8, 8, 2.5f);
}

// The chick on its way, looking back once: the ball of down of the evening, now with the moon at its back. Its down grows
// out from the middle in long strokes; those on the right catch the light.
static void DrawChickLeaving(Page& page, Vector2 at)
{
    DrawChickLeg(page, at + Vector2{-26, 96}, at + Vector2{-40, 172}, -1);
    DrawChickLeg(page, at + Vector2{30, 94}, at + Vector2{46, 160}, 1);

    const Line ball =
        Round({at + Vector2{30, -122}, at + Vector2{84, -94}, at + Vector2{98, -40}, at + Vector2{104, 26},
               at + Vector2{74, 88}, at + Vector2{8, 112}, at + Vector2{-66, 96}, at + Vector2{-106, 46},
               at + Vector2{-98, -14}, at + Vector2{-56, -56}, at + Vector2{-34, -104}});
    page.dark.Fill(ball);
    const Mask inside = Filled(W, H, ball);
    const Noise ruffle(44);
    Mask down(W, H), sheen(W, H), lit(W, H);
    Pen dark(down, SketchPaper(), {.width = 5.5f, .wobble = 1, .wave = 24, .skip = 0, .dry = 0, .pool = 0},
             41),
        grey(sheen, SketchPaper(),
             {.width = 3.2f, .wobble = 1, .wave = 24, .skip = 0, .dry = 0.2f, .pool = 0}, 42),
        light(lit, SketchPaper(),
              {.width = 3, .wobble = 0.8f, .wave = 22, .skip = 0.05f, .dry = 0.1f, .pool = 0}, 45);
    // A feather from a place outwards, away from the middle of the body or, higher up, of the head. None lies quite like
    // its neighbour.
    const auto feather = [&](Pen& pen, Vector2 p, float length) {
        const Vector2 middle = at + Mix(Vector2{-8, 10}, Vector2{20, -50}, Smooth(20, -90, p.y - at.y));
        const float a =
            Angle(p - middle) + 0.25f + 0.9f * ruffle.Fbm(p.x / 60, p.y / 60, 3) + 0.32f * page.dice.Bell();
        const Vector2 d = {Cos(a), Sin(a) + 0.18f}, n = {-d.y, d.x};
        const float bow = page.dice.Range(-0.06f, 0.26f);
        pen.Stroke(Through({p, p + d * (length * 0.5f) + n * (length * 0.25f * bow),
                            p + d * length + n * (length * bow)}),
                   {.start = 0.4f, .middle = 0.9f, .end = 0});
    };
    for (int i = 0; i < 330; i++) { // the rim: down of any length
        const Vector2 p = PointAt(ball, (float(i) + page.dice.Unit()) / 330);
        const float far = page.dice.Unit();
        feather(dark, Mix(p, at, page.dice.Range(0.06f, 0.26f)), 26 + 34 * far * far + 10 * page.dice.Unit());
    }
    for (int i = 0; i < 1500; i++) {
        const Vector2 p = at + Vector2{page.dice.Range(-96, 92), page.dice.Range(-112, 96)};
        if (inside.Sample(p.x, p.y) > 0.5f && page.dice.Chance(0.30f))
            feather(grey, p, page.dice.Range(12, 34));
    }
    // The moon is behind it on the right: light lies in the tips of the down there, in tufts, and is lost on the other side.
    for (int i = 0; i < 620; i++) {
        const Vector2 p = PointAt(ball, (float(i) + page.dice.Unit()) / 620), q = p - at;
        const float moon = Smooth(-80, 60, q.x - 0.45f * q.y),
                    tuft = 0.5f + ruffle.Fbm(p.x / 22 + 40, p.y / 22, 2);
        if (!page.dice.Chance(Clamp((0.10f + 0.42f * moon) * (0.15f + 1.2f * tuft))))
            continue;
        light.nib.ink = (0.30f + 0.55f * moon) * page.dice.Range(0.55f, 1);
        light.nib.width = 2.2f + 1.5f * moon * page.dice.Unit();
        feather(light, Mix(p, at, page.dice.Range(-0.10f, 0.12f)),
                page.dice.Range(10, 22) + 16 * moon * page.dice.Unit());
    }
    for (int i = 0; i < 90; i++) { // and a few hairs of it in the middle
        const Vector2 p = at + Vector2{page.dice.Range(-60, 84), page.dice.Range(-20, 92)};
        light.nib.ink = 0.34f;
        light.nib.width = 2;
        if (inside.Sample(p.x, p.y) > 0.5f && page.dice.Chance(0.25f + 0.5f * Smooth(-40, 60, p.x - at.x)))
            feather(light, p, page.dice.Range(12, 26));
    }
    for (int i = 0; i < 13; i++) { // what stands up on its head
        const float k = page.dice.Range(-2.4f, 2.4f), tall = page.dice.Range(0.6f, 1.1f);
        Pen& pen = i % 3 == 0 ? light : dark;
        light.nib.width = 2.8f;
        light.nib.ink = 0.7f;
        pen.Stroke(Through({at + Vector2{26 + 5 * k, -110}, at + Vector2{24 + 9 * k, -110 - 32 * tall},
                            at + Vector2{14 + 17 * k, -110 - (58 - 7 * Abs(k)) * tall}}),
                   {.start = 0.6f, .middle = 0.9f, .end = 0});
    }
    page.dark.Unite(down);
    page.washes.Unite(sheen.Scale(0.46f));
    // The stub of a wing: quills over each other, fine and worn.
    for (int i = 0; i < 9; i++) {
        const float k = 0.55f * float(i) + 0.3f * page.dice.Bell(), worn = page.dice.Range(0.75f, 1);
        const Vector2 root = at + Vector2{-34 + 5 * k, 6 + 5 * k};
        light.nib.width = page.dice.Range(2.2f, 3.2f);
        light.nib.ink = page.dice.Range(0.35f, 0.6f);
        light.Stroke(Through({root, root + Vector2{-22, 30 + k} * worn,
                              root + Vector2{-58 + 8 * k, 52 + 4 * k - 1.2f * k * k} * worn}),
                     {.start = 0.2f, .middle = 0.8f, .end = 0});
    }
    page.lines.Screen(lit);

    // Its beak, and the one eye that sees you.
    for (const Line& half : {Round({at + Vector2{88, -76}, at + Vector2{106, -82}, at + Vector2{140, -58},
                                    at + Vector2{92, -58}}),
                             Round({at + Vector2{92, -53}, at + Vector2{128, -52}, at + Vector2{108, -40},
                                    at + Vector2{90, -44}})}) {
        page.lines.Erase(half);
        page.accents.Fill(half);
    }
    const Vector2 eye = at + Vector2{44, -70};
    page.lines.Erase(Ellipse(eye, 42, 43)).Fill(Shaken(Ellipse(eye, 35, 36), 1, 20, 43));
    page.washes.Erase(Ellipse(eye, 42, 43));
    page.lines.Erase(Ellipse(eye + Vector2{7, 4}, 22, 23));
    page.accents.Fill(Ellipse(eye + Vector2{7, 4}, 22, 23));
    page.accents.Erase(Ellipse(eye + Vector2{9, 5}, 13, 14));
    page.dark.Fill(Ellipse(eye + Vector2{9, 5}, 15, 16));
    page.lines.Fill(Ellipse(eye + Vector2{4, -1}, 4.5f, 5));
}

// A house that leans, and the tree that has taken it as its pot: they stand on the greater wheel.
static void DrawLeaningHouse(Page& page, Vector2 foot)
{
    page.Body(Straight({foot + Vector2{-34, 6}, foot + Vector2{-22, -66}, foot + Vector2{42, -62},
                        foot + Vector2{36, 6}, foot + Vector2{-34, 6}}),
              4);
    page.Body(Straight({foot + Vector2{-36, -62}, foot + Vector2{18, -116}, foot + Vector2{56, -56},
                        foot + Vector2{-36, -62}}),
              5);
    page.lights.Fill(Straight({foot + Vector2{2, -22}, foot + Vector2{4, -46}, foot + Vector2{22, -45},
                               foot + Vector2{21, -21}, foot + Vector2{2, -22}}));
    page.Draw(Through({foot + Vector2{12, -46}, foot + Vector2{12, -22}}), 2.6f);
    page.Draw(Through({foot + Vector2{3, -34}, foot + Vector2{21, -33}}), 2.6f);
    page.pen.nib.width = 4;
    DrawDeadTree(page.pen, foot + Vector2{34, -96},
                 {.height = 66, .trunk = 6, .lean = 0.25f, .generations = 4}, 55);
    DrawDeadTree(page.pen, foot + Vector2{-62, 14},
                 {.height = 66, .trunk = 5, .lean = -0.2f, .generations = 4}, 56);
}

static Canvas Page1()
{
    Page page(1);
    DrawMoon(page, {Middle + 8, 250}, 118);
    page.Words("moonwaltz", 560, 140, 15);
    page.Words("one night, one waltz,", 690, 52);
    page.Words("thirteen pictures", 766, 52);
    page.Aside("by tessel", 854, 48);
    page.Rule(940, 230);

    DrawReed(page, {Middle - 20, 1090});
    page.Words("fen tarogato", 1300, 86);
    page.Aside("the waltz and the wind in it", 1382, 46);
    page.Words("reed, music box, felt, fifty strings", 1456, Small);
    page.Words("that nobody has ever seen", 1520, Small);

    DrawBrush(page, {Middle - 20, 1652});
    page.Words("ochre", 1904, 86);
    page.Aside("everything that was drawn", 1986, 46);
    page.Words("and the hand that drew it", 2058, Small);
    return page.Finished();
}

static Canvas Page2()
{
    Page page(2);
    DrawLeaningHouse(page, {Middle - 92, 196});
    DrawGear(page, {Middle - 80, 330}, 146, 15, 0.1f, 51);
    DrawGear(page, {Middle + 138, 376}, 88, 9, 0.28f, 52);
    page.Words("dunmarrow", 596, 86);
    page.Aside("the engine, all its wheels", 676, 46);
    page.Words("houses that lean, a tree that grows,", 748, Small);
    page.Words("two thousand sparks on nine threads", 812, Small);

    DrawLamp(page, {Middle, 1012});
    page.Words("lowbeam", 1268, 86);
    page.Aside("light, and when it goes out", 1350, 46);
    page.Words("the course of the night, bar by bar", 1422, Small);
    page.Rule(1476, 210);

    DrawInkpot(page, {Middle - 40, 1750});
    page.Words("with a pen, a dry brush, two washes", 1920, Small);
    page.Words("and paper that has a tooth", 1984, Small);
    page.Aside("no font was opened", 2064, 46);
    return page.Finished();
}

static Canvas Page3()
{
    Page page(3);
    DrawMoth(page, {Middle - 250, 170}, 1.15f, -0.5f);
    DrawMoth(page, {Middle + 256, 132}, 0.8f, 0.6f);
    page.Aside("thanks", 190, 60);
    page.Words("to Ida Weißgerber for the kitchen table", 296, Small);
    page.Words("to old Jörn, who lent the moon", 358, Small);
    page.Words("to the ferryman for waiting", 420, Small);
    page.Words("to Malou and the geese", 482, Small);
    page.Words("to everyone who was up at four", 544, Small);
    page.Rule(606, 200);
    page.Words("no chick was told where to go", 676, Small);

    // So high that its feet leave the picture before the sky goes.
    DrawChickLeaving(page, {Middle, 858});
    // Its steps, on to the border of the land.
    for (int i = 0; i < 9; i++) {
        const Vector2 foot = {Middle + (i % 2 == 0 ? -30.0f : 34.0f) + 4 * float(i), 1150 + 65.0f * float(i)};
        const float small = 1 - 0.025f * float(8 - i);
        for (float toe = -1; toe < 2; toe += 1)
            page.Draw(Through({foot, foot + Vector2{toe * 10, -12} * small,
                               foot + Vector2{toe * 19, -22 + 5 * Abs(toe)} * small}),
                      3.4f, {.start = 0.8f, .middle = 0.6f, .end = 0.1f});
    }
    // The horizon, and what is left of the moon.
    page.lights.Fill(Arc({Middle, 1832}, 86, 86, -Pi + 0.42f, -0.42f));
    page.Draw(Through({{170, 1802}, {380, 1796}, {600, 1802}, {860, 1794}}), 5,
              {.start = 0, .middle = 1, .end = 0});
    for (int i = 0; i < 4; i++) {
        const float k = float(i);
        page.amber.nib.width = 4;
        page.amber.Stroke(Through({{Middle - 70 + 14 * k, 1824 + 20 * k},
                                   {Middle, 1820 + 20 * k},
                                   {Middle + 64 - 12 * k, 1825 + 20 * k}}),
                          {.start = 0, .middle = 0.9f - 0.2f * k, .end = 0});
    }
    page.Words("the moon is gone.", 2006, 62);
    page.Words("home now, quietly.", 2094, 62);
    return page.Finished();
}

// clang-format off
PictureGroup FX_VerticalScrollerPictures()
{
    return {"FX_VerticalScroller", {
        {"Data/abspanner_1.png",             512, 2048, Format::PngRgba, Page1},
        {"Data/abspanner_2.png",             512, 2048, Format::PngRgba, Page2},
        {"Data/abspanner_3.png",             512, 2048, Format::PngRgba, Page3},
    }};
}
// clang-format on

} // namespace atelier
