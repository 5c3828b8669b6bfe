// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Emblems.h"

#include "art/atelier/Glow.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Body.h"

namespace atelier
{

// A small picture in the making: paint in body colour, ink lines over it, light last.
class Vignette
{
public:
    Vignette(Canvas& newCanvas, Vector2 newAt, uint32_t newSeed)
        : canvas(newCanvas), at(newAt), seed(newSeed + 50), lines(canvas.Width(), canvas.Height()),
          pen(lines, SketchPaper(), {.width = 8, .wobble = 1.4f, .skip = 0.15f}, newSeed)
    {
    }
    ~Vignette() { canvas.Cover(lines, palette::Ink, 0.95f); }
    Vignette(const Vignette&) = delete;
    Vignette& operator=(const Vignette&) = delete;

    std::vector<Vector2> At(std::vector<Vector2> points) const
    {
        for (Vector2& p : points)
            p = at + p;
        return points;
    }
    // A closed shape in paint that dries unevenly, with corners where `straight`.
    void Paint(const std::vector<Vector2>& points, LinearColour colour, float opacity = 0.95f,
               bool straight = false)
    {
        std::vector<Vector2> closed = At(points);
        if (straight)
            closed.push_back(closed.front());
        const uint32_t first = seed;
        seed += 3;
        Around(canvas, closed, 30, [&](Canvas& part, Vector2 origin) {
            const Line outline = Moved(straight ? Straight(closed) : Round(closed), Vector2{} - origin);
            const Mask shape = Filled(part.Width(), part.Height(), Shaken(outline, 2, 30, first));
            const Noise noise(first + 1);
            part.Cover(
                shape, [&](float x, float y) { return colour * (1 + 0.22f * noise.Fbm(x / 46, y / 46, 4)); },
                opacity);
            Wash(part, SketchPaper(), shape,
                 {.pigment = Mix(colour, palette::Rust, 0.4f),
                  .density = 0.25f,
                  .pool = 1.6f,
                  .poolWidth = 4,
                  .stray = 1},
                 first + 2);
        });
    }
    void Outline(const std::vector<Vector2>& points, bool straight = false)
    {
        std::vector<Vector2> closed = At(points);
        if (straight)
            closed.push_back(closed.front());
        pen.Stroke(straight ? Straight(closed) : Round(closed), {0.6f, 1, 0.4f});
    }
    void Ink(const std::vector<std::vector<Vector2>>& strokes, float width = 6)
    {
        pen.nib.width = width;
        for (const std::vector<Vector2>& stroke : strokes)
            pen.Stroke(Through(At(stroke)), {0.5f, 1, 0.3f});
        pen.nib.width = 8;
    }
    void Bright(const std::vector<std::vector<Vector2>>& strokes, LinearColour colour, float width = 5)
    {
        Mask mask(canvas.Width(), canvas.Height());
        Pen light(mask, SketchPaper(), {.width = width, .wobble = 1, .skip = 0.1f}, ++seed);
        for (const std::vector<Vector2>& stroke : strokes)
            light.Stroke(Through(At(stroke)), {0.4f, 1, 0.2f});
        canvas.Cover(mask, colour, 0.9f);
    }
    void Lamp(Vector2 place, float radius, float reach, LinearColour halo = palette::Amber,
              float strength = 0.9f)
    {
        GlowAt(canvas, at + place, radius, reach, {.halo = halo, .strength = strength, .haloPart = 0.45f});
    }
    void Stars(int count)
    {
        Mask mask(canvas.Width(), canvas.Height());
        Pen light(mask, SketchPaper(), {.width = 2}, ++seed);
        Dice dice(++seed);
        for (int i = 0; i < count; i++)
            light.Dot(at + Vector2{dice.Range(-250, 250), dice.Range(-165, 20)},
                      1.2f + 2 * Pow(dice.Unit(), 3));
        canvas.Cover(mask, palette::Bone, 0.8f);
    }

    Canvas& canvas;
    Vector2 at;
    uint32_t seed;
    Mask lines;
    Pen pen;
};

// clang-format off
void LanternEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    v.Stars(16);
    v.Lamp({0, -12}, 60, 250, palette::Amber, 0.75f);
    v.Paint({{-62, -72}, {62, -72}, {38, 84}, {-38, 84}}, Mix(palette::Amber, palette::Bone, 0.25f), 0.9f, true);
    v.Paint({{-76, -72}, {-34, -116}, {0, -128}, {34, -116}, {76, -72}}, Mix(palette::Slate, palette::Night, 0.5f), 1, true);
    v.Paint({{-44, 84}, {44, 84}, {26, 106}, {-26, 106}}, Mix(palette::Slate, palette::Night, 0.5f), 1, true);
    v.Paint({{-9, 104}, {9, 104}, {12, 215}, {-12, 215}}, Mix(palette::Slate, palette::Night, 0.6f), 1, true);
    v.Paint({{0, 58}, {-24, 22}, {-6, -44}, {20, 16}}, palette::Bone);
    v.Outline({{-62, -72}, {62, -72}, {38, 84}, {-38, 84}}, true);
    v.Outline({{-76, -72}, {-34, -116}, {0, -128}, {34, -116}, {76, -72}}, true);
    v.Ink({{{0, -126}, {-13, -142}, {0, -158}, {13, -142}, {0, -126}}, {{-22, -70}, {-14, 82}}, {{22, -70}, {14, 82}}, {{-44, 90}, {0, 96}, {44, 90}}}, 5);
    v.Bright({{{-104, -50}, {-160, -72}}, {{104, -50}, {160, -72}}, {{-98, 14}, {-158, 22}}, {{98, 14}, {158, 22}}, {{-84, 70}, {-128, 104}}, {{84, 70}, {128, 104}}}, palette::Amber, 6);
}

// A ferryman bent over his pole, and somebody in a shawl who looks ahead.
void FerryEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    const LinearColour skin = Mix(palette::Parchment, palette::Ochre, 0.25f), shawl = Mix(palette::Rust, palette::Ochre, 0.2f);
    const LinearColour coat = Mix(palette::Mist, palette::Slate, 0.3f), straw = Mix(palette::Amber, palette::Parchment, 0.4f);
    v.Stars(14);
    v.Lamp({-150, -110}, 24, 110, palette::Amber, 0.45f);
    v.Paint({{-186, -110}, {-174, -138}, {-146, -148}, {-120, -136}, {-110, -110}, {-121, -83}, {-148, -72}, {-175, -83}}, Mix(palette::Bone, palette::Amber, 0.2f));
    v.Bright({{{-186, 152}, {-130, 160}, {-70, 152}}, {{-140, 178}, {-70, 186}, {10, 178}}, {{40, 150}, {100, 158}, {176, 146}}, {{30, 182}, {90, 188}, {140, 180}}}, Mix(palette::Bone, palette::Amber, 0.2f), 6);
    // She sits: a shawl over head and back, a knee, a bundle in her lap.
    v.Paint({{-104, 66}, {-104, 22}, {-92, -18}, {-70, -48}, {-42, -50}, {-28, -30}, {-34, -8}, {-20, 22}, {-6, 40}, {-2, 68}}, shawl);
    v.Paint({{-62, -34}, {-46, -42}, {-34, -30}, {-30, -20}, {-36, -8}, {-52, -6}, {-62, -16}}, skin);
    v.Paint({{-26, 34}, {-10, 20}, {12, 24}, {18, 44}, {6, 60}, {-20, 58}}, Mix(palette::Bone, palette::Ochre, 0.2f));
    // He stands in the stern and leans on the pole: a back, a bent knee, both hands before his chest.
    v.Ink({{{-10, -156}, {30, -40}, {96, 178}}}, 9);
    v.Paint({{92, 84}, {84, 40}, {96, 6}, {84, -26}, {62, -52}, {66, -74}, {92, -78}, {122, -58}, {138, -14}, {142, 30}, {156, 70}, {130, 84}, {120, 46}, {112, 84}}, coat);
    v.Paint({{92, -60}, {66, -42}, {36, -34}, {26, -44}, {32, -54}, {58, -60}, {80, -76}}, coat * 0.85f);
    v.Paint({{100, -36}, {74, -6}, {48, 6}, {38, -4}, {44, -16}, {66, -26}, {86, -50}}, coat * 0.85f);
    v.Paint({{22, -58}, {34, -60}, {40, -48}, {32, -36}, {20, -42}}, skin);
    v.Paint({{34, -16}, {46, -18}, {52, -4}, {44, 8}, {32, 2}}, skin);
    v.Paint({{54, -104}, {72, -112}, {90, -100}, {90, -80}, {76, -70}, {60, -76}, {48, -86}}, skin);
    v.Paint({{30, -100}, {62, -114}, {66, -136}, {92, -140}, {104, -118}, {124, -100}, {92, -98}, {60, -96}}, straw);
    v.Ink({{{30, -100}, {60, -96}, {92, -98}, {124, -100}}, {{62, -112}, {66, -136}, {92, -140}, {104, -116}}, {{138, -14}, {122, -58}, {92, -78}}, {{142, 30}, {156, 70}}, {{120, 46}, {114, 18}, {122, -4}}, {{92, 84}, {84, 40}, {96, 6}},
           {{-104, 62}, {-104, 22}, {-92, -18}, {-70, -48}, {-42, -50}, {-28, -30}}, {{-34, -8}, {-20, 22}, {-6, 40}}, {{-66, 60}, {-58, 24}, {-62, -2}}}, 7);
    v.Paint({{-196, 36}, {-90, 66}, {60, 68}, {190, 28}, {146, 96}, {64, 122}, {-60, 122}, {-146, 100}}, Mix(palette::Ochre, palette::Rust, 0.35f));
    v.Ink({{{-196, 36}, {-90, 66}, {60, 68}, {190, 28}}, {{-196, 36}, {-152, 98}, {-60, 122}, {64, 122}, {146, 96}, {190, 28}}, {{-166, 74}, {-60, 96}, {64, 96}, {156, 66}}}, 8);
}

// A round loaf on the sill of the oven, before its arch and what is left of the fire.
void LoafEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    v.Lamp({0, 20}, 90, 320, palette::Amber, 0.55f);
    v.Paint({{-180, 122}, {-184, 20}, {-150, -86}, {-70, -140}, {0, -150}, {70, -140}, {150, -86}, {184, 20}, {180, 122}}, Mix(palette::Ink, palette::Rust, 0.3f));
    // The arch, stone by stone.
    for (int i = 0; i < 13; i++) {
        const float from = Pi - 0.2f + (Pi + 0.4f) / 13 * float(i), to = from + (Pi + 0.4f) / 13 - 0.025f;
        const auto p = [](float a, float r) { return Vector2{Cos(a) * r * 1.06f, 30 + Sin(a) * r}; };
        const LinearColour stone = Mix(Mix(palette::Rust, palette::Ochre, i % 3 == 0 ? 0.45f : 0.2f), palette::Slate, i % 2 == 0 ? 0.3f : 0.1f) * 0.9f;
        v.Paint({p(from, 160), p(to, 160), p(to, 196 + 6 * float(i % 2)), p(from, 196 + 6 * float(i % 2))}, stone, 0.95f, true);
        v.Ink({{p(from - 0.012f, 158), p(from - 0.012f, 180), p(from - 0.012f, 200)}}, 4);
    }
    // Embers beside the loaf, and the glow that they throw on the vault.
    v.Lamp({-122, 78}, 30, 120, palette::Amber, 0.8f);
    v.Lamp({126, 80}, 28, 120, palette::Amber, 0.75f);
    for (const Vector2 p : {Vector2{-158, 98}, {-142, 104}, {-124, 100}, {-148, 84}, {-128, 84}, {126, 100}, {144, 104}, {158, 98}, {150, 84}, {130, 84}})
        v.Paint({p + Vector2{-11, 3}, p + Vector2{-4, -9}, p + Vector2{9, -6}, p + Vector2{11, 6}, p + Vector2{-2, 10}}, p.y < 90 ? Mix(palette::Amber, palette::Bone, 0.3f) : Mix(palette::Rust, palette::Amber, 0.5f));
    v.Paint({{-236, 112}, {0, 106}, {236, 112}, {232, 138}, {0, 146}, {-232, 138}}, Mix(palette::Ochre, palette::Rust, 0.6f) * 0.7f);
    // The loaf: a dark foot, the crust, where the light falls on it, and three cuts that have opened.
    v.Paint({{-106, 106}, {-120, 66}, {-98, 8}, {-50, -34}, {6, -44}, {60, -30}, {100, 10}, {120, 64}, {106, 108}, {0, 120}}, Mix(palette::Rust, palette::Ochre, 0.35f));
    v.Paint({{-100, 66}, {-86, 16}, {-44, -22}, {6, -34}, {54, -20}, {86, 12}, {92, 46}, {40, 64}, {-50, 76}}, Mix(palette::Ochre, palette::Amber, 0.45f), 0.92f);
    v.Paint({{-80, 30}, {-50, -8}, {-8, -26}, {30, -24}, {-10, 2}, {-54, 36}}, Mix(palette::Amber, palette::Bone, 0.4f), 0.7f);
    for (const Vector2 p : {Vector2{-42, 34}, {8, 24}, {56, 32}}) {
        v.Paint({p + Vector2{-36, 38}, p + Vector2{-16, 4}, p + Vector2{20, -38}, p + Vector2{10, 2}, p + Vector2{-14, 32}}, Mix(palette::Rust, palette::Ink, 0.25f), 0.85f);
        v.Paint({p + Vector2{-32, 32}, p + Vector2{-16, 2}, p + Vector2{16, -34}, p + Vector2{4, 0}, p + Vector2{-16, 26}}, Mix(palette::Bone, palette::Amber, 0.2f), 0.95f);
    }
    v.Ink({{{-106, 106}, {-120, 66}, {-98, 8}, {-50, -34}, {6, -44}, {60, -30}, {100, 10}, {120, 64}, {106, 108}}}, 8);
    v.Ink({{{-100, 88}, {-50, 102}, {20, 106}}, {{-88, 96}, {-56, 106}}, {{70, 96}, {94, 84}, {104, 62}}, {{62, 106}, {92, 98}}, {{-236, 113}, {0, 107}, {236, 113}}, {{-130, 126}, {-40, 130}}, {{60, 128}, {160, 124}}}, 4.5f);
}

void MothEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    v.Stars(14);
    v.Lamp({0, -20}, 30, 230, palette::Amber, 0.5f);
    for (const float side : {-1.0f, 1.0f}) {
        const auto w = [side](std::vector<Vector2> points) {
            for (Vector2& p : points)
                p.x *= side;
            return points;
        };
        v.Paint(w({{12, 6}, {90, 26}, {128, 90}, {84, 138}, {36, 104}}), Mix(palette::Ochre, palette::Parchment, 0.25f));
        v.Paint(w({{8, -50}, {70, -118}, {176, -136}, {196, -84}, {132, -8}, {14, 6}}), Mix(palette::Parchment, palette::Mist, 0.25f));
        v.Paint(w({{92, -64}, {112, -86}, {132, -64}, {112, -42}}), palette::Rust);
        v.Paint(w({{104, -64}, {112, -73}, {120, -64}, {112, -55}}), palette::Ink);
        v.Paint(w({{62, 80}, {78, 66}, {92, 84}, {78, 98}}), palette::Rust);
        v.Ink({w({{8, -50}, {70, -118}, {176, -136}}), w({{176, -136}, {200, -84}, {132, -8}, {14, 6}}), w({{14, 6}, {90, 26}, {130, 90}, {84, 140}, {36, 104}, {8, 40}})}, 8);
        v.Ink({w({{22, -42}, {80, -86}, {164, -118}}), w({{24, -26}, {80, -34}, {170, -76}}), w({{20, -12}, {70, -14}, {142, -30}}), w({{24, 22}, {60, 60}, {80, 118}}), w({{22, 16}, {70, 44}, {112, 84}}), w({{150, -126}, {166, -92}, {150, -40}})}, 4);
        v.Bright({w({{5, -74}, {24, -122}, {58, -154}})}, palette::Bone, 6);
    }
    v.Paint({{0, -78}, {-16, -36}, {-14, 50}, {0, 124}, {14, 50}, {16, -36}}, Mix(palette::Rust, palette::Ochre, 0.3f));
    v.Ink({{{0, -78}, {-16, -36}, {-14, 50}, {0, 124}, {14, 50}, {16, -36}, {0, -78}}, {{-13, -4}, {13, -2}}, {{-13, 26}, {13, 28}}, {{-10, 58}, {10, 60}}, {{-7, 88}, {7, 90}}}, 6);
}

// A tower of rough stone over sleeping roofs, and the one who is awake on it: cloak, hat, spear, lantern.
void TowerEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at + Vector2{0, 62}, seed);
    v.Stars(18);
    v.Lamp({74, -120}, 16, 190, palette::Amber, 0.6f);
    // The roofs.
    v.Paint({{-290, 156}, {-280, 100}, {-240, 62}, {-196, 98}, {-170, 68}, {-120, 110}, {-110, 156}}, Mix(palette::Night, palette::Slate, 0.55f), 1, true);
    v.Paint({{120, 156}, {116, 114}, {160, 74}, {204, 110}, {236, 86}, {286, 124}, {280, 156}}, Mix(palette::Night, palette::Slate, 0.5f), 1, true);
    v.Paint({{-244, 114}, {-244, 98}, {-230, 98}, {-230, 114}}, palette::Amber, 1, true);
    v.Paint({{196, 136}, {196, 122}, {208, 122}, {208, 136}}, Mix(palette::Amber, palette::Rust, 0.3f), 1, true);
    v.Ink({{{-284, 102}, {-240, 62}, {-196, 98}, {-170, 68}, {-120, 110}}, {{114, 116}, {160, 74}, {204, 110}, {236, 86}, {288, 126}}}, 6);
    // The shaft, course by course: the light comes from the left.
    v.Paint({{-92, 210}, {-70, 80}, {-62, -40}, {62, -40}, {70, 80}, {92, 210}}, Mix(palette::Slate, palette::Night, 0.35f), 1, true);
    Dice dice(seed + 40);
    for (int row = 0; row < 9; row++) {
        const float top = -38 + 27 * float(row), bottom = top + 24;
        const float half = 60 + 30 * Pow(float(row) / 9, 2);
        float x = -half + (row % 2 == 0 ? 0 : 6);
        while (x < half - 10) {
            const float wide = Min(dice.Range(22, 40), half - x);
            const float side = (x + 0.5f * wide) / half;
            const LinearColour stone = Mix(Mix(palette::Parchment, palette::Mist, dice.Range(0.25f, 0.6f)), palette::Night, Clamp(0.16f + 0.46f * Smooth(-0.4f, 1, side) + dice.Range(-0.06f, 0.08f)));
            v.Paint({{x, top + dice.Range(0, 3)}, {x + wide - 4, top + dice.Range(0, 3)}, {x + wide - 4, bottom}, {x, bottom - dice.Range(0, 3)}}, stone, 0.95f, true);
            x += wide;
        }
    }
    v.Paint({{-9, 72}, {-9, 34}, {0, 22}, {9, 34}, {9, 72}}, palette::Amber, 1, true);
    v.Lamp({0, 50}, 10, 70, palette::Amber, 0.7f);
    v.Paint({{-22, 210}, {-22, 172}, {0, 152}, {22, 172}, {22, 210}}, Mix(palette::Ink, palette::Rust, 0.2f), 1, true);
    // The guard stands behind the parapet, and the lantern in his hand lights that side of him.
    const LinearColour cloth = Mix(palette::Ochre, palette::Parchment, 0.3f), steel = Mix(palette::Mist, palette::Slate, 0.35f);
    const LinearColour dark = Mix(palette::Rust, palette::Ink, 0.45f), face = Mix(palette::Parchment, palette::Ochre, 0.25f);
    v.Bright({{{-50, -60}, {-46, -150}, {-43, -240}}}, Mix(palette::Parchment, palette::Slate, 0.4f), 8);
    v.Paint({{-43, -268}, {-33, -246}, {-42, -228}, {-52, -246}}, Mix(palette::Mist, palette::Bone, 0.5f), 1, true);
    v.Paint({{-42, -66}, {-37, -128}, {-24, -166}, {0, -178}, {24, -166}, {37, -126}, {42, -66}}, cloth);
    v.Paint({{-42, -66}, {-37, -128}, {-24, -166}, {-8, -172}, {-16, -128}, {-14, -66}}, dark);
    v.Paint({{-30, -160}, {-56, -142}, {-56, -124}, {-40, -124}, {-22, -136}}, Mix(dark, cloth, 0.35f));
    v.Paint({{18, -164}, {46, -152}, {68, -152}, {68, -136}, {44, -130}, {18, -136}}, cloth);
    v.Paint({{66, -154}, {79, -152}, {79, -138}, {66, -136}}, face);
    v.Paint({{-58, -142}, {-44, -144}, {-42, -128}, {-57, -126}}, face);
    v.Paint({{-14, -210}, {-13, -192}, {0, -178}, {14, -190}, {17, -210}, {2, -216}}, face);
    v.Paint({{-14, -200}, {-14, -186}, {0, -166}, {13, -184}, {14, -194}, {2, -188}}, Mix(palette::Mist, palette::Slate, 0.3f));
    v.Paint({{-18, -212}, {-13, -232}, {1, -241}, {15, -232}, {20, -213}}, steel);
    v.Paint({{-34, -206}, {-14, -216}, {2, -218}, {20, -217}, {38, -208}, {2, -206}}, Mix(steel, palette::Night, 0.3f));
    v.Paint({{65, -134}, {83, -134}, {81, -106}, {67, -106}}, Mix(palette::Amber, palette::Bone, 0.45f), 1, true);
    v.Ink({{{-42, -66}, {-37, -128}, {-24, -166}, {-6, -175}}, {{22, -168}, {46, -153}, {66, -153}}, {{68, -136}, {44, -130}, {28, -134}, {40, -100}, {42, -66}},
           {{-14, -66}, {-16, -128}, {-8, -168}}, {{8, -164}, {12, -120}, {8, -70}}, {{22, -128}, {26, -96}, {24, -70}}, {{-34, -207}, {2, -204}, {38, -209}}, {{-18, -213}, {-12, -233}, {1, -241}, {15, -233}, {20, -214}},
           {{62, -134}, {86, -134}}, {{64, -106}, {84, -106}}, {{67, -133}, {68, -107}}, {{81, -133}, {80, -107}}, {{4, -200}, {8, -200}}}, 4);
    v.Bright({{{26, -163}, {46, -151}, {64, -151}}, {{32, -124}, {38, -92}, {38, -72}}, {{16, -206}, {15, -196}}, {{17, -229}, {20, -216}}}, Mix(palette::Amber, palette::Bone, 0.4f), 4);
    // The battlement leans out on corbels; one merlon is broken.
    v.Paint({{-62, -36}, {-90, -62}, {90, -62}, {62, -36}}, Mix(palette::Slate, palette::Ink, 0.35f), 1, true);
    v.Paint({{-92, -60}, {-92, -108}, {-62, -108}, {-62, -86}, {-34, -86}, {-34, -100}, {-8, -108}, {-8, -86}, {20, -86}, {64, -86}, {64, -108}, {92, -108}, {92, -60}}, Mix(Mix(palette::Parchment, palette::Mist, 0.4f), palette::Slate, 0.25f), 1, true);
    v.Paint({{30, -60}, {30, -86}, {64, -86}, {64, -108}, {92, -108}, {92, -60}}, Mix(palette::Slate, palette::Night, 0.2f), 0.8f, true);
    v.Ink({{{-92, -60}, {-92, -108}, {-62, -108}}, {{-62, -86}, {-34, -86}, {-34, -100}, {-8, -108}, {-8, -86}, {30, -86}}, {{92, -60}, {92, -108}, {64, -108}, {64, -86}}, {{-92, -61}, {0, -57}, {92, -61}}, {{-50, -60}, {-50, -40}}, {{-18, -60}, {-18, -40}}, {{16, -60}, {16, -40}}, {{48, -60}, {48, -40}}, {{-56, -74}, {-30, -74}}, {{-6, -72}, {22, -72}}}, 4.5f);
    v.Ink({{{-92, 210}, {-70, 80}, {-62, -40}}}, 6);
    v.Ink({{{92, 210}, {70, 80}, {62, -40}}}, 9);
    v.Lamp({74, -118}, 9, 80, palette::Amber, 0.8f);
}

void MastEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    v.Stars(16);
    v.Paint({{-230, 186}, {-120, 160}, {0, 154}, {130, 162}, {230, 188}, {120, 210}, {-120, 210}}, Mix(palette::Moss, palette::Night, 0.5f));
    v.Paint({{-150, 168}, {-150, 128}, {-118, 104}, {-86, 128}, {-86, 168}}, Mix(palette::Rust, palette::Ochre, 0.3f), 1, true);
    v.Paint({{-128, 150}, {-128, 132}, {-108, 132}, {-108, 150}}, palette::Amber, 1, true);
    v.Bright({{{-70, 172}, {-34, 20}, {0, -110}}, {{70, 172}, {34, 20}, {0, -110}}}, palette::Bone, 11);
    v.Bright({{{-58, 124}, {46, 72}}, {{58, 124}, {-46, 72}}, {{-46, 72}, {32, 16}}, {{46, 72}, {-32, 16}}, {{-32, 16}, {20, -34}}, {{32, 16}, {-20, -34}}, {{-20, -34}, {10, -72}}, {{20, -34}, {-10, -72}}}, palette::Parchment, 6);
    for (const float radius : {48.0f, 90.0f, 134.0f}) {
        std::vector<std::vector<Vector2>> arcs(2);
        for (int i = -3; i <= 3; i++) {
            const float a = float(i) * 0.2f;
            arcs[0].push_back(Vector2{Cos(a) * radius, Sin(a) * radius - 118});
            arcs[1].push_back(Vector2{-Cos(a) * radius, Sin(a) * radius - 118});
        }
        v.Bright(arcs, palette::ColdLight, 7);
    }
    v.Lamp({0, -118}, 10, 90, palette::ColdLight);
    v.Ink({{{-150, 168}, {-150, 128}, {-118, 104}, {-86, 128}, {-86, 168}}}, 6);
}
// clang-format on

} // namespace atelier
