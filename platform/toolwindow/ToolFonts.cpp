// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ToolFonts.h"

#include <imgui.h>
#include <imgui_freetype.h>

#include <fontconfig/fontconfig.h>

#include <string>

namespace platform
{

struct FontShape {
    const char* pattern; // as fontconfig reads it
    float size;          // of the em, pixels at scale 1
};

// clang-format off
static const FontShape shapes[ToolFontCount] = {
    /* Body    */ {"sans-serif:scalable=true",              14.0f},
    /* Small   */ {"sans-serif:scalable=true",              12.5f},
    /* Tiny    */ {"sans-serif:scalable=true",              10.5f},
    /* Heading */ {"serif:scalable=true",                   15.0f},
    /* Note    */ {"serif:slant=italic:scalable=true",      13.0f},
    /* Title   */ {"serif:scalable=true",                   24.0f},
};
// clang-format on

// Latin with its extensions, Greek, Cyrillic, punctuation, arrows, mathematical signs and shapes: what names of
// files and effects and the words of the tools are written in.
static const ImWchar ranges[] = {0x0020, 0x024f, 0x0370, 0x052f, 0x2010, 0x2044, 0x20a0, 0x20bf, 0x2190,
                                 0x21ff, 0x2200, 0x22ff, 0x25a0, 0x26ff, 0xfffd, 0xfffd, 0};

// The file of the typeface that fits best, and which of those in it. False: none is installed.
static bool FindFontFile(const char* wanted, std::string* path, int* index)
{
    FcPattern* const pattern = FcNameParse(reinterpret_cast<const FcChar8*>(wanted));
    if (!pattern)
        return false;
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result;
    FcPattern* const match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    if (!match)
        return false;
    FcChar8* file = nullptr;
    const bool found = FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch;
    if (found) {
        *path = reinterpret_cast<const char*>(file);
        if (FcPatternGetInteger(match, FC_INDEX, 0, index) != FcResultMatch)
            *index = 0;
        *index &= 0xffff; // the upper half names an instance of a variable font
    }
    FcPatternDestroy(match);
    return found;
}

void LoadToolFonts(float scale)
{
    ImFontAtlas* const atlas = ImGui::GetIO().Fonts;
    atlas->Clear();
    atlas->FontBuilderIO = ImGuiFreeType::GetBuilderForFreeType();
    atlas->FontBuilderFlags = ImGuiFreeTypeBuilderFlags_LightHinting;
    for (const FontShape& shape : shapes) {
        ImFontConfig config;
        config.GlyphRanges = ranges;
        std::string path;
        int index = 0;
        const float size = shape.size * scale;
        if (FindFontFile(shape.pattern, &path, &index)) {
            config.FontNo = index;
            if (atlas->AddFontFromFileTTF(path.c_str(), size, &config))
                continue;
        }
        ImFontConfig plain;
        plain.SizePixels = size;
        atlas->AddFontDefault(&plain);
    }
}

ImFont* FontOf(ToolFont font)
{
    return ImGui::GetIO().Fonts->Fonts[font];
}

} // namespace platform
