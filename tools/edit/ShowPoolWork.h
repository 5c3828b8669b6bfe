// SPDX-License-Identifier: MIT
// What a ShowPool holds, and how it chooses the process that makes the wanted frame.
#pragma once

#include "tools/edit/FrameCache.h"
#include "tools/edit/ShowCrew.h"
#include "tools/edit/ShowPool.h"

#include <cstdint>
#include <map>

namespace edit
{

struct ShowPool::Work {
    ShowSettings settings;
    ShowCrew crew;
    bool started = false;
    bool hasScript = false;
    uint64_t revision = 0;

    ShowProcess* live = nullptr; // one of the crew's, or null
    uint64_t liveGoal = 0;       // the number of the goal that it was given for the wish; 0 for none
    int64_t wish = -1;
    bool fulfilled = false;
    bool playing = false;
    double wishSeconds = 0; // when wish or script changed last
    bool inBurst = false;   // and it had just done so

    FrameCache cache{size_t(96) << 20}; // bytes
    ShownFrame shown;                   // the newest frame
    bool isNew = false;
    double drawSeconds = 0; // what a frame takes, smoothed
    double warmSeconds = 0; // what the latest one took, see ShowReply
    int64_t backRun = 0;

    std::map<int64_t, ShownFrame> ahead; // made while playing, and not due yet
    int64_t playStep = 1;
    bool jumped = false; // playing began or went back: a process that is too far won't do
    int64_t skipped = 0;
    bool playShown = false; // a frame was shown since playing began
    double lateSeconds = 0; // when a frame was late

    void NoteChange();
    int64_t Wanted() const;
    int64_t PlayTarget() const;
    void Show(ShownFrame frame);
    bool ShowFromCache();
    void Choose(double now);
    ShowProcess* BestFor(int64_t drawFrom, int64_t target, bool* scarce) const;
    bool CanMake(const ShowProcess& process, int64_t drawFrom, int64_t target) const;
    bool IsOnItsWay() const;
    void TakeNews(ShowProcess* process, ShowNews& news);
    void TakeMadeFrame(ShowProcess* process, ShowNews& news);
    void Refused(ShowProcess* process, const ShowReply& reply);
    void LeaveBehind(ShowProcess* process);
};

} // namespace edit
