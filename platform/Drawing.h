// SPDX-License-Identifier: MIT
// Whether geometry reaches GL. A tool that plays the show up to a moment switches it off: then effects
// render and update as ever, and all that is left out is the sending of vertices by math/Primitives.h and
// math/QuadBatch.h. Their effect on GL's state stays the same, but for the current normal and the current
// texture coordinate, which no effect relies on from one draw to the next.
//
// GL itself goes on drawing what is sent past these two, and clears: see GL_RASTERIZER_DISCARD.
#pragma once

namespace platform
{

void SetDrawing(bool on); // on at the start of the process
bool IsDrawing();

} // namespace platform
