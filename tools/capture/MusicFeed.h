// SPDX-License-Identifier: MIT
// Writes the music into the encoder's second pipe on a thread of its own. Apart from a short lead at the
// start it never gets ahead of the pictures, so that an interrupted capture has as much sound as frames.
#pragma once

#include "platform/ChildProcess.h"
#include "tools/capture/MusicTrack.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace capture
{

class MusicFeed
{
public:
    // Samples that are written before the first frame, a quarter of a second: ffmpeg reads some sound before
    // it reads any picture.
    static constexpr int64_t Lead = MusicTrack::Rate / 4;

    // Borrows both until End has returned.
    MusicFeed(platform::ChildProcess& encoder, MusicTrack& track);
    ~MusicFeed();

    void Start(int64_t firstSample);

    // Lets the thread write the samples before this one, counted from the start of the show. A smaller value
    // than before has no effect. May be called from any thread.
    void AllowUpTo(int64_t sample);

    // Writes up to this sample, closes the pipe and waits until the encoder has read all of it. Further calls
    // do nothing.
    void End(int64_t sample);

private:
    void Run();

    platform::ChildProcess& process;
    MusicTrack& music;
    std::thread thread;

    std::mutex mutex; // guards the fields below
    std::condition_variable changed;
    int64_t next;    // the next sample to write
    int64_t allowed; // one past the last sample that may be written
    int64_t leadEnd; // one past the last sample of the lead
    bool ending;
};

} // namespace capture
