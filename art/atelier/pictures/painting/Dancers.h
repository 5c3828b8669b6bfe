// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

// The two dancers of the painting as lines, for the painting and for the way of the light over it.

namespace atelier
{

constexpr int W = 1024, H = 1024; // the picture is in the top 768 rows; below it goes on, for the filter

// Him: his back from the nape to the tip of his coat's tail, and his front from the throat over the hem to the same tip.
// Her: the line from her lap over breast and throat, and the line of her back. Her skirt: its upper border, that is the
// horizon of the fields, and its left one. Their legs from the hip to the ankle: the one with which he pushes, the one on
// which he stands, and hers. Their arms, from the shoulder: his to the left, hers to the right, his round her, hers round
// his neck. Her hair, that is a river.
extern const std::vector<Vector2> HisBack, HisFront, HerFront, HerBack, FieldTop, FieldLeft, HisPush,
    HisStand, HerStep, HisArm, HerArm, HisHold, HerHold, Hair, HisFace, HerFace;

// From an upright profile, 100 from crown to chin, to where the head is: his looks right, hers left.
std::vector<Vector2> OnHisHead(std::vector<Vector2> points);
std::vector<Vector2> OnHerHead(std::vector<Vector2> points);

// The line that lies a part t of the way from a to b, as a furrow between two borders.
Line Furrow(const std::vector<Vector2>& a, const std::vector<Vector2>& b, float t);
// The shape between two such lines.
Shape Between(const std::vector<Vector2>& a, const std::vector<Vector2>& b);

// Cloth and skin, of the coat and of the fields; the ink of the contours.
constexpr LinearColour Earth = Mix(palette::Rust, palette::Ink, 0.55f);
constexpr LinearColour Clay = Mix(palette::Rust, palette::Ochre, 0.4f);
constexpr LinearColour Straw = Mix(palette::Ochre, palette::Parchment, 0.4f);
constexpr LinearColour DarkInk = Mix(palette::Ink, palette::Rust, 0.15f);
constexpr LinearColour HisSkin = Mix(palette::Rust, palette::Ochre, 0.5f);
constexpr LinearColour HerSkin = Mix(Mix(palette::Ochre, palette::Parchment, 0.62f), palette::Bone, 0.15f);
constexpr LinearColour Trousers = Mix(palette::Rust, palette::Ink, 0.72f);
constexpr LinearColour Coat = Mix(palette::Rust, palette::Ochre, 0.2f) * 0.8f;

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
// A limb in cloth, with the swellings and hollows of its outline.
void PaintClothed(Canvas& canvas, const std::vector<Vector2>& outline, LinearColour light, LinearColour shade,
                  uint32_t seed);
// A limb with its flesh: a round body in body colour, with its shadow and its outline. Where `open` is set it grows out of
// what is painted there: no outline, and no paint of its own, about its first point.
void PaintLimb(Canvas& canvas, const std::vector<Vector2>& way, const std::vector<float>& halves,
               LinearColour light, LinearColour shade, uint32_t seed, bool open = false);

// The outlines of his legs, from the hip over the knee to the ankle and back, and of the shoe that stands flat.
extern const std::vector<Vector2> PushingLeg, StandingLeg, StandingShoe;

// The shadow in which both stand, within a mask. His legs, and her leg. The arms that hold, with their hands, and those that are stretched out behind the bodies. The
// heads, over which no arm goes.
void PaintGroundShadow(Canvas& canvas, const Paper& paper, const Mask& within);
void PaintHisPushingLeg(Canvas& canvas, const Paper& paper);
void PaintHisStandingLeg(Canvas& canvas, const Paper& paper);
void PaintHerCalfAndFoot(Canvas& canvas);
void PaintHisFarArm(Canvas& canvas);
void PaintHerFarArm(Canvas& canvas);
void PaintHisHold(Canvas& canvas);
void PaintHerHold(Canvas& canvas);
void PaintHisHead(Canvas& canvas, const Paper& paper);
void PaintHerHead(Canvas& canvas, const Paper& paper);
// Her hair falls out of her skull and is the river.
void PaintHair(Canvas& canvas, const Paper& paper);

// Their far hands are trees.
void DrawHandTree(Pen& pen, const std::vector<Vector2>& arm, float width, uint32_t seed);

// The order in which light travels through the painting, for its shader.
Canvas GlowMask();

} // namespace atelier
