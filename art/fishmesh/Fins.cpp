// SPDX-License-Identifier: MIT
#include "art/fishmesh/Fins.h"

#include "art/fishmesh/Body.h"

#include <algorithm>
#include <cmath>

namespace fishmesh
{

static const float pi = 3.14159265f;

// A spine: where it stands in the body and where it points to.
struct Spine {
    Vector3 root, tip;
};

static const int columnsPerGap = 3; // from spine to spine
static const float spineThickness = 0.0085f;
static const float membraneThickness = 0.0030f;

// A membrane over a row of spines. Between two spines its edge hangs back by sag (a fraction of the length);
// sweep bends the spines backwards, towards +z, by so much at their middle. thick is the direction across.
static void AddFin(Mesh* mesh, const std::vector<Spine>& spines, int rows, float sag, float sweep,
                   const Vector3& thick, int smoothing)
{
    const int gaps = int(spines.size()) - 1;
    const int columns = gaps * columnsPerGap;
    std::vector<std::vector<int>> front(rows + 1), rear(rows + 1);
    for (int column = 0; column <= columns; column++) {
        const int gap = std::min(column / columnsPerGap, gaps - 1);
        const float between = float(column - gap * columnsPerGap) / columnsPerGap;
        const Vector3 root = Mix(spines[gap].root, spines[gap + 1].root, between);
        const Vector3 tip = Mix(spines[gap].tip, spines[gap + 1].tip, between);
        const float slack = std::sin(pi * between); // 0 on a spine
        const bool border = column == 0 || column == columns;
        for (int row = 0; row <= rows; row++) {
            const float out = float(row) / float(rows);
            Vector3 p = Mix(root, tip, out * (1.0f - sag * slack));
            p.z += sweep * std::sin(pi * out) * (tip - root).Length();
            // A gap is 1/10 of the tile wide in every fin: fish.fp draws the spines by that.
            const float u = 0.1f + 0.1f * float(column) / columnsPerGap;
            const float v = 0.05f + 0.9f * out;
            if (border || row == rows) {
                const int rim = mesh->AddPoint(p, u, v);
                front[row].push_back(rim);
                rear[row].push_back(rim);
                continue;
            }
            const float spine = spineThickness * (1.0f - slack) * (1.0f - 0.85f * out);
            const Vector3 across = thick * (spine + membraneThickness * (1.0f - 0.6f * out));
            front[row].push_back(mesh->AddPoint(p + across, u, v));
            rear[row].push_back(mesh->AddPoint(p - across, u, v));
        }
    }
    // Rows run from the root outwards. The side that has to be seen from behind has its columns turned round.
    const Vector3 outwards = spines[0].tip - spines[0].root;
    const Vector3 onwards = spines[gaps].root - spines[0].root;
    const bool frontIsRight = Dot(Cross(outwards, onwards), thick) > 0.0f;
    for (std::vector<int>& row : frontIsRight ? rear : front)
        std::reverse(row.begin(), row.end());
    mesh->AddGrid(front, false, Membrane, smoothing);
    mesh->AddGrid(rear, false, Membrane, smoothing + 1);
}

// A fin along the back or the belly: z of the root, and the tip relative to it.
struct Ray {
    float z, tipY, tipZ;
};

static std::vector<Spine> Upright(const std::vector<Ray>& rays, bool above)
{
    std::vector<Spine> spines;
    for (const Ray& ray : rays) {
        const float y = above ? BackHeight(ray.z) - 0.014f : BellyHeight(ray.z) + 0.014f;
        spines.push_back({Vector3(0.0f, y, ray.z), Vector3(0.0f, y + ray.tipY, ray.z + ray.tipZ)});
    }
    return spines;
}

static std::vector<Spine> Mirrored(std::vector<Spine> spines)
{
    for (Spine& spine : spines) {
        spine.root.x = -spine.root.x;
        spine.tip.x = -spine.tip.x;
    }
    return spines;
}

// clang-format off
static const std::vector<Ray> dorsalRays = {
    //   z       tip y   tip z
    { -0.330f,  0.085f, 0.040f },
    { -0.275f,  0.185f, 0.090f },
    { -0.215f,  0.215f, 0.130f },
    { -0.150f,  0.190f, 0.150f },
    { -0.085f,  0.150f, 0.150f },
    { -0.020f,  0.122f, 0.145f },
    {  0.045f,  0.104f, 0.135f },
    {  0.110f,  0.086f, 0.125f },
    {  0.170f,  0.060f, 0.110f },
};
static const std::vector<Ray> secondDorsalRays = {
    {  0.350f,  0.075f, 0.045f },
    {  0.395f,  0.092f, 0.075f },
    {  0.440f,  0.066f, 0.080f },
    {  0.480f,  0.038f, 0.070f },
};
static const std::vector<Ray> analRays = {
    {  0.180f, -0.090f, 0.070f },
    {  0.230f, -0.142f, 0.115f },
    {  0.285f, -0.112f, 0.120f },
    {  0.340f, -0.080f, 0.105f },
    {  0.400f, -0.062f, 0.095f },
    {  0.450f, -0.036f, 0.080f },
};
static const std::vector<Spine> tailSpines = {
    //        root                        tip
    { {0.0f,  0.048f, 0.640f}, {0.0f,  0.290f, 0.980f} },
    { {0.0f,  0.040f, 0.655f}, {0.0f,  0.240f, 1.000f} },
    { {0.0f,  0.030f, 0.665f}, {0.0f,  0.158f, 0.955f} },
    { {0.0f,  0.018f, 0.670f}, {0.0f,  0.082f, 0.900f} },
    { {0.0f,  0.004f, 0.672f}, {0.0f,  0.006f, 0.862f} },
    { {0.0f, -0.010f, 0.670f}, {0.0f, -0.074f, 0.890f} },
    { {0.0f, -0.022f, 0.665f}, {0.0f, -0.150f, 0.930f} },
    { {0.0f, -0.034f, 0.655f}, {0.0f, -0.222f, 0.965f} },
    { {0.0f, -0.044f, 0.640f}, {0.0f, -0.262f, 0.930f} },
};
static const std::vector<Spine> pectoralSpines = {
    { {0.100f, -0.060f, -0.425f}, {0.330f, -0.140f, -0.330f} },
    { {0.098f, -0.066f, -0.412f}, {0.385f, -0.190f, -0.200f} },
    { {0.094f, -0.072f, -0.400f}, {0.355f, -0.205f, -0.110f} },
    { {0.090f, -0.078f, -0.388f}, {0.290f, -0.200f, -0.070f} },
    { {0.086f, -0.084f, -0.376f}, {0.215f, -0.185f, -0.070f} },
    { {0.082f, -0.090f, -0.366f}, {0.150f, -0.165f, -0.100f} },
};
static const std::vector<Spine> pelvicSpines = {
    { {0.030f, -0.090f, -0.080f}, {0.185f, -0.200f,  0.000f} },
    { {0.028f, -0.090f, -0.060f}, {0.210f, -0.190f,  0.065f} },
    { {0.026f, -0.088f, -0.040f}, {0.172f, -0.162f,  0.105f} },
    { {0.024f, -0.086f, -0.020f}, {0.112f, -0.132f,  0.105f} },
};
// clang-format on

void AddFins(Mesh* mesh)
{
    const Vector3 sideways(1.0f, 0.0f, 0.0f);
    AddFin(mesh, Upright(dorsalRays, true), 4, 0.14f, 0.10f, sideways, 10);
    AddFin(mesh, Upright(secondDorsalRays, true), 3, 0.10f, 0.10f, sideways, 12);
    AddFin(mesh, Upright(analRays, false), 3, 0.10f, 0.10f, sideways, 14);
    AddFin(mesh, tailSpines, 4, 0.07f, 0.0f, sideways, 16);

    const Vector3 upRight = Normalized(Vector3(0.45f, 0.86f, -0.12f));
    const Vector3 upLeft(-upRight.x, upRight.y, upRight.z);
    AddFin(mesh, pectoralSpines, 5, 0.05f, 0.06f, upRight, 18);
    AddFin(mesh, Mirrored(pectoralSpines), 5, 0.05f, 0.06f, upLeft, 20);
    AddFin(mesh, pelvicSpines, 3, 0.06f, 0.06f, Vector3(0.45f, 0.86f, 0.0f), 22);
    AddFin(mesh, Mirrored(pelvicSpines), 3, 0.06f, 0.06f, Vector3(-0.45f, 0.86f, 0.0f), 24);
}

} // namespace fishmesh
