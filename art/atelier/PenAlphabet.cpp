// SPDX-License-Identifier: MIT
#include "art/atelier/PenAlphabet.h"

#include <utf8.h>

#include <algorithm>
#include <cstdlib>

namespace atelier
{

constexpr float UnitsPerCapital = 9;
constexpr float SpaceUnits = 3;
constexpr float NibEdge = -0.62f; // radians, as the hand of a right-handed writer holds it
constexpr float BroadNib = 1.28f; // of the width of a pen that draws upright strokes as heavy

// What the profiles of two letters can't know: pairs that stand too far apart or too close to be read as one
// word, in tenths of a capital's height.
struct KerningPair {
    char32_t first, second;
    float closer;
};
// clang-format off
constexpr KerningPair Pairs[] = {
    {U'r', U'a', 0.5f}, {U'r', U'e', 0.4f}, {U'r', U'o', 0.5f}, {U'r', U'r', -0.3f}, {U'r', U'd', 0.4f},
    {U't', U'o', 0.4f}, {U't', U'a', 0.3f}, {U'f', U'e', 0.4f}, {U'f', U'o', 0.4f},  {U'w', U'a', 0.3f},
    {U'w', U'e', 0.3f}, {U'o', U'w', 0.2f}, {U'y', U'm', -0.3f}, {U'm', U'e', 0.2f}, {U'k', U'e', 0.4f},
    {U'l', U'l', -0.4f}, {U'i', U'l', -0.3f}, {U'n', U'm', -0.3f}, {U'r', U'm', -0.2f}, {U'h', U'a', 0.2f},
};
// clang-format on

struct Knot {
    Vector2 place;
    bool corner;
};

static const PenLetter* Find(char32_t character)
{
    for (size_t i = 0; i < PenLetterCount; i++)
        if (PenLetters[i].character == character)
            return &PenLetters[i];
    return nullptr;
}

static std::u32string Characters(const std::string& text)
{
    return utf8::utf8to32(utf8::replace_invalid(text));
}

static float ReadNumber(const char*& p)
{
    const float sign = *p == '-' ? -1.0f : 1.0f;
    if (*p == '-')
        p++;
    float value = 0, part = 1;
    for (; *p >= '0' && *p <= '9'; p++)
        value = value * 10 + float(*p - '0');
    if (*p == '.')
        for (++p; *p >= '0' && *p <= '9'; p++)
            value += (part *= 0.1f) * float(*p - '0');
    return sign * value;
}

static std::vector<std::vector<Knot>> Strokes(const PenLetter& letter)
{
    std::vector<std::vector<Knot>> strokes(1);
    for (const char* p = letter.strokes; *p != 0;) {
        if (*p == ' ') {
            p++;
        } else if (*p == '/') {
            strokes.emplace_back();
            p++;
        } else {
            Knot knot{};
            knot.place.x = ReadNumber(p);
            if (*p == ',')
                p++;
            knot.place.y = ReadNumber(p);
            if (*p == '!') {
                knot.corner = true;
                p++;
            }
            strokes.back().push_back(knot);
        }
    }
    return strokes;
}

// Where a letter's ink begins and ends at each height, in units, one band a unit high: what its neighbours
// see.
struct Profile {
    static constexpr int Bands = 18, Lowest = -6;
    float left[Bands], right[Bands];
};

static Profile ProfileOf(const PenLetter& letter)
{
    Profile profile;
    std::fill(profile.left, profile.left + Profile::Bands, 99.0f);
    std::fill(profile.right, profile.right + Profile::Bands, -99.0f);
    for (const std::vector<Knot>& stroke : Strokes(letter))
        for (size_t i = 0; i < stroke.size(); i++)
            for (int k = 0; k <= 8; k++) {
                const Vector2 p =
                    Mix(stroke[i].place, stroke[std::min(i + 1, stroke.size() - 1)].place, float(k) / 8);
                const int band = Floor(p.y) - Profile::Lowest;
                for (int b = std::max(0, band - 1); b <= std::min(Profile::Bands - 1, band + 1); b++) {
                    profile.left[b] = Min(profile.left[b], p.x);
                    profile.right[b] = Max(profile.right[b], p.x);
                }
            }
    return profile;
}

// From a letter's origin to the next one's: their ink keeps the gap at the height where they come closest,
// tempered by their widths, so that neither LT nor AV tears a hole.
static float Advance(const PenLetter& letter, const PenLetter& next, float gap)
{
    const Profile a = ProfileOf(letter), b = ProfileOf(next);
    float closest = -99, rightmost = -99, leftmost = 99;
    for (int i = 0; i < Profile::Bands; i++) {
        rightmost = Max(rightmost, a.right[i]);
        leftmost = Min(leftmost, b.left[i]);
        if (a.right[i] > -99 && b.left[i] < 99)
            closest = Max(closest, a.right[i] - b.left[i]);
    }
    const float apart = rightmost - leftmost;
    // A dot on the line must not slip under its neighbour: it would be taken for a part of it.
    const bool dot = letter.width < 1.6f || next.width < 1.6f;
    float closer = 0;
    for (const KerningPair& pair : Pairs)
        if (pair.first == letter.character && pair.second == next.character)
            closer = pair.closer;
    return Mix(apart, Max(closest, apart - (dot ? 0.3f : 2.5f)), 0.65f) + gap - closer;
}

static float AdvanceIn(const std::u32string& text, size_t i, const LetterStyle& style)
{
    const PenLetter* letter = Find(text[i]);
    if (letter == nullptr)
        return SpaceUnits * style.narrow;
    const PenLetter* next = i + 1 < text.size() ? Find(text[i + 1]) : nullptr;
    return (next != nullptr ? Advance(*letter, *next, style.spacing) : letter->width + style.spacing * 0.5f) *
           style.narrow;
}

static Line Bent(const std::vector<Knot>& stroke, Vector2 origin, float unit, const LetterStyle& style,
                 float size, float turn)
{
    Line line;
    std::vector<Vector2> piece;
    const auto flush = [&] {
        const Line part = Through(piece, Max(0.8f, unit * 0.25f));
        line.insert(line.end(), part.begin() + (line.empty() ? 0 : 1), part.end());
    };
    const float c = Cos(turn), s = Sin(turn);
    for (const Knot& knot : stroke) {
        const Vector2 p = {(knot.place.x * style.narrow + knot.place.y * style.slant) * size,
                           -knot.place.y * size};
        piece.push_back(origin + Vector2{c * p.x - s * p.y, s * p.x + c * p.y} * unit);
        if (knot.corner && piece.size() > 1) {
            flush();
            piece = {piece.back()};
        }
    }
    if (piece.size() > 1)
        flush();
    return line;
}

bool HasLetter(char32_t character)
{
    return Find(character) != nullptr;
}

float WidthOf(const std::string& text, const LetterStyle& style)
{
    const std::u32string characters = Characters(text);
    float width = 0;
    for (size_t i = 0; i < characters.size(); i++)
        width += AdvanceIn(characters, i, style);
    return width * style.size / UnitsPerCapital;
}

std::vector<WrittenStroke> Writing(const std::string& text, Vector2 place, const LetterStyle& style,
                                   Anchor anchor, uint32_t seed)
{
    const std::u32string characters = Characters(text);
    const float unit = style.size / UnitsPerCapital;
    if (anchor != Anchor::Left)
        place.x -= WidthOf(text, style) * (anchor == Anchor::Middle ? 0.5f : 1);
    Dice dice(seed);
    std::vector<WrittenStroke> written;
    for (size_t i = 0; i < characters.size(); i++) {
        const float size = 1 + 0.035f * style.lively * dice.Bell();
        const float turn = 0.018f * style.lively * dice.Bell();
        const Vector2 shift = Vector2{0.05f * dice.Bell(), 0.13f * dice.Bell()} * (unit * style.lively);
        if (const PenLetter* letter = Find(characters[i]))
            for (const std::vector<Knot>& stroke : Strokes(*letter)) {
                // No two letters alike: the knots themselves move a little.
                std::vector<Knot> moved = stroke;
                for (Knot& knot : moved)
                    knot.place = knot.place + Vector2{dice.Bell(), dice.Bell()} * (0.07f * style.lively);
                if (moved.size() == 1) {
                    moved.push_back({moved[0].place + Vector2{0.05f, -0.05f}, false});
                    written.push_back({Bent(moved, place + shift, unit, style, size, turn), true, i});
                } else {
                    written.push_back({Bent(moved, place + shift, unit, style, size, turn), false, i});
                }
            }
        place.x += AdvanceIn(characters, i, style) * unit;
    }
    return written;
}

void Write(Pen& pen, const std::string& text, Vector2 place, const LetterStyle& style, Anchor anchor,
           uint32_t seed)
{
    const Nib before = pen.nib;
    // A wobble that is right for a long line would tear small letters apart.
    pen.nib.wobble = Min(before.wobble, style.size * 0.012f);
    pen.nib.wave = Max(style.size * 0.4f, 8);
    pen.nib.wander = before.wander * 0.6f;
    pen.nib.width = before.width * BroadNib;
    for (const WrittenStroke& stroke : Writing(text, place, style, anchor, seed)) {
        if (stroke.dot) { // the nib is set down and drawn a little across its edge
            const Vector2 at = stroke.line.front(), across = {-Sin(NibEdge), Cos(NibEdge)};
            const Vector2 half = across * (before.width * 0.3f);
            pen.Broad(Straight({at - half, at + half}, 1), NibEdge,
                      {.start = 0.7f, .middle = 0.8f, .end = 0.6f});
            continue;
        }
        pen.Broad(stroke.line, NibEdge, {.start = 0.92f, .middle = 1, .end = 0.7f});
    }
    pen.nib = before;
}

} // namespace atelier
