// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/hands/Drawing.h"

#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"

#include <algorithm>

namespace atelier
{

namespace
{

// Draws lines that lie on the hand: what is hidden is left out.
class SurfacePen
{
public:
    SurfacePen(Mask& lines, const Study& ofStudy, const Sight& ofSight, Nib nib, uint32_t seed)
        : pen(lines, SketchPaper(), nib, seed), study(ofStudy), sight(ofSight)
    {
    }

    // `slack`: how far a point may lie below the surface, in pixels of the hand. `from` and `full`: how dark the place
    // has to be for the pen to touch, and to press fully; both 0: it always presses.
    void Stroke(const std::vector<Point3>& points, float slack, Press press, float from = 0, float full = 0)
    {
        std::vector<Vector2> run;
        float tone = 0;
        const auto end = [&] {
            if (run.size() > 3) {
                const float p = full > 0 ? tone / float(run.size()) : 1;
                pen.Stroke(Through(run), {press.start * p, press.middle * p, press.end * p});
            }
            run.clear();
            tone = 0;
        };
        for (const Point3& p : points) {
            const Vector2 at = sight({p.x, p.y});
            bool seen = study.Sees(at, p.z, slack);
            float t = 1;
            if (seen && full > 0) {
                t = Smooth(from, full, study.dark.At(Floor(at.x), Floor(at.y)));
                seen = t > 0.05f;
            }
            if (seen) {
                run.push_back(at);
                tone += t;
            } else {
                end();
            }
        }
        end();
    }

    Pen pen;

private:
    const Study& study;
    const Sight& sight;
};

// A place round a bone: at a part t of its length, at an angle from its palmar side towards the thumb's side.
Point3 Round(const Phalanx& part, float t, float angle, float wider = 1.04f)
{
    const float half = Mix(part.halfA, part.halfB, t) * wider;
    return Mix(part.a, part.b, t) + (part.palmar * Cos(angle) + part.across * Sin(angle)) * half;
}

std::vector<Point3> Ring(const Phalanx& part, float t, float from, float to, float bow, float wider = 1.04f)
{
    std::vector<Point3> points;
    const int count = 17;
    for (int i = 0; i < count; i++) {
        const float s = float(i) / (count - 1), middle = 1 - (2 * s - 1) * (2 * s - 1);
        points.push_back(Round(part, t + bow * middle, Mix(from, to, s), wider));
    }
    return points;
}

} // namespace

static void Paint(Canvas& canvas, const Study& study, const Skin& skin, float s, uint32_t seed)
{
    const Paper& paper = SketchPaper();
    const Noise noise(seed);
    const Mask& body = study.body;
    canvas.Cover(body, [&](float x, float y) {
        return skin.light * (1 + 0.08f * noise.Fbm(x / (60 * s), y / (60 * s), 3));
    });
    // Three washes, each smaller and darker than the one before, with dried edges.
    constexpr float From[3] = {0.37f, 0.66f, 0.90f}, Density[3] = {0.22f, 0.40f, 0.45f};
    for (int layer = 0; layer < 3; layer++) {
        Mask shade = study.dark;
        shade.Blur(1.2f * s)
            .By([&](float x, float y) { return 1 + 0.10f * noise.Fbm(x / (24 * s), y / (24 * s), 3); })
            .Curve(From[layer] - 0.05f, From[layer] + 0.13f)
            .Multiply(study.body);
        canvas.Glaze(WashDensity(paper, shade,
                                 {.pool = 0.45f,
                                  .poolWidth = 2.2f * s,
                                  .granulation = 0.45f,
                                  .bloom = 0.35f,
                                  .bloomSize = 60 * s,
                                  .stray = 0.6f * s},
                                 seed + 1 + uint32_t(layer))
                         .Multiply(body),
                     skin.shade, Density[layer] * (layer > 0 ? skin.deep : 1));
    }
    // Light thrown back by the clouds into the edge of the shadow, and the edge that the moon touches.
    const Mask in = study.body.Inside(16 * s);
    Mask back(canvas.Width(), canvas.Height());
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++)
            if (study.body.At(x, y) > 0)
                back.At(x, y) = Hill(8, 5, in.At(x, y) / s) * Smooth(0.7f, 1, study.dark.At(x, y));
    canvas.Cover(back, palette::Mist, 0.22f);
}

// Blood is near below the skin at the joints and in the fingertips.
static void Flush(Canvas& canvas, const Skeleton& hand, const Study& study, const Sight& sight,
                  const Skin& skin)
{
    Mask warm(canvas.Width(), canvas.Height());
    // Not on what lies before or behind the joint.
    const auto near = [&](float apart, float radius) {
        const float far = Abs(apart) / radius;
        return skin.closeUp ? Smooth(2.8f, 1.4f, far) : far < 2.2f ? 1.0f : 0.0f;
    };
    const auto add = [&](Point3 p, float radius, float strength) {
        const Vector2 at = sight({p.x, p.y});
        const float r = radius * sight.scale;
        for (int y = std::max(0, Floor(at.y - 2.2f * r));
             y < std::min(canvas.Height(), Floor(at.y + 2.2f * r)); y++)
            for (int x = std::max(0, Floor(at.x - 2.2f * r));
                 x < std::min(canvas.Width(), Floor(at.x + 2.2f * r)); x++)
                if (study.body.At(x, y) > 0)
                    warm.At(x, y) =
                        Max(warm.At(x, y), strength * Bell(Length(Vector2{float(x), float(y)} - at) / r) *
                                               near(study.depth.At(x, y) - p.z, radius));
    };
    for (const auto& digit : hand.digits) {
        add(digit[2].b, 1.3f * digit[2].halfA, 0.55f);
        add(digit[1].a, digit[1].halfA, 0.32f);
        add(digit[2].a, 0.9f * digit[2].halfA, 0.26f);
    }
    for (int i = 0; i < 4; i++)
        add(hand.digits[i][0].a, 1.2f * hand.digits[i][0].halfA, 0.22f);
    canvas.Glaze(warm, Mix(palette::Rust, palette::Ochre, 0.3f), 0.8f);
}

// Strokes round the bones of the digits, where there are any, and aslant over palm and arm.
static void DrawHatching(Canvas& canvas, const Skeleton* hand, const Study& study, const Sight& sight,
                         const Skin& skin, uint32_t seed)
{
    const float s = sight.scale * skin.pen;
    Mask lines(canvas.Width(), canvas.Height());
    SurfacePen pen(lines, study, sight, {.width = 2.4f * s, .wobble = 0.5f * s, .skip = 0.2f, .pool = 0.1f},
                   seed);
    for (int i = 0; hand != nullptr && i < Solid::Digits; i++)
        for (int k = i == Thumb ? 1 : 0; k < 3; k++) {
            const Phalanx& part = hand->digits[i][k];
            const float length = Length(part.b - part.a);
            const float count = length / (8.5f * skin.pen);
            for (float n = 0.5f; n < count; n += 1)
                pen.Stroke(Ring(part, n / count, -Pi, Pi, 0, 1.0f), 0.35f * part.halfA, {0.2f, 0.75f, 0.1f},
                           0.66f, 1.1f);
            // Across them along the bone, where it is darkest.
            const float around = skin.closeUp ? 2 * Pi * part.halfA / (10.0f * skin.pen) : 0;
            for (float n = 0; n < around; n += 1) {
                std::vector<Point3> along;
                for (float t = 0.04f; t < 1; t += 0.08f)
                    along.push_back(Round(part, t, 2 * Pi * n / around, 1.0f));
                pen.Stroke(along, 0.35f * part.halfA, {0.1f, 0.6f, 0.1f}, 0.86f, 1.2f);
            }
        }
    Mask tone = study.dark;
    tone.Blur(2 * s).Curve(0.72f, 1.15f).Multiply(study.palm);
    Hatch(
        pen.pen, tone,
        {.angle = 0.9f + sight.turn, .spacing = 7.0f * s, .length = 40 * s, .bend = 6 * s, .faintest = 0.15f},
        seed + 1);
    if (skin.closeUp) {
        // Hairs where it begins to turn away, the whole hand over.
        Mask turning = study.dark;
        turning.Blur(2 * s).Curve(0.36f, 0.95f).Multiply(study.body);
        pen.pen.nib.width = 1.5f * s;
        Hatch(pen.pen, turning,
              {.angle = 1.15f + sight.turn,
               .spacing = 4.6f * s,
               .length = 30 * s,
               .bend = 5 * s,
               .faintest = 0.1f},
              seed + 3);
        Mask deepest = study.dark;
        deepest.Blur(2 * s).Curve(0.86f, 1.2f).Multiply(study.palm);
        Hatch(pen.pen, deepest,
              {.angle = 0.25f + sight.turn,
               .spacing = 6.0f * s,
               .length = 26 * s,
               .bend = 4 * s,
               .faintest = 0.15f},
              seed + 2);
    }
    canvas.Cover(lines.Multiply(study.body), Mix(palette::Ink, palette::Rust, 0.08f), 0.62f * skin.deep);
}

// A line that comes and goes, with its gaps closed up to twice so many pixels.
static Mask Joined(const Mask& line, float reach)
{
    Mask wide = line.Outside(2 * reach);
    wide.Curve(reach + 0.5f, reach - 0.5f);
    return wide.Inside(2 * reach).Curve(reach - 1, reach);
}

// The outline: a hair where the light falls, heavy in the shadow; thinner inside than against the sky.
static void DrawOutline(Canvas& canvas, const Study& study, const Skin& skin, float s, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    const Noise noise(seed);
    const Mask whole = skin.inner < 1 ? Joined(study.edges, (skin.closeUp ? 3.5f : 2.0f) * s) : study.edges;
    const Mask near = whole.Outside(9 * s), rim = study.body.Inside(9 * s);
    const Mask dark = study.dark.Blurred(3 * s);
    const float outerWeight = skin.closeUp ? 0.85f : 1;
    Mask contour(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            if (study.body.At(x, y) < 0.5f)
                continue;
            const float fx = float(x), fy = float(y);
            const float wander = noise.Gradient(fx / (38 * s), fy / (38 * s));
            const float t = Smooth(0.25f, 0.95f, dark.At(x, y));
            const float outer = outerWeight * s * (Mix(1.9f, 5.2f, t) + (0.7f + t) * wander) *
                                Smooth(-0.75f, -0.5f, wander + 0.4f * t);
            const float inner =
                skin.inner * s * (Mix(1.5f, 3.2f, t) + skin.inner * (0.5f + 0.6f * t) * wander);
            const float line =
                Max(Smooth(outer + 0.6f * s, outer - 0.6f * s, rim.At(x, y)) * Smooth(0.3f, 0.8f, outer),
                    Smooth(inner + 0.6f * s, inner - 0.6f * s, near.At(x, y)) * Smooth(0.3f, 0.8f, inner));
            contour.At(x, y) = line;
        }
    // It was found pixel by pixel: from near its steps would show.
    if (skin.closeUp)
        contour.Blur(0.8f).Curve(0.06f, 0.70f);
    canvas.Cover(contour, palette::Ink, 0.94f);
    canvas.Cover(Mask(study.folds).Multiply(study.body), Mix(palette::Ink, palette::Rust, 0.15f),
                 skin.closeUp ? 0.5f : 0.72f);
}

static void DrawNail(Canvas& canvas, SurfacePen& pen, const Phalanx& part, const Study& study,
                     const Sight& sight, const Skin& skin, bool thumb)
{
    if (part.palmar.z > 0.55f)
        return;
    const float length = Length(part.b - part.a), wide = thumb ? 1.12f : 1.0f;
    // Where a place of the skin lies on the nail: -1 to 1 along and across it.
    const float middle = 0.76f, reach = thumb ? 0.27f : 0.25f;
    constexpr int Least = 30; // pixels of the hand's frame: less is a nail that looks round a corner
    int pixels = 0;
    Mask plate(canvas.Width(), canvas.Height()), border(canvas.Width(), canvas.Height());
    const Vector2 centre = sight({part.b.x, part.b.y});
    const float room = 1.4f * length * sight.scale;
    for (int y = std::max(0, Floor(centre.y - room)); y < std::min(canvas.Height(), Floor(centre.y + room));
         y++)
        for (int x = std::max(0, Floor(centre.x - room));
             x < std::min(canvas.Width(), Floor(centre.x + room)); x++) {
            if (study.body.At(x, y) < 0.5f)
                continue;
            const Vector2 at = sight.Back({float(x), float(y)});
            const Point3 p = {at.x, at.y, study.depth.At(x, y)};
            const Point3 on = p - part.a;
            const float t = (Dot(on, part.along) / length - middle) / reach;
            const float half = Mix(part.halfA, part.halfB, 0.7f) * wide;
            const float u = Dot(on, part.across) / (0.74f * half), out = -Dot(on, part.palmar) / half;
            const float round = Length(Vector2{t * t, u * u});
            if (out <= 0.25f || out >= 1.6f)
                continue;
            if (round < 1) {
                plate.At(x, y) = 1;
                pixels++;
            }
            if (skin.closeUp)
                border.At(x, y) = Smooth(0.74f, 0.86f, round) * Smooth(1.06f, 0.96f, round);
        }
    if (float(pixels) < Least * sight.scale * sight.scale)
        return;
    plate.Blur(0.8f * sight.scale);
    canvas.Cover(plate, Mix(palette::Bone, palette::Parchment, 0.25f), 0.62f);
    if (!skin.closeUp) {
        const Mask in = plate.Inside(6 * sight.scale);
        for (int y = 0; y < canvas.Height(); y++)
            for (int x = 0; x < canvas.Width(); x++)
                if (plate.At(x, y) > 0.4f)
                    border.At(x, y) = Smooth(2.6f * sight.scale, 1.2f * sight.scale, in.At(x, y)) *
                                      Smooth(0.4f, 0.6f, plate.At(x, y));
    }
    canvas.Cover(border, palette::Ink, 0.8f);
    // The white of its end.
    pen.Stroke(Ring(part, 0.93f, Pi - 0.6f, Pi + 0.6f, 0.02f, 1.0f), 0.6f * part.halfA, {0.3f, 0.7f, 0.2f});
}

static void DrawMarks(Canvas& canvas, const Skeleton& hand, const Study& study, const Sight& sight,
                      const Skin& skin, uint32_t seed)
{
    const float s = sight.scale * skin.pen;
    Mask lines(canvas.Width(), canvas.Height());
    SurfacePen pen(lines, study, sight, {.width = 2.8f * s, .wobble = 0.5f * s, .skip = 0.15f, .pool = 0.1f},
                   seed);
    const Press press = {0.15f, 0.9f, 0.1f};
    for (int i = 0; i < Solid::Digits; i++)
        for (int k = 1; k < 3; k++) {
            const Phalanx& part = hand.digits[i][k];
            const float slack = 0.45f * part.halfA,
                        step = 2.6f * part.halfA / 20 / (Length(part.b - part.a) / 40);
            const float t = 0.05f * step;
            // Folds before the joint, two at the first and one at the last, and those of the slack skin behind it.
            pen.Stroke(Ring(part, -t, -1.15f, 1.15f, -0.02f), slack, press);
            if (k == 1 && i != Thumb)
                pen.Stroke(Ring(part, 2 * t, -1.0f, 1.0f, 0.02f), slack, press);
            const float behind = 0.75f;
            pen.Stroke(Ring(part, -2.2f * t, Pi - behind, Pi + behind, -1.2f * t, 1.1f), slack, press);
            pen.Stroke(Ring(part, 0.2f * t, Pi - 0.55f, Pi + 0.55f, 0, 1.1f), slack,
                       {0.1f, 0.7f * skin.age + 0.2f, 0.1f});
            if (k > 1 || i != Thumb || !skin.closeUp) // there the thumb's skin is taut
                pen.Stroke(Ring(part, 2.4f * t, Pi - behind, Pi + behind, 1.2f * t, 1.1f), slack, press);
        }
    for (int i = 0; i < 4; i++) // where the fingers leave the palm
        for (const float t : {0.40f, 0.47f})
            pen.Stroke(Ring(hand.digits[i][0], t, -0.95f, 0.95f, 0.02f), 0.5f * hand.digits[i][0].halfA,
                       press);

    const auto over = [&](const std::vector<Vector2>& places, bool back, Press how = {0.5f, 1, 0.1f}) {
        std::vector<Point3> points;
        const Line line = Through(places, 2.5f);
        for (const Vector2 p : line)
            points.push_back(hand.OnPalm(p.x, p.y, back));
        pen.Stroke(points, 5, how);
    };
    pen.pen.nib.width = 3.9f * s;
    if (hand.outOfPalm.z > 0) {
        over({{36, 72}, {20, 66}, {5, 50}, {-1, 30}, {1, 12}}, false);    // round the ball of the thumb
        over({{36, 74}, {18, 70}, {-6, 60}, {-24, 46}}, false);           // across the palm
        over({{-42, 62}, {-26, 66}, {-8, 74}, {6, 84}, {12, 92}}, false); // below the fingers
        pen.pen.nib.width = 2.4f * s;
        over({{-6, 20}, {-5, 40}, {-2, 62}}, false, {0.1f, 0.7f, 0});
        over({{18, 1}, {6, -2}, {-8, -2}, {-20, 2}}, false, {0.2f, 1, 0.1f});
        over({{16, -4}, {4, -7}, {-10, -7}, {-19, -4}}, false, {0.1f, 0.7f, 0});
    } else {
        pen.pen.nib.width = 2.2f * s;
        for (int i = 0; i < 4; i++) { // the sinews' shadows
            constexpr Vector2 Heads[4] = {{25, 80}, {3, 83}, {-17, 76}, {-34, 64}};
            const Vector2 head = Heads[i];
            over({{head.x - 3, head.y},
                  {0.75f * head.x - 3, 0.68f * head.y},
                  {0.5f * head.x - 2.5f, 0.4f * head.y}},
                 true, {0.15f, 0.5f + 0.4f * skin.age, 0.05f});
        }
        over({{16, 2}, {2, -1}, {-12, 2}}, true, {0.1f, 0.7f, 0.1f});
        if (skin.closeUp) {
            // Slack skin behind the knuckles, and a vein between the sinews.
            pen.pen.nib.width = 1.8f * s;
            for (const Vector2 head : {Vector2{25, 82}, {3, 86}, {-17, 79}, {-34, 67}})
                for (const float before : {0.0f, 4.5f})
                    over({{head.x - 5.5f, head.y - before + 1.5f},
                          {head.x, head.y - before},
                          {head.x + 5.5f, head.y - before + 1.5f}},
                         true, {0.05f, 0.35f + 0.4f * skin.age, 0.05f});
            over({{-4, 18}, {-12, 32}, {-9, 46}, {-13, 60}, {-8, 72}}, true, {0.1f, 0.5f * skin.age, 0.05f});
        }
    }
    pen.pen.nib.width = 1.8f * s;
    for (int i = 0; i < Solid::Digits; i++)
        DrawNail(canvas, pen, hand.digits[i][2], study, sight, skin, i == Thumb);
    canvas.Cover(lines.Multiply(study.body), Mix(palette::Ink, palette::Rust, 0.15f), 0.82f);
}

void DrawHand(Canvas& canvas, const Skeleton& hand, const Study& study, const Sight& sight, const Skin& skin,
              uint32_t seed)
{
    Paint(canvas, study, skin, sight.scale, seed);
    Flush(canvas, hand, study, sight, skin);
    DrawHatching(canvas, &hand, study, sight, skin, seed + 20);
    DrawMarks(canvas, hand, study, sight, skin, seed + 30);
    DrawOutline(canvas, study, skin, sight.scale * skin.pen, seed + 40);
}

void DrawFlesh(Canvas& canvas, const Study& study, const Sight& sight, const Skin& skin, uint32_t seed)
{
    Paint(canvas, study, skin, sight.scale, seed);
    DrawHatching(canvas, nullptr, study, sight, skin, seed + 20);
    DrawOutline(canvas, study, skin, sight.scale * skin.pen, seed + 40);
}

} // namespace atelier
