// SPDX-License-Identifier: MIT
// The list of findings under a hand: a click on one goes to it, the button beside it applies its cure.
#include "tools/edit/FindingsPanel.h"

#include "platform/Paths.h"
#include "tests/Folders.h"
#include "tests/support/EditedScript.h"
#include "tests/support/PanelFixture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include <unistd.h>

using namespace edit;

// One message comes after its effect has gone, and the name of the music has an = too many.
static const std::string script = EditedScript::Entry("FX_Clouds", 0, 10000, 1) +
                                  EditedScript::Message("FX_Clouds", "hand", "4000,12000") +
                                  "[MUSIC]\nFileName==a.ogg;\n";

static const double left = 30;               // on the words of a row
static const double buttonX = 960;           // on its button
static const double top = 10, step = 6;      // of the search for a row, pixels
static const int patience = 20000;           // looks for what a thread does
static const useconds_t betweenLooks = 1000; // microseconds

class WithProductionData : public testing::Test
{
protected:
    WithProductionData() : before(platform::GetDataDirectory())
    {
        platform::SetDataDirectory(SOURCE_DIR "/Data");
    }
    ~WithProductionData() override { platform::SetDataDirectory(before); }

private:
    const std::string before;
};

class Findings : public WithProductionData
{
protected:
    Findings()
        : path(testing::TempDir() + "marlinex-findings-" + std::to_string(getpid())), session({}, [] {}),
          state(session.state)
    {
        std::ofstream(path, std::ios::binary) << script;
        std::string reason;
        EXPECT_TRUE(session.Open(path, &reason)) << reason;
        EXPECT_TRUE(TickUntil([this] { return state.analysis != nullptr; }));
        panel.Show([this] { findings.Draw(&session); });
    }
    ~Findings() override { unlink(path.c_str()); }

    bool TickUntil(const std::function<bool()>& isSo)
    {
        for (int i = 0; i < patience; i++) {
            session.Tick(i / 1000.0);
            if (isSo())
                return true;
            usleep(betweenLooks);
        }
        return false;
    }

    // Clicks into the list from the top down, as a hand would without reading, until that is so.
    void ClickDown(double x, const std::function<bool()>& isSo)
    {
        for (double y = top; y < double(PanelFixture::Height) && !isSo(); y += step)
            panel.Click(x, y);
        EXPECT_TRUE(isSo());
    }
    void Mend()
    {
        ClickDown(buttonX, [this] { return session.IsCuring(); });
        EXPECT_TRUE(TickUntil([this] { return !session.IsCuring(); }));
    }

    std::string Text() const { return state.document->Text(); }

    const std::string path;
    PanelFixture panel;
    Session session;
    EditorState& state;
    FindingsPanel findings;
};

TEST_F(Findings, AreGoneToByAClick)
{
    ClickDown(left, [this] { return state.goTo == 12.0; }); // where the message is lost
    EXPECT_EQ((std::vector<ItemId>{{1, 1}}), state.selection) << "the second of its times";
    EXPECT_TRUE(state.revealSelection);
    EXPECT_EQ(script, Text());
}

TEST_F(Findings, AreMendedByTheirButton)
{
    Mend(); // only the name of the music has a cure that is certain
    std::string expected = script;
    expected.erase(expected.find("=="), 1);
    EXPECT_EQ(expected, Text());
    EXPECT_EQ("", state.notice);
    EXPECT_TRUE(state.document->Undo());
    EXPECT_EQ(script, Text());
}

TEST_F(Findings, AreNotGoneToByAClickOnTheButtonWhileACureIsWorkedOut)
{
    double y = top;
    for (; y < double(PanelFixture::Height) && !session.IsCuring(); y += step)
        panel.Click(buttonX, y);
    ASSERT_TRUE(session.IsCuring()); // and stays so, since nobody asks what has become of it
    state.selection.clear();
    panel.Click(buttonX, y - step);
    EXPECT_TRUE(state.selection.empty());
    panel.Click(left, y - step);
    EXPECT_FALSE(state.selection.empty());
}

TEST_F(Findings, ThatHaveGoneMeanwhileAreToldInsteadOfMended)
{
    ASSERT_TRUE(state.document->SetMusic("")); // the list is still that of the text before
    const std::string edited = Text();
    Mend();
    EXPECT_EQ("The script has changed: this is no longer in it.", state.notice);
    EXPECT_EQ(edited, Text());
}

TEST(FindingsInTheList, StandWorstFirstAndElseInTheirOrder)
{
    std::vector<lint::Finding> found(5);
    found[0].severity = lint::Note;
    found[1].severity = lint::Warning;
    found[2].severity = lint::Error;
    found[3].severity = lint::Note;
    found[4].severity = lint::Error;
    EXPECT_EQ((std::vector<size_t>{2, 4, 1, 0, 3}), BySeverity(found));
}
