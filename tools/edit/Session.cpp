// SPDX-License-Identifier: MIT
#include "tools/edit/Session.h"

#include "platform/Paths.h"
#include "tools/edit/Moments.h"

#include <algorithm>
#include <filesystem>

namespace edit
{

static const size_t maxRemarks = 100;
static const double lookEvery = 1; // seconds between looks at the script's file, if the system won't watch it

Session::Session(const Options& wanted, std::function<void()> wake)
    : transport(&state, &music), options(wanted), disks(wake), document(std::make_unique<Document>(&disks)),
      analysis(std::move(wake)), sentRevision(0), sentAny(false), wantedFrame(-1), frameCame(-1),
      wasPlaying(false), conflict(false), looks(false), looksOnce(false), watches(false), lookedAt(0),
      poolRuns(false), cures(false)
{
    lintOptions.data = platform::GetDataDirectory();
    lintOptions.frameRate =
        std::clamp(double(options.rate.frames) / double(options.rate.seconds), 1.0, 1000.0);
    state.document = document.get();
    state.show = &pool;
    state.music = &music;
    state.rate = options.rate;
}

Session::~Session()
{
    disks.script.Forget(this);
    music.Stop();
    pool.Stop();
}

void Session::FinishDisks()
{
    disks.script.Finish();
    disks.recovery.Finish();
}

bool Session::Start(const std::string& program, std::string* reason)
{
    ShowSettings settings;
    settings.width = int(options.width);
    settings.height = int(options.height);
    settings.rate = options.rate;
    settings.data = platform::GetDataDirectory();
    settings.memoryLimit = options.memoryLimit;
    started = true;
    SetMusic(); // not before there is a window: it opens the sound device
    poolRuns = pool.Start(settings, program, reason);
    return poolRuns;
}

// The script

bool Session::Open(const std::string& path, std::string* reason)
{
    if (!document->Open(path, reason))
        return false;
    Begin();
    return true;
}

void Session::BeginOpen(const std::string& path, std::function<void(const Opening& opening)> done)
{
    struct OpenJob {
        ScriptFile read;
        Opening opening;
    };
    const auto job = std::make_shared<OpenJob>();
    const uint64_t asked = document->Revision();
    disks.script.Do(
        this,
        [job, path] {
            job->opening.opened = job->read.Open(path, &job->opening.reason);
            Recovery lost;
            if (job->opening.opened && RecoveryFile::Find(path, &job->read.Content(), &lost))
                job->opening.lost = lost;
        },
        [this, job, asked, done] {
            job->opening.editedMeanwhile = job->opening.opened && document->Revision() != asked;
            if (job->opening.editedMeanwhile)
                job->opening.opened = false;
            if (job->opening.opened) {
                document->Open(job->read);
                Begin();
            }
            done(job->opening);
        });
}

void Session::BeginCure(const lint::Finding& finding)
{
    if (cures)
        return;
    cures = true;
    document->BeginCure(finding, lintOptions, [this](bool cured) {
        cures = false;
        if (!cured)
            state.notice = document->LastRefusal();
    });
}

void Session::Discard(const Recovery& recovery)
{
    disks.recovery.Do(this, [recovery] { Document::DiscardRecovery(recovery); }, {});
}

void Session::New()
{
    document = std::make_unique<Document>(&disks);
    state.document = document.get();
    Begin();
}

void Session::Begin()
{
    transport.Stop();
    conflict = looks = looksOnce = cures = false;
    remarks.clear();
    state.selection.clear();
    state.markers.clear();
    state.looping = false;
    state.loopStart = state.loopEnd = 0;
    state.playhead = 0;
    state.analysis = nullptr;
    sentAny = false;
    Watch();
    TakeEdits();
}

void Session::Watch()
{
    std::string reason;
    watches = watch.Watch(AbsolutePath(), platform::GetDataDirectory(), &reason);
    if (!watches)
        state.notice = "Changes in the data folder are not seen: " + reason;
}

void Session::BeginSave(const std::string& path, Document::SaveDone done)
{
    document->BeginSave(path, [this, isNew = path != document->Path(), done](const SaveOutcome& outcome) {
        if (outcome.saved && isNew)
            Watch();
        if (!outcome.saved)
            TakeLook(outcome.disk);
        done(outcome);
    });
}

std::string Session::Name() const
{
    const std::string path = document->Path();
    return path.empty() ? "(no name)" : std::filesystem::path(path).filename().string();
}

std::string Session::AbsolutePath() const
{
    if (document->Path().empty())
        return "";
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(document->Path(), error);
    return error ? document->Path() : absolute.lexically_normal().string();
}

// Largest stop of the entries, as the show ends there.
double Session::End() const
{
    uint32_t end = 0;
    for (const OutlineBlock& block : document->GetOutline().blocks)
        if (block.type == BlockEffect && block.complete)
            end = std::max(end, block.stop);
    return end / 1000.0;
}

void Session::TakeEdits()
{
    if (sentAny && document->Revision() == sentRevision)
        return;
    sentAny = true;
    sentRevision = document->Revision();
    pool.SetScript(document->Text(), sentRevision);
    wantedFrame = -1;
    analysis.Request(document->Text(), sentRevision, Name(), lintOptions);
    std::erase_if(state.selection, [this](ItemId item) { return !document->GetOutline().Has(item); });
    transport.SetEnd(End());
    SetMusic();
}

void Session::SetMusic()
{
    if (!started)
        return;
    std::string file;
    for (const OutlineBlock& block : document->GetOutline().blocks)
        if (block.type == BlockMusic && block.complete)
            file = block.fileName;
    if (file == musicFile)
        return;
    musicFile = file;
    music.SetMusic(file.empty() ? "" : platform::DataPath(file));
}

// What other programs do

void Session::LookAtDisk()
{
    if (document->Path().empty())
        return;
    looksOnce = looks;
    if (looks)
        return;
    looks = true;
    document->BeginLook([this](DiskState seen) {
        looks = false;
        TakeLook(seen);
        if (looksOnce)
            LookAtDisk();
    });
}

void Session::TakeLook(DiskState seen)
{
    std::string reason;
    conflict = false;
    switch (seen) {
    case DiskSame:
        break;
    case DiskChanged:
        if (document->TakeDisk(&reason))
            state.notice =
                Name() + " was written by another program and is taken over; undo gives back what was here.";
        else
            state.notice = Name() + " was written by another program and can't be read: " + reason;
        break;
    case DiskConflict:
        conflict = true;
        break;
    case DiskGone:
        if (watches) // else it would be said again and again
            state.notice = Name() + " is gone. Saving writes it anew.";
        break;
    }
}

void Session::TakeTheirs()
{
    conflict = false;
    std::string reason;
    if (!document->TakeDisk(&reason))
        state.notice = Name() + " can't be read: " + reason;
}

void Session::KeepMine()
{
    conflict = false;
    document->KeepMine();
}

void Session::TakeChanges(double seconds)
{
    if (!watches && seconds - lookedAt > lookEvery) {
        lookedAt = seconds;
        LookAtDisk();
    }
    bool dataChanged = false;
    for (const DataChange& change : watch.Poll(seconds)) {
        if (change.isScript) {
            LookAtDisk();
            continue;
        }
        dataChanged = true;
        if (change.name.empty() || change.name == musicFile) {
            music.SetMusic(musicFile.empty() ? "" : platform::DataPath(musicFile));
            analysis.MusicChanged();
        }
        if (change.name != musicFile) {
            pool.DataChanged(change.name);
            wantedFrame = -1;
        }
    }
    if (dataChanged) // a file may be missing now, or be there again
        analysis.Request(document->Text(), document->Revision(), Name(), lintOptions);
}

void Session::TakeEvents()
{
    for (const ShowEvent& event : pool.TakeEvents()) {
        const double seconds = event.frame < 0 ? -1 : SecondsOf(event.frame, state.rate);
        if (!remarks.empty() && remarks.back().kind == event.kind && remarks.back().text == event.text) {
            remarks.back().seconds = seconds;
            remarks.back().count++;
            continue;
        }
        remarks.push_back({event.kind, event.text, seconds, 1});
        if (remarks.size() > maxRemarks)
            remarks.erase(remarks.begin());
    }
}

// The frame of the window

void Session::AskForFrame()
{
    const int64_t frame = FrameAt(state.playhead, state.rate);
    const bool plays = state.playing && !transport.IsScrubbing();
    if (frame == wantedFrame && plays == wasPlaying)
        return;
    wantedFrame = frame;
    wasPlaying = plays;
    if (plays)
        pool.PlayTo(frame);
    else
        pool.Seek(frame);
}

bool Session::Tick(double seconds)
{
    bool isNew = disks.Poll();
    TakeEdits();
    TakeChanges(seconds);
    isNew = transport.Update() || isNew;
    AskForFrame();
    pool.Poll();
    const size_t count = remarks.size();
    TakeEvents();
    if (std::shared_ptr<const AnalysisResult> result = analysis.Take()) {
        state.analysis = result;
        isNew = true;
    }
    document->Tick(seconds);
    if (document->RecoveryFailure() != recoveryFailure) {
        recoveryFailure = document->RecoveryFailure();
        isNew = true;
        if (!recoveryFailure.empty())
            state.notice = "Unsaved work is not safe from a crash: " + recoveryFailure;
    }
    return isNew || remarks.size() != count;
}

bool Session::TakeFrame(ShownFrame* frame)
{
    if (!pool.TakeFrame(frame))
        return false;
    frameCame = frame->number;
    return true;
}

bool Session::IsWaiting()
{
    if (state.playing)
        return true;
    const ShowPool::Status status = pool.GetStatus();
    return !status.failed && (status.loading || frameCame != wantedFrame);
}

void Session::DoRequests(bool mouseIsDown)
{
    if (state.goTo)
        transport.GoTo(*state.goTo);
    else if (state.scrubTo)
        transport.Scrub(*state.scrubTo);
    if (!mouseIsDown)
        transport.EndScrub();
    state.goTo.reset();
    state.scrubTo.reset();
}

} // namespace edit
