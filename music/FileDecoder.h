// SPDX-License-Identifier: MIT
// Recorded music through libsndfile.
//
// Where a damaged file can't be decoded there is silence up to the next place that can be, so that what comes
// after the damage is heard at its own time. The one exception is damage that an Ogg decoder steps over
// while it reads on from the place before: libsndfile says nothing of it, and the music goes on early.
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
    FileDecoder(const std::string& filePath, SNDFILE* openFile, const SF_INFO& info);

    int64_t SeekTo(int64_t frame);
    int64_t SeekBehindDamage(int64_t frame);
    bool Reopen();

    const std::string path;
    SNDFILE* file;         // owned, null after a failed Reopen
    int64_t length;        // frames, as far as is known
    int64_t lastPageStart; // where the last page of an Ogg begins, `length` for other files
    int64_t position;      // of the next frame that libsndfile gives
    bool damaged;          // it can't be decoded
    int64_t silentFrames;  // to be given ahead of it
};
