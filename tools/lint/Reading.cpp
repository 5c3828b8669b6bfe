// SPDX-License-Identifier: MIT
#include "tools/lint/Reading.h"

#include "script/ScriptParser.h"

#include <algorithm>
#include <cstdio>

namespace lint
{

const size_t Reading::messageLimit = 20000;

Reading::Reading(const std::string& content, EffectRegistry* registry, uint32_t startOffset)
    : bytes(content), lineStarts{0}, stepsGranted(0)
{
    for (size_t i = 0; i < bytes.size(); i++)
        if (bytes[i] == '\n')
            lineStarts.push_back(i + 1);

    player.SetStartOffset(startOffset);
    player.registry = registry; // all of Init that a player without window and sound needs

    std::vector<platform::Box>* const previous = platform::CollectBoxes(&boxes);
    // A stream over nothing can't be had everywhere, and an empty script has no block.
    FILE* const file =
        bytes.empty() ? nullptr : fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "rb");
    if (file) {
        ScriptParser parser;
        parser.SetPlayer(&player);
        parser.SetObserver(this);
        parser.ReadBlocks(file);
        fclose(file);
    }
    platform::CollectBoxes(previous);
}

Reading::~Reading()
{
    // The player gives its messages back from the front, one by one, which takes long where they are many.
    for (const SynchMessage& message : player.messages)
        delete[] message.params;
    player.messages.clear();
}

static bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; // a further byte of a UTF-8 sequence doesn't
}

Place Reading::PlaceInFile(size_t byte) const
{
    const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), byte);
    const size_t start = *(next - 1);
    const size_t end = std::min(byte, bytes.size());
    const auto before = std::count_if(bytes.begin() + start, bytes.begin() + end, BeginsCharacter);
    return {int(next - lineStarts.begin()), int(before) + 1};
}

Place Reading::PlaceInStream(size_t character) const
{
    if (character < offsets.size())
        return PlaceInFile(offsets[character]);
    return PlaceInFile(offsets.empty() ? 0 : offsets.back() + 1);
}

void Reading::ByteRead(size_t place, char byte, ByteFate fate)
{
    fates.push_back(fate);
    if (fate == ByteKept) {
        stream += byte;
        offsets.push_back(place);
    }
}

void Reading::BlockBegins(BlockType type, size_t header, size_t body, const std::string& text)
{
    boxes.clear();
    blocks.push_back(
        {type, header, body, text, player.timeline.size(), 0, player.messages.size(), 0, 0, 0, false});
}

void Reading::BlockEnds()
{
    Block& block = blocks.back();
    block.entryCount = player.timeline.size() - block.firstEntry;
    block.messageCount = player.messages.size() - block.firstMessage;
    block.hasBox = !boxes.empty();
}

uint32_t Reading::LimitSteps(uint32_t steps)
{
    const uint32_t granted = uint32_t(std::min<size_t>(steps, messageLimit - stepsGranted));
    stepsGranted += granted;
    blocks.back().steps = steps;
    blocks.back().stepsMade = granted;
    return granted;
}

} // namespace lint
