// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

#include <string>
#include <vector>

// The list of all pictures. Each file under pictures/ paints the pictures of one effect and ends with their
// table; the tables are collected in Pictures.cpp. A picture's function paints it from nothing, with seeds of
// its own, and returns it in its final size.

namespace atelier
{

enum class Format {
    Jpeg,    // RGB
    PngRgb,  // PNG without alpha
    PngRgba, // PNG with straight alpha
    Svg,
};

struct Picture {
    const char* file; // path from the root of the project
    int width, height;
    Format format;
    Canvas (*paint)();
    std::string (*draw)() = nullptr; // of an SVG: its text, which `paint` has no part in
};

// The pictures of one effect.
struct PictureGroup {
    const char* effect;
    std::vector<Picture> pictures;
};

const std::vector<PictureGroup>& AllGroups();

// By its path, or by its file name alone, which the first of that name has; null if there is none.
const Picture* FindPicture(const std::string& name);

inline int ChannelsOf(Format format)
{
    return format == Format::PngRgba || format == Format::Svg ? 4 : 3;
}
std::string NameOf(const Picture& picture); // the file's name without its folder

} // namespace atelier
