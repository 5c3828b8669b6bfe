// SPDX-License-Identifier: MIT
#include "kernel/EffectRegistry.h"
#include "kernel/SynchMessageTable.h"
#include "tools/cli/Text.h"
#include "tools/lint/Checks.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace lint
{

const size_t Findings::limit = 1000;

static const size_t maxQuoteLength = 40; // characters

Findings::Findings(const Reading& script, const std::string& fileName, std::vector<Finding>* sink)
    : reading(script), file(fileName), findings(sink), leftOut(0), spare()
{
}

Finding& Findings::Add(Severity severity, const char* code, size_t streamPlace, const std::string& text,
                       const std::string& consequence, const std::string& cure)
{
    const TextPosition place = reading.PositionInStream(streamPlace);
    return AddAt(severity, code, place.line, place.column, text, consequence, cure);
}

Finding& Findings::AddInFile(Severity severity, const char* code, size_t byte, const std::string& text,
                             const std::string& consequence, const std::string& cure)
{
    const TextPosition place = reading.PositionInFile(byte);
    return AddAt(severity, code, place.line, place.column, text, consequence, cure);
}

Finding& Findings::AddAt(Severity severity, const char* code, int line, int column, const std::string& text,
                         const std::string& consequence, const std::string& cure)
{
    Finding finding = {severity, code, file, line, column, false, 0, 0, text, consequence, cure, {}};
    if (++counts[finding.code] > limit) {
        leftOut++;
        return spare = std::move(finding);
    }
    findings->push_back(std::move(finding));
    return findings->back();
}

void Findings::AddFix(Finding* finding, size_t first, size_t end, const std::string& text) const
{
    finding->fixes.push_back({reading.offsets[first], size_t(reading.offsets[end - 1]) + 1, text});
}

void Findings::AddFixBehind(Finding* finding, size_t character, const std::string& text) const
{
    const size_t behind = size_t(reading.offsets[character]) + 1;
    finding->fixes.push_back({behind, behind, text});
}

size_t Findings::LeftOut() const
{
    return leftOut;
}

void SetSpan(Finding* finding, uint32_t start, uint32_t stop)
{
    finding->hasSpan = true;
    finding->spanStart = std::min(start, stop);
    finding->spanStop = std::max(start, stop);
}

std::string Quote(const std::string& text)
{
    return "\"" + cli::Escaped(text, maxQuoteLength) + "\"";
}

std::string Milliseconds(uint32_t time)
{
    char text[64];
    if (time < 1000)
        snprintf(text, sizeof text, "%u ms", time);
    else
        snprintf(text, sizeof text, "%u ms (%u:%02u.%03u)", time, time / 60000, time / 1000 % 60,
                 time % 1000);
    return text;
}

// The Levenshtein distance of two words, ignoring case.
static size_t Distance(const std::string& a, const std::string& b)
{
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); j++)
        row[j] = j;
    for (size_t i = 1; i <= a.size(); i++) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); j++) {
            const bool same = tolower(static_cast<unsigned char>(a[i - 1])) ==
                              tolower(static_cast<unsigned char>(b[j - 1]));
            const size_t change = diagonal + (same ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({change, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row[b.size()];
}

std::string Nearest(const std::string& word, const std::vector<std::string>& candidates)
{
    if (word.size() > maxQuoteLength)
        return "";
    // The beginning of a candidate counts as a match, however much of it is missing.
    for (const std::string& candidate : candidates)
        if (word.size() >= 3 && word.size() < candidate.size() &&
            Distance(word, candidate.substr(0, word.size())) == 0)
            return candidate;
    std::string best;
    size_t least = 1 + word.size() / 3; // one edit for every three letters, and one more
    for (const std::string& candidate : candidates) {
        const size_t distance = Distance(word, candidate);
        if (distance < least || (distance == least && best.empty())) {
            least = distance;
            best = candidate;
        }
    }
    return best;
}

std::string Listed(const std::vector<std::string>& words)
{
    std::string list;
    for (size_t i = 0; i < words.size(); i++)
        list += (i == 0 ? "" : i + 1 == words.size() ? " and " : ", ") + words[i];
    return list;
}

std::vector<std::string> EffectNames(const EffectRegistry& registry)
{
    std::vector<std::string> names;
    for (const RegisteredEffect& row : registry.effects)
        names.push_back(row.name);
    return names;
}

std::vector<std::string> MessageNames(const EffectRegistry& registry, const std::string& effect)
{
    std::vector<std::string> names;
    const Effect* const owner = registry.FindEffect(effect);
    for (const SynchMessageDeclaration& row : registry.GetMessageTable()->entries)
        if (owner && row.owner == owner)
            names.push_back(row.name);
    return names;
}

} // namespace lint
