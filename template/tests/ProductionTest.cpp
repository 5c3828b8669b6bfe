// What every production's table promises.
#include "kernel/Production.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

TEST(Production, NamesEachEffectOnce)
{
    std::set<std::string> keys;
    for (const EffectRecord& row : ProductionEffects())
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    EXPECT_NE(nullptr, FindRecord("FX_Lantern"));
}

TEST(Production, HasTheFilesThatItsEffectsLoad)
{
    for (const EffectRecord& row : ProductionEffects())
        for (const EffectFile& file : ListFiles(row.files))
            EXPECT_TRUE(std::filesystem::exists(std::string(DATA "/") + file.name))
                << row.key << ": " << file.name;
}
