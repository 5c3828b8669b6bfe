// SPDX-License-Identifier: MIT
#include "tools/edit/ShowHost.h"

#include "kernel/DemoPlayer.h"
#include "kernel/FrameTimer.h"
#include "kernel/LoadingScreen.h"
#include "platform/Paths.h"
#include "platform/Threads.h"
#include "tools/capture/SteppedShow.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/edit/ProcessLimits.h"
#include "tools/edit/ScriptExchange.h"
#include "tools/edit/ShowChannel.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace edit
{

const char* const ShowHostArgument = "--show-host";

static const int exitEnded = 3;          // the show ended itself
static const int waitMilliseconds = 500; // between two signs of life of a process that has nothing to do
static const int slotMilliseconds = 2;   // between two looks for a free slot

bool IsShowHost(int argumentCount, const char* const* arguments)
{
    return argumentCount == 2 && strcmp(arguments[1], ShowHostArgument) == 0;
}

// A script that is held in memory and goes from process to process by its descriptor.
static std::string ReadScriptFile(int descriptor)
{
    std::string text;
    char block[65536];
    ssize_t got;
    while ((got = pread(descriptor, block, sizeof block, off_t(text.size()))) > 0)
        text.append(block, size_t(got));
    close(descriptor);
    return text;
}

[[noreturn]] static void EndWithoutMemory()
{
    _exit(ShowHostOutOfMemory);
}

class ShowHost : private capture::FrameListener
{
public:
    explicit ShowHost(int controlSocket);
    [[noreturn]] void Run();

private:
    void LoadingStep() override;
    void Loaded() override;
    void FrameDone(int64_t number) override;

    bool Begin();
    bool MapFrames(int descriptor);
    void TakeCommands();
    void Wait(int milliseconds);
    void WaitForWork();
    bool IsPassed() const;
    void PrepareNext();
    void HandFrame(int64_t number);
    void TakeScript();
    bool Exchange(int64_t* length, int64_t* difference);
    std::unique_ptr<DemoPlayer> LoadLists(const std::string& text);
    int64_t LengthOf(const DemoPlayer& player) const;
    void TellBoxes(uint64_t scriptRevision);
    void Send(const ShowReply& reply, const std::string& text = "");
    [[noreturn]] void EndShow(const std::string& reason);

    int socket;
    ShowCommand settings;
    SharedState* shared;
    unsigned char* slots;
    uint32_t sentSlots;

    capture::SteppedShow show;
    capture::FrameRate rate;
    int64_t length;     // of the show, frames
    size_t toldWords;   // of show.error
    std::string script; // that is played
    uint64_t revision;
    std::string newScript; // to be taken over
    uint64_t newRevision;
    bool scriptPending;
    int64_t messageLead;      // see ScriptExchange::Apply
    std::vector<float> times; // FrameTimer::GetTime of each frame so far, and of the next

    ShowCommand goal;
    uint64_t lookedAtGoal; // its number, once it is known whether it can be reached
    int64_t position;
    // The first of the frames drawn in a row up to the latest one; INT64_MAX if that is not drawn.
    int64_t drawnSince;
    double frameStart; // when the latest frame began, cli::MonotonicSeconds
    double runStart;   // the same of drawnSince
};

ShowHost::ShowHost(int controlSocket)
    : socket(controlSocket), shared(nullptr), slots(nullptr), sentSlots(0), length(0), toldWords(0),
      revision(0), newRevision(0), scriptPending(false), messageLead(0), lookedAtGoal(0), position(-1),
      drawnSince(INT64_MAX), frameStart(0), runStart(0)
{
}

bool ShowHost::Begin()
{
    int descriptors[2];
    std::string data;
    pollfd readable = {socket, POLLIN, 0};
    poll(&readable, 1, -1);
    if (TakePacket(socket, &settings, sizeof settings, &data, descriptors) != PacketTaken ||
        settings.kind != ShowCommand::Begin || !MapFrames(descriptors[0]))
        return false;
    script = ReadScriptFile(descriptors[1]);
    revision = settings.revision;
    rate.frames = settings.rateFrames;
    rate.seconds = settings.rateSeconds;
    platform::SetDataDirectory(data);
    return true;
}

bool ShowHost::MapFrames(int descriptor)
{
    void* const memory = mmap(nullptr, SharedBytes(settings.width, settings.height), PROT_READ | PROT_WRITE,
                              MAP_SHARED, descriptor, 0);
    close(descriptor);
    if (memory == MAP_FAILED)
        return false;
    shared = static_cast<SharedState*>(memory);
    slots = static_cast<unsigned char*>(memory) + FrameSlotsBegin;
    return true;
}

void ShowHost::Run()
{
    if (!Begin())
        _exit(exitEnded);
    LimitProcess(settings.memoryLimit);
    shared->beats++;
    show.Load(script);
    length = LengthOf(*show.Player()); // Play sets the end to never
    TellBoxes(revision);
    if (!show.Open(settings.width, settings.height))
        EndShow(show.error);
    show.Play(rate, *this);
    TellBoxes(revision);
    EndShow(show.error.empty() ? "the show ended by itself" : show.error);
}

void ShowHost::EndShow(const std::string& reason)
{
    ShowReply reply;
    reply.kind = ShowReply::Ended;
    reply.frame = position;
    Send(reply, reason);
    _exit(exitEnded);
}

void ShowHost::LoadingStep()
{
    shared->beats++;
    TellBoxes(revision);
    shared->loading = uint32_t(std::clamp(show.Player()->loadingScreen->GetProgress(), 0.0f, 1.0f) * 1000);
    TakeCommands();
    while (goal.held)
        Wait(waitMilliseconds);
}

void ShowHost::Loaded()
{
    TellBoxes(revision);
    shared->loading = 1000;
    times.push_back(0); // where FrameTimer begins
    ShowReply reply;
    reply.kind = ShowReply::Loaded;
    reply.frames = length;
    reply.revision = revision;
    Send(reply);
    WaitForWork();
    PrepareNext();
}

void ShowHost::FrameDone(int64_t number)
{
    times.push_back(FrameTimer::GetTime()); // which has moved on to the next frame
    position = number;
    shared->position = number;
    shared->drawnSince = drawnSince;
    shared->beats++;
    TellBoxes(revision);
    if (drawnSince <= number && number >= goal.showFrom && number <= goal.target)
        HandFrame(number);
    WaitForWork();
    PrepareNext();
}

void ShowHost::PrepareNext()
{
    const bool draws = position + 1 >= goal.drawFrom;
    if (!draws)
        drawnSince = INT64_MAX;
    else if (drawnSince == INT64_MAX)
        drawnSince = position + 1;
    show.DrawNext(draws);
    frameStart = cli::MonotonicSeconds();
    if (drawnSince == position + 1)
        runStart = frameStart;
}

void ShowHost::HandFrame(int64_t number)
{
    const double waitStart = cli::MonotonicSeconds();
    while (sentSlots - shared->takenSlots >= FrameSlots)
        Wait(slotMilliseconds);
    const double waited = cli::MonotonicSeconds() - waitStart;
    ShowReply reply;
    reply.kind = ShowReply::Frame;
    reply.frame = number;
    reply.revision = revision;
    reply.goal = goal.goal;
    reply.slot = sentSlots % FrameSlots;
    reply.exact = drawnSince <= std::max<int64_t>(number - capture::WarmUpFrames, 0);
    show.ReadPixels(slots + reply.slot * FrameBytes(settings.width, settings.height));
    const double now = cli::MonotonicSeconds();
    reply.seconds = now - frameStart - waited;
    const bool hasWarmedUp = number > 0 && number - drawnSince <= capture::WarmUpFrames;
    reply.warmSeconds = hasWarmedUp ? now - runStart - waited : reply.seconds;
    sentSlots++;
    Send(reply);
}

void ShowHost::Wait(int milliseconds)
{
    pollfd readable = {socket, POLLIN, 0};
    poll(&readable, 1, milliseconds);
    shared->beats++;
    TakeCommands();
}

void ShowHost::TakeCommands()
{
    ShowCommand command;
    std::string text;
    int descriptors[2];
    for (;;) {
        const PacketResult result = TakePacket(socket, &command, sizeof command, &text, descriptors);
        if (result == PacketClosed)
            _exit(0);
        if (result == PacketNone)
            return;
        if (command.kind == ShowCommand::Play) {
            goal = command;
        } else if (command.kind == ShowCommand::Script) {
            newScript = ReadScriptFile(descriptors[0]);
            newRevision = command.revision;
            scriptPending = true;
        }
    }
}

// Returns when there is a further frame to play.
void ShowHost::WaitForWork()
{
    TakeCommands();
    for (;;) {
        if (scriptPending)
            TakeScript();
        if (goal.goal != lookedAtGoal) {
            lookedAtGoal = goal.goal;
            if (IsPassed()) {
                goal.target = position;
                ShowReply reply;
                reply.kind = ShowReply::Passed;
                reply.frame = position;
                reply.goal = goal.goal;
                Send(reply);
            }
        }
        if (!goal.held && goal.target > position)
            return;
        Wait(waitMilliseconds);
    }
}

bool ShowHost::IsPassed() const
{
    return goal.showFrom <= goal.target &&
           (goal.target <= position ||
            (goal.exact && goal.drawFrom <= position && goal.drawFrom < drawnSince));
}

void ShowHost::TakeScript()
{
    scriptPending = false;
    ShowReply reply;
    reply.revision = newRevision;
    reply.oldRevision = revision;
    reply.kind = Exchange(&reply.frames, &reply.frame) ? ShowReply::ScriptTaken : ShowReply::ScriptRefused;
    TellBoxes(newRevision);
    if (reply.kind == ShowReply::ScriptTaken) {
        length = reply.frames;
        script = newScript;
        revision = newRevision;
    }
    Send(reply);
}

// True if the show plays the new script from here on. *difference is the first frame that may differ, -1 if
// the colours or the effects to be loaded differ.
bool ShowHost::Exchange(int64_t* newLength, int64_t* difference)
{
    std::unique_ptr<DemoPlayer> before = LoadLists(script);
    show.CollectBoxText(); // which were told when this script was taken
    show.error.resize(toldWords);
    std::unique_ptr<DemoPlayer> after = LoadLists(newScript);
    *newLength = LengthOf(*after);
    *difference = -1;
    ScriptExchange exchange(std::move(before), std::move(after));
    if (!exchange.LoadsAlike())
        return false;
    const std::vector<float> played(times.begin(), times.end() - 1);
    const int64_t same = exchange.FirstDifference(played);
    if (same == int64_t(played.size()) && exchange.Apply(show.Player(), &messageLead)) {
        *difference = position + 1;
        return true;
    }
    *difference = same < int64_t(played.size()) ? same : -1;
    return false;
}

std::unique_ptr<DemoPlayer> ShowHost::LoadLists(const std::string& text)
{
    std::unique_ptr<DemoPlayer> player = std::make_unique<DemoPlayer>();
    player->Init(show.Window(), show.Registry(), nullptr, false);
    capture::SteppedShow::ReadScript(text, player.get());
    return player;
}

int64_t ShowHost::LengthOf(const DemoPlayer& player) const
{
    return rate.FramesBefore(std::llround(double(player.endTime) * 1000) * 1000);
}

void ShowHost::TellBoxes(uint64_t scriptRevision)
{
    if (!show.CollectBoxText())
        return;
    ShowReply reply;
    reply.kind = ShowReply::Box;
    reply.frame = position;
    reply.revision = scriptRevision;
    Send(reply, show.error.substr(toldWords > 0 ? toldWords + 1 : 0)); // without the line end
    toldWords = show.error.size();
}

void ShowHost::Send(const ShowReply& reply, const std::string& text)
{
    while (!SendPacket(socket, &reply, sizeof reply, text)) {
        if (errno != EAGAIN)
            _exit(0);
        pollfd writable = {socket, POLLOUT, 0};
        poll(&writable, 1, waitMilliseconds);
        shared->beats++;
    }
}

void RunShowHost()
{
    platform::GiveWay(); // to the window's process, which shall answer at once
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    signal(SIGPIPE, SIG_IGN);
    // What effects and libraries print must not get into the socket.
    const int socket = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    std::set_new_handler(EndWithoutMemory);
    ShowHost host(socket);
    host.Run();
}

} // namespace edit
