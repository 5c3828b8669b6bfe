// SPDX-License-Identifier: MIT
// Measures the time that sound takes away from drawing: ten seconds of the show's music are decoded by the
// decode thread and mixed for the device. Besides its time, each line has two counters:
//
//   decoding   the time as a multiple of the time that decoding the same ten seconds alone takes in this run
//   of_play    the time as a share of the ten seconds, that is, the share of one core that the music takes
//
// Both are wall-clock times. The samples are requested in pieces of 1024 frames without a pause.
#include "kernel/Production.h"
#include "music/Decoder.h"
#include "music/SoundSystem.h"
#include "platform/Paths.h"
#include "platform/SoundOutput.h"
#include "platform/SoundOutputHooks.h"
#include "tools/cli/MonotonicSeconds.h"

#include <benchmark/benchmark.h>

#include <algorithm>

static const int mixRate = 44100;
static const int seconds = 10;
static const int piece = 1024; // frames
static const char* const music = "moonwaltz.ogg";

// Returns 0 if the music file can't be opened.
static double SecondsOfDecoding(const std::string& path)
{
    double shortest = 1e9;
    for (int run = 0; run < 5; run++) {
        const std::unique_ptr<Decoder> decoder = OpenDecoder(path, mixRate);
        if (!decoder)
            return 0;
        std::vector<float> block(decoder->speakers.size() * Decoder::BlockFrames);
        const double start = cli::MonotonicSeconds();
        int64_t left = int64_t(seconds) * decoder->rate;
        while (left > 0) {
            const int read = decoder->Read(block.data());
            if (read == 0)
                break;
            left -= read;
        }
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
    }
    return shortest;
}

static void PlayMusic(benchmark::State& state)
{
    platform::FindDataDirectory(ProductionName);
    const std::string path = platform::DataPath(music);
    platform::UseSoundOutput(platform::SoundPulledByHand);
    SoundSystem::SetDriver(SoundSystem::DefaultDriver);
    const double decoding = SecondsOfDecoding(path);
    if (decoding == 0 || !SoundSystem::Init(mixRate, 32, 0)) {
        state.SkipWithError("start it where Data with the show's music can be found");
        return;
    }
    const unsigned mode = SoundSystem::LoopOff | SoundSystem::Stereo | SoundSystem::AccurateTime;
    platform::StereoFrame frames[piece];
    double shortest = 1e9;
    while (state.KeepRunning()) {
        SoundStream* const stream = SoundSystem::OpenStream(path, mode, 0, 0);
        SoundSystem::PlayStream(SoundSystem::FreeChannel, stream);
        const double start = cli::MonotonicSeconds();
        for (int frame = 0; frame < seconds * mixRate; frame += piece)
            platform::PullSound(frames, piece);
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
        SoundSystem::CloseStream(stream);
        platform::PullSound(frames, piece); // the mixer releases the channel of the closed stream
    }
    state.counters["decoding"] = shortest / decoding;
    state.counters["of_play"] = shortest / seconds;
}
BENCHMARK(PlayMusic)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
