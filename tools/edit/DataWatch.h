// SPDX-License-Identifier: MIT
// Tells when the script or a file of the data directory was written by another program. A change counts when the file
// was closed after writing, moved into place, removed, or became readable, and when nothing more happened to it for a
// moment, so that an editor's way of saving in several steps is one change.
#pragma once

#include <map>
#include <string>
#include <vector>

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
    int inotify;
};

} // namespace edit
