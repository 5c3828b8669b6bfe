// SPDX-License-Identifier: MIT
#include "music/Decoder.h"

#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <filesystem>

#include <sys/stat.h>

// The decoder of a WAV file of that many frames a second.
static std::unique_ptr<Decoder> OpenAtRate(int rate)
{
    const soundfiles::Kind kind = {"odd.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, rate, 1, -1.0, -1};
    const std::string path = soundfiles::TemporaryPath(kind.name);
    soundfiles::Write(path, std::vector<float>(500, 0.5f), kind);
    return OpenDecoder(path, 44100);
}

TEST(Decoder, TakesRatesFrom1000To768000Hertz)
{
    EXPECT_EQ(nullptr, OpenAtRate(1));
    EXPECT_EQ(nullptr, OpenAtRate(999));
    EXPECT_EQ(nullptr, OpenAtRate(768001));
    for (int rate : {1000, 44100, 768000}) {
        const std::unique_ptr<Decoder> decoder = OpenAtRate(rate);
        ASSERT_NE(nullptr, decoder) << rate;
        EXPECT_EQ(rate, decoder->rate);
        EXPECT_EQ(1u, decoder->speakers.size());
    }
}

TEST(Decoder, WhatIsNoRegularFileIsNotOpened)
{
    const std::string path = soundfiles::TemporaryPath("place");
    EXPECT_EQ(nullptr, OpenDecoder(path, 44100)) << "there is nothing";
    ASSERT_EQ(0, mkfifo(path.c_str(), 0600)); // opening it would wait for its other end
    EXPECT_EQ(nullptr, OpenDecoder(path, 44100));
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(nullptr, OpenDecoder(path, 44100));
    EXPECT_EQ(nullptr, OpenDecoder("/dev/zero", 44100));
}

TEST(Decoder, EveryKindOfFileIsOpenedByTheLibraryThatKnowsIt)
{
    for (const soundfiles::Kind& kind : soundfiles::kinds) {
        const std::unique_ptr<Decoder> decoder = OpenDecoder(soundfiles::Make(kind, 0.2), 22050);
        ASSERT_NE(nullptr, decoder) << kind.name;
        const bool isModule = kind.format == 0; // rendered at the rate of the mix
        EXPECT_EQ(isModule ? 22050 : kind.rate, decoder->rate) << kind.name;
        EXPECT_EQ(size_t(kind.channels), decoder->speakers.size()) << kind.name;
    }
}
