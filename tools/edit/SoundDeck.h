// SPDX-License-Identifier: MIT
// One stream of music at a time on the sound output, and when its frames are heard. MusicTransport plays with it.
//
// It goes beyond music/SoundSystem in what an editor needs: a start waits until its place is decoded, so that it is
// heard from its first sample on, and the time is known more finely than in the buffers of the device.
#pragma once

#include "music/DecodeThread.h"
#include "music/SoundMixer.h"

#include <atomic>
#include <cstdint>
#include <vector>

namespace edit
{

class SoundDeck
{
public:
    static constexpr int Rate = 44100; // frames per second

    // The only object, made by the first call, which opens the sound output; that can take as long as the device likes.
    // Null: there is no sound output. Lives to the end of the process. Any thread.
    static SoundDeck* GetInstance();

    // Loads a file in place of the one before, stopped at time 0; null: none.
    void Load(std::unique_ptr<Decoder> decoder);

    // Play plays from this time on as soon as its frames are decoded. Stop stops, and gets the time ready for Play.
    void Play(int milliseconds);
    void Stop(int milliseconds);

    // Where in the music the sound is at a count of platform/Clock.h, in seconds: extrapolated from the last buffer that
    // the device took. False as long as nothing of the last Play is heard.
    bool PositionAt(int64_t count, double* seconds);

private:
    SoundDeck();
    static void Fill(void* deck, platform::StereoFrame* frames, int count, bool patient);
    void Start(SoundStream* stream, bool patient);
    void NoteTime(SoundStream* stream, int64_t count, int frames);
    void LetGo();
    bool Assign();

    // A stream that was taken off. The device's thread may be using it until it has finished the call of Fill that it
    // was in.
    struct Retired {
        SoundStream* stream;
        uint64_t round;
    };

    SoundMixer mixer;
    EventCount wakeUp;
    DecodeThread decodeThread;

    SoundStream* loaded; // main thread
    bool assigned;       // it has a channel
    std::vector<Retired> retired;
    std::atomic<SoundStream*> current; // the same for the device's thread
    std::atomic<uint64_t> rounds;      // counts at both ends of Fill: odd inside
    std::atomic<bool> starting;        // Play was called, and its place is not decoded yet

    // The time that the device's thread has noted: a frame of the music, and the count at which it is given to the
    // device. The version is odd while they change.
    std::atomic<uint32_t> version;
    std::atomic<uint32_t> noteSerial; // of the order that plays
    std::atomic<int64_t> noteFrame;
    std::atomic<int64_t> noteCount;

    uint32_t seenVersion; // main thread
    uint32_t smoothSerial;
    double smoothOffset; // seconds from the process's clock to the music, over several buffers
    int apart;           // how many buffers in a row were far behind it; below 0: ahead of it
};

} // namespace edit
