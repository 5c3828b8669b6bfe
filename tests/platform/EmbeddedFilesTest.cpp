// SPDX-License-Identifier: MIT
#include "platform/EmbeddedFiles.h"

#include "tests/Folders.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

TEST(Resources, AnEmbeddedFileIsFoundWithAllItsBytes)
{
    const unsigned char* data = nullptr;
    size_t size = 0;
    ASSERT_TRUE(platform::FindEmbeddedFile("start-form.png", &data, &size));
    const std::string file = ReadFile(SOURCE_DIR "/platform/embedded/start-form.png");
    ASSERT_FALSE(file.empty());
    EXPECT_EQ(file, std::string(reinterpret_cast<const char*>(data), size));
}

TEST(Resources, ANameThatIsNotThereGivesNothing)
{
    for (const char* name :
         {"", "start-form", "Start-Form.png", "start-form.pngx", "resources/start-form.png"}) {
        const unsigned char junk = 1;
        const unsigned char* data = &junk;
        size_t size = 1;
        EXPECT_FALSE(platform::FindEmbeddedFile(name, &data, &size)) << name;
        EXPECT_EQ(nullptr, data) << name;
        EXPECT_EQ(0u, size) << name;
    }
}
