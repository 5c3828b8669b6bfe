// SPDX-License-Identifier: MIT
// Seeks and damage, against the same file decoded from its start to its end by the library alone.
#include "music/FileDecoder.h"

#include "music/OggPages.h"
#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>

// Stereo frames from `frame` on, fewer where the music ends. Nothing is said about what comes ahead of it.
static std::vector<float> ReadFrom(Decoder* decoder, int64_t frame, size_t count)
{
    std::vector<float> block(Decoder::BlockFrames * 2);
    std::vector<float> heard;
    int64_t position = decoder->Seek(frame);
    EXPECT_LE(position, frame);
    if (position < 0)
        return heard;
    int got;
    while (heard.size() < count * 2 && (got = decoder->Read(block.data())) > 0) {
        const int64_t skipped = std::clamp<int64_t>(frame - position, 0, got);
        heard.insert(heard.end(), block.begin() + skipped * 2, block.begin() + got * 2);
        position += got;
    }
    heard.resize(std::min(heard.size(), count * 2));
    return heard;
}

static size_t SilentFramesAhead(const std::vector<float>& heard)
{
    const auto sound = std::find_if(heard.begin(), heard.end(), [](float sample) { return sample != 0.0f; });
    return size_t(sound - heard.begin()) / 2;
}

static std::vector<float> Part(const std::vector<float>& samples, size_t frame, size_t count)
{
    const auto from = samples.begin() + long(std::min(frame * 2, samples.size()));
    const auto to = samples.begin() + long(std::min((frame + count) * 2, samples.size()));
    return std::vector<float>(from, to);
}

// The file with the bytes between two parts of its length overwritten.
static void Damage(const std::string& path, double from, double to, char value)
{
    std::string bytes = ReadFile(path);
    for (size_t at = size_t(from * double(bytes.size())); at < size_t(to * double(bytes.size())); ++at)
        bytes[at] = value;
    soundfiles::WriteBytes(path, bytes);
}

static const soundfiles::Kind longPages = {
    "longpages.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 44100, 2, 1.0, -1};

TEST(FileDecoder, SeeksIntoALastPageLongerThanTheRunUpAreExact)
{
    const std::string path = soundfiles::Make(longPages, 19.7);
    ASSERT_GT(LastOggPageFrames(path), 16384) << "a shorter page proves nothing";
    const std::vector<float> whole = soundfiles::Decode(path);
    ASSERT_EQ(size_t(868770 * 2), whole.size());
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    for (int64_t frame = 868770 - 66150; frame < 868770; frame += 1187)
        ASSERT_TRUE(Part(whole, size_t(frame), 66150) == ReadFrom(decoder.get(), frame, 66150)) << frame;
}

TEST(FileDecoder, ASeekIntoAHoleOfAnOggIsSilentUpToWhereItEndsAndInTimeFromThere)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("vorbis.ogg"), 20.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.45, 0.65, '\0');
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    for (int64_t frame : {430000, 470000, 520000}) {
        const std::vector<float> heard = ReadFrom(decoder.get(), frame, 300000);
        const size_t silent = SilentFramesAhead(heard);
        EXPECT_GT(silent, 30000u) << frame;
        EXPECT_LT(silent, 180000u) << frame;
        // Vorbis needs a block or two to be right again.
        const size_t right = silent + 8192;
        EXPECT_TRUE(Part(whole, size_t(frame) + right, 50000) == Part(heard, right, 50000)) << frame;
    }
    EXPECT_EQ(Part(whole, 100000, 20000), ReadFrom(decoder.get(), 100000, 20000)) << "ahead of the hole";
}

TEST(FileDecoder, AFlacThatIsDamagedAtItsStartIsHeardFromTheNextSoundPlaceOn)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 10.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.006, 0.1, '\x55'); // from within the first frame
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    for (int64_t frame : {0, 3000, 20000, 20001, 0}) {
        const std::vector<float> heard = ReadFrom(decoder.get(), frame, 441000);
        ASSERT_EQ(size_t(441000 - frame) * 2, heard.size());
        const size_t silent = SilentFramesAhead(heard);
        EXPECT_GE(frame + int64_t(silent), 40000);
        EXPECT_LE(frame + int64_t(silent), 60000)
            << "44100 frames are damaged, and a quarter more is allowed";
        EXPECT_TRUE(Part(whole, size_t(frame) + silent, 441000) == Part(heard, silent, 441000));
    }
}

TEST(FileDecoder, ASeekToTheSoundFrameAheadOfDamageIsHeardUpToThere)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 10.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.012, 0.1, '\x55'); // from within the second frame of 4096
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    const std::vector<float> heard = ReadFrom(decoder.get(), 3000, 441000);
    ASSERT_EQ(size_t(441000 - 3000) * 2, heard.size());
    EXPECT_EQ(Part(whole, 3000, 1096), Part(heard, 0, 1096));
    EXPECT_EQ(std::vector<float>(30000 * 2, 0.0f), Part(heard, 6000, 30000));
    EXPECT_TRUE(Part(whole, 63000, 441000) == Part(heard, 60000, 441000));
}

TEST(FileDecoder, AFlacThatIsDamagedInItsMiddleGoesOnInTimeBehindTheDamage)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 10.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.4, 0.5, '\x55');
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    for (int round = 0; round < 2; ++round) {
        const std::vector<float> heard = ReadFrom(decoder.get(), 0, 500000);
        ASSERT_EQ(whole.size(), heard.size());
        EXPECT_EQ(Part(whole, 0, 160000), Part(heard, 0, 160000));
        EXPECT_EQ(std::vector<float>(20000 * 2, 0.0f), Part(heard, 190000, 20000));
        EXPECT_EQ(Part(whole, 245000, 441000), Part(heard, 245000, 441000));
    }
}

TEST(FileDecoder, AFlacThatIsCutOffEndsWhereItsBytesDo)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 10.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    const std::string bytes = ReadFile(path);
    soundfiles::WriteBytes(path, bytes.substr(0, bytes.size() / 2));
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    for (int round = 0; round < 2; ++round) {
        const std::vector<float> heard = ReadFrom(decoder.get(), 0, 441000);
        EXPECT_GT(heard.size(), size_t(200000 * 2));
        EXPECT_LT(heard.size(), size_t(240000 * 2));
        EXPECT_EQ(Part(whole, 0, heard.size() / 2), heard);
    }
}

TEST(FileDecoder, AnotherFileThatTookThePlaceOfADamagedOneIsNotPlayed)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 10.0);
    Damage(path, 0.4, 0.5, '\x55');
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    ReadFrom(decoder.get(), 0, 1000);
    const std::string other = soundfiles::Make(soundfiles::KindOf("half.wav"), 10.0);
    std::rename(other.c_str(), path.c_str());
    const std::vector<float> heard = ReadFrom(decoder.get(), 0, 441000);
    EXPECT_GT(heard.size(), size_t(160000 * 2));
    EXPECT_LT(heard.size(), size_t(200000 * 2));
    EXPECT_TRUE(ReadFrom(decoder.get(), 0, 1000).empty());
}
