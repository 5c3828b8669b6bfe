// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Opening.h"

#include "art/atelier/PenAlphabet.h"

namespace atelier
{

// A dancing shoe at the end of a leg, its toe in the given direction.
static void DrawShoe(Mask& ink, Vector2 ankle, float angle)
{
    const Vector2 d = {Cos(angle), Sin(angle)}, n = {-d.y, d.x};
    ink.Fill(
        Round({ankle - d * 9 - n * 6, ankle + d * 6 - n * 7, ankle + d * 26 + n * 1, ankle + d * 37 + n * 7,
               ankle + d * 16 + n * 8, ankle - d * 3 + n * 4, ankle - d * 9 + n * 9, ankle - d * 12},
              1));
}

constexpr int W = 1024, H = 512;
constexpr float Base = 300; // of the line, y

// The corners of the box round a letter.
struct LetterBox {
    Vector2 lo = {W, H}, hi = {};
};

// Writes the word, its two o's off the line: he leans to her, she leans away. Their boxes go to `dancers`.
static void WriteTitle(Pen& pen, LetterBox (&dancers)[2])
{
    const LetterStyle style = {.size = 160, .slant = 0.08f, .spacing = 1.35f, .lively = 0.5f};
    for (const WrittenStroke& stroke : Writing("moonwaltz", {553, Base}, style, Anchor::Middle, 7)) {
        if (stroke.letter != 1 && stroke.letter != 2) {
            pen.Broad(stroke.line, -0.62f, {.start = 1, .middle = 1.15f, .end = 0.75f});
            continue;
        }
        const bool he = stroke.letter == 1;
        const Line line = Moved(Turned(stroke.line, he ? 0.16f : 0.34f, PointAt(stroke.line, 0.5f)),
                                {he ? -3.0f : 7.0f, he ? -30.0f : -36.0f});
        LetterBox& box = dancers[stroke.letter - 1];
        for (const Vector2& p : line) {
            box.lo = {Min(box.lo.x, p.x), Min(box.lo.y, p.y)};
            box.hi = {Max(box.hi.x, p.x), Max(box.hi.y, p.y)};
        }
        // The two who dance are drawn, the others written with a broad nib.
        pen.Stroke(line, {.start = 0.48f, .middle = 0.8f, .end = 0.15f});
    }
}

static void DrawLimbs(Pen& pen, Mask& ink, const LetterBox& him, const LetterBox& her)
{
    // Arms: two hands held high between them, his other arm round her.
    pen.nib.width = 9;
    const Vector2 his = Mix(him.lo, him.hi, 0.5f), hers = Mix(her.lo, her.hi, 0.5f);
    const Vector2 hands = {(him.hi.x + her.lo.x) / 2 + 2, him.lo.y - 34};
    pen.Stroke(
        Through(
            {{his.x + 14, him.lo.y + 3}, {him.hi.x - 4, him.lo.y - 8}, {hands.x - 8, hands.y + 8}, hands}),
        {.start = 0.9f, .middle = 0.6f, .end = 0.5f});
    pen.Stroke(Through({{hers.x - 2, her.lo.y + 4},
                        {hers.x - 18, her.lo.y - 12},
                        {hands.x + 6, hands.y + 5},
                        hands + Vector2{-2, -4}}),
               {.start = 0.8f, .middle = 0.55f, .end = 0.5f});
    // Legs: he steps forward, she is on the tip of one foot and the other swings out.
    const Vector2 hip = {his.x - 4, him.hi.y}, waist = {hers.x + 2, her.hi.y};
    const Vector2 feet[] = {hip + Vector2{-44, 96}, hip + Vector2{34, 100}, waist + Vector2{-2, 104},
                            waist + Vector2{92, 62}};
    pen.nib.width = 11;
    pen.Stroke(Through({hip + Vector2{-8, -3}, hip + Vector2{-14, 44}, feet[0]}),
               {.start = 1, .middle = 0.75f, .end = 0.6f});
    pen.Stroke(Through({hip + Vector2{10, -4}, hip + Vector2{40, 44}, feet[1]}),
               {.start = 1, .middle = 0.75f, .end = 0.6f});
    pen.nib.width = 9;
    pen.Stroke(Through({waist + Vector2{-6, -2}, waist + Vector2{4, 50}, feet[2]}),
               {.start = 1, .middle = 0.7f, .end = 0.5f});
    pen.Stroke(Through({waist + Vector2{12, -6}, waist + Vector2{52, 18}, feet[3]}),
               {.start = 1, .middle = 0.7f, .end = 0.5f});
    DrawShoe(ink, feet[0], Pi - 0.1f);
    DrawShoe(ink, feet[1], 0.15f);
    DrawShoe(ink, feet[2], 1.1f);
    DrawShoe(ink, feet[3], -0.75f);
    // The floor they turned on.
    pen.nib.width = 5;
    for (int i = 0; i < 3; i++) {
        const float k = float(i);
        pen.Stroke(Arc({his.x + 62, Base + 78}, 120 + 34 * k, 15 + 7 * k, 0.25f + 0.5f * k, 2.2f + 0.4f * k),
                   {.start = 0, .middle = 0.5f - 0.1f * k, .end = 0});
    }
}

// The title, in ink and nothing but ink: it stands on the moon's face, over the tip of the bough. The sky fades before
// the title does, so any light about the letters would be left alone in the dark. The two o's dance. The moon's middle is 41 pixels to the right of the picture's.
Canvas MoonwaltzLogo()
{
    const Paper& paper = SketchPaper();
    Mask ink(W, H);
    Pen pen(ink, paper,
            {.width = 22,
             .least = 0.16f,
             .wobble = 1.2f,
             .wave = 60,
             .wander = 0.25f,
             .skip = 0.06f,
             .dry = 0.3f,
             .pool = 0.25f},
            41);
    LetterBox dancers[2];
    WriteTitle(pen, dancers);
    DrawLimbs(pen, ink, dancers[0], dancers[1]);
    pen.Splatter({905, 340}, 60, 18, 4);

    Canvas canvas(W, H);
    canvas.Cover(
        ink,
        [&](float x, float y) {
            return Mix(palette::Ink, palette::Night,
                       0.25f * Smooth(0.4f, 0.8f, paper.Height(Floor(x), Floor(y))));
        },
        0.98f);
    paper.Show(canvas, 0.4f);
    return canvas;
}

} // namespace atelier
