// SPDX-License-Identifier: MIT
#include "platform/Drawing.h"

namespace platform
{

static bool drawing = true;

void SetDrawing(bool on)
{
    drawing = on;
}

bool IsDrawing()
{
    return drawing;
}

} // namespace platform
