// SPDX-License-Identifier: MIT
#include "tools/lint/Schedule.h"

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "platform/Clock.h"
#include "tests/Folders.h"
#include "tests/support/recorder/EffectFixture.h"
#include "tools/lint/Lint.h"

#include <filesystem>

class LintSchedule : public EffectFixture
{
};

TEST_F(LintSchedule, MakesTheSecondsThatLoadingReallyTakes)
{
    std::vector<std::filesystem::path> scripts = {std::filesystem::path(SOURCE_DIR) / "Data/script.txt"};
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(SOURCE_DIR) / "tests/shows"))
        scripts.push_back(entry.path());
    lint::CheckOptions options;
    options.checkFiles = false;
    gl::Pause();
    for (const std::filesystem::path& script : scripts)
        for (uint32_t offset : {0, 20000}) {
            SCOPED_TRACE(script.string() + " from " + std::to_string(offset));
            std::filesystem::copy_file(script, PathOf("script.txt"),
                                       std::filesystem::copy_options::overwrite_existing);
            EffectRegistry registry;
            RegisterEffects(&registry);
            DemoPlayer show;
            show.SetStartOffset(offset);
            ASSERT_TRUE(show.Init(&window, &registry, nullptr, false));
            ASSERT_TRUE(show.LoadScript("script.txt"));
            show.state = PlayerRunning;
            const int64_t begin = platform::ReadCounter();
            show.InitEffects();
            options.startOffset = offset;
            const int loads = lint::CheckFile(script, options).show.loads;
            EXPECT_EQ(loads * platform::CounterFrequency(), platform::ReadCounter() - begin);
        }
}
