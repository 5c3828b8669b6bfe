// SPDX-License-Identifier: MIT
// Each place is two files: NAME.N.lock, which its process holds a lock on for as long as it lives, and NAME.N.script,
// the text. The kernel gives the lock back however the process ends.
#include "tools/edit/RecoveryFile.h"

#include "tools/cli/Input.h"
#include "tools/cli/ReplaceFile.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace edit
{

namespace fs = std::filesystem;

static const int maxPlaces = 64; // for one script: as many documents, and crashes that nobody came back to
static const size_t maxNameLength = 60; // of the script, in the name of the file
static const char* const scriptEnding = ".script";
static const char* const lockEnding = ".lock";
static const char* const mark = "marlinex-recovery 1\n";

RecoveryFile::RecoveryFile() : lock(-1) {}

RecoveryFile::~RecoveryFile()
{
    Remove();
}

std::string RecoveryFile::Folder()
{
    const char* const state = getenv("XDG_STATE_HOME");
    if (state && state[0] == '/')
        return std::string(state) + "/marlinex";
    const char* const home = getenv("HOME");
    return std::string(home ? home : "") + "/.local/state/marlinex";
}

// ---- Names

// What the path means, whichever way it is written; "" for a script without a name.
static std::string WholePath(const std::string& path)
{
    std::error_code error;
    const fs::path whole = path.empty() ? fs::path() : fs::weakly_canonical(path, error);
    return error ? path : whole.string();
}

// The hash FNV-1a with 64 bits.
static uint64_t HashOf(const std::string& bytes)
{
    uint64_t hash = 14695981039346656037u;
    for (const char c : bytes)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    return hash;
}

static std::string PlaceName(const std::string& wholePath, int number)
{
    std::string name = wholePath.empty() ? "unnamed" : fs::path(wholePath).filename().string();
    name.resize(std::min(name.size(), maxNameLength));
    for (char& c : name)
        if (!isalnum(static_cast<unsigned char>(c)) && c != '.' && c != '-')
            c = '_';
    char rest[64];
    snprintf(rest, sizeof rest, "-%016llx.%d", static_cast<unsigned long long>(HashOf(wholePath)), number);
    return RecoveryFile::Folder() + "/" + name + rest;
}

// ---- Locks

// The descriptor of the locked file; -1: another document holds it, or it can't be made.
static int TakeLock(const std::string& name)
{
    for (int attempt = 0; attempt < 10; attempt++) {
        const int file = open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (file < 0)
            return -1;
        struct stat opened = {}, there = {};
        if (flock(file, LOCK_EX | LOCK_NB) != 0) {
            close(file);
            return -1;
        }
        // Its holder removes the file at the end, perhaps just now; then the lock is on nothing.
        if (fstat(file, &opened) == 0 && stat(name.c_str(), &there) == 0 && opened.st_ino == there.st_ino)
            return file;
        close(file);
    }
    return -1;
}

static void GiveLockBack(int file, const std::string& name)
{
    unlink(name.c_str());
    close(file);
}

// ---- The file of one document

bool RecoveryFile::Open(const std::string& path, std::string* reason)
{
    Remove();
    std::error_code error;
    fs::create_directories(Folder(), error);
    if (error) {
        *reason = Folder() + ": " + error.message();
        return false;
    }
    scriptPath = WholePath(path);
    for (int i = 0; i < maxPlaces; i++) {
        const std::string place = PlaceName(scriptPath, i);
        lock = TakeLock(place + lockEnding);
        if (lock < 0)
            continue;
        file = place + scriptEnding;
        if (!fs::exists(file, error))
            return true;
        // Work that nobody has taken over yet.
        GiveLockBack(lock, place + lockEnding);
        lock = -1;
        file.clear();
    }
    *reason = Folder() + " can't be written to, or is full of lost work on this script.";
    return false;
}

bool RecoveryFile::Write(const std::string& text, std::string* reason)
{
    if (file.empty()) {
        *reason = "There is no recovery file.";
        return false;
    }
    const std::string content = mark + std::to_string(scriptPath.size()) + " " + std::to_string(text.size()) +
                                "\n" + scriptPath + text;
    if (cli::ReplaceFile(file, content, cli::Flushed, cli::OwnerMayChange))
        return true;
    *reason = file + ": " + strerror(errno);
    return false;
}

void RecoveryFile::Clear()
{
    if (!file.empty())
        unlink(file.c_str());
}

void RecoveryFile::Remove()
{
    Clear();
    if (lock >= 0)
        GiveLockBack(lock, file.substr(0, file.size() - strlen(scriptEnding)) + lockEnding);
    lock = -1;
    file.clear();
}

// ---- Work of others

// False if it is no complete recovery file for this script.
static bool ReadRecovery(const std::string& name, const std::string& wholePath, Recovery* found)
{
    std::string content, reason;
    struct stat there = {};
    if (stat(name.c_str(), &there) != 0 || !S_ISREG(there.st_mode) ||
        !cli::ReadInput(name, &content, &reason))
        return false;
    const size_t line = strlen(mark);
    const size_t lineEnd = content.find('\n', line);
    unsigned long long pathLength = 0, textLength = 0;
    if (content.compare(0, line, mark) != 0 || lineEnd == std::string::npos ||
        sscanf(content.c_str() + line, "%llu %llu", &pathLength, &textLength) != 2)
        return false;
    const size_t body = lineEnd + 1;
    if (pathLength > content.size() || textLength > content.size() ||
        content.size() != body + pathLength + textLength || content.substr(body, pathLength) != wholePath)
        return false;
    char when[64];
    struct tm local = {};
    localtime_r(&there.st_mtime, &local);
    strftime(when, sizeof when, "%Y-%m-%d %H:%M:%S", &local);
    *found = {content.substr(body + pathLength), when, name};
    return true;
}

static int64_t WrittenAt(const std::string& name)
{
    struct stat there = {};
    return stat(name.c_str(), &there) == 0
               ? int64_t(there.st_mtim.tv_sec) * 1000000000 + there.st_mtim.tv_nsec
               : 0;
}

bool RecoveryFile::Find(const std::string& path, const std::string* saved, Recovery* found)
{
    const std::string wholePath = WholePath(path);
    int64_t newest = -1;
    for (int i = 0; i < maxPlaces; i++) {
        const std::string place = PlaceName(wholePath, i);
        const std::string name = place + scriptEnding;
        std::error_code error;
        if (!fs::exists(name, error))
            continue;
        const int held = TakeLock(place + lockEnding);
        if (held < 0)
            continue; // its process lives
        Recovery read;
        const bool readable = ReadRecovery(name, wholePath, &read);
        if (readable && saved && read.text == *saved) {
            Discard(read);
        } else if (readable && WrittenAt(name) > newest) {
            newest = WrittenAt(name);
            *found = read;
        }
        GiveLockBack(held, place + lockEnding);
    }
    return newest >= 0;
}

void RecoveryFile::Discard(const Recovery& recovery)
{
    unlink(recovery.file.c_str());
}

} // namespace edit
