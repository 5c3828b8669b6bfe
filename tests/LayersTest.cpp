// SPDX-License-Identifier: MIT
// Each source includes only what stands on its own floor or below it. The floors are those of the drawing in
// docs/ARCHITECTURE.md: its first lines that are indented by four blanks, from the top floor down. A line
// begins with its entries, which are folders ("effects/") or single pairs of files ("kernel/Report").
#include "tests/Folders.h"
#include "tests/support/Patterns.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

static const char* const topFolders[] = {"art",      "display",   "effects", "kernel", "math", "music",
                                         "platform", "resources", "script",  "tests",  "tools"};

typedef std::vector<std::string> Floor;

static Floor EntriesOf(const std::string& line)
{
    static const std::string entry = "[a-z][a-z/]*/([A-Z][A-Za-z]*)?";
    Floor floor;
    std::istringstream words(line);
    for (std::string word; words >> word && !MatchWhole(word, entry).empty();)
        floor.push_back(word);
    return floor;
}

// From the top down. A line without entries goes on describing the one before.
static std::vector<Floor> ReadDrawing()
{
    std::vector<Floor> floors;
    std::ifstream page(SOURCE_DIR "/docs/ARCHITECTURE.md");
    bool inDrawing = false;
    for (std::string line; std::getline(page, line);) {
        const bool indented = line.rfind("    ", 0) == 0;
        if (inDrawing && !indented)
            break;
        inDrawing = indented;
        const Floor floor = EntriesOf(line);
        if (indented && !floor.empty())
            floors.push_back(floor);
    }
    return floors;
}

static bool BelongsTo(const std::string& path, const std::string& entry)
{
    const std::string begin = entry.back() == '/' ? entry : entry + ".";
    return path.rfind(begin, 0) == 0;
}

// Where a source stands: its floor, counted from the top, and the entry there. The longest entry that fits
// decides, so that kernel/Report is not on the floor of kernel/.
struct Place {
    size_t floor = 0;
    std::string entry; // empty if the drawing has none for it
};

static Place PlaceOf(const std::string& path, const std::vector<Floor>& floors)
{
    Place place;
    for (size_t i = 0; i < floors.size(); i++)
        for (const std::string& entry : floors[i])
            if (BelongsTo(path, entry) && entry.size() > place.entry.size())
                place = {i, entry};
    return place;
}

// Paths from the root of the tree.
static std::vector<std::string> Sources()
{
    std::vector<std::string> paths;
    for (const char* folder : topFolders)
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_DIR) / folder)) {
            const fs::path extension = entry.path().extension();
            if (extension == ".cpp" || extension == ".h")
                paths.push_back(fs::relative(entry.path(), SOURCE_DIR).string());
        }
    return paths;
}

TEST(Layers, EachSourceIncludesOnlyItsOwnFloorAndThoseBelow)
{
    const std::vector<Floor> floors = ReadDrawing();
    ASSERT_GT(floors.size(), 10u);
    // What has no folder is generated, like the examples of docs/EFFECTS.md.
    const std::string include = "^ *# *include \"([^\"]+/[^\"]+)\"";
    for (const std::string& file : Sources()) {
        const Place user = PlaceOf(file, floors);
        EXPECT_NE("", user.entry) << file << " has no place in the drawing";
        std::ifstream source(fs::path(SOURCE_DIR) / file);
        for (std::string line; std::getline(source, line);) {
            const PatternMatch match = FindFirst(line, include);
            if (match.empty())
                continue;
            const std::string included = match[1];
            const Place used = PlaceOf(included, floors);
            EXPECT_NE("", used.entry) << file << " includes " << included;
            EXPECT_TRUE(used.entry == user.entry || used.floor > user.floor)
                << file << " includes " << included << ", which does not stand below it";
        }
    }
}

TEST(Layers, EveryEntryOfTheDrawingHasSources)
{
    const std::vector<Floor> floors = ReadDrawing();
    const std::vector<std::string> sources = Sources();
    for (const Floor& floor : floors)
        for (const std::string& entry : floor) {
            int files = 0;
            for (const std::string& file : sources)
                files += PlaceOf(file, floors).entry == entry;
            EXPECT_GT(files, 0) << entry;
        }
}

TEST(Layers, OnlyThePlatformKnowsWindowToolkits)
{
    const std::string toolkit = "#include <(SDL|FL/|X11/)";
    for (const std::string& file : Sources()) {
        if (file.rfind("platform/", 0) == 0 || file.rfind("tests/", 0) == 0)
            continue;
        std::ifstream source(fs::path(SOURCE_DIR) / file);
        for (std::string line; std::getline(source, line);)
            EXPECT_TRUE(FindFirst(line, toolkit).empty()) << file << ": " << line;
    }
}

TEST(Layers, OnlyTestsAndToolsAndTheSourcesBesideThemIncludeHooks)
{
    const std::string hooks = "^ *# *include \"([a-z/]+)/[A-Za-z]+Hooks.h\"";
    int included = 0;
    for (const std::string& file : Sources()) {
        if (file.rfind("tests/", 0) == 0 || file.rfind("tools/", 0) == 0)
            continue;
        const fs::path path(file);
        std::ifstream source(fs::path(SOURCE_DIR) / path);
        for (std::string line; std::getline(source, line);) {
            const PatternMatch match = FindFirst(line, hooks);
            if (match.empty())
                continue;
            included++;
            EXPECT_TRUE(path.extension() == ".cpp" && path.parent_path() == match[1]) << file << ": " << line;
        }
    }
    EXPECT_GT(included, 0);
}
