// SPDX-License-Identifier: MIT
#include "tools/cli/Terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

// The far end of a pseudo terminal, which is a terminal to whoever writes on it.
class Colours : public testing::Test
{
protected:
    Colours() : near(posix_openpt(O_RDWR | O_NOCTTY)), terminal(nullptr)
    {
        if (near >= 0 && grantpt(near) == 0 && unlockpt(near) == 0)
            terminal = fopen(ptsname(near), "w");
        unsetenv("NO_COLOR");
        setenv("TERM", "xterm", 1);
    }
    ~Colours() override
    {
        if (terminal)
            fclose(terminal);
        close(near);
    }

    int near;
    FILE* terminal;
};

TEST_F(Colours, AreForTerminals)
{
    ASSERT_NE(nullptr, terminal);
    EXPECT_TRUE(cli::TakesColours(terminal));
    FILE* const file = tmpfile();
    EXPECT_FALSE(cli::TakesColours(file));
    fclose(file);
}

TEST_F(Colours, AreLeftOutWhereNobodyWantsThem)
{
    ASSERT_NE(nullptr, terminal);
    setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(cli::TakesColours(terminal));
    setenv("NO_COLOR", "", 1);
    EXPECT_TRUE(cli::TakesColours(terminal)) << "set to nothing is not set";
}

TEST_F(Colours, AreLeftOutWhereNobodyCanShowThem)
{
    ASSERT_NE(nullptr, terminal);
    setenv("TERM", "dumb", 1);
    EXPECT_FALSE(cli::TakesColours(terminal));
    unsetenv("TERM");
    EXPECT_FALSE(cli::TakesColours(terminal));
}

TEST(Paint, PutsEscapesRoundATextWhereColoursAreTaken)
{
    EXPECT_EQ("\033[1;31merror\033[0m", cli::Paint("error", cli::Red, true));
    EXPECT_EQ("\033[1;33mwarning\033[0m", cli::Paint("warning", cli::Yellow, true));
    EXPECT_EQ("\033[1;32mclean\033[0m", cli::Paint("clean", cli::Green, true));
    EXPECT_EQ("\033[1;34mnote\033[0m", cli::Paint("note", cli::Blue, true));
    EXPECT_EQ("\033[1mfile\033[0m", cli::Paint("file", cli::Bold, true));
    EXPECT_EQ("\033[2mcode\033[0m", cli::Paint("code", cli::Dim, true));
    EXPECT_EQ("plain", cli::Paint("plain", cli::Plain, true));
    EXPECT_EQ("error", cli::Paint("error", cli::Red, false));
}
