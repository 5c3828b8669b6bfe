// SPDX-License-Identifier: MIT
#include "tests/support/desktop/Process.h"

#include <chrono>
#include <csignal>
#include <cstdio>
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

bool Process::Start(const std::vector<std::string>& command, const std::vector<std::string>& environment,
                    const std::string& directory)
{
    platform::ChildSettings settings;
    settings.environment = environment;
    settings.directory = directory;
    settings.endsWithParent = true;
    if (child.Start(command, settings))
        return true;
    fprintf(stderr, "can't start %s\n", child.error.c_str());
    return false;
}

Process::~Process()
{
    if (child.Id() <= 0)
        return;
    if (IsRunning()) {
        Signal(SIGTERM);
        WaitForExit(graceBeforeKill);
    }
    kill(-child.Id(), SIGKILL); // its children too
}

bool Process::WaitForExit(double seconds)
{
    return WaitUntil([this] { return !IsRunning(); }, seconds);
}

bool Process::WaitForOutput(const std::string& text, double seconds)
{
    return WaitUntil([&] { return Output().find(text) != std::string::npos; }, seconds);
}
