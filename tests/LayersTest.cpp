// SPDX-License-Identifier: MIT
// Each folder includes only what stands below it (docs/ARCHITECTURE.md).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

namespace fs = std::filesystem;

static const char* const engineFolders[] = {"platform", "math",  "display", "resources",
                                            "script",   "music", "kernel",  "effects"};

static int LevelOf(const std::string& path)
{
    struct {
        const char* begin;
        int level;
    } const levels[] = {
        {"platform/", 0},         {"kernel/Report", 1}, {"math/", 2},   {"display/", 3},
        {"resources/", 4},        {"script/", 5},       {"music/", 5},  {"kernel/Main", 8},
        {"kernel/Production", 8}, {"kernel/System", 8}, {"kernel/", 6}, {"effects/", 7},
    };
    for (const auto& each : levels)
        if (path.rfind(each.begin, 0) == 0)
            return each.level;
    return -1;
}

// The knot: the reader fills the sequencer, and the listing is the registry's.
static bool IsTheKnot(const std::string& file, const std::string& included)
{
    return file.rfind("script/", 0) == 0 &&
           (included == "kernel/DemoPlayer.h" || included == "kernel/EffectRegistry.h" ||
            included == "kernel/SynchMessageTable.h" || included == "kernel/ColorScheme.h");
}

TEST(Layers, EachFolderIncludesOnlyWhatStandsBelowIt)
{
    const std::regex include("^#include \"([^\"]+)\"");
    int files = 0;
    for (const char* folder : engineFolders)
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / folder)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h")
                continue;
            files++;
            const std::string file = std::string(folder) + "/" + entry.path().filename().string();
            std::ifstream source(entry.path());
            for (std::string line; std::getline(source, line);) {
                std::smatch match;
                if (!std::regex_search(line, match, include))
                    continue;
                const std::string included = match[1];
                EXPECT_NE(-1, LevelOf(included)) << file << " includes " << included;
                EXPECT_TRUE(LevelOf(included) <= LevelOf(file) || IsTheKnot(file, included))
                    << file << " includes " << included << ", which stands above it";
            }
        }
    EXPECT_GT(files, 30);
}

TEST(Layers, OnlyThePlatformKnowsWindowToolkits)
{
    const std::regex toolkit("#include <(SDL|FL/|X11/)");
    for (const char* folder : engineFolders) {
        if (std::string(folder) == "platform")
            continue;
        for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / folder)) {
            std::ifstream source(entry.path());
            for (std::string line; std::getline(source, line);)
                EXPECT_FALSE(std::regex_search(line, toolkit)) << entry.path() << ": " << line;
        }
    }
}
