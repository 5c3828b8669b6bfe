// SPDX-License-Identifier: MIT
// MPEG audio (MP3) through libmpg123. libsndfile would read it through the same library, but lets it write
// its notes about odd files to the standard error stream and gives up at the first damage.
//
// In mono and below 32000 Hz libmpg123 sums in an order that depends on what it decoded before, so that after a seek
// the last bit of a sample may be another than in playing up to the place.
#pragma once

#include "music/Decoder.h"

struct mpg123_handle_struct;

class Mp3Decoder : public Decoder
{
public:
    // True for a file that begins with an MPEG audio frame, or with one after ID3 tags.
    static bool Recognises(const std::string& path);
    static bool HasExtension(const std::string& path); // .mp3, in any case

    static std::unique_ptr<Decoder> Open(const std::string& path); // null: nothing in it can be decoded
    ~Mp3Decoder() override;

    int Read(float* samples) override;
    int64_t Seek(int64_t frame) override;

private:
    Mp3Decoder(mpg123_handle_struct* openHandle, long fileRate, int channels);

    mpg123_handle_struct* handle; // owned
};
