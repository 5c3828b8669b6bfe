// SPDX-License-Identifier: MIT
#include "tests/support/ShowPoolFixture.h"

#include "tests/Folders.h"
#include "tools/cli/MonotonicSeconds.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <unistd.h>

ShowPoolFixture::ShowPoolFixture() : framesTaken(0), captures(0)
{
    settings.width = 160;
    settings.height = 120;
    settings.environment = Environment();
    settings.data = SOURCE_DIR "/Data";
    settings.maxProcesses = 4;
}

void ShowPoolFixture::StartPool()
{
    std::string reason;
    ASSERT_TRUE(pool.Start(settings, BINARY_DIR "/marlinex-edit", &reason)) << reason;
}

bool ShowPoolFixture::PollUntil(const std::function<bool()>& condition, double seconds)
{
    const double end = cli::MonotonicSeconds() + seconds;
    for (;;) {
        pool.Poll();
        framesTaken += pool.TakeFrame(&last);
        const std::vector<edit::ShowEvent> more = pool.TakeEvents();
        events.insert(events.end(), more.begin(), more.end());
        if (condition())
            return true;
        if (cli::MonotonicSeconds() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

void ShowPoolFixture::PollFor(double seconds)
{
    PollUntil([] { return false; }, seconds);
}

std::vector<uint8_t> ShowPoolFixture::FrameAt(int64_t frame, uint64_t revision)
{
    pool.Seek(frame);
    const bool came =
        PollUntil([&] { return framesTaken > 0 && last.number == frame && last.scriptRevision == revision; });
    return came ? WithoutAlpha(last.rgba) : std::vector<uint8_t>();
}

std::vector<uint8_t> ShowPoolFixture::WithoutAlpha(std::vector<uint8_t> rgba)
{
    for (size_t i = 3; i < rgba.size(); i += 4)
        rgba[i] = 0;
    return rgba;
}

std::map<int64_t, std::vector<uint8_t>> ShowPoolFixture::Captured(const std::string& script,
                                                                  const std::vector<std::string>& words)
{
    const std::string number = std::to_string(captures++);
    const std::string output = "captured" + number;
    WriteFile("script" + number + ".txt", script);
    std::vector<std::string> all = {
        "-q",         "-o",
        output + "/", "script" + number + ".txt",
        "--data",     settings.data,
        "--rate",     settings.rate.Text(),
        "--size",     std::to_string(settings.width) + "x" + std::to_string(settings.height)};
    all.insert(all.end(), words.begin(), words.end());
    const ProgramRun run = Run(all);
    EXPECT_EQ(0, run.status) << run.errors;
    std::map<int64_t, std::vector<uint8_t>> frames;
    for (const std::string& name : Names(output)) {
        const Picture picture = LoadPng(PathOf(output + "/" + name));
        std::vector<uint8_t>& rgba = frames[std::stoll(name)];
        for (int y = picture.height - 1; y >= 0; y--)
            for (int x = 0; x < picture.width; x++) {
                const unsigned char* pixel = picture.At(x, y);
                rgba.insert(rgba.end(), {pixel[0], pixel[1], pixel[2], 0});
            }
    }
    return frames;
}

std::vector<int> ShowPoolFixture::Children()
{
    // The system lists them by the thread that has started them.
    std::vector<int> children;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream list(thread.path() / "children");
        for (int id; list >> id;)
            children.push_back(id);
    }
    std::sort(children.begin(), children.end());
    return children;
}
