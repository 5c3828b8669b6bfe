// SPDX-License-Identifier: MIT
#include "tools/cli/CommandLine.h"

#include <gtest/gtest.h>

static const std::vector<cli::Option> table = {
    {"data", 0, "DIR", "Look in DIR."},
    {"output", 'o', "FILE", "Write to FILE instead of to standard output, which is what happens without it."},
    {"a-very-long-option-name", 'l', "VALUE", "Stands on two lines."},
    {"json", 0, nullptr, "Write JSON."},
};

// A command line that is read, and what it said.
class Spoken
{
public:
    Spoken(const char* operands, std::vector<const char*> words)
        : line("prog", "Does things.", operands, table)
    {
        words.insert(words.begin(), "prog");
        FILE* const out = tmpfile();
        err = tmpfile();
        readable = line.Read(int(words.size()), words.data(), out, err);
        output = ReadBack(out);
    }
    ~Spoken() { fclose(err); }

    std::string Errors() { return ReadBack(err, false); }

    cli::CommandLine line;
    FILE* err;
    bool readable;
    std::string output;

private:
    static std::string ReadBack(FILE* file, bool close = true)
    {
        char text[4096];
        rewind(file);
        const size_t length = fread(text, 1, sizeof text, file);
        if (close)
            fclose(file);
        return std::string(text, length);
    }
};

TEST(CommandLine, TakesOptionsInAllTheirForms)
{
    Spoken spoken("FILE", {"--data", "a", "-ob", "--json", "file"});
    ASSERT_TRUE(spoken.readable);
    EXPECT_EQ("a", spoken.line.Value("data"));
    EXPECT_EQ("b", spoken.line.Value("output"));
    EXPECT_TRUE(spoken.line.Has("json"));
    EXPECT_EQ(std::vector<std::string>{"file"}, spoken.line.operands);
    EXPECT_EQ("", spoken.Errors());

    Spoken other("FILE", {"file", "--data=a=b", "-o", "--json"});
    ASSERT_TRUE(other.readable);
    EXPECT_EQ("a=b", other.line.Value("data"));
    EXPECT_EQ("--json", other.line.Value("output")) << "an option's value is whatever follows";
    EXPECT_FALSE(other.line.Has("json"));
}

TEST(CommandLine, CountsTheLastOfARepeatedOption)
{
    Spoken spoken("", {"--data=a", "--data=b", "--data="});
    ASSERT_TRUE(spoken.readable);
    EXPECT_TRUE(spoken.line.Has("data"));
    EXPECT_EQ("", spoken.line.Value("data", "otherwise"));
    EXPECT_EQ("otherwise", spoken.line.Value("output", "otherwise"));
}

TEST(CommandLine, TakesADashAndWhatFollowsTwoDashesForOperands)
{
    Spoken spoken("FILE...", {"-", "--", "--json", "--"});
    ASSERT_TRUE(spoken.readable);
    EXPECT_EQ((std::vector<std::string>{"-", "--json", "--"}), spoken.line.operands);
    EXPECT_FALSE(spoken.line.Has("json"));
}

TEST(CommandLine, RefusesWhatItDoesNotKnowInOneLine)
{
    const struct {
        std::vector<const char*> words;
        const char* complaint;
    } cases[] = {
        {{"--nothing"}, "prog: unknown option --nothing (--help lists what there is)\n"},
        {{"--nothing=1"}, "prog: unknown option --nothing (--help lists what there is)\n"},
        {{"-x"}, "prog: unknown option -x (--help lists what there is)\n"},
        {{"-xyz"}, "prog: unknown option -x (--help lists what there is)\n"},
        {{"--datum"}, "prog: unknown option --datum (--help lists what there is)\n"},
        {{"-\xFC"}, "prog: unknown option -\xFC (--help lists what there is)\n"},
        {{"---"}, "prog: unknown option --- (--help lists what there is)\n"},
        {{"--json=1"}, "prog: option --json takes no value\n"},
        {{"--data"}, "prog: option --data needs a value, DIR\n"},
        {{"-o"}, "prog: option -o needs a value, FILE\n"},
        {{"--js=1"}, "prog: option --json takes no value\n"},
        {{"--out"}, "prog: option --output needs a value, FILE\n"},
        {{"file", "other"}, "prog: \"other\" is one operand too many\n"},
        {{}, "prog: a FILE is missing (--help tells more)\n"},
    };
    for (const auto& each : cases) {
        Spoken spoken("FILE", each.words);
        EXPECT_FALSE(spoken.readable);
        EXPECT_EQ(2, spoken.line.exitStatus);
        EXPECT_EQ("", spoken.output);
        EXPECT_EQ(each.complaint, spoken.Errors());
    }
}

TEST(CommandLine, TakesALongOptionShortenedAsFarAsItStaysUnique)
{
    Spoken spoken("", {"--js", "--dat=a"});
    ASSERT_TRUE(spoken.readable);
    EXPECT_TRUE(spoken.line.Has("json"));
    EXPECT_EQ("a", spoken.line.Value("data"));

    const std::vector<cli::Option> alike = {{"tiles", 0, "N", "A."}, {"tile-width", 0, "N", "B."}};
    cli::CommandLine line("prog", "Does things.", "", alike);
    const char* const words[] = {"prog", "--tile=3"};
    FILE* const err = tmpfile();
    EXPECT_FALSE(line.Read(2, words, stdout, err));
    char text[200] = "";
    rewind(err);
    EXPECT_NE(nullptr, fgets(text, sizeof text, err));
    fclose(err);
    EXPECT_STREQ("prog: option --tile can be short for --tiles, --tile-width\n", text);
    EXPECT_EQ(2, line.exitStatus);
}

TEST(CommandLine, TakesShortOptionsInOneWord)
{
    const std::vector<cli::Option> letters = {
        {"quiet", 'q', nullptr, "A."}, {"long", 'l', nullptr, "B."}, {"output", 'o', "FILE", "C."}};
    cli::CommandLine line("prog", "Does things.", "FILE", letters);
    const char* const words[] = {"prog", "-qlofile", "operand"};
    ASSERT_TRUE(line.Read(3, words));
    EXPECT_TRUE(line.Has("quiet"));
    EXPECT_TRUE(line.Has("long"));
    EXPECT_EQ("file", line.Value("output"));
    EXPECT_EQ(std::vector<std::string>{"operand"}, line.operands);
}

TEST(CommandLine, TellsIfItsHelpCouldNotBeWritten)
{
    for (const char* word : {"--help", "--version"}) {
        cli::CommandLine line("prog", "Does things.", "", table);
        FILE* const full = fopen("/dev/full", "w");
        FILE* const err = tmpfile();
        const char* const words[] = {"prog", word};
        EXPECT_FALSE(line.Read(2, words, full, err));
        EXPECT_EQ(2, line.exitStatus);
        char text[200] = "";
        rewind(err);
        EXPECT_NE(nullptr, fgets(text, sizeof text, err));
        EXPECT_STREQ("prog: standard output: No space left on device\n", text);
        fclose(err);
        fclose(full);
    }
}

TEST(CommandLine, CountsOperandsAsTheirFormSays)
{
    EXPECT_TRUE(Spoken("", {}).readable);
    EXPECT_FALSE(Spoken("", {"a"}).readable);
    EXPECT_TRUE(Spoken("[FILE]", {}).readable);
    EXPECT_TRUE(Spoken("[FILE]", {"a"}).readable);
    EXPECT_FALSE(Spoken("[FILE]", {"a", "b"}).readable);
    EXPECT_FALSE(Spoken("FILE...", {}).readable);
    EXPECT_TRUE(Spoken("FILE...", {"a", "b", "c"}).readable);
}

TEST(CommandLine, PrintsHelpAndEnds)
{
    for (const char* word : {"--help", "-h"}) {
        Spoken spoken("FILE", {"--json", word, "--nothing"});
        EXPECT_FALSE(spoken.readable);
        EXPECT_EQ(0, spoken.line.exitStatus);
        EXPECT_EQ("", spoken.Errors());
        EXPECT_EQ("Usage: prog [OPTION]... FILE\n"
                  "Does things.\n"
                  "\n"
                  "Options:\n"
                  "      --data=DIR        Look in DIR.\n"
                  "  -o, --output=FILE     Write to FILE instead of to standard output, which is\n"
                  "                        what happens without it.\n"
                  "  -l, --a-very-long-option-name=VALUE\n"
                  "                        Stands on two lines.\n"
                  "      --json            Write JSON.\n"
                  "  -h, --help            Show this help and end.\n"
                  "      --version         Show the version and end.\n",
                  spoken.output);
    }
}

TEST(CommandLine, PrintsTheVersionAndEnds)
{
    Spoken spoken("FILE", {"--version"});
    EXPECT_FALSE(spoken.readable);
    EXPECT_EQ(0, spoken.line.exitStatus);
    EXPECT_EQ("prog 1.5\n", spoken.output);
}

TEST(CommandLine, ReadsWholeNumbersWithinTheirRange)
{
    int64_t number = 7;
    Spoken none("", {});
    EXPECT_TRUE(none.line.WholeNumber("data", 0, 100, &number, none.err));
    EXPECT_EQ(7, number) << "untouched";
    Spoken low("", {"--data=-5"});
    EXPECT_TRUE(low.line.WholeNumber("data", -5, 100, &number, low.err));
    EXPECT_EQ(-5, number);
    for (const char* wrong : {"--data=", "--data=x", "--data=1x", "--data= 1", "--data=1.5", "--data=101",
                              "--data=-1", "--data=99999999999999999999", "--data=+1"}) {
        Spoken spoken("", {wrong});
        EXPECT_FALSE(spoken.line.WholeNumber("data", 0, 100, &number, spoken.err)) << wrong;
        EXPECT_EQ(-5, number);
        EXPECT_EQ(2, spoken.line.exitStatus);
        EXPECT_EQ(std::string("prog: option --data needs a whole number of 0 to 100, not \"") + (wrong + 7) +
                      "\"\n",
                  spoken.Errors());
    }
}

TEST(CommandLine, ReadsNumbersWithinTheirRange)
{
    double number = 7;
    Spoken good("", {"--data=29.97"});
    EXPECT_TRUE(good.line.Number("data", 1, 1000, &number, good.err));
    EXPECT_EQ(29.97, number);
    for (const char* wrong :
         {"--data=", "--data=fast", "--data=0.5", "--data=nan", "--data=inf", "--data=2,5"}) {
        Spoken spoken("", {wrong});
        EXPECT_FALSE(spoken.line.Number("data", 1, 1000, &number, spoken.err)) << wrong;
        EXPECT_EQ(29.97, number);
        EXPECT_EQ(std::string("prog: option --data needs a number of 1 to 1000, not \"") + (wrong + 7) +
                      "\"\n",
                  spoken.Errors());
    }
}
