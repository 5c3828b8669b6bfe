// SPDX-License-Identifier: MIT
#include "tools/lint/Schedule.h"

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "tools/lint/KeyValues.h"
#include "tools/lint/Values.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace lint
{

// The player stores seconds as float, which gives back the script's milliseconds exactly for two hours.
static uint32_t WholeMilliseconds(float seconds)
{
    const long long rounded = llround(double(seconds) * 1000.0);
    return uint32_t(std::clamp(rounded, 0LL, 0xFFFFFFFFLL));
}

static std::string NameOf(const EffectRegistry& registry, const Effect* effect)
{
    for (const RegisteredEffect& row : registry.effects)
        if (row.effect == effect)
            return row.name;
    return "";
}

static void AddEntries(const Reading& whole, const Reading& kept, const EffectRegistry& registry, Show* show)
{
    for (size_t b = 0; b < whole.blocks.size(); b++) {
        const Block& block = whole.blocks[b];
        if (block.entryCount == 0)
            continue;
        const EffectInstance& entry = whole.player.timeline[block.firstEntry];
        const TextPosition place = whole.PositionInStream(block.header);
        show->entries.push_back({NameOf(registry, entry.effect), WholeMilliseconds(entry.start),
                                 WholeMilliseconds(entry.stop), entry.layer, kept.blocks[b].entryCount > 0,
                                 place.line, place.column});
    }
    show->end = WholeMilliseconds(kept.player.endTime);
}

static void SetStage(Show* show)
{
    show->stage.clear();
    for (const ShownEntry& entry : show->entries)
        if (entry.kept && entry.start <= entry.stop)
            show->stage[entry.effect].push_back({entry.start, entry.stop});
    for (auto& [effect, spans] : show->stage) {
        std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.start < b.start; });
        size_t count = 0; // of the separate spans so far
        for (const Span& span : spans)
            if (count > 0 && span.start <= spans[count - 1].stop)
                spans[count - 1].stop = std::max(spans[count - 1].stop, span.stop);
            else
                spans[count++] = span;
        spans.resize(count);
    }
}

static void AddMessages(const Reading& whole, const Reading& kept, const EffectRegistry& registry, Show* show)
{
    size_t messageBlock = 0;
    for (size_t b = 0; b < whole.blocks.size(); b++) {
        const Block& block = whole.blocks[b];
        if (block.type != BlockMessage)
            continue;
        messageBlock++;
        if (block.messageCount == 0)
            continue;
        const std::vector<KeyValue> entries = SplitKeyValues(block);
        const KeyValue* const text = FindKeyValue(entries, key::MessageText);
        const KeyValue* const list = FindKeyValue(entries, key::ActivationTime);
        const std::vector<ListItem> times = SplitItems(*list);
        const size_t lastTime = CountTimes(*list) - 1; // from which Steps counts on
        const std::string effect = NameOf(registry, whole.player.messages[block.firstMessage].effect);
        // Both readings have the messages in the same order, and the offset keeps or drops all messages of one
        // time, so that equal times belong together.
        size_t next = kept.blocks[b].firstMessage;
        const size_t end = next + kept.blocks[b].messageCount;
        for (size_t i = 0; i < block.messageCount; i++) {
            const SynchMessage& message = whole.player.messages[block.firstMessage + i];
            const bool isKept = next < end && kept.player.messages[next].time == message.time;
            next += isKept ? 1 : 0;
            const TextPosition place = whole.PositionInStream(times[std::min(i, lastTime)].place);
            show->messages.push_back({effect, text->value, message.id, WholeMilliseconds(message.time),
                                      std::vector<float>(message.params, message.params + message.count),
                                      isKept, false, 0, place.line, place.column, messageBlock - 1});
        }
    }
}

// Hands out at most one message per frame, like DemoPlayer, with frames of equal length.
static void PlayMessages(const CheckOptions& options, Show* show)
{
    const double frame = 1000.0 / options.frameRate;
    // In frames: a message that is due at the time of a frame leaves in that frame in spite of rounding.
    const double epsilon = 1e-6;
    double free = 0; // the first frame that has not handed out a message yet
    for (SentMessage& message : show->messages) {
        if (!message.kept)
            continue;
        const double due = std::ceil((double(message.time) - options.startOffset) / frame - epsilon);
        const double leaves = std::max(due, free);
        free = leaves + 1;
        message.delay = (leaves - due) * frame;
        message.heard = IsOnStage(*show, message.effect, options.startOffset + leaves * frame);
    }
}

static int CountLoads(const Show& show)
{
    std::set<std::string> loaded;
    int loads = 0;
    for (const ShownEntry& entry : show.entries) {
        if (!entry.kept)
            continue;
        const EffectRecord* const record = FindRecord(entry.effect);
        const bool isNew = loaded.insert(entry.effect).second;
        if (isNew || !record || !record->loadsOnce)
            loads++;
    }
    return loads;
}

void PlaySchedule(const CheckOptions& options, Show* show)
{
    // The same order as DemoPlayer::SortMessages makes, in less time.
    const auto isEarlier = [](const SentMessage& a, const SentMessage& b) { return a.time < b.time; };
    if (!std::is_sorted(show->messages.begin(), show->messages.end(),
                        isEarlier)) // sorting copies all of them
        std::stable_sort(show->messages.begin(), show->messages.end(), isEarlier);
    SetStage(show);
    PlayMessages(options, show);
    show->loads = CountLoads(*show);
}

Show BuildShow(const Reading& whole, const Reading& kept, const EffectRegistry& registry,
               const CheckOptions& options)
{
    Show show = {{}, {}, "", kept.player.GetColorScheme(), 0, 0, {}};
    AddEntries(whole, kept, registry, &show);
    AddMessages(whole, kept, registry, &show);
    for (const Block& block : whole.blocks)
        if (block.type == BlockMusic && !block.hasBox)
            for (const KeyValue& entry : SplitKeyValues(block))
                if (entry.key == key::FileName && (entry.counts || !entry.ended)) {
                    show.music = entry.value;
                    break;
                }
    PlaySchedule(options, &show);
    return show;
}

bool IsOnStage(const Show& show, const std::string& effect, double time)
{
    const auto spans = show.stage.find(effect);
    if (spans == show.stage.end())
        return false;
    const auto next = std::upper_bound(spans->second.begin(), spans->second.end(), time,
                                       [](double moment, const Span& span) { return moment < span.start; });
    return next != spans->second.begin() && time <= (next - 1)->stop;
}

} // namespace lint
