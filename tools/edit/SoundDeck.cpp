// SPDX-License-Identifier: MIT
#include "tools/edit/SoundDeck.h"

#include "platform/Clock.h"
#include "platform/SoundOutput.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <mutex>

namespace edit
{

static const int channelCount = 8; // several, since a stream that was taken off keeps its own for a moment
static const int bufferMilliseconds = 10000; // decoded ahead
static const int startFrames = 4410;         // decoded before a start: more than any device asks for at once
static const double smoothing = 0.05;        // of a difference from one buffer to the next
// A difference is not smoothed but followed at once if it is larger than jumpSeconds, or if so many buffers in a row
// are apart by more than apartSeconds to the same side: the device has stood still then, or dropped something.
static const double jumpSeconds = 0.1;
static const double apartSeconds = 0.012;
static const int apartBuffers = 4;

SoundDeck::SoundDeck()
    : mixer(Rate, channelCount), decodeThread(&mixer, &wakeUp), loaded(nullptr), assigned(false),
      current(nullptr), rounds(0), starting(false), version(0), noteSerial(0), noteFrame(0), noteCount(0),
      seenVersion(0), smoothSerial(0), smoothOffset(0), apart(0)
{
}

SoundDeck* SoundDeck::GetInstance()
{
    static std::mutex mutex;
    static SoundDeck* deck = nullptr;
    static bool tried = false;
    const std::lock_guard<std::mutex> lock(mutex);
    if (!tried) {
        tried = true;
        SoundDeck* const fresh = new SoundDeck;
        if (platform::OpenSoundOutput(Rate, Fill, fresh)) {
            fresh->decodeThread.Start();
            deck = fresh;
        } else {
            delete fresh;
        }
    }
    return deck;
}

void SoundDeck::Load(std::unique_ptr<Decoder> decoder)
{
    if (loaded) {
        loaded->Give(false, 0);
        current = nullptr;
        retired.push_back({loaded, rounds});
    }
    loaded = nullptr;
    starting = false;
    if (decoder) {
        loaded = new SoundStream(std::move(decoder), Rate, bufferMilliseconds, &wakeUp);
        decodeThread.Add(loaded);
        current = loaded;
        assigned = false;
        Assign();
    }
    LetGo();
}

// A channel may be missing while streams that were taken off fall silent.
bool SoundDeck::Assign()
{
    assigned = assigned || mixer.AssignChannel(loaded) >= 0;
    return assigned;
}

// Closes the streams that the device's thread can't be using any more.
void SoundDeck::LetGo()
{
    const uint64_t now = rounds;
    for (const Retired& row : retired)
        if (row.round % 2 == 0 || now > row.round) {
            mixer.Forget(row.stream);
            row.stream->closed = true;
            wakeUp.Notify();
        }
    std::erase_if(retired, [now](const Retired& row) { return row.round % 2 == 0 || now > row.round; });
}

void SoundDeck::Play(int milliseconds)
{
    LetGo();
    if (!loaded)
        return;
    starting = true;
    loaded->Give(true, milliseconds);
    Assign();
}

void SoundDeck::Stop(int milliseconds)
{
    LetGo();
    if (loaded)
        loaded->Give(false, milliseconds);
}

void SoundDeck::Fill(void* context, platform::StereoFrame* frames, int count, bool patient)
{
    SoundDeck* const deck = static_cast<SoundDeck*>(context);
    const int64_t begin = platform::ReadCounter();
    deck->rounds++;
    SoundStream* const stream = deck->current;
    for (int done = 0; done < count;) {
        const int piece = std::min(count - done, SoundChannel::MaxFrames);
        if (deck->starting)
            deck->Start(stream, patient);
        deck->mixer.Mix(frames + done, piece, patient);
        deck->wakeUp.Notify();
        done += piece;
    }
    if (stream && !deck->starting)
        deck->NoteTime(stream, begin, count);
    deck->rounds++;
}

// The channels are on pause while the frames of the place are missing: their stream has the order, but does not move.
void SoundDeck::Start(SoundStream* stream, bool patient)
{
    bool there = patient || !stream;
    if (!there && stream->HasAppliedOrder()) {
        const int64_t position = stream->PositionOf(stream->LastOrder().milliseconds);
        there = stream->FramesFrom(position) >= startFrames ||
                stream->EndsAt(position + stream->FramesFrom(position));
    }
    mixer.paused = !there;
    if (there)
        starting = false;
}

void SoundDeck::NoteTime(SoundStream* stream, int64_t count, int frames)
{
    const StreamOrder order = stream->AppliedOrder();
    const int64_t end = stream->Reported();
    // After the music the stream stands still, and the time runs on from the last note.
    if (!order.playing || (order.serial == noteSerial && stream->EndsAt(end)))
        return;
    version++;
    noteSerial = order.serial;
    noteFrame = end;
    noteCount = count + int64_t(frames) * platform::CounterFrequency() / Rate;
    version++;
}

bool SoundDeck::PositionAt(int64_t count, double* seconds)
{
    LetGo();
    if (!loaded || !Assign() || !loaded->LastOrder().playing)
        return false;
    uint32_t before;
    uint32_t serial;
    int64_t frame;
    int64_t given;
    do {
        before = version;
        serial = noteSerial;
        frame = noteFrame;
        given = noteCount;
    } while (before % 2 != 0 || before != version);
    if (starting || serial != loaded->LastOrder().serial)
        return false;

    const double offset = double(frame) / Rate - double(given) / double(platform::CounterFrequency()) -
                          platform::SoundOutputDelay();
    const double difference = offset - smoothOffset;
    if (before != seenVersion) {
        const int side = std::fabs(difference) < apartSeconds ? 0 : difference < 0 ? 1 : -1;
        apart = side * apart < 0 || side == 0 ? side : apart + side;
    }
    if (serial != smoothSerial || std::fabs(difference) > jumpSeconds || std::abs(apart) >= apartBuffers) {
        smoothOffset = offset;
        apart = 0;
    } else if (before != seenVersion) {
        smoothOffset += difference * smoothing;
    }
    smoothSerial = serial;
    seenVersion = before;
    *seconds = smoothOffset + double(count) / double(platform::CounterFrequency());
    return true;
}

} // namespace edit
