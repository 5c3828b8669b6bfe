// SPDX-License-Identifier: MIT
#include "music/ModuleDecoder.h"

#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

static std::vector<float> ReadBlock(Decoder* decoder)
{
    std::vector<float> block(Decoder::BlockFrames * 2);
    EXPECT_EQ(1024, decoder->Read(block.data()));
    return block;
}

static std::string MakeModule()
{
    return soundfiles::Make(soundfiles::KindOf("waltz.mod"), 3.0);
}

static long OpenDescriptors()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::distance(begin(descriptors), end(descriptors));
}

TEST(ModuleDecoder, RendersInStereoAtTheRateOfTheMix)
{
    for (int rate : {44100, 48000}) {
        const std::unique_ptr<Decoder> decoder = ModuleDecoder::Open(MakeModule(), rate);
        ASSERT_NE(nullptr, decoder);
        EXPECT_EQ(rate, decoder->rate);
        EXPECT_EQ((std::vector<Speaker>{SpeakerLeft, SpeakerRight}), decoder->speakers);
    }
}

TEST(ModuleDecoder, OpensNoModuleWhereThereIsNone)
{
    EXPECT_EQ(nullptr, ModuleDecoder::Open("/no/such/file", 44100));
    EXPECT_EQ(nullptr, ModuleDecoder::Open(soundfiles::Make(soundfiles::KindOf("16bit.wav"), 0.1), 44100));
}

TEST(ModuleDecoder, ASeekAheadGoesOnFromWhereItIsAndOneBackStartsAnew)
{
    const std::unique_ptr<Decoder> decoder = ModuleDecoder::Open(MakeModule(), 44100);
    ASSERT_NE(nullptr, decoder);
    EXPECT_EQ(0, decoder->Seek(5));
    const std::vector<float> first = ReadBlock(decoder.get());
    EXPECT_EQ(1024, decoder->Seek(1024));
    EXPECT_EQ(1024, decoder->Seek(44100));
    const std::vector<float> second = ReadBlock(decoder.get());
    EXPECT_NE(first, second);
    EXPECT_EQ(0, decoder->Seek(2047));
    EXPECT_EQ(first, ReadBlock(decoder.get()));
    EXPECT_EQ(second, ReadBlock(decoder.get()));
    EXPECT_EQ(2048, decoder->Seek(2048));
}

TEST(ModuleDecoder, AFileOver64MebibytesIsLeftAlone)
{
    const std::string path = MakeModule();
    std::filesystem::resize_file(path, 64 << 20); // a hole: it takes no room
    EXPECT_NE(nullptr, ModuleDecoder::Open(path, 44100));
    std::filesystem::resize_file(path, (64 << 20) + 1);
    const long before = OpenDescriptors();
    EXPECT_EQ(nullptr, ModuleDecoder::Open(path, 44100));
    EXPECT_EQ(before, OpenDescriptors());
}
