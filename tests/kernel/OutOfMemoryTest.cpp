// SPDX-License-Identifier: MIT
#include "kernel/OutOfMemory.h"

#include "resources/TextureLoader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

static const size_t tooMuch = size_t{1} << 50;

static void TakeTooMuch()
{
    unsetenv("DISPLAY"); // boxes go to the standard error stream as text
    ReportOutOfMemory("lantern");
    std::string text;
    text.resize(tooMuch);
}

class OutOfMemory : public testing::Test
{
protected:
    void SetUp() override
    {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the address sanitizer ends the process itself";
#endif
    }
};

TEST_F(OutOfMemory, EndsTheProcessWithALineAndABox)
{
    EXPECT_EXIT(TakeTooMuch(), testing::ExitedWithCode(1),
                "^lantern: there is not enough memory\nMarlinex 1\\.5 Error: Out of Memory\n"
                "Bad: There is not enough memory to go on\\.\n");
}

TEST_F(OutOfMemory, DoesNotEndTheProcessWhereAPictureHasNoRoom)
{
    ReportOutOfMemory("lantern");
    EXPECT_EQ(nullptr, AllocatePixels(tooMuch));
}
