// SPDX-License-Identifier: MIT
#include "tools/edit/ShowPoolWork.h"

#include "tools/capture/SteppedShow.h"
#include "tools/cli/MonotonicSeconds.h"

#include <algorithm>
#include <cmath>

namespace edit
{

// The last processes ahead of a wish are used up only when there was no new wish for so long.
static const size_t scarceProcesses = 2;
static const double restSeconds = 0.15;
static const double burstSeconds = 0.4; // between two wishes that belong together, as those of a drag
static const double leadShare = 0.25;   // of a second, the furthest that frames are made ahead while playing
static const double quickShare = 0.5;   // of the time of a frame, that drawing it may take on a quick machine
static const int64_t nearFrames = 600;  // a process that is that close is not exchanged for one closer
// The most time for drawing frames on the way to one that was stepped back to.
static const double backRunSeconds = 0.3;

void ShowPool::Work::NoteChange()
{
    const double now = cli::MonotonicSeconds();
    inBurst = now < wishSeconds + burstSeconds;
    wishSeconds = now;
}

int64_t ShowPool::Work::Wanted() const
{
    return crew.length < 0 ? wish : std::clamp<int64_t>(wish, 0, std::max<int64_t>(crew.length - 1, 0));
}

// Frames are made that much ahead that they are there when they are due.
int64_t ShowPool::Work::PlayTarget() const
{
    const double perSecond = double(settings.rate.frames) / double(settings.rate.seconds);
    const double drawing = std::min(drawSeconds, leadShare) * perSecond;
    const int64_t target = Wanted() + std::max<int64_t>(playStep, int64_t(std::ceil(drawing)) + 1);
    return crew.length < 0 ? target : std::min(target, std::max<int64_t>(crew.length - 1, 0));
}

void ShowPool::Work::Show(ShownFrame frame)
{
    shown = std::move(frame);
    isNew = true;
}

bool ShowPool::Work::ShowFromCache()
{
    const FramePixels pixels = cache.Find(Wanted(), revision);
    if (!pixels)
        return false;
    Show({Wanted(), settings.width, settings.height, *pixels, revision});
    return true;
}

void ShowPool::Work::LeaveBehind(ShowProcess* process)
{
    if (process != live)
        return;
    live = nullptr;
    liveGoal = 0;
}

void ShowPool::Work::TakeNews(ShowProcess* process, ShowNews& news)
{
    const ShowReply& reply = news.reply;
    switch (reply.kind) {
    case ShowReply::Loaded:
        if (process == live)
            liveGoal = 0; // now that it is known how long the show is
        break;
    case ShowReply::Frame:
        TakeMadeFrame(process, news);
        break;
    case ShowReply::Passed:
        if (process == live && reply.goal == liveGoal)
            liveGoal = 0; // Choose finds another one
        break;
    case ShowReply::ScriptTaken:
        cache.Carry(reply.oldRevision, reply.revision, reply.frame);
        break;
    case ShowReply::ScriptRefused:
        cache.Carry(reply.oldRevision, reply.revision, reply.frame);
        Refused(process, reply);
        break;
    default:
        break;
    }
}

void ShowPool::Work::TakeMadeFrame(ShowProcess* process, ShowNews& news)
{
    const ShowReply& reply = news.reply;
    warmSeconds = reply.warmSeconds;
    if (process == live)
        drawSeconds = drawSeconds > 0 ? drawSeconds * 0.8 + reply.seconds * 0.2 : reply.seconds;
    const bool current = reply.revision == revision;
    const bool isTarget = process == live && (playing || reply.frame >= process->Target());
    ShownFrame frame = {reply.frame, settings.width, settings.height, {}, reply.revision};
    if (reply.exact) {
        if (isTarget)
            frame.rgba = news.pixels;
        cache.Add(reply.frame, reply.revision,
                  std::make_shared<std::vector<uint8_t>>(std::move(news.pixels)));
    } else {
        frame.rgba = std::move(news.pixels);
    }
    if (!isTarget)
        return;
    if (!playing) {
        // One that a newer wish has overtaken is shown as well, so that something moves while the mouse does.
        fulfilled = fulfilled || (current && reply.exact && reply.frame == Wanted());
        Show(std::move(frame));
    } else if (!current) {
        return;
    } else if (reply.frame <= Wanted()) {
        playShown = true;
        Show(std::move(frame));
    } else {
        ahead[reply.frame] = std::move(frame);
    }
}

// A process can't go on if the new script changes what it has played already. Nor can others that play the same script
// and are as far.
void ShowPool::Work::Refused(ShowProcess* process, const ShowReply& reply)
{
    if (reply.revision != revision)
        return; // it is asked for the newest one
    std::vector<ShowProcess*> useless = {process};
    for (const auto& other : crew.processes)
        if (other.get() != process && other->Revision() == reply.oldRevision &&
            (reply.frame < 0 || other->Position() >= reply.frame))
            useless.push_back(other.get());
    for (ShowProcess* each : useless) {
        LeaveBehind(each);
        crew.End(each);
    }
}

bool ShowPool::Work::CanMake(const ShowProcess& process, int64_t drawFrom, int64_t target) const
{
    if (process.IsGone())
        return false;
    const int64_t position = process.Position();
    return position < target && (playing || position < drawFrom || process.DrawnSince() <= drawFrom);
}

ShowProcess* ShowPool::Work::BestFor(int64_t drawFrom, int64_t target, bool* scarce) const
{
    ShowProcess* best = nullptr;
    size_t others = 0;
    for (const auto& process : crew.processes) {
        if (!CanMake(*process, drawFrom, target))
            continue;
        others += process.get() != live && process->IsLoaded();
        const bool better = !best || (process->IsLoaded() != best->IsLoaded()
                                          ? process->IsLoaded()
                                          : std::make_pair(process->Position(), process->LoadProgress()) >
                                                std::make_pair(best->Position(), best->LoadProgress()));
        if (better)
            best = process.get();
    }
    // Staying with the live process keeps the others at their places.
    if (best && live && live != best && live->IsLoaded() && CanMake(*live, drawFrom, target) &&
        best->Position() - live->Position() < nearFrames)
        best = live;
    *scarce = best && best != live && best->IsLoaded() && others <= scarceProcesses;
    return best;
}

bool ShowPool::Work::IsOnItsWay() const
{
    return live && liveGoal != 0 && live->Goal() == liveGoal && live->WantedRevision() == revision;
}

void ShowPool::Work::Choose(double now)
{
    int64_t target = Wanted();
    int64_t showFrom, drawFrom;
    if (playing) {
        target = showFrom = drawFrom = PlayTarget();
        // A machine that draws quickly draws all of them.
        const double perSecond = double(settings.rate.frames) / double(settings.rate.seconds);
        if (drawSeconds * perSecond < quickShare)
            showFrom = drawFrom = std::min(target, Wanted());
        // A goal beyond the newest one replaces it; the process finishes the frame that it is drawing.
        if (IsOnItsWay() && (live->Target() >= target || !live->IsLoaded()))
            return;
        if (live && live->IsLoaded() && live->Position() >= target && !jumped)
            return; // it is further ahead than needed: the music follows
    } else {
        if (IsOnItsWay())
            return;
        const int64_t affordable = drawSeconds > 0 ? int64_t(backRunSeconds / drawSeconds) : 0;
        showFrom = std::max<int64_t>(target - std::min(backRun, affordable), 0);
        drawFrom = std::max<int64_t>(showFrom - capture::WarmUpFrames, 0);
    }
    std::string reason;
    if (crew.IsBarred(target, &reason))
        return;
    // If it takes the new script over, the frame that it has made may be the right one already.
    if (live && live->WantedRevision() != live->Revision() && !CanMake(*live, drawFrom, target))
        return;

    bool scarce = false;
    ShowProcess* best = BestFor(drawFrom, target, &scarce);
    if (scarce && inBurst && !playing && now < wishSeconds + restSeconds)
        return;
    if (!best && live && crew.processes.size() == 1 && !crew.HasRoom()) {
        crew.End(live);
        live = nullptr;
    }
    if (!best)
        best = crew.Start(now, live);
    if (!best)
        return;
    if (live && live != best)
        live->Park(live->IsLoaded() ? live->Position() : -1);
    live = best;
    jumped = false;
    crew.Update(live);
    if (crew.length < 0 && !live->IsLoaded())
        live->Park(-1);
    else
        live->Play(target, drawFrom, showFrom, !playing);
    liveGoal = live->Goal();
}

} // namespace edit
