// SPDX-License-Identifier: MIT
// The music of a show as samples: decoded from its file, frame 0 of the music at time 0 of the show, as the
// show starts it. Not recorded from a device, so every sample is the file's own.
#pragma once

#include "music/StereoReader.h"

#include <memory>
#include <string>

namespace capture
{

class MusicTrack
{
public:
    static constexpr int Rate = 44100; // Hz, the mix of the show

    // Finds the music of a script, given as the text of its file: the last [MUSIC] block that names a file of
    // the data directory. All of them must open, as they must in the show. False: `error` says which one
    // doesn't. A script without music is no failure; then IsSilent.
    bool Open(const std::string& script);
    bool IsSilent() const { return !reader; }

    // The next Read begins at that sample of the show, from 0.
    void Seek(int64_t sample);

    // Fills count frames, with silence where the music is over. Full scale at most, as a device is handed it.
    void Read(StereoFrame* frames, int count);

    std::string error;

private:
    std::unique_ptr<StereoReader> reader;
};

} // namespace capture
