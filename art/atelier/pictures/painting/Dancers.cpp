// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/painting/Dancers.h"

#include "art/atelier/pictures/Wood.h"

namespace atelier
{

// clang-format off
// Him: his back from the nape to the hem of his coat, and his front, that lies over the knee that carries her.
const std::vector<Vector2> HisBack   = {{470, 242}, {424, 252}, {374, 284}, {342, 344}, {326, 418}, {312, 492}, {290, 562}, {254, 622}, {206, 672}};
const std::vector<Vector2> HisFront  = {{508, 262}, {548, 284}, {568, 334}, {558, 396}, {532, 452}, {510, 512}, {536, 558}, {574, 598}, {584, 648}};
// Her: the line from her waist over breast and throat, and the line of her back, that ends on his knee.
const std::vector<Vector2> HerFront  = {{448, 560}, {506, 508}, {556, 464}, {588, 420}, {606, 382}, {640, 350}, {676, 340}, {706, 338}, {738, 352}, {768, 350}};
const std::vector<Vector2> HerBack   = {{560, 650}, {588, 600}, {616, 546}, {652, 496}, {692, 452}, {724, 416}, {752, 390}, {776, 376}};
// Her skirt, from the waist: its upper border, that is the horizon of the fields, and its left one.
const std::vector<Vector2> FieldTop  = {{540, 640}, {640, 640}, {760, 628}, {900, 622}, {1070, 596}, {2000, 470}};
const std::vector<Vector2> FieldLeft = {{444, 566}, {412, 660}, {350, 770}, {250, 900}, { 100, 1060}, {-300, 1500}};
// Their legs, from under the cloth to the ankle: his back one that pushes, his front one that carries, her one foot.
const std::vector<Vector2> HisPush   = {{390, 572}, {290, 634}, {216, 676}, {176, 690}};
const std::vector<Vector2> HisStand  = {{545, 630}, {553, 660}, {552, 690}};
const std::vector<Vector2> HerStep   = {{428, 640}, {404, 676}, {386, 700}};
// Their arms, from the shoulder: his to the left, hers to the right, his round her, hers round his neck.
const std::vector<Vector2> HisArm    = {{446, 306}, {366, 292}, {276, 262}, {214, 218}, {172, 160}};
const std::vector<Vector2> HerArm    = {{712, 362}, {744, 308}, {802, 270}, {872, 240}, {934, 182}};
const std::vector<Vector2> HisHold   = {{512, 308}, {560, 392}, {622, 436}, {690, 428}};
const std::vector<Vector2> HerHold   = {{670, 354}, {622, 334}, {566, 306}, {516, 276}, {476, 258}};
const std::vector<Vector2> Hair      = {{846, 384}, {868, 446}, {842, 520}, {858, 590}, {902, 650}, {930, 705}, {985, 760}, {1080, 815}};
// clang-format on

// clang-format off
const std::vector<Vector2> HisFace = {{490, 172}, {472, 196}, {472, 226}, {486, 250}, {508, 258}, {528, 253},
                                   {536, 240}, {538, 228}, {549, 219}, {542, 204}, {538, 186}, {516, 168}};
// Her profile, upright and facing left, 100 from crown to chin.
const std::vector<Vector2> HerFace = OnHerHead(
    {{50, 0},  {26, 8},  {14, 22}, {9, 34},  {11, 42}, {2, 52},  {-7, 59}, {3, 64},  {0, 69},   {5, 73},  {1, 78},  {7, 84},
     {4, 92},  {9, 99},  {24, 99}, {40, 96}, {46, 104}, {50, 118}, {80, 118}, {84, 92}, {96, 62}, {97, 36}, {80, 8}});
// clang-format on

std::vector<Vector2> OnHerHead(std::vector<Vector2> points)
{
    // Thrown back, so that her face looks at the sky.
    constexpr Vector2 Neck = {60, 104}, Place = {778, 366};
    constexpr float Size = 0.92f, Back = (90 + 18) * Pi / 180;
    for (Vector2& p : points) {
        const Vector2 d = (p - Neck) * Size;
        p = Place + Vector2{d.x * Cos(Back) - d.y * Sin(Back), d.x * Sin(Back) + d.y * Cos(Back)};
    }
    return points;
}

Line HisHem()
{
    return Through(
        {HisBack.back(), {258, 662}, {330, 634}, {404, 628}, {470, 650}, {530, 668}, HisFront.back()});
}

Shape HisCoat()
{
    Line coat = Through(HisFront);
    const Line hem = HisHem(), back = Through(HisBack);
    coat.insert(coat.end(), hem.rbegin(), hem.rend());
    coat.insert(coat.end(), back.rbegin(), back.rend());
    return coat;
}

Line Furrow(const std::vector<Vector2>& a, const std::vector<Vector2>& b, float t)
{
    const Line first = Through(a), second = Through(b);
    std::vector<Vector2> points;
    for (int i = 0; i <= 32; i++)
        points.push_back(Mix(PointAt(first, float(i) / 32), PointAt(second, float(i) / 32), t));
    return Through(points);
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
