// SPDX-License-Identifier: MIT
// A video file: frames and music go to ffmpeg through two pipes. A thread writes the frames, so that the next
// one is drawn while the encoder is at work.
#pragma once

#include "tools/capture/Encoding.h"
#include "tools/capture/FrameSink.h"
#include "tools/capture/MusicFeed.h"
#include "tools/capture/OutputFile.h"

#include <deque>

namespace capture
{

class VideoPipe : public FrameSink
{
public:
    // The output, the size and the rate of the encoding are settled here and by Begin. A null track makes a
    // silent video.
    // The file is open; both are borrowed.
    VideoPipe(OutputFile& outputFile, const Encoding& newEncoding, MusicTrack* track);
    ~VideoPipe() override;

    bool Begin(int width, int height, const Schedule& newSchedule) override;
    bool Take(std::unique_ptr<Frame> frame) override; // waits while the encoder has enough to do
    bool Finish(bool keep) override;

private:
    void Write();
    void JoinWriter();

    OutputFile& file;
    Encoding encoding;
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
