// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/SparkPaths.h"

#include "effects/ScrollerPaths.h"

namespace atelier
{

Line SparkPath(int path, float width, float height)
{
    std::vector<Vector2> points;
    for (const float* p = scrollerPaths[path]; *p != scrollerPathEnd; p += 2)
        points.push_back({p[0] / scrollerPathUnit * width, (1 - p[1] / scrollerPathUnit) * height});
    // Sparks run straight from point to point; the bend between two of them stays within a pixel of that.
    return Through(points);
}

} // namespace atelier
