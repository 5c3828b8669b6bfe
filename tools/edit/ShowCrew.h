// SPDX-License-Identifier: MIT
// The processes that play the show for a ShowPool: starts them, counts their memory, sees to their places while
// nothing is wanted, and takes note of what goes wrong. A process that fails is replaced after a wait that doubles
// each time; where two have failed in the same frame of the same script, no further one is sent there.
#pragma once

#include "tools/edit/ShowProcess.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace edit
{

class ShowCrew
{
    DiskThread starter; // of the processes, which end with it: the last to go

public:
    ShowCrew();
    ~ShowCrew(); // ends all processes and waits for their ends

    // As ShowPool::Start. No process is started yet.
    void Begin(const ShowSettings& newSettings, const std::string& newProgram);

    // Sets the script for processes that start from now on. Those that run keep theirs until Update.
    void SetScript(const std::string& text, uint64_t newRevision);

    void EndAll();         // without events
    void ForgetFailures(); // script or data have changed

    typedef std::function<void(ShowProcess*, ShowNews&)> NewsTaker;
    typedef std::function<void(ShowProcess*)> LossTaker;

    // Takes the news of all processes. A process that is gone is handed to `lose`, and is deleted then.
    void Poll(double seconds, const NewsTaker& take, const LossTaker& lose);

    // Starts a process. Null: it is too early after a failure, or none can be started. If there is no room, a process
    // other than `keep` is ended for it.
    ShowProcess* Start(double seconds, const ShowProcess* keep);

    // Ends a process without an event and takes it out of `processes`.
    void End(ShowProcess* process);

    // Asks the process to take the current script over, unless it has it or was asked already.
    void Update(ShowProcess* process);

    // Does one step of moving all processes but `live` to their places. Call it while nothing is wanted.
    void WorkInBackground(double seconds, const ShowProcess* live, int64_t wanted);
    void HoldOthers(const ShowProcess* live);

    // True if a frame can't be made: *reason says why.
    bool IsBarred(int64_t frame, std::string* reason) const;

    uint64_t Memory() const { return memory; }
    bool HasRoom() const; // for one more process

    std::vector<std::unique_ptr<ShowProcess>> processes;
    std::vector<ShowEvent> events;
    int64_t length;   // of the show, frames; -1 while it isn't known
    int64_t hotPlace; // where one more process shall wait; -1 for none

private:
    struct Failure {
        int64_t frame; // -1: while loading
        std::string text;
    };

    void NoteNews(const ShowProcess& process, const ShowNews& news);
    void NoteLoss(ShowProcess* process, double seconds);
    void CountMemory(double seconds);
    uint64_t ExpectedMemory() const;
    void MakeRoom(const ShowProcess* keep);
    int Capacity() const;
    std::vector<int64_t> Places() const;

    ShowSettings settings;
    std::string program;
    std::string script;
    uint64_t revision;
    std::vector<std::unique_ptr<ShowProcess>> dying;

    uint64_t memory;     // bytes of all
    uint64_t largest;    // that one process has of its own
    uint64_t sharedPart; // of program and libraries, which all have together
    double countedSeconds;

    int failures; // in a row
    double retrySeconds;
    bool restarting; // the next one that starts takes the place of one that failed
    std::vector<Failure> faults;
    int64_t barrier; // no process gets beyond it; INT64_MAX for none
    std::string barrierText;
    std::vector<std::string> toldBoxes;
};

} // namespace edit
