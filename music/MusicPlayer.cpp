// SPDX-License-Identifier: MIT
#include "music/MusicPlayer.h"

#include "music/SoundSystem.h"
#include "platform/Paths.h"

#include <algorithm>
#include <climits>

static const float oldestVersion = 3.7f;
static const int mixRate = 44100; // Hz
static const int channelCount = 32;
static const unsigned initFlags = 0;
static const int bufferSize = 20000; // milliseconds

MusicPlayer::MusicPlayer() : stream(nullptr) {}

MusicPlayer::~MusicPlayer() {}

bool MusicPlayer::Init()
{
    if (SoundSystem::GetVersion() < oldestVersion)
        return false;
    SoundSystem::SetDriver(SoundSystem::DefaultDriver);
    if (!SoundSystem::Init(mixRate, channelCount, initFlags))
        return false;
    // After the start, and it is to stay there.
    SoundSystem::SetBufferSize(bufferSize);
    return true;
}

bool MusicPlayer::Open(std::string fileName)
{
    const std::string path = platform::DataPath("Data\\" + fileName);
    const unsigned mode = SoundSystem::LoopOff | SoundSystem::Stereo | SoundSystem::AccurateTime;
    stream = SoundSystem::OpenStream(path, mode, 0, 0);
    return stream != nullptr;
}

void MusicPlayer::Play()
{
    if (!stream)
        return;
    if (SoundSystem::GetPaused(SoundSystem::AllChannels))
        SoundSystem::SetPaused(SoundSystem::AllChannels, false);
    SoundSystem::PlayStream(SoundSystem::FreeChannel, stream);
}

void MusicPlayer::SetTime(int milliseconds)
{
    if (stream)
        SoundSystem::SetStreamTime(stream, milliseconds);
}

void MusicPlayer::Stop()
{
    if (stream)
        SoundSystem::StopStream(stream);
}

void MusicPlayer::Close()
{
    Stop();
    if (stream)
        SoundSystem::CloseStream(stream);
    stream = nullptr;
}

void MusicPlayer::Rewind(int milliseconds)
{
    SeekFromHere(-static_cast<long long>(milliseconds));
}

void MusicPlayer::Forward(int milliseconds)
{
    SeekFromHere(milliseconds);
}

void MusicPlayer::SeekFromHere(long long milliseconds)
{
    if (!stream)
        return;
    const long long position = SoundSystem::GetStreamTime(stream) + milliseconds;
    SoundSystem::SetStreamTime(stream, int(std::clamp<long long>(position, 0, INT_MAX)));
}

void MusicPlayer::Pause()
{
    if (stream)
        SoundSystem::SetPaused(SoundSystem::AllChannels, true);
}

float MusicPlayer::GetTime()
{
    return stream ? SoundSystem::GetStreamTime(stream) / 1000.0f : 0.0f;
}
