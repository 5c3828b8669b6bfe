// SPDX-License-Identifier: MIT
// marlinex-new, as it is installed: beside share/, where the template lies.
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

class NewProduction : public testing::Test
{
protected:
    NewProduction()
    {
        std::string name = testing::TempDir() + "new-XXXXXX";
        if (mkdtemp(name.data()))
            root = fs::canonical(name);
        const fs::path share = root / "usr/share/marlinex/template";
        fs::create_directories(root / "usr/bin");
        fs::create_directories(share);
        fs::copy(SOURCE_DIR "/template", share, fs::copy_options::recursive);
        fs::copy(BINARY_DIR "/template/effects", share / "effects", fs::copy_options::recursive);
        fs::copy_file(BINARY_DIR "/marlinex-new", root / "usr/bin/marlinex-new");
    }
    ~NewProduction() override { fs::remove_all(root); }

    ProgramRun Run(const std::vector<std::string>& words)
    {
        return RunProgram(root / "usr/bin/marlinex-new", words, {}, root);
    }

    fs::path root;
};

TEST_F(NewProduction, HasItsNameEverywhereAndTheEffectOfTheProgrammersPage)
{
    const ProgramRun run = Run({"ferry-2"});
    EXPECT_EQ(0, run.status) << run.errors;
    EXPECT_EQ("", run.errors);
    for (const auto& entry : fs::recursive_directory_iterator(root / "ferry-2"))
        if (entry.is_regular_file()) {
            EXPECT_EQ(std::string::npos, ReadFile(entry.path()).find("@NAME@")) << entry.path();
        }
    EXPECT_NE(std::string::npos,
              ReadFile(root / "ferry-2/CMakeLists.txt").find("marlinex_production(ferry-2\n"));
    EXPECT_NE(std::string::npos,
              ReadFile(root / "ferry-2/Production.cpp").find("ProductionName = \"ferry-2\";"));
    const std::string effect = ReadFile(root / "ferry-2/effects/FX_Lantern.cpp");
    EXPECT_EQ(0u, effect.find("#include \"FX_Lantern.h\"\n")) << effect.substr(0, 80);
    EXPECT_TRUE(effect.ends_with("\n}\n"));
    EXPECT_NE(std::string::npos, ReadFile(SOURCE_DIR "/docs/EFFECTS.md").find(effect));
    for (const char* file :
         {"Data/lantern.png", "Data/loading.jpg", "embedded/start-form.png", "Data/script.txt"})
        EXPECT_TRUE(fs::exists(root / "ferry-2" / file)) << file;
}

TEST_F(NewProduction, IsRefusedANameThatNoProgramCanHave)
{
    for (const char* name : {"Ferry", "2ferry", "fer ry", "fer/ry", "../ferry", "-ferry", ""}) {
        const ProgramRun run = Run({name});
        EXPECT_EQ(2, run.status) << name;
        EXPECT_EQ(0u, run.errors.find("marlinex-new: ")) << run.errors;
        EXPECT_EQ(run.errors.size() - 1, run.errors.find('\n')) << run.errors;
    }
    EXPECT_EQ(2, Run({}).status);
    EXPECT_EQ(2, Run({"one", "two"}).status);
}

TEST_F(NewProduction, LeavesWhatIsThereAlone)
{
    fs::create_directories(root / "ferry");
    const ProgramRun run = Run({"ferry"});
    EXPECT_EQ(2, run.status);
    EXPECT_EQ("marlinex-new: ferry is there already\n", run.errors);
    EXPECT_TRUE(fs::is_empty(root / "ferry"));
}
