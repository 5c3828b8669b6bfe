// SPDX-License-Identifier: MIT
#include "platform/RegularFile.h"

#include "tests/support/OddFiles.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

class RegularFile : public testing::Test
{
protected:
    RegularFile() : folder(testing::TempDir() + "RegularFileTest-" + std::to_string(getpid()))
    {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
        path = folder + "/file";
    }
    ~RegularFile() override { std::filesystem::remove_all(folder); }

    void Put(const std::string& text) const { std::ofstream(path, std::ios::binary) << text; }
    std::string Get() const
    {
        std::ifstream stream(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }

    std::string folder;
    std::string path;
};

TEST_F(RegularFile, IsReadAsFopenReadsIt)
{
    Put("moon\r\nlight");
    for (const char* mode : {"r", "rb", "rt"}) {
        FILE* const file = platform::OpenRegularFile(path, mode);
        ASSERT_NE(nullptr, file) << mode;
        char text[32] = "";
        EXPECT_EQ(11u, fread(text, 1, sizeof text, file));
        EXPECT_STREQ("moon\r\nlight", text);
        EXPECT_EQ(EOF, fputc('x', file)) << "it can't be written";
        EXPECT_EQ(0, fcntl(fileno(file), F_GETFL) & O_NONBLOCK);
        EXPECT_NE(0, fcntl(fileno(file), F_GETFD) & FD_CLOEXEC) << "no child process inherits it";
        fclose(file);
    }
    EXPECT_EQ("moon\r\nlight", Get());
}

TEST_F(RegularFile, IsWrittenAsFopenWritesIt)
{
    const struct {
        const char* mode;
        const char* result;
        bool readable;
    } cases[] = {
        {"w", "x", false},     {"wb", "x", false},     {"w+", "x", true},    {"a", "moonx", false},
        {"a+", "moonx", true}, {"ab+", "moonx", true}, {"r+", "xoon", true}, {"rb+", "xoon", true},
    };
    for (const auto& each : cases) {
        Put("moon");
        FILE* const file = platform::OpenRegularFile(path, each.mode);
        ASSERT_NE(nullptr, file) << each.mode;
        fputc('x', file);
        EXPECT_EQ(0, fseek(file, 0, SEEK_SET));
        EXPECT_EQ(each.readable ? each.result[0] : EOF, fgetc(file)) << each.mode;
        fclose(file);
        EXPECT_EQ(each.result, Get()) << each.mode;
    }
}

TEST_F(RegularFile, IsCreatedByTheModesThatWriteAndByNoOthers)
{
    for (const char* mode : {"r", "r+"}) {
        EXPECT_EQ(nullptr, platform::OpenRegularFile(path, mode)) << mode;
        EXPECT_EQ(ENOENT, errno);
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    const mode_t mask = umask(022);
    for (const char* mode : {"w", "w+", "a", "a+"}) {
        FILE* const file = platform::OpenRegularFile(path, mode);
        EXPECT_NE(nullptr, file) << mode;
        fclose(file);
        EXPECT_EQ(0644, int(std::filesystem::status(path).permissions()));
        EXPECT_TRUE(platform::IsRegularFile(path));
        std::filesystem::remove(path);
    }
    umask(mask);
}

TEST_F(RegularFile, IsFoundThroughALink)
{
    Put("moon");
    std::filesystem::create_symlink("file", folder + "/link");
    EXPECT_TRUE(platform::IsRegularFile(folder + "/link"));
    FILE* const file = platform::OpenRegularFile(folder + "/link", "r");
    ASSERT_NE(nullptr, file);
    EXPECT_EQ('m', fgetc(file));
    fclose(file);
}

TEST_F(RegularFile, IsNothingElse)
{
    for (const OddFile& odd : OddFiles()) {
        odd.make(path);
        EXPECT_FALSE(platform::IsRegularFile(path)) << odd.name;
        for (const char* mode : {"r", "r+", "a+"}) {
            errno = 0;
            EXPECT_EQ(nullptr, platform::OpenRegularFile(path, mode)) << odd.name << " as " << mode;
            EXPECT_NE(0, errno);
        }
        remove(path.c_str());
    }
}

TEST_F(RegularFile, MayGetTheDescriptorOfAClosedStandardInput)
{
    Put("moon");
    const int kept = dup(0);
    close(0);
    FILE* const file = platform::OpenRegularFile(path, "r");
    ASSERT_NE(nullptr, file);
    EXPECT_EQ(0, fileno(file));
    EXPECT_EQ('m', fgetc(file));
    fclose(file);
    dup2(kept, 0);
    close(kept);
}

static std::ptrdiff_t OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
}

TEST_F(RegularFile, IsNotOpenedWithAModeThatFopenRefuses)
{
    Put("moon");
    const std::ptrdiff_t before = OpenDescriptors();
    EXPECT_EQ(nullptr, platform::OpenRegularFile(path, "q"));
    EXPECT_EQ(before, OpenDescriptors());
    EXPECT_EQ("moon", Get());
}

TEST_F(RegularFile, ARefusedOneLeavesNoDescriptorOpen)
{
    const std::ptrdiff_t before = OpenDescriptors();
    for (const OddFile& odd : OddFiles()) {
        odd.make(path);
        platform::OpenRegularFile(path, "r");
        EXPECT_EQ(before, OpenDescriptors()) << odd.name;
        remove(path.c_str());
    }
}
