// SPDX-License-Identifier: MIT
// marlinex-lint as a program: exit statuses, standard error, JSON.
#include "tests/Folders.h"
#include "tests/support/RunProgram.h"
#include "tests/support/ShowFixture.h"
#include "tools/lint/Print.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

static const char* const scene = "[EFFECT]EffectName=FX_Clouds;StartTime=0;StopTime=1000;LayerID=1;\n";

class LintProgram : public ShowFixture
{
protected:
    ProgramRun Run(std::vector<std::string> words)
    {
        return RunProgram("marlinex-lint", words, {}, PathOf(""));
    }
};

TEST_F(LintProgram, SaysOfACleanScriptInOneLineThatItIs)
{
    AddFile("clean.txt", scene);
    const ProgramRun run = Run({"--no-files", "clean.txt"});
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("", run.errors);
    EXPECT_EQ("clean.txt: clean; 1 entry, 0 messages, ends at 0:01.000, loads for at least 1 second\n",
              run.output);
}

TEST_F(LintProgram, EndsWithOneForErrorsAndForWarningsOnlyWhenToldSo)
{
    AddFile("warning.txt", std::string(scene) + "$\n");
    AddFile("error.txt", std::string("$") + scene + "[junk]\n");
    EXPECT_EQ(0, Run({"--no-files", "warning.txt"}).status);
    const ProgramRun strict = Run({"--no-files", "--werror", "warning.txt"});
    EXPECT_EQ(1, strict.status);
    EXPECT_NE(std::string::npos, strict.output.find("warning.txt:2:1: error: "));
    EXPECT_NE(std::string::npos, strict.output.find("warning.txt: 1 error; "));
    EXPECT_EQ(1, Run({"--no-files", "error.txt"}).status);
    EXPECT_EQ(1, Run({"--no-files", "--json", "error.txt"}).status);
}

TEST_F(LintProgram, DoesNotTakeNotesForErrorsHoweverStrict)
{
    AddFile("note.txt", std::string(scene) +
                            "[EFFECT]EffectName=FX_Towers;StartTime=1000;StopTime=2000;LayerID=1;"
                            "[MESSAGE]MessageText=hand;ActivationTime=500;TargetEffect=FX_Clouds;\n");
    const ProgramRun run = Run({"--no-files", "--werror", "--offset=1500", "note.txt"});
    EXPECT_EQ(0, run.status);
    EXPECT_NE(std::string::npos, run.output.find(": note: "));
    EXPECT_NE(std::string::npos, run.output.find("note.txt: clean; 1 entry, 0 messages"));
}

TEST_F(LintProgram, EndsWithTwoAndTheFilesNameWhereThereIsNothingToRead)
{
    const ProgramRun missing = Run({"nothing.txt"});
    EXPECT_EQ(2, missing.status);
    EXPECT_EQ("", missing.output);
    EXPECT_EQ("marlinex-lint: nothing.txt: No such file or directory\n", missing.errors);
    const ProgramRun folder = Run({"."});
    EXPECT_EQ(2, folder.status);
    EXPECT_EQ("marlinex-lint: .: Is a directory\n", folder.errors);
    const ProgramRun broken = Run({"/proc/self/mem"}); // opens, and nothing lies at its beginning
    EXPECT_EQ(2, broken.status);
    EXPECT_EQ("marlinex-lint: /proc/self/mem: Input/output error\n", broken.errors);
    EXPECT_EQ("marlinex-lint: a FILE is missing (--help tells more)\n", Run({}).errors);
}

TEST_F(LintProgram, EndsWithTwoWhereItMayNotRead)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    AddFile("secret.txt", scene);
    fs::permissions(PathOf("secret.txt"), fs::perms::none);
    const ProgramRun run = Run({"secret.txt"});
    EXPECT_EQ(2, run.status);
    EXPECT_EQ("marlinex-lint: secret.txt: Permission denied\n", run.errors);
}

TEST_F(LintProgram, ReadsStandardInputForADash)
{
    AddFile("clean.txt", scene);
    const ProgramRun run =
        RunProgram("/bin/sh", {"-c", std::string(BINARY_DIR) + "/marlinex-lint --no-files - < clean.txt"}, {},
                   PathOf(""));
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("-: clean; 1 entry, 0 messages, ends at 0:01.000, loads for at least 1 second\n", run.output);
}

TEST_F(LintProgram, RefusesNumbersThatAreNone)
{
    AddFile("clean.txt", scene);
    EXPECT_EQ("marlinex-lint: option --offset needs a whole number of 0 to 4294967295, not \"soon\"\n",
              Run({"--offset", "soon", "clean.txt"}).errors);
    const ProgramRun run = Run({"--fps=0", "clean.txt"});
    EXPECT_EQ(2, run.status);
    EXPECT_EQ("marlinex-lint: option --fps needs a number of 1 to 1000, not \"0\"\n", run.errors);
}

TEST_F(LintProgram, LooksForFilesWhereItIsToldTo)
{
    AddFile("clean.txt", scene);
    const ProgramRun run = Run({"--data=.", "--json", "clean.txt"});
    EXPECT_EQ(1, run.status);
    AddFile("report.json", run.output);
    EXPECT_EQ("19\n", RunProgram("/usr/bin/jq", {"[.findings[] | select(.code == \"missing-file\")] | length",
                                                 PathOf("report.json")})
                          .output);
}

TEST_F(LintProgram, GivesProgramsTheCuresThatTheyCanApply)
{
    const std::string script = "# \u00e9 #\n" + std::string(scene) +
                               "[MESSAGE]\nMessageText=hand;\nActivationTime=1;\nTargetEffect=FX_Clouds;\n"
                               "Parameter=0.5;\n"
                               "[MESSAGE]\nMessageText=hand;\nActivationTime=1;\nTargetEffect=FX_Nobody;\n";
    AddFile("script.txt", script);
    AddFile("report.json", Run({"--no-files", "--json", "script.txt"}).output);
    const auto fixesOf = [this](const std::string& code) {
        return RunProgram("/usr/bin/jq", {"-r",
                                          ".findings[] | select(.code == \"" + code +
                                              "\") | .fixes | length, (.[] | .begin, .end, .text)",
                                          PathOf("report.json")})
            .output;
    };
    EXPECT_EQ("0\n", fixesOf("unknown-effect")) << "only a person can tell who was meant";
    std::istringstream fix(fixesOf("lost-character"));
    size_t count = 0, begin = 0, end = 0;
    std::string text;
    fix >> count >> begin >> end >> text;
    ASSERT_EQ(1u, count);
    std::string cured = script;
    cured.replace(begin, end - begin, text);
    EXPECT_NE(std::string::npos, cured.find("\nParameter=0.50;\n")) << cured;
    EXPECT_EQ(script.size() + 1, cured.size());
}

TEST_F(LintProgram, TellsWhenItsOutputIsLost)
{
    AddFile("clean.txt", scene);
    const ProgramRun run = RunProgram(
        "/bin/sh", {"-c", std::string(BINARY_DIR) + "/marlinex-lint --no-files clean.txt > /dev/full"}, {},
        PathOf(""));
    EXPECT_EQ(2, run.status);
    EXPECT_EQ("marlinex-lint: standard output: No space left on device\n", run.errors);
}

// The JSON of every script of the corpus, read by somebody else's reader, says what the text says.
TEST_F(LintProgram, WritesJsonWithTheFactsOfItsText)
{
    std::vector<fs::path> scripts;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tests/tools/lint/corpus"))
        if (entry.path().extension() == ".txt")
            scripts.push_back(entry.path());
    std::sort(scripts.begin(), scripts.end());
    std::string all, text;
    lint::CheckOptions options;
    options.checkFiles = false;
    for (const fs::path& script : scripts) {
        const lint::Report report = lint::CheckFile(script, options);
        all += lint::PrintJson(script, report, options);
        text += lint::PrintText(script, report, false);
    }
    AddFile("all.json", all);
    const ProgramRun run = RunProgram(
        "/usr/bin/jq", {"-r",
                        ".file as $file | .findings[] | $file + (if .line > 0 then "
                        "\":\\(.line):\\(.column)\" else \"\" end) + "
                        "\": \\(.severity): \\(.text) [\\(.code)]\\n    \\(.consequence)\\n    \\(.cure)\"",
                        PathOf("all.json")});
    EXPECT_EQ("", run.errors);
    std::istringstream lines(text);
    std::string findings;
    for (std::string line; std::getline(lines, line);)
        if (line.find(", loads for at least ") == std::string::npos)
            findings += line + "\n";
    EXPECT_EQ(findings, run.output);
    EXPECT_EQ("true\n",
              RunProgram("/usr/bin/jq",
                         {"-s",
                          "all(.[]; .errors == ([.findings[] | select(.severity == \"error\")] | length)"
                          " and .warnings == ([.findings[] | select(.severity == \"warning\")] | length)"
                          " and .notes == ([.findings[] | select(.severity == \"note\")] | length)"
                          " and all(.findings[]; .span == null or .span.start <= .span.stop))",
                          PathOf("all.json")})
                  .output);
}
