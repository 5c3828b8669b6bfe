// SPDX-License-Identifier: MIT
#include "tools/edit/ValueText.h"

#include "script/BlockSyntax.h"
#include "tools/edit/ScriptText.h"
#include "tools/lint/Values.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace edit
{

std::vector<std::string> SplitList(const std::string& list)
{
    std::vector<std::string> items;
    for (size_t begin = 0; begin <= list.size();) {
        const size_t end = std::min(list.find(',', begin), list.size());
        items.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return items;
}

std::string JoinList(const std::vector<std::string>& items)
{
    std::string list;
    for (size_t i = 0; i < items.size(); i++)
        list += (i > 0 ? "," : "") + items[i];
    return list;
}

std::string WithoutLoss(const std::string& parameters)
{
    std::vector<std::string> items = SplitList(parameters);
    if (!items.back().empty()) // else it ends with a comma, which is the character that is lost
        items.back() = lint::WithoutLoss(items.back());
    return JoinList(items);
}

static bool IsWholeNumber(const std::string& text, uint32_t most)
{
    return !text.empty() && text.size() <= 10 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }) &&
           strtoull(text.c_str(), nullptr, 10) <= most;
}

// A decimal number, "-1.5" or "2.50".
static bool IsNumber(const std::string& text)
{
    const size_t digits = text.find_first_of("0123456789");
    const size_t rest = text.find_first_not_of("-.0123456789");
    char* end = nullptr;
    return digits != std::string::npos && rest == std::string::npos &&
           std::isfinite(strtof(text.c_str(), &end)) && *end == '\0';
}

static bool HoldsOneNumber(const std::string& key)
{
    return key == key::StartTime || key == key::StopTime || key == key::LayerID || key == key::Steps ||
           key == key::TimeDelta;
}

static bool IsColour(const std::string& key)
{
    return key == key::GlobalColor || key == key::SupportColor || key == key::FlowColor;
}

// A sentence why the key can't hold the value; empty: it can.
static std::string ComplaintAbout(const std::string& key, const std::vector<std::string>& items)
{
    const std::string range = "from 0 to " + std::to_string(MaxNumber) + ".";
    if (HoldsOneNumber(key)) {
        if (items.size() > 1 || !IsWholeNumber(items[0], MaxNumber))
            return key + " is a whole number " + range;
        if (key == key::Steps && !IsWholeNumber(items[0], MaxSteps))
            return "Steps is at most " + std::to_string(MaxSteps) + ".";
    } else if (key == key::ActivationTime) {
        for (const std::string& item : items)
            if (!IsWholeNumber(item, MaxNumber))
                return "ActivationTime is a list of whole numbers " + range;
    } else if (key == key::Parameter) {
        for (const std::string& item : items)
            if (!IsNumber(item))
                return "Parameter is a list of numbers, with a point if they are no whole ones.";
    } else if (IsColour(key)) {
        const auto isComponent = [](const std::string& item) { return IsWholeNumber(item, 255); };
        if (items.size() != 3 || !std::all_of(items.begin(), items.end(), isComponent))
            return key + " is red, green and blue, whole numbers from 0 to 255.";
    }
    return "";
}

bool MakeValue(const std::string& key, const std::string& typed, std::string* value, std::string* reason)
{
    std::vector<std::string> items = SplitList(typed);
    for (std::string& item : items)
        item = Trimmed(item);
    std::string joined = JoinList(items);
    if (!lint::CanBeValue(joined)) {
        *reason = "A value can hold letters a to z and A to Z, digits, and . , _ - only.";
        return false;
    }
    *reason = joined.empty() ? key + " has no value." : "";
    if (key == key::ActivationTime || key == key::Parameter) { // a comma at the end opens no further item
        if (items.size() > 1 && items.back().empty())
            items.pop_back();
    }
    if (reason->empty())
        *reason = ComplaintAbout(key, items);
    if (!reason->empty())
        return false;
    *value = key == key::Parameter ? WithoutLoss(joined) : joined;
    return true;
}

} // namespace edit
