// SPDX-License-Identifier: MIT
#include "tools/capture/OutputFile.h"

#include "tools/capture/Interruption.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace capture
{

static const int maxLinks = 40; // on the way to a file, as the kernel has it
static const int maxPartNames = 1000;
static const int pollMicroseconds = 20000;
static const char* const ownDescriptors = "/proc/self/fd/";

// The path behind all symbolic links, whether a file is there or not. Where it enters /proc the way ends,
// since what lies there are descriptors and no files that could be replaced. "": too many links.
static std::string FollowLinks(fs::path path)
{
    for (int i = 0; i < maxLinks; i++) {
        std::error_code error;
        if (path.string().rfind("/proc/", 0) == 0 || !fs::is_symlink(path, error))
            return path.string();
        const fs::path next = fs::read_symlink(path, error);
        path = next.is_absolute() ? next : path.parent_path() / next;
        if (path.string().rfind("/dev/fd/", 0) == 0) // a link of its own in the middle of the path
            path = ownDescriptors + path.filename().string();
    }
    return "";
}

static std::string TargetOf(const std::string& path)
{
    if (path == "-")
        return ownDescriptors + std::to_string(STDOUT_FILENO);
    if (path.rfind("/dev/fd/", 0) == 0)
        return ownDescriptors + path.substr(strlen("/dev/fd/"));
    return FollowLinks(path);
}

static bool IsStreamTarget(const std::string& target)
{
    struct stat status;
    return target.rfind("/proc/", 0) == 0 ||
           (stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode));
}

bool OutputFile::IsStream(const std::string& path)
{
    return IsStreamTarget(TargetOf(path));
}

static std::mutex listMutex; // for the list, and for what DiscardAll reads of its files
static OutputFile* firstFile = nullptr;

OutputFile::OutputFile() : descriptor(-1), stream(false), unfinished(false)
{
    const std::lock_guard<std::mutex> lock(listMutex);
    next = firstFile;
    firstFile = this;
}

OutputFile::~OutputFile()
{
    Discard();
    const std::lock_guard<std::mutex> lock(listMutex);
    OutputFile** place = &firstFile;
    while (*place != this)
        place = &(*place)->next;
    *place = next;
}

void OutputFile::DiscardAll()
{
    const std::lock_guard<std::mutex> lock(listMutex);
    for (const OutputFile* file = firstFile; file; file = file->next)
        if (file->unfinished)
            unlink(file->partName.c_str());
}

bool OutputFile::Fail(const std::string& path, int cause)
{
    error = path + ": " + strerror(cause);
    Discard();
    return false;
}

bool OutputFile::Open(const std::string& path, PartName name, bool quiet)
{
    target = TargetOf(path);
    if (target.empty())
        return Fail(path, ELOOP);
    stream = IsStreamTarget(target);
    if (stream ? OpenStream(path, quiet) : CreatePart(name))
        return true;
    return Fail(path, errno);
}

bool OutputFile::OpenStream(const std::string& path, bool quiet)
{
    partName = target;
    if (target.rfind(ownDescriptors, 0) == 0) {
        // Not opened anew, which would lose the place in a file and is impossible for a socket.
        partName = "-";
        descriptor = fcntl(atoi(target.c_str() + strlen(ownDescriptors)), F_DUPFD_CLOEXEC, 3);
        return descriptor >= 0;
    }
    // A named pipe that nobody reads can't be opened for writing (ENXIO) unless the call waits for the
    // reader; then an interruption just ahead of the call would be lost.
    bool told = quiet;
    for (;;) {
        descriptor = open(target.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
        if (descriptor >= 0)
            break;
        struct stat status;
        if (errno != ENXIO || stat(target.c_str(), &status) != 0 || !S_ISFIFO(status.st_mode))
            return false;
        if (!told)
            fprintf(stderr, "%s: waiting for a program that reads it\n", path.c_str());
        told = true;
        if (IsInterrupted()) {
            errno = EINTR;
            return false;
        }
        usleep(pollMicroseconds);
    }
    fcntl(descriptor, F_SETFL, O_WRONLY);
    return true;
}

bool OutputFile::CreatePart(PartName name)
{
    mode_t mode = 0666;
    struct stat status;
    const bool replaces = stat(target.c_str(), &status) == 0;
    if (replaces && S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        return false;
    }
    if (replaces && access(target.c_str(), W_OK) != 0)
        return false;
    if (replaces)
        mode = status.st_mode & 0777;

    fs::path stem = target;
    const std::string ending = name == PartKeepsEnding ? stem.extension().string() : "";
    if (name == PartKeepsEnding)
        stem.replace_extension();
    const std::lock_guard<std::mutex> lock(listMutex);
    // O_EXCL: a file that somebody put there before, or a link, is neither used nor followed.
    for (int i = 0; i < maxPartNames; i++) {
        partName =
            stem.string() + ".part-" + std::to_string(getpid()) + (i ? "-" + std::to_string(i) : "") + ending;
        descriptor = open(partName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor >= 0 || errno != EEXIST)
            break;
    }
    unfinished = descriptor >= 0;
    if (unfinished && replaces)
        fchmod(descriptor, mode); // which open has cut by the umask
    return unfinished;
}

void OutputFile::Close()
{
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

bool OutputFile::Keep()
{
    // Some file systems find out only here that they are full.
    const bool closed = descriptor < 0 || close(descriptor) == 0;
    descriptor = -1;
    if (!closed || (unfinished && rename(partName.c_str(), target.c_str()) != 0))
        return Fail(target, errno);
    const std::lock_guard<std::mutex> lock(listMutex);
    unfinished = false;
    return true;
}

void OutputFile::Discard()
{
    Close();
    const std::lock_guard<std::mutex> lock(listMutex);
    if (unfinished)
        unlink(partName.c_str());
    unfinished = false;
}

} // namespace capture
