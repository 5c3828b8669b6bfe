// SPDX-License-Identifier: MIT
#include "tools/edit/DiskThread.h"

#include "platform/Threads.h"

#include <utility>

namespace edit
{

DiskThread::DiskThread(Work wakeCall) : wake(std::move(wakeCall)), working(false), ending(false) {}

DiskThread::~DiskThread()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
    }
    changed.notify_all();
    if (thread.joinable())
        thread.join();
}

void DiskThread::Do(const void* owner, Work work, Work then)
{
    if (!thread.joinable() && !platform::CanStartThreads(1)) {
        work();
        done.push_back({owner, nullptr, std::move(then)});
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(mutex);
        waiting.push_back({owner, std::move(work), std::move(then)});
    }
    changed.notify_all();
    if (!thread.joinable())
        thread = std::thread([this] { Run(); });
}

void DiskThread::Forget(const void* owner)
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (std::deque<Task>* const tasks : {&waiting, &done})
        for (Task& task : *tasks)
            if (task.owner == owner)
                task.then = nullptr;
    if (working && atWork.owner == owner)
        atWork.then = nullptr;
}

bool DiskThread::Poll()
{
    bool any = false;
    for (;;) {
        Task task;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            if (done.empty())
                return any;
            task = std::move(done.front());
            done.pop_front();
        }
        any = true;
        if (task.then)
            task.then();
    }
}

bool DiskThread::IsBusy()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return working || !waiting.empty() || !done.empty();
}

void DiskThread::Finish()
{
    while (IsBusy()) {
        {
            std::unique_lock<std::mutex> lock(mutex);
            changed.wait(lock, [this] { return !working && waiting.empty(); });
        }
        Poll();
    }
}

void DiskThread::Run()
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return ending || !waiting.empty(); });
        if (waiting.empty())
            return;
        atWork = std::move(waiting.front());
        waiting.pop_front();
        Work work = std::exchange(atWork.work, nullptr);
        working = true;
        lock.unlock();
        work();
        work = nullptr; // with all that it holds, before its owner hears that it is done
        lock.lock();
        working = false;
        done.push_back(std::move(atWork));
        changed.notify_all();
        if (wake && !ending)
            wake();
    }
}

} // namespace edit
