// SPDX-License-Identifier: MIT
// Regular expressions of ECMAScript. Tests use them from here, since <regex> takes the compiler a second in each source.
#pragma once

#include <string>
#include <vector>

// The whole match, then its groups; a group that took no part is "".
typedef std::vector<std::string> PatternMatch;

// Both are empty where nothing matches.
PatternMatch FindFirst(const std::string& text, const std::string& pattern);
std::vector<PatternMatch> FindAll(const std::string& text, const std::string& pattern);

// The same for a text that matches from its first character to its last.
PatternMatch MatchWhole(const std::string& text, const std::string& pattern);

std::string ReplaceAll(const std::string& text, const std::string& pattern, const std::string& with);
