// SPDX-License-Identifier: MIT
// The manual pages of the companion programs say what the programs say.
#include "tests/Folders.h"
#include "tests/support/Patterns.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

namespace fs = std::filesystem;

// Options as they stand at the beginning of a line, behind nothing but blanks and a short form.
static std::set<std::string> OptionsOfHelp(const std::string& help)
{
    std::set<std::string> found;
    for (const PatternMatch& option :
         FindAll(help, "(?:^|\n)  (?:(-[A-Za-z]), |    )(--[a-z-]+)(=[A-Z:x/]+)?")) {
        if (!option[1].empty())
            found.insert(option[1]);
        found.insert(option[2] + option[3]);
    }
    return found;
}

static fs::path ManualOf(const std::string& program)
{
    return fs::path(BINARY_DIR) / "man" / (program + ".1");
}

// Options as the heads of the manual's paragraphs have them.
static std::set<std::string> OptionsOfManual(std::string manual)
{
    manual = ReplaceAll(manual, "\\\\f[BIPR]|\\\\[,/]", "");
    manual = ReplaceAll(manual, "\\\\-", "-");
    std::set<std::string> found;
    for (const PatternMatch& head : FindAll(manual, "\n\\.TP\n(-.*)"))
        for (const PatternMatch& option : FindAll(head[1], "(^|, )(-[A-Za-z]|--[a-z-]+(=[A-Z:x/]+)?)(?=,|$)"))
            found.insert(option[2]);
    return found;
}

// Every marlinex-NAME that the build has made.
static std::vector<std::string> Programs()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "tools"))
        if (fs::exists(entry.path() / "Main.cpp") && fs::exists(entry.path() / "CMakeLists.txt"))
            names.push_back("marlinex-" + entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(Manuals, NameTheVersionAndNoDateThatTwoBuildsWouldDifferIn)
{
    for (const std::string& program : Programs()) {
        const std::string manual = ReadFile(ManualOf(program));
        EXPECT_EQ(
            1u, FindAll(manual, "\n\\.TH MARLINEX\\\\-[A-Z]+ \"1\" \"\" \"Marlinex [0-9.]+\" \"Marlinex\"\n")
                    .size())
            << program;
    }
}

TEST(Manuals, OfEachProgramHaveEveryOptionOfItsHelpAndNoOther)
{
    ASSERT_GE(Programs().size(), 1u);
    for (const std::string& name : Programs()) {
        SCOPED_TRACE(name);
        const ProgramRun help = RunProgram(name, {"--help"});
        EXPECT_EQ(0, help.status);
        const std::set<std::string> options = OptionsOfHelp(help.output);
        EXPECT_EQ(1u, options.count("--help"));
        EXPECT_EQ(1u, options.count("--version"));
        EXPECT_EQ(options, OptionsOfManual(ReadFile(ManualOf(name))));
    }
}

TEST(Manuals, NameTheProgramAndItsVersionOnTopAndSayWhatItIsFor)
{
    for (const std::string& name : Programs()) {
        SCOPED_TRACE(name);
        const ProgramRun version = RunProgram(name, {"--version"});
        EXPECT_FALSE(MatchWhole(version.output, name + " [0-9]+\\.[0-9]+\n").empty()) << version.output;
        std::string dashed = ReplaceAll(name, "-", "\\-");
        std::string upper = dashed;
        for (char& c : upper)
            c = char(toupper(c));
        const std::string number =
            version.output.substr(name.size() + 1, version.output.size() - name.size() - 2);
        const std::string manual = ReadFile(ManualOf(name));
        EXPECT_NE(std::string::npos, manual.find("\n.TH " + upper + " \"1\" \""));
        EXPECT_NE(std::string::npos, manual.find("\" \"Marlinex " + number + "\" \"Marlinex\"\n"));
        EXPECT_NE(std::string::npos, manual.find("\n.SH NAME\n" + dashed + " \\- "));
    }
}

TEST(Manuals, AreCleanRoffOfLinesThatFit)
{
    for (const std::string& name : Programs()) {
        std::ifstream manual(ManualOf(name));
        ASSERT_TRUE(manual.good()) << name;
        int number = 0;
        for (std::string line; std::getline(manual, line);) {
            number++;
            EXPECT_LE(line.size(), 120u) << name << " line " << number;
            EXPECT_FALSE(!line.empty() && line.back() == ' ') << name << " line " << number;
            // The requests of an ordinary page; a misspelt one would vanish without a word.
            static const std::string request =
                "^\\.(\\\\\"|TH|SH|SS|TP|B|I|BR|BI|IR|IB|RI|RB|PP|nf|fi|EX|EE|RS|RE|IP|br)( |$)";
            const bool isRequest = !line.empty() && (line[0] == '.' || line[0] == '\'');
            EXPECT_TRUE(!isRequest || !FindFirst(line, request).empty())
                << name << " line " << number << ": " << line;
        }
    }
}

// Each "/pattern/" of docs/man/NAME.h2m stands for an option, and the text under it belongs to that option.
TEST(Manuals, HaveTheFurtherTextOfAnOptionUnderThatOption)
{
    const std::string manual = ReadFile(ManualOf("marlinex-lint"));
    EXPECT_NE(std::string::npos, manual.find("\\fB\\-\\-fps\\fR=\\fI\\,N\\/\\fR\n"
                                             "Hand messages out at N frames a second instead of 60.\n"
                                             ".IP\n"
                                             "One message leaves in each frame"));
}

TEST(Manuals, SitBesideProgramsThatRefuseAnUnknownOptionInOneLine)
{
    for (const std::string& name : Programs()) {
        const ProgramRun run = RunProgram(name, {"--no-such-option"});
        EXPECT_EQ(2, run.status) << name;
        EXPECT_EQ("", run.output) << name;
        EXPECT_EQ(name + ": unknown option --no-such-option (--help lists what there is)\n", run.errors);
    }
}
