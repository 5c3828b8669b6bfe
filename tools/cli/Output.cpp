// SPDX-License-Identifier: MIT
#include "tools/cli/Output.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace cli
{

namespace fs = std::filesystem;

// Writes and, but for standard output, closes. The cause of a failure is in errno.
static bool WriteText(FILE* file, const std::string& text)
{
    const bool written = fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool flushed = fflush(file) == 0 && written;
    const int cause = errno;
    const bool closed = file == stdout || fclose(file) == 0;
    if (!flushed)
        errno = cause;
    return flushed && closed;
}

static bool WriteInto(const std::string& path, const std::string& text)
{
    FILE* const file = fopen(path.c_str(), "wb");
    return file && WriteText(file, text);
}

// What the file has if it is there, and else what a new one gets.
static mode_t ModeOf(const std::string& path)
{
    struct stat there = {};
    if (stat(path.c_str(), &there) == 0)
        return there.st_mode & 07777;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The path that a link, or a chain of them, leads to; that need not be there.
static std::string TargetOf(const std::string& path)
{
    std::error_code error;
    fs::path target = path;
    for (int links = 0; links < 40 && fs::is_symlink(target, error); links++) {
        const fs::path next = fs::read_symlink(target, error);
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string();
}

// Writes beside the file and puts the new one in its place when it is complete.
static bool ReplaceFile(const std::string& path, const std::string& text)
{
    std::string beside = path + ".XXXXXX";
    const int descriptor = mkstemp(beside.data()); // never a file or a link that is there already
    if (descriptor < 0)
        return WriteInto(path, text); // a file of ours in a folder that is not
    FILE* const file = fdopen(descriptor, "wb");
    const bool written = fchmod(descriptor, ModeOf(path)) == 0 && WriteText(file, text);
    if (written && rename(beside.c_str(), path.c_str()) == 0)
        return true;
    const int cause = errno;
    unlink(beside.c_str());
    errno = cause;
    return false;
}

bool WriteOutput(const std::string& path, const std::string& text, std::string* reason)
{
    std::error_code error;
    const std::string target = TargetOf(path);
    const fs::file_status there = fs::status(target, error);
    signal(SIGXFSZ, SIG_IGN); // a limit of the file's size is an error of write then
    bool written = false;
    if (path == "-")
        written = WriteText(stdout, text);
    else if (there.type() == fs::file_type::none)
        errno = error.value(); // a loop of links, a folder that may not be read
    else if (fs::exists(there) && !fs::is_regular_file(there))
        written = WriteInto(path, text); // a device or a pipe
    else
        written = ReplaceFile(target, text);
    if (!written)
        *reason = strerror(errno);
    return written;
}

} // namespace cli
