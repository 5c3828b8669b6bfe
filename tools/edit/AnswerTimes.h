// SPDX-License-Identifier: MIT
// How long the window takes to answer its user: from the moment that something can have happened to the end of the frame
// that shows it. What happens while the window is busy with the round before waits for that as well, and is counted as
// if it had happened at once when that began.
//
// Order of calls in each round of the window's loop: Wait before it waits for events, Begin when that wait is over, Draw
// ahead of a frame, if there is one.
#pragma once

#include <vector>

namespace edit
{

class AnswerTimes
{
public:
    // All times are seconds of one clock.
    void Wait(double now);
    void Begin(double now, bool happened); // happened: there was an event
    void Draw(double now);

    // The answer times of the rounds in which there was an event, in seconds, in the order of time.
    const std::vector<float>& Answers() const { return answers; }

    // The longest time in all rounds for which the window took no events, and its part before the frame.
    double LongestBusy() const { return longestBusy; }
    double LongestBusyAhead() const { return longestAhead; }

private:
    double waits = 0, begins = 0, draws = 0; // of the present round
    bool isRunning = false, hasEvent = false;
    double busyBefore = 0; // of the round before
    std::vector<float> answers;
    double longestBusy = 0, longestAhead = 0;
};

} // namespace edit
