// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"
#include "art/music/Theme.h"

#include <span>
#include <vector>

namespace atelier
{

// One reads it from as near as a page in the hand, so it is painted four times as fine as the places below say.
constexpr float Fine = 4;
constexpr int Width = 4096, Height = 1024;
constexpr float W = Width / Fine, H = Height / Fine;
constexpr float Bar = 128, Gap = 7; // pixels from bar line to bar line and from line to line
constexpr float FirstBeat = 49, Beat = 28.5f;
constexpr float SignBefore = 11, QuaverEarly = 7; // pixels ahead of the head, and of the place in time
// The strip is seen from one end, along the staves, so that everything on it is drawn wide along them, as
// signs on a road are; heads are tilted, so that they stay heads where one stands over them.
constexpr float HeadX = 5.4f, HeadY = 3.1f, HeadTilt = -0.42f;
constexpr float StemWidth = 1.8f, StemLength = 21, BeamWidth = 4.4f;

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

// A pen that takes the places of the coarse sheet.
class Quill
{
public:
    Quill(Mask& sheet, const Paper& paper, Nib nib, uint32_t seed)
        : pen(sheet, paper, Fined(nib), seed), ink(sheet)
    {
    }
    void Width(float width) { pen.nib.width = width * Fine; }
    void Stroke(const Line& line, Press press) { pen.Stroke(Scaled(line, Fine), press); }
    void Dot(Vector2 at, float radius) { pen.Dot(at * Fine, radius * Fine); }
    void Fill(const Line& outline) { ink.Fill(Scaled(outline, Fine)); }

private:
    static Nib Fined(Nib nib)
    {
        nib.width *= Fine;
        nib.wobble *= Fine;
        nib.wave *= Fine;
        return nib;
    }

    Pen pen;
    Mask& ink;
};

// Where a stem leaves its head; `up` is -1 for a stem that goes up, on the right, and 1 for one that goes down.
static Vector2 StemRoot(Vector2 at, float up)
{
    return at + Vector2{-up * (HeadX - 0.9f), up * 1.4f};
}

static void DrawHead(Quill& pen, Vector2 at, bool hollow)
{
    if (!hollow) {
        pen.Fill(Ellipse(at, HeadX, HeadY, HeadTilt));
        return;
    }
    pen.Width(2.2f);
    pen.Stroke(Ellipse(at, HeadX - 0.7f, HeadY - 0.6f, HeadTilt), {.start = 1, .middle = 0.75f, .end = 1});
}

// A rest of a quarter, about the staff's middle line.
static void DrawRest(Quill& pen, Vector2 at)
{
    pen.Width(2.6f);
    pen.Stroke(Through({at + Vector2{-2.5f, -10}, at + Vector2{3, -4.5f}, at + Vector2{-2, 0},
                        at + Vector2{3.5f, 5.5f}}),
               {.start = 0.3f, .middle = 1, .end = 0.9f});
    pen.Stroke(Through({at + Vector2{3.5f, 5.5f}, at + Vector2{-2.5f, 4.5f}, at + Vector2{-1.5f, 10.5f}}),
               {.start = 0.9f, .middle = 0.8f, .end = 0.1f});
}

// Three over four, between the lines of a staff.
static void DrawTime(Quill& pen, Vector2 middle)
{
    const auto in = [&](float x, float y) { return middle + Vector2{x, y}; };
    pen.Width(2.6f);
    pen.Stroke(Through({in(-4.5f, -12.5f), in(0, -14), in(4, -11), in(0.5f, -7.6f)}),
               {.start = 0.7f, .middle = 1, .end = 0.7f});
    pen.Stroke(Through({in(0.5f, -7.6f), in(5, -4.5f), in(0, -0.8f), in(-5, -3)}),
               {.start = 0.7f, .middle = 1, .end = 0.5f});
    pen.Stroke(Through({in(0.5f, 1), in(-2, 5.5f), in(-5.5f, 9.6f)}),
               {.start = 0.5f, .middle = 0.8f, .end = 0.6f});
    pen.Stroke(Straight({in(-5.5f, 9.6f), in(5.5f, 9.2f)}), {.start = 0.8f, .middle = 1, .end = 0.7f});
    pen.Stroke(Straight({in(2.4f, 4.6f), in(2, 13.6f)}), {.start = 0.8f, .middle = 1, .end = 0.9f});
}

static void DrawLedgerLines(Quill& pen, Vector2 at, float foot)
{
    pen.Width(1.4f);
    for (float y = foot + Gap; y <= at.y + 1; y += Gap)
        pen.Stroke(Straight({{at.x - 10, y}, {at.x + 10, y}}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    for (float y = foot - 5 * Gap; y >= at.y - 1; y -= Gap)
        pen.Stroke(Straight({{at.x - 10, y}, {at.x + 10, y}}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
}

// Quavers under one beam, which leans as far as its first and its last note do, but not much.
static void DrawBeamed(Quill& pen, std::span<const Vector2> heads, float foot)
{
    float sum = 0, highest = heads[0].y, lowest = heads[0].y;
    for (const Vector2& at : heads) {
        sum += at.y;
        highest = Min(highest, at.y);
        lowest = Max(lowest, at.y);
    }
    const float up = sum / float(heads.size()) > foot - 2 * Gap ? -1.0f : 1.0f;
    const float level = up < 0 ? highest - StemLength + 3 : lowest + StemLength - 3;
    const float lean = Max(-3, Min(3, (heads.back().y - heads.front().y) / 3));
    const float from = heads.front().x, to = heads.back().x;
    const auto tipOver = [&](Vector2 at) {
        return Vector2{StemRoot(at, up).x, level + lean * ((at.x - from) / (to - from) - 0.5f)};
    };
    for (const Vector2& at : heads) {
        DrawHead(pen, at, false);
        DrawLedgerLines(pen, at, foot);
        pen.Width(StemWidth);
        pen.Stroke(Straight({StemRoot(at, up), tipOver(at)}), {.start = 1, .middle = 1, .end = 1});
    }
    const Vector2 half = {0, BeamWidth / 2}, first = tipOver(heads.front()) - Vector2{0.8f, 0},
                  last = tipOver(heads.back()) + Vector2{0.8f, 0};
    pen.Fill({first - half, last - half, last + half, first + half, first - half});
}

static void DrawNote(Quill& pen, Vector2 at, float length, float foot)
{
    const bool hollow = length >= 2;
    DrawHead(pen, at, hollow);
    if (length < 3) {
        const float up = at.y > foot - 2 * Gap ? -1.0f : 1.0f;
        const Vector2 root = StemRoot(at, up), tip = root + Vector2{0.4f, up * StemLength};
        pen.Width(StemWidth);
        pen.Stroke(Straight({root, tip}), {.start = 1, .middle = 1, .end = 0.9f});
        if (length < 1) {
            pen.Width(4);
            pen.Stroke(Through({tip, tip + Vector2{6, -up * 4}, tip + Vector2{11, -up * 10},
                                tip + Vector2{10, -up * 15}}),
                       {.start = 1, .middle = 0.8f, .end = 0.1f});
        }
    }
    if (length == 1.5f || length == 3)
        pen.Dot(at + Vector2{12, -1.5f}, 2.0f);
    DrawLedgerLines(pen, at, foot);
}

static void DrawSign(Quill& pen, Vector2 at, int accidental)
{
    pen.Width(2.4f);
    if (accidental < 0) {
        pen.Stroke(Through({at + Vector2{-3, -13}, at + Vector2{-3, 4}}),
                   {.start = 0.9f, .middle = 0.9f, .end = 0.8f});
        pen.Stroke(
            Through({at + Vector2{-3, -1}, at + Vector2{3, -4}, at + Vector2{3, 0}, at + Vector2{-3, 4}}),
            {.start = 0.8f, .middle = 1, .end = 0.8f});
        return;
    }
    for (const float x : {-2.2f, 2.2f})
        pen.Stroke(Straight({at + Vector2{x, -9}, at + Vector2{x, 9}}),
                   {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
    for (const float y : {-2.8f, 2.8f})
        pen.Stroke(Straight({at + Vector2{-6, y + 1}, at + Vector2{6, y - 1}}),
                   {.start = 1, .middle = 1, .end = 1});
}

// At the line of G.
static void DrawTrebleClef(Quill& pen, Vector2 at)
{
    pen.Width(3.2f);
    const auto in = [&](float x, float y) { return at + Vector2{x * 1.3f, y * 0.86f}; };
    pen.Stroke(Through({in(0.5f, 2), in(-2.6f, -1), in(0, -5.5f), in(4.6f, -3), in(4.6f, 4), in(0, 7.6f),
                        in(-5.4f, 4), in(-5.6f, -5), in(0, -13), in(4.4f, -20), in(4, -28), in(1.6f, -31),
                        in(-0.6f, -25), in(0.4f, -12), in(2.2f, 8), in(1.6f, 15), in(-2, 17), in(-3.6f, 14)}),
               {.start = 0.5f, .middle = 1, .end = 0.9f});
    pen.Dot(in(-2.8f, 14), 2.2f);
}

// At the line of F.
static void DrawBassClef(Quill& pen, Vector2 at)
{
    pen.Width(3.4f);
    const auto in = [&](float x, float y) { return at + Vector2{x * 1.45f, y}; };
    pen.Dot(in(-3, 0), 2.8f);
    pen.Stroke(Through({in(-3, 0), in(-2.5f, -5), in(1.5f, -7), in(5, -3), in(4, 8), in(-4, 18)}),
               {.start = 0.8f, .middle = 1, .end = 0.1f});
    pen.Dot(in(8, -3.5f), 1.7f);
    pen.Dot(in(8, 3.5f), 1.7f);
}

// From note to note of a bar, above or below their heads.
static void DrawSlur(Quill& pen, Vector2 from, Vector2 to, float side)
{
    pen.Width(2.2f);
    const Vector2 lift = {0, side * 7};
    const float depth = Min(9, 3 + Length(to - from) * 0.08f);
    pen.Stroke(Through({from + lift, Mix(from, to, 0.5f) + lift + Vector2{0, side * depth}, to + lift}),
               {.start = 0.1f, .middle = 1, .end = 0.1f});
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
