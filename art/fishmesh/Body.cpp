// SPDX-License-Identifier: MIT
#include "art/fishmesh/Body.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace fishmesh
{

static const float pi = 3.14159265f;

// What one sees from the side and from above.
struct Station {
    float z, back, belly, halfWidth;
};
static const Station stations[] = {
    // clang-format off
    //    z     back    belly   half width
    { -1.00f,  0.006f, -0.030f,  0.004f },  // chin
    { -0.99f,  0.016f, -0.040f,  0.026f },
    { -0.97f,  0.027f, -0.052f,  0.045f },
    { -0.94f,  0.040f, -0.066f,  0.062f },  // snout
    { -0.88f,  0.068f, -0.088f,  0.086f },
    { -0.80f,  0.113f, -0.112f,  0.106f },
    { -0.70f,  0.158f, -0.138f,  0.121f },  // eyes
    { -0.58f,  0.182f, -0.164f,  0.127f },
    { -0.46f,  0.202f, -0.166f,  0.120f },  // edge of the gill cover
    { -0.34f,  0.208f, -0.128f,  0.092f },  // hump
    { -0.20f,  0.182f, -0.098f,  0.074f },  // a belly that has seen no meal for long
    {  0.00f,  0.140f, -0.084f,  0.060f },
    {  0.20f,  0.102f, -0.072f,  0.046f },
    {  0.40f,  0.069f, -0.056f,  0.033f },
    {  0.55f,  0.050f, -0.044f,  0.023f },
    {  0.64f,  0.045f, -0.042f,  0.013f },
    {  0.70f,  0.050f, -0.049f,  0.001f },  // root of the tail fin
    // clang-format on
};
static const int stationCount = int(std::size(stations));

static const float upperTipZ = -0.955f;
static const float lowerTipZ = -1.0f; // the lower jaw stands out
static const float cornerZ = -0.70f;  // of the mouth

static const float hingeY = -0.030f;
static const float hingeZ = -0.640f;
static const float jawAngle = 0.46f; // radians that the mouth is open

static const int quarter = 10;          // columns from the back to the side
static const int columns = 4 * quarter; // round the body
static const int headRows = 16;         // from the lips to where the rows stand upright
static const float headEndZ = -0.54f;
static const int trunkRows = 30; // from there to the root of the tail fin
static const int mouthRows = 4;  // from the lips to the throat

static const float lipThickness = 0.020f;

const EyeSocket Socket = {Vector3(0.084f, 0.084f, -0.745f), Normalized(Vector3(0.86f, 0.22f, -0.46f)),
                          0.066f};

// Catmull-Rom through the stations, as wide as their distances.
static float Along(float z, float Station::*field)
{
    int i = 0;
    while (i < stationCount - 2 && z > stations[i + 1].z)
        i++;
    const Station& a = stations[std::max(i - 1, 0)];
    const Station& b = stations[i];
    const Station& c = stations[i + 1];
    const Station& d = stations[std::min(i + 2, stationCount - 1)];
    const float width = c.z - b.z;
    const float t = std::clamp((z - b.z) / width, 0.0f, 1.0f);
    const float slopeB = (c.*field - a.*field) / (c.z - a.z) * width;
    const float slopeC = (d.*field - b.*field) / (d.z - b.z) * width;
    const float t2 = t * t;
    const float t3 = t2 * t;
    return b.*field * (2.0f * t3 - 3.0f * t2 + 1.0f) + slopeB * (t3 - 2.0f * t2 + t) +
           c.*field * (3.0f * t2 - 2.0f * t3) + slopeC * (t3 - t2);
}

float BackHeight(float z)
{
    return Along(z, &Station::back);
}
float BellyHeight(float z)
{
    return Along(z, &Station::belly);
}
float HalfWidth(float z)
{
    return Along(z, &Station::halfWidth);
}

static float Hump(float x)
{
    return std::exp(-x * x);
} // a bell, 1 at 0

// What lifts the skin or lets it sink: gill cover, ribs, the rim round the eye.
static float Relief(const Vector3& p, float angle)
{
    const float side = std::sin(angle);

    // The gill cover ends in a step that runs as a crescent down the side.
    const float edge = -0.455f - 0.075f * (std::cos(angle) * std::cos(angle));
    const float behind = p.z - edge;
    const float cover =
        side * (0.012f * SmoothStep(-0.16f, -0.01f, behind) * SmoothStep(0.025f, 0.0f, behind) -
                0.006f * Hump((behind - 0.04f) / 0.022f));

    const float trunk = SmoothStep(-0.36f, -0.22f, p.z) * SmoothStep(0.42f, 0.1f, p.z);
    const float lean = p.z + 0.10f * std::cos(angle); // ribs lean backwards going down
    const float ribs = trunk * side * SmoothStep(0.8f, 0.1f, std::cos(angle)) * 0.0062f *
                       std::sin(lean * 2.0f * pi / 0.085f);

    const Vector3 eye(std::fabs(p.x) - Socket.centre.x, p.y - Socket.centre.y, p.z - Socket.centre.z);
    const Vector3 aside = eye - Socket.axis * Dot(eye, Socket.axis);
    const float rim = 0.014f * Hump((aside.Length() - Socket.radius * 1.10f) / 0.024f);

    return cover + ribs + rim;
}

Vector3 SkinPoint(float z, float angle, float side)
{
    const float back = BackHeight(z);
    const float belly = BellyHeight(z);
    const float middle = 0.5f * (back + belly);
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    const float breadth = std::pow(std::max(s, 0.0f), 0.86f) * (1.0f - 0.16f * c); // fuller below than above
    const Vector3 plain(side * HalfWidth(z) * breadth, middle + 0.5f * (back - belly) * c, z);
    const Vector3 outward =
        Normalized(Vector3(side * s * (back - belly), c * 2.0f * HalfWidth(z) + 1e-4f * c, 0.0f));
    return plain + outward * Relief(plain, angle);
}

Vector3 OpenJaw(const Vector3& point, float lower)
{
    const float held = SmoothStep(hingeZ + 0.14f, hingeZ - 0.10f, point.z);
    const float angle = lower * held * jawAngle;
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    const float y = point.y - hingeY;
    const float z = point.z - hingeZ;
    return Vector3(point.x, hingeY + c * y + s * z, hingeZ - s * y + c * z);
}

// Where a column leaves the lips.
struct Lip {
    float z, angle; // on the skin
    float lower;    // how much it belongs to the lower jaw
};

static Lip LipAt(bool lowerJaw, float along)
{
    Lip lip;
    lip.z = Mix(lowerJaw ? lowerTipZ : upperTipZ, cornerZ, std::pow(along, 1.5f));
    lip.angle = 0.5f * pi * (1.0f - std::pow(1.0f - along, 2.2f));
    if (lowerJaw)
        lip.angle = pi - lip.angle;
    lip.lower = lowerJaw ? SmoothStep(1.0f, 0.6f, along) : 0.0f;
    return lip;
}

Vector3 LipPoint(bool lowerJaw, float along, float side)
{
    const Lip lip = LipAt(lowerJaw, along);
    return OpenJaw(SkinPoint(lip.z, lip.angle, side), lip.lower);
}

static Vector3 Heart(const Lip& lip)
{
    return OpenJaw(Vector3(0.0f, -0.015f, lip.z + 0.05f), lip.lower);
}

Vector3 LipInward(bool lowerJaw, float along, float side)
{
    return Normalized(Heart(LipAt(lowerJaw, along)) - LipPoint(lowerJaw, along, side));
}

// A column of the skin: from the back (0) down the right side to the belly (1/2) and up the left one.
struct Column {
    float angle; // behind the head
    float side;
    Lip lip;
};

static Column ColumnAt(int index)
{
    Column column;
    const int half = 2 * quarter;
    const int down = index <= half ? index : columns - index;
    column.side = index <= half ? 1.0f : -1.0f;
    column.angle = pi * float(down) / float(half);
    const bool lowerJaw = down > quarter;
    const float along = float(lowerJaw ? half - down : down) / float(quarter);
    column.lip = LipAt(lowerJaw, along);
    return column;
}

// The rows of the skin: 0 is the edge of the lips, from headRows on they stand upright.
static float RowAngle(const Column& column, int row)
{
    const float t = float(row) / headRows;
    return Mix(column.lip.angle, column.angle, SmoothStep(0.0f, 1.0f, t));
}

static Vector3 RowPoint(const Column& column, int row)
{
    const float z = row <= headRows
                        ? Mix(column.lip.z, headEndZ, float(row) / headRows)
                        : Mix(headEndZ, stations[stationCount - 1].z, float(row - headRows) / trunkRows);
    return OpenJaw(SkinPoint(z, RowAngle(column, row), column.side), column.lip.lower);
}

// From the lips to the throat: over the thickness of the lip, then straight inwards.
static Vector3 MouthPoint(const Column& column, int row)
{
    const Vector3 outer = RowPoint(column, 0);
    const Vector3 forward = Normalized(outer - RowPoint(column, 1));
    const Vector3 inward = Normalized(Heart(column.lip) - outer);
    if (row == 0)
        return outer + forward * (0.55f * lipThickness) + inward * (0.45f * lipThickness);
    const Vector3 inner = outer + inward * lipThickness;
    const Vector3 throat(column.side * 0.035f * std::sin(column.angle),
                         -0.02f + 0.04f * std::cos(column.angle), -0.48f);
    const float t = float(row - 1) / float(mouthRows - 1);
    return Mix(inner, throat, t);
}

float SkinU(float z)
{
    return 0.02f + 0.96f * (z + 1.0f) / 1.72f;
}
float SkinV(float angle)
{
    return 0.99f - 0.98f * angle / pi;
}

// Closes a ring across, from its right half to its left one. towardsTail: it is seen from behind.
static void CloseAcross(Mesh* mesh, std::vector<int> ring, bool towardsTail, Surface surface)
{
    if (towardsTail)
        std::reverse(ring.begin() + 1, ring.end()); // the back stays the first
    const int last = columns / 2;
    mesh->AddTriangle(ring[0], ring[1], ring[columns - 1], surface, 0);
    for (int i = 1; i + 1 < last; i++)
        mesh->AddQuad(ring[i], ring[i + 1], ring[columns - i - 1], ring[columns - i], surface, 0);
    mesh->AddTriangle(ring[last - 1], ring[last], ring[last + 1], surface, 0);
}

void AddBody(Mesh* mesh)
{
    std::vector<Column> all;
    for (int i = 0; i < columns; i++)
        all.push_back(ColumnAt(i));

    std::vector<std::vector<int>> skin;
    for (int row = 0; row <= headRows + trunkRows; row++) {
        std::vector<int> points;
        for (const Column& column : all) {
            const Vector3 p = RowPoint(column, row);
            points.push_back(mesh->AddPoint(p, SkinU(p.z), SkinV(RowAngle(column, row))));
        }
        skin.push_back(points);
    }

    std::vector<std::vector<int>> mouth;
    for (int row = mouthRows; row >= 0; --row) {
        std::vector<int> points;
        for (const Column& column : all)
            points.push_back(mesh->AddPoint(MouthPoint(column, row), 0.1f + 0.8f * float(row) / mouthRows,
                                            0.9f - 0.8f * column.angle / pi));
        mouth.push_back(points);
    }
    mouth.push_back(skin.front());

    mesh->AddGrid(mouth, true, Flesh, 0);
    mesh->AddGrid(skin, true, Skin, 0);
    CloseAcross(mesh, mouth.front(), false, Flesh); // the throat
    CloseAcross(mesh, skin.back(), true, Skin);     // covered by the tail fin
}

} // namespace fishmesh
