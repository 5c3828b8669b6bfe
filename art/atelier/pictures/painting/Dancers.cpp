// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/painting/Dancers.h"

#include "art/atelier/pictures/Wood.h"

namespace atelier
{

// clang-format off
// Him: his back from the nape over the shoulder blade and the small of the back to the tail of his coat, and his front from
// the throat over the breast to the hem, that is cut away over the thigh.
const std::vector<Vector2> HisBack   = {{470, 252}, {424, 258}, {380, 284}, {352, 332}, {344, 388}, {346, 436}, {330, 486}, {310, 536}, {284, 590}, {238, 650}};
const std::vector<Vector2> HisFront  = {{508, 272}, {542, 290}, {562, 330}, {556, 384}, {540, 440}, {536, 500}, {500, 538}, {430, 560}, {350, 596}, {246, 654}};
// Her: the line from her lap over breast and throat, and the line of her back from his knee to her nape.
const std::vector<Vector2> HerFront  = {{484, 540}, {524, 508}, {560, 474}, {582, 440}, {590, 408}, {604, 370}, {636, 340}, {676, 330}, {714, 338}, {748, 352}};
const std::vector<Vector2> HerBack   = {{584, 604}, {622, 594}, {650, 566}, {660, 532}, {660, 498}, {676, 468}, {704, 443}, {732, 419}, {757, 399}};
// Her skirt, from the waist: its upper border, that is the horizon of the fields, and its left one.
const std::vector<Vector2> FieldTop  = {{560, 606}, {640, 638}, {760, 628}, {900, 622}, {1070, 596}, {2000, 470}};
const std::vector<Vector2> FieldLeft = {{470, 548}, {430, 590}, {402, 630}, {396, 664}, {366, 744}, {270, 880}, { 110, 1060}, {-300, 1500}};
// Their legs, from hip to ankle: his back one that pushes, his front one that carries, and hers.
const std::vector<Vector2> HisPush   = {{400, 530}, {334, 588}, {272, 634}, {226, 662}, {184, 690}};
const std::vector<Vector2> HisStand  = {{440, 512}, {520, 556}, {594, 584}, {582, 638}, {562, 692}};
const std::vector<Vector2> HerStep   = {{476, 580}, {420, 630}, {390, 660}, {355, 698}};
// Their arms, from the shoulder over the elbow to the wrist: his to the left, hers to the right, his round her, hers round
// his neck.
const std::vector<Vector2> HisArm    = {{440, 300}, {362, 304}, {284, 290}, {238, 236}, {180, 164}};
const std::vector<Vector2> HerArm    = {{734, 350}, {766, 306}, {804, 260}, {864, 224}, {906, 200}, {936, 172}};
const std::vector<Vector2> HisHold   = {{484, 316}, {518, 372}, {556, 424}, {612, 442}, {664, 446}};
const std::vector<Vector2> HerHold   = {{714, 386}, {656, 378}, {598, 362}, {552, 322}, {508, 282}};
const std::vector<Vector2> Hair      = {{856, 388}, {866, 446}, {842, 520}, {858, 590}, {902, 650}, {930, 705}, {985, 760}, {1080, 815}};

// His profile, upright and facing right, and hers, facing left, 100 from crown to chin.
const std::vector<Vector2> HisFace = OnHisHead(
    {{48, 0},  {74, 7},   {87, 22},  {90, 33},  {89, 41},  {97, 52},  {106, 61}, {97, 66}, {98, 70},  {101, 73}, {96, 76}, {99, 80},
     {94, 85}, {97, 93},  {90, 102}, {74, 102}, {58, 98},  {56, 108}, {60, 126}, {20, 126}, {15, 98}, {4, 68}, {3, 36}, {20, 8}});
const std::vector<Vector2> HerFace = OnHerHead(
    {{50, 0},  {26, 8},  {14, 22}, {9, 34},  {11, 42}, {2, 52},  {-7, 59}, {3, 64},  {0, 69},   {5, 73},  {1, 78},  {7, 84},
     {4, 92},  {9, 99},  {24, 101}, {38, 104}, {48, 113}, {54, 128}, {64, 162}, {110, 162}, {96, 116}, {92, 92}, {97, 64}, {97, 36}, {80, 8}});
// clang-format on

// A head of a size, turned by `turned` radians about its neck, that is at a place.
static std::vector<Vector2> OnHead(std::vector<Vector2> points, Vector2 neck, Vector2 place, float size,
                                   float turned)
{
    for (Vector2& p : points) {
        const Vector2 d = (p - neck) * size;
        p = place + Vector2{d.x * Cos(turned) - d.y * Sin(turned), d.x * Sin(turned) + d.y * Cos(turned)};
    }
    return points;
}

std::vector<Vector2> OnHisHead(std::vector<Vector2> points)
{
    // Bent over her.
    return OnHead(std::move(points), {40, 104}, {496, 262}, 0.96f, 0.2f);
}

std::vector<Vector2> OnHerHead(std::vector<Vector2> points)
{
    // Thrown back, so that her face looks at the sky.
    return OnHead(std::move(points), {60, 104}, {786, 368}, 0.98f, (90 + 18) * Pi / 180);
}

Line Furrow(const std::vector<Vector2>& a, const std::vector<Vector2>& b, float t)
{
    const Line first = Through(a), second = Through(b);
    std::vector<Vector2> points;
    for (int i = 0; i <= 32; i++)
        points.push_back(Mix(PointAt(first, float(i) / 32), PointAt(second, float(i) / 32), t));
    return Through(points);
}

Shape Between(const std::vector<Vector2>& a, const std::vector<Vector2>& b)
{
    Line outline = Through(a), back = Through(b);
    outline.insert(outline.end(), back.rbegin(), back.rend());
    return outline;
}

void DrawHandTree(Pen& pen, const std::vector<Vector2>& arm, float width, uint32_t seed)
{
    Dice dice(seed);
    const Line line = Through(arm);
    const float angle = Angle(DirectionAt(line, 1));
    const DeadTree tree = {.gnarl = 0.2f, .rise = 0.12f, .spread = 0.6f};
    for (int finger = 0; finger < 5; finger++)
        DrawBranch(pen, line.back(), angle + (float(finger) - 2) * 0.36f,
                   finger == 0 ? 40 : 66 - 6 * Abs(float(finger) - 2), width, 4, tree, dice);
}

} // namespace atelier
