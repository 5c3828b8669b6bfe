// SPDX-License-Identifier: MIT
// The one thread that decodes for all open streams. It runs from the start of the sound system to the end of
// the process, sleeps while the windows of all streams are full, and owns every stream that Add has given it.
#pragma once

#include "music/EventCount.h"
#include "music/SoundMixer.h"

class DecodeThread
{
public:
    // Both are borrowed and, as this, must live to the end of the process. Notifying theWakeUp wakes the thread.
    DecodeThread(SoundMixer* theMixer, EventCount* theWakeUp);

    // Once. False if the system refuses the thread; this may then be deleted.
    bool Start();

    void Add(SoundStream* stream); // main thread: hands a new stream over

private:
    static void RunThread(void* self);
    void Run();
    void TakeArrivals();
    bool WorkOnStreams();
    static void Stop();

    SoundMixer* mixer;
    EventCount* wakeUp;
    std::vector<SoundStream*> streams;
    std::atomic<SoundStream*> arrivals; // a chain, the newest first
    std::atomic<bool> stopping;
    std::atomic<bool> stopped;
};
