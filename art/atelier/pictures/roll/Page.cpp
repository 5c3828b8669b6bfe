// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/roll/Page.h"

#include "art/atelier/Wash.h"

namespace atelier
{

void Page::Words(const std::string& text, float y, float size, float weight)
{
    pen.nib.width = weight > 0 ? weight : 2.4f + size * 0.066f;
    Write(pen, text, {PageMiddle, y},
          {.size = size, .slant = 0.08f, .narrow = SeenNarrow, .spacing = 1.5f, .lively = 0.7f},
          Anchor::Middle, ++letterSeed);
}

void Page::Aside(const std::string& text, float y, float size)
{
    amber.nib.width = 2.4f + size * 0.058f;
    Write(amber, text, {PageMiddle, y},
          {.size = size, .slant = 0.14f, .narrow = SeenNarrow, .spacing = 1.4f, .lively = 0.7f},
          Anchor::Middle, ++letterSeed);
}

void Page::Draw(const Line& line, float width, Press press)
{
    pen.nib.width = width;
    pen.Stroke(line, press);
}

void Page::Body(const Line& outline, float width, float amount)
{
    const Mask shape = Filled(PageWidth, PageHeight, outline);
    Mask turnedAway = shape;
    turnedAway.Erase(Moved(outline, {-9, -8})).Erase(Moved(outline, {-16, -3}), 0.5f);
    washes.Unite(Mask(shape).Scale(amount));
    Draw(outline, width);
    pen.nib.width = 2.2f;
    Hatch(pen, turnedAway, {.angle = 2.2f, .spacing = 6.5f, .length = 40, .bend = 3}, ++letterSeed);
}

void Page::Rule(float y, float half)
{
    Draw(Through({{PageMiddle - half, y + 3}, {PageMiddle - half * 0.4f, y - 4}, {PageMiddle - 14, y + 2}}),
         4, {.start = 0, .middle = 0.6f, .end = 0.3f});
    Draw(Through({{PageMiddle + 14, y + 2}, {PageMiddle + half * 0.4f, y + 7}, {PageMiddle + half, y - 2}}),
         4, {.start = 0.3f, .middle = 0.6f, .end = 0});
    pen.Dot({PageMiddle, y + 1}, 4.5f);
}

Canvas Page::Finished()
{
    const Paper& paper = SketchPaper();
    Canvas canvas(PageWidth, PageHeight);
    Mask all = lines;
    all.Unite(accents).Unite(washes);
    // The sky behind may be as light as the moon: ink close to each stroke, a bank of it along each line, and a
    // breath of night far round it.
    Mask shade = all.Blurred(8);
    shade.Scale(3).Curve(0, 1).Unite(all.Blurred(28).Scale(3)).FadeToBorder(30);
    canvas.Cover(all.Blurred(64).Scale(3.2f).FadeToBorder(30), palette::Ink, 0.45f);
    canvas.Cover(shade, palette::Ink, 0.86f);
    const Mask body = WashDensity(
        paper, washes,
        {.pool = 0.9f, .poolWidth = 6, .granulation = 0.9f, .bloom = 0.8f, .bloomSize = 90, .stray = 2}, 7);
    canvas.Cover(dark.Blurred(3), palette::Ink);
    canvas.Cover(body, palette::Slate, 0.75f);
    canvas.Cover(accents, Mix(palette::Amber, palette::Bone, 0.22f), 0.97f);
    canvas.Cover(lights.Blurred(26).FadeToBorder(10), palette::Amber, 0.5f);
    canvas.Cover(lights, Mix(palette::Amber, palette::Bone, 0.5f));
    canvas.Cover(
        lines,
        [&](float x, float y) {
            return Mix(palette::Bone, palette::Parchment,
                       Smooth(0.35f, 0.75f, paper.Height(Floor(x), Floor(y))));
        },
        0.97f);
    return Squeezed(canvas, 512, 2048);
}

} // namespace atelier
