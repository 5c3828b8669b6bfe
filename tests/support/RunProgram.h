// SPDX-License-Identifier: MIT
// Starts a program of the build and waits for it.
#pragma once

#include <string>
#include <vector>

struct ProgramRun {
    int status; // the exit status, -1 if a signal ended it
    std::string output;
    std::string errors;
};

// A companion program by its bare name ("marlinex-list"), or any other by its path. Words are passed
// unchanged, without a shell. Environment entries ("NO_COLOR=1") are added to the caller's.
ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& words,
                      const std::vector<std::string>& environment = {}, const std::string& folder = ".");
