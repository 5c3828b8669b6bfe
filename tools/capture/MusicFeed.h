// SPDX-License-Identifier: MIT
// Writes the music into the encoder's second input on a thread of its own, never further than the pictures
// have got: a capture that is broken off has as much sound as it has frames.
#pragma once

#include "tools/capture/ChildProcess.h"
#include "tools/capture/MusicTrack.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace capture
{

class MusicFeed
{
public:
    // Samples ahead of the first frame that the encoder gets at once: it wants some before it looks at any
    // picture at all. A quarter of a second.
    static constexpr int64_t Lead = MusicTrack::Rate / 4;

    // Both are borrowed until End has returned.
    MusicFeed(ChildProcess& encoder, MusicTrack& track);
    ~MusicFeed();

    void Start(int64_t firstSample);
    void AllowUpTo(int64_t sample); // of the show; never goes back. From any thread.
    void End(int64_t sample);       // the music ends there, once; returns when the encoder has it all

private:
    void Run();

    ChildProcess& process;
    MusicTrack& music;
    std::thread thread;

    std::mutex mutex; // for what follows
    std::condition_variable changed;
    int64_t next;    // the sample to write
    int64_t allowed; // one behind the last that may be written
    int64_t leadEnd;
    bool ending;
};

} // namespace capture
