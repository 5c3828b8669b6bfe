// SPDX-License-Identifier: MIT
// Which parts of a tool's window look other than in the frame before. The window is divided into square tiles, and each tile
// keeps a hash of the triangles that reach into it: their corners, texture coordinates, colours, texture and clip
// rectangle, in the order of drawing. Where the hash stays, so do the pixels.
//
// A texture whose pixels change must get another name for that to be noticed.
#pragma once

#include <imgui.h>

#include <cstdint>
#include <vector>

namespace platform
{

// Pixels of the framebuffer, counted from its top left corner; right and bottom lie just outside.
struct FrameRect {
    int left, top, right, bottom;

    bool Empty() const { return left >= right || top >= bottom; }
};

int64_t AreaOf(const FrameRect& rect); // pixels
FrameRect Intersect(const FrameRect& a, const FrameRect& b);

// The pixels that ImGui's OpenGL backend lets through for the clip rectangle of a command.
FrameRect ClipOf(const ImDrawCmd& command, const ImDrawData& data);

// How many of a command's indices are one shape: 6 for two triangles with a common edge, as ImGui makes rectangles and
// lines, else 3. `left` is the number of indices from here on, at least 3.
unsigned ShapeSize(const ImDrawIdx* indices, unsigned left);

// The pixels that the triangles of these indices may reach.
FrameRect BoundsOf(const ImDrawIdx* indices, unsigned count, const ImDrawVert* corners,
                   const ImDrawData& data);

class ChangedArea
{
public:
    static const int tileSize = 64; // pixels
    static const int maxRects = 4;

    // At most maxRects rectangles, which don't overlap, with everything that may look other than at the last call; none if
    // nothing does. At the first call, after Forget and when the window's size has changed it is the whole window.
    std::vector<FrameRect> Find(const ImDrawData& data);

    // What was drawn is lost.
    void Forget() { known = false; }

private:
    void HashTriangles(const ImDrawData& data);
    void AddToTiles(const FrameRect& seen, const FrameRect& clip, uint64_t hash);
    std::vector<FrameRect> ChangedRects() const;

    int width = 0, height = 0; // pixels
    int columns = 0, rows = 0; // tiles
    bool known = false;
    std::vector<uint64_t> hashes, before; // row after row
};

} // namespace platform
