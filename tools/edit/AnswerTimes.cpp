// SPDX-License-Identifier: MIT
#include "tools/edit/AnswerTimes.h"

namespace edit
{

// An event that was waited for longer than this, in seconds, came while the window was idle.
static const double atOnce = 0.001;

void AnswerTimes::Wait(double now)
{
    if (isRunning) {
        const double busy = now - begins;
        if (busy > longestBusy) {
            longestBusy = busy;
            longestAhead = draws > begins ? draws - begins : busy;
        }
        const bool cameBefore = begins - waits < atOnce;
        if (hasEvent)
            answers.push_back(float(cameBefore ? busyBefore + (now - waits) : busy));
        busyBefore = busy;
    }
    waits = now;
    isRunning = false;
}

void AnswerTimes::Begin(double now, bool happened)
{
    begins = now;
    draws = 0;
    hasEvent = happened;
    isRunning = true;
}

void AnswerTimes::Draw(double now)
{
    draws = now;
}

} // namespace edit
