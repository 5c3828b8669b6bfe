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
public:
    ShowCrew();
    ~ShowCrew(); // ends all processes and waits for their ends

    // As ShowPool::Start. No process is started yet.
    void Begin(const ShowSettings& newSettings, const std::string& newProgram);

    // What processes that start from now on play. Those that are there keep what they have until they are asked.
    void SetScript(const std::string& text, uint64_t newRevision);

    void EndAll();  // in silence
    void Forgive(); // forgets what went wrong: script or data have changed

    typedef std::function<void(ShowProcess*, ShowNews&)> NewsTaker;
    typedef std::function<void(ShowProcess*)> LossTaker;

    // Takes the news of all processes. A process that is gone is handed to `lose`, and is deleted then.
    void Poll(double seconds, const NewsTaker& take, const LossTaker& lose);

    // A new process, or null: it is too early after a failure, or nothing can be started. If there is no room, another
    // one than `keep` goes for it.
    ShowProcess* Start(double seconds, const ShowProcess* keep);

    // Ends a process in silence. It is not in `processes` any more.
    void End(ShowProcess* process);

    // Asks for the current script, unless the process has it or was asked for it already.
    void Update(ShowProcess* process);

    // One step of what the others than `live` have to do. Call it while nothing is wanted.
    void WorkInBackground(double seconds, const ShowProcess* live, int64_t wanted);
    void HoldOthers(const ShowProcess* live);

    // True if a frame can't be had: *reason says why.
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
    void GiveWay(const ShowProcess* keep);
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
