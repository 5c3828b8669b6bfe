// SPDX-License-Identifier: MIT
// A ShowPool with the processes of marlinex-edit on the software rasteriser, and the same frames captured by
// marlinex-capture to compare with.
#pragma once

#include "tests/support/CaptureFixture.h"
#include "tools/edit/ShowPool.h"

#include <functional>
#include <map>

class ShowPoolFixture : public CaptureFixture
{
protected:
    ShowPoolFixture();

    // Starts the pool with `settings`, of which the fixture sets what is the same for all tests: a small picture, the
    // rasteriser, and the data of this fixture's folder unless the test sets another.
    void StartPool();

    // Polls until the condition holds. False if that takes unreasonably long.
    bool PollUntil(const std::function<bool()>& condition, double seconds = 60);
    void PollFor(double seconds);

    // Seeks and waits for this frame by this revision of the script, and returns it. Empty if it does not come.
    std::vector<uint8_t> FrameAt(int64_t frame, uint64_t revision = 1);

    // What marlinex-capture makes of the script: the frames of this range, or every n-th of them, as
    // ShownFrame::rgba has them. The unused byte of each pixel is 0 in both.
    std::map<int64_t, std::vector<uint8_t>> Captured(const std::string& script,
                                                     const std::vector<std::string>& words);
    static std::vector<uint8_t> WithoutAlpha(std::vector<uint8_t> rgba);

    // The processes of the show that are alive or not waited for, by the system's account.
    static std::vector<int> Children();

    edit::ShowSettings settings;
    edit::ShowPool pool;
    std::vector<edit::ShowEvent> events; // all so far
    edit::ShownFrame last;               // the newest frame
    int framesTaken;

private:
    int captures;
};
