// SPDX-License-Identifier: MIT
#include "platform/Threads.h"

#include <mutex>
#include <vector>

#include <pthread.h>
#include <sys/resource.h>

namespace platform
{

struct ThreadStart {
    ThreadBody body;
    void* context;
};

static void* RunBody(void* argument)
{
    const ThreadStart start = *static_cast<ThreadStart*>(argument);
    delete static_cast<ThreadStart*>(argument);
    start.body(start.context);
    return nullptr;
}

bool StartThread(ThreadBody body, void* context)
{
    ThreadStart* const start = new ThreadStart{body, context};
    pthread_t thread;
    if (pthread_create(&thread, nullptr, RunBody, start) != 0) {
        delete start;
        return false;
    }
    pthread_detach(thread);
    return true;
}

// Linux keeps the niceness for each thread by itself, and 0 stands for the calling one.
void GiveWay()
{
    static const int steps = 10;
    setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + steps);
}

// Waits until CanStartThreads has started the last one, so that all of them exist at the same time.
static void* WaitForGate(void* gate)
{
    const std::lock_guard<std::mutex> lock(*static_cast<std::mutex*>(gate));
    return nullptr;
}

bool CanStartThreads(int count)
{
    std::mutex gate;
    std::vector<pthread_t> threads;
    gate.lock();
    for (int i = 0; i < count; i++) {
        pthread_t thread;
        if (pthread_create(&thread, nullptr, WaitForGate, &gate) != 0)
            break;
        threads.push_back(thread);
    }
    gate.unlock();
    for (const pthread_t thread : threads)
        pthread_join(thread, nullptr);
    return int(threads.size()) == count;
}

} // namespace platform
