// SPDX-License-Identifier: MIT
#include "tools/timeline/InkShapes.h"

#include <algorithm>
#include <cmath>

namespace timeline
{

static const double pi = 3.14159265358979;
static const double strokeStep = 24; // between the places where the pressure may change
static const int maxSteps = 60;

// A pseudo-random number of 0 to 1, the same for the same seed and place.
static double Chance(uint32_t seed, uint32_t place)
{
    uint32_t bits = seed * 2654435761u + place * 40503u + 0x9e3779b9u;
    bits ^= bits >> 16;
    bits *= 0x7feb352du;
    bits ^= bits >> 15;
    bits *= 0x846ca68bu;
    bits ^= bits >> 16;
    return double(bits) / 4294967295.0;
}

std::vector<Point> LevelStroke(double left, double right, double y, double width, uint32_t seed)
{
    const int steps = std::clamp(int((right - left) / strokeStep), 1, maxSteps);
    std::vector<Point> above, below;
    for (int i = 0; i <= steps; i++) {
        const double x = left + (right - left) * i / steps;
        const double pressure = width * (0.45 + 0.55 * Chance(seed, uint32_t(2 * i)));
        const double sway = (Chance(seed, uint32_t(2 * i + 1)) - 0.5) * width * 0.6;
        above.push_back({x, y + sway - pressure / 2});
        below.push_back({x, y + sway + pressure / 2});
    }
    above.insert(above.end(), below.rbegin(), below.rend());
    return above;
}

std::vector<Point> DownStroke(double x, double top, double bottom, double width)
{
    return {{x - width / 2, top}, {x + width / 2, top}, {x + width * 0.2, bottom}, {x - width * 0.2, bottom}};
}

std::vector<Point> Diamond(Point centre, double radius)
{
    return {{centre.x, centre.y - radius},
            {centre.x + radius, centre.y},
            {centre.x, centre.y + radius},
            {centre.x - radius, centre.y}};
}

std::vector<Point> Crescent(Point centre, double radius)
{
    std::vector<Point> moon;
    const int steps = 24;
    for (int i = 0; i <= steps; i++) { // the bright limb, from the top horn to the lower one
        const double angle = -pi / 2 + pi * i / steps;
        moon.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    for (int i = steps - 1; i > 0; i--) { // back along the edge of the shadow
        const double angle = -pi / 2 + pi * i / steps;
        moon.push_back({centre.x + radius * 0.45 * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return moon;
}

std::vector<Point> Disc(Point centre, double radius)
{
    std::vector<Point> disc;
    const int steps = 40;
    for (int i = 0; i < steps; i++)
        disc.push_back({centre.x + radius * std::cos(2 * pi * i / steps),
                        centre.y + radius * std::sin(2 * pi * i / steps)});
    return disc;
}

} // namespace timeline
