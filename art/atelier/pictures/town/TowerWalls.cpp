// SPDX-License-Identifier: MIT
// The walls of the towers.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/WallAtlas.h"

#include <vector>

namespace atelier
{

// The rows of feathers on the towers. They are laid from the foot up, smaller below: seen from the ground a
// tower grows towards its head.
struct FeatherRows {
    std::vector<float> top, length; // pixels
};

static FeatherRows RowsOfFeathers()
{
    FeatherRows rows;
    for (float y = WallTop - 130; y < WallFoot + 60;) {
        const float step = Mix(46, 17, Clamp((y - WallTop) / (WallFoot - WallTop)));
        rows.top.push_back(y);
        rows.length.push_back(step * 2.3f);
        y += step;
    }
    return rows;
}

// The outline of a feather: how far down it reaches, in its lengths, beside its shaft (u from -1 to 1).
static float FeatherEdge(float u)
{
    return 1 - 0.34f * u * u - 0.12f * Pow(Abs(u), 6);
}

// Somebody is up there, in some of the rooms. Each wall has windows of its own, one of them dark: of the four towers
// one sees the same walls side by side. The walls are drawn out to more than three times their height.
enum WindowKind { Lancet, Twin, Slits, Shuttered };
struct TowerWindow {
    float x, y, high; // pixels, the foot's middle
    WindowKind kind;
};
// clang-format off
constexpr TowerWindow TowerWindows[] = {
    { 112, 452, 48, Lancet},    { 160, 598, 34, Shuttered}, { 100, 546, 26, Slits},
    { 396, 398, 40, Shuttered}, { 372, 530, 44, Twin},
    { 628, 566, 40, Lancet},    { 668, 420, 46, Shuttered}, { 612, 664, 22, Slits},
    { 886, 480, 48, Twin},      { 924, 620, 34, Lancet},
};
// clang-format on

// A pointed arch over the middle of its foot.
static Line LancetOutline(Vector2 foot, float half, float high)
{
    return Through({{foot.x - half, foot.y},
                    {foot.x - half, foot.y - high * 0.6f},
                    {foot.x - half * 0.72f, foot.y - high * 0.85f},
                    {foot.x, foot.y - high},
                    {foot.x + half * 0.72f, foot.y - high * 0.85f},
                    {foot.x + half, foot.y - high * 0.6f},
                    {foot.x + half, foot.y}},
                   1);
}

struct Opening {
    Vector2 foot;
    float half, high;
    bool lit;
};

static std::vector<Opening> OpeningsOf(const TowerWindow& w)
{
    if (w.kind == Twin)
        return {{{w.x - 12, w.y}, 8.5f, w.high * 0.92f, true}, {{w.x + 11, w.y}, 8.5f, w.high, true}};
    if (w.kind == Slits)
        return {{{w.x - 17, w.y + 5}, 3.6f, w.high, true},
                {{w.x, w.y - 4}, 3.6f, w.high, false},
                {{w.x + 18, w.y + 2}, 3.6f, w.high, true}};
    return {{{w.x, w.y}, w.high * 0.32f, w.high, w.kind == Lancet}};
}

static void LightWindows(Canvas& canvas, const Paper& paper)
{
    Mask reveal(Side, Side), light(Side, Side), shutters(Side, Side), stones(Side, Side), bars(Side, Side);
    Pen mason(stones, paper, {.width = 4, .wobble = 0.9f, .wave = 14, .skip = 0.2f}, 525),
        smith(bars, paper, {.width = 2.4f, .wobble = 0.4f, .skip = 0}, 531);
    for (const TowerWindow& w : TowerWindows) {
        for (const Opening& o : OpeningsOf(w)) {
            const Line inner = LancetOutline(o.foot, o.half, o.high);
            const float wall = w.kind == Slits ? 2 : 4;
            reveal.Fill(LancetOutline(o.foot, o.half + wall, o.high + wall));
            (o.lit ? light : shutters).Fill(inner);
            if (w.kind == Slits)
                continue;
            mason.nib.width = 3.4f;
            mason.Stroke(Part(LancetOutline(o.foot, o.half + 6, o.high + 5), 0.1f, 0.9f),
                         {.start = 0.4f, .middle = 1, .end = 0.3f});
            smith.Stroke(Straight({o.foot, {o.foot.x + 0.6f, o.foot.y - o.high}}, 1),
                         {.start = 1, .middle = 0.9f, .end = 0.9f});
            for (const float k : {0.3f, 0.62f})
                smith.Stroke(Straight({{o.foot.x - o.half, o.foot.y - o.high * k},
                                       {o.foot.x + o.half, o.foot.y - o.high * k - 0.6f}},
                                      1),
                             {.start = 0.9f, .middle = 0.8f, .end = 0.9f});
        }
        if (w.kind == Slits)
            continue;
        mason.nib.width = 4.5f;
        const float reach = w.kind == Twin ? 25 : w.high * 0.32f + 9;
        mason.Stroke(Straight({{w.x - reach, w.y + 3}, {w.x + reach, w.y + 3}}),
                     {.start = 0.7f, .middle = 1, .end = 0.5f});
    }
    // It falls on the feathers below more than on those above.
    canvas.Light(light.Blurred(13), palette::Amber, 0.30f);
    canvas.Light(light.Blurred(34), palette::Ochre, 0.75f);
    canvas.Cover(reveal, palette::Ink, 0.92f);
    canvas.Cover(stones, Mix(palette::Slate, palette::Mist, 0.35f), 0.75f);
    canvas.Cover(shutters, Mix(palette::Night, palette::Slate, 0.4f), 0.9f);
    const Noise curtain(532);
    canvas.Cover(Mask(light).Blur(0.4f), [&](float x, float y) {
        const float fold = 0.5f + 0.6f * curtain.Fbm(x / 5, y / 26, 2);
        return Mix(Mix(palette::Ochre, palette::Amber, 0.55f), Mix(palette::Amber, palette::Bone, 0.35f),
                   Clamp(fold));
    });
    canvas.Cover(bars.Multiply(light.Unite(shutters)), palette::Ink, 0.75f);
}

// The feathers that cover a tower: which one lies at a place of the wall.
class Plumage
{
public:
    static constexpr int Columns = 16; // round the tower, so that the walls join
    static constexpr float Wide = Size / Columns;

    struct FeatherPlace {
        float u, v; // across -1 to 1, along 0 to 1 at the tip
        int row, column;
    };

    Plumage() : rows(RowsOfFeathers()), sway(528, 16, 8) {}

    FeatherPlace At(float x, float y) const;
    static bool IsFallen(const FeatherPlace& feather); // the wall shows behind it
    void Draw(Pen& pen) const;                         // the edges, and some shafts

private:
    // By which part of its width a row lies beside the one above.
    float Shift(int row) const
    {
        return (row % 2 == 0 ? 0.0f : 0.5f) + 0.16f * sway.Value(0.5f, float(row) + 0.5f);
    }
    float Reach(int row, int column) const // of its length: no two alike
    {
        return 0.86f + 0.14f * sway.Value(float(column) + 0.5f, float(row) * 1.7f);
    }

    FeatherRows rows;
    Noise sway;
};

Plumage::FeatherPlace Plumage::At(float x, float y) const
{
    const float bent = x + 5 * sway.Fbm(x / Size * 16, y / Size * 8, 2);
    FeatherPlace place = {0, 0, 0, 0};
    for (int row = 0; row < int(rows.top.size()); row++) {
        const size_t i = size_t(row);
        if (y < rows.top[i] || y > rows.top[i] + rows.length[i])
            continue;
        const float shifted = bent / Wide + Shift(row);
        const int column = Floor(shifted);
        const float u = (shifted - float(column)) * 2 - 1;
        const float v = (y - rows.top[i]) / (rows.length[i] * Reach(row, Wrap(column, Columns)));
        if (v <= FeatherEdge(u))
            return FeatherPlace{u, v, row, Wrap(column, Columns)};
    }
    return place;
}

bool Plumage::IsFallen(const FeatherPlace& f)
{
    const uint32_t name = uint32_t(f.row * 37 + f.column * 101) * 2654435761u;
    return (name >> 9 & 255) < 20;
}

void Plumage::Draw(Pen& pen) const
{
    for (size_t row = 0; row < rows.top.size(); row++) {
        pen.nib.width = 1.6f + rows.length[row] * 0.018f;
        for (int column = 0; column < Columns; column++) {
            const float x = (float(column) + 0.5f - Shift(int(row))) * Wide;
            const float l = rows.length[row] * Reach(int(row), column);
            Line edge;
            for (int i = -12; i <= 12; i++) {
                const float u = float(i) / 12, ey = rows.top[row] + l * FeatherEdge(u);
                const float ex = x + u * Wide / 2;
                edge.push_back({ex - 5 * sway.Fbm(ex / Size * 16, ey / Size * 8, 2), ey});
            }
            pen.Stroke(edge, {.start = 0.25f, .middle = 1, .end = 0.1f});
            if (column % 3 == int(row) % 3)
                pen.Stroke(Through({edge[12] - Vector2{0, l * 0.18f}, edge[12] - Vector2{1, l * 0.5f}}),
                           {.start = 0.1f, .middle = 0.6f, .end = 0});
        }
    }
}

struct TowerNoise {
    Noise barb = Noise(521, 256, 64), age = Noise(522, 8, 8), chip = Noise(523, 96, 96),
          zone = Noise(527, 8, 4);
};

// 0 at the head of a tower, 1 at its foot. The borders between its zones are not level, and lie elsewhere on each wall.
static float TowerHeight(float x, float y, const Noise& zone)
{
    constexpr float Lower[4] = {0.02f, -0.10f, 0.05f, -0.05f}; // the zones of the breast, in heights
    const float h = (y - WallTop) / (WallFoot - WallTop);
    const float own = Lower[Wrap(Floor(x / WallWidth), 4)] * Smooth(0.2f, 0.35f, h);
    return h + own + 0.07f * zone.Fbm(x / Size * 8, y / Size * 4, 3);
}

// The colour of a feather at height h. `own` is a random number of the feather's, `tip` the distance to its edge in
// lengths, `comb` the brightness of its barbs.
static LinearColour FeatherColour(const Plumage::FeatherPlace& f, float h, float own, float tip, float comb)
{
    const LinearColour head =
        Mix(Mix(palette::Night, palette::Slate, 0.6f), palette::Moss, 0.25f + 0.4f * own);
    const LinearColour ring = Mix(palette::Bone, palette::Parchment, own) * 0.45f;
    const LinearColour copper = Mix(palette::Rust, palette::Ochre, 0.15f + 0.45f * own) * 1.15f;
    const LinearColour tail =
        Mix(Mix(palette::Parchment, palette::Ochre, 0.45f), palette::Slate, 0.3f * own) * 0.8f;
    const float isRing = Smooth(0.10f, 0.12f, h) * Smooth(0.19f, 0.17f, h);
    const float isCopper = Smooth(0.17f, 0.19f, h), isTail = Smooth(0.52f, 0.68f, h);
    LinearColour c = Mix(Mix(Mix(head, copper, isCopper), tail, isTail), ring, isRing);
    c = c * (0.80f + 0.22f * comb);
    // The head's scales shine cold, the breast's glow before their dark hem, the tail is barred.
    const float hem = Hill(0.13f, 0.085f, tip);
    c = Mix(c, Mix(palette::Mist, palette::ColdLight, 0.35f), 0.35f * hem * (1 - isCopper) * (1 - isRing));
    c = Mix(c, palette::Amber,
            0.55f * Hill(0.24f, 0.12f, tip) * isCopper * (1 - isTail) * (0.35f + 0.65f * own));
    c = Mix(c, palette::Ink, 0.7f * Hill(0.09f, 0.08f, tip) * isCopper * (1 - 0.6f * isTail));
    const float bar = Fraction(f.v * 3.4f + 0.25f * Abs(f.u));
    c = Mix(c, Mix(palette::Ink, palette::Rust, 0.3f),
            0.75f * isTail * Smooth(0.55f, 0.62f, bar) * Smooth(1, 0.9f, bar));
    // The shaft.
    c = Mix(c, palette::Parchment,
            0.3f * Smooth(0.08f, 0.03f, Abs(f.u)) * Smooth(0.72f, 0.5f, f.v) * (1 - isRing));
    return c;
}

static LinearColour TowerColour(float x, float y, const Plumage& plumage, const TowerNoise& noise)
{
    const Plumage::FeatherPlace f = plumage.At(x, y);
    const float tip = FeatherEdge(f.u) - f.v; // to the edge, in lengths
    const uint32_t name = uint32_t(f.row * Plumage::Columns + f.column) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    const float h = TowerHeight(x, y, noise.zone);
    const LinearColour stone = Mix(palette::Slate, palette::Mist, 0.15f + 0.35f * own);
    if (Plumage::IsFallen(f))
        return stone * (0.35f + 0.25f * noise.age.Fbm(x / Size * 64, y / Size * 64, 3));
    // Barbs run from the shaft outwards and down.
    const float comb = noise.barb.Value((f.v * 46 - Abs(f.u) * 13) * 0.8f, float(f.column) + 0.5f);
    LinearColour c = FeatherColour(f, h, own, tip, comb);
    // Rounded like a slate, and in the shade of the row above it.
    c = c * (1.05f - 0.35f * f.u * f.u + 0.18f * f.u);
    c = c * (1 - 0.72f * Smooth(0.60f, 0.36f, f.v));
    // Weather: bare stone comes through, more of it towards the foot.
    const float worn = noise.age.Fbm(x / Size * 8, y / Size * 8, 5) + 0.45f * h - 0.2f;
    c = Mix(c, stone * (0.80f + 0.2f * comb), 0.8f * Smooth(0.05f, 0.32f, worn));
    return Mix(c, palette::Ink,
               0.6f * Smooth(0.50f, 0.66f, noise.chip.Gradient(x / Size * 96, y / Size * 96)));
}

// Walls are round, and go into the dark towards their corners: of one that is seen edge-on a few pixels have to show
// all of it, and where bright and dark lay side by side the strip would crawl.
static void DarkenCorners(Canvas& canvas, const Paper& paper)
{
    const Noise uneven(526, 8, 16);
    canvas.Cover(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float across = Fraction(x / WallWidth), corner = Min(across, 1 - across) * WallWidth;
        const float strayed = corner + 14 * uneven.Fbm(x / Size * 8, y / Size * 16, 3);
        return 0.96f * Smooth(112, 14, Mix(corner, strayed, Smooth(8, 40, corner))) *
               Smooth(WallTop + 26, WallTop + 76, y);
    }),
                 Mix(palette::Ink, palette::Night, 0.35f) * 0.8f);
    Mask tone(Side, Side, 0, true), ink(Side, Side, 0, true);
    tone.Each([](float x, float y) {
        const float across = Fraction(x / WallWidth), corner = Min(across, 1 - across) * WallWidth;
        return 0.8f * Hill(62, 34, corner) * Smooth(WallTop + 80, WallTop + 130, y);
    });
    Pen pen(ink, paper, {.width = 2.2f, .wobble = 0.8f, .wave = 20, .skip = 0.3f}, 530);
    Hatch(pen, tone, {.angle = 0.35f, .spacing = 9, .length = 46}, 534);
    canvas.Cover(ink, palette::Ink, 0.6f);
}

// The box ends in a straight cut, which is seen against a sky that is now light and now black. So each wall ends in what
// is straight by nature: a parapet on corbels with little arches between them, which goes all round the tower up to the
// last row. Rows, in pixels below the head; at the head a pixel is 2.5 times as high as wide.
constexpr float ArrisFoot = 4, CopingFoot = 18, FriezeFoot = 29, ArchSpring = 42, CorbelFoot = 60;
constexpr int ArchesOfWall = 5;
constexpr float ArchPitch = 44, ArchHalf = 14;

// The middle of an arch. They stand away from the corners, which have double corbels.
static float ArchMiddle(int wall, int arch)
{
    return (float(wall) + 0.5f) * WallWidth + (float(arch) - (ArchesOfWall - 1) / 2.0f) * ArchPitch;
}

// The side of an arch's opening from its apex down along the corbel, which is stepped; `side` is -1 or 1.
static Line ArchSide(float middle, float side)
{
    const auto at = [&](float across, float down) { return Vector2{middle + side * across, WallTop + down}; };
    Line line = Through({at(0, FriezeFoot + 1), at(ArchHalf * 0.62f, FriezeFoot + 4),
                         at(ArchHalf, ArchSpring - 2), at(ArchHalf, ArchSpring + 3)},
                        1);
    for (int step = 0; step < 3; step++) {
        const float across = ArchHalf + 2.2f * float(step),
                    foot = Mix(ArchSpring, CorbelFoot, float(step + 1) / 3);
        line.push_back(at(across, foot - 2));
        line.push_back(at(across + 1.4f, foot));
    }
    return line;
}

static Line ArchOpening(float middle)
{
    Line outline = ArchSide(middle, -1);
    outline.push_back({middle - ArchPitch / 2, WallTop + CorbelFoot});
    outline.push_back({middle + ArchPitch / 2, WallTop + CorbelFoot});
    const Line right = ArchSide(middle, 1);
    outline.insert(outline.end(), right.rbegin(), right.rend());
    return outline;
}

// The colour of the parapet's stone.
static LinearColour ParapetColour(float x, float y, const Noise& age)
{
    const float down = y - WallTop;
    const bool coping = down < CopingFoot;
    // Slabs of the coping lie across two stones of the course below them.
    const float stone = coping ? (x - WallWidth / 2) / 64 + 0.5f : x / 32;
    const uint32_t name = (uint32_t(Floor(stone)) * 2 + (coping ? 1U : 0U) + 77U) * 2654435761u;
    const float own = down < ArchSpring - 6 ? float(name >> 12 & 255) / 255 : 0.5f;
    // Below, the light of the windows reaches it.
    const LinearColour moonlit = Mix(Mix(palette::Slate, palette::Mist, 0.30f + 0.38f * own), palette::Ochre,
                                     0.30f * Smooth(FriezeFoot, CorbelFoot, down));
    float light = Mix(0.86f, 0.68f, Smooth(ArrisFoot, CopingFoot, down));
    light = Mix(light, Mix(0.52f, 0.44f, Smooth(CopingFoot, ArchSpring, down)),
                Smooth(CopingFoot - 1, CopingFoot + 1, down));
    if (down > ArchSpring) { // each step of a corbel catches the light and has a shade below it
        const float step = Fraction((down - ArchSpring) / (CorbelFoot - ArchSpring) * 3);
        light = Mix(0.56f, 0.22f, Smooth(0.3f, 1, step));
    }
    // At the corners what is below the coping lies back: only the coping reaches out to the tower's outline.
    const float across = Fraction(x / WallWidth), corner = Min(across, 1 - across) * WallWidth;
    light *= Mix(1, Mix(0.28f, 1, Smooth(2, 22, corner)), Smooth(CopingFoot, CopingFoot + 3, down));
    // Of two walls that meet one lies in the shade, up to the edge of the head.
    if (Floor(x / WallWidth) % 2 == 1)
        light *= 0.74f;
    light *= 0.9f + 0.3f * age.Fbm(x / Size * 64, y / Size * 64 + 7, 4);
    return Mix(moonlit * light, Mix(palette::Mist, palette::Bone, 0.5f) * 0.95f,
               0.75f * Smooth(ArrisFoot + 1, ArrisFoot - 2, down + 1.2f * age.Fbm(x / Size * 96, 0.5f, 3)));
}

static void PaintParapet(Canvas& canvas, const Paper& paper, const TowerNoise& noise)
{
    // It stands out over the wall: the scales below it lie in its shade.
    canvas.Cover(Mask(Side, Side, 0, true).Each([](float, float y) {
        const float down = y - WallTop;
        return down < 0 ? 0.0f : 0.95f * Smooth(CorbelFoot + 38, CorbelFoot - 6, down);
    }),
                 Mix(palette::Ink, palette::Night, 0.35f) * 0.8f);
    Mask stone = Filled(Side, Side, Rectangle(0, WallTop - 12, Size, WallTop + CorbelFoot), true);
    Mask ink(Side, Side, 0, true), rim(Side, Side, 0, true);
    Pen outline(ink, paper, {.width = 2.4f, .wobble = 0.5f, .wave = 16, .skip = 0.1f}, 553);
    Pen joint(ink, paper, {.width = 2, .wobble = 0.6f, .wave = 12, .skip = 0.15f}, 554);
    Pen shine(rim, paper, {.width = 2.2f, .wobble = 0.4f, .wave = 16, .skip = 0.2f}, 555);
    for (int wall = 0; wall < 4; wall++)
        for (int arch = 0; arch < ArchesOfWall; arch++) {
            const float middle = ArchMiddle(wall, arch);
            stone.Erase(ArchOpening(middle));
            for (const float side : {-1.0f, 1.0f})
                outline.Stroke(ArchSide(middle, side), {.start = 0.7f, .middle = 1, .end = 0.6f});
            // The moon stands on the left: the right jamb of each opening is lit.
            shine.Stroke(Beside(Part(ArchSide(middle, 1), 0.1f, 0.7f), -2),
                         {.start = 0.2f, .middle = 0.8f, .end = 0.3f});
        }
    canvas.Cover(stone, [&](float x, float y) { return ParapetColour(x, y, noise.age); });
    for (float x = 32; x < Size; x += 64)
        joint.Stroke(Straight({{x, WallTop + ArrisFoot}, {x + 1, WallTop + CopingFoot}}),
                     {.start = 0.5f, .middle = 0.8f, .end = 0.8f});
    for (float x = 32; x < Size; x += 32)
        if (Fraction(x / WallWidth) > 0)
            joint.Stroke(Straight({{x, WallTop + CopingFoot}, {x, WallTop + FriezeFoot}}),
                         {.start = 0.8f, .middle = 0.6f, .end = 0.3f});
    canvas.Cover(ink, palette::Ink, 0.8f);
    canvas.Cover(rim.Blur(0.5f), palette::Mist, 0.4f);
    // The shade below the coping.
    const Noise uneven(556, 64, 4);
    canvas.Cover(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float down = y - WallTop - 0.8f * uneven.Fbm(x / Size * 64, 0.5f, 2);
        return 0.85f * Smooth(CopingFoot - 1.5f, CopingFoot, down) *
               Smooth(CopingFoot + 6, CopingFoot + 1, down);
    }),
                 palette::Ink);
}

// Nothing lights the towers in the scene. Of two walls that meet one lies in the shade of the night, so that a tower is
// seen to have sides, and two towers side by side don't show the same sheet twice.
static void ShadeEveryOtherWall(Canvas& canvas)
{
    const Noise drift(533, 8, 8);
    canvas.Glaze(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const bool shaded = Floor(x / WallWidth) % 2 == 1;
        const float uneven = 0.8f + 0.5f * drift.Fbm(x / Size * 8, y / Size * 8, 3);
        return shaded ? uneven * Smooth(WallTop - 40, WallTop, y) : 0.0f;
    }),
                 Mix(palette::Slate, palette::Mist, 0.25f), 0.75f);
}

// The roof: slabs of slate with moss between them.
static void PaintSlates(Canvas& canvas, const TowerNoise& noise)
{
    canvas.Cover(Roof(), [&](float x, float y) {
        const Noise::WorleyCell slab =
            noise.chip.Worley(x / 52 + 0.2f * noise.age.Gradient(x / 60, y / 60), y / 40);
        const float own = float(slab.name & 255) / 255;
        const LinearColour top = Mix(palette::Slate, palette::Mist, 0.10f + 0.4f * own) *
                                 (0.7f + 0.3f * noise.age.Fbm(x / 20, y / 20, 4));
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
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) { return TowerColour(x, y, plumage, noise); });
    // Rain has drawn the dark down, moss sits in the wet.
    const Mask stains = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(0.10f, 0.42f, noise.age.Fbm(x / Size * 32 + 3, y / Size * 8, 4));
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Slate, palette::Ink, 0.3f), .density = 0.35f, .stray = 3}, 529);
    Mask ink(Side, Side, 0, true);
    Pen pen(ink, paper, {.width = 3.2f, .wobble = 1, .wave = 22, .skip = 0.3f}, 524);
    plumage.Draw(pen);
    canvas.Cover(ink, palette::Ink, 0.72f);
    ShadeEveryOtherWall(canvas);
    LightWindows(canvas, paper);
    DarkenCorners(canvas, paper);
    PaintSlates(canvas, noise);
    PaintParapet(canvas, paper, noise);
    // The foot stands in the dark, the head against the sky.
    canvas.Tone(
        Mask(Side, Side).Each([](float, float y) { return Smooth(WallFoot + 20, WallTop + 150, y); }, 4),
        0.16f, 1);
    paper.Show(canvas, 0.6f);
    return canvas;
}

} // namespace atelier
