// SPDX-License-Identifier: MIT
#include "tools/edit/TextChange.h"

#include <algorithm>

namespace edit
{

std::string Apply(const std::string& text, const std::vector<TextChange>& changes)
{
    std::string result;
    size_t copied = 0;
    for (const TextChange& change : changes) {
        result.append(text, copied, change.at - copied);
        result += change.inserted;
        copied = change.at + change.removed.size();
    }
    return result.append(text, copied, std::string::npos);
}

std::string Revert(const std::string& text, const std::vector<TextChange>& changes)
{
    std::string result;
    size_t copied = 0; // of the text as it is now
    size_t before = 0; // the same place in the text that is being restored
    for (const TextChange& change : changes) {
        const size_t kept = change.at - before;
        result.append(text, copied, kept);
        result += change.removed;
        copied += kept + change.inserted.size();
        before = change.at + change.removed.size();
    }
    return result.append(text, copied, std::string::npos);
}

// The length of the line that begins there, its end included.
static size_t LineLength(const std::string& text, size_t begin, size_t end)
{
    const size_t newline = text.find('\n', begin);
    return std::min(newline == std::string::npos ? end : newline + 1, end) - begin;
}

std::vector<TextChange> Difference(const std::string& before, const std::string& after)
{
    const size_t shorter = std::min(before.size(), after.size());
    size_t front = 0;
    while (front < shorter && before[front] == after[front])
        front++;
    size_t back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        back++;
    const size_t beforeEnd = before.size() - back, afterEnd = after.size() - back;
    if (front == beforeEnd && front == afterEnd)
        return {};
    const TextChange whole = {front, before.substr(front, beforeEnd - front),
                              after.substr(front, afterEnd - front)};
    if (std::count(whole.removed.begin(), whole.removed.end(), '\n') !=
        std::count(whole.inserted.begin(), whole.inserted.end(), '\n'))
        return {whole};

    std::vector<TextChange> changes;
    size_t from = front, to = front;
    while (from < beforeEnd || to < afterEnd) {
        const size_t removed = LineLength(before, from, beforeEnd);
        const size_t inserted = LineLength(after, to, afterEnd);
        if (before.compare(from, removed, after, to, inserted) != 0)
            changes.push_back({from, before.substr(from, removed), after.substr(to, inserted)});
        from += removed;
        to += inserted;
    }
    return changes;
}

} // namespace edit
