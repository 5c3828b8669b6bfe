// SPDX-License-Identifier: MIT
#include "platform/TextFlow.h"

namespace platform
{

static const size_t tabColumns = 4;
static const char* const replacement = "\xEF\xBF\xBD"; // U+FFFD
static const char* const ellipsis = "\xE2\x80\xA6";    // U+2026

static bool Continues(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The length in bytes of the UTF-8 character at `at`, or 0 if none is there: no overlong form, no surrogate,
// nothing beyond U+10FFFF.
static size_t CharacterLength(const std::string& text, size_t at)
{
    const unsigned char lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80)
        return 1;
    const size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                          : lead >= 0xE0 && lead <= 0xEF ? 3
                          : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                         : 0;
    if (length == 0 || at + length > text.size())
        return 0;
    for (size_t i = 1; i < length; ++i)
        if (!Continues(text[at + i]))
            return 0;
    const unsigned char second = static_cast<unsigned char>(text[at + 1]);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ||
        (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90))
        return 0;
    return length;
}

std::string ShowableText(const std::string& text)
{
    std::string shown;
    size_t column = 0;
    for (size_t at = 0; at < text.size();) {
        if (at >= LongestShownText)
            return shown + ellipsis;
        const unsigned char byte = static_cast<unsigned char>(text[at]);
        if (byte == '\r' || byte == '\n') {
            shown += '\n';
            column = 0;
            at += text.compare(at, 2, "\r\n") == 0 ? 2 : 1;
            continue;
        }
        if (byte == '\t') {
            const size_t blanks = tabColumns - column % tabColumns;
            shown.append(blanks, ' ');
            column += blanks;
            ++at;
            continue;
        }
        ++column;
        const size_t length = CharacterLength(text, at);
        const bool latinLetter = length == 0 && byte >= 0xA0;
        const bool control = byte < 0x20 || byte == 0x7F || (length == 0 && !latinLetter) ||
                             (byte == 0xC2 && length == 2 && static_cast<unsigned char>(text[at + 1]) < 0xA0);
        if (control)
            shown += replacement;
        else if (latinLetter) {
            shown += static_cast<char>(0xC0 | byte >> 6);
            shown += static_cast<char>(0x80 | (byte & 0x3F));
        } else
            shown.append(text, at, length);
        at += length == 0 ? 1 : length;
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
        size_t end = fits + 1;
        while (end < line.size() && Continues(line[end]))
            ++end;
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
        // At the last blank that fits or just doesn't, unless there are only blanks in front of it.
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
