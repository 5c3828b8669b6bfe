// SPDX-License-Identifier: MIT
#include "tools/timeline/Type.h"

#include <utf8.h>

#include <cstdint>

namespace timeline
{

// clang-format off
static const TextShape shapes[TextStyleCount] = {
    //               serif  bold   italic size
    /* Title   */   {true,  false, false, 27.0},
    /* Summary */   {true,  false, true,  13.0},
    /* Gutter  */   {true,  false, false, 14.0},
    /* Caption */   {true,  false, true,  10.5},
    /* Bar     */   {true,  false, false, 12.0},
    /* Time    */   {false, false, false,  9.5},
    /* Entry   */   {false, false, false, 11.5},
    /* Note    */   {true,  false, true,  10.0},
    /* Message */   {false, false, false,  9.0},
    /* Finding */   {false, false, false, 10.5},
    /* Flag    */   {false, true,  false,  8.5},
};

// Thousandths of an em for the characters 32 to 126: the wider of a sans and a serif of the same family, upright;
// the second table is bold.
static const short advances[2][95] = {
    {318, 402, 460, 838, 636, 950, 890, 275, 390, 390, 500, 838, 318, 361, 318, 337, 636, 636, 636, 636, 636, 636,
     636, 636, 636, 636, 337, 337, 838, 838, 838, 536, 1000, 722, 735, 765, 802, 730, 694, 799, 872, 395, 401, 747,
     664, 1024, 875, 820, 673, 820, 753, 685, 667, 843, 722, 1028, 712, 660, 695, 390, 337, 390, 838, 500, 500, 613,
     640, 560, 640, 615, 370, 640, 644, 320, 310, 606, 320, 974, 644, 612, 640, 640, 478, 521, 402, 644, 592, 856,
     592, 592, 527, 636, 337, 636, 838},
    {348, 456, 521, 838, 696, 1002, 903, 306, 473, 473, 523, 838, 380, 415, 380, 365, 696, 696, 696, 696, 696, 696,
     696, 696, 696, 696, 400, 400, 838, 838, 838, 586, 1000, 776, 845, 796, 867, 762, 710, 854, 945, 468, 473, 869,
     703, 1107, 914, 871, 752, 871, 831, 722, 744, 872, 776, 1123, 776, 724, 730, 473, 365, 473, 838, 500, 500, 675,
     716, 609, 716, 699, 435, 716, 727, 380, 362, 693, 380, 1058, 727, 687, 716, 716, 527, 595, 478, 727, 652, 924,
     645, 652, 582, 712, 365, 712, 838},
};
// clang-format on
static const int advanceOfOthers = 1000; // the widest that a script other than Latin has as a rule

static const double ascender = 0.94; // ems
static const double descender = 0.24;

static const char* const ellipsis = "\xe2\x80\xa6";
static const char* const replacement = "\xef\xbf\xbd";

const TextShape& ShapeOf(TextStyle style)
{
    return shapes[style];
}

double TextWidth(const std::string& text, TextStyle style)
{
    const TextShape& shape = shapes[style];
    long sum = 0;
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (byte >= 32 && byte < 127)
            sum += advances[shape.bold][byte - 32];
        else if (byte < 0x80 || byte >= 0xc0) // not the later bytes of a character
            sum += advanceOfOthers;
    }
    return double(sum) * shape.size / 1000;
}

double TextHeight(TextStyle style)
{
    return (ascender + descender) * shapes[style].size;
}

PlacedText PlaceText(const std::string& text, TextStyle style, ScreenColour colour, double x, double baseline)
{
    const double top = baseline - ascender * shapes[style].size;
    return {text, style, colour, x, baseline, {x, top, TextWidth(text, style), TextHeight(style)}};
}

std::string Elide(const std::string& text, TextStyle style, double width, int least)
{
    if (TextWidth(text, style) <= width)
        return text;
    size_t end = 0; // of the part that is kept
    int characters = 0;
    for (size_t i = 0; i < text.size();) {
        size_t next = i + 1;
        while (next < text.size() && (static_cast<unsigned char>(text[next]) & 0xc0) == 0x80)
            next++;
        if (TextWidth(text.substr(0, next) + ellipsis, style) > width)
            break;
        end = i = next;
        characters++;
    }
    return characters < least ? std::string() : text.substr(0, end) + ellipsis;
}

// Whether XML has a place for the character and a text can show it. Control characters have none, but for line end and
// tab; nor have the last two of the basic plane, which Unicode keeps unassigned.
static bool IsShown(uint32_t character)
{
    const bool isControl = character < 0x20 || (character >= 0x7f && character < 0xa0);
    return character == '\n' || character == '\t' ||
           (!isControl && character != 0xfffe && character != 0xffff);
}

std::string Clean(const std::string& text)
{
    std::string clean;
    auto at = text.begin();
    while (at != text.end()) {
        const auto invalid = utf8::find_invalid(at, text.end()); // all before it is UTF-8
        while (at != invalid) {
            const auto first = at;
            if (IsShown(utf8::unchecked::next(at)))
                clean.append(first, at);
            else
                for (auto byte = first; byte != at; ++byte)
                    clean += replacement;
        }
        if (at != text.end()) {
            clean += replacement;
            ++at;
        }
    }
    return clean;
}

} // namespace timeline
