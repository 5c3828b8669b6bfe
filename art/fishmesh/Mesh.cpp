// SPDX-License-Identifier: MIT
#include "art/fishmesh/Mesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <locale>
#include <map>

namespace fishmesh
{

Vector3 Cross(const Vector3& a, const Vector3& b)
{
    return Vector3(a.y * b.z - b.y * a.z, a.z * b.x - b.z * a.x, a.x * b.y - b.x * a.y);
}

float Dot(const Vector3& a, const Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector3 Normalized(Vector3 v)
{
    v.Normalize();
    return v;
}

Vector3 Mix(const Vector3& a, const Vector3& b, float t)
{
    return a * (1.0f - t) + b * t;
}

float Mix(float a, float b, float t)
{
    return a * (1.0f - t) + b * t;
}

float SmoothStep(float from, float to, float x)
{
    const float t = std::clamp((x - from) / (to - from), 0.0f, 1.0f);
    return t * t * (3.0f - 2.0f * t);
}

int Mesh::AddPoint(const Vector3& position, float u, float v)
{
    points.push_back({position, u, v});
    return int(points.size()) - 1;
}

void Mesh::AddTriangle(int a, int b, int c, Surface surface, int smoothing)
{
    faces.push_back({{a, b, c}, surface, smoothing});
}

void Mesh::AddQuad(int a, int b, int c, int d, Surface surface, int smoothing)
{
    faces.push_back({{a, b, c, d}, surface, smoothing});
}

void Mesh::AddGrid(const std::vector<std::vector<int>>& rows, bool closed, Surface surface, int smoothing)
{
    for (size_t row = 0; row + 1 < rows.size(); row++) {
        const size_t columns = rows[row].size();
        for (size_t column = 0; column + (closed ? 0 : 1) < columns; column++) {
            const size_t next = (column + 1) % columns;
            AddQuad(rows[row][column], rows[row + 1][column], rows[row + 1][next], rows[row][next], surface,
                    smoothing);
        }
    }
}

void Mesh::Enlarge(float times, const Vector3& about)
{
    for (MeshPoint& point : points)
        point.position = about + (point.position - about) * times;
}

static float Rounded(float value)
{
    return std::round(value * 10000.0f) / 10000.0f + 0.0f; // + 0: no negative zero
}

Model Mesh::ToModel(const char* name) const
{
    Model model;
    model.name = name;
    for (const MeshPoint& point : points)
        model.vertices.push_back(
            Vector3(Rounded(point.position.x), Rounded(point.position.y), Rounded(point.position.z)));

    // The normal of a point: the sum over the faces around it, by area, apart for each smoothing number.
    std::map<std::array<int, 2>, Vector3> sums;
    for (const Face& face : faces) {
        const size_t count = face.corners.size();
        const Vector3 across = points[face.corners[2]].position - points[face.corners[0]].position;
        const Vector3 other =
            points[face.corners[count - 1]].position - points[face.corners[1 % count]].position;
        const Vector3 normal =
            count == 4 ? Cross(across, other)
                       : Cross(points[face.corners[1]].position - points[face.corners[0]].position, across);
        for (int corner : face.corners)
            sums[{corner, face.smoothing}] = sums[{corner, face.smoothing}] + normal;
    }

    std::map<std::array<float, 3>, int> normals;
    std::map<std::array<float, 2>, int> texCoords;
    for (const Face& face : faces) {
        ModelFace out;
        out.type = face.corners.size() == 4 ? FaceQuads : FaceTriangles;
        for (int corner : face.corners) {
            const Vector3 sum = sums[{corner, face.smoothing}];
            const Vector3 unit = sum.Length() > 0.0f ? Normalized(sum) : Vector3(0.0f, 1.0f, 0.0f);
            const Vector3 n(Rounded(unit.x), Rounded(unit.y), Rounded(unit.z));
            const Vec2 t(Rounded(points[corner].u + float(face.surface)), Rounded(points[corner].v));
            if (normals.try_emplace({n.x, n.y, n.z}, int(model.normals.size())).second)
                model.normals.push_back(n);
            if (texCoords.try_emplace({t.u, t.v}, int(model.texCoords.size())).second)
                model.texCoords.push_back(t);
            out.vertexIndices.push_back(corner);
            out.normalIndices.push_back(normals[{n.x, n.y, n.z}]);
            out.texCoordIndices.push_back(texCoords[{t.u, t.v}]);
        }
        model.faces.push_back(out);
    }
    return model;
}

static void WriteIndices(std::ofstream& file, const std::vector<int>& indices)
{
    file << "  " << indices.size();
    for (int index : indices)
        file << ' ' << index;
}

bool WriteModelFile(const Model& model, const char* path)
{
    std::ofstream file;
    file.imbue(std::locale::classic());
    file.open(path, std::ios::binary);
    file << model.name << "\n\n" << model.vertices.size() << '\n';
    for (const Vector3& v : model.vertices)
        file << v.x << ' ' << v.y << ' ' << v.z << '\n';
    file << '\n' << model.normals.size() << '\n';
    for (const Vector3& n : model.normals)
        file << n.x << ' ' << n.y << ' ' << n.z << '\n';
    file << '\n' << model.texCoords.size() << '\n';
    for (const Vec2& t : model.texCoords)
        file << t.u << ' ' << t.v << '\n';
    file << '\n' << model.faces.size() << '\n';
    for (const ModelFace& face : model.faces) {
        file << face.type;
        WriteIndices(file, face.vertexIndices);
        WriteIndices(file, face.normalIndices);
        WriteIndices(file, face.texCoordIndices);
        file << '\n';
    }
    file.close();
    return !file.fail();
}

} // namespace fishmesh
