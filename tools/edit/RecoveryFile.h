// SPDX-License-Identifier: MIT
// Unsaved work on disk, for the start after a crash or a power cut. Each document that is open holds a place
// in the folder of recovery files for as long as its process lives; what lies in a place whose process is gone
// is work that was lost.
#pragma once

#include <string>
#include <vector>

namespace edit
{

// Work that a process left behind.
struct Recovery {
    std::string text; // the whole script
    std::string when; // local time of its last change, "2026-11-22 01:40:00"
    std::string file; // the recovery file
};

class RecoveryFile
{
public:
    RecoveryFile();
    ~RecoveryFile(); // removes the file, as Remove

    bool IsOpen() const { return !file.empty(); }

    RecoveryFile(const RecoveryFile&) = delete;
    RecoveryFile& operator=(const RecoveryFile&) = delete;

    // $XDG_STATE_HOME/marlinex or ~/.local/state/marlinex.
    static std::string Folder();

    // Takes a place for the script at this path; "" is for one without a name yet. Work of other processes is never
    // overwritten. False: there is no place, *reason says why, and Write fails.
    bool Open(const std::string& scriptPath, std::string* reason);

    // Replaces what the file holds; on the disk when it returns. False: *reason says why, and the file is as it was.
    bool Write(const std::string& text, std::string* reason);

    // Removes the file and keeps the place: nothing is unsaved.
    void Clear();

    // Clear, and gives the place back.
    void Remove();

    // The newest work that a process left behind for the script. False: there is none. Work that is the same as
    // *saved, the text of the script's file, is none, and is removed; null: there is no such file.
    static bool Find(const std::string& scriptPath, const std::string* saved, Recovery* found);
    static void Discard(const Recovery& recovery);

private:
    std::string file;       // empty: no place
    std::string scriptPath; // canonical
    int lock;               // descriptor of the lock file, -1: none
};

} // namespace edit
