// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/hands/Study.h"

#include <algorithm>

namespace atelier
{

constexpr float Nothing = -1e5f;
constexpr float Reach = 330; // of rays, to both sides of the card, in pixels of the hand's frame

Study::Study(int width, int height)
    : body(width, height), palm(width, height), depth(width, height, Nothing), dark(width, height),
      cast(width, height), edges(width, height), folds(width, height)
{
}

bool Study::Sees(Vector2 place, float z, float slack) const
{
    const int x = Floor(place.x), y = Floor(place.y);
    if (x < 0 || y < 0 || x >= body.Width() || y >= body.Height() || body.At(x, y) < 0.5f)
        return false;
    return z > depth.At(x, y) - slack;
}

void Study::CloseGaps()
{
    constexpr int Enough = 5; // of the eight pixels round one
    const Mask before = body;
    for (int y = 1; y + 1 < body.Height(); y++)
        for (int x = 1; x + 1 < body.Width(); x++) {
            if (before.At(x, y) > 0)
                continue;
            int around = 0;
            float deepest = 1e6f;
            for (int dy = -1; dy <= 1; dy++)
                for (int dx = -1; dx <= 1; dx++)
                    if (before.At(x + dx, y + dy) > 0) {
                        around++;
                        deepest = Min(deepest, depth.At(x + dx, y + dy));
                    }
            if (around < Enough)
                continue;
            body.At(x, y) = dark.At(x, y) = cast.At(x, y) = edges.At(x, y) = 1;
            depth.At(x, y) = deepest;
        }
}

Frame FrameOf(const Solid& solid, const Sight& sight, float room, int width, int height)
{
    Vector2 from = {1e6f, 1e6f}, to = {-1e6f, -1e6f};
    const auto add = [&](const std::vector<Bone>& bones) {
        for (const Bone& bone : bones)
            for (const Point3& p : {bone.a, bone.b}) {
                const Vector2 at = sight({p.x, p.y});
                const float reach = (Max(bone.halfA, bone.halfB) + room) * sight.scale;
                from = {Min(from.x, at.x - reach), Min(from.y, at.y - reach)};
                to = {Max(to.x, at.x + reach), Max(to.y, at.y + reach)};
            }
    };
    add(solid.palm);
    for (const auto& digit : solid.digits)
        for (const std::vector<Bone>& part : digit)
            add(part);
    const int left = std::clamp(Floor(from.x), 0, width - 1), top = std::clamp(Floor(from.y), 0, height - 1);
    return {left, top, std::clamp(Floor(to.x) + 1, left + 1, width) - left,
            std::clamp(Floor(to.y) + 1, top + 1, height) - top};
}

// How much of the light is kept off by what lies between: 0 to 1.
static float Shadow(const Solid& solid, Point3 from, float start)
{
    const Point3 light = Normalised(HandLight);
    float least = 1, t = start;
    for (int step = 0; step < 40 && t < Reach; step++) {
        const float distance = solid.Distance(from + light * t);
        least = Min(least, 0.5f + 0.5f * distance / (0.07f * t));
        if (least <= 0)
            return 1;
        t += Max(distance, 2.5f);
    }
    return Smooth(0.9f, 0.1f, least);
}

// How much of the sky is hidden by flesh near by, 0 to 1.
static float AmbientOcclusion(const Solid& solid, Point3 p, Point3 normal)
{
    float hidden = 0, weight = 0.5f;
    for (const float t : {6.0f, 13.0f, 24.0f, 40.0f}) {
        hidden += weight * Max(0, t - solid.Distance(p + normal * t)) / t;
        weight *= 0.75f;
    }
    return Clamp(hidden * 0.75f);
}

// How much of the light the card keeps off: 0 to 1. The farther behind it, the softer is its shadow's edge.
static float CardsShadow(Point3 p, float cardHalf)
{
    if (p.z >= 0 || cardHalf <= 0)
        return 0;
    const Point3 at = p + HandLight * (-p.z / HandLight.z);
    const float soft = 5 - 0.3f * p.z;
    const auto within = [&](float distance) { return Smooth(-soft, soft, distance); };
    return within(cardHalf - Abs(at.x)) * within(-at.y) * within(at.y + 2 * cardHalf);
}

constexpr int Tile = 24; // pixels

// Sphere tracing along -z, tile by tile, each with the bones alone that lie over it. `parts` gets Solid::PartAt.
static void TraceSurface(Study& study, std::vector<int>& parts, const Skeleton& hand, const Sight& sight)
{
    const int width = study.body.Width(), height = study.body.Height();
    const Point3 light = Normalised(HandLight);
    for (int top = 0; top < height; top += Tile)
        for (int left = 0; left < width; left += Tile) {
            Vector2 from = {1e6f, 1e6f}, to = {-1e6f, -1e6f};
            for (const Vector2 corner :
                 {Vector2{0, 0}, Vector2{Tile, 0}, Vector2{0, Tile}, Vector2{Tile, Tile}}) {
                const Vector2 p = sight.Back(Vector2{float(left), float(top)} + corner);
                from = {Min(from.x, p.x), Min(from.y, p.y)};
                to = {Max(to.x, p.x), Max(to.y, p.y)};
            }
            const Solid near = hand.flesh.Over(from, to);
            bool empty = near.palm.empty();
            for (const auto& digit : near.digits)
                for (const auto& part : digit)
                    empty = empty && part.empty();
            if (empty)
                continue;
            for (int y = top; y < std::min(height, top + Tile); y++)
                for (int x = left; x < std::min(width, left + Tile); x++) {
                    const Vector2 at = sight.Back({float(x) + 0.5f, float(y) + 0.5f});
                    Point3 p = {at.x, at.y, Reach};
                    bool hit = false;
                    for (int step = 0; step < 90 && p.z > -Reach && !hit; step++) {
                        const float distance = near.Distance(p);
                        hit = distance < 0.12f;
                        if (!hit)
                            p.z -= Max(0.9f * distance, 0.1f);
                    }
                    if (!hit)
                        continue;
                    const Point3 normal = near.Normal(p, 0.8f);
                    study.body.At(x, y) = 1;
                    study.depth.At(x, y) = p.z;
                    study.dark.At(x, y) = 1 - Dot(normal, light);
                    const int part = near.PartAt(p);
                    parts[size_t(y) * size_t(width) + size_t(x)] = part;
                    study.palm.At(x, y) = part == 0 ? 1.0f : 0.0f;
                }
        }
}

// Shadows and what is hidden change slowly: they are looked for at every second pixel of the hand's own scale.
static void Shade(Study& study, const Skeleton& hand, const Sight& sight)
{
    const int step = std::max(2, Floor(2 * sight.scale));
    const auto place = [&](float x, float y) {
        const int px = std::min(Floor(x), study.body.Width() - 1),
                  py = std::min(Floor(y), study.body.Height() - 1);
        const Vector2 at = sight.Back({float(px) + 0.5f, float(py) + 0.5f});
        return Point3{at.x, at.y, study.depth.At(px, py)};
    };
    Mask hidden(study.body.Width(), study.body.Height());
    study.cast.Each(
        [&](float x, float y) {
            const Point3 p = place(x, y);
            if (p.z <= Nothing)
                return 0.0f;
            const float card = CardsShadow(p, sight.cardHalf);
            const Point3 normal = hand.flesh.Normal(p, 0.8f);
            if (Dot(normal, HandLight) <= 0)
                return card;
            return Max(card, Shadow(hand.flesh, p + normal * 3, 3));
        },
        step);
    hidden.Each(
        [&](float x, float y) {
            const Point3 p = place(x, y);
            return p.z <= Nothing ? 0.0f : AmbientOcclusion(hand.flesh, p, hand.flesh.Normal(p, 0.8f));
        },
        step);
    for (int y = 0; y < study.body.Height(); y++)
        for (int x = 0; x < study.body.Width(); x++)
            if (study.body.At(x, y) > 0) {
                const float lambert = 1 - study.dark.At(x, y);
                const float lit = Max(lambert, 0) * (1 - 0.72f * study.cast.At(x, y));
                study.dark.At(x, y) = Clamp(1 - lit + 0.35f * hidden.At(x, y));
            }
}

// Two parts end before each other where the depth leaps, and where two digits touch.
static void FindEdges(Study& study, const std::vector<int>& parts, const Sight& sight)
{
    const int width = study.body.Width(), height = study.body.Height();
    const float leap = 7 / Max(1, 0.5f * sight.scale); // in the hand's frame
    const auto digitOf = [](int part) { return part <= 0 ? -1 : (part - 1) / Solid::PartsOfDigit; };
    for (int y = 1; y + 1 < height; y++)
        for (int x = 1; x + 1 < width; x++) {
            if (study.body.At(x, y) <= 0)
                continue;
            const float z = study.depth.At(x, y);
            const int part = parts[size_t(y) * size_t(width) + size_t(x)];
            float bent = 0;
            for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
                const float other = study.depth.At(x + dx, y + dy);
                const int otherPart = parts[size_t(y + dy) * size_t(width) + size_t(x + dx)];
                const bool digits = digitOf(part) != digitOf(otherPart) && z >= other &&
                                    ((digitOf(part) >= 0 && digitOf(otherPart) >= 0) ||
                                     (part > 0 && (part - 1) % Solid::PartsOfDigit > 0) ||
                                     (otherPart > 0 && (otherPart - 1) % Solid::PartsOfDigit > 0));
                // The slope goes on beyond a limb's edge, but not across a leap.
                const float before = study.depth.At(x - dx, y - dy);
                const float slope = before > Nothing ? Clamp(before - z, 0, 3) : 0;
                if (z - other > leap + slope || digits)
                    study.edges.At(x, y) = 1;
                bent += other - z;
            }
            if (Abs(bent) < 8)
                study.folds.At(x, y) = Max(bent, 0) * sight.scale;
        }
    study.edges.Blur(0.9f).Curve(0.22f, 0.42f);
    study.folds.Blur(1.3f * sight.scale).Curve(0.06f, 0.22f);
}

Study Studied(const Skeleton& hand, const Sight& sight, int width, int height)
{
    Study study(width, height);
    std::vector<int> parts(size_t(width) * size_t(height), -1);
    TraceSurface(study, parts, hand, sight);
    Shade(study, hand, sight);
    FindEdges(study, parts, sight);
    return study;
}

} // namespace atelier
