// SPDX-License-Identifier: MIT
#include "resources/ImageFiles.h"

#include "tests/resources/ImageLibrary.h"
#include "tests/support/ShowFixture.h"

#include <cstdio>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

class ImageFiles : public ShowFixture
{
};

TEST_F(ImageFiles, AFileIsReadWithAllItsBytes)
{
    std::string content("\0\r\n\x1A\xFF", 5);
    for (int i = 0; i < 100000; i++)
        content += static_cast<char>(i * 7);
    AddFile("bytes.bin", content);
    EXPECT_EQ(content, ReadPictureFile(PathOf("bytes.bin")));
}

TEST_F(ImageFiles, WhatIsNoRegularFileIsEmpty)
{
    std::filesystem::create_directory(PathOf("directory.jpg"));
    ASSERT_EQ(0, mkfifo(PathOf("pipe.jpg").c_str(), 0600)); // reading it would wait for ever
    AddFile("empty.jpg", "");
    EXPECT_EQ("", ReadPictureFile(PathOf("directory.jpg")));
    EXPECT_EQ("", ReadPictureFile(PathOf("pipe.jpg")));
    EXPECT_EQ("", ReadPictureFile(PathOf("empty.jpg")));
    EXPECT_EQ("", ReadPictureFile(PathOf("missing.jpg")));
    EXPECT_EQ("", ReadPictureFile("/dev/zero"));
    EXPECT_EQ("", ReadPictureFile(""));
}

TEST_F(ImageFiles, AFileOver256MebibytesIsLeftAlone)
{
    AddFile("large.jpg", "x");
    const std::string path = PathOf("large.jpg");
    ASSERT_EQ(0, truncate(path.c_str(), 256l << 20)); // a hole: it takes no room
    EXPECT_EQ(256u << 20, ReadPictureFile(path).size());
    ASSERT_EQ(0, truncate(path.c_str(), (256l << 20) + 1));
    EXPECT_EQ("", ReadPictureFile(path));
}

// ---- What the library reads with

class FilesForLibrary : public ShowFixture
{
protected:
    FilesForLibrary()
    {
        GuardImageFiles();
        io = LibraryFileFunctions();
        AddFile("letters.bin", "abcdefgh\xFF");
        file = io.open(PathOf("letters.bin").c_str());
    }
    ~FilesForLibrary() override { io.close(file); }

    // So many things of that size each, as text; the rest of the buffer is told by dots.
    std::string Read(unsigned size, unsigned count, int expected)
    {
        std::string buffer(16, '.');
        EXPECT_EQ(expected, io.read(buffer.data(), size, count, file));
        return buffer.substr(0, buffer.find_last_not_of('.') + 1);
    }

    FileFunctions io;
    ILHANDLE file;
};

TEST_F(FilesForLibrary, AreOpenAtTheirStart)
{
    ASSERT_NE(nullptr, file);
    EXPECT_EQ(0, io.tell(file));
    EXPECT_FALSE(io.isAtEnd(file));
    EXPECT_EQ(nullptr, io.open(PathOf("missing.bin").c_str()));
}

TEST_F(FilesForLibrary, GiveOneByteAfterTheOtherAndThenTheirEnd)
{
    for (const int letter : std::vector<int>{'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h', 0xFF}) {
        EXPECT_FALSE(io.isAtEnd(file));
        EXPECT_EQ(letter, io.getByte(file));
    }
    EXPECT_TRUE(io.isAtEnd(file));
    EXPECT_EQ(9, io.tell(file));
    EXPECT_EQ(EOF, io.getByte(file));
    EXPECT_EQ(EOF, io.getByte(file));
    EXPECT_EQ(9, io.tell(file));
}

TEST_F(FilesForLibrary, AreReadInThingsOfWhichWholeOnesCountAndTheMissingBytesAreZeros)
{
    EXPECT_EQ("abcd", Read(2, 2, 2));
    EXPECT_EQ(4, io.tell(file));
    EXPECT_EQ(std::string("efgh\xFF\0\0\0\0", 9), Read(3, 3, 1));
    EXPECT_EQ(9, io.tell(file));
    EXPECT_TRUE(io.isAtEnd(file));
    EXPECT_EQ(std::string(5, '\0'), Read(1, 5, 0));
    EXPECT_EQ(9, io.tell(file));
}

TEST_F(FilesForLibrary, NothingCanBeReadAsWell)
{
    EXPECT_EQ("", Read(1, 0, 0));
    EXPECT_EQ("", Read(0, 5, 0));
    EXPECT_EQ(0, io.tell(file));
    EXPECT_EQ("a", Read(1, 1, 1));
}

TEST_F(FilesForLibrary, AreSoughtInAsFilesOfTheSystemAre)
{
    EXPECT_EQ(0, io.seek(file, 3, IL_SEEK_SET));
    EXPECT_EQ('d', io.getByte(file));
    EXPECT_EQ(0, io.seek(file, 2, IL_SEEK_CUR));
    EXPECT_EQ('g', io.getByte(file));
    EXPECT_EQ(0, io.seek(file, -2, IL_SEEK_CUR));
    EXPECT_EQ('f', io.getByte(file));
    EXPECT_EQ(0, io.seek(file, -4, IL_SEEK_END));
    EXPECT_EQ('f', io.getByte(file));
    EXPECT_EQ(0, io.seek(file, 0, IL_SEEK_SET));
    EXPECT_EQ('a', io.getByte(file));
}

TEST_F(FilesForLibrary, ASeekAheadOfTheStartFailsAndLeavesThePlace)
{
    io.seek(file, 3, IL_SEEK_SET);
    EXPECT_EQ(-1, io.seek(file, -1, IL_SEEK_SET));
    EXPECT_EQ(-1, io.seek(file, -4, IL_SEEK_CUR));
    EXPECT_EQ(-1, io.seek(file, -10, IL_SEEK_END));
    EXPECT_EQ(3, io.tell(file));
    EXPECT_EQ(0, io.seek(file, -3, IL_SEEK_CUR)) << "the start itself";
    EXPECT_EQ(0, io.tell(file));
}

TEST_F(FilesForLibrary, ASeekBehindTheEndFindsNothingThere)
{
    EXPECT_EQ(0, io.seek(file, 5, IL_SEEK_END));
    EXPECT_EQ(14, io.tell(file));
    EXPECT_TRUE(io.isAtEnd(file));
    EXPECT_EQ(EOF, io.getByte(file));
    EXPECT_EQ(std::string(2, '\0'), Read(1, 2, 0));
    EXPECT_EQ(14, io.tell(file));
}
