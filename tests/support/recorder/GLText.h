// SPDX-License-Identifier: MIT
// GL's values as text.
#pragma once

#include "tests/support/recorder/GLState.h"

#include <string>

namespace gl
{

std::string NumberText(double value); // shortest that reads back the same double
std::string FloatText(float value);   // shortest that reads back the same float
std::string EnumText(GLenum value);   // "GL_BLEND"; "0x1234" where unknown
std::string ModeText(GLenum value);   // of glBegin
std::string FactorText(GLenum value); // of glBlendFunc
std::string ErrorText(GLenum value);
std::string MaskText(GLbitfield mask);     // of glClear
std::string PointText(const Point& point); // without w where it is 1
std::string ColourText(const Colour& colour);
std::string MatrixText(const Matrix& matrix); // four lines, as written on paper

} // namespace gl
