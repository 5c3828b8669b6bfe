// SPDX-License-Identifier: MIT
#include "tests/support/RunProgram.h"

#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

static std::string ReadBack(FILE* file)
{
    std::string text;
    char piece[4096];
    rewind(file);
    for (size_t got = fread(piece, 1, sizeof piece, file); got > 0; got = fread(piece, 1, sizeof piece, file))
        text.append(piece, got);
    fclose(file);
    return text;
}

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& words,
                      const std::vector<std::string>& environment, const std::string& folder)
{
    const std::string path =
        program.find('/') == std::string::npos ? std::string(BINARY_DIR) + "/" + program : program;
    FILE* const output = tmpfile();
    FILE* const errors = tmpfile();
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(output), STDOUT_FILENO);
        dup2(fileno(errors), STDERR_FILENO);
        std::vector<char*> arguments = {const_cast<char*>(path.c_str())};
        for (const std::string& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        for (const std::string& entry : environment)
            putenv(const_cast<char*>(entry.c_str()));
        if (chdir(folder.c_str()) == 0)
            execv(path.c_str(), arguments.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ProgramRun run = {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadBack(output), ""};
    run.errors = ReadBack(errors);
    return run;
}
