// SPDX-License-Identifier: MIT
// The arms that hold: his round her, hers round his neck.
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

// A finger of her hand, that lies on his nape.
static Line OnHisNape(float k)
{
    return Through(
        {{466 - 2 * k, 256 + 4 * k}, {450 - 2.5f * k, 257 + 8 * k}, {437 - 0.5f * k, 264 + 12 * k}});
}

// A finger of his hand, that is spread on her back.
static Line OnHerBack(float k)
{
    return Through({{668, 425 + 3 * k}, {700, 408 + 9 * k}, {732 - 4 * k, 396 + 13 * k}});
}

static Line HisThumb()
{
    return Through({{656, 424}, {670, 400}, {690, 384}});
}

static void PaintHisHold(Canvas& canvas, const Paper& paper)
{
    const Line arm = Limb(Through(HisHold), 10, 25, 11);
    Shape holding(arm);
    holding.Add(Shaken(Ellipse({676, 424}, 22, 17, -0.2f), 1, 16, 47));
    for (int finger = 0; finger < 4; finger++)
        holding.Add(Limb(OnHerBack(float(finger)), 7, 6.2f, 3));
    holding.Add(Limb(HisThumb(), 8, 6, 3));
    PaintFigure(canvas, paper, Filled(W, H, holding).Shake(1, 30, 44), Clay * 0.75f, Earth, 40);

    std::vector<Contour> contours;
    AddArm(contours, arm, 0.05f, 4);
    for (int finger = 0; finger < 4; finger++) {
        contours.push_back({Part(Beside(OnHerBack(float(finger)), -6), 0.35f, 1), 2.4f});
        contours.push_back({Part(Beside(OnHerBack(float(finger)), 6), 0.45f, 1), 2});
    }
    contours.push_back({Part(Beside(HisThumb(), -6.5f), 0.1f, 1), 2.4f});
    contours.push_back({Part(Beside(HisThumb(), 6), 0.5f, 1), 2});
    InkContours(canvas, paper, contours, 0.2f, 96);
}

// The back of her hand, four fingers spread down over his shoulder, the thumb at his ear.
static void PaintHerHold(Canvas& canvas, const Paper& paper)
{
    const Line arm = Limb(Through(HerHold), 15, 12, 8);
    Shape shoulder(arm);
    shoulder.Add(Ellipse({672, 354}, 16, 15));
    shoulder.Add(Shaken(Ellipse({470, 260}, 15, 11, 0.45f), 1, 16, 49));
    for (int finger = 0; finger < 4; finger++)
        shoulder.Add(Limb(OnHisNape(float(finger)), 5, 4.6f, 2.4f));
    shoulder.Add(Limb(Through({{478, 254}, {474, 240}, {478, 228}}), 5, 4.4f, 2.4f));
    PaintFigure(canvas, paper, Filled(W, H, shoulder).Shake(2, 30, 45), Straw, Clay, 41);

    std::vector<Contour> contours;
    AddArm(contours, arm, 0.04f, 3.4f);
    for (int finger = 0; finger < 4; finger++) {
        contours.push_back({Beside(OnHisNape(float(finger)), -4.5f), 2.2f});
        contours.push_back({Part(Beside(OnHisNape(float(finger)), 4.5f), 0.35f, 1), 2});
    }
    contours.push_back({Through({{473, 252}, {469, 240}, {476, 227}}), 2.2f});
    InkContours(canvas, paper, contours, 0.25f, 97);
}

void PaintEmbrace(Canvas& canvas, const Paper& paper)
{
    PaintHisHold(canvas, paper);
    PaintHerHold(canvas, paper);
}

} // namespace atelier
