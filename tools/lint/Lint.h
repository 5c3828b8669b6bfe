// SPDX-License-Identifier: MIT
// Reads a script with the show's own reader into the show's own player, and finds what the show would silently do
// with it.
//
//     lint::CheckOptions options;
//     options.startOffset = 90000;
//     const lint::Report report = lint::CheckFile("Data/script.txt", options);
//     for (const lint::Finding& finding : report.findings)
//         ...
//
// No display, no GL, no sound device. Any thread, and several at a time.
#pragma once

#include "kernel/ColorScheme.h"
#include "tools/lint/Finding.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

class EffectRegistry;

namespace lint
{

// The effects that a script is read with. They are made once, never initialised and never deleted.
EffectRegistry* ProductionRegistry();

struct CheckOptions {
    uint32_t startOffset = 0; // milliseconds, as in the show's start-offset file
    double frameRate = 60;    // frames per second that messages are handed out at
    std::string data;         // where pictures and music are looked for; empty: platform::GetDataDirectory
    bool checkFiles = true;
};

// An entry of the timeline. Entries are in the order of the script.
struct ShownEntry {
    std::string effect;
    uint32_t start; // milliseconds
    uint32_t stop;  // milliseconds, the last one
    uint32_t layer;
    bool kept; // false: it is over at the start offset, and never loaded
    int line;  // of its header
    int column;
};

// A message. Messages are in the order in which they leave: by time, equal times in the order of the script.
struct SentMessage {
    std::string effect;
    std::string name;
    int id;        // 0: the effect doesn't know it
    uint32_t time; // milliseconds
    std::vector<float> params;
    bool kept;        // false: it lies before the start offset
    bool heard;       // true if its effect is on stage in the frame in which it leaves
    double delay;     // milliseconds that it waits for the messages ahead of it, at CheckOptions::frameRate
    int line, column; // of its time in the script; of the first message's for those that Steps adds
    size_t block;     // the number of its message block in the script, from 0
};

// A time on stage, in milliseconds, both ends included.
struct Span {
    uint32_t start, stop;
};

struct Show {
    std::vector<ShownEntry> entries;
    std::vector<SentMessage> messages;
    std::string music;  // the name of the music file that is played; empty: none
    ColorScheme scheme; // that of the player if the script has none
    uint32_t end;       // milliseconds, the last stop of all entries that are kept
    int loads;          // how often an effect is initialised; loading takes at least that many seconds

    // When each effect is on stage: the times of its kept entries, in order. Times that meet or overlap are one.
    std::map<std::string, std::vector<Span>> stage;
};

struct Report {
    bool readable;
    std::string reason; // why it is not readable, in the system's words

    std::vector<Finding> findings; // by line and column, of each kind at most 1000
    size_t findingsLeftOut;        // the number of those beyond that limit
    Show show;

    int Count(Severity severity) const;
};

// The path is not one of the data directory; "-" is standard input.
Report CheckFile(const std::string& path, const CheckOptions& options);

// The same for a script that is in memory. name stands in Finding::file.
Report CheckText(const std::string& bytes, const std::string& name, const CheckOptions& options);

} // namespace lint
