// SPDX-License-Identifier: MIT
#include "tools/capture/ContactSheet.h"

#include <algorithm>
#include <cstring>

namespace capture
{

// Pixels.
static const int gap = 8;          // between the tiles and around them
static const int labelHeight = 16; // below each tile

static const int64_t maxPixels = 200000000; // of a sheet; image viewers refuse much larger ones
static const unsigned char paper[3] = {16, 16, 20};
static const unsigned char ink[3] = {200, 200, 190};

// The characters of a time, 3 pixels wide and 5 high. They are drawn at twice that size.
static const int glyphWidth = 3;
static const int glyphHeight = 5;
static const int glyphScale = 2;

struct Glyph {
    char character;
    const char* rows[glyphHeight];
};

// clang-format off
static const Glyph glyphs[] = {
    {'0', {"###", "# #", "# #", "# #", "###"}},
    {'1', {" # ", "## ", " # ", " # ", "###"}},
    {'2', {"###", "  #", "###", "#  ", "###"}},
    {'3', {"###", "  #", " ##", "  #", "###"}},
    {'4', {"# #", "# #", "###", "  #", "  #"}},
    {'5', {"###", "#  ", "###", "  #", "###"}},
    {'6', {"###", "#  ", "###", "# #", "###"}},
    {'7', {"###", "  #", "  #", " # ", " # "}},
    {'8', {"###", "# #", "###", "# #", "###"}},
    {'9', {"###", "# #", "###", "  #", "###"}},
    {':', {"   ", " # ", "   ", " # ", "   "}},
    {'.', {"   ", "   ", "   ", "   ", " # "}},
};
// clang-format on

ContactSheet::ContactSheet(OutputFile& outputFile, int tileColumns, int tilePixels)
    : file(outputFile), columns(tileColumns), tileWidth(tilePixels), tileHeight(0), next(0)
{
}

bool ContactSheet::Begin(int width, int height, const FrameSelection& selection)
{
    rate = selection.rate;
    tileHeight = std::max(1, (tileWidth * height + width / 2) / width);
    const int across = int(std::min<int64_t>(columns, selection.picks));
    const int down = int((selection.picks + columns - 1) / columns);
    sheet.width = gap + across * (tileWidth + gap);
    sheet.height = gap + down * (tileHeight + labelHeight + gap);
    if (int64_t(sheet.width) * sheet.height > maxPixels) {
        error = "a sheet of that many tiles of that size is too large: " + std::to_string(sheet.width) +
                " x " + std::to_string(sheet.height) + " pixels";
        return false;
    }
    sheet.pixels.resize(size_t(sheet.width) * size_t(sheet.height) * 3);
    for (size_t i = 0; i < sheet.pixels.size(); i++)
        sheet.pixels[i] = paper[i % 3];
    return true;
}

// Each pixel of the tile is the mean of the pixels of the frame that it covers.
static void Shrink(const Frame& frame, RgbPicture& sheet, int left, int top, int width, int height)
{
    for (int y = 0; y < height; y++) {
        const int y0 = int(int64_t(y) * frame.height / height);
        const int y1 = std::max(y0 + 1, int(int64_t(y + 1) * frame.height / height));
        for (int x = 0; x < width; x++) {
            const int x0 = int(int64_t(x) * frame.width / width);
            const int x1 = std::max(x0 + 1, int(int64_t(x + 1) * frame.width / width));
            int sum[3] = {0, 0, 0};
            for (int fromY = y0; fromY < y1; fromY++)
                for (int fromX = x0; fromX < x1; fromX++)
                    for (int i = 0; i < 3; i++)
                        sum[i] += frame.Row(fromY)[fromX * 4 + i];
            const int count = (y1 - y0) * (x1 - x0);
            for (int i = 0; i < 3; i++)
                sheet.At(left + x, top + y)[i] = static_cast<unsigned char>((sum[i] + count / 2) / count);
        }
    }
}

static void DrawGlyph(RgbPicture& sheet, char character, int left, int top)
{
    for (const Glyph& glyph : glyphs)
        if (glyph.character == character)
            for (int y = 0; y < glyphHeight * glyphScale; y++)
                for (int x = 0; x < glyphWidth * glyphScale; x++)
                    if (glyph.rows[y / glyphScale][x / glyphScale] == '#' && left + x < sheet.width)
                        memcpy(sheet.At(left + x, top + y), ink, 3);
}

static void DrawText(RgbPicture& sheet, const std::string& text, int left, int top)
{
    for (char character : text) {
        DrawGlyph(sheet, character, left, top);
        left += (glyphWidth + 1) * glyphScale;
    }
}

// "1:07.50": hundredths are precise enough to find the place in a script and fit under a small tile.
static std::string Label(int64_t hundredths)
{
    const std::string decimals = std::to_string(100 + hundredths % 100).substr(1);
    return TimeText(hundredths / 100 * 1000000) + "." + decimals;
}

bool ContactSheet::Take(std::unique_ptr<Frame> frame)
{
    const int left = gap + int(next % columns) * (tileWidth + gap);
    const int top = gap + int(next / columns) * (tileHeight + labelHeight + gap);
    Shrink(*frame, sheet, left, top, tileWidth, tileHeight);
    DrawText(sheet, Label(rate.MomentOf(frame->number, 100)), left, top + tileHeight + 3);
    next++;
    return true;
}

bool ContactSheet::Finish(bool keep)
{
    if (keep && next > 0)
        return WritePng(file, sheet, false, &error);
    file.Discard();
    return true;
}

} // namespace capture
