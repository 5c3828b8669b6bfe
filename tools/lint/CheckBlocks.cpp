// SPDX-License-Identifier: MIT
// Checks each block by itself: first its keys, then its values.
#include "tools/lint/Checks.h"

#include "kernel/EffectRegistry.h"
#include "kernel/SynchMessageTable.h"
#include "tools/lint/Values.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace lint
{

// ---- Keys

static void CheckEnd(const Block& block, const KeyValue& entry, const std::vector<KeyValue>& entries,
                     Findings* findings)
{
    const bool isMusic = block.type == BlockMusic && entry.key == key::FileName;
    const size_t end = entry.begin + entry.text.size() - 1;
    if (entry.key.empty()) {
        findings->Add(Warning, "unfinished-entry", entry.begin,
                      Quote(entry.text) + " is no entry: it has no ; at its end.",
                      "The reader passes it over.", "Finish it with a ;, or put it between two #.");
        return;
    }
    Finding& finding =
        isMusic ? findings->Add(Warning, "unfinished-entry", end, "The ; behind this value is missing.",
                                "Here alone the value counts all the same.", "Put a ; behind it.")
                : findings->Add(Error, "unfinished-entry", end, "The ; behind this value is missing.",
                                "The reader does not find " + entry.key + ".", "Put a ; behind it.");
    if (!entry.value.empty() && !FindKeyValue(entries, entry.key))
        findings->AddFixBehind(&finding, end, ";");
}

static void CheckWord(const KeyValue& entry, const BlockSyntax& keys, const std::vector<KeyValue>& entries,
                      Findings* findings)
{
    const std::string meant = Nearest(entry.word, keys.keys);
    const std::string all =
        (keys.keys.size() == 1 ? "The key is " : "The keys are ") + Listed(keys.keys) + ".";
    const bool isNear = !meant.empty() && meant != entry.word;
    Finding& finding = findings->Add(
        Warning, "unknown-key", entry.begin, Quote(entry.word) + " is no key of [" + keys.name + "].",
        "The reader passes it over.", isNear ? "Did you mean " + meant + "?" : all);
    if (isNear && !entry.word.empty() && !FindKeyValue(entries, meant))
        findings->AddFix(&finding, entry.begin, entry.begin + entry.word.size(), meant);
}

// Finds white space inside a value, which the reader removes.
static void CheckBlanks(const Reading& script, const KeyValue& entry, Findings* findings)
{
    Finding* finding = nullptr;
    for (size_t i = 0; i + 2 < entry.valuePlaces.size(); i++) {
        const size_t here = script.offsets[entry.valuePlaces[i]];
        const size_t next = script.offsets[entry.valuePlaces[i + 1]];
        const bool apart = std::any_of(script.bytes.begin() + here + 1, script.bytes.begin() + next,
                                       [](unsigned char c) { return isspace(c) != 0; });
        const bool commented =
            std::count(script.fates.begin() + here, script.fates.begin() + next, ByteMark) > 0;
        if (!apart || commented || entry.value[i] == ',' || entry.value[i + 1] == ',')
            continue;
        if (!finding)
            finding = &findings->Add(Warning, "blank-in-value", entry.valuePlaces[i + 1],
                                     "There is a blank in this value.",
                                     "Blanks vanish: it is read as " + Quote(entry.value) + ".",
                                     "Write it in one piece, with _ or - for the blank.");
        finding->fixes.push_back({here + 1, next, ""});
    }
}

static void CheckEntry(const Reading& script, const Block& block, const KeyValue& entry,
                       const std::vector<KeyValue>& entries, Findings* findings)
{
    const BlockSyntax& keys = SyntaxOf(block.type);
    if (entry.text == ";")
        return;
    if (entry.IsBroken()) {
        const size_t swallowed = entry.swallowed;
        const std::string key = entry.text.substr(swallowed, entry.text.find('=', swallowed) - swallowed);
        Finding& finding = findings->Add(Error, "missing-semicolon", entry.begin + swallowed,
                                         "A ; is missing between " + Quote(entry.text.substr(0, swallowed)) +
                                             " and " + key + ".",
                                         "All of it is one entry, and the reader does not find " + key + ".",
                                         "Put a ; ahead of " + key + ".");
        findings->AddFixBehind(&finding, entry.begin + swallowed - 1, ";");
        return;
    }
    if (!entry.ended)
        CheckEnd(block, entry, entries, findings);
    if (entry.key.empty()) {
        if (entry.ended)
            CheckWord(entry, keys, entries, findings);
        return;
    }
    if (entry.key != entry.word) {
        Finding& finding = findings->Add(
            Warning, "joined-key", entry.begin,
            Quote(entry.text) + " is read as if the key " + entry.key + " stood there.",
            "It counts, with the value " + Quote(entry.value) + ".", "Write " + entry.key + "=VALUE;.");
        findings->AddFix(&finding, entry.begin, entry.valuePlaces[0],
                         entry.key + (entry.value.empty() ? "" : "="));
    } else if (std::count(entry.text.begin(), entry.text.end(), '=') > 1) {
        Finding& finding =
            findings->Add(Warning, "extra-equals", entry.begin, "There is more than one = in this entry.",
                          "Those behind the first vanish: the value is " + Quote(entry.value) + ".",
                          "Delete what is not meant; no value can hold a =.");
        for (size_t i = entry.text.find('=') + 1; i < entry.text.size(); i++)
            if (entry.text[i] == '=')
                findings->AddFix(&finding, entry.begin + i, entry.begin + i + 1, "");
    }
    if (entry.ended && !entry.counts) {
        const KeyValue* const first = FindKeyValue(entries, entry.key);
        Finding& finding =
            findings->Add(Warning, "repeated-key", entry.begin, entry.key + " stands here again.",
                          "The first one counts, with " + Quote(first->value) + "; this one is passed over.",
                          "Delete one of the two.");
        findings->AddFix(&finding, entry.begin, entry.begin + entry.text.size(), "");
        return;
    }
    CheckBlanks(script, entry, findings);
}

// True if another finding says already why the reader does not find a key: the ; ahead of it or after it is
// missing.
static bool IsToldElsewhere(const std::vector<KeyValue>& entries, const std::string& key)
{
    for (const KeyValue& entry : entries)
        if ((!entry.ended && entry.key == key) ||
            (entry.IsBroken() && entry.text.find(key + "=") != std::string::npos))
            return true;
    return false;
}

static void CheckNeeded(const Block& block, const std::vector<KeyValue>& entries, Findings* findings)
{
    const BlockSyntax& keys = SyntaxOf(block.type);
    std::vector<std::string> missing;
    for (size_t i = 0; i < keys.needed; i++)
        if (!FindKeyValue(entries, keys.keys[i]) && !IsToldElsewhere(entries, keys.keys[i]))
            missing.push_back(keys.keys[i]);
    if (missing.empty())
        return;
    findings->Add(Error, "missing-key", block.header,
                  std::string("[") + keys.name + "] lacks " + Listed(missing) + ".",
                  "The show says so in a box and skips the block.", "Add " + missing[0] + "=VALUE;.");
}

// ---- Values

static void CheckEffect(const std::vector<KeyValue>& entries, const EffectRegistry& registry,
                        Findings* findings)
{
    for (const char* key : {key::StartTime, key::StopTime, key::LayerID})
        if (const KeyValue* const entry = FindIntact(entries, key))
            CheckInteger(*entry, findings);
    if (const KeyValue* const name = FindIntact(entries, key::EffectName))
        CheckEffectName(*name, registry, "entry", findings);

    const KeyValue* const start = FindIntact(entries, key::StartTime);
    const KeyValue* const stop = FindIntact(entries, key::StopTime);
    if (!start || !stop)
        return;
    const uint32_t startMs = uint32_t(atoi(start->value.c_str()));
    const uint32_t stopMs = uint32_t(atoi(stop->value.c_str()));
    if (stopMs > startMs)
        return;
    findings->Add(Error, "stop-before-start", stop->begin,
                  stopMs < startMs ? "The entry stops at " + std::to_string(stopMs) +
                                         ", ahead of its start at " + std::to_string(startMs) + "."
                                   : "The entry stops where it starts, at " + std::to_string(startMs) + ".",
                  stopMs == 0        ? "It is over when the show starts, and dropped."
                  : stopMs < startMs ? "It is never shown, though its effect is loaded."
                                     : "It is shown only if a frame falls on that very moment.",
                  "Let it stop behind its start.");
}

static void CheckSteps(const std::vector<KeyValue>& entries, const Block& block, Findings* findings)
{
    const KeyValue* const times = FindIntact(entries, key::ActivationTime);
    const KeyValue* const steps = FindIntact(entries, key::Steps);
    const KeyValue* const delta = FindIntact(entries, key::TimeDelta);
    if (!steps && !delta)
        return;
    if (!steps || !delta) {
        const KeyValue* const alone = steps ? steps : delta;
        const std::string other = steps ? key::TimeDelta : key::Steps;
        findings->Add(Error, "steps-alone", alone->begin, alone->key + " stands without " + other + ".",
                      "It is passed over: the message is sent once.", "Add " + other + "=NUMBER;.");
        return;
    }
    CheckInteger(*steps, findings);
    CheckInteger(*delta, findings);
    if (times && CountTimes(*times) != 1) {
        findings->Add(Error, "steps-with-list", steps->begin,
                      CountTimes(*times) == 0 ? "Steps stands with an ActivationTime that is empty."
                                              : "Steps stands with a list of times.",
                      "Steps and TimeDelta are passed over: only the times of the list count.",
                      "Write a single time, or all of them.");
        return;
    }
    const uint32_t count = uint32_t(atoi(steps->value.c_str()));
    if (count < 2)
        findings->Add(Warning, "few-steps", steps->begin,
                      "Steps=" + steps->value + " asks for no message but the first.",
                      "Steps counts all messages, the first included: one is sent.",
                      "Write how many there shall be in all.");
    else if (block.steps > block.stepsMade)
        findings->Add(
            Error, "many-steps", steps->begin,
            "Steps=" + steps->value + " asks for " + std::to_string(count) + " messages.",
            "The show makes and sorts them all before it starts, in a time that grows with the square of "
            "their number, if memory lasts; here only the first " +
                std::to_string(block.stepsMade) + " are looked at.",
            "Ask for fewer.");
    else if (atoi(delta->value.c_str()) == 0)
        findings->Add(Warning, "few-steps", delta->begin, "TimeDelta is 0.",
                      "All " + std::to_string(count) + " messages fall on the same time.",
                      "Write how many milliseconds lie between them.");
}

static void CheckRefused(const Block& block, Findings* findings)
{
    if (block.messagesRefused == 0)
        return;
    findings->Add(
        Error, "many-messages", block.header,
        "The messages up to here are too many, or have too many parameters.",
        "The show makes and sorts them all before it starts, in a time that grows with the square of "
        "their number, if memory lasts; here the last " +
            std::to_string(block.messagesRefused) + " of this block are not looked at.",
        "Send fewer, or with fewer parameters.");
}

static void CheckMessage(const std::vector<KeyValue>& entries, const Block& block,
                         const EffectRegistry& registry, Findings* findings)
{
    const KeyValue* const text = FindIntact(entries, key::MessageText);
    const KeyValue* const target = FindIntact(entries, key::TargetEffect);
    if (const KeyValue* const times = FindIntact(entries, key::ActivationTime))
        CheckTimes(*times, findings);
    bool known = target != nullptr;
    if (target)
        known = CheckEffectName(*target, registry, "message", findings);
    const SynchMessageDeclaration* declared = nullptr;
    if (text && known)
        declared = CheckMessageName(*text, target->value, registry, findings);
    if (const KeyValue* const parameter = FindIntact(entries, key::Parameter))
        CheckParameters(*parameter, declared, findings);
    CheckSteps(entries, block, findings);
    CheckRefused(block, findings);
}

static void CheckMusic(const std::vector<KeyValue>& entries, Findings* findings)
{
    for (const KeyValue& entry : entries)
        if (entry.key == key::FileName && entry.value.empty())
            findings->Add(Error, "empty-value", entry.valuePlaces[0], "FileName has no value.",
                          "The show says so in a box and plays in silence.",
                          "Write the name of the music file.");
}

// A second [MUSIC] or [COLORSCHEME] block replaces the first.
static void CheckReplaced(const Reading& script, Findings* findings)
{
    for (const BlockType type : {BlockMusic, BlockColorScheme}) {
        const Block* last = nullptr;
        for (const Block& block : script.blocks) {
            if (block.type != type || block.hasBox)
                continue;
            if (last) {
                Finding& finding =
                    findings->Add(Warning, "replaced-block", block.header,
                                  std::string("There is an earlier [") + SyntaxOf(type).name + "], in line " +
                                      std::to_string(script.PositionInStream(last->header).line) + ".",
                                  "This one takes its place.", "Delete one of the two.");
                findings->AddFix(&finding, last->header, last->body + last->text.size(), "");
            }
            last = &block;
        }
    }
}

void CheckBlocks(const Reading& script, const EffectRegistry& registry, Findings* findings)
{
    for (const Block& block : script.blocks) {
        if (block.type == BlockNone)
            continue;
        const std::vector<KeyValue> entries = SplitKeyValues(block);
        for (const KeyValue& entry : entries)
            CheckEntry(script, block, entry, entries, findings);
        CheckNeeded(block, entries, findings);
        switch (block.type) {
        case BlockMusic:
            CheckMusic(entries, findings);
            break;
        case BlockEffect:
            CheckEffect(entries, registry, findings);
            break;
        case BlockMessage:
            CheckMessage(entries, block, registry, findings);
            break;
        case BlockColorScheme:
            for (const KeyValue& entry : entries)
                if (entry.counts && !entry.IsBroken())
                    CheckColour(entry, findings);
            break;
        case BlockNone:
            break;
        }
    }
    CheckReplaced(script, findings);
}

} // namespace lint
