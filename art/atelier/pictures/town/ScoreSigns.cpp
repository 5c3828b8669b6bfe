// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/ScoreSigns.h"

namespace atelier::score
{

Vector2 StemRoot(Vector2 at, float up)
{
    return at + Vector2{-up * (HeadX - 0.9f), up * 1.4f};
}

void DrawHead(Quill& pen, Vector2 at, bool hollow)
{
    if (!hollow) {
        pen.Fill(Ellipse(at, HeadX, HeadY, HeadTilt));
        return;
    }
    pen.Width(2.2f);
    pen.Stroke(Ellipse(at, HeadX - 0.7f, HeadY - 0.6f, HeadTilt), {.start = 1, .middle = 0.75f, .end = 1});
}

void DrawRest(Quill& pen, Vector2 at)
{
    pen.Width(2.6f);
    pen.Stroke(Through({at + Vector2{-2.5f, -10}, at + Vector2{3, -4.5f}, at + Vector2{-2, 0},
                        at + Vector2{3.5f, 5.5f}}),
               {.start = 0.3f, .middle = 1, .end = 0.9f});
    pen.Stroke(Through({at + Vector2{3.5f, 5.5f}, at + Vector2{-2.5f, 4.5f}, at + Vector2{-1.5f, 10.5f}}),
               {.start = 0.9f, .middle = 0.8f, .end = 0.1f});
}

void DrawTime(Quill& pen, Vector2 middle)
{
    const auto in = [&](float x, float y) { return middle + Vector2{x, y}; };
    pen.Width(2.6f);
    pen.Stroke(Through({in(-4.5f, -12.5f), in(0, -14), in(4, -11), in(0.5f, -7.6f)}),
               {.start = 0.7f, .middle = 1, .end = 0.7f});
    pen.Stroke(Through({in(0.5f, -7.6f), in(5, -4.5f), in(0, -0.8f), in(-5, -3)}),
               {.start = 0.7f, .middle = 1, .end = 0.5f});
    pen.Stroke(Through({in(0.5f, 1), in(-2, 5.5f), in(-5.5f, 9.6f)}),
               {.start = 0.5f, .middle = 0.8f, .end = 0.6f});
    pen.Stroke(Straight({in(-5.5f, 9.6f), in(5.5f, 9.2f)}), {.start = 0.8f, .middle = 1, .end = 0.7f});
    pen.Stroke(Straight({in(2.4f, 4.6f), in(2, 13.6f)}), {.start = 0.8f, .middle = 1, .end = 0.9f});
}

void DrawLedgerLines(Quill& pen, Vector2 at, float foot)
{
    pen.Width(1.4f);
    for (float y = foot + Gap; y <= at.y + 1; y += Gap)
        pen.Stroke(Straight({{at.x - 10, y}, {at.x + 10, y}}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    for (float y = foot - 5 * Gap; y >= at.y - 1; y -= Gap)
        pen.Stroke(Straight({{at.x - 10, y}, {at.x + 10, y}}), {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
}

void DrawBeamed(Quill& pen, std::span<const Vector2> heads, float foot)
{
    float sum = 0, highest = heads[0].y, lowest = heads[0].y;
    for (const Vector2& at : heads) {
        sum += at.y;
        highest = Min(highest, at.y);
        lowest = Max(lowest, at.y);
    }
    const float up = sum / float(heads.size()) > foot - 2 * Gap ? -1.0f : 1.0f;
    const float level = up < 0 ? highest - StemLength + 3 : lowest + StemLength - 3;
    const float lean = Max(-3, Min(3, (heads.back().y - heads.front().y) / 3));
    const float from = heads.front().x, to = heads.back().x;
    const auto tipOver = [&](Vector2 at) {
        return Vector2{StemRoot(at, up).x, level + lean * ((at.x - from) / (to - from) - 0.5f)};
    };
    for (const Vector2& at : heads) {
        DrawHead(pen, at, false);
        DrawLedgerLines(pen, at, foot);
        pen.Width(StemWidth);
        pen.Stroke(Straight({StemRoot(at, up), tipOver(at)}), {.start = 1, .middle = 1, .end = 1});
    }
    const Vector2 half = {0, BeamWidth / 2}, first = tipOver(heads.front()) - Vector2{0.8f, 0},
                  last = tipOver(heads.back()) + Vector2{0.8f, 0};
    pen.Fill({first - half, last - half, last + half, first + half, first - half});
}

void DrawNote(Quill& pen, Vector2 at, float length, float foot)
{
    const bool hollow = length >= 2;
    DrawHead(pen, at, hollow);
    if (length < 3) {
        const float up = at.y > foot - 2 * Gap ? -1.0f : 1.0f;
        const Vector2 root = StemRoot(at, up), tip = root + Vector2{0.4f, up * StemLength};
        pen.Width(StemWidth);
        pen.Stroke(Straight({root, tip}), {.start = 1, .middle = 1, .end = 0.9f});
        if (length < 1) {
            pen.Width(4);
            pen.Stroke(Through({tip, tip + Vector2{6, -up * 4}, tip + Vector2{11, -up * 10},
                                tip + Vector2{10, -up * 15}}),
                       {.start = 1, .middle = 0.8f, .end = 0.1f});
        }
    }
    if (length == 1.5f || length == 3)
        pen.Dot(at + Vector2{12, -1.5f}, 2.0f);
    DrawLedgerLines(pen, at, foot);
}

void DrawSign(Quill& pen, Vector2 at, int accidental)
{
    pen.Width(2.4f);
    if (accidental < 0) {
        pen.Stroke(Through({at + Vector2{-3, -13}, at + Vector2{-3, 4}}),
                   {.start = 0.9f, .middle = 0.9f, .end = 0.8f});
        pen.Stroke(
            Through({at + Vector2{-3, -1}, at + Vector2{3, -4}, at + Vector2{3, 0}, at + Vector2{-3, 4}}),
            {.start = 0.8f, .middle = 1, .end = 0.8f});
        return;
    }
    for (const float x : {-2.2f, 2.2f})
        pen.Stroke(Straight({at + Vector2{x, -9}, at + Vector2{x, 9}}),
                   {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
    for (const float y : {-2.8f, 2.8f})
        pen.Stroke(Straight({at + Vector2{-6, y + 1}, at + Vector2{6, y - 1}}),
                   {.start = 1, .middle = 1, .end = 1});
}

void DrawTrebleClef(Quill& pen, Vector2 at)
{
    pen.Width(3.2f);
    const auto in = [&](float x, float y) { return at + Vector2{x * 1.3f, y * 0.86f}; };
    pen.Stroke(Through({in(0.5f, 2), in(-2.6f, -1), in(0, -5.5f), in(4.6f, -3), in(4.6f, 4), in(0, 7.6f),
                        in(-5.4f, 4), in(-5.6f, -5), in(0, -13), in(4.4f, -20), in(4, -28), in(1.6f, -31),
                        in(-0.6f, -25), in(0.4f, -12), in(2.2f, 8), in(1.6f, 15), in(-2, 17), in(-3.6f, 14)}),
               {.start = 0.5f, .middle = 1, .end = 0.9f});
    pen.Dot(in(-2.8f, 14), 2.2f);
}

void DrawBassClef(Quill& pen, Vector2 at)
{
    pen.Width(3.4f);
    const auto in = [&](float x, float y) { return at + Vector2{x * 1.45f, y}; };
    pen.Dot(in(-3, 0), 2.8f);
    pen.Stroke(Through({in(-3, 0), in(-2.5f, -5), in(1.5f, -7), in(5, -3), in(4, 8), in(-4, 18)}),
               {.start = 0.8f, .middle = 1, .end = 0.1f});
    pen.Dot(in(8, -3.5f), 1.7f);
    pen.Dot(in(8, 3.5f), 1.7f);
}

void DrawSlur(Quill& pen, Vector2 from, Vector2 to, float side)
{
    pen.Width(2.2f);
    const Vector2 lift = {0, side * 7};
    const float depth = Min(9, 3 + Length(to - from) * 0.08f);
    pen.Stroke(Through({from + lift, Mix(from, to, 0.5f) + lift + Vector2{0, side * depth}, to + lift}),
               {.start = 0.1f, .middle = 1, .end = 0.1f});
}

} // namespace atelier::score
