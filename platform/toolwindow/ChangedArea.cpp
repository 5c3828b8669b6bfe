// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ChangedArea.h"

#include <algorithm>
#include <cstring>

namespace platform
{

FrameRect Intersect(const FrameRect& a, const FrameRect& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

static FrameRect Unite(const FrameRect& a, const FrameRect& b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

int64_t AreaOf(const FrameRect& rect)
{
    return rect.Empty() ? 0 : int64_t(rect.right - rect.left) * (rect.bottom - rect.top);
}

// The backend cuts the lower left corner, the width and the height down to whole pixels.
FrameRect ClipOf(const ImDrawCmd& command, const ImDrawData& data)
{
    const ImVec2 scale = data.FramebufferScale;
    const int frameHeight = int(data.DisplaySize.y * scale.y);
    const float left = (command.ClipRect.x - data.DisplayPos.x) * scale.x;
    const float top = (command.ClipRect.y - data.DisplayPos.y) * scale.y;
    const float right = (command.ClipRect.z - data.DisplayPos.x) * scale.x;
    const float bottom = (command.ClipRect.w - data.DisplayPos.y) * scale.y;
    if (right <= left || bottom <= top)
        return {0, 0, 0, 0};
    const int lowest = frameHeight - int(float(frameHeight) - bottom);
    return {int(left), lowest - int(bottom - top), int(left) + int(right - left), lowest};
}

unsigned ShapeSize(const ImDrawIdx* indices, unsigned left)
{
    return left >= 6 && indices[3] == indices[0] && indices[4] == indices[2] ? 6 : 3;
}

// Without the library's calls, which take longer than all else here. No number is far to the left.
static int FloorOf(float place)
{
    const float pixel = place > -1e6f ? std::min(place, 1e6f) : -1e6f;
    const int whole = int(pixel);
    return float(whole) > pixel ? whole - 1 : whole;
}

FrameRect BoundsOf(const ImDrawIdx* indices, unsigned count, const ImDrawVert* corners,
                   const ImDrawData& data)
{
    ImVec2 first = corners[indices[0]].pos, last = first;
    for (unsigned i = 1; i < count; i++) {
        const ImVec2 place = corners[indices[i]].pos;
        first = {std::min(first.x, place.x), std::min(first.y, place.y)};
        last = {std::max(last.x, place.x), std::max(last.y, place.y)};
    }
    const ImVec2 scale = data.FramebufferScale, origin = data.DisplayPos;
    return {FloorOf((first.x - origin.x) * scale.x), FloorOf((first.y - origin.y) * scale.y),
            -FloorOf((origin.x - last.x) * scale.x), -FloorOf((origin.y - last.y) * scale.y)};
}

// Hashing: the mixing step of a 64-bit multiplicative hash (the odd number is 2^64 divided by the golden ratio), with a
// shift that brings the upper bits back down.

static uint64_t Mix(uint64_t hash, uint64_t value)
{
    hash = (hash ^ value) * 0x9e3779b97f4a7c15u;
    return hash ^ hash >> 29;
}

static uint64_t HashOf(const ImDrawVert& corner, uint64_t hash)
{
    uint64_t place, texel;
    memcpy(&place, &corner.pos, sizeof(place));
    memcpy(&texel, &corner.uv, sizeof(texel));
    return Mix(Mix(Mix(hash, place), texel), corner.col);
}

void ChangedArea::AddToTiles(const FrameRect& seen, const FrameRect& clip, uint64_t hash)
{
    for (int row = seen.top / tileSize; row <= (seen.bottom - 1) / tileSize; row++) {
        for (int column = seen.left / tileSize; column <= (seen.right - 1) / tileSize; column++) {
            const FrameRect tile = {column * tileSize, row * tileSize, (column + 1) * tileSize,
                                    (row + 1) * tileSize};
            // Of the clip rectangle, what it leaves of this tile.
            const FrameRect left = Intersect(clip, tile);
            const uint64_t cut = uint64_t(left.left - tile.left) << 48 | uint64_t(left.top - tile.top) << 32 |
                                 uint64_t(left.right - tile.left) << 16 | uint64_t(left.bottom - tile.top);
            uint64_t& kept = hashes[size_t(row) * size_t(columns) + size_t(column)];
            kept = Mix(Mix(kept, hash), cut);
        }
    }
}

void ChangedArea::HashTriangles(const ImDrawData& data)
{
    for (int i = 0; i < data.CmdListsCount; i++) {
        const ImDrawList& list = *data.CmdLists[i];
        for (const ImDrawCmd& command : list.CmdBuffer) {
            const FrameRect clip = Intersect(ClipOf(command, data), {0, 0, width, height});
            const uint64_t texture = uint64_t(uintptr_t(command.GetTexID()));
            const ImDrawIdx* const indices = list.IdxBuffer.Data + command.IdxOffset;
            const ImDrawVert* const corners = list.VtxBuffer.Data + command.VtxOffset;
            for (unsigned k = 0, size = 3; k + 2 < command.ElemCount; k += size) {
                size = ShapeSize(indices + k, command.ElemCount - k);
                const FrameRect seen = Intersect(BoundsOf(indices + k, size, corners, data), clip);
                if (seen.Empty())
                    continue;
                uint64_t hash = Mix(texture, size);
                for (unsigned corner = 0; corner < 3; corner++)
                    hash = HashOf(corners[indices[k + corner]], hash);
                if (size == 6)
                    hash = HashOf(corners[indices[k + 5]], hash);
                AddToTiles(seen, clip, hash);
            }
        }
    }
}

// Rectangles

// Two rectangles become one where that draws the fewest pixels that have not changed, and where one lies in another.
static void JoinNearest(std::vector<FrameRect>* rects)
{
    size_t first = 0, second = 1;
    int64_t least = INT64_MAX;
    for (size_t i = 0; i < rects->size(); i++) {
        for (size_t k = i + 1; k < rects->size(); k++) {
            const int64_t extra =
                AreaOf(Unite((*rects)[i], (*rects)[k])) - AreaOf((*rects)[i]) - AreaOf((*rects)[k]);
            if (extra < least) {
                least = extra;
                first = i;
                second = k;
            }
        }
    }
    (*rects)[first] = Unite((*rects)[first], (*rects)[second]);
    rects->erase(rects->begin() + long(second));
}

static bool AnyOverlap(const std::vector<FrameRect>& rects)
{
    for (size_t i = 0; i < rects.size(); i++)
        for (size_t k = i + 1; k < rects.size(); k++)
            if (!Intersect(rects[i], rects[k]).Empty())
                return true;
    return false;
}

// Runs of changed tiles, row after row; a run that stands under one of the same ends lengthens that.
std::vector<FrameRect> ChangedArea::ChangedRects() const
{
    std::vector<FrameRect> rects;
    for (int row = 0; row < rows; row++) {
        for (int column = 0; column < columns;) {
            const auto changed = [&](int at) {
                const size_t tile = size_t(row) * size_t(columns) + size_t(at);
                return !known || hashes[tile] != before[tile];
            };
            int end = column;
            while (end < columns && changed(end))
                end++;
            if (end == column) {
                column++;
                continue;
            }
            const FrameRect run = {column * tileSize, row * tileSize, std::min(end * tileSize, width),
                                   std::min((row + 1) * tileSize, height)};
            const auto above = std::find_if(rects.begin(), rects.end(), [&](const FrameRect& rect) {
                return rect.bottom == run.top && rect.left == run.left && rect.right == run.right;
            });
            if (above != rects.end())
                above->bottom = run.bottom;
            else
                rects.push_back(run);
            column = end;
        }
    }
    while (rects.size() > size_t(maxRects) || AnyOverlap(rects))
        JoinNearest(&rects);
    return rects;
}

std::vector<FrameRect> ChangedArea::Find(const ImDrawData& data)
{
    const int newWidth = int(data.DisplaySize.x * data.FramebufferScale.x);
    const int newHeight = int(data.DisplaySize.y * data.FramebufferScale.y);
    if (newWidth != width || newHeight != height) {
        width = std::max(newWidth, 0);
        height = std::max(newHeight, 0);
        columns = (width + tileSize - 1) / tileSize;
        rows = (height + tileSize - 1) / tileSize;
        known = false;
    }
    before.swap(hashes);
    hashes.assign(size_t(columns) * size_t(rows), 0);
    HashTriangles(data);
    const std::vector<FrameRect> rects = ChangedRects();
    known = true;
    return rects;
}

} // namespace platform
