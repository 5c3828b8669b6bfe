// SPDX-License-Identifier: MIT
// Checks the show as a whole: entries against each other, and messages against entries.
#include "kernel/Production.h"
#include "tools/lint/Checks.h"
#include "tools/lint/Schedule.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace lint
{

static const double maxDelay = 50;     // milliseconds that a message may be late
static const size_t maxSpansNamed = 3; // of one effect

// ---- Entries

static bool IsOverlay(const std::string& effect)
{
    const EffectRecord* const record = FindRecord(effect);
    return record && record->isOverlay;
}

static bool Overlap(const ShownEntry& a, const ShownEntry& b)
{
    // An entry that starts at the very moment at which the other stops does not overlap it.
    return std::max(a.start, b.start) < std::min(a.stop, b.stop);
}

// Where the value of a key stands in the block; false: nowhere, or a ; is missing after it.
static bool FindValuePlace(const Block& block, const char* key, size_t* first, size_t* end)
{
    const std::vector<KeyValue> entries = SplitKeyValues(block);
    const KeyValue* const entry = FindIntact(entries, key);
    if (!entry || entry->value.empty())
        return false;
    *first = entry->valuePlaces[0];
    *end = entry->valuePlaces[entry->value.size() - 1] + 1;
    return true;
}

// Lets the one that starts earlier stop where the other starts. One that lies within the other on the same layer
// goes.
static void FixOverlap(const ShownEntry& entry, const Block& block, const ShownEntry& other,
                       const Block& otherBlock, Findings* findings, Finding* finding)
{
    const bool isFirst = entry.start < other.start;
    const ShownEntry& early = isFirst ? entry : other;
    const ShownEntry& late = isFirst ? other : entry;
    size_t first = 0, end = 0;
    if (early.start < late.start && early.stop < late.stop) {
        if (FindValuePlace(isFirst ? block : otherBlock, key::StopTime, &first, &end))
            findings->AddFix(finding, first, end, std::to_string(late.start));
    } else if (entry.layer == other.layer) {
        const bool isWithin = entry.start >= other.start && entry.stop <= other.stop;
        const Block& inner = isWithin ? block : otherBlock;
        findings->AddFix(finding, inner.header, inner.body + inner.text.size(), "");
    }
}

// Moves the entry a layer up, or else down, if none that is on with it lies there: its order to all but the one
// that it shares its layer with stays.
static void FixLayer(const Show& show, const ShownEntry& entry, const Block& block, Findings* findings,
                     Finding* finding)
{
    const auto isFree = [&](uint32_t layer) {
        return std::none_of(show.entries.begin(), show.entries.end(), [&](const ShownEntry& other) {
            return other.kept && other.layer == layer && Overlap(entry, other);
        });
    };
    size_t first = 0, end = 0;
    if (!FindValuePlace(block, key::LayerID, &first, &end))
        return;
    if (entry.layer < INT32_MAX && isFree(entry.layer + 1))
        findings->AddFix(finding, first, end, std::to_string(entry.layer + 1));
    else if (entry.layer > 0 && entry.layer <= INT32_MAX && isFree(entry.layer - 1))
        findings->AddFix(finding, first, end, std::to_string(entry.layer - 1));
}

static Finding& AddOverlap(const ShownEntry& entry, const ShownEntry& other, Findings* findings)
{
    const uint32_t start = std::max(entry.start, other.start);
    const uint32_t stop = std::min(entry.stop, other.stop);
    const std::string when = "from " + std::to_string(start) + " to " + std::to_string(stop);
    Finding& finding =
        entry.effect == other.effect
            ? findings->AddAt(
                  Warning, "overlap", entry.line, entry.column,
                  entry.effect + " is scheduled twice " + when + ", here and in line " +
                      std::to_string(other.line) + ".",
                  "It is drawn twice in each frame, runs at double speed and hears messages twice.",
                  "Let one entry stop before the other starts.")
            : findings->AddAt(Warning, "same-layer", entry.line, entry.column,
                              entry.effect + " shares layer " + std::to_string(entry.layer) + " with " +
                                  other.effect + " of line " + std::to_string(other.line) + ", " + when + ".",
                              "Which of the two lies in front can change from frame to frame.",
                              "Give them different layers.");
    SetSpan(&finding, start, stop);
    return finding;
}

// Adds at most one finding of each kind for an entry, about the first entry before it in the script that it
// overlaps.
static void CheckOverlaps(const Reading& script, const Show& show, Findings* findings)
{
    std::vector<const Block*> blocks; // of the entries
    for (const Block& block : script.blocks)
        if (block.entryCount > 0)
            blocks.push_back(&block);
    for (size_t i = 0; i < show.entries.size(); i++) {
        const ShownEntry& entry = show.entries[i];
        bool twice = false, shared = false;
        for (size_t j = 0; j < i && entry.kept; j++) {
            const ShownEntry& other = show.entries[j];
            if (!other.kept || !Overlap(entry, other))
                continue;
            bool* const told = entry.effect == other.effect ? &twice : &shared;
            if (*told || (told == &shared && entry.layer != other.layer))
                continue;
            *told = true;
            Finding& finding = AddOverlap(entry, other, findings);
            if (told == &twice)
                FixOverlap(entry, *blocks[i], other, *blocks[j], findings, &finding);
            else
                FixLayer(show, entry, *blocks[i], findings, &finding);
        }
    }
}

static bool ShowsByItself(const ShownEntry& entry)
{
    return entry.kept && !IsOverlay(entry.effect) && entry.start <= entry.stop;
}

// The entry is the scene that ends the gap or, with atEnd, the entry that the show ends with.
static void AddGap(uint32_t start, uint32_t stop, const ShownEntry& entry, bool atEnd, Findings* findings)
{
    SetSpan(&findings->AddAt(Warning, "gap", entry.line, entry.column,
                             "No scene is on from " + Milliseconds(start) + " to " + Milliseconds(stop) + ".",
                             "The screen is black but for flashes.",
                             atEnd ? "Let " + entry.effect + " stop earlier, or schedule a scene there."
                                   : "Let " + entry.effect +
                                         " start earlier, or the scene ahead of it stop later."),
            start, stop);
}

static void CheckGaps(const Show& show, const CheckOptions& options, Findings* findings)
{
    std::vector<const ShownEntry*> scenes;
    for (const ShownEntry& entry : show.entries)
        if (ShowsByItself(entry))
            scenes.push_back(&entry);
    std::stable_sort(scenes.begin(), scenes.end(),
                     [](const ShownEntry* a, const ShownEntry* b) { return a->start < b->start; });
    uint32_t shownUpTo = options.startOffset;
    for (const ShownEntry* scene : scenes) {
        if (scene->start > shownUpTo)
            AddGap(shownUpTo, scene->start, *scene, false, findings);
        shownUpTo = std::max(shownUpTo, scene->stop);
    }
    for (const ShownEntry& entry : show.entries)
        if (show.end > shownUpTo && entry.kept && entry.stop == show.end) {
            AddGap(shownUpTo, show.end, entry, true, findings);
            break;
        }
}

// Finds entries that began before the start offset.
static void CheckCut(const Show& show, const CheckOptions& options, Findings* findings)
{
    for (const ShownEntry& entry : show.entries)
        if (entry.kept && !IsOverlay(entry.effect) && entry.start < options.startOffset &&
            entry.start <= entry.stop)
            SetSpan(&findings->AddAt(Note, "cut-entry", entry.line, entry.column,
                                     entry.effect + " is on from " + std::to_string(entry.start) +
                                         ", ahead of the start at " + std::to_string(options.startOffset) +
                                         ".",
                                     "Its own time begins at 0 with the show, not where it would be by then.",
                                     "Start at " + std::to_string(entry.start) + " to see it as it is."),
                    entry.start, std::min(options.startOffset, entry.stop));
}

static void CheckNothing(const Reading& script, const Show& show, const CheckOptions& options,
                         Findings* findings)
{
    for (const ShownEntry& entry : show.entries)
        if (entry.kept)
            return;
    const bool isEmpty = script.blocks.empty();
    const bool cut = !show.entries.empty();
    findings->AddAt(Error, "nothing-shown", 0, 0,
                    isEmpty ? "There is no block in this script."
                    : cut   ? "All entries stop at " + std::to_string(options.startOffset) +
                                " or before, where the show is to start."
                          : "No entry of this script comes to the timeline.",
                    "The show loads without a word and ends after its first frame.",
                    cut ? "Start earlier."
                        : "Write an [EFFECT] with EffectName, StartTime, StopTime and LayerID.");
}

// ---- Messages

static std::string SpansOf(const Show& show, const std::string& effect)
{
    std::vector<std::string> spans;
    size_t count = 0;
    for (const ShownEntry& entry : show.entries) {
        if (!entry.kept || entry.effect != effect)
            continue;
        count++;
        if (spans.size() < maxSpansNamed)
            spans.push_back("from " + std::to_string(entry.start) + " to " + std::to_string(entry.stop));
    }
    if (count == 0)
        return effect + " is never on stage.";
    return effect + " is on stage " + Listed(spans) + (count > spans.size() ? " and later." : ".");
}

// The messages of one block that one finding is about.
struct MessageGroup {
    std::vector<const SentMessage*> messages;

    const SentMessage& First() const { return *messages.front(); }
    std::string Told() const
    {
        const std::string what =
            Quote(First().name) + " for " + First().effect + " at " + std::to_string(First().time);
        if (messages.size() == 1)
            return what;
        return what + " and " + std::to_string(messages.size() - 1) + " more up to " +
               std::to_string(messages.back()->time);
    }
    void Span(Finding* finding) const { SetSpan(finding, First().time, messages.back()->time); }
};

// Keeps the text of each effect, because a show can have as many findings as entries.
class SpansText
{
public:
    explicit SpansText(const Show& told) : show(told) {}
    const std::string& Of(const std::string& effect)
    {
        const auto [place, isNew] = texts.insert({effect, ""});
        if (isNew)
            place->second = SpansOf(show, effect);
        return place->second;
    }

private:
    const Show& show;
    std::map<std::string, std::string> texts;
};

typedef bool (*Condition)(const Show& show, const SentMessage& message, const CheckOptions& options);

static std::vector<MessageGroup> Gather(const Show& show, const CheckOptions& options, Condition condition)
{
    std::vector<MessageGroup> groups; // by number of the block
    for (const SentMessage& message : show.messages) {
        if (!condition(show, message, options))
            continue;
        if (groups.size() <= message.block)
            groups.resize(message.block + 1);
        groups[message.block].messages.push_back(&message);
    }
    groups.erase(std::remove_if(groups.begin(), groups.end(),
                                [](const MessageGroup& group) { return group.messages.empty(); }),
                 groups.end());
    return groups;
}

// The moment at which a message is handed out depends on the moments of the frames. The earliest is when it is
// due and the messages ahead of it have left; the latest is a frame later.
static bool IsSurelyHeard(const Show& show, const SentMessage& message, const CheckOptions& options)
{
    const double earliest = message.time + message.delay;
    return IsOnStage(show, message.effect, earliest) &&
           IsOnStage(show, message.effect, earliest + 1000 / options.frameRate);
}

static bool IsLost(const Show& show, const SentMessage& message, const CheckOptions&)
{
    return message.kept && !message.heard && !IsOnStage(show, message.effect, message.time + message.delay);
}

static bool IsAtEdge(const Show& show, const SentMessage& message, const CheckOptions& options)
{
    return message.kept && !IsLost(show, message, options) && !IsSurelyHeard(show, message, options);
}

static bool IsLate(const Show&, const SentMessage& message, const CheckOptions&)
{
    return message.kept && message.delay > maxDelay;
}

// True if the start offset drops a message whose effect would have received it and may still show it. The flash
// of an overlay is over by then.
static bool IsMissed(const Show& show, const SentMessage& message, const CheckOptions&)
{
    return !message.kept && !IsOverlay(message.effect) && IsOnStage(show, message.effect, message.time);
}

static bool IsDropped(const Show& show, const SentMessage& message, const CheckOptions& options)
{
    return !message.kept && !IsMissed(show, message, options);
}

static void CheckMessages(const Show& show, const CheckOptions& options, Findings* findings)
{
    SpansText spans(show);
    for (const MessageGroup& group : Gather(show, options, IsLost)) {
        const bool pushed =
            group.messages.size() == 1 && IsOnStage(show, group.First().effect, group.First().time);
        group.Span(&findings->AddAt(
            Error, "message-outside", group.First().line, group.First().column,
            group.Told() + (group.messages.size() == 1 ? " finds" : " find") + " nobody on stage" +
                (pushed ? ", being " + std::to_string(lround(group.First().delay)) + " ms late." : "."),
            "Lost without a trace. " + spans.Of(group.First().effect),
            "Move the message, or the entry of its effect."));
    }
    for (const MessageGroup& group : Gather(show, options, IsAtEdge))
        group.Span(&findings->AddAt(
            Warning, "message-at-edge", group.First().line, group.First().column,
            group.Told() + (group.messages.size() == 1 ? " stands" : " stand") + " on the edge of an entry.",
            "Whether it is heard hangs on where the frames fall. " + spans.Of(group.First().effect),
            "Keep at least 20 ms from the end of the entry, and don't begin ahead of it."));
    for (const MessageGroup& group : Gather(show, options, IsLate)) {
        double most = 0;
        for (const SentMessage* message : group.messages)
            most = std::max(most, message->delay);
        group.Span(&findings->AddAt(
            Warning, "message-late", group.First().line, group.First().column,
            group.Told() + (group.messages.size() == 1 ? " waits" : " wait") + " behind others.",
            "One message leaves in a frame, so that at " + std::to_string(lround(options.frameRate)) +
                " frames a second it comes up to " + std::to_string(lround(most)) + " ms late.",
            "Send fewer messages at one time."));
    }
    for (const MessageGroup& group : Gather(show, options, IsMissed))
        group.Span(&findings->AddAt(Warning, "message-missed", group.First().line, group.First().column,
                                    group.Told() + (group.messages.size() == 1 ? " lies" : " lie") +
                                        " before the start at " + std::to_string(options.startOffset) + ".",
                                    "Dropped: " + group.First().effect +
                                        " goes on stage without having heard of it.",
                                    "Expect it to look otherwise than in the whole show."));
    for (const MessageGroup& group : Gather(show, options, IsDropped))
        group.Span(&findings->AddAt(Note, "message-dropped", group.First().line, group.First().column,
                                    group.Told() + (group.messages.size() == 1 ? " lies" : " lie") +
                                        " before the start at " + std::to_string(options.startOffset) + ".",
                                    "Dropped, as all that lies before the start.",
                                    "Start earlier to see it."));
}

void CheckShow(const Reading& script, const Show& show, const CheckOptions& options, Findings* findings)
{
    CheckNothing(script, show, options, findings);
    CheckOverlaps(script, show, findings);
    CheckGaps(show, options, findings);
    CheckCut(show, options, findings);
    CheckMessages(show, options, findings);
}

} // namespace lint
