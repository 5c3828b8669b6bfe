// SPDX-License-Identifier: MIT
#include "tools/cli/Json.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace cli
{

void Json::BeginObject()
{
    Open('{');
}

void Json::EndObject()
{
    Close('}');
}

void Json::BeginArray()
{
    Open('[');
}

void Json::EndArray()
{
    Close(']');
}

void Json::Key(const std::string& name)
{
    Place();
    text += Quoted(name) + ": ";
    afterKey = true;
}

void Json::Text(const std::string& value)
{
    Place();
    text += Quoted(value);
}

void Json::Whole(int64_t value)
{
    Place();
    text += std::to_string(value);
}

void Json::Number(double value)
{
    if (!std::isfinite(value)) {
        Null();
        return;
    }
    Place();
    char digits[64];
    text.append(digits,
                std::to_chars(digits, digits + sizeof digits, value).ptr); // never with a decimal comma
}

void Json::Truth(bool value)
{
    Place();
    text += value ? "true" : "false";
}

void Json::Null()
{
    Place();
    text += "null";
}

void Json::Member(const std::string& name, const std::string& value)
{
    Key(name);
    Text(value);
}

// Without it a literal would become a bool.
void Json::Member(const std::string& name, const char* value)
{
    Key(name);
    Text(value);
}

void Json::Member(const std::string& name, int64_t value)
{
    Key(name);
    Whole(value);
}

void Json::Member(const std::string& name, int value)
{
    Key(name);
    Whole(value);
}

void Json::Member(const std::string& name, uint32_t value)
{
    Key(name);
    Whole(value);
}

void Json::Member(const std::string& name, double value)
{
    Key(name);
    Number(value);
}

void Json::Member(const std::string& name, bool value)
{
    Key(name);
    Truth(value);
}

std::string Json::Finish() const
{
    return text + "\n";
}

void Json::Open(char bracket)
{
    Place();
    text += bracket;
    levels.push_back({true});
}

void Json::Close(char bracket)
{
    const bool empty = levels.back().empty;
    levels.pop_back();
    if (!empty)
        text += "\n" + std::string(2 * levels.size(), ' ');
    text += bracket;
}

void Json::Place()
{
    if (afterKey || levels.empty()) {
        afterKey = false;
        return;
    }
    if (!levels.back().empty)
        text += ',';
    levels.back().empty = false;
    text += "\n" + std::string(2 * levels.size(), ' ');
}

// The length of the UTF-8 sequence at the place, or 0 if there is none: no overlong forms, no surrogates,
// nothing above U+10FFFF.
static size_t SequenceLength(const std::string& text, size_t at)
{
    const auto byte = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    const unsigned first = byte(at);
    if (first < 0x80)
        return 1;
    const size_t length = first >= 0xC2 && first <= 0xDF   ? 2
                          : first >= 0xE0 && first <= 0xEF ? 3
                          : first >= 0xF0 && first <= 0xF4 ? 4
                                                           : 0;
    for (size_t i = 1; i < length; i++)
        if ((byte(at + i) & 0xC0) != 0x80)
            return 0;
    const unsigned second = byte(at + 1);
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
        (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F))
        return 0;
    return length;
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (size_t i = 0; i < text.size();) {
        const size_t length = SequenceLength(text, i);
        const unsigned char c = text[i];
        if (length == 0) {
            quoted += "\\ufffd";
            i++;
            continue;
        }
        if (length > 1) {
            quoted.append(text, i, length);
        } else if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += char(c);
        } else if (c == '\n') {
            quoted += "\\n";
        } else if (c == '\t') {
            quoted += "\\t";
        } else if (c < 0x20 || c == 0x7F) {
            char escape[8];
            snprintf(escape, sizeof escape, "\\u%04x", c);
            quoted += escape;
        } else {
            quoted += char(c);
        }
        i += length;
    }
    return quoted + "\"";
}

} // namespace cli
