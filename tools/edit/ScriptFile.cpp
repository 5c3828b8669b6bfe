// SPDX-License-Identifier: MIT
#include "tools/edit/ScriptFile.h"

#include "tools/cli/Input.h"
#include "tools/cli/ReplaceFile.h"
#include "tools/lint/Reading.h"

#include <cerrno>
#include <cstring>
#include <ctime>

#include <sys/stat.h>
#include <unistd.h>

namespace edit
{

// How far apart the times of two changes must lie to be surely told apart: some file systems count in seconds.
static const int64_t coarsestStamp = 2000000000; // nanoseconds

static int64_t Nanoseconds(const timespec& time)
{
    return int64_t(time.tv_sec) * 1000000000 + time.tv_nsec;
}

static int64_t Now()
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return Nanoseconds(now);
}

ScriptFile::ScriptFile() : settled(false), missing(false) {}

ScriptFile::Stamp ScriptFile::StampOf(const std::string& path)
{
    struct stat there = {};
    if (path.empty() || stat(path.c_str(), &there) != 0)
        return {};
    return {uint64_t(there.st_dev),     uint64_t(there.st_ino),     uint64_t(there.st_size),
            Nanoseconds(there.st_mtim), Nanoseconds(there.st_ctim), true};
}

// Only a regular file: reading anything else could wait for ever.
static bool ReadScriptFile(const std::string& path, std::string* text, std::string* reason)
{
    struct stat there = {};
    if (stat(path.c_str(), &there) != 0) {
        *reason = strerror(errno);
        return false;
    }
    if (!S_ISREG(there.st_mode)) {
        *reason = S_ISDIR(there.st_mode) ? strerror(EISDIR) : "Not a regular file";
        return false;
    }
    if (size_t(there.st_size) > lint::Reading::contentLimit ||
        (cli::ReadInput(path, text, reason) && text->size() > lint::Reading::contentLimit)) {
        *reason = "Larger than any script (16 MiB)";
        return false;
    }
    return reason->empty();
}

bool ScriptFile::Open(const std::string& newPath, std::string* reason)
{
    std::string text;
    reason->clear();
    const std::string file = newPath == "-" ? "./-" : newPath; // which would be standard input
    const Stamp before = StampOf(file);
    if (!ReadScriptFile(file, &text, reason))
        return false;
    path = file;
    content = text;
    stamp = before;
    settled = Now() - stamp.changed > coarsestStamp;
    missing = false;
    return true;
}

// Says in a sentence why the file can't be replaced; empty: it can.
static std::string ComplaintAbout(const std::string& target)
{
    struct stat there = {};
    if (stat(target.c_str(), &there) != 0)
        return "";
    if (!S_ISREG(there.st_mode))
        return target + " is not a regular file.";
    // Replacing the file needs no right to write to it, and root has that right whatever the mode says.
    if ((there.st_mode & 0222) == 0 || access(target.c_str(), W_OK) != 0)
        return target + " is read-only.";
    return "";
}

static bool HasSeveralNames(const std::string& target)
{
    struct stat there = {};
    return stat(target.c_str(), &there) == 0 && there.st_nlink > 1;
}

// False: *reason says why in a sentence.
static bool WriteTarget(const std::string& target, const std::string& text, const ScriptFile::Backup& backup,
                        std::string* reason)
{
    bool written = false;
    if (HasSeveralNames(target)) {
        std::string trouble = "there is no place for it";
        if (!backup || !backup(text, &trouble)) {
            *reason = target + " has several names (hard links), and would be written over in its place. " +
                      "That needs a copy of the text elsewhere: " + trouble + ".";
            return false;
        }
        written = cli::OverwriteFile(target, text);
    } else {
        written = cli::ReplaceFile(target, text, cli::Flushed, cli::OwnerIsKept);
    }
    if (!written)
        *reason = target + " can't be written: " + strerror(errno) + ".";
    return written;
}

bool ScriptFile::SaveAs(const std::string& newPath, const std::string& text, const Backup& backup,
                        std::string* reason)
{
    if (newPath.empty()) {
        *reason = "The script has no name yet.";
        return false;
    }
    const std::string target = cli::FollowLinks(newPath);
    *reason = ComplaintAbout(target);
    if (!reason->empty() || !WriteTarget(target, text, backup, reason))
        return false;
    path = newPath;
    content = text;
    stamp = StampOf(path);
    settled = false;
    missing = false;
    return true;
}

DiskState ScriptFile::Look(const std::string& text)
{
    const Stamp now = StampOf(path);
    if (path.empty() || (now == stamp && (settled || !now.exists)))
        return DiskSame;
    std::string there, reason;
    missing = !now.exists || !ReadScriptFile(path, &there, &reason);
    if (missing)
        return DiskGone;
    if (there != content && there != text)
        return text == content ? DiskChanged : DiskConflict;
    content = there;
    stamp = now;
    settled = Now() - stamp.changed > coarsestStamp;
    return DiskSame;
}

bool ScriptFile::Accept(std::string* reason)
{
    const Stamp now = StampOf(path);
    std::string there;
    reason->clear();
    const bool readable = ReadScriptFile(path, &there, reason);
    content = there;
    stamp = now;
    settled = false;
    missing = !readable;
    return readable;
}

} // namespace edit
