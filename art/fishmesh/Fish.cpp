// SPDX-License-Identifier: MIT
#include "art/fishmesh/Fish.h"

#include "art/fishmesh/Body.h"
#include "art/fishmesh/Fins.h"
#include "art/fishmesh/Flame.h"
#include "art/fishmesh/Lids.h"
#include "art/fishmesh/Mesh.h"
#include "art/fishmesh/Teeth.h"

#include <cmath>

namespace fishmesh
{

static const float pi = 3.14159265f;

// The fish is modelled two long and written larger: in the show it fills half the picture. What stays where
// it is lies in the tail fin, near the first link of the rope of light. fish.vp has the same figures.
static const float sizeInShow = 2.2f;
static const Vector3 ropeHold(0.0f, 0.0f, 0.75f);

Model MakeFish()
{
    Mesh mesh;
    AddBody(&mesh);
    AddLids(&mesh);
    AddFins(&mesh);
    AddTeeth(&mesh);
    AddFlame(&mesh);
    AddNight(&mesh);
    mesh.Enlarge(sizeInShow, ropeHold);
    return mesh.ToModel("fish");
}

static const int eyeColumns = 18;
static const int eyeRows = 10; // from the pupil to the back of the eye

// A ball. The picture of the eye lies flat on its front: the pupil in the middle, the border of the picture a
// little behind the widest ring.
static void AddEye(Mesh* mesh, const EyeSocket& eye, int smoothing)
{
    const Vector3 right = Normalized(Cross(Vector3(0.0f, 1.0f, 0.0f), eye.axis)); // for whom it looks at
    const Vector3 up = Cross(eye.axis, right);
    std::vector<std::vector<int>> rows;
    for (int row = 1; row < eyeRows; row++) {
        const float angle = pi * float(row) / eyeRows;
        const float reach = 0.49f * std::fmin(angle / (0.62f * pi), 1.0f); // in the picture
        std::vector<int> points;
        for (int column = 0; column < eyeColumns; column++) {
            const float turn = 2.0f * pi * float(column) / eyeColumns;
            const Vector3 ring = right * std::cos(turn) + up * std::sin(turn);
            const Vector3 p = eye.centre + (eye.axis * std::cos(angle) + ring * std::sin(angle)) * eye.radius;
            points.push_back(mesh->AddPoint(p, 0.5f + reach * std::cos(turn), 0.5f + reach * std::sin(turn)));
        }
        rows.push_back(points);
    }
    mesh->AddGrid(rows, true, Eyeball, smoothing);

    const int pupil = mesh->AddPoint(eye.centre + eye.axis * eye.radius, 0.5f, 0.5f);
    const int nerve = mesh->AddPoint(eye.centre - eye.axis * eye.radius, 0.5f, 0.01f);
    for (int i = 0; i < eyeColumns; i++) {
        const int next = (i + 1) % eyeColumns;
        mesh->AddTriangle(pupil, rows.front()[i], rows.front()[next], Eyeball, smoothing);
        mesh->AddTriangle(nerve, rows.back()[next], rows.back()[i], Eyeball, smoothing);
    }
}

Model MakeEyes()
{
    Mesh mesh;
    EyeSocket left = Socket;
    left.centre.x = -left.centre.x;
    left.axis.x = -left.axis.x;
    AddEye(&mesh, Socket, 0);
    AddEye(&mesh, left, 1);
    mesh.Enlarge(sizeInShow, ropeHold);
    return mesh.ToModel("fisheyes");
}

} // namespace fishmesh
