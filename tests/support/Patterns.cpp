// SPDX-License-Identifier: MIT
#include "tests/support/Patterns.h"

#include <map>
#include <regex>

// Translated once: some tests match each line of all sources.
static const std::regex& Translated(const std::string& pattern)
{
    static std::map<std::string, std::regex> known;
    return known.try_emplace(pattern, pattern).first->second;
}

static PatternMatch TextsOf(const std::smatch& match)
{
    return PatternMatch(match.begin(), match.end());
}

PatternMatch FindFirst(const std::string& text, const std::string& pattern)
{
    std::smatch match;
    std::regex_search(text, match, Translated(pattern));
    return TextsOf(match);
}

std::vector<PatternMatch> FindAll(const std::string& text, const std::string& pattern)
{
    std::vector<PatternMatch> matches;
    for (std::sregex_iterator each(text.begin(), text.end(), Translated(pattern)), end; each != end; ++each)
        matches.push_back(TextsOf(*each));
    return matches;
}

PatternMatch MatchWhole(const std::string& text, const std::string& pattern)
{
    std::smatch match;
    std::regex_match(text, match, Translated(pattern));
    return TextsOf(match);
}

std::string ReplaceAll(const std::string& text, const std::string& pattern, const std::string& with)
{
    return std::regex_replace(text, Translated(pattern), with);
}
