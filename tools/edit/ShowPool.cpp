// SPDX-License-Identifier: MIT
#include "tools/edit/ShowPool.h"

#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/edit/ShowPoolWork.h"

#include <algorithm>
#include <csignal>

namespace edit
{

static const double idleSeconds = 0.15;   // without a new wish, before the others work on their places
static const double smoothSeconds = 2;    // of playing without a late frame, before the others work
static const int64_t longestBackRun = 32; // frames that are kept on the way to one that was stepped back to

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
