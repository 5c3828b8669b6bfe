// SPDX-License-Identifier: MIT
#include "music/SoundMixer.h"

#include <algorithm>

SoundMixer::SoundMixer(int rate, int channelCount)
    : paused(false), users(channelCount, nullptr), seats(new std::atomic<SoundStream*>[channelCount]),
      channels(channelCount, SoundChannel(rate)), rounds(0)
{
    for (int i = 0; i < channelCount; ++i)
        seats[i] = nullptr;
}

int SoundMixer::Seat(SoundStream* stream)
{
    int chosen = -1;
    for (int i = int(users.size()) - 1; i >= 0; --i) {
        if (users[i] == stream)
            return i;
        const bool hasStopped = users[i] && users[i]->IsObeyed() && !users[i]->LastOrder().playing;
        if (hasStopped || !seats[i])
            chosen = i;
    }
    if (chosen >= 0) {
        users[chosen] = stream;
        seats[chosen] = stream;
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
        channels[i].Mix(seats[i], pausedNow, frames, count, patient);
    ++rounds;
}

bool SoundMixer::IsDoneWith(SoundStream* stream)
{
    for (size_t i = 0; i < channels.size(); ++i)
        if (seats[i] == stream) {
            if (!stream->IsObeyed())
                return false;
            seats[i] = nullptr;
        }
    // Outside of a Mix the device thread holds no stream, and the next one will not find this one.
    return rounds % 2 == 0;
}
