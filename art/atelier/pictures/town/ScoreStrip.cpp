// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/music/Theme.h"

namespace atelier
{

namespace
{

constexpr int W = 1024, H = 256;
constexpr float Bar = 128, Gap = 7; // pixels from bar line to bar line and from line to line
constexpr float FirstBeat = 26, Beat = 33;
// The strip lies 1.56 times as long as it is drawn, so everything is drawn narrow.
constexpr float HeadX = 3.3f, HeadY = 3.6f;

// The lowest lines of the five staves: theme, counter-melody, the chords of the second and third beats twice,
// bass.
constexpr float Foot[5] = {56, 102, 148, 194, 240};

// Steps of the white keys above the C four octaves below middle C's.
int Step(char letter, int octave)
{
    constexpr int steps[] = {5, 6, 0, 1, 2, 3, 4}; // A to G
    return octave * 7 + steps[letter - 'A'];
}
int StepOfKey(int midi)
{
    constexpr int steps[] = {0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6}; // black keys as the flats of D minor need
    return (midi / 12 - 1) * 7 + steps[midi % 12];
}

constexpr int TrebleFoot = 4 * 7 + 2, BassFoot = 2 * 7 + 4; // E4, G2

void DrawNote(Pen& pen, Vec2 at, float length, float foot)
{
    const bool hollow = length >= 2;
    pen.nib.width = hollow ? 2.2f : 3.4f;
    pen.Stroke(Ellipse(at, HeadX - (hollow ? 0.3f : 1.2f), HeadY - (hollow ? 0.6f : 1.4f), -0.4f),
               {.start = 1, .middle = 1, .end = 1});
    if (!hollow)
        pen.Dot(at, 2.6f);
    if (length < 3) {
        const float up = at.y > foot - 2 * Gap ? -1.0f : 1.0f;
        const Vec2 root = at + Vec2{-up * HeadX, 0}, tip = root + Vec2{0, up * 21};
        pen.nib.width = 1.9f;
        pen.Stroke(Straight({root, tip}), {.start = 1, .middle = 0.9f, .end = 0.8f});
        if (length < 1) {
            pen.nib.width = 3;
            pen.Stroke(Through({tip, tip + Vec2{5, -up * 6}, tip + Vec2{4, -up * 12}}),
                       {.start = 1, .middle = 0.8f, .end = 0.1f});
        }
    }
    if (length == 1.5f || length == 3)
        pen.Dot(at + Vec2{8, -1.5f}, 1.5f);
    pen.nib.width = 1.6f;
    for (float y = foot + Gap; y <= at.y + 1; y += Gap)
        pen.Stroke(Straight({{at.x - 7, y}, {at.x + 7, y}}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    for (float y = foot - 5 * Gap; y >= at.y - 1; y -= Gap)
        pen.Stroke(Straight({{at.x - 7, y}, {at.x + 7, y}}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
}

void DrawSign(Pen& pen, Vec2 at, int accidental)
{
    pen.nib.width = 2;
    if (accidental < 0) {
        pen.Stroke(Through({at + Vec2{-2, -11}, at + Vec2{-2, 4}}),
                   {.start = 0.9f, .middle = 0.9f, .end = 0.8f});
        pen.Stroke(Through({at + Vec2{-2, -1}, at + Vec2{2, -3}, at + Vec2{1.5f, 1}, at + Vec2{-2, 4}}),
                   {.start = 0.8f, .middle = 1, .end = 0.8f});
        return;
    }
    for (const float x : {-1.5f, 1.5f})
        pen.Stroke(Straight({at + Vec2{x, -8}, at + Vec2{x, 8}}),
                   {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
    for (const float y : {-2.5f, 2.5f})
        pen.Stroke(Straight({at + Vec2{-4, y + 1}, at + Vec2{4, y - 1}}),
                   {.start = 1, .middle = 1, .end = 1});
}

void DrawTrebleClef(Pen& pen, Vec2 at)
{
    pen.nib.width = 2.6f;
    pen.Stroke(
        Through({at + Vec2{0, -3}, at + Vec2{3, -8}, at + Vec2{5, -3}, at + Vec2{0, 2}, at + Vec2{-5, -4},
                 at + Vec2{-3, -13}, at + Vec2{3, -23}, at + Vec2{3, -31}, at + Vec2{0, -33},
                 at + Vec2{-1, -25}, at + Vec2{1, -6}, at + Vec2{2, 7}, at + Vec2{-2, 10}}),
        {.start = 0.6f, .middle = 1, .end = 0.9f});
}

void DrawBassClef(Pen& pen, Vec2 at)
{
    pen.nib.width = 2.8f;
    pen.Dot(at + Vec2{-3, 0}, 2.2f);
    pen.Stroke(
        Through({at + Vec2{-3, 0}, at + Vec2{-1, -6}, at + Vec2{4, -4}, at + Vec2{4, 6}, at + Vec2{-4, 17}}),
        {.start = 0.8f, .middle = 1, .end = 0.1f});
    pen.Dot(at + Vec2{8, -3}, 1.4f);
    pen.Dot(at + Vec2{8, 4}, 1.4f);
}

} // namespace

Canvas ScoreStrip()
{
    const Paper& paper = SketchPaper(256);
    const Noise edge(541, 24, 1), stain(542, 8, 2);
    Canvas canvas(W, H);
    const Mask sheet = Mask(W, H, 0, true).Each([&](float x, float y) {
        const float ragged = 3 * edge.Fbm(x / W * 24, y < H / 2.0f ? 0.2f : 0.7f, 4);
        return Smooth(1.5f, 9, Min(y, H - y) + ragged - 2) * (y > 2 && y < H - 2 ? 1.0f : 0.0f);
    });
    canvas.Cover(Mask(W, H, 1), [&](float x, float y) {
        const float t = 0.5f + 0.7f * stain.Fbm(x / W * 8, y / H * 2, 5);
        const float rim = Smooth(34, 4, Min(y, H - y));
        return Mix(Mix(palette::Bone, palette::Parchment, Clamp(t)) * 0.86f,
                   Mix(palette::Ochre, palette::Rust, 0.4f), 0.45f * rim);
    });
    Mask ink(W, H, 0, true);
    Pen lines(ink, paper,
              {.width = 1.7f,
               .least = 0.6f,
               .wobble = 0.5f,
               .wave = 60,
               .wander = 0.2f,
               .skip = 0.02f,
               .dry = 0,
               .pool = 0},
              543);
    for (const float foot : Foot)
        for (int i = 0; i < 5; ++i)
            // Overlapping itself where the strip joins.
            lines.Stroke(Straight({{-4, foot - Gap * static_cast<float>(i)},
                                   {W + 4, foot - Gap * static_cast<float>(i)}}),
                         {.start = 0.9f, .middle = 0.9f, .end = 0.9f});
    for (int bar = 0; bar < waltz::themeBars; ++bar) {
        lines.nib.width = bar == 0 ? 3.4f : 2.0f;
        const float x = Bar * static_cast<float>(bar) + 3;
        lines.Stroke(Straight({{x, Foot[0] - 4 * Gap}, {x, Foot[4]}}), {.start = 1, .middle = 1, .end = 1});
    }
    Pen pen(ink, paper, {.width = 2.4f, .wobble = 0.25f, .wave = 12, .skip = 0, .dry = 0, .pool = 0.2f}, 544);
    for (int staff = 0; staff < 5; ++staff) {
        if (staff < 4)
            DrawTrebleClef(pen, {11, Foot[staff] - Gap});
        else
            DrawBassClef(pen, {11, Foot[staff] - 3 * Gap});
        // The one flat of D minor.
        DrawSign(pen, {20, Foot[staff] - (staff < 4 ? 2.0f : 1.0f) * Gap}, -1);
    }
    const auto placeOf = [](int bar, float beat, int step, int footStep, float foot) {
        return Vec2{Bar * static_cast<float>(bar - 1) + FirstBeat + 8 + Beat * beat,
                    foot - Gap / 2 * static_cast<float>(step - footStep)};
    };
    const auto voice = [&](const waltz::ThemeNote& note, float foot) {
        const Vec2 at = placeOf(note.bar, note.beat, Step(note.letter, note.octave), TrebleFoot, foot);
        DrawNote(pen, at, note.length, foot);
        if (note.printedSign)
            DrawSign(pen, at - Vec2{10, 0}, note.accidental);
    };
    for (const waltz::ThemeNote& note : waltz::theme)
        voice(note, Foot[0]);
    for (const waltz::ThemeNote& note : waltz::counterMelody)
        voice(note, Foot[1]);
    for (int bar = 1; bar <= waltz::themeBars; ++bar) {
        const int bass = waltz::themeBass[bar - 1];
        const int low = StepOfKey(bass);
        DrawNote(pen, placeOf(bar, 0, low, BassFoot, Foot[4]), 3, Foot[4]);
        for (int beat = 1; beat <= 2; ++beat) {
            // A third and a fifth over the bass, two octaves up, into the staff.
            DrawNote(pen,
                     placeOf(bar, static_cast<float>(beat), low + 16 - (low > 15 ? 7 : 0), TrebleFoot - 7,
                             Foot[2]),
                     1, Foot[2]);
            DrawNote(pen,
                     placeOf(bar, static_cast<float>(beat), low + 18 - (low > 15 ? 7 : 0), TrebleFoot - 7,
                             Foot[3]),
                     1, Foot[3]);
        }
    }
    canvas.Cover(ink, palette::Ink, 0.94f);
    paper.Show(canvas, 0.4f);
    canvas.CutOut(sheet);
    return canvas;
}

} // namespace atelier
