// SPDX-License-Identifier: MIT
// The facts of a show that the timeline draws: entries, messages, loading, music, remarks. They come from the show's
// own script reader and sequencer, so that they are what will play even where a script is misleading.
#pragma once

#include "kernel/EffectRecord.h"
#include "tools/lint/Lint.h"
#include "tools/timeline/Waveform.h"

#include <cstdint>
#include <string>
#include <vector>

namespace timeline
{

// An entry of the timeline. Seconds from the start of the show.
struct Entry {
    double start;
    double stop; // below start: it is never on stage
    uint32_t layer;
    std::string effect;
    EffectWash wash; // what it is painted with
};

struct Message {
    double time;
    double delay; // seconds that it leaves late, since one at most leaves in a frame
    std::string name;
    bool known; // false: the effect never declared such a message, and will ignore it
    std::string effect;
    std::vector<float> parameters;
    std::vector<size_t> entries; // those that are on stage then, and so get it; empty: it is lost
};

struct Music {
    std::string file; // as the script names it; empty: there is none
    bool plays;       // false: it can't be opened
    Waveform wave;
};

// Something that a check of the script has found.
struct Remark {
    bool grave; // an error, not only a warning
    bool placed;
    double start, stop; // seconds, if placed
    std::string text;   // a line or more
};

struct TimelineModel {
    std::string title;
    double start = 0; // seconds at which the run begins
    double end = 0;   // seconds at which it is over
    std::vector<Entry> entries;
    std::vector<Message> messages;  // in the order in which they leave
    std::vector<std::string> loads; // the effects that are initialised ahead of the show, a second each
    Music music = {"", false, {}};
    std::vector<Remark> remarks;
};

struct ReadOptions {
    uint32_t startOffset = 0; // milliseconds, as in the show's start-offset file
    std::string data;         // where the music is looked for; empty: platform::GetDataDirectory
};

// What becomes of a show: its times, entries, messages and loads. The title, the music's waveform and remarks are
// left to the caller. options are those that the show was made with.
TimelineModel ModelOfShow(lint::Show show, const lint::CheckOptions& options);

// The remarks of findings, in order of time; those without a time come last. Notes make none.
std::vector<Remark> RemarksOf(const std::vector<lint::Finding>& findings);

// Reads a script with the show's own reader. False if the file can't be read; *reason then says why. Main
// thread only. Nothing is opened, drawn or heard.
bool ReadTimeline(const std::string& path, const ReadOptions& options, TimelineModel* model,
                  std::string* reason);

} // namespace timeline
