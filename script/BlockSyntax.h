// SPDX-License-Identifier: MIT
// The words of a script: the headers of its four kinds of block, and the keys of each. ScriptParser reads
// with them, and the tools take them from here.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

enum BlockType { BlockNone = 0, BlockMusic = 1, BlockEffect = 2, BlockMessage = 3, BlockColorScheme = 4 };

namespace key
{

// [MUSIC]
inline constexpr char FileName[] = "FileName";

// [EFFECT]
inline constexpr char EffectName[] = "EffectName";
inline constexpr char StartTime[] = "StartTime";
inline constexpr char StopTime[] = "StopTime";
inline constexpr char LayerID[] = "LayerID";

// [MESSAGE]
inline constexpr char MessageText[] = "MessageText";
inline constexpr char ActivationTime[] = "ActivationTime";
inline constexpr char TargetEffect[] = "TargetEffect";
inline constexpr char Parameter[] = "Parameter";
inline constexpr char Steps[] = "Steps";
inline constexpr char TimeDelta[] = "TimeDelta";

// [COLORSCHEME]
inline constexpr char GlobalColor[] = "GlobalColor";
inline constexpr char SupportColor[] = "SupportColor";
inline constexpr char FlowColor[] = "FlowColor";

} // namespace key

struct BlockSyntax {
    BlockType type;
    std::string name;              // of the header, without its brackets
    std::vector<std::string> keys; // in the order in which ScriptParser asks for them, needed ones first
    size_t needed;                 // how many of the keys a block must have
};

// All four, in the order of BlockType.
const std::vector<BlockSyntax>& AllBlockSyntax();

// The one of a type other than BlockNone.
const BlockSyntax& SyntaxOf(BlockType type);

// The type of the block with exactly this name; BlockNone if there is none.
BlockType BlockTypeNamed(const std::string& name);
