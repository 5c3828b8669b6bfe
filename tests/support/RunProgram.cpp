// SPDX-License-Identifier: MIT
#include "tests/support/RunProgram.h"

#include "platform/ChildProcess.h"
#include "tests/Folders.h"

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& words,
                      const std::vector<std::string>& environment, const std::string& folder)
{
    const std::string path =
        program.find('/') == std::string::npos ? std::string(BINARY_DIR) + "/" + program : program;
    std::vector<std::string> command = {path};
    command.insert(command.end(), words.begin(), words.end());
    platform::ChildSettings settings;
    settings.environment = environment;
    settings.directory = folder;
    settings.endsWithParent = true;
    platform::ChildProcess child;
    if (!child.Start(command, settings))
        return {127, "", child.error};
    child.Finish();
    const int status = child.ExitStatus();
    return {status < 0 ? -1 : status, child.Output(), child.Errors()};
}
