// SPDX-License-Identifier: MIT
#include "tools/edit/ShowPool.h"

#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "tools/capture/SteppedShow.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/edit/FrameCache.h"
#include "tools/edit/ShowCrew.h"

#include <algorithm>
#include <cmath>
#include <csignal>
#include <map>

namespace edit
{

static const size_t cacheBytes = size_t(96) << 20;
static const double idleSeconds = 0.15; // without a new wish, before the others work on their places
// The last processes ahead of a wish are used up only when there was no new wish for so long.
static const size_t scarceProcesses = 2;
static const double restSeconds = 0.15;
static const double burstSeconds = 0.4; // between two wishes that belong together, as those of a drag
static const double smoothSeconds = 2;  // of playing without a late frame, before the others work
static const double leadShare = 0.25;   // of a second, the furthest that frames are made ahead while playing
static const double quickShare = 0.5;   // of the time of a frame, that drawing it may take on a quick machine
static const int64_t nearFrames = 600;  // a process that is that close is not exchanged for one closer
static const int64_t longestBackRun = 32; // frames that are kept on the way to one that was stepped back to
static const double backRunSeconds = 0.3; // of drawing for them, at most

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

    FrameCache cache{cacheBytes};
    ShownFrame shown; // the newest frame
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

void ShowPool::Work::NoteChange()
{
    const double now = cli::MonotonicSeconds();
    inBurst = now < wishSeconds + burstSeconds;
    wishSeconds = now;
}

ShowPool::ShowPool() : work(std::make_unique<Work>()) {}

ShowPool::~ShowPool() {}

bool ShowPool::Start(const ShowSettings& settings, std::string program, std::string* reason)
{
    // Processes are started only when they are needed; whether the program can be run is found out here.
    platform::ChildProcess trial;
    if (!trial.Start({program, "--version"})) {
        *reason = trial.error;
        return false;
    }
    trial.Signal(SIGKILL);
    work->settings = settings;
    work->crew.Begin(settings, program);
    work->started = true;
    return true;
}

void ShowPool::SetScript(const std::string& text, uint64_t revision)
{
    work->hasScript = true;
    work->revision = revision;
    work->crew.SetScript(text, revision);
    work->fulfilled = false;
    work->NoteChange();
    // Some of the frames that were made ahead may be the same in the new script, but it is simpler to make them anew.
    work->ahead.clear();
    work->liveGoal = 0;
    if (work->live)
        work->crew.Update(work->live);
}

static std::string BaseName(const std::string& path)
{
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    return name.substr(0, name.rfind('.'));
}

// Shaders are named without their endings, and models with the folder: the bare name decides.
static bool IsOfTheShow(const std::string& fileName)
{
    const std::string name = BaseName(fileName);
    if (name.empty() || name == BaseName(loadingPicture))
        return true;
    for (const EffectRecord& record : ProductionEffects())
        for (const EffectFile& file : ListFiles(record.files))
            if (BaseName(file.name) == name)
                return true;
    return false;
}

void ShowPool::DataChanged(const std::string& fileName)
{
    if (!IsOfTheShow(fileName))
        return;
    work->crew.EndAll();
    work->crew.ForgetFailures();
    work->live = nullptr;
    work->liveGoal = 0;
    work->cache.Clear();
    work->ahead.clear();
    work->fulfilled = false;
    work->NoteChange();
}

void ShowPool::Seek(int64_t frame)
{
    frame = std::max<int64_t>(frame, 0);
    if (frame == work->wish && !work->playing)
        return;
    // A user who steps back usually goes on stepping back.
    const bool stepsBack = !work->playing && frame < work->wish && frame + 2 >= work->wish;
    if (!stepsBack)
        work->backRun = 0;
    else if (!work->cache.Find(frame, work->revision))
        work->backRun = std::clamp<int64_t>(work->backRun * 2, 4, longestBackRun);
    if (work->playing)
        work->ahead.clear();
    work->playing = false;
    work->wish = frame;
    work->fulfilled = false;
    work->liveGoal = 0;
    work->NoteChange();
}

void ShowPool::PlayTo(int64_t frame)
{
    frame = std::max<int64_t>(frame, 0);
    const double now = cli::MonotonicSeconds();
    const bool begins = !work->playing;
    const int64_t step = frame - work->wish;
    if (begins) {
        work->skipped = 0;
        work->playShown = false;
        work->lateSeconds = now;
    }
    if (!begins && step < 0)
        work->crew.hotPlace = frame; // a loop: it will be back
    if (begins || step < 0) {
        work->liveGoal = 0;
        work->jumped = true;
        work->playStep = 1;
        work->ahead.clear();
    } else if (step > 0) {
        work->playStep = std::min<int64_t>(step, work->settings.rate.FramesBefore(1000000));
    }
    work->playing = true;
    work->wish = frame;
    if (begins || step != 0)
        work->wishSeconds = now;

    const int64_t before = work->shown.number;
    const auto behind = work->ahead.upper_bound(work->Wanted());
    if (behind != work->ahead.begin()) {
        const auto newest = std::prev(behind);
        work->Show(std::move(newest->second));
        work->playShown = true;
        work->ahead.erase(work->ahead.begin(), behind);
    }
    if (work->playShown && step > 0 && work->shown.number == before) {
        work->skipped += step;
        work->lateSeconds = now;
    }
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

void ShowPool::Poll()
{
    if (!work->started)
        return;
    const double now = cli::MonotonicSeconds();
    work->crew.Poll(
        now, [this](ShowProcess* process, ShowNews& news) { work->TakeNews(process, news); },
        [this](ShowProcess* process) { work->LeaveBehind(process); });
    if (!work->hasScript || work->wish < 0)
        return;
    if (!work->playing && !work->fulfilled && work->ShowFromCache())
        work->fulfilled = true;
    if (work->playing || !work->fulfilled)
        work->Choose(now);
    const bool idle = work->playing ? now > work->lateSeconds + smoothSeconds : work->fulfilled;
    if (idle && now > (work->playing ? 0 : work->wishSeconds + idleSeconds))
        work->crew.WorkInBackground(now, work->live, work->Wanted());
    else if (!work->fulfilled || work->playing)
        work->crew.HoldOthers(work->live);
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

bool ShowPool::TakeFrame(ShownFrame* frame)
{
    if (!work->isNew)
        return false;
    work->isNew = false;
    *frame = work->shown;
    return true;
}

std::vector<ShowEvent> ShowPool::TakeEvents()
{
    std::vector<ShowEvent> events;
    events.swap(work->crew.events);
    return events;
}

ShowPool::Status ShowPool::GetStatus() const
{
    Status status;
    const bool wants = work->started && work->hasScript && work->wish >= 0;
    const bool isLoaded = work->live && work->live->IsLoaded();
    status.loading = wants && !isLoaded && !work->fulfilled;
    status.loadProgress = isLoaded ? 1 : work->live ? work->live->LoadProgress() : 0;
    status.processes = int(work->crew.processes.size());
    status.memory = work->crew.Memory();
    status.position = work->live ? work->live->Position() : -1;
    for (const auto& process : work->crew.processes)
        if (process.get() != work->live)
            status.parked.push_back(process->IsLoaded() ? process->Position() + 1 : -1);
    std::sort(status.parked.begin(), status.parked.end());
    status.drawSeconds = work->warmSeconds;
    status.skipped = work->skipped;
    status.failed = wants && !work->fulfilled && work->crew.IsBarred(work->Wanted(), &status.failure);
    return status;
}

void ShowPool::Stop()
{
    work = std::make_unique<Work>();
}

} // namespace edit
