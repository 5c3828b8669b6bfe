// SPDX-License-Identifier: MIT
#include "tools/edit/ShowProcess.h"

#include "tools/edit/ShowHost.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace edit
{

static const double lookSeconds = 0.25;  // between two looks at a silent process
static const size_t maxLastWords = 2000; // characters

ShowProcess::ShowProcess(DiskThread* startingThread)
    : starter(startingThread), starting(false), child(std::make_shared<platform::ChildProcess>()), socket(-1),
      shared(nullptr), frameBytes(0), gone(false), killed(false), hung(false), loaded(false), length(0),
      goalSent(true), revision(0), askedRevision(0), asked(false), scriptSent(true), hangSeconds(0),
      lastBeat(0), beatProcessor(0), lastProcessor(0), growthSeconds(0), lookedSeconds(-1)
{
}

ShowProcess::~ShowProcess()
{
    if (starting)
        starter->Finish();
    Kill();
    child->Finish();
    if (socket >= 0)
        close(socket);
    if (shared)
        munmap(shared, FrameSlotsBegin + FrameSlots * frameBytes);
}

static bool Fail(const char* what, std::string* reason)
{
    *reason = std::string(what) + ": " + strerror(errno);
    return false;
}

// Memory that goes to another process by its descriptor. It is sealed against shrinking, since this process would be
// ended by a signal when it reads beyond the end. -1 on failure.
static int MakeMemory(const char* name, size_t size)
{
    const int memory = memfd_create(name, MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (memory < 0)
        return -1;
    if (ftruncate(memory, off_t(size)) == 0 &&
        fcntl(memory, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) == 0)
        return memory;
    const int why = errno;
    close(memory);
    errno = why;
    return -1;
}

static int MakeScriptMemory(const std::string& text)
{
    const int memory = memfd_create("script", MFD_CLOEXEC);
    if (memory >= 0 && platform::WriteAll(memory, text.data(), text.size()))
        return memory;
    const int why = errno;
    if (memory >= 0)
        close(memory);
    errno = why;
    return -1;
}

bool ShowProcess::MakeChannel(const ShowSettings& settings, int* farSocket, int* memory, std::string* reason)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        return Fail("no socket for a process of the show", reason);
    socket = ends[0];
    *farSocket = ends[1];
    frameBytes = FrameBytes(settings.width, settings.height);
    const size_t bytes = SharedBytes(settings.width, settings.height);
    *memory = MakeMemory("frames", bytes);
    if (*memory < 0)
        return Fail("no memory for the frames of the show", reason);
    void* const mapped = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, *memory, 0);
    if (mapped == MAP_FAILED)
        return Fail("no memory for the frames of the show", reason);
    shared = static_cast<SharedState*>(mapped); // all of it is 0
    shared->position = -1;
    shared->drawnSince = INT64_MAX;
    return true;
}

bool ShowProcess::Start(const std::string& program, const ShowSettings& settings, uint64_t limit,
                        const std::string& text, uint64_t firstRevision, std::string* reason)
{
    int farSocket = -1;
    int descriptors[2] = {-1, MakeScriptMemory(text)}; // in the order of ShowCommand::Begin
    bool ready = descriptors[1] >= 0 ? MakeChannel(settings, &farSocket, &descriptors[0], reason)
                                     : Fail("no memory for the script", reason);
    if (ready) {
        ShowCommand begin;
        begin.kind = ShowCommand::Begin;
        begin.width = settings.width;
        begin.height = settings.height;
        begin.rateFrames = settings.rate.frames;
        begin.rateSeconds = settings.rate.seconds;
        begin.memoryLimit = limit;
        begin.revision = revision = firstRevision;
        hangSeconds = settings.hangSeconds;
        ready = SendPacket(socket, &begin, sizeof begin, settings.data, descriptors, 2) ||
                Fail("a process of the show can't be reached", reason);
    }
    for (int descriptor : descriptors)
        if (descriptor >= 0)
            close(descriptor);
    gone = !ready;
    if (!ready) {
        if (farSocket >= 0)
            close(farSocket);
        return false;
    }
    platform::ChildSettings how;
    how.environment = settings.environment;
    how.outputTo = farSocket;
    how.endsWithParent = true;
    starting = true;
    const auto started = std::make_shared<bool>(false);
    starter->Do(
        this,
        [process = child, started, program, how] {
            *started = process->Start({program, ShowHostArgument}, how);
            close(how.outputTo);
        },
        [this, started] { NoteStart(*started); });
    return true;
}

void ShowProcess::NoteStart(bool started)
{
    starting = false;
    if (!started) {
        ending = child->error;
        gone = true;
    } else if (killed) {
        child->Signal(SIGKILL);
    }
}

int ShowProcess::ExitStatus()
{
    static const int cantRun = 127; // as a shell has it
    return starting ? platform::ChildProcess::StillRunning : child->Id() == 0 ? cantRun : child->ExitStatus();
}

void ShowProcess::SetGoal(int64_t target, int64_t drawFrom, int64_t showFrom, bool exact, bool held)
{
    const uint64_t number = goal.goal + 1;
    goal = ShowCommand();
    goal.goal = number;
    goal.target = target;
    goal.drawFrom = drawFrom;
    goal.showFrom = showFrom;
    goal.exact = exact;
    goal.held = held;
    goalSent = false;
    Flush();
}

void ShowProcess::Play(int64_t target, int64_t drawFrom, int64_t showFrom, bool exact)
{
    SetGoal(target, drawFrom, showFrom, exact, false);
}

void ShowProcess::Park(int64_t target)
{
    SetGoal(target, INT64_MAX, INT64_MAX, false, false);
}

void ShowProcess::Hold()
{
    if (!IsHeld())
        SetGoal(goal.target, INT64_MAX, INT64_MAX, false, true);
}

void ShowProcess::SetScript(const std::string& text, uint64_t newRevision)
{
    script = text;
    askedRevision = newRevision;
    asked = true;
    scriptSent = false;
    Flush();
}

// A stopped process takes no packets; what it has not taken is sent once it does. The script goes first, since the
// goal is meant for it.
void ShowProcess::Flush()
{
    if (gone)
        return;
    if (!scriptSent) {
        ShowCommand command;
        command.kind = ShowCommand::Script;
        command.revision = askedRevision;
        const int memory = MakeScriptMemory(script);
        scriptSent = memory >= 0 && SendPacket(socket, &command, sizeof command, "", &memory, 1);
        if (memory >= 0)
            close(memory);
    }
    if (scriptSent && !goalSent)
        goalSent = SendPacket(socket, &goal, sizeof goal);
}

void ShowProcess::TakeNews(std::vector<ShowNews>* news)
{
    for (;;) {
        ShowNews piece;
        const PacketResult result = TakePacket(socket, &piece.reply, sizeof piece.reply, &piece.text);
        if (result == PacketClosed)
            child->Signal(SIGKILL); // if it has not ended already, nobody reaches it any more
        if (result != PacketTaken)
            return;
        const ShowReply& reply = piece.reply;
        switch (reply.kind) {
        case ShowReply::Loaded:
            loaded = true;
            length = reply.frames;
            break;
        case ShowReply::Frame: {
            const uint8_t* const slots = reinterpret_cast<const uint8_t*>(shared) + FrameSlotsBegin;
            const uint8_t* const slot = slots + (reply.slot % FrameSlots) * frameBytes;
            piece.pixels.assign(slot, slot + frameBytes);
            shared->takenSlots++;
            break;
        }
        case ShowReply::ScriptTaken:
            revision = reply.revision;
            length = reply.frames;
            [[fallthrough]];
        case ShowReply::ScriptRefused:
            if (reply.revision == askedRevision)
                asked = false;
            break;
        case ShowReply::Ended:
            ending = piece.text;
            break;
        default:
            break;
        }
        news->push_back(std::move(piece));
    }
}

void ShowProcess::Poll(double seconds, std::vector<ShowNews>* news)
{
    if (gone || starting)
        return;
    // A process that is gone has sent all that it ever will, so ask first and take then.
    const bool running = child->IsRunning();
    TakeNews(news);
    gone = !running;
    if (gone)
        return;
    Flush();
    LookAfter(seconds);
}

// A process that makes no progress has hung if it has used the processor for so long, or if it neither uses nor wants
// it: one that only waits for its turn on a busy machine gets a little now and then.
void ShowProcess::LookAfter(double seconds)
{
    const bool first = lookedSeconds < 0;
    if (!first && seconds < lookedSeconds + lookSeconds)
        return;
    const double processor = ProcessorSeconds();
    const uint64_t beat = shared->beats;
    if (first || beat != lastBeat)
        beatProcessor = processor;
    if (first || beat != lastBeat || processor > lastProcessor)
        growthSeconds = seconds;
    lastBeat = beat;
    lastProcessor = processor;
    lookedSeconds = seconds;
    if (processor - beatProcessor >= hangSeconds || seconds - growthSeconds >= hangSeconds) {
        hung = true;
        child->Signal(SIGKILL);
    }
}

static std::string ReadProcFile(pid_t process, const char* name)
{
    char block[1024];
    const std::string path = "/proc/" + std::to_string(process) + "/" + name;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return "";
    const ssize_t got = read(file, block, sizeof block);
    close(file);
    return std::string(block, size_t(std::max<ssize_t>(got, 0)));
}

double ShowProcess::ProcessorSeconds() const
{
    // The fields after the name, which may have blanks and brackets in it: state is the third of the file, the times
    // in user and system mode are the 14th and 15th.
    const std::string stat = ReadProcFile(Id(), "stat");
    const size_t name = stat.rfind(')');
    unsigned long user = 0;
    unsigned long system = 0;
    if (name == std::string::npos ||
        sscanf(stat.c_str() + name + 1, " %*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %lu %lu", &user,
               &system) != 2)
        return 0;
    return double(user + system) / double(sysconf(_SC_CLK_TCK));
}

ShowProcess::Memory ShowProcess::MemoryInUse() const
{
    unsigned long long size = 0;
    unsigned long long resident = 0;
    unsigned long long inFiles = 0;
    const std::string statm = ReadProcFile(Id(), "statm");
    if (gone || sscanf(statm.c_str(), "%llu %llu %llu", &size, &resident, &inFiles) != 3)
        return {};
    const uint64_t page = uint64_t(sysconf(_SC_PAGESIZE));
    return {(resident - std::min(inFiles, resident)) * page, inFiles * page};
}

void ShowProcess::Kill()
{
    if (gone)
        return;
    killed = true;
    if (!starting)
        child->Signal(SIGKILL);
}

double ShowProcess::LoadProgress() const
{
    return shared ? shared->loading / 1000.0 : 0;
}

int64_t ShowProcess::Position() const
{
    return shared ? shared->position.load() : -1;
}

int64_t ShowProcess::DrawnSince() const
{
    return shared ? shared->drawnSince.load() : INT64_MAX;
}

std::string ShowProcess::LastWords() const
{
    if (!ending.empty())
        return ending;
    std::string words = child->Errors();
    while (!words.empty() && (words.back() == '\n' || words.back() == '\r'))
        words.pop_back();
    return words.size() > maxLastWords ? words.substr(words.size() - maxLastWords) : words;
}

} // namespace edit
