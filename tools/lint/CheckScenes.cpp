// SPDX-License-Identifier: MIT
// What single effects make of the order and the number of their messages.
#include "tools/lint/Checks.h"

#include <string>

namespace lint
{

// Declared so that scripts may name them, and without any effect.
static const struct {
    const char* effect;
    const char* message;
} silent[] = {
    {"FS_Image", "flash"},
    {"FX_Path", "flash_all"},
    {"FX_Path", "flash_cam"},
};

static const int mostNames = 8; // fade-ins of FX_Credits, which has so many steps

static void CheckSilent(const Show& show, Findings* findings)
{
    size_t told = 0; // blocks count from 0, so that this is the one behind the last told
    for (const auto& row : silent)
        for (const SentMessage& message : show.messages) {
            if (!message.kept || message.effect != row.effect || message.name != row.message ||
                message.block + 1 == told)
                continue;
            told = message.block + 1;
            SetSpan(&findings->AddAt(Warning, "silent-message", message.line, message.column,
                                     Quote(message.name) + " changes nothing in " + message.effect + ".",
                                     "It is delivered and nothing is to be seen.", "Leave it out."),
                    message.time, message.time);
        }
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
    int steps = 0;
    for (const SentMessage& message : show.messages) {
        if (!message.kept || !message.heard || message.effect != "FX_Credits")
            continue;
        const bool limited = message.name == "fade_last_in";
        if (message.name != "fade_in" && !limited)
            continue;
        if (!limited || steps < mostNames)
            steps++;
        if (!limited && steps > mostNames)
            SetSpan(
                &findings->AddAt(Warning, "too-many-messages", message.line, message.column,
                                 "\"fade_in\" at " + std::to_string(message.time) + " is number " +
                                     std::to_string(steps) + ", and FX_Credits has " +
                                     std::to_string(mostNames) + " steps.",
                                 "There is no further name and no further camera.",
                                 "Send at most eight, or end with \"fade_last_in\", which stops by itself."),
                message.time, message.time);
    }
}

void CheckScenes(const Show& show, Findings* findings)
{
    CheckSilent(show, findings);
    CheckPath(show, findings);
    CheckCredits(show, findings);
}

} // namespace lint
