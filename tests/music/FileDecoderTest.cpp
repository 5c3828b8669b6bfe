// SPDX-License-Identifier: MIT
// Seeks and damage, against the same file decoded from its start to its end by the library alone.
#include "music/FileDecoder.h"

#include "music/OggPages.h"
#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <filesystem>

#include <fcntl.h>

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

// The descriptors by which this process has the file open.
static std::vector<int> DescriptorsOf(const std::string& path)
{
    std::vector<int> descriptors;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (std::filesystem::read_symlink(entry.path(), error) == std::filesystem::absolute(path))
            descriptors.push_back(std::stoi(entry.path().filename().string()));
    }
    return descriptors;
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
    EXPECT_EQ(1u, DescriptorsOf(path).size());
}

TEST(FileDecoder, BehindDamagePlacesAreTried4096FramesOnAndFromFourTimesThatAQuarterFurtherEachTime)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 3.0);
    Damage(path, 0.02, 0.333, '\x55'); // the frames of 4096 up to 45056
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    // 4096, 8192, 12288, 16384, 20480, 25600, 32000, 40000, 50000
    EXPECT_EQ(50000u, SilentFramesAhead(ReadFrom(decoder.get(), 0, 132300)));
    // From the place sought: 8000 + 40000
    EXPECT_EQ(40000u, SilentFramesAhead(ReadFrom(decoder.get(), 8000, 132300)));
}

TEST(FileDecoder, ASeekOutOfTheSilenceIsHeardAtOnce)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 3.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.02, 0.333, '\x55');
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    std::vector<float> block(Decoder::BlockFrames * 2, 1.0f);
    EXPECT_EQ(8000, decoder->Seek(8000));
    EXPECT_EQ(1024, decoder->Read(block.data()));
    EXPECT_EQ(std::vector<float>(1024 * 2, 0.0f), block);
    EXPECT_EQ(Part(whole, 100000, 5000), ReadFrom(decoder.get(), 100000, 5000));
}

TEST(FileDecoder, DamageUpToTheEndIsTheEnd)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 3.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.5, 1.0, '\x55');
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    const std::vector<float> heard = ReadFrom(decoder.get(), 0, 132300);
    EXPECT_LT(heard.size(), size_t(70000 * 2));
    EXPECT_EQ(Part(whole, 0, heard.size() / 2), heard);
    EXPECT_EQ(-1, decoder->Seek(110000));
}

TEST(FileDecoder, WhatAnOggStepsOverIsLeftOutAndItsLastSecondsAreHeardOnce)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("vorbis.ogg"), 5.0);
    const std::vector<float> whole = soundfiles::Decode(path);
    Damage(path, 0.4, 0.6, '\0');
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    for (int round = 0; round < 2; ++round) {
        const std::vector<float> heard = ReadFrom(decoder.get(), 0, 300000);
        ASSERT_LT(heard.size(), whole.size() - 20000 * 2);
        EXPECT_TRUE(std::equal(heard.end() - 20000 * 2, heard.end(), whole.end() - 20000 * 2));
        std::vector<float> block(Decoder::BlockFrames * 2);
        EXPECT_EQ(0, decoder->Read(block.data())) << "the end stays the end";
    }
}

TEST(FileDecoder, ALastBlockOfOneFrameIsGiven)
{
    const soundfiles::Kind& kind = soundfiles::KindOf("16bit.wav");
    const std::string path = soundfiles::TemporaryPath(kind.name);
    soundfiles::Write(path, std::vector<float>(1025 * 2, 0.5f), kind);
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    std::vector<float> block(Decoder::BlockFrames * 2);
    EXPECT_EQ(1024, decoder->Read(block.data()));
    EXPECT_EQ(1, decoder->Read(block.data()));
    EXPECT_EQ(0, decoder->Read(block.data()));
}

TEST(FileDecoder, ASpeakerIsWhatTheFileCallsIt)
{
    const std::pair<int, Speaker> places[] = {
        {SF_CHANNEL_MAP_LEFT, SpeakerLeft},
        {SF_CHANNEL_MAP_FRONT_LEFT_OF_CENTER, SpeakerLeft},
        {SF_CHANNEL_MAP_TOP_FRONT_LEFT, SpeakerLeft},
        {SF_CHANNEL_MAP_RIGHT, SpeakerRight},
        {SF_CHANNEL_MAP_FRONT_RIGHT_OF_CENTER, SpeakerRight},
        {SF_CHANNEL_MAP_TOP_FRONT_RIGHT, SpeakerRight},
        {SF_CHANNEL_MAP_REAR_LEFT, SpeakerSurroundLeft},
        {SF_CHANNEL_MAP_SIDE_LEFT, SpeakerSurroundLeft},
        {SF_CHANNEL_MAP_TOP_REAR_LEFT, SpeakerSurroundLeft},
        {SF_CHANNEL_MAP_REAR_RIGHT, SpeakerSurroundRight},
        {SF_CHANNEL_MAP_SIDE_RIGHT, SpeakerSurroundRight},
        {SF_CHANNEL_MAP_TOP_REAR_RIGHT, SpeakerSurroundRight},
        {SF_CHANNEL_MAP_REAR_CENTER, SpeakerSurroundCentre},
        {SF_CHANNEL_MAP_TOP_REAR_CENTER, SpeakerSurroundCentre},
        {SF_CHANNEL_MAP_LFE, SpeakerLowFrequency},
        {SF_CHANNEL_MAP_CENTER, SpeakerCentre},
        {SF_CHANNEL_MAP_TOP_CENTER, SpeakerCentre},
    };
    for (const auto& [place, speaker] : places) {
        // The place asked about and one beside it that lies in another row of the header's bits.
        const int other =
            place < SF_CHANNEL_MAP_TOP_CENTER ? SF_CHANNEL_MAP_TOP_FRONT_CENTER : SF_CHANNEL_MAP_LEFT;
        int map[] = {std::min(place, other), std::max(place, other)};
        SF_INFO info = {};
        info.samplerate = 44100;
        info.channels = 2;
        info.format = SF_FORMAT_WAVEX | SF_FORMAT_PCM_16;
        const std::string path = soundfiles::TemporaryPath("map.wav");
        SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
        ASSERT_NE(nullptr, file);
        ASSERT_TRUE(sf_command(file, SFC_SET_CHANNEL_MAP_INFO, map, sizeof map)) << place;
        const float samples[4] = {};
        sf_writef_float(file, samples, 2);
        sf_close(file);
        const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
        ASSERT_NE(nullptr, decoder);
        ASSERT_EQ(2u, decoder->speakers.size());
        EXPECT_EQ(speaker, decoder->speakers[place < other ? 0 : 1]) << place;
    }
}

TEST(FileDecoder, AFileWithoutAHeaderIsKnownByItsExtension)
{
    const soundfiles::Kind voice = {"voice.gsm", SF_FORMAT_RAW | SF_FORMAT_GSM610, 8000, 1, -1.0, -1};
    const std::unique_ptr<Decoder> decoder = FileDecoder::Open(soundfiles::Make(voice, 0.5));
    ASSERT_NE(nullptr, decoder);
    EXPECT_EQ(8000, decoder->rate);
    EXPECT_EQ(1u, decoder->speakers.size());
}

TEST(FileDecoder, AFileOfAnotherKindThatIsCalledMp3IsNotHandedToChildProcesses)
{
    const std::string path = soundfiles::TemporaryPath("wave.mp3");
    soundfiles::WriteBytes(path, ReadFile(soundfiles::Make(soundfiles::KindOf("16bit.wav"), 0.1)));
    std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
    ASSERT_NE(nullptr, decoder);
    const std::vector<int> descriptors = DescriptorsOf(path);
    ASSERT_EQ(1u, descriptors.size());
    EXPECT_TRUE(fcntl(descriptors[0], F_GETFD) & FD_CLOEXEC);
    decoder.reset();
    EXPECT_TRUE(DescriptorsOf(path).empty());
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

// At another rate, with other channels, and both.
TEST(FileDecoder, AnotherFileThatTookThePlaceOfADamagedOneIsNotPlayed)
{
    for (const char* otherKind : {"half.wav", "studio.wav", "mono.wav"}) {
        SCOPED_TRACE(otherKind);
        const std::string path = soundfiles::Make(soundfiles::KindOf("lossless.flac"), 3.0);
        Damage(path, 0.4, 0.5, '\x55');
        const std::unique_ptr<Decoder> decoder = FileDecoder::Open(path);
        ASSERT_NE(nullptr, decoder);
        ReadFrom(decoder.get(), 0, 1000);
        const std::string aside = soundfiles::TemporaryPath("aside.flac");
        std::filesystem::rename(path, aside);
        std::filesystem::rename(soundfiles::Make(soundfiles::KindOf(otherKind), 3.0), path);
        const std::vector<float> heard = ReadFrom(decoder.get(), 0, 132300);
        EXPECT_GT(heard.size(), size_t(40000 * 2));
        EXPECT_LT(heard.size(), size_t(60000 * 2));
        EXPECT_EQ(-1, decoder->Seek(0));
        EXPECT_TRUE(DescriptorsOf(path).empty());
        std::vector<float> block(Decoder::BlockFrames * 2);
        EXPECT_EQ(0, decoder->Read(block.data()));

        std::filesystem::rename(aside, path);
        EXPECT_EQ(1000u * 2, ReadFrom(decoder.get(), 100000, 1000).size()) << "it is back";
    }
}
