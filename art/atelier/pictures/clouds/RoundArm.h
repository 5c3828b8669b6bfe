// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Arm.h"

// The forearm as a round body that cloth lies on: where something goes round it, how it turns from the light, and the
// openings and folds of sleeves.

namespace atelier
{

// A place on the forearm: `t` along it, `u` across it, -1 to 1 from the left outline to the right one.
struct RoundArm {
    Line along;
    const Arm& arm;

    float Half(float t) const { return ForearmHalf(arm, t); }
    Vector2 Across(float t) const
    {
        const Vector2 d = DirectionAt(along, t);
        return {d.y, -d.x};
    }
    Vector2 At(float t, float u) const { return PointAt(along, t) + Across(t) * (Half(t) * u); }
    // Round the arm, bent as a ring is that is seen a little from above.
    Line Ring(float t, float wider, float bend) const
    {
        std::vector<Vector2> points;
        for (int i = -4; i <= 4; i++) {
            const float u = float(i) / 4;
            points.push_back(At(t, u * wider) + DirectionAt(along, t) * (bend * (1 - u * u)));
        }
        return Through(points);
    }
    // The half that one sees of a turn of something wound round the arm, as an ellipse that goes on behind it at both ends;
    // it climbs by `pitch` of the arm's length.
    Line Turn(float t, float wider, float bend, float pitch) const
    {
        constexpr int Steps = 12;
        std::vector<Vector2> points;
        for (int i = 0; i <= Steps; i++) {
            const float part = float(i) / Steps, a = Mix(-0.52f, 0.52f, part) * Pi;
            const float at = t + pitch * (0.5f - part);
            points.push_back(At(at, Sin(a) * wider) + DirectionAt(along, at) * (bend * Cos(a)));
        }
        return Through(points);
    }
};

// A fold of a sleeve, from one place of it to another, round the arm; it runs out.
struct Fold {
    float fromT, fromU, toT, toU;
    float weight; // 0 to 1
};

// How far what lies on the arm has turned from the light: 0 faces it, 1 is in shadow. `wider` as in RoundArm::Turn.
Mask RoundShade(const RoundArm& limb, float wider, int width, int height);
// Washes that make what is painted `within` as round as the arm.
void ShadeRound(Canvas& canvas, const RoundArm& limb, const Mask& within, float wider, LinearColour shade,
                float density, uint32_t seed);

// The round opening of a sleeve at `t`, as one looks into it.
Line Opening(const RoundArm& limb, float t, float wider, float depth);
// What one sees through it of the sleeve's inside; the arm that is painted already stands before it, in its shadow.
void PaintOpening(Canvas& canvas, const RoundArm& limb, float t, float wider, float depth,
                  LinearColour inside, uint32_t seed);
// Sinews under the skin, each through places (t, u) of the arm.
void PaintSinews(Canvas& canvas, const RoundArm& limb, const std::vector<std::vector<Vector2>>& ways,
                 LinearColour shade, uint32_t seed);
// A line of ink, a shadow below it, and light on its ridge, on cloth only.
void PaintFolds(Canvas& canvas, const RoundArm& limb, const std::vector<Fold>& folds, float wider,
                float depth, const Mask& cloth, LinearColour shade, LinearColour light, uint32_t seed);

} // namespace atelier
