// SPDX-License-Identifier: MIT
#include "music/Mp3Decoder.h"

#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

static std::string Mp3Bytes()
{
    return ReadFile(soundfiles::Make(soundfiles::KindOf("constant.mp3"), 5.0));
}

static std::string Save(const std::string& name, const std::string& bytes)
{
    const std::string path = soundfiles::TemporaryPath(name);
    soundfiles::WriteBytes(path, bytes);
    return path;
}

static std::string Noise(size_t size)
{
    std::string bytes;
    uint32_t random = 99;
    while (bytes.size() < size) {
        random = random * 1664525u + 1013904223u;
        bytes += char(random >> 24);
    }
    return bytes;
}

// What a tag of that many bytes of content looks like.
static std::string Tag(size_t content)
{
    std::string length;
    for (int shift : {21, 14, 7, 0})
        length += char(content >> shift & 127);
    return std::string("ID3\x03\0\x60", 6) + length + std::string(content, '\xFF');
}

static size_t FramesIn(Decoder* decoder)
{
    std::vector<float> block(Decoder::BlockFrames * decoder->speakers.size());
    size_t frames = 0;
    EXPECT_EQ(0, decoder->Seek(0));
    while (const int got = decoder->Read(block.data()))
        frames += size_t(got);
    return frames;
}

static int OpenDescriptors()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return int(std::distance(begin(descriptors), end(descriptors)));
}

// The file opens or not, is read from several places, and nothing is written to the standard error stream.
static size_t FramesInSilence(const std::string& path)
{
    testing::internal::CaptureStderr();
    size_t frames = 0;
    {
        const std::unique_ptr<Decoder> decoder = OpenDecoder(path, 44100);
        if (decoder) {
            std::vector<float> block(Decoder::BlockFrames * decoder->speakers.size());
            for (int64_t frame : {200000, 30000, 100000}) {
                decoder->Seek(frame);
                decoder->Read(block.data());
            }
            frames = FramesIn(decoder.get());
        }
    }
    EXPECT_EQ("", testing::internal::GetCapturedStderr()) << path;
    return frames;
}

TEST(Mp3Decoder, RecognisesAFrameAtTheStartOrBehindTags)
{
    const std::string bytes = Mp3Bytes();
    EXPECT_TRUE(Mp3Decoder::Recognises(Save("plain.bin", bytes)));
    EXPECT_TRUE(Mp3Decoder::Recognises(Save("tag.bin", Tag(300) + bytes)));
    EXPECT_TRUE(Mp3Decoder::Recognises(Save("tags.bin", Tag(300) + Tag(0) + bytes)));
    EXPECT_TRUE(Mp3Decoder::Recognises(Save("odd.bin", Tag(301) + bytes)));
    EXPECT_TRUE(Mp3Decoder::Recognises(Save("long.bin", Tag((1 << 21) + 16385) + bytes)));
    for (size_t letter : {0, 1, 2}) {
        std::string other = Tag(300) + bytes;
        other[letter]++;
        EXPECT_FALSE(Mp3Decoder::Recognises(Save("other.bin", other))) << letter;
    }
    EXPECT_FALSE(Mp3Decoder::Recognises(Save("shifted.bin", "x" + bytes)));
    EXPECT_FALSE(Mp3Decoder::Recognises(Save("tagonly.bin", Tag(300))));
    EXPECT_FALSE(Mp3Decoder::Recognises(Save("two.bin", bytes.substr(0, 2))));
    EXPECT_FALSE(Mp3Decoder::Recognises(Save("empty.bin", "")));
    EXPECT_FALSE(Mp3Decoder::Recognises("/no/such/file"));
}

TEST(Mp3Decoder, ReservedCodesAreNoFrame)
{
    for (const char* header : {"\xFF\xFB\x90", "\xFF\xF3\x90", "\xFF\xE3\x90", "\xFF\xFF\xE8"})
        EXPECT_TRUE(Mp3Decoder::Recognises(Save("header.bin", header)));
    // One synchronisation bit too few; version, layer, bit rate and sampling rate that are reserved.
    for (const char* header : {"\xFF\xDB\x90", "\xFE\xFB\x90", "\xFF\xEB\x90", "\xFF\xF9\x90", "\xFF\xFB\xF0",
                               "\xFF\xFB\xF1", "\xFF\xFB\x9C", "\xFF\xFB\x9D"})
        EXPECT_FALSE(Mp3Decoder::Recognises(Save("header.bin", header)));
}

TEST(Mp3Decoder, TheExtensionCountsInAnyCase)
{
    EXPECT_TRUE(Mp3Decoder::HasExtension("waltz.mp3"));
    EXPECT_TRUE(Mp3Decoder::HasExtension("WALTZ.MP3"));
    EXPECT_TRUE(Mp3Decoder::HasExtension(".mp3"));
    EXPECT_FALSE(Mp3Decoder::HasExtension("waltz.mp3.ogg"));
    EXPECT_FALSE(Mp3Decoder::HasExtension("mp3"));
}

TEST(Mp3Decoder, GivesItsFileBack)
{
    const std::string path = Save("whole.mp3", Mp3Bytes());
    const int before = OpenDescriptors();
    for (int i = 0; i < 3; i++) {
        std::unique_ptr<Decoder> decoder = Mp3Decoder::Open(path);
        ASSERT_NE(nullptr, decoder);
        EXPECT_EQ(before + 1, OpenDescriptors());
    }
    EXPECT_EQ(before, OpenDescriptors());
}

TEST(Mp3Decoder, OddFilesAreReadWithoutAWordOnTheStandardErrorStream)
{
    const std::string bytes = Mp3Bytes();
    const size_t whole = FramesInSilence(Save("whole.mp3", bytes));
    EXPECT_EQ(220500u, whole);
    std::string damaged = bytes;
    std::fill_n(damaged.begin() + 20000, 5000, '\0');
    EXPECT_GT(FramesInSilence(Save("damaged.mp3", damaged)), whole / 2);
    damaged = bytes;
    damaged.replace(20000, 5000, Noise(5000));
    EXPECT_GT(FramesInSilence(Save("scribbled.mp3", damaged)), whole / 2);
    EXPECT_GT(FramesInSilence(Save("cut.mp3", bytes.substr(0, bytes.size() * 3 / 4))), whole / 2);
    EXPECT_GT(FramesInSilence(Save("headless.mp3", bytes.substr(100))), whole / 2);
    EXPECT_GT(FramesInSilence(Save("late.mp3", std::string(3000, '\0') + bytes)), whole / 2);
    FramesInSilence(Save("noise.mp3", Noise(5000)));
    FramesInSilence(Save("frame.mp3", "\xFF\xFB\x90"));
    FramesInSilence(Save("framed.bin", "\xFF\xFB\x90" + Noise(5000)));
}

TEST(Mp3Decoder, ADamagedStartIsOnlySearchedThroughInAFileThatIsCalledMp3)
{
    const std::string headless = Mp3Bytes().substr(100);
    EXPECT_NE(nullptr, OpenDecoder(Save("headless.mp3", headless), 44100));
    EXPECT_EQ(nullptr, OpenDecoder(Save("headless.bin", headless), 44100));
}

TEST(Mp3Decoder, AFileOfThatNameThatHoldsSomethingElseIsReadAsWhatItIs)
{
    const std::string wave = ReadFile(soundfiles::Make(soundfiles::KindOf("16bit.wav"), 1.0));
    EXPECT_EQ(44100u, FramesInSilence(Save("wave.mp3", wave)));
}

TEST(Mp3Decoder, OpeningWhatCannotBeOpenedLeavesNoFileOpen)
{
    const std::string path = Save("noise.mp3", std::string(5000, 'x'));
    EXPECT_EQ(nullptr, OpenDecoder(path, 44100)) << "the libraries settle";
    const int before = OpenDescriptors();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(nullptr, OpenDecoder(path, 44100));
    EXPECT_EQ(before, OpenDescriptors());
}

// 8 kbit/s: a frame has 5 bytes of its own and takes the rest from up to 51 frames before it.
static const soundfiles::Kind whisper = {
    "whisper.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 22050, 2, 1.0, SF_BITRATE_MODE_CONSTANT};

// The library keeps places of a thousand frames unless it is told otherwise; these are 2300.
TEST(Mp3Decoder, SeeksAreRightAtTheLowestBitRateAndHoweverLongTheMusicIs)
{
    const std::unique_ptr<Decoder> decoder = Mp3Decoder::Open(soundfiles::Make(whisper, 60.0));
    ASSERT_NE(nullptr, decoder);
    std::vector<float> whole, block(Decoder::BlockFrames * 2);
    EXPECT_EQ(0, decoder->Seek(0));
    while (const int got = decoder->Read(block.data()))
        whole.insert(whole.end(), block.begin(), block.begin() + got * 2);
    ASSERT_GE(whole.size(), size_t(60 * 22050 * 2));
    for (int64_t frame : {1200000, 414218, 1000001, 586001, 1234567, 20000}) {
        int64_t position = decoder->Seek(frame);
        EXPECT_LE(position, frame);
        for (int got; position < frame + 10000 && (got = decoder->Read(block.data())) > 0; position += got)
            for (int i = int(std::clamp<int64_t>(frame - position, 0, got)) * 2; i < got * 2; ++i)
                ASSERT_NEAR(whole[size_t(position * 2 + i)], block[size_t(i)], 1e-6) << frame << " " << i;
    }
}

TEST(Mp3Decoder, AStreamThatGoesOnInMonoStaysInTheStereoThatItBeganWith)
{
    const soundfiles::Kind mono = {
        "mono.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 44100, 1, 0.4, SF_BITRATE_MODE_CONSTANT};
    const std::unique_ptr<Decoder> decoder =
        Mp3Decoder::Open(Save("both.mp3", Mp3Bytes() + ReadFile(soundfiles::Make(mono, 5.0))));
    ASSERT_NE(nullptr, decoder);
    EXPECT_EQ(2u, decoder->speakers.size());
    std::vector<float> block(Decoder::BlockFrames * 2), heard;
    EXPECT_EQ(0, decoder->Seek(0));
    while (const int got = decoder->Read(block.data()))
        heard.insert(heard.end(), block.begin(), block.begin() + got * 2);
    EXPECT_GT(heard.size(), size_t(430000 * 2));
    int different = 0;
    for (size_t i = heard.size() - 100000 * 2; i < heard.size(); i += 2)
        different += heard[i] != heard[i + 1];
    EXPECT_EQ(0, different) << "both sides of the second half are the one of mono";
}
