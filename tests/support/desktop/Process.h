// SPDX-License-Identifier: MIT
// A program that a test starts. It dies with this object, and with the test's own process however that ends.
#pragma once

#include "platform/ChildProcess.h"

#include <functional>
#include <string>
#include <vector>

// Asks again and again, with short pauses, until the condition holds; false if it doesn't within the time.
// Deadlines in tests are for programs that hang: they may be generous, since nobody waits for them otherwise.
const double Patience = 20; // seconds
bool WaitUntil(const std::function<bool()>& condition, double seconds = Patience);

class Process
{
public:
    Process() = default;
    ~Process(); // kills the program with all its children
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // The program is found along PATH unless it has a slash. The environment is the test's own, changed by
    // "NAME=value" rows; "NAME" takes a variable away. An empty directory is the test's own. False if it
    // can't be started at all; one object starts one program.
    bool Start(const std::vector<std::string>& command, const std::vector<std::string>& environment = {},
               const std::string& directory = "");

    bool IsRunning() { return child.IsRunning(); }
    bool WaitForExit(double seconds = Patience);
    int ExitStatus() { return child.ExitStatus(); } // as platform::ChildProcess has it

    void Signal(int number) { child.Signal(number); } // to the program itself

    // What it has written so far.
    std::string Output() const { return child.Output(); }
    std::string Errors() const { return child.Errors(); }
    bool WaitForOutput(const std::string& text, double seconds = Patience);

private:
    platform::ChildProcess child;
};
