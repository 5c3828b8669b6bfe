// SPDX-License-Identifier: MIT
// The score of the theme on its strip of paper.
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/ScoreSigns.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"
#include "art/music/Theme.h"

#include <span>
#include <vector>

namespace atelier
{

using namespace score;

constexpr int Width = 4096, Height = 1024;
constexpr float W = Width / Fine, H = Height / Fine;
constexpr float Bar = 128; // from bar line to bar line
constexpr float FirstBeat = 49, Beat = 28.5f;
constexpr float SignBefore = 11, QuaverEarly = 7; // ahead of the head, and of the place in time

// The lowest lines of the five staves: theme, counter-melody, chords, the same chords broken, bass.
constexpr float Foot[5] = {58, 104, 150, 196, 240};
constexpr int ChordStaff = 2, BrokenStaff = 3; // the upper three have treble clefs

// Steps of the white keys above the C four octaves below middle C's.
static int Step(char letter, int octave)
{
    constexpr int steps[] = {5, 6, 0, 1, 2, 3, 4}; // A to G
    return octave * 7 + steps[letter - 'A'];
}
static int StepOfKey(int midi)
{
    constexpr int steps[] = {0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6}; // black keys as the flats of D minor need
    return (midi / 12 - 1) * 7 + steps[midi % 12];
}

constexpr int TrebleFoot = 4 * 7 + 2, BassFoot = 2 * 7 + 4; // E4, G2

// The chord of a bar as its name says it: letters of root, third and fifth, and which of them needs a sign.
struct Triad {
    char letter[3];
    int sign[3]; // -1 flat, 1 sharp, where the key of D minor does not say it
};
static Triad TriadOf(const char* name)
{
    constexpr char circle[] = "ABCDEFG";
    Triad triad = {};
    for (int i = 0; i < 3; i++)
        triad.letter[i] = circle[(name[0] - 'A' + 2 * i) % 7];
    if (name[0] == 'E' && name[1] == 'b')
        triad.sign[0] = -1; // B flat is in the key
    if (name[0] == 'A' && name[1] == '7')
        triad.sign[1] = 1; // the leading note
    return triad;
}

// The lowest place of a letter from a step on.
static int StepFrom(int low, char letter)
{
    int step = Step(letter, 0);
    while (step < low)
        step += 7;
    return step;
}

// Where the paper is, with its ragged edges.
static Mask SheetMask()
{
    const Noise edge(541, 24, 1);
    return Mask(Width, Height, 0, true).Each([&](float column, float line) {
        const float x = column / Fine, y = line / Fine;
        const float ragged = 3 * edge.Fbm(x / W * 24, y < H / 2.0f ? 0.2f : 0.7f, 4);
        return Smooth(1.5f, 9, Min(y, H - y) + ragged - 2) * (y > 2 && y < H - 2 ? 1.0f : 0.0f);
    });
}

static void PaintPaper(Canvas& canvas)
{
    const Noise stain(542, 8, 2);
    canvas.Cover(Mask(Width, Height, 1), [&](float column, float line) {
        const float x = column / Fine, y = line / Fine;
        const float t = 0.5f + 0.7f * stain.Fbm(x / W * 8, y / H * 2, 5);
        const float rim = Smooth(34, 4, Min(y, H - y));
        return Mix(Mix(palette::Bone, palette::Parchment, Clamp(t)) * 0.78f,
                   Mix(palette::Ochre, palette::Rust, 0.4f), 0.45f * rim);
    });
}

// The lines of the staves and the bar lines.
static void DrawStaves(Quill& lines)
{
    // They stray from their heights in waves that fit the strip, so that they go on where it joins itself.
    Dice dice(545);
    for (const float foot : Foot)
        for (int i = 0; i < 5; i++) {
            const float turned = dice.Range(0, 2 * Pi), other = dice.Range(0, 2 * Pi);
            Line line;
            for (float x = -16; x <= W + 16; x += 2)
                line.push_back({x, foot - Gap * float(i) + 0.32f * Sin(2 * Pi * 5 * x / W + turned) +
                                       0.22f * Sin(2 * Pi * 13 * x / W + other)});
            lines.Stroke(line, {.start = 0.9f, .middle = 0.9f, .end = 0.9f});
        }
    for (int bar = 0; bar < waltz::themeBars; bar++) {
        const float x = Bar * float(bar) + 3;
        lines.Width(2.2f);
        if (bar == 0) { // the sign that it begins again
            lines.Width(4);
            lines.Stroke(Straight({{x + 1.5f, Foot[0] - 4 * Gap}, {x + 1.5f, Foot[4]}}),
                         {.start = 1, .middle = 1, .end = 1});
            lines.Width(2.2f);
            lines.Stroke(Straight({{x - 8, Foot[0] - 4 * Gap}, {x - 8, Foot[4]}}),
                         {.start = 1, .middle = 1, .end = 1});
        } else
            lines.Stroke(Straight({{x, Foot[0] - 4 * Gap}, {x, Foot[4]}}),
                         {.start = 1, .middle = 1, .end = 1});
    }
}

// Clefs, the one flat of D minor, and the time.
static void DrawClefs(Quill& pen)
{
    for (int staff = 0; staff < 5; staff++) {
        const bool treble = staff < BrokenStaff;
        if (treble)
            DrawTrebleClef(pen, {12, Foot[staff] - Gap});
        else
            DrawBassClef(pen, {11.5f, Foot[staff] - 3 * Gap});
        DrawSign(pen, {24.5f, Foot[staff] - (treble ? 2.0f : 1.0f) * Gap}, -1);
        DrawTime(pen, {35, Foot[staff] - 2 * Gap});
    }
}

// Where a note stands: bars count from 1, beats from 0; `footStep` is the step of the staff's lowest line,
// which lies at `foot`.
static Vector2 PlaceOf(int bar, float beat, int step, int footStep, float foot)
{
    return {Bar * float(bar - 1) + FirstBeat + Beat * beat, foot - Gap / 2 * float(step - footStep)};
}

// A tune, each bar of it under a slur.
static void DrawTune(Quill& pen, std::span<const waltz::ThemeNote> notes, float foot)
{
    int bar = 0;
    Vector2 first, last;
    const auto slur = [&] {
        if (bar > 0 && last.x > first.x)
            // On the side where no stem is.
            DrawSlur(pen, first, last, Min(first.y, last.y) > foot - 2 * Gap ? 1.0f : -1.0f);
    };
    for (const waltz::ThemeNote& note : notes) {
        Vector2 at = PlaceOf(note.bar, note.beat, Step(note.letter, note.octave), TrebleFoot, foot);
        if (note.length < 1) // leaves room for the sign of the note behind it
            at.x -= QuaverEarly;
        DrawNote(pen, at, note.length, foot);
        if (note.printedSign)
            DrawSign(pen, at - Vector2{SignBefore, 0}, note.accidental);
        if (note.bar != bar) {
            slur();
            bar = note.bar;
            first = at;
        }
        last = at;
    }
    slur();
}

// The chord of a bar after a rest, root and fifth on one stem: so far apart that the two stay two heads. Held in every
// other bar.
static void DrawChord(Quill& pen, int bar)
{
    const float foot = Foot[ChordStaff];
    const Triad triad = TriadOf(waltz::themeHarmony[bar - 1]);
    const int root = StepFrom(TrebleFoot - 1, triad.letter[0]);
    const bool held = bar % 2 == 0;
    DrawRest(pen, PlaceOf(bar, 0, TrebleFoot + 4, TrebleFoot, foot));
    for (int beat = 1; beat <= (held ? 1 : 2); beat++) {
        const Vector2 low = PlaceOf(bar, float(beat), root, TrebleFoot, foot),
                      high = PlaceOf(bar, float(beat), root + 4, TrebleFoot, foot);
        const float up = low.y + high.y > 2 * (foot - 2 * Gap) ? -1.0f : 1.0f;
        for (const Vector2& at : {low, high}) {
            DrawHead(pen, at, held);
            DrawLedgerLines(pen, at, foot);
        }
        const Vector2 from = StemRoot(up < 0 ? low : high, up);
        pen.Width(StemWidth);
        pen.Stroke(
            Straight({from, {from.x + 0.4f, up < 0 ? high.y - StemLength + 3 : low.y + StemLength - 3}}),
            {.start = 1, .middle = 1, .end = 0.9f});
        if (beat == 1 && triad.sign[0] != 0)
            DrawSign(pen, low - Vector2{SignBefore, 0}, triad.sign[0]);
    }
}

// The same chord broken, in six quavers, or in its root and four.
static void DrawBrokenChord(Quill& pen, int bar)
{
    constexpr int Up[6] = {0, 2, 4, 2, 4, 2}; // steps over the root
    constexpr float BrokenBeat = 0.47f;
    const float foot = Foot[BrokenStaff];
    const Triad triad = TriadOf(waltz::themeHarmony[bar - 1]);
    const int root = StepFrom(BassFoot - 1, triad.letter[0]);
    const bool six = bar % 2 == 0 && triad.sign[1] == 0; // a sign needs room
    std::vector<Vector2> heads;
    for (int i = six ? 0 : 2; i < 6; i++)
        // The next bar line is near.
        heads.push_back(PlaceOf(bar, BrokenBeat * float(i), root + Up[six ? i : i - 1], BassFoot, foot));
    DrawBeamed(pen, heads, foot);
    if (!six)
        DrawNote(pen, PlaceOf(bar, 0, root, BassFoot, foot), 1, foot);
    // A sign holds to the bar line, and stands before the first of its notes.
    const Vector2 first = PlaceOf(bar, 0, root, BassFoot, foot);
    if (triad.sign[0] != 0)
        DrawSign(pen, first - Vector2{SignBefore, 0}, triad.sign[0]);
    if (triad.sign[1] != 0)
        DrawSign(pen, PlaceOf(bar, 2 * BrokenBeat, root + 2, BassFoot, foot) - Vector2{SignBefore - 1, 0},
                 triad.sign[1]);
}

// What is drawn, as a pen on soft paper leaves it: `along` pixels to each side along the way, a bell of `across`. The picture
// is not mipmapped, and far off, where one pixel in ten of it is seen, a hard line is a row of dots that jump.
static void Soften(Mask& drawn, int along, float across)
{
    drawn.Blur(across);
    const Mask sharp = drawn;
    for (int y = 0; y < Height; y++) {
        float sum = 0;
        for (int x = -along; x < along; x++)
            sum += sharp.At(Wrap(x, Width), y);
        for (int x = 0; x < Width; x++) {
            sum += sharp.At(Wrap(x + along, Width), y);
            drawn.At(x, y) = Max(0, sum) / float(2 * along + 1);
            sum -= sharp.At(Wrap(x - along, Width), y);
        }
    }
}

Canvas ScoreStrip()
{
    const Paper& paper = SketchPaper();
    Canvas canvas(Width, Height);
    PaintPaper(canvas);
    Mask ruled(Width, Height, 0, true), ink(Width, Height, 0, true);
    Quill lines(ruled, paper,
                {.width = 1.6f,
                 .least = 0.6f,
                 .wobble = 0,
                 .wave = 90,
                 .wander = 0.35f,
                 .skip = 0.02f,
                 .dry = 0.15f,
                 .pool = 0},
                543);
    DrawStaves(lines);
    Quill pen(ink, paper, {.width = 2.4f, .wobble = 0.25f, .wave = 12, .skip = 0, .dry = 0.05f, .pool = 0.2f},
              544);
    DrawClefs(pen);
    DrawTune(pen, waltz::theme, Foot[0]);
    DrawTune(pen, waltz::counterMelody, Foot[1]);
    for (int bar = 1; bar <= waltz::themeBars; bar++) {
        DrawNote(pen, PlaceOf(bar, 0, StepOfKey(waltz::themeBass[bar - 1]), BassFoot, Foot[4]), 3, Foot[4]);
        DrawChord(pen, bar);
        DrawBrokenChord(pen, bar);
    }
    Soften(ruled, 2, 1.1f);
    Soften(ink, 1, 0.7f);
    canvas.Cover(ruled, Mix(palette::Slate, palette::Rust, 0.45f), 0.66f);
    canvas.Cover(ink, palette::Ink, 0.96f);
    paper.Show(canvas, 0.4f);
    AllowForMist(canvas);
    canvas.CutOut(SheetMask());
    return canvas;
}

} // namespace atelier
