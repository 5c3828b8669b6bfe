// SPDX-License-Identifier: MIT
// Wakes a thread that sleeps while it has nothing to do. Ringing never waits and costs next to nothing while
// nobody sleeps.
//
// The sleeper reads Count, looks for work, and calls SleepAfter with what it read if there was none: a ring
// in between is not missed.
#pragma once

#include <atomic>
#include <cstdint>

class Bell
{
public:
    void Ring() // any thread
    {
        ++count;
        count.notify_all();
    }
    uint32_t Count() const { return count; }
    void SleepAfter(uint32_t seen) const { count.wait(seen); }

private:
    std::atomic<uint32_t> count{0};
};
