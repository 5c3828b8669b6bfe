// SPDX-License-Identifier: MIT
#include "resources/ImageFiles.h"

#include "tests/support/ShowFixture.h"

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
