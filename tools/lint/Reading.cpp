// SPDX-License-Identifier: MIT
#include "tools/lint/Reading.h"

#include "platform/dialogs/MessageBoxHooks.h"
#include "script/ScriptParser.h"

#include <algorithm>
#include <cstdio>

namespace lint
{

const size_t Reading::contentLimit = 16 << 20;
const size_t Reading::messageLimit = 20000;
const size_t Reading::listLimit = 200000;
const size_t Reading::parameterLimit = 2 << 20;

static const size_t countStep = 64; // bytes

static bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; // not a continuation byte of UTF-8
}

Reading::Reading(const std::string& content, EffectRegistry* registry, uint32_t startOffset)
    : bytes(content), lineStarts{0}, stepsGranted(0), messagesTaken(0), parametersTaken(0)
{
    fates.reserve(bytes.size());
    stream.reserve(bytes.size());
    offsets.reserve(bytes.size());
    uint32_t characters = 0;
    for (size_t i = 0; i < bytes.size(); i++) {
        if (i % countStep == 0)
            charactersBefore.push_back(characters);
        characters += BeginsCharacter(bytes[i]) ? 1 : 0;
        if (bytes[i] == '\n')
            lineStarts.push_back(uint32_t(i + 1));
    }
    if (characters == bytes.size())
        charactersBefore.clear();

    player.SetStartOffset(startOffset);
    player.registry = registry; // DemoPlayer::Init would do more, and needs a window

    std::vector<platform::MessageBox>* const previous = platform::CollectMessageBoxes(&boxes);
    // fmemopen refuses a size of 0 in some C libraries, and an empty script has no block to read.
    FILE* const file =
        bytes.empty() ? nullptr : fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "rb");
    if (file) {
        ScriptParser parser;
        parser.SetPlayer(&player);
        parser.SetObserver(this);
        parser.ReadBlocks(file);
        fclose(file);
    }
    platform::CollectMessageBoxes(previous);
}

Reading::~Reading()
{
    // ~DemoPlayer erases its messages from the front, one by one, in quadratic time.
    for (const SynchMessage& message : player.messages)
        delete[] message.params;
    player.messages.clear();
}

// The number of characters that begin before a byte. Counts on from the stored number before it, because a line
// can be as long as the file.
size_t Reading::CharactersBefore(size_t byte) const
{
    if (charactersBefore.empty()) // each byte is one
        return byte;
    const size_t mark = std::min(byte / countStep, charactersBefore.size() - 1);
    const auto begin = bytes.begin() + std::ptrdiff_t(mark * countStep);
    return charactersBefore[mark] +
           size_t(std::count_if(begin, bytes.begin() + std::ptrdiff_t(byte), BeginsCharacter));
}

TextPosition Reading::PositionInFile(size_t byte) const
{
    const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), byte);
    const size_t before = CharactersBefore(std::min(byte, bytes.size())) - CharactersBefore(*(next - 1));
    return {int(next - lineStarts.begin()), int(before) + 1};
}

TextPosition Reading::PositionInStream(size_t character) const
{
    if (character < offsets.size())
        return PositionInFile(offsets[character]);
    return PositionInFile(offsets.empty() ? 0 : offsets.back() + 1);
}

void Reading::ByteRead(size_t place, char byte, ByteFate fate)
{
    fates.push_back(fate);
    if (fate == ByteKept) {
        stream += byte;
        offsets.push_back(uint32_t(place));
    }
}

void Reading::BlockBegins(BlockType type, size_t header, size_t body, const std::string& text)
{
    boxes.clear();
    blocks.push_back(
        {type, header, body, text, player.timeline.size(), 0, player.messages.size(), 0, 0, 0, 0, false});
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

bool Reading::TakesMessage(size_t parameters)
{
    if (messagesTaken == listLimit || parameters > parameterLimit - parametersTaken) {
        blocks.back().messagesRefused++;
        return false;
    }
    messagesTaken++;
    parametersTaken += parameters;
    return true;
}

} // namespace lint
