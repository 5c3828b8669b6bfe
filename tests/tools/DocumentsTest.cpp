// SPDX-License-Identifier: MIT
// The examples of docs/TOOLS.md: each command that stands there gives the output that stands under it.
#include "tests/Folders.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

struct Example {
    std::string command;
    std::string output;
};

// The indented paragraphs of a section that begin with a prompt.
static std::vector<Example> ExamplesOf(const std::string& section)
{
    std::vector<Example> examples;
    std::ifstream document(std::string(SOURCE_DIR) + "/docs/TOOLS.md");
    bool inSection = false, inExample = false;
    for (std::string line; std::getline(document, line);) {
        if (line.rfind("## ", 0) == 0)
            inSection = line == "## " + section;
        if (!inSection)
            continue;
        const bool isIndented = line.rfind("    ", 0) == 0;
        if (line.rfind("    $ ", 0) == 0) {
            examples.push_back({line.substr(6), ""});
            inExample = true;
        } else if (inExample && (isIndented || line.empty())) {
            examples.back().output += (isIndented ? line.substr(4) : "") + "\n";
        } else {
            inExample = false;
        }
    }
    for (Example& example : examples) // the empty line ahead of what follows
        while (example.output.ends_with("\n\n"))
            example.output.pop_back();
    return examples;
}

static void CheckExamples(const std::string& section, size_t count)
{
    const std::vector<Example> examples = ExamplesOf(section);
    EXPECT_EQ(count, examples.size());
    for (const Example& example : examples) {
        const std::string path = std::string("PATH=") + BINARY_DIR + ":" + getenv("PATH");
        EXPECT_EQ(example.output, RunProgram("/bin/sh", {"-c", example.command}, {path}, SOURCE_DIR).output)
            << example.command;
    }
}

TEST(Documents, ShowWhatTheListingReallySays)
{
    CheckExamples("marlinex-list", 2);
}

TEST(Documents, ShowWhatTheLinterReallySays)
{
    CheckExamples("marlinex-lint", 3);
}
