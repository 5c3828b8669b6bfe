// SPDX-License-Identifier: MIT
#include "music/SoundSystem.h"

#include "music/DecodeThread.h"
#include "music/SoundSystemHooks.h"
#include "platform/SoundOutput.h"

#include <algorithm>
#include <cstdio>

static int chosenDriver = 0;
static int bufferMilliseconds = 1000;

// What the threads use, from Init on. It is never freed: they run on while the process ends.
struct RunningSystem {
    RunningSystem(int rate, int channels)
        : mixRate(rate), mixer(rate, channels), decodeThread(&mixer, &wakeUp)
    {
    }

    int mixRate;
    SoundMixer mixer;
    EventCount wakeUp;
    DecodeThread decodeThread;
    std::vector<SoundStream*> openStreams;
};
static RunningSystem* sound = nullptr;

static bool IsOpen(SoundStream* stream)
{
    return sound && std::count(sound->openStreams.begin(), sound->openStreams.end(), stream) > 0;
}

static void FillOutput(void* context, StereoFrame* frames, int count, bool patient)
{
    RunningSystem* system = static_cast<RunningSystem*>(context);
    while (count > 0) {
        const int piece = std::min(count, SoundChannel::MaxFrames);
        system->mixer.Mix(frames, piece, patient);
        system->wakeUp.Notify();
        frames += piece;
        count -= piece;
    }
}

float SoundSystem::GetVersion()
{
    NoteSoundCall("GetVersion");
    return SoundVersion();
}

void SoundSystem::SetDriver(int driver)
{
    NoteSoundCall("SetDriver " + std::to_string(driver));
    chosenDriver = driver;
}

bool SoundSystem::Init(int mixRate, int channels, unsigned flags)
{
    NoteSoundCall("Init " + std::to_string(mixRate) + " " + std::to_string(channels) + " " +
                  std::to_string(flags));
    if (sound)
        return true;
    if (chosenDriver != DefaultDriver || mixRate < MinMixRate || mixRate > MaxMixRate || channels < 1 ||
        channels > MaxChannels || flags != 0)
        return false;
    RunningSystem* started = new RunningSystem(mixRate, channels);
    if (!platform::OpenSoundOutput(mixRate, FillOutput, started)) {
        delete started;
        return false;
    }
    // The output stays open and goes on calling for frames, of silence: `started` must stay as well.
    if (!started->decodeThread.Start())
        return false;
    sound = started;
    return true;
}

void SoundSystem::SetBufferSize(int milliseconds)
{
    NoteSoundCall("SetBufferSize " + std::to_string(milliseconds));
    bufferMilliseconds = milliseconds;
}

SoundStream* SoundSystem::OpenStream(const std::string& path, unsigned mode, int offset, int length)
{
    char modeText[16];
    snprintf(modeText, sizeof(modeText), "0x%X", mode);
    NoteSoundCall("OpenStream " + path + " " + modeText + " " + std::to_string(offset) + " " +
                  std::to_string(length));
    if (!sound || mode != (LoopOff | Stereo | AccurateTime) || offset != 0 || length != 0)
        return nullptr;
    std::unique_ptr<Decoder> decoder = OpenDecoder(path, sound->mixRate);
    if (!decoder)
        return nullptr;
    SoundStream* stream =
        new SoundStream(std::move(decoder), sound->mixRate, bufferMilliseconds, &sound->wakeUp);
    sound->openStreams.push_back(stream);
    sound->decodeThread.Add(stream);
    return stream;
}

int SoundSystem::PlayStream(int channel, SoundStream* stream)
{
    NoteSoundCall("PlayStream " + std::to_string(channel));
    if (channel != FreeChannel || !IsOpen(stream))
        return -1;
    const bool hasRunOut = stream->HasRunOut();
    const int time = hasRunOut ? 0 : stream->GetTime();
    if (hasRunOut || !stream->LastOrder().playing)
        stream->Give(true, time);
    const int number = sound->mixer.AssignChannel(stream);
    if (number < 0)
        stream->Give(false, time);
    return number;
}

bool SoundSystem::SetStreamTime(SoundStream* stream, int milliseconds)
{
    NoteSoundCall("SetStreamTime " + std::to_string(milliseconds));
    if (!IsOpen(stream))
        return false;
    stream->Give(stream->LastOrder().playing, milliseconds);
    return true;
}

int SoundSystem::GetStreamTime(SoundStream* stream)
{
    NoteSoundCall("GetStreamTime");
    return IsOpen(stream) ? stream->GetTime() : 0;
}

bool SoundSystem::StopStream(SoundStream* stream)
{
    NoteSoundCall("StopStream");
    if (!IsOpen(stream))
        return false;
    stream->Give(false, 0);
    return true;
}

bool SoundSystem::CloseStream(SoundStream* stream)
{
    NoteSoundCall("CloseStream");
    if (!IsOpen(stream))
        return false;
    stream->Give(false, 0);
    std::erase(sound->openStreams, stream);
    sound->mixer.Forget(stream);
    stream->closed = true;
    sound->wakeUp.Notify();
    return true;
}

bool SoundSystem::GetPaused(int channel)
{
    NoteSoundCall("GetPaused " + std::to_string(channel));
    return channel == AllChannels && sound && sound->mixer.paused;
}

bool SoundSystem::SetPaused(int channel, bool paused)
{
    NoteSoundCall("SetPaused " + std::to_string(channel) + (paused ? " true" : " false"));
    if (channel != AllChannels || !sound)
        return false;
    sound->mixer.paused = paused;
    return true;
}
