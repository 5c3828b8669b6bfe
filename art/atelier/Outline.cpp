// SPDX-License-Identifier: MIT
#include "art/atelier/Outline.h"

#include <cmath>
#include <cstdio>
#include <utility>

namespace atelier
{

// Marching squares. A cell has four pixels as its corners; a ring of empty pixels lies round the mask. Each side that
// the outline crosses has a number: two for each pixel, for the side to the right of it and the side down from it.
class Tracer
{
public:
    Tracer(const Mask& sheet, float threshold)
        : mask(sheet), level(threshold), columns(sheet.Width() + 2), rows(sheet.Height() + 2),
          next(size_t(columns) * size_t(rows) * 2, -1)
    {
        for (int y = 0; y + 1 < rows; y++)
            for (int x = 0; x + 1 < columns; x++)
                Link(x, y);
    }

    std::vector<Line> Outlines()
    {
        std::vector<Line> outlines;
        for (size_t first = 0; first < next.size(); first++) {
            Line line;
            for (int at = int(first); next[size_t(at)] >= 0;) {
                line.push_back(PlaceOf(at));
                at = std::exchange(next[size_t(at)], -1);
            }
            if (!line.empty())
                outlines.push_back(std::move(line));
        }
        return outlines;
    }

private:
    // Places count from the ring's upper left pixel.
    float AmountAt(int x, int y) const
    {
        const bool inside = x > 0 && y > 0 && x < columns - 1 && y < rows - 1;
        return inside ? mask.At(x - 1, y - 1) : 0;
    }
    int Across(int x, int y) const { return 2 * (y * columns + x); }
    int Down(int x, int y) const { return 2 * (y * columns + x) + 1; }

    // Where between its two pixels the amount passes the level, from the centre of the mask's first pixel.
    Vector2 PlaceOf(int side) const
    {
        const int x = side / 2 % columns, y = side / 2 / columns;
        const bool down = side % 2 == 1;
        const float here = AmountAt(x, y);
        const float there = down ? AmountAt(x, y + 1) : AmountAt(x + 1, y);
        const float t = (level - here) / (there - here);
        return {float(x - 1) + (down ? 0 : t), float(y - 1) + (down ? t : 0)};
    }

    // The outline runs with what is inside on its left. Two corners that touch only across a cell stay apart.
    void Link(int x, int y)
    {
        const int corners = (AmountAt(x, y) >= level) + 2 * (AmountAt(x + 1, y) >= level) +
                            4 * (AmountAt(x + 1, y + 1) >= level) + 8 * (AmountAt(x, y + 1) >= level);
        const int top = Across(x, y), bottom = Across(x, y + 1), left = Down(x, y), right = Down(x + 1, y);
        const auto link = [this](int from, int to) { next[size_t(from)] = to; };
        // clang-format off
        switch (corners) {
        case 1:  link(left, top);      break;
        case 2:  link(top, right);     break;
        case 3:  link(left, right);    break;
        case 4:  link(right, bottom);  break;
        case 5:  link(left, top);      link(right, bottom); break;
        case 6:  link(top, bottom);    break;
        case 7:  link(left, bottom);   break;
        case 8:  link(bottom, left);   break;
        case 9:  link(bottom, top);    break;
        case 10: link(top, right);     link(bottom, left);  break;
        case 11: link(bottom, right);  break;
        case 12: link(right, left);    break;
        case 13: link(right, top);     break;
        case 14: link(top, left);      break;
        default: break; // all outside or all inside
        }
        // clang-format on
    }

    const Mask& mask;
    const float level;
    const int columns, rows;
    std::vector<int> next; // the side to which the outline goes on from this side; -1: it does not cross here
};

static float AreaOf(const Line& line)
{
    float twice = 0;
    for (size_t i = 0; i < line.size(); i++) {
        const Vector2 a = line[i], b = line[(i + 1) % line.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return std::fabs(twice) / 2;
}

static float DistanceToPiece(Vector2 point, Vector2 from, Vector2 to)
{
    const Vector2 along = to - from;
    const float square = along.x * along.x + along.y * along.y;
    const Vector2 way = point - from;
    float t = square > 0 ? (way.x * along.x + way.y * along.y) / square : 0;
    t = t < 0 ? 0 : t > 1 ? 1 : t;
    return Length(way - along * t);
}

// Douglas and Peucker: of the points between the two, keeps the furthest one if it is further away than the tolerance,
// and goes on at both sides of it. An outline has some ten thousand points at most, so that the depth stays small.
static void Keep(const Line& line, size_t first, size_t last, float tolerance, std::vector<bool>& kept)
{
    size_t furthest = first;
    float distance = tolerance;
    for (size_t i = first + 1; i < last; i++) {
        const float d = DistanceToPiece(line[i], line[first], line[last]);
        if (d > distance) {
            distance = d;
            furthest = i;
        }
    }
    if (furthest == first)
        return;
    kept[furthest] = true;
    Keep(line, first, furthest, tolerance, kept);
    Keep(line, furthest, last, tolerance, kept);
}

static Line Simplified(const Line& line, float tolerance)
{
    Line closed = line;
    closed.push_back(line.front());
    std::vector<bool> kept(closed.size(), false);
    // The two ends are one point: the middle of the way stays too.
    const size_t middle = closed.size() / 2;
    kept[0] = kept[middle] = true;
    Keep(closed, 0, middle, tolerance, kept);
    Keep(closed, middle, closed.size() - 1, tolerance, kept);
    Line result;
    for (size_t i = 0; i + 1 < closed.size(); i++)
        if (kept[i])
            result.push_back(closed[i]);
    return result;
}

std::vector<Line> Traced(const Mask& mask, float level, float tolerance, float minArea)
{
    std::vector<Line> outlines;
    for (const Line& line : Tracer(mask, level).Outlines())
        if (AreaOf(line) >= minArea)
            outlines.push_back(Simplified(line, tolerance));
    return outlines;
}

std::string PathData(const std::vector<Line>& outlines, float scale)
{
    std::string data;
    for (const Line& line : outlines) {
        char step = 'M';
        for (const Vector2 place : line) {
            char text[64];
            std::snprintf(text, sizeof text, "%c%.1f %.1f", step, double(place.x * scale),
                          double(place.y * scale));
            data += text;
            step = 'L';
        }
        data += 'Z';
    }
    return data;
}

} // namespace atelier
