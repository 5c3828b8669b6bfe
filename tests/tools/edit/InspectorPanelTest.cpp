// SPDX-License-Identifier: MIT
// What is typed into the fields of the inspector stands in the script, and nothing else changes.
#include "tools/edit/InspectorPanel.h"

#include "tests/support/EditedScript.h"
#include "tests/support/PanelFixture.h"

#include <gtest/gtest.h>

#include <imgui_internal.h>

#include <vector>

using namespace edit;

class Inspector : public testing::Test
{
protected:
    explicit Inspector(const std::string& text = EditedScript::Night()) : script(text), state(script.state)
    {
        panel.Show([this] { inspector.Draw(&state); });
    }

    // Looks for the text fields from the top down with clicks, as a hand would without reading.
    void Select(ItemId item)
    {
        state.selection = {item};
        FindFields();
    }
    void FindFields()
    {
        fields.clear();
        ImGuiID last = 0;
        for (double y = 10; y < double(PanelFixture::Height); y += 6) {
            panel.Click(700, y);
            panel.Frame(); // WantTextInput tells of the frame before
            if (ImGui::GetIO().WantTextInput && ImGui::GetActiveID() != 0 && ImGui::GetActiveID() != last) {
                last = ImGui::GetActiveID();
                fields.push_back(y);
            }
        }
        panel.Click(700, 497);
    }
    void Type(size_t field, const char* text, ImGuiKey end = ImGuiKey_Enter)
    {
        ASSERT_LT(field, fields.size());
        panel.Click(700, fields[field] + 4); // all of it is selected then
        panel.Type(text);
        panel.Key(end);
        panel.Frame();
    }

    PanelFixture panel;
    EditedScript script;
    EditorState& state;
    InspectorPanel inspector;
    std::vector<double> fields; // y
};

TEST_F(Inspector, HasTheNumbersOfAnEntry)
{
    const size_t towers = script.Block("40000");
    Select({towers, -1});
    ASSERT_EQ(4u, fields.size()) << "layer, start, stop, length";
    Type(0, "7");
    EXPECT_EQ(7u, script.At(towers).layer);
    Type(1, "21500");
    EXPECT_EQ(21500u, script.At(towers).start);
    EXPECT_EQ(40000u, script.At(towers).stop);
    Type(2, "0:44.25");
    EXPECT_EQ(44250u, script.At(towers).stop);
    Type(3, "1500");
    EXPECT_EQ(21500u, script.At(towers).start);
    EXPECT_EQ(23000u, script.At(towers).stop);
    for (int i = 0; i < 4; i++)
        EXPECT_TRUE(script.document.Undo()) << "each is one step";
    EXPECT_FALSE(script.document.CanUndo());
}

TEST_F(Inspector, TakesAMomentAsABarToo)
{
    const size_t towers = script.Block("40000");
    Select({towers, -1});
    Type(1, "10:2"); // bar 10 at 18 s, and a beat
    EXPECT_EQ(18600u, script.At(towers).start);
}

TEST_F(Inspector, LeavesTheScriptAloneAtEscapeAndAtNonsense)
{
    const std::string before = script.document.Text();
    Select({script.Block("40000"), -1});
    Type(1, "777", ImGuiKey_Escape);
    EXPECT_EQ(before, script.document.Text());
    EXPECT_EQ("", state.notice);
    Type(1, "soon");
    EXPECT_EQ(before, script.document.Text());
    EXPECT_NE("", state.notice);
    state.notice = "";
    Type(0, "top");
    EXPECT_EQ(before, script.document.Text());
    EXPECT_NE("", state.notice);
}

TEST_F(Inspector, HasTheTimesOfAMessage)
{
    const size_t hand = script.Block("hand");
    Select({hand, 1});
    ASSERT_EQ(2u, fields.size()) << "this time, and all of them";
    Type(0, "9600");
    ASSERT_EQ(2u, script.At(hand).times.size());
    EXPECT_EQ(6000u, script.At(hand).times[0].milliseconds);
    EXPECT_EQ(9600u, script.At(hand).times[1].milliseconds);
    Type(1, "1000,2000,3000");
    EXPECT_EQ(3u, script.At(hand).times.size());
}

TEST_F(Inspector, HasTheStepsAndParametersOfAGroup)
{
    const size_t flash = script.Block("flash");
    Select({flash, 0});
    ASSERT_EQ(4u, fields.size()) << "time, steps, distance, parameter";
    Type(1, "5");
    EXPECT_EQ(5u, script.At(flash).steps);
    Type(2, "300");
    EXPECT_EQ(300u, script.At(flash).delta);
    Type(3, "6");
    EXPECT_EQ(std::vector<float>{6}, script.At(flash).parameters)
        << "as it is meant, not as the reader would cut it";
    Type(0, "2400");
    EXPECT_EQ(2400u, script.At(flash).times[0].milliseconds);
}

TEST_F(Inspector, MovesSeveralByTheFirstOfThem)
{
    const size_t towers = script.Block("40000"), hand = script.Block("hand");
    state.selection = {{towers, -1}, {hand, 0}};
    FindFields();
    ASSERT_EQ(1u, fields.size());
    Type(0, "7000");
    EXPECT_EQ(7000u, script.At(hand).times[0].milliseconds);
    EXPECT_EQ(9000u, script.At(hand).times[1].milliseconds);
    EXPECT_EQ(21000u, script.At(towers).start);
}

class InspectorOfTheShow : public Inspector
{
protected:
    InspectorOfTheShow()
        : Inspector("[MUSIC]\nFileName=old.ogg;\n\n[COLORSCHEME]\nGlobalColor=1,2,3;\nSupportColor=4,5,6;\n"
                    "FlowColor=7,8,9;\n")
    {
    }
};

TEST_F(InspectorOfTheShow, HasMusicAndColours)
{
    FindFields();
    ASSERT_EQ(4u, fields.size());
    Type(0, "waltz.ogg");
    EXPECT_NE(std::string::npos, script.document.Text().find("FileName=waltz.ogg;"));
    Type(2, "40,50,60");
    EXPECT_EQ("[MUSIC]\nFileName=waltz.ogg;\n\n[COLORSCHEME]\nGlobalColor=1,2,3;\nSupportColor=40,50,60;\n"
              "FlowColor=7,8,9;\n",
              script.document.Text());
}
