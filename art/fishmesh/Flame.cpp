// SPDX-License-Identifier: MIT
#include "art/fishmesh/Flame.h"

namespace fishmesh
{

// Where a tongue of fire leaves the tail, and where it ends while it is folded.
struct Tongue {
    float rootY, rootZ, tipY, tipZ;
};
// Every other one burns round the rope from the start, and not in the swaying fin.
static const Tongue tongues[] = {
    // clang-format off
    //  root y   root z   tip y    tip z
    {  0.034f,  0.560f,  0.200f,  0.930f },
    {  0.030f,  0.470f,  0.110f,  0.880f },
    { -0.030f,  0.590f, -0.185f,  0.900f },
    { -0.028f,  0.540f, -0.100f,  0.880f },
    {  0.060f,  0.680f,  0.150f,  0.960f },
    {  0.040f,  0.600f,  0.170f,  0.860f },
    { -0.052f,  0.640f, -0.140f,  0.940f },
    { -0.045f,  0.560f, -0.160f,  0.860f },
    {  0.022f,  0.520f,  0.070f,  0.900f },
    {  0.012f,  0.430f,  0.050f,  0.860f },
    { -0.018f,  0.480f, -0.060f,  0.900f },
    { -0.010f,  0.500f, -0.040f,  0.860f },
    {  0.110f,  0.760f,  0.230f,  0.980f },
    {  0.000f,  0.390f,  0.000f,  0.840f },
    { -0.096f,  0.740f, -0.210f,  0.950f },
    {  0.020f,  0.650f,  0.030f,  0.950f },
    // clang-format on
};
static const int tongueCount = int(sizeof(tongues) / sizeof(tongues[0]));
static const int lengths = 8; // faces from root to tip
static const float halfWidth = 0.003f;

void AddFlame(Mesh* mesh)
{
    int smoothing = 200;
    for (int i = 0; i < tongueCount; i++) {
        const Tongue& tongue = tongues[i];
        const Vector3 root(0.0f, tongue.rootY, tongue.rootZ);
        const Vector3 tip(0.0f, tongue.tipY, tongue.tipZ);
        std::vector<std::vector<int>> rows;
        for (int row = 0; row <= lengths; row++) {
            const float along = float(row) / lengths;
            const Vector3 p = Mix(root, tip, along);
            const Vector3 across(halfWidth, 0.0f, 0.0f);
            // fish.vp reads the number of the tongue and its side from u, and the way along it from v.
            const float u = (float(i) + 0.25f) / tongueCount;
            const float v = 0.05f + 0.9f * along;
            rows.push_back(
                {mesh->AddPoint(p - across, u, v), mesh->AddPoint(p + across, u + 0.5f / tongueCount, v)});
        }
        mesh->AddGrid(rows, false, Fire, smoothing++);
    }
}

void AddNight(Mesh* mesh)
{
    const float side = 0.01f;
    std::vector<int> corners;
    for (const auto& [x, y] : {std::pair(-1.0f, -1.0f), {1.0f, -1.0f}, {1.0f, 1.0f}, {-1.0f, 1.0f}})
        corners.push_back(
            mesh->AddPoint(Vector3(side * x, side * y, 0.0f), 0.5f + 0.4f * x, 0.5f + 0.4f * y));
    mesh->AddQuad(corners[0], corners[1], corners[2], corners[3], Night, 300);
}

} // namespace fishmesh
