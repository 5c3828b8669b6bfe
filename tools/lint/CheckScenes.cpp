// SPDX-License-Identifier: MIT
// What single effects make of the order and the number of their messages.
#include "effects/FX_Credits.h"
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

// The tree of the village is planted by trigger_cam. What comes earlier isn't even counted.
static void CheckPath(const Show& show, Findings* findings)
{
    bool triggered = false;
    for (const SentMessage& message : show.messages) {
        if (!message.kept || !message.heard || message.effect != "FX_Path")
            continue;
        triggered = triggered || message.name == "trigger_cam";
        if (!triggered && message.name.compare(0, 4, "tree") == 0)
            SetSpan(&findings->AddAt(Warning, "message-too-early", message.line, message.column,
                                     Quote(message.name) + " at " + std::to_string(message.time) +
                                         " comes ahead of any \"trigger_cam\".",
                                     "FX_Path has no tree yet and does not count it.",
                                     "Send \"trigger_cam\" first."),
                    message.time, message.time);
    }
}

static void CheckCredits(const Show& show, Findings* findings)
{
    const std::string most = std::to_string(FX_Credits::stepCount);
    int steps = 0;
    for (const SentMessage& message : show.messages) {
        if (!message.kept || !message.heard || message.effect != "FX_Credits")
            continue;
        const bool limited = message.name == "fade_last_in";
        if (message.name != "fade_in" && !limited)
            continue;
        if (!limited || steps < FX_Credits::stepCount)
            steps++;
        if (!limited && steps > FX_Credits::stepCount)
            SetSpan(&findings->AddAt(Warning, "too-many-messages", message.line, message.column,
                                     "\"fade_in\" at " + std::to_string(message.time) + " is number " +
                                         std::to_string(steps) + ", and FX_Credits has " + most + " steps.",
                                     "There is no further name and no further camera.",
                                     "Send at most " + most +
                                         ", or end with \"fade_last_in\", which stops by itself."),
                    message.time, message.time);
    }
}

void CheckScenes(const Show& show, Findings* findings)
{
    CheckIdle(show, findings);
    CheckPath(show, findings);
    CheckCredits(show, findings);
}

} // namespace lint
