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

void LoafEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    v.Lamp({0, 40}, 40, 260, palette::Amber, 0.5f);
    v.Paint({{-168, 106}, {-184, 50}, {-116, -12}, {0, -32}, {116, -12}, {184, 50}, {166, 106}, {0, 124}}, Mix(palette::Ochre, palette::Amber, 0.35f));
    for (const float x : {-88.0f, 0.0f, 84.0f})
        v.Paint({{x - 20, 6}, {x + 6, 0}, {x + 26, 50}, {x + 20, 84}, {x + 2, 60}}, Mix(palette::Bone, palette::Amber, 0.3f), 0.9f);
    v.Ink({{{-168, 106}, {-186, 50}, {-116, -12}, {0, -32}, {116, -12}, {186, 50}, {166, 106}, {0, 126}, {-168, 106}}}, 9);
    v.Ink({{{-108, 6}, {-86, 48}, {-72, 88}}, {{-20, -6}, {2, 40}, {18, 88}}, {{66, 0}, {88, 40}, {104, 84}}, {{-150, 88}, {-80, 104}, {0, 108}}, {{120, 90}, {142, 78}, {152, 60}}, {{100, 98}, {124, 90}}}, 6);
    v.Bright({{{-70, -58}, {-92, -90}, {-56, -118}, {-76, -156}}, {{0, -68}, {-22, -104}, {16, -132}, {-6, -172}}, {{70, -58}, {50, -90}, {86, -118}, {64, -156}}}, Mix(palette::Bone, palette::Mist, 0.3f), 7);
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

void TowerEmblem(Canvas& canvas, Vector2 at, uint32_t seed)
{
    Vignette v(canvas, at, seed);
    v.Stars(18);
    v.Paint({{-230, 178}, {-140, 150}, {0, 142}, {150, 152}, {230, 178}, {150, 206}, {0, 214}, {-140, 206}}, Mix(palette::Moss, palette::Night, 0.45f));
    v.Paint({{-68, 176}, {-50, -70}, {50, -70}, {68, 176}}, Mix(palette::Parchment, palette::Mist, 0.45f), 1, true);
    v.Paint({{6, 172}, {8, -66}, {50, -70}, {68, 176}}, Mix(palette::Mist, palette::Slate, 0.6f), 0.8f, true);
    v.Paint({{-76, -70}, {-76, -120}, {-42, -120}, {-42, -96}, {-16, -96}, {-16, -120}, {18, -120}, {18, -96}, {44, -96}, {44, -120}, {76, -120}, {76, -70}}, Mix(palette::Parchment, palette::Mist, 0.35f), 1, true);
    v.Paint({{-14, 14}, {-14, -22}, {0, -36}, {14, -22}, {14, 14}}, palette::Amber, 1, true);
    v.Lamp({0, -8}, 12, 90);
    v.Paint({{2, -168}, {60, -160}, {34, -146}, {56, -128}, {2, -138}}, palette::Rust, 1, true);
    v.Ink({{{-68, 176}, {-54, 40}, {-50, -70}}, {{-76, -70}, {0, -64}, {76, -70}}, {{-16, 174}, {-16, 124}, {0, 102}, {16, 124}, {16, 174}}, {{2, -118}, {2, -172}}, {{-44, 60}, {-18, 62}}, {{-40, -20}, {-26, -20}}, {{24, 44}, {46, 42}}, {{-46, 112}, {-30, 112}}, {{28, 110}, {54, 108}}, {{26, -30}, {42, -32}}}, 6);
    v.Ink({{{68, 176}, {54, 40}, {50, -70}}}, 9);
    v.Outline({{-76, -70}, {-76, -120}, {-42, -120}, {-42, -96}, {-16, -96}, {-16, -120}, {18, -120}, {18, -96}, {44, -96}, {44, -120}, {76, -120}, {76, -70}}, true);
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
