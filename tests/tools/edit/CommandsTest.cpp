// SPDX-License-Identifier: MIT
#include "tools/edit/Commands.h"

#include "tests/Folders.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

using namespace edit;
using platform::KeyPress;

static KeyPress Press(int key, bool control = false, bool shift = false, bool alt = false)
{
    return {key, control, shift, alt, false};
}

static CommandId IdOf(const KeyPress& press)
{
    const Command* const command = FindCommand(press);
    return command ? command->id : CommandCount;
}

TEST(Commands, StandInTheTableInTheOrderOfTheirNumbers)
{
    ASSERT_EQ(size_t(CommandCount), Commands().size());
    for (size_t i = 0; i < Commands().size(); i++) {
        EXPECT_EQ(i, size_t(Commands()[i].id)) << Commands()[i].name;
        EXPECT_EQ(&Commands()[i], &CommandOf(CommandId(i)));
    }
}

TEST(Commands, StandBesideThoseOfTheirMenu)
{
    for (size_t i = 1; i < Commands().size(); i++)
        EXPECT_LE(Commands()[i - 1].menu, Commands()[i].menu) << Commands()[i].name;
}

TEST(Commands, HaveANameAKeyAndASentenceEach)
{
    std::set<std::string> names;
    for (const Command& command : Commands()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name << " stands there twice";
        EXPECT_NE("", KeysText(command)) << command.name << " has no key";
        const std::string help = command.help;
        ASSERT_GT(help.size(), 10u) << command.name;
        EXPECT_TRUE(isupper(static_cast<unsigned char>(help[0]))) << help;
        EXPECT_EQ('.', help.back()) << help;
        EXPECT_EQ(std::string::npos, help.find('|')) << help << " would break the table of docs/TOOLS.md";
    }
}

TEST(Commands, HaveNoKeyThatTwoOfThemShare)
{
    std::set<std::string> keys;
    for (const Command& command : Commands())
        for (const KeyPress& press : command.keys)
            if (press.key != platform::KeyNone) {
                EXPECT_TRUE(keys.insert(KeyText(press)).second) << KeyText(press);
                EXPECT_EQ(command.id, IdOf(press)) << KeyText(press);
            }
}

// What every program of its kind has.
TEST(Commands, HaveTheKeysThatHandsExpect)
{
    EXPECT_EQ(CommandPlay, IdOf(Press(' ')));
    EXPECT_EQ(CommandBackFrame, IdOf(Press(platform::KeyLeft)));
    EXPECT_EQ(CommandOnFrame, IdOf(Press(platform::KeyRight)));
    EXPECT_EQ(CommandHome, IdOf(Press(platform::KeyHome)));
    EXPECT_EQ(CommandEnd, IdOf(Press(platform::KeyEnd)));
    EXPECT_EQ(CommandUndo, IdOf(Press('z', true)));
    EXPECT_EQ(CommandRedo, IdOf(Press('y', true)));
    EXPECT_EQ(CommandRedo, IdOf(Press('z', true, true)));
    EXPECT_EQ(CommandSave, IdOf(Press('s', true)));
    EXPECT_EQ(CommandCopy, IdOf(Press('c', true)));
    EXPECT_EQ(CommandCut, IdOf(Press('x', true)));
    EXPECT_EQ(CommandPaste, IdOf(Press('v', true)));
    EXPECT_EQ(CommandDuplicate, IdOf(Press('d', true)));
    EXPECT_EQ(CommandSelectAll, IdOf(Press('a', true)));
    EXPECT_EQ(CommandDelete, IdOf(Press(platform::KeyDelete)));
    EXPECT_EQ(CommandZoomIn, IdOf(Press('+')));
    EXPECT_EQ(CommandZoomOut, IdOf(Press('-')));
    EXPECT_EQ(CommandZoomShow, IdOf(Press('0')));
    EXPECT_EQ(CommandMarker, IdOf(Press('m')));
    EXPECT_EQ(CommandLoop, IdOf(Press('l')));
    EXPECT_EQ(CommandGoTo, IdOf(Press('g', true)));
    EXPECT_EQ(CommandFullScreen, IdOf(Press(platform::KeyF1 + 10)));
    EXPECT_EQ(CommandKeys, IdOf(Press(platform::KeyF1)));
}

TEST(Commands, WantExactlyTheirOwnKeys)
{
    EXPECT_EQ(nullptr, FindCommand(Press('s', true, false, true)));
    EXPECT_EQ(nullptr, FindCommand(Press(platform::KeyNone)));
    EXPECT_EQ(CommandSaveAs, IdOf(Press('s', true, true)));
    EXPECT_EQ(CommandSnap, IdOf(Press('s')));
    KeyPress held = Press(platform::KeyRight);
    held.repeated = true;
    EXPECT_EQ(CommandOnFrame, IdOf(held));
}

TEST(Commands, NameTheirKeysAsTheyStandOnAKeyboard)
{
    EXPECT_EQ("Ctrl+Shift+S", KeyText(Press('s', true, true)));
    EXPECT_EQ("Alt+Up", KeyText(Press(platform::KeyUp, false, false, true)));
    EXPECT_EQ("F1", KeyText(Press(platform::KeyF1)));
    EXPECT_EQ("F11", KeyText(Press(platform::KeyF1 + 10)));
    EXPECT_EQ("Space", KeyText(Press(' ')));
    EXPECT_EQ("Escape", KeyText(Press(platform::KeyEscape)));
    EXPECT_EQ("Left", KeyText(Press(platform::KeyLeft)));
    EXPECT_EQ("+", KeyText(Press('+')));
    EXPECT_EQ("", KeyText(Press(platform::KeyNone)));
    EXPECT_EQ("Ctrl+Y or Ctrl+Shift+Z", KeysText(CommandOf(CommandRedo)));
}

TEST(Commands, StandInTheDocumentedTable)
{
    const std::string page = ReadFile(SOURCE_DIR "/docs/TOOLS.md");
    std::istringstream rows(CommandTable());
    int count = 0;
    for (std::string row; std::getline(rows, row); count++)
        EXPECT_NE(std::string::npos, page.find("\n" + row + "\n")) << "docs/TOOLS.md lacks the row\n" << row;
    EXPECT_EQ(int(CommandCount) + 2, count);
}

// The other way round: no row is left of a command that has gone.
TEST(Commands, AreAllThatTheDocumentedTableHas)
{
    std::istringstream page(ReadFile(SOURCE_DIR "/docs/TOOLS.md"));
    const std::string table = CommandTable();
    int rows = 0;
    for (std::string line; std::getline(page, line);)
        for (int menu = 0; menu < MenuCount; menu++)
            if (line.starts_with(std::string("| ") + NameOf(Menu(menu)) + " | ")) {
                EXPECT_NE(std::string::npos, table.find(line + "\n")) << line;
                rows++;
            }
    EXPECT_EQ(int(CommandCount), rows);
}
