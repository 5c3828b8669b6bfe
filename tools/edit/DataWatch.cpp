// SPDX-License-Identifier: MIT
#include "tools/edit/DataWatch.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace edit
{

static const unsigned watchedEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ATTRIB |
                                      IN_CREATE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

static std::string FolderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

static std::string NameOf(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

DataWatch::DataWatch() : inotify(-1), lookedSeconds(0), scriptSeconds(-1) {}

DataWatch::~DataWatch()
{
    Stop();
}

void DataWatch::Stop()
{
    if (inotify >= 0)
        close(inotify);
    inotify = -1;
    scriptFolder = dataFolder = realFolder = Folder();
    changed.clear();
    scriptSeconds = -1;
}

bool DataWatch::Watch(const std::string& script, const std::string& dataDirectory, std::string* reason)
{
    Stop();
    inotify = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (inotify < 0) {
        *reason = std::string("the files of the show can't be watched: ") + strerror(errno);
        return false;
    }
    dataFolder.path = dataDirectory;
    scriptName = script.empty() ? "" : NameOf(script);
    scriptFolder.path = script.empty() ? "" : FolderOf(script);
    char real[PATH_MAX];
    const bool isLink =
        !script.empty() && realpath(script.c_str(), real) && FolderOf(real) + "/" + NameOf(real) != script;
    realScript = isLink ? NameOf(real) : "";
    realFolder.path = isLink ? FolderOf(real) : "";
    lookedSeconds = 0;
    LookAt(&scriptFolder);
    LookAt(&realFolder);
    LookAt(&dataFolder);
    // Only a limit of the system is a failure: what is missing may come.
    if (errno == ENOSPC && dataFolder.watch < 0) {
        *reason = "the files of the show can't be watched: the system allows no further watches";
        Stop();
        return false;
    }
    return true;
}

// Watches the folder that is at the path now. True if it is another one than before.
bool DataWatch::LookAt(Folder* folder)
{
    if (folder->path.empty())
        return false;
    struct stat status;
    if (stat(folder->path.c_str(), &status) != 0) {
        const bool was = folder->watch >= 0;
        folder->watch = -1; // the old watch is not used again; it ends with its folder
        return was;
    }
    if (folder->watch >= 0 && folder->device == status.st_dev && folder->inode == status.st_ino)
        return false;
    errno = 0;
    folder->watch = inotify_add_watch(inotify, folder->path.c_str(), watchedEvents);
    folder->device = status.st_dev;
    folder->inode = status.st_ino;
    return true;
}

void DataWatch::LookAtFolders(double seconds)
{
    lookedSeconds = seconds;
    if (LookAt(&scriptFolder) | LookAt(&realFolder))
        scriptSeconds = seconds;
    if (LookAt(&dataFolder)) {
        changed.clear();
        changed[""] = seconds;
    }
}

// A file that is created is complete when it is closed; a link is complete at once.
static bool IsLink(const std::string& path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && (S_ISLNK(status.st_mode) || status.st_nlink > 1);
}

void DataWatch::Note(int watch, unsigned kind, const std::string& name, double seconds)
{
    if (name.empty() || (kind & IN_ISDIR))
        return;
    const bool isScript = (watch == scriptFolder.watch && name == scriptName && !scriptFolder.path.empty()) ||
                          (watch == realFolder.watch && name == realScript && !realFolder.path.empty());
    const bool isData = watch == dataFolder.watch;
    if (!isScript && !isData)
        return;
    const std::string& folder = isData                        ? dataFolder.path
                                : watch == scriptFolder.watch ? scriptFolder.path
                                                              : realFolder.path;
    if ((kind & IN_CREATE) && !IsLink(folder + "/" + name))
        return;
    if (isScript)
        scriptSeconds = seconds;
    else
        changed[name] = seconds;
}

void DataWatch::NoteAll(double seconds)
{
    if (!scriptFolder.path.empty())
        scriptSeconds = seconds;
    changed.clear();
    changed[""] = seconds;
}

void DataWatch::TakeEvents(double seconds)
{
    alignas(inotify_event) char block[16384];
    ssize_t got;
    while ((got = read(inotify, block, sizeof block)) > 0)
        for (ssize_t place = 0; place < got;) {
            const inotify_event* const event = reinterpret_cast<const inotify_event*>(block + place);
            place += ssize_t(sizeof(inotify_event) + event->len);
            if (event->mask & IN_Q_OVERFLOW)
                NoteAll(seconds);
            else if (event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED))
                lookedSeconds = seconds - LookSeconds; // look now
            else
                Note(event->wd, event->mask, event->len > 0 ? event->name : "", seconds);
        }
}

std::vector<DataChange> DataWatch::Poll(double seconds)
{
    std::vector<DataChange> changes;
    if (inotify < 0)
        return changes;
    TakeEvents(seconds);
    if (seconds >= lookedSeconds + LookSeconds)
        LookAtFolders(seconds);

    if (scriptSeconds >= 0 && seconds >= scriptSeconds + QuietSeconds) {
        changes.push_back({true, scriptName});
        scriptSeconds = -1;
    }
    for (auto row = changed.begin(); row != changed.end();) {
        if (seconds < row->second + QuietSeconds) {
            ++row;
            continue;
        }
        changes.push_back({false, row->first});
        row = changed.erase(row);
    }
    return changes;
}

} // namespace edit
