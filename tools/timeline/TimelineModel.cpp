// SPDX-License-Identifier: MIT
#include "tools/timeline/TimelineModel.h"

#include "kernel/Production.h"
#include "platform/Paths.h"
#include "tools/lint/Lint.h"
#include "tools/lint/Print.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace timeline
{

static double Seconds(uint32_t milliseconds)
{
    return milliseconds / 1000.0;
}

// The entries that run in the frame in which the message leaves; of no account for one that is lost.
static std::vector<size_t> Listeners(const lint::SentMessage& message, const lint::Options& options,
                                     const TimelineModel& model)
{
    const double frame = 1000 / options.frameRate;
    const double epsilon = 1e-6; // of a frame
    const double due = std::ceil((double(message.time) - options.startOffset) / frame - epsilon);
    const double leaves = (options.startOffset + due * frame + message.delay) / 1000;
    std::vector<size_t> listeners;
    for (size_t i = 0; i < model.entries.size(); i++) {
        const Entry& entry = model.entries[i];
        if (entry.effect == message.effect && leaves >= entry.start - 1e-6 && leaves <= entry.stop + 1e-6)
            listeners.push_back(i);
    }
    return listeners;
}

static void TakeShow(const lint::Show& show, const lint::Options& options, TimelineModel* model)
{
    model->start = Seconds(options.startOffset);
    model->end = std::max(Seconds(show.end), model->start);
    for (const lint::ShownEntry& entry : show.entries) {
        if (!entry.kept)
            continue;
        const EffectRecord* const record = FindRecord(entry.effect);
        const bool again =
            std::find(model->loads.begin(), model->loads.end(), entry.effect) != model->loads.end();
        if (!again || !record || !record->loadsOnce)
            model->loads.push_back(entry.effect);
        model->entries.push_back({Seconds(entry.start), Seconds(entry.stop), entry.layer, entry.effect,
                                  record ? record->wash : SlateWash});
    }
    for (const lint::SentMessage& message : show.messages) {
        if (!message.kept)
            continue;
        Message told = {Seconds(message.time),
                        message.delay / 1000,
                        message.name,
                        message.id != 0,
                        message.effect,
                        message.params,
                        {}};
        if (message.heard)
            told.entries = Listeners(message, options, *model);
        model->messages.push_back(told);
    }
}

// "line 12: warning: what is there. What the show makes of it. What to write instead."
static std::string WordsOf(const lint::Finding& finding)
{
    std::string words = finding.line ? "line " + std::to_string(finding.line) + ": " : "";
    words += std::string(lint::NameOf(finding.severity)) + ": " + finding.text;
    for (const std::string& more : {finding.consequence, finding.cure})
        if (!more.empty())
            words += "\n" + more;
    return words;
}

static void TakeFindings(const std::vector<lint::Finding>& findings, TimelineModel* model)
{
    for (const lint::Finding& finding : findings)
        if (finding.severity != lint::Note)
            model->remarks.push_back({finding.severity == lint::Error, finding.hasSpan,
                                      Seconds(finding.spanStart), Seconds(finding.spanStop),
                                      WordsOf(finding)});
    // In the order of their flags, so that neighbours have neighbouring numbers; those without a place
    // follow.
    std::stable_sort(model->remarks.begin(), model->remarks.end(), [](const Remark& a, const Remark& b) {
        return a.placed != b.placed ? a.placed : a.placed && a.start < b.start;
    });
}

bool ReadTimeline(const std::string& path, const ReadOptions& options, TimelineModel* model,
                  std::string* reason)
{
    lint::Options check;
    check.startOffset = options.startOffset;
    check.data = options.data;
    const lint::Report report = lint::CheckFile(path, check);
    if (!report.readable) {
        *reason = report.reason;
        return false;
    }
    *model = TimelineModel();
    model->title = std::filesystem::path(path).filename().string();
    TakeShow(report.show, check, model);
    TakeFindings(report.findings, model);
    model->music.file = report.show.music;
    const std::string data = options.data.empty() ? platform::GetDataDirectory() : options.data;
    model->music.plays = !model->music.file.empty() && model->music.wave.Read(data + "/" + model->music.file);
    return true;
}

} // namespace timeline
