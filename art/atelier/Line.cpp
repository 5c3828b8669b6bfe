// SPDX-License-Identifier: MIT
#include "art/atelier/Line.h"

#include "art/atelier/Noise.h"

#include <algorithm>

namespace atelier
{

// The piece from b to c of the centripetal spline a, b, c, d. Its end point is left to the next piece.
static void AppendPiece(Line& line, Vector2 a, Vector2 b, Vector2 c, Vector2 d, float spacing)
{
    const float ta = 0;
    const float tb = ta + Max(Sqrt(Length(b - a)), 0.01f);
    const float tc = tb + Max(Sqrt(Length(c - b)), 0.01f);
    const float td = tc + Max(Sqrt(Length(d - c)), 0.01f);
    const int steps = std::max(1, Floor(Length(c - b) / spacing + 0.5f));
    for (int i = 0; i < steps; i++) {
        const float t = tb + (tc - tb) * float(i) / float(steps);
        const Vector2 ab = Mix(a, b, (t - ta) / (tb - ta));
        const Vector2 bc = Mix(b, c, (t - tb) / (tc - tb));
        const Vector2 cd = Mix(c, d, (t - tc) / (td - tc));
        const Vector2 abc = Mix(ab, bc, (t - ta) / (tc - ta));
        const Vector2 bcd = Mix(bc, cd, (t - tb) / (td - tb));
        line.push_back(Mix(abc, bcd, (t - tb) / (tc - tb)));
    }
}

struct LinePlace {
    size_t index; // of the piece
    float t;      // within it
};

static LinePlace Find(const Line& line, float t)
{
    float left = Clamp(t) * LengthOf(line);
    for (size_t i = 0; i + 1 < line.size(); i++) {
        const float piece = Length(line[i + 1] - line[i]);
        if (left <= piece)
            return {i, piece > 0 ? left / piece : 0};
        left -= piece;
    }
    return {line.size() < 2 ? 0 : line.size() - 2, 1};
}

Line Through(const std::vector<Vector2>& points, float spacing)
{
    Line line;
    if (points.size() < 2)
        return points;
    const size_t last = points.size() - 1;
    for (size_t i = 0; i < last; i++) {
        const Vector2 b = points[i], c = points[i + 1];
        const Vector2 a = i > 0 ? points[i - 1] : b + (b - c);
        const Vector2 d = i + 1 < last ? points[i + 2] : c + (c - b);
        AppendPiece(line, a, b, c, d, spacing);
    }
    line.push_back(points[last]);
    return line;
}

Line Round(const std::vector<Vector2>& points, float spacing)
{
    Line line;
    const size_t n = points.size();
    if (n < 3)
        return points;
    for (size_t i = 0; i < n; i++)
        AppendPiece(line, points[(i + n - 1) % n], points[i], points[(i + 1) % n], points[(i + 2) % n],
                    spacing);
    line.push_back(line.front());
    return line;
}

Line Straight(const std::vector<Vector2>& points, float spacing)
{
    Line line;
    if (points.empty())
        return line;
    for (size_t i = 0; i + 1 < points.size(); i++) {
        const int steps = std::max(1, Floor(Length(points[i + 1] - points[i]) / spacing + 0.5f));
        for (int k = 0; k < steps; k++)
            line.push_back(Mix(points[i], points[i + 1], float(k) / float(steps)));
    }
    line.push_back(points.back());
    return line;
}

Line Arc(Vector2 centre, float radiusX, float radiusY, float from, float to, float spacing)
{
    const int steps = std::max(8, int(Max(radiusX, radiusY) * Abs(to - from) / spacing));
    Line line;
    for (int i = 0; i <= steps; i++) {
        const float a = Mix(from, to, float(i) / float(steps));
        line.push_back({centre.x + radiusX * Cos(a), centre.y + radiusY * Sin(a)});
    }
    return line;
}

Line Ellipse(Vector2 centre, float radiusX, float radiusY, float turned)
{
    return Turned(Arc(centre, radiusX, radiusY, 0, 2 * Pi), turned, centre);
}

float LengthOf(const Line& line)
{
    float length = 0;
    for (size_t i = 0; i + 1 < line.size(); i++)
        length += Length(line[i + 1] - line[i]);
    return length;
}

Vector2 PointAt(const Line& line, float t)
{
    if (line.size() < 2)
        return line.empty() ? Vector2{} : line[0];
    const LinePlace place = Find(line, t);
    return Mix(line[place.index], line[place.index + 1], place.t);
}

Vector2 DirectionAt(const Line& line, float t)
{
    if (line.size() < 2)
        return {1, 0};
    const LinePlace place = Find(line, t);
    return Normalised(line[place.index + 1] - line[place.index]);
}

Line Part(const Line& line, float t0, float t1)
{
    Line part;
    if (line.size() < 2 || t1 <= t0)
        return part;
    const LinePlace first = Find(line, t0), last = Find(line, t1);
    part.push_back(PointAt(line, t0));
    for (size_t i = first.index + 1; i <= last.index; i++)
        part.push_back(line[i]);
    part.push_back(PointAt(line, t1));
    return part;
}

Line Moved(Line line, Vector2 by)
{
    for (Vector2& p : line)
        p = p + by;
    return line;
}

Line Scaled(Line line, float by, Vector2 about)
{
    for (Vector2& p : line)
        p = about + (p - about) * by;
    return line;
}

Line Turned(Line line, float radians, Vector2 about)
{
    const float c = Cos(radians), s = Sin(radians);
    for (Vector2& p : line) {
        const Vector2 d = p - about;
        p = about + Vector2{c * d.x - s * d.y, s * d.x + c * d.y};
    }
    return line;
}

Line Beside(const Line& line, float by)
{
    Line result = line;
    for (size_t i = 0; i < line.size(); i++) {
        const Vector2 before = line[i > 0 ? i - 1 : 0], after = line[std::min(i + 1, line.size() - 1)];
        const Vector2 d = Normalised(after - before);
        result[i] = line[i] + Vector2{-d.y, d.x} * by;
    }
    return result;
}

Line Shaken(const Line& line, float by, float wave, uint32_t seed)
{
    const Noise noise(seed);
    Line result = line;
    float way = 0;
    for (size_t i = 0; i < line.size(); i++) {
        if (i > 0)
            way += Length(line[i] - line[i - 1]);
        result[i] = line[i] + Vector2{noise.Fbm(way / wave, 0.37f, 2), noise.Fbm(way / wave, 53.1f, 2)} * by;
    }
    return result;
}

Line Limb(const Line& spine, float startHalf, float middleHalf, float endHalf)
{
    Line left, right;
    const float length = Max(LengthOf(spine), 0.001f);
    float way = 0;
    for (size_t i = 0; i < spine.size(); i++) {
        if (i > 0)
            way += Length(spine[i] - spine[i - 1]);
        const Vector2 before = spine[i > 0 ? i - 1 : 0], after = spine[std::min(i + 1, spine.size() - 1)];
        const Vector2 d = Normalised(after - before);
        const float t = way / length;
        const float half =
            startHalf * (1 - t) * (1 - 2 * t) + middleHalf * 4 * t * (1 - t) + endHalf * t * (2 * t - 1);
        const Vector2 side = Vector2{-d.y, d.x} * Max(half, 0);
        left.push_back(spine[i] - side);
        right.push_back(spine[i] + side);
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    if (!left.empty())
        left.push_back(left.front());
    return left;
}

Shape Rectangle(float left, float top, float right, float bottom)
{
    return Line{{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
}

} // namespace atelier
