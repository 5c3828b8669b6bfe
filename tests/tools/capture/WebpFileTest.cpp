// SPDX-License-Identifier: MIT
#include "tools/capture/WebpFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

using capture::AnimationLength;

class WebpFile : public testing::Test
{
protected:
    ~WebpFile() override { remove(path.c_str()); }

    static std::string Number(size_t value, int bytes)
    {
        std::string text;
        for (int i = 0; i < bytes; i++, value /= 256)
            text += char(value % 256);
        return text;
    }
    static std::string Chunk(const std::string& name, const std::string& content)
    {
        return name + Number(content.size(), 4) + content + (content.size() % 2 ? std::string(1, '\0') : "");
    }
    // Place and size of the frame, its time, flags, and a picture of so many bytes.
    static std::string FrameOf(size_t milliseconds, size_t bytes = 5)
    {
        return Chunk("ANMF",
                     std::string(12, '\x7f') + Number(milliseconds, 3) + "\x7f" + std::string(bytes, 'p'));
    }
    static std::string FileOf(const std::string& chunks)
    {
        return "RIFF" + Number(chunks.size() + 4, 4) + "WEBP" + chunks;
    }

    int64_t LengthOf(const std::string& file)
    {
        std::ofstream(path, std::ios::binary) << file;
        error = "";
        return AnimationLength(path, &error);
    }

    const std::string path = testing::TempDir() + "webp" + std::to_string(getpid());
    std::string error;
};

TEST_F(WebpFile, IsAsLongAsItsFramesTogether)
{
    const std::string head = Chunk("VP8X", std::string(10, '\0')) + Chunk("ANIM", std::string(6, '\0'));
    EXPECT_EQ(40 + 70000 + 1, LengthOf(FileOf(head + FrameOf(40) + FrameOf(70000, 4) + FrameOf(1))));
    EXPECT_EQ("", error);
}

TEST_F(WebpFile, OfOnePictureHasNoLength)
{
    EXPECT_EQ(0, LengthOf(FileOf(Chunk("VP8 ", "pixels"))));
}

TEST_F(WebpFile, ThatIsDamagedIsTold)
{
    const std::string whole = FileOf(FrameOf(40) + FrameOf(40));
    for (size_t size = 0; size < whole.size(); size++)
        EXPECT_EQ(-1, LengthOf(whole.substr(0, size))) << size;
    EXPECT_NE(std::string::npos, error.find("no whole WebP")) << error;
    EXPECT_EQ(-1, LengthOf(whole + "x"));
    EXPECT_EQ(-1, LengthOf("RIFX" + whole.substr(4)));
    EXPECT_EQ(-1, LengthOf(whole.substr(0, 8) + "WAVE" + whole.substr(12)));
    std::string longer = whole;
    longer[16] = '\x20'; // the first chunk reaches into the second
    EXPECT_EQ(-1, LengthOf(longer));
}

TEST_F(WebpFile, ThatIsMissingIsTold)
{
    EXPECT_EQ(-1, AnimationLength(path + "-nowhere", &error));
    EXPECT_NE(std::string::npos, error.find("No such file")) << error;
}
