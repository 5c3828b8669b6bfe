// SPDX-License-Identifier: MIT
// A script as the show's reader reads it, and where in the file each thing stands.
#pragma once

#include "kernel/DemoPlayer.h"
#include "platform/dialogs/MessageBox.h"
#include "script/ScriptObserver.h"

#include <cstddef>
#include <string>
#include <vector>

namespace lint
{

// A position in a file as editors count it: both from 1, the column in characters.
struct TextPosition {
    int line;
    int column;
};

struct Block {
    BlockType type;
    size_t header; // where its header begins in the stream
    size_t body;   // where its text begins in the stream
    std::string text;

    // What the player got from it: ranges of its timeline and of its messages.
    size_t firstEntry, entryCount;
    size_t firstMessage, messageCount;
    uint32_t steps;         // the number that its Steps asks for; 0 if the reader does not read it
    uint32_t stepsMade;     // how many of those were made
    size_t messagesRefused; // messages beyond the limits of Reading
    bool hasBox;            // true if the show would report something about this block in a box
};

class Reading : private ScriptObserver
{
public:
    // Reads once. The content is borrowed, and not larger than contentLimit. A short script can ask for more
    // messages than memory holds, so that not more than these limits are made.
    Reading(const std::string& content, EffectRegistry* registry, uint32_t startOffset);
    ~Reading() override;

    static const size_t contentLimit;   // bytes
    static const size_t messageLimit;   // by all Steps together
    static const size_t listLimit;      // messages in all
    static const size_t parameterLimit; // of all messages together

    TextPosition PositionInFile(size_t byte) const;
    TextPosition PositionInStream(size_t character) const;

    const std::string& bytes;
    std::vector<ByteFate> fates; // one per byte
    std::string stream;
    std::vector<uint32_t> offsets; // where in the file each character of the stream stands
    std::vector<Block> blocks;     // a last one of type BlockNone has text that the reader could not use
    DemoPlayer player;             // its messages are in the order of the script, not sorted

private:
    void ByteRead(size_t place, char byte, ByteFate fate) override;
    void BlockBegins(BlockType type, size_t header, size_t body, const std::string& text) override;
    void BlockEnds() override;
    uint32_t LimitSteps(uint32_t steps) override;
    bool TakesMessage(size_t parameters) override;

    size_t CharactersBefore(size_t byte) const;

    std::vector<uint32_t> lineStarts;
    std::vector<uint32_t> charactersBefore; // of every countStep-th byte; empty: all characters are one byte
    size_t stepsGranted;
    size_t messagesTaken;
    size_t parametersTaken;
    std::vector<platform::MessageBox> boxes;
};

} // namespace lint
