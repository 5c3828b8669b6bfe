// SPDX-License-Identifier: MIT
#include "tools/edit/MusicTransport.h"

#include "platform/Clock.h"

namespace edit
{

struct MusicTransport::Work {
    bool playing = false;
    double start = 0; // seconds of the show
    double speed = 1;
    int64_t startCount = 0; // of the clock
    double Position() const
    {
        if (!playing)
            return start;
        const double passed =
            double(platform::ReadCounter() - startCount) / double(platform::CounterFrequency());
        return start + passed * speed;
    }
};

MusicTransport::MusicTransport() : work(std::make_unique<Work>()) {}

MusicTransport::~MusicTransport() {}

void MusicTransport::SetMusic(std::string) {}

bool MusicTransport::IsReady() const
{
    return true;
}

bool MusicTransport::HasMusic() const
{
    return false;
}

std::string MusicTransport::Failure() const
{
    return "";
}

void MusicTransport::Play(double fromSeconds, double speed)
{
    work->playing = true;
    work->start = fromSeconds;
    work->speed = speed;
    work->startCount = platform::ReadCounter();
}

void MusicTransport::Stop()
{
    work->start = work->Position();
    work->playing = false;
}

bool MusicTransport::IsPlaying() const
{
    return work->playing;
}

void MusicTransport::Prepare(double) {}

double MusicTransport::PositionSeconds()
{
    return work->Position();
}

} // namespace edit
