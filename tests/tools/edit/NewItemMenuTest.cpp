// SPDX-License-Identifier: MIT
// The menu of the right button under a hand.
#include "tools/edit/NewItemMenu.h"

#include "tests/support/EditedScript.h"
#include "tests/support/PanelFixture.h"
#include "tools/edit/EffectCatalogue.h"
#include "tools/edit/Selection.h"

#include <gtest/gtest.h>

#include <imgui_internal.h>

#include <functional>

using namespace edit;

class ItemMenu : public testing::Test
{
protected:
    explicit ItemMenu(const std::string& text = EditedScript::Night())
        : script(text), before(script.document.Text()), state(script.state)
    {
        panel.Show([this] { menu.Draw(&state, &tapping); });
    }

    void Open(uint32_t time, uint32_t layer, const std::string& effect)
    {
        panel.Move(100, 20);
        menu.Open(time, layer, effect);
        panel.Frame();
        panel.Frame();
        ASSERT_EQ(1, Popups());
    }
    static int Popups() { return ImGui::GetCurrentContext()->OpenPopupStack.Size; }
    static ImRect RectOf(int level)
    {
        return ImGui::GetCurrentContext()->OpenPopupStack[level].Window->Rect();
    }

    // Clicks the rows of the menu of a level, from the bottom up, until `done`. False: no row did it.
    bool ClickUp(int level, const std::function<bool()>& done)
    {
        const ImRect rect = RectOf(level);
        for (float y = rect.Max.y - 12; y > rect.Min.y; y -= 8) {
            panel.Click(double(rect.Min.x + 20), double(y));
            panel.Rest(0.5);
            if (done())
                return true;
        }
        return false;
    }

    PanelFixture panel;
    EditedScript script;
    const std::string before;
    EditorState& state;
    NewItemMenu menu;
    Tapping tapping;
};

TEST_F(ItemMenu, PutsAnEffectOfTheListIn)
{
    Open(5400, 4, "");
    ASSERT_TRUE(ClickUp(0, [] { return Popups() == 2; })) << "the last is the list of effects";
    ASSERT_TRUE(ClickUp(1, [this] { return script.document.Text() != before; }));
    ASSERT_EQ(1u, state.selection.size());
    const OutlineBlock& block = script.At(state.selection[0].block);
    EXPECT_EQ(EffectCatalogue::Production().effects.back().key, block.effect);
    EXPECT_EQ(5400u, block.start);
    EXPECT_EQ(5400u + 4 * 1800, block.stop) << "four bars";
    EXPECT_EQ(4u, block.layer);
    EXPECT_EQ(0, Popups());
    EXPECT_TRUE(script.document.Undo());
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(ItemMenu, ClosesAndChangesNothingWithAClickElsewhere)
{
    Open(5400, 4, "FX_Clouds");
    panel.Click(900, 480);
    EXPECT_EQ(0, Popups());
    EXPECT_EQ(before, script.document.Text());
}

TEST_F(ItemMenu, DeletesWhatIsSelected)
{
    const size_t towers = script.Block("40000");
    state.selection = {{towers, -1}};
    Open(0, 1, "");
    const size_t blocks = script.document.GetOutline().blocks.size();
    ClickUp(0, [&] { return script.document.GetOutline().blocks.size() < blocks || Popups() == 0; });
    EXPECT_EQ(blocks - 1, script.document.GetOutline().blocks.size());
    EXPECT_TRUE(state.selection.empty());
}

// Its list of times has no end, so that none of them can be taken out.
class UnendedItemMenu : public ItemMenu
{
protected:
    UnendedItemMenu()
        : ItemMenu(
              "[MESSAGE]\nMessageText=flash;\nActivationTime=1000,2000\nTargetEffect=WhiteFlashOverlay;\n")
    {
    }
};

TEST_F(UnendedItemMenu, KeepsTheSelectionWhereDeletionIsRefused)
{
    state.selection = {{0, 0}};
    Open(0, 1, "");
    ClickUp(0, [&] { return !state.notice.empty() || Popups() == 0; });
    EXPECT_EQ("A ; is missing behind ActivationTime in the block of line 1.", state.notice);
    EXPECT_EQ(before, script.document.Text());
    EXPECT_EQ((Selection{{0, 0}}), state.selection);
}
