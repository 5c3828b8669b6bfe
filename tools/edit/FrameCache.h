// SPDX-License-Identifier: MIT
// The frames that were made last, for going back to them: the show itself only goes forwards.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace edit
{

typedef std::shared_ptr<const std::vector<uint8_t>> FramePixels;

class FrameCache
{
public:
    explicit FrameCache(size_t maxBytes);

    // Keeps a frame that a revision of the script makes. Where there is no room the frames that were used least
    // recently go; the latest one always stays. A frame that a newer revision made is kept.
    void Add(int64_t frame, uint64_t revision, FramePixels pixels);

    FramePixels Find(int64_t frame, uint64_t revision); // null if it isn't there

    // Says that frames 0 to end - 1 look the same in the new revision, so that they are found under it too.
    void Carry(uint64_t oldRevision, uint64_t newRevision, int64_t end);

    void Clear();
    size_t Bytes() const { return bytes; }

private:
    struct CachedFrame {
        uint64_t revision;
        uint64_t used;
        FramePixels pixels;
    };
    std::map<int64_t, CachedFrame> entries;
    size_t maxBytes;
    size_t bytes;
    uint64_t uses;
};

} // namespace edit
