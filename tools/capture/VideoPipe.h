// SPDX-License-Identifier: MIT
// A video file: frames and music go to ffmpeg through two pipes. A thread writes the frames, so that the next
// one is drawn while the encoder is at work.
#pragma once

#include "tools/capture/Encoding.h"
#include "tools/capture/FrameSink.h"
#include "tools/capture/MusicFeed.h"

#include <deque>

namespace capture
{

class VideoPipe : public FrameSink
{
public:
    // The size and the rate of the encoding are the schedule's. track is borrowed, or null for a silent
    // video.
    VideoPipe(const Encoding& newEncoding, MusicTrack* track);
    ~VideoPipe() override;

    bool Begin(int width, int height, const Schedule& newSchedule) override;
    bool Take(std::unique_ptr<Frame> frame) override; // waits while the encoder has enough to do
    bool Finish(bool keep) override;

private:
    void Write();
    void JoinWriter();

    const std::string output;
    Encoding encoding; // its output is the unfinished file
    MusicTrack* music;
    Schedule schedule;
    ChildProcess encoder;
    std::unique_ptr<MusicFeed> feed;
    std::thread writer;

    std::mutex mutex; // for what follows
    std::condition_variable changed;
    std::deque<std::unique_ptr<Frame>> waiting;
    int64_t written; // frames
    bool ending;
    bool broken; // the encoder takes no more
};

} // namespace capture
