// SPDX-License-Identifier: MIT
// Measures the reading of a script, which delays the first picture of a show. Besides its time, each line has
// three counters:
//
//   bytes      size of the script
//   plain      the time as a multiple of the time that reading the same file byte by byte takes in this run
//   of_load    the time as a share of one second, the least time that every effect takes to load
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/EffectRegistry.h"
#include "platform/Paths.h"
#include "tools/cli/MonotonicSeconds.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

// An effect that declares no messages and is never active.
class Extra : public Effect
{
public:
    void Init(GLWindow*, DemoPlayer*) override {}
    void DeclareMessages(SynchMessageTable*) override {}
    void Update() override {}
    void Render() override {}
    void ReceiveMessage(int, float*, int) override {}
};

// Makes a script, half of whose entries are effects and half messages, with layout and comments as people
// write them. The latest message comes first, since sorting the messages takes longest in that order.
static std::string MakeScript(int entries)
{
    std::string script;
    for (int i = 0; i < entries; i++) {
        const std::string time = std::to_string((entries - i) * 250);
        if (i % 2 == 0)
            script += "# scene " + std::to_string(i) +
                      " #\n[EFFECT]\n    EffectName = Extra;\n    StartTime  = " + time +
                      ";\n    StopTime   = " + std::to_string((entries - i) * 250 + 5000) +
                      ";\n    LayerID    = 1;\n\n";
        else
            script += "[MESSAGE]\n    MessageText    = flash;\n    ActivationTime = " + time +
                      ";\n    TargetEffect   = Extra;\n    Parameter      = 2.00;\n\n";
    }
    return script;
}

static double SecondsOfGetting(const char* path)
{
    double shortest = 1e9;
    for (int run = 0; run < 20; run++) {
        const double start = cli::MonotonicSeconds();
        FILE* const file = fopen(path, "rb");
        int sum = 0;
        for (int c = fgetc(file); c != EOF; c = fgetc(file))
            sum += c;
        benchmark::DoNotOptimize(sum);
        fclose(file);
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
    }
    return shortest;
}

static void ReadScript(benchmark::State& state)
{
    const int entries = int(state.range(0));
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("benchmark" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    const std::string path = (folder / "script.txt").string();
    std::ofstream(path, std::ios::binary) << MakeScript(entries);
    platform::SetDataDirectory(folder.string());

    Extra extra;
    GLWindow window;
    EffectRegistry registry;
    registry.Register("Extra", &extra, "Extra");
    double shortest = 1e9;
    while (state.KeepRunning()) {
        DemoPlayer player;
        player.Init(&window, &registry, nullptr, false);
        const double start = cli::MonotonicSeconds();
        const bool loaded = player.LoadScript("script.txt");
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
        if (!loaded || int(player.timeline.size() + player.messages.size()) != entries)
            state.SkipWithError("the script was not read as it should be");
    }
    state.counters["bytes"] = double(std::filesystem::file_size(path));
    state.counters["plain"] = shortest / SecondsOfGetting(path.c_str());
    state.counters["of_load"] = shortest;
    std::filesystem::remove_all(folder);
}
BENCHMARK(ReadScript)
    ->ArgName("entries")
    ->Arg(125)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.1);
