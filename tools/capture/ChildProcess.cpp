// SPDX-License-Identifier: MIT
#include "tools/capture/ChildProcess.h"

#include "tools/capture/Interruption.h"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace capture
{

static const int secondInput = 3;
static const int pipeSize =
    1 << 20; // bytes, the most that everybody may have: fewer switches between programs
static const size_t longestText = 4000;

static void Close(int* file)
{
    if (*file >= 0)
        close(*file);
    *file = -1;
}

ChildProcess::ChildProcess() : pid(-1), inputs{-1, -1}, farEnds{-1, -1}, outputFile(-1), errorFile(-1) {}

ChildProcess::~ChildProcess()
{
    Finish();
    Close(&outputFile);
    Close(&errorFile);
}

// Away from the numbers that the program's own files get, which are free where somebody closed ours.
static int LiftUp(int file)
{
    if (file < 0)
        return -1;
    const int lifted = fcntl(file, F_DUPFD_CLOEXEC, secondInput + 1);
    const int cause = errno;
    close(file);
    errno = cause;
    return lifted;
}

bool ChildProcess::MakePipes()
{
    for (int i = 0; i < 2; i++) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return false;
        farEnds[i] = LiftUp(ends[0]);
        inputs[i] = LiftUp(ends[1]);
        if (farEnds[i] < 0 || inputs[i] < 0)
            return false;
        fcntl(inputs[i], F_SETPIPE_SZ, pipeSize); // a wish
    }
    outputFile = LiftUp(memfd_create("output", MFD_CLOEXEC));
    if (outputFile >= 0)
        errorFile = LiftUp(memfd_create("errors", MFD_CLOEXEC));
    return errorFile >= 0;
}

bool ChildProcess::Start(const std::vector<std::string>& command, int outputTo)
{
    name = command[0];
    if (!MakePipes()) {
        error = name + ": " + strerror(errno);
        for (int* file : {&inputs[0], &inputs[1], &farEnds[0], &farEnds[1]})
            Close(file);
        return false;
    }
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, farEnds[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, outputTo >= 0 ? outputTo : outputFile, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, errorFile, STDERR_FILENO);
    posix_spawn_file_actions_adddup2(&files, farEnds[1], secondInput);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
    const int failure = posix_spawnp(&pid, arguments[0], &files, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    Close(&farEnds[0]);
    Close(&farEnds[1]);
    if (failure == 0) {
        ContinueOnInterruption(pid);
        return true;
    }
    pid = -1;
    Close(&inputs[0]);
    Close(&inputs[1]);
    error = failure == ENOENT ? name + " is not installed, or not on PATH: videos are made with it"
                              : name + ": " + strerror(failure);
    return false;
}

static bool WriteAll(int file, const void* bytes, size_t count)
{
    const char* place = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = write(file, place, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        place += written;
        count -= size_t(written);
    }
    return true;
}

bool ChildProcess::WriteFirst(const void* bytes, size_t count)
{
    return WriteAll(inputs[0], bytes, count);
}

bool ChildProcess::WriteSecond(const void* bytes, size_t count)
{
    return WriteAll(inputs[1], bytes, count);
}

void ChildProcess::CloseFirst()
{
    Close(&inputs[0]);
}

void ChildProcess::CloseSecond()
{
    Close(&inputs[1]);
}

static std::string ReadBack(int file)
{
    std::string text(longestText, '\0');
    const ssize_t got = pread(file, text.data(), text.size(), 0);
    text.resize(size_t(got > 0 ? got : 0));
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    return text;
}

bool ChildProcess::Finish()
{
    CloseFirst();
    CloseSecond();
    if (pid < 0)
        return error.empty();
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    ContinueOnInterruption(0);
    pid = -1;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
        return true;
    const std::string words = ReadBack(errorFile);
    error = name + (WIFSIGNALED(status) ? " was ended by signal " + std::to_string(WTERMSIG(status))
                                        : " failed with exit status " + std::to_string(WEXITSTATUS(status)));
    if (!words.empty())
        error += ":\n" + words;
    return false;
}

std::string ChildProcess::Output() const
{
    return ReadBack(outputFile);
}

} // namespace capture
