// SPDX-License-Identifier: MIT
// What single effects make of the order and the number of their messages.
#include "kernel/Production.h"
#include "tools/lint/Checks.h"

#include <algorithm>
#include <set>
#include <string>

namespace lint
{

static bool IsIdle(const SentMessage& message)
{
    const EffectRecord* const record = FindRecord(message.effect);
    return record && std::count(record->idleMessages.begin(), record->idleMessages.end(), message.name) > 0;
}

// Those that are declared so that scripts may name them, and change nothing. One of each block is told.
static void CheckIdle(const Show& show, Findings* findings)
{
    std::set<size_t> told;
    for (const SentMessage& message : show.messages)
        if (message.kept && IsIdle(message) && told.insert(message.block).second)
            SetSpan(&findings->AddAt(Warning, "silent-message", message.line, message.column,
                                     Quote(message.name) + " changes nothing in " + message.effect + ".",
                                     "It is delivered and nothing is to be seen.", "Leave it out."),
                    message.time, message.time);
}

// A message that the effect only counts once another one has come.
static void CheckOrder(const Show& show, const std::string& effect, const MessageOrder& order,
                       Findings* findings)
{
    const std::string after = Quote(order.after);
    bool triggered = false;
    for (const SentMessage& message : show.messages) {
        if (!message.kept || !message.heard || message.effect != effect)
            continue;
        triggered = triggered || message.name == order.after;
        if (!triggered && message.name.starts_with(order.begin))
            SetSpan(&findings->AddAt(Warning, "message-too-early", message.line, message.column,
                                     Quote(message.name) + " at " + std::to_string(message.time) +
                                         " comes ahead of any " + after + ".",
                                     order.consequence, "Send " + after + " first."),
                    message.time, message.time);
    }
}

static void CheckLimit(const Show& show, const std::string& effect, const MessageLimit& limit,
                       Findings* findings)
{
    const std::string most = std::to_string(limit.most);
    int count = 0;
    for (const SentMessage& message : show.messages) {
        if (!message.kept || !message.heard || message.effect != effect)
            continue;
        const bool harmless = message.name == limit.harmless;
        if (message.name != limit.message && !harmless)
            continue;
        if (!harmless || count < limit.most)
            count++;
        if (!harmless && count > limit.most)
            SetSpan(&findings->AddAt(Warning, "too-many-messages", message.line, message.column,
                                     Quote(limit.message) + " at " + std::to_string(message.time) +
                                         " is number " + std::to_string(count) + ", and " + effect + " has " +
                                         most + " " + limit.unit + ".",
                                     limit.consequence,
                                     "Send at most " + most + ", or end with " + Quote(limit.harmless) +
                                         ", which stops by itself."),
                    message.time, message.time);
    }
}

void CheckScenes(const Show& show, Findings* findings)
{
    CheckIdle(show, findings);
    for (const EffectRecord& record : ProductionEffects()) {
        for (const MessageOrder& order : record.orders)
            CheckOrder(show, record.key, order, findings);
        for (const MessageLimit& limit : record.limits)
            CheckLimit(show, record.key, limit, findings);
    }
}

} // namespace lint
