// SPDX-License-Identifier: MIT
#include "platform/dialogs/TextFlow.h"

#include <gtest/gtest.h>

#include <algorithm>

typedef std::vector<std::string> Lines;

// Every character is one wide, however many bytes it has.
static double CountCharacters(const char* text, int length)
{
    int characters = 0;
    for (int i = 0; i < length; ++i)
        if ((text[i] & 0xC0) != 0x80)
            ++characters;
    return characters;
}

static Lines Flow(const std::string& text, double width)
{
    return platform::FlowText(text, width, CountCharacters);
}

TEST(TextFlow, AnEmptyTextIsOneEmptyLine)
{
    EXPECT_EQ(Lines{""}, Flow("", 10));
}

TEST(TextFlow, ATextThatFitsIsOneLine)
{
    EXPECT_EQ(Lines{"ten wide.."}, Flow("ten wide..", 10));
}

TEST(TextFlow, BreaksAtTheLastBlankThatFits)
{
    EXPECT_EQ((Lines{"the moon", "over the", "wood"}), Flow("the moon over the wood", 9));
    EXPECT_EQ((Lines{"the moon", "over the", "wood"}), Flow("the moon over the wood", 8));
    EXPECT_EQ((Lines{"the", "moon", "over", "the", "wood"}), Flow("the moon over the wood", 7));
}

TEST(TextFlow, BlanksAtABreakBelongToNeitherLine)
{
    EXPECT_EQ((Lines{"one", "two"}), Flow("one      two", 5));
    EXPECT_EQ((Lines{"one", "two"}), Flow("one two      ", 5));
    EXPECT_EQ((Lines{"one"}), Flow("one      ", 5));
    EXPECT_EQ((Lines{"one  two"}), Flow("one  two", 8));
}

TEST(TextFlow, BlanksInFrontOfALineStay)
{
    EXPECT_EQ((Lines{"  indented", "here"}), Flow("  indented here", 11));
    EXPECT_EQ((Lines{"a", "  b"}), Flow("a\n  b", 11));
    EXPECT_EQ((Lines{"  inde", "nted"}), Flow("  indented", 6));
}

TEST(TextFlow, ALineOfBlanksIsAnEmptyLine)
{
    EXPECT_EQ((Lines{"a", "", "b"}), Flow("a\n          \nb", 5));
}

TEST(TextFlow, KeepsLineEndsAndEmptyLines)
{
    EXPECT_EQ((Lines{"a", "", "b", ""}), Flow("a\n\nb\n", 5));
}

TEST(TextFlow, AWordThatIsTooWideBreaksBetweenCharacters)
{
    EXPECT_EQ((Lines{"abcde", "fghij", "k"}), Flow("abcdefghijk", 5));
    EXPECT_EQ((Lines{"so", "abcde", "fgh i"}), Flow("so abcdefgh i", 5));
    const std::string wide(1000, 'x');
    const Lines lines = Flow(wide, 300);
    ASSERT_EQ(4u, lines.size());
    EXPECT_EQ(300u, lines[0].size());
    EXPECT_EQ(100u, lines[3].size());
}

TEST(TextFlow, ALongPathBreaksBehindASlashIfTheLineIsHalfFullByThen)
{
    EXPECT_EQ((Lines{"/usr/share/", "moonwaltz/"}), Flow("/usr/share/moonwaltz/", 12));
    EXPECT_EQ((Lines{"abcd/", "efghijk"}), Flow("abcd/efghijk", 10));
    EXPECT_EQ((Lines{"abc/efghij", "k"}), Flow("abc/efghijk", 10));
    for (char joint : std::string("/\\,;:=-"))
        EXPECT_EQ((Lines{std::string("abcdef") + joint, "ghijk"}),
                  Flow(std::string("abcdef") + joint + "ghijk", 10));
    EXPECT_EQ((Lines{"abcdefghij", "/k"}), Flow("abcdefghij/k", 10));
}

TEST(TextFlow, NeverBreaksInsideACharacter)
{
    const std::string umlaut = "\xC3\xBC", moon = "\xF0\x9F\x8C\x95";
    EXPECT_EQ((Lines{umlaut + umlaut, umlaut}), Flow(umlaut + umlaut + umlaut, 2));
    EXPECT_EQ((Lines{moon, moon, moon}), Flow(moon + moon + moon, 1));
    std::string many, line;
    for (int i = 0; i < 40; ++i)
        many += i % 2 ? moon : umlaut;
    for (int i = 0; i < 13; ++i)
        line += i % 2 ? moon : umlaut;
    EXPECT_EQ(line, Flow(many, 13)[0]);
}

TEST(TextFlow, EachLineHoldsACharacterHoweverNarrow)
{
    EXPECT_EQ((Lines{"a", "b"}), Flow("ab", 0));
    EXPECT_EQ((Lines{"\xC3\xBC", "b"}), Flow("\xC3\xBC"
                                             "b",
                                             0.5));
}

TEST(TextFlow, NoLineIsEverWiderThanTheWidth)
{
    unsigned state = 1;
    const auto random = [&state](unsigned n) { return (state = state * 214013 + 2531011) / 65536 % n; };
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (unsigned length = random(200); length > 0; --length)
            text += std::vector<std::string>{"a", "b", " ", "/", "\n", "\xC3\xBC", "\xE2\x82\xAC"}[random(7)];
        const int width = 1 + int(random(30));
        std::string ink, shownInk;
        for (const std::string& line : Flow(text, width)) {
            EXPECT_LE(CountCharacters(line.data(), int(line.size())), width) << text;
            shownInk += line;
        }
        for (char character : text)
            if (character != ' ' && character != '\n')
                ink += character;
        shownInk.erase(std::remove(shownInk.begin(), shownInk.end(), ' '), shownInk.end());
        EXPECT_EQ(ink, shownInk);
    }
}

TEST(ShowableText, LineEndsOfAllKindsBecomeOne)
{
    EXPECT_EQ("a\nb\nc\nd\n\ne", platform::ShowableText("a\r\nb\nc\rd\r\n\r\ne"));
    EXPECT_EQ("a\n\nb", platform::ShowableText("a\n\rb"));
}

TEST(ShowableText, TabsReachTheNextFourthColumn)
{
    EXPECT_EQ("    a", platform::ShowableText("\ta"));
    EXPECT_EQ("a   b", platform::ShowableText("a\tb"));
    EXPECT_EQ("abc d", platform::ShowableText("abc\td"));
    EXPECT_EQ("abcd    e", platform::ShowableText("abcd\te"));
    EXPECT_EQ("ab\n    c", platform::ShowableText("ab\n\tc"));
    EXPECT_EQ("\xC3\xBC   b", platform::ShowableText("\xC3\xBC\tb"));
    EXPECT_EQ("        a", platform::ShowableText("\t\ta"));
}

TEST(ShowableText, LeavesUtf8AsItIs)
{
    for (const char* text : {"plain ~!", "\xC2\xA0", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                             "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(text, platform::ShowableText(text));
}

TEST(ShowableText, OtherBytesAreLatin1)
{
    EXPECT_EQ("Tr\xC3\xA4umer", platform::ShowableText("Tr\xE4umer"));
    EXPECT_EQ("\xC2\xA0", platform::ShowableText("\xA0"));
    EXPECT_EQ("\xC3\xBF", platform::ShowableText("\xFF"));
    EXPECT_EQ("\xC3\x83 ", platform::ShowableText("\xC3 "));           // cut short
    EXPECT_EQ("\xC3\xA2", platform::ShowableText("\xE2"));             // at the end
    EXPECT_EQ("\xC3\x81\xC2\xBF", platform::ShowableText("\xC1\xBF")); // overlong
}

TEST(ShowableText, ControlCharactersAndBrokenBytesAreSeen)
{
    const std::string seen = "\xEF\xBF\xBD";
    for (const char* text : {"\x01", "\x1B", "\x7F", "\x80", "\x9F", "\xC2\x80", "\xC2\x9F"})
        EXPECT_EQ(seen, platform::ShowableText(text));
    EXPECT_EQ("a" + seen + "b", platform::ShowableText(std::string("a\0b", 3)));
    // Halves of a surrogate pair, beyond the last character, and two overlong forms
    const std::string a = "\xC3\xAD\xC2\xA0" + seen, b = "\xC3\xB4" + seen + seen + seen;
    EXPECT_EQ(a, platform::ShowableText("\xED\xA0\x80"));
    EXPECT_EQ(b, platform::ShowableText("\xF4\x90\x80\x80"));
    EXPECT_EQ("\xC3\xB5" + seen + seen + seen, platform::ShowableText("\xF5\x80\x80\x80"));
    EXPECT_EQ("\xC3\xA0" + seen + seen, platform::ShowableText("\xE0\x9F\x80"));
    EXPECT_EQ("\xC3\xB0" + seen + seen + seen, platform::ShowableText("\xF0\x8F\x80\x80"));
}

TEST(ShowableText, IsCutWhereNobodyReadsOn)
{
    EXPECT_EQ(50000u, platform::LongestShownText);
    const std::string all(50000, 'x');
    EXPECT_EQ(all, platform::ShowableText(all));
    EXPECT_EQ(all + "\xE2\x80\xA6", platform::ShowableText(all + "y"));
}

TEST(ShowableText, ALineHasNoLineEnds)
{
    EXPECT_EQ("a b c", platform::ShowableLine("a\r\nb\nc"));
}
