// SPDX-License-Identifier: MIT
// A program that is fed through pipes: ffmpeg, and ffprobe beside it. It has a process group of its own, so
// that a Ctrl-C on the terminal reaches this process alone, which then lets the encoder end properly.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace capture
{

class ChildProcess
{
public:
    ChildProcess();
    ~ChildProcess(); // closes the inputs and waits
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Two pipes lead into it: its standard input, and one that it knows as "pipe:3". Its errors are kept, and
    // so is its standard output unless `outputTo` is a descriptor that it is to write to (borrowed until
    // Start returns). The program is found along PATH. False: `error` says why. Once per object.
    bool Start(const std::vector<std::string>& command, int outputTo = -1);

    // Writes all of it and waits while the pipe is full. False: the program has closed the pipe, or ended.
    // Each input may have a thread of its own.
    bool WriteFirst(const void* bytes, size_t count);
    bool WriteSecond(const void* bytes, size_t count);
    void CloseFirst();
    void CloseSecond();

    // Closes both inputs and waits for the end. True if the exit status is 0; otherwise `error` has what the
    // program wrote on its standard error, or how it ended.
    bool Finish();

    std::string Output() const; // behind Finish

    std::string error;

private:
    bool MakePipes();

    std::string name;
    pid_t pid;
    int inputs[2];
    int farEnds[2]; // the program's, until it has them
    int outputFile;
    int errorFile;
};

} // namespace capture
