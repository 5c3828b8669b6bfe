// SPDX-License-Identifier: MIT
// What the Tab key offers. The functions for bash are asked by bash itself.
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"
#include "tools/cli/CommandLine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

static const std::vector<cli::Option> table = {
    {"data", 0, "DIR", "Look in DIR. Or not."},
    {"output", 'o', "FILE", "Write to FILE: it's [new]."},
    {"rate", 'r', "N", "So many."},
    {"json", 'j', nullptr, "Write JSON."},
};

class Completion : public testing::Test
{
protected:
    Completion()
    {
        std::string name = testing::TempDir() + "completion-XXXXXX";
        if (mkdtemp(name.data()))
            root = name;
        fs::create_directories(root / "a folder");
        std::ofstream(root / "a file") << "text";
    }
    ~Completion() override { fs::remove_all(root); }

    // What bash offers when the last of the words is to be completed, a line each. Words as bash divides them.
    std::string Offered(const std::string& words, const char* operands = "FILE")
    {
        const cli::CommandLine line("x-prog", "Does things.", operands, table);
        std::ofstream(root / ".completion") << line.BashCompletion();
        // compopt is only allowed while bash completes.
        const ProgramRun run = RunProgram(
            "/bin/bash",
            {"-c",
             "compopt() { :; }; . ./.completion; COMP_WORDS=(x-prog " + words +
                 "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _x_prog; printf '%s\\n' \"${COMPREPLY[@]}\""},
            {}, root);
        EXPECT_EQ("", run.errors);
        return run.output;
    }

    fs::path root;
};

TEST_F(Completion, OffersTheOptionsThatBeginSo)
{
    EXPECT_EQ("--data=\n--output=\n--rate=\n--json\n--help\n--version\n", Offered("--"));
    EXPECT_EQ("--json\n", Offered("--j"));
    EXPECT_EQ("\n", Offered("--x"));
}

TEST_F(Completion, OffersFilesAndFoldersWhereTheyAreAskedFor)
{
    EXPECT_EQ("a file\na folder\n", Offered("-o a"));
    EXPECT_EQ("a file\na folder\n", Offered("--output = a"));
    EXPECT_EQ("a folder\n", Offered("--data a"));
    EXPECT_EQ("a folder\n", Offered("--data ="));
    EXPECT_EQ("\n", Offered("--rate a")) << "nobody can guess a number";
    EXPECT_EQ("\n", Offered("-r a"));
}

TEST_F(Completion, OffersFilesForOperandsIfThereAreAny)
{
    EXPECT_EQ("a file\na folder\n", Offered("--json a"));
    EXPECT_EQ("\n", Offered("--json a", ""));
}

TEST_F(Completion, ForZshExplainsEachOptionByItsFirstSentence)
{
    const cli::CommandLine line("x-prog", "Does things.", "FILE...", table);
    EXPECT_EQ("#compdef x-prog\n"
              "# Completion of x-prog for zsh, made from its table of options.\n"
              "_arguments -s -S \\\n"
              "    '--data=[Look in DIR]:DIR:_files -/' \\\n"
              "    '(--output -o)'{-o+,--output=}'[Write to FILE\\: it'\\''s \\[new\\]]:FILE:_files' \\\n"
              "    '(--rate -r)'{-r+,--rate=}'[So many]:N: ' \\\n"
              "    '(--json -j)'{-j,--json}'[Write JSON]' \\\n"
              "    '(--help -h)'{-h,--help}'[Show this help and end]' \\\n"
              "    '--version[Show the version and end]' \\\n"
              "    '*:file:_files'\n",
              line.ZshCompletion());
}

TEST_F(Completion, IsWrittenByEveryProgramAndInstalledAsItIs)
{
    int programs = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tools")) {
        if (!fs::exists(entry.path() / "Main.cpp"))
            continue;
        programs++;
        const std::string name = "marlinex-" + entry.path().filename().string();
        const ProgramRun bash = RunProgram(name, {"--completion=bash"});
        EXPECT_EQ(0, bash.status) << name;
        EXPECT_NE(std::string::npos, bash.output.find("--version")) << name;
        EXPECT_EQ(bash.output, ReadFile(fs::path(BINARY_DIR) / "completions" / name));
        EXPECT_EQ(RunProgram(name, {"--completion=zsh"}).output,
                  ReadFile(fs::path(BINARY_DIR) / "completions" / ("_" + name)));
    }
    EXPECT_GE(programs, 5);
}

TEST_F(Completion, IsNothingForAnotherShellOrBesideOtherWords)
{
    const ProgramRun other = RunProgram("marlinex-list", {"--completion=tcsh"});
    EXPECT_EQ(2, other.status);
    EXPECT_EQ("marlinex-list: unknown option --completion (--help lists what there is)\n", other.errors);
    EXPECT_EQ(2, RunProgram("marlinex-list", {"--completion=bash", "--json"}).status);
}
