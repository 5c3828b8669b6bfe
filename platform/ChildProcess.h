// SPDX-License-Identifier: MIT
// Starts another program, feeds it through pipes and waits for it. The program has a process group of its
// own, so that a Ctrl-C on the terminal reaches this process alone.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace platform
{

// Writes all bytes, and waits while a pipe is full. False: errno says why; a pipe that nobody reads any more
// is one reason, if SIGPIPE is ignored.
bool WriteAll(int descriptor, const void* bytes, size_t count);

struct ChildSettings {
    // "NAME=value" rows that change the environment, which is this process's own; "NAME" takes one away.
    std::vector<std::string> environment;
    std::string directory; // the program's working directory; empty: this process's own
    int pipes = 0;         // 0: its standard input is /dev/null; 1: a pipe; 2: another one as descriptor 3
    int outputTo = -1;     // a descriptor for its standard output, borrowed until Start returns; -1: kept
    bool endsWithParent = false; // SIGTERM ends the program with the thread that started it
};

class ChildProcess
{
public:
    ChildProcess();
    ~ChildProcess(); // closes the pipes and waits
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The program is the first word, found along PATH unless it has a slash. False if it can't be run:
    // `error` says why, and `cause` is errno. Call it once per object, with at least one word.
    bool Start(const std::vector<std::string>& command, const ChildSettings& settings = {});

    // False: the program has closed the pipe, or ended. Each pipe may be used by a thread of its own.
    bool WriteFirst(const void* bytes, size_t count);
    bool WriteSecond(const void* bytes, size_t count);
    void CloseFirst();
    void CloseSecond();

    pid_t Id() const { return pid; } // 0 before Start
    bool IsRunning();
    void Signal(int number); // does nothing if the program has ended

    // Closes the pipes and waits for the end. True if the exit status is 0; otherwise `error` says how it
    // ended and has the first words of its standard error.
    bool Finish();

    // The exit status, 0 to 255; the negative number of the signal that ended the program; StillRunning until
    // its end is known.
    static constexpr int StillRunning = -1000;
    int ExitStatus();

    // What the program has written to its standard output and standard error so far.
    std::string Output() const;
    std::string Errors() const;

    std::string error;
    int cause;

private:
    bool MakePipes(int count);
    bool MakeFiles();
    void NoteStatus(int waitStatus);
    bool Fail(int why);

    std::string name;
    pid_t pid;
    int status;
    int pipes[2];
    int farEnds[2]; // the program's ends of the pipes, held until it has started
    int outputFile;
    int errorFile;
};

} // namespace platform
