// SPDX-License-Identifier: MIT
// One opened music file as a row of frames, in the rate and for the speakers of the file. A frame is one
// sample for each channel. Opened on the main thread, from then on used by the decode thread alone.
#pragma once

#include "music/Downmix.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class Decoder
{
public:
    // All reads ask for this many frames. libopenmpt's last bits depend on how its output is cut into pieces,
    // and a seek must not change a bit.
    static constexpr int BlockFrames = 1024;

    virtual ~Decoder();

    // Up to BlockFrames frames, interleaved; fewer near the end of the music, 0 only after it.
    virtual int Read(float* samples) = 0;

    // Goes to a frame, or some way ahead of it: returns where the next Read begins, at most the frame asked
    // for. What is read ahead of that frame may be wrong; from it on the reads give the bits that reading
    // from the start would give. -1: it can't be reached.
    virtual int64_t Seek(int64_t frame) = 0;

    int rate;                      // frames per second
    std::vector<Speaker> speakers; // one per channel, at least one
};

const int MinRate = 1000; // Hz
const int MaxRate = 768000;

// Opens MP3 through libmpg123, else whatever libsndfile knows (WAV, FLAC, Ogg Vorbis, Opus, ...) or else
// libopenmpt (XM, IT, S3M, MOD, ...). A tracker module is rendered in stereo at mixRate. Null: no regular
// file, unreadable, unknown, or at a rate outside MinRate..MaxRate.
std::unique_ptr<Decoder> OpenDecoder(const std::string& path, int mixRate);
