// SPDX-License-Identifier: MIT
#include "tools/edit/FrameCache.h"

#include <algorithm>

namespace edit
{

FrameCache::FrameCache(size_t limit) : maxBytes(limit), bytes(0), uses(0) {}

void FrameCache::Add(int64_t frame, uint64_t revision, FramePixels pixels)
{
    CachedFrame& entry = entries[frame];
    if (entry.pixels && entry.revision > revision)
        return;
    bytes += pixels->size() - (entry.pixels ? entry.pixels->size() : 0);
    entry = {revision, ++uses, std::move(pixels)};
    while (bytes > maxBytes && entries.size() > 1) {
        const auto oldest =
            std::min_element(entries.begin(), entries.end(),
                             [](const auto& a, const auto& b) { return a.second.used < b.second.used; });
        bytes -= oldest->second.pixels->size();
        entries.erase(oldest);
    }
}

FramePixels FrameCache::Find(int64_t frame, uint64_t revision)
{
    const auto found = entries.find(frame);
    if (found == entries.end() || found->second.revision != revision)
        return nullptr;
    found->second.used = ++uses;
    return found->second.pixels;
}

void FrameCache::Carry(uint64_t oldRevision, uint64_t newRevision, int64_t end)
{
    for (auto& [frame, entry] : entries)
        if (frame < end && entry.revision == oldRevision)
            entry.revision = newRevision;
}

void FrameCache::Clear()
{
    entries.clear();
    bytes = 0;
}

} // namespace edit
