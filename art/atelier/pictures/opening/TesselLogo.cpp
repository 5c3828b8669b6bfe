// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Opening.h"

#include "art/atelier/PenAlphabet.h"

namespace atelier
{

constexpr int W = 1024, H = 512;
constexpr float Stone = 17.5f, Row = 9.6f;
constexpr Vector2 StemOfL = {866, 336}; // it is to the right of this place and above it
constexpr LinearColour Tones[] = {palette::Bone,  palette::Parchment, palette::Bone,
                                  palette::Ochre, palette::Parchment, palette::Rust,
                                  palette::Amber, palette::Bone,      palette::Slate};

constexpr LinearColour sunlight = {1.04f, 0.86f, 0.62f}, dusk = {0.70f, 0.69f, 0.78f};

struct Tessera {
    Vector2 centre;
    float turn, size;
    int tone;
    bool loose;
};

// Two rows of stones along each stroke of the pen's way.
static std::vector<Tessera> LayStones(Dice& dice)
{
    std::vector<Tessera> stones;
    const LetterStyle style = {.size = 300, .slant = 0.05f, .spacing = 2.0f, .lively = 0.5f};
    for (const WrittenStroke& stroke : Writing("tessel", {W / 2.0f - 18, 372}, style, Anchor::Middle, 5)) {
        const Line& way = stroke.line;
        const float length = LengthOf(way);
        for (float s = Stone * 0.4f; s < length; s += Stone * 1.06f)
            for (float side = -Row; side <= Row; side += 2 * Row) {
                const Vector2 d = DirectionAt(way, s / length);
                const Vector2 at = PointAt(way, s / length) + Vector2{-d.y, d.x} * side +
                                   Vector2{dice.Bell(), dice.Bell()} * 0.6f;
                bool taken = false;
                for (const Tessera& other : stones)
                    taken = taken || Length(other.centre - at) < Stone * 0.78f;
                Tessera t = {at, Angle(d) + 0.07f * dice.Bell(), Stone * dice.Range(0.9f, 1.04f),
                             dice.Below(int(std::size(Tones))), false};
                // From the second s on more and more of them have let go. Of the l only the foot does: with a gap in it
                // its stem would be two letters.
                const bool stem = at.x > StemOfL.x && at.y < StemOfL.y;
                const float hold = dice.Unit() + 0.43f + (stem ? 1 : 0.5f * Smooth(1010, 560, at.x));
                if (hold < 0.62f) {
                    const float far = (0.62f - hold) * 2 * Smooth(420, 900, at.x);
                    t.centre =
                        at + Vector2{far * dice.Range(-30, 90), far * far * 190 + far * dice.Range(0, 40)};
                    t.turn += far * dice.Range(-3, 3);
                    t.loose = far > 0.12f;
                }
                if (!taken)
                    stones.push_back(t);
            }
    }
    return stones;
}

// "tessel" laid in mosaic; towards the end the stones come loose and fall out of the word. Shown 717 wide and
// 376 high, nearly its own proportion.
Canvas TesselLogo()
{
    const Paper& paper = SketchPaper();
    Dice dice(13);
    const std::vector<Tessera> stones = LayStones(dice);
    std::vector<Mask> faces(std::size(Tones), Mask(W, H));
    Mask mortar(W, H), edges(W, H), cracks(W, H);
    Pen edge(edges, paper, {.width = 2, .wobble = 0.3f, .wave = 12, .skip = 0.1f, .pool = 0.2f}, 15),
        crack(cracks, paper, {.width = 1.3f, .pool = 0}, 16);
    uint32_t seed = 100;
    for (const Tessera& t : stones) {
        if (t.centre.y > H - 16 || t.centre.x > W - 16 || t.centre.x < 16 || t.centre.y < 16)
            continue;
        Line corners;
        for (int i = 0; i < 4; i++) {
            const float a = t.turn + (float(i) + 0.5f) * Pi / 2 + 0.05f * dice.Bell();
            corners.push_back(t.centre +
                              Vector2{Cos(a), Sin(a)} * (t.size * 0.68f * dice.Range(0.92f, 1.04f)));
        }
        corners.push_back(corners.front());
        const Line outline = Shaken(Straight(corners, 2), 0.9f, 8, ++seed);
        faces[size_t(t.tone)].Fill(outline);
        edge.Stroke(outline, {.start = 0.8f, .middle = 0.5f, .end = 0.7f});
        if (!t.loose)
            mortar.Fill(Ellipse(t.centre, Stone * 0.84f, Stone * 0.84f));
        if (dice.Chance(0.3f))
            crack.Stroke(Straight({t.centre + Vector2{dice.Range(-6, 6), -6},
                                   t.centre + Vector2{dice.Range(-5, 5), dice.Range(-2, 6)}}),
                         {.start = 0.6f, .middle = 0.5f, .end = 0});
    }
    mortar.Shake(3, 18, 14);

    // The word's shadow is close and falls away from the sun, which stands low on the left. The wood passes behind the word,
    // so no branch may hold it.
    Canvas canvas(W, H);
    Mask shadow(W, H);
    for (int y = 8; y < H; y++)
        for (int x = 10; x < W; x++)
            shadow.At(x, y) = mortar.At(x - 10, y - 8);
    canvas.Cover(shadow.Blur(7).FadeToBorder(40), palette::Ink, 0.42f);
    canvas.Cover(mortar, [&](float x, float y) {
        return palette::Ink * (0.8f + 0.9f * paper.Height(Floor(x), Floor(y)));
    });
    // The stones have the light of the place: warm towards the sun, dusk where the word ends.
    const Noise uneven(17);
    for (size_t i = 0; i < faces.size(); i++)
        canvas.Cover(faces[i], [&](float x, float y) {
            const LinearColour place = Mix(sunlight, dusk, Smooth(120, 940, x + 0.35f * y));
            return Tones[i] * place *
                   (0.88f + 0.36f * uneven.Value(x / 13 + float(i) * 7, y / 13) +
                    0.1f * uneven.Gradient(x / 3, y / 3));
        });
    // Each is cut with an edge: the sides to the sun catch it, those away from it are blue, and it is a little darker
    // below.
    Mask below(W, H), lit(W, H), shaded(W, H);
    for (const Mask& face : faces)
        for (int y = 3; y + 4 < H; y++)
            for (int x = 4; x + 5 < W; x++) {
                below.At(x, y) = Max(below.At(x, y), face.At(x, y) * (1 - face.At(x, y + 3)));
                lit.At(x, y) = Max(lit.At(x, y), face.At(x, y) * (1 - face.At(x - 4, y - 1)));
                shaded.At(x, y) = Max(shaded.At(x, y), face.At(x, y) * (1 - face.At(x + 5, y + 3)));
            }
    canvas.Glaze(shaded.Blur(0.8f), Mix(palette::Ink, palette::Night, 0.5f), 0.5f);
    canvas.Light(lit.Blur(0.7f).By([](float x, float) { return Mix(0.75f, 0.22f, Smooth(100, 900, x)); }),
                 palette::Amber, 0.8f);
    canvas.Glaze(below, palette::Rust, 0.35f);
    canvas.Cover(cracks, palette::Ink, 0.45f);
    canvas.Cover(edges, palette::Ink, 0.85f);
    paper.Show(canvas, 0.7f);
    return canvas;
}

} // namespace atelier
