// SPDX-License-Identifier: MIT
#include "tools/edit/MusicTransport.h"

#include "platform/Clock.h"
#include "tools/edit/SoundDeck.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cmath>
#include <thread>

namespace edit
{

static const double deadSeconds = 1; // a device that has asked for nothing for so long plays nothing

// A file that is opened on a thread of its own, which goes on if nobody waits for it any more.
struct OpeningFile {
    std::string path;
    SoundDeck* deck = nullptr; // null: there is no device
    std::unique_ptr<Decoder> decoder;
    std::atomic<bool> done{false};
};

struct MusicTransport::Work {
    SoundDeck* deck = nullptr; // null: no sound
    std::shared_ptr<OpeningFile> opening;
    bool hasMusic = false;
    std::string failure;

    bool playing = false;
    bool sounds = false; // the deck plays
    double start = 0;    // seconds of the show
    double speed = 1;
    int64_t startCount = 0; // of the clock
    double last = 0;        // what PositionSeconds said

    void TakeFile();
    void Begin(double seconds, double newSpeed);
    double SilentPosition() const;
    double Position();
};

static int Milliseconds(double seconds)
{
    return int(std::clamp<double>(std::round(seconds * 1000), 0, INT_MAX));
}

MusicTransport::MusicTransport() : work(std::make_unique<Work>()) {}

MusicTransport::~MusicTransport()
{
    if (work->deck)
        work->deck->Load(nullptr);
}

void MusicTransport::SetMusic(std::string path)
{
    work->failure.clear();
    work->opening.reset();
    if (path.empty()) {
        const double now = PositionSeconds();
        work->hasMusic = false;
        if (work->deck)
            work->deck->Load(nullptr);
        if (work->playing)
            work->Begin(now, work->speed);
        return;
    }
    const std::shared_ptr<OpeningFile> file = std::make_shared<OpeningFile>();
    file->path = path;
    work->opening = file;
    std::thread([file] {
        file->deck = SoundDeck::GetInstance(); // the first time it waits for the device
        if (file->deck)
            file->decoder = OpenDecoder(file->path, SoundDeck::Rate);
        file->done = true;
    }).detach();
}

// What plays goes on until the new file is open.
void MusicTransport::Work::TakeFile()
{
    if (!opening || !opening->done)
        return;
    const std::shared_ptr<OpeningFile> file = std::move(opening);
    opening.reset();
    const double now = Position();
    deck = file->deck;
    hasMusic = file->decoder != nullptr;
    if (!deck) {
        failure = "there is no sound device";
        return;
    }
    if (!hasMusic)
        failure = "the music can't be opened: " + file->path;
    deck->Load(std::move(file->decoder));
    if (playing)
        Begin(now, speed);
    else if (hasMusic)
        deck->Stop(Milliseconds(start));
}

bool MusicTransport::IsReady()
{
    work->TakeFile();
    return !work->opening;
}

bool MusicTransport::HasMusic()
{
    work->TakeFile();
    return work->hasMusic;
}

std::string MusicTransport::Failure() const
{
    return work->failure;
}

void MusicTransport::Work::Begin(double seconds, double newSpeed)
{
    playing = true;
    speed = newSpeed;
    sounds = hasMusic && speed == 1;
    // The sound starts at a whole millisecond, so that is where it is.
    start = last = sounds ? Milliseconds(seconds) / 1000.0 : seconds;
    startCount = platform::ReadCounter();
    if (sounds)
        deck->Play(Milliseconds(seconds));
    else if (hasMusic)
        deck->Stop(Milliseconds(seconds));
}

void MusicTransport::Play(double fromSeconds, double speed)
{
    work->TakeFile();
    work->Begin(std::max(fromSeconds, 0.0), speed);
}

void MusicTransport::Stop()
{
    work->start = PositionSeconds();
    work->playing = false;
    if (work->hasMusic)
        work->deck->Stop(Milliseconds(work->start));
}

bool MusicTransport::IsPlaying() const
{
    return work->playing;
}

double MusicTransport::Work::SilentPosition() const
{
    const double passed = double(platform::ReadCounter() - startCount) / double(platform::CounterFrequency());
    return start + passed * speed;
}

double MusicTransport::Work::Position()
{
    if (!playing)
        return start;
    double position = start;
    if (!sounds) {
        position = SilentPosition();
    } else if (!deck->PositionAt(platform::ReadCounter(), &position)) {
        if (SilentPosition() < start + deadSeconds)
            return start;
        // From here on in silence, from where it stood.
        startCount += int64_t(deadSeconds * double(platform::CounterFrequency()));
        sounds = false;
        position = SilentPosition();
    }
    last = std::max(last, position);
    return last;
}

double MusicTransport::PositionSeconds()
{
    work->TakeFile();
    return work->Position();
}

} // namespace edit
