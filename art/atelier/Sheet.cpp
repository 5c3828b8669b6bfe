// SPDX-License-Identifier: MIT
#include "art/atelier/Commands.h"
#include "art/atelier/Files.h"
#include "art/atelier/PenAlphabet.h"

#include <algorithm>
#include <cstdio>

namespace atelier
{

constexpr int Columns = 6, CellWidth = 264, CellHeight = 232, PictureWidth = 240, PictureHeight = 170;
constexpr int Margin = 24, HeadHeight = 90, CheckerSize = 10;

static Canvas FromRaster(const Raster& raster)
{
    Canvas canvas(raster.width, raster.height);
    const size_t step = size_t(raster.channels);
    float linear[256];
    for (int i = 0; i < 256; i++)
        linear[i] = FromScreen(float(i) / 255);
    for (int y = 0; y < raster.height; y++)
        for (int x = 0; x < raster.width; x++) {
            const unsigned char* p = &raster.bytes[(size_t(y) * size_t(raster.width) + size_t(x)) * step];
            const float a = raster.channels == 4 ? float(p[3]) / 255 : 1;
            canvas.At(x, y) = {linear[p[0]] * a, linear[p[1]] * a, linear[p[2]] * a, a};
        }
    return canvas;
}

static void Checker(Canvas& canvas, int left, int top, int width, int height)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const LinearColour c =
                (x / CheckerSize + y / CheckerSize) % 2 == 0 ? palette::Slate : palette::Mist;
            canvas.At(left + x, top + y) = {c.r, c.g, c.b, 1};
        }
}

// The lettering goes onto the sheet, the sheet into its file.
static int Written(Canvas& sheet, const Mask& ink, size_t count, const std::string& path)
{
    sheet.Cover(ink, palette::Ink);
    if (!WriteFile(path, Encoded(Finished(sheet, 3), path))) {
        std::fprintf(stderr, "atelier: cannot write %s\n", path.c_str());
        return 1;
    }
    std::printf("%zu pictures on %s\n", count, path.c_str());
    return 0;
}

int DrawSheet(const std::vector<const Picture*>& pictures, const std::string& path)
{
    struct SheetPicture {
        const Picture* picture;
        Canvas canvas;
    };
    std::vector<SheetPicture> entries;
    for (const Picture* picture : pictures) {
        std::string bytes;
        Raster raster;
        if (ReadFile(picture->file, bytes) && Decode(bytes, raster))
            entries.push_back({picture, FromRaster(raster)});
    }
    const int rows = std::max(1, (int(entries.size()) + Columns - 1) / Columns);
    const int width = 2 * Margin + Columns * CellWidth, height = HeadHeight + rows * CellHeight + Margin;
    Canvas sheet(width, height);
    SketchPaper().Sheet(sheet, palette::Parchment);
    Mask ink(width, height);
    Pen title(ink, SketchPaper(), {.width = 4}, 1), pen(ink, SketchPaper(), {.width = 1.7f, .dry = 0.1f}, 2);
    Write(title, "moonwaltz, all pictures", {Margin, 62}, {.size = 34}, Anchor::Left, 3);
    uint32_t seed = 10;
    for (size_t i = 0; i < entries.size(); i++) {
        const Canvas& canvas = entries[i].canvas;
        const int left = Margin + int(i) % Columns * CellWidth + (CellWidth - PictureWidth) / 2;
        const int top = HeadHeight + int(i) / Columns * CellHeight;
        const float scale =
            Min(float(PictureWidth) / float(canvas.Width()), float(PictureHeight) / float(canvas.Height()));
        const int w = std::max(1, Floor(float(canvas.Width()) * Min(scale, 1))),
                  h = std::max(1, Floor(float(canvas.Height()) * Min(scale, 1)));
        const int x = left + (PictureWidth - w) / 2, y = top + PictureHeight - h;
        if (entries[i].picture->format == Format::PngRgba)
            Checker(sheet, x, y, w, h);
        sheet.Lay(Squeezed(canvas, w, h), x, y);
        const float middle = float(left) + PictureWidth / 2.0f, line = float(top + PictureHeight);
        char size[40];
        std::snprintf(size, sizeof size, "%d × %d", canvas.Width(), canvas.Height());
        LetterStyle style{.size = 15, .spacing = 1.1f, .lively = 0.7f};
        style.narrow = Min(1, 0.98f * CellWidth / WidthOf(NameOf(*entries[i].picture), style));
        Write(pen, NameOf(*entries[i].picture), {middle, line + 22}, style, Anchor::Middle, ++seed);
        Write(pen, size, {middle, line + 42}, {.size = 11, .spacing = 1.1f, .lively = 0.7f}, Anchor::Middle,
              ++seed);
    }
    return Written(sheet, ink, entries.size(), path);
}

int DrawScenes(const std::vector<std::string>& frames, const std::string& path)
{
    constexpr int SceneColumns = 3, SceneWidth = 320, SceneHeight = 240, Gap = 18, Below = 34, Titled = 2;
    const int cells = int(frames.size()) + Titled, rows = (cells + SceneColumns - 1) / SceneColumns;
    const int width = 2 * Margin + SceneColumns * SceneWidth + (SceneColumns - 1) * Gap,
              height = 2 * Margin + rows * (SceneHeight + Below);
    Canvas sheet(width, height);
    SketchPaper().Sheet(sheet, palette::Parchment);
    Mask ink(width, height);
    Pen title(ink, SketchPaper(), {.width = 10, .skip = 0.05f}, 1),
        pen(ink, SketchPaper(), {.width = 2.2f, .dry = 0.1f}, 2);
    Write(title, "moonwaltz", {Margin + 20, 168}, {.size = 112}, Anchor::Left, 3);
    Write(pen, "one night, one waltz, thirteen effects", {Margin + 26, 226}, {.size = 25}, Anchor::Left, 4);
    uint32_t seed = 10;
    for (size_t i = 0; i < frames.size(); i++) {
        std::string bytes;
        Raster raster;
        if (!ReadFile(frames[i], bytes) || !Decode(bytes, raster)) {
            std::fprintf(stderr, "atelier: %s is no picture\n", frames[i].c_str());
            return 1;
        }
        const int cell = int(i) + Titled;
        const int left = Margin + cell % SceneColumns * (SceneWidth + Gap),
                  top = Margin + cell / SceneColumns * (SceneHeight + Below);
        sheet.Lay(Squeezed(FromRaster(raster), SceneWidth, SceneHeight), left, top);
        std::string name = frames[i].substr(frames[i].find_last_of('/') + 1);
        name = name.substr(0, name.find_last_of('.'));
        const int middle = left + SceneWidth / 2;
        Write(pen, name, {float(middle), float(top + SceneHeight + 23)},
              {.size = 17, .spacing = 1.1f, .lively = 0.7f}, Anchor::Middle, ++seed);
    }
    return Written(sheet, ink, frames.size(), path);
}

} // namespace atelier
