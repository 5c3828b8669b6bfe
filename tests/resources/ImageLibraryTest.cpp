// SPDX-License-Identifier: MIT
// Stands in front of six functions of the image library and three of the system: this executable's
// definitions win over the libraries'.
#include "tests/resources/ImageLibrary.h"

#include <IL/il.h>
#include <IL/ilu.h>
#include <dlfcn.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <map>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

static int ilVersion = 0;
static int iluVersion = 0;
static ChildFate childFate = ChildLives;
static std::map<ILenum, ILint> pictureIntegers;
static int readsToFail = 0;
static int waitsToFail = 0;
static int failure = 0;
static int shutdowns = 0;
static thread_local int childStatus = 0; // other threads wait for programs of their own
static FileFunctions fileFunctions = {};

// What the child tells of itself, in memory that it shares with the test.
struct ChildNotes {
    pid_t process;
    unsigned alarmSeconds;
    bool outlivedAlarm;
    unsigned long memoryRoom;
    unsigned long coreLimit;
};

static ChildNotes* SharedNotes()
{
    static void* const page =
        mmap(nullptr, sizeof(ChildNotes), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return static_cast<ChildNotes*>(page);
}

void SetImageLibraryVersions(int il, int ilu)
{
    ilVersion = il;
    iluVersion = ilu;
}

void SetPictureInteger(ILenum what, ILint value)
{
    pictureIntegers[what] = value;
}

void ForgetPictureIntegers()
{
    pictureIntegers.clear();
}

void FailSystemCalls(int count, int error)
{
    readsToFail = count;
    waitsToFail = count;
    failure = error;
}

static bool Fails(int* left)
{
    if (*left == 0)
        return false;
    --*left;
    errno = failure;
    return true;
}

void SetChildFate(ChildFate fate)
{
    SharedNotes(); // made before there is a child
    childFate = fate;
}

pid_t LastForeignDecoder()
{
    return SharedNotes()->process;
}

int LastChildStatus()
{
    return childStatus;
}

unsigned LastAlarm()
{
    return SharedNotes()->alarmSeconds;
}

bool OutlivedAlarm()
{
    return SharedNotes()->outlivedAlarm;
}

unsigned long LastMemoryRoom()
{
    return SharedNotes()->memoryRoom;
}

unsigned long LastCoreLimit()
{
    return SharedNotes()->coreLimit;
}

static void NoteLimits()
{
    unsigned long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    rlimit limit;
    getrlimit(RLIMIT_AS, &limit);
    SharedNotes()->memoryRoom = limit.rlim_cur - pages * static_cast<unsigned long>(sysconf(_SC_PAGESIZE));
    getrlimit(RLIMIT_CORE, &limit);
    SharedNotes()->coreLimit = limit.rlim_cur;
}

const FileFunctions& LibraryFileFunctions()
{
    return fileFunctions;
}

int LibraryShutdowns()
{
    return shutdowns;
}

typedef ILint (*GetInteger)(ILenum);

extern "C" {

ILint ilGetInteger(ILenum mode)
{
    static const GetInteger real = reinterpret_cast<GetInteger>(dlsym(RTLD_NEXT, "ilGetInteger"));
    const auto pretended = pictureIntegers.find(mode);
    if (pretended != pictureIntegers.end())
        return pretended->second;
    return mode == 0xDE2 && ilVersion ? ilVersion : real(mode);
}

ILint iluGetInteger(ILenum mode)
{
    static const GetInteger real = reinterpret_cast<GetInteger>(dlsym(RTLD_NEXT, "iluGetInteger"));
    return mode == 0xDE2 && iluVersion ? iluVersion : real(mode);
}

void ilSetRead(fOpenRProc open, fCloseRProc close, fEofProc isAtEnd, fGetcProc getByte, fReadProc read,
               fSeekRProc seek, fTellRProc tell)
{
    typedef void (*Function)(fOpenRProc, fCloseRProc, fEofProc, fGetcProc, fReadProc, fSeekRProc, fTellRProc);
    static const Function real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ilSetRead"));
    fileFunctions = {open, close, isAtEnd, getByte, read, seek, tell};
    real(open, close, isAtEnd, getByte, read, seek, tell);
}

void ilShutDown()
{
    typedef void (*Function)();
    static const Function real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ilShutDown"));
    ++shutdowns;
    real();
}

ssize_t read(int file, void* to, size_t size)
{
    return Fails(&readsToFail) ? -1 : syscall(SYS_read, file, to, size);
}

pid_t waitpid(pid_t child, int* status, int options)
{
    if (Fails(&waitsToFail))
        return -1;
    const pid_t ended = pid_t(syscall(SYS_wait4, child, &childStatus, options, nullptr));
    if (status)
        *status = childStatus;
    return ended;
}

unsigned alarm(unsigned seconds) noexcept
{
    SharedNotes()->alarmSeconds = seconds;
    return unsigned(syscall(SYS_alarm, seconds));
}

ILboolean ilLoad(ILenum type, ILconst_string path)
{
    typedef ILboolean (*Function)(ILenum, ILconst_string);
    static const Function real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ilLoad"));
    if (childFate == ChildCrashesAsItDecodes)
        raise(SIGKILL);
    return real(type, path);
}

ILenum ilDetermineType(ILconst_string path)
{
    typedef ILenum (*Function)(ILconst_string);
    static const Function real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ilDetermineType"));
    SharedNotes()->process = getpid();
    NoteLimits();
    switch (childFate) {
    case ChildLives:
    case ChildCrashesAsItDecodes:
        break;
    case ChildCrashes:
        raise(SIGKILL);
        break;
    case ChildExits:
        _exit(0);
    case ChildHangs:
        if (SharedNotes()->alarmSeconds > 0)
            raise(SIGALRM);
        SharedNotes()->outlivedAlarm = true;
        _exit(0);
    }
    return real(path);
}

} // extern "C"

TEST(ImageLibrary, TheOneThatIsLinkedIsRecentEnough)
{
    EXPECT_GE(ilGetInteger(IL_VERSION_NUM), 167);
    EXPECT_GE(iluGetInteger(ILU_VERSION_NUM), 167);
}
