// SPDX-License-Identifier: MIT
#include "tools/timeline/TimelineModel.h"

#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/lint/Lint.h"
#include "tools/lint/Print.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>

namespace timeline
{

static double Seconds(uint32_t milliseconds)
{
    return milliseconds / 1000.0;
}

// The time of the frame in which the player hands out the message, in seconds.
static double LeavingTime(const lint::SentMessage& message, const lint::CheckOptions& options)
{
    const double frame = 1000 / options.frameRate;
    const double epsilon = 1e-6; // of a frame
    const double due = std::ceil((double(message.time) - options.startOffset) / frame - epsilon);
    return (options.startOffset + due * frame + message.delay) / 1000;
}

// A message whose entries are to be found.
struct Delivery {
    size_t message; // of the model
    double time;    // seconds
};

// Gives each message the entries of its effect that are on stage when it leaves. Goes through entries and messages
// of an effect in order of time, so that it looks only at the entries on stage: a script may have many thousands.
static void FindListeners(std::map<std::string, std::vector<Delivery>> deliveries, TimelineModel* model)
{
    const double epsilon = 1e-6; // seconds
    std::map<std::string, std::vector<size_t>> entriesOf;
    for (size_t i = 0; i < model->entries.size(); i++)
        entriesOf[model->entries[i].effect].push_back(i);
    for (auto& [effect, messages] : deliveries) {
        std::vector<size_t>& entries = entriesOf[effect];
        std::stable_sort(entries.begin(), entries.end(), [&](size_t a, size_t b) {
            return model->entries[a].start < model->entries[b].start;
        });
        std::stable_sort(messages.begin(), messages.end(),
                         [](const Delivery& a, const Delivery& b) { return a.time < b.time; });
        std::vector<size_t> onStage; // in order of start
        size_t next = 0;             // of entries: the first that has not begun
        for (const Delivery& delivery : messages) {
            while (next < entries.size() && model->entries[entries[next]].start - epsilon <= delivery.time)
                onStage.push_back(entries[next++]);
            std::erase_if(onStage,
                          [&](size_t entry) { return model->entries[entry].stop + epsilon < delivery.time; });
            std::vector<size_t>& listeners = model->messages[delivery.message].entries;
            listeners = onStage;
            std::sort(listeners.begin(), listeners.end());
        }
    }
}

TimelineModel ModelOfShow(lint::Show show, const lint::CheckOptions& options)
{
    TimelineModel made;
    made.start = Seconds(options.startOffset);
    made.end = std::max(Seconds(show.end), made.start);
    std::set<std::string> loaded;
    for (const lint::ShownEntry& entry : show.entries) {
        if (!entry.kept)
            continue;
        const EffectRecord* const record = FindRecord(entry.effect);
        const bool isNew = loaded.insert(entry.effect).second;
        if (isNew || !record || !record->loadsOnce)
            made.loads.push_back(entry.effect);
        made.entries.push_back({Seconds(entry.start), Seconds(entry.stop), entry.layer, entry.effect,
                                record ? record->wash : SlateWash});
    }
    std::map<std::string, std::vector<Delivery>> deliveries; // by effect
    made.messages.reserve(show.messages.size());
    for (lint::SentMessage& message : show.messages) {
        if (!message.kept)
            continue;
        if (message.heard)
            deliveries[message.effect].push_back({made.messages.size(), LeavingTime(message, options)});
        made.messages.push_back({Seconds(message.time),
                                 message.delay / 1000,
                                 std::move(message.name),
                                 message.id != 0,
                                 std::move(message.effect),
                                 std::move(message.params),
                                 {}});
    }
    made.music.file = std::move(show.music);
    FindListeners(std::move(deliveries), &made);
    return made;
}

// The text of a finding, as in "line 12: warning: what the script says", then a line each for what the show makes
// of it and what to write instead.
static std::string WordsOf(const lint::Finding& finding)
{
    std::string words = finding.line ? "line " + std::to_string(finding.line) + ": " : "";
    words += std::string(lint::NameOf(finding.severity)) + ": " + finding.text;
    for (const std::string& more : {finding.consequence, finding.cure})
        if (!more.empty())
            words += "\n" + more;
    return words;
}

std::vector<Remark> RemarksOf(const std::vector<lint::Finding>& findings)
{
    std::vector<Remark> remarks;
    for (const lint::Finding& finding : findings)
        if (finding.severity != lint::Note)
            remarks.push_back({finding.severity == lint::Error, finding.hasSpan, Seconds(finding.spanStart),
                               Seconds(finding.spanStop), WordsOf(finding)});
    // Sorted by time, so that flags that stand side by side have consecutive numbers.
    std::stable_sort(remarks.begin(), remarks.end(), [](const Remark& a, const Remark& b) {
        return a.placed != b.placed ? a.placed : a.placed && a.start < b.start;
    });
    return remarks;
}

bool ReadTimeline(const std::string& path, const ReadOptions& options, TimelineModel* model,
                  std::string* reason)
{
    lint::CheckOptions check;
    check.startOffset = options.startOffset;
    check.data = options.data;
    const lint::Report report = lint::CheckFile(path, check);
    if (!report.readable) {
        *reason = report.reason;
        return false;
    }
    *model = ModelOfShow(report.show, check);
    model->title = std::filesystem::path(path).filename().string();
    model->remarks = RemarksOf(report.findings);
    const std::string data = options.data.empty() ? platform::GetDataDirectory() : options.data;
    model->music.plays = !model->music.file.empty() && model->music.wave.Read(data + "/" + model->music.file);
    return true;
}

} // namespace timeline
