// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/RoundArm.h"

#include "art/atelier/Wash.h"
#include "art/atelier/pictures/hands/Study.h"

namespace atelier
{

Mask RoundShade(const RoundArm& limb, float wider, int width, int height)
{
    struct Section {
        Vector2 middle, along, across;
        float half;
    };
    constexpr int Count = 80;
    std::vector<Section> sections;
    for (int i = 0; i <= Count; i++) {
        const float t = float(i) / Count;
        sections.push_back(
            {PointAt(limb.along, t), DirectionAt(limb.along, t), limb.Across(t), limb.Half(t) * wider});
    }
    const Point3 light = Normalised(HandLight);
    Mask dark(width, height);
    dark.Each(
        [&](float x, float y) {
            const Vector2 p = {x, y};
            const Section* nearest = &sections[0];
            float least = 1e9f;
            for (const Section& section : sections) {
                const float distance =
                    Abs(Dot(p - section.middle, section.along)) +
                    0.2f * Length(p - section.middle); // bends repeat places at their inside
                if (distance < least) {
                    least = distance;
                    nearest = &section;
                }
            }
            const float u = Clamp(Dot(p - nearest->middle, nearest->across) / nearest->half, -1, 1);
            const Vector2 aside = nearest->across * u;
            return Clamp(1 - (aside.x * light.x + aside.y * light.y + Sqrt(1 - u * u) * light.z));
        },
        2);
    return dark;
}

void ShadeRound(Canvas& canvas, const RoundArm& limb, const Mask& within, float wider, LinearColour shade,
                float density, uint32_t seed)
{
    const Mask dark = RoundShade(limb, wider, canvas.Width(), canvas.Height());
    const Noise noise(seed);
    constexpr float From[3] = {0.24f, 0.46f, 0.76f}, Density[3] = {0.28f, 0.42f, 0.5f};
    for (int layer = 0; layer < 3; layer++) {
        Mask wash = dark;
        wash.By([&](float x, float y) { return 1 + 0.16f * noise.Fbm(x / 34, y / 34, 3); })
            .Curve(From[layer] - 0.05f, From[layer] + 0.22f)
            .Multiply(within);
        canvas.Glaze(WashDensity(SketchPaper(), wash,
                                 {.pool = 0.35f,
                                  .poolWidth = 2.4f,
                                  .granulation = 0.5f,
                                  .bloom = 0.35f,
                                  .bloomSize = 60,
                                  .stray = 0.8f},
                                 seed + 1 + uint32_t(layer))
                         .Multiply(within),
                     shade, density * Density[layer]);
    }
}

Line Opening(const RoundArm& limb, float t, float wider, float depth)
{
    return Ellipse(PointAt(limb.along, t), depth, limb.Half(t) * wider, Angle(DirectionAt(limb.along, t)));
}

void PaintOpening(Canvas& canvas, const RoundArm& limb, float t, float wider, float depth,
                  LinearColour inside, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    const Line rim = Shaken(Opening(limb, t, wider, depth), 2.5f, 50, seed);
    const Mask hole = Filled(width, height, rim);
    const Mask arm = canvas.Alpha();
    // The cloth's shadow on the arm, towards the side that goes into it.
    const Vector2 on = DirectionAt(limb.along, t), middle = PointAt(limb.along, t);
    Mask cast(width, height);
    cast.Each(
            [&](float x, float y) {
                return Smooth(-0.1f * depth, 1.2f * depth, Dot(Vector2{x, y} - middle, on));
            },
            2)
        .Multiply(Mask(hole).Blur(5))
        .Multiply(arm);
    canvas.Glaze(cast, Mix(palette::Slate, palette::Rust, 0.35f), 0.75f);
    const Mask seen = Mask(hole).Subtract(arm);
    canvas.Cover(seen, inside);
    Mask lines(width, height);
    Pen pen(lines, SketchPaper(), {.width = 4.6f, .wobble = 0.8f, .skip = 0}, seed + 1);
    pen.Stroke(rim, {0.8f, 1, 0.8f});
    canvas.Cover(lines.Multiply(Mask(hole).Blur(2).Curve(0.02f, 0.1f).Subtract(arm)), palette::Ink, 0.9f);
}

void PaintSinews(Canvas& canvas, const RoundArm& limb, const std::vector<std::vector<Vector2>>& ways,
                 LinearColour shade, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    constexpr float ShadowBeside = -7,
                    RidgeBeside = 6; // pixels, to the right of the way and to the left of it
    Mask lines(width, height), shadows(width, height), ridges(width, height);
    Pen pen(lines, SketchPaper(), {.width = 3.4f, .wobble = 0.8f, .skip = 0.2f}, seed);
    for (const std::vector<Vector2>& way : ways) {
        std::vector<Vector2> points;
        for (const Vector2 place : way)
            points.push_back(limb.At(place.x, place.y));
        const Line line = Through(points);
        pen.Stroke(line, {0.3f, 0.9f, 0.05f});
        shadows.Fill(Limb(Beside(line, ShadowBeside), 2, 9, 1));
        ridges.Fill(Limb(Beside(line, RidgeBeside), 2, 5, 1));
    }
    const Mask skin = canvas.Alpha();
    canvas.Glaze(shadows.Blur(4).Multiply(skin), shade, 0.42f);
    canvas.Cover(ridges.Blur(3).Multiply(skin), palette::Bone, 0.4f);
    canvas.Cover(lines.Multiply(skin), Mix(palette::Ink, palette::Rust, 0.15f), 0.7f);
}

void PaintFolds(Canvas& canvas, const RoundArm& limb, const std::vector<Fold>& folds, float wider,
                float depth, const Mask& cloth, LinearColour shade, LinearColour light, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    constexpr int Steps = 10;
    constexpr float ShadowBeside = 8, RidgeBeside = 9; // pixels
    Mask lines(width, height), valleys(width, height), ridges(width, height);
    Pen pen(lines, SketchPaper(), {.width = 5, .wobble = 1.2f, .skip = 0.08f}, seed);
    for (const Fold& fold : folds) {
        std::vector<Vector2> points;
        for (int i = 0; i <= Steps; i++) {
            const float part = float(i) / Steps, t = Mix(fold.fromT, fold.toT, part);
            const float u = Mix(fold.fromU, fold.toU, part);
            points.push_back(limb.At(t, u * wider) +
                             DirectionAt(limb.along, t) * (depth * Sqrt(Max(0, 1 - u * u))));
        }
        const Line line = Through(points);
        pen.Stroke(line, {0.95f * fold.weight, 0.8f * fold.weight, 0.05f});
        const Vector2 on = DirectionAt(limb.along, fold.fromT);
        valleys.Fill(Moved(Limb(line, 10 * fold.weight, 9 * fold.weight, 1), on * ShadowBeside));
        ridges.Fill(Moved(Limb(line, 7 * fold.weight, 6 * fold.weight, 1), on * -RidgeBeside));
    }
    canvas.Cover(ridges.Blur(4).Multiply(cloth), light, 0.4f);
    canvas.Glaze(
        WashDensity(SketchPaper(), valleys.Blur(3.5f).Multiply(cloth),
                    {.pool = 0.3f, .poolWidth = 2, .granulation = 0.5f, .bloom = 0.2f, .stray = 0.6f},
                    seed + 1)
            .Multiply(cloth),
        shade, 0.6f);
    canvas.Cover(lines.Multiply(cloth), palette::Ink, 0.85f);
}

} // namespace atelier
