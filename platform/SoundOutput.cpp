// SPDX-License-Identifier: MIT
#include "platform/SoundOutput.h"

#include "platform/DebugChannel.h"
#include "platform/SoundOutputHooks.h"

#include <SDL.h>
#include <algorithm>
#include <cassert>
#include <string>

namespace platform
{

static const int deviceFrames = 1024; // per call, 23 ms at 44100 Hz: long enough for a busy machine

static SoundOutputKind outputKind = SoundFromDevice;
static bool outputOpen = false;
static SoundFill outputFill = nullptr;
static void* outputContext = nullptr;
static bool pulledByHand = false;
static double outputDelay = 0;

void UseSoundOutput(SoundOutputKind kind)
{
    outputKind = kind;
}

// Clamps to full scale, since some devices wrap around instead of clipping.
static void SDLCALL FillFromDevice(void*, Uint8* stream, int bytes)
{
    StereoFrame* frames = reinterpret_cast<StereoFrame*>(stream);
    const int count = bytes / int(sizeof(StereoFrame));
    outputFill(outputContext, frames, count, false);
    for (int i = 0; i < count; ++i) {
        frames[i].left = std::clamp(frames[i].left, -1.0f, 1.0f);
        frames[i].right = std::clamp(frames[i].right, -1.0f, 1.0f);
    }
}

static bool OpenDevice(int rate)
{
    // A desktop's volume control shows these names beside its slider.
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Marlinex");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    SDL_SetHint(SDL_HINT_AUDIO_RESAMPLING_MODE, "medium"); // used if the device can't play at this rate

    // A frame takes one event, so keep out those about devices that come and go: they need no reaction.
    SDL_EventState(SDL_AUDIODEVICEADDED, SDL_IGNORE);
    SDL_EventState(SDL_AUDIODEVICEREMOVED, SDL_IGNORE);

    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    SDL_AudioSpec spec = {};
    spec.freq = rate;
    spec.format = AUDIO_F32SYS;
    spec.channels = 2;
    spec.samples = deviceFrames;
    spec.callback = FillFromDevice;
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &spec, nullptr, 0);
    if (device == 0)
        return false;
    // While one buffer is filled, the one before it is heard.
    outputDelay = double(deviceFrames) / rate;
    SDL_PauseAudioDevice(device, 0);
    return true;
}

bool OpenSoundOutput(int rate, SoundFill fill, void* context)
{
    assert(rate > 0 && fill);
    if (outputOpen || outputKind == SoundMissing)
        return false;
    outputFill = fill;
    outputContext = context;
    if (outputKind == SoundPulledByHand) {
        pulledByHand = true;
    } else if (!OpenDevice(rate)) {
        OutputDebugText((std::string("No sound: ") + SDL_GetError() + "\n").c_str());
        return false;
    }
    outputOpen = true;
    return true;
}

double SoundOutputDelay()
{
    return outputDelay;
}

void PullSound(StereoFrame* frames, int count, bool patient)
{
    std::fill_n(frames, std::max(count, 0), StereoFrame{0.0f, 0.0f});
    if (pulledByHand && count > 0)
        outputFill(outputContext, frames, count, patient);
}

} // namespace platform
