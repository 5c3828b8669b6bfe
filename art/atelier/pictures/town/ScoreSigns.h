// SPDX-License-Identifier: MIT
// The signs of the score: what is drawn on a staff, one by one. Places are those of the coarse sheet of ScoreStrip.cpp, y
// down.
#pragma once

#include "art/atelier/Pen.h"

#include <span>

namespace atelier::score
{

// One reads the strip from as near as a page in the hand, so it is painted four times as fine as places say.
constexpr float Fine = 4;
constexpr float Gap = 7; // from line to line of a staff
// It is seen from one end, along the staves, so that everything on it is drawn wide along them, as signs on a road are;
// heads are tilted, so that they stay heads where one stands over them.
constexpr float HeadX = 5.4f, HeadY = 3.1f, HeadTilt = -0.42f;
constexpr float StemWidth = 1.8f, StemLength = 21, BeamWidth = 4.4f;

// A pen that takes the places of the coarse sheet.
class Quill
{
public:
    Quill(Mask& sheet, const Paper& paper, Nib nib, uint32_t seed)
        : pen(sheet, paper, Fined(nib), seed), ink(sheet)
    {
    }
    void Width(float width) { pen.nib.width = width * Fine; }
    void Stroke(const Line& line, Press press) { pen.Stroke(Scaled(line, Fine), press); }
    void Dot(Vector2 at, float radius) { pen.Dot(at * Fine, radius * Fine); }
    void Fill(const Line& outline) { ink.Fill(Scaled(outline, Fine)); }

private:
    static Nib Fined(Nib nib)
    {
        nib.width *= Fine;
        nib.wobble *= Fine;
        nib.wave *= Fine;
        return nib;
    }

    Pen pen;
    Mask& ink;
};

// Where a stem leaves its head; `up` is -1 for a stem that goes up, on the right, and 1 for one that goes down.
Vector2 StemRoot(Vector2 at, float up);
void DrawHead(Quill& pen, Vector2 at, bool hollow);

// A rest of a quarter, about the staff's middle line.
void DrawRest(Quill& pen, Vector2 at);

// Three over four, between the lines of a staff.
void DrawTime(Quill& pen, Vector2 middle);

// For a head beyond the staff whose lowest line lies at `foot`.
void DrawLedgerLines(Quill& pen, Vector2 at, float foot);

// Quavers under one beam, which leans as far as its first and its last note do, but not much.
void DrawBeamed(Quill& pen, std::span<const Vector2> heads, float foot);

// `length` in beats.
void DrawNote(Quill& pen, Vector2 at, float length, float foot);

// -1: flat, otherwise sharp.
void DrawSign(Quill& pen, Vector2 at, int accidental);

// At the line of G, and at the line of F.
void DrawTrebleClef(Quill& pen, Vector2 at);
void DrawBassClef(Quill& pen, Vector2 at);

// From note to note of a bar, above or below their heads.
void DrawSlur(Quill& pen, Vector2 from, Vector2 to, float side);

} // namespace atelier::score
