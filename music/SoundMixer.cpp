// SPDX-License-Identifier: MIT
#include "music/SoundMixer.h"

#include <algorithm>

SoundMixer::SoundMixer(int rate, int channelCount)
    : paused(false), users(channelCount, nullptr), assigned(new std::atomic<SoundStream*>[channelCount]),
      channels(channelCount, SoundChannel(rate)), rounds(0)
{
    for (int i = 0; i < channelCount; ++i)
        assigned[i] = nullptr;
}

int SoundMixer::AssignChannel(SoundStream* stream)
{
    int chosen = -1;
    for (int i = int(users.size()) - 1; i >= 0; --i) {
        if (users[i] == stream)
            return i;
        const bool hasStopped = users[i] && users[i]->HasAppliedOrder() && !users[i]->LastOrder().playing;
        if (hasStopped || !assigned[i])
            chosen = i;
    }
    if (chosen >= 0) {
        users[chosen] = stream;
        assigned[chosen] = stream;
    }
    return chosen;
}

void SoundMixer::Forget(SoundStream* stream)
{
    std::replace(users.begin(), users.end(), stream, static_cast<SoundStream*>(nullptr));
}

void SoundMixer::Mix(StereoFrame* frames, int count, bool patient)
{
    ++rounds;
    std::fill_n(frames, count, StereoFrame{0.0f, 0.0f});
    const bool pausedNow = paused;
    for (size_t i = 0; i < channels.size(); ++i)
        channels[i].Mix(assigned[i], pausedNow, frames, count, patient);
    ++rounds;
}

bool SoundMixer::IsDoneWith(SoundStream* stream)
{
    for (size_t i = 0; i < channels.size(); ++i)
        if (assigned[i] == stream) {
            if (!stream->HasAppliedOrder())
                return false;
            assigned[i] = nullptr;
        }
    // Outside of a Mix the device thread holds no stream, and the next one will not find this one.
    return rounds % 2 == 0;
}
