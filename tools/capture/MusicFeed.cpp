// SPDX-License-Identifier: MIT
#include "tools/capture/MusicFeed.h"

#include <algorithm>

namespace capture
{

static const int64_t pieceFrames = 4096;

MusicFeed::MusicFeed(platform::ChildProcess& encoder, MusicTrack& track)
    : process(encoder), music(track), next(0), allowed(0), leadEnd(0), ending(false)
{
}

MusicFeed::~MusicFeed()
{
    End(0);
}

void MusicFeed::Start(int64_t firstSample)
{
    next = firstSample;
    allowed = firstSample;
    leadEnd = firstSample + Lead;
    music.Seek(firstSample);
    thread = std::thread(&MusicFeed::Run, this);
}

void MusicFeed::AllowUpTo(int64_t sample)
{
    const std::lock_guard<std::mutex> lock(mutex);
    allowed = std::max(allowed, sample);
    changed.notify_all();
}

void MusicFeed::End(int64_t sample)
{
    if (!thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        allowed = sample;
        ending = true;
        changed.notify_all();
    }
    thread.join();
}

void MusicFeed::Run()
{
    std::vector<StereoFrame> piece(pieceFrames);
    for (;;) {
        int64_t count;
        {
            std::unique_lock<std::mutex> lock(mutex);
            // Once the pictures have caught up with the lead it has no effect any more.
            const auto limit = [this] { return ending ? allowed : std::max(allowed, leadEnd); };
            changed.wait(lock, [&] { return ending || next < limit(); });
            count = std::min(limit() - next, pieceFrames);
        }
        if (count <= 0)
            break;
        music.Read(piece.data(), int(count));
        next += count;
        if (!process.WriteSecond(piece.data(), size_t(count) * sizeof(StereoFrame)))
            break; // the encoder has ended; whoever writes the pictures reports why
    }
    process.CloseSecond();
}

} // namespace capture
