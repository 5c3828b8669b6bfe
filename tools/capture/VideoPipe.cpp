// SPDX-License-Identifier: MIT
#include "tools/capture/VideoPipe.h"

#include "tools/capture/VideoProbe.h"

namespace capture
{

static const size_t maxWaitingFrames = 3; // enough to even out a frame that takes long to draw

VideoPipe::VideoPipe(OutputFile& outputFile, const Encoding& newEncoding, MusicTrack* track)
    : file(outputFile), encoding(newEncoding), music(track), written(0), ending(false), broken(false)
{
    encoding.output = file.Name();
    encoding.streamed = file.IsStream();
}

VideoPipe::~VideoPipe()
{
    JoinWriter(); // if Finish was not called
}

bool VideoPipe::Begin(int width, int height, const FrameSelection& newSelection)
{
    selection = newSelection;
    encoding.width = width;
    encoding.height = height;
    encoding.rate = selection.rate;
    encoding.sound = music != nullptr;
    if (!encoder.Start(EncoderCommand(encoding), file.IsStream() ? file.Descriptor() : -1)) {
        error = encoder.Error();
        return false;
    }
    if (music) {
        feed = std::make_unique<MusicFeed>(encoder.process, *music);
        feed->Start(selection.rate.MomentOf(selection.first, MusicTrack::Rate));
    } else {
        encoder.process.CloseSecond();
    }
    writer = std::thread(&VideoPipe::Write, this);
    return true;
}

bool VideoPipe::Take(std::unique_ptr<Frame> frame)
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return waiting.size() < maxWaitingFrames || broken; });
    if (broken) {
        lock.unlock();
        Finish(false); // sets `error` to the reason
        if (error.empty())
            error = "ffmpeg ended before the show did";
        return false;
    }
    waiting.push_back(std::move(frame));
    changed.notify_all();
    return true;
}

void VideoPipe::Write()
{
    for (;;) {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return !waiting.empty() || ending; });
        if (waiting.empty())
            break;
        const std::unique_ptr<Frame> frame = std::move(waiting.front());
        waiting.pop_front();
        changed.notify_all();
        lock.unlock();

        const bool good = encoder.process.WriteFirst(frame->pixels.data(), frame->pixels.size());
        lock.lock();
        if (!good) {
            broken = true;
            changed.notify_all();
            break;
        }
        written++;
        if (feed)
            feed->AllowUpTo(selection.rate.MomentOf(selection.first + written, MusicTrack::Rate));
    }
    encoder.process.CloseFirst();
}

void VideoPipe::JoinWriter()
{
    if (!writer.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
        changed.notify_all();
    }
    writer.join();
}

bool VideoPipe::Finish(bool keep)
{
    JoinWriter();
    if (feed)
        feed->End(selection.rate.MomentOf(selection.first + written, MusicTrack::Rate));
    feed.reset();
    // An encoder that got no frame fails, which is not worth an error of its own.
    if (!encoder.Finish() && error.empty() && (written > 0 || broken))
        error = encoder.Error();
    if (keep && written > 0 && error.empty())
        KeepVideo(file, encoding, written, &error);
    else
        file.Discard();
    return error.empty();
}

} // namespace capture
