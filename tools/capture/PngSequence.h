// SPDX-License-Identifier: MIT
// Numbered pictures, one for each frame. A file's number is the number of its frame in the show, so that
// parts that are captured on their own lie beside each other as if they were one. Pictures are compressed on
// threads of their own.
#pragma once

#include "tools/capture/FrameSink.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace capture
{

// A pattern is the path of a .png whose name, the last part of the path, has a % in it. One %d, %5d or %05d
// stands for the number of the frame, and %% for a per cent sign.
bool IsPattern(const std::string& output);

// The pattern that an output stands for: itself, or that of the names 000000.png and so on in it as a folder.
// False: it is a pattern without a number, with several, or with another single %; or empty.
bool PatternOf(const std::string& output, std::string* pattern);
std::string PatternName(const std::string& pattern, int64_t number);

class PngSequence : public FrameSink
{
public:
    // threads from 1.
    PngSequence(const std::string& outputPattern, int threads);
    ~PngSequence() override;

    bool Begin(int width, int height, const Schedule& schedule) override; // makes the folder
    bool Take(std::unique_ptr<Frame> frame) override; // waits while all threads have work waiting
    bool Finish(bool keep) override;

private:
    void Work();
    void Join();

    const std::string pattern;
    const int threadCount;
    std::vector<std::thread> threads;

    std::mutex mutex; // for what follows, and error
    std::condition_variable changed;
    std::deque<std::unique_ptr<Frame>> waiting;
    bool ending;
};

} // namespace capture
