// SPDX-License-Identifier: MIT
// Does work that may take its time, on files above all, on a thread of its own and in the order in which it was given,
// so that a slow disk holds up nobody but the thread. What is to follow a piece of work is called in Poll, on the thread
// that gave the work.
//
// Do, Forget, Poll, IsBusy and Finish belong to one thread. An owner is any address, and stands for the object whose
// work it is.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace edit
{

class DiskThread
{
public:
    typedef std::function<void()> Work;

    // `wakeCall` is called on the thread whenever Poll has something to do; it may be empty. The thread starts with the
    // first Do; where the system refuses it, Do does the work itself.
    explicit DiskThread(Work wakeCall = {});
    ~DiskThread(); // does all that was given; what was to follow is dropped
    DiskThread(const DiskThread&) = delete;
    DiskThread& operator=(const DiskThread&) = delete;

    // `then` may be empty. Neither may call Finish.
    void Do(const void* owner, Work work, Work then);

    // The owner ends: its work is done all the same, and nothing follows it.
    void Forget(const void* owner);

    // Calls what follows the work that is done. True if there was any.
    bool Poll();

    bool IsBusy(); // something was given whose `then` has not been called yet

    // Waits until all work is done and followed, including the work that is given meanwhile by what follows.
    void Finish();

private:
    struct Task {
        const void* owner;
        Work work, then;
    };

    void Run();

    Work wake;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Task> waiting, done;
    Task atWork; // its work is empty, since it runs
    bool working;
    bool ending;
    std::thread thread;
};

} // namespace edit
