// SPDX-License-Identifier: MIT
// marlinex-lint: finds what the show would silently do with a script. Needs no display.
#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/cli/CommandLine.h"
#include "tools/cli/Output.h"
#include "tools/cli/Terminal.h"
#include "tools/lint/Print.h"

static const int exitFindings = 1;

static const std::vector<cli::Option> options = {
    {"offset", 0, "MS", "Check a show that starts at this millisecond, as from a start-offset file."},
    {"data", 0, "DIR",
     "Look for pictures, models, shaders and music in DIR instead of where the show looks."},
    {"no-files", 0, nullptr, "Do not look for files at all."},
    {"fps", 0, "N", "Hand messages out at N frames a second instead of 60."},
    {"werror", 0, nullptr, "Take every warning for an error."},
    {"json", 0, nullptr, "Write JSON."},
};

int main(int argc, char** argv)
{
    cli::CommandLine line(MARLINEX_PROGRAM, "Tells what the show would do with a script in silence.", "FILE",
                          options);
    if (!line.Read(argc, argv))
        return line.exitStatus;
    platform::FindDataDirectory(ProductionName);
    lint::CheckOptions wanted;
    int64_t offset = 0;
    if (!line.WholeNumber("offset", 0, UINT32_MAX, &offset) ||
        !line.Number("fps", 1, 1000, &wanted.frameRate))
        return line.exitStatus;
    wanted.startOffset = uint32_t(offset);
    wanted.data = line.Value("data");
    wanted.checkFiles = !line.Has("no-files");

    const std::string path = line.operands[0];
    lint::Report report = lint::CheckFile(path, wanted);
    if (!report.readable)
        return line.Fail(path + ": " + report.reason);
    if (line.Has("werror"))
        for (lint::Finding& finding : report.findings)
            if (finding.severity == lint::Warning)
                finding.severity = lint::Error;

    const std::string text = line.Has("json") ? lint::PrintJson(path, report, wanted)
                                              : lint::PrintText(path, report, cli::TakesColours(stdout));
    std::string reason;
    if (!cli::WriteOutput("-", text, &reason))
        return line.Fail("standard output: " + reason);
    return report.Count(lint::Error) > 0 ? exitFindings : cli::ExitClean;
}
