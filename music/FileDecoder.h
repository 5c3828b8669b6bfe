// SPDX-License-Identifier: MIT
// Recorded music through libsndfile.
#pragma once

#include "music/Decoder.h"

#include <sndfile.h>

class FileDecoder : public Decoder
{
public:
    static std::unique_ptr<Decoder> Open(const std::string& path); // null: not a file that libsndfile knows
    ~FileDecoder() override;

    int Read(float* samples) override;
    int64_t Seek(int64_t frame) override;

private:
    FileDecoder(SNDFILE* openFile, const SF_INFO& info);

    SNDFILE* file; // owned
};
