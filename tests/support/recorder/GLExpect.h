// SPDX-License-Identifier: MIT
// Expectations about the recorder's records, for EXPECT_TRUE and ASSERT_TRUE: when they fail they print what
// was there, what was expected, and where the two differ.
//
// Tolerances are absolute and apply to each number. 0, the default where the program's own figures are
// compared, means: the same float. Expected figures are rounded to float first, so 0.35 means 0.35f; figures
// that the code works out in several steps may need a tolerance of a few units in the last place.
#pragma once

#include "tests/support/recorder/GLState.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gl
{

// A vertex with its texture coordinate, in the order in which programs send them: {s, t, x, y} or
// {s, t, x, y, z}.
struct Corner {
    Point texCoord, vertex;
    Corner(double s, double t, double x, double y, double z = 0) : texCoord(s, t), vertex(x, y, z) {}
};

// ---- Geometry, in object coordinates

// One GL_QUADS quad with these four corners, by the texture coordinates of unit 0.
testing::AssertionResult IsQuad(const Draw& draw, const std::vector<Corner>& corners, double tolerance = 0);

// Quad number `index` of a batch of GL_QUADS.
testing::AssertionResult HasQuad(const Draw& draw, int index, const std::vector<Corner>& corners,
                                 double tolerance = 0);

// All vertices of a batch of any mode, with their texture coordinates of a unit.
testing::AssertionResult HasCorners(const Draw& draw, const std::vector<Corner>& corners,
                                    double tolerance = 0, int unit = 0);

testing::AssertionResult HasVertices(const Draw& draw, const std::vector<Point>& vertices,
                                     double tolerance = 0);
testing::AssertionResult HasTexCoords(const Draw& draw, const std::vector<Point>& texCoords,
                                      double tolerance = 0, int unit = 0);
testing::AssertionResult HasNormals(const Draw& draw, const std::vector<Point>& normals,
                                    double tolerance = 0);
testing::AssertionResult HasNormal(const Draw& draw, const Point& normal, double tolerance = 0); // of all

// The same after transformation. w is compared too where it isn't 1 in the expected points.
testing::AssertionResult HasEyePoints(const Draw& draw, const std::vector<Point>& points,
                                      double tolerance = 1e-4);
testing::AssertionResult HasWindowPoints(const Draw& draw, const std::vector<Point>& points, // x and y alone
                                         double tolerance = 1e-2);

// ---- Colour

testing::AssertionResult HasColour(const Draw& draw, const Colour& colour, double tolerance = 0); // of all
testing::AssertionResult HasColours(const Draw& draw, const std::vector<Colour>& colours,
                                    double tolerance = 0);

// ---- State

testing::AssertionResult Blends(const Draw& draw, GLenum source, GLenum destination); // on, with these
testing::AssertionResult DoesNotBlend(const Draw& draw);
testing::AssertionResult TestsDepth(const Draw& draw, bool expected = true);
testing::AssertionResult WritesDepth(const Draw& draw, bool expected = true); // the mask, whatever the test
testing::AssertionResult IsLit(const Draw& draw, bool expected = true);
testing::AssertionResult HasViewport(const Draw& draw, int x, int y, int width, int height);

testing::AssertionResult IsTextured(const Draw& draw, GLuint id, int unit = 0);
testing::AssertionResult IsTextured(const Draw& draw, std::string label, int unit = 0);
testing::AssertionResult IsUntextured(const Draw& draw, int unit = 0); // disabled, or none bound

testing::AssertionResult UsesProgram(const Draw& draw, GLuint id);
testing::AssertionResult UsesNoProgram(const Draw& draw);
testing::AssertionResult HasUniform(const Draw& draw, std::string name, const std::vector<float>& values,
                                    double tolerance = 0);

// ---- Matrices and values

testing::AssertionResult IsMatrix(const Matrix& actual, const Matrix& expected, double tolerance = 1e-5);
testing::AssertionResult IsPoint(const Point& actual, const Point& expected, double tolerance = 0);
testing::AssertionResult IsColour(const Colour& actual, const Colour& expected, double tolerance = 0);

// ---- Calls

// The records hold exactly these calls (see Calls and Outline), nothing in between.
testing::AssertionResult CallsAre(const std::vector<std::string>& actual,
                                  const std::vector<std::string>& expected);

// These occur in this order, whatever stands in between. A text without a bracket matches any arguments:
// "glEnable" as well as "glEnable(GL_BLEND)".
testing::AssertionResult CallsContain(const std::vector<std::string>& actual,
                                      const std::vector<std::string>& expected);

testing::AssertionResult NoErrors();
testing::AssertionResult OnlyErrors(const std::vector<GLenum>& codes); // exactly these, in order

} // namespace gl
