// SPDX-License-Identifier: MIT
#include "script/BlockSyntax.h"

const std::vector<BlockSyntax>& AllBlockSyntax()
{
    // clang-format off
    static const std::vector<BlockSyntax> all = {
        {BlockMusic,       "MUSIC",       {key::FileName}, 1},
        {BlockEffect,      "EFFECT",      {key::EffectName, key::StartTime, key::StopTime, key::LayerID}, 4},
        {BlockMessage,     "MESSAGE",     {key::MessageText, key::ActivationTime, key::TargetEffect,
                                           key::Parameter, key::Steps, key::TimeDelta}, 3},
        {BlockColorScheme, "COLORSCHEME", {key::GlobalColor, key::SupportColor, key::FlowColor}, 3},
    };
    // clang-format on
    return all;
}

const BlockSyntax& SyntaxOf(BlockType type)
{
    return AllBlockSyntax()[size_t(type) - 1];
}

BlockType BlockTypeNamed(const std::string& name)
{
    for (const BlockSyntax& syntax : AllBlockSyntax())
        if (syntax.name == name)
            return syntax.type;
    return BlockNone;
}
