// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/hands/Solid.h"

// A hand by its bones: a pose bends them, and flesh lies round them.
//
// CONVENTIONS
//   The hand's own frame is that of a right hand in millimetres: the wrist is the origin, x towards the thumb, y towards
//   the fingers, z out of the palm. Angles of poses are degrees.

namespace atelier
{

// The fingers come first, from the forefinger on.
constexpr int Thumb = 4;

struct Flex {
    float spread;  // towards the thumb
    float knuckle; // towards the palm; the joints follow it
    float middle, end;
    // Bends in its knuckle, whatever that says, as far as the card lets it, which it touches from behind. The card is at
    // z = 0 where y is below 0.
    bool onCard = false;
};

struct Pose {
    bool right; // the left hand is the mirror image of the right one
    // The hand as one sees it, turned about its length, towards the viewer, and clockwise. 0: the palm.
    float turn, lean, roll;
    Flex fingers[4];
    Point3 thumb[3]; // the directions of its three bones, in the hand's frame
    Point3 nail;     // where the thumb's nail looks, as one sees it
    // What is laid where: the thumb's pad against the card at this place of the picture; `lift` raises it off the card
    // (behind it when negative).
    Vector2 pad;
    float lift;
    float size;           // pixels of a millimetre
    float girth = 1;      // thickness of the digits
    float thumbGirth = 1; // of the thumb beside the fingers
    float bony = 1;       // thickness of their joints
};

// A part of a digit as it lies in the picture.
struct Phalanx {
    Point3 a, b;                  // its joints
    Point3 along, across, palmar; // unit length; across is to the thumb's side
    float halfA, halfB;
};

struct Skeleton {
    Phalanx digits[Solid::Digits][Solid::PartsOfDigit];
    Solid flesh;
    Point3 wrist;
    Point3 toThumb, toFingers, outOfPalm; // the hand's axes, as long as a millimetre

    Point3 operator()(Point3 p) const { return wrist + toThumb * p.x + toFingers * p.y + outOfPalm * p.z; }
    // The place on the palm, or on the back of the hand, that lies over (x, y) of the hand's frame.
    Point3 OnPalm(float x, float y, bool back) const;
};

Skeleton Posed(const Pose& pose);

} // namespace atelier
