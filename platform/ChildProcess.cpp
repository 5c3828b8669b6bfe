// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"

#include <cassert>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace platform
{

static const int secondInput = 3;           // descriptor of the second pipe in the program
static const int pipeSize = 1 << 20;        // bytes, the most that every user may have
static const size_t maxErrorBytes = 4000;   // of a program's standard error that become part of `error`
static const int exitStatusCannotRun = 127; // as a shell has it

bool WriteAll(int descriptor, const void* bytes, size_t count)
{
    const char* place = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = write(descriptor, place, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written == 0)
            errno = EIO;
        if (written <= 0)
            return false;
        place += written;
        count -= size_t(written);
    }
    return true;
}

static void Close(int* file)
{
    if (*file >= 0)
        close(*file);
    *file = -1;
}

ChildProcess::ChildProcess()
    : cause(0), pid(0), status(StillRunning), pipes{-1, -1}, farEnds{-1, -1}, outputFile(-1), errorFile(-1)
{
}

ChildProcess::~ChildProcess()
{
    Finish();
    Close(&outputFile);
    Close(&errorFile);
}

// Moves a descriptor above the numbers that the program's own get. Low numbers are free if this process was
// started without its standard streams.
static int MoveUp(int file)
{
    if (file < 0)
        return -1;
    const int moved = fcntl(file, F_DUPFD_CLOEXEC, secondInput + 1);
    const int why = errno;
    close(file);
    errno = why;
    return moved;
}

bool ChildProcess::MakePipes(int count)
{
    for (int i = 0; i < count; i++) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return false;
        farEnds[i] = MoveUp(ends[0]);
        const int why = errno;
        pipes[i] = MoveUp(ends[1]);
        if (farEnds[i] < 0)
            errno = why;
        if (farEnds[i] < 0 || pipes[i] < 0)
            return false;
        // A large pipe saves context switches. If the system refuses the size, the pipe keeps its own.
        fcntl(pipes[i], F_SETPIPE_SZ, pipeSize);
    }
    return true;
}

bool ChildProcess::MakeFiles()
{
    outputFile = MoveUp(memfd_create("output", MFD_CLOEXEC));
    if (outputFile >= 0)
        errorFile = MoveUp(memfd_create("errors", MFD_CLOEXEC));
    return errorFile >= 0;
}

bool ChildProcess::Fail(int why)
{
    for (int* file : {&pipes[0], &pipes[1], &farEnds[0], &farEnds[1]})
        Close(file);
    cause = why;
    error = name + ": " + strerror(why);
    return false;
}

static std::vector<std::string> ChangedEnvironment(const std::vector<std::string>& changes)
{
    std::vector<std::string> rows;
    for (char** row = environ; *row; row++)
        rows.push_back(*row);
    for (const std::string& change : changes) {
        const std::string key = change.substr(0, change.find('=')) + "=";
        std::erase_if(rows, [&key](const std::string& row) { return row.compare(0, key.size(), key) == 0; });
        if (change.find('=') != std::string::npos)
            rows.push_back(change);
    }
    return rows;
}

static std::vector<char*> Pointers(const std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

namespace
{

// What the program begins with.
struct Beginning {
    const char* directory; // null: the present one
    char* const* arguments;
    char* const* environment;
    int input, output, errors, secondInput; // descriptors; the last may be -1
    bool endsWithParent;
    sigset_t blocked; // signals
    int report;       // takes errno, if it can't be run; a program that runs closes it
};

} // namespace

// Runs in the new process, on the memory of the thread that waits for it: it changes nothing there, and neither
// allocates nor returns. Handlers of signals are not for it.
[[noreturn]] static void Become(const Beginning* how)
{
    struct sigaction usual = {}, present;
    usual.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; number++)
        if (number == SIGPIPE || (sigaction(number, nullptr, &present) == 0 && present.sa_handler != SIG_IGN))
            sigaction(number, &usual, nullptr);
    sigprocmask(SIG_SETMASK, &how->blocked, nullptr);
    setpgid(0, 0);
    if (how->endsWithParent)
        prctl(PR_SET_PDEATHSIG, SIGTERM);
    dup2(how->input, STDIN_FILENO);
    dup2(how->output, STDOUT_FILENO);
    dup2(how->errors, STDERR_FILENO);
    if (how->secondInput >= 0)
        dup2(how->secondInput, secondInput);
    if (!how->directory || chdir(how->directory) == 0)
        execvpe(how->arguments[0], how->arguments, how->environment);
    const int why = errno;
    _exit(write(how->report, &why, sizeof why) < 0 ? exitStatusCannotRun - 1 : exitStatusCannotRun);
}

// Returns when the program runs or can't. fork would copy the tables of this process's memory, and have each page
// that is written to afterwards copied: with a window's memory that takes as long as a frame. Sanitizers make it a fork.
[[gnu::noinline]] static pid_t StartApart(Beginning* how)
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &how->blocked);
    const pid_t pid = vfork(); // NOLINT(clang-analyzer-security.insecureAPI.vfork)
    if (pid == 0)
        Become(how); // NOLINT(clang-analyzer-unix.Vfork): it does what posix_spawn does
    const int why = errno;
    pthread_sigmask(SIG_SETMASK, &how->blocked, nullptr);
    errno = why;
    return pid;
}

bool ChildProcess::Start(const std::vector<std::string>& command, const ChildSettings& settings)
{
    assert(pid == 0 && !command.empty());
    name = command[0];
    int report[2];
    if (!MakePipes(settings.pipes) || !MakeFiles() || pipe2(report, O_CLOEXEC) != 0)
        return Fail(errno);
    const std::vector<std::string> rows = ChangedEnvironment(settings.environment);
    const std::vector<char*> arguments = Pointers(command);
    const std::vector<char*> environment = Pointers(rows);
    Beginning how = {};
    how.directory = settings.directory.empty() ? nullptr : settings.directory.c_str();
    how.arguments = arguments.data();
    how.environment = environment.data();
    how.input = farEnds[0] >= 0 ? farEnds[0] : open("/dev/null", O_RDONLY | O_CLOEXEC);
    how.output = settings.outputTo >= 0 ? settings.outputTo : outputFile;
    how.errors = errorFile;
    how.secondInput = farEnds[1];
    how.endsWithParent = settings.endsWithParent;
    how.report = report[1];

    pid = StartApart(&how);
    int why = pid < 0 ? errno : 0;
    close(report[1]);
    if (farEnds[0] < 0)
        close(how.input);
    while (pid > 0 && read(report[0], &why, sizeof why) < 0 && errno == EINTR) {
    }
    close(report[0]);
    if (why) {
        while (pid > 0 && waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
        }
        pid = 0;
        return Fail(why);
    }
    Close(&farEnds[0]);
    Close(&farEnds[1]);
    return true;
}

bool ChildProcess::WriteFirst(const void* bytes, size_t count)
{
    return WriteAll(pipes[0], bytes, count);
}

bool ChildProcess::WriteSecond(const void* bytes, size_t count)
{
    return WriteAll(pipes[1], bytes, count);
}

void ChildProcess::CloseFirst()
{
    Close(&pipes[0]);
}

void ChildProcess::CloseSecond()
{
    Close(&pipes[1]);
}

void ChildProcess::NoteStatus(int waitStatus)
{
    status = WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : -WTERMSIG(waitStatus);
}

bool ChildProcess::IsRunning()
{
    int waitStatus = 0;
    if (pid > 0 && status == StillRunning && waitpid(pid, &waitStatus, WNOHANG) == pid)
        NoteStatus(waitStatus);
    return pid > 0 && status == StillRunning;
}

void ChildProcess::Signal(int number)
{
    if (IsRunning())
        kill(pid, number);
}

int ChildProcess::ExitStatus()
{
    IsRunning();
    return status;
}

bool ChildProcess::Finish()
{
    CloseFirst();
    CloseSecond();
    if (pid <= 0)
        return error.empty();
    int waitStatus = 0;
    while (status == StillRunning) {
        if (waitpid(pid, &waitStatus, 0) == pid)
            NoteStatus(waitStatus);
        else if (errno != EINTR)
            return false;
    }
    if (status == 0)
        return true;
    error = name + (status < 0 ? " was ended by signal " + std::to_string(-status)
                               : " failed with exit status " + std::to_string(status));
    std::string words = Errors().substr(0, maxErrorBytes);
    while (!words.empty() && (words.back() == '\n' || words.back() == '\r'))
        words.pop_back();
    if (!words.empty())
        error += ":\n" + words;
    return false;
}

static std::string ReadBack(int file)
{
    std::string text;
    char block[4096];
    ssize_t got;
    while ((got = pread(file, block, sizeof block, off_t(text.size()))) > 0)
        text.append(block, size_t(got));
    return text;
}

std::string ChildProcess::Output() const
{
    return ReadBack(outputFile);
}

std::string ChildProcess::Errors() const
{
    return ReadBack(errorFile);
}

} // namespace platform
