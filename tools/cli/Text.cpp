// SPDX-License-Identifier: MIT
#include "tools/cli/Text.h"

#include <utf8.h>

#include <cstdint>
#include <cstdio>

namespace cli
{

// Turns writing round, joins or parts letters, or stands for nothing.
static bool IsShapeless(uint32_t character)
{
    return character == 0xAD || character == 0x61C || (character >= 0x200B && character <= 0x200F) ||
           (character >= 0x2028 && character <= 0x202E) || (character >= 0x2060 && character <= 0x206F) ||
           character == 0xFEFF || (character >= 0xFFF9 && character <= 0xFFFB) || character >= 0xE0000;
}

std::string Escaped(const std::string& text, size_t maxCharacters)
{
    static const char* const ellipsis = "...";
    static const size_t ellipsisLength = 3;
    std::string shown;
    size_t count = 0;     // characters of shown
    size_t cutLength = 0; // bytes of shown that leave room for an ellipsis
    auto invalid = utf8::find_invalid(text.begin(), text.end());
    for (auto at = text.begin(); at != text.end();) {
        char escape[16];
        std::string piece;
        const auto begin = at;
        const bool isByte = at == invalid;
        const uint32_t character = isByte ? static_cast<unsigned char>(*at++) : utf8::unchecked::next(at);
        if (isByte)
            invalid = utf8::find_invalid(at, text.end());
        if (isByte || character < 0x20 || character == 0x7F) {
            snprintf(escape, sizeof escape, "\\x%02x", character);
            piece = escape;
        } else if (character >= 0x80 && (character < 0xA0 || IsShapeless(character))) {
            snprintf(escape, sizeof escape, "\\u%04x", character);
            piece = escape;
        } else {
            piece.assign(begin, at);
        }
        count += isByte || piece[0] == '\\' ? piece.size() : 1;
        if (count > maxCharacters)
            return shown.substr(0, cutLength) + ellipsis;
        shown += piece;
        if (count + ellipsisLength <= maxCharacters)
            cutLength = shown.size();
    }
    return shown;
}

} // namespace cli
