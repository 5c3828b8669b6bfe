// SPDX-License-Identifier: MIT
// A script as the show's reader reads it, with the places where it found things.
#pragma once

#include "kernel/DemoPlayer.h"
#include "platform/Boxes.h"
#include "script/ScriptObserver.h"

#include <cstddef>
#include <string>
#include <vector>

namespace lint
{

// In a file as an editor counts it: both from 1, the column in characters.
struct Place {
    int line;
    int column;
};

struct Block {
    BlockType type;
    size_t header; // where its header begins in the stream
    size_t body;   // where its text begins in the stream
    std::string text;

    // What the player got from it.
    size_t firstEntry, entryCount;
    size_t firstMessage, messageCount;
    uint32_t steps;     // what its Steps asks for, 0 where the reader doesn't look
    uint32_t stepsMade; // how many of them this reading granted
    bool hasBox;        // the show would put up at least one
};

class Reading : private ScriptObserver
{
public:
    // Reads once. All Steps together make at most messageLimit messages: a script can ask for more than
    // memory holds.
    Reading(const std::string& bytes, EffectRegistry* registry, uint32_t startOffset);
    ~Reading() override;

    static const size_t messageLimit;

    Place PlaceInFile(size_t byte) const;
    Place PlaceInStream(size_t character) const;

    const std::string bytes;
    std::vector<ByteFate> fates; // one per byte
    std::string stream;
    std::vector<size_t> offsets; // where in the file each character of the stream stands
    std::vector<Block> blocks;   // a last one of type BlockNone holds what was eaten up
    DemoPlayer player;           // messages in the order of the script, not sorted

private:
    void ByteRead(size_t place, char byte, ByteFate fate) override;
    void BlockBegins(BlockType type, size_t header, size_t body, const std::string& text) override;
    void BlockEnds() override;
    uint32_t LimitSteps(uint32_t steps) override;

    std::vector<size_t> lineStarts;
    size_t stepsGranted;
    std::vector<platform::Box> boxes;
};

} // namespace lint
