// SPDX-License-Identifier: MIT
// Decodes the music of a show from its file. Sample 0 of the music is at time 0 of the show. No sound device
// is involved, so the samples are exactly those of the file.
#pragma once

#include "music/StereoReader.h"

#include <memory>
#include <string>

namespace capture
{

class MusicTrack
{
public:
    static constexpr int Rate = 44100; // Hz, the rate at which the show mixes

    // Finds the music of a script, given as the text of its file: the last [MUSIC] block that names a file of
    // the data directory. All of them must open, as they must in the show. False: `error` says which one
    // doesn't. A script without music is no failure; then IsSilent.
    bool Open(const std::string& script);
    bool IsSilent() const { return !reader; }

    // Sets the sample at which the next Read begins, counted from the start of the show.
    void Seek(int64_t sample);

    // Decodes `count` stereo frames; past the end of the music they are silent. Values are clamped to -1..1,
    // as for a sound device.
    void Read(StereoFrame* frames, int count);

    std::string error;

private:
    std::unique_ptr<StereoReader> reader;
};

} // namespace capture
