// SPDX-License-Identifier: MIT
// A switch for the vertices that math/Primitives.h and math/QuadBatch.h send to GL. A tool that plays the
// show up to a moment turns it off: effects then render and update as usual, but these two send no vertices.
// GL's state comes out the same, except for the current normal and texture coordinate, which no effect relies
// on from one draw to the next.
//
// Clears and all other draws still reach GL; GL_RASTERIZER_DISCARD makes GL drop those.
#pragma once

namespace platform
{

void SetDrawing(bool on); // on at the start of the process
bool IsDrawing();

} // namespace platform
