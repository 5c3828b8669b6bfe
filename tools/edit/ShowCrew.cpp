// SPDX-License-Identifier: MIT
#include "tools/edit/ShowCrew.h"

#include "tools/edit/ParkingPlan.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace edit
{

static const double firstWait = 0.25; // seconds between a failure and the next start
static const double longestWait = 30;
static const double countSeconds = 0.5;                  // between two counts of the memory
static const uint64_t usualMemory = uint64_t(300) << 20; // of a process of the show, until one was seen
static const int exitEnded = 3;                          // see ShowHost.cpp
static const int64_t hotLead = 3; // frames between hotPlace and where the process waits

ShowCrew::ShowCrew()
    : length(-1), hotPlace(-1), revision(0), memory(0), largest(0), sharedPart(0),
      countedSeconds(-countSeconds), failures(0), retrySeconds(0), restarting(false), barrier(INT64_MAX)
{
}

ShowCrew::~ShowCrew()
{
    EndAll(); // signals all of them first, so that they end at the same time
}

void ShowCrew::Begin(const ShowSettings& newSettings, const std::string& newProgram)
{
    settings = newSettings;
    program = newProgram;
    if (settings.memoryLimit == 0)
        settings.memoryLimit = uint64_t(sysconf(_SC_PHYS_PAGES)) * uint64_t(sysconf(_SC_PAGESIZE)) / 4;
}

void ShowCrew::SetScript(const std::string& text, uint64_t newRevision)
{
    script = text;
    revision = newRevision;
    toldBoxes.clear();
    ForgetFailures();
}

void ShowCrew::ForgetFailures()
{
    failures = 0;
    retrySeconds = 0;
    faults.clear();
    barrier = INT64_MAX;
    barrierText.clear();
}

void ShowCrew::End(ShowProcess* process)
{
    const auto found = std::find_if(processes.begin(), processes.end(),
                                    [process](const auto& row) { return row.get() == process; });
    if (found == processes.end())
        return;
    process->Kill();
    dying.push_back(std::move(*found));
    processes.erase(found);
}

void ShowCrew::EndAll()
{
    while (!processes.empty())
        End(processes.back().get());
    memory = 0;
}

void ShowCrew::Poll(double seconds, const NewsTaker& take, const LossTaker& lose)
{
    starter.Poll();
    std::vector<ShowNews> news;
    for (const auto& process : dying)
        process->Poll(seconds, &news);
    std::erase_if(dying, [](const auto& process) { return process->IsGone(); });

    // Taking the news may end processes.
    std::vector<ShowProcess*> all;
    for (const auto& process : processes)
        all.push_back(process.get());
    for (ShowProcess* process : all) {
        news.clear();
        process->Poll(seconds, &news);
        for (ShowNews& piece : news) {
            NoteNews(*process, piece);
            take(process, piece);
        }
    }
    for (ShowProcess* process : all) {
        const auto found = std::find_if(processes.begin(), processes.end(),
                                        [process](const auto& row) { return row.get() == process; });
        if (found == processes.end() || !process->IsGone())
            continue;
        NoteLoss(process, seconds);
        lose(process);
        processes.erase(found);
    }
    CountMemory(seconds);
}

void ShowCrew::NoteNews(const ShowProcess& process, const ShowNews& news)
{
    const ShowReply& reply = news.reply;
    if ((reply.kind == ShowReply::Loaded || reply.kind == ShowReply::ScriptTaken) &&
        process.Revision() == revision)
        length = reply.frames;
    if (reply.kind == ShowReply::Frame)
        failures = 0;
    // Each process tells the same boxes.
    if (reply.kind == ShowReply::Box && reply.revision == revision &&
        std::count(toldBoxes.begin(), toldBoxes.end(), news.text) == 0) {
        toldBoxes.push_back(news.text);
        events.push_back({ShowEvent::Box, news.text, reply.frame});
    }
}

static std::string PlaceText(int64_t frame)
{
    return frame < 0 ? "while the show was loading" : "in frame " + std::to_string(frame);
}

void ShowCrew::NoteLoss(ShowProcess* process, double seconds)
{
    if (process->WasKilled())
        return;
    const int status = process->ExitStatus();
    const int64_t frame = process->IsLoaded() ? process->Position() + 1 : -1;
    std::string words = process->LastWords();
    if (status == exitEnded) {
        if (process->Revision() == revision) {
            barrier = std::min(barrier, frame);
            barrierText = words;
        }
        return;
    }
    ShowEvent event = {ShowEvent::Crashed, "", frame};
    if (process->HasHung()) {
        event.kind = ShowEvent::Hung;
        event.text = "The show gave no sign of life " + PlaceText(frame) + " and was ended";
    } else if (status == ShowHostOutOfMemory) {
        event.kind = ShowEvent::OutOfMemory;
        event.text = "The show had no memory left " + PlaceText(frame);
    } else if (status == -SIGKILL || status == -SIGTERM) {
        event.text =
            "The show was ended from outside " + PlaceText(frame) + ": the system may have run out of memory";
    } else if (status < 0) {
        event.text = "The show crashed " + PlaceText(frame) + ": " + strsignal(-status);
    } else {
        event.text = "The show ended " + PlaceText(frame) + " with exit status " + std::to_string(status);
    }
    if (!words.empty())
        event.text += ": " + words;
    event.text += ".";
    events.push_back(event);

    failures++;
    retrySeconds = seconds + std::min(longestWait, firstWait * double(1 << std::min(failures - 1, 10)));
    restarting = true;
    if (process->Revision() != revision || status == -SIGKILL || status == -SIGTERM)
        return;
    for (const Failure& fault : faults)
        if (fault.frame == frame && frame < barrier) {
            barrier = frame;
            barrierText = event.text;
        }
    faults.push_back({frame, event.text});
}

bool ShowCrew::IsBarred(int64_t frame, std::string* reason) const
{
    if (frame < barrier)
        return false;
    *reason = barrierText;
    return true;
}

void ShowCrew::CountMemory(double seconds)
{
    if (seconds < countedSeconds + countSeconds)
        return;
    countedSeconds = seconds;
    uint64_t own = 0;
    sharedPart = 0;
    for (const auto& process : processes) {
        const ShowProcess::Memory used = process->MemoryInUse();
        own += used.own;
        sharedPart = std::max(sharedPart, used.shared);
        largest = std::max(largest, used.own);
    }
    memory = own + sharedPart;
}

uint64_t ShowCrew::ExpectedMemory() const
{
    return largest > 0 ? largest : usualMemory;
}

int ShowCrew::Capacity() const
{
    const uint64_t room = settings.memoryLimit - std::min(settings.memoryLimit, sharedPart);
    return int(
        std::clamp<uint64_t>(room / ExpectedMemory(), 1, uint64_t(std::max(settings.maxProcesses, 1))));
}

bool ShowCrew::HasRoom() const
{
    return int(processes.size()) < Capacity() && memory + ExpectedMemory() <= settings.memoryLimit;
}

// Of the processes that wait, the one whose loss is felt least: it has another one close ahead of it.
void ShowCrew::MakeRoom(const ShowProcess* keep)
{
    std::vector<ShowProcess*> others;
    for (const auto& process : processes)
        if (process.get() != keep)
            others.push_back(process.get());
    if (others.empty())
        return;
    std::sort(others.begin(), others.end(),
              [](const ShowProcess* a, const ShowProcess* b) { return a->Position() < b->Position(); });
    size_t least = others.size() - 1;
    int64_t smallest = INT64_MAX;
    for (size_t i = 1; i < others.size(); i++) {
        const int64_t gap = others[i]->Position() - others[i - 1]->Position();
        if (gap < smallest) {
            smallest = gap;
            least = i;
        }
    }
    End(others[least]);
}

ShowProcess* ShowCrew::Start(double seconds, const ShowProcess* keep)
{
    if (seconds < retrySeconds || barrier < 0)
        return nullptr;
    if (!processes.empty() && !HasRoom())
        MakeRoom(keep);
    std::unique_ptr<ShowProcess> process = std::make_unique<ShowProcess>(&starter);
    std::string reason;
    if (!process->Start(program, settings, settings.memoryLimit, script, revision, &reason)) {
        failures++;
        retrySeconds = seconds + std::min(longestWait, firstWait * double(1 << std::min(failures - 1, 10)));
        events.push_back({ShowEvent::Crashed, "The show can't be started: " + reason + ".", -1});
        restarting = true;
        return nullptr;
    }
    if (restarting)
        events.push_back({ShowEvent::Restarted, "The show is loaded anew.", -1});
    restarting = false;
    processes.push_back(std::move(process));
    return processes.back().get();
}

void ShowCrew::Update(ShowProcess* process)
{
    if (process->WantedRevision() != revision)
        process->SetScript(script, revision);
}

void ShowCrew::HoldOthers(const ShowProcess* live)
{
    for (const auto& process : processes)
        if (process.get() != live && process->IsBusy() && !process->IsHeld())
            process->Hold();
}

std::vector<int64_t> ShowCrew::Places() const
{
    const int count = Capacity() - 2; // beside the one that makes the frames and the one at the start
    const bool hot = count > 0 && hotPlace > hotLead && hotPlace < length;
    std::vector<int64_t> places = ParkingPlaces(length, hot ? count - 1 : count);
    if (hot)
        places.insert(std::lower_bound(places.begin(), places.end(), hotPlace - hotLead), hotPlace - hotLead);
    std::erase_if(places, [this](int64_t place) { return place >= barrier; });
    return places;
}

void ShowCrew::WorkInBackground(double seconds, const ShowProcess* live, int64_t wanted)
{
    if (memory > settings.memoryLimit && processes.size() > 1) {
        MakeRoom(live);
        countedSeconds = -countSeconds; // count again before the next one goes
        memory = 0;
        return;
    }
    std::vector<ShowProcess*> others;
    for (const auto& process : processes)
        if (process.get() != live)
            others.push_back(process.get());
    // One at a time. What was held goes on first.
    for (ShowProcess* process : others) {
        if (process->IsHeld())
            process->Park(process->IsLoaded() ? process->Position() : -1);
        if (process->IsBusy())
            return;
    }
    for (ShowProcess* process : others)
        if (process->Revision() != revision) {
            Update(process);
            return;
        }
    std::vector<int64_t> positions;
    for (const ShowProcess* process : others)
        positions.push_back(process->Position());
    const ParkingStep step = NextParkingStep(positions, Places(), wanted, HasRoom());
    switch (step.kind) {
    case ParkingStep::Rest:
        break;
    case ParkingStep::StartNew:
        Start(seconds, live);
        break;
    case ParkingStep::Move:
        others[step.process]->Park(step.place);
        break;
    case ParkingStep::End:
        End(others[step.process]);
        break;
    }
}

} // namespace edit
