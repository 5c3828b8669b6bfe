// SPDX-License-Identifier: MIT
// Tells when the script or a file of the data directory was written by another program. A change counts when the file
// was closed after writing, moved into place, removed, linked, or got other rights or times, and when nothing more
// happened to it for a moment, so that an editor's way of saving in several steps is one change. Folders in the data
// directory are not looked into.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace edit
{

struct DataChange {
    bool isScript = false; // the script's file; otherwise a file of the data directory
    std::string name; // of the data file, without its folder; empty: all of them, the folder was replaced
};

class DataWatch
{
public:
    static constexpr double QuietSeconds = 0.1; // without a further event, before a change is told
    static constexpr double LookSeconds = 0.5;  // between two looks whether a folder was replaced

    DataWatch();
    ~DataWatch();
    DataWatch(const DataWatch&) = delete;
    DataWatch& operator=(const DataWatch&) = delete;

    // Watches the script (empty: none) and the data directory in place of those before. Both may be missing, and
    // come into being later. False, and a reason, if the system refuses to watch; changes then have to be looked for.
    bool Watch(const std::string& script, const std::string& dataDirectory, std::string* reason);
    void Stop();

    // What changed since the last call, each file once. `seconds` is a clock that only moves forwards. Never waits.
    // A file that is both the script and in the data directory is told as the script.
    std::vector<DataChange> Poll(double seconds);

private:
    // A folder, and which one at its path is watched.
    struct Folder {
        std::string path;
        int watch = -1; // -1: there is none at the path
        dev_t device = 0;
        ino_t inode = 0;
    };

    bool LookAt(Folder* folder);
    void LookAtFolders(double seconds);
    void TakeEvents(double seconds);
    void Note(int watch, unsigned kind, const std::string& name, double seconds);
    void NoteAll(double seconds);

    int inotify;
    Folder scriptFolder; // with an empty path if there is no script
    Folder dataFolder;
    std::string scriptName;
    // The same if the script is a symbolic link: the folder and name of the file itself.
    std::string realScript;
    Folder realFolder;
    double lookedSeconds;
    std::map<std::string, double> changed; // data files, and when something happened to them
    double scriptSeconds;                  // when something happened to the script; below 0: nothing
};

} // namespace edit
