// SPDX-License-Identifier: MIT
#include "tools/edit/Document.h"

#include "tools/edit/CureFinding.h"
#include "tools/edit/ShiftItems.h"

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
    // The file goes with the last one who holds the place: that shall be a thread.
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

void Document::OnScriptThread(DiskThread::Work work, DiskThread::Work then)
{
    if (threads)
        return threads->script.Do(this, std::move(work), std::move(then));
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
    OnScriptThread([disk = onDisk, known] { *disk = known; });
}

bool Document::IsModified() const
{
    return !file.Holds(text);
}

void Document::BeginSave(std::string path, SaveDone done)
{
    struct Job {
        std::string path, recoveryPath, text;
        bool looks;
        uint64_t decisions;
        Look look;
        SaveOutcome outcome;
    };
    undo.EndGesture(); // a step of undo leads back to what was saved
    const auto job = std::make_shared<Job>();
    job->path = path;
    job->recoveryPath = Path();
    job->text = text;
    job->looks = path == Path();
    job->decisions = fileDecisions;
    saves++;
    OnScriptThread(
        [job, disk = onDisk, place = safe] {
            if (job->looks)
                job->look = LookAt(disk.get(), job->text);
            job->outcome.disk = job->look.state;
            if (job->look.state == DiskChanged || job->look.state == DiskConflict) {
                job->outcome.reason = "Another program has written " + job->path + " since it was read.";
                return;
            }
            // The place is held while a file is written over: older work shall not come into it meanwhile.
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
    struct Job {
        std::string text;
        uint64_t decisions;
        Look look;
    };
    const auto job = std::make_shared<Job>();
    job->text = text;
    job->decisions = fileDecisions;
    OnScriptThread([job, disk = onDisk] { job->look = LookAt(disk.get(), job->text); },
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

void Document::OnRecoveryThread(DiskThread::Work work, DiskThread::Work then)
{
    if (threads)
        return threads->recovery.Do(this, std::move(work), std::move(then));
    work();
    if (then)
        then();
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
    struct Job {
        std::string path, text, failure;
        std::optional<Recovery> replaced;
        bool kept = false;
    };
    const auto job = std::make_shared<Job>();
    job->path = Path();
    job->text = text;
    job->replaced = replaced;
    recovers = true;
    const uint64_t before = std::exchange(recoveredRevision, revision);
    OnRecoveryThread(
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

// Nothing is unsaved, or it is so under another name.
void Document::ClearRecovery(bool givesPlaceBack)
{
    recoveredRevision = 0;
    if (givesPlaceBack)
        recoveredAt = -recoveryInterval; // what is unsaved all the same goes to the new place at once
    OnRecoveryThread([place = safe, givesPlaceBack] {
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

// ---- Edits

bool Document::Change(const std::string& name, uint64_t gesture, const Operation& operation,
                      const Additions* additions, std::vector<ItemId>* items)
{
    refusal.clear();
    if (gesture != 0 && !undo.Continues(gesture)) {
        gestureText = text;
        gestureOutline = outline;
    }
    const std::string& before = gesture != 0 ? gestureText : text;
    ScriptEdit script(before, gesture != 0 ? gestureOutline : outline);
    std::string after;
    Outline read;
    if (!operation(&script) || !script.Finish(&after, &read)) {
        refusal = script.Refusal();
        return false;
    }
    if (additions)
        *items = additions->Items(script);
    undo.Add(name, before, after, gesture);
    if (after != text)
        SetText(std::move(after), std::move(read));
    return true;
}

bool Document::Move(std::vector<ItemId> items, int64_t milliseconds, int64_t layers, uint64_t gesture)
{
    return Change("Move", gesture,
                  [&](ScriptEdit* script) { return MoveItems(script, items, milliseconds, layers); });
}

bool Document::Stretch(std::vector<ItemId> items, bool stopEdge, int64_t milliseconds, uint64_t gesture)
{
    return Change("Stretch", gesture,
                  [&](ScriptEdit* script) { return StretchItems(script, items, stopEdge, milliseconds); });
}

bool Document::SetTime(ItemId item, uint32_t milliseconds, uint64_t gesture)
{
    return Change("Set Time", gesture,
                  [&](ScriptEdit* script) { return SetItemTime(script, item, milliseconds); });
}

bool Document::SetValue(size_t block, std::string key, std::string value, uint64_t gesture)
{
    return Change("Set " + key, gesture,
                  [&](ScriptEdit* script) { return SetBlockValue(script, block, key, value); });
}

std::vector<ItemId> Document::Duplicate(std::vector<ItemId> items, int64_t milliseconds, int64_t layers)
{
    Additions added;
    std::vector<ItemId> copies;
    Change(
        "Duplicate", 0,
        [&](ScriptEdit* script) { return DuplicateItems(script, items, milliseconds, layers, &added); },
        &added, &copies);
    return copies;
}

bool Document::Delete(std::vector<ItemId> items)
{
    return Change("Delete", 0, [&](ScriptEdit* script) { return DeleteItems(script, items); });
}

std::string Document::Copy(std::vector<ItemId> items) const
{
    std::string copy;
    return CopyItems(text, outline, items, &copy) ? copy : "";
}

std::vector<ItemId> Document::Paste(std::string blocks, uint32_t atMilliseconds)
{
    Additions added;
    std::vector<ItemId> pasted;
    Change(
        "Paste", 0, [&](ScriptEdit* script) { return PasteBlocks(script, blocks, atMilliseconds, &added); },
        &added, &pasted);
    return pasted;
}

std::optional<ItemId> Document::Insert(const std::string& name, const Operation& operation,
                                       const Additions* added)
{
    std::vector<ItemId> items;
    if (!Change(name, 0, operation, added, &items) || items.empty())
        return std::nullopt;
    return items[0];
}

std::optional<ItemId> Document::InsertEntry(std::string effect, uint32_t start, uint32_t stop, uint32_t layer)
{
    Additions added;
    return Insert(
        "New Entry",
        [&](ScriptEdit* script) { return edit::InsertEntry(script, effect, start, stop, layer, &added); },
        &added);
}

std::optional<ItemId> Document::InsertMessage(std::string effect, std::string message, uint32_t time,
                                              std::string parameters)
{
    Additions added;
    return Insert(
        "New Message",
        [&](ScriptEdit* script) {
            return edit::InsertMessage(script, effect, message, time, parameters, &added);
        },
        &added);
}

std::optional<ItemId> Document::AddTime(size_t block, uint32_t milliseconds)
{
    Additions added;
    return Insert(
        "New Message", [&](ScriptEdit* script) { return AddTimeToList(script, block, milliseconds, &added); },
        &added);
}

bool Document::TakeApart(size_t block)
{
    return Change("Take Apart", 0, [&](ScriptEdit* script) { return TakeGroupApart(script, block); });
}

bool Document::SetMusic(std::string fileName)
{
    return Change("Set Music", 0, [&](ScriptEdit* script) { return SetMusicFile(script, fileName); });
}

bool Document::SetColorScheme(const ColorScheme& scheme)
{
    return Change("Set Colours", 0, [&](ScriptEdit* script) { return SetColors(script, scheme); });
}

bool Document::CanCure(const lint::Finding& finding)
{
    return !finding.fixes.empty();
}

bool Document::ApplyCure(const lint::Finding& finding, const lint::CheckOptions& options)
{
    return Change("Cure", 0, [&](ScriptEdit* script) { return CureFinding(script, finding, options); });
}

} // namespace edit
