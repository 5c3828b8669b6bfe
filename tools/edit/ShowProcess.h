// SPDX-License-Identifier: MIT
// One process that plays the show, as the window's process handles it: it is started, told how far to play, asked for
// what it has done, and ended. ShowHost is what runs in it. No call waits, but for the destructor: a thread starts it, since
// on a busy machine it may be long until a new process gets its turn.
//
// Order of calls: Start once; then the others, with Poll once per frame of the window, and that of the thread. IsGone
// tells when the process has ended, for whatever reason.
#pragma once

#include "platform/ChildProcess.h"
#include "tools/edit/DiskThread.h"
#include "tools/edit/ShowChannel.h"
#include "tools/edit/ShowPool.h"

#include <memory>
#include <string>
#include <vector>

namespace edit
{

struct ShowNews {
    ShowReply reply;
    std::string text;            // Box, Ended
    std::vector<uint8_t> pixels; // Frame
};

class ShowProcess
{
public:
    explicit ShowProcess(DiskThread* startingThread); // borrowed; the process ends with it
    ~ShowProcess();                                   // ends the process and waits for its end
    ShowProcess(const ShowProcess&) = delete;
    ShowProcess& operator=(const ShowProcess&) = delete;

    // `limit` is how much memory the process may take, in bytes. False, and a reason, if it can't be started. A program
    // that can't be run shows later, as a process that has ended with status 127.
    bool Start(const std::string& program, const ShowSettings& settings, uint64_t limit,
               const std::string& script, uint64_t revision, std::string* reason);

    // Sets the goal in place of the one before: frames from drawFrom on are drawn, those from showFrom to target come
    // as news. exact: the goal counts as passed if one of them was played without being drawn. Park draws none.
    void Play(int64_t target, int64_t drawFrom, int64_t showFrom, bool exact);
    void Park(int64_t target);

    // Lets the process stay where it is, also while loading, until the next Play or Park.
    void Hold();

    // Asks the process to take a script over. It answers by ScriptTaken or ScriptRefused.
    void SetScript(const std::string& text, uint64_t newRevision);

    // Takes what has come and looks after the process. `seconds` is a clock that only moves forwards.
    void Poll(double seconds, std::vector<ShowNews>* news);

    void Kill();

    pid_t Id() const { return starting ? 0 : child->Id(); }
    bool IsGone() const { return gone; }
    int ExitStatus();
    bool WasKilled() const { return killed; } // by Kill
    bool HasHung() const { return hung; }
    std::string LastWords() const; // the end of its standard error, and why its show ended

    bool IsLoaded() const { return loaded; }
    double LoadProgress() const;
    int64_t Position() const;   // the last frame that it has done, -1 if none: it may be further by now
    int64_t DrawnSince() const; // see SharedState
    int64_t Length() const { return length; }      // of the show, frames; 0 until it has loaded
    uint64_t Revision() const { return revision; } // of the script that it plays
    uint64_t WantedRevision() const { return asked ? askedRevision : revision; } // that it was asked for last
    bool IsHeld() const { return goal.held != 0; }
    int64_t Target() const { return goal.target; }
    uint64_t Goal() const { return goal.goal; }
    bool IsBusy() const { return !gone && (!loaded || asked || (!IsHeld() && Position() < goal.target)); }

    struct Memory {
        uint64_t own = 0;    // bytes that no other process has
        uint64_t shared = 0; // of program, libraries and frames
    };
    Memory MemoryInUse() const;

private:
    bool MakeChannel(const ShowSettings& settings, int* farSocket, int* memory, std::string* reason);
    void NoteStart(bool started);
    void Flush();
    void TakeNews(std::vector<ShowNews>* news);
    void LookAfter(double seconds);
    double ProcessorSeconds() const;
    void SetGoal(int64_t target, int64_t drawFrom, int64_t showFrom, bool exact, bool held);

    DiskThread* starter;
    bool starting;                                 // the thread has the child
    std::shared_ptr<platform::ChildProcess> child; // not to be touched while it starts
    int socket;
    SharedState* shared;
    size_t frameBytes;
    bool gone;
    bool killed;
    bool hung;
    bool loaded;
    int64_t length;
    std::string ending; // what Ended said

    ShowCommand goal;
    bool goalSent;
    uint64_t revision;
    std::string script; // that it is asked to take over
    uint64_t askedRevision;
    bool asked;
    bool scriptSent;

    double hangSeconds;
    uint64_t lastBeat;    // that LookAfter has seen
    double beatProcessor; // processor seconds that the process had used then
    double lastProcessor; // and at the last look
    double growthSeconds; // when there last was a beat, or some use of the processor
    double lookedSeconds; // when LookAfter looked; below 0 before
};

} // namespace edit
