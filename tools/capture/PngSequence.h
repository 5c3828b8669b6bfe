// SPDX-License-Identifier: MIT
// Writes each frame as a numbered PNG file. The number is that of the frame in the show, so that parts that
// are captured separately form one sequence. The pictures are compressed by several threads.
#pragma once

#include "tools/capture/FrameSink.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace capture
{

// A pattern is a path that ends in .png and has a % in its last component. One %d, %5d or %05d in that stands
// for the number of the frame, and %% for a per cent sign.
bool IsPattern(const std::string& output);

// Gives the pattern of an output: the output itself if it is one, else that of 000000.png, 000001.png, ... in
// the folder of that name. False if the output is empty, or a pattern without a number, with several, or with
// another single %.
bool PatternOf(const std::string& output, std::string* pattern);
std::string PatternName(const std::string& pattern, int64_t number);

class PngSequence : public FrameSink
{
public:
    // Uses that many threads, 1 or more.
    PngSequence(const std::string& outputPattern, int threads);
    ~PngSequence() override;

    bool Begin(int width, int height, const FrameSelection& selection) override; // makes the folder
    bool Take(std::unique_ptr<Frame> frame) override; // blocks while one frame waits for each thread
    bool Finish(bool keep) override;

private:
    void Work();
    void Join();

    const std::string pattern;
    const int threadCount;
    std::vector<std::thread> threads;

    std::mutex mutex; // guards the fields below and `error`
    std::condition_variable changed;
    std::deque<std::unique_ptr<Frame>> waiting;
    bool ending;
};

} // namespace capture
