// SPDX-License-Identifier: MIT
// The command line of marlinex-capture, a word a line, as far as it is read before the show is loaded.
#include "platform/Paths.h"
#include "tests/fuzz/FuzzInput.h"
#include "tools/capture/CaptureOptions.h"

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

static std::vector<std::string> Words(const uint8_t* data, size_t size)
{
    std::vector<std::string> words = {"marlinex-capture", ""};
    for (size_t i = 0; i < size; i++) {
        if (data[i] == '\n')
            words.push_back("");
        else if (data[i] != 0) // ends a word for the system
            words.back() += char(data[i]);
    }
    return words;
}

static bool IsSound(const capture::CaptureOptions& options)
{
    return options.width >= 1 && options.width <= 16384 && options.height >= 1 && options.height <= 16384 &&
           options.rate.frames > 0 && options.rate.seconds > 0 && options.from >= 0 &&
           (options.to == -1 || options.to > options.from) && options.every >= 0 && options.segment >= 1 &&
           options.segment <= options.segments && options.columns > 0 && options.tiles > 0 &&
           options.tileWidth > 0 && options.threads >= 0 && !options.output.empty() &&
           (!options.join || !options.parts.empty());
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StartFuzzInput();
    WriteFuzzInput("script.txt", "", 0);
    const std::vector<std::string> words = Words(data, size);
    std::vector<const char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(word.c_str());

    // What is said of each mistake would drown what the driver says.
    FILE* const nowhere = fopen("/dev/null", "w");
    fflush(stderr);
    const int errors = dup(STDERR_FILENO);
    if (!nowhere || errors < 0 || dup2(fileno(nowhere), STDERR_FILENO) < 0)
        abort();
    cli::CommandLine line("marlinex-capture", "Records the show.", "[SCRIPT...]", capture::OptionTable());
    capture::CaptureOptions options;
    const bool isRead = line.Read(int(arguments.size()), arguments.data(), nowhere, nowhere) &&
                        capture::ReadOptions(line, &options);
    dup2(errors, STDERR_FILENO);
    close(errors);
    fclose(nowhere);

    if (isRead ? !IsSound(options) : line.exitStatus != cli::ExitUsage && line.exitStatus != cli::ExitClean)
        abort();
    return 0;
}
