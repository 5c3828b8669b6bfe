// SPDX-License-Identifier: MIT
#include "tools/timeline/HtmlPage.h"

#include "platform/EmbeddedFiles.h"
#include "tools/timeline/Palette.h"

#include <cstdio>

namespace timeline
{

extern const platform::EmbeddedFile pageFiles[]; // of the folder page, made by the build

static const struct {
    const char* name;
    Colour colour;
} colours[] = {
    {"ink", Ink},     {"night", Night}, {"slate", Slate},         {"mist", Mist},
    {"amber", Amber}, {"rust", Rust},   {"parchment", Parchment}, {"bone", Bone},
};

static std::string PageFile(const std::string& name)
{
    for (const platform::EmbeddedFile* file = pageFiles; file->name; file++)
        if (name == file->name)
            return std::string(reinterpret_cast<const char*>(file->data), file->size);
    return "";
}

std::string PageStyle()
{
    std::string style = ":root {";
    for (const auto& each : colours) {
        char text[96]; // the hexadecimal form, and the parts, to which an opacity can be added
        snprintf(text, sizeof text, " --%s: #%02x%02x%02x; --%s-parts: %d %d %d;", each.name, each.colour.red,
                 each.colour.green, each.colour.blue, each.name, each.colour.red, each.colour.green,
                 each.colour.blue);
        style += text;
    }
    return style + " }\n" + PageFile("timeline.css");
}

std::string PageScript()
{
    return PageFile("timeline.js");
}

} // namespace timeline
