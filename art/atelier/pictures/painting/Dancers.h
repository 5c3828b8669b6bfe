// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

// The two dancers of the painting as lines, for the painting and for the way of the light over it.

namespace atelier
{

constexpr int W = 1024, H = 1024; // the picture is in the top 768 rows; below it goes on, for the filter

// Him: his back from the nape to the hem of his coat, and his front, that lies over the knee that carries her. Her:
// the line from her waist over breast and throat, and the line of her back. Her skirt: its upper border, that is the
// horizon of the fields, and its left one. Their legs down to the ankle: the one with which he pushes, the one on which
// he stands, and hers. Their arms, from the shoulder: his to the left, hers to the right, his round her, hers round his
// neck. Her hair, that is a river.
extern const std::vector<Vector2> HisBack, HisFront, HerFront, HerBack, FieldTop, FieldLeft, HisPush,
    HisStand, HerStep, HisArm, HerArm, HisHold, HerHold, Hair, HisFace, HerFace;

// From her upright profile, 100 from crown to chin, to where her head is.
std::vector<Vector2> OnHerHead(std::vector<Vector2> points);

// The line that lies a part t of the way from a to b, as a furrow between two borders.
Line Furrow(const std::vector<Vector2>& a, const std::vector<Vector2>& b, float t);

// His coat, and its hem from the back to the knee.
Shape HisCoat();
Line HisHem();
// His two legs with their shoes, and her bare foot.
Shape HisLegs();
Shape HerFoot();

// Cloth and skin, of the coat and of the fields; the ink of the contours.
constexpr LinearColour Earth = Mix(palette::Rust, palette::Ink, 0.55f);
constexpr LinearColour Clay = Mix(palette::Rust, palette::Ochre, 0.4f);
constexpr LinearColour Straw = Mix(palette::Ochre, palette::Parchment, 0.4f);
constexpr LinearColour DarkInk = Mix(palette::Ink, palette::Rust, 0.15f);

// A body: an opaque wash that is lighter towards the sun, with its pigment pooled along the edge.
void PaintFigure(Canvas& canvas, const Paper& paper, const Mask& shape, LinearColour light, LinearColour dark,
                 uint32_t seed);
// Dry furrows, light and dark, from the line a to the line b.
void DrawFurrows(Canvas& canvas, const Paper& paper, const std::vector<Vector2>& a,
                 const std::vector<Vector2>& b, int count, float width, const Mask& within,
                 LinearColour light, LinearColour dark, uint32_t seed);
// Pen lines of these widths, in pixels. The pen lifts now and then: 0 never, 1 often.
struct Contour {
    Line line;
    float width;
};
void InkContours(Canvas& canvas, const Paper& paper, const std::vector<Contour>& contours, float lifts,
                 uint32_t seed);
// Both sides of an arm that is the outline of a limb, but for its ends: `from` (0 to 0.4) is what is left out there.
void AddArm(std::vector<Contour>& contours, const Line& limb, float from, float width);

// What stands below the hems, with its shadows on the ground. His is painted ahead of his coat.
void PaintHisLegs(Canvas& canvas, const Paper& paper, LinearColour light, LinearColour dark);
void PaintHerFoot(Canvas& canvas, const Paper& paper, LinearColour light, LinearColour dark);

// The arms with which they hold each other, and their hands. The heads in detail, over the shapes of the faces.
void PaintEmbrace(Canvas& canvas, const Paper& paper);
void PaintHeads(Canvas& canvas, const Paper& paper);

// Their far hands are trees.
void DrawHandTree(Pen& pen, const std::vector<Vector2>& arm, float width, uint32_t seed);

// The order in which light travels through the painting, for its shader.
Canvas GlowMask();

} // namespace atelier
