// SPDX-License-Identifier: MIT
#include "tools/cli/Text.h"

#include <gtest/gtest.h>

TEST(Escaped, LeavesReadableTextAsItIs)
{
    for (const char* text : {"", "a b~", "C:\\x", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x8C\x99"})
        EXPECT_EQ(text, cli::Escaped(text));
}

TEST(Escaped, ShowsWhatATerminalWouldObey)
{
    EXPECT_EQ("\\x1b[31mred\\x07", cli::Escaped("\x1B[31mred\x07"));
    EXPECT_EQ("a\\x00\\x0a\\x0d\\x09b\\x7f", cli::Escaped(std::string("a\0\n\r\tb\x7F", 7)));
    EXPECT_EQ("\\u009b", cli::Escaped("\xC2\x9B")) << "an escape sequence of one character";
    EXPECT_EQ("\\u202egpj.\\u200b\\ufeff", cli::Escaped("\xE2\x80\xAEgpj.\xE2\x80\x8B\xEF\xBB\xBF"));
}

TEST(Escaped, ShowsBytesThatAreNoText)
{
    EXPECT_EQ("Tr\\xe4umer", cli::Escaped("Tr\xE4umer"));
    EXPECT_EQ("\\xc3", cli::Escaped("\xC3")) << "cut short";
    EXPECT_EQ("\\xed\\xa0\\x80", cli::Escaped("\xED\xA0\x80")) << "half of a pair";
    EXPECT_EQ("\\xff\xC3\xA4\\xff", cli::Escaped("\xFF\xC3\xA4\xFF"));
}

TEST(Escaped, CutsBetweenCharacters)
{
    EXPECT_EQ("12345", cli::Escaped("12345", 5));
    EXPECT_EQ("12...", cli::Escaped("123456", 5));
    EXPECT_EQ("\xC3\xA4\xC3\xA4...", cli::Escaped("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 5));
    EXPECT_EQ("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4",
              cli::Escaped("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 5));
    EXPECT_EQ("\\x1b...", cli::Escaped("\x1B\x1B\x1B", 8)) << "an escape is not cut";
    EXPECT_EQ("\\x1b\\x1b", cli::Escaped("\x1B\x1B", 8));
    EXPECT_EQ("...", cli::Escaped("\x1B\x1B", 5));
    EXPECT_EQ("...", cli::Escaped("1234", 3));
}
