// SPDX-License-Identifier: MIT
// Each script of corpus/ gives exactly the output that lies beside it: NAME.txt is the script, NAME.expected
// what marlinex-lint writes and its exit status, NAME.options, where there is one, an option a line. With
// MARLINEX_UPDATE_GOLDEN=1 the expectations are written anew; read the difference before you keep it. The list of the
// production's effects stands in them as EFFECTS.
#include "kernel/Production.h"
#include "tests/Folders.h"
#include "tests/support/Patterns.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace fs = std::filesystem;

static const char* const corpus = "tests/tools/lint/corpus/";

static std::vector<std::string> ScriptNames()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / corpus))
        if (entry.path().extension() == ".txt")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Every code that stands in the sources of the linter.
static std::set<std::string> Codes()
{
    std::set<std::string> codes;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tools/lint"))
        for (const PatternMatch& found :
             FindAll(ReadFile(entry.path()), "(?:Error|Warning|Note),\\s+\"([a-z-]+)\""))
            codes.insert(found[1]);
    return codes;
}

// The names of the effects as a sentence lists them: "A, B and C".
static std::string ListOfEffects()
{
    std::string list;
    size_t left = ProductionEffects().size();
    for (const EffectRecord& row : ProductionEffects()) {
        left--;
        list += row.key + std::string(left > 1 ? ", " : left == 1 ? " and " : "");
    }
    return list;
}

class LintCorpus : public testing::TestWithParam<std::string>
{
};

TEST_P(LintCorpus, GivesExactlyWhatLiesBesideIt)
{
    const fs::path script = fs::path(corpus) / (GetParam() + ".txt");
    const fs::path expected = fs::path(SOURCE_DIR) / corpus / (GetParam() + ".expected");
    std::vector<std::string> words = {script.string()};
    std::ifstream options(fs::path(SOURCE_DIR) / corpus / (GetParam() + ".options"));
    for (std::string option; std::getline(options, option);)
        words.push_back(option);
    const ProgramRun run = RunProgram("marlinex-lint", words, {}, SOURCE_DIR);
    EXPECT_EQ("", run.errors);
    std::string output = run.output + "exit status " + std::to_string(run.status) + "\n";
    const std::string effects = ListOfEffects();
    for (size_t at = output.find(effects); at != std::string::npos; at = output.find(effects))
        output.replace(at, effects.size(), "EFFECTS");
    if (getenv("MARLINEX_UPDATE_GOLDEN"))
        std::ofstream(expected, std::ios::binary) << output;
    EXPECT_EQ(ReadFile(expected), output);
}

INSTANTIATE_TEST_SUITE_P(Script, LintCorpus, testing::ValuesIn(ScriptNames()),
                         [](const testing::TestParamInfo<std::string>& script) {
                             return ReplaceAll(script.param, "-", "_");
                         });

TEST(LintCodes, HaveAScriptOfTheirNameEach)
{
    const std::set<std::string> codes = Codes();
    EXPECT_GT(codes.size(), 35u);
    for (const std::string& code : codes)
        EXPECT_NE(std::string::npos,
                  ReadFile(fs::path(SOURCE_DIR) / corpus / (code + ".expected")).find(" [" + code + "]\n"))
            << code;
}

TEST(LintCodes, AreExplainedInTheManualAndInTheDocuments)
{
    const std::string manual = ReadFile(fs::path(BINARY_DIR) / "man/marlinex-lint.1");
    const std::string document = ReadFile(fs::path(SOURCE_DIR) / "docs/TOOLS.md");
    for (const std::string& code : Codes()) {
        EXPECT_NE(std::string::npos, manual.find("\n.B " + ReplaceAll(code, "-", "\\-") + "\n")) << code;
        EXPECT_NE(std::string::npos, document.find("| `" + code + "` |")) << code;
    }
}
