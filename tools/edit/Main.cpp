// SPDX-License-Identifier: MIT
// marlinex-edit: the show where it is written, as picture, sound and timeline.
#include "tools/edit/Options.h"
#include "tools/edit/ShowHost.h"

#include "tools/cli/CommandLine.h"

int main(int argc, char** argv)
{
    if (edit::IsShowHost(argc, argv))
        edit::RunShowHost();
    cli::CommandLine line = edit::OptionTable();
    edit::Options options;
    if (!edit::ReadOptions(&line, argc, argv, &options))
        return line.exitStatus;
    return cli::ExitClean;
}
