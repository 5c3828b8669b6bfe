// SPDX-License-Identifier: MIT
#include "tests/support/RandomScript.h"

RandomScript::RandomScript(unsigned seed, std::vector<std::string> effectNames,
                           std::vector<std::string> messageNames, int longestMs)
    : random(seed), effects(effectNames), messages(messageNames), longest(longestMs), isMessy(false)
{
}

unsigned RandomScript::Below(unsigned bound)
{
    return unsigned(random() % bound);
}

bool RandomScript::OneIn(unsigned times)
{
    return Below(times) == 0;
}

std::string RandomScript::Pick(const std::vector<std::string>& words)
{
    return words[Below(unsigned(words.size()))];
}

std::string RandomScript::Number()
{
    if (isMessy && OneIn(8))
        return Pick(
            {"", "-5", "-", "x", "12ms", "2147483647", "2147483648", "99999999999", "1.5", "0", "007"});
    return std::to_string(Below(unsigned(longest)));
}

std::string RandomScript::List(int most, bool whole)
{
    std::string list;
    const unsigned count = 1 + Below(unsigned(most));
    for (unsigned i = 0; i < count; i++)
        list += (i > 0 ? "," : "") + (whole ? Number() : Number() + "." + Number());
    if (OneIn(4))
        list += ",";
    if (isMessy && OneIn(8))
        list += Pick({",,", ",x", "..", "-"});
    return list;
}

void RandomScript::Add(std::string* text, const std::string& key, const std::string& value)
{
    *text += key;
    if (isMessy && OneIn(12))
        *text += Pick({" ", "\n", "#note#", "=", "/"});
    *text += isMessy && OneIn(20) ? "" : "=";
    *text += value;
    *text += isMessy && OneIn(15) ? Pick({"", " ", "\n", "=;", ";;"}) : ";";
    *text += Pick({"\n", "\r\n", " ", "\n\n"});
}

void RandomScript::Block(std::string* text)
{
    const unsigned kind = Below(10);
    std::vector<std::pair<std::string, std::string>> entries;
    if (kind == 0) {
        *text += "[MUSIC]\n";
        entries = {{"FileName", Pick({"a.ogg", "b.xm", "moonwaltz.ogg", "with blank.wav", "sub/tune.mp3"})}};
    } else if (kind == 1) {
        *text += "[COLORSCHEME]\n";
        entries = {
            {"GlobalColor", List(4, true)}, {"SupportColor", List(4, true)}, {"FlowColor", List(4, true)}};
    } else if (kind < 6) {
        *text += "[EFFECT]\n";
        const unsigned start = Below(unsigned(longest));
        entries = {{"EffectName", OneIn(12) ? "FX_Nothing" : Pick(effects)},
                   {"StartTime", OneIn(3) ? Number() : std::to_string(start)},
                   {"StopTime", OneIn(3) ? Number() : std::to_string(start + Below(unsigned(longest)))},
                   {"LayerID", std::to_string(Below(5))}};
    } else {
        *text += "[MESSAGE]\n";
        entries = {{"MessageText", OneIn(12) ? "nothing" : Pick(messages)},
                   {"ActivationTime", List(OneIn(2) ? 1 : 5, true)},
                   {"TargetEffect", OneIn(12) ? "FX_Nothing" : Pick(effects)}};
        if (OneIn(2))
            entries.push_back({"Parameter", List(3, false)});
        if (OneIn(2))
            entries.push_back({"Steps", std::to_string(Below(20))});
        if (OneIn(2))
            entries.push_back({"TimeDelta", std::to_string(Below(300))});
    }
    if (isMessy && OneIn(6))
        entries.push_back(entries[Below(unsigned(entries.size()))]);
    if (isMessy && OneIn(6))
        entries.push_back({Pick({"Colour", "Start", "stoptime", "Step"}), Number()});
    if (isMessy && OneIn(8))
        entries.erase(entries.begin() + Below(unsigned(entries.size())));
    while (!entries.empty()) { // keys come in any order
        const unsigned next = Below(unsigned(entries.size()));
        Add(text, entries[next].first, entries[next].second);
        entries.erase(entries.begin() + next);
    }
}

std::string RandomScript::Write(int blocks, bool messy)
{
    isMessy = messy;
    std::string text = OneIn(2) ? "# a script #\n" : "";
    for (int i = 0; i < blocks; i++) {
        Block(&text);
        if (isMessy && OneIn(10))
            text += Pick({"# a comment\n over lines #\n", "left over", "\xC3\xB6", "#"});
    }
    return text;
}

std::string RandomScript::Mutate(std::string text)
{
    const unsigned changes = 1 + Below(6);
    for (unsigned i = 0; i < changes && !text.empty(); i++) {
        const size_t at = Below(unsigned(text.size()));
        const size_t length = 1 + Below(30);
        switch (Below(5)) {
        case 0:
            text[at] = char(Below(256));
            break;
        case 1:
            text.erase(at, length);
            break;
        case 2:
            text.insert(at, text.substr(Below(unsigned(text.size())), length));
            break;
        case 3:
            text.insert(at, Pick({"[", "]", "=", ";", ",", "#", "-", ".", "\n"}));
            break;
        default:
            text.resize(at);
            break;
        }
    }
    return text;
}

std::string RandomScript::Bytes(size_t count)
{
    std::string bytes(count, ' ');
    for (char& c : bytes)
        c = char(Below(256));
    return bytes;
}
