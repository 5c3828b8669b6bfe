// SPDX-License-Identifier: MIT
#include "platform/SoundOutput.h"

#include "music/SoundSystem.h"
#include "platform/DebugChannelHooks.h"
#include "platform/SoundOutputHooks.h"
#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>

// Counts the frames that were asked for: frame n is n / 65536 left and its negative right.
struct Source {
    std::atomic<int> frames{0};
    std::atomic<int> calls{0};
    std::atomic<bool> lastWasPatient{false};
    float gain = 1.0f / 65536.0f;
};

static void Fill(void* context, platform::StereoFrame* frames, int count, bool patient)
{
    Source* source = static_cast<Source*>(context);
    for (int i = 0; i < count; ++i) {
        frames[i].left = float(source->frames + i) * source->gain;
        frames[i].right = -frames[i].left;
    }
    source->frames += count;
    source->lastWasPatient = patient;
    ++source->calls;
}

// A device's thread asks until the process ends, so what it asks must last as long.
static Source* source = new Source;

TEST(SoundOutputByHand, GivesWhatTheSourceFills)
{
    platform::UseSoundOutput(platform::SoundPulledByHand);
    ASSERT_TRUE(platform::OpenSoundOutput(44100, Fill, source));
    EXPECT_EQ(0, source->calls);
    platform::StereoFrame frames[3] = {{9, 9}, {9, 9}, {9, 9}};
    platform::PullSound(frames, 2);
    EXPECT_TRUE(source->lastWasPatient);
    EXPECT_EQ(1.0f / 65536, frames[1].left);
    EXPECT_EQ(-1.0f / 65536, frames[1].right);
    EXPECT_EQ(9.0f, frames[2].left);
    platform::PullSound(frames, 3, false);
    EXPECT_FALSE(source->lastWasPatient);
    EXPECT_EQ(4.0f / 65536, frames[2].left);
    EXPECT_EQ(2, source->calls);
}

TEST(SoundOutputByHand, PullingNothingAsksForNothing)
{
    platform::UseSoundOutput(platform::SoundPulledByHand);
    ASSERT_TRUE(platform::OpenSoundOutput(44100, Fill, source));
    platform::StereoFrame frame = {9, 9};
    platform::PullSound(&frame, 0);
    platform::PullSound(&frame, -1);
    EXPECT_EQ(9.0f, frame.left);
    EXPECT_EQ(0, source->calls);
}

TEST(SoundOutputByHand, IsSilentBeforeItIsOpen)
{
    platform::UseSoundOutput(platform::SoundPulledByHand);
    platform::StereoFrame frames[2] = {{9, 9}, {9, 9}};
    platform::PullSound(frames, 2);
    for (const platform::StereoFrame& frame : frames) {
        EXPECT_EQ(0.0f, frame.left);
        EXPECT_EQ(0.0f, frame.right);
    }
}

TEST(SoundOutputByHand, IsOpenedOnce)
{
    platform::UseSoundOutput(platform::SoundPulledByHand);
    EXPECT_TRUE(platform::OpenSoundOutput(44100, Fill, source));
    EXPECT_FALSE(platform::OpenSoundOutput(44100, Fill, source));
}

TEST(SoundOutputMissing, CannotBeOpened)
{
    platform::UseSoundOutput(platform::SoundMissing);
    EXPECT_FALSE(platform::OpenSoundOutput(44100, Fill, source));
    platform::StereoFrame frame = {9, 9};
    platform::PullSound(&frame, 1);
    EXPECT_EQ(0.0f, frame.left);
    EXPECT_EQ(0, source->calls);
}

// A machine whose sound system has no card: the library is there, and its configuration is empty.
TEST(SoundOutputFromDevice, WithoutASoundCardCannotBeOpenedAndLeavesATrace)
{
    setenv("SDL_AUDIODRIVER", "alsa", 1);
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
    std::string trace;
    platform::CollectDebugText(&trace);
    EXPECT_FALSE(platform::OpenSoundOutput(44100, Fill, source));
    platform::CollectDebugText(nullptr);
    EXPECT_EQ(0u, trace.find("No sound: ")) << trace;
    EXPECT_EQ('\n', trace.back());
    EXPECT_EQ(0, source->calls);
}

TEST(SoundOutputFromDevice, WithoutAnySoundSystemCannotBeOpened)
{
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    EXPECT_FALSE(platform::OpenSoundOutput(44100, Fill, source));
}

// SDL's "disk" driver is a device that keeps time and writes down what it gets.
static std::string UseDiskDevice()
{
    const std::string path = soundfiles::TemporaryPath("device.raw");
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", path.c_str(), 1);
    return path;
}

// What the device got from the source: it may have asked for silence before it was told to run.
static std::vector<float> ReadSound(const std::string& path)
{
    const std::string bytes = ReadFile(path);
    std::vector<float> floats(bytes.size() / sizeof(float));
    std::copy(bytes.begin(), bytes.begin() + long(floats.size() * sizeof(float)),
              reinterpret_cast<char*>(floats.data()));
    const long piece = 2 * 1024;
    while (long(floats.size()) >= piece &&
           std::all_of(floats.begin(), floats.begin() + piece, [](float sample) { return sample == 0.0f; }))
        floats.erase(floats.begin(), floats.begin() + piece);
    return floats;
}

TEST(SoundOutputFromDevice, TheDeviceGetsStereoFloatsInPiecesOf1024)
{
    const std::string path = UseDiskDevice();
    ASSERT_TRUE(platform::OpenSoundOutput(44100, Fill, source));
    ASSERT_TRUE(Eventually([] { return source->calls >= 3; }));
    EXPECT_EQ(0, source->frames % 1024);
    EXPECT_FALSE(source->lastWasPatient);
    ASSERT_TRUE(Eventually([&] { return ReadSound(path).size() >= 2 * 2048; }));
    const std::vector<float> heard = ReadSound(path);
    for (size_t i = 0; i < 2048; ++i) {
        ASSERT_EQ(float(i) / 65536.0f, heard[2 * i]);
        ASSERT_EQ(-float(i) / 65536.0f, heard[2 * i + 1]);
    }
}

TEST(SoundOutputFromDevice, ItIsKeptWithinFullScale)
{
    const std::string path = UseDiskDevice();
    source->gain = 1.0f / 100.0f;
    ASSERT_TRUE(platform::OpenSoundOutput(44100, Fill, source));
    ASSERT_TRUE(Eventually([&] { return ReadSound(path).size() >= 2048; }));
    const std::vector<float> heard = ReadSound(path);
    EXPECT_FLOAT_EQ(0.99f, heard[2 * 99]);
    EXPECT_EQ(1.0f, heard[2 * 100]);
    EXPECT_EQ(1.0f, heard[2 * 101]);
    EXPECT_EQ(1.0f, heard[2 * 1000]);
    EXPECT_EQ(-1.0f, heard[2 * 1000 + 1]);
}

TEST(SoundOutputFromDevice, PullingByHandLeavesItAlone)
{
    UseDiskDevice();
    ASSERT_TRUE(platform::OpenSoundOutput(44100, Fill, source));
    platform::StereoFrame frame = {9, 9};
    platform::PullSound(&frame, 1);
    EXPECT_EQ(0.0f, frame.left);
    EXPECT_EQ(0, source->frames % 1024);
}

// The whole way from the file to the device.
TEST(SoundOutputFromDevice, TheMusicArrivesAtTheDeviceAndASeekIsExact)
{
    const std::string path = UseDiskDevice();
    const std::string music = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 30.0);
    const std::vector<float> tune = soundfiles::Decode(music);
    SoundSystem::SetDriver(1);
    ASSERT_TRUE(SoundSystem::Init(44100, 32, 0));
    SoundStream* stream = SoundSystem::OpenStream(music, 0x20041, 0, 0);
    ASSERT_NE(nullptr, stream);
    SoundSystem::PlayStream(-1, stream);
    SoundSystem::SetStreamTime(stream, 20000);
    ASSERT_TRUE(Eventually([&] { return SoundSystem::GetStreamTime(stream) >= 20500; }));
    const std::vector<float> heard = ReadSound(path);

    // The device heard of the seek when it asked for some frame k: from then on frame i is that at 20 s + i -
    // k.
    size_t first = 0;
    while (first < heard.size() / 2 && (heard[2 * first] == 0.0f || heard[2 * first] == tune[2 * first]))
        ++first;
    const float* steady = &heard[2 * (first + 3000)];
    size_t place = 20 * 44100;
    while (place < 22 * 44100 && (tune[2 * place] != steady[0] || tune[2 * place + 1] != steady[1] ||
                                  tune[2 * place + 2] != steady[2] || tune[2 * place + 3] != steady[3]))
        ++place;
    ASSERT_LT(place, size_t(22 * 44100));
    EXPECT_EQ(0u, (first + 3000 - (place - 20 * 44100)) % 512)
        << "the seek takes place where the device asks";
    for (size_t i = 0; i < heard.size() - 2 * (first + 3000); ++i)
        ASSERT_EQ(tune[2 * place + i], steady[i]) << i;
}

// A device that hangs in its driver: nobody reads the pipe that it writes to.
TEST(SoundOutputFromDevice, ADeviceThatHangsKeepsNobodyWaiting)
{
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "under the thread sanitizer the process does not end while the device hangs";
#endif
    const std::string pipe = UseDiskDevice();
    ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_NE(-1, reader);
    const std::string music = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 30.0);
    SoundSystem::SetDriver(1);
    ASSERT_TRUE(SoundSystem::Init(44100, 32, 0));
    SoundStream* stream = SoundSystem::OpenStream(music, 0x20041, 0, 0);
    SoundSystem::PlayStream(-1, stream);
    // The pipe holds 64 KiB, that is 8 pieces: after that the time stands still.
    int time = -1;
    ASSERT_TRUE(Eventually([&] {
        const int last = time;
        time = SoundSystem::GetStreamTime(stream);
        usleep(100000);
        return time > 0 && time == last;
    }));

    // The device hangs until this test reads the pipe, so a call that waited for it would never return.
    for (int i = 0; i < 1000; ++i) {
        SoundSystem::SetStreamTime(stream, 5000 + i);
        ASSERT_EQ(5000 + i, SoundSystem::GetStreamTime(stream));
        SoundSystem::StopStream(stream);
        SoundSystem::PlayStream(-1, stream);
        SoundSystem::SetPaused(-3, true);
        SoundSystem::SetPaused(-3, false);
        SoundSystem::CloseStream(SoundSystem::OpenStream(music, 0x20041, 0, 0));
    }
    SoundSystem::SetStreamTime(stream, 5000);

    // It comes back to life, and goes on with what was ordered last.
    char bytes[4096];
    EXPECT_TRUE(Eventually([&] {
        while (read(reader, bytes, sizeof(bytes)) > 0) {
        }
        const int now = SoundSystem::GetStreamTime(stream);
        return now > 5100 && now < 20000;
    }));
    // The reader stays open: a pipe without one would end the process.
}
