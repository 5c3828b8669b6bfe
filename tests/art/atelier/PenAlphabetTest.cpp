// SPDX-License-Identifier: MIT
#include "art/atelier/PenAlphabet.h"

#include <gtest/gtest.h>

#include <set>

using namespace atelier;

TEST(PenAlphabet, HasAllLettersDigitsPunctuationUmlautsAndEszett)
{
    for (const char32_t c :
         std::u32string(U"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789äöüÄÖÜß"
                        U".,:;!?-–—'\"“”„’()/&+=*·°×_"))
        EXPECT_TRUE(HasLetter(c)) << unsigned(c);
    EXPECT_FALSE(HasLetter(U'漢'));
}

TEST(PenAlphabet, DefinesEachLetterOnceAndInsideItsHeights)
{
    std::set<char32_t> seen;
    for (size_t i = 0; i < PenLetterCount; i++)
        EXPECT_TRUE(seen.insert(PenLetters[i].character).second) << unsigned(PenLetters[i].character);
    const LetterStyle style = {.size = 90, .slant = 0, .lively = 0}; // ten pixels to a unit
    for (const char32_t c : seen) {
        std::string text;
        if (c < 0x80)
            text = {char(c)};
        else if (c < 0x800)
            text = {char(0xC0 | c >> 6), char(0x80 | (c & 63))};
        else
            text = {char(0xE0 | c >> 12), char(0x80 | (c >> 6 & 63)), char(0x80 | (c & 63))};
        const std::vector<WrittenStroke> strokes = Writing(text, {0, 0}, style);
        EXPECT_FALSE(strokes.empty()) << text;
        for (const WrittenStroke& stroke : strokes)
            for (const Vector2& p : stroke.line) {
                EXPECT_GT(p.y, -118) << text;
                EXPECT_LT(p.y, 46) << text;
                EXPECT_GT(p.x, -15) << text;
            }
        EXPECT_GT(WidthOf(text, style), 8) << text;
    }
}

TEST(PenAlphabet, TheEszettIsNoB)
{
    // Its stem goes as far below the line as the tail of a comma, at the least; ten pixels to a unit.
    const auto lowest = [](const std::string& letter) {
        float y = -1000;
        for (const WrittenStroke& stroke : Writing(letter, {0, 0}, {.size = 90, .slant = 0, .lively = 0}))
            for (const Vector2& p : stroke.line)
                y = Max(y, p.y);
        return y;
    };
    EXPECT_GT(lowest("ß"), 15);
    EXPECT_LT(lowest("B"), 5);
}

TEST(PenAlphabet, AnchorsAtTheLeftInTheMiddleAndAtTheRight)
{
    const LetterStyle style = {.size = 50, .slant = 0, .lively = 0};
    const float width = WidthOf("waltz", style);
    const auto left = [&](Anchor anchor) {
        return Writing("waltz", {500, 100}, style, anchor).front().line.front().x;
    };
    EXPECT_NEAR(left(Anchor::Left) - width / 2, left(Anchor::Middle), 0.01f);
    EXPECT_NEAR(left(Anchor::Left) - width, left(Anchor::Right), 0.01f);
}

TEST(PenAlphabet, KernsSlantedNeighboursCloserThanUprightOnes)
{
    const auto gap = [](const std::string& pair) {
        float right = -1000, left = 1000;
        for (const WrittenStroke& stroke : Writing(pair, {0, 0}, {.size = 90, .slant = 0, .lively = 0}))
            for (const Vector2& p : stroke.line)
                (stroke.letter == 0 ? right : left) = stroke.letter == 0 ? Max(right, p.x) : Min(left, p.x);
        return left - right;
    };
    EXPECT_GT(gap("HH"), 4);
    EXPECT_LT(gap("AV"), 0);
    EXPECT_LT(gap("To"), gap("Ho"));
}

TEST(PenAlphabet, AnUnknownCharacterIsASpace)
{
    const LetterStyle style;
    EXPECT_FLOAT_EQ(WidthOf("a b", style), WidthOf("a漢b", style));
    EXPECT_TRUE(Writing("漢", {0, 0}, style).empty());
}

TEST(PenAlphabet, NoTwoLettersAreAlikeUnlessAskedFor)
{
    const auto shapes = [](float lively) {
        LetterStyle style;
        style.lively = lively;
        const std::vector<WrittenStroke> strokes = Writing("oo", {0, 0}, style);
        const Vector2 a = strokes[0].line[3] - strokes[0].line[0],
                      b = strokes[1].line[3] - strokes[1].line[0];
        return Length(a - b);
    };
    EXPECT_NEAR(0, shapes(0), 1e-3f);
    EXPECT_GT(shapes(1), 0.05f);
}

TEST(PenAlphabet, WritesWhereItIsTold)
{
    Mask sheet(300, 120);
    Pen pen(sheet, SketchPaper(), {.width = 4}, 1);
    Write(pen, "moon", {150, 80}, {.size = 60}, Anchor::Middle, 2);
    float inside = 0, above = 0;
    for (int x = 0; x < 300; x++) {
        for (int y = 40; y < 86; y++)
            inside += sheet.At(x, y);
        for (int y = 0; y < 36; y++)
            above += sheet.At(x, y);
    }
    EXPECT_GT(inside, 300);
    EXPECT_EQ(0, above);
    EXPECT_EQ(4, pen.nib.width);
}
