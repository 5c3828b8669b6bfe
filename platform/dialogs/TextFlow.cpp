// SPDX-License-Identifier: MIT
#include "platform/dialogs/TextFlow.h"

#include <utf8.h>

#include <cstdint>
#include <iterator>

namespace platform
{

static const size_t tabColumns = 4;
static const char* const replacement = "\xEF\xBF\xBD"; // U+FFFD
static const char* const ellipsis = "\xE2\x80\xA6";    // U+2026

static bool IsControl(uint32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

std::string ShowableText(const std::string& text)
{
    std::string shown;
    size_t column = 0;
    auto invalid = utf8::find_invalid(text.begin(), text.end()); // all before it is UTF-8
    for (auto at = text.begin(); at != text.end();) {
        if (at - text.begin() >= std::ptrdiff_t(LongestShownText))
            return shown + ellipsis;
        uint32_t character = 0;
        if (at == invalid) {
            character = static_cast<unsigned char>(*at++); // as Latin-1 has it
            invalid = utf8::find_invalid(at, text.end());
        } else {
            character = utf8::unchecked::next(at);
        }
        if (character == '\r' || character == '\n') {
            shown += '\n';
            column = 0;
            if (character == '\r' && at != text.end() && *at == '\n')
                ++at;
        } else if (character == '\t') {
            const size_t blanks = tabColumns - column % tabColumns;
            shown.append(blanks, ' ');
            column += blanks;
        } else {
            ++column;
            if (IsControl(character))
                shown += replacement;
            else
                utf8::unchecked::append(character, std::back_inserter(shown));
        }
    }
    return shown;
}

std::string ShowableLine(const std::string& text)
{
    std::string line = ShowableText(text);
    for (char& character : line)
        if (character == '\n')
            character = ' ';
    return line;
}

// How many bytes of a line, of at least one character, fit the width.
static size_t FittingLength(const std::string& line, double width, const TextMeasure& measure)
{
    size_t fits = 0;
    while (fits < line.size()) {
        auto next = line.begin() + std::ptrdiff_t(fits);
        utf8::unchecked::next(next);
        const size_t end = size_t(next - line.begin());
        if (fits > 0 && measure(line.data(), int(end)) > width)
            break;
        fits = end;
    }
    return fits;
}

// Appends one text line, broken as often as it takes.
static void FlowLine(std::string line, double width, const TextMeasure& measure,
                     std::vector<std::string>& lines)
{
    if (line.find_first_not_of(' ') == std::string::npos)
        line.clear();
    while (true) {
        const size_t fits = FittingLength(line, width, measure);
        if (fits >= line.size()) {
            lines.push_back(line);
            return;
        }
        // Break at the last blank of the part that fits, or at the one right after that part, unless only blanks
        // stand in front of it.
        const size_t blank = line.rfind(' ', fits);
        if (blank != std::string::npos && blank > line.find_first_not_of(' ')) {
            const size_t end = line.find_last_not_of(' ', blank) + 1;
            const size_t next = line.find_first_not_of(' ', blank);
            lines.push_back(line.substr(0, end));
            if (next == std::string::npos)
                return;
            line.erase(0, next);
            continue;
        }
        size_t cut = fits;
        const size_t joint = line.find_last_of("/\\,;:=-", fits - 1);
        if (joint != std::string::npos && measure(line.data(), int(joint + 1)) >= width / 2)
            cut = joint + 1;
        lines.push_back(line.substr(0, cut));
        line.erase(0, cut);
    }
}

std::vector<std::string> FlowText(const std::string& text, double width, const TextMeasure& measure)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (true) {
        const size_t end = text.find('\n', start);
        FlowLine(text.substr(start, end == std::string::npos ? end : end - start), width, measure, lines);
        if (end == std::string::npos)
            return lines;
        start = end + 1;
    }
}

} // namespace platform
