// SPDX-License-Identifier: MIT
// Reads a script with the show's own reader into the show's own player, and tells what the show would do with
// it in silence.
//
//     lint::Options options;
//     options.startOffset = 90000;
//     const lint::Report report = lint::CheckFile("Data/script.txt", options);
//     for (const lint::Finding& finding : report.findings)
//         ...
//
// No display, no GL, no sound device. Main thread only: the show's boxes are collected meanwhile.
#pragma once

#include "kernel/ColorScheme.h"
#include "tools/lint/Finding.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace lint
{

struct Options {
    uint32_t startOffset = 0; // milliseconds, as in the show's start-offset file
    double frameRate = 60;    // frames per second that messages are handed out at
    std::string data;         // where pictures and music are looked for; empty: platform::GetDataDirectory
    bool checkFiles = true;
};

// An entry of the timeline, in the order of the script.
struct ShownEntry {
    std::string effect;
    uint32_t start; // milliseconds
    uint32_t stop;  // milliseconds, the last one
    uint32_t layer;
    bool kept; // false: it lies before the start offset and is never loaded
    int line;  // of its header
    int column;
};

// A message, in the order in which they leave: by time, equal times in the order of the script.
struct SentMessage {
    std::string effect;
    std::string name;
    int id;        // 0: the effect doesn't know it
    uint32_t time; // milliseconds
    std::vector<float> params;
    bool kept;        // false: it lies before the start offset
    bool heard;       // its effect is on stage in the frame that it leaves in
    double delay;     // milliseconds that those ahead of it cost it, at Options::frameRate
    int line, column; // of its time in the script, or of the one that Steps counts from
    size_t block;     // counts the message blocks of the script, for messages that belong together
};

// A time on stage, in milliseconds, both ends included.
struct Span {
    uint32_t start, stop;
};

struct Show {
    std::vector<ShownEntry> entries;
    std::vector<SentMessage> messages;
    std::string music;  // the file that counts, without its directory; empty: silence
    ColorScheme scheme; // the player's own where the script has none
    uint32_t end;       // milliseconds, the last stop of all entries that are kept
    int loads;          // how often an effect is initialised, and so the seconds that loading takes at least

    // When each effect is on stage: its kept entries in order of time, those that meet or overlap as one.
    std::map<std::string, std::vector<Span>> stage;
};

struct Report {
    bool readable;
    std::string reason; // why not, in the system's words

    std::vector<Finding> findings; // by line and column, of each kind at most 1000
    size_t findingsLeftOut;        // beyond that limit
    Show show;

    int Count(Severity severity) const;
};

// The path is the caller's, not one of the data directory; "-" is standard input.
Report CheckFile(const std::string& path, const Options& options);

// The same for a script that is in memory; name is what findings say the file is.
Report CheckText(const std::string& bytes, const std::string& name, const Options& options);

} // namespace lint
