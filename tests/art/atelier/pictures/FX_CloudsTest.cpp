// SPDX-License-Identifier: MIT
// The pictures of the clouds and the greetings.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

TEST(FX_CloudsPictures, CloudsStayThin)
{
    for (const char* name : {"cloud_5.png", "cloud_6.png"}) {
        const Raster cloud = LoadPicture(name);
        ASSERT_EQ(4, cloud.channels) << name;
        int largest = 0;
        for (int y = 0; y < 512; y++)
            for (int x = 0; x < 512; x++)
                largest = std::max(largest, At(cloud, x, y, 3));
        EXPECT_LT(largest, 0.35 * 255) << name;
    }
}

TEST(FX_CloudsPictures, TheCardsLieBeforeTheHandsWhereTheShowLaysTheirFaces)
{
    // The effect's figures, in halves of the hand's picture, y up; the angle in degrees, clockwise.
    const double centreX = 0.386699, centreY = 0.787674, half = 0.26, turn = 11.729964 * 3.14159265 / 180;
    const struct {
        const char *hand, *face;
        double sky; // v down to which there is nothing on the left of the card
        bool thumb; // holds the card
    } pairs[] = {{"greetings_01.png", "greetings_02.png", 0.6, false},
                 {"greetings_03.png", "greetings_04.png", 0.25, true},
                 {"greetings_05.png", "greetings_06.png", 0.2, true},
                 {"greetings_07.png", "greetings_08.png", 0.6, false},
                 {"greetings_09.png", "greetings_11.png", -0.1, false},
                 {"greetings_12.png", "greetings_13.png", 0.6, true}};
    // The show fades the hand and not the face: what lies on the card belongs to the hand's picture, and the face is open
    // there; a thumb that was on both would be cut in two. Ink is darker than paper, and shadows are on both pictures.
    const int darkestPaper = 150;
    for (const auto& pair : pairs) {
        const Raster hand = LoadPicture(pair.hand), face = LoadPicture(pair.face);
        ASSERT_EQ(4, hand.channels);
        ASSERT_EQ(4, face.channels);
        // u and v: -1 to 1 over the face, y down.
        const auto place = [&](double u, double v, int& x, int& y) {
            const double dx = half * (u * std::cos(turn) - v * std::sin(turn)),
                         dy = half * (u * std::sin(turn) + v * std::cos(turn));
            x = int(std::floor((1 + centreX + dx) * hand.width / 2));
            y = int(std::floor((1 - centreY + dy) * hand.height / 2));
            return x >= 0 && x < hand.width && y >= 0 && y < hand.height;
        };
        const auto opacity = [&](double u, double v) {
            return At(face, int((u + 1) * face.width / 2), int((v + 1) * face.height / 2), 3);
        };
        // Whether a place lies on the thumb, or so near that its outline and its shadow may be there.
        const auto nearThumb = [&](double u, double v) {
            for (double dv = -0.16; dv < 0.05; dv += 0.02)
                for (double du = -0.16; du < 0.05; du += 0.02)
                    if (std::abs(u + du) < 0.97 && std::abs(v + dv) < 0.97 && opacity(u + du, v + dv) < 255)
                        return true;
            return false;
        };
        int open = 0, ink = 0;
        for (double v = -0.95; v < 1; v += 0.05)
            for (double u = -0.95; u < 1; u += 0.05) {
                int x, y;
                if (!place(u, v, x, y))
                    continue;
                EXPECT_EQ(255, At(hand, x, y, 3)) << pair.hand << ' ' << u << ' ' << v;
                if (!nearThumb(u, v)) {
                    EXPECT_GT(At(hand, x, y, 0), darkestPaper) << pair.hand << ' ' << u << ' ' << v;
                }
                open += opacity(u, v) == 0 ? 1 : 0;
            }
        // What is open has the thumb's outline round it, which is in the hand's picture.
        for (double v = -0.95; v < 0.97; v += 0.005)
            for (double u = -0.95; u < 0.97; u += 0.005) {
                int x, y;
                if (opacity(u, v) == 0 && place(u, v, x, y) && At(hand, x, y, 0) < 60)
                    ink++;
            }
        if (pair.thumb) {
            EXPECT_GT(open, 8) << pair.face;
            EXPECT_LT(open, 120) << pair.face;
            EXPECT_GT(ink, 50) << pair.hand;
        } else {
            EXPECT_EQ(0, open) << pair.face;
        }
        // Beside it there is sky on the left, and its face ends as the card does.
        for (double v = -0.4; v < pair.sky; v += 0.05) {
            int x, y;
            if (place(-1.08, v, x, y)) {
                EXPECT_EQ(0, At(hand, x, y, 3)) << pair.hand << ' ' << v;
            }
        }
        // Between its frame and its lower edge the face is bare paper as well.
        for (double u = -0.9; u < 0.9; u += 0.01) {
            if (!nearThumb(u, 0.965)) {
                EXPECT_GT(At(face, int((u + 1) * 256), int(1.965 * 256), 0), darkestPaper)
                    << pair.face << ' ' << u;
            }
        }
    }
}
