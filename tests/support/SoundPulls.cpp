// SPDX-License-Identifier: MIT
#include "tests/support/SoundPulls.h"

#include "music/SoundSystem.h"
#include "platform/SoundOutput.h"
#include "platform/SoundOutputHooks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <thread>

void StartHandPulledSound(int channels)
{
    platform::UseSoundOutput(platform::SoundPulledByHand);
    SoundSystem::SetDriver(1);
    ASSERT_TRUE(SoundSystem::Init(44100, channels, 0));
}

std::vector<float> Pull(int frames)
{
    std::vector<platform::StereoFrame> pulled(frames);
    platform::PullSound(pulled.data(), frames);
    std::vector<float> samples;
    for (const platform::StereoFrame& frame : pulled) {
        samples.push_back(frame.left);
        samples.push_back(frame.right);
    }
    return samples;
}

bool IsSilent(const std::vector<float>& samples)
{
    return std::all_of(samples.begin(), samples.end(), [](float sample) { return sample == 0.0f; });
}

float LargestStep(const std::vector<float>& stereo)
{
    float largest = 0.0f;
    for (size_t i = 2; i < stereo.size(); ++i)
        largest = std::max(largest, std::fabs(stereo[i] - stereo[i - 2]));
    return largest;
}

bool Eventually(const std::function<bool()>& condition)
{
    for (int i = 0; i < 30000; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

long ReadPositionOf(const std::string& path)
{
    namespace fs = std::filesystem;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (fs::read_symlink(entry.path(), error) != fs::absolute(path))
            continue;
        std::ifstream info("/proc/self/fdinfo/" + entry.path().filename().string());
        std::string key;
        long position = -1;
        info >> key >> position;
        return position;
    }
    return -1;
}

NumberedDecoder::NumberedDecoder(int64_t frames) : length(frames)
{
    rate = 44100;
    speakers = UsualSpeakers(2);
}

// 4099 is prime, and so far from a multiple of any buffer's length.
float NumberedDecoder::Sample(int64_t frame)
{
    return float(frame % 4099 + 1) / 8192.0f;
}

int NumberedDecoder::Read(float* samples)
{
    const int64_t most = std::min<int64_t>(shortest, BlockFrames);
    const int count = int(std::clamp<int64_t>(length - position, 0, most));
    for (int i = 0; i < count; ++i) {
        samples[2 * i] = Sample(position + i);
        samples[2 * i + 1] = -Sample(position + i);
    }
    position += count;
    return count;
}

int64_t NumberedDecoder::Seek(int64_t frame)
{
    if (seekFails || frame > length)
        return -1;
    position = std::max<int64_t>(frame - seekBackOff, 0);
    return position;
}
