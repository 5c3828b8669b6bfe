// SPDX-License-Identifier: MIT
// Changes of a text that leave all other bytes alone.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace edit
{

// The bytes `removed` at `at` become `inserted`.
struct TextChange {
    size_t at;
    std::string removed;
    std::string inserted;
};

// The changes are in order and don't overlap; their places are those of the text before any of them.
std::string Apply(const std::string& text, const std::vector<TextChange>& changes);

// Takes the changes back: gives the text before them.
std::string Revert(const std::string& text, const std::vector<TextChange>& changes);

// The changes that lead from one text to another: by line where both have the same number of lines between
// the first and the last difference, else one.
std::vector<TextChange> Difference(const std::string& before, const std::string& after);

} // namespace edit
