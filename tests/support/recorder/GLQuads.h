// SPDX-License-Identifier: MIT
// Batches of GL_QUADS read quad by quad, wherever their corners were worked out: by the program, by its
// matrices, or by both. What counts is where a corner stands in front of the eye.
#pragma once

#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <string>
#include <vector>

namespace gl
{

// Each quad of the draws as a draw of its own, in order, with the state and matrices of its batch.
std::vector<Draw> Quads(const std::vector<Draw>& draws);

// The quads that sample a picture on unit 0, by its bare file name.
std::vector<Draw> QuadsWithTexture(const std::string& label);

// One quad whose corners have these texture coordinates and stand where `frame` puts these places: frame is
// a modelview matrix, and each corner is given in its coordinates.
testing::AssertionResult IsQuadIn(const Draw& quad, const Matrix& frame, const std::vector<Corner>& corners,
                                  double tolerance = 1e-4);

// The middle of a quad in eye coordinates.
Point EyeMiddle(const Draw& quad);

} // namespace gl
