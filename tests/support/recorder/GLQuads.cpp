// SPDX-License-Identifier: MIT
#include "tests/support/recorder/GLQuads.h"

namespace gl
{

std::vector<Draw> Quads(const std::vector<Draw>& draws)
{
    std::vector<Draw> quads;
    for (const Draw& draw : draws) {
        EXPECT_EQ(GLenum(GL_QUADS), draw.mode);
        EXPECT_EQ(0u, draw.vertices.size() % 4);
        Draw quad = draw;
        for (size_t i = 0; i + 4 <= draw.vertices.size(); i += 4) {
            quad.vertices.assign(draw.vertices.begin() + long(i), draw.vertices.begin() + long(i) + 4);
            quads.push_back(quad);
        }
    }
    return quads;
}

std::vector<Draw> QuadsWithTexture(const std::string& label)
{
    return Quads(DrawsWithTexture(label));
}

testing::AssertionResult IsQuadIn(const Draw& quad, const Matrix& frame, const std::vector<Corner>& corners,
                                  double tolerance)
{
    if (quad.mode != GL_QUADS || quad.vertices.size() != 4)
        return testing::AssertionFailure() << "not one quad";
    std::vector<Point> texCoords, places;
    for (const Corner& corner : corners) {
        texCoords.push_back(corner.texCoord);
        places.push_back(frame * corner.vertex);
    }
    const testing::AssertionResult sameTexCoords = HasTexCoords(quad, texCoords);
    return sameTexCoords ? HasEyePoints(quad, places, tolerance) : sameTexCoords;
}

Point EyeMiddle(const Draw& quad)
{
    double x = 0, y = 0, z = 0;
    for (const Vertex& vertex : quad.vertices) {
        x += vertex.eye.x / 4.0;
        y += vertex.eye.y / 4.0;
        z += vertex.eye.z / 4.0;
    }
    return Point(x, y, z);
}

} // namespace gl
