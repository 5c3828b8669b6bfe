// SPDX-License-Identifier: MIT
#include "tools/lint/Values.h"

#include "kernel/EffectRegistry.h"
#include "kernel/SynchMessageTable.h"
#include "script/ScriptParser.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace lint
{

static const size_t maxParameterNames = 64; // of a message; more is a slip in its description

// ---- Whole numbers

static std::string WithoutTheSign(uint32_t number)
{
    return std::to_string(number) + ", since the show knows no numbers below 0";
}

// Checks one whole number, which is not empty.
static void CheckWholeItem(const ListItem& item, const std::string& key, Findings* findings)
{
    const std::string& text = item.text;
    const size_t sign = text[0] == '-' ? 1 : 0;
    size_t end = sign;
    while (end < text.size() && isdigit(static_cast<unsigned char>(text[end])))
        end++;
    const int read = atoi(text.c_str()); // like ScriptParser
    if (end == sign) {
        findings->Add(Error, "not-a-number", item.place, Quote(text) + " is no number.",
                      key + " is read as " + std::to_string(read) + ".", "Write a whole number.");
        return;
    }
    if (end < text.size()) {
        Finding& finding = findings->Add(
            Warning, "cut-number", item.place + end, Quote(text) + " is no whole number.",
            "Reading stops ahead of " + Quote(text.substr(end)) + ": " + key + " is " + std::to_string(read) +
                ".",
            "Write a whole number" +
                std::string(key == key::LayerID || key == key::Steps ? "" : " of milliseconds") +
                ", nothing else.");
        findings->AddFix(&finding, item.place, item.last + 1, text.substr(0, end));
    }
    errno = 0;
    const long whole = strtol(text.c_str(), nullptr, 10);
    if (errno == ERANGE || whole > INT_MAX || whole < INT_MIN)
        findings->Add(Error, "large-number", item.place, Quote(text) + " is above what a number can be.",
                      key + " is read as " + std::to_string(uint32_t(read)) + ".",
                      "Write a number up to " + std::to_string(INT_MAX) + ".");
    else if (whole < 0)
        findings->Add(Error, "negative-number", item.place, Quote(text) + " is below 0.",
                      key + " is read as " + WithoutTheSign(uint32_t(read)) + ".",
                      "Write a number from 0 on.");
}

// The last character of a value that is not empty.
static size_t LastOf(const KeyValue& entry)
{
    return entry.valuePlaces[entry.value.size() - 1];
}

static void AddEmpty(const KeyValue& entry, const std::string& consequence, Findings* findings)
{
    findings->Add(Error, "empty-value", entry.valuePlaces[0], entry.key + " has no value.", consequence,
                  "Write a value between the = and the ;.");
}

void CheckInteger(const KeyValue& entry, Findings* findings)
{
    if (entry.value.empty())
        AddEmpty(entry, "It is read as 0.", findings);
    else
        CheckWholeItem({entry.value, entry.valuePlaces[0], entry.valuePlaces[entry.value.size() - 1]},
                       entry.key, findings);
}

size_t CountTimes(const KeyValue& entry)
{
    if (entry.value.empty())
        return 0;
    const auto commas = size_t(std::count(entry.value.begin(), entry.value.end(), ','));
    return entry.value.back() == ',' ? commas : commas + 1;
}

void CheckTimes(const KeyValue& entry, Findings* findings)
{
    if (entry.value.empty()) {
        AddEmpty(entry, "The message is never sent, and nothing says so.", findings);
        return;
    }
    const std::vector<ListItem> items = SplitItems(entry);
    const size_t count = CountTimes(entry);
    for (size_t i = 0; i < count; i++) {
        if (!items[i].text.empty()) {
            CheckWholeItem(items[i], entry.key, findings);
            continue;
        }
        Finding& finding = findings->Add(
            Error, "empty-item", items[i].place, "There is nothing between two commas of this list.",
            "It is read as 0: the message is sent at the start of the show as well.",
            "Delete the comma, or write the time that is missing.");
        if (entry.value.find_first_not_of(',') != std::string::npos)
            findings->AddFix(&finding, items[i].place, items[i].place + 1, "");
    }
}

void CheckColour(const KeyValue& entry, Findings* findings)
{
    const std::vector<ListItem> items = SplitItems(entry);
    for (size_t i = 0; i < items.size() && i < 3; i++) {
        const ListItem& item = items[i];
        if (item.text.empty()) {
            findings->Add(Error, "empty-item", item.place, "A component of " + entry.key + " is empty.",
                          "It is read as 0.", "Write red, green and blue, 0 to 255 each.");
            continue;
        }
        CheckWholeItem(item, entry.key, findings);
        const int read = atoi(item.text.c_str());
        if (read > 255)
            findings->Add(Warning, "colour-range", item.place, std::to_string(read) + " is above 255.",
                          "Nothing limits it: the component is brighter than full.", "Write 0 to 255.");
    }
    if (items.size() < 3) {
        Finding& finding =
            findings->Add(Warning, "colour-count", entry.valuePlaces[0],
                          entry.key + " has " + std::to_string(items.size()) +
                              (items.size() == 1 ? " component." : " components."),
                          "Those that are missing are 0.", "Write red, green and blue, 0 to 255 each.");
        if (!entry.value.empty())
            findings->AddFixBehind(&finding, LastOf(entry), items.size() == 1 ? ",0,0" : ",0");
    } else if (items.size() > 3) {
        Finding& finding =
            findings->Add(Warning, "colour-count", items[3].place,
                          entry.key + " has " + std::to_string(items.size()) + " components.",
                          "Those behind the third are passed over.", "Write red, green and blue, no more.");
        const size_t comma = items[0].text.size() + items[1].text.size() + items[2].text.size() + 2;
        findings->AddFix(&finding, entry.valuePlaces[comma], LastOf(entry) + 1, "");
    }
}

bool CanBeValue(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) {
        return c != '[' && c != ']' && c != ';' && c != '=' &&
               ScriptParser::Keeps(static_cast<unsigned char>(c));
    });
}

// ---- Parameters

static std::string Decimal(float value)
{
    char text[64];
    snprintf(text, sizeof text, "%g", double(value));
    return text;
}

std::vector<std::string> ParameterNames(const std::string& description)
{
    static const std::string mark = "PARAM ";
    std::vector<std::string> names;
    for (size_t at = description.find(mark); at != std::string::npos; at = description.find(mark, at + 1)) {
        const size_t number = at + mark.size();
        const size_t index = size_t(std::max(0, atoi(description.c_str() + number)));
        if (index >= maxParameterNames)
            continue;
        names.resize(std::max(names.size(), index + 1));
        const size_t colon = description.find(':', number);
        const size_t end = description.find('.', number);
        if (colon < end)
            names[index] = description.substr(colon + 1, end - colon - 1);
        names[index].erase(0, names[index].find_first_not_of(' '));
    }
    return names;
}

static int ParametersOf(const SynchMessageDeclaration& declared)
{
    return int(ParameterNames(declared.description).size());
}

static float ReadWithoutLast(const std::string& text)
{
    return float(atof(text.substr(0, text.size() - 1).c_str()));
}

std::string WithoutLoss(const std::string& last)
{
    const bool missesNothing = ReadWithoutLast(last) == float(atof(last.c_str()));
    return missesNothing ? last : last + (last.find('.') == std::string::npos ? ".00" : "0");
}

// True for "-12" and "2.50". A 0 after these says nothing new.
static bool IsDecimal(const std::string& text)
{
    const size_t sign = text.find('-') == 0 ? 1 : 0;
    return text.find_first_of("0123456789") != std::string::npos &&
           text.find_first_not_of(".0123456789", sign) == std::string::npos &&
           std::count(text.begin(), text.end(), '.') <= 1;
}

// What a number is read from, with the characters after it left out; "": it is none.
static std::string NumberAhead(const std::string& text)
{
    char* end = nullptr;
    strtod(text.c_str(), &end);
    return text.substr(0, size_t(end - text.c_str()));
}

// losesLast: the item ends a list, and the reader its last character.
static void CheckParameterItem(const ListItem& item, bool losesLast, Findings* findings)
{
    char* end = nullptr;
    const double value = strtod(item.text.c_str(), &end);
    if (end == item.text.c_str())
        findings->Add(Error, "not-a-number", item.place, Quote(item.text) + " is no number.",
                      "The parameter is read as 0.", "Write a number, with a point if it is no whole one.");
    else if (*end) {
        Finding& finding = findings->Add(Warning, "cut-number", item.place + (end - item.text.c_str()),
                                         Quote(item.text) + " is no number as a whole.",
                                         "Reading stops ahead of " + Quote(end) + ": the parameter is " +
                                             Decimal(float(value)) + ".",
                                         "Write a number, nothing else.");
        const std::string read =
            NumberAhead(losesLast ? item.text.substr(0, item.text.size() - 1) : item.text);
        if (IsDecimal(read))
            findings->AddFix(&finding, item.place, item.last + 1, losesLast ? WithoutLoss(read) : read);
    } else if (!std::isfinite(float(value)))
        findings->Add(Error, "large-number", item.place, Quote(item.text) + " is no finite number.",
                      "The effect is given " + Decimal(float(value)) + " to calculate with.",
                      "Write a number that can be shown.");
}

// The last character of the list is lost unless it is a comma; see ScriptParser::ParseParameters.
static void CheckLostCharacter(const ListItem& last, float* value, Findings* findings)
{
    const std::string left = last.text.substr(0, last.text.size() - 1);
    const float meant = float(atof(last.text.c_str()));
    *value = ReadWithoutLast(last.text);
    if (*value == meant)
        return;
    Finding& finding =
        findings->Add(Error, "lost-character", last.last, "The list of parameters loses its last character.",
                      "The last parameter is read from " + Quote(left) + ": " + Decimal(*value) +
                          " instead of " + Decimal(meant) + ".",
                      "Write " + WithoutLoss(last.text) + ", of which nothing is missed.");
    if (IsDecimal(last.text))
        findings->AddFixBehind(&finding, last.last, WithoutLoss(last.text).substr(last.text.size()));
}

void CheckParameters(const KeyValue& entry, const SynchMessageDeclaration* declared, Findings* findings)
{
    if (entry.value.empty()) {
        AddEmpty(entry, "The message comes with one parameter, 0.", findings);
        return;
    }
    const std::vector<ListItem> items = SplitItems(entry);
    // A comma at the end is what the reader drops then, and opens no further item.
    const bool closed = entry.value.back() == ',';
    const size_t count = closed ? items.size() - 1 : items.size();
    float first = 0;
    for (size_t i = 0; i < count; i++) {
        if (items[i].text.empty()) {
            findings->Add(Error, "empty-item", items[i].place,
                          "There is nothing between two commas of this list.", "The parameter is read as 0.",
                          "Write the number that is missing.");
            continue;
        }
        const bool losesLast = !closed && i + 1 == count;
        CheckParameterItem(items[i], losesLast, findings);
        float value = float(atof(items[i].text.c_str()));
        if (losesLast)
            CheckLostCharacter(items[i], &value, findings);
        if (i == 0)
            first = value;
    }
    if (!declared)
        return;
    const int used = ParametersOf(*declared);
    if (int(count) > used) {
        Finding& finding = findings->Add(
            Warning, "unused-parameter", items[used].place,
            Quote(declared->name) + " takes " +
                (used == 0 ? "no parameter."
                           : std::to_string(used) + (used == 1 ? " parameter." : " parameters.")),
            count - used == 1 ? "This one is passed over." : "This one and those behind it are passed over.",
            "Leave it out.");
        if (used == 0)
            findings->AddFix(&finding, entry.begin, entry.begin + entry.text.size(), "");
        else if (IsDecimal(items[used - 1].text)) // it becomes the last one
            findings->AddFix(&finding, items[used - 1].place, LastOf(entry) + 1,
                             WithoutLoss(items[used - 1].text));
    }
    if (used > 0 && declared->description.find("fading speed") != std::string::npos && !(first > 0))
        findings->Add(Warning, "endless-flash", items[0].place,
                      "The fading speed of this flash is " + Decimal(first) + ".",
                      first < 0 ? "The flash grows instead of fading." : "The flash never fades.",
                      "Write a speed above 0, with a 0 behind it.");
}

// ---- Names

bool CheckEffectName(const KeyValue& entry, const EffectRegistry& registry, const char* what,
                     Findings* findings)
{
    if (registry.FindEffect(entry.value))
        return true;
    const std::string meant = Nearest(entry.value, EffectNames(registry));
    Finding& finding =
        findings->Add(Error, "unknown-effect", entry.valuePlaces[0],
                      "There is no effect of the name " + Quote(entry.value) + ".",
                      std::string("The show says so in a box, without the name, and drops the ") + what + ".",
                      meant.empty() ? "The effects are " + Listed(EffectNames(registry)) + "."
                                    : "Did you mean " + meant + "?");
    if (!meant.empty() && !entry.value.empty())
        findings->AddFix(&finding, entry.valuePlaces[0], LastOf(entry) + 1, meant);
    return false;
}

const SynchMessageDeclaration* CheckMessageName(const KeyValue& entry, const std::string& effect,
                                                const EffectRegistry& registry, Findings* findings)
{
    const Effect* const owner = registry.FindEffect(effect);
    for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
        if (row.owner == owner && row.name == entry.value)
            return &row;
    const std::vector<std::string> names = MessageNames(registry, effect);
    const std::string meant = Nearest(entry.value, names);
    Finding& finding = findings->Add(Error, "unknown-message", entry.valuePlaces[0],
                                     effect + " has no message " + Quote(entry.value) + ".",
                                     "The message is delivered and ignored, and nothing says so.",
                                     names.empty()   ? "It understands no message at all."
                                     : meant.empty() ? "Its messages are " + Listed(names) + "."
                                                     : "Did you mean " + meant + "?");
    if (!meant.empty() && !entry.value.empty())
        findings->AddFix(&finding, entry.valuePlaces[0], LastOf(entry) + 1, meant);
    return nullptr;
}

} // namespace lint
