// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/CloudBank.h"

#include <span>

namespace atelier
{

// One row of a bank, whose frame is upright, in pixels, with the middle of the crest as its origin.
struct BankRow {
    int count;
    float y, reach;          // of the middles of its billows: below the crest, and to both sides
    float sinks;             // by which its ends lie lower than its middle
    float smallest, largest; // half a billow's width
    float light, haze, nib;  // as a billow's
};

// From the farthest to the nearest: each is lower, larger and darker than the one before.
// clang-format off
constexpr BankRow RowsBehind[] = {
    // count   y   reach  sinks  smallest largest  light  haze    nib
    {9,      -16,  205,   44,    44,      74,      0.70f, 0.52f,  1.2f},
    {8,       24,  215,   40,    54,      86,      0.66f, 0.44f,  1.4f},
};
constexpr BankRow RowsBefore[] = {
    {9,       38,  190,   56,    50,      84,      0.80f, 0.34f,  1.6f},
    {8,       84,  230,   44,    66,     104,      0.72f, 0.28f,  1.9f},
    {7,      138,  230,   34,    80,     120,      0.60f, 0.22f,  2.2f},
    {7,      196,  220,   24,    80,     120,      0.50f, 0.18f,  2.2f},
};
// clang-format on

// The moon of the sky behind it stands to the right of the arms.
constexpr Vector2 ToMoon = {620, -560};
constexpr Vector2 Middle = {512, 512};
constexpr int Size = 1024;
constexpr float Veil = 0.12f;
constexpr int Stride =
    5; // from a billow to the next one painted; shares no factor with the counts of the rows

static void PaintRow(Canvas& sheet, const BankRow& row, const CloudTones& tones, Dice& dice,
                     const Noise& curls)
{
    for (int i = 0; i < row.count; i++) {
        // Not from one side to the other, so that neighbours overlap now this way and now that.
        const float t =
            (float((i * Stride) % row.count) + dice.Range(0.15f, 0.85f)) / float(row.count) * 2 - 1;
        const float rx = Mix(row.smallest, row.largest, dice.Unit()) * (1.1f - 0.35f * t * t);
        const Vector2 at = Middle + Vector2{row.reach * t, row.y + row.sinks * t * t + dice.Range(-14, 14)};
        PaintBillow(sheet, curls, {at, rx, rx * dice.Range(0.58f, 0.76f), row.light, row.haze, row.nib},
                    Middle + ToMoon, tones);
    }
}

// The billows that lie before both ends of what comes out of the bank, from within it to beyond its outlines: heads, and
// others below them, where the heads thin out.
static void PaintFoot(Canvas& sheet, const CloudBank& bank, Dice& dice, const Noise& curls)
{
    constexpr float Below = 16, RowsApart = 38, Apart = 44, Inwards = 30;
    const Vector2 right = {Cos(bank.level), -Sin(bank.level)}, down = {Sin(bank.level), Cos(bank.level)};
    for (const float row : {0.0f, 1.0f})
        for (size_t end = 0; end < bank.feet.size(); end++)
            for (const float out : {2.0f, 0.0f, 1.0f}) {
                const Vector2 d = bank.feet[end] - bank.place;
                const float aside = (out * Apart - Inwards) * (end == 0 ? -1.0f : 1.0f);
                const float rx = dice.Range(46, 58) * (1 + 0.25f * row);
                const Vector2 at =
                    Middle + Vector2{Dot(d, right) + aside,
                                     Dot(d, down) + Below + RowsApart * row + 12 * out + dice.Range(-6, 6)};
                PaintBillow(sheet, curls,
                            {at, rx, rx * dice.Range(0.66f, 0.8f), 0.9f - 0.12f * row, 0.3f, 1.6f},
                            Middle + ToMoon, bank.tones);
            }
}

// The bank as one sees it, upright. It has no border: it thins out to the sides and downwards, in shreds.
static void Paint(Canvas& canvas, const CloudBank& bank, std::span<const BankRow> rows, bool foot,
                  uint32_t seed)
{
    const Noise curls(seed), shreds(seed + 1);
    Dice dice(seed + 2);
    Canvas sheet(Size, Size);
    // Between the billows there is more cloud.
    Mask core(Size, Size);
    core.Each(
        [&](float x, float y) {
            const Vector2 p = (Vector2{x, y} - Middle - Vector2{0, rows[0].y + 110});
            return Smooth(1.0f, 0.55f,
                          Length({p.x / rows[0].reach, p.y / 130}) + 0.2f * shreds.Fbm(x / 60, y / 44, 3));
        },
        2);
    sheet.Cover(core, Mix(bank.tones.body, bank.tones.horizon, rows[0].haze));
    if (foot) {
        Dice own(seed + 3);
        PaintFoot(sheet, bank, own, curls);
    }
    for (const BankRow& row : rows)
        PaintRow(sheet, row, bank.tones, dice, curls);
    sheet.CutOut(Mask(Size, Size)
                     .Each(
                         [&](float x, float y) {
                             const Vector2 p = Vector2{x, y} - Middle;
                             const float torn = 40 * shreds.Fbm(x / 70, y / 34, 4);
                             return Smooth(300, 190, Abs(p.x) + torn) * Smooth(300, 190, p.y + torn);
                         },
                         2));
    // Clouds of the flight stream past before it.
    sheet.Cover(sheet.Alpha(), Mix(bank.tones.body, bank.tones.lit, 0.55f), Veil);
    const int width = canvas.Width(), height = canvas.Height();
    Canvas placed = Placed(sheet, Middle, -bank.level, 1, width, height, bank.place);
    placed.CutOut(Mask(width, height)
                      .Each(
                          [&](float x, float y) {
                              const float border = Min(Min(x, float(width) - x), Min(y, float(height) - y));
                              return Smooth(4, 60, border - 40 * Abs(shreds.Fbm(x / 80, y / 50, 4)));
                          },
                          2));
    canvas.Lay(placed, 0, 0);
}

void CloudBank::PaintBehind(Canvas& canvas) const
{
    Paint(canvas, *this, RowsBehind, false, seed);
}

void CloudBank::PaintBefore(Canvas& canvas) const
{
    Paint(canvas, *this, RowsBefore, true, seed + 10);
}

} // namespace atelier
