// SPDX-License-Identifier: MIT
// The script that is being edited: its text, the edits, undo, the file on disk and the recovery file.
//
// Every edit changes only its own bytes. Comments, order, blanks and line ends of all else stay as they are; new
// text is written in the style of the script around it. After each edit the text is read anew with the show's own
// reader, and an edit is refused if the show would not read what was meant.
//
// An edit that returns false (or an empty list) was refused: nothing has changed, and LastRefusal() says
// why in a sentence for the user.
//
// GESTURES. Calls with the same nonzero gesture number are one change that is being refined, such as a drag: each
// call starts again from the text as it was before the first one, so that milliseconds and layers count from where
// the drag began, and what the calls before it did is replaced. They are one step of undo. Numbers of items stay as
// they were. A call with another number, or without one, ends the gesture.
//
// DISKS. A call that begins with Begin, Tick and Recover give what they have to do with files to threads (DiskThreads)
// and return at once; what has become of it is told when those are polled. Open, Save, SaveAs, LookAtDisk, WriteRecovery
// and ApplyCure wait for their thread, and for all that was begun there. Without threads everything is done before the
// call returns.
//
// All of it on one thread.
#pragma once

#include "kernel/ColorScheme.h"
#include "tools/edit/DiskThread.h"
#include "tools/edit/EditBlocks.h"
#include "tools/edit/Outline.h"
#include "tools/edit/RecoveryFile.h"
#include "tools/edit/ScriptFile.h"
#include "tools/edit/UndoStack.h"
#include "tools/lint/Lint.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace edit
{

// Unsaved work has a thread of its own: it shall be safe even while the script's disk makes a save wait. So have cures,
// for which the linter reads the script twice.
struct DiskThreads {
    explicit DiskThreads(const std::function<void()>& wake = {}) : script(wake), recovery(wake), cures(wake)
    {
    }

    DiskThread script, recovery, cures;

    bool Poll() // all of them
    {
        const bool saved = script.Poll(), kept = recovery.Poll(), cured = cures.Poll();
        return saved || kept || cured;
    }
};

// What became of a save.
struct SaveOutcome {
    bool saved = false;
    // DiskChanged and DiskConflict: another program wrote the file, so it was not saved.
    DiskState disk = DiskSame;
    std::string reason; // why it was not saved, in a sentence
};

class Document
{
public:
    // An empty script without a name. The threads are borrowed; null: none.
    explicit Document(DiskThreads* diskThreads = nullptr);
    ~Document(); // does not wait: the recovery file goes when its thread gets to it

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // ---- The text

    const std::string& Text() const { return text; }
    const Outline& GetOutline() const { return outline; }

    // Grows with every change of the text, undo and redo included. Never the same for two texts of one object.
    uint64_t Revision() const { return revision; }

    // ---- The file

    // False: *reason says why in the system's words, and the document is as it was. Undo begins anew.
    bool Open(std::string path, std::string* reason);
    void Open(const ScriptFile& read);               // that was read elsewhere
    std::string Path() const { return file.Path(); } // empty: no name yet
    bool IsModified() const;                         // the text is not that of the file

    // Writes the text that it has now. Into a file beside it, flushed, which then takes its name: the file is either the
    // old or the new one, whatever happens. Owner, mode and links are kept, as ScriptFile::SaveAs says. Saving under the
    // document's own name is refused while another program's text in the file has not been decided about; under another
    // name it replaces what is there.
    typedef std::function<void(const SaveOutcome& outcome)> SaveDone;
    void BeginSave(std::string path, SaveDone done);
    bool IsSaving() const { return saves > 0; }
    bool Save(std::string* reason);
    bool SaveAs(std::string path, std::string* reason);

    // What has become of the file since it was read or saved. Cheap: reads the file only if its times moved. A file
    // that was written anew with the bytes it had, or with those of the text, is the same.
    typedef std::function<void(DiskState state)> LookDone;
    void BeginLook(LookDone done);
    DiskState LookAtDisk();

    // What to do about the text that the last look found in place of the one that was known. False: none can be read;
    // *reason says why.
    bool TakeDisk(std::string* reason = nullptr); // takes it over, as one step of undo
    void KeepMine();                              // the next save overwrites it

    // ---- Undo, without end and across saves

    bool Undo();
    bool Redo();
    bool CanUndo() const { return undo.CanUndo(); }
    bool CanRedo() const { return undo.CanRedo(); }
    std::string UndoName() const
    {
        return undo.UndoName();
    } // "Move", as a menu shows it; empty: there is none
    std::string RedoName() const { return undo.RedoName(); }

    // ---- Recovery

    // The caller gives the time on any clock, in seconds, often. The text is written to the recovery file at most
    // once a second while it has unsaved changes, and never twice at the same time.
    void Tick(double seconds);
    bool WriteRecovery(); // now; true if nothing is unsaved or it is on disk

    // Why the last attempt failed, in the system's words; empty: it did not.
    std::string RecoveryFailure() const { return recoveryFailure; }

    // Work on the script that a process left behind, if it differs from the file. Offer it after Open.
    static bool FindRecovery(const std::string& path, Recovery* found);
    // Takes it over as one step of undo; the found file goes when it is safe.
    bool Recover(const Recovery& found);
    static void DiscardRecovery(const Recovery& found);

    // ---- Edits

    std::string LastRefusal() const { return refusal; }

    // Shifts all items by the same time and, entries only, the same number of layers; both are cut so that nothing
    // goes below 0.
    bool Move(std::vector<ItemId> items, int64_t milliseconds, int64_t layers, uint64_t gesture = 0);

    // Moves the stop (or start) of entries; cut so that each stays 1 ms long and nothing goes below 0. The end of a
    // Steps group is its last message: its distances stretch, to whole milliseconds. Other messages have no length.
    bool Stretch(std::vector<ItemId> items, bool stopEdge, int64_t milliseconds, uint64_t gesture = 0);

    // Moves one item so that it begins there; an entry keeps its length.
    bool SetTime(ItemId item, uint32_t milliseconds, uint64_t gesture = 0);

    // The value as it is meant: a parameter list is written so that the reader, which loses its last character, reads
    // these numbers. Adds the key if it is missing. An empty value removes an optional key. Refuses what the key can't
    // hold: anything but whole numbers for times, say.
    bool SetValue(size_t block, std::string key, std::string value, uint64_t gesture = 0);

    // Copies of the items, shifted as Move does it, which are returned. A time of a list gets a further time in the
    // list; all else becomes a block after the original.
    std::vector<ItemId> Duplicate(std::vector<ItemId> items, int64_t milliseconds, int64_t layers = 0);

    // A block goes with the last of its times. An item with time -1 is a whole block, of any type.
    bool Delete(std::vector<ItemId> items);

    // Blocks as text; of a list only the times that are asked for. Empty: there are no such items.
    std::string Copy(std::vector<ItemId> items) const;

    // Puts entries and messages that Copy, or a person, wrote into the script, shifted so that the earliest begins at
    // that time. Returns them.
    std::vector<ItemId> Paste(std::string blocks, uint32_t atMilliseconds);

    // Each returns the new item; none: refused. An entry goes after the entry that starts before it and that
    // one's messages, a message after the last earlier block of its effect. parameters may be empty.
    std::optional<ItemId> InsertEntry(std::string effect, uint32_t start, uint32_t stop, uint32_t layer);
    std::optional<ItemId> InsertMessage(std::string effect, std::string message, uint32_t time,
                                        std::string parameters);

    // A further time for a [MESSAGE] that is no Steps group, in its list.
    std::optional<ItemId> AddTime(size_t block, uint32_t milliseconds);

    bool TakeApart(size_t block); // writes the times of a Steps group out as a list

    bool SetMusic(std::string fileName); // empty: removes the music
    bool SetColorScheme(const ColorScheme& scheme);

    // True if the finding has a cure that can be applied safely.
    static bool CanCure(const lint::Finding& finding);

    // The finding may be of an older revision: it is looked for in the present text, with the options that it was
    // found with, and refused if it is no longer there. What is edited while a cure is worked out stays: the cure is then
    // worked out anew.
    typedef std::function<void(bool cured)> CureDone; // false: see LastRefusal
    void BeginCure(const lint::Finding& finding, lint::CheckOptions options, CureDone done);
    bool ApplyCure(const lint::Finding& finding, const lint::CheckOptions& options = {});

private:
    // DocumentEdits.cpp, as all edits
    typedef std::function<bool(ScriptEdit*)> Operation;
    bool Change(const std::string& name, uint64_t gesture, const Operation& operation,
                const Additions* additions = nullptr, std::vector<ItemId>* items = nullptr);
    void TakeEdit(const std::string& name, const std::string& before, std::string after, Outline read,
                  uint64_t gesture);
    std::optional<ItemId> Insert(const std::string& name, const Operation& operation, const Additions* added);

    void SetText(std::string newText);
    void SetText(std::string newText, Outline newOutline);

    // The recovery file, which the threads use in turn.
    struct SafePlace {
        std::mutex mutex;
        RecoveryFile file;

        bool Keep(const std::string& path, const std::string& text, std::string* reason); // holding the mutex
    };
    // What a look brings from the disk.
    struct Look {
        DiskState state = DiskSame;
        ScriptFile seen;   // as it is known now
        ScriptFile theirs; // with another program's text taken notice of
        bool readable = false;
        std::string reason;
    };

    static Look LookAt(ScriptFile* disk, const std::string& text);
    DiskState TakeLook(Look look);
    // On one of the threads, or at once if there are none.
    void OnThread(DiskThread DiskThreads::*thread, DiskThread::Work work, DiskThread::Work then = {});
    void KnowFile(const ScriptFile& known);
    void BeginRecovery(const std::optional<Recovery>& replaced = {}); // which goes when the text is safe
    void ClearRecovery(bool givesPlaceBack);

    DiskThreads* threads;
    std::string text;
    Outline outline; // of the text
    uint64_t revision;
    std::string refusal;
    ScriptFile file;                    // as far as it is known here
    std::shared_ptr<ScriptFile> onDisk; // the same, for the script's thread, which is ahead
    uint64_t fileDecisions;    // counts what was decided about the file here: a look from before says nothing
    std::optional<Look> found; // by the last look, in place of what was known
    int saves;                 // that are under way
    UndoStack undo;

    // What a gesture began with.
    std::string gestureText;
    Outline gestureOutline;

    std::shared_ptr<SafePlace> safe;
    std::string recoveryFailure;
    double recoveredAt;         // by Tick's clock
    uint64_t recoveredRevision; // that was given to the recovery file; 0: none
    bool recovers;              // it is being written
};

} // namespace edit
