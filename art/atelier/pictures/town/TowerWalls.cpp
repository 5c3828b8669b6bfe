// SPDX-License-Identifier: MIT
// The walls of the towers.
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

#include <vector>

namespace atelier
{

// Four walls side by side, joining at their edges, and a roof in the top right corner. A tower is 80 units high, 6 wide
// at its foot and 16 at its head: half-way up a pixel is as wide as it is high.
constexpr int Across = 512, Down = 2048;
constexpr float Girth = Across, WallWidth = 128, Head = 512, Foot = 1536;

static Mask Sheet()
{
    return Mask(Across, Down, 0, true);
}

static Mask RoofPatch()
{
    return Filled(Across, Down, Rectangle(Girth - WallWidth, 0, Girth, Head - 8));
}

// Pixels to the nearer of a wall's two corners.
static float ToCorner(float x)
{
    const float across = Fraction(x / WallWidth);
    return Min(across, 1 - across) * WallWidth;
}

// 0 at the head, 1 at the foot.
static float HeightAt(float y)
{
    return (y - Head) / (Foot - Head);
}

struct TowerNoise {
    Noise barb = Noise(521, 256, 256), age = Noise(522, 8, 32), chip = Noise(523, 96, 384),
          zone = Noise(527, 16, 32), course = Noise(535, 64, 256);
};

// What the night leaves of a wall that lies in the dark.
constexpr LinearColour Dark = Mix(palette::Ink, palette::Night, 0.35f) * 0.8f;

// The feathers that cover a tower: which one lies at a place of the wall. They are laid from the foot up, smaller below:
// seen from the ground a tower grows towards its head.
class Plumage
{
public:
    static constexpr int Columns = 28; // round the tower, so that the walls join
    static constexpr float Wide = Girth / Columns;

    struct FeatherPlace {
        float u, v; // across -1 to 1, along 0 to 1 at the tip
        int row, column;
    };

    Plumage();
    FeatherPlace At(float x, float y) const;
    void Draw(Pen& pen) const; // the edges, and some shafts

private:
    // How far down a feather reaches, in its lengths, beside its shaft (u from -1 to 1).
    static float Edge(float u) { return 1 - 0.34f * u * u - 0.12f * Pow(Abs(u), 6); }
    // By which part of its width a row lies beside the one above.
    float Shift(int row) const
    {
        return (row % 2 == 0 ? 0.0f : 0.5f) + 0.16f * sway.Value(0.5f, float(row) + 0.5f);
    }
    float Reach(int row, int column) const // of its length: no two alike
    {
        return 0.82f + 0.18f * sway.Value(float(column) + 0.5f, float(row) * 1.7f);
    }

    std::vector<float> top, length; // of the rows, pixels
    Noise sway;
};

Plumage::Plumage() : sway(528, 28, 64)
{
    for (float y = Head - 60; y < Foot + 60;) {
        const float step = Mix(23, 13, Clamp(HeightAt(y)));
        top.push_back(y);
        length.push_back(step * 2.2f);
        y += step;
    }
}

Plumage::FeatherPlace Plumage::At(float x, float y) const
{
    const float bent = x + 2 * sway.Fbm(x / Girth * 28, y / Down * 64, 2);
    FeatherPlace place = {0, 0, 0, 0};
    for (int row = 0; row < int(top.size()); row++) {
        const size_t i = size_t(row);
        if (y < top[i] || y > top[i] + length[i])
            continue;
        const float shifted = bent / Wide + Shift(row);
        const int column = Floor(shifted);
        const float u = (shifted - float(column)) * 2 - 1;
        const float v = (y - top[i]) / (length[i] * Reach(row, Wrap(column, Columns)));
        if (v <= Edge(u))
            return FeatherPlace{u, v / Edge(u), row, Wrap(column, Columns)};
    }
    return place;
}

void Plumage::Draw(Pen& pen) const
{
    for (size_t row = 0; row < top.size(); row++)
        for (int column = 0; column < Columns; column++) {
            const float x = (float(column) + 0.5f - Shift(int(row))) * Wide;
            const float l = length[row] * Reach(int(row), column);
            Line edge;
            for (int i = -8; i <= 8; i++) {
                const float u = float(i) / 8, ey = top[row] + l * Edge(u), ex = x + u * Wide / 2;
                edge.push_back({ex - 2 * sway.Fbm(ex / Girth * 28, ey / Down * 64, 2), ey});
            }
            pen.Stroke(edge, {.start = 0.25f, .middle = 1, .end = 0.1f});
            if (column % 3 == int(row) % 3)
                pen.Stroke(Through({edge[8] - Vector2{0, l * 0.18f}, edge[8] - Vector2{1, l * 0.5f}}),
                           {.start = 0.1f, .middle = 0.6f, .end = 0});
        }
}

// A pheasant's colours from the head down: dark green, a pale ring, copper, and the bars of the tail. `own` is a random
// number of the feather's.
static LinearColour FeatherColour(const Plumage::FeatherPlace& f, float h, float own, float comb)
{
    const LinearColour head =
        Mix(Mix(palette::Night, palette::Slate, 0.6f), palette::Moss, 0.25f + 0.4f * own);
    const LinearColour ring = Mix(palette::Bone, palette::Parchment, own) * 0.40f;
    const LinearColour copper =
        Mix(palette::Rust, palette::Ochre, 0.08f + 0.60f * own) * (0.75f + 0.5f * own);
    const LinearColour tail =
        Mix(Mix(palette::Parchment, palette::Ochre, 0.45f), palette::Slate, 0.4f * own) * 0.72f;
    const float isRing = Smooth(0.16f, 0.17f, h) * Smooth(0.215f, 0.205f, h);
    const float isCopper = Smooth(0.20f, 0.22f, h), isTail = Smooth(0.50f, 0.72f, h);
    LinearColour c = Mix(Mix(Mix(head, copper, isCopper), tail, isTail), ring, isRing);
    c = c * (0.82f + 0.2f * comb);
    const float tip = 1 - f.v;
    c = Mix(c, Mix(palette::Mist, palette::ColdLight, 0.35f),
            0.30f * Hill(0.16f, 0.10f, tip) * (1 - isCopper) * (1 - isRing));
    c = Mix(c, palette::Amber,
            0.45f * Hill(0.26f, 0.14f, tip) * isCopper * (1 - isTail) * (0.2f + 0.8f * own));
    c = Mix(c, palette::Ink, 0.7f * Hill(0.06f, 0.09f, tip) * isCopper * (1 - 0.6f * isTail));
    const float bar = Fraction(f.v * 3.2f + 0.25f * Abs(f.u));
    return Mix(c, Mix(palette::Ink, palette::Rust, 0.3f),
               0.7f * isTail * Smooth(0.50f, 0.60f, bar) * Smooth(1, 0.88f, bar));
}

// Squared stones in courses, which show where the feathers fell and towards the foot.
static LinearColour AshlarColour(float x, float y, const TowerNoise& noise)
{
    constexpr float CourseHigh = 15, StoneWide = 25.6f;
    const float bent = y + 1.6f * noise.course.Gradient(x / Girth * 64, y / Down * 256);
    const int course = Floor(bent / CourseHigh);
    const float along = x / StoneWide + 0.5f * float(course % 2) + 0.3f * Fraction(float(course) * 0.618f);
    const uint32_t name = (uint32_t(Wrap(Floor(along), 20)) * 131u + uint32_t(course) * 71u) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    const float inX = Min(Fraction(along), 1 - Fraction(along)) * StoneWide,
                inY = Min(Fraction(bent / CourseHigh), 1 - Fraction(bent / CourseHigh)) * CourseHigh;
    const LinearColour stone = Mix(Mix(palette::Slate, palette::Mist, 0.10f + 0.45f * own),
                                   palette::Parchment, 0.28f * Fraction(own * 7)) *
                               (0.62f + 0.35f * noise.age.Fbm(x / Girth * 64, y / Down * 256, 4));
    const float lit = 0.85f + 0.3f * Smooth(0.5f, 0.1f, Fraction(bent / CourseHigh)); // its upper edge
    return Mix(Dark, stone * lit, Smooth(0.4f, 2.2f, Min(inX, inY)));
}

// Where the stones show, 0 to 1: patches a few feathers wide, none so large that one would know a wall by it.
static float Bare(float x, float y, const TowerNoise& noise)
{
    const float patch =
        noise.zone.Fbm(x / Girth * 16, y / Down * 32, 4) + 0.55f * Smooth(0.45f, 1.0f, HeightAt(y));
    return Smooth(0.20f, 0.25f, patch);
}

static LinearColour TowerColour(float x, float y, const Plumage& plumage, const TowerNoise& noise)
{
    const Plumage::FeatherPlace f = plumage.At(x, y);
    const uint32_t name = uint32_t(f.row * Plumage::Columns + f.column) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    // The borders between the zones run along the feathers, elsewhere on each wall.
    constexpr float Lower[4] = {0.03f, -0.05f, 0.06f, -0.02f};
    const float h = HeightAt(y) + Lower[Wrap(Floor(x / WallWidth), 4)] +
                    0.07f * noise.zone.Gradient(float(f.column) * 0.57f, float(f.row) * 0.4f);
    // Barbs run from the shaft outwards and down.
    const float comb = noise.barb.Value((f.v * 30 - Abs(f.u) * 10) * 0.8f, float(f.column) + 0.5f);
    LinearColour c = FeatherColour(f, h, own, comb);
    // Rounded like a slate, and in the shade of the row above it.
    c = c * (1.05f - 0.35f * f.u * f.u + 0.18f * f.u);
    c = c * (1 - 0.70f * Smooth(0.58f, 0.34f, f.v));
    c = Mix(c, AshlarColour(x, y, noise), Bare(x, y, noise));
    return Mix(c, palette::Ink,
               0.5f * Smooth(0.50f, 0.66f, noise.chip.Gradient(x / Girth * 96, y / Down * 384)));
}

// Courses of projecting stone between the storeys, at other heights on each wall: pixels below the head.
constexpr float Courses[4][4] = {
    {222, 418, 640, 800}, {268, 372, 590, 760}, {196, 470, 668, 860}, {300, 520, 610, 826}};

// Somebody is up there, in some of the rooms. One sees the same wall of two or three towers at once: so each has many
// small windows, no two of them alike and few lit, instead of one that would be known again.
enum WindowKind { Lancet, Twin, Slit, Eye, Casement };
struct TowerWindow {
    float x, y, half, high; // pixels; the foot's middle
    WindowKind kind;
    float lamp; // 0: dark
};

static std::vector<TowerWindow> TowerWindows()
{
    std::vector<TowerWindow> windows;
    Dice dice(548);
    for (int wall = 0; wall < 4; wall++) {
        float y = Head + 150 + dice.Range(0, 60);
        float side = dice.Chance(0.5f) ? 1.0f : -1.0f;
        while (y < Foot - 150) {
            const float up = 1 - HeightAt(y); // nearer the foot they are smaller
            const int count = dice.Chance(0.35f) ? 2 : 1;
            for (int i = 0; i < count; i++) {
                const auto kind = WindowKind(Floor(dice.Range(0, 4.99f)));
                const float size = Mix(0.75f, 1.15f, up) * dice.Range(0.8f, 1.25f);
                const float x = WallWidth * (float(wall) + 0.5f) + side * dice.Range(4, 34);
                const float half = (kind == Slit ? 1.8f : kind == Twin ? 4.0f : 5.4f) * size;
                const float high = (kind == Eye ? 11.0f : kind == Casement ? 18.0f : 25.0f) * size;
                float foot = y + dice.Range(-8, 8);
                for (const float course : Courses[wall]) // stands on it rather than across it
                    if (foot - high - 6 < Head + course && foot + 12 > Head + course)
                        foot = Head + course - 6;
                windows.push_back({x, foot, half, high, kind, dice.Chance(0.5f) ? dice.Range(0.45f, 1) : 0});
                side = -side;
            }
            y += dice.Range(48, 96);
        }
    }
    return windows;
}

static Line OutlineOf(const TowerWindow& w, float x, float more)
{
    const float half = w.half + more, foot = w.y + Max(0, more - 0.5f), head = w.y - w.high - more;
    if (w.kind == Eye)
        return Ellipse({x, w.y - w.high / 2}, half, half * 1.05f);
    if (w.kind == Casement)
        return Straight(
            {{x - half, foot}, {x - half, head}, {x + half, head}, {x + half, foot}, {x - half, foot}}, 1);
    return Through({{x - half, foot},
                    {x - half, Mix(foot, head, 0.6f)},
                    {x - half * 0.72f, Mix(foot, head, 0.85f)},
                    {x, head},
                    {x + half * 0.72f, Mix(foot, head, 0.85f)},
                    {x + half, Mix(foot, head, 0.6f)},
                    {x + half, foot}},
                   1);
}

static void LightWindows(Canvas& canvas, const Paper& paper)
{
    Mask reveal = Sheet(), light = Sheet(), panes = Sheet(), stones = Sheet(), bars = Sheet();
    Pen mason(stones, paper, {.width = 2.2f, .wobble = 0.5f, .wave = 10, .skip = 0.15f}, 525),
        smith(bars, paper, {.width = 1.3f, .wobble = 0.2f, .skip = 0}, 531);
    for (const TowerWindow& w : TowerWindows())
        for (const float beside : {-1.0f, 1.0f}) {
            if (w.kind != Twin && beside > 0)
                continue;
            const float x = w.kind == Twin ? w.x + beside * (w.half + 1.6f) : w.x;
            reveal.Fill(OutlineOf(w, x, 1.8f));
            if (w.lamp > 0)
                light.Fill(OutlineOf(w, x, 0), w.lamp);
            else
                panes.Fill(OutlineOf(w, x, 0));
            mason.Stroke(OutlineOf(w, x, 3), {.start = 0.7f, .middle = 1, .end = 0.6f});
            if (w.kind == Slit)
                continue;
            const float middle = w.y - w.high / 2;
            smith.Stroke(Straight({{x, w.y}, {x, w.y - w.high}}, 1), {.start = 1, .middle = 1, .end = 1});
            smith.Stroke(Straight({{x - w.half, middle}, {x + w.half, middle}}, 1),
                         {.start = 1, .middle = 1, .end = 1});
        }
    const Mask lamps = light;
    canvas.Light(lamps.Blurred(7), palette::Amber, 0.30f);
    canvas.Light(lamps.Blurred(20), palette::Ochre, 0.55f);
    canvas.Cover(stones, Mix(palette::Slate, palette::Mist, 0.5f), 0.8f);
    canvas.Cover(reveal, palette::Ink, 0.92f);
    canvas.Cover(panes, Mix(palette::Night, palette::Slate, 0.55f), 0.9f);
    const Noise curtain(532);
    canvas.Cover(Mask(light).Curve(0, 0.3f), [&](float x, float y) {
        const float fold = 0.5f + 0.6f * curtain.Fbm(x / 4, y / 20, 2);
        const float lamp = lamps.At(Floor(x), Floor(y));
        return Mix(Mix(palette::Ochre, palette::Amber, 0.55f), Mix(palette::Amber, palette::Bone, 0.45f),
                   Clamp(fold)) *
               (0.35f + 0.75f * lamp);
    });
    canvas.Cover(bars.Multiply(light.Curve(0, 0.3f).Unite(panes)), palette::Ink, 0.8f);
}

// With a shade below them.
static void LayStringCourses(Canvas& canvas, const Paper& paper)
{
    Mask stone = Sheet(), shade = Sheet();
    Pen mason(stone, paper, {.width = 5.5f, .least = 0.7f, .wobble = 0.8f, .wave = 40, .skip = 0.05f}, 557);
    Pen dark(shade, paper, {.width = 7, .least = 0.6f, .wobble = 1.2f, .wave = 20, .skip = 0}, 558);
    for (int wall = 0; wall < 4; wall++)
        for (const float down : Courses[wall]) {
            const float left = WallWidth * float(wall) + 3, right = left + WallWidth - 6;
            const Line level = Straight({{left, Head + down}, {right, Head + down}});
            mason.Stroke(level, {.start = 0.9f, .middle = 1, .end = 0.9f});
            dark.Stroke(Moved(level, {0, 6}), {.start = 0.9f, .middle = 1, .end = 0.9f});
        }
    canvas.Cover(shade, Dark, 0.85f);
    const Noise own(559);
    canvas.Cover(stone, [&](float x, float y) {
        return Mix(palette::Slate, palette::Mist, 0.25f + 0.3f * own.Value(x / 18, y / 40)) * 0.8f;
    });
}

// Ivy climbs from the foot, now here and now there.
static void GrowIvy(Canvas& canvas, const Paper& paper)
{
    Mask leaves = Sheet(), stems = Sheet();
    Pen stem(stems, paper, {.width = 1.6f, .wobble = 1.5f, .wave = 20, .skip = 0.1f}, 560);
    Dice dice(561);
    for (int shoot = 0; shoot < 26; shoot++) {
        float x = dice.Range(0, Girth), y = Foot + 10;
        const float end = Foot - dice.Range(120, 560);
        Line line;
        float lean = 0;
        while (y > end) {
            line.push_back({x, y});
            lean = 0.85f * lean + dice.Range(-0.8f, 0.8f);
            x += lean;
            y -= dice.Range(3, 6);
            if (dice.Chance(0.8f))
                leaves.Fill(Ellipse({x + dice.Range(-7, 7), y + dice.Range(-4, 4)}, dice.Range(1.6f, 3.6f),
                                    dice.Range(1.4f, 2.8f), dice.Range(0, 3)),
                            dice.Range(0.5f, 1));
        }
        if (line.size() > 3)
            stem.Stroke(line, {.start = 1, .middle = 0.8f, .end = 0.2f});
    }
    canvas.Cover(Mask(leaves).Blur(3), Dark, 0.5f);
    canvas.Cover(stems, palette::Ink, 0.8f);
    const Noise own(562);
    canvas.Cover(leaves, [&](float x, float y) {
        return Mix(Mix(palette::Moss, palette::Ink, 0.45f), Mix(palette::Moss, palette::Mist, 0.35f),
                   Clamp(own.Value(x / 4, y / 4) * 1.2f - 0.2f));
    });
}

// Nothing lights the towers in the scene. Of two walls that meet one lies in the shade of the night, so that a tower is
// seen to have sides.
static void ShadeEveryOtherWall(Canvas& canvas)
{
    const Noise drift(533, 16, 64);
    canvas.Glaze(Sheet().Each([&](float x, float y) {
        const bool shaded = Floor(x / WallWidth) % 2 == 1;
        return shaded ? 0.8f + 0.5f * drift.Fbm(x / Girth * 16, y / Down * 64, 3) : 0.0f;
    }),
                 Mix(palette::Slate, palette::Mist, 0.25f), 0.75f);
}

// Walls are round, and go into the dark towards their corners: of one that is seen edge-on a few pixels have to show all of
// it, and where bright and dark lay side by side the strip would crawl.
static void DarkenCorners(Canvas& canvas, const Paper& paper)
{
    const Noise uneven(526, 8, 64);
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float corner = ToCorner(x);
        const float strayed = corner + 6 * uneven.Fbm(x / Girth * 8, y / Down * 64, 3);
        return 0.95f * Smooth(46, 6, Mix(corner, strayed, Smooth(4, 20, corner)));
    }),
                 Dark);
    Mask ink = Sheet();
    Pen pen(ink, paper, {.width = 1.3f, .wobble = 0.5f, .wave = 16, .skip = 0.3f}, 530);
    Hatch(pen, Sheet().Each([](float x, float) { return 0.8f * Hill(27, 16, ToCorner(x)); }),
          {.angle = 0.5f, .spacing = 5, .length = 22, .bend = 2}, 534);
    canvas.Cover(ink, palette::Ink, 0.6f);
}

// The box of a tower is cut straight. So its walls end in battlements, and what is seen between these is painted as the
// night behind them. Rows in pixels below the head.
constexpr float MerlonPitch = 32, MerlonHalf = 9.5f, MerlonFoot = 46, CopingFoot = 56, ArchSpring = 82,
                CorbelFoot = 108;
constexpr float ArchPitch = 16, ArchHalf = 5;
constexpr LinearColour SkyBetween = palette::Ink * 0.75f;

struct Merlon {
    float left, right, top, slope; // from its middle; below the head; how much lower the right side is
};

// Weather has worn each in its own way; those at the corners are whole, since two walls share them.
static Merlon MerlonOf(int i)
{
    const uint32_t name = (uint32_t(i) + 5u) * 2654435761u;
    const auto random = [&](int shift) { return float(name >> shift & 255) / 255; };
    if (i % 4 == 0)
        return {MerlonHalf + 1, MerlonHalf + 1, 0, 0};
    const bool broken = random(8) < 0.3f;
    return {MerlonHalf - 2 * random(4), MerlonHalf - 2 * random(12),
            broken ? 8 + 12 * random(16) : 1 + 4 * random(20), (broken ? 14.0f : 3.0f) * (random(24) - 0.5f)};
}

// 1 where a merlon stands.
static float MerlonAt(float x, float down, const Noise& age)
{
    const int i = Wrap(Floor(x / MerlonPitch + 0.5f), int(Girth / MerlonPitch));
    const Merlon m = MerlonOf(i);
    const float aside = (Fraction(x / MerlonPitch + 0.5f) - 0.5f) * MerlonPitch +
                        0.9f * age.Fbm(x / Girth * 128, down / Down * 512, 2);
    const float top = m.top + m.slope * aside / MerlonHalf;
    return Smooth(-m.left - 0.7f, -m.left + 0.7f, aside) * Smooth(m.right + 0.7f, m.right - 0.7f, aside) *
           (top <= 0 ? 1.0f : Smooth(top - 1, top + 1, down));
}

static LinearColour StoneOfParapet(float x, float down, const TowerNoise& noise)
{
    const float course = Floor((down - MerlonFoot) / 11);
    const uint32_t name =
        (uint32_t(Floor(x / 13 + 0.5f * course)) * 37u + uint32_t(course + 9) * 101u) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    LinearColour stone = Mix(palette::Slate, palette::Mist, 0.22f + 0.35f * own) *
                         (0.62f + 0.3f * noise.age.Fbm(x / Girth * 64, down / Down * 256, 4));
    const float inCourse = Fraction((down - MerlonFoot) / 11);
    stone = Mix(stone, palette::Ink, 0.5f * Smooth(0.82f, 0.95f, inCourse));
    if (down > MerlonFoot && down < CopingFoot) // the ledge catches the moon
        stone = Mix(palette::Slate, palette::Mist, 0.6f) * (0.75f + 0.2f * own);
    if (down >= ArchSpring)
        stone = stone * Mix(0.85f, 0.3f, Fraction((down - ArchSpring) / (CorbelFoot - ArchSpring) * 2.999f));
    return stone * Mix(1, 0.85f, Smooth(CopingFoot, CorbelFoot, down));
}

static void BuildBattlements(Canvas& canvas, const TowerNoise& noise)
{
    // They stand out over the wall, which lies in their shade.
    canvas.Cover(Sheet().Each([](float, float y) {
        return 0.95f * Smooth(CorbelFoot + 60, CorbelFoot - 8, y - Head);
    }),
                 Dark);
    const auto isStone = [&](float x, float down) {
        if (down < MerlonFoot)
            return MerlonAt(x, Max(down, 0), noise.age);
        if (down < CopingFoot + 8)
            return 1.0f;
        // Little arches on corbels, which grow thinner downwards.
        const float aside = Abs(Fraction(x / ArchPitch) - 0.5f) * ArchPitch; // from an arch's middle
        const float low = (down - ArchSpring) / (CorbelFoot - ArchSpring);
        const float half =
            down < ArchSpring
                ? ArchHalf * Sqrt(Max(0, 1 - Pow((ArchSpring - down) / (ArchSpring - CopingFoot - 8), 2)))
                : ArchHalf + 0.9f * float(Floor(low * 3));
        return Smooth(half - 0.7f, half + 0.7f, aside) * Smooth(CorbelFoot + 1, CorbelFoot - 1, down);
    };
    canvas.Cover(Sheet().Each([](float, float y) { return y - Head < MerlonFoot ? 1.0f : 0.0f; }),
                 [&](float x, float y) {
                     // Of the far side's battlements one sees a little in the gaps.
                     const float behind =
                         MerlonAt(x + 13, Max(0, y - Head - 24), noise.age) * Smooth(22, 26, y - Head);
                     return Mix(SkyBetween, Mix(palette::Ink, palette::Night, 0.8f), behind);
                 });
    Mask stone = Sheet().Each([&](float x, float y) { return isStone(x, y - Head); });
    canvas.Cover(stone, [&](float x, float y) {
        const float shaded = Floor(x / WallWidth) % 2 == 1 ? 0.72f : 1.0f;
        return StoneOfParapet(x, y - Head, noise) * shaded;
    });
    // The moon lies on the tops and the left sides of the merlons, their right sides have a shade.
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float down = y - Head;
        if (down >= MerlonFoot)
            return 0.0f;
        const float here = stone.At(Floor(x), Floor(y));
        const float above = down < 3 ? here : stone.Sample(x, y - 3), left = stone.Sample(x - 2, y);
        return 0.75f * here * (1 - Min(above, left));
    }),
                 Mix(palette::Mist, palette::Bone, 0.3f));
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float down = y - Head;
        return down >= MerlonFoot ? 0.0f
                                  : 0.7f * stone.At(Floor(x), Floor(y)) * (1 - stone.Sample(x + 2.5f, y));
    }),
                 Dark);
}

// The roof: slabs of slate with moss between them.
static void PaintSlates(Canvas& canvas, const TowerNoise& noise)
{
    canvas.Cover(RoofPatch(), [&](float x, float y) {
        const Noise::WorleyCell slab =
            noise.chip.Worley(x / 26 + 0.2f * noise.age.Gradient(x / 30, y / 60), y / 80);
        const float own = float(slab.name & 255) / 255;
        const LinearColour top = Mix(palette::Slate, palette::Mist, 0.10f + 0.4f * own) *
                                 (0.7f + 0.3f * noise.age.Fbm(x / 10, y / 20, 4));
        return Mix(Mix(palette::Moss, palette::Ink, 0.6f), top,
                   Smooth(0.02f, 0.10f, slab.second - slab.nearest));
    });
}

// A tower is a pheasant turned to stone: a dark head, a pale ring, a breast of copper scales, and the barred
// tail, which goes over into masonry and stands in the dark.
Canvas TowerWalls()
{
    const Paper& paper = SketchPaper();
    const Plumage plumage;
    const TowerNoise noise;
    Canvas canvas(Across, Down);
    canvas.Ground([&](float x, float y) { return TowerColour(x, y, plumage, noise); });
    // Rain has drawn the dark down.
    const Mask stains = Sheet().Each([&](float x, float y) {
        return Smooth(0.10f, 0.42f, noise.age.Fbm(x / Girth * 48 + 3, y / Down * 40, 4));
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Slate, palette::Ink, 0.3f), .density = 0.3f, .stray = 2}, 529);
    Mask ink = Sheet();
    Pen pen(ink, paper, {.width = 1.5f, .wobble = 0.5f, .wave = 14, .skip = 0.25f}, 524);
    plumage.Draw(pen);
    canvas.Cover(ink.By([&](float x, float y) { return 1 - Bare(x, y, noise); }), palette::Ink, 0.72f);
    LayStringCourses(canvas, paper);
    GrowIvy(canvas, paper);
    ShadeEveryOtherWall(canvas);
    LightWindows(canvas, paper);
    DarkenCorners(canvas, paper);
    BuildBattlements(canvas, noise);
    PaintSlates(canvas, noise);
    // The foot stands in the dark, the head against the sky.
    canvas.Tone(Mask(Across, Down).Each([](float, float y) { return Smooth(Foot + 40, Head + 420, y); }, 4),
                0.16f, 1);
    paper.Show(canvas, 0.5f);
    return canvas;
}

} // namespace atelier
