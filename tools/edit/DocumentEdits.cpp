// SPDX-License-Identifier: MIT
// The edits of Document: each is a function on ScriptEdit, made a step of undo.
#include "platform/Paths.h"
#include "tools/edit/CureFinding.h"
#include "tools/edit/Document.h"
#include "tools/edit/EditBlocks.h"
#include "tools/edit/ShiftItems.h"
#include "tools/edit/SingleBlocks.h"

#include <utility>

namespace edit
{

bool Document::Change(const std::string& name, uint64_t gesture, const Operation& operation,
                      const Additions* additions, std::vector<ItemId>* items)
{
    refusal.clear();
    if (gesture != 0 && !undo.Continues(gesture)) {
        gestureText = text;
        gestureOutline = outline;
    }
    const std::string& before = gesture != 0 ? gestureText : text;
    ScriptEdit script(before, gesture != 0 ? gestureOutline : outline);
    std::string after;
    Outline read;
    if (!operation(&script) || !script.Finish(&after, &read)) {
        refusal = script.Refusal();
        return false;
    }
    if (additions)
        *items = additions->Items(script);
    TakeEdit(name, before, std::move(after), std::move(read), gesture);
    return true;
}

void Document::TakeEdit(const std::string& name, const std::string& before, std::string after, Outline read,
                        uint64_t gesture)
{
    undo.Add(name, before, after, gesture);
    if (after != text)
        SetText(std::move(after), std::move(read));
}

bool Document::Move(std::vector<ItemId> items, int64_t milliseconds, int64_t layers, uint64_t gesture)
{
    return Change("Move", gesture,
                  [&](ScriptEdit* script) { return MoveItems(script, items, milliseconds, layers); });
}

bool Document::Stretch(std::vector<ItemId> items, bool stopEdge, int64_t milliseconds, uint64_t gesture)
{
    return Change("Stretch", gesture,
                  [&](ScriptEdit* script) { return StretchItems(script, items, stopEdge, milliseconds); });
}

bool Document::SetTime(ItemId item, uint32_t milliseconds, uint64_t gesture)
{
    return Change("Set Time", gesture,
                  [&](ScriptEdit* script) { return SetItemTime(script, item, milliseconds); });
}

bool Document::SetValue(size_t block, std::string key, std::string value, uint64_t gesture)
{
    return Change("Set " + key, gesture,
                  [&](ScriptEdit* script) { return SetBlockValue(script, block, key, value); });
}

std::vector<ItemId> Document::Duplicate(std::vector<ItemId> items, int64_t milliseconds, int64_t layers)
{
    Additions added;
    std::vector<ItemId> copies;
    Change(
        "Duplicate", 0,
        [&](ScriptEdit* script) { return DuplicateItems(script, items, milliseconds, layers, &added); },
        &added, &copies);
    return copies;
}

bool Document::Delete(std::vector<ItemId> items)
{
    return Change("Delete", 0, [&](ScriptEdit* script) { return DeleteItems(script, items); });
}

std::string Document::Copy(std::vector<ItemId> items) const
{
    std::string copy;
    return CopyItems(text, outline, items, &copy) ? copy : "";
}

std::vector<ItemId> Document::Paste(std::string blocks, uint32_t atMilliseconds)
{
    Additions added;
    std::vector<ItemId> pasted;
    Change(
        "Paste", 0, [&](ScriptEdit* script) { return PasteBlocks(script, blocks, atMilliseconds, &added); },
        &added, &pasted);
    return pasted;
}

std::optional<ItemId> Document::Insert(const std::string& name, const Operation& operation,
                                       const Additions* added)
{
    std::vector<ItemId> items;
    if (!Change(name, 0, operation, added, &items) || items.empty())
        return std::nullopt;
    return items[0];
}

std::optional<ItemId> Document::InsertEntry(std::string effect, uint32_t start, uint32_t stop, uint32_t layer)
{
    Additions added;
    return Insert(
        "New Entry",
        [&](ScriptEdit* script) { return edit::InsertEntry(script, effect, start, stop, layer, &added); },
        &added);
}

std::optional<ItemId> Document::InsertMessage(std::string effect, std::string message, uint32_t time,
                                              std::string parameters)
{
    Additions added;
    return Insert(
        "New Message",
        [&](ScriptEdit* script) {
            return edit::InsertMessage(script, effect, message, time, parameters, &added);
        },
        &added);
}

std::optional<ItemId> Document::AddTime(size_t block, uint32_t milliseconds)
{
    Additions added;
    return Insert(
        "New Message", [&](ScriptEdit* script) { return AddTimeToList(script, block, milliseconds, &added); },
        &added);
}

bool Document::TakeApart(size_t block)
{
    return Change("Take Apart", 0, [&](ScriptEdit* script) { return TakeGroupApart(script, block); });
}

bool Document::SetMusic(std::string fileName)
{
    return Change("Set Music", 0, [&](ScriptEdit* script) { return SetMusicFile(script, fileName); });
}

bool Document::SetColorScheme(const ColorScheme& scheme)
{
    return Change("Set Colours", 0, [&](ScriptEdit* script) { return SetColors(script, scheme); });
}

bool Document::CanCure(const lint::Finding& finding)
{
    return !finding.fixes.empty();
}

void Document::BeginCure(const lint::Finding& finding, lint::CheckOptions options, CureDone done)
{
    struct CureJob {
        lint::Finding finding;
        lint::CheckOptions options;
        std::string before, after, refusal;
        Outline read;
        bool cured = false;
    };
    const auto job = std::make_shared<CureJob>();
    job->finding = finding;
    job->options = std::move(options);
    if (job->options.data.empty())
        job->options.data = platform::GetDataDirectory(); // asked for here, on the thread that sets it
    job->before = text;
    OnThread(
        &DiskThreads::cures,
        [job] {
            const Outline present = ReadOutline(job->before);
            ScriptEdit script(job->before, present);
            job->cured =
                CureFinding(&script, job->finding, job->options) && script.Finish(&job->after, &job->read);
            job->refusal = script.Refusal();
        },
        [this, job, done] {
            if (job->before != text)
                return BeginCure(job->finding, job->options, done);
            refusal = job->refusal;
            if (job->cured)
                TakeEdit("Cure", job->before, std::move(job->after), std::move(job->read), 0);
            done(job->cured);
        });
}

bool Document::ApplyCure(const lint::Finding& finding, const lint::CheckOptions& options)
{
    bool applied = false;
    BeginCure(finding, options, [&applied](bool cured) { applied = cured; });
    if (threads)
        threads->cures.Finish();
    return applied;
}

} // namespace edit
