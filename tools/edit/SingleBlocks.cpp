// SPDX-License-Identifier: MIT
#include "tools/edit/SingleBlocks.h"

#include "tools/edit/ValueText.h"
#include "tools/lint/Checks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace edit
{

// The last complete block of a type, which is the one that counts; else the last one; else NoBlock.
static size_t LastOf(const std::vector<OutlineBlock>& blocks, BlockType type)
{
    size_t complete = ScriptEdit::NoBlock, last = ScriptEdit::NoBlock;
    for (size_t i = 0; i < blocks.size(); i++) {
        if (blocks[i].type != type)
            continue;
        last = i;
        if (blocks[i].complete)
            complete = i;
    }
    return complete != ScriptEdit::NoBlock ? complete : last;
}

bool SetMusicFile(ScriptEdit* script, const std::string& fileName)
{
    const std::vector<OutlineBlock>& blocks = script->GetOutline().blocks;
    if (IsBlank(fileName)) {
        for (size_t i = 0; i < blocks.size(); i++)
            if (blocks[i].type == BlockMusic && !script->RemoveBlock(i))
                return false;
        return true;
    }
    std::string value, reason;
    if (!MakeValue(key::FileName, fileName, &value, &reason))
        return script->Refuse(reason);
    const size_t block = LastOf(blocks, BlockMusic);
    if (block != ScriptEdit::NoBlock)
        return blocks[block].fileName == value || script->SetValue(block, key::FileName, value);
    script->InsertBlock(ScriptEdit::NoBlock,
                        WriteBlock(script->StyleAt(0), BlockMusic, {{key::FileName, value}}));
    return true;
}

static uint32_t ComponentOf(float value)
{
    return uint32_t(lround(std::clamp(std::isfinite(value) ? value : 0.0f, 0.0f, 1.0f) * 255));
}

static std::string ColourText(const float* colour)
{
    return std::to_string(ComponentOf(colour[0])) + "," + std::to_string(ComponentOf(colour[1])) + "," +
           std::to_string(ComponentOf(colour[2]));
}

// True if the reader makes this colour of the value already.
static bool IsColour(const OutlineValue* value, const float* colour)
{
    if (!value)
        return false;
    const std::vector<std::string> items = SplitList(value->text);
    for (size_t i = 0; i < 3; i++)
        if (float(uint32_t(i < items.size() ? atoi(items[i].c_str()) : 0) / 255.0) != colour[i])
            return false;
    return true;
}

bool SetColors(ScriptEdit* script, const ColorScheme& scheme)
{
    const std::vector<OutlineBlock>& blocks = script->GetOutline().blocks;
    const struct {
        const char* key;
        const float* colour;
    } rows[] = {{key::GlobalColor, scheme.global},
                {key::SupportColor, scheme.support},
                {key::FlowColor, scheme.flow}};
    const size_t block = LastOf(blocks, BlockColorScheme);
    std::vector<KeyAndValue> entries;
    for (const auto& row : rows) {
        entries.push_back({row.key, ColourText(row.colour)});
        if (block != ScriptEdit::NoBlock && !IsColour(blocks[block].FindValue(row.key), row.colour) &&
            !script->SetValue(block, row.key, entries.back().value))
            return false;
    }
    if (block != ScriptEdit::NoBlock)
        return true;
    const size_t behind = LastOf(blocks, BlockMusic);
    script->InsertBlock(behind, WriteBlock(script->StyleAt(behind), BlockColorScheme, entries));
    return true;
}

} // namespace edit
