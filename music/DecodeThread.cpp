// SPDX-License-Identifier: MIT
#include "music/DecodeThread.h"

#include "platform/Threads.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <thread>

static DecodeThread* running = nullptr;

DecodeThread::DecodeThread(SoundMixer* theMixer, EventCount* theWakeUp)
    : mixer(theMixer), wakeUp(theWakeUp), arrivals(nullptr), stopping(false), stopped(false)
{
}

bool DecodeThread::Start()
{
    if (!platform::StartThread(RunThread, this))
        return false;
    running = this;
    std::atexit(Stop);
    return true;
}

// The decoders' libraries may tidy up at the end of the process: the thread must be out of them by then. A
// disk that hangs is not waited for.
void DecodeThread::Stop()
{
    running->stopping = true;
    running->wakeUp->Notify();
    for (int i = 0; i < 250 && !running->stopped; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void DecodeThread::Add(SoundStream* stream)
{
    stream->nextArrival = arrivals;
    while (!arrivals.compare_exchange_weak(stream->nextArrival, stream)) {
    }
    wakeUp->Notify();
}

void DecodeThread::RunThread(void* self)
{
    static_cast<DecodeThread*>(self)->Run();
}

void DecodeThread::Run()
{
    while (!stopping) {
        const uint32_t seen = wakeUp->Current();
        TakeArrivals();
        if (!WorkOnStreams())
            wakeUp->WaitBeyond(seen);
    }
    stopped = true;
}

void DecodeThread::TakeArrivals()
{
    SoundStream* arrival = arrivals.exchange(nullptr);
    while (arrival) {
        streams.push_back(arrival);
        arrival = arrival->nextArrival;
    }
}

// One piece for each, so that no stream waits long for another. False if all windows are full.
bool DecodeThread::WorkOnStreams()
{
    bool worked = false;
    for (size_t i = 0; i < streams.size();) {
        if (!streams[i]->closed) {
            worked |= streams[i]->Decode();
            ++i;
        } else if (mixer->IsDoneWith(streams[i])) {
            delete streams[i];
            streams.erase(streams.begin() + i);
        } else {
            ++i;
        }
    }
    return worked;
}
