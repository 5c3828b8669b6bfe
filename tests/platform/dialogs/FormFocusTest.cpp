// SPDX-License-Identifier: MIT
#include "platform/dialogs/FormFocus.h"

#include <gtest/gtest.h>

class FormFocus : public testing::Test
{
protected:
    FormFocus()
    {
        form.controls = {
            {1, platform::FormRadioButton, "small", 0, 0, 1, 1, false},
            {2, platform::FormRadioButton, "middle", 0, 0, 1, 1, true},
            {3, platform::FormRadioButton, "large", 0, 0, 1, 1, false},
            {4, platform::FormCheckBox, "hat", 0, 0, 1, 1, false},
            {5, platform::FormCheckBox, "coat", 0, 0, 1, 1, false},
            {6, platform::FormPushButton, "yes", 0, 0, 1, 1, false},
            {7, platform::FormPushButton, "no", 0, 0, 1, 1, false},
        };
        form.acceptId = 6;
        form.leaveId = 7;
    }

    int CheckedRadioButton() const
    {
        int checked = 0;
        for (int id = 1; id <= 3; ++id)
            if (form.IsChecked(id))
                checked = checked * 10 + id; // 12 would be both the first and the second
        return checked;
    }

    platform::StartForm form = {};
    platform::FormFocus focus{form};
};

TEST_F(FormFocus, NoControlHasItAtFirst)
{
    EXPECT_EQ(platform::FormClosed, focus.id);
}

TEST_F(FormFocus, TabVisitsTheCheckedRadioButtonThenEachOtherControlAndComesRound)
{
    for (int id : {2, 4, 5, 6, 7, 2}) {
        focus.Tab(false);
        EXPECT_EQ(id, focus.id);
    }
}

TEST_F(FormFocus, TabBackwardsVisitsTheSameStopsTheOtherWay)
{
    for (int id : {7, 6, 5, 4, 2, 7}) {
        focus.Tab(true);
        EXPECT_EQ(id, focus.id);
    }
}

TEST_F(FormFocus, TabStopsAtTheFirstRadioButtonWhenNoneIsChecked)
{
    form.Check(2, false);
    focus.Tab(false);
    EXPECT_EQ(1, focus.id);
    focus.Tab(false);
    EXPECT_EQ(4, focus.id);
}

TEST_F(FormFocus, TabStopsAtTheFirstOfSeveralCheckedRadioButtons)
{
    form.Check(3, true);
    focus.Tab(false);
    EXPECT_EQ(2, focus.id);
    focus.Tab(false);
    EXPECT_EQ(4, focus.id);
}

TEST_F(FormFocus, ArrowsWalkTheRadioButtonsRoundAndSelect)
{
    focus.Tab(false);
    for (int id : {3, 1, 2, 3}) {
        focus.Arrow(1);
        EXPECT_EQ(id, focus.id);
        EXPECT_EQ(id, CheckedRadioButton());
    }
    for (int id : {2, 1, 3}) {
        focus.Arrow(-1);
        EXPECT_EQ(id, focus.id);
        EXPECT_EQ(id, CheckedRadioButton());
    }
}

TEST_F(FormFocus, ArrowsWalkCheckBoxesAndPushButtonsWithoutAClick)
{
    focus.id = 4;
    focus.Arrow(1);
    EXPECT_EQ(5, focus.id);
    focus.Arrow(1);
    EXPECT_EQ(4, focus.id);
    focus.id = 6;
    focus.Arrow(-1);
    EXPECT_EQ(7, focus.id);
    focus.Arrow(-1);
    EXPECT_EQ(6, focus.id);
    EXPECT_FALSE(form.IsChecked(4));
    EXPECT_FALSE(form.IsChecked(5));
    EXPECT_EQ(2, CheckedRadioButton());
}

TEST_F(FormFocus, TheFirstArrowOnlyShowsWhereTheFocusIs)
{
    focus.Arrow(1);
    EXPECT_EQ(2, focus.id);
    EXPECT_EQ(2, CheckedRadioButton());
    focus.id = platform::FormClosed;
    focus.Arrow(-1);
    EXPECT_EQ(7, focus.id);
}

TEST_F(FormFocus, SpaceClicksWhatHasIt)
{
    EXPECT_EQ(platform::FormClosed, focus.Space());
    focus.id = 5;
    EXPECT_EQ(platform::FormClosed, focus.Space());
    EXPECT_TRUE(form.IsChecked(5));
    EXPECT_EQ(platform::FormClosed, focus.Space());
    EXPECT_FALSE(form.IsChecked(5));
    focus.id = 3;
    EXPECT_EQ(platform::FormClosed, focus.Space());
    EXPECT_EQ(3, CheckedRadioButton());
    focus.id = 6;
    EXPECT_EQ(6, focus.Space());
    focus.id = 7;
    EXPECT_EQ(7, focus.Space());
}

TEST_F(FormFocus, EnterAccepts)
{
    for (int id : {0, 1, 2, 3, 4, 5, 6}) {
        focus.id = id;
        EXPECT_EQ(6, focus.Enter()) << id;
    }
    EXPECT_EQ(2, CheckedRadioButton());
    EXPECT_FALSE(form.IsChecked(4));
}

TEST_F(FormFocus, EnterOnAnotherPushButtonPressesThatOne)
{
    focus.id = 7;
    EXPECT_EQ(7, focus.Enter());
}

TEST_F(FormFocus, AnEmptyFormKeepsNothing)
{
    form.controls.clear();
    focus.Tab(false);
    focus.Tab(true);
    focus.Arrow(1);
    focus.Arrow(-1);
    EXPECT_EQ(platform::FormClosed, focus.id);
    EXPECT_EQ(platform::FormClosed, focus.Space());
    EXPECT_EQ(platform::FormClosed, focus.Enter());
}
