// SPDX-License-Identifier: MIT
#include "kernel/EffectRecord.h"

#include <gtest/gtest.h>

TEST(EffectRecord, ListsItsFilesByKindWithoutFoldersAndShadersWithTheirEndings)
{
    static const char* const textures[] = {"sky.jpg", "sand.png"};
    static const char* const lights[] = {"glow.png"};
    static const char* const models[] = {"data/fish.txt"};
    static const char* const programs[] = {"data/mask.vp", "data/mix.fp"};
    static const char* const shaders[] = {"plain", "blur", "plain", "glow"};
    const std::vector<EffectFile> files = ListFiles({textures, lights, models, programs, shaders});
    const std::vector<std::pair<std::string, FileKind>> expected = {
        {"sky.jpg", TextureFile}, {"sand.png", TextureFile}, {"glow.png", TextureFile},
        {"fish.txt", ModelFile},  {"mask.vp", ProgramFile},  {"mix.fp", ProgramFile},
        {"plain.vp", ShaderFile}, {"blur.fp", ShaderFile},   {"plain.vp", ShaderFile},
        {"glow.fp", ShaderFile},
    };
    ASSERT_EQ(expected.size(), files.size());
    for (size_t i = 0; i < expected.size(); i++) {
        EXPECT_EQ(expected[i].first, files[i].name);
        EXPECT_EQ(expected[i].second, files[i].kind) << files[i].name;
    }
    EXPECT_TRUE(ListFiles({}).empty());
}
