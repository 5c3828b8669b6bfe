// SPDX-License-Identifier: MIT
// marlinex-list: the effects of the show and the messages that they understand. Needs no display.
#include "tools/cli/CommandLine.h"
#include "tools/cli/Output.h"
#include "tools/list/Listing.h"

static const std::vector<cli::Option> options = {
    {"output", 'o', "FILE", "Write to FILE instead of standard output; an existing one is replaced."},
    {"json", 0, nullptr, "Write the same facts as JSON, with the messages' ids."},
};

int main(int argc, char** argv)
{
    cli::CommandLine line(MARLINEX_PROGRAM,
                          "Lists the effects of the show and the messages that they understand.", "",
                          options);
    if (!line.Read(argc, argv))
        return line.exitStatus;
    const std::string path = line.Value("output", "-");
    const std::string text = line.Has("json") ? listing::JsonOfProduction() : listing::TextOfProduction();
    std::string reason;
    if (!cli::WriteOutput(path, text, &reason))
        return line.Fail((path == "-" ? "standard output" : path) + ": " + reason);
    return cli::ExitClean;
}
