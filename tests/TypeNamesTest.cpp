// SPDX-License-Identifier: MIT
// Sources keep their functions to themselves by `static`, which types can't have. Two sources of a program that
// define types of one name break the one-definition rule, and no compiler says so.
#include "tests/Folders.h"
#include "tests/support/Patterns.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

// The types at namespace scope that the lines of a source define, "space::Name". Such types begin a line, since
// namespaces are not indented.
static std::vector<std::string> TypesOf(std::istream& source)
{
    static const std::string opens = "namespace ([A-Za-z0-9_:]+)( \\{)?";
    static const std::string closes = "\\} // namespace .*";
    static const std::string type =
        "(struct|class|union|enum|enum class) ([A-Za-z0-9_]+)( final)?( :.*)?( \\{.*)?";
    std::vector<std::string> spaces = {""}, types;
    std::string line;
    while (std::getline(source, line)) {
        if (const PatternMatch space = MatchWhole(line, opens); !space.empty())
            spaces.push_back(spaces.back() + space[1] + "::");
        else if (!MatchWhole(line, closes).empty() && spaces.size() > 1)
            spaces.pop_back();
        else if (const PatternMatch found = MatchWhole(line, type); !found.empty())
            types.push_back(spaces.back() + found[2]);
    }
    return types;
}

// The program that a source goes to: each tier of tests, and one for all libraries, which most programs link together.
// Small programs of one source or two have no name of their own here.
static std::string ProgramOf(const std::string& path)
{
    if (path.starts_with("tests/programs/") || path.starts_with("tests/fuzz/") ||
        path.starts_with("tools/benchmark/") || path.starts_with("template/") || path.ends_with("/Main.cpp"))
        return "";
    if (!path.starts_with("tests/"))
        return "libraries";
    for (const char* const tier : {"Recorded", "Picture", "Desktop"})
        if (path.ends_with(tier + std::string("Test.cpp")))
            return tier;
    return path.ends_with("Test.cpp") ? path.starts_with("tests/art/") ? "Art" : "Unit" : "Support";
}

TEST(TypeNames, AreFoundInTheirNamespaces)
{
    std::istringstream source(
        "struct A;\nstruct B {\n    struct C {\n    };\n};\nnamespace one\n{\nenum D { E };\n"
        "class F : public A\n{\n};\n} // namespace one\nenum class G { H };\n");
    EXPECT_EQ((std::vector<std::string>{"B", "one::D", "one::F", "G"}), TypesOf(source));
}

TEST(TypeNames, AreDefinedOnceInAProgram)
{
    std::map<std::string, std::map<std::string, std::string>> seen; // of a program: the type's source
    size_t count = 0;
    for (const char* const folder : {"art", "display", "effects", "kernel", "math", "music", "platform",
                                     "resources", "script", "tests", "tools"})
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_DIR) / folder)) {
            const std::string path = fs::relative(entry.path(), SOURCE_DIR).generic_string();
            const std::string program = ProgramOf(path);
            if (program.empty() || (!path.ends_with(".cpp") && !path.ends_with(".h")))
                continue;
            std::ifstream source(entry.path());
            for (const std::string& type : TypesOf(source)) {
                const auto [first, isNew] = seen[program].emplace(type, path);
                EXPECT_TRUE(isNew) << type << " is defined in " << first->second << " and in " << path;
                count++;
            }
        }
    EXPECT_GT(count, 500u);
    for (const char* const program : {"Recorded", "Picture", "Desktop", "Art", "Unit"})
        for (const auto& [type, path] : seen[program])
            for (const char* const linked : {"libraries", "Support"})
                EXPECT_EQ(0u, seen[linked].count(type))
                    << type << " of " << path << " is also in " << seen[linked][type];
}
