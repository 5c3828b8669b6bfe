// SPDX-License-Identifier: MIT
// The program's icon: the moon behind a dead tree. Painted for the large sizes, painted again with a bigger moon and a
// coarser tree for those at which the eye counts pixels, and drawn as SVG with the same outlines.
#include "art/atelier/Outline.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"
#include "platform/ShowColours.h"

#include <cstdio>

namespace atelier
{

constexpr int Side = 1024; // in which it is painted

struct Design {
    Vector2 moon;
    float radius;
    Vector2 foot; // of the tree
    DeadTree tree;
    float nib;  // width of the pen for the tree, pixels
    bool small; // no firs at the horizon
};

static const Design Large = {
    .moon = {560, 440},
    .radius = 300,
    .foot = {262, 880},
    .tree = {.height = 760, .trunk = 46, .lean = 0.14f, .rise = 0.05f, .generations = 4, .density = 0.9f},
    .nib = 7,
    .small = false,
};
static const Design Small = {
    .moon = {560, 430},
    .radius = 360,
    .foot = {300, 930},
    .tree = {.height = 800,
             .trunk = 96,
             .lean = 0.2f,
             .rise = 0,
             .spread = 0.9f,
             .generations = 3,
             .density = 0.6f},
    .nib = 30,
    .small = true,
};

// The plate with its round corners, on which everything lies.
static Shape Plate()
{
    constexpr float Left = 24, Right = Side - 24, Corner = 200;
    Line line;
    const auto corner = [&](Vector2 centre, float from) {
        for (const Vector2 point : Arc(centre, Corner, Corner, from, from + Pi / 2))
            line.push_back(point);
    };
    corner({Left + Corner, Left + Corner}, Pi);
    corner({Right - Corner, Left + Corner}, 1.5f * Pi);
    corner({Right - Corner, Right - Corner}, 0);
    corner({Left + Corner, Right - Corner}, Pi / 2);
    return line;
}

// Tree, firs and the bank that they stand on.
static Mask Silhouette(const Design& design)
{
    Mask ink(Side, Side);
    Pen pen(ink, SketchPaper(), {.width = design.nib, .wobble = 1, .skip = 0, .dry = 0}, 71);
    DrawDeadTree(pen, design.foot, design.tree, 74);
    if (!design.small)
        for (const Vector2 fir : {Vector2{640, 190}, Vector2{716, 290}, Vector2{800, 220}, Vector2{884, 330}})
            DrawDeadFir(pen, {fir.x, 890},
                        {.height = fir.y, .trunk = 15, .reach = fir.y * 0.26f, .bare = 0.15f, .beard = 0.3f},
                        uint32_t(fir.x));
    const Noise hills(72);
    Line bank;
    for (float x = -8; x <= Side + 8; x += 4)
        bank.push_back({x, 846 + 22 * hills.Fbm(x / 300, 0.5f, 3) + 40 * Smooth(300, Side, x)});
    bank.push_back({Side + 8, Side + 8});
    bank.push_back({-8, Side + 8});
    return ink.Fill(bank);
}

static Mask Disc(const Design& design)
{
    return Filled(Side, Side, Ellipse(design.moon, design.radius, design.radius));
}

// The dark plains of the moon.
static Mask Seas(const Design& design)
{
    const Noise noise(34);
    const float size = design.radius * 0.85f;
    return Mask(Side, Side).Each([&](float x, float y) {
        const Vector2 p = noise.Warp((x - design.moon.x) / size, (y - design.moon.y) / size, 0.5f);
        return Smooth(0.02f, 0.12f, noise.Fbm(p.x, p.y, 4));
    });
}

static Canvas Painted(const Design& design)
{
    const Paper& paper = SketchPaper();
    Canvas canvas(Side, Side);
    paper.Sheet(canvas, palette::Bone, 1.2f);
    const WashStyle sky = {.pool = 0, .granulation = 0.25f, .bloom = 0.6f, .bloomSize = 260, .stray = 0};
    const Mask night = Mask(Side, Side).Each([&](float x, float y) {
        const float halo = Bell(Length(Vector2{x, y} - design.moon) / (2 * design.radius));
        return Mix(1, 0.6f, Smooth(0, Side, y)) * (1 - 0.5f * halo);
    });
    canvas.Glaze(WashDensity(paper, night, sky, 31), palette::Slate, 1.6f);
    canvas.Glaze(WashDensity(paper, night, sky, 32), palette::Slate, 0.8f);

    const Mask disc = Disc(design);
    canvas.Light(disc.Blurred(110), palette::Amber, 0.3f);
    Canvas face(Side, Side);
    paper.Sheet(face, palette::Bone, 1);
    face.Glaze(Seas(design), palette::Mist, 0.42f);
    const Mask limb = Mask(Side, Side).Each([&](float x, float y) {
        return Smooth(0.55f, 1.02f, Length(Vector2{x, y} - design.moon) / design.radius);
    });
    face.Glaze(limb, palette::Ochre, 0.5f);
    canvas.Lay(face.CutOut(disc), 0, 0);

    canvas.Cover(Silhouette(design), palette::Ink);
    paper.Show(canvas, 0.3f);
    canvas.CutOut(Filled(Side, Side, Plate()));
    return canvas;
}

static Canvas LargeIcon(int size)
{
    return Squeezed(Painted(Large), size, size);
}

static Canvas SmallIcon(int size)
{
    return Squeezed(Painted(Small), size, size);
}

static std::string Hex(uint32_t colour)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", unsigned(colour));
    return text;
}

// As large as the largest PNG, in its coordinates. The moon's seas are cut by its disc, the silhouette by the plate.
static std::string Drawn()
{
    constexpr float Scale = 0.5f;
    const Design& design = Large;
    const Mask plate = Filled(Side, Side, Plate());
    const auto path = [&](const Mask& mask) { return PathData(Traced(mask, 0.5f, 0.7f, 24), Scale); };
    char moon[80];
    std::snprintf(moon, sizeof moon, "cx=\"%.0f\" cy=\"%.0f\" r=\"%.0f\"", double(design.moon.x * Scale),
                  double(design.moon.y * Scale), double(design.radius * Scale));
    const auto stop = [](const char* offset, uint32_t colour, const char* opacity) {
        return std::string("<stop offset=\"") + offset + "\" stop-color=\"" + Hex(colour) +
               "\" stop-opacity=\"" + opacity + "\"/>";
    };
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"512\" height=\"512\" viewBox=\"0 0 512 512\">\n"
           "<title>moonwaltz</title>\n<defs>\n"
           "<linearGradient id=\"sky\" x2=\"0\" y2=\"1\">" +
           stop("0", showcolours::Night, "1") + stop("0.85", showcolours::Slate, "1") +
           "</linearGradient>\n<radialGradient id=\"halo\">" + stop("0.5", showcolours::Amber, "0.55") +
           stop("1", showcolours::Amber, "0") + "</radialGradient>\n<radialGradient id=\"limb\">" +
           stop("0.55", showcolours::Bone, "1") + stop("1", showcolours::Amber, "1") +
           "</radialGradient>\n<clipPath id=\"plate\"><path d=\"" + path(plate) +
           "\"/></clipPath>\n</defs>\n<g clip-path=\"url(#plate)\">\n"
           "<rect width=\"512\" height=\"512\" fill=\"url(#sky)\"/>\n"
           "<circle cx=\"280\" cy=\"220\" r=\"300\" fill=\"url(#halo)\"/>\n"
           "<circle " +
           moon + " fill=\"url(#limb)\"/>\n<path fill=\"" + Hex(showcolours::Mist) +
           "\" fill-opacity=\"0.5\" fill-rule=\"evenodd\" d=\"" + path(Seas(design).Multiply(Disc(design))) +
           "\"/>\n<path fill=\"" + Hex(showcolours::Ink) + "\" fill-rule=\"evenodd\" d=\"" +
           path(Silhouette(design)) + "\"/>\n</g>\n</svg>\n";
}

// clang-format off
PictureGroup IconPictures()
{
    return {"Icon", {
        {"desktop/icons/moonwaltz-512.png", 512, 512, Format::PngRgba, [] { return LargeIcon(512); }},
        {"desktop/icons/moonwaltz-256.png", 256, 256, Format::PngRgba, [] { return LargeIcon(256); }},
        {"desktop/icons/moonwaltz-128.png", 128, 128, Format::PngRgba, [] { return LargeIcon(128); }},
        {"desktop/icons/moonwaltz-64.png",   64,  64, Format::PngRgba, [] { return LargeIcon(64); }},
        {"desktop/icons/moonwaltz-48.png",   48,  48, Format::PngRgba, [] { return SmallIcon(48); }},
        {"desktop/icons/moonwaltz-32.png",   32,  32, Format::PngRgba, [] { return SmallIcon(32); }},
        {"desktop/icons/moonwaltz-24.png",   24,  24, Format::PngRgba, [] { return SmallIcon(24); }},
        {"desktop/icons/moonwaltz-22.png",   22,  22, Format::PngRgba, [] { return SmallIcon(22); }},
        {"desktop/icons/moonwaltz-16.png",   16,  16, Format::PngRgba, [] { return SmallIcon(16); }},
        {"desktop/icons/moonwaltz.svg",     512, 512, Format::Svg,     nullptr, Drawn},
    }};
}
// clang-format on

} // namespace atelier
