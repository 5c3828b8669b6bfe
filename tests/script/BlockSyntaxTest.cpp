// SPDX-License-Identifier: MIT
#include "script/BlockSyntax.h"

#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/EffectRegistry.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "script/ScriptParser.h"

#include <gtest/gtest.h>

TEST(BlockSyntax, HasTheFourBlocksInTheOrderOfTheirTypes)
{
    const char* const names[4] = {"MUSIC", "EFFECT", "MESSAGE", "COLORSCHEME"};
    ASSERT_EQ(4u, AllBlockSyntax().size());
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(names[i], AllBlockSyntax()[i].name);
        EXPECT_EQ(i + 1, AllBlockSyntax()[i].type);
        EXPECT_EQ(&AllBlockSyntax()[i], &SyntaxOf(BlockType(i + 1)));
        EXPECT_EQ(i + 1, BlockTypeNamed(names[i]));
    }
}

TEST(BlockSyntax, NamesAreExact)
{
    for (const char* name : {"", "music", "MUSI", "MUSICS", "[MUSIC]", "FileName"})
        EXPECT_EQ(BlockNone, BlockTypeNamed(name)) << name;
}

TEST(BlockSyntax, KeysStandAsScriptsHaveThem)
{
    typedef std::vector<std::string> Keys;
    EXPECT_EQ((Keys{"FileName"}), SyntaxOf(BlockMusic).keys);
    EXPECT_EQ((Keys{"EffectName", "StartTime", "StopTime", "LayerID"}), SyntaxOf(BlockEffect).keys);
    EXPECT_EQ((Keys{"MessageText", "ActivationTime", "TargetEffect", "Parameter", "Steps", "TimeDelta"}),
              SyntaxOf(BlockMessage).keys);
    EXPECT_EQ((Keys{"GlobalColor", "SupportColor", "FlowColor"}), SyntaxOf(BlockColorScheme).keys);
}

static void Parse(ScriptParser& parser, BlockType type, const std::string& body)
{
    switch (type) {
    case BlockMusic:
        return parser.ParseMusic(body);
    case BlockEffect:
        return parser.ParseEffect(body);
    case BlockMessage:
        return parser.ParseMessage(body);
    case BlockColorScheme:
        return parser.ParseColorScheme(body);
    case BlockNone:
        return;
    }
}

// A block with all its keys but one.
static std::string BodyWithout(const BlockSyntax& syntax, const std::string& missing)
{
    std::string body;
    for (const std::string& key : syntax.keys)
        if (key != missing)
            body += key + "=1;";
    return body;
}

TEST(BlockSyntax, TheReaderInsistsOnTheNeededKeysAndOnNoOthers)
{
    std::vector<platform::MessageBox> boxes;
    platform::CollectMessageBoxes(&boxes);
    EffectRegistry registry;
    GLWindow window;
    DemoPlayer player;
    player.Init(&window, &registry, nullptr, false);
    ScriptParser parser;
    parser.SetPlayer(&player);
    for (const BlockSyntax& syntax : AllBlockSyntax())
        for (size_t i = 0; i <= syntax.keys.size(); i++) {
            const std::string missing = i < syntax.keys.size() ? syntax.keys[i] : "";
            boxes.clear();
            Parse(parser, syntax.type, BodyWithout(syntax, missing));
            int complaints = 0; // the player's own, of an unknown effect, are none of the reader's
            for (const platform::MessageBox& box : boxes)
                complaints += box.icon == platform::BoxInformationIcon;
            EXPECT_EQ(i < syntax.needed ? 1 : 0, complaints) << syntax.name << " without " << missing;
        }
    platform::CollectMessageBoxes(nullptr);
}
