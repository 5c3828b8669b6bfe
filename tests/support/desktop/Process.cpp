// SPDX-License-Identifier: MIT
#include "tests/support/desktop/Process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <thread>

static const auto pauseBetweenLooks = std::chrono::milliseconds(15);
static const double graceBeforeKill = 2; // seconds for a program to clean up after SIGTERM

bool WaitUntil(const std::function<bool()>& condition, double seconds)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(pauseBetweenLooks);
    }
    return true;
}

static int OpenUnnamedFile()
{
    char name[] = "/tmp/marlinex-test-XXXXXX";
    const int file = mkostemp(name, O_CLOEXEC);
    if (file >= 0)
        unlink(name);
    return file;
}

static std::string ReadAll(int file)
{
    std::string text;
    char block[4096];
    ssize_t got;
    while ((got = pread(file, block, sizeof block, off_t(text.size()))) > 0)
        text.append(block, size_t(got));
    return text;
}

// In the child. Returns only if the program can't be run.
static void Become(const std::vector<std::string>& command, const std::vector<std::string>& environment,
                   const std::string& directory)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (!directory.empty() && chdir(directory.c_str()) != 0)
        return;
    for (const std::string& row : environment) {
        const size_t equals = row.find('=');
        if (equals == std::string::npos)
            unsetenv(row.c_str());
        else
            setenv(row.substr(0, equals).c_str(), row.c_str() + equals + 1, 1);
    }
    std::vector<char*> words;
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
}

bool Process::Start(const std::vector<std::string>& command, const std::vector<std::string>& environment,
                    const std::string& directory)
{
    outputFile = OpenUnnamedFile();
    errorFile = OpenUnnamedFile();
    // Closes by itself when the program takes over; carries the reason if it can't.
    int report[2];
    if (outputFile < 0 || errorFile < 0 || pipe2(report, O_CLOEXEC) != 0)
        return false;
    pid = fork();
    if (pid == 0) {
        dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
        dup2(outputFile, STDOUT_FILENO);
        dup2(errorFile, STDERR_FILENO);
        Become(command, environment, directory);
        const int reason = errno;
        if (write(report[1], &reason, sizeof reason) < 0)
            _exit(126);
        _exit(127);
    }
    close(report[1]);
    int reason = 0;
    const bool failed = pid < 0 || read(report[0], &reason, sizeof reason) > 0;
    close(report[0]);
    if (failed)
        fprintf(stderr, "can't start %s: %s\n", command[0].c_str(), strerror(reason));
    return !failed;
}

Process::~Process()
{
    if (pid > 0) {
        if (IsRunning()) {
            Signal(SIGTERM);
            WaitForExit(graceBeforeKill);
        }
        kill(-pid, SIGKILL);
        WaitForExit();
    }
    if (outputFile >= 0)
        close(outputFile);
    if (errorFile >= 0)
        close(errorFile);
}

bool Process::IsRunning()
{
    if (pid <= 0 || ended)
        return false;
    int how = 0;
    if (waitpid(pid, &how, WNOHANG) != pid)
        return true;
    ended = true;
    status = WIFEXITED(how) ? WEXITSTATUS(how) : -WTERMSIG(how);
    return false;
}

bool Process::WaitForExit(double seconds)
{
    return WaitUntil([this] { return !IsRunning(); }, seconds);
}

int Process::ExitStatus()
{
    IsRunning();
    return status;
}

void Process::Signal(int signal)
{
    if (IsRunning())
        kill(pid, signal);
}

std::string Process::Output() const
{
    return ReadAll(outputFile);
}

std::string Process::Errors() const
{
    return ReadAll(errorFile);
}

bool Process::WaitForOutput(const std::string& text, double seconds)
{
    return WaitUntil([&] { return Output().find(text) != std::string::npos; }, seconds);
}
