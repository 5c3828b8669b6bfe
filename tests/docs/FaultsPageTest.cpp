// SPDX-License-Identifier: MIT
// docs/FAULTS.md held against the tree: every promise names a test, and every test that it names is there.
#include "tests/Folders.h"
#include "tests/support/Patterns.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// The rows of the page's tables, without their headlines and the lines below these.
static std::vector<std::string> Promises()
{
    std::ifstream file(SOURCE_DIR "/docs/FAULTS.md");
    std::vector<std::string> rows;
    std::string line;
    while (std::getline(file, line))
        if (line.starts_with("| ") && !line.starts_with("| What happens"))
            rows.push_back(line);
    return rows;
}

TEST(FaultsPage, NamesATestForEachPromiseAndItIsThere)
{
    ASSERT_GE(Promises().size(), 25u);
    for (const std::string& row : Promises()) {
        const std::string last = row.substr(row.rfind('|', row.size() - 2));
        const std::vector<PatternMatch> tests = FindAll(last, "`(tests/[^`]*)`");
        EXPECT_FALSE(tests.empty()) << row;
        for (const PatternMatch& test : tests)
            EXPECT_TRUE(std::filesystem::exists(SOURCE_DIR "/" + test[1])) << test[1];
    }
}
