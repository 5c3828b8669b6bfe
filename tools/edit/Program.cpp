// SPDX-License-Identifier: MIT
#include "tools/edit/Program.h"

#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/edit/Editor.h"
#include "tools/edit/Options.h"
#include "tools/edit/ShowHost.h"

#include <filesystem>
#include <unistd.h>

namespace edit
{

// The file of this program, which starts itself for the show.
static std::string OwnPath(const char* name)
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? name : path.string();
}

int RunProgram(int argc, char** argv, void (*atEnd)(const AnswerTimes& answers))
{
    if (IsShowHost(argc, argv))
        RunShowHost();
    cli::CommandLine line = OptionTable();
    Options options;
    if (!ReadOptions(&line, argc, argv, &options))
        return line.exitStatus;
    platform::FindDataDirectory(ProductionName);
    if (!options.data.empty())
        platform::SetDataDirectory(options.data);

    Editor editor(options);
    std::string reason;
    if (!editor.Open(OwnPath(argv[0]), &reason))
        return line.Fail(reason);
    bool interrupted = false;
    const int status = editor.Run(&interrupted);
    if (atEnd)
        atEnd(editor.Answers());
    if (interrupted)
        _exit(status); // destructors would take the recovery file away
    return status;
}

} // namespace edit
