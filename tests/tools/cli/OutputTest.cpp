// SPDX-License-Identifier: MIT
#include "tools/cli/Output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

TEST(Output, GoesIntoAFileWithEveryByte)
{
    const std::string path = testing::TempDir() + "marlinex-output-" + std::to_string(getpid());
    const std::string text("a\0\r\nb", 5);
    std::string reason;
    EXPECT_TRUE(cli::WriteOutput(path, text, &reason));
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
    std::filesystem::remove(path);
}

TEST(Output, TellsWhyNotAllOfItArrived)
{
    std::string reason;
    EXPECT_FALSE(cli::WriteOutput("/no/such/folder/file", "a", &reason));
    EXPECT_EQ("No such file or directory", reason);
    EXPECT_FALSE(cli::WriteOutput("", "a", &reason));
    EXPECT_EQ("No such file or directory", reason);
    EXPECT_FALSE(cli::WriteOutput("/dev/full", "a", &reason));
    EXPECT_EQ("No space left on device", reason);
    EXPECT_FALSE(cli::WriteOutput("/dev/full", std::string(1000000, 'a'), &reason));
    EXPECT_EQ("No space left on device", reason);
}
