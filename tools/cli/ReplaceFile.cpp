// SPDX-License-Identifier: MIT
#include "tools/cli/ReplaceFile.h"

#include "platform/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace cli
{

namespace fs = std::filesystem;

static const int maxLinks = 40;   // on the way to a file, as the kernel has it
static const int maxNames = 1000; // that are tried for the file beside

std::string FollowLinks(const std::string& path)
{
    std::error_code error;
    fs::path target = path;
    for (int links = 0; links < maxLinks && fs::is_symlink(target, error); links++) {
        const fs::path next = fs::read_symlink(target, error);
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string();
}

static std::string FolderOf(const std::string& path)
{
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// What a file gets that was not there before.
static mode_t NewMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// Access control lists are among the attributes. The system lets a process set some of them only if it has the right
// to, and a file system may know none: then the file goes without, as it would under any other program.
static void CopyAttributes(const std::string& from, int file)
{
    std::vector<char> names(size_t(64) << 10); // as many as the kernel lists at most
    const ssize_t length = listxattr(from.c_str(), names.data(), names.size());
    std::vector<char> value(names.size()); // and as long as a value can be
    for (ssize_t place = 0; place < length;) {
        const char* const name = names.data() + place;
        const ssize_t size = getxattr(from.c_str(), name, value.data(), value.size());
        if (size >= 0)
            fsetxattr(file, name, value.data(), size_t(size), 0);
        place += ssize_t(strlen(name)) + 1;
    }
}

// The owner comes first: a change of it can take bits of the mode away.
static bool TakeAfter(const std::string& path, int file, const struct stat& old, Ownership ownership)
{
    struct stat here = {};
    if (ownership == OwnerIsKept && fstat(file, &here) == 0 &&
        (here.st_uid != old.st_uid || here.st_gid != old.st_gid) && fchown(file, old.st_uid, old.st_gid) != 0)
        return false;
    if (fchmod(file, old.st_mode & 07777) != 0)
        return false;
    CopyAttributes(path,
                   file); // an access control list says what the mode's bits of the group mean: behind it
    return true;
}

// A name of the folder that nothing has yet.
static std::string NameBeside(const std::string& folder, int number)
{
    return folder + "/.marlinex-" + std::to_string(getpid()) + "-" + std::to_string(number);
}

// A file without a name if the file system has such, so that nothing is left behind if the process dies; else one
// with a name of its own.
static int CreateBeside(const std::string& folder, std::string* name)
{
    name->clear();
    const int nameless = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (nameless >= 0)
        return nameless;
    for (int i = 0; i < maxNames; i++) {
        *name = NameBeside(folder, i);
        const int file = open(name->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

static bool GiveName(int file, const std::string& folder, std::string* name)
{
    if (!name->empty())
        return true;
    const std::string nameless = "/proc/self/fd/" + std::to_string(file);
    for (int i = 0; i < maxNames; i++) {
        const std::string wished = NameBeside(folder, i);
        if (linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, wished.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            *name = wished;
            return true;
        }
        if (errno != EEXIST)
            return false;
    }
    return false;
}

// A name is on the disk when its folder is. Not every file system can flush one, which is no fault of the file.
static void FlushFolder(const std::string& folder)
{
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

bool ReplaceFile(const std::string& path, const std::string& text, Durability durability, Ownership ownership)
{
    signal(SIGXFSZ, SIG_IGN); // a limit of the file's size is an error of write then
    const std::string folder = FolderOf(path);
    struct stat old = {};
    const bool replaces = stat(path.c_str(), &old) == 0;
    std::string beside;
    const int file = CreateBeside(folder, &beside);
    if (file < 0)
        return false;
    bool done = platform::WriteAll(file, text.data(), text.size()) &&
                (replaces ? TakeAfter(path, file, old, ownership) : fchmod(file, NewMode()) == 0) &&
                (durability == Buffered || fsync(file) == 0) && GiveName(file, folder, &beside);
    int cause = errno;
    if (close(file) != 0 && done) { // some file systems find out only here that they are full
        done = false;
        cause = errno;
    }
    if (done && rename(beside.c_str(), path.c_str()) != 0) {
        done = false;
        cause = errno;
    }
    if (!done && !beside.empty())
        unlink(beside.c_str());
    if (done && durability == Flushed)
        FlushFolder(folder);
    errno = cause;
    return done;
}

bool OverwriteFile(const std::string& path, const std::string& text)
{
    signal(SIGXFSZ, SIG_IGN);
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    int cause = text.empty() ? 0 : posix_fallocate(file, 0, off_t(text.size()));
    if (cause == 0 && !(platform::WriteAll(file, text.data(), text.size()) &&
                        ftruncate(file, off_t(text.size())) == 0 && fsync(file) == 0))
        cause = errno;
    if (close(file) != 0 && cause == 0)
        cause = errno;
    errno = cause;
    return cause == 0;
}

} // namespace cli
