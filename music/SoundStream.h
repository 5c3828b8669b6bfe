// SPDX-License-Identifier: MIT
// One opened music file on its way through three threads.
//
//   main thread    gives orders: be playing or stopped, go to that time
//   device thread  applies the newest order when the device asks for samples, which it takes from the window
//   decode thread  keeps the window filled ahead of the device, and moves it when a seek lands outside
//
// The threads never wait for each other. They exchange their state in atomic fields, each of which has a single
// writer. The one exception is a patient device thread (see platform/SoundOutput.h): it waits for the decode thread.
//
// The window is a ring of stereo frames of the mix, some decoded ahead of the device, some already played and
// kept so that a short way back costs nothing. It holds the frames from `floor` to `ready`. The device thread
// raises floor and so gives room, the decode thread raises ready. To move the window elsewhere the device
// thread puts floor at the place, then sets `wanted`, and leaves the window alone until `served` is the same:
// whatever was decoded ahead is thrown away, and no sample of the old place can be heard.
//
// Times are milliseconds, positions are frames of the mix. Both conversions round to the nearest, halves up,
// so that a time survives the way there and back.
#pragma once

#include "music/EventCount.h"
#include "music/StereoReader.h"

#include <atomic>
#include <cstdint>
#include <memory>

// What a stream shall do. Two orders are never equal while both matter: the serial tells them apart.
struct StreamOrder {
    bool playing;
    int milliseconds; // where to go, at least 0
    uint32_t serial;  // 0 for the state after opening, then counting on

    bool operator==(const StreamOrder& other) const;
};

class SoundStream
{
public:
    // The decode thread works that far ahead: bufferMilliseconds, brought into the range from
    // MinBuffer to MaxBuffer, or a second as long as no order was given.
    static constexpr int MinBuffer = 500;
    static constexpr int MaxBuffer = 60000;

    // Notifying decodeWakeUp wakes the decode thread. It is borrowed.
    SoundStream(std::unique_ptr<Decoder> decoder, int mixRate, int bufferMilliseconds,
                EventCount* decodeWakeUp);

    int64_t PositionOf(int milliseconds) const;
    int TimeOf(int64_t position) const; // at most INT_MAX

    // Main thread.
    void Give(bool playing, int milliseconds); // an order; times below 0 count as 0
    StreamOrder LastOrder() const;
    bool HasAppliedOrder() const; // the device thread knows the last order
    int GetTime() const;          // where the device is; or will be, when it knows the last order
    bool HasRunOut() const;       // everything was played, and nothing was ordered since

    // Device thread. Frames at a position are there if Holds says so for it; after the music there are none.
    StreamOrder AppliedOrder() const;
    int64_t Reported() const;
    bool Holds(int64_t position) const;
    void Want(const StreamOrder& order);
    void WaitFor(int64_t position) const; // until the frames before it are there, or the music ends
    int64_t FramesFrom(int64_t position) const;
    bool EndsAt(int64_t position) const;
    void Copy(int64_t position, int count, StereoFrame* stereo) const;
    void Report(const StreamOrder& order, int64_t position, bool runOut);

    // Decode thread. Does one piece of work; false if there is nothing to do.
    bool Decode();

    std::atomic<bool> closed; // set by the main thread, which then forgets the stream
    SoundStream* nextArrival; // see DecodeThread

private:
    const int rate;
    const int64_t capacity;                // frames of the window
    const int64_t history;                 // of them, those kept behind the device
    std::unique_ptr<StereoFrame[]> window; // frame p lies at p modulo capacity

    std::atomic<uint64_t> ordered; // main thread writes
    std::atomic<uint64_t> applied; // device thread writes, as the next four
    std::atomic<uint64_t> wanted;
    std::atomic<int64_t> reported;
    std::atomic<bool> finished;
    std::atomic<int64_t> floor;
    std::atomic<uint64_t> served; // decode thread writes, as the rest
    std::atomic<int64_t> ready;
    std::atomic<bool> ended; // no frame will come after ready

    EventCount* const work;
    EventCount progress; // wakes a patient device thread

    StereoReader reader; // decode thread
    std::unique_ptr<StereoFrame[]> piece;
};
