// SPDX-License-Identifier: MIT
#include "tools/capture/VideoPipe.h"

#include "tools/capture/VideoProbe.h"

namespace capture
{

static const size_t mostWaiting = 3; // frames: as much as evens out a slow one

VideoPipe::VideoPipe(OutputFile& outputFile, const Encoding& newEncoding, MusicTrack* track)
    : file(outputFile), encoding(newEncoding), music(track), written(0), ending(false), broken(false)
{
    encoding.output = file.Name();
    encoding.streamed = file.IsStream();
}

VideoPipe::~VideoPipe()
{
    JoinWriter(); // for the case that nobody has called Finish
}

bool VideoPipe::Begin(int width, int height, const Schedule& newSchedule)
{
    schedule = newSchedule;
    encoding.width = width;
    encoding.height = height;
    encoding.rate = schedule.rate;
    encoding.sound = music != nullptr;
    if (!encoder.Start(EncoderCommand(encoding), file.IsStream() ? file.Descriptor() : -1)) {
        error = encoder.error;
        return false;
    }
    if (music) {
        feed = std::make_unique<MusicFeed>(encoder, *music);
        feed->Start(schedule.rate.MomentOf(schedule.first, MusicTrack::Rate));
    } else {
        encoder.CloseSecond();
    }
    writer = std::thread(&VideoPipe::Write, this);
    return true;
}

bool VideoPipe::Take(std::unique_ptr<Frame> frame)
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return waiting.size() < mostWaiting || broken; });
    if (broken) {
        lock.unlock();
        Finish(false); // it knows why
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

        const bool good = encoder.WriteFirst(frame->pixels.data(), frame->pixels.size());
        lock.lock();
        if (!good) {
            broken = true;
            changed.notify_all();
            break;
        }
        written++;
        if (feed)
            feed->AllowUpTo(schedule.rate.MomentOf(schedule.first + written, MusicTrack::Rate));
    }
    encoder.CloseFirst();
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
        feed->End(schedule.rate.MomentOf(schedule.first + written, MusicTrack::Rate));
    feed.reset();
    // An encoder that never got a frame has every right to complain, and no reason.
    if (!encoder.Finish() && error.empty() && (written > 0 || broken))
        error = encoder.error;
    if (keep && written > 0 && error.empty())
        KeepVideo(file, encoding, written, &error);
    else
        file.Discard();
    return error.empty();
}

} // namespace capture
