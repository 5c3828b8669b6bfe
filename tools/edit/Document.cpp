// SPDX-License-Identifier: MIT
#include "tools/edit/Document.h"

#include <utility>

namespace edit
{

static const double recoveryInterval = 1; // seconds

Document::Document(DiskThreads* diskThreads)
    : threads(diskThreads), revision(1), onDisk(std::make_shared<ScriptFile>()), fileDecisions(0), saves(0),
      safe(std::make_shared<SafePlace>()), recoveredAt(-recoveryInterval), recoveredRevision(0),
      recovers(false)
{
}

Document::~Document()
{
    if (!threads)
        return;
    threads->script.Forget(this);
    threads->recovery.Forget(this);
    threads->cures.Forget(this);
    // Whoever holds the place last removes the file, which a thread shall do.
    std::shared_ptr<SafePlace> last = std::move(safe);
    threads->recovery.Do(this, [last = std::move(last)] { last->file.Remove(); }, {});
}

void Document::SetText(std::string newText)
{
    if (newText != text)
        SetText(newText, ReadOutline(newText));
}

void Document::SetText(std::string newText, Outline newOutline)
{
    text = std::move(newText);
    outline = std::move(newOutline);
    revision++;
}

// ---- The file

void Document::OnThread(DiskThread DiskThreads::*thread, DiskThread::Work work, DiskThread::Work then)
{
    if (threads)
        return (threads->*thread).Do(this, std::move(work), std::move(then));
    work();
    if (then)
        then();
}

bool Document::Open(std::string path, std::string* reason)
{
    ScriptFile read;
    if (!read.Open(path, reason))
        return false;
    Open(read);
    return true;
}

void Document::Open(const ScriptFile& read)
{
    KnowFile(read);
    SetText(file.Content());
    undo.Clear();
    ClearRecovery(true);
}

// Decides here what the file is taken to hold.
void Document::KnowFile(const ScriptFile& known)
{
    file = known;
    fileDecisions++;
    found.reset();
    OnThread(&DiskThreads::script, [disk = onDisk, known] { *disk = known; });
}

bool Document::IsModified() const
{
    return !file.Holds(text);
}

void Document::BeginSave(std::string path, SaveDone done)
{
    struct SaveJob {
        std::string path, recoveryPath, text;
        bool looks;
        uint64_t decisions;
        Look look;
        SaveOutcome outcome;
    };
    undo.EndGesture(); // a step of undo leads back to what was saved
    const auto job = std::make_shared<SaveJob>();
    job->path = path;
    job->recoveryPath = Path();
    job->text = text;
    job->looks = path == Path();
    job->decisions = fileDecisions;
    saves++;
    OnThread(
        &DiskThreads::script,
        [job, disk = onDisk, place = safe] {
            if (job->looks)
                job->look = LookAt(disk.get(), job->text);
            job->outcome.disk = job->look.state;
            if (job->look.state == DiskChanged || job->look.state == DiskConflict) {
                job->outcome.reason = "Another program has written " + job->path + " since it was read.";
                return;
            }
            // The place is locked while a file is written over, so that no older work is put into it meanwhile.
            std::unique_lock<std::mutex> lock(place->mutex, std::defer_lock);
            const auto backup = [&](const std::string& kept, std::string* reason) {
                lock.lock();
                return place->Keep(job->recoveryPath, kept, reason);
            };
            job->outcome.saved = disk->SaveAs(job->path, job->text, backup, &job->outcome.reason);
            job->look.seen = *disk;
        },
        [this, job, done] {
            saves--;
            const bool isUndecided = job->decisions == fileDecisions;
            if (!job->outcome.saved) {
                job->outcome.disk = isUndecided ? TakeLook(job->look) : DiskSame;
                return done(job->outcome);
            }
            const bool isNew = job->path != Path();
            if (isUndecided) { // the script's thread knows already
                file = job->look.seen;
                fileDecisions++;
                found.reset();
            } else {
                KnowFile(job->look.seen);
            }
            if (isNew || !IsModified())
                ClearRecovery(isNew); // the place of a new one bears the old name
            done(job->outcome);
        });
}

bool Document::Save(std::string* reason)
{
    return SaveAs(Path(), reason);
}

bool Document::SaveAs(std::string path, std::string* reason)
{
    SaveOutcome result;
    BeginSave(std::move(path), [&result](const SaveOutcome& outcome) { result = outcome; });
    if (threads)
        threads->script.Finish();
    *reason = result.reason;
    return result.saved;
}

// ---- What another program did to the file

Document::Look Document::LookAt(ScriptFile* disk, const std::string& text)
{
    Look look;
    look.state = disk->Look(text);
    look.seen = look.theirs = *disk;
    if (look.state != DiskSame)
        look.readable = look.theirs.Accept(&look.reason);
    return look;
}

// The text may have changed since the look began.
DiskState Document::TakeLook(Look look)
{
    found.reset();
    if (look.state == DiskChanged || look.state == DiskConflict) {
        if (look.theirs.Content() == text && look.readable) {
            KnowFile(look.theirs);
            return DiskSame;
        }
        look.state = text == file.Content() ? DiskChanged : DiskConflict;
    } else {
        file = look.seen;
    }
    const DiskState state = look.state;
    if (state != DiskSame)
        found = std::move(look);
    return state;
}

void Document::BeginLook(LookDone done)
{
    struct LookJob {
        std::string text;
        uint64_t decisions;
        Look look;
    };
    const auto job = std::make_shared<LookJob>();
    job->text = text;
    job->decisions = fileDecisions;
    OnThread(
        &DiskThreads::script, [job, disk = onDisk] { job->look = LookAt(disk.get(), job->text); },
        [this, job, done] {
            if (job->decisions == fileDecisions)
                return done(TakeLook(job->look));
            BeginLook(done); // the file has been saved or decided about meanwhile
        });
}

DiskState Document::LookAtDisk()
{
    DiskState state = DiskSame;
    BeginLook([&state](DiskState seen) { state = seen; });
    if (threads)
        threads->script.Finish();
    return state;
}

bool Document::TakeDisk(std::string* reason)
{
    if (!found)
        return false;
    if (!found->readable) {
        if (reason)
            *reason = found->reason;
        return false;
    }
    const ScriptFile theirs = found->theirs;
    undo.Add("Take the changed file over", text, theirs.Content(), 0);
    SetText(theirs.Content());
    KnowFile(theirs);
    return true;
}

void Document::KeepMine()
{
    if (found)
        KnowFile(ScriptFile(found->theirs));
}

// ---- Undo

bool Document::Undo()
{
    const bool can = CanUndo();
    SetText(undo.Undo(text));
    return can;
}

bool Document::Redo()
{
    const bool can = CanRedo();
    SetText(undo.Redo(text));
    return can;
}

// ---- Recovery

bool Document::SafePlace::Keep(const std::string& path, const std::string& kept, std::string* reason)
{
    return (file.IsOpen() || file.Open(path, reason)) && file.Write(kept, reason);
}

void Document::Tick(double seconds)
{
    if (seconds - recoveredAt < recoveryInterval)
        return;
    if (!IsModified()) {
        if (recoveredRevision != 0)
            ClearRecovery(false);
    } else if (recoveredRevision != revision && !recovers) {
        recoveredAt = seconds;
        BeginRecovery();
    }
}

void Document::BeginRecovery(const std::optional<Recovery>& replaced)
{
    struct RecoveryJob {
        std::string path, text, failure;
        std::optional<Recovery> replaced;
        bool kept = false;
    };
    const auto job = std::make_shared<RecoveryJob>();
    job->path = Path();
    job->text = text;
    job->replaced = replaced;
    recovers = true;
    const uint64_t before = std::exchange(recoveredRevision, revision);
    OnThread(
        &DiskThreads::recovery,
        [job, place = safe] {
            const std::lock_guard<std::mutex> lock(place->mutex);
            job->kept = place->Keep(job->path, job->text, &job->failure);
            if (job->kept && job->replaced)
                RecoveryFile::Discard(*job->replaced);
        },
        [this, job, before] {
            recovers = false;
            recoveryFailure = job->kept ? "" : job->failure;
            if (!job->kept && recoveredRevision != 0)
                recoveredRevision = before; // which is still there
        });
}

// Call it when nothing is unsaved any more, or when the script has got another name.
void Document::ClearRecovery(bool givesPlaceBack)
{
    recoveredRevision = 0;
    if (givesPlaceBack)
        recoveredAt = -recoveryInterval; // what is still unsaved is written to the new place at once
    OnThread(&DiskThreads::recovery, [place = safe, givesPlaceBack] {
        const std::lock_guard<std::mutex> lock(place->mutex);
        if (givesPlaceBack)
            place->file.Remove();
        else
            place->file.Clear();
    });
}

bool Document::WriteRecovery()
{
    if (threads)
        threads->recovery.Finish();
    recoveryFailure.clear();
    if (!IsModified() || recoveredRevision == revision)
        return true;
    BeginRecovery();
    if (threads)
        threads->recovery.Finish();
    return recoveryFailure.empty();
}

bool Document::FindRecovery(const std::string& path, Recovery* found)
{
    ScriptFile saved;
    std::string reason;
    const bool readable = !path.empty() && saved.Open(path, &reason);
    return RecoveryFile::Find(path, readable ? &saved.Content() : nullptr, found);
}

bool Document::Recover(const Recovery& recovered)
{
    if (recovered.text.size() > lint::Reading::contentLimit)
        return false;
    undo.Add("Recover unsaved work", text, recovered.text, 0);
    SetText(recovered.text);
    BeginRecovery(recovered);
    return true;
}

void Document::DiscardRecovery(const Recovery& found)
{
    RecoveryFile::Discard(found);
}

} // namespace edit
