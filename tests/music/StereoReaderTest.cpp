// SPDX-License-Identifier: MIT
#include "music/StereoReader.h"

#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

// Reads until the end, or until there are `most` frames; left samples.
static std::vector<float> ReadAll(StereoReader* reader, int piece, size_t most = 1 << 30)
{
    std::vector<StereoFrame> stereo(piece);
    std::vector<float> left;
    while (!reader->IsAtEnd() && left.size() < most) {
        const int got = reader->Read(stereo.data(), piece);
        EXPECT_LE(got, piece);
        for (int i = 0; i < got; ++i) {
            EXPECT_EQ(stereo[i].left, -stereo[i].right);
            left.push_back(stereo[i].left);
        }
    }
    return left;
}

TEST(StereoReader, GivesEveryFrameOnceInPiecesOfAnyLength)
{
    for (int piece : {1, 7, 1023, 1024, 1025, 5000}) {
        StereoReader reader(std::make_unique<NumberedDecoder>(5000), 44100);
        const std::vector<float> left = ReadAll(&reader, piece);
        ASSERT_EQ(5000u, left.size()) << piece;
        for (int i = 0; i < 5000; ++i)
            ASSERT_EQ(NumberedDecoder::Sample(i), left[size_t(i)]) << piece;
    }
}

TEST(StereoReader, IsAtItsEndWithTheLastFrameWhenThatIsKnown)
{
    StereoReader reader(std::make_unique<NumberedDecoder>(1124), 44100);
    StereoFrame stereo[1024];
    EXPECT_EQ(1, reader.Read(stereo, 1));
    EXPECT_EQ(1024, reader.Read(stereo, 1024)); // and the last block is decoded
    EXPECT_FALSE(reader.IsAtEnd());
    EXPECT_EQ(99, reader.Read(stereo, 100));
    EXPECT_TRUE(reader.IsAtEnd());
    EXPECT_EQ(0, reader.Read(stereo, 1));
}

TEST(StereoReader, MusicWithoutAFrameIsAtItsEndAtOnceAtEveryRate)
{
    for (int rate : {22050, 44100, 48000}) {
        auto decoder = std::make_unique<NumberedDecoder>(0);
        decoder->rate = rate;
        StereoReader reader(std::move(decoder), 44100);
        StereoFrame stereo[10];
        EXPECT_FALSE(reader.IsAtEnd());
        EXPECT_EQ(0, reader.Read(stereo, 10)) << rate;
        EXPECT_TRUE(reader.IsAtEnd()) << rate;
        EXPECT_EQ(0, reader.Read(stereo, 10));
    }
}

TEST(StereoReader, ALastBlockOfOneFrameIsGiven)
{
    StereoReader reader(std::make_unique<NumberedDecoder>(1025), 44100);
    EXPECT_EQ(1025u, ReadAll(&reader, 1024).size());
}

TEST(StereoReader, DecodesNothingWhileItHasTheFramesThatAreAskedFor)
{
    auto decoder = std::make_unique<NumberedDecoder>(5000);
    const NumberedDecoder* numbered = decoder.get();
    StereoReader reader(std::move(decoder), 44100);
    StereoFrame stereo[1024];
    EXPECT_EQ(1000, reader.Read(stereo, 1000));
    EXPECT_EQ(1024, numbered->position);
    EXPECT_EQ(24, reader.Read(stereo, 24));
    EXPECT_EQ(1024, numbered->position);
    EXPECT_EQ(1, reader.Read(stereo, 1));
    EXPECT_EQ(2048, numbered->position);
}

TEST(StereoReader, ADecoderMayGiveFewFramesAtATime)
{
    auto decoder = std::make_unique<NumberedDecoder>(3000);
    decoder->shortest = 13;
    StereoReader reader(std::move(decoder), 44100);
    const std::vector<float> left = ReadAll(&reader, 100);
    ASSERT_EQ(3000u, left.size());
    for (int i = 0; i < 3000; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(i), left[size_t(i)]);
}

TEST(StereoReader, ASeekThatLandsAheadIsReadUpToItsPlaceOneBlockAtATime)
{
    auto decoder = std::make_unique<NumberedDecoder>(100000);
    decoder->seekBackOff = 16384;
    NumberedDecoder* numbered = decoder.get();
    StereoReader reader(std::move(decoder), 44100);
    reader.Seek(50000);
    StereoFrame stereo[1024];
    for (int block = 1; block <= 16; ++block) {
        ASSERT_EQ(0, reader.Read(stereo, 1024));
        ASSERT_FALSE(reader.IsAtEnd());
        ASSERT_EQ(50000 - 16384 + block * 1024, numbered->position);
    }
    ASSERT_EQ(1024, reader.Read(stereo, 1024));
    for (int i = 0; i < 1024; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(50000 + i), stereo[i].left);
}

TEST(StereoReader, AFrameBelowZeroIsTheFirst)
{
    StereoReader reader(std::make_unique<NumberedDecoder>(100), 44100);
    reader.Seek(-5);
    EXPECT_EQ(NumberedDecoder::Sample(0), ReadAll(&reader, 10).at(0));
}

TEST(StereoReader, APlaceThatCannotBeReachedIsTheEnd)
{
    auto decoder = std::make_unique<NumberedDecoder>(100000);
    NumberedDecoder* numbered = decoder.get();
    StereoReader reader(std::move(decoder), 44100);
    numbered->seekFails = true;
    reader.Seek(500);
    EXPECT_TRUE(reader.IsAtEnd());
    StereoFrame stereo;
    EXPECT_EQ(0, reader.Read(&stereo, 1));
    numbered->seekFails = false;
    reader.Seek(500);
    EXPECT_FALSE(reader.IsAtEnd());
    EXPECT_EQ(1, reader.Read(&stereo, 1));
    EXPECT_EQ(NumberedDecoder::Sample(500), stereo.left);
}

TEST(StereoReader, APlaceBehindTheEndHasNoFrames)
{
    auto decoder = std::make_unique<NumberedDecoder>(1000);
    decoder->seekBackOff = 5000;
    StereoReader reader(std::move(decoder), 44100);
    for (int64_t place : {1000, 1001, 5000}) {
        reader.Seek(place);
        EXPECT_EQ(0u, ReadAll(&reader, 10).size()) << place;
        EXPECT_TRUE(reader.IsAtEnd());
    }
    reader.Seek(999);
    EXPECT_EQ(1u, ReadAll(&reader, 10).size());
}

TEST(StereoReader, ADecoderThatLandsBeyondThePlaceGivesSilenceAndNotWhatLiesAheadOfItsFrames)
{
    auto decoder = std::make_unique<NumberedDecoder>(100000);
    NumberedDecoder* numbered = decoder.get();
    StereoReader reader(std::move(decoder), 44100);
    numbered->seekBackOff = -1;
    reader.Seek(50000);
    EXPECT_TRUE(ReadAll(&reader, 100).empty());
    EXPECT_TRUE(reader.IsAtEnd());
    numbered->seekBackOff = 0;
    reader.Seek(50000);
    EXPECT_EQ(NumberedDecoder::Sample(50000), ReadAll(&reader, 100, 100).at(0));
}

TEST(StereoReader, AtAnotherRateASeekGivesTheBitsOfPlayingUpToThePlace)
{
    for (int rate : {48000, 22050, 96000, 44099}) {
        auto decoder = std::make_unique<NumberedDecoder>(30000);
        decoder->rate = rate;
        decoder->seekBackOff = 3000;
        StereoReader reader(std::move(decoder), 44100);
        const std::vector<float> whole = ReadAll(&reader, 1000);
        ASSERT_EQ(size_t((30000LL * 44100 + rate - 1) / rate), whole.size()) << rate;
        for (int64_t place : {0, 1, 50, 100, 4000, 9999, 5, int(whole.size()) - 1}) {
            reader.Seek(place);
            const std::vector<float> part = ReadAll(&reader, 333, 700);
            ASSERT_EQ(std::min<size_t>(part.size(), whole.size() - size_t(place)), part.size());
            ASSERT_FALSE(part.empty());
            for (size_t i = 0; i < part.size(); ++i)
                ASSERT_EQ(whole[size_t(place) + i], part[i]) << rate << " Hz, " << place;
        }
    }
}

TEST(StereoReader, AtAnotherRateEveryFrameIsThatOfTheResampler)
{
    auto decoder = std::make_unique<NumberedDecoder>(3000);
    decoder->rate = 48000;
    StereoReader reader(std::move(decoder), 44100);
    const std::vector<float> whole = ReadAll(&reader, 100);
    ASSERT_EQ(2757u, whole.size()) << "3000 / 48000 * 44100 = 2756.25, and frame 2756 lies ahead of that";
    Resampler resampler(48000, 44100);
    for (int64_t n = 0; n < int64_t(whole.size()); ++n) {
        std::vector<StereoFrame> around;
        for (int64_t i = resampler.FirstInput(n); i <= resampler.LastInput(n); ++i) {
            const float sample = i >= 0 && i < 3000 ? NumberedDecoder::Sample(i) : 0.0f;
            around.push_back({sample, -sample});
        }
        ASSERT_EQ(resampler.Interpolate(n, around.data()).left, whole[size_t(n)]) << n;
    }
}

TEST(StereoReader, ChannelsAreMixedDown)
{
    auto decoder = std::make_unique<NumberedDecoder>(100);
    decoder->speakers = {SpeakerRight, SpeakerLeft};
    StereoReader reader(std::move(decoder), 44100);
    EXPECT_EQ(-NumberedDecoder::Sample(0), ReadAll(&reader, 100).at(0));
}
