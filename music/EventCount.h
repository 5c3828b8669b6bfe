// SPDX-License-Identifier: MIT
// An event count: wakes a thread that sleeps while it has nothing to do. Notify never waits and costs next to nothing
// while nobody sleeps.
//
// The sleeping thread reads Current, looks for work, and calls WaitBeyond with what it read if there was none. A
// notification that comes in between is not missed.
#pragma once

#include <atomic>
#include <cstdint>

class EventCount
{
public:
    void Notify() // any thread
    {
        ++count;
        count.notify_all();
    }
    uint32_t Current() const { return count; }
    void WaitBeyond(uint32_t seen) const { count.wait(seen); } // returns once Current is another than seen

private:
    std::atomic<uint32_t> count{0};
};
