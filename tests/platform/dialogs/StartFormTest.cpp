// SPDX-License-Identifier: MIT
#include "platform/dialogs/StartForm.h"

#include "platform/dialogs/StartFormHooks.h"

#include <gtest/gtest.h>

#include <cstdlib>

static platform::StartForm SmallForm()
{
    platform::StartForm form;
    form.width = form.height = 100;
    form.controls = {
        {1, platform::FormRadioButton, "left", 0, 0, 1, 1, true},
        {2, platform::FormRadioButton, "right", 0, 0, 1, 1, false},
        {3, platform::FormCheckBox, "hat", 0, 0, 1, 1, false},
        {4, platform::FormPushButton, "yes", 0, 0, 1, 1, false},
        {5, platform::FormPushButton, "no", 0, 0, 1, 1, false},
    };
    form.acceptId = 4;
    form.leaveId = 5;
    return form;
}

TEST(StartForm, DialogUnitsAreAQuarterAndAnEighthOfACharacterOfSixByFourteenPixels)
{
    EXPECT_EQ(0, platform::FormPixelsAcross(0));
    EXPECT_EQ(348, platform::FormPixelsAcross(232));
    EXPECT_EQ(20, platform::FormPixelsAcross(13)); // 19.5
    EXPECT_EQ(255, platform::FormPixelsAcross(170));
    EXPECT_EQ(0, platform::FormPixelsDown(0));
    EXPECT_EQ(138, platform::FormPixelsDown(79));  // 138.25
    EXPECT_EQ(250, platform::FormPixelsDown(143)); // 250.25
    EXPECT_EQ(158, platform::FormPixelsDown(90));  // 157.5
    EXPECT_EQ(191, platform::FormPixelsDown(109)); // 190.75
}

TEST(StartForm, AClickOnARadioButtonSelectsItAlone)
{
    platform::StartForm form = SmallForm();
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_EQ(platform::FormClosed, form.Click(2));
        EXPECT_FALSE(form.IsChecked(1));
        EXPECT_TRUE(form.IsChecked(2));
        EXPECT_FALSE(form.IsChecked(3));
    }
}

TEST(StartForm, AClickOnACheckBoxTurnsItOver)
{
    platform::StartForm form = SmallForm();
    EXPECT_EQ(platform::FormClosed, form.Click(3));
    EXPECT_TRUE(form.IsChecked(3));
    EXPECT_TRUE(form.IsChecked(1));
    EXPECT_EQ(platform::FormClosed, form.Click(3));
    EXPECT_FALSE(form.IsChecked(3));
}

TEST(StartForm, AClickOnAPushButtonEndsTheFormAndChecksNothing)
{
    platform::StartForm form = SmallForm();
    EXPECT_EQ(4, form.Click(4));
    EXPECT_EQ(5, form.Click(5));
    EXPECT_FALSE(form.IsChecked(4));
    EXPECT_TRUE(form.IsChecked(1));
}

TEST(StartForm, CheckSetsOneMarkAndLeavesTheGroupAlone)
{
    platform::StartForm form = SmallForm();
    form.Check(2, true);
    EXPECT_TRUE(form.IsChecked(1));
    EXPECT_TRUE(form.IsChecked(2));
    form.Check(1, false);
    EXPECT_FALSE(form.IsChecked(1));
}

TEST(StartForm, AControlThatIsNotThereTakesNoMarkAndNoClick)
{
    platform::StartForm form = SmallForm();
    form.Check(6, true);
    EXPECT_FALSE(form.IsChecked(6));
    EXPECT_EQ(platform::FormClosed, form.Click(6));
    EXPECT_EQ(platform::FormClosed, form.Click(platform::FormClosed));
    EXPECT_EQ(nullptr, form.Find(6));
    EXPECT_TRUE(form.IsChecked(1));
    EXPECT_EQ("no", form.Find(5)->text);
}

TEST(StartForm, CanBeAnsweredWithoutAWindow)
{
    platform::StartForm form = SmallForm();
    platform::AnswerStartForm([](platform::StartForm& asked) {
        asked.Click(3);
        return asked.acceptId;
    });
    EXPECT_EQ(4, platform::ShowStartForm(form));
    EXPECT_TRUE(form.IsChecked(3));
    platform::AnswerStartForm(nullptr);
}

TEST(StartForm, CountsAsClosedWithoutADisplay)
{
    unsetenv("DISPLAY");
    platform::StartForm form = SmallForm();
    EXPECT_EQ(platform::FormClosed, platform::ShowStartForm(form));
}
