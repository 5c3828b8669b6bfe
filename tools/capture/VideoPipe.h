// SPDX-License-Identifier: MIT
// Makes a video: frames and music go to ffmpeg through two pipes. The frames are written by a thread, so that
// the next frame is drawn while ffmpeg encodes.
#pragma once

#include "tools/capture/Encoding.h"
#include "tools/capture/FfmpegProcess.h"
#include "tools/capture/FrameSink.h"
#include "tools/capture/MusicFeed.h"
#include "tools/capture/OutputFile.h"

#include <deque>

namespace capture
{

class VideoPipe : public FrameSink
{
public:
    // The constructor and Begin fill in output, size, rate and sound of the encoding. If track is null the
    // video has no sound. The file must be open. File and track are borrowed.
    VideoPipe(OutputFile& outputFile, const Encoding& newEncoding, MusicTrack* track);
    ~VideoPipe() override;

    bool Begin(int width, int height, const FrameSelection& newSelection) override;
    bool Take(std::unique_ptr<Frame> frame) override; // blocks while several frames wait for the encoder
    bool Finish(bool keep) override;

private:
    void Write();
    void JoinWriter();

    OutputFile& file;
    Encoding encoding;
    MusicTrack* music;
    FrameSelection selection;
    FfmpegProcess encoder;
    std::unique_ptr<MusicFeed> feed;
    std::thread writer;

    std::mutex mutex; // guards the fields below
    std::condition_variable changed;
    std::deque<std::unique_ptr<Frame>> waiting;
    int64_t written; // frames that the encoder has read
    bool ending;     // no further frame will come
    bool broken;     // the encoder has closed its pipe
};

} // namespace capture
