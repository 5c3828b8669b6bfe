// SPDX-License-Identifier: MIT
// A script that is being worked on, and all that runs with it: the show's processes, the music, the watch on its files,
// the linter. No window.
//
// Order of calls: Start once, then Open or New, then Tick once per frame of the window. Main thread only. No call waits
// for a disk but Open and FinishDisks: what is begun is told in a Tick.
#pragma once

#include "tools/edit/Analysis.h"
#include "tools/edit/DataWatch.h"
#include "tools/edit/Document.h"
#include "tools/edit/EditorState.h"
#include "tools/edit/MusicTransport.h"
#include "tools/edit/Options.h"
#include "tools/edit/ShowPool.h"
#include "tools/edit/Transport.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace edit
{

// A line about what happened to the show's processes, beside the linter's findings.
struct ShowRemark {
    ShowEvent::Kind kind;
    std::string text;
    double seconds; // of the show; below 0: while it was loading
    int count;      // how often it was said one after another
};

class Session
{
public:
    // `wake` may be called from other threads when a Tick has something to do.
    Session(const Options& options, std::function<void()> wake);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // `program` is the path of this program. False: *reason says why no show can be played.
    bool Start(const std::string& program, std::string* reason);

    // False: the script can't be read, and the one before stays; *reason says why.
    bool Open(const std::string& path, std::string* reason);
    void New();

    // Opens without waiting. If the script is edited meanwhile it stays open, and the other is not opened.
    struct Opening {
        bool opened = false;
        bool editedMeanwhile = false; // and so not opened
        std::string reason;           // why it can't be read
        std::optional<Recovery> lost; // unsaved work on it
    };
    void BeginOpen(const std::string& path, std::function<void(const Opening& opening)> done);

    // Saves as Document::BeginSave does, and watches the file of a new name from then on. `done` may be told that the
    // file was written by another program: its text has then been taken over, or HasConflict is true.
    void BeginSave(const std::string& path, Document::SaveDone done);

    // Applies a finding's cure to the script, one at a time. A refusal becomes a notice.
    void BeginCure(const lint::Finding& finding);
    bool IsCuring() const { return cures; }

    // Throws away unsaved work that a process left behind.
    void Discard(const Recovery& recovery);

    // For further work on files, which is done in order with that of the session.
    DiskThread& Disk() { return disks.script; }
    void FinishDisks(); // waits

    // `seconds` is a clock that only moves forwards. True if there is something new to draw.
    bool Tick(double seconds);
    // The window got the keyboard: somebody may have been elsewhere and written files.
    void LookAtDisk();

    // Does what the panels asked for.
    void DoRequests(bool mouseIsDown);

    // Gives the newest frame. False: it was given already, or there is none.
    bool TakeFrame(ShownFrame* frame);

    // True if the file and the text have both been changed: one of the two is to be chosen.
    bool HasConflict() const { return conflict; }
    void TakeTheirs();
    void KeepMine();

    // "Data/script.txt", "(no name)".
    std::string Name() const;
    double End() const; // of the show, seconds

    // The name of a file of the script as it is remembered: absolute. Empty: it has none yet.
    std::string AbsolutePath() const;

    ShowPool::Status ShowStatus() const { return pool.GetStatus(); }
    const std::vector<ShowRemark>& Remarks() const { return remarks; }
    // True if a frame is on its way, so that Tick should be called soon again.
    bool IsWaiting();

    Document& GetDocument() { return *document; }

    EditorState state;
    MusicTransport music;
    Transport transport;

private:
    void Begin();
    void TakeLook(DiskState state);
    void Watch();
    void TakeEdits();
    void TakeChanges(double seconds);
    void TakeEvents();
    void AskForFrame();
    void SetMusic();

    Options options;
    DiskThreads disks;
    std::unique_ptr<Document> document; // never null
    lint::CheckOptions lintOptions;
    ShowPool pool;
    DataWatch watch;
    Analysis analysis;
    std::vector<ShowRemark> remarks;
    uint64_t sentRevision;
    bool sentAny;
    std::string musicFile;
    bool started = false; // there is a window
    int64_t wantedFrame;  // -1: ask again
    int64_t frameCame;    // the last one that was finished
    bool wasPlaying;
    bool conflict;
    bool looks;     // at the script's file
    bool looksOnce; // more, when that is done
    bool watches;   // the system tells what changes
    double lookedAt;
    bool poolRuns;
    bool cures;                  // a cure is being worked out
    std::string recoveryFailure; // that the user has been told
};

} // namespace edit
