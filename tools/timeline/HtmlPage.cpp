// SPDX-License-Identifier: MIT
#include "tools/timeline/HtmlPage.h"

#include "platform/EmbeddedFiles.h"
#include "tools/timeline/TimelineColours.h"

#include <cstdio>

namespace timeline
{

extern const platform::EmbeddedFile pageFiles[]; // of the folder page, made by the build

static const struct {
    const char* name;
    uint32_t rgb;
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
        snprintf(text, sizeof text, " --%s: #%06x; --%s-parts: %d %d %d;", each.name, each.rgb, each.name,
                 RedOf(each.rgb), GreenOf(each.rgb), BlueOf(each.rgb));
        style += text;
    }
    return style + " }\n" + PageFile("timeline.css");
}

std::string PageScript()
{
    return PageFile("timeline.js");
}

} // namespace timeline
