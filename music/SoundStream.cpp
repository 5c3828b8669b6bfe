// SPDX-License-Identifier: MIT
#include "music/SoundStream.h"

#include <algorithm>
#include <climits>

static const int pieceFrames = 1024;
static const int unheardMilliseconds = 1000;
static const int historyMilliseconds = 1000;

bool StreamOrder::operator==(const StreamOrder& other) const
{
    return playing == other.playing && milliseconds == other.milliseconds && serial == other.serial;
}

// An order travels as one word: 32 bits of serial, 1 bit playing, 31 bits of time.
static uint64_t Pack(const StreamOrder& order)
{
    return uint64_t(order.serial) << 32 | uint64_t(order.playing) << 31 | uint64_t(order.milliseconds);
}

static StreamOrder Unpack(uint64_t word)
{
    return {(word >> 31 & 1) != 0, int(word & 0x7FFFFFFF), uint32_t(word >> 32)};
}

static int64_t FramesIn(int milliseconds, int rate)
{
    return int64_t(milliseconds) * rate / 1000;
}

SoundStream::SoundStream(std::unique_ptr<Decoder> decoder, int mixRate, int bufferMilliseconds,
                         EventCount* decodeWakeUp)
    : closed(false), nextArrival(nullptr), rate(mixRate),
      capacity(FramesIn(std::clamp(bufferMilliseconds, MinBuffer, MaxBuffer), mixRate)),
      history(std::min(FramesIn(historyMilliseconds, mixRate), capacity / 4)),
      window(new StereoFrame[capacity]), ordered(0), applied(0), wanted(0), reported(0), finished(false),
      floor(0), served(0), ready(0), ended(false), work(decodeWakeUp), reader(std::move(decoder), mixRate),
      piece(new StereoFrame[pieceFrames])
{
}

int64_t SoundStream::PositionOf(int milliseconds) const
{
    return (int64_t(milliseconds) * rate * 2 + 1000) / 2000;
}

int SoundStream::TimeOf(int64_t position) const
{
    return int(std::min<int64_t>((position * 2000 + rate) / (int64_t(rate) * 2), INT_MAX));
}

void SoundStream::Give(bool playing, int milliseconds)
{
    const uint32_t serial = LastOrder().serial + 1;
    ordered = Pack({playing, std::max(milliseconds, 0), serial});
}

StreamOrder SoundStream::LastOrder() const
{
    return Unpack(ordered);
}

bool SoundStream::HasAppliedOrder() const
{
    return applied == ordered;
}

int SoundStream::GetTime() const
{
    return HasAppliedOrder() ? TimeOf(reported) : LastOrder().milliseconds;
}

bool SoundStream::HasRunOut() const
{
    return HasAppliedOrder() && finished;
}

StreamOrder SoundStream::AppliedOrder() const
{
    return Unpack(applied);
}

int64_t SoundStream::Reported() const
{
    return reported;
}

bool SoundStream::Holds(int64_t position) const
{
    return served == wanted && position >= floor && position <= ready;
}

void SoundStream::Want(const StreamOrder& order)
{
    floor = PositionOf(order.milliseconds);
    wanted = Pack(order);
    work->Notify();
}

void SoundStream::WaitFor(int64_t position) const
{
    for (;;) {
        const uint32_t seen = progress.Current();
        if (served == wanted && (ready >= position || ended))
            return;
        progress.WaitBeyond(seen);
    }
}

int64_t SoundStream::FramesFrom(int64_t position) const
{
    return served == wanted ? std::max<int64_t>(ready - position, 0) : 0;
}

bool SoundStream::EndsAt(int64_t position) const
{
    return served == wanted && ended && position >= ready;
}

void SoundStream::Copy(int64_t position, int count, StereoFrame* stereo) const
{
    const int64_t start = position % capacity;
    const int64_t first = std::min<int64_t>(count, capacity - start);
    std::copy_n(&window[start], first, stereo);
    std::copy_n(&window[0], count - first, stereo + first);
}

void SoundStream::Report(const StreamOrder& order, int64_t position, bool runOut)
{
    if (served == wanted)
        floor = std::max<int64_t>(floor, position - history);
    reported = position;
    finished = runOut;
    applied = Pack(order);
}

bool SoundStream::Decode()
{
    const uint64_t want = wanted;
    if (served != want) {
        const int64_t target = PositionOf(Unpack(want).milliseconds);
        reader.Seek(target);
        ready = target;
        ended = false;
        served = want;
    }
    if (ended)
        return false;

    // A stream that nobody plays yet only needs what makes its start immediate.
    const int64_t ahead = ordered == 0 ? std::min(FramesIn(unheardMilliseconds, rate), capacity) : capacity;
    if (ready + pieceFrames > floor + ahead)
        return false;
    const int got = reader.Read(piece.get(), pieceFrames);
    const int64_t start = ready % capacity;
    const int64_t first = std::min<int64_t>(got, capacity - start);
    std::copy_n(&piece[0], first, &window[start]);
    std::copy_n(&piece[first], got - first, &window[0]);
    ready += got;
    ended = reader.IsAtEnd();
    progress.Notify();
    return true;
}
